#include "trust/SignedLists.h"

#include "platform/ErrorCode.h"
#include "text/PlainFileName.h"
#include "text/TextCase.h"
#include "text/TextLine.h"
#include "text/Utf8.h"
#include "trust/UtcTime.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <set>
#include <utility>

namespace velmo
{
namespace
{

constexpr std::string_view kHead = "[Velmo Lists]";
constexpr std::string_view kFiles = "[Files]";
constexpr std::string_view kFormat = "1";
constexpr std::string_view kHashMark = " sha256:";
constexpr std::size_t kLongestPath = 1'024;
constexpr std::size_t kMostDigits = 18;

enum HeadKey : std::size_t
{
    kFormatKey,
    kSerialKey,
    kPublishedKey,
    kExpiresKey,
    kHeadKeys
};
constexpr std::array<std::string_view, kHeadKeys> kHeadKeyNames{"Format", "Serial", "Published",
                                                                "Expires"};

std::optional<std::uint64_t> Number(std::string_view digits)
{
    std::uint64_t number = 0;
    const char* end = digits.data() + digits.size();
    const auto read = std::from_chars(digits.data(), end, number);
    const bool isNumber = !digits.empty() && digits.size() <= kMostDigits && read.ptr == end;
    return isNumber && read.ec == std::errc() ? std::optional(number) : std::nullopt;
}

std::optional<unsigned char> HexByte(std::string_view digits)
{
    unsigned char byte = 0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), byte, 16);
    return read.ptr == digits.data() + digits.size() ? std::optional(byte) : std::nullopt;
}

std::optional<Sha256> Hash(std::string_view digits)
{
    Sha256 hash{};
    if (digits.size() != 2 * hash.size())
    {
        return std::nullopt;
    }
    for (std::size_t i = 0; i < hash.size(); ++i)
    {
        const auto byte = HexByte(digits.substr(2 * i, 2));
        if (!byte)
        {
            return std::nullopt;
        }
        hash[i] = *byte;
    }
    return hash;
}

/// "path=size sha256:hash"; a path may hold a "=".
std::optional<SignedFile> ParseFile(std::string_view line)
{
    const std::size_t equals = line.rfind('=');
    const std::size_t mark = line.rfind(kHashMark);
    if (equals == std::string_view::npos || mark == std::string_view::npos || mark < equals ||
        !IsServerPath(line.substr(0, equals)))
    {
        return std::nullopt;
    }
    const auto size = Number(line.substr(equals + 1, mark - equals - 1));
    const auto hash = Hash(line.substr(mark + kHashMark.size()));
    return size && hash
               ? std::optional(SignedFile{std::string(line.substr(0, equals)), {*size, *hash}})
               : std::nullopt;
}

/// Takes the text's lines one by one.
class SignedListsReader
{
  public:
    /// What is wrong with the line; nullptr: nothing.
    const char* Take(std::string_view line)
    {
        if (line.empty())
        {
            return nullptr;
        }
        if (line.front() == '[')
        {
            return TakeSection(line);
        }
        switch (m_section)
        {
        case Section::None:
            return "Nothing may stand before [Velmo Lists].";
        case Section::Head:
            return TakeHead(line);
        case Section::Files:
            break;
        }
        return TakeFile(line);
    }

    /// What is wrong with the whole; nullptr: nothing.
    const char* Finish()
    {
        const auto serial = Number(m_head[kSerialKey].value_or(""));
        const auto published = ParseUtcTime(m_head[kPublishedKey].value_or(""));
        const auto expires = ParseUtcTime(m_head[kExpiresKey].value_or(""));
        if (m_head[kFormatKey] != kFormat)
        {
            return "The format is not 1.";
        }
        if (!serial || *serial == 0 || !published || !expires || *expires <= *published)
        {
            return "Serial, Published or Expires is missing or makes no sense.";
        }
        if (m_lists.files.empty())
        {
            return "There are no files.";
        }
        m_lists.serial = *serial;
        m_lists.published = *published;
        m_lists.expires = *expires;
        return nullptr;
    }

    SignedLists Lists() &&
    {
        std::ranges::sort(m_lists.files, {},
                          [](const SignedFile& file) { return LowerCase(file.path); });
        return std::move(m_lists);
    }

