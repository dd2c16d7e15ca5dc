// xmltool: looks at XML documents and changes them. See kUsage.
#include "document.h"

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <iterator>

namespace {

constexpr char kUsage[] =
    R"(usage: xmltool COMMAND [ARGUMENT...] [FILE]

  check [FILE]                       say where the document is not well-formed
  print [FILE]                       print an outline of the elements
  get PATH [@ATTRIBUTE] [FILE]       print an attribute, or the text of an element
                                     without child elements
  set PATH @ATTRIBUTE VALUE [FILE]   set an attribute
  add PATH NAME [VALUE [FILE]]       add a child element
  convert --encoding NAME [FILE]     write as utf-8, utf-16 or utf-16be

A PATH names an element as in /rss/channel/item[2]/title, numbers from 1.
Without a FILE, or for "-", standard input is read. What set, add and convert make
replaces the FILE, or goes to the one that -o OUT names; from standard input it
goes to standard output.

exit code: 0 done, 1 not found or not well-formed, 2 wrong usage or a file error
)";

[[noreturn]] void FailUsage(const CString& reason) {
    throw Failure{kExitFailed, reason + _T(" (xmltool --help)")};
}

// The words of the command line that are no options, taken one after another.
class Arguments {
public:
    explicit Arguments(const std::vector<CString>& all) {
        for (std::size_t i = 0; i < all.size(); ++i) {
            const bool isOption = all[i] == _T("-o") || all[i] == _T("--encoding");
            if (!isOption) {
                m_words.push_back(all[i]);
                continue;
            }
            if (i + 1 == all.size())
                FailUsage(_T("nothing follows ") + all[i]);
            (all[i] == _T("-o") ? m_output : m_encoding) = all[i + 1];
            ++i;
        }
    }

    CString Take(const WCHAR* what) {
        if (m_next == m_words.size())
            FailUsage(CString(what) + _T(" is missing"));
        return m_words[m_next++];
    }
    bool HasMore() const { return m_next < m_words.size(); }
    bool NextIsAttribute() const { return HasMore() && m_words[m_next][0] == '@'; }
    CString TakeAttribute() {
        if (!NextIsAttribute())
            FailUsage(_T("an @ATTRIBUTE is missing"));
        return m_words[m_next++].Mid(1);
    }
    // The last argument of every command.
    CString TakeFile() {
        const CString file = HasMore() ? Take(_T("FILE")) : kStandardStream;
        if (HasMore())
            FailUsage(_T("too many arguments: ") + m_words[m_next]);
        return file;
    }

    CString Encoding() const { return m_encoding; }
    void RefuseUnused(bool usesOutput, bool usesEncoding) const {
        if (!usesOutput && !m_output.IsEmpty())
            FailUsage(_T("-o is for set, add and convert"));
        if (!usesEncoding && !m_encoding.IsEmpty())
            FailUsage(_T("--encoding is for convert"));
    }
    CString OutputFor(const CString& file) const { return m_output.IsEmpty() ? file : m_output; }

private:
    std::vector<CString> m_words;
    std::size_t m_next = 0;
    CString m_output;
    CString m_encoding;
};

// White space as single blanks, and at most so many characters.
CString Shortened(const CString& text, int most) {
    CString result;
    for (int at = 0; result.GetLength() <= most;) {
        const CString word = text.Tokenize(_T(" \t\r\n"), at);
        if (at < 0)
            break;
        result += result.IsEmpty() ? word : _T(" ") + word;
    }
    if (result.GetLength() <= most)
        return result;
    const WCHAR last = result[most - 2];
    const bool isHalf = last >= 0xd800 && last <= 0xdbff;
    return result.Left(isHalf ? most - 2 : most - 1) + _T("\x2026");
}

ExitCode Check(Arguments& arguments) {
    const Input input(arguments.TakeFile());
    CXMLFault fault;
    if (input.Check(fault))
        return kExitDone;
    CString place;
    place.Format(_T(":%d:%d: "), fault.nLine, fault.nColumn);
    Print(stdout, DisplayName(input.Name()) + place + fault.strMessage);
    Print(stdout, _T("  ") + fault.strSnippet);
    int column = 0; // a surrogate pair is one character on the screen
    for (int i = 0; i < fault.nCaret; ++i)
        column += fault.strSnippet[i] < 0xdc00 || fault.strSnippet[i] > 0xdfff;
    Print(stdout, CString(_T(' '), column + 2) + _T("^"));
    return kExitNotFound;
}

