// The stored form of a scheme's keys: XML, in a file or in one value of a state.
#include <quorvel/keyboard/keyboard_mapping_scheme.h>
#include <quorvel/keyboard/shortcut_key_text.h>
#include <quorvel/res/message_ids.h>
#include <quorvel/xml/check_xml.h>
#include <quorvel/xml/xml_file.h>

#include "controls/state_store.h"
#include "keyboard/decimal.h"
#include "keyboard/shortcuts_by_command.h"
#include "keyboard/text_view.h"

#include <map>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <utility>

using namespace quorvel;

namespace {

constexpr DWORD kFormat = 1;
constexpr WCHAR kRoot[] = _T("shortcuts");
constexpr WCHAR kRow[] = _T("shortcut");
constexpr WCHAR kFormatName[] = _T("format");
constexpr WCHAR kSchemeName[] = _T("name");
constexpr WCHAR kCommand[] = _T("command");
constexpr WCHAR kKey[] = _T("key");
constexpr WCHAR kCode[] = _T("code");
constexpr WCHAR kModifiers[] = _T("modifiers");
constexpr WCHAR kStateName[] = _T("Shortcuts");

typedef CShortcutProblem Problem;
typedef std::vector<Problem> Problems;

// The indexes of each command's shortcuts.
typedef std::unordered_map<unsigned int, std::vector<std::size_t>> Commands;

struct StoredKey {
    std::size_t shortcut;
    CShortcutKey key;
};

std::pair<int, int> NumbersOf(const CShortcutKey& key) {
    return {key.GetVirtualKeyCode(), key.GetModifiers()};
}

// A problem of one row or of the whole text. `first` and `second` are the inserts of its text.
Problem ProblemOf(Problem::Kind kind, UINT textId, int row, const CString& first = CString(),
                  const CString& second = CString()) {
    Problem problem;
    problem.nKind = kind;
    problem.nRow = row;
    AfxFormatString2(problem.strMessage, textId, first, second);
    return problem;
}

CString NumberText(unsigned int number) {
    CString text;
    text.Format(_T("%u"), number);
    return text;
}

// Reads the rows one after another and remembers the earlier ones.
class RowReader {
public:
    RowReader(const Commands& commands, Problems& problems)
        : m_commands(commands), m_problems(problems) {}

    void Read(const CMarkup& markup) {
        ++m_row;
        const CString command = markup.GetChildAttrib(kCommand);
        DWORD commandID;
        if (!ParseDecimal(ViewOf(command), 0xffffffff, commandID))
            return Report(Problem::invalidCommand, kTextShortcutsInvalidCommand, command);
        const auto key = ReadKey(markup);
        if (!key)
            return;
        const auto shortcuts = m_commands.find(commandID);
        if (shortcuts == m_commands.end())
            return Report(Problem::unknownCommand, kTextShortcutsUnknownCommand, command);
        std::size_t& count = m_counts[commandID];
        if (count == shortcuts->second.size())
            return Report(Problem::duplicateCommand, kTextShortcutsDuplicateCommand, command);
        if (key->IsKeySet()) {
            const auto [holder, isNew] = m_holders.try_emplace(NumbersOf(*key), commandID);
            if (!isNew)
                return Report(Problem::duplicateKey, kTextShortcutsDuplicateKey,
                              AfxGetShortcutKeyText(*key), NumberText(holder->second));
        }
        m_keys.push_back({shortcuts->second[count++], *key});
    }
    const std::vector<StoredKey>& Keys() const { return m_keys; }

private:
    // No value, after reporting a problem, if the key is invalid.
    std::optional<CShortcutKey> ReadKey(const CMarkup& markup) {
        const CString text = markup.GetChildAttrib(kKey);
        const CString code = markup.GetChildAttrib(kCode);
        const CString modifiers = markup.GetChildAttrib(kModifiers);
        CShortcutKey byText;
        DWORD codeNumber = 0;
        DWORD modifiersNumber = 0;
        const bool hasNumbers = !code.IsEmpty() || !modifiers.IsEmpty();
        bool isValid = AfxParseShortcutKeyText(text, byText) != FALSE;
        if (isValid && hasNumbers)
            isValid = ParseDecimal(ViewOf(code), 0xffff, codeNumber) &&
                      ParseDecimal(ViewOf(modifiers), 0xff, modifiersNumber);
        const CShortcutKey byNumbers(static_cast<unsigned short>(codeNumber),
                                     static_cast<unsigned char>(modifiersNumber));
        // The text cannot contain modifier bits that have no meaning.
        if (isValid && hasNumbers && !text.IsEmpty())
            isValid = AfxGetShortcutKeyText(byText) == AfxGetShortcutKeyText(byNumbers);
        if (isValid)
            return hasNumbers ? byNumbers : byText;
        Report(Problem::invalidKey, kTextShortcutsInvalidKey, text.IsEmpty() ? code : text);
        return std::nullopt;
    }
    void Report(Problem::Kind kind, UINT textId, const CString& first,
                const CString& second = CString()) {
        m_problems.push_back(ProblemOf(kind, textId, m_row, first, second));
    }

