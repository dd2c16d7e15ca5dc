// Text encodings against the peers that a host would otherwise call.
#include <quorvel/util/text/base64.h>
#include <quorvel/util/text/encoding_names.h>
#include <quorvel/util/text/escape.h>
#include <quorvel/util/text/md5.h>

#include <benchmark/benchmark.h>
#include <libxml/uri.h>
#include <openssl/evp.h>

#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

std::vector<BYTE> RandomBytes(benchmark::State& state) {
    std::mt19937 random(1);
    std::vector<BYTE> bytes(static_cast<std::size_t>(state.range(0)));
    for (BYTE& value : bytes)
        value = static_cast<BYTE>(random());
    return bytes;
}

void Count(benchmark::State& state) {
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * state.range(0));
}

std::string Encoded(const std::vector<BYTE>& bytes, DWORD flags) {
    int length = AfxBase64EncodeGetRequiredLength(static_cast<int>(bytes.size()), flags);
    std::string text(static_cast<std::size_t>(length), 0);
    AfxBase64EncodeMultiByte(bytes.data(), static_cast<int>(bytes.size()), text.data(), &length,
                             flags);
    text.resize(static_cast<std::size_t>(length));
    return text;
}

template <DWORD flags>
void Base64Encode(benchmark::State& state) {
    const auto bytes = RandomBytes(state);
    const int size = static_cast<int>(bytes.size());
    std::string text(static_cast<std::size_t>(AfxBase64EncodeGetRequiredLength(size, flags)), 0);
    for (auto _ : state) {
        int length = static_cast<int>(text.size());
        AfxBase64EncodeMultiByte(bytes.data(), size, text.data(), &length, flags);
        benchmark::ClobberMemory();
    }
    Count(state);
}

void OpenSslEncodeBlock(benchmark::State& state) {
    const auto bytes = RandomBytes(state);
    std::vector<BYTE> text(bytes.size() * 4 / 3 + 8);
    for (auto _ : state) {
        EVP_EncodeBlock(text.data(), bytes.data(), static_cast<int>(bytes.size()));
        benchmark::ClobberMemory();
    }
    Count(state);
}

template <DWORD flags>
void Base64Decode(benchmark::State& state) {
    const std::string text = Encoded(RandomBytes(state), flags);
    std::vector<BYTE> bytes(text.size());
    for (auto _ : state) {
        int length = static_cast<int>(bytes.size());
        AfxBase64DecodeMultiByte(text.data(), static_cast<int>(text.size()), bytes.data(), &length);
        benchmark::ClobberMemory();
    }
    Count(state);
}

void OpenSslDecodeBlock(benchmark::State& state) {
    const std::string text = Encoded(RandomBytes(state), BASE64_NO_LINE_BREAKS);
    std::vector<BYTE> bytes(text.size());
    for (auto _ : state) {
        EVP_DecodeBlock(bytes.data(), reinterpret_cast<const BYTE*>(text.data()),
                        static_cast<int>(text.size()));
        benchmark::ClobberMemory();
    }
    Count(state);
}

void OpenSslDecodeUpdate(benchmark::State& state) {
    const std::string text = Encoded(RandomBytes(state), 0);
    std::vector<BYTE> bytes(text.size());
    const std::unique_ptr<EVP_ENCODE_CTX, decltype(&EVP_ENCODE_CTX_free)> context(
        EVP_ENCODE_CTX_new(), EVP_ENCODE_CTX_free);
    for (auto _ : state) {
        int length = 0;
        EVP_DecodeInit(context.get());
        EVP_DecodeUpdate(context.get(), bytes.data(), &length,
                         reinterpret_cast<const BYTE*>(text.data()), static_cast<int>(text.size()));
        EVP_DecodeFinal(context.get(), bytes.data() + length, &length);
        benchmark::ClobberMemory();
    }
    Count(state);
}

void Md5Digest(benchmark::State& state) {
    const auto bytes = RandomBytes(state);
    BYTE digest[16];
    for (auto _ : state) {
        AfxGenerateMD5Digest(bytes.data(), static_cast<unsigned>(bytes.size()), digest);
        benchmark::DoNotOptimize(digest);
    }
    Count(state);
}

