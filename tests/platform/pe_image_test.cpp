// The reader of PE resources with truncated or corrupted files.
#include "platform/linux/resources/pe_file.h"
#include "platform/win32.h"

#include "support/samples.h"
#include "support/temporary_folder.h"
#include "support/test.h"

#include <cstring>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using namespace quorvel;

class PeImage : public testing::Test {
protected:
    // 0 when the text with id 100 is found and correct, otherwise the error.
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
        return !text ? error : *text == _T("English") ? 0 : DWORD{ERROR_INVALID_DATA};
    }

    TemporaryFolder folder;
};

TEST_F(PeImage, CorruptedFieldsAreRefusedOrCountAsMissing) {
    constexpr std::size_t kPe = 0x80;
    constexpr std::size_t kSection = 0x1f0; // offset of the header of .rsrc
    constexpr std::size_t kTree = 0xa00;
    const std::tuple<const char*, std::size_t, DWORD, std::size_t, DWORD> rows[] = {
        {"nothing changed", 0, 'M', 1, 0},
        {"header at the top of the range", 0x3c, 0xfffffffc, 4, 193},
        {"one section too few", kPe + 6, 3, 2, 1812},
        {"resources at the section's last byte", kPe + 0x88, 0x47ff, 4, 1812},
        {"section larger than the file", kSection + 16, 0x10000, 4, 193},
        {"section that misses its end", kSection + 16, 0x300, 4, 1814},
        {"name that leads to the root", kTree + 0x7c, 0x80000000, 4, 1814},
        {"language that is a directory", kTree + 0xd4, 0x800000b8, 4, 1814},
        {"data beyond the section", kTree + 0x218, 0x4900, 4, 1814},
        {"data longer than the section", kTree + 0x21c, 0x4d1, 4, 1814},
        {"text longer than its block", kTree + 0x330 + 8, 0xffff, 2, 1814},
    };
    const std::string sample = folder.Read(Sample(_T("full.dll"))); // absolute
    for (const auto& [label, offset, value, size, error] : rows) {
        std::string bytes = sample;
        std::memcpy(bytes.data() + offset, &value, size);
        EXPECT_EQ(error, FindText(bytes)) << label;
    }
}

TEST_F(PeImage, AFileCutAnywhereIsReadInItsBoundsOrRefused) {
    for (const WCHAR* name : {_T("full.dll"), _T("x86_64/full.dll")}) {
        const std::string sample = folder.Read(Sample(name));
        ASSERT_FALSE(sample.empty());
        for (std::size_t size = 0; size <= sample.size(); ++size)
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(sample.data()), size);
    }
}

} // namespace
