// What the tests of compression share: data, files in memory, and files that throw.
#pragma once

#include <quorvel/framework/file.h>

#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <string>
#include <vector>

#include <zlib.h>

// Numbers as text shrink to about half, random bytes not at all.
inline std::string SomeText(std::size_t size) {
    std::string text;
    for (unsigned i = 0; text.size() < size; ++i)
        text += std::to_string(i * 2654435761u) + ' ';
    text.resize(size);
    return text;
}
inline std::string RandomBytes(std::size_t size) {
    std::mt19937 random(1);
    std::string bytes(size, '\0');
    for (char& next : bytes)
        next = static_cast<char>(random());
    return bytes;
}

// zlib's own one-call forms, as another opinion.
inline std::string Packed(const std::string& bytes, int level = Z_DEFAULT_COMPRESSION) {
    uLongf size = compressBound(static_cast<uLong>(bytes.size()));
    std::string packed(size, '\0');
    EXPECT_EQ(compress2(reinterpret_cast<Bytef*>(packed.data()), &size,
                        reinterpret_cast<const Bytef*>(bytes.data()),
                        static_cast<uLong>(bytes.size()), level),
              Z_OK);
    packed.resize(size);
    return packed;
}
inline std::string Unpacked(const std::string& packed, std::size_t expectedSize) {
    uLongf size = static_cast<uLongf>(expectedSize + 1);
    std::string bytes(size, '\0');
    EXPECT_EQ(uncompress(reinterpret_cast<Bytef*>(bytes.data()), &size,
                         reinterpret_cast<const Bytef*>(packed.data()),
                         static_cast<uLong>(packed.size())),
              Z_OK);
    bytes.resize(size);
    return bytes;
}

// A file in memory, at its start, that notes how it is read and can be told to throw.
class TestFile : public CMemFile {
public:
    explicit TestFile(const std::string& bytes = {}) {
        CMemFile::Write(bytes.data(), static_cast<UINT>(bytes.size()));
        SeekToBegin();
    }

    UINT Read(void* buffer, UINT count) override {
        m_reads.push_back(count);
        if (m_onRead)
            m_onRead();
        return CMemFile::Read(buffer, count);
    }
    void Write(const void* buffer, UINT count) override {
        CMemFile::Write(buffer, count);
        if (m_onWrite)
            m_onWrite();
    }
    ULONGLONG GetLength() const override {
        if (m_onGetLength)
            m_onGetLength();
        return CMemFile::GetLength();
    }

    std::string Contents() {
        m_onRead = nullptr;
        m_onGetLength = nullptr;
        SeekToBegin();
        std::string bytes(static_cast<std::size_t>(CMemFile::GetLength()), '\0');
        CMemFile::Read(bytes.data(), static_cast<UINT>(bytes.size()));
        return bytes;
    }

    std::vector<UINT> m_reads; // the counts that were asked for
    std::function<void()> m_onRead;
    std::function<void()> m_onWrite; // after it
    std::function<void()> m_onGetLength;
};

// What files may throw, and the text that is shown of it.
struct ThrowRow {
    const char* label;
    void (*throwIt)();
    const WCHAR* text;
};
inline const ThrowRow kThrown[] = {
    {"disk full", [] { AfxThrowFileException(CFileException::diskFull); }, _T("The disk is full.")},
    {"memory", [] { AfxThrowMemoryException(); }, _T("Out of memory.")},
    {"user", [] { throw new CUserException; }, _T("An unknown error has occurred.")},
    {"bad_alloc", [] { throw std::bad_alloc(); },
     _T("Not enough memory to perform the operation.")},
    {"foreign", [] { throw 7; }, _T("Unknown compression error.")},
};
