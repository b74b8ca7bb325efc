#include "equipment/AccessPages.h"

#include "equipment/AccessHeader.h"

#include <algorithm>
#include <array>
#include <utility>

namespace velmo
{
namespace
{

constexpr std::size_t kPageOwner = 4;
constexpr std::uint16_t kRowIsTarget = 0x8000;
constexpr std::uint16_t kRowIsPointer = 0x4000;
constexpr std::uint16_t kRowOffset = 0x1FFF;

std::uint64_t SizeOf(const AccessSource& source)
{
    const auto* file = std::get_if<platform::FileReader>(&source);
    return file != nullptr ? file->Size() : std::get<std::span<const std::byte>>(source).size();
}

bool ReadAt(const AccessSource& source, std::uint64_t offset, std::span<std::byte> target)
{
    if (const auto* file = std::get_if<platform::FileReader>(&source))
    {
        return file->ReadAt(offset, target);
    }
    const auto bytes = std::get<std::span<const std::byte>>(source);
    if (offset > bytes.size() || target.size() > bytes.size() - offset)
    {
        return false;
    }
    std::ranges::copy(bytes.subspan(static_cast<std::size_t>(offset), target.size()),
                      target.begin());
    return true;
}

/// The block at @a place, the file's last one as far as it goes; nothing when it cannot be read.
std::unique_ptr<std::byte[]> ReadBlock(const AccessSource& source, std::uint64_t place)
{
    const std::uint64_t size = SizeOf(source);
    const auto there =
        std::min<std::uint64_t>(AccessPages::kBlockSize, size - std::min(place, size));
    auto block = std::make_unique_for_overwrite<std::byte[]>(AccessPages::kBlockSize);
    const bool isRead = ReadAt(source, place, {block.get(), static_cast<std::size_t>(there)});
    return isRead ? std::move(block) : nullptr;
}

std::string PageName(std::uint32_t number)
{
    return "page " + std::to_string(number);
}

} // namespace

AccessPages::AccessPages(AccessSource source, const JetFormat& format, Block first)
    : m_source(std::move(source)), m_format(&format)
{
    m_blocks.emplace(0, std::move(first));
}

Result<AccessPages> AccessPages::Open(AccessSource source)
{
    auto first = ReadBlock(source, 0);
    if (!first)
    {
        return DamagedAccessFile("its first page cannot be read");
    }
    const auto header = std::min<std::uint64_t>(SizeOf(source), kAccessHeaderSize);
    const auto format =
        CheckAccessHeader(ByteView({first.get(), static_cast<std::size_t>(header)}));
    if (!format)
    {
        return format.Failure();
    }
    return AccessPages(std::move(source), *format.Value(), std::move(first));
}

std::uint64_t AccessPages::FileSize() const
{
    return SizeOf(m_source);
}

Result<ByteView> AccessPages::Page(std::uint32_t number, AccessPageType type)
{
    if (++m_requests > kMostRequests)
    {
        return DamagedAccessFile("its pages lead round in circles");
    }
    const std::size_t size = m_format->pageSize;
    const std::uint64_t place = std::uint64_t{number} * size;
    if (place + size > FileSize())
    {
        return DamagedAccessFile(PageName(number) + " lies past the end of the file");
    }
    const std::size_t inBlock = place % kBlockSize;
    auto block = m_blocks.find(place - inBlock);
    if (block == m_blocks.end())
    {
        auto bytes = m_blocks.size() < kMostBlocks ? ReadBlock(m_source, place - inBlock) : nullptr;
        if (!bytes)
        {
            return DamagedAccessFile(PageName(number) + " cannot be read");
        }
        block = m_blocks.emplace(place - inBlock, std::move(bytes)).first;
    }
    const ByteView page({block->second.get() + inBlock, size});
    if (page.U8(0) != static_cast<std::uint8_t>(type))
    {
        return DamagedAccessFile(PageName(number) + " is not of the type that it should be");
    }
    return page;
}

Result<ByteView> AccessPages::DataPage(std::uint32_t number, std::uint32_t owner)
{
    auto page = Page(number, AccessPageType::Data);
    if (page && page.Value().U32(kPageOwner) != owner)
    {
        return DamagedAccessFile(PageName(number) + " belongs to another table");
    }
    return page;
}

std::size_t AccessPages::RowCount(ByteView dataPage) const
{
    return dataPage.U16(m_format->pageRowCount);
}

std::optional<AccessStoredRow> AccessPages::Row(ByteView dataPage, std::size_t number) const
{
    const std::size_t count = RowCount(dataPage);
    const std::size_t offsets = m_format->pageRowCount + 2;
    if (number >= count || !dataPage.Has(offsets, 2 * count))
    {
        return std::nullopt;
    }
    // Rows fill the page from its end: a row stops where the one before it starts.
    const std::uint16_t entry = dataPage.U16(offsets + 2 * number);
    const std::size_t begin = entry & kRowOffset;
    const std::size_t end =
        number == 0 ? dataPage.Size() : dataPage.U16(offsets + 2 * (number - 1)) & kRowOffset;
    const auto bytes = begin < offsets + 2 * count || end < begin
                           ? std::nullopt
                           : dataPage.Part(begin, end - begin);
    if (!bytes)
    {
        return std::nullopt;
    }
    return AccessStoredRow{*bytes, (entry & kRowIsPointer) != 0, (entry & kRowIsTarget) != 0};
}

} // namespace velmo
