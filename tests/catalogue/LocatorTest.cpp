#include "catalogue/CVelmoProgramCommunicator.h"

#include "catalogue/CommonFolder.h"
#include "catalogue/LocatorTable.h"
#include "platform/MFile.h"
#include "platform/PrivateProfile.h"
#include "platform/UserSettings.h"
#include "sample/PeImageWriter.h"
#include "settings/DiagnosticLog.h"
#include "tests/support/RecordedPrompts.h"
#include "tests/support/TemporaryDesktop.h"

#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <tuple>

namespace velmo
{
namespace
{

using sample::VersionResource;
namespace MFile = platform::MFile;

/// The first that the locator does not know.
constexpr auto kNoNumber = static_cast<std::int32_t>(kLocatorTable.size());

constexpr std::int32_t kKept = -7;
using Parts = std::array<std::int32_t, 3>;

class LocatorTest : public testing::Test
{
  protected:
    /// The operation whose error the last call reported, empty for none.
    static std::string ErrorSource(const CVelmoProgramCommunicator& locator)
    {
        const auto& error = locator.LastError();
        EXPECT_TRUE(!error || error->number == 13 ||
                    (error->number == 513 && error->description == "Invalid argument"));
        const std::string source = error ? error->source : "CVelmoProgramCommunicator::";
        EXPECT_TRUE(source.starts_with("CVelmoProgramCommunicator::"));
        return source.substr(source.find(':') + 2);
    }

    CVelmoProgramCommunicator Locator() { return {m_log, m_prompts}; }

    /// The version of a program, after "Loadcalc8.exe" was given that resource.
    Parts FileVersion(std::int32_t number, const VersionResource* version = nullptr)
    {
        if (version != nullptr)
        {
            m_desktop.Write("Loadcalc8.exe", sample::WritePeImage({true, {*version}}));
        }
        Parts parts{kKept, kKept, kKept};
        Locator().SetFileVersion(number, parts[0], parts[1], parts[2]);
        return parts;
    }

    /// What the log says after the launch of a program.
    std::string Launch(std::int32_t number = 7)
    {
        m_desktop.Write("locator.log", "");
        auto locator = Locator();
        locator.Launch(number);
        EXPECT_EQ(ErrorSource(locator), "");
        return m_desktop.Read("locator.log");
    }

