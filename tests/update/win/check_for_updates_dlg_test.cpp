// The dialog of the check for updates, driven by a user's keys and clicks and by the messages of
// its connections.
#include <quorvel/frame/module.h>
#include <quorvel/framework/win/list_ctrl.h>
#include <quorvel/res/resource_ids.h>
#include <quorvel/update/win/check_for_updates_dlg.h>

#include "support/date_time.h"
#include "update/win/scripted_dialog.h"

#include <commctrl.h>

namespace {

typedef DialogDriver::Step Step;

const std::string kHead = "HTTP/1.1 200 OK\r\nLast-Modified: Tue, 12 Mar 2024 08:30:00 GMT\r\n\r\n";

std::string Listing(const std::string& items) {
    return "<?xml version='1.0'?><rss><channel><lastBuildDate>2024-01-01</lastBuildDate>" + items +
           "</channel></rss>";
}
std::string Item(const std::string& title, const std::string& rest) {
    return "<item><title>" + title + "</title>" + rest + "</item>";
}
std::string Response(const std::string& body) {
    return "HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
}
const std::string kOld =
    Listing(Item("Old &amp; good", "<pubDate>2024-01-01</pubDate><priority>HIGH</priority>"
                                   "<link>http://h/?a&amp;b</link>"
                                   "<description> &lt;b&gt;Two\nlines&lt;/b&gt; </description>") +
            Item("Newest", "<pubDate>2024-01-03</pubDate><priority>low</priority>") +
            Item("Between", "<pubDate>2024-01-02</pubDate><description>  </description>"));

class Dlg : public Scripted<CCheckForUpdatesDlg> {
public:
    using Scripted<CCheckForUpdatesDlg>::Scripted;
    using CCheckForUpdatesDlg::LoadLocalUpdatesFile;
    using CCheckForUpdatesDlg::UpdateLastCheckedText;
    using CCheckForUpdatesDlg::UpdatePublishedText;
};

class UpdatesDlg : public testing::Test, protected CheckSurroundings {
protected:
    UpdatesDlg() { folder.Write(_T("updates.xml"), kOld); }
    ~UpdatesDlg() override { QuorvelSetOpenExternalLinkCallback(nullptr); }

