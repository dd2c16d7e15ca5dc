// Gathers the header of a response from the pieces in which it arrives.
//
// Every byte is read once, however small the pieces: the search for the blank line goes on where it
// stopped. A byte is a character, whatever the code page, so that the header's length is also the
// place of the body in the response. Lack of memory throws std::bad_alloc or CMemoryException.
#pragma once

#include <quorvel/net/http_header.h>

#include <string>

namespace quorvel {

class HttpHeaderReader {
public:
    enum class State {
        Incomplete,
        Complete,
        Refused // no status line, or too long: no further byte can make a header of it
    };

    // `limit` is the longest header that is taken, in bytes.
    explicit HttpHeaderReader(std::size_t limit = static_cast<std::size_t>(-1)) : m_limit(limit) {}

    void Reset() { Reset(m_limit); }
    void Reset(std::size_t limit);
    State GetState() const { return m_state; }
    // Writes the header when these bytes complete it. Once it is complete or refused, bytes are
    // not looked at.
    State Add(const char* bytes, std::size_t count, CHttpHeader& header);

private:
    State Judge(CHttpHeader& header);

    std::size_t m_limit;
    State m_state = State::Incomplete;
    std::string m_bytes;
    std::size_t m_searched = 0; // so far there is no blank line
    bool m_hasStatusLine = false;
};

} // namespace quorvel
