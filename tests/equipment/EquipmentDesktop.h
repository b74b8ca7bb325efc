#pragma once

#include "catalogue/CVelmoProgramCommunicator.h"
#include "equipment/EquipmentList.h"
#include "platform/MFile.h"
#include "settings/CINIFileHandler.h"
#include "settings/DiagnosticLog.h"
#include "tests/support/RecordedPrompts.h"
#include "tests/support/TemporaryDesktop.h"
#include "tests/support/TestSystem.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <string_view>

namespace velmo::test
{

/// A desktop with a common folder and the vendor's manufacturer list, as the equipment's tests use it.
class EquipmentDesktop : public testing::Test
{
  protected:
    EquipmentDesktop()
    {
        EXPECT_TRUE(platform::MFile::CreateFolders(m_common));
        m_desktop.SetWinIniFolder("CommonDirectory", m_common);
        m_settings.AppProfileFileName(m_common + "VelmoUpd.ini");
    }

    void WriteList(std::string_view text) const { m_desktop.Write(m_listPath, text); }

    /// Puts a database of the test data into the common folder.
    void InstallDatabase(std::string_view sample, std::string_view name) const
    {
        const std::string path = TestDataPath("access/" + std::string(sample));
        m_desktop.Write(m_common + std::string(name), m_desktop.Read(path));
    }

    [[nodiscard]] std::string LogText() const
    {
        return platform::MFile::FileExists(m_log.Path()) ? m_desktop.Read(m_log.Path()) : "";
    }

    TemporaryDesktop m_desktop;
    std::string m_common = m_desktop.Folder() + "Common\\";
    std::string m_listPath = m_desktop.Folder() + "Program\\manufver.ini";
    DiagnosticLog m_log{m_desktop.Folder() + "VelmoUpd.log"};
    CINIFileHandler m_settings{m_log};
    RecordedPrompts m_prompts;
    CVelmoProgramCommunicator m_locator{m_log, m_prompts};
    EquipmentList m_list{m_listPath, "http://default.example", m_locator, m_log,
                         [] { return std::chrono::sys_days(std::chrono::year{2026} / 6 / 1); }};
};

} // namespace velmo::test
