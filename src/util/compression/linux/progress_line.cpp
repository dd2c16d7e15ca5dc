#include "util/compression/linux/progress_line.h"

#include "platform/linux/windows/terminal.h"

#include <algorithm>

namespace quorvel {

namespace {

bool StartsCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xc0) != 0x80;
}

int CharactersOf(const std::string& text) {
    return static_cast<int>(std::count_if(text.begin(), text.end(), StartsCharacter));
}

// The first `most` characters.
std::string Cut(const std::string& text, int most) {
    std::size_t end = 0;
    for (; end < text.size(); ++end)
        if (StartsCharacter(text[end]) && most-- <= 0)
            break;
    return text.substr(0, end);
}

std::string OneLine(const CString& text) {
    std::string line = TerminalText(text);
    std::replace_if(
        line.begin(), line.end(), [](char byte) { return byte == '\n' || byte == '\t'; }, ' ');
    return line;
}

} // namespace

ProgressLine::~ProgressLine() {
    if (m_drawn.empty())
        return;
    std::fprintf(m_out, "\r%*s\r", CharactersOf(m_drawn), "");
    std::fflush(m_out);
}

void ProgressLine::SetCaption(const CString& caption) {
    m_caption = OneLine(caption);
    if (!m_drawn.empty())
        Draw();
}

void ProgressLine::SetStatus(const CString& status) {
    m_status = OneLine(status);
    if (!m_drawn.empty())
        Draw();
}

void ProgressLine::SetStep(int step) {
    m_percent = step * 100 / kProgressSteps;
    Draw();
}

// A character in the last column would make some terminals start a new line.
void ProgressLine::Draw() {
    std::string percent(1, ' ');
    percent.append(std::to_string(m_percent)).append("%");
    const std::string text =
        m_caption.empty() || m_status.empty() ? m_caption + m_status : m_caption + ": " + m_status;
    const std::string line = Cut(text, m_columns - 1 - CharactersOf(percent)) + percent;
    if (line == m_drawn)
        return;
    const int former = CharactersOf(m_drawn) - CharactersOf(line);
    std::fprintf(m_out, "\r%s%*s", line.c_str(), std::max(former, 0), "");
    std::fflush(m_out);
    m_drawn = line;
}

std::unique_ptr<ProgressView> CreateProgressView() {
    const int columns = TerminalColumns(stderr);
    return columns > 0 ? std::make_unique<ProgressLine>(stderr, columns) : nullptr;
}

} // namespace quorvel
