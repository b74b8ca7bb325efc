#pragma once

#include "controls/Observers.h"
#include "manager/ShownLists.h"

#include <wx/panel.h>

#include <functional>

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
    /// @a goTo goes to the first row of the counts that are clicked. @a manager must outlive the panel.
    ConnectPanel(wxWindow* parent, UpdateManager& manager, std::function<void(UpdateKind)> goTo);

    /// Sets the check box from the settings file.
    void ShowAutoConnect();

  private:
    /// The lowest line, with the update counts.
    wxWindow* CreateStats(const std::function<void(UpdateKind)>& goTo);

    /// Whose count stands at that place of the line, from its left side.
    [[nodiscard]] UpdateKind KindAt(int x) const;

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
