#include "curl_download.h"

#include "web_server.h"

#include <curl/curl.h>

#include <cstdio>
#include <string>

CurlDownload::CurlDownload(const char* name, bool isSecure)
    : m_curl(curl_easy_init(), curl_easy_cleanup) {
    const std::string url =
        (isSecure ? "https://localhost:" + std::to_string(web_server::SecurePort())
                  : "http://127.0.0.1:" + std::to_string(web_server::Port())) +
        '/' + name;
    curl_easy_setopt(m_curl.get(), CURLOPT_CAINFO, web_server::CertificateFile().c_str());
    curl_easy_setopt(m_curl.get(), CURLOPT_URL, url.c_str());
    curl_easy_setopt(m_curl.get(), CURLOPT_BUFFERSIZE, long{kDownloadBufferSize});
    curl_easy_setopt(m_curl.get(), CURLOPT_FRESH_CONNECT, 1L);
    curl_easy_setopt(m_curl.get(), CURLOPT_FORBID_REUSE, 1L);
}

bool CurlDownload::Run(std::uintmax_t size) {
    const std::unique_ptr<FILE, int (*)(FILE*)> file(std::fopen("/dev/null", "wb"), std::fclose);
    curl_off_t received = 0;
    curl_easy_setopt(m_curl.get(), CURLOPT_WRITEDATA, file.get());
    return curl_easy_perform(m_curl.get()) == CURLE_OK &&
           curl_easy_getinfo(m_curl.get(), CURLINFO_SIZE_DOWNLOAD_T, &received) == CURLE_OK &&
           static_cast<std::uintmax_t>(received) == size;
}