    void Open(BOOL autoCheck = FALSE) {
        dialog = std::make_unique<Dlg>(source, path, folder.Path(_T("updates.xml")), autoCheck,
                                       nullptr, nullptr);
    }
    INT_PTR Run(std::vector<Step> steps, BOOL autoCheck = FALSE) {
        Open(autoCheck);
        const DialogDriver driver(std::move(steps));
        const INT_PTR result = dialog->DoModal();
        EXPECT_TRUE(driver.HasRun());
        return result;
    }
    HWND Child(int id) const { return ::GetDlgItem(dialog->m_hWnd, id); }
    std::string Text(int id) const { return Narrow(TextOf(Child(id))); }
    // The visible window over the dialog, or null.
    HWND Pane() const {
        for (HWND box = nullptr;
             (box = ::FindWindowExW(nullptr, box, _T("#32770"), nullptr)) != nullptr;) {
            if (::GetWindow(box, GW_OWNER) == dialog->m_hWnd && ::IsWindowVisible(box))
                return box;
        }
        return nullptr;
    }
    std::string List() const {
        std::string rows;
        const HWND window = Child(QUORVEL_UPDATES_LIST);
        const int count = static_cast<int>(::SendMessageW(window, LVM_GETITEMCOUNT, 0, 0));
        for (int row = 0; row < count; ++row) {
            for (int column = 0; column < 3; ++column) {
                WCHAR text[100] = {};
                LVITEMW item = {};
                item.iSubItem = column;
                item.pszText = text;
                item.cchTextMax = 100;
                ::SendMessageW(window, LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                               reinterpret_cast<LPARAM>(&item));
                rows += Narrow(text) + (column < 2 ? "|" : "");
            }
            rows += ::SendMessageW(window, LVM_GETITEMSTATE, static_cast<WPARAM>(row),
                                   LVIS_SELECTED) != 0
                        ? " *\n"
                        : "\n";
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
    // For a step whose window may not be the frontmost one.
    Step ClickHere(int id) {
        return [this, id](HWND) { Click(dialog->m_hWnd, id); };
    }
    void ExpectNothingLeft() {
        EXPECT_EQ(source.m_alive, 0);
        EXPECT_FALSE(HasTemporaryFiles());
    }

    BoxScript boxes;
    std::unique_ptr<Dlg> dialog;
};

const std::string kOldRows = "|Newest|1/3/2024 *\n|Between|1/2/2024\n|Old & good|1/1/2024\n";

TEST_F(UpdatesDlg, ShowsTheLocalFileAndTheSelectedEntry) {
    AfxWriteProfileCheckForUpdatesLastChecked(path, COleDateTime(2024, 1, 5, 10, 0, 0));
    Run({[&](HWND box) {
             EXPECT_EQ(Narrow(TextOf(box)), "Check For Updates");
             EXPECT_EQ(List(), kOldRows);
             EXPECT_EQ(Details(), "Newest|1/3/2024|");
             EXPECT_EQ(Text(QUORVEL_UPDATES_PUBLISHED),
                       "Local update file is dated 1/1/2024 1:00:00 AM.");
             EXPECT_EQ(Text(QUORVEL_UPDATES_LAST_CHECKED),
                       "Last checked for updates on 1/5/2024 11:00:00 AM.");
             EXPECT_EQ(Pane(), nullptr);
         },
         Press(VK_END),
         [&](HWND) {
             EXPECT_EQ(Details(), "Old & good|1/1/2024|<b>Two\r\nlines</b>");
             EXPECT_EQ(Text(QUORVEL_UPDATES_LINK), "http://h/?a&b");
         },
         [&](HWND) {
             dialog->UpdateLastCheckedText(COleDateTime());
             EXPECT_EQ(Text(QUORVEL_UPDATES_LAST_CHECKED), "");
             dialog->UpdatePublishedText(COleDateTime(2024, 2, 1, 0, 0, 0));
             EXPECT_EQ(Text(QUORVEL_UPDATES_PUBLISHED),
                       "Local update file is dated 2/1/2024 1:00:00 AM.");
         },
         Press(VK_ESCAPE)});
    std::filesystem::remove(std::filesystem::path(Wide(folder.Path(_T("updates.xml")))));
    Run({[&](HWND) {
             EXPECT_EQ(List() + Details(), "||");
             EXPECT_EQ(Text(QUORVEL_UPDATES_PUBLISHED),
                       "Local update file does not exist.  Click Check to check for updates.");
         },
         Press(VK_ESCAPE)});
    EXPECT_EQ(boxes.Lines(), "");
}

TEST_F(UpdatesDlg, AFailedLoadLeavesTheListAsItWas) {
    Run({[&](HWND) {
             folder.Write(_T("updates.xml"), "<?xml version='1.0'?><rss><channel/></rss>");
             EXPECT_FALSE(dialog->LoadLocalUpdatesFile(FALSE));
             EXPECT_EQ(boxes.Lines(), "");
             EXPECT_FALSE(dialog->LoadLocalUpdatesFile(TRUE));
             EXPECT_EQ(List(), kOldRows);
             folder.Write(_T("updates.xml"), Listing(""));
             EXPECT_TRUE(dialog->LoadLocalUpdatesFile(TRUE));
             EXPECT_EQ(List() + Details(), "||");
         },
         Press(VK_ESCAPE)});
    EXPECT_EQ(boxes.Lines(), "(30) An error has occurred while loading the local updates file."
                             "\r\n\r\nThe file is missing the <lastBuildDate> tag.\n");
    EXPECT_FALSE(dialog->LoadLocalUpdatesFile(TRUE)) << "closed";
}

TEST_F(UpdatesDlg, ACheckShowsHowFarItIsAndThenTheNewListing) {
    const std::string body = Listing(Item("New", "<pubDate>2024-03-01</pubDate>"));
    const std::string response = Response(body);
    const std::string all = std::to_string(response.size());
    boxes.m_answer = IDYES;
    Run({ClickOn(QUORVEL_UPDATES_CHECK),
         [&](HWND) {
             ASSERT_NE(Pane(), nullptr);
             EXPECT_EQ(Narrow(TextOf(Pane())), "Check For Updates Progress");
             EXPECT_EQ(::GetDlgItem(Pane(), QUORVEL_UPDATES_PROGRESS_BAR), nullptr);
             EXPECT_EQ(ItemText(Pane(), QUORVEL_UPDATES_PROGRESS_TEXT),
                       "Connecting to updates server...");
             EXPECT_EQ(Text(QUORVEL_UPDATES_LAST_CHECKED),
                       "Last checked for updates on 3/12/2024 1:00:00 PM.");
         },
         ClickHere(QUORVEL_UPDATES_CHECK), // only one check at a time
         [&](HWND) {
             EXPECT_EQ(boxes.Lines(), "(30) An error has occurred while checking for updates."
                                      "\r\n\r\nA connection socket is already active.\n");
         },
         Answer(kHead),
         [&](HWND) {
             EXPECT_EQ(boxes.Lines(), "(44) There are new updates available as of 3/12/2024 "
                                      "9:30:00 AM.  Would you like to download them now?\n");
             ASSERT_NE(Pane(), nullptr);
             EXPECT_NE(::GetDlgItem(Pane(), QUORVEL_UPDATES_PROGRESS_BAR), nullptr);
             source.m_last->Receive(response.substr(0, 60));
             const StatusMessages messages{dialog->m_hWnd};
             messages.OnSocketStatus(source.m_last, quorvel::Http::statusHeaderParsed, 0);
             messages.OnSocketStatus(source.m_last, quorvel::Http::statusReceived, 60);
             EXPECT_EQ(ItemText(Pane(), QUORVEL_UPDATES_PROGRESS_TEXT),
                       "Connected to updates server. Downloading the latest updates...");
             EXPECT_EQ(ItemText(Pane(), QUORVEL_UPDATES_PROGRESS_FIGURES)
                           .find("Downloaded 60 of " + all + " bytes ("),
                       0u);
             EXPECT_EQ(
                 ::SendDlgItemMessageW(Pane(), QUORVEL_UPDATES_PROGRESS_BAR, PBM_GETPOS, 0, 0), 60);
             source.Answer(messages, response.substr(60));
         },
         [&](HWND) {
             EXPECT_EQ(Pane(), nullptr);
             EXPECT_EQ(List(), "|New|3/1/2024 *\n");
             EXPECT_EQ(Details(), "New|3/1/2024|");
             ExpectNothingLeft();
         },
         Press(VK_ESCAPE)});
    EXPECT_EQ(folder.Read(_T("updates.xml")), body);
    EXPECT_EQ(boxes.Lines(), "");
}

TEST_F(UpdatesDlg, TheEndOfACheckIsSaidOnce) {
    const std::string error = "(30) An error has occurred while checking for updates.\r\n\r\n";
    const struct {
        std::string answer;
        const char* lastModified;
        std::string box;
    } rows[] = {
        {"HTTP/1.1 404 Not Found\r\n\r\n", "", error + "The server has not found"},
        {kHead, "2024-03-12", "(40) There are no new updates available.\n"},
        {"", "", error},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.answer);
        if (*row.lastModified != 0)
            AfxWriteProfileCheckForUpdatesLastModified(path, COleDateTime(2024, 3, 12, 8, 30, 0));
        Run({ClickOn(QUORVEL_UPDATES_CHECK), Answer(row.answer),
             [&](HWND) {
                 EXPECT_EQ(boxes.Lines().find(row.box), 0u);
                 EXPECT_EQ(Pane(), nullptr);
                 ExpectNothingLeft();
             },
             Press(VK_ESCAPE)});
        EXPECT_EQ(boxes.Lines(), "");
        source.m_now += COleDateTimeSpan(1.0);
    }
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
             ExpectNothingLeft();
         },
         Press(VK_ESCAPE)},
        TRUE);
    EXPECT_EQ(boxes.Lines(), "");
}

