// A check for updates on a console. Prints its messages on standard output and a line with the
// progress on standard error, and reads answers from standard input. Shows U+FFFD for characters
// with which a text could control the terminal or forge another line.
#pragma once

#include <quorvel/update/check_for_updates_view.h>
#include <quorvel/update/update_listing.h>

class ConsoleView : public CCheckForUpdatesView {
public:
    explicit ConsoleView(bool alwaysYes) : m_alwaysYes(alwaysYes) {}

    void HideProgress() override;
    void SetProgressText(const WCHAR* text) override;
    void SetProgressFigures(ULONGLONG received, ULONGLONG expected, int percent,
                            const WCHAR* text) override;
    void SetPublishedText(const WCHAR* text) override;
    void SetLastCheckedText(const WCHAR* text) override;
    void ShowListing(const CUpdateListing& listing) override; // as a table
    int ShowMessage(const WCHAR* text, UINT type) override;
    void OnFinished(Result result) override { m_result = result; }

    Result GetResult() const { return m_result; }
    bool HasAgreed() const { return m_hasAgreed; } // to the last question

private:
    const bool m_alwaysYes;
    bool m_hasAgreed = false;
    Result m_result = resultFailed;
    int m_shownPercent = -1; // of the line that has no end yet
};

// The entries of a listing whose title and link are not in the former one, a line each.
void PrintNews(const CUpdateListing& former, const CUpdateListing& present);
