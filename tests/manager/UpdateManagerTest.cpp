#include "manager/UpdateManager.h"

#include "controls/MousePointer.h"
#include "platform/HeadlessLoop.h"
#include "platform/MFile.h"
#include "tests/support/FaultServer.h"
#include "tests/support/RecordedPrompts.h"
#include "tests/support/TemporaryDesktop.h"

#include <gtest/gtest.h>

namespace velmo
{
namespace
{

using test::FaultServer;

class UpdateManagerTest : public testing::Test, protected UpdateManagerView
{
  protected:
    UpdateManagerTest()
    {
        m_desktop.SetWinIniFolder("CommonDirectory", m_desktop.Folder());
        m_desktop.SetPolicy("WebServer", m_server.Url(""));
    }

    void OnBusyChanged() override { ++m_busyChanges; }
    void OnCountsChanged() override { ++m_countChanges; }
    void RedrawProgramList() override { ++m_redraws; }

    const test::TemporaryDesktop m_desktop;
    FaultServer m_server;
    platform::HeadlessLoop m_loop;
    test::RecordedPrompts m_prompts;
    MousePointer m_pointer;
    int m_busyChanges = 0;
    int m_countChanges = 0;
    int m_redraws = 0;
};

TEST_F(UpdateManagerTest, AutomaticConnectionIsTheDefaultAndRemembered)
{
    UpdateManager manager(m_loop, m_prompts, m_pointer);
    EXPECT_TRUE(manager.AutoConnect());
    manager.SetAutoConnect(false);
    EXPECT_FALSE(UpdateManager(m_loop, m_prompts, m_pointer).AutoConnect());
    EXPECT_EQ(m_desktop.Read("VelmoUpd.ini"), "[Miscellaneous]\r\nAutoConnect=0 'False\r\n");
}

TEST_F(UpdateManagerTest, TheConnectButtonFetchesAndThenCancels)
{
    m_server.Play(
        "/pub/demo/version.ini",
        {FaultServer::Hold(), FaultServer::Answer("200 OK", "[Airflow 3]\r\nMajor=3")[0]});
    UpdateManager manager(m_loop, m_prompts, m_pointer);
    manager.Show(this);
    // The loop's first turn comes before the download, the second one during it.
    m_loop.Post([&] {
        m_loop.Post([&] {
            EXPECT_TRUE(manager.Lists().Busy());
            manager.Reconnect();
            m_server.Release("/pub/demo/version.ini");
        });
    });
    manager.Reconnect();
    EXPECT_TRUE(manager.StatusBox().Text().ends_with("Connection Canceled\r\n"));
    EXPECT_EQ(manager.Programs().List().Find("Airflow 3")->cells[3], "?");
    EXPECT_EQ(m_redraws, 0);

    manager.Reconnect();
    EXPECT_EQ(manager.Programs().List().Find("Airflow 3")->cells[3], "3.00.0");
    EXPECT_EQ(m_redraws, 1);
    EXPECT_EQ(m_busyChanges, 4);
    EXPECT_GT(m_countChanges, 0);
    manager.DeleteLists();
    EXPECT_FALSE(platform::MFile::FileExists(manager.Lists().Files().versionList));
}

TEST(UpdateCountsTest, AnyOfThemCounts)
{
    EXPECT_EQ(UpdateCounts().Text(), "Need to Update:  Programs: 0, Databases: 0, Pictures: 0");
    EXPECT_EQ((UpdateCounts{1, 20, 3}.Text()),
              "Need to Update:  Programs: 1, Databases: 20, Pictures: 3");
    EXPECT_FALSE(UpdateCounts().Any());
    EXPECT_TRUE((UpdateCounts{1, 0, 0}.Any() && UpdateCounts{0, 1, 0}.Any() &&
                 UpdateCounts{0, 0, 1}.Any()));
}

} // namespace
} // namespace velmo