TEST_F(UpdatesDlg, ClosedInEveryStateItLeavesNothing) {
    const std::vector<std::pair<const char*, std::function<void(Dlg&)>>> ways = {
        {"key", [](Dlg& each) { ::PostMessageW(each.m_hWnd, WM_COMMAND, IDCANCEL, 0); }},
        {"mouse", [](Dlg& each) { ::PostMessageW(each.m_hWnd, WM_SYSCOMMAND, SC_CLOSE, 0); }},
        {"host", [](Dlg& each) { each.DestroyWindow(); }},
        {"platform", [](Dlg& each) { ::DestroyWindow(each.m_hWnd); }},
        {"session",
         [](Dlg& each) {
             ::SendMessageW(each.m_hWnd, WM_QUERYENDSESSION, 0, 0);
             ::SendMessageW(each.m_hWnd, WM_ENDSESSION, TRUE, 0);
             ::PostMessageW(each.m_hWnd, WM_COMMAND, IDCANCEL, 0);
         }},
    };
    for (const auto& [way, close] : ways) {
        SCOPED_TRACE(way);
        boxes.m_answer = IDYES;
        const auto closeNow = [&](HWND) { close(*dialog); };
        Run({closeNow});
        Run({ClickOn(QUORVEL_UPDATES_CHECK), closeNow});
        ExpectNothingLeft();
        source.m_now += COleDateTimeSpan(1.0);
        Run({ClickOn(QUORVEL_UPDATES_CHECK),
             [&](HWND) { boxes.m_meanwhile = [&] { close(*dialog); }; }, Answer(kHead)});
        EXPECT_EQ(boxes.Lines().find("(44) There are new"), 0u);
        ExpectNothingLeft();
        source.m_now += COleDateTimeSpan(1.0);
        Run({ClickOn(QUORVEL_UPDATES_CHECK), Answer(kHead), closeNow});
        ExpectNothingLeft();
        EXPECT_EQ(boxes.Lines().find("(44) There are new"), 0u);
        source.m_now += COleDateTimeSpan(1.0);
        EXPECT_EQ(boxes.Lines(), "");
    }
}

