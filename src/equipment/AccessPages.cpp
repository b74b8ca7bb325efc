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

std::string PageName(std::uint32_t number)
{
    return "page " + std::to_string(number);
}

} // namespace

AccessPages::AccessPages(AccessSource source, const JetFormat& format)
    : m_source(std::move(source)), m_format(&format),
      m_pageCount(SizeOf(m_source) / format.pageSize)
{}

Result<AccessPages> AccessPages::Open(AccessSource source)
{
    std::array<std::byte, kAccessHeaderSize> header{};
    const std::uint64_t size = SizeOf(source);
    const std::size_t there = std::min<std::uint64_t>(size, header.size());
    if (!ReadAt(source, 0, std::span(header).first(there)))
    {
        return DamagedAccessFile("its first page cannot be read");
    }
    const auto format = CheckAccessHeader(ByteView(std::span(header).first(there)));
    if (!format)
    {
        return format.Failure();
    }
    return AccessPages(std::move(source), *format.Value());
}

Result<ByteView> AccessPages::Page(std::uint32_t number, AccessPageType type)
{
    if (++m_requests > kMostRequests)
    {
        return DamagedAccessFile("its pages lead round in circles");
    }
    auto known = m_pages.find(number);
    if (known == m_pages.end())
    {
        if (number >= m_pageCount)
        {
            return DamagedAccessFile(PageName(number) + " lies past the end of the file");
        }
        if (m_pages.size() >= kMostPages)
        {
            return DamagedAccessFile("too many of its pages would have to be read");
        }
        auto bytes = std::make_unique_for_overwrite<std::byte[]>(m_format->pageSize);
        if (!ReadAt(m_source, std::uint64_t{number} * m_format->pageSize,
                    {bytes.get(), m_format->pageSize}))
        {
            return DamagedAccessFile(PageName(number) + " cannot be read");
        }
        known = m_pages.emplace(number, std::move(bytes)).first;
    }
    const ByteView page(std::span<const std::byte>(known->second.get(), m_format->pageSize));
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
