#include <quorvel/update/update_listing_item.h>

#include <quorvel/util/calendar/date_text.h>

#include <algorithm>
#include <iterator>

namespace {

constexpr const WCHAR* kPriorityTexts[] = {_T("high"), _T("normal"), _T("low")};

BOOL SetText(CString& field, const WCHAR* text) {
    if (text == nullptr)
        return FALSE;
    field = text;
    return TRUE;
}

} // namespace

const COleDateTime CUpdateListingItem::DEFAULT_DATE = COleDateTime::GetCurrentTime();

CUpdateListingItem::CUpdateListingItem()
    : CUpdateListingItem(DEFAULT_TITLE, DEFAULT_DESCRIPTION, DEFAULT_PRIORITY, DEFAULT_DATE,
                         DEFAULT_LINK, DEFAULT_NEW) {}

CUpdateListingItem::CUpdateListingItem(const WCHAR* title, const WCHAR* description, BYTE priority,
                                       COleDateTime date, const WCHAR* link, BOOL isNew)
    : m_title(title), m_description(description), m_date(date), m_link(link), m_new(isNew) {
    SetPriority(priority);
}

CUpdateListingItem::CUpdateListingItem(const WCHAR* title, const WCHAR* description,
                                       const WCHAR* priority, COleDateTime date, const WCHAR* link,
                                       BOOL isNew)
    : CUpdateListingItem(title, description, DEFAULT_PRIORITY, date, link, isNew) {
    SetPriorityFromText(priority);
}

BOOL CUpdateListingItem::SetTitle(const WCHAR* title) {
    return SetText(m_title, title);
}

BOOL CUpdateListingItem::SetDescription(const WCHAR* description) {
    return SetText(m_description, description);
}

BOOL CUpdateListingItem::SetLink(const WCHAR* link) {
    return SetText(m_link, link);
}

BOOL CUpdateListingItem::SetPriority(BYTE priority) noexcept {
    if (!IsValidPriority(priority))
        return FALSE;
    m_priority = priority;
    return TRUE;
}

BOOL CUpdateListingItem::SetPriorityFromText(const WCHAR* text) {
    if (text == nullptr)
        return FALSE;
    const CString given(text);
    const auto found = std::ranges::find_if(
        kPriorityTexts, [&given](const WCHAR* each) { return given.CompareNoCase(each) == 0; });
    m_priority = found != std::end(kPriorityTexts)
                     ? static_cast<BYTE>(found - std::begin(kPriorityTexts))
                     : PRIORITY_NORMAL;
    return TRUE;
}

CString CUpdateListingItem::GetPriorityText() const {
    return kPriorityTexts[m_priority];
}

CString CUpdateListingItem::GetSubItemText(int column) {
    switch (column) {
    case COLUMN_TITLE:
        return m_title;
    case COLUMN_DATE:
        return AfxGetLocaleShortDate(m_date);
    default:
        return CString();
    }
}

BOOL CUpdateListingItem::operator==(const CUpdateListingItem& other) const noexcept {
    return m_title == other.m_title && m_description == other.m_description &&
           m_priority == other.m_priority && m_date == other.m_date && m_link == other.m_link &&
           m_new == other.m_new;
}
