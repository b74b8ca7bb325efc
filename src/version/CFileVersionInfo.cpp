#include "version/CFileVersionInfo.h"

#include "platform/AnsiText.h"
#include "platform/FileReader.h"
#include "platform/LanguageName.h"
#include "platform/MFile.h"
#include "text/ByteView.h"
#include "version/VersionInfoBlock.h"
#include "version/VersionResource.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <optional>

namespace velmo
{
namespace
{

struct ValueText
{
    std::uint32_t value;
    std::string_view text;
};

constexpr std::array kFlagWords{
    ValueText{0x01, "Debug"},   ValueText{0x02, "PreRel"}, ValueText{0x04, "Patched"},
    ValueText{0x08, "Private"}, ValueText{0x10, "Info"},   ValueText{0x20, "Special"},
};

constexpr std::array kSystems{
    ValueText{0x00010001, "DOS-Win16"},     ValueText{0x00010004, "DOS-Win32"},
    ValueText{0x00020002, "OS/2-16 PM-16"}, ValueText{0x00030003, "OS/2-16 PM-32"},
    ValueText{0x00040004, "NT-Win32"},
};

constexpr std::uint32_t kDriver = 3;
constexpr std::uint32_t kFont = 4;

constexpr std::array kTypes{
    ValueText{1, "Application"}, ValueText{2, "DLL"}, ValueText{kDriver, "Driver"},
    ValueText{kFont, "Font"},    ValueText{5, "VxD"}, ValueText{7, "Lib"},
};

constexpr std::array kDriverKinds{
    ValueText{0, "Unknown"},      ValueText{1, "Printer drv"}, ValueText{2, "Keyboard drv"},
    ValueText{3, "Language drv"}, ValueText{4, "Display drv"}, ValueText{5, "Mouse drv"},
    ValueText{6, "Network drv"},  ValueText{7, "System drv"},  ValueText{8, "Installable"},
    ValueText{9, "Sound drv"},    ValueText{10, "Comm drv"},
};

constexpr std::array kFontKinds{
    ValueText{1, "Raster Font"},
    ValueText{2, "Vector Font"},
    ValueText{3, "TrueType Font"},
};

/// The text of @a value, @a otherwise when the table has none.
template <std::size_t N>
std::string TextOf(const std::array<ValueText, N>& table, std::uint32_t value,
                   std::string_view otherwise)
{
    for (const ValueText& row : table)
    {
        if (row.value == value)
        {
            return std::string(row.text);
        }
    }
    return std::string(otherwise);
}

std::string FlagsText(std::uint32_t flags)
{
    std::string words;
    for (const ValueText& row : kFlagWords)
    {
        if ((flags & row.value) != 0)
        {
            words += words.empty() ? "" : " ";
            words += row.text;
        }
    }
    return words;
}

std::uint32_t HighWord(std::uint32_t value)
{
    return value >> 16;
}

std::uint32_t LowWord(std::uint32_t value)
{
    return value & 0xFFFF;
}

std::string ThreeGroups(std::uint32_t high, std::uint32_t low)
{
    const auto build = static_cast<std::int16_t>(HighWord(low)); // Above 32767 counts as none.
    std::array<char, 40> text{};
    if (build < 1)
    {
        std::snprintf(text.data(), text.size(), "%u.%02u.%04u", HighWord(high), LowWord(high),
                      LowWord(low));
    }
    else
    {
        std::snprintf(text.data(), text.size(), "%u.%02u.%02d%02u", HighWord(high), LowWord(high),
                      build, LowWord(low));
    }
    return text.data();
}

/// What text @a value starts with: resources store it with a terminating zero, and sometimes with
/// more behind it.
std::string_view ToZero(std::string_view value)
{
    return value.substr(0, value.find('\0'));
}

struct TranslationCode
{
    std::uint16_t language;
    std::string block; ///< Name of the block of texts: language and code page in hex.
};

TranslationCode CodeOf(std::string_view translation)
{
    const ByteView bytes(ToZero(translation));
    if (!bytes.Has(0, 4))
    {
        throw TranslationCodeError();
    }
    const std::uint16_t language = bytes.U16(0);
    std::array<char, 9> block{};
    std::snprintf(block.data(), block.size(), "%04X%04X", language, bytes.U16(2));
    return {language, block.data()};
}

} // namespace

TranslationCodeError::TranslationCodeError()
    : std::runtime_error("The version resource's translation has a zero byte")
{}

void CFileVersionInfo::FullPathName(std::string_view path)
{
    std::string full = platform::MFile::FullPath(path);
    if (full.empty())
    {
        return;
    }
    m_fullPathName = std::move(full);
    Refresh();
}

void CFileVersionInfo::Refresh()
{
    m_available = false;
    const auto file = platform::FileReader::Open(m_fullPathName);
    auto resource = file ? ReadVersionResource(file.Value()) : std::nullopt;
    const auto block = resource ? VersionInfoBlock::FromBytes(std::move(*resource)) : std::nullopt;
    if (!block)
    {
        return;
    }
    m_available = true;
    SetFixed(block->FixedInfo());
    SetTexts(*block);
}

void CFileVersionInfo::SetFixed(const FixedFileInfo& info)
{
    m_verStructure = std::to_string(HighWord(info.structureVersion)) + "." +
                     std::to_string(LowWord(info.structureVersion));
    m_verFile = ThreeGroups(info.fileVersionHigh, info.fileVersionLow);
    m_verProduct = ThreeGroups(info.productVersionHigh, info.productVersionLow);
    m_fileFlags = FlagsText(info.flags);
    m_fileOS = TextOf(kSystems, info.os, "Unknown");
    m_fileType = TextOf(kTypes, info.type, "Unknown");
    if (info.type == kDriver)
    {
        m_fileSubType = TextOf(kDriverKinds, info.subtype, m_fileSubType);
    }
    else if (info.type == kFont)
    {
        m_fileSubType = TextOf(kFontKinds, info.subtype, m_fileSubType);
    }
}

void CFileVersionInfo::SetTexts(const VersionInfoBlock& block)
{
    struct Text
    {
        std::string_view name;
        std::string CFileVersionInfo::*property;
    };
    static constexpr std::array kTexts{
        Text{"CompanyName", &CFileVersionInfo::m_companyName},
        Text{"FileDescription", &CFileVersionInfo::m_fileDescription},
        Text{"FileVersion", &CFileVersionInfo::m_fileVersion},
        Text{"InternalName", &CFileVersionInfo::m_internalName},
        Text{"LegalCopyright", &CFileVersionInfo::m_legalCopyright},
        Text{"LegalTrademarks", &CFileVersionInfo::m_legalTrademarks},
        Text{"OriginalFilename", &CFileVersionInfo::m_originalFilename},
        Text{"ProductName", &CFileVersionInfo::m_productName},
        Text{"ProductVersion", &CFileVersionInfo::m_productVersion},
    };
    const auto translation = block.Value({"VarFileInfo", "Translation"});
    if (!translation)
    {
        return;
    }
    const TranslationCode code = CodeOf(*translation);
    m_language = platform::LanguageName(code.language);
    for (const Text& text : kTexts)
    {
        if (const auto value = block.Value({"StringFileInfo", code.block, text.name}))
        {
            this->*text.property = platform::FromAnsi(ToZero(*value));
        }
    }
}

} // namespace velmo
