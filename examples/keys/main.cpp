// keys: the keyboard shortcuts of programs. See kUsage.
#include "common/program.h"

#include <quorvel/keyboard/cheat_sheet.h>
#include <quorvel/keyboard/module_shortcuts.h>
#include <quorvel/keyboard/shortcut_conflicts.h>
#include <quorvel/keyboard/shortcut_key_text.h>
#include <quorvel/xml/xml_file.h>

#include <map>
#include <string>

using namespace quorvel::win32;

namespace {

constexpr char kUsage[] =
    R"(usage: keys COMMAND [--table NAME] FILE...

  sheet [--format text|markdown|html] FILE   the shortcuts as a sheet
  conflicts FILE         what speaks against them: keys that occur twice, keys of the
                         system, characters that could no longer be typed
  export FILE SCHEME     writes them as a scheme file
  import FILE SCHEME     the sheet of FILE with the keys of a scheme file
  compare FILE FILE      the commands whose keys differ

FILE is a Windows program or library, whose accelerator tables and menus are read, or
a scheme file (*.xml). The tables of a program are looked at one after another;
--table names one, which export, import and compare need where there are several.

exit code: 0 done, and compare found no difference, 1 failed, or a difference,
           2 wrong usage
)";

enum ExitCode { kExitDone = 0, kExitFailed = 1, kExitUsage = 2 };

typedef CKeyboardMappingScheme Scheme;
typedef std::vector<Scheme> Schemes;

struct Options {
    CString table; // empty: all
    int format = AFX_CHEAT_SHEET_TEXT;
};

[[noreturn]] void FailUsage(const CString& reason) {
    throw Failure{kExitUsage, reason + _T(" (keys --help)")};
}

[[noreturn]] void FailOn(const CString& fileName, const CString& reason) {
    throw Failure{kExitFailed, fileName + _T(": ") + reason};
}

std::vector<CKeyboardShortcut> ShortcutsOf(const Scheme& scheme) {
    std::vector<CKeyboardShortcut> shortcuts;
    scheme.GetKeyboardShortcuts(shortcuts);
    return shortcuts;
}

CString CommandOf(const CKeyboardShortcut& shortcut) {
    CString text;
    text.Format(_T("%u"), shortcut.GetCommandID());
    if (shortcut.HasCommandText())
        text += _T(" ") + shortcut.GetCommandText();
    return text;
}

// Prints what is wrong; a scheme file with any fault is not used.
void Import(Scheme& scheme, const CString& fileName) {
    CString error;
    std::vector<CShortcutProblem> problems;
    if (scheme.ImportFromXMLFile(fileName, FALSE, error, &problems))
        return;
    for (const CShortcutProblem& problem : problems) {
        CString row;
        if (problem.nRow > 0)
            row.Format(_T("row %d: "), problem.nRow);
        Print(stdout, fileName + _T(": ") + row + problem.strMessage);
    }
    FailOn(fileName, error.IsEmpty() ? CString(_T("not used")) : error);
}

// The commands of a scheme file that knows no program.
Scheme ReadSchemeFile(const CString& fileName) {
    CMarkup markup;
    CString error;
    Scheme scheme;
    if (!AfxLoadXMLFile(fileName, markup, error))
        FailOn(fileName, error);
    markup.ResetPos();
    markup.FindElem();
    while (markup.FindChildElem(_T("shortcut"))) {
        const std::string id = markup.GetChildAttrib(_T("command")).ToUTF8();
        scheme.AddKeyboardShortcut(
            {static_cast<unsigned int>(std::strtoul(id.c_str(), nullptr, 10)), CShortcutKey()});
    }
    Import(scheme, fileName);
    return scheme;
}

class Module {
public:
    // A name alone means the current folder, before which the system would look elsewhere.
    explicit Module(const CString& fileName)
        : m_module(
              LoadLibraryExW(fileName.FindOneOf(_T("/\\:")) < 0 ? _T("./") + fileName : fileName,
                             nullptr, LOAD_LIBRARY_AS_DATAFILE)) {
        if (m_module == nullptr)
            FailOn(fileName, _T("not a Windows program or library"));
    }
    Module(const Module&) = delete;
    ~Module() { FreeLibrary(m_module); }
    HMODULE Get() const { return m_module; }

private:
    const HMODULE m_module;
};

Schemes ReadFile(const CString& fileName, const Options& options) {
    if (fileName.Right(4).CompareNoCase(_T(".xml")) == 0)
        return {ReadSchemeFile(fileName)};
    Schemes schemes;
    int damaged;
    {
        const Module module(fileName);
        AfxGetModuleShortcuts(module.Get(), schemes, damaged);
    }
    if (damaged > 0) {
        CString line;
        line.Format(_T(": %d damaged tables and menus are left out"), damaged);
        Print(stdout, fileName + line);
    }
    if (!options.table.IsEmpty())
        std::erase_if(schemes,
                      [&](const Scheme& scheme) { return scheme.GetName() != options.table; });
    if (schemes.empty())
        FailOn(fileName, options.table.IsEmpty() ? CString(_T("no accelerator table"))
                                                 : _T("no accelerator table ") + options.table);
    return schemes;
}

