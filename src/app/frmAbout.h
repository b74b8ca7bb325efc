#pragma once

#include "ui/Dialog.h"

namespace velmo
{

struct ProgramInformation;

/// The about box; OK, Enter and Escape close it.
class frmAbout final : public Dialog
{
  public:
    frmAbout(wxWindow* parent, const ProgramInformation& information);
};

} // namespace velmo
