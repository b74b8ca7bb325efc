#pragma once

#include "ui/Dialog.h"
#include "updates/UpdatePrompts.h"

#include <functional>

namespace velmo
{

/// Tells of one program's update and offers its download. The update manager itself has neither
/// options nor an update page. Escape closes. ShowModal() gives wxID_OK for the download.
class frmUpdateDialog final : public Dialog
{
  public:
    /// What the buttons do that leave the window open.
    struct Actions
    {
        std::function<void()> openUpdatePage;
        std::function<void(wxWindow* parent)> setOptions;
    };

    frmUpdateDialog(wxWindow* parent, const ProgramRow& program, const Actions& actions);

  private:
    [[nodiscard]] wxSizer* NewTexts(const ProgramRow& program, int width);
};

} // namespace velmo
