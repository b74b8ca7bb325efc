#include "controls/GridModel.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <stdexcept>

namespace velmo
{
namespace
{

using testing::ElementsAre;

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

    void Show(std::vector<Row> rows)
    {
        m_rows = std::move(rows);
        m_grid.RowsChanged();
    }

    std::vector<Row> m_rows;
    GridModel m_grid{{{"Group", 0, false, true}, {"Value"}, {"Box", 0, false, true, true}}, *this};
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
