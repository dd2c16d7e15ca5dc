// CCheckForUpdatesView: the user interface of a check for updates: a dialog, a console or a test.
//
// The check decides and formats; the view shows. All calls are on the thread that started the check
// and may call its Cancel. The default shows only the message boxes.
#pragma once

#include <quorvel/platform/platform.h>

class CUpdateListing;

class QUORVEL_API CCheckForUpdatesView {
public:
    // The outcome of a check that was started.
    enum Result {
        resultUpToDate, // there is nothing newer
        resultDeclined, // the user did not want the newer listing
        resultUpdated,  // a newer listing was downloaded; or there is a new version
        resultFailed,   // the reason was shown
        resultCancelled
    };

    virtual ~CCheckForUpdatesView();

    // The progress pane: small for the request of the date, with a bar for a download. It starts
    // with an empty second line and 0 percent. It must always let the user call the check's Cancel.
    virtual void ShowProgress(BOOL isDownload);
    virtual void HideProgress();
    virtual void SetProgressText(const WCHAR* text);
    // In bytes. `expected` is 0 while it is unknown. It is too low when the server announces no
    // length or too small a length; then the percentage exceeds 100.
    virtual void SetProgressFigures(ULONGLONG received, ULONGLONG expected, int percent,
                                    const WCHAR* text);

    // Texts about the local updates file and the last check, with dates in local time. The second
    // text is empty before the first check.
    virtual void SetPublishedText(const WCHAR* text);
    virtual void SetLastCheckedText(const WCHAR* text);
    // The listing was loaded or emptied.
    virtual void ShowListing(const CUpdateListing& listing);

    // Informs, reports or asks. `type` and the result are those of a message box. The check must
    // not be destroyed during the call.
    virtual int ShowMessage(const WCHAR* text, UINT type);

    // A check ended with this code: 0, an HTTP status, a Winsock error or a system error. A view
    // that cannot show a box now posts the code to itself, returns TRUE, and later passes it to the
    // check's OnCheckFinished, which shows the reason. After FALSE that is called at once.
    virtual BOOL PostCheckFinished(DWORD code);
    // Once for each check that was started, after its messages.
    virtual void OnFinished(Result result);
};
