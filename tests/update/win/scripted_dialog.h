// Update dialogs whose server is the test: statuses arrive as messages like those of sockets.
#pragma once

#include <quorvel/net/vask_socket.h>

#include "support/message_box_recorder.h"
#include "support/win/dialog_driver.h"
#include "update/scripted_check.h"

#include <functional>

// Forwards statuses to the window of a check.
struct StatusMessages {
    HWND window;
    void OnSocketStatus(const void* sender, int status, DWORD error) const {
        ::SendMessageW(window, CVaskSocket::STATUS_MESSAGE, reinterpret_cast<WPARAM>(sender),
                       MAKELPARAM(status, error));
    }
    void Poll() const {}
};

// A dialog with connections of a source that outlives it.
template <class Base>
class Scripted : public Base {
public:
    template <class... Arg>
    explicit Scripted(ScriptedSource& source, Arg&&... args)
        : Base(std::forward<Arg>(args)...), m_source(source) {}

protected:
    std::unique_ptr<quorvel::UpdateSource> MakeUpdateSource() override {
        return std::make_unique<Forward>(m_source);
    }

private:
    struct Forward : quorvel::UpdateSource {
        explicit Forward(ScriptedSource& source) : m_source(source) {}
        std::unique_ptr<quorvel::UpdateConnection> NewConnection() override {
            return m_source.NewConnection();
        }
        CString GetWinsockErrorText(DWORD code) override {
            return m_source.GetWinsockErrorText(code);
        }
        COleDateTime GetCurrentUTCTime() override { return m_source.GetCurrentUTCTime(); }
        ScriptedSource& m_source;
    };
    ScriptedSource& m_source;
};

// Records the boxes, and can run a function while one is shown.
class BoxScript : public MessageBoxRecorder {
public:
    using MessageBoxRecorder::MessageBoxRecorder;
    int DoMessageBox(const WCHAR* prompt, UINT type, UINT helpId) override {
        const int answer = MessageBoxRecorder::DoMessageBox(prompt, type, helpId);
        if (m_meanwhile)
            std::exchange(m_meanwhile, nullptr)();
        return answer;
    }
    // The texts since the last call, one line each, with their types.
    std::string Lines() {
        std::string lines;
        for (const RecordedMessageBox& box : Take())
            lines += BoxLine(box.text, box.type) + '\n';
        return lines;
    }

    std::function<void()> m_meanwhile;
};

// The session ends, and then the dialog's loop, because the process of the test does not end.
inline void EndSession(HWND box) {
    ::SendMessageW(box, WM_QUERYENDSESSION, 0, 0);
    ::SendMessageW(box, WM_ENDSESSION, TRUE, 0);
    ::PostMessageW(box, WM_COMMAND, IDCANCEL, 0);
}

// A hook of links may ask the user, and the user may close the dialog meanwhile.
inline void CallInLinkHook(std::function<void()> meanwhile) {
    static std::function<void()> s_meanwhile;
    s_meanwhile = std::move(meanwhile);
    QuorvelSetOpenExternalLinkCallback([](const WCHAR*) {
        s_meanwhile();
        return 1;
    });
}

inline std::string ItemText(HWND box, int id) {
    return Narrow(TextOf(::GetDlgItem(box, id)));
}
