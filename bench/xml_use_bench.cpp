// What hosts do with a document: parse it and read from it, build one and save it; and the deepest
// one.
#include "xml_documents.h"

#include <quorvel/xml/markup.h>
#include <quorvel/xml/xml_file.h>

#include <benchmark/benchmark.h>
#include <pugixml.hpp>

#include <cstring>
#include <string>

namespace {

// One list of names in both widths.
struct Name {
    const WCHAR* wide;
    const char* narrow;
};
constexpr Name kItemTexts[] = {{_T("title"), "title"},
                               {_T("link"), "link"},
                               {_T("description"), "description"},
                               {_T("pubDate"), "pubDate"},
                               {_T("priority"), "priority"}};

void ReadItems(benchmark::State& state) {
    const XmlDocument& document = XmlDocumentOf(XmlCorpus::Rss, kLargeXml);
    CMarkup markup;
    std::int64_t length = 0;
    for (auto _ : state) {
        markup.SetDoc(document.text, document.text.GetLength());
        markup.FindElem();
        markup.FindChildElem();
        markup.IntoElem();
        while (markup.FindChildElem(_T("item"))) {
            markup.IntoElem();
            for (const Name& name : kItemTexts)
                if (markup.FindChildElem(name.wide))
                    length += markup.GetChildData().GetLength();
            markup.OutOfElem();
        }
        benchmark::DoNotOptimize(length);
    }
}

void ReadItemsPugi(benchmark::State& state) {
    const XmlDocument& document = XmlDocumentOf(XmlCorpus::Rss, kLargeXml);
    std::size_t length = 0;
    for (auto _ : state) {
        pugi::xml_document tree;
        tree.load_buffer(document.bytes.data(), document.bytes.size());
        for (const pugi::xml_node item : tree.child("rss").child("channel").children("item"))
            for (const Name& name : kItemTexts)
                length += std::strlen(item.child_value(name.narrow));
        benchmark::DoNotOptimize(length);
    }
}

// Calls `visit` with every element of the document as the main one.
template <class Visit>
void VisitAll(CMarkup& markup, Visit visit) {
    markup.ResetPos();
    for (;;) {
        if (markup.FindElem()) {
            visit();
            markup.IntoElem();
        } else if (!markup.OutOfElem()) {
            return;
        }
    }
}

void ReadAttributes(benchmark::State& state) {
    const XmlDocument& document = XmlDocumentOf(XmlCorpus::Attributes, kLargeXml);
    CMarkup markup;
    std::int64_t length = 0;
    for (auto _ : state) {
        markup.SetDoc(document.text, document.text.GetLength());
        VisitAll(markup, [&markup, &length] {
            length += markup.GetAttrib(_T("id")).GetLength();
            length += markup.GetAttrib(_T("value")).GetLength();
        });
        benchmark::DoNotOptimize(length);
    }
}

std::size_t ReadBelow(const pugi::xml_node& parent) {
    std::size_t length = 0;
    for (const pugi::xml_node node : parent.children())
        length += std::strlen(node.attribute("id").value()) +
                  std::strlen(node.attribute("value").value()) + ReadBelow(node);
    return length;
}

void ReadAttributesPugi(benchmark::State& state) {
    const XmlDocument& document = XmlDocumentOf(XmlCorpus::Attributes, kLargeXml);
    for (auto _ : state) {
        pugi::xml_document tree;
        tree.load_buffer(document.bytes.data(), document.bytes.size());
        benchmark::DoNotOptimize(ReadBelow(tree));
    }
}

// A million elements appended one by one, and the document saved.
constexpr int kAppended = 1'000'000;

void AppendAndSave(benchmark::State& state) {
    const XmlDocument& document = XmlDocumentOf(XmlCorpus::Rss, kSmallXml);
    const CString path = document.pathText + _T(".saved");
    for (auto _ : state) {
        CMarkup markup;
        markup.AddElem(_T("items"));
        for (int i = 0; i < kAppended; ++i)
            markup.AddChildElem(_T("item"), _T("some text"));
        CString error;
        if (!AfxSaveXMLFile(markup, path, error))
            state.SkipWithError("not saved");
    }
    std::filesystem::remove(document.path.string() + ".saved");
}

void AppendAndSavePugi(benchmark::State& state) {
    const XmlDocument& document = XmlDocumentOf(XmlCorpus::Rss, kSmallXml);
    const std::string path = document.path.string() + ".saved";
    for (auto _ : state) {
        pugi::xml_document tree;
        pugi::xml_node items = tree.append_child("items");
        for (int i = 0; i < kAppended; ++i)
            items.append_child("item").text().set("some text");
        if (!tree.save_file(path.c_str(), ""))
            state.SkipWithError("not saved");
    }
    std::filesystem::remove(path);
}

void ParseDeep(benchmark::State& state) {
    const auto levels = static_cast<int>(state.range(0));
    std::basic_string<WCHAR> text;
    for (int i = 0; i < levels; ++i)
        text += _T("<a>");
    for (int i = 0; i < levels; ++i)
        text += _T("</a>");
    static CMarkup s_markup; // keeps its memory
    for (auto _ : state)
        if (!s_markup.SetDoc(text.data(), static_cast<int>(text.size())))
            state.SkipWithError("not parsed");
}

BENCHMARK(ReadItems)->Name("XmlReadItems/CMarkup")->Unit(benchmark::kMillisecond);
BENCHMARK(ReadItemsPugi)->Name("XmlReadItems/pugixml")->Unit(benchmark::kMillisecond);
BENCHMARK(ReadAttributes)->Name("XmlReadAttributes/CMarkup")->Unit(benchmark::kMillisecond);
BENCHMARK(ReadAttributesPugi)->Name("XmlReadAttributes/pugixml")->Unit(benchmark::kMillisecond);
BENCHMARK(AppendAndSave)->Name("XmlAppendAndSave/CMarkup")->Unit(benchmark::kMillisecond);
BENCHMARK(AppendAndSavePugi)->Name("XmlAppendAndSave/pugixml")->Unit(benchmark::kMillisecond);
BENCHMARK(ParseDeep)->Name("XmlDeep/SetDoc")->Arg(5'000'000)->Unit(benchmark::kMillisecond);

} // namespace
