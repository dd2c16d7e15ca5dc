// The windows of the checks for updates.
#include <quorvel/framework/exceptions.h>
#include <quorvel/framework/file.h>
#include <quorvel/res/resource_ids.h>
#include <quorvel/system/temporary_file.h>
#include <quorvel/update/check_for_updates_profile.h>
#include <quorvel/update/update_transport.h>
#include <quorvel/update/win/check_for_updates_dlg.h>
#include <quorvel/update/win/check_for_updates_reminder_dlg.h>
#include <quorvel/update/win/check_for_updates_settings_dlg.h>
#include <quorvel/update/win/update_dlg.h>

#include "gallery.h"
#include "support/registry.h"
#include "take_box.h"

#include <commctrl.h>

#include <string>

namespace {

constexpr char kEnglish[] = R"(<?xml version="1.0" encoding="utf-8"?>
<rss><channel><lastBuildDate>Tue, 12 Mar 2024 08:30:00 GMT</lastBuildDate>
<item><title>Notebook 3.2.1</title><priority>high</priority>
<link>http://www.example.com/notebook/3.2.1.html</link>
<pubDate>Tue, 12 Mar 2024 08:30:00 GMT</pubDate>
<description>Corrects printing on A4 paper, and the search for &lt;tags&gt;.
All users of version 3.2 should install it.</description></item>
<item><title>Notebook 3.2</title><pubDate>Mon, 22 Jan 2024 10:00:00 GMT</pubDate>
<link>http://www.example.com/notebook/3.2.html</link>
<description>Tables, tabs and a faster start.</description></item>
<item><title>Language packs: Français, Português, Čeština</title><priority>low</priority>
<pubDate>Fri, 17 Nov 2023 14:15:00 GMT</pubDate></item>
<item><title>Notebook 3.1</title><pubDate>Wed, 4 Oct 2023 09:00:00 GMT</pubDate></item>
</channel></rss>)";
constexpr char kGerman[] = R"(<?xml version="1.0" encoding="utf-8"?>
<rss><channel><lastBuildDate>Tue, 12 Mar 2024 08:30:00 GMT</lastBuildDate>
<item><title>Notizbuch 3.2.1</title><priority>high</priority>
<link>http://www.example.com/notebook/3.2.1.html</link>
<pubDate>Tue, 12 Mar 2024 08:30:00 GMT</pubDate>
<description>Behebt Fehler beim Drucken auf A4 und bei der Suche nach &lt;Tags&gt;.
Allen Benutzern der Version 3.2 empfohlen.</description></item>
<item><title>Notizbuch 3.2</title><pubDate>Mon, 22 Jan 2024 10:00:00 GMT</pubDate>
<link>http://www.example.com/notebook/3.2.html</link>
<description>Tabellen, Registerkarten und ein schnellerer Start.</description></item>
<item><title>Sprachpakete: Français, Português, Čeština</title><priority>low</priority>
<pubDate>Fri, 17 Nov 2023 14:15:00 GMT</pubDate></item>
<item><title>Notizbuch 3.1</title><pubDate>Wed, 4 Oct 2023 09:00:00 GMT</pubDate></item>
</channel></rss>)";

void WriteFile(const WCHAR* name, const std::string& bytes) {
    CFile(name, CFile::modeWrite | CFile::modeCreate)
        .Write(bytes.data(), static_cast<UINT>(bytes.size()));
}

// Shows the same progress for each request of a kind, for as long as a picture needs.
class StillTransport : public CUpdateTransport {
public:
    void Start(const Request& request) override {
        m_isHeader = request.headerOnly != FALSE;
        if (!m_body.empty())
            WriteFile(request.fileName, m_body);
    }
    void Cancel() override {}
    Progress GetProgress() const override { return m_isHeader ? m_ofHeader : m_ofFile; }
    BOOL GetHeaderField(const WCHAR*, CString& value) const override {
        value = _T("Tue, 12 Mar 2024 08:30:00 GMT");
        return TRUE;
    }
    static Progress Answer(UINT code) {
        Progress progress;
        progress.isConnected = TRUE;
        progress.statusCode = code;
        progress.hasEnded = code != 0;
        return progress;
    }

    Progress m_ofHeader = Answer(0), m_ofFile = Answer(0);
    std::string m_body;

private:
    bool m_isHeader = false;
};

// Settings, a local updates file and a server, for one picture.
class Site {
public:
    Site() {
        AfxGenerateTempFolderFileName(m_file);
        WriteFile(m_file, German::IsInForce() ? kGerman : kEnglish);
        AfxWriteProfileCheckForUpdatesURL(m_path, _T("http://updates.example.com/notebook.xml"));
        AfxWriteProfileCheckForUpdatesReminder(m_path, 14);
        AfxWriteProfileCheckForUpdatesLastChecked(m_path, COleDateTime(2024, 3, 20, 7, 5, 0));
    }
    Site(const Site&) = delete;
    ~Site() { ::DeleteFileW(m_file); }

