#include "access/AccessTable.h"

#include "access/AccessText.h"

#include <algorithm>

namespace velmo
{
namespace
{

constexpr std::size_t kNextPage = 4;
constexpr std::size_t kLength = 8;
constexpr std::size_t kContinuationHeader = 8;
constexpr std::uint8_t kFixedFlag = 0x01;

/// Far more than 255 columns and 32 indexes with their names can take.
constexpr std::size_t kMostPages = 64;

} // namespace

AccessTable::AccessTable(AccessPages& pages, std::uint32_t page)
    : m_format(&pages.Format()), m_page(page),
      m_definition(pages.Page(page, AccessPageType::TableDefinition))
{
    if (m_definition.U32(kNextPage) != 0)
    {
        Join(pages, m_definition);
    }
}

void AccessTable::Join(AccessPages& pages, ByteView firstPage)
{
    const std::size_t length = firstPage.U32(kLength);
    if (length > kMostPages * m_format->pageSize)
    {
        ThrowDamaged("a table's definition claims to be too long");
    }
    std::vector<std::uint32_t> visited = {m_page};
    m_joined.assign(firstPage.Bytes().begin(), firstPage.Bytes().end());
    for (std::uint32_t next = firstPage.U32(kNextPage); next != 0;)
    {
        if (visited.size() >= kMostPages || std::ranges::find(visited, next) != visited.end())
        {
            ThrowDamaged("a table's definition goes round in circles");
        }
        visited.push_back(next);
        const ByteView page = pages.Page(next, AccessPageType::TableDefinition);
        const ByteView more = page.From(kContinuationHeader);
        m_joined.insert(m_joined.end(), more.Bytes().begin(), more.Bytes().end());
        next = page.U32(kNextPage);
    }
    m_definition = ByteView(m_joined);
}

AccessRowPointer AccessTable::UsageMap() const
{
    return AccessRowPointer(m_definition.U32(m_format->usageMapPointer));
}

bool AccessTable::HasVariableColumns() const
{
    return m_definition.U16(m_format->variableColumnCount) != 0;
}

std::optional<AccessColumn> AccessTable::FindColumn(std::string_view name) const
{
    const JetFormat& format = *m_format;
    const std::size_t count = m_definition.U16(format.columnCount);
    const std::size_t columns =
        format.indexCounters +
        std::size_t{m_definition.U32(format.realIndexCount)} * format.indexCounterSize;
    std::size_t names = columns + count * format.columnSize;
    for (std::size_t i = 0; i < count; ++i)
    {
        const std::size_t length =
            format.nameLengthSize == 1 ? m_definition.U8(names) : m_definition.U16(names);
        const auto stored = m_definition.Part(names + format.nameLengthSize, length);
        if (!stored)
        {
            ThrowDamaged("a table's definition ends too early");
        }
        names += format.nameLengthSize + length;
        if (!IsAccessName(*stored, name, format))
        {
            continue;
        }
        const ByteView column = m_definition.From(columns + i * format.columnSize);
        return AccessColumn{.type = static_cast<AccessType>(column.U8(0)),
                            .number = column.U16(format.columnNumber),
                            .isFixed = (column.U8(format.columnFlags) & kFixedFlag) != 0,
                            .variableIndex = column.U16(format.columnVariableIndex),
                            .fixedOffset = column.U16(format.columnFixedOffset),
                            .length = column.U16(format.columnLength)};
    }
    return std::nullopt;
}

} // namespace velmo
