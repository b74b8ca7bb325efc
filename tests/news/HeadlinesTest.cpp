#include "news/Headlines.h"

#include "settings/DiagnosticLog.h"
#include "settings/SettingsSnapshot.h"
#include "tests/support/TemporaryDesktop.h"

#include <gmock/gmock.h>

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
        return ReadHeadlines(SettingsSnapshot::Parse(list),
                             "http://vendor.example/web/newsroom/index.htm?p=1#latestnews", m_log);
    }

    test::TemporaryDesktop m_desktop;
    DiagnosticLog m_log{m_desktop.Folder() + "VelmoUpd.log"};
};

TEST_F(HeadlinesTest, EachOfTheFirstTwentyLinesGivesItsTextAndItsLink)
{
    std::string list = "[Loadcalc 8]\r\nMajor=8\r\n[News Headlines]\r\n"
                       "Loadcalc 8.02 is here|http://vendor.example/a.html\r\n\r\n"
                       "2=Winter school|https://vendor.example/b.html|third piece\r\n"
                       "No link at all\r\n";
    const std::string other = "[Other]\r\nx|http://vendor.example/c.html\r\n";
    // What precedes the bar is the headline; one without a link cannot be clicked.
    EXPECT_THAT(Read(list + other),
                ElementsAre(FieldsAre("Loadcalc 8.02 is here", "http://vendor.example/a.html"),
                            FieldsAre("2=Winter school", "https://vendor.example/b.html"),
                            FieldsAre("No link at all", "")));
    for (int i = 4; i <= 25; ++i)
    {
        list += "Headline " + std::to_string(i) + "|http://vendor.example/\r\n";
    }
    const auto headlines = Read(list);
    ASSERT_EQ(headlines.size(), 20U);
    EXPECT_EQ(headlines.back().text, "Headline 20");
}

TEST_F(HeadlinesTest, ALinkIsCompletedAsOneOnTheNewsPage)
{
    const std::pair<const char*, const char*> rows[] = {
        {"HTTPS://other.example/x", "HTTPS://other.example/x"},
        {"ftp://vendor.example/x", "ftp://vendor.example/x"},
        {"//other.example/x?y", "http://other.example/x?y"},
        {"/a/./b", "http://vendor.example/a/b"},
        {"july.htm#top", "http://vendor.example/web/newsroom/july.htm#top"},
        {"../../../july/?a=../b", "http://vendor.example/july/?a=../b"},
        {"..", "http://vendor.example/web/"},
        {"?p=2", "http://vendor.example/web/newsroom/index.htm?p=2"},
        {"#more", "http://vendor.example/web/newsroom/index.htm?p=1#more"},
        {"", ""},
        {"file:///C:/x.html", ""},
        {"javascript:alert(1)", ""},
        {"C:\\Windows\\calc.exe", ""},
    };
    for (const auto& [link, address] : rows)
    {
        SCOPED_TRACE(link);
        const auto headlines = Read(std::string("[News Headlines]\r\nA| ") + link + " \r\n");
        EXPECT_THAT(headlines, ElementsAre(FieldsAre("A", address)));
    }
    EXPECT_NE(m_desktop.Read("VelmoUpd.log").find("calc.exe"), std::string::npos);
}

} // namespace
} // namespace velmo
