// The portable form and the kernels of the UTF-8 converters give the same results.
#include "support/test.h"

// Compares them, both ways.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

// Each sequence at each place of a block, twice, among blocks of every kind; some ill-formed.
TEST(Utf8Kernels, AgreeOnSequencesAtEveryPlace) {
    // clang-format off
    const std::string sequences[] = {
        "a", "\xc2\x80", "\xdf\xbf", "\xe0\xa0\x80", "\xed\x9f\xbf", "\xef\xbf\xbf",
        "\xf0\x90\x80\x80", "\xf4\x8f\xbf\xbf", "\x80", "\xc1\xbf", "\xc3", "\xe0\x9f\xbf",
        "\xed\xa0\x80", "\xe3\x81", "\xf0\x8f\xbf\xbf", "\xf4\x90\x80\x80",
        "\xf5\x80\x80\x80", "\xf0\x9f\x98", "\xe3\x81\x82\x80", "\xff",
        // The bytes are units too: a pair, both halves alone, and in the wrong order.
        "\x3d\xd8", std::string("\x3d\xd8\x00\xde", 4), std::string("\x00\xde\x3d\xd8", 4)};
    // clang-format on
    for (char kind = 0; kind < 10; ++kind)
        for (const std::string& sequence : sequences)
            for (std::size_t before = 0; before < 34; ++before) {
                const char missing = static_cast<char>(before % 9);
                const std::string input = std::string{kind, missing} + std::string(before, 'a') +
                                          sequence + std::string(before % 5, 'b') + sequence;
                LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()),
                                       input.size());
            }
}
