#include "app/EquipmentPage.h"
#include "sample/EquipmentDatabaseFile.h"
#include "tests/ui/WindowUnderTest.h"
#include "ui/Grid.h"

#include <gtest/gtest.h>

#include <wx/dcmemory.h>
#include <wx/image.h>
#include <wx/menu.h>

#include <array>

namespace velmo::test
{
namespace
{

/// Columns of the grid.
constexpr int kSection = 0;
constexpr int kInstallDatabase = 2;
constexpr int kInstallPictures = 4;
constexpr int kManufacturer = 9;
constexpr int kFile = 10;
constexpr int kKind = 17;

constexpr char kList[] =
    "[Birchmere]\r\nMDBSetupFileSize=100\r\nPictureSetupFilename=birchpic.exe\r\n"
    "PictureSetupFileSize=50\r\n"
    "1ManufacturerName=Birchmere Comfort\r\n1MDBFilename=birchmere1.mdb\r\n"
    "1ReleaseDate=3/4/2026\r\n"
    "2ManufacturerName=Birchmere Comfort of the North and the West\r\n"
    "2MDBFilename=birchmere2.mdb\r\n2ReleaseDate=3/4/2026\r\n"
    "[Ashgrove]\r\nMDBSetupFileSize=30\r\n"
    "1ManufacturerName=Ashgrove Air\r\n1MDBFilename=ashgrove1.mdb\r\n1ReleaseDate=5/6/2026\r\n";

/// The equipment tab of the main window over a list of two sections; of the first one's two databases
/// the first is installed and needs an update.
class EquipmentTest : public testing::Test
{
  protected:
    void Show(std::string_view list)
    {
        using namespace std::chrono;
        m_desktop.ServeLists("[News Headlines]\r\n", list);
        m_desktop.desktop.Write("Common\\birchmere1.mdb",
                                sample::EquipmentDatabaseFile("birchmere1.mdb", 2025y / 1 / 2));
        m_test.window->Open("Manufacturer Databases");
        m_test.manager.FetchLists();
    }

    Grid& Equipment() { return m_test.Find<Grid>("flxEquipment"); }
    std::string Summary() { return TextOf(*m_test.window, "lblInfoOnCheckedEquipment"); }

    /// What the grid paints, without its header and its lines.
    wxImage Picture()
    {
        Grid& grid = Equipment();
        int width = 0;
        for (int column = 0; column < grid.GetNumberCols(); ++column)
        {
            width += grid.GetColSize(column);
        }
        wxBitmap bitmap(width, grid.GetNumberRows() * grid.GetDefaultRowSize());
        wxMemoryDC dc(bitmap);
        grid.Render(dc, wxPoint(0, 0), wxDefaultSize, wxGridCellCoords(), wxGridCellCoords(), 0);
        dc.SelectObject(wxNullBitmap);
        return bitmap.ConvertToImage();
    }

