#pragma once

#include "catalogue/CVelmoProgramCommunicator.h"
#include "platform/MFile.h"
#include "sample/SampleImage.h"
#include "settings/CINIFileHandler.h"
#include "settings/DiagnosticLog.h"
#include "tests/support/RecordedPrompts.h"
#include "tests/support/TemporaryDesktop.h"

#include <gtest/gtest.h>

#include <string>

namespace velmo::test
{

/// A desktop whose folder is the vendor's common folder, with settings, log and locator of the program.
class ProgramDesktop : public testing::Test
{
  protected:
    ProgramDesktop()
    {
        m_desktop.SetWinIniFolder("CommonDirectory", m_desktop.Folder());
        m_settings.AppProfileFileName(m_desktop.Folder() + "VelmoUpd.ini");
    }

    /// Installs Loadcalc 8, or another program of the vendor's that lies in the common folder.
    void Install(ProgramVersion version, const char* file = "Loadcalc8.exe") const
    {
        m_desktop.SetWinIniFolder("LoadcalcDirectory", m_desktop.Folder());
        m_desktop.Write(file, sample::WriteSampleImage({"Sample", "Sample", file, version}));
    }

    void WriteSettings(std::string_view text) const { m_desktop.Write("VelmoUpd.ini", text); }
    [[nodiscard]] std::string Settings() const { return m_desktop.Read("VelmoUpd.ini"); }
    [[nodiscard]] std::string LogText() const
    {
        return platform::MFile::FileExists(m_log.Path()) ? m_desktop.Read("VelmoUpd.log") : "";
    }

    const TemporaryDesktop m_desktop;
    DiagnosticLog m_log{m_desktop.Folder() + "VelmoUpd.log"};
    CINIFileHandler m_settings{m_log};
    RecordedPrompts m_prompts;
    CVelmoProgramCommunicator m_locator{m_log, m_prompts};
};

} // namespace velmo::test
