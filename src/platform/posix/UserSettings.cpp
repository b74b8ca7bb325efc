#include "platform/UserSettings.h"

#include "platform/ErrorCode.h"
#include "platform/MFile.h"
#include "platform/MachinePolicy.h"
#include "platform/ProfileText.h"
#include "platform/posix/DesktopPath.h"
#include "text/TextCase.h"

/// The files in the desktop root that stand for the registry: sections and keys as in a profile file,
/// in UTF-8, values in quotes where blanks or quotes at their ends must survive.
namespace velmo::platform
{
namespace
{

constexpr const char* kUserFile = "user-settings.ini";
constexpr const char* kPolicyFile = "policy.ini";
constexpr const char* kPolicySection = "Policy";

std::string SectionOf(std::string_view application, std::string_view section)
{
    return std::string(application) + "\\" + std::string(section);
}

bool ReadsBack(std::string_view section, std::string_view key, std::string_view value)
{
    constexpr std::string_view kLineEnds("\r\n\0", 3);
    constexpr auto none = std::string_view::npos;
    return section.find(']') == none && section.find_first_of(kLineEnds) == none &&
           key.find('=') == none && key.find_first_of(kLineEnds) == none &&
           value.find_first_of(kLineEnds) == none && !key.empty() &&
           key.find_first_of(" \t;[") != 0;
}

std::optional<std::string> ReadSettingsFile(const char* file, std::string_view section,
                                            std::string_view key)
{
    const auto text = MFile::ReadAll((DesktopRoot() / file).string());
    const auto value = text ? ProfileText::Value(text.Value(), section, key) : std::nullopt;
    return value ? std::optional<std::string>(*value) : std::nullopt;
}

Result<Done> WriteSettingsFile(const char* file, std::string_view section, std::string_view key,
                               std::string_view value)
{
    const std::filesystem::path path = DesktopRoot() / file;
    if (!ReadsBack(section, key, value))
    {
        return Error{error_code::kInvalidParameter, "The text would read back as something else"};
    }
    std::error_code error;
    std::filesystem::create_directories(DesktopRoot(), error);
    return MFile::Edit(path.string(), [&](std::string_view text) {
        return ProfileText::WithValue(text, section, key, ProfileText::Quoted(value));
    });
}

} // namespace

std::optional<std::string> ReadUserSetting(std::string_view application, std::string_view section,
                                           std::string_view key)
{
    return ReadSettingsFile(kUserFile, SectionOf(application, section), key);
}

Profile ReadUserSettings(std::string_view application, std::string_view section)
{
    const auto text = MFile::ReadAll((DesktopRoot() / kUserFile).string());
    const std::string name = FoldedCase(SectionOf(application, section));
    for (const auto& stored :
         text ? ProfileText::Sections(text.Value()) : std::vector<ProfileText::Section>())
    {
        if (FoldedCase(stored.name) == name)
        {
            return Profile(section, ProfileText::BlockOf(stored.body));
        }
    }
    return {};
}

Result<Done> WriteUserSetting(std::string_view application, std::string_view section,
                              std::string_view key, std::string_view value)
{
    return WriteSettingsFile(kUserFile, SectionOf(application, section), key, value);
}

std::optional<std::string> ReadMachinePolicy(std::string_view name)
{
    auto value = ReadSettingsFile(kPolicyFile, kPolicySection, name);
    return value && value->empty() ? std::nullopt : value;
}

Result<Done> WriteMachinePolicy(std::string_view name, std::string_view value)
{
    return WriteSettingsFile(kPolicyFile, kPolicySection, name, value);
}

} // namespace velmo::platform
