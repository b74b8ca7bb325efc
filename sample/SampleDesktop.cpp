#include "sample/SampleDesktop.h"

#include "catalogue/CommonFolder.h"
#include "catalogue/LocatorTable.h"
#include "catalogue/ProgramTable.h"
#include "platform/DesktopFolders.h"
#include "platform/MFile.h"
#include "platform/MachinePolicy.h"
#include "platform/PrivateProfile.h"
#include "platform/UserSettings.h"
#include "sample/InstalledEquipment.h"
#include "sample/SampleImage.h"

#include <algorithm>
#include <utility>

namespace velmo::sample
{
namespace
{

namespace MFile = platform::MFile;

constexpr std::string_view kTrue = "1 'True";
constexpr std::string_view kGoneFolder = "Removed";

struct Setting
{
    std::string_view key;
    std::string_view value;
};

/// The settings that make the program list show a start-up check.
struct StartupSettings
{
    std::string_view startupCheck;
    std::array<Setting, 3> settings; ///< Unused ones have no key.
};

constexpr std::string_view kIntegrated = "CanCallCheckUpOnStartup";
constexpr std::string_view kOption = "CheckForUpdateOnStartupOption";

constexpr std::array<StartupSettings, 4> kStartupSettings{{
    {"-", {}},
    {"Ask", {{{kIntegrated, kTrue}, {"CanAskAboutUpdating", kTrue}, {kOption, "0"}}}},
    {"Yes", {{{kIntegrated, kTrue}, {kOption, "1"}}}},
    {"No", {{{kIntegrated, kTrue}, {kOption, "2"}}}},
}};

/// Takes one step after the other and remembers the first that failed.
class Layout
{
  public:
    explicit Layout(const SampleDesktopChoices& choices) : m_choices(choices) {}

    Result<Done> LayOut();

  private:
    void Keep(Result<Done> step);
    void WriteSetting(const std::string& file, std::string_view section, std::string_view key,
                      std::string_view value);
    void WriteFile(const std::string& folder, std::string_view name, std::string_view bytes);
    void Install(const InstalledProgram& program);
    void RecordFolder(FolderRecord record, std::string_view valueName, const std::string& folder);
    void WriteStartupCheck(const InstalledProgram& program);

    const SampleDesktopChoices& m_choices;
    Result<Done> m_result = Done{};
};

const ProgramEntry& RowOf(const InstalledProgram& program)
{
    return *std::ranges::find(kPrograms, program.name, &ProgramEntry::displayName);
}

const LocatorEntry& EntryOf(const InstalledProgram& program)
{
    return kLocatorTable[static_cast<std::size_t>(RowOf(program).locatorNumber)];
}

std::string ImageOf(const InstalledProgram& program)
{
    return WriteSampleImage({"Sample of " + std::string(program.name), program.name,
                             EntryOf(program).executable, program.version,
                             program.statesFileVersion, program.is64Bit});
}

Result<Done> Layout::LayOut()
{
    // A program that runs from a build tree counts as installed there, and keeps its lists there.
    Keep(MFile::CreateFolders(platform::ProgramFolder()));
    Keep(MFile::CreateFolders(SampleCommonFolder(m_choices)));
    WriteSetting(WinIniPath(), kVendorSection, "CommonDirectory", m_choices.root + "Common");
    for (const InstalledProgram& program : kInstalledPrograms)
    {
        Install(program);
    }
    if (m_choices.equipment)
    {
        Keep(InstallSampleEquipment(SampleCommonFolder(m_choices)));
    }
    WriteSetting(SampleCommonFolder(m_choices) + "VelmoUpd.ini", "Miscellaneous", "AutoConnect",
                 kTrue);
    if (!m_choices.server.empty())
    {
        Keep(platform::WriteMachinePolicy("WebServer", m_choices.server));
    }
    return m_result;
}

void Layout::Keep(Result<Done> step)
{
    if (m_result && !step)
    {
        m_result = std::move(step);
    }
}

void Layout::WriteSetting(const std::string& file, std::string_view section, std::string_view key,
                          std::string_view value)
{
    Keep(platform::WritePrivateProfileText(section, key, value, file));
}

void Layout::WriteFile(const std::string& folder, std::string_view name, std::string_view bytes)
{
    Keep(MFile::CreateFolders(folder));
    Keep(MFile::WriteAll(folder + "\\" + std::string(name), bytes));
}

void Layout::Install(const InstalledProgram& program)
{
    const std::string folder = m_choices.root + std::string(program.folder);
    WriteFile(folder, EntryOf(program).executable, ImageOf(program));
    RecordFolder(program.record, EntryOf(program).folderName, folder);
    WriteStartupCheck(program);
}

void Layout::RecordFolder(FolderRecord record, std::string_view valueName,
                          const std::string& folder)
{
    if (record == FolderRecord::WinIni || record == FolderRecord::Both)
    {
        WriteSetting(WinIniPath(), kVendorSection, valueName, folder);
    }
    if (record == FolderRecord::UserSettings || record == FolderRecord::Both)
    {
        const std::string gone = m_choices.root + std::string(kGoneFolder);
        Keep(platform::WriteUserSetting(kVendorApplication, kFolderSection, valueName,
                                        record == FolderRecord::Both ? gone : folder));
    }
}

void Layout::WriteStartupCheck(const InstalledProgram& program)
{
    const std::string file = SampleCommonFolder(m_choices) + "VelmoUpd.ini";
    for (const StartupSettings& check : kStartupSettings)
    {
        if (check.startupCheck != program.startupCheck)
        {
            continue;
        }
        for (const Setting& setting : check.settings)
        {
            if (!setting.key.empty())
            {
                WriteSetting(file, program.name, setting.key, setting.value);
            }
        }
    }
}

} // namespace

std::string SampleCommonFolder(const SampleDesktopChoices& choices)
{
    return choices.root + "Common\\";
}

Result<Done> LayOutSampleDesktop(const SampleDesktopChoices& choices)
{
    return Layout(choices).LayOut();
}

} // namespace velmo::sample
