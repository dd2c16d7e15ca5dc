// The portable and the vector kernels give the same results.
#include "util/text/base64_kernels.h"

#include <quorvel/util/text/base64.h>

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>
#include <tuple>
#include <vector>

namespace {

template <class T>
std::unique_ptr<T[]> Exactly(const std::basic_string<T>& content) {
    auto copy = std::make_unique<T[]>(content.size()); // no spare room: overruns are seen
    std::copy(content.begin(), content.end(), copy.get());
    return copy;
}

template <class Ch>
class Base64Kernel : public testing::Test {
protected:
    void SetUp() override {
        for (const auto* kernels : {quorvel::Ssse3Base64<Ch>(), quorvel::Avx512Base64<Ch>()})
            if (kernels != nullptr)
                m_vector.push_back(kernels);
        if (m_vector.empty())
            GTEST_SKIP() << "no vector instructions";
    }
    std::vector<const quorvel::Base64Kernels<Ch>*> m_vector;
    std::mt19937 m_random{20240229};
};
typedef testing::Types<char, WCHAR> Widths;
TYPED_TEST_SUITE(Base64Kernel, Widths);

} // namespace

TYPED_TEST(Base64Kernel, EncodesEveryLengthAsThePortableOne) {
    typedef TypeParam Ch;
    for (int size = 1; size <= 300; ++size) {
        std::basic_string<BYTE> bytes(static_cast<std::size_t>(size), 0);
        for (BYTE& value : bytes)
            value = static_cast<BYTE>(this->m_random());
        const auto source = Exactly(bytes);
        for (DWORD flags = 0; flags < 4; ++flags) {
            const int room = AfxBase64EncodeGetRequiredLength(size, flags);
            const auto encoded = [&](const quorvel::Base64Kernels<Ch>& kernels) {
                std::basic_string<Ch> text(static_cast<std::size_t>(room), '#');
                const auto dest = Exactly(text);
                int length = room;
                EXPECT_TRUE(EncodeBase64(kernels, source.get(), size, dest.get(), &length, flags));
                EXPECT_LE(length, room);
                return text.assign(dest.get(), static_cast<std::size_t>(room));
            };
            const auto expected = encoded(quorvel::PortableBase64<Ch>());
            for (const auto* kernels : this->m_vector)
                ASSERT_EQ(expected, encoded(*kernels)) << size << " flags " << flags;
        }
    }
}

TYPED_TEST(Base64Kernel, DecodesEveryLengthAndRoomWithForeignCharactersAsThePortableOne) {
    typedef TypeParam Ch;
    const std::string alphabet = quorvel::kBase64Alphabet;
    for (int size = 1; size <= 300; ++size) {
        std::basic_string<Ch> text(static_cast<std::size_t>(size), 0);
        const unsigned rarity = 1 + this->m_random() % 80; // how far apart the foreign ones are
        for (Ch& unit : text)
            unit = this->m_random() % rarity == 0
                       ? static_cast<Ch>(this->m_random())
                       : static_cast<Ch>(alphabet[this->m_random() % 64]);
        const auto source = Exactly(text);
        const int whole = size * 3 / 4;
        for (const int room : {whole, whole / 2, static_cast<int>(this->m_random() % 40)}) {
            const auto decoded = [&](const quorvel::Base64Kernels<Ch>& kernels) {
                std::basic_string<BYTE> bytes(static_cast<std::size_t>(room), '#');
                const auto dest = Exactly(bytes);
                int length = room;
                const BOOL fitted = DecodeBase64(kernels, source.get(), size, dest.get(), &length);
                bytes.assign(dest.get(), static_cast<std::size_t>(room));
                return std::make_tuple(fitted, length, bytes);
            };
            const auto expected = decoded(quorvel::PortableBase64<Ch>());
            for (const auto* kernels : this->m_vector)
                ASSERT_EQ(expected, decoded(*kernels)) << size << " room " << room;
        }
    }
}

TYPED_TEST(Base64Kernel, KnowsEveryCharacterAsThePortableOne) {
    typedef TypeParam Ch;
    for (unsigned unit = 0; unit < (sizeof(Ch) == 1 ? 0x100u : 0x10000u); ++unit) {
        const std::basic_string<Ch> text(16, static_cast<Ch>(unit));
        const auto decoded = [&](const quorvel::Base64Kernels<Ch>& kernels) {
            BYTE bytes[12] = {};
            int length = 12;
            DecodeBase64(kernels, text.data(), 16, bytes, &length);
            return std::make_pair(length, std::string(bytes, bytes + 12));
        };
        const auto expected = decoded(quorvel::PortableBase64<Ch>());
        for (const auto* kernels : this->m_vector)
            ASSERT_EQ(expected, decoded(*kernels)) << unit;
    }
}
