// settings: looks at settings in the registry and changes them. See kUsage.
#include "registry.h"

#include <quorvel/util/text/utf8.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>

namespace fs = std::filesystem;

namespace {

constexpr char kUsage[] =
    R"(usage: settings COMMAND PATH [ARGUMENT...]

  list PATH                           the keys and values of a key
  get PATH NAME                       the data of a value
  set PATH NAME [--type TYPE] VALUE   write a value, and the keys it needs
  remove PATH [NAME]                  remove a value, or the key with all below it
  export PATH [FILE]                  write the key and all below it as .reg text
  import PATH [FILE]                  do what a .reg text says of the key and those below

A PATH is as in HKCU\Software\Company\Program; the roots are HKCR, HKCU, HKLM, HKU
and HKCC. An empty NAME is the default value of the key. A TYPE is string (as without),
dword, qword or binary (VALUE is then hexadecimal, as in 01ff).
A FILE is UTF-16 with a mark; what is imported may be UTF-8 as well. Without one, or
for "-", standard input is read and standard output written in UTF-8. An import that
names a key elsewhere, or has a fault anywhere, changes nothing.

exit code: 0 done, 1 not found, 2 wrong usage, a file or the registry refuses
)";

const CString kStandardStream(_T("-"));

CStringA Utf8(const CString& text) {
    CStringA bytes;
    AfxWideCharToUTF8(text, bytes);
    return bytes;
}

[[noreturn]] void FailUsage(const CString& reason) {
    throw Failure{kExitFailed, reason + _T(" (settings --help)")};
}

// The words of the command line that are no options, taken one after another.
class Arguments {
public:
    explicit Arguments(const std::vector<CString>& all) {
        for (std::size_t i = 0; i < all.size(); ++i) {
            if (all[i] != _T("--type")) {
                m_words.push_back(all[i]);
                continue;
            }
            if (++i == all.size())
                FailUsage(_T("nothing follows --type"));
            m_type = all[i];
        }
    }

    bool HasMore() const { return m_next < m_words.size(); }
    CString Take(const WCHAR* what) {
        if (!HasMore())
            FailUsage(CString(what) + _T(" is missing"));
        return m_words[m_next++];
    }
    CRegistryPath TakePath() { return ParsePath(Take(_T("PATH"))); }
    CString TakeFile() { return HasMore() ? Take(_T("FILE")) : kStandardStream; }
    void RequireEnd() const {
        if (HasMore())
            FailUsage(_T("too many arguments: ") + m_words[m_next]);
    }
    const CString& Type() const { return m_type; }

private:
    std::vector<CString> m_words;
    std::size_t m_next = 0;
    CString m_type;
};

fs::path PathOf(const CString& name) {
    return fs::path(std::basic_string<WCHAR>(name));
}

// The unsigned number of a decimal or, after 0x, hexadecimal text.
ULONGLONG ParseNumber(const CString& text, ULONGLONG largest) {
    const bool isHex = text.Left(2).CompareNoCase(_T("0x")) == 0;
    const CString digits = isHex ? text.Mid(2) : text;
    const ULONGLONG base = isHex ? 16 : 10;
    ULONGLONG number = 0;
    for (int i = 0; i < digits.GetLength(); ++i) {
        const CString all(_T("0123456789abcdef"));
        CString digit(digits[i]);
        const int value = all.Find(digit.MakeLower());
        if (value < 0 || static_cast<ULONGLONG>(value) >= base ||
            number > (largest - static_cast<ULONGLONG>(value)) / base)
            FailUsage(_T("not a number of that size: ") + text);
        number = number * base + static_cast<ULONGLONG>(value);
    }
    if (digits.IsEmpty())
        FailUsage(_T("not a number of that size: ") + text);
    return number;
}

std::string ParseBytes(const CString& text) {
    std::string bytes;
    for (int i = 0; i < text.GetLength(); i += 2)
        bytes += static_cast<char>(ParseNumber(_T("0x") + text.Mid(i, 2), 0xff));
    if (text.GetLength() % 2 != 0)
        FailUsage(_T("half a byte at the end: ") + text);
    return bytes;
}

template <class Number>
std::string BytesOf(Number number) {
    return std::string(reinterpret_cast<const char*>(&number), sizeof number);
}

RegValue ParseValue(const CString& name, const CString& type, const CString& text) {
    RegValue value;
    value.name = Wide(name);
    if (type.IsEmpty() || type == _T("string")) {
        value.kind = REG_SZ;
        value.data.assign(reinterpret_cast<const char*>(text.GetString()),
                          (static_cast<std::size_t>(text.GetLength()) + 1) * sizeof(WCHAR));
    } else if (type == _T("dword")) {
        value.kind = REG_DWORD;
        value.data = BytesOf(static_cast<DWORD>(ParseNumber(text, 0xffffffffu)));
    } else if (type == _T("qword")) {
        value.kind = REG_QWORD;
        value.data = BytesOf(ParseNumber(text, ~ULONGLONG{0}));
    } else if (type == _T("binary")) {
        value.kind = REG_BINARY;
        value.data = ParseBytes(text);
    } else {
        FailUsage(_T("--type is string, dword, qword or binary"));
    }
    return value;
}

