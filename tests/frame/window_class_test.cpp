// The window-class predicates, on windows of classes registered under the names in question: a
// program's own class goes before the system's of the same name.
#include <quorvel/frame/window_class.h>
#include <quorvel/framework/wnd.h>

#include "support/test.h"

using namespace quorvel::win32;

namespace {

struct Predicate {
    const WCHAR* className;
    BOOL (*ofWindow)(HWND);
    BOOL (*ofObject)(CWnd*);
};
const Predicate kPredicates[] = {
    {_T("Button"), AfxIsButton, AfxIsButton},
    {_T("Edit"), AfxIsEdit, AfxIsEdit},
    {_T("ComboLBox"), AfxIsComboLBox, AfxIsComboLBox},
    {_T("#32768"), AfxIsMenu, AfxIsMenu},
    {_T("#32770"), AfxIsDialogBox, AfxIsDialogBox},
    {_T("#32772"), AfxIsIconTitle, AfxIsIconTitle},
};

class ClassAndWindow {
public:
    explicit ClassAndWindow(const WCHAR* className) : m_className(className) {
        WNDCLASSEXW windowClass = {};
        windowClass.cbSize = sizeof windowClass;
        windowClass.lpfnWndProc = DefWindowProcW;
        windowClass.lpszClassName = className;
        RegisterClassExW(&windowClass);
        m_window = CreateWindowExW(0, className, nullptr, WS_POPUP, 0, 0, 0, 0, nullptr, nullptr,
                                   nullptr, nullptr);
    }
    ClassAndWindow(const ClassAndWindow&) = delete;
    ~ClassAndWindow() {
        DestroyWindow(m_window);
        UnregisterClassW(m_className, nullptr);
    }
    HWND Window() const { return m_window; }

private:
    const WCHAR* const m_className;
    HWND m_window;
};

TEST(WindowClass, EachPredicateKnowsItsClassAlone) {
    for (const Predicate& made : kPredicates) {
        const ClassAndWindow of(made.className);
        ASSERT_NE(of.Window(), nullptr) << CString(made.className).GetLength();
        CWnd* const wnd = CWnd::FromHandle(of.Window());
        for (const Predicate& asked : kPredicates) {
            const CString label = CString(made.className) + _T(" asked for ") + asked.className;
            SCOPED_TRACE(Printable(label.GetString(), label.GetLength()));
            EXPECT_EQ(asked.ofWindow(of.Window()), &asked == &made);
            EXPECT_EQ(asked.ofObject(wnd), &asked == &made);
        }
    }
}

TEST(WindowClass, NamesAreComparedIgnoringCaseAndAsFarAsTheyAreRead) {
    const CString longName(_T('n'), 120);
    const CString readOfIt = longName.Left(99);
    const ClassAndWindow longNamed(longName);
    const ClassAndWindow named(_T("Gr\u00F6\u00DFe"));
    const std::tuple<const char*, HWND, const WCHAR*, BOOL> rows[] = {
        {"other case, beyond ASCII too", named.Window(), _T("gR\u00D6\u00DFE"), TRUE},
        {"null", named.Window(), nullptr, FALSE},
        {"no window", nullptr, _T("Button"), FALSE},
        {"unknown window", reinterpret_cast<HWND>(UINT_PTR{0x7ffe}), _T("Button"), FALSE},
        {"99 characters of a longer name", longNamed.Window(), readOfIt, TRUE},
    };
    for (const auto& [label, window, name, expected] : rows)
        EXPECT_EQ(AfxIsSystemClass(window, name), expected) << label;
}

TEST(WindowClass, AnObjectWithoutAWindowIsOfNoClass) {
    CWnd wnd;
    EXPECT_FALSE(AfxIsButton(&wnd));
    EXPECT_FALSE(AfxIsButton(static_cast<CWnd*>(nullptr)));
    EXPECT_FALSE(AfxIsSystemClass(static_cast<CWnd*>(nullptr), _T("Button")));
}

} // namespace
