// The dialog of the check for updates, driven by a user's keys and clicks and by the messages of
// its connections.
#include <quorvel/framework/win/list_ctrl.h>
#include <quorvel/res/resource_ids.h>
#include <quorvel/update/win/check_for_updates_dlg.h>

#include "support/date_time.h"
#include "support/win/list_cell.h"
#include "update/win/scripted_dialog.h"

#include <commctrl.h>

namespace {

typedef DialogDriver::Step Step;

std::string Item(const std::string& title, const std::string& rest) {
    return "<item><title>" + title + "</title>" + rest + "</item>";
}
const std::string kOld =
    Listing("2024-01-01",
            Item("Old &amp; good", "<pubDate>2024-01-01</pubDate><priority>HIGH</priority>"
                                   "<link>http://h/?a&amp;b</link>"
                                   "<description> &lt;b&gt;Two\nlines&lt;/b&gt; </description>") +
                Item("Newest", "<pubDate>2024-01-03</pubDate><priority>low</priority>") +
                Item("Between", "<pubDate>2024-01-02</pubDate><description>  </description>"));
const std::string kQuestion = "(44) There are new updates available as of 3/12/2024 9:30:00 AM.  "
                              "Would you like to download them now?\n";

class Dlg : public Scripted<CCheckForUpdatesDlg> {
public:
    using Scripted<CCheckForUpdatesDlg>::Scripted;
    using CCheckForUpdatesDlg::LoadLocalUpdatesFile;
    using CCheckForUpdatesDlg::UpdateLastCheckedText;
    using CCheckForUpdatesDlg::UpdatePublishedText;
};

class UpdatesDlg : public testing::Test, protected CheckSurroundings {
protected:
    UpdatesDlg() { folder.Write(_T("local.xml"), kOld); }

    void Open(BOOL autoCheck = FALSE) {
        dialog = std::make_unique<Dlg>(source, path, local, autoCheck, nullptr, nullptr);
    }
    // The last step closes the dialog.
    void RunToEnd(const std::vector<Step>& steps) {
        const DialogDriver driver(steps);
        dialog->DoModal();
        EXPECT_TRUE(driver.HasRun());
        EXPECT_EQ(source.m_alive, 0);
        EXPECT_FALSE(HasTemporaryFiles());
    }
    void RunAgain(std::vector<Step> steps) {
        steps.push_back(Press(VK_ESCAPE));
        RunToEnd(steps);
    }
    void Run(std::vector<Step> steps, BOOL autoCheck = FALSE) {
        Open(autoCheck);
        RunAgain(std::move(steps));
    }
    HWND Child(int id) const { return ::GetDlgItem(dialog->m_hWnd, id); }
    std::string Text(int id) const { return Narrow(TextOf(Child(id))); }
    CUpdateListingListCtrl& List() const {
        return *static_cast<CUpdateListingListCtrl*>(
            CWnd::FromHandlePermanent(Child(QUORVEL_UPDATES_LIST)));
    }
    // The visible window over the dialog, or null.
    HWND Pane() const {
        for (HWND box = nullptr;
             (box = ::FindWindowExW(nullptr, box, _T("#32770"), nullptr)) != nullptr;) {
            if (::GetWindow(box, GW_OWNER) == dialog->m_hWnd && ::IsWindowVisible(box))
                return box;
        }
        return nullptr;
    }
    std::string Rows() const {
        std::string rows;
        for (int row = 0; row < List().GetItemCount(); ++row) {
            for (int column = 0; column < 3; ++column)
                rows += (column > 0 ? "|" : "") + Narrow(CellOf(List().m_hWnd, row, column));
            rows += List().GetItemState(row, LVIS_SELECTED) != 0 ? " *\n" : "\n";
        }
        return rows;
    }
    std::string Details() const {
        return Text(QUORVEL_UPDATES_TITLE) + "|" + Text(QUORVEL_UPDATES_DATE) + "|" +
               Text(QUORVEL_UPDATES_DESCRIPTION);
    }
    Step Answer(const std::string& response) {
        return [this, response](HWND) { source.Answer(StatusMessages{dialog->m_hWnd}, response); };
    }