    const test::TemporaryDesktop m_desktop;
    DiagnosticLog m_log{m_desktop.Folder() + "locator.log"};
    test::RecordedPrompts m_prompts;
};

TEST_F(LocatorTest, FoldersComeFromWinIniElseFromTheUsersSettings)
{
    // Without a common folder what lies in it has none; other numbers are an error.
    for (const auto& [number, isKnown] : {std::pair(0, true),
                                          {19, true},
                                          {28, true},
                                          {30, true},
                                          {31, true},
                                          {-1, false},
                                          {15, false},
                                          {kNoNumber, false},
                                          {INT32_MAX, false}})
    {
        auto locator = Locator();
        EXPECT_EQ(locator.FolderName(number), "");
        EXPECT_EQ(ErrorSource(locator), isKnown ? "" : "FolderName") << number;
    }
    m_desktop.SetWinIniFolder("CommonDirectory", "C:\\Velmo");
    m_desktop.SetWinIniFolder("AirflowDirectory", "C:\\Prog");
    m_desktop.SetUserFolder("AirflowDirectory", "C:\\Other");
    m_desktop.SetUserFolder("RooftopDirectory", "D:\\Roof\\");
    m_desktop.SetUserFolder("LoadcalcDirectory", "C:\\Calc");
    m_desktop.SetWinIniFolder("DefaultManufacturer", "Arbor Works");
    m_desktop.SetWinIniFolder("CatalogDirectory", "C:\\Catalog");
    constexpr std::tuple<std::int32_t, const char*, const char*> kRows[] = {
        {0, "C:\\Velmo\\", ""}, // No executable: an error.
        {1, "C:\\Prog\\", "Airflow3.exe"},
        {3, "C:\\Calc\\", "Loadcalc7.exe"},
        {12, "C:\\Calc\\", "Loadcalc8.exe"},
        {13, "Arbor Works", ""},
        {14, "D:\\Roof\\", "Rooftop.exe"},
        {17, "", "Splitpair.exe"},
        {19, "C:\\Velmo\\", ""},
        {20, "", "Panelplan6.exe"},
        {21, "", "Panelplan5.exe"},
        {28, "C:\\Velmo\\Document\\", "Document.exe"},
        {29, "C:\\Catalog\\", "VelmoCatalog.ocx"},
        {30, "C:\\Velmo\\Bill of Materials\\", "Billofmat.exe"},
        {31, "C:\\Velmo\\", "VelmoUpd.exe"},
    };
    for (const auto& [number, folder, executable] : kRows)
    {
        SCOPED_TRACE(number);
        auto locator = Locator();
        EXPECT_EQ(locator.FolderName(number), folder);
        EXPECT_EQ(ErrorSource(locator), "");
        EXPECT_EQ(locator.GetEXEFileName(number), std::string(folder) + executable);
        EXPECT_EQ(ErrorSource(locator), *executable != '\0' ? "" : "GetEXEFileName");
    }
}

TEST_F(LocatorTest, VersionsAreSplitIntoThreeNumbers)
{
    const std::pair<const char16_t*, Parts> rows[] = {
        {u"8.02.0015", {8, 2, 15}},
        {u"8.2.1.4", {8, 2, 1}},
        {u" 8 . 2 . 1 ", {8, 2, 1}},
        {u"8.2", {8, 2, kKept}},
        {u"8", {8, kKept, kKept}},
        {u"8..3", {8, kKept, 3}},
        {u"v8.2.3 beta", {kKept, 2, kKept}},
        {u"99999999999.2.1", {kKept, 2, 1}},
        {u"", {9, 3, 407}}, // The fixed numbers stand in.
    };
    m_desktop.SetWinIniFolder("LoadcalcDirectory", m_desktop.Folder());
    for (const auto& [text, expected] : rows)
    {
        SCOPED_TRACE(testing::PrintToString(std::u16string(text)));
        const VersionResource version{.fileVersion = {9, 3, 4, 7},
                                      .strings = {{u"040904B0", {{u"FileVersion", text}}}}};
        EXPECT_EQ(FileVersion(12, &version), expected);
    }
    m_desktop.SetWinIniFolder("WiringDirectory", "C:\\velmo-none");
    m_desktop.Write("Loadcalc8.exe", "no program");
    for (const std::int32_t number : {-1, 0, 4, 12, 13, 26}) // Without a version outputs stay.
    {
        EXPECT_EQ(FileVersion(number), (Parts{kKept, kKept, kKept})) << number;
    }
    const VersionResource faulty{.fileVersion = {8, 2, 0, 15}, .translations = {{0, 1200}}};
    EXPECT_EQ(FileVersion(12, &faulty), (Parts{8, 2, 15})) << "the translation names no texts";
    auto locator = Locator();
    Parts parts{};
    locator.SetFileVersion(12, parts[0], parts[1], parts[2]);
    EXPECT_EQ(ErrorSource(locator), "SetFileVersion");
}

TEST_F(LocatorTest, OfTwoIniFilesTheNewerIsRead)
{
    m_desktop.SetWinIniFolder("LoadcalcDirectory", m_desktop.Folder());
    // Both files' times in seconds, if there is such a file.
    constexpr std::tuple<std::optional<int>, std::optional<int>, const char*> kRows[] = {
        {100, 100, "current"},           {102, 100, "current"},
        {100, 102, "previous"},          {100, std::nullopt, "current"},
        {std::nullopt, 100, "previous"}, {std::nullopt, std::nullopt, "default"},
    };
    const auto make = [this](const char* name, const char* value, std::optional<int> time) {
        EXPECT_TRUE(MFile::DeleteIfExists(m_desktop.Folder() + name));
        if (time)
        {
            const auto path = m_desktop.Write(name, std::string("[S]\r\nk=") + value + "\r\n");
            const MFile::Time newYear = std::chrono::sys_days(std::chrono::year(2020) / 1 / 1);
            EXPECT_TRUE(MFile::SetModificationTime(path, newYear + std::chrono::seconds(*time)));
        }
    };
    for (const auto& [current, previous, read] : kRows)
    {
        make("Loadcalcw.ini", "current", current);
        make("Loadcalc8.ini", "previous", previous);
        auto locator = Locator();
        EXPECT_EQ(locator.ProgramINIValue(12, "S", "k", INIValueKind::String, "default"),
                  INIValue(read));
        EXPECT_EQ(ErrorSource(locator), "");
    }
    make("Loadcalcw.ini", "current", std::nullopt);
    make("Loadcalc8.ini", "previous", 100);
    m_desktop.Write("Loadcalcw.ini\\x", "");
    EXPECT_EQ(Locator().ProgramINIValue(12, "S", "k", INIValueKind::String, "default"),
              INIValue("previous"))
        << "a folder is no INI file";
}

TEST_F(LocatorTest, TheKindChoosesTheReaderOfAnIniValue)
{
    m_desktop.SetWinIniFolder("AirflowDirectory", m_desktop.Folder());
    m_desktop.Write("Airflow3.ini", "[S]\r\nk=2.5 'x\r\nbig=70000\r\n");
    m_desktop.SetWinIniFolder("PanelplanDirectory", m_desktop.Folder());
    m_desktop.Write("Panelplan5.ini", "[S]\r\nk=5\r\n");
    m_desktop.Write("Panelplan6.ini", "[S]\r\nk=6\r\n");
    const std::int16_t two = 2;
    const std::tuple<int, const char*, INIValueKind, INIValue, INIValue, std::string> rows[] = {
        {1, "k", INIValueKind::Boolean, false, true, ""},
        {1, "k", INIValueKind::Single, 0.F, 2.5F, ""},
        {1, "k", INIValueKind::Long, 0, 2, ""},
        {1, "k", INIValueKind::Integer, std::int16_t{0}, two, ""},
        {1, "k", INIValueKind::String, "", "2.5 'x", ""},
        {1, "big", INIValueKind::Long, 0, 70000, ""},
        {1, "big", INIValueKind::Integer, two, std::monostate(), "ProgramINIValue"},
        {1, "none", INIValueKind::Long, 5, 5, ""},
        {20, "k", INIValueKind::Long, 0, 6, ""},
        {21, "k", INIValueKind::Long, 0, 5, ""},
        {1, "k", static_cast<INIValueKind>(5), "d", std::monostate(), "ProgramINIValue"},
        {10, "k", INIValueKind::String, "d", std::monostate(), "FolderName"},
        {kNoNumber, "k", INIValueKind::String, "d", std::monostate(), "FolderName"},
    };
    for (const auto& [number, key, kind, fallback, answer, source] : rows)
    {
        SCOPED_TRACE(testing::Message() << number << " " << key << " " << source);
        auto locator = Locator();
        EXPECT_TRUE(locator.ProgramINIValue(number, "S", key, kind, fallback) == answer);
        EXPECT_EQ(ErrorSource(locator), source);
    }
}

TEST_F(LocatorTest, AFolderIsWrittenToBothStores)
{
    constexpr std::tuple<std::int32_t, const char*, const char*, const char*> kRows[] = {
        {12, "D:\\Apps\\X\\", "LoadcalcDirectory", "D:\\Apps\\X"},
        {1, "D:\\Apps\\\\", "AirflowDirectory", "D:\\Apps\\"},
        {0, "C:\\Velmo", "CommonDirectory", "C:\\Velmo"},
        {13, "Arbor Works", "DefaultManufacturer", "Arbor Works"},
    };
    const auto winIni = [](std::string_view name) {
        return platform::GetPrivateProfileText("Velmo Software", name, "", 256, WinIniPath());
    };
    const auto user = [](std::string_view name) {
        return platform::ReadUserSetting("Velmo Software", "Program Folders", name).value_or("");
    };
    for (const auto& [number, folder, name, stored] : kRows)
    {
        SCOPED_TRACE(number);
        auto locator = Locator();
        locator.WriteVelmoSoftwareEntry(number, folder);
        EXPECT_EQ(ErrorSource(locator), "");
        EXPECT_EQ(winIni(name), stored);
        EXPECT_EQ(user(name), stored);
    }
    for (const std::int32_t number : {-1, 15, 19, 28, 29, 30, 31, kNoNumber})
    {
        SCOPED_TRACE(number);
        auto locator = Locator();
        locator.WriteVelmoSoftwareEntry(number, "E:\\Wrong");
        EXPECT_EQ(ErrorSource(locator), "WriteVelmoSoftwareEntry");
    }
    EXPECT_EQ(winIni("CommonDirectory"), "C:\\Velmo");
    EXPECT_EQ(winIni("CatalogDirectory") + user("CatalogDirectory"), "");
}

TEST_F(LocatorTest, AMissingProgramIsANotice)
{
    // The second time its folder is known, but empty.
    for (const char* folder : {"", m_desktop.Folder().c_str()})
    {
        m_desktop.SetWinIniFolder("PsychrochartDirectory", folder);
        Launch();
    }
    ASSERT_EQ(m_prompts.notices.size(), 2U);
    for (const auto& notice : m_prompts.notices)
    {
        EXPECT_EQ(notice.icon, PromptIcon::Information);
        EXPECT_EQ(notice.title, "Psychrochart Not Found");
    }
    // Without a folder the current one is not searched.
    m_desktop.SetWinIniFolder("PsychrochartDirectory", "");
    const std::string stray = m_desktop.Write(MFile::FullPath("Psychrochartw.exe"), "no program");
    EXPECT_EQ(Launch(), "");
    EXPECT_EQ(m_prompts.notices.size(), 3U);
    EXPECT_TRUE(MFile::DeleteIfExists(stray));
}

TEST_F(LocatorTest, TheProgramIsStartedElseItsPreviousGeneration)
{
    m_desktop.SetWinIniFolder("PsychrochartDirectory", m_desktop.Folder());
    m_desktop.Write("Psychrochart.exe", "no program");
    EXPECT_NE(Launch().find("\\Psychrochart.exe"), std::string::npos);
    m_desktop.WriteProgram("Psychrochart.exe");
    EXPECT_EQ(Launch(), "");
    m_desktop.Write("Psychrochartw.exe", "no program");
    EXPECT_NE(Launch().find("\\Psychrochartw.exe"), std::string::npos);
    m_desktop.WriteProgram("Psychrochartw.exe");
    EXPECT_EQ(Launch(), "");
    for (const std::int32_t other : {-1, 0, 6, 8, 31, kNoNumber})
    {
        EXPECT_EQ(Launch(other), "");
    }
    EXPECT_TRUE(m_prompts.notices.empty());
}

} // namespace
} // namespace velmo
