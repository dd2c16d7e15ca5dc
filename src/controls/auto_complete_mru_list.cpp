#include <quorvel/controls/auto_complete_mru_list.h>

#include "controls/state_store.h"
#include "controls/text_copies.h"
#include "platform/component_calls.h"
#include "util/text/no_throw.h"

#include <algorithm>
#include <new>

using namespace quorvel;

namespace {

typedef std::vector<CString> Elements;

CString ValueName(std::size_t index) {
    CString name;
    name.Format(_T("MRU %d"), static_cast<int>(index + 1));
    return name;
}

// Returns false when a write failed.
bool SaveTexts(const Elements& elements, const StateGroup& place,
               BOOL (*isSaved)(const WCHAR* text)) {
    bool isComplete = true;
    for (std::size_t i = 0; i < elements.size(); ++i) {
        if (isSaved(elements[i]))
            isComplete = place.WriteText(ValueName(i), elements[i]) && isComplete;
    }
    return isComplete;
}

void LoadTexts(Elements& elements, UINT limit, const StateGroup& place,
               BOOL (*isLoaded)(const WCHAR* text)) {
    elements.clear();
    for (std::size_t i = 0; i < limit; ++i) {
        CString text;
        if (place.ReadText(ValueName(i), text) && isLoaded(text))
            elements.push_back(std::move(text));
    }
}

BOOL IsAnything(const WCHAR*) {
    return TRUE;
}

BOOL IsNotEmpty(const WCHAR* text) {
    return *text != 0;
}

} // namespace

CAutoCompleteMRUList::CAutoCompleteMRUList() = default;
CAutoCompleteMRUList::~CAutoCompleteMRUList() = default;

BOOL CAutoCompleteMRUList::IsValidElement(const WCHAR* text) {
    return WithoutException([&] { return !CString(text).Trim().IsEmpty(); });
}

BOOL CAutoCompleteMRUList::AddElement(const WCHAR* text) {
    if (!IsValidElement(text))
        return FALSE;
    return WithoutException([&] {
        CString added(text);
        auto place = std::find(m_elements.begin(), m_elements.end(), added);
        if (place == m_elements.end())
            place = m_elements.insert(place, std::move(added));
        std::rotate(m_elements.begin(), place, place + 1);
        m_elements.resize(std::min<std::size_t>(m_elements.size(), m_sizeLimit));
        return true;
    });
}

BOOL CAutoCompleteMRUList::RemoveElement(const WCHAR* text) {
    if (text == nullptr)
        return FALSE;
    const auto place = std::find(m_elements.begin(), m_elements.end(), text);
    if (place == m_elements.end())
        return FALSE;
    m_elements.erase(place);
    return TRUE;
}

void CAutoCompleteMRUList::RemoveAllElements() {
    m_elements.clear();
}

BOOL CAutoCompleteMRUList::SetSizeLimit(UINT limit) {
    if (!IsValidSizeLimit(limit))
        return FALSE;
    m_sizeLimit = limit;
    if (m_elements.size() > limit)
        m_elements.erase(m_elements.begin() + limit, m_elements.end());
    return TRUE;
}

UINT CAutoCompleteMRUList::GetRemainingElements() const noexcept {
    const UINT count = GetElementCount();
    return m_currentElement < count ? count - m_currentElement : 0;
}

CString CAutoCompleteMRUList::GetCurrentElement() const {
    return GetRemainingElements() > 0 ? m_elements[m_currentElement] : CString();
}

BOOL CAutoCompleteMRUList::SaveState(HKEY key, BOOL closeKey) {
    return WithoutException([&] {
        const StatePlace place = KeyState(key, closeKey != FALSE);
        return place != nullptr && SaveTexts(m_elements, *place, IsValidElement);
    });
}

BOOL CAutoCompleteMRUList::LoadState(HKEY key, BOOL closeKey) {
    return WithoutException([&] {
        const StatePlace place = KeyState(key, closeKey != FALSE);
        if (place != nullptr)
            LoadTexts(m_elements, m_sizeLimit, *place, IsAnything);
        return place != nullptr;
    });
}

BOOL CAutoCompleteMRUList::SaveState(const WCHAR* section) {
    return WithoutException([&] {
        const StatePlace place = SectionState(section);
        if (place != nullptr)
            SaveTexts(m_elements, *place, IsNotEmpty);
        return place != nullptr;
    });
}

BOOL CAutoCompleteMRUList::LoadState(const WCHAR* section) {
    return WithoutException([&] {
        const StatePlace place = SectionState(section);
        if (place != nullptr)
            LoadTexts(m_elements, m_sizeLimit, *place, IsValidElement);
        return place != nullptr;
    });
}

HRESULT CAutoCompleteMRUList::QueryInterface(REFIID id, void** object) {
    if (object == nullptr)
        return E_POINTER;
    *object = nullptr;
    if (!(id == IID_IEnumString || id == IID_IUnknown))
        return E_NOINTERFACE;
    *object = static_cast<IEnumString*>(this);
    AddRef();
    return S_OK;
}

ULONG CAutoCompleteMRUList::AddRef() {
    return static_cast<ULONG>(InterlockedIncrement(&m_references));
}

ULONG CAutoCompleteMRUList::Release() {
    const LONG references = InterlockedDecrement(&m_references);
    if (references == 0)
        delete this;
    return static_cast<ULONG>(references);
}

HRESULT CAutoCompleteMRUList::Next(ULONG count, WCHAR** texts, ULONG* fetched) {
    if (fetched != nullptr)
        *fetched = 0;
    if (count == 0)
        return E_INVALIDARG;
    if (texts == nullptr || (count != 1 && fetched == nullptr))
        return E_POINTER;
    if (m_elements.empty())
        return E_FAIL;
    const ULONG remaining = GetRemainingElements();
    const ULONG handedOut = std::min(count, remaining);
    if (!CopyTexts(m_elements.data() + (GetElementCount() - remaining), handedOut, texts))
        return E_OUTOFMEMORY;
    m_currentElement += handedOut;
    if (fetched != nullptr)
        *fetched = handedOut;
    return handedOut < count ? S_FALSE : S_OK;
}

HRESULT CAutoCompleteMRUList::Skip(ULONG count) {
    if (count == 0)
        return E_INVALIDARG;
    const ULONG skipped = std::min<ULONG>(count, GetRemainingElements());
    m_currentElement += skipped;
    return skipped < count ? S_FALSE : S_OK;
}

HRESULT CAutoCompleteMRUList::Reset() {
    m_currentElement = 0;
    return S_OK;
}

HRESULT CAutoCompleteMRUList::Clone(IEnumString** copy) {
    if (copy == nullptr)
        return E_INVALIDARG;
    *copy = nullptr;
    CAutoCompleteMRUList* list = nullptr;
    if (!WithoutException([&] { return (list = new CAutoCompleteMRUList(*this)) != nullptr; }))
        return E_OUTOFMEMORY;
    list->m_references = 1;
    *copy = list;
    return S_OK;
}