ExitCode PrintOutline(Arguments& arguments) {
    constexpr int kLongestTag = 100;
    constexpr int kLongestText = 60;
    constexpr int kDeepest = 40; // further levels are not set in any more
    Document document(arguments.TakeFile());
    document.ResetPos();
    for (int depth = 0;;) {
        if (!document.FindElem()) {
            if (!document.OutOfElem())
                return kExitDone;
            --depth;
            continue;
        }
        CString line(_T(' '), 2 * std::min(depth, kDeepest));
        line += Shortened(document.StartTag(), kLongestTag);
        const CString text = Shortened(document.GetData(), kLongestText);
        Print(stdout, text.IsEmpty() ? line : line + _T(": ") + text);
        document.IntoElem();
        ++depth;
    }
}

ExitCode Get(Arguments& arguments) {
    const CString path = arguments.Take(_T("PATH"));
    const bool wantsAttribute = arguments.NextIsAttribute();
    const CString name = wantsAttribute ? arguments.TakeAttribute() : CString();
    Document document(arguments.TakeFile());
    document.Find(path);
    if (wantsAttribute && !document.HasAttribute(name))
        throw Failure{kExitNotFound, _T("not found: ") + path + _T(" @") + name};
    Print(stdout, wantsAttribute ? document.GetAttrib(name) : document.GetData());
    return kExitDone;
}

ExitCode Set(Arguments& arguments) {
    const CString path = arguments.Take(_T("PATH"));
    const CString name = arguments.TakeAttribute();
    const CString value = arguments.Take(_T("VALUE"));
    const CString file = arguments.TakeFile();
    Document document(file);
    document.Find(path);
    if (!document.SetAttrib(name, value))
        throw Failure{kExitFailed, _T("cannot be set: ") + path + _T(" @") + name};
    document.Save(arguments.OutputFor(file));
    return kExitDone;
}

ExitCode Add(Arguments& arguments) {
    const CString path = arguments.Take(_T("PATH"));
    const CString name = arguments.Take(_T("NAME"));
    const CString value = arguments.HasMore() ? arguments.Take(_T("VALUE")) : CString();
    const CString file = arguments.TakeFile();
    Document document(file);
    document.Find(path);
    document.AddChildElem(name, value);
    document.Save(arguments.OutputFor(file));
    return kExitDone;
}

ExitCode Convert(Arguments& arguments) {
    const CString encoding = arguments.Encoding();
    const CString known[] = {_T("utf-8"), _T("utf-16"), _T("utf-16be")};
    if (std::find(std::begin(known), std::end(known), encoding) == std::end(known))
        FailUsage(_T("--encoding is utf-8, utf-16 or utf-16be"));
    const CString file = arguments.TakeFile();
    Document document(file);
    document.SetEncoding(encoding);
    document.Save(arguments.OutputFor(file));
    return kExitDone;
}

struct Command {
    const WCHAR* name;
    ExitCode (*run)(Arguments&);
    bool writes;
    bool usesEncoding;
};
constexpr Command kCommands[] = {
    {_T("check"), Check, false, false}, {_T("print"), PrintOutline, false, false},
    {_T("get"), Get, false, false},     {_T("set"), Set, true, false},
    {_T("add"), Add, true, false},      {_T("convert"), Convert, true, true},
};

ExitCode Run(const std::vector<CString>& words) {
    Arguments arguments(words);
    const CString name = arguments.Take(_T("COMMAND"));
    if (name == _T("--help")) {
        std::fputs(kUsage, stdout);
        return kExitDone;
    }
    for (const Command& command : kCommands) {
        if (name != command.name)
            continue;
        arguments.RefuseUnused(command.writes, command.usesEncoding);
        return command.run(arguments);
    }
    FailUsage(_T("unknown command: ") + name);
}

} // namespace

int main(int argc, char** argv) {
    return RunProgram(_T("xmltool"), kExitFailed,
                      [&] { return Run(ProgramArguments(argc, argv)); });
}
