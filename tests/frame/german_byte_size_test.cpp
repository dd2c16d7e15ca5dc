#include <quorvel/frame/byte_size.h>

#include "support/test.h"

TEST(GermanByteSize, TheUsersSeparatorsAreUsed) {
    EXPECT_EQ(AfxFormatExtendedFileSize(1234567), _T("1,17 MB (1.234.567 bytes)"));
}