    const Commands& m_commands;
    Problems& m_problems;
    int m_row = 0;
    std::unordered_map<unsigned int, std::size_t> m_counts; // of the rows of a command
    std::map<std::pair<int, int>, unsigned int> m_holders;
    std::vector<StoredKey> m_keys;
};

// A problem of the whole text, if there is one. Leaves the document at its root.
std::optional<Problem> FindProblemOfAll(CMarkup& markup) {
    markup.ResetPos();
    DWORD format = 0;
    if (!markup.FindElem() || markup.GetTagName() != kRoot ||
        !ParseDecimal(ViewOf(markup.GetAttrib(kFormatName)), 0xffffffff, format) || format == 0)
        return ProblemOf(Problem::otherContent, kTextShortcutsOtherContent, 0);
    if (format > kFormat)
        return ProblemOf(Problem::newerFormat, kTextShortcutsNewerFormat, 0);
    return std::nullopt;
}

Problem Damage(const CXMLFault& fault) {
    return ProblemOf(Problem::damaged, kTextShortcutsDamaged, 0,
                     NumberText(static_cast<unsigned int>(fault.nLine)), fault.strMessage);
}

BOOL Refuse(Problem problem, Problems* problems) {
    if (problems != nullptr)
        problems->assign(1, std::move(problem));
    return FALSE;
}

// Whether XML can contain the name and gives it back unchanged.
bool IsStorableName(const CString& name) {
    CMarkup markup;
    markup.AddElem(kRoot);
    markup.AddAttrib(kSchemeName, name);
    CXMLFault fault;
    if (name.IsEmpty() || !AfxCheckXML(markup.GetDoc(), fault))
        return false;
    CMarkup read(markup.GetDoc());
    return read.FindElem() && read.GetAttrib(kSchemeName) == name;
}

BOOL Save(const CKeyboardMappingScheme& scheme, const StatePlace& place) {
    return place != nullptr && place->WriteText(kStateName, scheme.ExportToXML());
}

BOOL Load(CKeyboardMappingScheme& scheme, const StatePlace& place, Problems* problems) {
    CString text;
    if (problems != nullptr)
        problems->clear();
    if (place == nullptr || !place->ReadText(kStateName, text) || text.IsEmpty())
        return FALSE;
    return scheme.ImportFromXML(text, TRUE, problems);
}

} // namespace

// The key of each shortcut by the load-default function; without it cleared keys.
std::vector<CShortcutKey> CKeyboardMappingScheme::GetDefaultKeys() const {
    CKeyboardMappingScheme defaults(nullptr, m_loadDefault);
    defaults.LoadDefaultMappingScheme();
    std::vector<unsigned int> commands;
    commands.reserve(m_shortcuts.size());
    for (const CKeyboardShortcut& shortcut : m_shortcuts)
        commands.push_back(shortcut.GetCommandID());
    return DefaultKeysOf(commands, defaults);
}

CString CKeyboardMappingScheme::ExportToXML() const {
    const std::vector<CShortcutKey> defaults = GetDefaultKeys();
    std::unordered_set<unsigned int> changed;
    for (std::size_t i = 0; i < m_shortcuts.size(); ++i)
        if (m_shortcuts[i].GetShortcutKey() != defaults[i])
            changed.insert(m_shortcuts[i].GetCommandID());
    CMarkup markup;
    markup.AddElem(kRoot);
    markup.AddAttrib(kFormatName, static_cast<unsigned int>(kFormat));
    if (IsStorableName(m_name))
        markup.AddAttrib(kSchemeName, m_name);
    for (const CKeyboardShortcut& shortcut : m_shortcuts) {
        if (!changed.contains(shortcut.GetCommandID()))
            continue;
        const CShortcutKey& key = shortcut.GetShortcutKey();
        markup.AddChildElem(kRow);
        markup.AddChildAttrib(kCommand, shortcut.GetCommandID());
        markup.AddChildAttrib(kKey, AfxGetShortcutKeyText(key));
        markup.AddChildAttrib(kCode, static_cast<unsigned int>(key.GetVirtualKeyCode()));
        markup.AddChildAttrib(kModifiers, static_cast<unsigned int>(key.GetModifiers()));
    }
    return markup.GetDoc();
}

