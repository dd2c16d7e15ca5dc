// Parsing, loading and saving XML against the parsers that a host would otherwise take. The second
// part of each name is the corpus and its size.
#include "xml_corpora.h"

#include <quorvel/xml/markup.h>
#include <quorvel/xml/xml_file.h>

#include <benchmark/benchmark.h>
#include <expat.h>
#include <libxml/parser.h>
#include <pugixml.hpp>
#include <rapidxml/rapidxml.hpp>
#include <tinyxml2.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

// A corpus in both encodings and as a file.
struct Document {
    std::string bytes;
    CString text;
    std::filesystem::path path;
    CString pathText;

    Document(XmlCorpus corpus, std::size_t size)
        : bytes(MakeXml(corpus, size)), text(bytes.c_str()),
          path(std::filesystem::temp_directory_path() /
               ("quorvel_bench_" + std::to_string(getpid()) + "_" +
                std::to_string(static_cast<int>(corpus)) + "_" + std::to_string(size) + ".xml")),
          pathText(path.c_str()) {
        std::ofstream(path, std::ios::binary) << bytes;
    }
    Document(const Document&) = delete;
    ~Document() {
        std::error_code ignored;
        std::filesystem::remove(path, ignored);
    }
};

// All stay until the program ends: interleaved benchmarks come back to each.
const Document& DocumentOf(XmlCorpus corpus, std::size_t size) {
    static std::map<std::pair<XmlCorpus, std::size_t>, Document> s_documents;
    return s_documents.try_emplace({corpus, size}, corpus, size).first->second;
}

struct Pugi {
    static void Parse(const Document& document) {
        pugi::xml_document tree;
        Check(tree.load_buffer(document.bytes.data(), document.bytes.size()));
        benchmark::DoNotOptimize(tree.first_child());
    }
    static void Load(const Document& document) {
        pugi::xml_document tree;
        Check(tree.load_file(document.path.c_str()));
    }
    static void Save(benchmark::State& state, const Document& document) {
        pugi::xml_document tree;
        Check(tree.load_buffer(document.bytes.data(), document.bytes.size()));
        for (auto _ : state)
            tree.save_file(document.path.c_str(), "", pugi::format_raw);
    }

private:
    static void Check(const pugi::xml_parse_result& result) {
        if (!result)
            throw std::runtime_error(result.description());
    }
};

void ParseSetDoc(const Document& document) {
    static CMarkup s_markup; // keeps its memory, as a host's would
    if (!s_markup.SetDoc(document.text.GetString(), document.text.GetLength()))
        throw std::runtime_error("not well formed");
}

void ParseRapid(const Document& document) {
    std::vector<char> bytes(document.bytes.begin(), document.bytes.end());
    bytes.push_back(0);
    rapidxml::xml_document<> tree;
    tree.parse<rapidxml::parse_default>(bytes.data());
    benchmark::DoNotOptimize(tree.first_node());
}

void ParseTiny(const Document& document) {
    tinyxml2::XMLDocument tree;
    if (tree.Parse(document.bytes.data(), document.bytes.size()) != tinyxml2::XML_SUCCESS)
        throw std::runtime_error("not parsed");
}

void ParseExpat(const Document& document) {
    const std::unique_ptr<XML_ParserStruct, void (*)(XML_Parser)> parser(XML_ParserCreate(nullptr),
                                                                         XML_ParserFree);
    if (XML_Parse(parser.get(), document.bytes.data(), static_cast<int>(document.bytes.size()),
                  1) != XML_STATUS_OK)
        throw std::runtime_error("not parsed");
}

void ParseLibXml2(const Document& document) {
    const std::unique_ptr<xmlDoc, void (*)(xmlDoc*)> tree(
        xmlReadMemory(document.bytes.data(), static_cast<int>(document.bytes.size()), nullptr,
                      nullptr, XML_PARSE_HUGE),
        xmlFreeDoc);
    if (tree == nullptr)
        throw std::runtime_error("not parsed");
}

void LoadFile(const Document& document) {
    CMarkup markup;
    CString error;
    if (!AfxLoadXMLFile(document.pathText, markup, error))
        throw std::runtime_error("not loaded");
}

template <void (*work)(const Document&)>
void Run(benchmark::State& state) {
    const Document& document = DocumentOf(static_cast<XmlCorpus>(state.range(0)),
                                          static_cast<std::size_t>(state.range(1)));
    try {
        for (auto _ : state)
            work(document);
    } catch (const std::exception& exception) {
        state.SkipWithError(exception.what());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(document.bytes.size()));
}

void SaveFile(benchmark::State& state) {
    const Document& document = DocumentOf(XmlCorpus::Rss, 10'000'000);
    CMarkup markup(document.text);
    CString error;
    for (auto _ : state)
        if (!AfxSaveXMLFile(markup, document.pathText, error))
            state.SkipWithError("not saved");
}
void SavePugi(benchmark::State& state) {
    Pugi::Save(state, DocumentOf(XmlCorpus::Rss, 10'000'000));
}

void EveryCorpus(benchmark::internal::Benchmark* benchmark) {
    benchmark->ArgsProduct(
        {{0, 1, 2, 3},
         {static_cast<std::int64_t>(kSmallXml), static_cast<std::int64_t>(kLargeXml)}});
    benchmark->Unit(benchmark::kMicrosecond);
}

BENCHMARK(Run<ParseSetDoc>)->Name("XmlParse/SetDoc")->Apply(EveryCorpus);
BENCHMARK(Run<Pugi::Parse>)->Name("XmlParse/pugixml")->Apply(EveryCorpus);
BENCHMARK(Run<ParseRapid>)->Name("XmlParse/RapidXML")->Apply(EveryCorpus);
BENCHMARK(Run<ParseTiny>)->Name("XmlParse/TinyXML-2")->Apply(EveryCorpus);
BENCHMARK(Run<ParseExpat>)->Name("XmlParse/expat")->Apply(EveryCorpus);
BENCHMARK(Run<ParseLibXml2>)->Name("XmlParse/libxml2")->Apply(EveryCorpus);
BENCHMARK(Run<LoadFile>)->Name("XmlLoad/AfxLoadXMLFile")->Apply(EveryCorpus);
BENCHMARK(Run<Pugi::Load>)->Name("XmlLoad/pugixml")->Apply(EveryCorpus);
BENCHMARK(SaveFile)->Name("XmlSave/AfxSaveXMLFile")->Unit(benchmark::kMicrosecond);
BENCHMARK(SavePugi)->Name("XmlSave/pugixml")->Unit(benchmark::kMicrosecond);

} // namespace