// Texts and numbers as they are read, anything else as in .reg text.
CString DisplayText(const RegValue& value) {
    CString text;
    if (value.kind == REG_SZ || value.kind == REG_EXPAND_SZ) {
        Wide units(value.data.size() / sizeof(WCHAR), 0);
        std::memcpy(units.data(), value.data.data(), units.size() * sizeof(WCHAR));
        return CString(units.c_str());
    }
    ULONGLONG number = 0;
    const bool isNumber = (value.kind == REG_DWORD && value.data.size() == sizeof(DWORD)) ||
                          (value.kind == REG_QWORD && value.data.size() == sizeof number);
    if (isNumber) {
        std::memcpy(&number, value.data.data(), value.data.size());
        text.Format(_T("%I64u"), number);
        return text;
    }
    return CString(FormatRegData(value).c_str());
}

ExitCode List(Arguments& arguments) {
    const CRegistryPath path = arguments.TakePath();
    arguments.RequireEnd();
    for (const Wide& name : ReadKeyNames(path))
        Print(stdout, CString(name.c_str()) + _T("\\"));
    for (const RegValue& value : ReadValues(path)) {
        const CString name(value.name.empty() ? _T("(default)") : value.name.c_str());
        Print(stdout, name + _T(" = ") + DisplayText(value));
    }
    return kExitDone;
}

ExitCode Get(Arguments& arguments) {
    const CRegistryPath path = arguments.TakePath();
    const CString name = arguments.Take(_T("NAME"));
    arguments.RequireEnd();
    Print(stdout, DisplayText(ReadValue(path, name)));
    return kExitDone;
}

ExitCode Set(Arguments& arguments) {
    const CRegistryPath path = arguments.TakePath();
    const CString name = arguments.Take(_T("NAME"));
    const RegValue value = ParseValue(name, arguments.Type(), arguments.Take(_T("VALUE")));
    arguments.RequireEnd();
    WriteValue(path, value);
    return kExitDone;
}

ExitCode Remove(Arguments& arguments) {
    const CRegistryPath path = arguments.TakePath();
    const bool hasName = arguments.HasMore();
    const CString name = hasName ? arguments.Take(_T("NAME")) : CString();
    arguments.RequireEnd();
    if (hasName)
        RemoveValue(path, name);
    else
        RemoveKey(path);
    return kExitDone;
}

ExitCode Export(Arguments& arguments) {
    const CRegistryPath path = arguments.TakePath();
    const CString file = arguments.TakeFile();
    arguments.RequireEnd();
    std::vector<RegKey> keys;
    ReadTree(path, keys);
    const Wide text = FormatRegText(keys);
    if (file == kStandardStream) {
        const CStringA bytes = Utf8(text.c_str());
        CString readBack;
        if (!AfxUTF8ToWideChar(bytes, readBack) || readBack != text.c_str())
            throw Failure{kExitFailed, TextOf(path) + _T(": half a surrogate pair in it, which "
                                                         "UTF-8 cannot hold; export to a FILE")};
        std::fwrite(bytes.GetString(), 1, static_cast<std::size_t>(bytes.GetLength()), stdout);
        return kExitDone;
    }
    std::ofstream stream(PathOf(file), std::ios::binary);
    stream << EncodeRegFile(text);
    if (!stream.flush())
        throw Failure{kExitFailed, file + _T(": cannot be written")};
    return kExitDone;
}

// An iterator of the stream would throw where the system refuses, as for a folder.
std::string ReadAll(std::istream& stream, const CString& name) {
    std::string bytes;
    char buffer[65536];
    while (stream.read(buffer, sizeof buffer), stream.gcount() > 0)
        bytes.append(buffer, static_cast<std::size_t>(stream.gcount()));
    if (stream.bad() || !stream.eof())
        throw Failure{kExitFailed, name + _T(": cannot be read")};
    return bytes;
}

ExitCode Import(Arguments& arguments) {
    const CRegistryPath path = arguments.TakePath();
    const CString file = arguments.TakeFile();
    arguments.RequireEnd();
    const bool isStandard = file == kStandardStream;
    const CString name = isStandard ? CString(_T("standard input")) : file;
    std::ifstream stream;
    if (!isStandard)
        stream.open(PathOf(file), std::ios::binary);
    const std::string bytes = ReadAll(isStandard ? std::cin : stream, name);
    try {
        Apply(path, ParseRegText(DecodeRegFile(bytes)));
    } catch (const RegTextFault& fault) {
        CString place;
        place.Format(_T(":%d: "), fault.line);
        throw Failure{kExitFailed, name + place + fault.reason};
    }
    return kExitDone;
}

struct Command {
    const WCHAR* name;
    ExitCode (*run)(Arguments&);
};
constexpr Command kCommands[] = {
    {_T("list"), List},     {_T("get"), Get},       {_T("set"), Set},
    {_T("remove"), Remove}, {_T("export"), Export}, {_T("import"), Import},
};

ExitCode Run(const std::vector<CString>& words) {
    Arguments arguments(words);
    const CString name = arguments.Take(_T("COMMAND"));
    if (name == _T("--help")) {
        std::fputs(kUsage, stdout);
        return kExitDone;
    }
    for (const Command& command : kCommands) {
        if (name == command.name)
            return command.run(arguments);
    }
    FailUsage(_T("unknown command: ") + name);
}

} // namespace

int main(int argc, char** argv) {
    return RunProgram(_T("settings"), kExitFailed,
                      [&] { return Run(ProgramArguments(argc, argv)); });
}
