// The portable and the vector kernels give the same results.
#include "util/text/base64_kernels.h"

#include <quorvel/util/text/base64.h>

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>

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
        if (quorvel::VectorBase64<Ch>() == nullptr)
            GTEST_SKIP() << "no vector instructions";
    }
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
            std::basic_string<Ch> results[2];
            int i = 0;
            for (const auto* kernels :
                 {&quorvel::PortableBase64<Ch>(), quorvel::VectorBase64<Ch>()}) {
                results[i].assign(static_cast<std::size_t>(room), '#');
                const auto dest = Exactly(results[i]);
                int length = room;
                ASSERT_TRUE(EncodeBase64(*kernels, source.get(), size, dest.get(), &length, flags));
                ASSERT_LE(length, room);
                results[i++].assign(dest.get(), static_cast<std::size_t>(room));
            }
            ASSERT_EQ(results[0], results[1]) << size << " flags " << flags;
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
            std::basic_string<BYTE> results[2];
            int lengths[2] = {room, room};
            BOOL fitted[2];
            int i = 0;
            for (const auto* kernels :
                 {&quorvel::PortableBase64<Ch>(), quorvel::VectorBase64<Ch>()}) {
                const auto dest =
                    Exactly(std::basic_string<BYTE>(static_cast<std::size_t>(room), '#'));
                fitted[i] = DecodeBase64(*kernels, source.get(), size, dest.get(), &lengths[i]);
                results[i++].assign(dest.get(), static_cast<std::size_t>(room));
            }
            ASSERT_EQ(results[0], results[1]) << size << " room " << room;
            ASSERT_EQ(lengths[0], lengths[1]) << size << " room " << room;
            ASSERT_EQ(fitted[0], fitted[1]) << size << " room " << room;
        }
    }
}

TYPED_TEST(Base64Kernel, KnowsEveryCharacterAsThePortableOne) {
    typedef TypeParam Ch;
    for (unsigned unit = 0; unit < (sizeof(Ch) == 1 ? 0x100u : 0x10000u); ++unit) {
        const std::basic_string<Ch> text(16, static_cast<Ch>(unit));
        int lengths[2] = {12, 12};
        BYTE bytes[2][12] = {};
        int i = 0;
        for (const auto* kernels : {&quorvel::PortableBase64<Ch>(), quorvel::VectorBase64<Ch>()}) {
            DecodeBase64(*kernels, text.data(), 16, bytes[i], &lengths[i]);
            ++i;
        }
        ASSERT_EQ(lengths[0], lengths[1]) << unit;
        ASSERT_EQ(std::string(bytes[0], bytes[0] + 12), std::string(bytes[1], bytes[1] + 12))
            << unit;
    }
}
