// Mail with Simple MAPI: a mail library next to the program calls the test for each answer.
#include <quorvel/net/mail.h>
#include <quorvel/res/message_ids.h>

#include "net/win/mail_provider.h"
#include "support/message_box_recorder.h"
#include "support/test.h"

#include <stdexcept>

namespace {

constexpr LHANDLE kSession = 0x55;
constexpr UINT kStop = MB_OK | MB_ICONSTOP;

// What an entry point of the library does.
typedef ULONG (*Act)();
template <ULONG result>
ULONG Returns() {
    return result;
}
ULONG Throws() {
    throw std::runtime_error("mail");
}
ULONG Faults() {
    volatile int* volatile nowhere = nullptr;
    *nowhere = 1;
    return 0;
}
constexpr bool kCatchesFaults = sizeof(void*) == 4;

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
        EXPECT_TRUE(profile == nullptr && password == nullptr && flags == MAPI_LOGON_UI);
        *session = kSession;
        return m_onLogon();
    }
    ULONG Send(LHANDLE session, ULONG_PTR window, MapiMessage* message, FLAGS flags) override {
        m_calls += session == kSession ? "send in session " : session == 0 ? "send " : "? ";
        EXPECT_TRUE(window == 0 && flags == MAPI_DIALOG);
        EXPECT_STREQ(message->lpRecips->lpszName, "J\xfcrgen"); // in the active code page
        return m_onSend();
    }
    ULONG Logoff(LHANDLE session) override {
        m_calls += session == kSession ? "logoff" : "?";
        return m_onLogoff();
    }

    std::function<ULONG()> m_onLogon = Returns<0>, m_onSend = Returns<0>, m_onLogoff = Returns<0>;
    std::string m_calls;
};

CString Beside(const WCHAR* name) {
    WCHAR path[MAX_PATH];
    ::GetModuleFileNameW(nullptr, path, MAX_PATH);
    ::lstrcpyW(::wcsrchr(path, '\\') + 1, name);
    return path;
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
    // Sends, and compares the one box (id 0: no box), the calls and the library's state.
    void ExpectSend(bool logsOn, UINT boxId, const char* calls) {
        m_provider.m_calls.clear();
        EXPECT_EQ(Send(logsOn), boxId == 0);
        std::vector<RecordedMessageBox> boxes;
        if (boxId != 0) {
            CString text;
            EXPECT_TRUE(text.LoadString(boxId));
            boxes.push_back({text, logsOn ? kStop : MB_OK, logsOn ? 0 : boxId});
        }
        EXPECT_EQ(m_app.Take(), boxes);
        EXPECT_EQ(m_provider.m_calls, calls);
        EXPECT_EQ(::GetModuleHandleW(L"mapi32.dll"), nullptr) << "is unloaded";
        EXPECT_EQ(::GetCapture(), nullptr);
    }

    MessageBoxRecorder m_app;
    ScriptedProvider m_provider;
    const MailSetting m_setting{_T("1")};
};

TEST_F(SimpleMapi, EveryAnswerOfTheLibrary) {
    using quorvel::kTextMailInvalidLibrary, quorvel::kTextMailSendFailed,
        quorvel::kTextFrameworkMailSendFailed;
    constexpr Act ok = Returns<0>;
    const std::tuple<const char*, Act, Act, Act, UINT, UINT> rows[] = {
        {"sent", ok, ok, ok, 0, 0},
        {"aborted", ok, Returns<1>, ok, 0, 0},
        {"failure", ok, Returns<2>, ok, kTextMailSendFailed, kTextFrameworkMailSendFailed},
        {"send faults", ok, Faults, ok, kTextMailSendFailed, kTextFrameworkMailSendFailed},
        {"send throws", ok, Throws, ok, kTextMailSendFailed, kTextFrameworkMailSendFailed},
        {"no logon", Returns<1>, ok, ok, kTextMailInvalidLibrary, 0},
        {"logon faults", Faults, ok, ok, kTextMailInvalidLibrary, 0},
        {"logoff faults", ok, ok, Faults, 0, 0},
    };
    Install(kWhole);
    for (const auto& [label, logon, send, logoff, boxOfSession, boxWithout] : rows) {
        if (!kCatchesFaults && (logon == Faults || send == Faults || logoff == Faults))
            continue;
        SCOPED_TRACE(label);
        std::size_t boxesAtLogoff = 0;
        m_provider.m_onLogon = logon;
        m_provider.m_onSend = send;
        m_provider.m_onLogoff = [&, act = logoff] {
            boxesAtLogoff = m_app.m_boxes.size();
            return act();
        };
        const bool logsOn = boxOfSession != kTextMailInvalidLibrary;
        ExpectSend(true, boxOfSession, logsOn ? "logon send in session logoff" : "logon ");
        EXPECT_EQ(boxesAtLogoff, logsOn && boxOfSession != 0 ? 1u : 0u);
        ExpectSend(false, boxWithout, "send ");
    }
}

