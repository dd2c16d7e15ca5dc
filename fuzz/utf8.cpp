// UTF-8 and UTF-16. The first byte says whether the conversion is strict and chooses the text
// around the input, the second one how much room is missing. The portable form and the kernels must
// agree, also when they only count.
#include "fuzz_input.h"
#include "platform/linux/text/utf8_kernels.h"

#include <vector>

using namespace quorvel;

namespace {

template <class Target>
struct Result {
    DWORD error;
    std::vector<Target> text;
    bool operator==(const Result&) const = default;
};

// The vectors have the exact sizes of room and text, so that the sanitizer finds overruns.
template <class Source, class Target>
class Conversion {
public:
    typedef DWORD (*Convert)(const Utf8Kernels*, std::span<const Source>, bool, Output<Target>&);

    Conversion(Convert convert, bool strict, const std::vector<Source>& text)
        : m_convert(convert), m_strict(strict), m_text(text) {}

    Result<Target> Run(const Utf8Kernels* kernels, std::size_t room) const {
        std::vector<Target> text(room);
        Target nowhere;
        Output<Target> output(room > 0 ? text.data() : &nowhere, room);
        const DWORD error = m_convert(kernels, m_text, m_strict, output);
        text.resize(output.Count());
        return {error, text};
    }
    void Check(const Utf8Kernels* kernels, std::size_t missing) const {
        Output<Target> counted(nullptr, 0);
        const DWORD error = m_convert(kernels, m_text, m_strict, counted);
        const std::size_t room = counted.Count() + 1; // a full buffer ends the conversion
        const auto whole = Run(nullptr, room);
        Require(whole.error == error && whole.text.size() == counted.Count());
        for (const std::size_t lacking : {std::size_t{0}, std::size_t{1}, missing})
            Require(Run(kernels, room - std::min(room, lacking)) ==
                    Run(nullptr, room - std::min(room, lacking)));
    }

private:
    const Convert m_convert;
    const bool m_strict;
    const std::vector<Source>& m_text;
};

// The text around the input: blocks of one kind, for which the kernels are made.
constexpr std::u16string_view kSurroundings[] = {
    u"", u"The quick brown fox jumps over the lazy dog. ",
    u"Съешь же ещё этих мягких французских булок ", u"色は匂へど散りぬるを我が世誰ぞ常ならむ",
    u"😀🚀🎉👍😀🚀🎉👍😀🚀🎉👍😀🚀🎉👍😀🚀🎉👍"};

template <class Unit>
std::vector<Unit> Surrounded(const std::vector<Unit>& text, const std::vector<Unit>& by) {
    std::vector<Unit> all = by;
    for (const auto& part : {text, by, by, text, by})
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const std::uint8_t kind = input.Byte();
    const std::size_t missing = input.Byte();
    const auto surroundings = kSurroundings[kind / 2 % std::size(kSurroundings)];
    const std::vector<WCHAR> unitsAround(surroundings.begin(), surroundings.end());
    std::vector<char> encoded(3 * unitsAround.size());
    ByteOutput output(encoded.data(), encoded.size());
    EncodeUtf8(nullptr, unitsAround, true, output);
    const std::vector<BYTE> bytesAround(encoded.begin(),
                                        encoded.begin() + static_cast<int>(output.Count()));

    const std::string rest = input.Bytes();
    const auto bytes = Surrounded(std::vector<BYTE>(rest.begin(), rest.end()), bytesAround);
    const auto units = Surrounded(input.Units(), unitsAround);
    for (const Utf8Kernels* kernels : {Ssse3Utf8(), Avx2Utf8()}) {
        if (kernels == nullptr)
            continue;
        const bool strict = kind % 2 != 0;
        Conversion<BYTE, WCHAR>(DecodeUtf8, strict, bytes).Check(kernels, missing);
        Conversion<WCHAR, char>(EncodeUtf8, strict, units).Check(kernels, missing);
    }
    return 0;
}
