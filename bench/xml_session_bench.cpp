// A forward pass over a document that sets an attribute on every element or adds a child to each,
// through an edit session with its Commit and, on a much shorter document, directly. The argument
// is the length of the document in thousands of characters.
#include <quorvel/xml/edit_session.h>

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>

namespace {

// Rows of a usual length, or nothing but the shortest elements.
enum class Rows { Usual, Shortest };

std::basic_string<WCHAR> TextOf(Rows rows, std::int64_t length) {
    const std::basic_string<WCHAR> row =
        rows == Rows::Usual ? _T("  <item id=\"12345\">Some text, as rows have it</item>\r\n")
                            : _T("<a/>");
    std::basic_string<WCHAR> text = _T("<rows>");
    while (static_cast<std::int64_t>(text.size()) < length)
        text += row;
    return text + _T("</rows>");
}

struct SetEach {
    template <class Document>
    static bool Edit(Document& document) {
        return document.SetAttrib(_T("seen"), _T("yes"));
    }
};

struct AddToEach {
    template <class Document>
    static bool Edit(Document& document) {
        return document.AddChildElem(_T("c"));
    }
};

template <class Change, class Document>
std::int64_t Pass(Document& document) {
    std::int64_t edits = 0;
    document.ResetPos();
    document.FindElem();
    document.IntoElem();
    while (document.FindElem())
        edits += Change::Edit(document) ? 1 : 0;
    return edits;
}

template <class Change, Rows rows, bool throughSession>
void XmlForwardPass(benchmark::State& state) {
    const auto text = TextOf(rows, state.range(0) * 1000);
    const CMarkup original(text.c_str());
    std::int64_t edits = 0;
    for (auto _ : state) {
        state.PauseTiming();
        CMarkup markup(original);
        state.ResumeTiming();
        if constexpr (throughSession) {
            CMarkupEditSession session(markup);
            edits += Pass<Change>(session);
            session.Commit();
        } else {
            edits += Pass<Change>(markup);
        }
        benchmark::DoNotOptimize(markup.GetDocConstRef().GetString());
    }
    state.SetItemsProcessed(edits);
}
BENCHMARK(XmlForwardPass<SetEach, Rows::Usual, true>)->Unit(benchmark::kMillisecond)->Arg(10000);
BENCHMARK(XmlForwardPass<SetEach, Rows::Shortest, true>)->Unit(benchmark::kMillisecond)->Arg(10000);
BENCHMARK(XmlForwardPass<AddToEach, Rows::Usual, true>)->Unit(benchmark::kMillisecond)->Arg(10000);
BENCHMARK(XmlForwardPass<SetEach, Rows::Usual, true>)->Unit(benchmark::kMillisecond)->Arg(200);
BENCHMARK(XmlForwardPass<SetEach, Rows::Usual, false>)->Unit(benchmark::kMillisecond)->Arg(200);

} // namespace
