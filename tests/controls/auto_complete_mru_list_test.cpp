#include <quorvel/controls/auto_complete_mru_list.h>

#include <quorvel/framework/app.h>
#include <quorvel/system/profile.h>

#include "controls/text_copies.h"
#include "support/registry.h"
#include "support/test.h"

#include <thread>

using namespace quorvel::win32;

namespace {

typedef CAutoCompleteMRUList List;

const WCHAR* const kNoText = nullptr;
const HKEY kNoKey = nullptr;

// The elements of a copy from the first one on, each followed by a bar.
CString TextsOf(List list) {
    CString texts;
    for (list.Reset(); list.GetRemainingElements() > 0; list.Skip(1))
        texts += list.GetCurrentElement() + _T("|");
    return texts;
}

List ListOf(std::initializer_list<const WCHAR*> texts) {
    List list;
    for (const WCHAR* const text : texts)
        list.AddElement(text);
    return list;
}

// The result of a call of Next, the number of texts and the texts.
typedef std::tuple<HRESULT, ULONG, CString> Fetched;

Fetched Next(IEnumString& list, ULONG count) {
    WCHAR* texts[60] = {};
    CString joined;
    ULONG fetched = 77;
    const HRESULT result = list.Next(count, texts, &fetched);
    for (WCHAR* const text : texts) {
        joined += text != nullptr ? CString(text) + _T("|") : CString();
        CoTaskMemFree(text);
    }
    return {result, fetched, joined};
}

} // namespace

TEST(MRUList, KeepsTheLatestFirst) {
    List twenty;
    for (WCHAR letter = 'a'; letter <= 'u'; ++letter)
        EXPECT_TRUE(twenty.AddElement(CString(letter)));
    List five = twenty;
    EXPECT_TRUE(five.SetSizeLimit(5));
    List removed = ListOf({_T("a"), _T("b"), _T("c")});
    ExpectCases<BOOL>(
        {CASE(five.SetSizeLimit(0), FALSE), CASE(five.SetSizeLimit(51), FALSE),
         CASE(removed.AddElement(nullptr), FALSE), CASE(removed.AddElement(_T(" \t ")), FALSE),
         CASE(removed.RemoveElement(_T("b")), TRUE), CASE(removed.RemoveElement(_T("A")), FALSE),
         CASE(removed.RemoveElement(nullptr), FALSE), CASE(five.AddElement(_T("x")), TRUE)});
    ExpectCases<CString>(
        {CASE(TextsOf(ListOf({_T("a"), _T("b"), _T("c"), _T("b")})), _T("b|c|a|")),
         CASE(TextsOf(ListOf({_T("abc"), _T("Abc"), _T(" x ")})), _T(" x |Abc|abc|")),
         CASE(TextsOf(twenty), _T("u|t|s|r|q|p|o|n|m|l|k|j|i|h|g|f|e|d|c|b|")),
         CASE(TextsOf(five), _T("x|u|t|s|r|")), CASE(TextsOf(removed), _T("c|a|"))});
}

TEST(MRUList, EnumeratesFromASharedPosition) {
    List list = ListOf({_T("b"), _T("a")});
    List empty;
    WCHAR* text = nullptr;
    ULONG fetched = 7;
    ExpectCases<Fetched>({CASE(Next(list, 0), Fetched(E_INVALIDARG, 0, _T(""))),
                          CASE(Next(list, 3), Fetched(S_FALSE, 2, _T("a|b|"))),
                          CASE(Next(list, 3), Fetched(S_FALSE, 0, _T(""))),
                          CASE(Next(empty, 1), Fetched(E_FAIL, 0, _T("")))});
    ExpectCases<HRESULT>({CASE(list.Next(1, nullptr, &fetched), E_POINTER),
                          CASE(list.Next(2, &text, nullptr), E_POINTER),
                          CASE(list.Skip(1), S_FALSE), CASE(list.Reset(), S_OK),
                          CASE(list.Skip(0), E_INVALIDARG), CASE(list.Skip(1), S_OK),
                          CASE(list.Next(1, &text, nullptr), S_OK)});
    EXPECT_EQ(fetched, 0u);
    EXPECT_EQ(CString(text), _T("b"));
    CoTaskMemFree(text);

    // The position stays, now beyond the end.
    list.RemoveAllElements();
    list.AddElement(_T("c"));
    EXPECT_EQ(list.GetRemainingElements(), 0u);
    EXPECT_EQ(list.GetCurrentElement(), _T(""));
    EXPECT_EQ(list.Skip(0xffffffff), S_FALSE);
    EXPECT_EQ(Next(list, 2), Fetched(S_FALSE, 0, _T("")));
}

// The sanitizers detect an object that is freed too early or never.
TEST(MRUList, EndsWithItsLastReference) {
    List* const list = new List(ListOf({_T("b"), _T("a")}));
    EXPECT_EQ(list->AddRef(), 1u);
    void* found = list;
    IEnumString* copy = nullptr;
    ExpectCases<HRESULT>({CASE(list->QueryInterface(IID_IUnknown, nullptr), E_POINTER),
                          CASE(list->QueryInterface(IID(), &found), E_NOINTERFACE),
                          CASE(list->Clone(nullptr), E_INVALIDARG), CASE(list->Skip(1), S_OK),
                          CASE(list->Clone(&copy), S_OK)});
    EXPECT_EQ(found, nullptr);
    for (const IID& id : {IID_IUnknown, IID_IEnumString}) {
        EXPECT_EQ(list->QueryInterface(id, &found), S_OK);
        EXPECT_EQ(found, list);
        EXPECT_EQ(static_cast<IUnknown*>(found)->Release(), 1u);
    }
    const auto count = [list] {
        for (int i = 0; i < 10000; ++i)
            list->AddRef();
    };
    std::thread counter(count);
    count();
    counter.join();
    for (ULONG left = 20001; left >= 1; --left)
        ASSERT_EQ(list->Release(), left - 1);
    EXPECT_EQ(Next(*copy, 2), Fetched(S_FALSE, 1, _T("b|"))) << "is independent";
    EXPECT_EQ(copy->Release(), 0u);
}

