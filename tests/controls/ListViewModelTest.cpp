#include "controls/ListViewModel.h"

#include "controls/GridModel.h"
#include "settings/CINIFileHandler.h"
#include "settings/DiagnosticLog.h"
#include "tests/support/TemporaryDesktop.h"
#include "ui/CListViewHandler.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <stdexcept>

namespace velmo
{
namespace
{

using testing::ElementsAre;

struct Notes final : ListViewModel::Observer
{
    void OnRowsChanged() override { list.emplace_back("rows"); }
    void OnColumnsChanged() override { list.emplace_back("columns"); }
    void OnSelectionChanged() override { list.emplace_back("selection"); }
    void OnScrollTo(std::size_t row) override { list.push_back("row " + std::to_string(row)); }

    std::vector<std::string> Take() { return std::exchange(list, {}); }

    std::vector<std::string> list;
};

/// Rows of a name, which is the key, and a size.
struct Sizes final : ListSource
{
    std::size_t RowCount() const override { return rows.size(); }
    std::string Key(std::size_t row) const override { return rows[row].first; }
    std::string Text(std::size_t row, std::size_t column) const override
    {
        return column == 1 ? rows[row].first : rows[row].second;
    }
    bool Bold(std::size_t row) const override { return rows[row].second == "2"; }

    std::vector<std::pair<std::string, std::string>> rows;
};

class ListViewModelTest : public testing::Test
{
  protected:
    ListViewModelTest()
    {
        Show({{"c", "2"}, {"a", "10"}, {"d", "2"}, {"b", ""}});
        m_model.Observe(&m_notes);
    }

    void Show(std::vector<std::pair<std::string, std::string>> rows)
    {
        m_sizes.rows = std::move(rows);
        m_model.RowsChanged();
    }

    std::string Keys() const
    {
        std::string keys;
        for (std::size_t position = 0; position < m_model.RowCount(); ++position)
        {
            keys += m_model.Text(position, 1);
        }
        return keys;
    }

    Sizes m_sizes;
    ListViewModel m_model{{{"Name", 100, {}}, {"Size", 50, {}}}, m_sizes};
    Notes m_notes;
};

TEST_F(ListViewModelTest, EqualRowsKeepTheOrderTheyCameInUnderEitherOrder)
{
    constexpr struct
    {
        std::size_t column;
        SortOrder order;
        const char* keys;
    } kRows[] = {
        {1, SortOrder::Ascending, "abcd"},  {1, SortOrder::Descending, "dcba"},
        {2, SortOrder::Ascending, "bcda"},  {2, SortOrder::Descending, "acdb"},
        {0, SortOrder::Descending, "cadb"}, {3, SortOrder::Ascending, "cadb"},
    };
    for (const auto& row : kRows)
    {
        m_model.Sort(row.column, row.order);
        EXPECT_EQ(Keys(), row.keys) << row.column;
        EXPECT_THAT(m_notes.Take(), ElementsAre("rows"));
    }
}

TEST_F(ListViewModelTest, NewRowsAreSortedInAndOldOnesAreReadAnew)
{
    m_model.Sort(2, SortOrder::Ascending);
    m_sizes.rows[0].second = "11";
    m_model.RowsChanged();
    EXPECT_EQ(Keys(), "bdac");
    EXPECT_EQ(m_model.Text(3, 2), "11");
    EXPECT_TRUE(m_model.Bold(1));
    EXPECT_FALSE(m_model.Bold(3));
    Show({{"x", "3"}, {"y", "1"}});
    EXPECT_EQ(Keys(), "yx");
    EXPECT_EQ(m_model.SortedColumn(), 2U);
    EXPECT_EQ(m_model.Text(2, 1), "") << "beyond the last row";
    EXPECT_FALSE(m_model.Bold(2));
}

TEST_F(ListViewModelTest, TheSelectionFollowsItsRow)
{
    EXPECT_TRUE(m_model.Select("d"));
    EXPECT_TRUE(m_model.Select("d"));
    EXPECT_THAT(m_notes.Take(), ElementsAre("selection"));
    m_model.Sort(1, SortOrder::Ascending);
    m_model.ScrollTo(m_model.SelectedPosition());
    EXPECT_THAT(m_notes.Take(), ElementsAre("rows", "row 3"));
    EXPECT_EQ(m_model.SelectedRow(), 2U) << "its number in the source";
    EXPECT_FALSE(m_model.Select("no such row"));
    EXPECT_EQ(m_model.SelectedRow(), std::nullopt);
    m_model.ScrollTo(m_model.SelectedPosition());
    m_model.ScrollTo(4);
    EXPECT_THAT(m_notes.Take(), ElementsAre("selection"));
    m_model.SelectAt(4);
    EXPECT_TRUE(m_notes.Take().empty());
    m_model.SelectAt(1);
    EXPECT_EQ(m_model.SelectedRow(), 3U);
}

TEST_F(ListViewModelTest, TheSelectedRowStaysSelectedAmongNewOnes)
{
    m_model.Select("d");
    m_notes.Take();
    Show({{"a", "2"}, {"d", "1"}});
    EXPECT_EQ(m_model.SelectedRow(), 1U);
    EXPECT_THAT(m_notes.Take(), ElementsAre("rows", "selection"));
    Show({{"a", "2"}});
    EXPECT_EQ(m_model.SelectedRow(), std::nullopt);
    Show({{"d", "2"}});
    EXPECT_EQ(m_model.SelectedRow(), std::nullopt) << "a row that went and came again";
}

TEST_F(ListViewModelTest, OnlyRealChangesOfColumnsAreTold)
{
    m_model.SetColumnWidth(2, 60);
    m_model.SetColumnWidth(2, 60);
    m_model.SetColumnMark(1, SortOrder::Descending);
    m_model.SetColumnMark(1, SortOrder::Descending);
    EXPECT_THAT(m_notes.Take(), ElementsAre("columns", "columns"));
    m_model.SetColumnWidth(0, 70);
    m_model.SetColumnMark(3, SortOrder::Ascending);
    EXPECT_TRUE(m_notes.Take().empty());
}

class ListViewHandlerTest : public testing::Test
{
  protected:
    ListViewHandlerTest() { m_settings.AppProfileFileName(m_desktop.Folder() + "VelmoUpd.ini"); }

