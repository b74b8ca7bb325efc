#include "equipment/AccessRows.h"

namespace velmo
{

Result<AccessRows> AccessRows::Of(AccessPages& pages, const AccessTable& table)
{
    const auto map = AccessUsageMap::Read(pages, table.UsageMap());
    if (!map)
    {
        return map.Failure();
    }
    return AccessRows(pages, table.Page(), map.Value());
}

Result<std::optional<ByteView>> AccessRows::Next()
{
    for (;;)
    {
        while (m_row < m_rowCount)
        {
            const auto row = m_pages->Row(m_page, m_row++);
            if (!row)
            {
                return DamagedAccessFile("a row lies outside its page");
            }
            if (row->isTarget)
            {
                continue;
            }
            const auto bytes = row->isPointer ? Follow(*row) : row->bytes;
            return bytes ? Result(std::optional(bytes.Value())) : bytes.Failure();
        }
        const auto number = m_map.Next();
        if (!number)
        {
            return number.Failure();
        }
        if (!number.Value())
        {
            return std::optional<ByteView>();
        }
        const auto page = m_pages->DataPage(*number.Value(), m_owner);
        if (!page)
        {
            return page.Failure();
        }
        m_page = page.Value();
        m_row = 0;
        m_rowCount = m_pages->RowCount(m_page);
    }
}

Result<ByteView> AccessRows::Follow(AccessStoredRow row)
{
    constexpr int kMostHops = 16;
    for (int hop = 0; hop < kMostHops; ++hop)
    {
        const AccessRowPointer place(row.bytes.U32(0));
        const auto page = m_pages->DataPage(place.page, m_owner);
        if (!page)
        {
            return page.Failure();
        }
        const auto target = m_pages->Row(page.Value(), place.row);
        if (!target || target->IsDeleted())
        {
            return DamagedAccessFile("a moved row is not where it should be");
        }
        if (!target->isPointer)
        {
            return target->bytes;
        }
        row = *target;
    }
    return DamagedAccessFile("a moved row goes round in circles");
}

} // namespace velmo
