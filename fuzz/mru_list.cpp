// A saved list of texts with arbitrary values: loading stops at the limit, the enumerator returns
// the loaded texts, and saving again gives the same list, except texts of white space.
#include <quorvel/controls/auto_complete_mru_list.h>

#include "fuzz_input.h"
#include "support/registry.h"

using namespace quorvel::win32;

static std::vector<CString> TextsOf(CAutoCompleteMRUList& list) {
    std::vector<CString> texts;
    list.Reset();
    WCHAR* text = nullptr;
    while (list.Next(1, &text, nullptr) == S_OK) {
        texts.push_back(text);
        CoTaskMemFree(std::exchange(text, nullptr));
    }
    Require(text == nullptr && texts.size() == list.GetElementCount());
    return texts;
}

FUZZ_TARGET(input) {
    const TestKey test, other;
    const std::size_t size = input.Bytes().size();
    CAutoCompleteMRUList list;
    list.SetSizeLimit(input.Byte());
    for (std::size_t count = std::min<std::size_t>(size / 2, 24); count > 0; --count) {
        const unsigned what = input.Byte();
        std::string bytes(input.Byte(), '\0');
        for (char& next : bytes)
            next = static_cast<char>(input.Byte());
        CString name;
        name.Format(_T("MRU %u"), what % 32);
        TestKey::Set(test.Get(), name, what < 224 ? REG_SZ : what % 12, bytes);
    }
    Require(list.LoadState(test.Get(), FALSE));
    Require(list.GetElementCount() <= list.GetSizeLimit());
    std::vector<CString> texts = TextsOf(list);
    CAutoCompleteMRUList again(list);
    Require(list.SaveState(other.Get(), FALSE));
    Require(again.LoadState(other.Get(), FALSE));
    std::erase_if(texts,
                  [](const CString& each) { return !CAutoCompleteMRUList::IsValidElement(each); });
    Require(TextsOf(again) == texts);
    list.AddElement(_T("x"));
    Require(TextsOf(list)[0] == _T("x") && list.GetElementCount() <= list.GetSizeLimit());
}
