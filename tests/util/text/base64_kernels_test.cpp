// The portable and the vector kernels return the same results.
#include "util/text/base64_kernels.h"

#include "support/test.h"

#include <random>

// Compares the kernels, in both widths.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

TEST(Base64Kernels, AgreeOnEveryLengthWithForeignCharacters) {
    const std::string alphabet = quorvel::kBase64Alphabet;
    std::mt19937 random(20240229);
    for (int round = 0; round < 4 * 300; ++round) { // each length with each combination of flags
        const unsigned missing = round % 3 == 0 ? 0 : random() % 100; // in the decoder's buffer
        std::string input = {static_cast<char>(round), static_cast<char>(missing), 0};
        const unsigned rarity = 1 + random() % 80; // the distance of foreign characters
        for (int i = 0; i < round / 4; ++i)
            input += random() % rarity == 0 ? static_cast<char>(random()) : alphabet[random() % 64];
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
    }
}

// Each character is tested among others, at changing positions.
TEST(Base64Kernels, AgreeOnEveryWideCharacter) {
    for (unsigned unit = 0; unit < 0x10000; ++unit) {
        Wide text(80, 'a');
        text[unit % 67] = static_cast<WCHAR>(unit);
        const auto decoded = [&text](const quorvel::Base64Kernels<WCHAR>& kernels) {
            BYTE bytes[60] = {};
            int length = sizeof bytes;
            DecodeBase64(kernels, text.data(), 80, bytes, &length);
            return std::string(bytes, bytes + sizeof bytes) + std::to_string(length);
        };
        const std::string expected = decoded(quorvel::PortableBase64<WCHAR>());
        for (const auto* kernels : {quorvel::Ssse3Base64<WCHAR>(), quorvel::Avx2Base64<WCHAR>()})
            ASSERT_TRUE(kernels == nullptr || decoded(*kernels) == expected) << unit;
    }
}
