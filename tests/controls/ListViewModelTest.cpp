#include "controls/ListViewModel.h"

#include "controls/MousePointer.h"
#include "controls/StatusBoxModel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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
    void OnScrollToRow(std::size_t row) override { list.push_back("row " + std::to_string(row)); }

    std::vector<std::string> Take() { return std::exchange(list, {}); }

    std::vector<std::string> list;
};

ListRow Row(const std::string& name, const std::string& size)
{
    ListRow row;
    row.key = name;
    row.cells = {name, size};
    return row;
}

class ListViewModelTest : public testing::Test
{
  protected:
    ListViewModelTest()
    {
        m_model.SetRows({Row("c", "2"), Row("a", "10"), Row("d", "2"), Row("b", "")});
        m_model.Observe(&m_notes);
    }

    std::string Keys() const
    {
        std::string keys;
        for (const ListRow& row : m_model.Rows())
        {
            keys += row.key;
        }
        return keys;
    }

    ListViewModel m_model{{{"Name", 100, {}}, {"Size", 50, {}}}};
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

TEST_F(ListViewModelTest, NewRowsAndCellsAreSortedIn)
{
    m_model.Sort(2, SortOrder::Ascending);
    m_model.SetCell("c", 2, "11");
    EXPECT_EQ(Keys(), "bdac");
    m_model.SetRows({Row("x", "3"), Row("y", "1")});
    EXPECT_EQ(Keys(), "yx");
    EXPECT_EQ(m_model.SortedColumn(), 2U);
}

TEST_F(ListViewModelTest, TheSelectionFollowsItsRow)
{
    EXPECT_TRUE(m_model.Select("d"));
    EXPECT_TRUE(m_model.Select("d"));
    EXPECT_THAT(m_notes.Take(), ElementsAre("selection"));
    m_model.Sort(1, SortOrder::Ascending);
    m_model.ScrollTo("d");
    EXPECT_THAT(m_notes.Take(), ElementsAre("rows", "row 3"));
    ASSERT_NE(m_model.SelectedRow(), nullptr);
    EXPECT_EQ(m_model.SelectedRow()->key, "d");
    EXPECT_FALSE(m_model.Select("no such row"));
    EXPECT_EQ(m_model.SelectedRow(), nullptr);
    m_model.ScrollTo("no such row");
    EXPECT_THAT(m_notes.Take(), ElementsAre("selection"));
}

TEST_F(ListViewModelTest, TheSelectedRowStaysSelectedAmongNewOnes)
{
    m_model.Select("d");
    m_notes.Take();
    m_model.SetRows({Row("a", "2"), Row("d", "1")});
    ASSERT_NE(m_model.SelectedRow(), nullptr);
    EXPECT_EQ(m_model.SelectedRow()->cells[0], "d");
    EXPECT_THAT(m_notes.Take(), ElementsAre("rows", "selection"));
    m_model.SetRows({Row("a", "2")});
    EXPECT_EQ(m_model.SelectedRow(), nullptr);
}

TEST_F(ListViewModelTest, OnlyRealChangesAreTold)
{
    m_model.SetColumnWidth(2, 60);
    m_model.SetColumnWidth(2, 60);
    m_model.SetColumnMark(1, SortOrder::Descending);
    m_model.SetColumnMark(1, SortOrder::Descending);
    EXPECT_THAT(m_notes.Take(), ElementsAre("columns", "columns"));
    m_model.SetColumnWidth(0, 70);
    m_model.SetColumnMark(3, SortOrder::Ascending);
    m_model.SetCell("a", 3, "x");
    m_model.SetCell("e", 1, "x");
    EXPECT_TRUE(m_notes.Take().empty());
    m_model.SetCell("b", 2, "x");
    EXPECT_EQ(m_model.Find("b")->cells[1], "x");
    EXPECT_THAT(m_notes.Take(), ElementsAre("rows"));
}

TEST(StatusBoxModelTest, LinesAreAddedAtTheEnd)
{
    StatusBoxModel box;
    std::vector<std::string> seen;
    box.AddLine("before anybody looks");
    box.Observe([&] { seen.push_back(box.Text()); });
    box.Clear();
    box.AddLine("one");
    box.AddLine("two");
    EXPECT_THAT(seen, ElementsAre("", "one\r\n", "one\r\ntwo\r\n"));
}

TEST(MousePointerTest, ScopesPutBackWhatWasThereBefore)
{
    MousePointer pointer;
    {
        const CHourGlassAndArrow outer(pointer);
        {
            const CHourGlass inner(pointer);
            EXPECT_EQ(pointer.Shape(), PointerShape::Hourglass);
        }
        EXPECT_EQ(pointer.Shape(), PointerShape::ArrowAndHourglass);
    }
    EXPECT_EQ(pointer.Shape(), PointerShape::Normal);
}

} // namespace
} // namespace velmo