TEST_F(SimpleMapi, WhatIsMissingOrNotConfiguredIsNotTried) {
    using namespace quorvel;
    const WCHAR* const none = nullptr;
    const struct {
        const WCHAR* library;
        const WCHAR* setting;
        UINT boxOfSession, boxWithout;
    } rows[] = {
        {_T("sending_mail_provider.dll"), _T("1"), kTextMailInvalidLibrary, 0},
        {_T("empty_mail_provider.dll"), _T("1"), kTextMailInvalidLibrary,
         kTextFrameworkMailInvalidLibrary},
        {none, _T("1"), kTextMailLoadFailed, kTextFrameworkMailLoadFailed},
        {kWhole, _T("0"), kTextMailLoadFailed, 0},
        {kWhole, none, kTextMailLoadFailed, 0},
    };
    for (const auto& [library, value, boxOfSession, boxWithout] : rows) {
        const MailSetting setting(value);
        ::DeleteFileW(Beside(_T("mapi32.dll")));
        if (library != nullptr)
            Install(library);
        SCOPED_TRACE(testing::Message() << boxOfSession << " " << boxWithout);
        ExpectSend(true, boxOfSession, "");
        ExpectSend(false, boxWithout, boxWithout == 0 ? "send " : "");
    }
}

struct Window {
    explicit Window(DWORD style = 0)
        : handle(::CreateWindowExW(0, L"Static", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE | style, 0,
                                   0, 90, 90, nullptr, nullptr, nullptr, nullptr)) {}
    Window(const Window&) = delete;
    ~Window() { ::DestroyWindow(handle); }
    bool IsEnabled() const { return ::IsWindowEnabled(handle) != FALSE; }
    const HWND handle;
};

TEST_F(SimpleMapi, WindowsAreDisabledWhileItSendsAndAsBeforeAfterwards) {
    Install(kWhole);
    const Window other, disabled(WS_DISABLED), closing, owner;
    ::SetActiveWindow(owner.handle);
    for (const bool logsOn : {true, false}) {
        for (const Act act : {Act{Returns<0>}, Act{Throws}, Act{Faults}}) {
            if (act == Faults && !kCatchesFaults)
                continue;
            m_provider.m_onSend = [&] {
                EXPECT_FALSE(owner.IsEnabled() || other.IsEnabled());
                EXPECT_EQ(::GetCapture(), owner.handle);
                EXPECT_EQ(::GetFocus(), nullptr);
                ::EnableWindow(owner.handle, TRUE);
                EXPECT_FALSE(owner.IsEnabled()) << "stays disabled";
                ::DestroyWindow(closing.handle);
                ::SetActiveWindow(nullptr);
                return act();
            };
            m_provider.m_calls.clear();
            Send(logsOn);
            EXPECT_NE(m_provider.m_calls, "");
            EXPECT_TRUE(owner.IsEnabled() && other.IsEnabled() && !disabled.IsEnabled());
            EXPECT_EQ(::GetCapture(), nullptr);
            EXPECT_EQ(::GetActiveWindow(), owner.handle);
            EXPECT_EQ(::GetFocus(), owner.handle);
            ::EnableWindow(owner.handle, FALSE);
            ::EnableWindow(owner.handle, TRUE);
            EXPECT_TRUE(owner.IsEnabled()) << "no longer held";
        }
    }
    ::SetActiveWindow(nullptr);
    m_provider.m_onSend = [&]() -> ULONG { return other.IsEnabled() ? 2 : 0; };
    EXPECT_TRUE(Send(false)) << "no window is active";
    EXPECT_TRUE(other.IsEnabled());
}

} // namespace
