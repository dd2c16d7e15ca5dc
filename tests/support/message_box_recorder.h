// An application object that records message boxes instead of showing them, with set answers.
#pragma once

#include <quorvel/framework/app.h>
#include <quorvel/framework/string.h>

#include <vector>

struct RecordedMessageBox {
    CString text;
    UINT type;
    UINT helpId;
    friend bool operator==(const RecordedMessageBox&, const RecordedMessageBox&) = default;
};

class MessageBoxRecorder : public CWinApp {
public:
    explicit MessageBoxRecorder(int answer = IDOK) : m_answer(answer) {}

    int DoMessageBox(const WCHAR* prompt, UINT type, UINT helpId) override {
        m_boxes.push_back({prompt, type, helpId});
        return m_answer;
    }

    // The boxes since the last call.
    std::vector<RecordedMessageBox> Take() { return std::exchange(m_boxes, {}); }

    int m_answer;
    std::vector<RecordedMessageBox> m_boxes;
};
