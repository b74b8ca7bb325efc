#pragma once

#include <unistd.h>

namespace velmo::platform
{

/// Closes a file descriptor at the scope's end; -1 is none.
class Descriptor
{
  public:
    explicit Descriptor(int number) : m_number(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor()
    {
        if (m_number >= 0)
        {
            close(m_number);
        }
    }

    [[nodiscard]] int Number() const { return m_number; }
    [[nodiscard]] bool IsOpen() const { return m_number >= 0; }

  private:
    int m_number;
};

} // namespace velmo::platform
