// Mail with Simple MAPI: a mail library next to the program calls the test for each answer.
#include <quorvel/net/mail.h>
#include <quorvel/res/message_ids.h>

#include "net/win/mail_provider.h"
#include "support/message_box_recorder.h"
#include "support/test.h"

#include <stdexcept>

namespace {

constexpr LHANDLE kSession = 0x55;

enum class Answer { Returns, Faults, Throws };

class ScriptedProvider : public MailProvider {
public:
    ScriptedProvider() {
        CString address;
        address.Format(_T("%I64x"), static_cast<ULONGLONG>(reinterpret_cast<ULONG_PTR>(
                                        static_cast<MailProvider*>(this))));
        ::SetEnvironmentVariableW(kMailProviderVariable, address);
    }
    ULONG Logon(LPSTR profile, LPSTR password, FLAGS flags, LPLHANDLE session) override {
        m_calls += "logon ";
        EXPECT_EQ(profile, nullptr);
        EXPECT_EQ(password, nullptr);
        EXPECT_EQ(flags, static_cast<FLAGS>(MAPI_LOGON_UI));
        *session = kSession;
        return Give(m_logonAnswer, m_logonResult);
    }
    ULONG Send(LHANDLE session, ULONG_PTR window, MapiMessage* message, FLAGS flags) override {
        m_calls += session == kSession ? "send in session " : session == 0 ? "send " : "? ";
        EXPECT_EQ(window, 0u);
        EXPECT_EQ(flags, static_cast<FLAGS>(MAPI_DIALOG));
        EXPECT_STREQ(message->lpszSubject, "Subject");
        EXPECT_STREQ(message->lpRecips->lpszName, "J\xfcrgen"); // in the active code page
        if (m_whileSending)
            m_whileSending();
        return Give(m_sendAnswer, m_sendResult);
    }
    ULONG Logoff(LHANDLE session) override {
        m_calls += session == kSession ? "logoff" : "?";
        if (m_whileLoggingOff)
            m_whileLoggingOff();
        return Give(m_logoffAnswer, 0);
    }

    std::string m_calls;
    ULONG m_logonResult = 0, m_sendResult = 0;
    Answer m_logonAnswer = Answer::Returns, m_sendAnswer = Answer::Returns,
           m_logoffAnswer = Answer::Returns;
    std::function<void()> m_whileSending, m_whileLoggingOff;

private:
    static ULONG Give(Answer answer, ULONG result) {
        volatile int* volatile nowhere = nullptr;
        if (answer == Answer::Faults)
            *nowhere = 1;
        if (answer == Answer::Throws)
            throw std::runtime_error("mail");
        return result;
    }
};

// A path in the folder of the program.
CString Beside(const WCHAR* name) {
    WCHAR path[MAX_PATH];
    ::GetModuleFileNameW(nullptr, path, MAX_PATH);
    const CString program = path;
    return program.Left(program.ReverseFind('\\') + 1) + name;
}
void Install(const WCHAR* library) {
    ASSERT_TRUE(::CopyFileW(Beside(library), Beside(_T("mapi32.dll")), FALSE));
}
constexpr const WCHAR* kWhole = _T("mail_provider.dll");

struct MailSetting { // one system setting for all programs
    explicit MailSetting(const WCHAR* value) {
        ::WriteProfileStringW(_T("Mail"), _T("MAPI"), value);
    }
    MailSetting(const MailSetting&) = delete;
    ~MailSetting() { ::WriteProfileStringW(_T("Mail"), _T("MAPI"), _T("1")); }
};

class SimpleMapi : public testing::Test {
protected:
    ~SimpleMapi() override { ::DeleteFileW(Beside(_T("mapi32.dll"))); }

