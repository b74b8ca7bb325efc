#pragma once

#include "controls/Observers.h"

#include <wx/panel.h>

class wxButton;
class wxCheckBox;
class wxStaticText;
class wxTextCtrl;

namespace velmo
{

class UpdateManager;

/// The foot of the main window: the status box, the connect controls and the update counts.
class ConnectPanel final : public wxPanel
{
  public:
    /// @a manager must outlive the panel.
    ConnectPanel(wxWindow* parent, UpdateManager& manager);

    /// Sets the check box from the settings file.
    void ShowAutoConnect();

  private:
    /// The connect button's caption.
    void ShowBusy();

    /// The update counts, bold when there are any.
    void ShowCounts();
    void ShowStatusLines();

    UpdateManager& m_manager;
    wxTextCtrl* m_status = nullptr;
    wxButton* m_reconnect = nullptr;
    wxCheckBox* m_autoConnect = nullptr;
    wxStaticText* m_stats = nullptr;
    Observers::Subscription m_statusLines;
    Observers::Subscription m_busy;
    Observers::Subscription m_counts;
};

} // namespace velmo