    ListViewModel Fresh() const
    {
        return ListViewModel({{"One", 100, {}}, {"Two", 200, {}}, {"Three", 300, {}}}, m_noRows);
    }

    /// The columns' widths with "^" for ascending and "v" for descending.
    static std::string Columns(const ListViewModel& list)
    {
        std::string columns;
        for (const auto& [header, width, mark] : list.Columns())
        {
            columns +=
                std::to_string(static_cast<int>(width)) + (!mark                          ? " "
                                                           : mark == SortOrder::Ascending ? "^ "
                                                                                          : "v ");
        }
        return columns;
    }

    const Sizes m_noRows;
    const test::TemporaryDesktop m_desktop;
    DiagnosticLog m_log{""};
    CINIFileHandler m_settings{m_log, '.'};
    CListViewHandler m_handler{m_settings};
};

TEST_F(ListViewHandlerTest, AClickSortsAndASecondOneReverses)
{
    ListViewModel list = Fresh();
    constexpr std::pair<std::size_t, const char*> kClicks[] = {
        {2, "100 200^ 300 "}, {2, "100 200v 300 "}, {2, "100 200^ 300 "},
        {3, "100 200 300^ "}, {3, "100 200 300v "}, {1, "100^ 200 300 "}};
    for (const auto& [column, columns] : kClicks)
    {
        m_handler.ColumnClick(list, column);
        EXPECT_EQ(list.SortedColumn(), column);
        EXPECT_EQ(list.Order(), list.Columns()[column - 1].mark);
        EXPECT_EQ(Columns(list), columns);
    }
}

TEST_F(ListViewHandlerTest, WhatWasSavedComesBack)
{
    ListViewModel list = Fresh();
    m_handler.ColumnClick(list, 2);
    m_handler.ColumnClick(list, 2);
    list.SetColumnWidth(3, 1234.5F);
    m_handler.SaveSort(list, "List", 2);
    m_handler.SaveWidths(list, "List");
    EXPECT_EQ(m_desktop.Read("VelmoUpd.ini"),
              "[List]\r\nSortOrder=1\r\nSortedColumn=2\r\nColumnHeaderWidth1=100\r\n"
              "ColumnHeaderWidth2=200\r\nColumnHeaderWidth3=1235\r\n");
    ListViewModel later = Fresh();
    m_handler.LoadSort(later, "List");
    m_handler.LoadWidths(later, "List");
    EXPECT_EQ(later.SortedColumn(), 2U);
    EXPECT_EQ(later.Order(), SortOrder::Descending);
    EXPECT_EQ(Columns(later), "100 200v 1235 ");
}

TEST_F(ListViewHandlerTest, WhatCannotBeReadLeavesTheListAsItIs)
{
    for (const char* text :
         {"", "SortedColumn=4\r\nSortOrder=1\r\n", "SortedColumn=-1\r\nSortOrder=1\r\n",
          "SortedColumn=99999999999\r\n",
          "ColumnHeaderWidth1=0\r\nColumnHeaderWidth2=-5\r\nColumnHeaderWidth3=1e30\r\n"})
    {
        SCOPED_TRACE(text);
        m_desktop.Write("VelmoUpd.ini", std::string("[List]\r\n") + text);
        ListViewModel list = Fresh();
        list.Sort(2, SortOrder::Descending);
        m_handler.LoadSort(list, "List");
        m_handler.LoadWidths(list, "List");
        EXPECT_EQ(list.SortedColumn(), 2U);
        EXPECT_EQ(list.Order(), SortOrder::Descending);
        EXPECT_THAT(Columns(list), testing::AnyOf("100 200 300 ", "100 200v 300 "));
    }
}

/// Rows in groups of equal letters; the second column is the row's own text, the third has boxes.
class GridModelTest : public testing::Test, public GridSource, public GridModel::Observer
{
  protected:
    GridModelTest() { m_grid.Observe(this); }

