#include "controls/GridModel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace velmo
{
namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

class GridModelTest : public testing::Test, public GridModel::Observer
{
  protected:
    GridModelTest() { m_grid.Observe(this); }

    void OnRowsChanged() override { m_heard.push_back("rows"); }
    void OnCellChanged(std::size_t row, std::size_t column) override
    {
        m_heard.push_back("cell " + std::to_string(row) + "," + std::to_string(column));
    }
    void OnColumnCellsChanged(std::size_t column) override
    {
        m_heard.push_back("column " + std::to_string(column));
    }
    void OnPositionChanged() override { m_heard.push_back("position"); }
    void OnSizeToContents() override { m_heard.push_back("size"); }

    void Append(std::string section, std::string value, TickState tick = TickState::Unticked)
    {
        m_grid.Append({{{std::move(section)}, {std::move(value)}, {"", tick}}});
    }

    /// "first+count" of the spans at each row of a column.
    [[nodiscard]] std::vector<std::string> Spans(std::size_t column) const
    {
        std::vector<std::string> spans;
        for (std::size_t row = 0; row < m_grid.Rows().size(); ++row)
        {
            const GridSpan span = m_grid.SpanAt(row, column);
            spans.push_back(std::to_string(span.first) + "+" + std::to_string(span.count));
        }
        return spans;
    }

    GridModel m_grid{{{"Section", 0, false, true}, {"Value"}, {"Box", 0, false, true, true}}};
    std::vector<std::string> m_heard;
};

TEST_F(GridModelTest, EqualNeighboursOfAMergedColumnAreOneCell)
{
    for (const char* section : {"A", "A", "B", "", "", "A"})
    {
        Append(section, "same");
    }
    EXPECT_THAT(Spans(0), ElementsAre("0+2", "0+2", "2+1", "3+1", "4+1", "5+1"));
    EXPECT_THAT(Spans(1), ElementsAre("0+1", "1+1", "2+1", "3+1", "4+1", "5+1"));
    Append("A", "same");
    EXPECT_EQ(m_grid.SpanAt(5, 0).count, 2U);
}

TEST_F(GridModelTest, BoxesStaySeparateWhereCellsWithoutOneMerge)
{
    Append("A", "", TickState::Unticked);
    Append("A", "", TickState::Unticked);
    m_grid.Append({{{"B"}, {""}, {" "}}});
    m_grid.Append({{{"B"}, {""}, {" "}}});
    EXPECT_THAT(Spans(2), ElementsAre("0+1", "1+1", "2+2", "2+2"));
}

TEST_F(GridModelTest, OnlyExistingBoxesChange)
{
    Append("A", "1");
    Append("A", "2", TickState::None);
    Append("B", "3");
    m_heard.clear();
    EXPECT_TRUE(m_grid.SetTick(0, 2, TickState::Ticked));
    EXPECT_FALSE(m_grid.SetTick(0, 2, TickState::Ticked));
    EXPECT_FALSE(m_grid.SetTick(0, 2, TickState::None));
    EXPECT_FALSE(m_grid.SetTick(1, 2, TickState::Ticked));
    m_grid.SetTicks(2, TickState::Ticked, [](std::size_t) { return true; });
    m_grid.SetTicks(2, TickState::Ticked, [](std::size_t) { return true; });
    EXPECT_EQ(m_grid.Tick(1, 2), TickState::None);
    EXPECT_EQ(m_grid.Tick(2, 2), TickState::Ticked);
    EXPECT_THAT(m_heard, ElementsAre("cell 0,2", "column 2"));
    EXPECT_THROW(m_grid.SetTick(3, 2, TickState::Ticked), std::out_of_range);
}

TEST_F(GridModelTest, WithoutRedrawingTheObserverHearsOnceAtTheEnd)
{
    m_grid.SetRedraw(false);
    Append("A", "1");
    Append("A", "2");
    m_grid.SizeToContents();
    m_grid.MoveTo({1, 1, 0, 0});
    EXPECT_THAT(m_heard, IsEmpty());
    m_grid.SetRedraw(true);
    EXPECT_THAT(m_heard, ElementsAre("rows", "size", "position"));
    m_heard.clear();
    m_grid.SetRedraw(false);
    m_grid.SetRedraw(true);
    EXPECT_THAT(m_heard, IsEmpty());
    m_grid.SetRedraw(false);
    m_grid.SetTicks(2, TickState::Ticked, [](std::size_t row) { return row == 1; });
    m_grid.SetRedraw(true);
    EXPECT_THAT(m_heard, ElementsAre("rows"));
}

TEST_F(GridModelTest, APositionIsBroughtIntoRange)
{
    Append("A", "1");
    Append("A", "2");
    m_grid.MoveTo({7, 1, 9, 40});
    EXPECT_EQ(m_grid.Position(), (GridPosition{1, 1, 1, 2}));
    m_grid.Clear();
    EXPECT_EQ(m_grid.Position(), GridPosition{});
    m_grid.MoveTo({3, 0, 3, 0});
    EXPECT_EQ(m_grid.Position(), GridPosition{});
}

TEST_F(GridModelTest, TheLongestTextCountsCharactersOfTheRowsThereAre)
{
    EXPECT_EQ(m_grid.LongestText(1), "");
    Append("A", "\xC3\xA4\xC3\xA4\xC3\xA4");
    Append("A", "four");
    EXPECT_EQ(m_grid.LongestText(1), "four");
    Append("A", "\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4");
    EXPECT_EQ(m_grid.LongestText(1), m_grid.Text(2, 1));
}

} // namespace
} // namespace velmo
