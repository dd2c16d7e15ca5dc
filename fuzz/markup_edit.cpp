// Edits and walks a document as the bytes say. After every edit the index must be that of a fresh
// parse of the text.
#include "fuzz_input.h"
#include "xml/markup_probe.h"

#include <functional>
#include <span>

namespace {

constexpr const WCHAR* kNames[] = {_T("a"), _T("bb"), _T("long-name"), _T("x.y"), _T("\u00e9")};
constexpr const WCHAR* kTexts[] = {nullptr,      _T(""),       _T("t"),
                                   _T("<&>'\""), _T(" \r\n "), _T("<![CDATA[ <x> ]]>")};
// Not the section: a raw ">" in an attribute cuts the tag when the text is read again.
constexpr std::span kValues(kTexts, std::size(kTexts) - 1);
constexpr const WCHAR* kDocuments[] = {_T(""), _T("<r/>"), _T("<r></r>"),
                                       _T("<?x?><r> <a b='c'/> t <d></d>\n</r><!--e-->"),
                                       _T("<r><a/><a/>  <a>text</a></r>\r\n")};

template <class Table>
auto Pick(const Table& table, unsigned choice) {
    return table[choice % std::size(table)];
}

void Step(MarkupProbe& markup, unsigned operation, unsigned choice) {
    const WCHAR* name = Pick(kNames, choice);
    const WCHAR* text = Pick(kTexts, choice / std::size(kNames));
    const WCHAR* value = Pick(kValues, choice / std::size(kNames));
    const WCHAR* sought = choice % 2 != 0 ? name : nullptr;
    const std::function<void()> steps[] = {
        [&] { markup.AddElem(name, text); },
        [&] { markup.AddChildElem(name, text); },
        [&] { markup.SetAttrib(name, value); },
        [&] { markup.SetChildAttrib(name, value); },
        [&] { markup.FindElem(sought); },
        [&] { markup.FindChildElem(sought); },
        [&] { markup.IntoElem(); },
        [&] { markup.OutOfElem(); },
        [&] { markup.ResetChildPos(); },
        [&] { markup.ResetMainPos(); },
    };
    steps[operation]();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t kMostSteps = 200;
    if (size < 1)
        return 0;
    MarkupProbe markup(Pick(kDocuments, data[0]));
    for (std::size_t i = 1; i < size && i <= kMostSteps; ++i) {
        Step(markup, data[i] % 10, data[i] / 10);
        Require(markup.Tree() == MarkupProbe(markup.GetDoc()).Tree());
    }
    return 0;
}
