#include "equipment/frmInstallMDB.h"

#include "ui/ProgressPicture.h"
#include "ui/WxText.h"

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace velmo
{
namespace
{

constexpr char kWarning[] = "Please close the programs that use equipment databases before you "
                            "start, so that their files can be replaced.";
constexpr char kMain[] = "Each selected file is downloaded and then installed in the background. "
                         "What happens is told below.";
constexpr int kStatusLines = 14;
constexpr int kTextWidth = 620; ///< Device-independent pixels.

} // namespace

frmInstallMDB::frmInstallMDB(wxWindow* parent, InstallFlow& flow)
    : wxDialog(parent, wxID_ANY, "Install Selected Manufacturers", wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      m_flow(flow)
{
    SetName("frmInstallMDB");
    CreateControls();
    m_flow.Observe(this);
    m_flow.Status().Observe([this] { ShowLines(); });
    ShowLines();
    OnBarsChanged();
    OnStateChanged();
    m_start->SetFocus();

    m_start->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Start(); });
    m_cancel->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Cancel(); });
    Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent&) {
        m_closeAtEnd = true;
        Cancel();
    });
}

frmInstallMDB::~frmInstallMDB()
{
    m_flow.Observe(nullptr);
    m_flow.Status().Observe({});
}

void frmInstallMDB::CreateControls()
{
    const auto label = [this](const char* name, const char* text, const wxFont& font) {
        auto* line = new wxStaticText(this, wxID_ANY, text);
        line->SetName(name);
        line->SetFont(font);
        line->Wrap(FromDIP(kTextWidth));
        return line;
    };
    wxStaticText* warning = label("lblWarning", kWarning, GetFont().Bold());
    wxStaticText* main = label("lblMain", kMain, GetFont());
    m_status = new wxTextCtrl(this, wxID_ANY, wxEmptyString, wxDefaultPosition, wxDefaultSize,
                              wxTE_MULTILINE | wxTE_READONLY);
    m_status->SetName("txtStatus");
    m_status->SetMinSize(wxSize(FromDIP(kTextWidth), kStatusLines * m_status->GetCharHeight()));
    m_current = new ProgressPicture(this, "picCurrent");
    m_overall = new ProgressPicture(this, "picOverall");
    m_start = new wxButton(this, wxID_ANY, "&Start");
    m_start->SetName("cmdStart");
    m_start->SetDefault();
    // Escape presses it.
    m_cancel = new wxButton(this, wxID_CANCEL, "Cancel");
    m_cancel->SetName("cmdCancel");

    auto* bars = new wxFlexGridSizer(2, wxSize(FromDIP(8), FromDIP(6)));
    bars->AddGrowableCol(1);
    bars->Add(new wxStaticText(this, wxID_ANY, "Current file:"), wxSizerFlags().CentreVertical());
    bars->Add(m_current, wxSizerFlags(1).Expand());
    bars->Add(new wxStaticText(this, wxID_ANY, "All files:"), wxSizerFlags().CentreVertical());
    bars->Add(m_overall, wxSizerFlags(1).Expand());
    auto* buttons = new wxBoxSizer(wxHORIZONTAL);
    buttons->AddStretchSpacer();
    buttons->Add(m_start, wxSizerFlags().Border(wxRIGHT));
    buttons->Add(m_cancel);

    const wxSizerFlags line = wxSizerFlags().Expand().Border(wxALL, FromDIP(8));
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(warning, line);
    sizer->Add(main, line);
    sizer->Add(bars, line);
    sizer->Add(m_status, wxSizerFlags(line).Proportion(1));
    sizer->Add(buttons, line);
    SetSizerAndFit(sizer);
    CentreOnParent();
}

void frmInstallMDB::Start()
{
    m_flow.Start();
    if (m_closeAtEnd)
    {
        EndModal(wxID_CANCEL);
    }
    else
    {
        m_cancel->SetFocus();
    }
}

void frmInstallMDB::Cancel()
{
    // While it runs the flow only notes the wish, and Start() comes back when it has ended.
    if (m_flow.CancelOrClose())
    {
        EndModal(wxID_CANCEL);
    }
}

void frmInstallMDB::ShowLines()
{
    wxString text = ToWx(m_flow.Status().Text());
    text.Replace("\r\n", "\n");
    m_status->ChangeValue(text);
    m_status->ShowPosition(m_status->GetLastPosition());
}

void frmInstallMDB::OnBarsChanged()
{
    m_overall->Set(m_flow.OverallBar().FilledPart(), ToWx(m_flow.OverallBar().text));
    m_current->Set(m_flow.CurrentBar().FilledPart(), ToWx(m_flow.CurrentBar().text));
}

void frmInstallMDB::OnStateChanged()
{
    m_start->Enable(m_flow.StartEnabled());
    m_cancel->SetLabel(ToWx(m_flow.CancelCaption()));
}

} // namespace velmo
