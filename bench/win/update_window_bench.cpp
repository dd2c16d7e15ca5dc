// The dialog of the check for updates with a listing of 10,000 entries, against loading and sorting
// the listing alone: showing it in the open dialog, and opening the dialog with it. The two take
// turns, and the medians are compared. Windows only.
//
// Opening includes creating the dialog, which costs the same with an empty listing. Under Wine,
// switch the theme off (ThemeManager's ThemeActive, "0"): it paints a scroll bar so slowly that the
// ratio would measure nothing else.
#include <quorvel/framework/app.h>
#include <quorvel/framework/file.h>
#include <quorvel/system/temporary_file.h>
#include <quorvel/update/update_listing.h>
#include <quorvel/update/win/check_for_updates_dlg.h>

#include "win/window_bench.h"

#include <string>

namespace {

constexpr int kEntries = 10000;
constexpr int kTurns = 11;

std::string Listing(int count) {
    std::string text = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<rss><channel>"
                       "<lastBuildDate>Tue, 12 Mar 2024 08:30:00 GMT</lastBuildDate>\n";
    for (int i = 0; i < count; ++i) {
        const std::string number = std::to_string(i);
        const std::string day = std::to_string(i % 28 + 1);
        const std::string year = std::to_string(2000 + i * 7919 % 24); // in no order
        text += "<item><title>Notebook " + number + "</title><link>http://www.example.com/" +
                number + ".html</link><description>What is new in version " + number +
                ": tables, tabs and a faster start.</description><pubDate>Tue, " + day + " Mar " +
                year + " 08:30:00 GMT</pubDate><priority>normal</priority></item>\n";
    }
    return text + "</channel></rss>\n";
}

class Dialog : public CCheckForUpdatesDlg {
public:
    using CCheckForUpdatesDlg::CCheckForUpdatesDlg;
    using CCheckForUpdatesDlg::LoadLocalUpdatesFile;
};

void Paint(CWnd& window) {
    ::RedrawWindow(window.m_hWnd, nullptr, nullptr, RDW_ALLCHILDREN | RDW_UPDATENOW);
}

} // namespace

int main() {
    CWinApp app(_T("Bench"));
    CString file;
    AfxGenerateTempFolderFileName(file);
    const std::string listing = Listing(kEntries);
    CFile(file, CFile::modeWrite | CFile::modeCreate)
        .Write(listing.data(), static_cast<UINT>(listing.size()));
    const CRegistryPath path(HKEY_CURRENT_USER, _T("Software\\Quorvel bench"));

    const auto loadAndSort = [&] {
        CUpdateListing loaded;
        CString errorText;
        UINT icon = 0;
        loaded.Load(file, errorText, icon);
        std::vector<CUpdateListingItem> items = loaded.GetItems();
        std::vector<CVirtualListCtrlItem*> rows;
        for (CUpdateListingItem& item : items)
            rows.push_back(&item);
        std::ranges::stable_sort(rows, CUpdateListingListCtrl::swoDateDescending);
    };
    const auto loadOnly = [&] {
        CUpdateListing loaded;
        CString errorText;
        UINT icon = 0;
        loaded.Load(file, errorText, icon);
    };
    {
        Dialog dialog(path, file, FALSE, nullptr);
        dialog.Create(nullptr);
        dialog.ShowWindow(SW_SHOW);
        Paint(dialog);
        Compare(
            "showing 10,000 updates", kTurns,
            [&] {
                dialog.LoadLocalUpdatesFile(TRUE);
                Paint(dialog);
            },
            loadAndSort);
        dialog.DestroyWindow();
    }
    Compare(
        "opening the dialog with them", kTurns,
        [&] {
            Dialog dialog(path, file, FALSE, nullptr);
            dialog.Create(nullptr);
            dialog.ShowWindow(SW_SHOW);
            Paint(dialog);
            dialog.DestroyWindow();
        },
        loadAndSort);
    Compare("loading and sorting, and loading", kTurns, loadAndSort, loadOnly);
    ::DeleteFileW(file);
}