TEST(MRUList, FreesTheCopiesMadeBeforeMemoryRanOut) {
    static int s_left;
    const CString texts[] = {_T("a"), _T("b"), _T("c")};
    WCHAR* copies[3] = {};
    s_left = 2;
    EXPECT_FALSE(quorvel::CopyTexts(texts, 3, copies, [](SIZE_T size) WINAPI {
        return s_left-- > 0 ? CoTaskMemAlloc(size) : nullptr;
    }));
    for (const WCHAR* const copy : copies)
        EXPECT_EQ(copy, nullptr);
}

struct StoredMRUList : testing::Test {
    StoredMRUList() { app.SetRegistryKey(test.Path().Mid(9)); } // relative to Software
    const TestKey test;
    CWinApp app{_T("Program")};
};

TEST_F(StoredMRUList, HasATextForEachPosition) {
    List five = ListOf({_T("5"), _T("4"), _T("3"), _T("2"), _T("1")});
    List three = ListOf({_T("c"), _T("b"), _T("a")});
    List loaded = ListOf({_T("former")});
    EXPECT_TRUE(five.SaveState(test.Get(), FALSE) && three.SaveState(test.Get(), FALSE));
    EXPECT_TRUE(loaded.LoadState(test.Get(), FALSE));
    EXPECT_EQ(TextsOf(loaded), _T("a|b|c|4|5|")); // values of the longer list remain
    EXPECT_EQ(AfxGetProfileString(test.Get(), _T("MRU 1"), _T("")), _T("a"));
    EXPECT_TRUE(five.SaveState(_T("s\\t")) && loaded.SetSizeLimit(4));
    EXPECT_EQ(app.GetProfileString(_T("s\\t"), _T("MRU 4")), _T("4"));
    EXPECT_TRUE(loaded.LoadState(_T("s\\t")));
    EXPECT_EQ(TextsOf(loaded), _T("1|2|3|4|"));

    HKEY readOnly = nullptr;
    ASSERT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, test.Path(), 0, KEY_READ, &readOnly), 0);
    ExpectCases<BOOL>(
        {CASE(loaded.SaveState(kNoKey, TRUE), FALSE), CASE(loaded.LoadState(kNoKey, TRUE), FALSE),
         CASE(loaded.SaveState(kNoText), FALSE), CASE(loaded.LoadState(kNoText), FALSE),
         CASE(loaded.SaveState(readOnly, TRUE), FALSE)});
    EXPECT_NE(RegCloseKey(readOnly), 0) << "already closed";
    EXPECT_EQ(loaded.GetElementCount(), 4u); // a refused text changes nothing
}

TEST_F(StoredMRUList, MayBeWrittenByOthers) {
    HKEY section = app.GetSectionKey(_T("s"));
    const std::string megabyte(1024 * 1024, 'x');
    for (const HKEY key : {test.Get(), section}) {
        TestKey::Set(key, _T("MRU 1"), REG_SZ, megabyte);
        TestKey::Set(key, _T("MRU 2"), REG_DWORD, "1234");
        TestKey::Set(key, _T("MRU 4"), REG_SZ, std::string("a\0b", 3)); // half a character follows
        TestKey::Set(key, _T("MRU 5"), REG_SZ, std::string(" \0\0\0", 4));
        TestKey::Set(key, _T("MRU 6"), REG_SZ, std::string("a\0\0\0b\0", 6));
        TestKey::Set(key, _T("MRU 7"), REG_SZ, "");
        TestKey::Set(key, _T("MRU 21"), REG_SZ, std::string("z\0\0\0", 4));
    }
    List list;
    EXPECT_TRUE(list.LoadState(test.Get(), FALSE));
    EXPECT_EQ(list.GetCurrentElement().GetLength(), 512 * 1024);
    list.RemoveElement(list.GetCurrentElement());
    EXPECT_EQ(TextsOf(list), _T("a| |a||")); // loaded without any check
    // In a key white space is not written, so the value at that position is unchanged.
    const TestKey other;
    EXPECT_TRUE(list.SaveState(other.Get(), FALSE));
    EXPECT_EQ(AfxGetProfileString(other.Get(), _T("MRU 2"), _T("none")), _T("none"));
    EXPECT_EQ(AfxGetProfileString(other.Get(), _T("MRU 3"), _T("none")), _T("a"));
    EXPECT_TRUE(list.SaveState(_T("t")));
    EXPECT_EQ(app.GetProfileString(_T("t"), _T("MRU 2")), _T(" "));
    EXPECT_EQ(app.GetProfileString(_T("t"), _T("MRU 4"), _T("none")), _T("none"));

    EXPECT_TRUE(list.LoadState(_T("s"))); // only valid texts
    list.RemoveElement(list.GetCurrentElement());
    EXPECT_EQ(TextsOf(list), _T("a|a|"));
    RegCloseKey(section);
}
