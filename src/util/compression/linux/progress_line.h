// The progress box of a terminal: one line, "caption: status 42%", that overwrites itself and is
// removed at the end.
#pragma once

#include "util/compression/progress_box.h"

#include <cstdio>
#include <string>

namespace quorvel {

class ProgressLine : public ProgressView {
public:
    // Cuts the line to the columns and counts each code point as one. Wide ones may exceed them.
    ProgressLine(std::FILE* out, int columns) : m_out(out), m_columns(columns) {}
    ProgressLine(const ProgressLine&) = delete;
    ~ProgressLine() override;

    void SetCaption(const CString& caption) override;
    void SetStatus(const CString& status) override;
    void SetStep(int step) override;

private:
    void Draw();

    std::FILE* const m_out;
    const int m_columns;
    std::string m_caption;
    std::string m_status;
    int m_percent = 0;
    std::string m_drawn;
};

} // namespace quorvel
