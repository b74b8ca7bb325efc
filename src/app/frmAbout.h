#pragma once

#include <wx/dialog.h>

namespace velmo
{

struct ProgramInformation;

/// The about box; OK, Enter and Escape close it.
class frmAbout final : public wxDialog
{
  public:
    frmAbout(wxWindow* parent, const ProgramInformation& information);
};

} // namespace velmo
