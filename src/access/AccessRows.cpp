#include "access/AccessRows.h"

#include <algorithm>
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

/// Bytes of a value in a row's fixed part; 0 for a type that is never there.
std::size_t FixedSize(const AccessColumn& column)
{
    return column.type == AccessType::Text ? column.length : SizeOf(column.type);
}

/**
    A row's table of variable columns, which lies before the null mask and is written backwards: the
    count, then (Jet 3 only) the jumps, then where each column starts, then where the last one ends.
 */
class VariableOffsets
{
  public:
    VariableOffsets(ByteView row, std::size_t end, std::size_t width)
        : m_row(row), m_width(width), m_valid(end >= width)
    {
        if (!m_valid)
        {
            return;
        }
        m_countPlace = end - width;
        m_count = Number(m_countPlace);
        // One byte holds no offset past 255, so Jet 3 also lists the columns at which the offsets
        // pass a multiple of 256: as many as the row's length could need.
        const std::size_t room = width == 1 ? (row.Size() - 1) / 256 : 0;
        const std::size_t needed = room + (m_count + 1) * width;
        m_valid = m_countPlace >= needed;
        if (m_valid)
        {
            m_offsets = m_countPlace - room;
            m_end = m_countPlace - needed;
            // The table starts where the data ends; what the data does not reach needs no jump.
            m_jumpCount = std::min(room, m_end / 256);
        }
    }

    /// The bytes of one column; nothing when the table is nonsense.
    [[nodiscard]] std::optional<ByteView> Column(std::size_t index) const
    {
        if (!m_valid || index >= m_count)
        {
            return std::nullopt;
        }
        const std::size_t begin = Offset(index);
        const std::size_t end = Offset(index + 1);
        return begin <= end && end <= m_end ? m_row.Part(begin, end - begin) : std::nullopt;
    }

  private:
    [[nodiscard]] std::size_t Number(std::size_t offset) const
    {
        return m_width == 1 ? m_row.U8(offset) : m_row.U16(offset);
    }

    [[nodiscard]] std::size_t Offset(std::size_t index) const
    {
        std::size_t offset = Number(m_offsets - (index + 1) * m_width);
        for (std::size_t jump = 1; jump <= m_jumpCount; ++jump)
        {
            offset += m_row.U8(m_countPlace - jump) <= index ? 256 : 0;
        }
        return offset;
    }

    ByteView m_row;
    std::size_t m_width;
    bool m_valid;
    std::size_t m_count = 0;
    std::size_t m_countPlace = 0; ///< The jumps lie just below it.
    std::size_t m_offsets = 0;    ///< The offsets lie just below it.
    std::size_t m_end = 0;        ///< Where the data ends and, read backwards, the table.
    std::size_t m_jumpCount = 0;
};

} // namespace

AccessUsageMap::AccessUsageMap(AccessPages& pages, AccessRowPointer place) : m_pages(&pages)
{
    constexpr std::string_view kMissing = "the list of a table's pages is missing";
    m_row = pages.Row(pages.Page(place.page, AccessPageType::Data), place.row, kMissing).bytes;
    if (m_row.Size() < kAfterKind + kReferenceSize)
    {
        ThrowDamaged(kMissing);
    }
    switch (m_row.U8(0))
    {
    case kInsideRow:
        m_firstPage = m_row.U32(kAfterKind);
        m_bitmap = m_row.From(kAfterKind + kReferenceSize);
        m_nextReference = m_row.Size();
        break;
    case kByReference:
        m_nextReference = kAfterKind;
        break;
    default:
        ThrowDamaged("the list of a table's pages is of an unknown kind");
    }
}

std::optional<std::uint32_t> AccessUsageMap::Next()
{
    do
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
            return m_firstPage + static_cast<std::uint32_t>(m_bit++);
        }
    } while (TakeNextBitmap());
    return std::nullopt;
}

