#include "net/http_header_reader.h"

#include <algorithm>
#include <limits>
#include <string_view>

namespace quorvel {

namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kHeaderEnd = "\r\n\r\n";

CString Widened(std::string_view bytes) {
    CString text;
    WCHAR* const characters = text.GetBufferSetLength(static_cast<int>(bytes.size()));
    std::transform(bytes.begin(), bytes.end(), characters,
                   [](char byte) { return static_cast<WCHAR>(static_cast<unsigned char>(byte)); });
    return text;
}

bool IsStatusLine(std::string_view line) {
    return CHttpHeader().InitializeFromStream(Widened(line) + _T("\r\n\r\n")) != FALSE;
}

} // namespace

void HttpHeaderReader::Reset(std::size_t limit) {
    m_limit = limit;
    m_state = State::Incomplete;
    m_bytes.clear();
    m_searched = 0;
    m_hasStatusLine = false;
}

HttpHeaderReader::State HttpHeaderReader::Add(const char* bytes, std::size_t count,
                                              CHttpHeader& header) {
    if (m_state == State::Incomplete) {
        m_bytes.append(bytes, count);
        m_state = Parse(header);
        if (m_state != State::Incomplete)
            std::string().swap(m_bytes);
    }
    return m_state;
}

HttpHeaderReader::State HttpHeaderReader::Parse(CHttpHeader& header) {
    const std::size_t from = m_searched;
    const auto overlap = [from](std::string_view mark) {
        return from - std::min(from, mark.size() - 1); // the mark may begin in an earlier piece
    };
    m_searched = m_bytes.size();
    if (!m_hasStatusLine) {
        const std::size_t end = m_bytes.find(kLineEnd, overlap(kLineEnd));
        m_hasStatusLine = end != m_bytes.npos;
        if (m_hasStatusLine && !IsStatusLine(std::string_view(m_bytes).substr(0, end)))
            return State::Refused;
    }
    constexpr std::size_t kLongestText = std::numeric_limits<int>::max() - 1;
    const std::size_t limit = std::min(m_limit, kLongestText);
    const std::size_t end = m_bytes.find(kHeaderEnd, overlap(kHeaderEnd));
    if (end == m_bytes.npos)
        return m_bytes.size() < limit ? State::Incomplete : State::Refused;
    const std::size_t length = end + kHeaderEnd.size();
    const bool taken = length <= limit && header.InitializeFromStream(
                                              Widened(std::string_view(m_bytes).substr(0, length)));
    return taken ? State::Complete : State::Refused;
}

} // namespace quorvel
