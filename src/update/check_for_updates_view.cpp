#include <quorvel/update/check_for_updates_view.h>

#include <quorvel/frame/message_box.h>

CCheckForUpdatesView::~CCheckForUpdatesView() = default;

void CCheckForUpdatesView::ShowProgress(BOOL) {}

void CCheckForUpdatesView::HideProgress() {}

void CCheckForUpdatesView::SetProgressText(const WCHAR*) {}

void CCheckForUpdatesView::SetProgressFigures(ULONGLONG, ULONGLONG, int, const WCHAR*) {}

void CCheckForUpdatesView::SetPublishedText(const WCHAR*) {}

void CCheckForUpdatesView::SetLastCheckedText(const WCHAR*) {}

void CCheckForUpdatesView::ShowListing(const CUpdateListing&) {}

int CCheckForUpdatesView::ShowMessage(const WCHAR* text, UINT type) {
    return AfxErrorMessageBox(text, type, 0);
}

BOOL CCheckForUpdatesView::PostCheckFinished(DWORD) {
    return FALSE;
}

void CCheckForUpdatesView::OnFinished(Result) {}
