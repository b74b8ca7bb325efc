#pragma once

#include "controls/Observers.h"
#include "install/InstallFlow.h"
#include "ui/Dialog.h"

class wxTextCtrl;

namespace velmo
{

class ProgressPicture;

/// Shows an install flow: its lines, its two bars, Start and Cancel. Modal. Closing it while the flow
/// runs asks the flow to end, and closes it when it has.
class frmInstallMDB final : public Dialog, private InstallFlow::Observer
{
  public:
    /// @a flow must outlive the window.
    frmInstallMDB(wxWindow* parent, InstallFlow& flow);
    ~frmInstallMDB() override;

  private:
    void CreateControls();
    void Start();
    void Cancel();
    void ShowLines();

    void OnBarsChanged() override;
    void OnStateChanged() override;

    InstallFlow& m_flow;
    wxTextCtrl* m_status = nullptr;
    ProgressPicture* m_overall = nullptr;
    ProgressPicture* m_current = nullptr;
    wxButton* m_start = nullptr;
    wxButton* m_cancel = nullptr;
    bool m_closeAtEnd = false;
    std::size_t m_shownLines = 0; ///< Bytes of the flow's lines that the box has.
    Observers::Subscription m_lines;
};

} // namespace velmo
