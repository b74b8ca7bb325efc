#include "version/VersionResource.h"

#include "text/ByteView.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace velmo
{
namespace
{

using platform::FileReader;

constexpr std::uint32_t kVersionType = 16;
constexpr std::uint32_t kVersionId = 1;
constexpr std::array<std::uint32_t, 3> kPreferredLanguages{0x0000, 0x0409, 0x0009};

constexpr std::uint32_t kSubdirectory = 0x80000000;
constexpr std::size_t kMostResource = 0xFFFF; // A version tree's length is a 16-bit number.

/// All counts in the headers are 16-bit numbers, so that no part is larger than 3 MiB.
std::optional<std::string> Read(const FileReader& file, std::uint64_t offset, std::size_t size)
{
    std::string bytes(size, '\0');
    if (!file.ReadAt(offset, std::as_writable_bytes(std::span(bytes))))
    {
        return std::nullopt;
    }
    return bytes;
}

struct Section
{
    std::uint32_t address = 0;
    std::uint32_t size = 0; ///< In the file; what lies beyond is not stored and holds no resource.
    std::uint32_t fileOffset = 0;
};

struct Image
{
    std::uint32_t resourceAddress = 0; ///< 0 = no resources.
    std::vector<Section> sections;

    /// Where in the file the byte lies that is loaded at @a address.
    [[nodiscard]] std::optional<std::uint64_t> FileOffset(std::uint32_t address) const
    {
        for (const Section& section : sections)
        {
            if (address >= section.address && address - section.address < section.size)
            {
                return std::uint64_t{section.fileOffset} + (address - section.address);
            }
        }
        return std::nullopt;
    }
};

/// The address of the resources from the optional header, 0 when it has none.
std::uint32_t ResourceAddress(ByteView optionalHeader)
{
    constexpr std::size_t kResources = 2; // Place in the list of data directories.
    const std::uint16_t magic = optionalHeader.U16(0);
    const std::size_t directories = magic == 0x10B ? 96 : 112;
    if ((magic != 0x10B && magic != 0x20B) || optionalHeader.U32(directories - 4) <= kResources)
    {
        return 0;
    }
    return optionalHeader.U32(directories + kResources * 8);
}

std::optional<Image> ReadHeaders(const FileReader& file, std::uint32_t start)
{
    constexpr std::size_t kSectionSize = 40;
    constexpr std::size_t kFileHeaderSize = 24; // With the signature.
    const auto header = Read(file, start, kFileHeaderSize);
    if (!header || !header->starts_with(std::string_view("PE\0\0", 4)))
    {
        return std::nullopt;
    }
    const std::uint16_t count = ByteView(*header).U16(6);
    const std::uint16_t optionalSize = ByteView(*header).U16(20);
    const std::uint64_t optionalStart = std::uint64_t{start} + kFileHeaderSize;
    const auto optional = Read(file, optionalStart, optionalSize);
    if (!optional)
    {
        return std::nullopt;
    }
    const auto table = Read(file, optionalStart + optionalSize, count * kSectionSize);
    if (!table)
    {
        return std::nullopt;
    }
    Image image{ResourceAddress(ByteView(*optional)), {}};
    for (std::size_t at = 0; at < table->size(); at += kSectionSize)
    {
        image.sections.push_back({ByteView(*table).U32(at + 12), ByteView(*table).U32(at + 16),
                                  ByteView(*table).U32(at + 20)});
    }
    return image;
}

struct Entry
{
    std::uint32_t id = 0; ///< The top bit marks a name instead.
    std::uint32_t target = 0;
};

/// The entries of the directory at @a offset; none when it is damaged.
std::vector<Entry> ReadDirectory(const FileReader& file, std::uint64_t offset)
{
    const auto header = Read(file, offset, 16);
    if (!header)
    {
        return {};
    }
    const std::size_t count = std::size_t{ByteView(*header).U16(12)} + ByteView(*header).U16(14);
    const auto bytes = Read(file, offset + header->size(), count * 8);
    if (!bytes)
    {
        return {};
    }
    std::vector<Entry> entries;
    for (std::size_t at = 0; at < bytes->size(); at += 8)
    {
        entries.push_back({ByteView(*bytes).U32(at), ByteView(*bytes).U32(at + 4)});
    }
    return entries;
}

std::optional<std::uint32_t> FindTarget(const std::vector<Entry>& entries, std::uint32_t id)
{
    const auto found = std::ranges::find(entries, id, &Entry::id);
    return found == entries.end() ? std::nullopt : std::optional(found->target);
}

std::optional<std::uint32_t> PreferredLanguage(const std::vector<Entry>& entries)
{
    for (const std::uint32_t language : kPreferredLanguages)
    {
        if (const auto target = FindTarget(entries, language))
        {
            return target;
        }
    }
    return entries.empty() ? std::nullopt : std::optional(entries.front().target);
}

/// Of a 32- or 64-bit image, whose headers begin at @a headers.
std::optional<std::string> ReadFromTree(const FileReader& file, std::uint32_t headers)
{
    const auto image = ReadHeaders(file, headers);
    if (!image || image->resourceAddress == 0)
    {
        return std::nullopt;
    }
    const auto start = image->FileOffset(image->resourceAddress);
    if (!start)
    {
        return std::nullopt;
    }
    // Always type, number, language: three steps down, so a directory that leads back ends here too.
    const auto open = [&](std::optional<std::uint32_t> target) -> std::vector<Entry> {
        if (!target || (*target & kSubdirectory) == 0)
        {
            return {};
        }
        return ReadDirectory(file, *start + (*target & ~kSubdirectory));
    };
    const auto numbers = open(FindTarget(ReadDirectory(file, *start), kVersionType));
    const auto languages = open(FindTarget(numbers, kVersionId));
    const auto leaf = PreferredLanguage(languages);
    if (!leaf || (*leaf & kSubdirectory) != 0)
    {
        return std::nullopt;
    }
    const auto place = Read(file, *start + *leaf, 16);
    const auto data = place ? image->FileOffset(ByteView(*place).U32(0)) : std::nullopt;
    if (!data)
    {
        return std::nullopt;
    }
    return Read(file, *data, std::min<std::size_t>(ByteView(*place).U32(4), kMostResource));
}

/// Of a 16-bit image, whose header begins at @a header: a table of types, each followed by its resources.
std::optional<std::string> ReadFromTable(const FileReader& file, std::uint32_t header)
{
    constexpr std::size_t kTypeSize = 8;
    constexpr std::size_t kResourceSize = 12;
    constexpr std::uint32_t kIsNumber = 0x8000;
    constexpr std::uint16_t kGreatestShift = 16;
    constexpr std::uint64_t kMostTable = 0x10000; // Its parts are told apart by 16-bit numbers.
    const auto start = Read(file, header + 0x24, 2);
    std::uint64_t at = std::uint64_t{header} + (start ? ByteView(*start).U16(0) : 0);
    const auto shift = start ? Read(file, at, 2) : std::nullopt;
    if (!shift || ByteView(*shift).U16(0) > kGreatestShift)
    {
        return std::nullopt;
    }
    const std::uint64_t end = at + kMostTable;
    at += shift->size();
    for (auto type = Read(file, at, kTypeSize); type && ByteView(*type).U16(0) != 0 && at < end;
         type = Read(file, at, kTypeSize))
    {
        at += kTypeSize;
        const auto resource = Read(file, at, kResourceSize);
        if (resource && ByteView(*type).U16(0) == (kIsNumber | kVersionType))
        {
            const auto place = std::uint64_t{ByteView(*resource).U16(0)};
            const auto size = std::size_t{ByteView(*resource).U16(2)};
            const std::uint16_t by = ByteView(*shift).U16(0);
            return Read(file, place << by, std::min(size << by, kMostResource));
        }
        at += ByteView(*type).U16(2) * kResourceSize;
    }
    return std::nullopt;
}

} // namespace

std::optional<std::string> ReadVersionResource(const FileReader& file)
{
    const auto dos = Read(file, 0, 64);
    if (!dos || !dos->starts_with("MZ"))
    {
        return std::nullopt;
    }
    const std::uint32_t header = ByteView(*dos).U32(60);
    const auto signature = Read(file, header, 2);
    return signature && *signature == "NE" ? ReadFromTable(file, header)
                                           : ReadFromTree(file, header);
}

} // namespace velmo
