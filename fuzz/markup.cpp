// Parses any bytes as a document, as UTF-16 and through a code page, visits and reads all elements,
// and checks the invariants of the index.
#include "fuzz_input.h"
#include "xml/markup_probe.h"

namespace {

void CheckIndex(const MarkupProbe& markup) {
    const int length = markup.GetDocConstRef().GetLength();
    int previous = -1;
    for (const auto& [open, close, endOpen, endClose, depth] : markup.Tree()) {
        Require(previous < open && open < close && close < length);
        Require(endClose < length && depth >= 0);
        Require(close == endOpen + 1 ? close == endClose : close < endOpen && endOpen < endClose);
        previous = open;
    }
}

void ReadEverything(MarkupProbe& markup) {
    for (;;) {
        if (markup.FindElem()) {
            markup.GetTagName();
            markup.GetData();
            markup.GetAttrib(_T("a"));
            markup.GetAttrib(_T(""));
            markup.FindChildElem(_T("b"));
            markup.ResetChildPos();
            markup.IntoElem();
            continue;
        }
        if (!markup.OutOfElem())
            return;
    }
}

void Check(MarkupProbe& markup, bool parsed) {
    Require(parsed == markup.IsWellFormed());
    CheckIndex(markup);
    ReadEverything(markup);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static constexpr unsigned kCodePages[] = {65001, 1252, 28591, 20127};
    if (size < 1 || size > 1 << 20)
        return 0;
    MarkupProbe markup;
    const unsigned codePage = kCodePages[data[0] % std::size(kCodePages)];
    Check(markup, markup.SetDoc(reinterpret_cast<const char*>(data + 1), static_cast<int>(size) - 1,
                                codePage));
    const std::vector<WCHAR> text = FuzzInput(data, size).Units();
    Check(markup, markup.SetDoc(text.data(), static_cast<int>(text.size()) - 1));
    return 0;
}