  private:
    enum class Section
    {
        None,
        Head,
        Files
    };

    const char* TakeSection(std::string_view line)
    {
        if (m_section == Section::None && line == kHead)
        {
            m_section = Section::Head;
            return nullptr;
        }
        if (m_section == Section::Head && line == kFiles)
        {
            m_section = Section::Files;
            return nullptr;
        }
        return "This section does not belong here.";
    }

    const char* TakeHead(std::string_view line)
    {
        const std::size_t equals = line.find('=');
        if (equals == std::string_view::npos)
        {
            return "This is no key with its value.";
        }
        const auto key = std::ranges::find(kHeadKeyNames, line.substr(0, equals));
        if (key == kHeadKeyNames.end())
        {
            return nullptr;
        }
        auto& value = m_head[static_cast<std::size_t>(key - kHeadKeyNames.begin())];
        if (value)
        {
            return "This key comes twice.";
        }
        value = line.substr(equals + 1);
        return nullptr;
    }

    const char* TakeFile(std::string_view line)
    {
        auto file = ParseFile(line);
        if (!file)
        {
            return "This is no path with size and hash.";
        }
        if (!m_paths.insert(LowerCase(file->path)).second)
        {
            return "This path comes twice.";
        }
        if (m_lists.files.size() == kMostSignedFiles)
        {
            return "These are too many files.";
        }
        m_lists.files.push_back(std::move(*file));
        return nullptr;
    }

    Section m_section = Section::None;
    std::array<std::optional<std::string_view>, kHeadKeys> m_head;
    std::set<std::string> m_paths;
    SignedLists m_lists;
};

std::string HashText(const Sha256& hash)
{
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string text;
    for (const unsigned char byte : hash)
    {
        text += {kDigits[byte >> 4U], kDigits[byte & 0xFU]};
    }
    return text;
}

} // namespace

const FileDigest* SignedLists::Find(std::string_view path) const
{
    const auto lowerPath = [](const SignedFile& file) { return LowerCase(file.path); };
    const auto found = std::ranges::lower_bound(files, LowerCase(path), {}, lowerPath);
    return found != files.end() && found->path == path ? &found->digest : nullptr;
}

std::string_view SignedLists::FaultOf(std::string_view path, const FileDigest& digest) const
{
    const FileDigest* const wanted = Find(path);
    if (wanted == nullptr)
    {
        return ": it is not among the signed files";
    }
    if (wanted->size != digest.size)
    {
        return ": its size differs from the signed one";
    }
    return wanted->hash == digest.hash ? "" : ": its content differs from the signed one";
}

bool IsServerPath(std::string_view path)
{
    if (!path.starts_with('/') || path.size() > kLongestPath || !IsValidUtf8(path))
    {
        return false;
    }
    while (!path.empty())
    {
        path.remove_prefix(1);
        const std::string_view part = path.substr(0, path.find('/'));
        if (!IsPlainFileName(part))
        {
            return false;
        }
        path.remove_prefix(part.size());
    }
    return true;
}

Result<SignedLists> ParseSignedLists(std::string_view text)
{
    SignedListsReader reader;
    for (std::size_t number = 1; !text.empty(); ++number)
    {
        if (const char* const fault = reader.Take(TakeLine(text)))
        {
            return Error{error_code::kInvalidData,
                         "Line " + std::to_string(number) + " of the text: " + fault};
        }
    }
    if (const char* const fault = reader.Finish())
    {
        return Error{error_code::kInvalidData, fault};
    }
    return std::move(reader).Lists();
}

std::string SignedListsText(const SignedLists& lists)
{
    const std::array<std::string, kHeadKeys> values{
        std::string(kFormat), std::to_string(lists.serial), UtcTimeText(lists.published),
        UtcTimeText(lists.expires)};
    std::string text = std::string(kHead) + "\n";
    for (std::size_t key = 0; key < kHeadKeys; ++key)
    {
        text += std::string(kHeadKeyNames[key]) + "=" + values[key] + "\n";
    }
    text += std::string(kFiles) + "\n";
    for (const SignedFile& file : lists.files)
    {
        text += file.path + "=" + std::to_string(file.digest.size) + std::string(kHashMark) +
                HashText(file.digest.hash) + "\n";
    }
    return text;
}

} // namespace velmo
