#include "console_view.h"

#include "common/console.h"

#include <algorithm>
#include <cstdio>
#include <set>

namespace {

constexpr int kBarWidth = 20;
constexpr int kTitleWidth = 48;

CString Padded(CString text, int width) {
    if (text.GetLength() < width)
        text += CString(WCHAR{' '}, width - text.GetLength());
    return text;
}

// Control characters, the separators of lines and paragraphs, and what changes the direction in
// which a terminal writes.
bool IsHarmful(WCHAR each) {
    return each < 0x20 || (each >= 0x7f && each <= 0x9f) || each == 0x61c || each == 0x200e ||
           each == 0x200f || (each >= 0x2028 && each <= 0x202e) ||
           (each >= 0x2066 && each <= 0x2069);
}

// Text that may come from a server.
CString Harmless(CString text) {
    for (int i = 0; i < text.GetLength(); ++i)
        if (IsHarmful(text[i]))
            text.SetAt(i, 0xfffd);
    return text;
}

// Line ends of a message box are lines of their own here.
void PrintText(CString text) {
    text.Remove('\r');
    text.TrimRight();
    for (int begin = 0; begin <= text.GetLength();) {
        const int found = text.Find('\n', begin);
        const int end = found >= 0 ? found : text.GetLength();
        Print(stdout, Harmless(text.Mid(begin, end - begin)));
        begin = end + 1;
    }
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
                          Padded(Harmless(item.GetTitle()) + _T(" "), kTitleWidth) +
                          item.GetSubItemText(CUpdateListingItem::COLUMN_DATE));
    std::fflush(stdout);
}

int ConsoleView::ShowMessage(const WCHAR* text, UINT type) {
    HideProgress();
    PrintText(text);
    if ((type & MB_TYPEMASK) != MB_YESNO)
        return IDOK;
    m_hasAgreed = m_alwaysYes || ReadYes();
    return m_hasAgreed ? IDYES : IDNO;
}

void PrintNews(const CUpdateListing& former, const CUpdateListing& present) {
    // Not by the date: an entry without one has the time at which it was loaded.
    typedef CUpdateListingItem Item;
    const auto isBefore = [](const Item* left, const Item* right) {
        const int order = left->GetTitle().Compare(right->GetTitle());
        return order != 0 ? order < 0 : left->GetLink() < right->GetLink();
    };
    std::set<const Item*, decltype(isBefore)> old;
    for (const Item& item : former.GetItems())
        old.insert(&item);
    for (const Item& item : present.GetItems()) {
        const CString line = _T("New: ") + item.GetTitle() + _T(" ") + item.GetLink();
        if (!old.contains(&item))
            Print(stdout, Harmless(CString(line).TrimRight()));
    }
}
