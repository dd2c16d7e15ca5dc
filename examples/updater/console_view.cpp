#include "console_view.h"

#include "common/console.h"

#include <algorithm>
#include <cstdio>

namespace {

constexpr int kBarWidth = 20;
constexpr int kTitleWidth = 48;

CString Padded(CString text, int width) {
    if (text.GetLength() < width)
        text += CString(WCHAR{' '}, width - text.GetLength());
    return text;
}

// Line ends of a message box are lines of their own here.
void PrintText(CString text) {
    text.Remove('\r');
    text.TrimRight();
    Print(stdout, text);
    std::fflush(stdout);
}

bool ReadYes() {
    std::fputs("[y/n] ", stdout);
    std::fflush(stdout);
    const int answer = std::getchar();
    for (int next = answer; next != '\n' && next != EOF;)
        next = std::getchar();
    return answer == 'y' || answer == 'Y';
}

} // namespace

void ConsoleView::HideProgress() {
    if (m_shownPercent >= 0)
        std::fputc('\n', stderr);
    m_shownPercent = -1;
}

void ConsoleView::SetProgressText(const WCHAR* text) {
    PrintText(text);
}

void ConsoleView::SetProgressFigures(ULONGLONG, ULONGLONG, int percent, const WCHAR* text) {
    if (*text == 0 || percent == m_shownPercent)
        return;
    m_shownPercent = percent;
    const int done = std::min(percent, 100) * kBarWidth / 100;
    const CStringA bar = CStringA('#', done) + CStringA('.', kBarWidth - done);
    std::fprintf(stderr, "\r[%s] %s", bar.GetString(), CStringA(text).GetString());
}

void ConsoleView::SetPublishedText(const WCHAR* text) {
    PrintText(text);
}

void ConsoleView::SetLastCheckedText(const WCHAR* text) {
    if (*text != 0)
        PrintText(text);
}

void ConsoleView::ShowListing(const CUpdateListing& listing) {
    HideProgress();
    Print(stdout, Padded(_T("Priority"), 10) + Padded(_T("Title"), kTitleWidth) + _T("Date"));
    for (CUpdateListingItem item : listing.GetItems())
        Print(stdout, Padded(item.GetPriorityText(), 10) +
                          Padded(item.GetSubItemText(CUpdateListingItem::COLUMN_TITLE) + _T(" "),
                                 kTitleWidth) +
                          item.GetSubItemText(CUpdateListingItem::COLUMN_DATE));
    std::fflush(stdout);
}

int ConsoleView::ShowMessage(const WCHAR* text, UINT type) {
    HideProgress();
    PrintText(text);
    if ((type & MB_TYPEMASK) != MB_YESNO)
        return IDOK;
    return m_alwaysYes || ReadYes() ? IDYES : IDNO;
}

void PrintNews(const CUpdateListing& former, const CUpdateListing& present) {
    const auto& old = former.GetItems();
    for (const CUpdateListingItem& item : present.GetItems()) {
        // An entry without a date has the time at which it was loaded.
        const auto isIt = [&item](const CUpdateListingItem& each) {
            return each.GetTitle() == item.GetTitle() && each.GetLink() == item.GetLink();
        };
        if (std::none_of(old.begin(), old.end(), isIt))
            Print(stdout, _T("New: ") + item.GetTitle() +
                              (item.GetLink().IsEmpty() ? CString() : _T(" ") + item.GetLink()));
    }
}
