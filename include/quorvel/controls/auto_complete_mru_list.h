// CAutoCompleteMRUList: the most recently used texts, latest first, as an enumerator for the
// system's auto-completion.
//
// Lifetime: the reference count starts at 0, and the Release that brings it back to 0 deletes
// the object. So an owner that shares a list with the system creates it with new, calls AddRef
// at once, and calls Release as its last use. Then the order in which system and owner release
// it does not matter. A list that is never shared may be a plain object without AddRef and
// Release.
//
// Any thread may call AddRef and Release. Use everything else on one thread at a time. Nothing
// throws: a failed allocation returns FALSE or E_OUTOFMEMORY.
#pragma once

#include <quorvel/framework/string.h>
#include <quorvel/platform/component_model.h>

#include <vector>

// The interface has no virtual destructor: the last Release destroys an object.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

class QUORVEL_API CAutoCompleteMRUList final : public IEnumString {
public:
    // The state of a new list, and the bounds of its size limit.
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

    // Whether the text has more than white space. FALSE for null.
    static BOOL IsValidElement(const WCHAR* text);
    // From MIN_SIZE_LIMIT to MAX_SIZE_LIMIT.
    static BOOL IsValidSizeLimit(UINT limit) noexcept {
        return limit >= MIN_SIZE_LIMIT && limit <= MAX_SIZE_LIMIT;
    }

    // Adds the text unchanged, with outer white space, to the front. An equal text (case-sensitive)
    // is removed from its old place, and texts beyond the limit are dropped from the end. An
    // invalid text returns FALSE and changes nothing.
    BOOL AddElement(const WCHAR* text);
    BOOL RemoveElement(const WCHAR* text); // FALSE when it is missing
    void RemoveAllElements();              // does not change the enumerator's position
    BOOL SetSizeLimit(UINT limit);         // FALSE and no change outside 1 to 50
    // The limit, and the number of texts in the list, which is never above it.
    UINT GetSizeLimit() const noexcept { return m_sizeLimit; }
    UINT GetElementCount() const noexcept { return static_cast<UINT>(m_elements.size()); }

    // Count from the enumerator's position. At a position past the end, possible after a removal,
    // they return 0 and an empty text.
    UINT GetRemainingElements() const noexcept;
    CString GetCurrentElement() const;

    // Save or load one text value per element, "MRU 1" for the latest and so on; values beyond
    // these that were saved earlier remain. In a key, white space is not saved, a failed write
    // returns FALSE but does not end saving, and loading accepts any text and closes gaps. With
    // `closeKey` the key is always closed. FALSE for a null key.
    BOOL SaveState(HKEY key, BOOL closeKey);
    BOOL LoadState(HKEY key, BOOL closeKey);
    // In a section of the application's profile, only empty texts are not saved, failed writes do
    // not change the result, and loading accepts valid elements only. FALSE for a null or empty
    // section and without an application object.
    BOOL SaveState(const WCHAR* section);
    BOOL LoadState(const WCHAR* section);

    // IUnknown. Supports IID_IUnknown and IID_IEnumString.
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    // IEnumString. The caller frees the texts with CoTaskMemFree. `fetched` may be null if `count`
    // is 1. Returns S_FALSE when fewer texts are left than requested, and E_FAIL for an empty list.
    // On E_OUTOFMEMORY no text is returned and the position stays.
    HRESULT STDMETHODCALLTYPE Next(ULONG count, WCHAR** texts, ULONG* fetched) override;
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) override;
    HRESULT STDMETHODCALLTYPE Reset() override;
    // The copy is independent, has one reference and the same position.
    HRESULT STDMETHODCALLTYPE Clone(IEnumString** copy) override;

private:
    LONG m_references = DEFAULT_REFERENCE_COUNT;
    ULONG m_currentElement = DEFAULT_CURRENT_ELEMENT;
    std::vector<CString> m_elements;
    UINT m_sizeLimit = DEFAULT_SIZE_LIMIT;
};

#pragma GCC diagnostic pop
