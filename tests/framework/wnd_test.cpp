// CWnd with real windows: the maps from handles to objects, creation and its hook, message maps,
// and handling of exceptions.
#include <quorvel/framework/app.h>
#include <quorvel/framework/exceptions.h>
#include <quorvel/framework/wnd.h>

#include "support/message_box_recorder.h"
#include "support/test.h"
#include "support/window_class.h"

#include <thread>

using namespace quorvel::win32;

namespace {

constexpr UINT kControl = 100;
enum : UINT { kHandled = WM_APP, kOverridden, kPassedOn, kThrowUser, kThrowNumber, kDestroy };
constexpr UINT kNotification = 7;

// The window's own procedure.
LRESULT CALLBACK OwnProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return message == kPassedOn ? static_cast<LRESULT>(wParam) * 100 + lParam
                                : DefWindowProcW(window, message, wParam, lParam);
}

class CBase : public CWnd {
public:
    std::string m_seen;

protected:
    LRESULT OnHandled(WPARAM wParam, LPARAM lParam) { return LRESULT(wParam) + lParam; }
    LRESULT OnOverridden(WPARAM, LPARAM) { return 1; }
    LRESULT OnThrowException(WPARAM, LPARAM) { AfxThrowUserException(); }
    LRESULT OnThrowNumber(WPARAM, LPARAM) { throw 5; }
    void OnChanged() { m_seen += "changed "; }
    void OnNotified(NMHDR* header, LRESULT* result) {
        m_seen += "notified ";
        *result = static_cast<LRESULT>(header->idFrom) * 2;
    }
    DECLARE_MESSAGE_MAP()
};

constexpr int kChangeCode = 0x300;
BEGIN_MESSAGE_MAP(CBase, CWnd)
ON_MESSAGE(kHandled, &CBase::OnHandled)
ON_MESSAGE(kOverridden, &CBase::OnOverridden)
ON_MESSAGE(kThrowUser, &CBase::OnThrowException)
ON_MESSAGE(kThrowNumber, &CBase::OnThrowNumber)
ON_CONTROL(kChangeCode, kControl, &CBase::OnChanged)
ON_NOTIFY(kNotification, kControl, &CBase::OnNotified)
END_MESSAGE_MAP()

class CDerived : public CBase {
public:
    bool m_throwAtCreation = false;

protected:
    BOOL PreCreateWindow(CREATESTRUCTW& parameters) override {
        parameters.lpszName = _T("changed");
        return TRUE;
    }
    LRESULT OnOverridden(WPARAM, LPARAM) { return 2; }
    LRESULT OnPassedOn(WPARAM, LPARAM) {
        SendMessage(kHandled); // must not change the message of Default
        return Default() + 1;
    }
    LRESULT OnCreated(WPARAM, LPARAM) {
        m_seen += FromHandlePermanent(m_hWnd) == this ? "created " : "unattached ";
        if (m_throwAtCreation)
            AfxThrowUserException();
        return Default();
    }
    LRESULT OnDestroyItself(WPARAM, LPARAM) { return DestroyWindow(); }
    void OnDestroy() { m_seen += "destroyed "; }
    void PreSubclassWindow() override { m_seen += "subclassed "; }
    void PostNcDestroy() override { m_seen += m_hWnd == nullptr ? "ended " : "still there "; }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CDerived, CBase)
ON_MESSAGE(kOverridden, &CDerived::OnOverridden)
ON_MESSAGE(kPassedOn, &CDerived::OnPassedOn)
ON_MESSAGE(WM_CREATE, &CDerived::OnCreated)
ON_MESSAGE(kDestroy, &CDerived::OnDestroyItself)
ON_WM_DESTROY()
END_MESSAGE_MAP()

class Wnd : public testing::Test {
protected:
    static BOOL Create(CWnd& wnd, const WCHAR* className = _T("WndTest")) {
        return wnd.CreateEx(0, className, _T("caption"), WS_POPUP, 0, 0, 0, 0, nullptr, nullptr);
    }
    HWND CreateBare() const { return m_class.Create(); }

private:
    const TestWindowClass m_class{_T("WndTest"), OwnProcedure};
};

TEST_F(Wnd, ItsObjectIsThereFromTheFirstMessageToTheLast) {
    CWinApp app;
    CDerived wnd;
    ASSERT_TRUE(Create(wnd));
    app.m_pMainWnd = &wnd;
    CString caption;
    wnd.GetWindowText(caption);
    EXPECT_EQ(caption, _T("changed")) << "by PreCreateWindow";
    const HWND window = wnd.m_hWnd;
    EXPECT_FALSE(Create(wnd)) << "has a window";
    EXPECT_TRUE(wnd.DestroyWindow());
    EXPECT_EQ(wnd.m_seen, "subclassed created destroyed ended ");
    EXPECT_EQ(wnd.m_hWnd, nullptr);
    EXPECT_EQ(AfxGetMainWnd(), nullptr);
    EXPECT_EQ(CWnd::FromHandlePermanent(window), nullptr);
    EXPECT_TRUE(Create(wnd)) << "may have another window";
}

