#include <quorvel/frame/byte_size.h>

#include "support/text.h"

#include <gtest/gtest.h>

namespace {

TEST(ByteSize, TheWholeCountStandsBehindTheShortText) {
    const struct {
        __int64 size;
        const WCHAR* shortText;
        const WCHAR* extended;
    } rows[] = {
        {0, _T("0 bytes"), _T("0 bytes")},
        {1023, _T("1023 bytes"), _T("1023 bytes")},
        {1024, _T("1.00 KB"), _T("1.00 KB (1,024 bytes)")},
        {1536, _T("1.50 KB"), _T("1.50 KB (1,536 bytes)")},
        {1048576, _T("1.00 MB"), _T("1.00 MB (1,048,576 bytes)")},
        {5368709120, _T("5.00 GB"), _T("5.00 GB (5,368,709,120 bytes)")},
        {9223372036854775807, _T("7.99 EB"), _T("7.99 EB (9,223,372,036,854,775,807 bytes)")},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.size);
        EXPECT_EQ(AfxFormatFileSize(row.size), CString(row.shortText));
        EXPECT_EQ(AfxFormatExtendedFileSize(row.size), CString(row.extended));
    }
    for (const int negative : {-1, -5000})
        EXPECT_EQ(AfxFormatExtendedFileSize(negative), AfxFormatFileSize(negative));
}

TEST(ByteSize, AByteHasEightBits) {
    for (const int bit : {0, 7})
        EXPECT_TRUE(AfxIsValidByteBit(bit)) << bit;
    for (const int bit : {-1, 8, 0x7fffffff})
        EXPECT_FALSE(AfxIsValidByteBit(bit)) << bit;
}

} // namespace