// A hook may ask the user, and the user may close the dialog meanwhile.
TEST_F(UpdatesDlg, AHookThatClosesTheDialogStartsNoCheck) {
    static std::function<void()> s_meanwhile;
    QuorvelSetOpenExternalLinkCallback([](const WCHAR*) {
        s_meanwhile();
        return 1;
    });
    s_meanwhile = [&] { dialog->DestroyWindow(); };
    Run({ClickOn(QUORVEL_UPDATES_CHECK)});
    EXPECT_EQ(source.m_last, nullptr);
    EXPECT_EQ(boxes.Lines(), "");
    EXPECT_EQ(AfxGetProfileCheckForUpdatesLastChecked(path), COleDateTime());
}

// The window is only hidden at first: an answer that comes later must not start the download.
TEST_F(UpdatesDlg, ClosedWhileItAsksItDoesNotDownload) {
    boxes.m_answer = IDYES;
    Run({ClickOn(QUORVEL_UPDATES_CHECK),
         [&](HWND) {
             boxes.m_meanwhile = [&] { ::SendMessageW(dialog->m_hWnd, WM_COMMAND, IDCANCEL, 0); };
         },
         Answer(kHead)});
    EXPECT_EQ(source.m_count, 1);
    ExpectNothingLeft();
    EXPECT_EQ(folder.Read(_T("updates.xml")), kOld);
}