    BoxScript boxes{IDYES};
    std::unique_ptr<Dlg> dialog;
};

TEST_F(UpdatesDlg, ShowsTheLocalFileAndTheSelectedEntry) {
    Run({[&](HWND) {
             EXPECT_EQ(Rows() + Details(), "|Newest|1/3/2024 *\n|Between|1/2/2024\n"
                                           "|Old & good|1/1/2024\nNewest|1/3/2024|");
             EXPECT_EQ(Text(QUORVEL_UPDATES_PUBLISHED),
                       "Local update file is dated 1/1/2024 1:00:00 AM.");
             EXPECT_EQ(Pane(), nullptr);
         },
         Press(VK_END),
         [&](HWND) {
             EXPECT_EQ(Details(), "Old & good|1/1/2024|<b>Two\r\nlines</b>");
             EXPECT_EQ(Text(QUORVEL_UPDATES_LINK), "http://h/?a&b");
             ::SetFocus(List().m_hWnd);
             ::PostMessageW(List().m_hWnd, WM_CHAR, 'b', 1);
         },
         [&](HWND) {
             EXPECT_EQ(Details(), "Between|1/2/2024|");
             dialog->UpdateLastCheckedText(COleDateTime(2024, 1, 5, 10, 0, 0));
             EXPECT_EQ(Text(QUORVEL_UPDATES_LAST_CHECKED),
                       "Last checked for updates on 1/5/2024 11:00:00 AM.");
             dialog->UpdatePublishedText(COleDateTime(2024, 2, 1, 0, 0, 0));
             EXPECT_EQ(Text(QUORVEL_UPDATES_PUBLISHED),
                       "Local update file is dated 2/1/2024 1:00:00 AM.");
             folder.Write(_T("local.xml"), "<?xml version='1.0'?><rss><channel/></rss>");
             EXPECT_FALSE(dialog->LoadLocalUpdatesFile(FALSE));
             EXPECT_EQ(boxes.Lines(), "");
             EXPECT_FALSE(dialog->LoadLocalUpdatesFile(TRUE));
             EXPECT_EQ(Details(), "Between|1/2/2024|") << "a failed load changes nothing";
         }});
    EXPECT_EQ(boxes.Lines(), "(30) An error has occurred while loading the local updates file."
                             "\r\n\r\nThe file is missing the <lastBuildDate> tag.\n");
    EXPECT_FALSE(dialog->LoadLocalUpdatesFile(TRUE)) << "closed";
}

TEST_F(UpdatesDlg, ACheckShowsHowFarItIsAndThenTheNewListing) {
    const std::string body = Listing("2024-01-01", Item("New", "<pubDate>2024-03-01</pubDate>"));
    const std::string response = Response(body, LengthField(body.size()));
    Run({ClickOn(QUORVEL_UPDATES_CHECK),
         [&](HWND) {
             EXPECT_EQ(::GetDlgItem(Pane(), QUORVEL_UPDATES_PROGRESS_BAR), nullptr);
             EXPECT_EQ(ItemText(Pane(), QUORVEL_UPDATES_PROGRESS_TEXT),
                       "Connecting to updates server...");
             Click(dialog->m_hWnd, QUORVEL_UPDATES_CHECK);
             EXPECT_EQ(boxes.Lines(), ErrorBox("A connection socket is already active.\n"));
         },
         Answer(kHead),
         [&](HWND) {
             EXPECT_EQ(boxes.Lines(), kQuestion);
             source.m_last->Receive(response.substr(0, 60));
             const StatusMessages messages{dialog->m_hWnd};
             messages.OnSocketStatus(source.m_last, quorvel::Http::statusHeaderParsed, 0);
             messages.OnSocketStatus(source.m_last, quorvel::Http::statusReceived, 60);
             EXPECT_EQ(ItemText(Pane(), QUORVEL_UPDATES_PROGRESS_TEXT),
                       "Connected to updates server. Downloading the latest updates...");
             EXPECT_TRUE(ItemText(Pane(), QUORVEL_UPDATES_PROGRESS_FIGURES)
                             .starts_with("Downloaded 60 of " + std::to_string(response.size())));
             EXPECT_EQ(
                 ::SendDlgItemMessageW(Pane(), QUORVEL_UPDATES_PROGRESS_BAR, PBM_GETPOS, 0, 0), 60);
             source.Answer(messages, response.substr(60));
         },
         [&](HWND) {
             EXPECT_EQ(Pane(), nullptr);
             EXPECT_EQ(Rows() + Details(), "|New|3/1/2024 *\nNew|3/1/2024|");
             EXPECT_EQ(source.m_alive, 0);
         }});
    EXPECT_EQ(LocalFile(), body);
    EXPECT_EQ(boxes.Lines(), "");
}

TEST_F(UpdatesDlg, ChecksByItselfWhenItIsFirstShown) {
    Run({[&](HWND) {
             EXPECT_EQ(source.m_alive, 1);
             dialog->ShowWindow(SW_HIDE);
             dialog->ShowWindow(SW_SHOW);
         },
         [&](HWND) {
             EXPECT_EQ(boxes.Lines(), "") << "a second check would say that one is running";
             ::PostMessageW(::GetDlgItem(Pane(), IDCANCEL), WM_KEYDOWN, VK_ESCAPE, 1);
         },
         [&](HWND) {
             EXPECT_EQ(Pane(), nullptr);
             EXPECT_EQ(::GetActiveWindow(), dialog->m_hWnd);
             source.Release(StatusMessages{dialog->m_hWnd});
             EXPECT_EQ(source.m_alive, 0);
             source.PassTime();
             dialog->SetStrict(TRUE);
         },
         ClickOn(QUORVEL_UPDATES_CHECK), Answer(kHead), Answer(Response(kOld, LengthField(1000)))},
        TRUE);
    EXPECT_EQ(boxes.Lines(), kQuestion + ErrorBox(kIncomplete + "\n"));
}

TEST_F(UpdatesDlg, ClosedInEveryStateItLeavesNothing) {
    // With the connections of a check whose question or link hook closes the dialog. A key only
    // hides the window at first. A click at the close box is posted, so the answer comes before.
    const std::tuple<const char*, std::function<void(HWND)>, int, int> ways[] = {
        {"key", [](HWND box) { ::SendMessageW(box, WM_COMMAND, IDCANCEL, 0); }, 1, 1},
        {"mouse", [](HWND box) { ::SendMessageW(box, WM_SYSCOMMAND, SC_CLOSE, 0); }, 2, 1},
        {"host", [&](HWND) { dialog->DestroyWindow(); }, 1, 0},
        {"platform", [](HWND box) { ::DestroyWindow(box); }, 1, 0},
        {"session", EndSession, 1, 0},
    };
    const Step check = ClickOn(QUORVEL_UPDATES_CHECK), answer = Answer(kHead);
    for (const auto& [way, closeBox, inQuestion, inHook] : ways) {
        SCOPED_TRACE(way);
        const auto close = [this, each = closeBox] { each(dialog->m_hWnd); };
        const Step closeNow = [&](HWND) { close(); };
        const Step closeInQuestion = [&](HWND) { boxes.m_meanwhile = close; };
        const Step closeInHook = [&](HWND) { CallInLinkHook(close); };
        const std::tuple<const char*, std::vector<Step>, int> states[] = {
            {"idle", {closeNow}, 0},
            {"checking", {check, closeNow}, 1},
            {"asking", {check, closeInQuestion, answer}, inQuestion},
            {"downloading", {check, answer, closeNow}, 2},
            {"in the hook", {closeInHook, check}, inHook},
        };
        for (const auto& [state, steps, connections] : states) {
            source.m_count = 0;
            Open();
            RunToEnd(steps);
            EXPECT_EQ(source.m_count, connections) << state;
            source.PassTime();
        }
        QuorvelSetOpenExternalLinkCallback(nullptr);
        EXPECT_EQ(boxes.Lines(), kQuestion + kQuestion);
    }
}

TEST_F(UpdatesDlg, OpenedAgainItHasTheSameColumnsAndNoRowsOfTheLastTime) {
    Run({[&](HWND) {
        NMHEADERW click = {};
        click.hdr.hwndFrom = List().GetHeaderCtrl()->m_hWnd;
        click.hdr.code = HDN_ITEMCLICKW;
        click.iItem = CUpdateListingListCtrl::COLUMN_PRIORITY;
        List().SendMessage(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&click));
        EXPECT_EQ(Rows(), "|Old & good|1/1/2024\n|Between|1/2/2024\n|Newest|1/3/2024 *\n");
        List().SetColumnWidth(1, 77);
    }});
    std::string rows = "|Old & good|1/1/2024 *\n|Between|1/2/2024\n|Newest|1/3/2024\n";
    const auto look = [&](HWND) {
        EXPECT_EQ(Rows(), rows);
        EXPECT_EQ(List().GetColumnWidth(1), 77);
        EXPECT_EQ(::IsWindowVisible(Child(QUORVEL_UPDATES_LINK)) != FALSE, !rows.empty());
    };
    RunAgain({look});
    ::DeleteFileW(local);
    rows.clear();
    RunAgain({look});
}

