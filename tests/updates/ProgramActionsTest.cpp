#include "updates/ProgramActions.h"

#include "catalogue/VendorServer.h"

#include "tests/support/ProgramDesktop.h"
#include "updates/AddressOpener.h"
#include "updates/ProgramRow.h"

#include <gmock/gmock.h>

namespace velmo
{
namespace
{

using testing::ElementsAre;
using testing::HasSubstr;

constexpr std::int32_t kLoadcalc = 4;
constexpr std::int32_t kWithoutUpdatePage = 9;

class ProgramActionsTest : public test::ProgramDesktop
{
  protected:
    VendorServer m_server{"http://vendor.example", "http://192.0.2.17"};
    std::vector<std::string> m_opened;
    std::vector<std::size_t> m_told; ///< Notices that had been shown at each opening.
    Result<Done> m_outcome = Done{};
    AddressOpener m_opener{m_log, [this](const std::string& address) {
                               m_opened.push_back(address);
                               m_told.push_back(m_prompts.notices.size());
                               return m_outcome;
                           }};
    ProgramActions m_actions{m_server, m_prompts, m_opener};
};

TEST_F(ProgramActionsTest, ADownloadTakesTheListedAddressElseTheCataloguesOwn)
{
    m_actions.Download({.index = kLoadcalc, .demoAddress = "  ftp://mirror.example/lc.exe "});
    m_actions.Download({.index = kLoadcalc});
    m_actions.Download({.index = kLoadcalc, .demoAddress = "   "});
    m_actions.Download({.index = 1});
    EXPECT_THAT(m_opened, ElementsAre("ftp://mirror.example/lc.exe",
                                      "http://vendor.example/pub/demo/lc8setup.exe",
                                      "http://vendor.example/pub/demo/lc8setup.exe",
                                      "http://192.0.2.17/pub/chlsz40.exe"));
}

TEST_F(ProgramActionsTest, TheReminderComesBeforeEveryDownload)
{
    m_actions.Download({.index = kLoadcalc});
    m_actions.Download({.index = -1}); // No address at all.
    ASSERT_EQ(m_prompts.notices.size(), 2U);
    EXPECT_THAT(m_told, ElementsAre(1U));
    EXPECT_EQ(m_prompts.notices[1].icon, PromptIcon::Information);
    EXPECT_EQ(m_prompts.notices[1].title, "Reminder to Close Open Programs");
    EXPECT_EQ(m_prompts.notices[1].text,
              "Once the download is finished, be sure to close this program (Update Manager) as "
              "well as any other programs you have open, especially the program you are about to "
              "download, before actually running the setup.");
    EXPECT_EQ(m_opened.size(), 1U);
}

TEST_F(ProgramActionsTest, PagesAreTheCatalogues)
{
    m_actions.OpenUpdatePage(kLoadcalc);
    m_actions.OpenUpdatePage(kWithoutUpdatePage);
    m_actions.OpenInformationPage(kLoadcalc);
    m_actions.OpenInformationPage(31); // The update manager has none.
    EXPECT_THAT(m_opened, ElementsAre("http://vendor.example/web/hvacr/loadcalc8_ver.html",
                                      "http://vendor.example/web/errors/noupdatepage.txt",
                                      "http://vendor.example/web/hvacr/loadcalc_info.html"));
}

TEST_F(ProgramActionsTest, WhatIsNoAddressOfTheWebIsNeverOpenedButLogged)
{
    for (const char* listed : {"C:\\Windows\\system32\\calc.exe", "calc.exe /s",
                               "file:///C:/setup.exe", "\\\\server\\share\\x.exe", "-x"})
    {
        m_actions.Download({.index = kLoadcalc, .demoAddress = listed});
        EXPECT_THAT(LogText(), HasSubstr(listed));
    }
    EXPECT_TRUE(m_opened.empty());
}

TEST_F(ProgramActionsTest, AFailureToOpenIsLoggedAndNobodyIsBothered)
{
    m_outcome = Error{1155, "No browser"};
    m_actions.OpenInformationPage(kLoadcalc);
    EXPECT_TRUE(m_prompts.notices.empty());
    EXPECT_THAT(LogText(), HasSubstr("loadcalc_info.html: No browser (1155)"));
}

} // namespace
} // namespace velmo
