#pragma once

#include <memory>
#include <string_view>

namespace disk
{

/// The bytes of a file in memory, shared by its copies. Whoever makes it fills it; it never changes afterwards.
class FileText
{
public:
    FileText() = default;
    FileText(std::shared_ptr<const char> bytes, size_t size) : m_bytes{std::move(bytes)}, m_size{size} {}

    std::string_view view() const { return {m_bytes.get(), m_size}; }
    bool contains(const char* at) const { return at >= m_bytes.get() && at < m_bytes.get() + m_size; }

private:
    std::shared_ptr<const char> m_bytes;
    size_t m_size = 0;
};

} // namespace disk