void OpenSslMd5Digest(benchmark::State& state) {
    const auto bytes = RandomBytes(state);
    BYTE digest[EVP_MAX_MD_SIZE];
    for (auto _ : state) {
        EVP_Digest(bytes.data(), bytes.size(), digest, nullptr, EVP_md5(), nullptr);
        benchmark::DoNotOptimize(digest);
    }
    Count(state);
}

// Running text, with a blank in each word's place and an accent in every tenth.
std::string Words(benchmark::State& state) {
    std::string text;
    while (text.size() < static_cast<std::size_t>(state.range(0)))
        text += text.size() % 10 == 0 ? "caf\xc3\xa9 " : "network ";
    text.resize(static_cast<std::size_t>(state.range(0)));
    return text;
}

void EscapeUrl(benchmark::State& state) {
    const std::string text = Words(state);
    CStringA escaped;
    for (auto _ : state) {
        AfxUTF8EscapeUnsafeURLCharacters(text.c_str(), escaped, FALSE);
        benchmark::ClobberMemory();
    }
    Count(state);
}

void LibXmlEscapeUri(benchmark::State& state) {
    const std::string text = Words(state);
    for (auto _ : state)
        xmlFree(xmlURIEscapeStr(reinterpret_cast<const xmlChar*>(text.c_str()), nullptr));
    Count(state);
}

void EncodingCodePage(benchmark::State& state) {
    const WCHAR* const names[] = {_T("utf-8"), _T("ISO_8859-1:1987"), _T("x-unknown-name")};
    for (auto _ : state) {
        UINT codePage;
        AfxCharacterEncodingToCodePage(names[state.range(0)], codePage);
        benchmark::DoNotOptimize(codePage);
    }
}

void EncodingPreferredName(benchmark::State& state) {
    for (auto _ : state) {
        CString preferred;
        AfxGetPreferredCharacterEncodingName(_T("ISO_8859-1:1987"), preferred);
        benchmark::DoNotOptimize(preferred);
    }
}

void BlockSizes(benchmark::internal::Benchmark* benchmark) {
    for (const int size : {64, 16 << 10, 32 << 20})
        benchmark->Arg(size);
}

BENCHMARK(Base64Encode<BASE64_NO_LINE_BREAKS>)->Name("Base64Encode/Quorvel")->Apply(BlockSizes);
BENCHMARK(OpenSslEncodeBlock)->Name("Base64Encode/EVP_EncodeBlock")->Apply(BlockSizes);
BENCHMARK(Base64Encode<0>)->Name("Base64EncodeLines/Quorvel")->Apply(BlockSizes);
BENCHMARK(OpenSslEncodeBlock)->Name("Base64EncodeLines/EVP_EncodeBlock")->Apply(BlockSizes);
BENCHMARK(Base64Decode<BASE64_NO_LINE_BREAKS>)->Name("Base64Decode/Quorvel")->Apply(BlockSizes);
BENCHMARK(OpenSslDecodeBlock)->Name("Base64Decode/EVP_DecodeBlock")->Apply(BlockSizes);
BENCHMARK(Base64Decode<0>)->Name("Base64DecodeLines/Quorvel")->Apply(BlockSizes);
BENCHMARK(OpenSslDecodeUpdate)->Name("Base64DecodeLines/EVP_DecodeUpdate")->Apply(BlockSizes);
BENCHMARK(Md5Digest)->Name("Md5/Quorvel")->Apply(BlockSizes);
BENCHMARK(OpenSslMd5Digest)->Name("Md5/EVP_Digest")->Apply(BlockSizes);
BENCHMARK(EscapeUrl)->Name("Escape/Quorvel")->Arg(20)->Arg(200)->Arg(1400);
BENCHMARK(LibXmlEscapeUri)->Name("Escape/libxml2")->Arg(20)->Arg(200)->Arg(1400);
BENCHMARK(EncodingCodePage)->DenseRange(0, 2);
BENCHMARK(EncodingPreferredName);

} // namespace
