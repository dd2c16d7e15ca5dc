// UTF-8 and UTF-16. The first byte says whether the conversion is strict and chooses the text
// around the input, the second one how much room is missing. The portable form and the kernels must
// agree, also when they only count.
#include "fuzz_input.h"
#include "platform/linux/text/utf8_kernels.h"

using namespace quorvel;

// The vectors have the exact sizes of room and text, so that the sanitizer finds overruns.
template <class Source, class Target>
static void Check(DWORD (*convert)(const Utf8Kernels*, std::span<const Source>, bool,
                                   Output<Target>&),
                  const std::vector<Source>& source, bool strict, std::size_t missing) {
    const auto run = [&](const Utf8Kernels* kernels, std::size_t room) {
        std::vector<Target> text(room);
        Target nowhere;
        Output<Target> output(room > 0 ? text.data() : &nowhere, room);
        const DWORD error = convert(kernels, source, strict, output);
        text.resize(output.Count());
        return std::pair(error, text);
    };
    for (const Utf8Kernels* kernels : {Ssse3Utf8(), Avx2Utf8()}) {
        if (kernels == nullptr)
            continue;
        Output<Target> counted(nullptr, 0);
        const DWORD error = convert(kernels, source, strict, counted);
        const std::size_t room = counted.Count() + 1; // a full buffer ends the conversion
        const auto [wholeError, whole] = run(nullptr, room);
        Require(wholeError == error && whole.size() == counted.Count());
        for (const std::size_t lacking : {std::size_t{0}, std::size_t{1}, missing})
            Require(run(kernels, room - std::min(room, lacking)) ==
                    run(nullptr, room - std::min(room, lacking)));
    }
}

// The text around the input: blocks of one kind, for which the kernels are made.
constexpr std::u16string_view kSurroundings[] = {
    u"", u"The quick brown fox jumps over the lazy dog. ",
    u"Съешь же ещё этих мягких французских булок ", u"色は匂へど散りぬるを我が世誰ぞ常ならむ",
    u"😀🚀🎉👍😀🚀🎉👍😀🚀🎉👍😀🚀🎉👍😀🚀🎉👍"};

template <class Unit>
static std::vector<Unit> Surrounded(const std::vector<Unit>& text, const std::vector<Unit>& by) {
    std::vector<Unit> all;
    for (const auto& part : {by, text, by, by, text, by})
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

FUZZ_TARGET(input) {
    const std::uint8_t kind = input.Byte();
    const std::size_t missing = input.Byte();
    const auto surroundings = kSurroundings[kind / 2 % std::size(kSurroundings)];
    const std::vector<WCHAR> unitsAround(surroundings.begin(), surroundings.end());
    std::vector<char> encoded(3 * unitsAround.size());
    ByteOutput output(encoded.data(), encoded.size());
    EncodeUtf8(nullptr, unitsAround, true, output);
    encoded.resize(output.Count());
    const std::vector<BYTE> bytesAround(encoded.begin(), encoded.end());
    const bool strict = kind % 2 != 0;
    Check<BYTE, WCHAR>(DecodeUtf8, Surrounded(input.Block(), bytesAround), strict, missing);
    Check<WCHAR, char>(EncodeUtf8, Surrounded(input.Units(), unitsAround), strict, missing);
}
