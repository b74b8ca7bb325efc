#pragma once

#include <unistd.h>

#include <utility>

namespace velmo::platform
{

/// Closes a file descriptor at the scope's end; -1 is none.
class Descriptor
{
  public:
    explicit Descriptor(int number = -1) : m_number(number) {}
    Descriptor(Descriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        std::swap(m_number, other.m_number);
        return *this;
    }
    ~Descriptor()
    {
        if (IsOpen())
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