    const TestKey m_key;
    const CRegistryPath m_path{HKEY_CURRENT_USER, m_key.Path()};
    CString m_file;
    StillTransport m_transport;
};

bool TakeDialog(Site& site, std::vector<DialogDriver::Step> steps, const char* path) {
    CCheckForUpdatesDlg dialog(site.m_path, site.m_file, FALSE, nullptr);
    dialog.SetTransport(&site.m_transport);
    return TakeBoxAfter(std::move(steps), path, [&] { dialog.DoModal(); });
}

bool TakeUpdates(const char* path) {
    Site site;
    const auto markAsNew = [](HWND box) {
        auto* const list = static_cast<CUpdateListingListCtrl*>(
            CWnd::FromHandlePermanent(::GetDlgItem(box, QUORVEL_UPDATES_LIST)));
        list->GetUpdateListingItem(0)->SetNew(TRUE);
        list->GetUpdateListingItem(1)->SetNew(TRUE);
        list->Invalidate();
    };
    return TakeDialog(site, {markAsNew}, path);
}

bool TakeNoUpdates(const char* path) {
    Site site;
    ::DeleteFileW(site.m_file);
    AfxWriteProfileCheckForUpdatesLastChecked(site.m_path, COleDateTime());
    return TakeDialog(site, {}, path);
}

// A picture of the pane or box that a check shows over the dialog.
bool TakeCheck(Site& site, int answer, const char* path) {
    CCheckForUpdatesDlg dialog(site.m_path, site.m_file, FALSE, nullptr);
    dialog.SetTransport(&site.m_transport);
    bool isTaken = false;
    std::vector<DialogDriver::Step> steps = {ClickOn(QUORVEL_UPDATES_CHECK)};
    const auto waitForFront = [&](HWND box) {
        if (box == dialog.m_hWnd)
            DialogDriver::Repeat();
    };
    const auto isBox = [](HWND window) { return CWnd::FromHandlePermanent(window) == nullptr; };
    if (answer != 0) { // the answer to "download now?"
        steps.push_back([&, answer](HWND box) {
            if (!isBox(box))
                return DialogDriver::Repeat();
            ::PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(answer), 0);
        });
        steps.push_back([&](HWND box) {
            const HWND figures = ::GetDlgItem(box, QUORVEL_UPDATES_PROGRESS_FIGURES);
            if (figures == nullptr || TextOf(figures).Find(_T("%")) < 0)
                DialogDriver::Repeat();
        });
    }
    steps.push_back(waitForFront);
    for (int i = 0; i < 20; ++i) // until the transport's progress is shown
        steps.push_back([](HWND) {});
    steps.push_back([&](HWND box) {
        isTaken = SavePicture(box, path);
        if (isBox(box))
            ::EndDialog(box, IDNO);
        ::PostMessageW(dialog.m_hWnd, WM_COMMAND, IDCANCEL, 0);
    });
    const DialogDriver driver(std::move(steps));
    dialog.DoModal();
    return isTaken;
}

bool TakeChecking(const char* path) {
    Site site;
    return TakeCheck(site, 0, path);
}

bool TakeQuestion(const char* path) {
    Site site;
    site.m_transport.m_ofHeader = StillTransport::Answer(200);
    return TakeCheck(site, 0, path);
}

bool TakeDownload(const char* path) {
    Site site;
    site.m_transport.m_ofHeader = StillTransport::Answer(200);
    CUpdateTransport::Progress& progress = site.m_transport.m_ofFile;
    progress.isConnected = TRUE;
    progress.statusCode = 200;
    progress.received = 79432;
    progress.expected = 128640;
    return TakeCheck(site, IDYES, path);
}

bool TakeNotFound(const char* path) {
    Site site;
    site.m_transport.m_ofHeader = StillTransport::Answer(404);
    return TakeCheck(site, 0, path);
}

bool TakeSettings(const char* path) {
    const Site site;
    CCheckForUpdatesSettingsDlg dialog(site.m_path);
    return TakeBoxAfter({}, path, [&] { dialog.DoModal(); });
}

