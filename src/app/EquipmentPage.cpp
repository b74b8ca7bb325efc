#include "app/EquipmentPage.h"

#include "app/frmInstallMDB.h"
#include "catalogue/CommonFolder.h"
#include "equipment/EquipmentList.h"
#include "install/InstallFlow.h"
#include "manager/UpdateManager.h"
#include "ui/Grid.h"
#include "ui/WxText.h"

#include <wx/button.h>
#include <wx/menu.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

namespace velmo
{
namespace
{

constexpr char kInstructions[] = "&Tick the databases and pictures that you want to install or "
                                 "update, then click the Install button.";

} // namespace

EquipmentPage::EquipmentPage(wxWindow* parent, UpdateManager& manager, UserPrompts& prompts,
                             platform::MessageLoop& loop)
    : wxPanel(parent, wxID_ANY), m_manager(manager), m_prompts(prompts), m_loop(loop),
      m_setups(loop, [&manager] { manager.InspectEquipmentAgain(); })
{
    SetName("picHoldEquipment");
    auto* instructions = new wxStaticText(this, wxID_ANY, kInstructions);
    instructions->SetName("lblInstructions");
    EquipmentGrid& equipment = manager.Equipment().Grid();
    auto* grid =
        new Grid(this, equipment.Model(), [&equipment](std::size_t row, std::size_t column) {
            equipment.Toggle(row, column);
        });
    grid->SetName("flxEquipment");
    m_markClear = new wxButton(this, wxID_ANY, "&Mark/Clear >");
    m_markClear->SetName("cmdMarkClear");
    m_install = new wxButton(this, wxID_ANY, "&Install...");
    m_install->SetName("cmdInstallMDBs");
    m_summary = new wxStaticText(this, wxID_ANY, wxEmptyString);
    m_summary->SetName("lblInfoOnCheckedEquipment");

    auto* foot = new wxBoxSizer(wxHORIZONTAL);
    foot->Add(m_markClear, wxSizerFlags().Border(wxRIGHT));
    foot->Add(m_install, wxSizerFlags().Border(wxRIGHT));
    foot->Add(m_summary, wxSizerFlags(1).CentreVertical());
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(instructions, wxSizerFlags().Expand().Border());
    sizer->Add(grid, wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT));
    sizer->Add(foot, wxSizerFlags().Expand().Border());
    SetSizer(sizer);

    equipment.ObserveSummary([this] { ShowSummary(); });
    m_markClear->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { ShowMarkMenu(); });
    m_install->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Install(); });
    ShowSummary();
}

EquipmentPage::~EquipmentPage()
{
    m_manager.Equipment().Grid().ObserveSummary({});
}

void EquipmentPage::ShowSummary()
{
    m_summary->SetLabel(ToWx(m_manager.Equipment().Grid().Summary()));
}

void EquipmentPage::FillMarkMenu(wxMenu& menu)
{
    for (const MarkCommand& command : kMarkCommands)
    {
        if (command.beginsGroup)
        {
            menu.AppendSeparator();
        }
        const int id = menu.Append(wxID_ANY, ToWx(command.caption))->GetId();
        menu.Bind(
            wxEVT_MENU,
            [this, &command](wxCommandEvent&) { m_manager.Equipment().Grid().Run(command); }, id);
    }
}

void EquipmentPage::ShowMarkMenu()
{
    wxMenu menu;
    FillMarkMenu(menu);
    m_markClear->PopupMenu(&menu, 0, m_markClear->GetSize().GetHeight());
}

void EquipmentPage::Install()
{
    std::optional<InstallOrder> order = m_manager.Equipment().PrepareInstall(m_prompts);
    if (!order)
    {
        return;
    }
    // A second look while files are being replaced would read half of them.
    m_setups.Stop();
    InstallFlow flow(std::move(*order),
                     {m_loop, m_manager.Settings(), m_manager.Log(), CommonFolder()});
    {
        frmInstallMDB dialog(wxGetTopLevelParent(this), flow);
        dialog.ShowModal();
    }
    flow.Close();
    m_manager.InspectEquipmentAgain();
    m_setups.Watch(flow.RunningSetups());
}

} // namespace velmo