    WindowDesktop m_desktop;
    WindowUnderTest m_test;
};

wxColour At(const wxImage& picture, wxPoint place)
{
    return {picture.GetRed(place.x, place.y), picture.GetGreen(place.x, place.y),
            picture.GetBlue(place.x, place.y)};
}

TEST_F(EquipmentTest, AClickAndTheSpaceBarTickTheBoxOfTheirCell)
{
    Show(kList);
    Grid& grid = Equipment();
    EXPECT_EQ(Summary(), "DB: 0, Pic: 0, 0 Bytes");
    Click(grid, 0, kInstallDatabase);
    EXPECT_EQ(Summary(), "DB: 1, Pic: 0, 100 Bytes");
    Click(grid, 0, kInstallPictures);
    EXPECT_EQ(Summary(), "DB: 1, Pic: 1, 150 Bytes");
    Click(grid, 2, kInstallPictures);
    Click(grid, 2, kFile);
    EXPECT_EQ(Summary(), "DB: 1, Pic: 1, 150 Bytes") << "there is no box";
    grid.SetGridCursor(2, kInstallDatabase);
    PressKey(grid, WXK_SPACE);
    EXPECT_EQ(Summary(), "DB: 2, Pic: 1, 180 Bytes");
    PressKey(grid, WXK_SPACE);
    Click(grid, 0, kInstallPictures);
    EXPECT_EQ(Summary(), "DB: 1, Pic: 0, 100 Bytes");
}

TEST_F(EquipmentTest, TheMarkMenuDoesWhatItSays)
{
    Show(kList);
    wxMenu menu;
    m_test.Find<EquipmentPage>("picHoldEquipment").FillMarkMenu(menu);
    std::string entries;
    for (const MarkCommand& command : kMarkCommands)
    {
        entries += (command.beginsGroup ? "-\n" : "") + std::string(command.caption) + "\n";
    }
    EXPECT_EQ(EntriesOf(menu), entries);
    constexpr std::array<const char*, 8> kSummaries{
        "DB: 1, Pic: 0, 100 Bytes", "DB: 2, Pic: 0, 130 Bytes", "DB: 2, Pic: 0, 130 Bytes",
        "DB: 2, Pic: 1, 180 Bytes", "DB: 0, Pic: 1, 50 Bytes",  "DB: 0, Pic: 0, 0 Bytes",
        "DB: 2, Pic: 0, 130 Bytes", "DB: 2, Pic: 1, 180 Bytes"};
    for (std::size_t i = 0; i < kMarkCommands.size(); ++i)
    {
        Choose(menu, kMarkCommands[i].caption.data());
        EXPECT_EQ(Summary(), kSummaries[i]) << kMarkCommands[i].caption;
    }
}

TEST_F(EquipmentTest, ColumnsAreAsWideAsTheirTextsAndRawBytesAreHidden)
{
    Show(kList);
    const Grid& grid = Equipment();
    const auto& columns = m_test.manager.Equipment().Grid().Model().Columns();
    ASSERT_EQ(static_cast<std::size_t>(grid.GetNumberCols()), columns.size());
    for (int column = 0; column < grid.GetNumberCols(); ++column)
    {
        wxString header = grid.GetColLabelValue(column);
        header.Replace("\n", "\r\n");
        EXPECT_EQ(header, columns[static_cast<std::size_t>(column)].header);
        EXPECT_EQ(grid.IsColShown(column), !columns[static_cast<std::size_t>(column)].hidden);
        for (int row = 0; row < grid.GetNumberRows() && grid.IsColShown(column); ++row)
        {
            EXPECT_LE(grid.GetTextExtent(grid.GetCellValue(row, column)).x, grid.GetColSize(column))
                << header;
        }
    }
    EXPECT_GT(grid.GetColSize(kManufacturer), grid.GetColSize(kSection));
    wxMenu& view = *m_test.window->GetMenuBar()->GetMenu(1);
    view.Check(view.FindItem("Kinds of Equipment"), false);
    Choose(view, "Kinds of Equipment");
    EXPECT_FALSE(grid.IsColShown(kKind));
    EXPECT_EQ(m_desktop.Setting("Equipment Grid", "ShowKinds"), "0 'False");
}

TEST_F(EquipmentTest, ANarrowColumnMakesTheRowsTallerForItsTexts)
{
    Show(kList);
    Grid& grid = Equipment();
    const int before = grid.GetDefaultRowSize();
    grid.SetColSize(kManufacturer, grid.GetColSize(kManufacturer) / 2);
    wxGridSizeEvent resized(grid.GetId(), wxEVT_GRID_COL_SIZE, &grid, kManufacturer);
    grid.ProcessWindowEvent(resized);
    EXPECT_GT(grid.GetRowSize(1), before + grid.GetCharHeight() - 1);
}

TEST_F(EquipmentTest, SectionsHaveTheirColoursAndSharedValuesStandOnce)
{
    Show(kList);
    Grid& grid = Equipment();
    const wxImage picture = Picture();
    const auto background = [&](int row) {
        return At(picture, grid.CellToRect(row, kFile).GetTopLeft() + wxPoint(1, 1));
    };
    EXPECT_EQ(background(0), wxColour(192, 220, 192));
    EXPECT_EQ(background(1), wxColour(192, 220, 192));
    EXPECT_EQ(background(2), wxColour(255, 251, 240));
    // A text in the middle of two rows crosses the border between them.
    const auto crosses = [&](int column) {
        const wxRect lower = grid.CellToRect(1, column);
        int x = lower.x + 1;
        while (x < lower.GetRight() && At(picture, {x, grid.GetDefaultRowSize()}) == background(0))
        {
            ++x;
        }
        return x < lower.GetRight();
    };
    EXPECT_TRUE(crosses(kSection));
    EXPECT_FALSE(crosses(kFile));
    EXPECT_TRUE(grid.GetCellFont(0, kFile).GetWeight() == wxFONTWEIGHT_BOLD) << "needs an update";
    EXPECT_FALSE(grid.GetCellFont(2, kFile).GetWeight() == wxFONTWEIGHT_BOLD);
}

TEST_F(EquipmentTest, ARefreshLeavesThePersonWhereTheyWere)
{
    std::string list = "[Birchmere]\r\n";
    for (int row = 1; row <= 200; ++row)
    {
        const std::string number = std::to_string(row);
        list.append(number).append("ManufacturerName=Birchmere\r\n");
        list.append(number).append("MDBFilename=birchmere").append(number).append(".mdb\r\n");
    }
    Show(list);
    Grid& grid = Equipment();
    ASSERT_EQ(grid.GetNumberRows(), 200);
    Click(grid, 1, kFile);
    m_test.loop.Yield();
    // Without a click there, as a mouse wheel does it.
    grid.Scroll(wxDefaultCoord, 100);
    const wxPoint place = grid.GetViewStart();
    ASSERT_GT(place.y, 50);
    m_test.manager.FetchLists();
    EXPECT_NEAR(grid.GetViewStart().y, place.y, 1);
    EXPECT_EQ(grid.GetViewStart().x, place.x);
    EXPECT_EQ(grid.GetGridCursorRow(), 1);
}

} // namespace
} // namespace velmo::test