TEST_F(Wnd, AFailedCreationCallsPostNcDestroyOnce) {
    CDerived unknownClass, throwing;
    EXPECT_FALSE(Create(unknownClass, _T("No such class")));
    EXPECT_EQ(unknownClass.m_seen, "ended ");
    throwing.m_throwAtCreation = true;
    EXPECT_FALSE(Create(throwing));
    EXPECT_EQ(throwing.m_seen.find("subclassed created "), 0u);
    EXPECT_EQ(throwing.m_seen.find("ended "), throwing.m_seen.size() - 6) << throwing.m_seen;
}

TEST_F(Wnd, AnObjectMayDeleteItselfWithItsWindow) {
    static bool s_isDeleted;
    struct CSelfDeleting : CDerived {
        ~CSelfDeleting() override { s_isDeleted = true; }
        void PostNcDestroy() override { delete this; }
    };
    CWnd* const wnd = new CSelfDeleting;
    ASSERT_TRUE(Create(*wnd));
    wnd->SendMessage(kDestroy);
    EXPECT_TRUE(s_isDeleted);
}

TEST_F(Wnd, AWindowHasOneObjectOnItsThreadAndAnyThreadATemporaryOne) {
    const HWND window = CreateBare(), other = CreateBare();
    EXPECT_EQ(CWnd::FromHandle(window), CWnd::FromHandle(window));
    EXPECT_EQ(CWnd::FromHandlePermanent(window), nullptr);
    {
        CWnd wnd;
        EXPECT_FALSE(wnd.SubclassWindow(reinterpret_cast<HWND>(UINT_PTR{0x7ffe})));
        EXPECT_TRUE(wnd.Attach(window));
        EXPECT_FALSE(wnd.Attach(other)) << "has a window";
        EXPECT_FALSE(CWnd().Attach(window)) << "has an object";
        EXPECT_EQ(CWnd::FromHandle(window), &wnd) << "before the temporary one";
        std::thread([&] {
            EXPECT_EQ(CWnd::FromHandlePermanent(window), nullptr);
            EXPECT_NE(CWnd::FromHandle(window), &wnd);
        }).join();
    }
    EXPECT_FALSE(IsWindow(window)) << "destroyed with its object";
    DestroyWindow(other);
}

TEST_F(Wnd, ASubclassedWindowGetsItsProcedureBack) {
    const HWND window = CreateBare();
    CDerived wnd;
    ASSERT_TRUE(wnd.SubclassWindow(window));
    EXPECT_EQ(SendMessageW(window, kPassedOn, 3, 4), 305);
    EXPECT_EQ(wnd.UnsubclassWindow(), window);
    EXPECT_EQ(SendMessageW(window, kPassedOn, 3, 4), 304);
    EXPECT_TRUE(DestroyWindow(window));
}

TEST_F(Wnd, MessagesReachTheirMembers) {
    MessageBoxRecorder app;
    CDerived wnd;
    ASSERT_TRUE(Create(wnd));
    ExpectCases<LRESULT>({
        CASE(wnd.SendMessage(kHandled, 3, 4), 7), // the base's handler
        CASE(wnd.SendMessage(kOverridden), 2),
        CASE(wnd.SendMessage(kPassedOn, 3, 4), 305),
        CASE(wnd.SendMessage(kThrowUser), 0), // not shown: CUserException
        CASE(wnd.SendMessage(kThrowNumber), 0),
    });
    EXPECT_EQ(app.Take().at(0).text, _T("An unknown error has occurred."));

    const LPARAM control = reinterpret_cast<LPARAM>(wnd.m_hWnd);
    wnd.m_seen.clear();
    wnd.SendMessage(WM_COMMAND, MAKEWPARAM(kControl, kChangeCode), control);
    NMHDR header = {wnd.m_hWnd, kControl, kNotification};
    EXPECT_EQ(wnd.SendMessage(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header)), 200);
    header.code = kNotification + 1;
    EXPECT_EQ(wnd.SendMessage(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header)), 0);
    EXPECT_EQ(wnd.m_seen, "changed notified ");
}

#if defined(__i386__)
// Vector registers are spilled by instructions that fault on unaligned memory, and a caller from
// outside aligns the stack only to the width of an address.
typedef float Vector __attribute__((vector_size(16)));

void ExpectAlignedStack() {
    volatile Vector spilled = {1, 2, 3, 4};
    UINT_PTR address = reinterpret_cast<UINT_PTR>(&spilled);
    asm volatile("" : "+r"(address)); // otherwise the compiler assumes the alignment
    EXPECT_EQ(address % 16, 0u);
}

TEST(Stack, IsAlignedForVectorsWhoeverCallsAndOnAThread) {
    for (const UINT_PTR bytes : {4, 8, 12})
        asm volatile("subl %%ebx, %%esp\n\t call *%0\n\t addl %%ebx, %%esp"
                     :
                     : "S"(ExpectAlignedStack), "b"(bytes)
                     : "eax", "ecx", "edx", "memory", "cc");
    std::thread(ExpectAlignedStack).join();
}
#endif

} // namespace
