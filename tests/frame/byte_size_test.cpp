#include <quorvel/frame/byte_size.h>

#include "support/test.h"

TEST(ByteSize, TheWholeCountFollowsTheShortText) {
    ExpectCases<CString, const WCHAR*>({
        CASE(AfxFormatExtendedFileSize(1023), _T("1023 bytes")),
        CASE(AfxFormatExtendedFileSize(1024), _T("1.00 KB (1,024 bytes)")),
        CASE(AfxFormatExtendedFileSize(5368709120), _T("5.00 GB (5,368,709,120 bytes)")),
        CASE(AfxFormatExtendedFileSize(9223372036854775807),
             _T("7.99 EB (9,223,372,036,854,775,807 bytes)")),
        CASE(AfxFormatExtendedFileSize(-5000), AfxFormatFileSize(-5000)),
    });
}
