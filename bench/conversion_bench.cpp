// UTF-8 to UTF-16 and back against ICU, on 64 KB of text, the size of the pieces that files are
// read in.
#include "platform/win32.h"

#include <benchmark/benchmark.h>
#include <unicode/ustring.h>

#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr std::string_view kSentences[] = {
    "The quick brown fox jumps over the lazy dog, and then it rests for a while. ",
    "Zwölf Boxkämpfer jagen Viktor quer über den großen Sylter Deich, während es schneit. ",
    "Съешь же ещё этих мягких французских булок, да выпей чаю. ",
    "色は匂へど散りぬるを我が世誰ぞ常ならむ有為の奥山今日越えて浅き夢見じ酔ひもせず。",
    "Emoji 😀 between 🚀 words 🎉 and 👍 more. ",
};
constexpr const char* kLanguages[] = {"ASCII", "German", "Russian", "Japanese", "emoji"};

std::string Narrow(std::size_t language) {
    constexpr std::size_t kSize = 65536;
    std::string text;
    while (text.size() < kSize)
        text += kSentences[language];
    return text;
}

std::vector<WCHAR> Wide(const std::string& text) {
    std::vector<WCHAR> wide(text.size());
    const int size = static_cast<int>(text.size());
    wide.resize(static_cast<std::size_t>(
        MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), size)));
    return wide;
}

int DecodeOwn(const std::string& text, std::vector<WCHAR>& wide) {
    return MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), wide.data(),
                               static_cast<int>(wide.size()));
}
int DecodeIcu(const std::string& text, std::vector<WCHAR>& wide) {
    UErrorCode error = U_ZERO_ERROR;
    int length = 0;
    u_strFromUTF8WithSub(wide.data(), static_cast<int>(wide.size()), &length, text.data(),
                         static_cast<int>(text.size()), 0xfffd, nullptr, &error);
    return length;
}
int EncodeOwn(const std::vector<WCHAR>& wide, std::string& text) {
    return WideCharToMultiByte(CP_UTF8, 0, wide.data(), static_cast<int>(wide.size()), text.data(),
                               static_cast<int>(text.size()), nullptr, nullptr);
}
int EncodeIcu(const std::vector<WCHAR>& wide, std::string& text) {
    UErrorCode error = U_ZERO_ERROR;
    int length = 0;
    u_strToUTF8WithSub(text.data(), static_cast<int>(text.size()), &length, wide.data(),
                       static_cast<int>(wide.size()), 0xfffd, nullptr, &error);
    return length;
}

template <class Source, class Target>
void Convert(benchmark::State& state, const Source& source, Target& target,
             int (*convert)(const Source&, Target&)) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(convert(source, target));
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * 65536);
}

template <int (*decode)(const std::string&, std::vector<WCHAR>&)>
void Decode(benchmark::State& state, std::size_t language) {
    const std::string text = Narrow(language);
    std::vector<WCHAR> wide(text.size());
    Convert(state, text, wide, decode);
}

template <int (*encode)(const std::vector<WCHAR>&, std::string&)>
void Encode(benchmark::State& state, std::size_t language) {
    std::string text = Narrow(language);
    const std::vector<WCHAR> wide = Wide(text);
    Convert(state, wide, text, encode);
}

const int kRegistered = [] {
    struct Row {
        const char* name;
        void (*run)(benchmark::State&, std::size_t language);
    };
    static constexpr Row kRows[] = {
        {"FromUtf8/MultiByteToWideChar/", Decode<DecodeOwn>},
        {"FromUtf8/ICU/", Decode<DecodeIcu>},
        {"ToUtf8/WideCharToMultiByte/", Encode<EncodeOwn>},
        {"ToUtf8/ICU/", Encode<EncodeIcu>},
    };
    for (const Row& row : kRows)
        for (std::size_t language = 0; language < std::size(kLanguages); ++language)
            benchmark::RegisterBenchmark((std::string(row.name) + kLanguages[language]).c_str(),
                                         row.run, language);
    return 0;
}();

} // namespace