BOOL CKeyboardMappingScheme::ImportFromXML(const WCHAR* text, BOOL skipFaultyRows,
                                           std::vector<CShortcutProblem>* problems) {
    CXMLFault fault;
    if (!AfxCheckXML(text, fault))
        return Refuse(Damage(fault), problems);
    CMarkup markup(text);
    return ImportFrom(markup, skipFaultyRows, problems);
}

BOOL CKeyboardMappingScheme::ImportFrom(CMarkup& markup, BOOL skipFaultyRows,
                                        std::vector<CShortcutProblem>* problems) {
    if (auto problem = FindProblemOfAll(markup))
        return Refuse(std::move(*problem), problems);
    const CString name = markup.GetAttrib(kSchemeName);
    // A separate index, because a scheme need not be in the order of its commands.
    Commands commands;
    for (std::size_t i = 0; i < m_shortcuts.size(); ++i)
        commands[m_shortcuts[i].GetCommandID()].push_back(i);
    Problems found;
    RowReader rows(commands, found);
    while (markup.FindChildElem(kRow))
        rows.Read(markup);
    const bool isRefused = !found.empty() && !skipFaultyRows;
    if (problems != nullptr)
        *problems = std::move(found);
    if (isRefused)
        return FALSE;
    CKeyboardMappingScheme changed = *this;
    const std::vector<CShortcutKey> defaults = GetDefaultKeys();
    for (std::size_t i = 0; i < defaults.size(); ++i)
        changed.m_shortcuts[i].SetShortcutKey(defaults[i]);
    changed.m_areHeldKeysKnown = false;
    for (const StoredKey& stored : rows.Keys()) {
        if (changed.MayBeHeld(stored.key))
            changed.Release(stored.key);
        changed.m_shortcuts[stored.shortcut].SetShortcutKey(stored.key);
    }
    if (changed.m_name.IsEmpty())
        changed.m_name = name;
    *this = std::move(changed);
    return TRUE;
}

BOOL CKeyboardMappingScheme::ExportToXMLFile(const WCHAR* fileName, CString& errorText) const {
    CMarkup markup(ExportToXML());
    return AfxSaveXMLFile(markup, fileName, errorText) != 0;
}

BOOL CKeyboardMappingScheme::ImportFromXMLFile(const WCHAR* fileName, BOOL skipFaultyRows,
                                               CString& errorText,
                                               std::vector<CShortcutProblem>* problems) {
    errorText.Empty();
    if (problems != nullptr)
        problems->clear();
    CXMLFault fault;
    CMarkup markup;
    if (!AfxCheckXMLFile(fileName, fault)) {
        if (fault.nLine > 0)
            return Refuse(Damage(fault), problems);
        errorText = fault.strMessage;
        return FALSE;
    }
    if (!AfxLoadXMLFile(fileName, markup, errorText))
        return FALSE;
    return ImportFrom(markup, skipFaultyRows, problems);
}

BOOL CKeyboardMappingScheme::SaveState(HKEY key, int closeKey) const {
    return Save(*this, KeyState(key, closeKey != 0));
}

BOOL CKeyboardMappingScheme::SaveState(const CRegistryPath& path) const {
    return Save(*this, CreatedPathState(path));
}

BOOL CKeyboardMappingScheme::SaveState(const WCHAR* section) const {
    return Save(*this, SectionState(section));
}

BOOL CKeyboardMappingScheme::LoadState(HKEY key, int closeKey,
                                       std::vector<CShortcutProblem>* problems) {
    return Load(*this, KeyState(key, closeKey != 0), problems);
}

BOOL CKeyboardMappingScheme::LoadState(const CRegistryPath& path,
                                       std::vector<CShortcutProblem>* problems) {
    return Load(*this, OpenedPathState(path), problems);
}

BOOL CKeyboardMappingScheme::LoadState(const WCHAR* section,
                                       std::vector<CShortcutProblem>* problems) {
    return Load(*this, SectionState(section), problems);
}
