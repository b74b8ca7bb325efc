#include "platform/ByteStore.h"

#include <windows.h>

#include <algorithm>
#include <cstring>

namespace velmo::platform
{
namespace
{

constexpr std::size_t kStep = 4U << 20; ///< Memory is taken in steps of this size.

} // namespace

ByteStore::ByteStore(std::size_t most)
{
    void* place = most == 0 ? nullptr : VirtualAlloc(nullptr, most, MEM_RESERVE, PAGE_READWRITE);
    if (place != nullptr)
    {
        m_bytes = static_cast<std::byte*>(place);
        m_reserved = most;
    }
}

ByteStore::~ByteStore()
{
    if (m_bytes != nullptr)
    {
        VirtualFree(m_bytes, 0, MEM_RELEASE);
    }
}

bool ByteStore::Add(std::span<const std::byte> bytes)
{
    if (bytes.size() > m_reserved - m_size)
    {
        return false;
    }
    const std::size_t needed = m_size + bytes.size();
    if (needed > m_usable)
    {
        const std::size_t more =
            std::min(std::max(needed - m_usable, kStep), m_reserved - m_usable);
        if (VirtualAlloc(m_bytes + m_usable, more, MEM_COMMIT, PAGE_READWRITE) == nullptr)
        {
            return false;
        }
        m_usable += more;
    }
    if (!bytes.empty())
    {
        std::memcpy(m_bytes + m_size, bytes.data(), bytes.size());
    }
    m_size = needed;
    return true;
}

} // namespace velmo::platform
