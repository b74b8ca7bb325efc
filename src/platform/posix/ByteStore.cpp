#include "platform/ByteStore.h"

#include <sys/mman.h>

#include <cstring>

namespace velmo::platform
{

ByteStore::ByteStore(std::size_t most)
{
    // The system gives memory to a page when it is first written.
    void* place = most == 0 ? MAP_FAILED
                            : mmap(nullptr, most, PROT_READ | PROT_WRITE,
                                   MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (place != MAP_FAILED)
    {
        m_bytes = static_cast<std::byte*>(place);
        m_reserved = most;
        m_usable = most;
    }
}

ByteStore::~ByteStore()
{
    if (m_bytes != nullptr)
    {
        munmap(m_bytes, m_reserved);
    }
}

bool ByteStore::Add(std::span<const std::byte> bytes)
{
    if (bytes.size() > m_usable - m_size)
    {
        return false;
    }
    if (!bytes.empty())
    {
        std::memcpy(m_bytes + m_size, bytes.data(), bytes.size());
    }
    m_size += bytes.size();
    return true;
}

} // namespace velmo::platform
