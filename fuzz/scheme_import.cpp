// Importing the keys of a scheme: a refused text changes nothing, and imported keys are exported
// and imported unchanged.
#include <quorvel/keyboard/keyboard_mapping_scheme.h>
#include <quorvel/keyboard/shortcut_key_text.h>

#include "fuzz_input.h"

namespace {

void LoadDefaults(CKeyboardMappingScheme& scheme) {
    for (unsigned short i = 0; i < 5; ++i)
        scheme.AddKeyboardShortcut(
            {i * 100u, CShortcutKey(static_cast<unsigned short>('A' + i), 2)});
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    const CString text = CString::FromUTF8(bytes);
    CKeyboardMappingScheme scheme(nullptr, LoadDefaults);
    scheme.LoadDefaultMappingScheme();
    scheme.SetShortcutKey(400, CShortcutKey('Q', 7));
    const CKeyboardMappingScheme before = scheme;
    std::vector<CShortcutProblem> problems;
    if (!scheme.ImportFromXML(text, FALSE, &problems)) {
        Require(scheme == before && !problems.empty());
        if (!scheme.ImportFromXML(text, TRUE, &problems))
            Require(scheme == before);
    }
    CKeyboardMappingScheme copy(nullptr, LoadDefaults);
    copy.LoadDefaultMappingScheme();
    Require(copy.ImportFromXML(scheme.ExportToXML(), FALSE, &problems) && problems.empty());
    Require(copy == scheme);
    for (int i = 0; i < scheme.GetKeyboardShortcutCount(); ++i) {
        CKeyboardShortcut shortcut;
        scheme.GetKeyboardShortcut(i, shortcut);
        Require(!shortcut.IsShortcutKeySet() ||
                scheme.FindShortcutKey(shortcut.GetShortcutKey()) == i); // one command for a key
    }
    CShortcutKey key;
    if (AfxParseShortcutKeyText(text, key)) {
        CShortcutKey again;
        Require(AfxParseShortcutKeyText(AfxGetShortcutKeyText(key), again) && again == key);
    }
    return 0;
}
