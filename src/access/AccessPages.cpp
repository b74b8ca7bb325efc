#include "access/AccessPages.h"

#include "access/AccessHeader.h"

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

AccessPages::AccessPages(AccessSource source) : m_source(std::move(source))
{
    auto first = ReadBlock(m_source, 0);
    if (!first)
    {
        ThrowDamaged("its first page cannot be read");
    }
    const auto header = std::min<std::uint64_t>(FileSize(), kAccessHeaderSize);
    m_format = &CheckAccessHeader(ByteView({first.get(), static_cast<std::size_t>(header)}));
    m_blocks.emplace(0, std::move(first));
}

std::uint64_t AccessPages::FileSize() const
{
    return SizeOf(m_source);
}

ByteView AccessPages::Page(std::uint32_t number, AccessPageType type)
{
    if (++m_requests > kMostRequests)
    {
        ThrowDamaged("its pages lead round in circles");
    }
    const std::size_t size = m_format->pageSize;
    const std::uint64_t place = std::uint64_t{number} * size;
    if (place + size > FileSize())
    {
        ThrowDamaged(PageName(number) + " lies past the end of the file");
    }
    const std::size_t inBlock = place % kBlockSize;
    auto block = m_blocks.find(place - inBlock);
    if (block == m_blocks.end())
    {
        auto bytes = m_blocks.size() < kMostBlocks ? ReadBlock(m_source, place - inBlock) : nullptr;
        if (!bytes)
        {
            ThrowDamaged(PageName(number) + " cannot be read");
        }
        block = m_blocks.emplace(place - inBlock, std::move(bytes)).first;
    }
    const ByteView page({block->second.get() + inBlock, size});
    if (page.U8(0) != static_cast<std::uint8_t>(type))
    {
        ThrowDamaged(PageName(number) + " is not of the type that it should be");
    }
    return page;
}

ByteView AccessPages::DataPage(std::uint32_t number, std::uint32_t owner)
{
    const ByteView page = Page(number, AccessPageType::Data);
    if (page.U32(kPageOwner) != owner)
    {
        ThrowDamaged(PageName(number) + " belongs to another table");
    }
    return page;
}

std::size_t AccessPages::RowCount(ByteView dataPage) const
{
    return dataPage.U16(m_format->pageRowCount);
}

AccessStoredRow AccessPages::Row(ByteView dataPage, std::size_t number, std::string_view what) const
{
    const std::size_t count = RowCount(dataPage);
    const std::size_t offsets = m_format->pageRowCount + 2;
    if (number < count && dataPage.Has(offsets, 2 * count))
    {
        // Rows fill the page from its end: a row stops where the one before it starts.
        const std::uint16_t entry = dataPage.U16(offsets + 2 * number);
        const std::size_t begin = entry & kRowOffset;
        const std::size_t end =
            number == 0 ? dataPage.Size() : dataPage.U16(offsets + 2 * (number - 1)) & kRowOffset;
        const auto bytes = begin < offsets + 2 * count || end < begin
                               ? std::nullopt
                               : dataPage.Part(begin, end - begin);
        if (bytes)
        {
            return {*bytes, (entry & kRowIsPointer) != 0, (entry & kRowIsTarget) != 0};
        }
    }
    ThrowDamaged(what);
}

} // namespace velmo
