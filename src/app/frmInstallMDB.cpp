#include "app/frmInstallMDB.h"

#include "ui/Accessible.h"
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
    : Dialog(parent, "Install Selected Manufacturers", "frmInstallMDB",
             wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      m_flow(flow)
{
    CreateControls();
    m_flow.Observe(this);
    m_lines = m_flow.Status().Changed().Add([this] { ShowLines(); });
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
}

void frmInstallMDB::CreateControls()
{
    const int width = FromDIP(kTextWidth);
    wxStaticText* warning = NewText("lblWarning", kWarning);
    warning->SetFont(GetFont().Bold());
    Wrap(*warning, width);
    wxStaticText* main = NewText("lblMain", kMain);
    Wrap(*main, width);
    m_status = new wxTextCtrl(this, wxID_ANY, wxEmptyString, wxDefaultPosition, wxDefaultSize,
                              wxTE_MULTILINE | wxTE_READONLY);
    m_status->SetName("txtStatus");
    NameForReaders(*m_status, AccessibleRole::AsItIs, "Installation messages");
    m_status->SetMinSize(wxSize(width, kStatusLines * m_status->GetCharHeight()));
    m_current = new ProgressPicture(this, "picCurrent", "Current file");
    m_overall = new ProgressPicture(this, "picOverall", "All files");
    m_start = NewButton(wxID_ANY, "cmdStart", "&Start");
    m_start->SetDefault();
    // Escape presses it.
    m_cancel = NewButton(wxID_CANCEL, "cmdCancel", "Cancel");

    auto* bars = new wxFlexGridSizer(2, wxSize(FromDIP(8), FromDIP(6)));
    bars->AddGrowableCol(1);
    bars->Add(NewText("lblCurrent", "Current file:"), wxSizerFlags().CentreVertical());
    bars->Add(m_current, wxSizerFlags(1).Expand());
    bars->Add(NewText("lblOverall", "All files:"), wxSizerFlags().CentreVertical());
    bars->Add(m_overall, wxSizerFlags(1).Expand());

    const wxSizerFlags line = wxSizerFlags().Expand().Border(wxBOTTOM, FromDIP(12));
    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(warning, line);
    content->Add(main, line);
    content->Add(bars, line);
    content->Add(m_status, wxSizerFlags(1).Expand());
    Arrange(content, {}, {m_start, m_cancel});
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
    // Lines are only ever added: setting the whole text for each would take ever longer.
    const std::string& lines = m_flow.Status().Text();
    wxString added = ToWx(std::string_view(lines).substr(m_shownLines));
    m_shownLines = lines.size();
    added.Replace("\r\n", "\n");
    m_status->AppendText(added);
}

void frmInstallMDB::OnBarsChanged()
{
    m_overall->Set(m_flow.OverallBar().FilledPart(), ToWx(m_flow.OverallBar().text));
    m_current->Set(m_flow.CurrentBar().FilledPart(), ToWx(m_flow.CurrentBar().text));
}

void frmInstallMDB::OnStateChanged()
{
    if (m_start->HasFocus() && !m_flow.StartEnabled())
    {
        m_cancel->SetFocus(); // A disabled button would keep the keys, Escape too.
    }
    m_start->Enable(m_flow.StartEnabled());
    m_cancel->SetLabel(ToWx(m_flow.CancelCaption()));
}

} // namespace velmo
