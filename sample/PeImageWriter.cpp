#include "sample/PeImageWriter.h"

#include <map>
#include <string_view>

namespace velmo::sample
{
namespace
{

constexpr std::uint32_t kFileAlignment = 0x200;
constexpr std::uint32_t kSectionAlignment = 0x1000;
constexpr std::uint32_t kCodeAddress = 0x1000;
constexpr std::uint32_t kResourceAddress = 0x2000;
constexpr std::uint32_t kVersionType = 16;
constexpr std::uint32_t kSubdirectory = 0x80000000;

/// xor eax, eax; ret: the same bytes in 32 and 64 bits.
constexpr std::string_view kCode{"\x31\xC0\xC3", 3};

void Put16(std::string& bytes, std::uint32_t value)
{
    bytes.push_back(static_cast<char>(value & 0xFF));
    bytes.push_back(static_cast<char>(value >> 8 & 0xFF));
}

void Put32(std::string& bytes, std::uint64_t value)
{
    Put16(bytes, static_cast<std::uint32_t>(value & 0xFFFF));
    Put16(bytes, static_cast<std::uint32_t>(value >> 16 & 0xFFFF));
}

/// A number that is 4 bytes wide in a 32-bit image and 8 in a 64-bit one.
void PutWide(std::string& bytes, bool is64Bit, std::uint64_t value)
{
    Put32(bytes, value);
    if (is64Bit)
    {
        Put32(bytes, value >> 32);
    }
}

void PutText(std::string& bytes, std::u16string_view text)
{
    for (const char16_t unit : text)
    {
        Put16(bytes, unit);
    }
    Put16(bytes, 0);
}

void Align(std::string& bytes, std::size_t alignment)
{
    bytes.resize((bytes.size() + alignment - 1) / alignment * alignment);
}

std::uint32_t Aligned(std::size_t size, std::uint32_t alignment)
{
    return (static_cast<std::uint32_t>(size) + alignment - 1) / alignment * alignment;
}

enum class ValueKind : std::uint16_t
{
    Binary = 0, ///< Value lengths count bytes.
    Text = 1    ///< Value lengths count UTF-16 units.
};

/// One node of the version tree: its name, its value, then the nodes below it.
std::string Node(std::u16string_view name, ValueKind kind, std::string_view value,
                 const std::vector<std::string>& children)
{
    std::string node(2, '\0');
    Put16(node,
          static_cast<std::uint32_t>(kind == ValueKind::Text ? value.size() / 2 : value.size()));
    Put16(node, static_cast<std::uint16_t>(kind));
    PutText(node, name);
    if (!value.empty())
    {
        Align(node, 4);
        node += value;
    }
    for (const std::string& child : children)
    {
        Align(node, 4);
        node += child;
    }
    std::string length;
    Put16(length, static_cast<std::uint32_t>(node.size()));
    return node.replace(0, length.size(), length);
}

std::string FixedInfo(const VersionResource& version)
{
    std::string info;
    Put32(info, 0xFEEF04BD);
    Put32(info, version.structureVersion);
    for (const auto& words : {version.fileVersion, version.productVersion})
    {
        Put32(info, std::uint32_t{words[0]} << 16 | words[1]);
        Put32(info, std::uint32_t{words[2]} << 16 | words[3]);
    }
    for (const std::uint32_t value :
         {version.flagsMask, version.flags, version.os, version.type, version.subtype})
    {
        Put32(info, value);
    }
    Put32(info, 0); // The date, which nobody sets.
    Put32(info, 0);
    return info;
}

std::string StringTable(const VersionStrings& strings)
{
    std::vector<std::string> children;
    for (const auto& [name, text] : strings.values)
    {
        std::string value;
        PutText(value, text);
        children.push_back(Node(name, ValueKind::Text, value, {}));
    }
    return Node(strings.block, ValueKind::Text, {}, children);
}

/// The resource section: a directory of types, one of numbers, one of languages per number, the
/// places of the data, the data. Offsets in the directories count from the section's start.
std::string ResourceSection(const std::vector<VersionResource>& versions)
{
    std::map<std::uint32_t, std::map<std::uint32_t, std::string>> byId;
    for (const VersionResource& version : versions)
    {
        byId[version.id][version.language] = WriteVersionResource(version);
    }
    const auto directorySize = [](std::size_t entries) { return 16 + 8 * entries; };
    const auto putDirectory = [](std::string& bytes, std::size_t entries) {
        bytes.append(14, '\0');
        Put16(bytes, static_cast<std::uint32_t>(entries));
    };

    std::string section;
    putDirectory(section, 1);
    Put32(section, kVersionType);
    Put32(section, kSubdirectory | directorySize(1));
    putDirectory(section, byId.size());
    std::size_t next = directorySize(1) + directorySize(byId.size());
    for (const auto& [id, languages] : byId)
    {
        Put32(section, id);
        Put32(section, kSubdirectory | next);
        next += directorySize(languages.size());
    }
    std::string places;
    std::string data;
    const std::size_t placesStart = next;
    const std::size_t dataStart = placesStart + 16 * versions.size();
    for (const auto& [id, languages] : byId)
    {
        putDirectory(section, languages.size());
        for (const auto& [language, bytes] : languages)
        {
            Put32(section, language);
            Put32(section, placesStart + places.size());
            Put32(places, kResourceAddress + dataStart + data.size());
            Put32(places, bytes.size());
            Put32(places, 0);
            Put32(places, 0);
            data += bytes;
            Align(data, 4);
        }
    }
    return section + places + data;
}

void PutSectionHeader(std::string& bytes, std::string_view name, std::uint32_t address,
                      std::size_t size, std::uint32_t fileOffset, std::uint32_t flags)
{
    bytes += name;
    bytes.append(8 - name.size(), '\0');
    Put32(bytes, size);
    Put32(bytes, address);
    Put32(bytes, Aligned(size, kFileAlignment));
    Put32(bytes, fileOffset);
    bytes.append(12, '\0');
    Put32(bytes, flags);
}

/// The optional header: what the loader needs to map the image.
std::string OptionalHeader(bool is64Bit, std::size_t resourceSize)
{
    constexpr std::uint32_t kConsole = 3;
    constexpr std::uint32_t kDataExecutionPrevention = 0x100;
    std::string header;
    Put16(header, is64Bit ? 0x20B : 0x10B);
    Put16(header, 0);
    Put32(header, kFileAlignment); // Code size.
    Put32(header, Aligned(resourceSize, kFileAlignment));
    Put32(header, 0);
    Put32(header, kCodeAddress); // Entry point.
    Put32(header, kCodeAddress);
    if (!is64Bit)
    {
        Put32(header, kResourceAddress);
    }
    PutWide(header, is64Bit, is64Bit ? 0x140000000 : 0x400000);
    Put32(header, kSectionAlignment);
    Put32(header, kFileAlignment);
    for (const std::uint32_t version : {6U, 0U, 0U, 0U, 6U, 0U}) // System, image, subsystem.
    {
        Put16(header, version);
    }
    Put32(header, 0);
    Put32(header, kResourceAddress + Aligned(resourceSize, kSectionAlignment));
    Put32(header, kFileAlignment); // Header size.
    Put32(header, 0);
    Put16(header, kConsole);
    Put16(header, kDataExecutionPrevention);
    for (const std::uint64_t size : {0x100000U, 0x1000U, 0x100000U, 0x1000U}) // Stack, heap.
    {
        PutWide(header, is64Bit, size);
    }
    Put32(header, 0);
    Put32(header, 16); // Data directories; the third is the resources'.
    header.append(16, '\0');
    Put32(header, resourceSize == 0 ? 0 : kResourceAddress);
    Put32(header, resourceSize);
    header.append(13 * 8, '\0');
    return header;
}

} // namespace

std::string WriteVersionResource(const VersionResource& version)
{
    std::vector<std::string> children;
    if (!version.strings.empty())
    {
        std::vector<std::string> tables;
        for (const VersionStrings& strings : version.strings)
        {
            tables.push_back(StringTable(strings));
        }
        children.push_back(Node(u"StringFileInfo", ValueKind::Text, {}, tables));
    }
    if (!version.translations.empty())
    {
        std::string value;
        for (const VersionTranslation& translation : version.translations)
        {
            Put16(value, translation.language);
            Put16(value, translation.codePage);
        }
        children.push_back(Node(u"VarFileInfo", ValueKind::Text, {},
                                {Node(u"Translation", ValueKind::Binary, value, {})}));
    }
    return Node(u"VS_VERSION_INFO", ValueKind::Binary, FixedInfo(version), children);
}

std::string WritePeImage(const PeImage& image)
{
    constexpr std::uint32_t kReadable = 0x40000000;
    const std::string resources =
        image.versions.empty() ? std::string() : ResourceSection(image.versions);
    const std::string optional = OptionalHeader(image.is64Bit, resources.size());

    std::string file = "MZ";
    file.resize(0x3C);
    Put32(file, 0x40); // The header of Windows follows at once: there is no DOS program.
    file.append("PE\0\0", 4);
    Put16(file, image.is64Bit ? 0x8664 : 0x014C);
    Put16(file, resources.empty() ? 1 : 2);
    file.append(12, '\0');
    Put16(file, static_cast<std::uint32_t>(optional.size()));
    Put16(file, image.is64Bit ? 0x0023 : 0x0103); // Executable at its own address only.
    file += optional;
    PutSectionHeader(file, ".text", kCodeAddress, kCode.size(), kFileAlignment,
                     kReadable | 0x20000020);
    if (!resources.empty())
    {
        PutSectionHeader(file, ".rsrc", kResourceAddress, resources.size(), 2 * kFileAlignment,
                         kReadable | 0x40);
    }
    Align(file, kFileAlignment);
    file += kCode;
    Align(file, kFileAlignment);
    file += resources;
    Align(file, kFileAlignment);
    return file;
}

} // namespace velmo::sample
