#include <quorvel/framework/map.h>

#include "support/test.h"

#include <set>

TEST(Map, FindsValuesByKeysOfAnyType) {
    CMap<int, int, CString, const CString&> numbers;
    for (int i = -500; i < 500; ++i)
        numbers.SetAt(i, _T("new"));
    numbers.SetAt(3, _T("three"));
    CString value = _T("before");
    EXPECT_TRUE(!numbers.Lookup(500, value) && value == _T("before"));
    EXPECT_TRUE(numbers.Lookup(3, value) && value == _T("three"));
    EXPECT_EQ(numbers[500], _T("")) << "added";
    EXPECT_EQ(numbers.GetCount(), 1001);
    EXPECT_TRUE(numbers.RemoveKey(3) && !numbers.RemoveKey(3));

    CMap<CString, const WCHAR*, int, int> texts;
    texts[_T("one")] = 1;
    texts.SetAt(CString(_T("on")) + _T("e"), 11);
    texts[_T("One")] = 2;
    EXPECT_EQ(texts.GetCount(), 2);
    EXPECT_EQ(texts[_T("one")], 11);
}

TEST(Map, AWalkMeetsEachEntryOnceWhileEntriesAreRemoved) {
    CMap<int, int, int, int> map;
    for (int i = 0; i < 100; ++i)
        map.SetAt(i, i * i);
    std::set<int> met;
    for (POSITION next = map.GetStartPosition(); next != nullptr;) {
        int key = -1, value = -1;
        map.GetNextAssoc(next, key, value);
        EXPECT_EQ(value, key * key);
        EXPECT_TRUE(met.insert(key).second);
        map.RemoveKey(key);
    }
    EXPECT_EQ(met.size(), 100u);
    EXPECT_TRUE(map.IsEmpty());
}
