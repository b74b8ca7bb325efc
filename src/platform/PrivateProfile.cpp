#include "platform/PrivateProfile.h"

#include "platform/ProfileStore.h"

#include <utility>

namespace velmo::platform
{
namespace
{

/// The shortest buffer that holds anything: one character and its NUL.
constexpr std::size_t kShortestBuffer = 2;

std::string& FailureOfThisThread()
{
    thread_local std::string failure;
    return failure;
}

bool Report(const Result<Done>& result)
{
    FailureOfThisThread() = result ? std::string() : result.Failure().description;
    return result.Ok();
}

bool HasLineEnd(std::string_view text)
{
    constexpr std::string_view kEnds("\r\n\0", 3);
    return text.find_first_of(kEnds) != std::string_view::npos;
}

} // namespace

std::string GetPrivateProfileText(std::string_view section, std::string_view key,
                                  std::string_view defaultText, std::size_t bufferSize,
                                  std::string_view file)
{
    if (bufferSize < kShortestBuffer)
    {
        return {};
    }
    if (file.empty())
    {
        return std::string(defaultText.substr(0, defaultText.find_last_not_of(' ') + 1));
    }
    return ProfileStore::ReadText(section, key, defaultText, bufferSize, file);
}

std::string GetPrivateProfileSectionBlock(std::string_view section, std::size_t bufferSize,
                                          std::string_view file)
{
    return bufferSize < kShortestBuffer || file.empty()
               ? std::string()
               : ProfileStore::ReadSection(section, bufferSize, file);
}

bool WritePrivateProfileText(std::string_view section, std::optional<std::string_view> key,
                             std::optional<std::string_view> value, std::string_view file)
{
    if (file.empty())
    {
        return Report(Error{2, "No file is named"});
    }
    if (HasLineEnd(section) || HasLineEnd(key.value_or("")) || HasLineEnd(value.value_or("")))
    {
        return Report(Error{87, "The text has line breaks"});
    }
    return Report(ProfileStore::WriteText(section, key, value, file));
}

bool WritePrivateProfileSectionBlock(std::string_view section, std::string_view block,
                                     std::string_view file)
{
    if (file.empty())
    {
        return Report(Error{2, "No file is named"});
    }
    if (HasLineEnd(section) || block.find_first_of("\r\n") != std::string_view::npos)
    {
        return Report(Error{87, "The text has line breaks"});
    }
    return Report(ProfileStore::WriteSection(section, block, file));
}

std::string LastProfileFailure()
{
    return FailureOfThisThread();
}

} // namespace velmo::platform
