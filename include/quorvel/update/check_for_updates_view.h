// CCheckForUpdatesView: what a check for updates shows and asks, for a dialog, a console or a test.
//
// The check decides and formats; a view shows. All calls come on the thread that the check was
// started on, and may call its Cancel. The defaults show the message boxes and nothing else.
#pragma once

#include <quorvel/platform/platform.h>

class CUpdateListing;

class QUORVEL_API CCheckForUpdatesView {
public:
    // How a check that was started ended.
    enum Result {
        resultUpToDate, // there is nothing newer
        resultDeclined, // the user did not want the newer listing
        resultUpdated,  // a newer listing was downloaded; or there is a new version
        resultFailed,   // and the reason was shown
        resultCancelled
    };

    virtual ~CCheckForUpdatesView();

    // The progress pane: small while the site is asked for a date, with a bar for a download. It
    // starts with an empty second line at 0, and always has a way to call the check's Cancel.
    virtual void ShowProgress(BOOL isDownload);
    virtual void HideProgress();
    virtual void SetProgressText(const WCHAR* text);
    // Bytes; `expected` is 0 until it is known, and too low when the server does not announce the
    // length or announces too little: then there are more than 100 percent.
    virtual void SetProgressFigures(ULONGLONG received, ULONGLONG expected, int percent,
                                    const WCHAR* text);

    // Lines about the local updates file and the last check, with dates in the user's local time;
    // the second is empty before any check.
    virtual void SetPublishedText(const WCHAR* text);
    virtual void SetLastCheckedText(const WCHAR* text);
    // The listing was loaded or emptied.
    virtual void ShowListing(const CUpdateListing& listing);

    // Informs, reports or asks: the type is that of a message box and the result its button's. The
    // check must outlive the call.
    virtual int ShowMessage(const WCHAR* text, UINT type);

    // A check ended with this code: 0, an HTTP status, a Winsock error or a system error. A view
    // that can't show a box now posts the code to itself, returns TRUE, and calls the check's
    // OnCheckFinished with it later, which shows the reason. After FALSE it is called at once.
    virtual BOOL PostCheckFinished(DWORD code);
    // Once for each check that was started, after its messages.
    virtual void OnFinished(Result result);
};