TEST_F(UpdatesDlg, WithoutAModalLoopClosingEndsTheCheckToo) {
    boxes.m_answer = IDYES;
    for (const bool isDownloading : {false, true}) {
        Open();
        ASSERT_TRUE(dialog->Create(nullptr));
        dialog->ShowWindow(SW_SHOW);
        Click(dialog->m_hWnd, QUORVEL_UPDATES_CHECK);
        if (isDownloading)
            source.Answer(StatusMessages{dialog->m_hWnd}, kHead);
        EXPECT_NE(Pane(), nullptr);
        ::SendMessageW(dialog->m_hWnd, WM_COMMAND, IDCANCEL, 0);
        EXPECT_EQ(Pane(), nullptr);
        source.Release(StatusMessages{dialog->m_hWnd});
        ExpectNothingLeft();
        dialog.reset();
        source.m_now += COleDateTimeSpan(1.0);
    }
}

TEST_F(UpdatesDlg, OpenedAgainItHasItsColumnsAndNoRowsOfTheLastTime) {
    const auto widths = [&] {
        auto* const list = static_cast<CUpdateListingListCtrl*>(
            CWnd::FromHandlePermanent(Child(QUORVEL_UPDATES_LIST)));
        return std::vector{list->GetColumnWidth(0), list->GetColumnWidth(1),
                           list->GetColumnWidth(2)};
    };
    std::vector<int> first;
    Open();
    for (const bool isThere : {true, true, false}) {
        if (!isThere)
            ::DeleteFileW(folder.Path(_T("updates.xml")));
        const DialogDriver driver({[&](HWND) {
                                       if (first.empty())
                                           first = widths();
                                       EXPECT_EQ(widths(), first);
                                       EXPECT_EQ(List(), isThere ? kOldRows : "");
                                       EXPECT_EQ(::IsWindowVisible(Child(QUORVEL_UPDATES_LINK)),
                                                 FALSE);
                                   },
                                   Press(VK_ESCAPE)});
        EXPECT_EQ(dialog->DoModal(), IDCANCEL);
    }
    Run({[&](HWND) { EXPECT_EQ(widths(), first); }, Press(VK_ESCAPE)});
}

TEST_F(UpdatesDlg, TypedLettersFindATitle) {
    const auto type = [](WCHAR letter) -> Step {
        return [letter](HWND) { ::PostMessageW(::GetFocus(), WM_CHAR, letter, 1); };
    };
    Run({[&](HWND) { ::SetFocus(Child(QUORVEL_UPDATES_LIST)); }, type('b'),
         [&](HWND) { EXPECT_EQ(Details(), "Between|1/2/2024|"); }, Press(VK_ESCAPE)});
}

// The link is disabled when its row goes. A disabled control would keep all keys from the dialog.
TEST_F(UpdatesDlg, TheKeyboardStaysInTheDialogWhenTheLinkGoes) {
    Run({Press(VK_END), [&](HWND) { ::SetFocus(Child(QUORVEL_UPDATES_LINK)); },
         [&](HWND) {
             EXPECT_EQ(::GetFocus(), Child(QUORVEL_UPDATES_LINK));
             folder.Write(_T("updates.xml"), Listing(""));
             EXPECT_TRUE(dialog->LoadLocalUpdatesFile(TRUE));
             EXPECT_EQ(::GetFocus(), Child(QUORVEL_UPDATES_LIST));
         },
         Press(VK_ESCAPE)});
}

