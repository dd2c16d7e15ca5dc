// CAutoCompleteMRUList: the texts a user entered last, the latest first, and an enumerator of them
// that the system's auto-completion reads.
//
// Lifetime: references are counted from 0, and the Release that brings the count back to 0 deletes
// the object. So an owner that shares a list with the system creates it with new, calls AddRef at
// once, and calls Release as its last use; then it does not matter whether the system or the owner
// lets go first. A list that is never handed out may be a plain object, on which nobody calls
// AddRef or Release.
//
// References may be counted by any thread. Everything else belongs to one thread at a time. Nothing
// throws: lack of memory is a FALSE or E_OUTOFMEMORY.
#pragma once

#include <quorvel/framework/string.h>
#include <quorvel/platform/component_model.h>

#include <vector>

// An interface has no virtual destructor: its objects end with their last Release.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

class QUORVEL_API CAutoCompleteMRUList final : public IEnumString {
public:
    static constexpr ULONG DEFAULT_REFERENCE_COUNT = 0;
    static constexpr ULONG DEFAULT_CURRENT_ELEMENT = 0;
    static constexpr UINT DEFAULT_SIZE_LIMIT = 20;
    static constexpr UINT MIN_SIZE_LIMIT = 1;
    static constexpr UINT MAX_SIZE_LIMIT = 50;

    CAutoCompleteMRUList();
    // Deliberate: the reference count is copied too.
    CAutoCompleteMRUList(const CAutoCompleteMRUList& other) = default;
    CAutoCompleteMRUList& operator=(const CAutoCompleteMRUList& other) = default;
    ~CAutoCompleteMRUList();

    // Whether the text holds more than white space. FALSE for null.
    static BOOL IsValidElement(const WCHAR* text);
    static BOOL IsValidSizeLimit(UINT limit) noexcept {
        return limit >= MIN_SIZE_LIMIT && limit <= MAX_SIZE_LIMIT;
    }

    // Puts the text in front as it is given, with its outer white space; an equal one leaves its
    // former place, and what exceeds the limit is dropped from the end. Letter case counts. FALSE,
    // and the list as it was, for a text that is not valid.
    BOOL AddElement(const WCHAR* text);
    BOOL RemoveElement(const WCHAR* text); // FALSE when there is no such text
    void RemoveAllElements();              // the position of the enumeration stays
    BOOL SetSizeLimit(UINT limit);         // FALSE, and nothing changed, outside 1 to 50
    UINT GetSizeLimit() const noexcept { return m_sizeLimit; }
    UINT GetElementCount() const noexcept { return static_cast<UINT>(m_elements.size()); }

    // From the position of the enumeration on: a position past the end, which removing leaves
    // behind, has 0 elements and an empty text before it.
    UINT GetRemainingElements() const noexcept;
    CString GetCurrentElement() const;

    // One text for each element, named "MRU 1" for the latest and so on; those of a longer list
    // that was saved before stay. In a key, texts of white space are left out, a failed write makes
    // the result FALSE and does not end saving, and a list is loaded as it is found: unchecked,
    // with gaps closed. With `closeKey` the key is closed in any case. FALSE for a null key.
    BOOL SaveState(HKEY key, BOOL closeKey);
    BOOL LoadState(HKEY key, BOOL closeKey);
    // In a section of the application's profile only empty texts are left out of saving, whose
    // result does not depend on the writes, and loading takes valid elements only. FALSE for a null
    // or empty section and without an application object.
    BOOL SaveState(const WCHAR* section);
    BOOL LoadState(const WCHAR* section);

    // IUnknown. IID_IUnknown and IID_IEnumString are known.
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    // IEnumString. The caller frees the texts with CoTaskMemFree. `fetched` may be null when one
    // text is asked for. S_FALSE when fewer are left than asked for, E_FAIL from an empty list.
    // E_OUTOFMEMORY hands out nothing and keeps the position.
    HRESULT STDMETHODCALLTYPE Next(ULONG count, WCHAR** texts, ULONG* fetched) override;
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) override;
    HRESULT STDMETHODCALLTYPE Reset() override;
    // A list of its own, with one reference, at the same position.
    HRESULT STDMETHODCALLTYPE Clone(IEnumString** copy) override;

private:
    LONG m_references = DEFAULT_REFERENCE_COUNT;
    ULONG m_currentElement = DEFAULT_CURRENT_ELEMENT;
    std::vector<CString> m_elements;
    UINT m_sizeLimit = DEFAULT_SIZE_LIMIT;
};

#pragma GCC diagnostic pop
