// Shared by the tests of compression: data, and files in memory that throw on request.
#pragma once

#include <quorvel/framework/mem_file.h>

#include <functional>
#include <random>
#include <string>
#include <vector>

// Text that compresses to about half its size.
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

// A file in memory, positioned at its start, that records how it is read.
class TestFile : public CMemFile {
public:
    explicit TestFile(const std::string& bytes = {}) {
        CMemFile::Write(bytes.data(), static_cast<UINT>(bytes.size()));
        SeekToBegin();
    }
    UINT Read(void* buffer, UINT count) override {
        m_reads.push_back(count);
        m_onRead();
        return CMemFile::Read(buffer, count);
    }
    void Write(const void* buffer, UINT count) override {
        CMemFile::Write(buffer, count);
        m_onWrite();
    }
    std::string Contents() {
        SeekToBegin();
        std::string bytes(static_cast<std::size_t>(GetLength()), '\0');
        CMemFile::Read(bytes.data(), static_cast<UINT>(bytes.size()));
        return bytes;
    }

    std::vector<UINT> m_reads; // the requested counts
    std::function<void()> m_onRead = [] {};
    std::function<void()> m_onWrite = [] {}; // called after a write
};
