// The portable form and the kernels of the UTF-8 converters give the same results.
#include "support/test.h"

#include <random>

// Compares them, both ways.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

// Each sequence at each place of a block, twice, among blocks of every kind; some ill-formed.
TEST(Utf8Kernels, AgreeOnSequencesAtEveryPlace) {
    // clang-format off
    const std::string sequences[] = {
        "a", "\xc2\x80", "\xdf\xbf", "\xe0\xa0\x80", "\xed\x9f\xbf", "\xef\xbf\xbf",
        "\xf0\x90\x80\x80", "\xf4\x8f\xbf\xbf", "\x80", "\xc1\xbf", "\xc3", "\xe0\x9f\xbf",
        "\xed\xa0\x80", "\xe3\x81", "\xf0\x8f\xbf\xbf", "\xf4\x90\x80\x80",
        "\xf5\x80\x80\x80", "\xf0\x9f\x98", "\xe3\x81\x82\x80", "\xff"};
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

// The bytes of the input as units too: here with surrogates, in pairs, alone and in wrong order.
TEST(Utf8Kernels, AgreeOnRandomUnits) {
    static constexpr unsigned kFirst[] = {0, 0x80, 0x800, 0xd800, 0xdc00, 0xe000};
    static constexpr unsigned kCount[] = {0x80, 0x780, 0xd000, 0x400, 0x400, 0x2000};
    std::mt19937 random(20240229);
    for (int round = 0; round < 1500; ++round) {
        std::string input = {static_cast<char>(random() % 10), static_cast<char>(random() % 40)};
        const unsigned kinds = 1 + random() % 6;
        for (unsigned i = random() % 100; i > 0; --i) {
            const unsigned kind = random() % kinds;
            unsigned unit = kFirst[kind] + random() % kCount[kind];
            const bool isPair = kind == 3 && random() % 50 != 0;
            input += {static_cast<char>(unit), static_cast<char>(unit >> 8)};
            if (isPair) {
                unit = 0xdc00 + random() % 0x400;
                input += {static_cast<char>(unit), static_cast<char>(unit >> 8)};
            }
        }
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
    }
}