bool TakeRefusedSettings(const char* path) {
    const Site site;
    CCheckForUpdatesSettingsDlg dialog(site.m_path);
    const auto fill = [](HWND box) {
        ::SetDlgItemTextW(box, QUORVEL_UPDATES_DAYS, _T("91"));
        // There is room for the balloon on the screen.
        ::SetWindowPos(box, nullptr, 300, 100, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    };
    return TakeBoxAfter({fill, Press(VK_RETURN)}, path, [&] { dialog.DoModal(); });
}

bool TakeReminder(const char* path) {
    const Site site;
    CCheckForUpdatesReminderDlg dialog(site.m_path);
    dialog.SetStatus(Own(_T("You last checked for updates 14 days ago."),
                         _T("Sie haben vor 14 Tagen zuletzt nach Updates gesucht.")));
    return TakeBoxAfter({}, path, [&] { dialog.DoModal(); });
}

// Where the moving bar is depends on the time: another one in its place is moved by hand.
void FreezeBar(HWND box) {
    constexpr UINT_PTR kMarqueeTimer = 1; // the timer of the progress bar
    const HWND moving = ::GetDlgItem(box, QUORVEL_UPDATES_PROGRESS_BAR);
    const CRect place = PlaceOf(moving);
    ::ShowWindow(moving, SW_HIDE);
    const HWND bar = ::CreateWindowExW(
        0, PROGRESS_CLASSW, nullptr, WS_CHILD | WS_VISIBLE | PBS_MARQUEE, place.left, place.top,
        place.Width(), place.Height(), box, nullptr, nullptr, nullptr);
    for (int i = 0; i < 30; ++i)
        ::SendMessageW(bar, WM_TIMER, kMarqueeTimer, 0);
}

bool TakeVersionCheck(const char* path) {
    Site site;
    CUpdateDlg dialog(0, site.m_path, CVersionNumber(3, 2, 1, 0));
    dialog.SetTransport(&site.m_transport);
    return TakeBoxAfter({FreezeBar}, path, [&] { dialog.DoModal(); });
}

// A picture of the outcome's box.
bool TakeOutcome(UINT code, const std::string& latest, const char* path) {
    Site site;
    site.m_transport.m_ofFile = StillTransport::Answer(code);
    site.m_transport.m_ofFile.received = latest.size();
    site.m_transport.m_body = latest;
    CUpdateDlg dialog(0, site.m_path, CVersionNumber(3, 2, 1, 0));
    dialog.SetTransport(&site.m_transport);
    bool isTaken = false;
    const DialogDriver driver({[&](HWND box) {
                                   if (box == dialog.m_hWnd)
                                       DialogDriver::Repeat();
                               },
                               [](HWND) {},
                               [&](HWND box) {
                                   isTaken = SavePicture(box, path);
                                   ::EndDialog(box, IDOK);
                               }});
    dialog.DoModal();
    return isTaken;
}

bool TakeNewVersion(const char* path) {
    return TakeOutcome(200, "3.3", path);
}
bool TakeLatestVersion(const char* path) {
    return TakeOutcome(200, "3.2.1.0", path);
}
bool TakeNewerVersion(const char* path) {
    return TakeOutcome(200, "3.2.0.9", path);
}
bool TakeNoVersion(const char* path) {
    return TakeOutcome(200, "soon", path);
}

} // namespace

const std::vector<Picture> kUpdatePictures = {
    {"updates", TakeUpdates, true},
    {"updates_german", InGerman<TakeUpdates>, true},
    {"updates_none", TakeNoUpdates},
    {"updates_none_german", InGerman<TakeNoUpdates>},
    {"updates_checking", TakeChecking},
    {"updates_checking_german", InGerman<TakeChecking>, true},
    {"updates_question", TakeQuestion},
    {"updates_question_german", InGerman<TakeQuestion>},
    {"updates_downloading", TakeDownload},
    {"updates_downloading_german", InGerman<TakeDownload>, true},
    {"updates_not_found", TakeNotFound},
    {"updates_not_found_german", InGerman<TakeNotFound>},
    {"updates_settings", TakeSettings},
    {"updates_settings_german", InGerman<TakeSettings>, true},
    {"updates_settings_refused", TakeRefusedSettings},
    {"updates_settings_refused_german", InGerman<TakeRefusedSettings>},
    {"updates_reminder", TakeReminder},
    {"updates_reminder_german", InGerman<TakeReminder>, true},
    {"version_checking", TakeVersionCheck},
    {"version_checking_german", InGerman<TakeVersionCheck>, true},
    {"version_new", TakeNewVersion},
    {"version_new_german", InGerman<TakeNewVersion>},
    {"version_latest", TakeLatestVersion},
    {"version_latest_german", InGerman<TakeLatestVersion>},
    {"version_ahead", TakeNewerVersion},
    {"version_ahead_german", InGerman<TakeNewerVersion>},
    {"version_invalid", TakeNoVersion},
    {"version_invalid_german", InGerman<TakeNoVersion>},
};
