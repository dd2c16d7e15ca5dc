#include "xml_documents.h"

#include <fstream>
#include <map>
#include <tuple>
#include <unistd.h>
#include <utility>

XmlDocument::XmlDocument(XmlCorpus corpus, std::size_t size)
    : bytes(MakeXml(corpus, size)), text(bytes.c_str()),
      path(std::filesystem::temp_directory_path() /
           ("quorvel_bench_" + std::to_string(getpid()) + "_" +
            std::to_string(static_cast<int>(corpus)) + "_" + std::to_string(size) + ".xml")),
      pathText(path.c_str()) {
    std::ofstream(path, std::ios::binary) << bytes;
}

XmlDocument::~XmlDocument() {
    std::error_code ignored;
    std::filesystem::remove(path, ignored);
}

const XmlDocument& XmlDocumentOf(XmlCorpus corpus, std::size_t size) {
    static std::map<std::pair<XmlCorpus, std::size_t>, XmlDocument> s_documents;
    return s_documents.try_emplace({corpus, size}, corpus, size).first->second;
}

const XmlDocument& XmlDocumentOf(const benchmark::State& state) {
    return XmlDocumentOf(static_cast<XmlCorpus>(state.range(0)),
                         static_cast<std::size_t>(state.range(1)));
}

void CountXmlBytes(benchmark::State& state, const XmlDocument& document) {
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(document.bytes.size()));
}
