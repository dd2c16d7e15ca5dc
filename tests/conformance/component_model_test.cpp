#include "platform/component_calls.h"

#include "support/test.h"

#include <cstring>

TEST(ComponentModel, HasTheSystemsNumbers) {
    const auto code = [](HRESULT result) { return static_cast<DWORD>(result); };
    ExpectCases<DWORD>({
        CASE(code(S_OK), 0),
        CASE(code(S_FALSE), 1),
        CASE(code(E_NOINTERFACE), 0x80004002),
        CASE(code(E_POINTER), 0x80004003),
        CASE(code(E_FAIL), 0x80004005),
        CASE(code(E_OUTOFMEMORY), 0x8007000e),
        CASE(code(E_INVALIDARG), 0x80070057),
        CASE(sizeof(HRESULT), 4),
    });
    const auto bytes = [](const IID& id) {
        return std::string(reinterpret_cast<const char*>(&id), sizeof id);
    };
    const std::string tail("\0\0\0\0\xc0\0\0\0\0\0\0\x46", 12);
    EXPECT_EQ(bytes(IID_IUnknown), std::string(4, '\0') + tail);
    EXPECT_EQ(bytes(IID_IEnumString), std::string("\x01\x01\0\0", 4) + tail);
    EXPECT_TRUE(IID_IUnknown == IID_IUnknown);
    EXPECT_FALSE(IID_IUnknown == IID_IEnumString);
}

TEST(ComponentModel, AllocatesAndCounts) {
    void* const nothing = CoTaskMemAlloc(0);
    EXPECT_NE(nothing, nullptr);
    CoTaskMemFree(nothing);
    CoTaskMemFree(nullptr);
    void* const some = CoTaskMemAlloc(100000);
    std::memset(some, 1, 100000);
    CoTaskMemFree(some);

    LONG number = -1;
    EXPECT_EQ(InterlockedIncrement(&number), 0);
    EXPECT_EQ(InterlockedIncrement(&number), 1);
    EXPECT_EQ(InterlockedDecrement(&number), 0);
}
