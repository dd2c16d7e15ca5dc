// The corpora as the XML benchmarks want them: in both encodings and as a file.
#pragma once

#include "xml_corpora.h"

#include <quorvel/framework/string.h>

#include <benchmark/benchmark.h>

#include <cstdint>
#include <filesystem>
#include <string>

struct XmlDocument {
    std::string bytes;
    CString text;
    std::filesystem::path path;
    CString pathText;

    XmlDocument(XmlCorpus corpus, std::size_t size);
    XmlDocument(const XmlDocument&) = delete;
    ~XmlDocument(); // deletes the file
};

// All stay until the program ends: interleaved benchmarks come back to each.
const XmlDocument& XmlDocumentOf(XmlCorpus corpus, std::size_t size);
// That of a benchmark whose arguments are corpus and size.
const XmlDocument& XmlDocumentOf(const benchmark::State& state);

void CountXmlBytes(benchmark::State& state, const XmlDocument& document);
