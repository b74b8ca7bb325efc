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

TEST(StatusBoxModelTest, LinesAreAddedAtTheEnd)
{
    StatusBoxModel box;
    std::vector<std::string> seen;
    box.AddLine("before anybody looks");
    auto observing = box.Changed().Add([&] { seen.push_back(box.Text()); });
    box.Clear();
    box.AddLine("one");
    box.AddLine("two");
    observing.reset();
    box.AddLine("nobody looks any more");
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
