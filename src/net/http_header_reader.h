// Assembles the header of a response from the pieces that arrive.
//
// Reads each byte once, however small the pieces are: the search for the blank line continues where
// it stopped. Each byte becomes one character, whatever the code page, so the header's length is
// also the position of the body in the response. Throws std::bad_alloc or CMemoryException.
#pragma once

#include <quorvel/net/http_header.h>

#include <string>

namespace quorvel {

class HttpHeaderReader {
public:
    enum class State {
        Incomplete,
        Complete,
        Refused // no status line, or too long: more bytes cannot make a header
    };

    // `limit` is the length in bytes of the longest header that is accepted.
    explicit HttpHeaderReader(std::size_t limit = static_cast<std::size_t>(-1)) : m_limit(limit) {}

    void Reset() { Reset(m_limit); }
    void Reset(std::size_t limit);
    State GetState() const { return m_state; }
    // Writes the header when these bytes complete it. Ignores all bytes after the header is
    // complete or refused.
    State Add(const char* bytes, std::size_t count, CHttpHeader& header);

private:
    State Parse(CHttpHeader& header);

    std::size_t m_limit;
    State m_state = State::Incomplete;
    std::string m_bytes;
    std::size_t m_searched = 0; // bytes already searched for the blank line
    bool m_hasStatusLine = false;
};

} // namespace quorvel
