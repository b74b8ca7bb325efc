#include "app/ConnectPanel.h"

#include "manager/UpdateManager.h"
#include "ui/Accessible.h"
#include "ui/FrameOfClass.h"
#include "ui/WxText.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace velmo
{
namespace
{

/// Lines that the status box shows at once: those of a whole fetch.
constexpr int kStatusLines = 4;

} // namespace

ConnectPanel::ConnectPanel(wxWindow* parent, UpdateManager& manager,
                           std::function<void(UpdateKind)> goTo)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, kPanelStyle), m_manager(manager)
{
    m_status = new wxTextCtrl(this, wxID_ANY, wxEmptyString, wxDefaultPosition, wxDefaultSize,
                              wxTE_MULTILINE | wxTE_READONLY);
    m_status->SetName("txtStatus");
    NameForReaders(*m_status, AccessibleRole::AsItIs, "Internet Connection Status Messages");
    m_status->SetToolTip("Internet Connection Status Messages");
    m_status->SetMinSize(
        wxSize(FromDIP(200), kStatusLines * m_status->GetCharHeight() + FromDIP(12)));
    m_reconnect = new wxButton(this, wxID_ANY);
    m_reconnect->SetName("cmdReconnect");
    m_reconnect->SetToolTip("Reconnect & Refresh Program List");
    m_autoConnect = new wxCheckBox(this, wxID_ANY, "Automatically &Connect");
    m_autoConnect->SetName("chkAutoConnect");
    m_autoConnect->SetToolTip("Automatically Connect When This Window Opens");

    auto* controls = new wxBoxSizer(wxVERTICAL);
    controls->Add(m_reconnect, wxSizerFlags().Expand().Border(wxBOTTOM));
    controls->Add(m_autoConnect, wxSizerFlags());
    auto* top = new wxBoxSizer(wxHORIZONTAL);
    top->Add(m_status, wxSizerFlags(1).Expand().Border(wxRIGHT));
    top->Add(controls, wxSizerFlags());
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(top, wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT | wxTOP));
    sizer->Add(CreateStats(goTo), wxSizerFlags().Expand().Border());
    SetSizer(sizer);

    m_reconnect->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { m_manager.Reconnect(); });
    m_autoConnect->Bind(wxEVT_CHECKBOX, [this](const wxCommandEvent& event) {
        m_manager.SetAutoConnect(event.IsChecked());
    });
    m_statusLines = m_manager.StatusBox().Changed().Add([this] { ShowStatusLines(); });
    m_busy = m_manager.Lists().BusyChanged().Add([this] { ShowBusy(); });
    m_counts = m_manager.Shown().CountsChanged().Add([this] { ShowCounts(); });
    ShowStatusLines();
    ShowBusy();
    ShowCounts();
}

wxWindow* ConnectPanel::CreateStats(const std::function<void(UpdateKind)>& goTo)
{
    auto* panel = new wxPanel(this, wxID_ANY);
    panel->SetName("picStats");
    panel->SetCanFocus(false); // Nobody would see where the keyboard is.
    m_stats = new wxStaticText(panel, wxID_ANY, wxEmptyString);
    m_stats->SetName("lblStats");
    m_stats->SetToolTip("Click to go to the first that needs updating");
    m_stats->SetCursor(wxCursor(wxCURSOR_HAND));
    m_stats->Bind(wxEVT_LEFT_DOWN,
                  [this, goTo](const wxMouseEvent& event) { goTo(KindAt(event.GetX())); });
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    // As wide as its text: what lies beside that is no count.
    sizer->Add(m_stats, wxSizerFlags());
    panel->SetSizer(sizer);
    return panel;
}

UpdateKind ConnectPanel::KindAt(int x) const
{
    const wxString text = m_stats->GetLabel();
    const auto ends = [&](int comma) {
        return m_stats->GetTextExtent(text.substr(0, static_cast<std::size_t>(comma))).x;
    };
    const int first = text.Find(',');
    if (first == wxNOT_FOUND || x < ends(first))
    {
        return UpdateKind::Program;
    }
    return x < ends(text.Find(',', true)) ? UpdateKind::Database : UpdateKind::Pictures;
}

void ConnectPanel::ShowAutoConnect()
{
    m_autoConnect->SetValue(m_manager.AutoConnect());
}

void ConnectPanel::ShowBusy()
{
    m_reconnect->SetLabel(ToWx(ListsFetch::ButtonCaption(m_manager.Lists().Busy())));
    // The letter is then the one of "&Cancel".
    m_autoConnect->SetLabel(m_manager.Lists().Busy() ? "Automatically Connect"
                                                     : "Automatically &Connect");
}

void ConnectPanel::ShowCounts()
{
    const UpdateCounts counts = m_manager.Shown().Counts();
    const wxFont font = GetFont();
    m_stats->SetFont(counts.Any() ? font.Bold() : font);
    m_stats->SetLabel(ToWx(counts.Text()));
    Layout();
}

void ConnectPanel::ShowStatusLines()
{
    wxString text = ToWx(m_manager.StatusBox().Text());
    text.Replace("\r\n", "\n");
    // Without a last empty line, so that the box shows as many lines as fit.
    if (text.EndsWith("\n"))
    {
        text.RemoveLast();
    }
    m_status->ChangeValue(text);
    m_status->ShowPosition(m_status->GetLastPosition());
}

} // namespace velmo
