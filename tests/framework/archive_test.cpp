#include <quorvel/framework/archive.h>
#include <quorvel/framework/mem_file.h>

#include "support/archive_image.h"

#define BYTES(literal) std::string(literal, sizeof(literal) - 1)

TEST(Archive, StoresEachTypeInItsFixedBytes) {
    ExpectImage(WCHAR{0x20ac}, BYTES("\xac\x20"));
    ExpectImage(ULONGLONG{1} << 56, BYTES("\0\0\0\0\0\0\0\1"));
    ExpectImage(-2.0, BYTES("\0\0\0\0\0\0\0\xc0"));
    ExpectImage(CStringA("xy"), BYTES("\2xy"));
    ExpectImage(CString(_T("x\x20ac")), BYTES("\xff\xfe\xff\2x\0\xac\x20"));
    ExpectImage(CStringA('x', 255), BYTES("\xff\xff\0") + std::string(255, 'x'));
    ExpectImage(CStringA('x', 65534), BYTES("\xff\xff\xff\xfe\xff\0\0") + std::string(65534, 'x'));
}

TEST(Archive, EitherStringLoadsEitherTextAndRefusesLengthsThatLie) {
    CStringA narrow;
    LoadCause(BYTES("\xff\xfe\xff\2x\0y\0"), [&](CArchive& archive) { archive >> narrow; });
    EXPECT_EQ(narrow, "xy");
    const std::tuple<const char*, std::string, int> rows[] = {
        {"narrow", BYTES("\3new"), CArchiveException::none},
        {"longer than a string", BYTES("\xff\xff\xff\xff\xff\xff\x7fx"),
         CArchiveException::badIndex},
        {"2 GB in a byte", BYTES("\xff\xff\xff\xfe\xff\xff\x7fx"), CArchiveException::endOfFile},
        {"wide twice", BYTES("\xff\xfe\xff\xff\xfe\xff\x01x"), CArchiveException::badIndex},
    };
    for (const auto& [label, bytes, cause] : rows) {
        CString text(_T("old"));
        EXPECT_EQ(LoadCause(bytes, [&](CArchive& archive) { archive >> text; }), cause) << label;
        EXPECT_EQ(text, cause == CArchiveException::none ? _T("new") : _T("old")) << label;
    }
}

TEST(Archive, BlocksOfAnySizePassTheBuffer) {
    std::string bytes, block(400, 0);
    const std::string stored = Stored([&](CArchive& archive) {
        for (UINT size = 0; size < 700; size += 7) {
            const std::string added(size, static_cast<char>(size));
            archive.Write(added.data(), size);
            bytes += added;
        }
    });
    EXPECT_EQ(stored, bytes);
    for (const int bufferSize : {0, 128, 300, 4096}) {
        CMemFile file(reinterpret_cast<BYTE*>(bytes.data()), static_cast<UINT>(bytes.size()));
        CArchive archive(&file, CArchive::load, bufferSize);
        std::string loaded;
        UINT size = 0;
        for (UINT read; (read = archive.Read(block.data(), size = size % 333 + 13)) > 0;)
            loaded.append(block, 0, read);
        EXPECT_EQ(loaded, bytes) << bufferSize;
        // A loader leaves the file after what was loaded.
        file.SeekToBegin();
        CArchive(&file, CArchive::load, bufferSize) >> block[0] >> block[1];
        EXPECT_EQ(file.GetPosition(), 2u) << bufferSize;
    }
}

TEST(Archive, TheWrongDirectionAndAnAbortedArchiveAreRefused) {
    BYTE value = 7;
    EXPECT_EQ(LoadCause("abcd", [&](CArchive& archive) { archive << value; }),
              CArchiveException::readOnly);
    CMemFile file;
    CArchive archive(&file, CArchive::store);
    EXPECT_EQ(CauseOf<CArchiveException>([&] { archive >> value; }), CArchiveException::writeOnly);
    EXPECT_EQ(value, 7);
    archive << value;
    archive.Flush();
    archive << value;
    archive.Abort();
    EXPECT_EQ(CauseOf<CArchiveException>([&] { archive << value; }),
              CArchiveException::genericException);
    CArchive(&file, CArchive::store | CArchive::bNoFlushOnDelete) << value;
    EXPECT_EQ(BytesOf(file), "\7");
    EXPECT_THROW(CArchive(nullptr, CArchive::load), CInvalidArgException*);
}