// What a site may publish: it is shown as a text, and opened only as what it is.
TEST_F(UpdatesDlg, TextsAndLinksOfAnEntryAreShownAsSuch) {
    const std::string longLink = "http://h/" + std::string(1200, 'x');
    const struct {
        std::string title, link, shownTitle, shownLink, uri;
    } rows[] = {
        {"http", "http://h/a", "", "http://h/a", "http://h/a"},
        {"https", "https://h/a", "", "https://h/a", "https://h/a"},
        {"ftp", "ftp://h/a", "", "ftp://h/a", "ftp://h/a"},
        {"gopher", "gopher://h/", "", "gopher://h/", "gopher://h/"},
        {"news", "news:a.b", "", "news:a.b", "news:a.b"},
        {"mail", "mailto:a@h", "", "mailto:a@h", "mailto:a@h"},
        {"document", "file:///c:/a.txt", "", "file:///c:/a.txt", "file:///c:/a.txt"},
        {"program", "file:///c:/a.exe", "", "file:///c:/a.exe", "file:///c:/a.exe"},
        {"script", "javascript:alert(1)", "", "javascript:alert(1)", ""},
        {"path", "c:\\a.exe", "", "c:\\a.exe", ""},
        {"around", "\n http://h/ \n", "", "http://h/", "http://h/"},
        {"inside", "http://h/a\tb", "", "http://h/a b", ""},
        {"long", longLink, "", longLink.substr(0, 1000) + "\x85", longLink},
        {"control\t\n\x01s", "", "control   s", "", ""},
        {"&amp;mnemonic &lt;b>", "", "&mnemonic <b>", "", ""},
        {"right \xE2\x80\xAE to left \xD7\x90", "", "right ? to left ?", "", ""},
    };
    static std::vector<CString> s_opened;
    s_opened.clear();
    QuorvelSetOpenExternalLinkCallback([](const WCHAR* link) {
        s_opened.push_back(link);
        return 0;
    });
    for (const auto& row : rows) {
        SCOPED_TRACE(row.title);
        s_opened.clear();
        folder.Write(
            _T("updates.xml"),
            Listing(Item(row.title, "<pubDate>no date</pubDate><link>" + row.link +
                                        "</link><description>" + row.title + "</description>")));
        const std::vector<Step> pressed = {
            [&](HWND) { ::SetFocus(Child(QUORVEL_UPDATES_LINK)); }, Press(VK_RETURN),
            [](HWND) { ::PostMessageW(::GetFocus(), WM_KEYUP, VK_RETURN, -1); }, [](HWND) {}};
        std::vector<Step> steps = {[&](HWND) {
            EXPECT_EQ(Text(QUORVEL_UPDATES_TITLE),
                      row.shownTitle.empty() ? row.title : row.shownTitle);
            const HWND link = Child(QUORVEL_UPDATES_LINK);
            EXPECT_EQ(::IsWindowVisible(link) ? Narrow(TextOf(link)) : "", row.shownLink);
            EXPECT_EQ(::IsWindowEnabled(Child(QUORVEL_UPDATES_LINK)) != FALSE, !row.uri.empty());
        }};
        if (!row.uri.empty())
            steps.insert(steps.end(), pressed.begin(), pressed.end());
        steps.push_back(Press(VK_ESCAPE));
        Run(std::move(steps));
        ASSERT_EQ(s_opened.size(), row.uri.empty() ? 0u : 1u);
        if (!row.uri.empty()) {
            EXPECT_EQ(Narrow(s_opened[0]), row.uri);
        }
    }
    EXPECT_EQ(boxes.Lines(), "");
}