    static BOOL Send(bool logsOn) {
        const auto send = logsOn ? AfxSendMessage2 : AfxSendMessage;
        return send(_T("J\u00fcrgen"), _T("a@example.com"), _T("Subject"), _T("Body"), nullptr,
                    nullptr);
    }
    // Sends, and compares the one box (id 0: no box) and the library's state.
    void ExpectSend(bool logsOn, UINT boxId, UINT type, const char* label) {
        EXPECT_EQ(Send(logsOn), boxId == 0) << label;
        std::vector<RecordedMessageBox> boxes;
        if (boxId != 0) {
            CString text;
            EXPECT_TRUE(text.LoadString(boxId));
            boxes.push_back({text, type, type == MB_OK ? boxId : 0});
        }
        EXPECT_EQ(m_app.Take(), boxes) << label;
        EXPECT_EQ(::GetModuleHandleW(L"mapi32.dll"), nullptr) << label << ": is unloaded";
        EXPECT_EQ(::GetCapture(), nullptr) << label;
    }

    MessageBoxRecorder m_app;
    ScriptedProvider m_provider;
    const MailSetting m_setting{_T("1")};
};

constexpr UINT kStop = MB_OK | MB_ICONSTOP;

TEST_F(SimpleMapi, EveryAnswerOfTheLibrary) {
    using quorvel::kTextMailInvalidLibrary, quorvel::kTextMailSendFailed,
        quorvel::kTextFrameworkMailSendFailed;
    constexpr Answer ok = Answer::Returns, faults = Answer::Faults, throws = Answer::Throws;
    const struct {
        const char* label;
        Answer logon, send, logoff;
        ULONG logonResult, sendResult;
        UINT boxOfSession, boxWithout;
    } rows[] = {
        {"sent", ok, ok, ok, 0, 0, 0, 0},
        {"aborted", ok, ok, ok, 0, 1, 0, 0},
        {"logon failure", ok, ok, ok, 0, 3, 0, 0},
        {"failure", ok, ok, ok, 0, 2, kTextMailSendFailed, kTextFrameworkMailSendFailed},
        {"send faults", ok, faults, ok, 0, 0, kTextMailSendFailed, kTextFrameworkMailSendFailed},
        {"send throws", ok, throws, ok, 0, 0, kTextMailSendFailed, kTextFrameworkMailSendFailed},
        {"no logon", ok, ok, ok, 1, 0, kTextMailInvalidLibrary, 0},
        {"logon faults", faults, ok, ok, 0, 0, kTextMailInvalidLibrary, 0},
        {"logoff faults", ok, ok, faults, 0, 0, 0, 0},
    };
    constexpr bool kIs64Bit = sizeof(void*) == 8; // faults are not caught there
    Install(kWhole);
    std::size_t boxesAtLogoff = 0;
    m_provider.m_whileLoggingOff = [&] { boxesAtLogoff = m_app.m_boxes.size(); };
    for (const auto& row : rows) {
        if (kIs64Bit && (row.logon == Answer::Faults || row.send == Answer::Faults ||
                         row.logoff == Answer::Faults))
            continue;
        m_provider.m_logonAnswer = row.logon;
        m_provider.m_sendAnswer = row.send;
        m_provider.m_logoffAnswer = row.logoff;
        m_provider.m_logonResult = row.logonResult;
        m_provider.m_sendResult = row.sendResult;
        ExpectSend(true, row.boxOfSession, kStop, row.label);
        EXPECT_EQ(std::exchange(m_provider.m_calls, ""), row.boxOfSession == kTextMailInvalidLibrary
                                                             ? "logon "
                                                             : "logon send in session logoff")
            << row.label;
        if (row.boxOfSession != kTextMailInvalidLibrary) {
            EXPECT_EQ(boxesAtLogoff, row.boxOfSession != 0 ? 1u : 0u) << row.label;
        }
        ExpectSend(false, row.boxWithout, MB_OK, row.label);
        EXPECT_EQ(std::exchange(m_provider.m_calls, ""), "send ") << row.label;
    }
}

TEST_F(SimpleMapi, LibrariesThatLackWhatIsNeeded) {
    Install(_T("sending_mail_provider.dll"));
    ExpectSend(true, quorvel::kTextMailInvalidLibrary, kStop, "no logon");
    EXPECT_EQ(m_provider.m_calls, "");
    ExpectSend(false, 0, 0, "no logon");
    Install(_T("empty_mail_provider.dll"));
    ExpectSend(true, quorvel::kTextMailInvalidLibrary, kStop, "empty");
    ExpectSend(false, quorvel::kTextFrameworkMailInvalidLibrary, MB_OK, "empty");
    ::DeleteFileW(Beside(_T("mapi32.dll")));
    ExpectSend(true, quorvel::kTextMailLoadFailed, kStop, "none");
    ExpectSend(false, quorvel::kTextFrameworkMailLoadFailed, MB_OK, "none");
}

TEST_F(SimpleMapi, MailThatIsNotConfiguredIsNotTried) {
    Install(kWhole);
    for (const WCHAR* value : {_T("0"), _T("2"), static_cast<const WCHAR*>(nullptr)}) {
        const MailSetting setting(value);
        ExpectSend(true, quorvel::kTextMailLoadFailed, kStop, "not configured");
        EXPECT_EQ(std::exchange(m_provider.m_calls, ""), "");
        ExpectSend(false, 0, 0, "not asked");
        EXPECT_EQ(std::exchange(m_provider.m_calls, ""), "send ");
    }
}

struct DestroyIt {
    void operator()(HWND window) const { ::DestroyWindow(window); }
};
typedef std::unique_ptr<std::remove_pointer_t<HWND>, DestroyIt> Window;

Window NewWindow(bool isEnabled = true) {
    return Window(::CreateWindowExW(
        0, L"Static", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE | (isEnabled ? 0 : WS_DISABLED), 0, 0,
        90, 90, nullptr, nullptr, nullptr, nullptr));
}

TEST_F(SimpleMapi, WindowsAreDisabledWhileItSendsAndAsBeforeAfterwards) {
    Install(kWhole);
    const Window other = NewWindow(), disabled = NewWindow(false);
    Window closing = NewWindow();
    const Window owner = NewWindow();
    ::SetActiveWindow(owner.get());
    m_provider.m_whileSending = [&] {
        EXPECT_FALSE(::IsWindowEnabled(owner.get()));
        EXPECT_FALSE(::IsWindowEnabled(other.get()));
        EXPECT_EQ(::GetCapture(), owner.get());
        EXPECT_EQ(::GetFocus(), nullptr);
        ::EnableWindow(owner.get(), TRUE);
        EXPECT_FALSE(::IsWindowEnabled(owner.get())) << "stays disabled";
        closing.reset();
        ::SetActiveWindow(nullptr);
    };
    for (const bool logsOn : {true, false}) {
        for (const Answer answer : {Answer::Returns, Answer::Throws, Answer::Faults}) {
            if (answer == Answer::Faults && sizeof(void*) == 8)
                continue;
            SCOPED_TRACE(static_cast<int>(answer));
            m_provider.m_sendAnswer = answer;
            Send(logsOn);
            EXPECT_NE(std::exchange(m_provider.m_calls, ""), "");
            EXPECT_TRUE(::IsWindowEnabled(owner.get()));
            EXPECT_TRUE(::IsWindowEnabled(other.get()));
            EXPECT_FALSE(::IsWindowEnabled(disabled.get()));
            EXPECT_EQ(::GetCapture(), nullptr);
            EXPECT_EQ(::GetActiveWindow(), owner.get());
            EXPECT_EQ(::GetFocus(), owner.get());
            ::EnableWindow(owner.get(), FALSE);
            ::EnableWindow(owner.get(), TRUE);
            EXPECT_TRUE(::IsWindowEnabled(owner.get())) << "no longer held";
        }
    }
    ::SetActiveWindow(nullptr);
    m_provider.m_sendAnswer = Answer::Returns;
    m_provider.m_whileSending = [&] { EXPECT_FALSE(::IsWindowEnabled(other.get())); };
    EXPECT_TRUE(Send(false)) << "no window is active";
    EXPECT_TRUE(::IsWindowEnabled(other.get()));
}

} // namespace
