#pragma once

#include <charconv>
#include <cstring>
#include <memory>
#include <string_view>

namespace spreadsheet {

/// Gathers small pieces of text and hands them on in large ones. `Output` takes them by write().
template<typename Output>
class XmlBuffer
{
public:
    explicit XmlBuffer(Output &out)
        : m_bytes(new char[capacity])
        , m_out(out)
    {
    }

    XmlBuffer &operator<<(std::string_view text)
    {
        if (text.size() > capacity - m_used) {
            flush();
            if (text.size() > capacity) {
                m_out.write(text);
                return *this;
            }
        }
        memcpy(m_bytes.get() + m_used, text.data(), text.size());
        m_used += text.size();
        return *this;
    }
    /// A number in its shortest form that reads as the same number.
    template<typename Number>
    void appendNumber(Number number)
    {
        constexpr size_t longest = 32;
        if (longest > capacity - m_used) {
            flush();
        }
        char *begin = m_bytes.get() + m_used;
        m_used += static_cast<size_t>(std::to_chars(begin, begin + longest, number).ptr - begin);
    }
    void flush()
    {
        m_out.write({m_bytes.get(), m_used});
        m_used = 0;
    }

private:
    static constexpr size_t capacity = 64 << 10;
    std::unique_ptr<char[]> m_bytes;
    size_t m_used = 0;
    Output &m_out;
};

} // namespace spreadsheet
