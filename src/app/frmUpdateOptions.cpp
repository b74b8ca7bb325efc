#include "app/frmUpdateOptions.h"

#include "settings/CINIFileHandler.h"
#include "ui/WxText.h"
#include "updates/StartupOptions.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/radiobut.h>
#include <wx/sizer.h>
#include <wx/statbox.h>
#include <wx/stattext.h>

#include <utility>

namespace velmo
{
namespace
{

constexpr std::array kChoices{
    "Ask me whether I want to check for an update.",
    "Check for an update automatically, behind the scenes.",
    "Don't check for an update.",
};

constexpr char kNotify[] =
    "Check for HVAC equipment and picture updates automatically, behind the scenes";

} // namespace

frmUpdateOptions::frmUpdateOptions(wxWindow* parent, CINIFileHandler& settings, std::string program)
    : Dialog(parent, program + " - Update Options", "frmUpdateOptions"), m_settings(settings),
      m_program(std::move(program))
{
    wxSizer* choices = NewChoices();
    wxButton* ok = NewButton(wxID_OK, "cmdOK", "OK");
    ok->SetDefault();
    Arrange(choices, {}, {ok, NewButton(wxID_CANCEL, "cmdCancel", "Cancel")});
    ShowOptions();
    Bind(
        wxEVT_BUTTON,
        [this](wxCommandEvent& event) {
            WriteOptions();
            event.Skip(); // The dialog's own handler closes it.
        },
        wxID_OK);
}

wxSizer* frmUpdateOptions::NewChoices()
{
    auto* frame = new wxStaticBoxSizer(wxVERTICAL, this, "Options");
    wxStaticBox* box = frame->GetStaticBox();
    box->SetName("fraMain");
    auto* instructions =
        new wxStaticText(box, wxID_ANY, ToWx("Each time I start " + m_program + "..."));
    instructions->SetName("lblInstructions");
    frame->Add(instructions, wxSizerFlags().Border());
    for (std::size_t i = 0; i < kChoices.size(); ++i)
    {
        m_startup[i] = new wxRadioButton(box, wxID_ANY, kChoices[i], wxDefaultPosition,
                                         wxDefaultSize, i == 0 ? wxRB_GROUP : 0);
        m_startup[i]->SetName("optStartup" + std::to_string(i));
        frame->Add(m_startup[i], wxSizerFlags().Border(wxLEFT | wxRIGHT | wxBOTTOM));
    }
    m_notify = new wxCheckBox(box, wxID_ANY, kNotify);
    m_notify->SetName("chkHVACNotify");
    frame->Add(m_notify, wxSizerFlags().Border());
    return frame;
}

void frmUpdateOptions::ShowOptions()
{
    const StartupOptions options = ReadStartupOptions(m_settings.Snapshot(), m_program);
    m_startup[startup_option::kAsk]->Enable(options.canAsk);
    const bool known = options.option >= 0 && options.option <= startup_option::kDoNotCheck;
    // Any other number is told as "No" in the list.
    m_stored = options.option;
    m_shown = static_cast<std::size_t>(known ? options.option : startup_option::kDoNotCheck);
    m_startup[m_shown]->SetValue(true);
    m_startup[m_shown]->SetFocus();
    m_notify->SetValue(options.notifyOfEquipment);
}

void frmUpdateOptions::WriteOptions()
{
    for (std::size_t i = 0; i < m_startup.size(); ++i)
    {
        if (m_startup[i]->GetValue())
        {
            // A number of a later version stays what it is, unless another choice is made.
            WriteStartupOptions(m_settings, m_program, m_notify->GetValue(),
                                i == m_shown ? m_stored : static_cast<std::int32_t>(i));
        }
    }
}

} // namespace velmo
