#include "ui/CListViewHandler.h"

#include "settings/CINIFileHandler.h"
#include "settings/DiagnosticLog.h"
#include "tests/support/TemporaryDesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velmo
{
namespace
{

using testing::ElementsAre;
using Mark = std::optional<SortOrder>;

class ListViewHandlerTest : public testing::Test
{
  protected:
    ListViewHandlerTest() { m_settings.AppProfileFileName(m_desktop.Folder() + "VelmoUpd.ini"); }

    struct NoRows final : ListSource
    {
        std::size_t RowCount() const override { return 0; }
        std::string Key(std::size_t /*row*/) const override { return {}; }
        std::string Text(std::size_t /*row*/, std::size_t /*column*/) const override { return {}; }
        bool Bold(std::size_t /*row*/) const override { return false; }
    };

    ListViewModel Fresh() const
    {
        return ListViewModel({{"One", 100, {}}, {"Two", 200, {}}, {"Three", 300, {}}}, m_noRows);
    }

    static std::vector<Mark> Marks(const ListViewModel& list)
    {
        std::vector<Mark> marks;
        for (const ListColumn& column : list.Columns())
        {
            marks.push_back(column.mark);
        }
        return marks;
    }

    static std::vector<float> Widths(const ListViewModel& list)
    {
        std::vector<float> widths;
        for (const ListColumn& column : list.Columns())
        {
            widths.push_back(column.width);
        }
        return widths;
    }

    const NoRows m_noRows;
    const test::TemporaryDesktop m_desktop;
    DiagnosticLog m_log{""};
    CINIFileHandler m_settings{m_log, '.'};
    CListViewHandler m_handler{m_settings};
};

TEST_F(ListViewHandlerTest, AClickSortsAndASecondOneReverses)
{
    ListViewModel list = Fresh();
    const struct
    {
        std::size_t column;
        SortOrder order;
        std::vector<Mark> marks;
    } clicks[] = {
        {2, SortOrder::Ascending, {{}, SortOrder::Ascending, {}}},
        {2, SortOrder::Descending, {{}, SortOrder::Descending, {}}},
        {2, SortOrder::Ascending, {{}, SortOrder::Ascending, {}}},
        {3, SortOrder::Ascending, {{}, {}, SortOrder::Ascending}},
        {3, SortOrder::Descending, {{}, {}, SortOrder::Descending}},
        {1, SortOrder::Ascending, {SortOrder::Ascending, {}, {}}},
    };
    for (const auto& click : clicks)
    {
        m_handler.ColumnClick(list, click.column);
        EXPECT_EQ(list.SortedColumn(), click.column);
        EXPECT_EQ(list.Order(), click.order);
        EXPECT_EQ(Marks(list), click.marks);
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
    EXPECT_THAT(Marks(later), ElementsAre(Mark(), SortOrder::Descending, Mark()));
    EXPECT_THAT(Widths(later), ElementsAre(100, 200, 1235));
}

TEST_F(ListViewHandlerTest, WhatCannotBeReadLeavesTheListAsItIs)
{
    const char* texts[] = {
        "",
        "[List]\r\nSortedColumn=4\r\nSortOrder=1\r\n",
        "[List]\r\nSortedColumn=-1\r\nSortOrder=1\r\n",
        "[List]\r\nSortedColumn=99999999999\r\n",
        "[List]\r\nColumnHeaderWidth1=0\r\nColumnHeaderWidth2=-5\r\nColumnHeaderWidth3=1e30\r\n",
    };
    for (const char* text : texts)
    {
        SCOPED_TRACE(text);
        m_desktop.Write("VelmoUpd.ini", text);
        ListViewModel list = Fresh();
        list.Sort(2, SortOrder::Descending);
        m_handler.LoadSort(list, "List");
        m_handler.LoadWidths(list, "List");
        EXPECT_EQ(list.SortedColumn(), 2U);
        EXPECT_EQ(list.Order(), SortOrder::Descending);
        EXPECT_THAT(Widths(list), ElementsAre(100, 200, 300));
    }
}

} // namespace
} // namespace velmo
