#include "platform/ProfileStore.h"

#include "platform/AnsiText.h"
#include "platform/DesktopFolders.h"
#include "platform/MFile.h"
#include "platform/Utf8.h"
#include "platform/posix/DesktopPath.h"
#include "platform/posix/ProfileText.h"
#include "platform/posix/WholeFile.h"

#include <functional>

namespace velmo::platform::ProfileStore
{
namespace
{

constexpr std::string_view kUtf16Mark = "\xFF\xFE";

std::string PathOf(std::string_view file)
{
    const bool isBare = file.find_first_of("\\/:") == std::string_view::npos;
    return (isBare ? WindowsDirectory() : std::string()) + std::string(file);
}

std::string ToUtf16(std::string_view text)
{
    std::string bytes;
    const auto add = [&](char32_t unit) {
        bytes += static_cast<char>(unit & 0xFFU);
        bytes += static_cast<char>(unit >> 8);
    };
    while (!text.empty())
    {
        const char32_t c = TakeCodePoint(text);
        if (c < 0x10000)
        {
            add(c);
        }
        else
        {
            add(0xD800 + ((c - 0x10000) >> 10));
            add(0xDC00 + ((c - 0x10000) & 0x3FF));
        }
    }
    return bytes;
}

/// A profile's text as it is worked on: an ANSI file's own bytes, so that what is not written stays
/// as it is, or the UTF-8 of a UTF-16 file.
class Profile
{
  public:
    explicit Profile(std::string_view bytes)
        : m_isUtf16(bytes.starts_with(kUtf16Mark)),
          m_text(m_isUtf16 ? FromUtf16(bytes.substr(kUtf16Mark.size())) : std::string(bytes))
    {}

    [[nodiscard]] const std::string& Text() const { return m_text; }

    /// A name or value in the form that the text has.
    [[nodiscard]] std::string Inward(std::string_view utf8) const
    {
        return m_isUtf16 ? std::string(utf8) : ToAnsi(utf8);
    }

    [[nodiscard]] std::string Outward(std::string_view part) const
    {
        return m_isUtf16 ? std::string(part) : FromAnsi(part);
    }

    [[nodiscard]] std::string FileBytes(std::string text) const
    {
        return m_isUtf16 ? std::string(kUtf16Mark) + ToUtf16(text) : std::move(text);
    }

  private:
    bool m_isUtf16;
    std::string m_text;
};

Profile Read(std::string_view file)
{
    const auto bytes = MFile::ReadAll(PathOf(file));
    return Profile(bytes ? std::string_view(bytes.Value()) : std::string_view());
}

/// The first characters, as many as fit into @a most UTF-16 units.
std::string Shortened(std::string text, std::size_t most)
{
    std::string_view rest = text;
    while (!rest.empty())
    {
        const std::size_t before = rest.size();
        const std::size_t units = TakeCodePoint(rest) < 0x10000 ? 1 : 2;
        if (units > most)
        {
            text.resize(text.size() - before);
            return text;
        }
        most -= units;
    }
    return text;
}

std::string WithoutTrailingBlanks(std::string_view text)
{
    return std::string(text.substr(0, text.find_last_not_of(' ') + 1));
}

Result<Done> Edit(std::string_view file, const std::function<std::string(const Profile&)>& edit)
{
    return EditFile(NativePath(PathOf(file)), [&](std::string_view bytes) {
        const Profile profile(bytes);
        return profile.FileBytes(edit(profile));
    });
}

} // namespace

std::string ReadText(std::string_view section, std::string_view key, std::string_view defaultText,
                     std::size_t bufferSize, std::string_view file)
{
    const Profile profile = Read(file);
    const auto value =
        ProfileText::Value(profile.Text(), profile.Inward(section), profile.Inward(key));
    return Shortened(value ? profile.Outward(*value) : WithoutTrailingBlanks(defaultText),
                     bufferSize - 1);
}

std::string ReadSection(std::string_view section, std::size_t bufferSize, std::string_view file)
{
    const Profile profile = Read(file);
    const std::string block = ProfileText::SectionBlock(profile.Text(), profile.Inward(section));
    return Shortened(profile.Outward(block), bufferSize - 2);
}

Result<Done> WriteText(std::string_view section, std::optional<std::string_view> key,
                       std::optional<std::string_view> value, std::string_view file)
{
    if ((!key || !value) && !MFile::FileExists(PathOf(file)))
    {
        return Done{};
    }
    return Edit(file, [&](const Profile& profile) {
        const std::string inSection = profile.Inward(section);
        if (!key)
        {
            return ProfileText::WithoutSection(profile.Text(), inSection);
        }
        return value ? ProfileText::WithValue(profile.Text(), inSection, profile.Inward(*key),
                                              profile.Inward(*value))
                     : ProfileText::WithoutKey(profile.Text(), inSection, profile.Inward(*key));
    });
}

Result<Done> WriteSection(std::string_view section, std::string_view block, std::string_view file)
{
    return Edit(file, [&](const Profile& profile) {
        return ProfileText::WithSection(profile.Text(), profile.Inward(section),
                                        profile.Inward(block));
    });
}

} // namespace velmo::platform::ProfileStore
