// Parses any bytes as a document, as UTF-16 and through a code page, visits and reads all elements,
// and checks the invariants of the index.
#include "fuzz_input.h"
#include "xml/markup_probe.h"

static void Check(MarkupProbe& markup, bool parsed) {
    Require(parsed == markup.IsWellFormed());
    const int length = markup.GetDocConstRef().GetLength();
    int previous = -1;
    for (const auto& [open, close, endOpen, endClose, depth] : markup.Tree()) {
        Require(previous < open && open < close && close < length);
        Require(endClose < length && depth >= 0);
        Require(close == endOpen + 1 ? close == endClose : close < endOpen && endOpen < endClose);
        previous = open;
    }
    do
        while (markup.FindElem()) {
            markup.GetTagName();
            markup.GetData();
            markup.GetAttrib(_T("a"));
            markup.GetAttrib(_T(""));
            markup.FindChildElem(_T("b"));
            markup.ResetChildPos();
            markup.IntoElem();
        }
    while (markup.OutOfElem());
}

FUZZ_TARGET(input) {
    static constexpr unsigned kCodePages[] = {65001, 1252, 28591, 20127};
    MarkupProbe markup;
    const std::vector<WCHAR> text = input.Units();
    const unsigned codePage = kCodePages[input.Byte() % std::size(kCodePages)];
    const std::string bytes = input.Bytes();
    Check(markup, markup.SetDoc(bytes.data(), static_cast<int>(bytes.size()), codePage));
    Check(markup, markup.SetDoc(text.data(), static_cast<int>(text.size()) - 1));
}
