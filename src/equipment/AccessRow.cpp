#include "equipment/AccessRow.h"

#include <algorithm>

namespace velmo
{
namespace
{

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

Result<bool> AccessRow::IsPresent(const AccessColumn& column) const
{
    const auto mask = NullMask();
    if (!mask)
    {
        return DamagedAccessFile("a row is too short");
    }
    if (column.number >= ColumnCount())
    {
        return false;
    }
    return (m_bytes.U8(*mask + column.number / 8U) >> (column.number % 8U) & 1U) != 0;
}

Result<ByteView> AccessRow::Field(const AccessColumn& column) const
{
    const auto field = column.isFixed ? FixedField(column) : VariableField(column);
    if (!field)
    {
        return DamagedAccessFile("a field lies outside its row");
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

} // namespace velmo
