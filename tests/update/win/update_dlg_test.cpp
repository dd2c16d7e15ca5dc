// The dialog of the check for a new version.
#include <quorvel/res/message_ids.h>
#include <quorvel/res/resource_ids.h>
#include <quorvel/update/win/update_dlg.h>

#include "update/win/scripted_dialog.h"

namespace {

typedef DialogDriver::Step Step;

class NewVersionDlg : public testing::Test, protected CheckSurroundings {
protected:
    void Run(std::vector<Step> steps) {
        dialog =
            std::make_unique<Scripted<CUpdateDlg>>(source, UINT{quorvel::kTextUpdatesProgressTitle},
                                                   path, CVersionNumber(1, 2, 3, 4), nullptr);
        dialog->SetStrict(TRUE);
        const DialogDriver driver(std::move(steps));
        dialog->DoModal();
        EXPECT_TRUE(driver.HasRun());
        EXPECT_EQ(source.m_alive, 0);
        EXPECT_FALSE(HasTemporaryFiles());
        source.PassTime();
    }

    BoxScript boxes;
    std::unique_ptr<Scripted<CUpdateDlg>> dialog;
};

TEST_F(NewVersionDlg, ShowsOnceHowTheVersionsCompareAndEnds) {
    const std::pair<std::string, std::string> rows[] = {
        {Response("1.2.3.5"), "(40) A new version of the program is available."},
        {Response("1.2.3.5", LengthField(8)), ErrorBox(kIncomplete)},
    };
    for (const auto& [response, shown] : rows) {
        bool wasVisible = true;
        Run({[&](HWND box) {
            EXPECT_EQ(TextOf(box), _T("Check For Updates Progress"));
            EXPECT_FALSE(dialog->CheckForUpdates()) << "the first check continues";
            EXPECT_EQ(boxes.Lines(), ErrorBox("A connection socket is already active.\n"));
            EXPECT_TRUE(dialog->IsWindowVisible());
            EXPECT_FALSE(dialog->SetStatus(nullptr) || dialog->SetStatus(UINT{1}));
            EXPECT_TRUE(dialog->SetStatus(UINT{quorvel::kTextUpdatesConnecting}));
            EXPECT_EQ(ItemText(box, QUORVEL_UPDATES_PROGRESS_TEXT),
                      "Connecting to updates server...");
            boxes.m_meanwhile = [&] { wasVisible = dialog->IsWindowVisible() != FALSE; };
            source.Answer(StatusMessages{box}, response);
        }});
        EXPECT_EQ(boxes.Lines().find(shown), 0u);
        EXPECT_FALSE(wasVisible);
    }
}

TEST_F(NewVersionDlg, ACheckThatMayNotStartEndsTheDialog) {
    source.m_connectError = 10022;
    Run({});
    EXPECT_EQ(boxes.Lines(), ErrorBox("Error 10022.\n"));
    source.m_count = 0;
    CallInLinkHook([&] { dialog->DestroyWindow(); });
    Run({});
    EXPECT_EQ(source.m_count, 0);
    EXPECT_EQ(boxes.Lines(), "");
}

TEST_F(NewVersionDlg, CancelledInAnyWayItSaysNothing) {
    const std::pair<const char*, Step> ways[] = {
        {"Enter on Cancel", Press(VK_RETURN)},
        {"close box", [](HWND box) { ::PostMessageW(box, WM_SYSCOMMAND, SC_CLOSE, 0); }},
        {"host", [&](HWND) { dialog->Close(); }},
        {"session", EndSession},
    };
    for (const auto& [way, cancel] : ways) {
        SCOPED_TRACE(way);
        Run({[&](HWND) { EXPECT_TRUE(source.m_alive == 1 && HasTemporaryFiles()); },
             [](HWND box) { ::SendMessageW(box, WM_COMMAND, IDOK, 0); }, // does nothing
             cancel});
        EXPECT_EQ(boxes.Lines(), "");
    }
    EXPECT_FALSE(dialog->SetStatus(_T("closed")));
    EXPECT_FALSE(dialog->CheckForUpdates());
}

} // namespace