// One table, with each command and each key once: the first is kept.
Scheme ReadOneTable(const CString& fileName, const Options& options) {
    const Schemes schemes = ReadFile(fileName, options);
    if (schemes.size() > 1) {
        CString names;
        for (const Scheme& scheme : schemes)
            names += _T(" ") + scheme.GetName();
        FailOn(fileName, _T("several accelerator tables:") + names);
    }
    Scheme scheme(schemes[0].GetName(), nullptr);
    for (CKeyboardShortcut shortcut : ShortcutsOf(schemes[0])) {
        if (scheme.FindCommandID(shortcut.GetCommandID()) >= 0)
            continue;
        if (scheme.FindShortcutKey(shortcut.GetShortcutKey()) >= 0)
            shortcut.ClearShortcutKey();
        scheme.AddKeyboardShortcut(shortcut);
    }
    return scheme;
}

void PrintSheet(const Scheme& scheme, int format) {
    CString sheet = AfxGetShortcutCheatSheet(scheme, format);
    sheet.Remove('\r'); // a console's lines end with LF
    Print(stdout, sheet);
}

int ShowSheet(const std::vector<CString>& files, const Options& options) {
    for (const Scheme& scheme : ReadFile(files[0], options))
        PrintSheet(scheme, options.format);
    return kExitDone;
}

int ShowConflicts(const std::vector<CString>& files, const Options& options) {
    for (const Scheme& scheme : ReadFile(files[0], options))
        for (const CKeyboardShortcut& shortcut : ShortcutsOf(scheme))
            for (const CShortcutConflict& conflict : AfxGetShortcutConflicts(
                     scheme, shortcut.GetCommandID(), shortcut.GetShortcutKey()))
                Print(stdout, scheme.GetName() + _T(": ") + CommandOf(shortcut) + _T(": ") +
                                  conflict.strMessage);
    return kExitDone;
}

int Export(const std::vector<CString>& files, const Options& options) {
    CString error;
    if (!ReadOneTable(files[0], options).ExportToXMLFile(files[1], error))
        FailOn(files[1], error);
    return kExitDone;
}

int ShowImported(const std::vector<CString>& files, const Options& options) {
    Scheme scheme = ReadOneTable(files[0], options);
    Import(scheme, files[1]);
    PrintSheet(scheme, options.format);
    return kExitDone;
}

int Compare(const std::vector<CString>& files, const Options& options) {
    struct Keys {
        CString command;
        CString before;
        CString after;
    };
    std::map<unsigned int, Keys> commands;
    const auto add = [&](const CString& fileName, CString Keys::*member) {
        for (const CKeyboardShortcut& shortcut : ShortcutsOf(ReadOneTable(fileName, options))) {
            Keys& keys = commands[shortcut.GetCommandID()];
            if (keys.command.IsEmpty() || shortcut.HasCommandText())
                keys.command = CommandOf(shortcut);
            keys.*member = AfxGetShortcutKeyText(shortcut.GetShortcutKey());
        }
    };
    add(files[0], &Keys::before);
    add(files[1], &Keys::after);
    int code = kExitDone;
    const auto named = [](const CString& key) {
        return key.IsEmpty() ? CString(_T("no key")) : key;
    };
    for (const auto& [id, keys] : commands)
        if (keys.before != keys.after) {
            Print(stdout,
                  keys.command + _T(": ") + named(keys.before) + _T(" -> ") + named(keys.after));
            code = kExitFailed;
        }
    return code;
}

struct Command {
    const WCHAR* name;
    std::size_t fileCount;
    int (*run)(const std::vector<CString>& files, const Options& options);
};
constexpr Command kCommands[] = {{_T("sheet"), 1, ShowSheet},
                                 {_T("conflicts"), 1, ShowConflicts},
                                 {_T("export"), 2, Export},
                                 {_T("import"), 2, ShowImported},
                                 {_T("compare"), 2, Compare}};

int ParseFormat(const CString& text) {
    static const std::map<CString, int> s_formats = {{_T("text"), AFX_CHEAT_SHEET_TEXT},
                                                     {_T("markdown"), AFX_CHEAT_SHEET_MARKDOWN},
                                                     {_T("html"), AFX_CHEAT_SHEET_HTML}};
    const auto format = s_formats.find(text);
    if (format == s_formats.end())
        FailUsage(_T("unknown format: ") + text);
    return format->second;
}

int RunCommandLine(const std::vector<CString>& arguments) {
    Options options;
    std::vector<CString> words;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const bool isTable = arguments[i] == _T("--table");
        if (!isTable && arguments[i] != _T("--format")) {
            words.push_back(arguments[i]);
            continue;
        }
        const CString value = ++i < arguments.size() ? arguments[i] : CString();
        if (isTable)
            options.table = value;
        else
            options.format = ParseFormat(value);
    }
    if (words.size() == 1 && words[0] == _T("--help")) {
        std::fputs(kUsage, stdout);
        return kExitDone;
    }
    for (const Command& command : kCommands)
        if (!words.empty() && words[0] == command.name) {
            words.erase(words.begin());
            if (words.size() != command.fileCount)
                FailUsage(_T("wrong number of files"));
            return command.run(words, options);
        }
    FailUsage(words.empty() ? CString(_T("a command is needed"))
                            : _T("unknown command: ") + words[0]);
}

} // namespace

int main(int argc, char** argv) {
    return RunProgram(_T("keys"), kExitFailed,
                      [&] { return RunCommandLine(ProgramArguments(argc, argv)); });
}
