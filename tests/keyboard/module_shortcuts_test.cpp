// Shortcuts of modules: the readers with given bytes, and a sample module.
#include <quorvel/keyboard/module_shortcuts.h>

#include "keyboard/resource_reader.h"
#include "keyboard/shortcuts.h"
#include "platform/win32.h"
#include "support/samples.h"

namespace {

// Appends numbers as little-endian words, and texts.
class Bytes : public std::vector<BYTE> {
public:
    template <class... Parts>
    explicit Bytes(Parts... parts) {
        (Add(parts), ...);
    }
    void Add(int word) {
        push_back(static_cast<BYTE>(word));
        push_back(static_cast<BYTE>(word >> 8));
    }
    void Add(const char* text) {
        do
            Add(*text);
        while (*text++ != 0);
    }
};

std::string LabelsOf(const std::vector<BYTE>& menu) {
    std::map<unsigned int, CString> labels;
    std::string text = quorvel::ReadMenuLabels(menu, labels) ? "" : "damaged:";
    for (const auto& [command, label] : labels) {
        text += " ";
        text += std::to_string(command) + "=" + label.ToUTF8();
    }
    return text;
}

} // namespace

TEST(ResourceReader, ReadsTablesUpToTheirLastEntry) {
    const Bytes bytes(0x09, 'S', 100, 0, 0x8d, 0x74, 101, 7);
    for (std::size_t size = 0; size <= bytes.size() + 3; ++size) {
        std::vector<BYTE> part = bytes;
        part.resize(size);
        std::vector<ACCEL> entries = {{FVIRTKEY, 'M', 7}};
        const bool isWhole = size >= bytes.size();
        EXPECT_EQ(quorvel::ReadAccelerators(part, entries), isWhole) << size;
        CKeyboardMappingScheme scheme;
        scheme.SetUsingAcceleratorTable(entries.data(), static_cast<int>(entries.size()));
        EXPECT_EQ(TextOf(scheme), isWhole ? "100 C83; 101 CS116" : "7 77") << size;
    }
}

TEST(ResourceReader, ReadsMenusOfBothForms) {
    const Bytes plain(0, 0, 0x10, "&File", 0, 100, "&Save\tCtrl+S", 0, 0, "", 0x90, "&More", 0x80,
                      101, "A && B&", 0x80, 100, "Again");
    EXPECT_EQ(LabelsOf(plain), " 100=Save 101=A & B");
    // Items start at multiples of four bytes; zeros fill the gaps.
    const Bytes extended(1, 4, 0, 0, 0, 0, 0, 0, -1, -1, 1, "&File", 0, 0, 0, 0, 0, 0, 0, 70000,
                         70000 >> 16, 0x80, "E&xit\bright", 0, 0, 0, 0, 0, 102, 0, 0x80, "About");
    EXPECT_EQ(LabelsOf(extended), " 102=About 70000=Exit");
    for (const Bytes& menu : {plain, extended})
        for (std::size_t size = 0; size < menu.size(); ++size) {
            std::vector<BYTE> part = menu;
            part.resize(size);
            EXPECT_EQ(LabelsOf(part).rfind("damaged:", 0), 0u) << size;
        }
    EXPECT_EQ(LabelsOf(Bytes(2, 0)), "damaged:");
    EXPECT_EQ(LabelsOf(Bytes(0, 0xffff)), "damaged:");
    Bytes deep(0, 0);
    for (int i = 0; i < 100000; ++i) {
        deep.Add(0x10);
        deep.Add("");
    }
    EXPECT_EQ(LabelsOf(deep), "damaged:");
}

TEST(ModuleShortcuts, AreReadFromAFile) {
    const std::tuple<const WCHAR*, int, const char*> rows[] = {
        {_T("keys.dll"), 1,
         "MAIN: 100 Save As... C83; 101 C116; 102 S65; 100 Save As... 113|7: 101 A113|"},
        {_T("no_resources.dll"), 0, ""},
    };
    for (const auto& [file, expectedDamaged, expected] : rows) {
        const HMODULE module = LoadLibraryExW(Sample(file), nullptr, LOAD_LIBRARY_AS_DATAFILE);
        ASSERT_NE(module, nullptr) << CString(file);
        std::vector<CKeyboardMappingScheme> schemes(2);
        int damaged = -1;
        EXPECT_EQ(AfxGetModuleShortcuts(module, schemes, damaged), *expected != 0);
        EXPECT_EQ(damaged, expectedDamaged);
        std::string text;
        for (const CKeyboardMappingScheme& scheme : schemes)
            text += scheme.GetName().ToUTF8() + ": " + TextOf(scheme) + "|";
        EXPECT_EQ(text, expected) << CString(file);
        FreeLibrary(module);
    }
}
