// libcurl as the peer of downloads. Its header declares the system's socket names, which conflict
// with the names of Winsock in the other files of the benchmarks.
#pragma once

#include <cstdint>
#include <memory>

constexpr int kDownloadBufferSize = 32768; // of either

// Downloads to /dev/null, each time with a connection of its own.
class CurlDownload {
public:
    explicit CurlDownload(const char* name, bool isSecure = false);
    bool Run(std::uintmax_t size); // whether every byte came

private:
    const std::unique_ptr<void, void (*)(void*)> m_curl;
};
