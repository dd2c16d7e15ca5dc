// The dialog of the check for a new version.
#include <quorvel/frame/module.h>
#include <quorvel/res/message_ids.h>
#include <quorvel/res/resource_ids.h>
#include <quorvel/update/win/update_dlg.h>

#include "update/win/scripted_dialog.h"

namespace {

typedef DialogDriver::Step Step;

class NewVersionDlg : public testing::Test, protected CheckSurroundings {
protected:
    ~NewVersionDlg() override { QuorvelSetOpenExternalLinkCallback(nullptr); }
    void Run(std::vector<Step> steps) {
        dialog =
            std::make_unique<Scripted<CUpdateDlg>>(source, UINT{quorvel::kTextUpdatesProgressTitle},
                                                   path, CVersionNumber(1, 2, 3, 4), nullptr);
        const DialogDriver driver(std::move(steps));
        EXPECT_EQ(dialog->DoModal(), IDCANCEL);
        EXPECT_TRUE(driver.HasRun());
        EXPECT_EQ(source.m_alive, 0);
        EXPECT_FALSE(HasTemporaryFiles());
        source.m_now += COleDateTimeSpan(1.0);
    }

    BoxScript boxes;
    std::unique_ptr<Scripted<CUpdateDlg>> dialog;
};

const std::string kError = "(30) An error has occurred while checking for updates.\r\n\r\n";

TEST_F(NewVersionDlg, SaysOnceHowTheVersionsCompareAndEnds) {
    const auto versions = [](const std::string& latest) {
        return "\r\n\r\nYour version: 1.2.3.4\r\nLatest version: " + latest + "\n";
    };
    const std::string ok = "HTTP/1.1 200 OK\r\n\r\n";
    const struct {
        std::string response;
        std::string box;
    } rows[] = {
        {ok + "1.2.3.5", "(40) A new version of the program is available." + versions("1.2.3.5")},
        {ok + "1.2.3.4",
         "(40) You are using the latest official version of the program." + versions("1.2.3.4")},
        {ok + "1.2.3.3", "(40) You are using a newer version than the latest official version of "
                         "the program." +
                             versions("1.2.3.3")},
        {ok + "1.2.3.4 or so",
         "(30) The version number retrieved from the update site is invalid.\n"},
        {"HTTP/1.1 404 Not Found\r\n\r\n", kError +
                                               "The server has not found anything that matches "
                                               "the requested URI.\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.response);
        bool wasVisible = true;
        boxes.m_meanwhile = [&] { wasVisible = dialog->IsWindowVisible() != FALSE; };
        Run({[&](HWND box) {
            EXPECT_EQ(Narrow(TextOf(box)), "Check For Updates Progress");
            EXPECT_EQ(ItemText(box, QUORVEL_UPDATES_PROGRESS_TEXT),
                      "Checking for updates. Please wait...");
            EXPECT_FALSE(dialog->SetStatus(nullptr));
            EXPECT_FALSE(dialog->SetStatus(UINT{1}));
            EXPECT_TRUE(dialog->SetStatus(UINT{quorvel::kTextUpdatesConnecting}));
            EXPECT_EQ(ItemText(box, QUORVEL_UPDATES_PROGRESS_TEXT),
                      "Connecting to updates server...");
            source.Answer(StatusMessages{box}, row.response, 50000);
        }});
        EXPECT_EQ(boxes.Lines(), row.box);
        EXPECT_FALSE(wasVisible);
    }
}

TEST_F(NewVersionDlg, ACheckThatMayNotStartEndsTheDialog) {
    static const auto allowsNothing = [](const WCHAR*) { return 0; };
    const struct {
        const WCHAR* url;
        int secondsSinceLast;
        DWORD createError, connectError;
        bool isAllowed;
        std::string box;
    } rows[] = {
        {_T("host"), 60, 0, 0, true, kError + "The updates file URL is invalid.\n"},
        {_T("http://h/"), 14, 0, 0, true,
         "(40) You must wait at least 15 seconds before checking for updates again.\n"},
        {_T("http://h/"), 60, 1, 0, true,
         kError + "The VaskSocket class has not been initialized.\n"},
        {_T("http://h/"), 60, 0, 10022, true, kError + "Error 10022.\n"},
        {_T("http://h/"), 60, 0, 0, false, ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.box);
        AfxWriteProfileCheckForUpdatesURL(path, row.url);
        AfxWriteProfileCheckForUpdatesLastChecked(
            path, source.m_now - COleDateTimeSpan(0, 0, 0, row.secondsSinceLast));
        source.m_createError = row.createError;
        source.m_connectError = row.connectError;
        QuorvelSetOpenExternalLinkCallback(row.isAllowed ? nullptr : +allowsNothing);
        Run({});
        EXPECT_EQ(boxes.Lines(), row.box);
    }
}

// The first check goes on, and so the dialog stays.
TEST_F(NewVersionDlg, ASecondCheckIsRefusedBesideTheFirst) {
    Run({[&](HWND box) {
        EXPECT_FALSE(dialog->CheckForUpdates());
        EXPECT_EQ(boxes.Lines(), kError + "A connection socket is already active.\n");
        EXPECT_TRUE(dialog->IsWindowVisible());
        boxes.m_meanwhile = [] { EXPECT_NE(::GetActiveWindow(), nullptr); };
        source.Answer(StatusMessages{box}, "HTTP/1.1 200 OK\r\n\r\n1.2.3.5");
    }});
    EXPECT_EQ(boxes.Lines().find("(40) A new version"), 0u);
}

TEST_F(NewVersionDlg, AHookThatClosesItStartsNoCheck) {
    static std::function<void()> s_meanwhile;
    QuorvelSetOpenExternalLinkCallback([](const WCHAR*) {
        s_meanwhile();
        return 1;
    });
    s_meanwhile = [&] { dialog->DestroyWindow(); };
    dialog = std::make_unique<Scripted<CUpdateDlg>>(source, 0, path, CVersionNumber(1, 2, 3, 4),
                                                    nullptr);
    dialog->DoModal();
    EXPECT_EQ(source.m_count, 0);
    EXPECT_EQ(boxes.Lines(), "");
    EXPECT_EQ(AfxGetProfileCheckForUpdatesLastChecked(path), COleDateTime());
}

TEST_F(NewVersionDlg, CancelledInAnyWayItSaysNothing) {
    const std::pair<const char*, Step> ways[] = {
        {"Enter on Cancel", Press(VK_RETURN)},
        {"Escape", Press(VK_ESCAPE)},
        {"close box", [](HWND box) { ::PostMessageW(box, WM_SYSCOMMAND, SC_CLOSE, 0); }},
        {"host",
         [&](HWND) {
             dialog->Close();
             dialog->Close();
         }},
        {"session",
         [](HWND box) {
             ::SendMessageW(box, WM_ENDSESSION, TRUE, 0);
             ::PostMessageW(box, WM_COMMAND, IDCANCEL, 0);
         }},
    };
    for (const auto& [way, cancel] : ways) {
        SCOPED_TRACE(way);
        Run({[&](HWND) {
                 EXPECT_EQ(source.m_alive, 1);
                 EXPECT_TRUE(HasTemporaryFiles());
             },
             [](HWND box) { ::SendMessageW(box, WM_COMMAND, IDOK, 0); }, // does nothing
             cancel});
        EXPECT_EQ(boxes.Lines(), "");
    }
    EXPECT_FALSE(dialog->SetStatus(_T("closed")));
    EXPECT_FALSE(dialog->CheckForUpdates());
}

} // namespace
