// Posted messages, timers and the queue of a thread: common promises of both systems.
#include "platform/win32.h"

#include "support/test.h"
#include "support/window_class.h"

#include <thread>

namespace {

constexpr UINT kFirst = WM_APP + 'a';
constexpr UINT kSecond = WM_APP + 'b';

// What was seen: a and b for the two messages, t for a timer, each followed by its number.
std::string g_seen;

LRESULT CALLBACK Record(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message > WM_APP || message == WM_TIMER)
        g_seen += (message == WM_TIMER ? 't' : static_cast<char>(message - WM_APP)) +
                  std::to_string(wParam) + ' ';
    return DefWindowProcW(window, message, wParam, lParam);
}

class Messages : public testing::Test {
protected:
    void SetUp() override {
        m_window = m_class.Create();
        Drain();
        g_seen.clear();
    }
    void TearDown() override { DestroyWindow(m_window); }
    // Dispatches the waiting messages and returns what was seen.
    static std::string Drain() {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageW(&message);
        return std::exchange(g_seen, {});
    }
    static void Wait(DWORD milliseconds) {
        const HANDLE never = CreateEventW(nullptr, TRUE, FALSE, nullptr);
        EXPECT_EQ(WaitForSingleObject(never, milliseconds), WAIT_TIMEOUT);
        CloseHandle(never);
    }
    static std::string Await() {
        MSG message;
        while (g_seen.empty() && GetMessageW(&message, nullptr, 0, 0) > 0)
            DispatchMessageW(&message);
        return std::exchange(g_seen, {});
    }

    const TestWindowClass m_class{_T("MessageTest"), Record};
    HWND m_window = nullptr;
};

TEST_F(Messages, ComeInTheOrderInWhichTheyWerePosted) {
    const HWND other = m_class.Create();
    const auto post = [&] {
        PostMessageW(m_window, kSecond, 1, 0);
        PostMessageW(other, kFirst, 2, 0);
        PostMessageW(m_window, kFirst, 3, 0);
    };
    post();
    EXPECT_EQ(Drain(), "b1 a2 a3 ");

    post(); // and filter by window and number
    MSG message = {};
    EXPECT_TRUE(PeekMessageW(&message, m_window, kFirst, kFirst, PM_REMOVE));
    EXPECT_EQ(message.wParam, 3u);
    EXPECT_TRUE(GetMessageW(&message, other, 0, 0));
    EXPECT_EQ(message.wParam, 2u);
    EXPECT_EQ(Drain(), "b1 ");
    DestroyWindow(other);
    EXPECT_EQ(ErrorOf([&] { return PostMessageW(other, kFirst, 0, 0); }),
              ERROR_INVALID_WINDOW_HANDLE);
    EXPECT_EQ(ErrorOf([&] { return PostMessageW(m_window, WM_GETTEXT, 0, 0); }),
              ERROR_MESSAGE_SYNC_ONLY);
}

TEST_F(Messages, AreDroppedWithTheirWindow) {
    const HWND other = m_class.Create();
    PostMessageW(other, kFirst, 1, 0);
    PostMessageW(m_window, kFirst, 2, 0);
    SetTimer(other, 3, USER_TIMER_MINIMUM, nullptr);
    DestroyWindow(other);
    Wait(5 * USER_TIMER_MINIMUM);
    MSG message = {};
    ASSERT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.hwnd, m_window);
    EXPECT_FALSE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) << message.message;
}

TEST_F(Messages, EndAfterTheLastOneThatWasPosted) {
    PostQuitMessage(7);
    PostMessageW(m_window, kFirst, 1, 0);
    MSG message = {};
    EXPECT_TRUE(GetMessageW(&message, nullptr, 0, 0));
    EXPECT_EQ(message.message, kFirst);
    EXPECT_FALSE(GetMessageW(&message, nullptr, 0, 0));
    EXPECT_EQ(message.wParam, 7u);
    EXPECT_FALSE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) << "once";

    PostMessageW(m_window, kFirst, 1, 0);
    PostQuitMessage(7); // passes every filter
    EXPECT_TRUE(PeekMessageW(&message, nullptr, kFirst + 1, kFirst + 1, PM_REMOVE));
    EXPECT_EQ(message.message, UINT(WM_QUIT));
    EXPECT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.message, kFirst);
}

// The limit is a quota of the process: Wine has no such quota.
TEST_F(Messages, AreRefusedByAFullQueue) {
    int posted = 0;
    while (posted < 12000 && PostMessageW(m_window, kFirst, 0, 0))
        ++posted;
    if (posted < 12000) {
        EXPECT_EQ(GetLastError(), ERROR_NOT_ENOUGH_QUOTA);
        EXPECT_EQ(posted, 10000);
    }
    EXPECT_EQ(Drain().size(), static_cast<std::size_t>(posted) * 3);
}

TEST_F(Messages, LetTimersWaitUntilNothingElseDoes) {
    EXPECT_EQ(SetTimer(m_window, 5, USER_TIMER_MINIMUM, nullptr), 5u);
    EXPECT_EQ(Await(), "t5 ");
    EXPECT_EQ(Await(), "t5 ") << "again and again";
    const auto restart = [this] { EXPECT_NE(SetTimer(m_window, 5, 3600000, nullptr), 0u); };
    std::thread(restart).join(); // from another thread, with an hour
    SetTimer(m_window, 6, 30, nullptr);
    EXPECT_EQ(Await(), "t6 ");
    std::thread([this] { EXPECT_TRUE(KillTimer(m_window, 6)); }).join();
    EXPECT_FALSE(KillTimer(m_window, 6));
    EXPECT_TRUE(KillTimer(m_window, 5));

    // A timer that is overdue fires once.
    SetTimer(m_window, 8, USER_TIMER_MINIMUM, nullptr);
    Wait(100);
    PostMessageW(m_window, kFirst, 1, 0);
    EXPECT_EQ(Drain(), "a1 t8 ");
    KillTimer(m_window, 8);
}

TEST_F(Messages, AreWaitedForAlongWithHandles) {
    const HANDLE event = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    const auto wait = [event](DWORD milliseconds) {
        return MsgWaitForMultipleObjects(1, &event, FALSE, milliseconds, QS_ALLINPUT);
    };
    EXPECT_EQ(wait(1), WAIT_TIMEOUT);
    PostMessageW(m_window, kFirst, 1, 0);
    EXPECT_EQ(wait(INFINITE), WAIT_OBJECT_0 + 1);
    SetEvent(event);
    EXPECT_EQ(wait(INFINITE), WAIT_OBJECT_0);
    MSG message;
    PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);
    EXPECT_EQ(wait(1), WAIT_TIMEOUT) << "seen, though not taken";
    EXPECT_EQ(Drain(), "a1 ");
    CloseHandle(event);
}

} // namespace
