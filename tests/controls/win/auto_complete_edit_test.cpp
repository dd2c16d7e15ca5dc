// The edit that completes what was typed before, bound to the platform's auto-completion.
#include <quorvel/controls/win/auto_complete_edit.h>

#include "support/registry.h"
#include "support/test.h"
#include "support/window_driver.h"

namespace {

class AutoCompleteEdit : public testing::Test {
protected:
    AutoCompleteEdit() {
        EXPECT_GE(::CoInitialize(nullptr), 0);
        m_parent = ::CreateWindowExW(0, _T("Static"), nullptr, WS_POPUP | WS_VISIBLE, 0, 0, 200, 80,
                                     nullptr, nullptr, nullptr, nullptr);
        m_window = ::CreateWindowExW(0, _T("Edit"), _T("typed"), WS_CHILD | WS_VISIBLE, 0, 0, 100,
                                     20, m_parent, nullptr, nullptr, nullptr);
    }
    ~AutoCompleteEdit() override {
        ::DestroyWindow(m_parent);
        ::CoUninitialize();
    }
    HWND m_parent;
    HWND m_window;
};

TEST_F(AutoCompleteEdit, IsBoundWhenItIsSubclassed) {
    CAutoCompleteEdit edit;
    DWORD options = 7;
    EXPECT_FALSE(edit.IsAutoCompleteObjectValid());
    EXPECT_FALSE(edit.GetOptions(options));
    EXPECT_EQ(options, 0u);
    EXPECT_FALSE(edit.EnableAutoCompletion(TRUE));
    EXPECT_FALSE(edit.AddActiveTextToMRUList()) << "without a window";

    EXPECT_TRUE(edit.SubclassWindow(m_window));
    EXPECT_TRUE(edit.IsAutoCompleteObjectValid());
    EXPECT_TRUE(edit.GetOptions(options));
    EXPECT_EQ(options, DWORD{CAutoCompleteEdit::DEFAULT_OPTIONS});
    EXPECT_TRUE(edit.EnableAutoCompletion(FALSE));
    EXPECT_FALSE(edit.IsAutoCompletionEnabled());
    EXPECT_TRUE(edit.EnableAutoCompletion(TRUE));
    EXPECT_TRUE(edit.IsAutoCompletionEnabled());
    ::DestroyWindow(m_window);
    EXPECT_FALSE(edit.IsAutoCompleteObjectValid());
    EXPECT_TRUE(edit.IsMRUListValid()) << "the list outlives the window";
}

TEST_F(AutoCompleteEdit, KeepsItsTextsAtAPath) {
    TestKey key;
    const CRegistryPath path(HKEY_CURRENT_USER, key.Path());
    {
        CAutoCompleteEdit edit;
        EXPECT_TRUE(edit.SubclassWindow(m_window));
        EXPECT_TRUE(edit.AddMRUListEntry(_T("older")));
        EXPECT_TRUE(edit.AddActiveTextToMRUList());
        EXPECT_FALSE(edit.AddMRUListEntry(nullptr));
        EXPECT_FALSE(edit.AddMRUListEntry(_T("   ")));
        EXPECT_FALSE(edit.SetMRUListSizeLimit(51));
        EXPECT_TRUE(edit.SaveState(path));
        EXPECT_FALSE(edit.SaveState(CRegistryPath()));
        edit.UnsubclassWindow(); // the object goes before the window that it completes
    }
    CAutoCompleteEdit other;
    EXPECT_TRUE(other.LoadState(path));
    EXPECT_TRUE(other.RemoveMRUListEntry(_T("typed")));
    EXPECT_TRUE(other.RemoveMRUListEntry(_T("older")));
    EXPECT_FALSE(other.RemoveMRUListEntry(_T("older")));
}

} // namespace