bool AccessUsageMap::TakeNextBitmap()
{
    const std::size_t bitsPerPage = (m_pages->Format().pageSize - kBitmapOfPage) * 8;
    while (m_row.Has(m_nextReference, kReferenceSize))
    {
        const std::size_t index = (m_nextReference - kAfterKind) / kReferenceSize;
        const std::uint32_t reference = m_row.U32(m_nextReference);
        m_nextReference += kReferenceSize;
        if (reference != 0)
        {
            m_bitmap = m_pages->Page(reference, AccessPageType::UsageBitmap).From(kBitmapOfPage);
            m_firstPage = static_cast<std::uint32_t>(index * bitsPerPage);
            m_bit = 0;
            return true;
        }
    }
    return false;
}

bool AccessRow::IsPresent(const AccessColumn& column) const
{
    const auto mask = NullMask();
    if (!mask)
    {
        ThrowDamaged("a row is too short");
    }
    if (column.number >= ColumnCount())
    {
        return false;
    }
    return (m_bytes.U8(*mask + column.number / 8U) >> (column.number % 8U) & 1U) != 0;
}

ByteView AccessRow::Field(const AccessColumn& column) const
{
    const auto field = column.isFixed ? FixedField(column) : VariableField(column);
    if (!field)
    {
        ThrowDamaged("a field lies outside its row");
    }
    return *field;
}

std::size_t AccessRow::Number(std::size_t offset) const
{
    return m_format->rowNumberSize == 1 ? m_bytes.U8(offset) : m_bytes.U16(offset);
}

std::optional<std::size_t> AccessRow::NullMask() const
{
    const std::size_t size = (ColumnCount() + 7) / 8;
    if (m_bytes.Size() < m_format->rowNumberSize + size)
    {
        return std::nullopt;
    }
    return m_bytes.Size() - size;
}

std::optional<ByteView> AccessRow::FixedField(const AccessColumn& column) const
{
    const auto mask = NullMask();
    const std::size_t size = FixedSize(column);
    const std::size_t begin = m_format->rowNumberSize + column.fixedOffset;
    return mask && begin + size <= *mask ? m_bytes.Part(begin, size) : std::nullopt;
}

std::optional<ByteView> AccessRow::VariableField(const AccessColumn& column) const
{
    const auto mask = NullMask();
    if (!mask || !m_table->HasVariableColumns())
    {
        return std::nullopt;
    }
    return VariableOffsets(m_bytes, *mask, m_format->rowNumberSize).Column(column.variableIndex);
}

AccessRows::AccessRows(AccessPages& pages, const AccessTable& table)
    : m_pages(&pages), m_owner(table.Page()), m_map(pages, table.UsageMap())
{}

std::optional<ByteView> AccessRows::Next()
{
    for (;;)
    {
        while (m_row < m_rowCount)
        {
            const AccessStoredRow row =
                m_pages->Row(m_page, m_row++, "a row lies outside its page");
            if (!row.isTarget)
            {
                return row.isPointer ? Follow(row) : row.bytes;
            }
        }
        const auto number = m_map.Next();
        if (!number)
        {
            return std::nullopt;
        }
        m_page = m_pages->DataPage(*number, m_owner);
        m_row = 0;
        m_rowCount = m_pages->RowCount(m_page);
    }
}

ByteView AccessRows::Follow(AccessStoredRow row)
{
    constexpr int kMostHops = 16;
    constexpr std::string_view kLost = "a moved row is not where it should be";
    for (int hop = 0; hop < kMostHops; ++hop)
    {
        const AccessRowPointer place(row.bytes.U32(0));
        row = m_pages->Row(m_pages->DataPage(place.page, m_owner), place.row, kLost);
        if (row.IsDeleted())
        {
            ThrowDamaged(kLost);
        }
        if (!row.isPointer)
        {
            return row.bytes;
        }
    }
    ThrowDamaged("a moved row goes round in circles");
}

} // namespace velmo
