#include <quorvel/framework/mem_file.h>

#include "support/test.h"

#include <cstdlib>

TEST(MemFile, GrowsAndFillsGapsWithZeros) {
    CMemFile file(4);
    file.Write("ab", 2);
    file.Seek(3, CFile::current);
    EXPECT_EQ(file.GetLength(), 2u);
    file.Write("c", 1);
    file.SetLength(9);
    file.SeekToBegin();
    std::string bytes(10, '?');
    EXPECT_EQ(file.Read(bytes.data(), 10), 9u);
    EXPECT_EQ(bytes, std::string("ab\0\0\0c\0\0\0?", 10));
    file.SetLength(1);
    EXPECT_EQ(file.GetPosition(), 1u);
    EXPECT_THROW(file.SetLength(~0ULL), CMemoryException*);
    EXPECT_EQ(file.GetLength(), 1u);
}

TEST(MemFile, AttachedBytesAreTheFileOrItsRoom) {
    BYTE bytes[4] = {1, 2, 3, 4};
    CMemFile fixed(bytes, sizeof bytes);
    fixed.Seek(2, CFile::begin);
    EXPECT_THROW(fixed.Write("xyz", 3), CMemoryException*);
    EXPECT_EQ(bytes[2], 3);
    fixed.Write("xy", 2);
    EXPECT_EQ(bytes[3], 'y');

    CMemFile growing;
    growing.Attach(static_cast<BYTE*>(std::malloc(2)), 2, 16);
    growing.Write("abc", 3);
    EXPECT_EQ(growing.GetLength(), 3u);
    std::free(growing.Detach()); // still the caller's
}
