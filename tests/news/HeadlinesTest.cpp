#include "news/Headlines.h"

#include "settings/DiagnosticLog.h"
#include "tests/support/TemporaryDesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velmo
{
namespace
{

using testing::ElementsAre;
using testing::FieldsAre;

class HeadlinesTest : public testing::Test
{
  protected:
    std::vector<Headline> Read(const std::string& list)
    {
        return ReadHeadlines(m_desktop.Write("version.ini", list), m_log);
    }

    test::TemporaryDesktop m_desktop;
    DiagnosticLog m_log{m_desktop.Folder() + "VelmoUpd.log"};
};

TEST_F(HeadlinesTest, EachLineGivesItsTextAndItsLink)
{
    const auto headlines = Read("[Loadcalc 8]\r\nMajor=8\r\n[News Headlines]\r\n"
                                "Loadcalc 8.02 is here|http://vendor.example/a.html\r\n"
                                "\r\n"
                                "2=Winter school|https://vendor.example/b.html|third piece\r\n"
                                "No link at all\r\n"
                                "[Other]\r\nx|http://vendor.example/c.html\r\n");
    // What precedes the bar is the headline; one without a link cannot be clicked.
    EXPECT_THAT(headlines,
                ElementsAre(FieldsAre("Loadcalc 8.02 is here", "http://vendor.example/a.html"),
                            FieldsAre("2=Winter school", "https://vendor.example/b.html"),
                            FieldsAre("No link at all", "")));
}

TEST_F(HeadlinesTest, OnlyTheFirstTwentyLinesAreUsed)
{
    std::string list = "[News Headlines]\r\n";
    for (int i = 1; i <= 25; ++i)
    {
        list += "Headline " + std::to_string(i) + "|http://vendor.example/\r\n";
    }
    const auto headlines = Read(list);
    ASSERT_EQ(headlines.size(), 20U);
    EXPECT_EQ(headlines.back().text, "Headline 20");
}

TEST_F(HeadlinesTest, ALinkThatIsNoPageCannotBeClickedAndIsLogged)
{
    const auto headlines = Read("[News Headlines]\r\nA|file:///C:/x.html\r\nB|calc.exe\r\n"
                                "C|ftp://vendor.example/x\r\n");
    EXPECT_THAT(headlines, ElementsAre(FieldsAre("A", ""), FieldsAre("B", ""), FieldsAre("C", "")));
    EXPECT_NE(m_desktop.Read("VelmoUpd.log").find("calc.exe"), std::string::npos);
}

} // namespace
} // namespace velmo
