// Modal and modeless dialogs from opening to closing, driven by a user's keys and by messages.
#include <quorvel/framework/exceptions.h>
#include <quorvel/framework/win/dialog.h>

#include "dialogs.h"
#include "support/message_box_recorder.h"
#include "support/test.h"
#include "support/win/dialog_driver.h"

namespace {

class CFieldsDlg : public CDialog {
public:
    explicit CFieldsDlg(CWnd* parent = nullptr, UINT id = DIALOG_FIELDS) : CDialog(id, parent) {
        LoadAccelTable(ACCELERATORS_KEYS);
    }

    std::function<void(CFieldsDlg&)> m_init;
    std::function<void(CFieldsDlg&)> m_act; // called by the Act button
    std::function<bool(int count)> m_idle;  // returns whether to call it again
    std::string m_seen;
    bool m_actEnabled = true;

protected:
    BOOL OnInitDialog() override {
        CDialog::OnInitDialog();
        m_seen += "init ";
        if (m_init)
            m_init(*this);
        return TRUE;
    }
    void PostNcDestroy() override { m_seen += "ended "; }
    void OnAct() {
        m_seen += "act ";
        if (m_act)
            m_act(*this);
    }
    LRESULT OnIdle(WPARAM wParam, LPARAM count) {
        OnKickIdle(wParam, count);
        return m_idle && m_idle(static_cast<int>(count));
    }
    void OnCommandEnabled() { m_seen += "command "; }
    void OnUpdateAct(CCmdUI* ui) {
        ui->Enable(m_actEnabled);
        ui->SetText(m_actEnabled ? _T("On") : _T("Off"));
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CFieldsDlg, CDialog)
ON_MESSAGE(WM_KICKIDLE, &CFieldsDlg::OnIdle)
ON_BN_CLICKED(FIELD_BUTTON, &CFieldsDlg::OnAct)
ON_COMMAND(COMMAND_ENABLED, &CFieldsDlg::OnCommandEnabled)
ON_UPDATE_COMMAND_UI(FIELD_BUTTON, &CFieldsDlg::OnUpdateAct)
END_MESSAGE_MAP()

struct Owner : CWnd {
    Owner() {
        CreateEx(0, _T("Static"), nullptr, WS_POPUP | WS_VISIBLE, 0, 0, 9, 9, nullptr, nullptr);
        ::SetActiveWindow(m_hWnd);
    }
};

typedef DialogDriver::Step Step;

TEST(Dialog, EndsByWhatTheUserAndTheProgramDo) {
    const Step click = ClickOn(FIELD_BUTTON);
    const Step toButton = [](HWND box) {
        EXPECT_EQ(::GetDlgCtrlID(::GetFocus()), FIELD_NUMBER) << "Tab moves the focus";
        const HWND button = ::GetDlgItem(box, FIELD_BUTTON);
        ::SendMessageW(box, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(button), TRUE);
    };
    const Step enter = Press(VK_RETURN);
    const Step escape = Press(VK_ESCAPE);
    const Step ctrlK = PressWith(VK_CONTROL, 'K');
    const Step ownerIsDisabled = [](HWND box) {
        EXPECT_FALSE(::IsWindowEnabled(::GetWindow(box, GW_OWNER)));
    };
    // What happens at the start, in place of the steps, or when the Act button is clicked.
    typedef std::function<void(CFieldsDlg&)> Act;
    const Act none;
    const Act end = [](CFieldsDlg& d) { d.EndDialog(7); };
    const Act throwing = [](CFieldsDlg&) { AfxThrowMemoryException(); };
    const Act again = [](CFieldsDlg& d) {
        EXPECT_EQ(ErrorOf([&] { return d.DoModal() != -1; }), DWORD{ERROR_ALREADY_EXISTS});
    };
    const Act destroyOwner = [](CFieldsDlg& d) {
        ::DestroyWindow(::GetWindow(d.m_hWnd, GW_OWNER));
    };
    const std::tuple<const char*, std::vector<Step>, INT_PTR, const char*, Act> rows[] = {
        {"Enter", Steps(ownerIsDisabled, enter), IDOK, "init ended ", none},
        {"the default button of the moment", Steps(Press(VK_TAB), toButton, enter, escape),
         IDCANCEL, "init act ended ", none},
        {"EndDialog at its start", Steps(), 7, "init ended ", end},
        {"throws at its start", Steps(), -1, "init ended ", throwing},
        {"throws", Steps(click, escape), IDCANCEL, "init act ended ", throwing},
        {"the owner destroyed", Steps(click), -1, "init act ended ", destroyOwner},
        {"a second DoModal", Steps(click, escape), IDCANCEL, "init act ended ", again},
        {"accelerator", Steps(ctrlK, escape), IDCANCEL, "init command ended ", none},
    };
    MessageBoxRecorder app;
    for (const auto& [label, steps, result, seen, act] : rows) {
        SCOPED_TRACE(label);
        Owner owner;
        CFieldsDlg dialog(&owner);
        (steps.empty() ? dialog.m_init : dialog.m_act) = act;
        const DialogDriver driver(steps);
        EXPECT_EQ(dialog.DoModal(), result);
        EXPECT_TRUE(driver.HasRun());
        EXPECT_EQ(dialog.m_seen, seen);
        EXPECT_EQ(app.Take().size(), std::string(label).find("throws") == 0 ? 1u : 0u);
        if (owner.m_hWnd != nullptr) {
            EXPECT_TRUE(owner.IsWindowEnabled());
            EXPECT_EQ(::GetActiveWindow(), owner.m_hWnd);
        }
    }
}

TEST(Dialog, LeavesItsOwnerAsItWas) {
    Owner owner;
    CFieldsDlg missing(&owner, DIALOG_MISSING);
    EXPECT_EQ(ErrorOf([&] { return missing.DoModal() != -1; }),
              DWORD{ERROR_RESOURCE_NAME_NOT_FOUND});
    EXPECT_TRUE(owner.IsWindowEnabled());
    CWnd child;
    ASSERT_TRUE(child.Create(_T("Static"), nullptr, 0, CRect(0, 0, 5, 5), &owner, 1));
    owner.EnableWindow(FALSE);
    const DialogDriver driver({Press(VK_ESCAPE)});
    EXPECT_EQ(CFieldsDlg(&child).DoModal(), IDCANCEL);
    EXPECT_FALSE(owner.IsWindowEnabled());
}

TEST(Dialog, EndsByQuittingAndPassesThatOn) {
    CFieldsDlg dialog;
    const DialogDriver driver({[](HWND) { ::PostQuitMessage(3); }});
    EXPECT_EQ(dialog.DoModal(), -1);
    MSG message = {};
    ASSERT_TRUE(::PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 3u);
}

TEST(Dialog, IdleTimeShowsTheStateOfCommands) {
    CFieldsDlg dialog;
    dialog.m_idle = [&](int count) {
        EXPECT_LE(count, 2) << "as long as it asks";
        const HWND button = ::GetDlgItem(dialog.m_hWnd, FIELD_BUTTON);
        if (dialog.m_actEnabled && count == 2) {
            ::SetFocus(button);
            dialog.m_actEnabled = false;
            dialog.PostMessage(WM_NULL); // idle time follows a message
            return false;
        }
        if (!dialog.m_actEnabled) {
            EXPECT_EQ(count, 0) << "counted from the last message";
            EXPECT_TRUE(!::IsWindowEnabled(button) && TextOf(button) == _T("Off"));
            EXPECT_EQ(::GetDlgCtrlID(::GetFocus()), IDOK) << "passes the focus on";
            dialog.EndDialog(6);
        }
        return dialog.m_actEnabled;
    };
    const DialogDriver driver({}); // ends a dialog that hangs
    EXPECT_EQ(dialog.DoModal(), 6);
}

TEST(Dialog, ModelessOnesHaveTheProgramsIdleTimeAndLiveUntilTheyAreDestroyed) {
    MessageBoxRecorder app;
    CFieldsDlg dialog;
    ASSERT_TRUE(dialog.Create(DIALOG_FIELDS));
    EXPECT_EQ(dialog.DoModal(), -1) << "has a window";
    dialog.ShowWindow(SW_SHOW);
    dialog.m_idle = [&](int count) {
        if (count == 2)
            ::PostQuitMessage(5);
        return count < 2;
    };
    EXPECT_EQ(app.Run(), 5);
    EXPECT_EQ(TextOf(::GetDlgItem(dialog.m_hWnd, FIELD_BUTTON)), _T("On"));
    dialog.SendMessage(WM_COMMAND, IDOK);
    EXPECT_FALSE(dialog.IsWindowVisible());
    EXPECT_TRUE(dialog.DestroyWindow());
    dialog.m_init = [](CFieldsDlg&) { AfxThrowMemoryException(); };
    EXPECT_FALSE(dialog.Create(DIALOG_FIELDS));
    EXPECT_EQ(app.Take().size(), 1u);
    dialog.m_init = [](CFieldsDlg& opening) { opening.EndDialog(1); };
    EXPECT_FALSE(dialog.Create(DIALOG_FIELDS));
    EXPECT_EQ(dialog.m_seen, "init ended init ended init ended ");
}

} // namespace