TEST_F(UpdatesDlg, AHugeListingIsShown) {
    std::string items = Item(std::string(1 << 20, 'T'), "<pubDate>2025-01-01</pubDate>");
    for (int i = 0; i < 100000; ++i)
        items += "<item><title>t</title></item>";
    folder.Write(_T("updates.xml"), Listing(items));
    Run({[&](HWND) {
             const HWND list = Child(QUORVEL_UPDATES_LIST);
             EXPECT_EQ(::SendMessageW(list, LVM_GETITEMCOUNT, 0, 0), 100001);
             ::RedrawWindow(list, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
         },
         Press(VK_END),
         [&](HWND) {
             EXPECT_EQ(Text(QUORVEL_UPDATES_TITLE), std::string(1000, 'T') + "\x85");
             EXPECT_EQ(Text(QUORVEL_UPDATES_DATE), "1/1/2025");
         },
         Press(VK_ESCAPE)});
}

TEST_F(UpdatesDlg, ResetAsksAndForgetsTheListing) {
    AfxWriteProfileCheckForUpdatesLastModified(path, COleDateTime(2024, 1, 1, 0, 0, 0));
    boxes.m_answer = IDNO;
    Run({ClickOn(QUORVEL_UPDATES_RESET),
         [&](HWND) {
             EXPECT_EQ(List(), kOldRows);
             boxes.m_answer = IDYES;
         },
         ClickOn(QUORVEL_UPDATES_RESET), [&](HWND) { EXPECT_EQ(List() + Details(), "||"); },
         Press(VK_ESCAPE)});
    const std::string question =
        "(24) Are you sure you want to reset the check for updates data?\n";
    EXPECT_EQ(boxes.Lines(), question + question);
    EXPECT_EQ(AfxGetProfileCheckForUpdatesLastModified(path), COleDateTime());
    EXPECT_FALSE(std::filesystem::exists(Wide(folder.Path(_T("updates.xml")))));
}

TEST_F(UpdatesDlg, KeepsTheArrangementOfTheColumns) {
    const auto list = [&] {
        return static_cast<CUpdateListingListCtrl*>(
            CWnd::FromHandlePermanent(Child(QUORVEL_UPDATES_LIST)));
    };
    Run({[&](HWND) {
             const HWND header = list()->GetHeaderCtrl()->m_hWnd;
             NMHEADERW click = {};
             click.hdr.hwndFrom = header;
             click.hdr.code = HDN_ITEMCLICKW;
             click.iItem = CUpdateListingListCtrl::COLUMN_PRIORITY;
             list()->SendMessage(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&click));
             EXPECT_EQ(List(), "|Old & good|1/1/2024\n|Between|1/2/2024\n|Newest|1/3/2024 *\n");
             list()->SetColumnWidth(1, 77);
         },
         Press(VK_ESCAPE)});
    Run({[&](HWND) {
             EXPECT_EQ(List(), "|Old & good|1/1/2024 *\n|Between|1/2/2024\n|Newest|1/3/2024\n");
             EXPECT_EQ(list()->GetColumnWidth(1), 77);
         },
         Press(VK_ESCAPE)});
}

TEST_F(UpdatesDlg, TheSettingsAreThoseOfItsPath) {
    const auto wait = [](HWND) {}; // a dialog is shown when no message waits
    Run({ClickOn(QUORVEL_UPDATES_OPEN_SETTINGS), wait, wait,
         [](HWND box) { ::SetDlgItemTextW(box, QUORVEL_UPDATES_URL, _T("http://new/")); },
         Press(VK_RETURN), wait, Press(VK_ESCAPE)});
    EXPECT_EQ(AfxGetProfileCheckForUpdatesURL(path), _T("http://new/"));
}

// New entries are bold; others are not.
TEST_F(UpdatesDlg, NewEntriesAreBold) {
    Run({[&](HWND) {
             auto& list = *static_cast<CUpdateListingListCtrl*>(
                 CWnd::FromHandlePermanent(Child(QUORVEL_UPDATES_LIST)));
             list.GetUpdateListingItem(1)->SetNew(TRUE);
             CClientDC dc(&list);
             NMLVCUSTOMDRAW draw = {};
             draw.nmcd.hdr = {list.m_hWnd, QUORVEL_UPDATES_LIST, static_cast<UINT>(NM_CUSTOMDRAW)};
             draw.nmcd.hdc = dc;
             const auto weightOf = [&](int row) {
                 ::SelectObject(dc, ::GetStockObject(SYSTEM_FIXED_FONT));
                 draw.nmcd.dwDrawStage = CDDS_PREPAINT;
                 dialog->SendMessage(WM_NOTIFY, QUORVEL_UPDATES_LIST,
                                     reinterpret_cast<LPARAM>(&draw));
                 draw.nmcd.dwDrawStage = CDDS_ITEMPREPAINT;
                 draw.nmcd.dwItemSpec = static_cast<DWORD_PTR>(row);
                 dialog->SendMessage(WM_NOTIFY, QUORVEL_UPDATES_LIST,
                                     reinterpret_cast<LPARAM>(&draw));
                 TEXTMETRICW metrics;
                 ::GetTextMetricsW(dc, &metrics);
                 ::SelectObject(dc, ::GetStockObject(SYSTEM_FONT));
                 return metrics.tmWeight;
             };
             EXPECT_LT(weightOf(0), FW_BOLD);
             EXPECT_EQ(weightOf(1), FW_BOLD);
         },
         Press(VK_ESCAPE)});
}

} // namespace