    struct Row
    {
        std::string group;
        std::string text;
        TickState tick = TickState::None;
    };

    std::size_t RowCount() const override { return m_rows.size(); }
    std::string Text(std::size_t row, std::size_t column) const override
    {
        return column == 0 ? m_rows.at(row).group : m_rows.at(row).text;
    }
    TickState Tick(std::size_t row, std::size_t column) const override
    {
        return column == 2 ? m_rows.at(row).tick : TickState::None;
    }
    GridLook Look(std::size_t /*row*/) const override { return {}; }
    GridSpan Group(std::size_t row) const override
    {
        const auto group = std::ranges::equal_range(m_rows, m_rows[row].group, {}, &Row::group);
        return {static_cast<std::size_t>(group.begin() - m_rows.begin()), group.size()};
    }

    void OnRowsChanged() override { m_heard.push_back("rows"); }
    void OnCellChanged(std::size_t /*row*/, std::size_t /*column*/) override {}
    void OnColumnCellsChanged(std::size_t /*column*/) override {}
    void OnPositionChanged() override { m_heard.push_back("position"); }
    void OnSizeToContents() override { m_heard.push_back("size"); }
    void OnColumnsShown() override { m_heard.push_back("columns"); }

    void Show(std::vector<Row> rows)
    {
        m_rows = std::move(rows);
        m_grid.RowsChanged();
    }

    std::vector<Row> m_rows;
    GridModel m_grid{{{"Group", false, true}, {"Value"}, {"Box", false, true, true}}, *this};
    std::vector<std::string> m_heard;
};

TEST_F(GridModelTest, AGroupIsOneCellInAMergedColumnButForItsBoxes)
{
    Show({{"A", "same"}, {"A", "same"}, {"B", "", TickState::Ticked}, {"B", "same"}});
    for (const std::size_t row : {0U, 1U})
    {
        EXPECT_EQ(m_grid.SpanAt(row, 0), (GridSpan{0, 2}));
        EXPECT_EQ(m_grid.SpanAt(row, 1), (GridSpan{row, 1})) << "not merged";
        EXPECT_EQ(m_grid.SpanAt(row, 2), (GridSpan{0, 2}));
    }
    EXPECT_EQ(m_grid.SpanAt(2, 2), (GridSpan{2, 1})) << "a box";
    EXPECT_EQ(m_grid.SpanAt(3, 0), (GridSpan{2, 2}));
    EXPECT_THROW(static_cast<void>(m_grid.SpanAt(0, 3)), std::out_of_range);
}

TEST_F(GridModelTest, OtherRowsAreSizedAndShownAtTheOldPlaceAsFarAsTheyGo)
{
    Show({{"A", "1"}, {"A", "2"}});
    EXPECT_THAT(m_heard, ElementsAre("rows", "size"));
    m_grid.NotePosition({1, 1, 1, 2});
    m_heard.clear();
    Show({{"A", "1"}, {"A", "2"}, {"A", "3"}});
    EXPECT_THAT(m_heard, ElementsAre("rows", "size", "position"));
    EXPECT_EQ(m_grid.Position(), (GridPosition{1, 1, 1, 2}));
    m_grid.MoveTo({7, 1, 9, 40});
    EXPECT_EQ(m_grid.Position(), (GridPosition{2, 1, 2, 2}));
    Show({});
    EXPECT_EQ(m_grid.Position(), (GridPosition{0, 1, 0, 2}));
}

TEST_F(GridModelTest, TheLongestTextCountsCharactersOfTheRowsThereAre)
{
    EXPECT_EQ(m_grid.LongestText(1), "");
    Show({{"A", "\xC3\xA4\xC3\xA4\xC3\xA4"}, {"A", "four"}, {"B", "1"}});
    EXPECT_EQ(m_grid.LongestText(1), "four");
    EXPECT_EQ(m_grid.LongestText(0), "A");
    Show({{"A", "1"}, {"A", "1"}, {"Bee", "1"}});
    EXPECT_EQ(m_grid.LongestText(0), "Bee");
}

} // namespace
} // namespace velmo
