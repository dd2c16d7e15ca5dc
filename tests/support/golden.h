// Expected results that are too many to write down. They are in tests/data/golden, compressed by
// zlib and in base64. A failure shows the first difference. A program that runs with
// QUORVEL_WRITE_GOLDEN in its environment writes its files again.
#pragma once

#include <quorvel/util/text/base64.h>

#include "support/test.h"

#include <zlib.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>

class Golden {
public:
    explicit Golden(const char* name)
        : m_path(std::string(QUORVEL_GOLDEN "/") + name),
          m_writes(std::getenv("QUORVEL_WRITE_GOLDEN") != nullptr) {
        if (!m_writes)
            m_file << std::ifstream(m_path, std::ios::binary).rdbuf();
    }
    ~Golden() {
        if (m_writes) {
            std::ofstream(m_path, std::ios::binary) << m_file.str();
        } else if (!testing::Test::HasFailure()) {
            EXPECT_TRUE(m_file.eof()) << m_path << " has more answers";
        }
    }

    // Compares the next results; a failure shows the text from the first difference on.
    template <class Unit>
    void Expect(const std::basic_string<Unit>& answers, const std::string& label) {
        constexpr std::size_t kShown = 16;
        if (m_writes)
            return Write(answers.data(), answers.size() * sizeof(Unit));
        std::basic_string<Unit> expected(answers.size(), 0);
        ASSERT_TRUE(Read(expected.data(), expected.size() * sizeof(Unit))) << label;
        const auto at = static_cast<std::size_t>(
            std::mismatch(answers.begin(), answers.end(), expected.begin()).first -
            answers.begin());
        const int shown = static_cast<int>(std::min(answers.size() - at, kShown));
        EXPECT_EQ(at, answers.size()) << label << ", number 0x" << std::hex << at << ": "
                                      << Printable(answers.data() + at, shown) << " and not "
                                      << Printable(expected.data() + at, shown);
    }

private:
    void Write(const void* data, std::size_t size) {
        uLongf length = compressBound(static_cast<uLong>(size));
        std::vector<BYTE> block(length);
        compress2(block.data(), &length, static_cast<const Bytef*>(data), static_cast<uLong>(size),
                  9);
        int count = 2 * static_cast<int>(length) + 4;
        std::vector<char> text(static_cast<std::size_t>(count));
        EXPECT_TRUE(AfxBase64EncodeMultiByte(block.data(), static_cast<int>(length), text.data(),
                                             &count, BASE64_NO_LINE_BREAKS));
        m_file.write(text.data(), count) << ' ';
    }
    bool Read(void* data, std::size_t size) {
        std::string text;
        m_file >> text >> std::ws;
        std::vector<BYTE> block(text.size());
        int length = static_cast<int>(text.size());
        AfxBase64DecodeMultiByte(text.data(), length, block.data(), &length);
        uLongf found = static_cast<uLong>(size);
        return uncompress(static_cast<Bytef*>(data), &found, block.data(),
                          static_cast<uLong>(length)) == Z_OK &&
               found == size;
    }

    std::string m_path;
    bool m_writes;
    std::stringstream m_file;
};
