#include "platform/PrivateProfile.h"

#include "platform/DesktopFolders.h"
#include "platform/ErrorCode.h"
#include "platform/MFile.h"
#include "platform/ProfileBytes.h"
#include "platform/ProfileText.h"
#include "platform/SystemProfile.h"
#include "text/TextCase.h"

#include <algorithm>
#include <initializer_list>
#include <utility>

namespace velmo::platform
{
namespace
{

/// The shortest buffer that holds anything: one character and its NUL.
constexpr std::size_t kShortestBuffer = 2;

std::string WithoutTrailingBlanks(std::string_view text)
{
    return std::string(text.substr(0, text.find_last_not_of(' ') + 1));
}

bool HasLineEnd(std::string_view text)
{
    constexpr std::string_view kEnds("\r\n\0", 3);
    return text.find_first_of(kEnds) != std::string_view::npos;
}

/// Whether all of it may be written: error 87 when a part would become lines of their own.
Result<Done> Checked(std::string_view file, std::initializer_list<std::string_view> parts)
{
    if (file.empty())
    {
        return Error{error_code::kFileMissing, "No file is named"};
    }
    return std::any_of(parts.begin(), parts.end(), HasLineEnd)
               ? Result<Done>(Error{error_code::kInvalidParameter, "The text has line breaks"})
               : Done{};
}

/// Windows' own functions for the one file whose other users call them too.
const SystemProfile* SystemFor(std::string_view path)
{
    const SystemProfile* system = TheSystemsProfile();
    const bool isShared =
        system != nullptr && LowerCase(path) == LowerCase(WindowsDirectory() + "Win.ini");
    return isShared ? system : nullptr;
}

/// Replaces a file's text; @a edit has the profile to turn names and values into the text's form.
template <typename Edit>
Result<Done> EditText(const std::string& path, Edit edit)
{
    return MFile::Edit(path, [&](std::string_view bytes) {
        const ProfileBytes profile(bytes);
        return profile.FileBytes(edit(profile));
    });
}

/// Where a profile file lies: in the Windows directory when its name has no folder.
std::string ProfilePath(std::string_view file)
{
    const bool isBare = file.find_first_of("\\/:") == std::string_view::npos;
    return (isBare ? WindowsDirectory() : std::string()) + std::string(file);
}

} // namespace

Result<Profile> ReadProfile(std::string_view file)
{
    if (file.empty())
    {
        return Profile();
    }
    const auto bytes = MFile::ReadAll(ProfilePath(file));
    if (bytes)
    {
        return Profile(bytes.Value());
    }
    const std::int32_t code = bytes.Failure().code;
    const bool isMissing = code == error_code::kFileMissing || code == error_code::kFolderMissing;
    return isMissing ? Result(Profile()) : bytes.Failure();
}

Result<Profile> ReadProfileSection(std::string_view file, std::string_view section)
{
    const std::string path = ProfilePath(file);
    const SystemProfile* system = SystemFor(path);
    return system != nullptr ? system->readSection(section, path) : ReadProfile(file);
}

std::string GetPrivateProfileText(std::string_view section, std::string_view key,
                                  std::string_view defaultText, std::size_t bufferSize,
                                  std::string_view file)
{
    const auto profile = ReadProfileSection(file, section);
    return GetPrivateProfileText(section, key, defaultText, bufferSize,
                                 profile ? profile.Value() : Profile());
}

std::string GetPrivateProfileText(std::string_view section, std::string_view key,
                                  std::string_view defaultText, std::size_t bufferSize,
                                  const Profile& profile)
{
    if (bufferSize < kShortestBuffer)
    {
        return {};
    }
    auto value = profile.Value(section, key);
    return Shortened(value ? std::move(*value) : WithoutTrailingBlanks(defaultText),
                     bufferSize - 1);
}

std::string GetPrivateProfileSectionBlock(std::string_view section, std::size_t bufferSize,
                                          const Profile& profile)
{
    return bufferSize < kShortestBuffer ? std::string()
                                        : Shortened(profile.Block(section), bufferSize - 2);
}

Result<Done> WritePrivateProfileText(std::string_view section, std::optional<std::string_view> key,
                                     std::optional<std::string_view> value, std::string_view file)
{
    if (auto checked = Checked(file, {section, key.value_or(""), value.value_or("")}); !checked)
    {
        return checked;
    }
    const std::string path = ProfilePath(file);
    if (const SystemProfile* system = SystemFor(path))
    {
        return system->writeText(section, key, value, path);
    }
    return EditText(path, [&](const ProfileBytes& profile) {
        const std::string inSection = profile.Inward(section);
        const std::string inKey = profile.Inward(key.value_or(""));
        return !key    ? ProfileText::WithoutSection(profile.Text(), inSection)
               : value ? ProfileText::WithValue(profile.Text(), inSection, inKey,
                                                profile.Inward(*value))
                       : ProfileText::WithoutKey(profile.Text(), inSection, inKey);
    });
}

Result<Done> WritePrivateProfileSectionBlock(std::string_view section, std::string_view block,
                                             std::string_view file)
{
    const bool hasBreaks = block.find_first_of("\r\n") != std::string_view::npos;
    if (auto checked = Checked(file, {section, hasBreaks ? "\n" : ""}); !checked)
    {
        return checked;
    }
    const std::string path = ProfilePath(file);
    if (const SystemProfile* system = SystemFor(path))
    {
        return system->writeSection(section, block, path);
    }
    return EditText(path, [&](const ProfileBytes& profile) {
        return ProfileText::WithSection(profile.Text(), profile.Inward(section),
                                        profile.Inward(block));
    });
}

} // namespace velmo::platform
