#pragma once

#include <unistd.h>
#include <utility>

namespace disk
{

/// An open file that closes itself; a negative number is none.
class Descriptor
{
public:
    explicit Descriptor(int number = -1) : m_number{number} {}
    Descriptor(Descriptor&& other) noexcept : m_number{std::exchange(other.m_number, -1)} {}
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        std::swap(m_number, other.m_number);
        return *this;
    }
    ~Descriptor() { close(); }

    bool isOpen() const { return m_number >= 0; }
    int get() const { return m_number; }
    /// False when bytes given earlier turn out not to have arrived.
    bool close() { return m_number < 0 || ::close(std::exchange(m_number, -1)) == 0; }

private:
    int m_number;
};

} // namespace disk
