// Parsing, loading and saving XML against the parsers that a host would otherwise take. The second
// part of each name is the corpus and its size.
#include "xml_documents.h"

#include <quorvel/xml/markup.h>
#include <quorvel/xml/xml_file.h>

#include <benchmark/benchmark.h>
#include <expat.h>
#include <libxml/parser.h>
#include <pugixml.hpp>
#include <rapidxml/rapidxml.hpp>
#include <tinyxml2.h>

#include <cstdio>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <vector>

namespace {

void Check(bool good) {
    if (!good)
        throw std::runtime_error("not parsed");
}

// A peer's way to parse bytes and to load a file.
struct Pugi {
    static void Parse(const XmlDocument& document) {
        pugi::xml_document tree;
        Check(tree.load_buffer(document.bytes.data(), document.bytes.size()));
        benchmark::DoNotOptimize(tree.first_child());
    }
    static void Load(const XmlDocument& document) {
        pugi::xml_document tree;
        Check(tree.load_file(document.path.c_str()));
    }
};

struct Rapid {
    static void ParseBytes(std::vector<char> bytes) {
        bytes.push_back(0);
        rapidxml::xml_document<> tree;
        tree.parse<rapidxml::parse_default>(bytes.data());
        benchmark::DoNotOptimize(tree.first_node());
    }
    static void Parse(const XmlDocument& document) {
        ParseBytes({document.bytes.begin(), document.bytes.end()});
    }
    static void Load(const XmlDocument& document) {
        std::vector<char> bytes(document.bytes.size());
        std::ifstream(document.path, std::ios::binary)
            .read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        ParseBytes(std::move(bytes));
    }
};

struct Tiny {
    static void Parse(const XmlDocument& document) {
        tinyxml2::XMLDocument tree;
        Check(tree.Parse(document.bytes.data(), document.bytes.size()) == tinyxml2::XML_SUCCESS);
    }
    static void Load(const XmlDocument& document) {
        tinyxml2::XMLDocument tree;
        Check(tree.LoadFile(document.path.c_str()) == tinyxml2::XML_SUCCESS);
    }
};

struct Expat {
    typedef std::unique_ptr<XML_ParserStruct, void (*)(XML_Parser)> Parser;

    static void Parse(const XmlDocument& document) {
        const Parser parser(XML_ParserCreate(nullptr), XML_ParserFree);
        Check(XML_Parse(parser.get(), document.bytes.data(),
                        static_cast<int>(document.bytes.size()), 1) == XML_STATUS_OK);
    }
    static void Load(const XmlDocument& document) {
        const Parser parser(XML_ParserCreate(nullptr), XML_ParserFree);
        std::ifstream file(document.path, std::ios::binary);
        std::vector<char> piece(65536);
        for (bool more = true; more;) {
            file.read(piece.data(), static_cast<std::streamsize>(piece.size()));
            more = !file.eof();
            Check(XML_Parse(parser.get(), piece.data(), static_cast<int>(file.gcount()),
                            more ? 0 : 1) == XML_STATUS_OK);
        }
    }
};

struct LibXml2 {
    typedef std::unique_ptr<xmlDoc, void (*)(xmlDoc*)> Tree;