// The link is disabled without its row. A disabled control would keep all keys from the dialog.
TEST_F(UpdatesDlg, TheKeyboardStaysInTheDialogWhenTheLinkIsDisabled) {
    Run({Press(VK_END), [&](HWND) { ::SetFocus(Child(QUORVEL_UPDATES_LINK)); },
         [&](HWND) {
             EXPECT_EQ(::GetFocus(), Child(QUORVEL_UPDATES_LINK));
             folder.Write(_T("local.xml"), Listing("2024-01-01"));
             EXPECT_TRUE(dialog->LoadLocalUpdatesFile(TRUE));
             EXPECT_EQ(Rows() + Details(), "||");
             EXPECT_EQ(::GetFocus(), List().m_hWnd);
         }});
}

// What a site may publish: it is shown as a text, and opened only as what it is.
TEST_F(UpdatesDlg, TextsAndLinksOfAnEntryAreShownAsSuch) {
    const std::string longLink = "http://h/" + std::string(1200, 'x');
    const struct {
        std::string title, shownTitle, link, shownLink, opened;
    } rows[] = {
        {"script", "script", "javascript:alert(1)", "javascript:alert(1)", ""},
        {"around", "around", "\n http://h/ \n", "http://h/", "http://h/"},
        {"long", "long", longLink, longLink.substr(0, 1000) + "\x85", longLink},
        {"&amp;mnemonic &lt;b>\n", "&mnemonic <b> ", "", "", ""},
    };
    static std::string s_opened;
    QuorvelSetOpenExternalLinkCallback([](const WCHAR* link) {
        s_opened += Narrow(link);
        return 0;
    });
    for (const auto& row : rows) {
        SCOPED_TRACE(row.title);
        s_opened.clear();
        folder.Write(_T("local.xml"),
                     Listing("2024-01-01", Item(row.title, "<link>" + row.link + "</link>")));
        Run({[&](HWND) {
            EXPECT_EQ(Text(QUORVEL_UPDATES_TITLE), row.shownTitle);
            const HWND link = Child(QUORVEL_UPDATES_LINK);
            EXPECT_EQ(::IsWindowVisible(link) ? Narrow(TextOf(link)) : "", row.shownLink);
            EXPECT_EQ(::IsWindowEnabled(link) != FALSE, !row.opened.empty());
            for (const UINT message : {WM_KEYDOWN, WM_KEYUP})
                ::SendMessageW(link, message, VK_RETURN, 1);
        }});
        EXPECT_EQ(s_opened, row.opened);
    }
    EXPECT_EQ(boxes.Lines(), "");
}

