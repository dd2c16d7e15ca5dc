// The edit control that offers earlier texts, bound to the platform's auto-completion.
#include <quorvel/controls/win/auto_complete_edit.h>
#include <quorvel/controls/win/vask_dialog.h>

#include "controls/win/dialog_ids.h"
#include "support/registry.h"
#include "support/test.h"
#include "support/win/dialog_driver.h"

namespace {

struct AutoCompleteEdit : testing::Test {
    AutoCompleteEdit() { EXPECT_GE(::CoInitialize(nullptr), 0); }
    ~AutoCompleteEdit() override { ::CoUninitialize(); }
};

TEST_F(AutoCompleteEdit, IsBoundWhenItIsSubclassed) {
    CAutoCompleteEdit edit;
    DWORD options = 7;
    EXPECT_FALSE(edit.IsAutoCompleteObjectValid());
    EXPECT_FALSE(edit.EnableAutoCompletion(TRUE));
    EXPECT_FALSE(edit.AddActiveTextToMRUList()) << "without a window";

    const auto createWindow = [] {
        return ::CreateWindowExW(0, _T("Edit"), _T("typed"), WS_POPUP | WS_VISIBLE, 0, 0, 100, 20,
                                 nullptr, nullptr, nullptr, nullptr);
    };
    EXPECT_TRUE(edit.SubclassWindow(createWindow()));
    EXPECT_TRUE(edit.IsAutoCompleteObjectValid() && edit.GetOptions(options));
    EXPECT_EQ(options, DWORD{CAutoCompleteEdit::DEFAULT_OPTIONS});
    const TestKey key;
    const CRegistryPath path(HKEY_CURRENT_USER, key.Path());
    CAutoCompleteEdit other;
    EXPECT_TRUE(edit.AddActiveTextToMRUList() && edit.SaveState(path) && other.LoadState(path));
    EXPECT_TRUE(other.RemoveMRUListEntry(_T("typed")) && !edit.SaveState(CRegistryPath()));
    EXPECT_TRUE(edit.EnableAutoCompletion(FALSE));
    edit.DestroyWindow();
    EXPECT_FALSE(edit.IsAutoCompleteObjectValid());
    EXPECT_TRUE(edit.SubclassWindow(createWindow()));
    EXPECT_TRUE(edit.IsAutoCompletionEnabled()) << "bound anew";
    EXPECT_TRUE(edit.IsMRUListValid()) << "the list outlives the window";
}

// The text of the field, and the number of rows in the drop-down list while it is shown.
std::string StateOf(HWND box) {
    static int s_rows;
    s_rows = -1;
    const auto find = [](HWND window, LPARAM) CALLBACK -> BOOL {
        const HWND list = ::FindWindowExW(window, nullptr, L"ListBox", nullptr);
        if (list != nullptr && ::IsWindowVisible(window))
            s_rows = static_cast<int>(::SendMessageW(list, LB_GETCOUNT, 0, 0));
        return TRUE;
    };
    ::EnumThreadWindows(::GetCurrentThreadId(), find, 0);
    const std::string text = TextOf(::GetDlgItem(box, FIELD_NAME)).ToUTF8();
    return s_rows < 0 ? text : text + " " + std::to_string(s_rows);
}

TEST_F(AutoCompleteEdit, ClosesItsDropDownBeforeItsDialog) {
    const auto type = [](char letter) {
        return [letter](HWND box) {
            ::PostMessageW(KeyboardOf(box), WM_CHAR, static_cast<WPARAM>(letter), 1);
        };
    };
    // The state after each key but the last, and how the dialog ends.
    const auto press = [](const std::vector<DialogDriver::Step>& keys) {
        CVaskDialog dialog(DIALOG_NAME);
        CAutoCompleteEdit server;
        std::vector<DialogDriver::Step> steps = {[&](HWND) {
            server.SubclassDlgItem(FIELD_NAME, &dialog);
            for (const WCHAR* const text : {_T("other"), _T("files.org"), _T("files.com")})
                server.AddMRUListEntry(text);
        }};
        std::string states;
        for (const DialogDriver::Step& key : keys) {
            if (steps.size() > 1)
                steps.push_back([&](HWND box) { states += StateOf(box) + ", "; });
            steps.push_back(key);
        }
        DialogDriver driver(std::move(steps));
        const INT_PTR result = dialog.DoModal();
        return states + (result == IDOK ? "OK" : "Cancel");
    };
    const auto escape = Press(VK_ESCAPE), enter = Press(VK_RETURN);
    ExpectCases<std::string>({
        CASE(press({type('f'), escape, escape}), "f 2, f, Cancel"),
        CASE(press({type('f'), Press(VK_DOWN), enter, enter}), "f 2, files.com 2, files.com, OK"),
        CASE(press({type('f'), Press(VK_HOME), Press(VK_DELETE), enter}), "f 2, f 2, , OK"),
    });
}

} // namespace
