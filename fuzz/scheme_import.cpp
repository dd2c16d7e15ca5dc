// Importing the keys of a scheme: a refused text changes nothing, and imported keys are exported
// and imported unchanged.
#include <quorvel/keyboard/keyboard_mapping_scheme.h>
#include <quorvel/keyboard/shortcut_key_text.h>

#include "fuzz_input.h"

static void LoadDefaults(CKeyboardMappingScheme& scheme) {
    for (unsigned short i = 0; i < 5; ++i)
        scheme.AddKeyboardShortcut(
            {i * 100u, CShortcutKey(static_cast<unsigned short>('A' + i), 2)});
}

FUZZ_TARGET(input) {
    const CString text = CString::FromUTF8(input.Bytes());
    CKeyboardMappingScheme scheme(nullptr, LoadDefaults);
    scheme.LoadDefaultMappingScheme();
    scheme.SetShortcutKey(400, CShortcutKey('Q', 7));
    const CKeyboardMappingScheme before = scheme;
    std::vector<CShortcutProblem> problems;
    if (!scheme.ImportFromXML(text, FALSE, &problems)) {
        Require(scheme == before && !problems.empty());
        Require(scheme.ImportFromXML(text, TRUE, &problems) || scheme == before);
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
    CShortcutKey again;
    if (AfxParseShortcutKeyText(text, key))
        Require(AfxParseShortcutKeyText(AfxGetShortcutKeyText(key), again) && again == key);
}
