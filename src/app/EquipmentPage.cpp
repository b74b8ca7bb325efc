#include "app/EquipmentPage.h"

#include "app/EmptyText.h"
#include "app/WindowSettings.h"
#include "app/frmInstallMDB.h"
#include "catalogue/CommonFolder.h"
#include "equipment/EquipmentList.h"
#include "install/InstallFlow.h"
#include "manager/UpdateManager.h"
#include "ui/Accessible.h"
#include "ui/FrameOfClass.h"
#include "ui/Grid.h"
#include "ui/KeyLabel.h"
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

std::vector<EquipmentColumn> KindColumns()
{
    std::vector<EquipmentColumn> columns;
    for (std::size_t i = Index(EquipmentColumn::FirstKind); i < kEquipmentColumns; ++i)
    {
        columns.push_back(static_cast<EquipmentColumn>(i));
    }
    return columns;
}

} // namespace

EquipmentPage::EquipmentPage(wxWindow* parent, UpdateManager& manager, UserPrompts& prompts,
                             platform::MessageLoop& loop)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, kPanelStyle), m_manager(manager),
      m_prompts(prompts), m_loop(loop),
      m_setups(loop, [&manager] { manager.InspectEquipmentAgain(); })
{
    SetName("picHoldEquipment");
    auto* instructions = new wxStaticText(this, wxID_ANY, kInstructions);
    instructions->SetName("lblInstructions");
    LeaveKeyToMenu(*instructions);
    EquipmentGrid& equipment = manager.Equipment().Grid();
    m_grid = new Grid(this, equipment.Model(), [&equipment](std::size_t row, std::size_t column) {
        equipment.Toggle(row, column);
    });
    m_grid->SetName("flxEquipment");
    NameForReaders(*m_grid, AccessibleRole::Table, "HVAC Equipment Databases");
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
    sizer->Add(m_grid, wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT));
    sizer->Add(foot, wxSizerFlags().Expand().Border());
    SetSizer(sizer);

    equipment.ObserveSummary([this] { ShowSummary(); });
    m_markClear->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { ShowMarkMenu(); });
    m_install->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Install(); });
    m_report = manager.Lists().ReportChanged().Add([this] { ShowEmptyText(); });
    ShowEmptyText();
    ShowSummary();
    for (const ColumnGroup& group : ColumnGroups())
    {
        Show(group,
             manager.Settings().MyGetAppProfileBoolean(kEquipmentGridSection, group.key, true));
    }
}

EquipmentPage::~EquipmentPage()
{
    m_manager.Equipment().Grid().ObserveSummary({});
}

const std::array<EquipmentPage::ColumnGroup, 2>& EquipmentPage::ColumnGroups()
{
    static const std::array<ColumnGroup, 2> groups{{
        {"Names of Se&tup Files",
         "ShowSetupNames",
         {EquipmentColumn::DatabaseSetup, EquipmentColumn::PictureSetup}},
        {"&Kinds of Equipment", "ShowKinds", KindColumns()},
    }};
    return groups;
}

void EquipmentPage::Show(const ColumnGroup& group, bool shown)
{
    for (const EquipmentColumn column : group.columns)
    {
        m_manager.Equipment().Grid().Model().Show(Index(column), shown);
    }
    if (shown !=
        m_manager.Settings().MyGetAppProfileBoolean(kEquipmentGridSection, group.key, true))
    {
        m_manager.Settings().MyWriteAppProfileBoolean(kEquipmentGridSection, group.key, shown);
    }
}

bool EquipmentPage::IsShown(const ColumnGroup& group) const
{
    return !m_manager.Equipment().Grid().Model().Columns()[Index(group.columns.front())].hidden;
}

void EquipmentPage::ShowEmptyText()
{
    m_grid->SetEmptyText(ToWx(EmptyText(m_manager.Lists().Report(), "databases")));
}

void EquipmentPage::FocusGrid()
{
    m_grid->SetFocus();
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