    static void Parse(const XmlDocument& document) {
        const Tree tree(xmlReadMemory(document.bytes.data(),
                                      static_cast<int>(document.bytes.size()), nullptr, nullptr,
                                      XML_PARSE_HUGE),
                        xmlFreeDoc);
        Check(tree != nullptr);
    }
    static void Load(const XmlDocument& document) {
        const Tree tree(xmlReadFile(document.path.c_str(), nullptr, XML_PARSE_HUGE), xmlFreeDoc);
        Check(tree != nullptr);
    }
};

void ParseSetDoc(const XmlDocument& document) {
    static CMarkup s_markup; // keeps its memory, as a host's would
    Check(s_markup.SetDoc(document.text.GetString(), document.text.GetLength()));
}

void LoadFile(const XmlDocument& document) {
    CMarkup markup;
    CString error;
    Check(AfxLoadXMLFile(document.pathText, markup, error));
}

// Into a document that was loaded before, whose index keeps its memory.
void ReloadFile(const XmlDocument& document) {
    static CMarkup s_markup;
    CString error;
    Check(AfxLoadXMLFile(document.pathText, s_markup, error));
}

template <void (*work)(const XmlDocument&)>
void Run(benchmark::State& state) {
    const XmlDocument& document = XmlDocumentOf(state);
    try {
        for (auto _ : state)
            work(document);
    } catch (const std::exception& exception) {
        state.SkipWithError(exception.what());
    }
    CountXmlBytes(state, document);
}

// The parse alone: a document takes its own text without copying it.
void Reparse(benchmark::State& state) {
    const XmlDocument& document = XmlDocumentOf(state);
    CMarkup markup(document.text);
    for (auto _ : state)
        markup.SetDoc(markup.GetDocConstRef(), markup.GetDocConstRef().GetLength());
    CountXmlBytes(state, document);
}

void ParsePugiInPlace(benchmark::State& state) {
    const XmlDocument& document = XmlDocumentOf(state);
    std::string bytes;
    for (auto _ : state) {
        state.PauseTiming();
        bytes = document.bytes; // parsing writes into it
        state.ResumeTiming();
        pugi::xml_document tree;
        tree.load_buffer_inplace(bytes.data(), bytes.size(), pugi::parse_minimal);
        benchmark::DoNotOptimize(tree.first_child());
    }
    CountXmlBytes(state, document);
}

const XmlDocument& DocumentToSave() {
    return XmlDocumentOf(XmlCorpus::Rss, 10'000'000);
}

void SaveFile(benchmark::State& state) {
    CMarkup markup(DocumentToSave().text);
    CString error;
    for (auto _ : state)
        if (!AfxSaveXMLFile(markup, DocumentToSave().pathText, error))
            state.SkipWithError("not saved");
}

void SavePugi(benchmark::State& state) {
    pugi::xml_document tree;
    tree.load_buffer(DocumentToSave().bytes.data(), DocumentToSave().bytes.size());
    for (auto _ : state)
        tree.save_file(DocumentToSave().path.c_str(), "", pugi::format_raw);
}

void EveryCorpus(benchmark::internal::Benchmark* benchmark) {
    benchmark->ArgsProduct(
        {{0, 1, 2, 3},
         {static_cast<std::int64_t>(kSmallXml), static_cast<std::int64_t>(kLargeXml)}});
    benchmark->Unit(benchmark::kMicrosecond);
}

// Whose texts are not ASCII.
void EveryLanguage(benchmark::internal::Benchmark* benchmark) {
    benchmark->ArgsProduct({{4, 5}, {static_cast<std::int64_t>(kLargeXml)}});
    benchmark->Unit(benchmark::kMicrosecond);
}

BENCHMARK(Reparse)->Name("XmlReparse/CMarkup")->Apply(EveryCorpus);
BENCHMARK(ParsePugiInPlace)->Name("XmlReparse/pugixml")->Apply(EveryCorpus);
BENCHMARK(Run<ParseSetDoc>)->Name("XmlParse/SetDoc")->Apply(EveryCorpus);
BENCHMARK(Run<Pugi::Parse>)->Name("XmlParse/pugixml")->Apply(EveryCorpus);
BENCHMARK(Run<Rapid::Parse>)->Name("XmlParse/RapidXML")->Apply(EveryCorpus);
BENCHMARK(Run<Tiny::Parse>)->Name("XmlParse/TinyXML-2")->Apply(EveryCorpus);
BENCHMARK(Run<Expat::Parse>)->Name("XmlParse/expat")->Apply(EveryCorpus);
BENCHMARK(Run<LibXml2::Parse>)->Name("XmlParse/libxml2")->Apply(EveryCorpus);
BENCHMARK(Run<LoadFile>)->Name("XmlLoad/AfxLoadXMLFile")->Apply(EveryCorpus);
BENCHMARK(Run<Pugi::Load>)->Name("XmlLoad/pugixml")->Apply(EveryCorpus);
BENCHMARK(Run<Rapid::Load>)->Name("XmlLoad/RapidXML")->Apply(EveryCorpus);
BENCHMARK(Run<Tiny::Load>)->Name("XmlLoad/TinyXML-2")->Apply(EveryCorpus);
BENCHMARK(Run<Expat::Load>)->Name("XmlLoad/expat")->Apply(EveryCorpus);
BENCHMARK(Run<LibXml2::Load>)->Name("XmlLoad/libxml2")->Apply(EveryCorpus);
BENCHMARK(Run<LoadFile>)->Name("XmlLoadText/AfxLoadXMLFile")->Apply(EveryLanguage);
BENCHMARK(Run<Pugi::Load>)->Name("XmlLoadText/pugixml")->Apply(EveryLanguage);
BENCHMARK(Run<Rapid::Load>)->Name("XmlLoadText/RapidXML")->Apply(EveryLanguage);
BENCHMARK(Run<Expat::Load>)->Name("XmlLoadText/expat")->Apply(EveryLanguage);
BENCHMARK(Run<LibXml2::Load>)->Name("XmlLoadText/libxml2")->Apply(EveryLanguage);
BENCHMARK(Run<ReloadFile>)->Name("XmlReload/AfxLoadXMLFile")->Apply(EveryCorpus);
BENCHMARK(Run<Pugi::Load>)->Name("XmlReload/pugixml")->Apply(EveryCorpus);
BENCHMARK(SaveFile)->Name("XmlSave/AfxSaveXMLFile")->Unit(benchmark::kMicrosecond);
BENCHMARK(SavePugi)->Name("XmlSave/pugixml")->Unit(benchmark::kMicrosecond);

} // namespace
