#include "system/link_rule.h"

#include <quorvel/util/text/validation.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>

namespace quorvel {

namespace {

typedef std::basic_string_view<WCHAR> View;
typedef std::basic_string<WCHAR> Text;

constexpr View kFileScheme = _T("file://");
constexpr View kMailScheme = _T("mailto:");

// File types that a viewer shows without running code from them. Sorted.
constexpr View kDocuments[] = {
    _T("bmp"), _T("csv"),  _T("doc"), _T("docx"), _T("gif"),  _T("htm"), _T("html"), _T("jpeg"),
    _T("jpg"), _T("log"),  _T("md"),  _T("odp"),  _T("ods"),  _T("odt"), _T("pdf"),  _T("png"),
    _T("ppt"), _T("pptx"), _T("rtf"), _T("tif"),  _T("tiff"), _T("txt"), _T("xls"),  _T("xlsx")};

// A program that gets the address in its command line may read a quote as the argument's end.
// Programs disagree about which host an address with a backslash names.
constexpr View kNeverPlain = _T("\"<>\\");
// These end a path, separate a file from its stream, or are wildcards.
constexpr View kNotInPath = _T("?#:*\"<>|");

WCHAR Lower(WCHAR unit) {
    return unit >= 'A' && unit <= 'Z' ? static_cast<WCHAR>(unit + ('a' - 'A')) : unit;
}
bool BeginsWith(View text, View lowerCasePrefix) {
    return std::ranges::equal(text.substr(0, lowerCasePrefix.size()), lowerCasePrefix, {}, Lower);
}
bool IsLetter(WCHAR unit) {
    return Lower(unit) >= 'a' && Lower(unit) <= 'z';
}
// Above 7F, AfxIsValidURL has refused the control characters. Unescaped bytes there are parts of
// characters.
bool HasControls(View text) {
    return std::ranges::any_of(text, [](WCHAR unit) { return unit < ' ' || unit == 0x7f; });
}

int HexDigit(WCHAR unit) {
    const WCHAR lower = Lower(unit);
    if (unit >= '0' && unit <= '9')
        return unit - '0';
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

// Replaces each escape by one character and copies everything else.
Text Unescaped(View text) {
    Text result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const int high = text[i] == '%' && i + 2 < text.size() ? HexDigit(text[i + 1]) : -1;
        const int low = high >= 0 ? HexDigit(text[i + 2]) : -1;
        result += low >= 0 ? static_cast<WCHAR>(high * 16 + low) : text[i];
        i += low >= 0 ? 2 : 0;
    }
    return result;
}

// Removes the part up to the separator, or everything, from the front and returns it.
View TakePart(View& text, WCHAR separator) {
    const std::size_t end = std::min(text.find(separator), text.size());
    const View part = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return part;
}

bool IsHarmlessMail(View rest) {
    if (HasControls(Unescaped(TakePart(rest, '?'))))
        return false;
    while (!rest.empty()) {
        View value = TakePart(rest, '&');
        Text name = Unescaped(TakePart(value, '='));
        std::ranges::transform(name, name.begin(), Lower);
        const bool mayHaveLines = name == _T("body");
        // Mail programs use attach, attachment and names of their own for it.
        if (name.find(_T("attach")) != name.npos || HasControls(name) ||
            (!mayHaveLines && HasControls(Unescaped(value))))
            return false;
    }
    return true;
}

bool IsDocumentName(View name) {
    const std::size_t dot = name.rfind('.');
    if (dot == name.npos || dot == 0)
        return false;
    Text extension(name.substr(dot + 1));
    std::ranges::transform(extension, extension.begin(), Lower);
    return std::ranges::binary_search(kDocuments, View(extension));
}

// The path behind "file://", unescaped: "/home/x", "/C:/x", "C:\x" or "localhost/x".
bool IsDocumentHere(Text path) {
    std::ranges::replace(path, '\\', '/');
    View rest = path;
    if (BeginsWith(rest, _T("localhost/")))
        rest.remove_prefix(View(_T("localhost")).size());
    // With an empty part, a program may read the next part as the name of a computer.
    if (HasControls(rest) || rest.find(_T("//")) != rest.npos)
        return false;
    const bool isRooted = rest.starts_with('/');
    if (isRooted)
        rest.remove_prefix(1);
    const bool hasDrive = rest.size() > 2 && IsLetter(rest[0]) && rest[1] == ':' && rest[2] == '/';
    if (hasDrive)
        rest.remove_prefix(3);
    if ((!isRooted && !hasDrive) || rest.find_first_of(kNotInPath) != rest.npos)
        return false;
    return IsDocumentName(rest.substr(rest.rfind('/') + 1)); // npos + 1 is 0
}

} // namespace

bool IsHarmlessLink(const WCHAR* link) {
    if (!AfxIsValidURL(link))
        return false;
    const View text = link;
    if (BeginsWith(text, kFileScheme)) {
        const View path = text.substr(kFileScheme.size());
        // Not every program unescapes a path, so both forms must be harmless.
        return IsDocumentHere(Text(path)) && IsDocumentHere(Unescaped(path));
    }
    if (text.find_first_of(kNeverPlain) != text.npos)
        return false;
    return !BeginsWith(text, kMailScheme) || IsHarmlessMail(text.substr(kMailScheme.size()));
}

} // namespace quorvel