TEST_F(UpdatesDlg, AHugeListingIsShown) {
    std::string items = Item(std::string(1 << 20, 'T'), "<pubDate>2025-01-01</pubDate>");
    for (int i = 0; i < 100000; ++i)
        items += "<item><title>t</title></item>";
    folder.Write(_T("local.xml"), Listing("2024-01-01", items));
    Run({[&](HWND) {
             EXPECT_EQ(List().GetItemCount(), 100001);
             ::RedrawWindow(List().m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
         },
         Press(VK_END),
         [&](HWND) { EXPECT_EQ(Details(), std::string(1000, 'T') + "\x85|1/1/2025|"); }});
}

TEST_F(UpdatesDlg, ResetEmptiesTheListAndSettingsAreThoseOfItsPath) {
    const auto wait = [](HWND) {}; // a dialog is shown when no message waits
    Run({ClickOn(QUORVEL_UPDATES_RESET), [&](HWND) { EXPECT_EQ(Rows() + Details(), "||"); },
         ClickOn(QUORVEL_UPDATES_OPEN_SETTINGS), wait, wait,
         [](HWND box) { ::SetDlgItemTextW(box, QUORVEL_UPDATES_URL, _T("http://new/")); },
         Press(VK_RETURN), wait});
    EXPECT_EQ(boxes.m_boxes.size(), 1u);
    EXPECT_FALSE(folder.Has(_T("local.xml")));
    EXPECT_EQ(AfxGetProfileCheckForUpdatesURL(path), _T("http://new/"));
}

TEST_F(UpdatesDlg, NewEntriesAreBold) {
    Run({[&](HWND) {
        List().GetUpdateListingItem(1)->SetNew(TRUE);
        CClientDC dc(&List());
        NMLVCUSTOMDRAW draw = {};
        draw.nmcd.hdr = {List().m_hWnd, QUORVEL_UPDATES_LIST, static_cast<UINT>(NM_CUSTOMDRAW)};
        draw.nmcd.hdc = dc;
        draw.nmcd.dwDrawStage = CDDS_ITEMPREPAINT;
        const auto weightOf = [&](DWORD_PTR row) {
            ::SelectObject(dc, ::GetStockObject(SYSTEM_FIXED_FONT));
            draw.nmcd.dwItemSpec = row;
            dialog->SendMessage(WM_NOTIFY, QUORVEL_UPDATES_LIST, reinterpret_cast<LPARAM>(&draw));
            TEXTMETRICW metrics;
            ::GetTextMetricsW(dc, &metrics);
            ::SelectObject(dc, ::GetStockObject(SYSTEM_FONT));
            return metrics.tmWeight;
        };
        EXPECT_LT(weightOf(0), FW_BOLD);
        EXPECT_EQ(weightOf(1), FW_BOLD);
    }});
}

} // namespace
