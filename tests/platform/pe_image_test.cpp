// The reader of PE resources on files that are cut or corrupted. Whole files: tests/conformance.
#include "platform/linux/pe_file.h"
#include "platform/version_block.h"
#include "platform/win32.h"

#include "support/temporary_folder.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <tuple>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using namespace quorvel;

std::string ReadSample(const char* name) {
    std::ifstream file(std::string(QUORVEL_SAMPLES "/") + name, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

void Put(std::string& bytes, std::size_t offset, DWORD value, int size) {
    for (int i = 0; i < size; ++i)
        bytes.at(offset + static_cast<std::size_t>(i)) = static_cast<char>(value >> (8 * i));
}

class PeImage : public testing::Test {
protected:
    // 0 when the text with id 100 is found as it should be, otherwise the error.
    DWORD FindText(const std::string& bytes) {
        folder.Write(_T("image"), bytes);
        PeFile file;
        if (const DWORD error = ReadPeFile(folder.Path(_T("image")), file))
            return error;
        constexpr WORD kLanguages[] = {0x0409};
        const PeResources resources(file.section, file.head.resources);
        const PeStringTable strings(resources, {kLanguages, true});
        DWORD error = 0;
        const auto text = strings.Find(100, error);
        if (text && *text == _T("English"))
            return 0;
        return text ? DWORD{ERROR_INVALID_DATA} : error;
    }

    TemporaryFolder folder;
};

TEST_F(PeImage, CorruptedFieldsAreRefusedOrCountAsMissing) {
    constexpr std::size_t kPe = 0x80;
    constexpr std::size_t kSection = 0x1f0; // the header of .rsrc
    constexpr std::size_t kTree = 0xa00;
    const std::tuple<const char*, std::size_t, DWORD, int, DWORD> rows[] = {
        {"nothing changed", 0, 'M', 1, 0},
        {"magic", 0, 'X', 1, 193},
        {"header at the top of the range", 0x3c, 0xfffffffc, 4, 193},
        {"sections beyond the head", kPe + 6, 0xffff, 2, 193},
        {"one section too few", kPe + 6, 3, 2, 1812},
        {"optional header too long", kPe + 20, 0xffff, 2, 193},
        {"two directories", kPe + 0x74, 2, 4, 1812},
        {"no resource directory", kPe + 0x88, 0, 4, 1812},
        {"resources at the section's last byte", kPe + 0x88, 0x47ff, 4, 1812},
        {"section larger than the file", kSection + 16, 0x10000, 4, 193},
        {"section that misses its end", kSection + 16, 0x300, 4, 1814},
        {"too many types", kTree + 12, 0xffff, 2, 1812},
        {"type that leads out", kTree + 0x1c, 0xfffffff0, 4, 1813},
        {"name that leads to the root", kTree + 0x7c, 0x80000000, 4, 1814},
        {"too many languages", kTree + 0xb8 + 14, 0x8000, 2, 1814},
        {"language that is a directory", kTree + 0xd4, 0x800000b8, 4, 1814},
        {"data beyond the section", kTree + 0x218, 0x4900, 4, 1814},
        {"data longer than the section", kTree + 0x21c, 0x4d1, 4, 1814},
        {"data that ends in the text", kTree + 0x21c, 20, 4, 1814},
        {"text longer than its block", kTree + 0x330 + 8, 0xffff, 2, 1814},
    };
    const std::string sample = ReadSample("full.dll");
    for (const auto& [label, offset, value, size, error] : rows) {
        std::string bytes = sample;
        Put(bytes, offset, value, size);
        EXPECT_EQ(error, FindText(bytes)) << label;
    }
}

TEST_F(PeImage, AFileCutAnywhereIsReadInItsBoundsOrRefused) {
    for (const char* name : {"full.dll", "x86_64/full.dll", "no_translation.dll"}) {
        const std::string sample = ReadSample(name);
        ASSERT_FALSE(sample.empty());
        for (std::size_t size = 0; size <= sample.size(); ++size)
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(sample.data()), size);
    }
    const std::string sample = ReadSample("full.dll");
    EXPECT_EQ(193u, FindText(sample.substr(0, sample.size() - 1)));
    EXPECT_EQ(0u, FindText(sample));
}

TEST_F(PeImage, VersionBlocksAreReadInTheirBounds) {
    // A root with the key "r", a 4-byte value and one text child "c" = "hi", cut without mercy.
    static const std::string kBlock("\x24\0\x04\0\0\0"
                                    "r\0\0\0"
                                    "\0\0"
                                    "\x01\x02\x03\x04"
                                    "\x12\0\x03\0\x01\0"
                                    "c\0\0\0"
                                    "\0\0"
                                    "h\0i\0\0\0"
                                    "\0\0",
                                    36);
    // The change, and how many bytes the root's and the child's value then have; -1: not found.
    const std::tuple<const char*, std::size_t, DWORD, int, int> rows[] = {
        {"nothing changed", 0, 0x24, 4, 6},
        {"root longer than the bytes", 0, 0x25, -1, -1},
        {"root shorter than its header", 0, 5, -1, -1},
        {"root without an end of its key", 0, 8, -1, -1},
        {"root that ends in its value", 0, 14, 2, -1},
        {"value beyond the root", 2, 0xffff, 24, -1},
        {"child of no length", 16, 0, 4, -1},
        {"child's value beyond the child", 18, 0xffff, 4, 6},
        {"child's value in bytes", 20, 0, 4, 3},
        {"the key in another case", 22, 'C', 4, 6},
    };
    const auto size = [](const std::optional<VersionValue>& value) {
        return value ? static_cast<int>(value->bytes.size()) : -1;
    };
    for (const auto& [label, offset, value, root, child] : rows) {
        std::string bytes = kBlock;
        Put(bytes, offset, value, 2);
        const std::span<const BYTE> block(reinterpret_cast<const BYTE*>(bytes.data()),
                                          bytes.size());
        EXPECT_EQ(root, size(FindVersionValue(block, _T("\\")))) << label;
        EXPECT_EQ(child, size(FindVersionValue(block, _T("\\c")))) << label;
    }
}

} // namespace
