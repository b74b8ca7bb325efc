#include "equipment/AccessUsageMap.h"

#include <bit>

namespace velmo
{
namespace
{

constexpr std::uint8_t kInsideRow = 0;
constexpr std::uint8_t kByReference = 1;
constexpr std::size_t kAfterKind = 1;
constexpr std::size_t kReferenceSize = 4;
constexpr std::size_t kBitmapOfPage = 4;

} // namespace

Result<AccessUsageMap> AccessUsageMap::Read(AccessPages& pages, AccessRowPointer place)
{
    const auto page = pages.Page(place.page, AccessPageType::Data);
    if (!page)
    {
        return page.Failure();
    }
    const auto row = pages.Row(page.Value(), place.row);
    if (!row || row->bytes.Size() < kAfterKind + kReferenceSize)
    {
        return DamagedAccessFile("the list of a table's pages is missing");
    }
    AccessUsageMap map(pages, row->bytes);
    switch (row->bytes.U8(0))
    {
    case kInsideRow:
        map.m_firstPage = row->bytes.U32(kAfterKind);
        map.m_bitmap = row->bytes.From(kAfterKind + kReferenceSize);
        map.m_nextReference = row->bytes.Size();
        return map;
    case kByReference:
        map.m_nextReference = kAfterKind;
        return map;
    default:
        return DamagedAccessFile("the list of a table's pages is of an unknown kind");
    }
}

Result<std::optional<std::uint32_t>> AccessUsageMap::Next()
{
    for (;;)
    {
        while (m_bit < m_bitmap.Size() * 8)
        {
            const unsigned rest = static_cast<unsigned>(m_bitmap.U8(m_bit / 8)) >> (m_bit % 8);
            if (rest == 0)
            {
                m_bit = (m_bit / 8 + 1) * 8;
                continue;
            }
            m_bit += static_cast<std::size_t>(std::countr_zero(rest));
            return std::optional(m_firstPage + static_cast<std::uint32_t>(m_bit++));
        }
        const auto more = NextBitmap();
        if (!more)
        {
            return more.Failure();
        }
        if (!more.Value())
        {
            return std::optional<std::uint32_t>();
        }
    }
}

Result<bool> AccessUsageMap::NextBitmap()
{
    const std::size_t bitsPerPage = (m_pages->Format().pageSize - kBitmapOfPage) * 8;
    while (m_row.Has(m_nextReference, kReferenceSize))
    {
        const std::size_t index = (m_nextReference - kAfterKind) / kReferenceSize;
        const std::uint32_t reference = m_row.U32(m_nextReference);
        m_nextReference += kReferenceSize;
        if (reference == 0)
        {
            continue;
        }
        const auto page = m_pages->Page(reference, AccessPageType::UsageBitmap);
        if (!page)
        {
            return page.Failure();
        }
        m_bitmap = page.Value().From(kBitmapOfPage);
        m_firstPage = static_cast<std::uint32_t>(index * bitsPerPage);
        m_bit = 0;
        return true;
    }
    return false;
}

} // namespace velmo
