#include "catalogue/CVelmoProgramCommunicator.h"

#include "catalogue/LocatorTable.h"
#include "controls/UserPrompts.h"
#include "platform/ErrorCode.h"
#include "platform/MFile.h"
#include "platform/Processes.h"
#include "platform/UserSettings.h"
#include "settings/CINIFileHandler.h"
#include "settings/DiagnosticLog.h"
#include "text/TextCase.h"
#include "version/CFileVersionInfo.h"

#include <array>
#include <charconv>
#include <exception>

namespace velmo
{
namespace
{

namespace MFile = platform::MFile;

constexpr std::string_view kNotFoundText =
    "Psychrochart plots the state of moist air and the processes between two states. It is a "
    "separate program that is not installed on this computer.";

const LocatorEntry* EntryOf(std::int32_t number)
{
    return number >= 0 && static_cast<std::size_t>(number) < kLocatorTable.size()
               ? &kLocatorTable[static_cast<std::size_t>(number)]
               : nullptr;
}

/// The folder as the stores give it, derived ones composed; without a last "\" if stored so.
std::string StoredFolder(const LocatorEntry& entry, const SharedValues& stores)
{
    if (entry.folderKind != FolderKind::BelowCommon)
    {
        return stores.Value(entry.folderName);
    }
    const std::string common = stores.Value(kCommonFolderName);
    return common.empty() ? std::string() : WithBackslash(common) + std::string(entry.folderName);
}

/// Splits at "." and sets one output per leading piece that is a number.
void ReadVersionPieces(std::string_view text, std::array<std::int32_t*, 3> outputs)
{
    for (std::int32_t* output : outputs)
    {
        const std::size_t end = text.find('.');
        const std::string_view piece = Trimmed(text.substr(0, end));
        std::int32_t value = 0;
        const char* last = piece.data() + piece.size();
        const auto [stop, error] = std::from_chars(piece.data(), last, value);
        if (error == std::errc() && stop == last)
        {
            *output = value;
        }
        if (end == std::string_view::npos)
        {
            return;
        }
        text.remove_prefix(end + 1);
    }
}

} // namespace

CVelmoProgramCommunicator::CVelmoProgramCommunicator(DiagnosticLog& log, UserPrompts& prompts)
    : m_log(log), m_prompts(prompts)
{}

void CVelmoProgramCommunicator::Report(std::string_view operation, std::int32_t number,
                                       std::string_view description)
{
    const std::string source = "CVelmoProgramCommunicator::" + std::string(operation);
    m_lastError = ErrorRecord{number, std::string(description), source};
    m_log.Failure(source, Error{number, m_lastError->description});
}

void CVelmoProgramCommunicator::ReportInvalidArgument(std::string_view operation)
{
    Report(operation, error_code::kInvalidArgument, "Invalid argument");
}

std::string CVelmoProgramCommunicator::FolderName(std::int32_t number, const SharedValues& stores)
{
    const LocatorEntry* entry = EntryOf(number);
    if (entry == nullptr || entry->folderKind == FolderKind::None)
    {
        ReportInvalidArgument("FolderName");
        return {};
    }
    const std::string folder = StoredFolder(*entry, stores);
    if (folder.empty() || entry->folderKind == FolderKind::PlainName)
    {
        return folder;
    }
    return WithBackslash(folder);
}

std::string CVelmoProgramCommunicator::GetEXEFileName(std::int32_t number,
                                                      const SharedValues& stores)
{
    const std::string folder = FolderName(number, stores);
    const LocatorEntry* entry = EntryOf(number);
    if (entry == nullptr || entry->executable.empty())
    {
        ReportInvalidArgument("GetEXEFileName");
        return folder;
    }
    return folder + std::string(entry->executable);
}

void CVelmoProgramCommunicator::SetFileVersion(std::int32_t number, std::int32_t& major,
                                               std::int32_t& minor, std::int32_t& revision,
                                               const SharedValues& stores)
{
    const std::string path = GetEXEFileName(number, stores);
    if (!MFile::FileExists(path))
    {
        return;
    }
    CFileVersionInfo info;
    try
    {
        info.FullPathName(path);
    }
    catch (const TranslationCodeError& fault)
    {
        // The fixed numbers are there all the same.
        Report("SetFileVersion", error_code::kInvalidData, path + ": " + fault.what());
    }
    const std::string& version = info.FileVersion().empty() ? info.VerFile() : info.FileVersion();
    if (version.empty())
    {
        m_log.Write("The executable has no version resource: " + path);
    }
    ReadVersionPieces(version, {&major, &minor, &revision});
}

std::string CVelmoProgramCommunicator::IniFilePath(const LocatorEntry& entry)
{
    const std::string folder = FolderName(entry.number);
    const std::string newer = folder + std::string(entry.iniFile);
    if (entry.previousIniFile.empty())
    {
        return newer;
    }
    const std::string older = folder + std::string(entry.previousIniFile);
    // A folder of that name has a time, too.
    if (!MFile::FileExists(newer))
    {
        return older;
    }
    const auto newerTime = MFile::ModificationTime(newer);
    const auto olderTime = MFile::ModificationTime(older);
    const bool isOlderNewer =
        MFile::FileExists(older) && newerTime && olderTime && olderTime.Value() > newerTime.Value();
    return isOlderNewer ? older : newer;
}

INIValue CVelmoProgramCommunicator::ProgramINIValue(std::int32_t number, std::string_view section,
                                                    std::string_view key, INIValueKind kind,
                                                    const INIValue& defaultValue)
{
    const LocatorEntry* entry = EntryOf(number);
    if (entry == nullptr || entry->iniFile.empty())
    {
        ReportInvalidArgument("FolderName");
        return std::monostate();
    }
    if (static_cast<std::size_t>(kind) != defaultValue.index())
    {
        ReportInvalidArgument("ProgramINIValue");
        return std::monostate();
    }
    CINIFileHandler handler(m_log);
    handler.AppProfileFileName(IniFilePath(*entry));
    try
    {
        switch (kind)
        {
        case INIValueKind::Boolean:
            return handler.MyGetAppProfileBoolean(section, key, std::get<bool>(defaultValue));
        case INIValueKind::Single:
            return handler.MyGetAppProfileSingle(section, key, std::get<float>(defaultValue));
        case INIValueKind::Long:
            return handler.MyGetAppProfileLong(section, key, std::get<std::int32_t>(defaultValue));
        case INIValueKind::Integer:
            return handler.MyGetAppProfileInteger(section, key,
                                                  std::get<std::int16_t>(defaultValue));
        case INIValueKind::String:
            return handler.MyGetAppProfileString(section, key, std::get<std::string>(defaultValue));
        }
    }
    catch (const std::exception& fault)
    {
        Report("ProgramINIValue", error_code::kInvalidData,
               std::string(key) + " of " + handler.AppProfileFileName() + ": " + fault.what());
    }
    return std::monostate();
}

void CVelmoProgramCommunicator::WriteVelmoSoftwareEntry(std::int32_t number,
                                                        std::string_view folder)
{
    const LocatorEntry* entry = EntryOf(number);
    if (entry == nullptr ||
        (entry->folderKind != FolderKind::Stored && entry->folderKind != FolderKind::PlainName))
    {
        ReportInvalidArgument("WriteVelmoSoftwareEntry");
        return;
    }
    if (folder.ends_with('\\'))
    {
        folder.remove_suffix(1);
    }
    CINIFileHandler handler(m_log);
    handler.AppProfileFileName(WinIniPath());
    handler.MyWriteAppProfileString(kVendorSection, entry->folderName, folder);
    if (const auto written = platform::WriteUserSetting(kVendorApplication, kFolderSection,
                                                        entry->folderName, folder);
        !written)
    {
        m_log.Failure("Storing the folder " + std::string(entry->folderName), written.Failure());
    }
}

void CVelmoProgramCommunicator::Launch(std::int32_t number)
{
    if (number != kLaunchableNumber || platform::ActivateWindow(kLaunchableTitle))
    {
        return;
    }
    const std::string folder = FolderName(number);
    for (const std::string_view executable : {EntryOf(number)->executable, kPreviousLaunchable})
    {
        const std::string path = folder + std::string(executable);
        // Without its folder it would be whatever bears that name in the current one.
        if (folder.empty() || !MFile::FileExists(path))
        {
            continue;
        }
        const auto started = platform::StartProgram(path, "", platform::WindowState::Normal);
        if (!started)
        {
            m_log.Failure("Starting " + path, started.Failure());
        }
        return;
    }
    m_prompts.Notify(PromptIcon::Information, std::string(kNotFoundText),
                     std::string(kLaunchableTitle) + " Not Found");
}

} // namespace velmo
