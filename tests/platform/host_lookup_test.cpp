// Look-ups of host names that are slow, fail or are cancelled.
#include "platform/win32.h"

#include "platform/linux/net/host_lookup.h"

#include "support/test.h"
#include "support/window_class.h"

#include <atomic>
#include <thread>

namespace {

constexpr UINT kAnswered = WM_APP + 4;

class HostLookup : public testing::Test {
protected:
    void SetUp() override {
        WSADATA data;
        ASSERT_EQ(WSAStartup(MAKEWORD(2, 0), &data), 0);
        m_window = m_class.Create();
        // The thread of a cancelled look-up may outlive the test, so it shares the state.
        quorvel::SetHostResolver(
            [state = m_state](const std::string&, std::vector<ULONG>& addresses) {
                while (state->held)
                    std::this_thread::yield();
                for (ULONG i = 0; i < 3; ++i)
                    addresses.push_back(htonl(INADDR_LOOPBACK + i));
                ++state->answers;
                return 0;
            });
    }
    void TearDown() override {
        quorvel::SetHostResolver({});
        DestroyWindow(m_window);
        WSACleanup();
    }
    HANDLE Ask(const char* name, int length = MAXGETHOSTSTRUCT) {
        return WSAAsyncGetHostByName(m_window, kAnswered, name, m_buffer, length);
    }
    // The error in the answer to that request.
    int Answer(HANDLE request) {
        MSG message;
        EXPECT_GT(GetMessageW(&message, m_window, kAnswered, kAnswered), 0);
        EXPECT_EQ(message.wParam, reinterpret_cast<WPARAM>(request));
        return WSAGETASYNCERROR(message.lParam);
    }

    const TestWindowClass m_class{_T("LookupTest")};
    HWND m_window = nullptr;
    alignas(void*) char m_buffer[MAXGETHOSTSTRUCT] = {};
    struct State {
        std::atomic<bool> held = false;
        std::atomic<int> answers = 0;
    };
    const std::shared_ptr<State> m_state = std::make_shared<State>();
};

TEST_F(HostLookup, ReportsTheAddressesThatFit) {
    EXPECT_EQ(Answer(Ask("three")), 0);
    const auto* host = reinterpret_cast<const hostent*>(m_buffer);
    EXPECT_STREQ(host->h_name, "three");
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(host->h_addr_list[i][3], 1 + i);
    EXPECT_EQ(host->h_addr_list[3], nullptr);
    EXPECT_EQ(Answer(Ask("three", 40)), WSAENOBUFS);
}

TEST_F(HostLookup, LeavesBufferAndQueueAloneOnceCancelled) {
    const auto cancel = [](HANDLE request) { return WSACancelAsyncRequest(request) == 0; };
    m_state->held = true;
    const HANDLE request = Ask("three");
    EXPECT_EQ(ErrorOf([&] { return cancel(request); }), 0u);
    EXPECT_EQ(ErrorOf([&] { return cancel(request); }), DWORD{WSAEALREADY});
    m_state->held = false;
    while (m_state->answers < 1)
        std::this_thread::yield();
    const HANDLE next = Ask("three");
    EXPECT_EQ(Answer(next), 0) << "and none of the first";
    EXPECT_EQ(ErrorOf([&] { return cancel(nullptr); }), DWORD{WSAEINVAL});
}

TEST_F(HostLookup, IsEitherCancelledOrAnswered) {
    for (int i = 0; i < 500; ++i) {
        const HANDLE request = Ask("three");
        if (WSACancelAsyncRequest(request) != 0) {
            ASSERT_EQ(Answer(request), 0);
        }
    }
    MSG message;
    EXPECT_FALSE(PeekMessageW(&message, m_window, kAnswered, kAnswered, PM_REMOVE));
}

} // namespace
