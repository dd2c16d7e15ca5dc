#include <quorvel/update/update_listing.h>

#include <quorvel/frame/exception_text.h>
#include <quorvel/frame/message_box.h>
#include <quorvel/framework/exceptions.h>
#include <quorvel/res/message_ids.h>
#include <quorvel/util/calendar/date_parser.h>
#include <quorvel/util/calendar/local_time.h>
#include <quorvel/xml/markup.h>
#include <quorvel/xml/xml_file.h>

#include <new>

namespace {

constexpr int kDayMonthYear = 1; // for dates such as 3/4/2007

// The text of the main element's child with that name; empty and FALSE if it is missing.
BOOL ReadChild(CMarkup& markup, const WCHAR* name, CString& text) {
    markup.ResetChildPos();
    const bool found = markup.FindChildElem(name);
    text = found ? markup.GetChildData() : CString();
    return found;
}

CString ReadChild(CMarkup& markup, const WCHAR* name) {
    CString text;
    ReadChild(markup, name, text);
    return text;
}

// The main element must be the entry.
CUpdateListingItem ReadItem(CMarkup& markup) {
    CString dateText;
    COleDateTime date;
    if (ReadChild(markup, _T("pubDate"), dateText))
        AfxStringToDate(dateText, date, kDayMonthYear);
    else
        date = AfxGetCurrentUTCTime();
    return CUpdateListingItem(
        ReadChild(markup, _T("title")), ReadChild(markup, _T("description")).Trim(),
        ReadChild(markup, _T("priority")), date, ReadChild(markup, _T("link")), FALSE);
}

// Makes <channel> the main element and reads its date. Returns 0, or the text of a missing element.
UINT FindChannel(CMarkup& markup, CString& buildDate) {
    markup.ResetPos();
    if (!markup.FindElem(_T("rss")))
        return quorvel::kTextUpdatesFileMissingRss;
    if (!markup.FindChildElem(_T("channel")))
        return quorvel::kTextUpdatesFileMissingChannel;
    markup.IntoElem();
    return ReadChild(markup, _T("lastBuildDate"), buildDate)
               ? 0
               : UINT{quorvel::kTextUpdatesFileMissingBuildDate};
}

std::vector<CUpdateListingItem> ReadItems(CMarkup& markup) {
    std::vector<CUpdateListingItem> items;
    markup.ResetChildPos();
    while (markup.FindChildElem(_T("item"))) {
        markup.IntoElem();
        items.push_back(ReadItem(markup));
        markup.OutOfElem();
    }
    return items;
}

} // namespace

BOOL CUpdateListing::Load(const WCHAR* fileName, CString& errorText, UINT& icon,
                          CLengthyOperationHandler* handler) {
    icon = MB_ICONSTOP;
    try {
        CMarkup markup;
        if (!AfxLoadXMLFile(fileName, markup, errorText, handler))
            return FALSE;
        CString buildDate;
        if (const UINT missing = FindChannel(markup, buildDate)) {
            CString cause;
            cause.LoadString(missing);
            errorText.FormatMessage(quorvel::kTextErrorLoadingUpdatesFile, cause.GetString());
            icon = MB_ICONEXCLAMATION;
            return FALSE;
        }
        std::vector<CUpdateListingItem> items = ReadItems(markup);
        AfxStringToDate(buildDate, m_publishedDate, kDayMonthYear);
        m_items.swap(items);
        return TRUE;
    } catch (CException* exception) {
        AfxGetExceptionText(exception, errorText);
        exception->Delete();
    } catch (const std::bad_alloc&) {
        AfxGetMemoryExceptionErrorMessage(errorText);
    }
    return FALSE;
}

BOOL AfxLoadUpdateListing(const WCHAR* fileName, CUpdateListing& listing,
                          CLengthyOperationHandler* handler) {
    CString errorText;
    UINT icon = 0;
    if (listing.Load(fileName, errorText, icon, handler))
        return TRUE;
    AfxErrorMessageBox(errorText, MB_OK | icon, 0);
    return FALSE;
}
