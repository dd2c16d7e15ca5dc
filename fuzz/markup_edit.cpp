// Edits and walks a document as the bytes say. After every edit the index must be that of a fresh
// parse of the text.
#include "xml/markup_probe.h"

#include <cstdint>
#include <cstdlib>

namespace {

constexpr const WCHAR* kNames[] = {_T("a"), _T("bb"), _T("long-name"), _T("x.y"), _T("\u00e9")};
constexpr const WCHAR* kValues[] = {nullptr, _T(""), _T("t"), _T("<&>'\""), _T(" \r\n ")};
constexpr const WCHAR* kDocuments[] = {_T(""), _T("<r/>"), _T("<r></r>"),
                                       _T("<?x?><r> <a b='c'/> t <d></d>\n</r><!--e-->"),
                                       _T("<r><a/><a/>  <a>text</a></r>\r\n")};

template <class Table>
auto Pick(const Table& table, unsigned choice) {
    return table[choice % std::size(table)];
}

bool Step(MarkupProbe& markup, unsigned operation, unsigned choice) {
    const WCHAR* name = Pick(kNames, choice);
    const WCHAR* value = Pick(kValues, choice / std::size(kNames));
    switch (operation) {
    case 0:
        return markup.AddElem(name, value);
    case 1:
        return markup.AddChildElem(name, value);
    case 2:
        return markup.SetAttrib(name, value);
    case 3:
        return markup.SetChildAttrib(name, value);
    case 4:
        return markup.FindElem(choice % 2 != 0 ? name : nullptr);
    case 5:
        return markup.FindChildElem(choice % 2 != 0 ? name : nullptr);
    case 6:
        return markup.IntoElem();
    case 7:
        return markup.OutOfElem();
    case 8:
        markup.ResetChildPos();
        return true;
    default:
        markup.ResetMainPos();
        return true;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t kMostSteps = 200;
    if (size < 1)
        return 0;
    MarkupProbe markup(Pick(kDocuments, data[0]));
    for (std::size_t i = 1; i < size && i <= kMostSteps; ++i) {
        Step(markup, data[i] % 10, data[i] / 10);
        if (markup.Tree() != MarkupProbe(markup.GetDoc()).Tree())
            std::abort();
    }
    return 0;
}
