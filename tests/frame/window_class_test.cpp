// The window class predicates, on windows of classes registered under these names: a program's own
// class has priority over the system's of the same name.
#include <quorvel/frame/window_class.h>
#include <quorvel/framework/wnd.h>

#include "support/test.h"
#include "support/window_class.h"

using namespace quorvel::win32;

namespace {

const std::tuple<const WCHAR*, BOOL (*)(HWND), BOOL (*)(CWnd*)> kPredicates[] = {
    {_T("Button"), AfxIsButton, AfxIsButton},
    {_T("Edit"), AfxIsEdit, AfxIsEdit},
    {_T("ComboLBox"), AfxIsComboLBox, AfxIsComboLBox},
    {_T("#32768"), AfxIsMenu, AfxIsMenu},
    {_T("#32770"), AfxIsDialogBox, AfxIsDialogBox},
    {_T("#32772"), AfxIsIconTitle, AfxIsIconTitle}};

struct ClassAndWindow {
    explicit ClassAndWindow(const WCHAR* name) : windowClass(name), window(windowClass.Create()) {}
    ~ClassAndWindow() { DestroyWindow(window); }
    const TestWindowClass windowClass;
    const HWND window;
};

TEST(WindowClass, EachPredicateKnowsItsClassAlone) {
    for (const auto& [made, ofMade, ofMadeObject] : kPredicates) {
        const ClassAndWindow of(made);
        for (const auto& [asked, ofWindow, ofObject] : kPredicates) {
            SCOPED_TRACE(testing::Message() << CString(made) << CString(asked));
            EXPECT_EQ(ofWindow(of.window), asked == made);
            EXPECT_EQ(ofObject(CWnd::FromHandle(of.window)), asked == made);
        }
    }
}

TEST(WindowClass, NamesAreComparedIgnoringCaseAndAsFarAsTheyAreRead) {
    const CString longName(_T('n'), 120);
    const CString readOfIt = longName.Left(99);
    const ClassAndWindow longNamed(longName);
    const ClassAndWindow named(_T("Gr\u00F6\u00DFe"));
    const std::tuple<const char*, HWND, const WCHAR*, BOOL> rows[] = {
        {"other case, beyond ASCII too", named.window, _T("gR\u00D6\u00DFE"), TRUE},
        {"no window", nullptr, _T("Button"), FALSE},
        {"unknown window", reinterpret_cast<HWND>(UINT_PTR{0x7ffe}), _T("Button"), FALSE},
        {"99 characters of a longer name", longNamed.window, readOfIt, TRUE},
    };
    for (const auto& [label, window, name, expected] : rows)
        EXPECT_EQ(AfxIsSystemClass(window, name), expected) << label;
}

} // namespace
