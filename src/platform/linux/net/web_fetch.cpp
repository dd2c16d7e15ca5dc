// Uses libcurl's multi interface on the caller's thread. curl_multi_wakeup wakes it.
#include "platform/web_fetch.h"

#include "platform/linux/text/code_page.h"

#include <quorvel/platform/sockets.h>

#include <curl/curl.h>
#include <dlfcn.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <strings.h>

// The macros check argument types and then call the functions.
#undef curl_easy_setopt
#undef curl_easy_getinfo

namespace quorvel {

namespace {

constexpr const char* kLibrary = "libcurl.so.4";

struct Curl {
    decltype(&::curl_global_init) globalInit;
    decltype(&::curl_easy_init) easyInit;
    decltype(&::curl_easy_setopt) setOption;
    decltype(&::curl_easy_getinfo) getInfo;
    decltype(&::curl_easy_cleanup) easyCleanup;
    decltype(&::curl_easy_strerror) errorText;
    decltype(&::curl_multi_init) multiInit;
    decltype(&::curl_multi_add_handle) add;
    decltype(&::curl_multi_remove_handle) remove;
    decltype(&::curl_multi_perform) perform;
    decltype(&::curl_multi_poll) poll;
    decltype(&::curl_multi_wakeup) wakeUp;
    decltype(&::curl_multi_info_read) readInfo;
    decltype(&::curl_multi_cleanup) multiCleanup;
};

template <class Function>
bool Find(void* library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(dlsym(library, name));
    return function != nullptr;
}

// Never unloaded: a cancelled request may still run in it.
std::optional<Curl> Load() {
    void* const library = dlopen(kLibrary, RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr)
        return std::nullopt;
    Curl curl;
    const bool isWhole = Find(library, "curl_global_init", curl.globalInit) &&
                         Find(library, "curl_easy_init", curl.easyInit) &&
                         Find(library, "curl_easy_setopt", curl.setOption) &&
                         Find(library, "curl_easy_getinfo", curl.getInfo) &&
                         Find(library, "curl_easy_cleanup", curl.easyCleanup) &&
                         Find(library, "curl_easy_strerror", curl.errorText) &&
                         Find(library, "curl_multi_init", curl.multiInit) &&
                         Find(library, "curl_multi_add_handle", curl.add) &&
                         Find(library, "curl_multi_remove_handle", curl.remove) &&
                         Find(library, "curl_multi_perform", curl.perform) &&
                         Find(library, "curl_multi_poll", curl.poll) &&     // since 7.66
                         Find(library, "curl_multi_wakeup", curl.wakeUp) && // since 7.68
                         Find(library, "curl_multi_info_read", curl.readInfo) &&
                         Find(library, "curl_multi_cleanup", curl.multiCleanup) &&
                         curl.globalInit(CURL_GLOBAL_DEFAULT) == CURLE_OK;
    return isWhole ? std::optional(curl) : std::nullopt;
}

std::optional<Curl> Library() {
    static const std::optional<Curl> s_curl = Load();
    return s_curl;
}

WebText Widened(const char* text) {
    const int length = win32::MultiByteToWideChar(CP_UTF8, 0, text, -1, nullptr, 0);
    WebText wide(static_cast<std::size_t>(length), 0);
    win32::MultiByteToWideChar(CP_UTF8, 0, text, -1, wide.data(), length);
    wide.resize(wide.empty() ? 0 : wide.size() - 1);
    return wide;
}

std::string Narrowed(const WebText& text) {
    const int length =
        win32::WideCharToMultiByte(CP_UTF8, 0, text.c_str(), -1, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(length), 0);
    win32::WideCharToMultiByte(CP_UTF8, 0, text.c_str(), -1, narrow.data(), length, nullptr,
                               nullptr);
    narrow.resize(narrow.empty() ? 0 : narrow.size() - 1);
    return narrow;
}

bool HasScheme(const std::string& url, const char* scheme) {
    return strncasecmp(url.c_str(), scheme, std::strlen(scheme)) == 0;
}
bool IsHttps(const std::string& url) {
    return HasScheme(url, "https://");
}

DWORD ErrorOf(CURLcode code) {
    static constexpr struct {
        CURLcode code;
        DWORD error;
    } kErrors[] = {
        {CURLE_COULDNT_RESOLVE_HOST, WSAHOST_NOT_FOUND},
        {CURLE_COULDNT_CONNECT, WSAECONNREFUSED},
        {CURLE_OPERATION_TIMEDOUT, WSAETIMEDOUT},
        {CURLE_PARTIAL_FILE, WSAECONNRESET},
        {CURLE_GOT_NOTHING, WSAECONNRESET},
        {CURLE_RECV_ERROR, WSAECONNRESET},
        {CURLE_OUT_OF_MEMORY, WSAENOBUFS},
    };
    for (const auto& each : kErrors)
        if (each.code == code)
            return each.error;
    return WSAECONNABORTED;
}

bool IsTrustFault(CURLcode code) {
    return code == CURLE_PEER_FAILED_VERIFICATION || code == CURLE_SSL_CONNECT_ERROR ||
           code == CURLE_SSL_CACERT_BADFILE || code == CURLE_SSL_ISSUER_ERROR;
}

std::string Trimmed(const std::string& text) {
    const std::size_t begin = text.find_first_not_of(" \t\r\n");
    if (begin == text.npos)
        return {};
    return text.substr(begin, text.find_last_not_of(" \t\r\n") - begin + 1);
}

} // namespace

class WebFetch::Parts {
public:
    explicit Parts(WebRequest request) : m_request(std::move(request)) {}
    ~Parts() {
        if (m_multi != nullptr)
            m_curl->multiCleanup(m_multi);
    }

    WebResult Run(WebReceiver& receiver);
    void Cancel() {
        m_isCancelled = true;
        if (CURLM* const multi = m_multi)
            m_curl->wakeUp(multi);
    }

private:
    typedef std::chrono::steady_clock Clock;

    bool SetUp(CURL* easy);
    CURLcode Perform(CURL* easy, const std::string& url);
    bool HasStalled(CURL* easy);
    bool IsRedirect() const {
        return m_status >= 300 && m_status < 400 && m_status != 304 && m_hasLocation;
    }
    void OnHeaderLine(const std::string& line);
    static std::size_t TakeHeader(char* bytes, std::size_t size, std::size_t count, void* self);
    static std::size_t TakeBody(char* bytes, std::size_t size, std::size_t count, void* self);

    const WebRequest m_request;
    std::optional<Curl> m_curl;
    std::atomic<CURLM*> m_multi = nullptr; // not null means that the library is loaded
    std::atomic<bool> m_isCancelled = false;

    WebReceiver* m_receiver = nullptr;
    char m_error[CURL_ERROR_SIZE] = "";
    Clock::time_point m_lastByte;
    bool m_isConnected = false;
    long m_status = 0;
    bool m_hasLocation = false;
    WebReceiver::Fields m_fields;
};

bool WebFetch::Parts::SetUp(CURL* easy) {
    const auto set = m_curl->setOption;
    set(easy, CURLOPT_NOSIGNAL, 1L);
    set(easy, CURLOPT_ERRORBUFFER, m_error);
    set(easy, CURLOPT_NOBODY, m_request.headerOnly ? 1L : 0L);
    // The library supports other protocols; allow only these, in redirections too.
    if (set(easy, CURLOPT_PROTOCOLS_STR, "http,https") != CURLE_OK) // since 7.85
        return false;
    set(easy, CURLOPT_SSLVERSION, long{CURL_SSLVERSION_TLSv1_2});
    set(easy, CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(m_request.connectMilliseconds));
    set(easy, CURLOPT_ACCEPT_ENCODING, "gzip");
    set(easy, CURLOPT_SUPPRESS_CONNECT_HEADERS, 1L); // ignores the headers of a proxy
    set(easy, CURLOPT_USERAGENT, "Quorvel");
    set(easy, CURLOPT_BUFFERSIZE, 128L * 1024);
    // The curl command reads SSL_CERT_FILE, but the library does not.
    if (const char* const authorities = std::getenv("SSL_CERT_FILE")) {
        set(easy, CURLOPT_CAINFO, authorities);
        set(easy, CURLOPT_CAPATH, static_cast<char*>(nullptr));
    }
    set(easy, CURLOPT_HEADERFUNCTION, &TakeHeader);
    set(easy, CURLOPT_HEADERDATA, this);
    set(easy, CURLOPT_WRITEFUNCTION, &TakeBody);
    set(easy, CURLOPT_WRITEDATA, this);
    return true;
}

void WebFetch::Parts::OnHeaderLine(const std::string& line) {
    if (line.starts_with("HTTP/")) { // also after an interim answer
        m_fields.clear();
        m_hasLocation = false;
        m_status = std::strtol(line.c_str() + std::min(line.find(' '), line.size()), nullptr, 10);
        return;
    }
    if (line.empty()) {
        if (m_status < 200 || IsRedirect())
            return;
        ULONGLONG length = 0;
        bool isPlain = true;
        for (const auto& [name, value] : m_fields) {
            if (strcasecmp(name.c_str(), "Content-Length") == 0)
                length = std::strtoull(value.c_str(), nullptr, 10);
            else if (strcasecmp(name.c_str(), "Content-Encoding") == 0)
                isPlain = false;
        }
        m_receiver->OnHeader(static_cast<UINT>(m_status), std::move(m_fields),
                             isPlain ? length : 0);
        m_fields.clear();
        return;
    }
    const std::size_t colon = line.find(':');
    if (colon == line.npos)
        return;
    m_fields.emplace_back(Trimmed(line.substr(0, colon)), Trimmed(line.substr(colon + 1)));
    m_hasLocation |= strcasecmp(m_fields.back().first.c_str(), "Location") == 0;
}

std::size_t WebFetch::Parts::TakeHeader(char* bytes, std::size_t size, std::size_t count,
                                        void* self) {
    auto* const parts = static_cast<Parts*>(self);
    parts->m_lastByte = Clock::now();
    parts->OnHeaderLine(Trimmed(std::string(bytes, size * count)));
    return size * count;
}

std::size_t WebFetch::Parts::TakeBody(char* bytes, std::size_t size, std::size_t count,
                                      void* self) {
    auto* const parts = static_cast<Parts*>(self);
    parts->m_lastByte = Clock::now();
    if (parts->m_isCancelled)
        return 0;
    const bool isTaken = parts->IsRedirect() || parts->m_receiver->OnBody(bytes, size * count);
    return isTaken ? size * count : 0;
}

// No byte since connecting. Before that, the library's own time-out applies.
bool WebFetch::Parts::HasStalled(CURL* easy) {
    curl_off_t untilConnected = 0;
    m_curl->getInfo(easy, CURLINFO_PRETRANSFER_TIME_T, &untilConnected);
    if (untilConnected == 0)
        return false;
    if (!std::exchange(m_isConnected, true)) {
        m_lastByte = Clock::now();
        m_receiver->OnConnected();
    }
    return Clock::now() - m_lastByte > std::chrono::milliseconds(m_request.stallMilliseconds);
}

CURLcode WebFetch::Parts::Perform(CURL* easy, const std::string& url) {
    constexpr int kPollMilliseconds = 250;
    m_status = 0;
    m_error[0] = 0;
    m_isConnected = false;
    m_curl->setOption(easy, CURLOPT_URL, url.c_str());
    m_curl->add(m_multi, easy);
    CURLcode result = CURLE_OPERATION_TIMEDOUT;
    int running = 1;
    while (running != 0 && !m_isCancelled) {
        if (m_curl->perform(m_multi, &running) != CURLM_OK || HasStalled(easy))
            break;
        if (running != 0 && !m_isCancelled)
            m_curl->poll(m_multi, nullptr, 0, kPollMilliseconds, nullptr);
    }
    int left = 0;
    while (CURLMsg* const message = m_curl->readInfo(m_multi, &left))
        if (message->msg == CURLMSG_DONE)
            result = message->data.result;
    m_curl->remove(m_multi, easy);
    return result;
}

WebResult WebFetch::Parts::Run(WebReceiver& receiver) {
    m_curl = Library();
    const WebResult noLibrary = {WebResult::NoLibrary, ERROR_FILE_NOT_FOUND, Widened(kLibrary)};
    if (!m_curl)
        return noLibrary;
    m_receiver = &receiver;
    const std::unique_ptr<CURL, decltype(Curl::easyCleanup)> easy(m_curl->easyInit(),
                                                                  m_curl->easyCleanup);
    m_multi = m_curl->multiInit();
    if (easy == nullptr || m_multi == nullptr)
        return {WebResult::Failed, WSAENOBUFS, {}};
    if (!SetUp(easy.get()))
        return noLibrary;
    std::string url = Narrowed(m_request.url);
    for (int redirects = 0;; ++redirects) {
        const CURLcode code = Perform(easy.get(), url);
        if (code != CURLE_OK)
            return {IsTrustFault(code) ? WebResult::NotTrusted : WebResult::Failed, ErrorOf(code),
                    Widened(m_error[0] != 0 ? m_error : m_curl->errorText(code))};
        if (!IsRedirect())
            return {};
        char* next = nullptr; // receives the absolute address
        m_curl->getInfo(easy.get(), CURLINFO_REDIRECT_URL, &next);
        const std::string target = next != nullptr ? next : "";
        const bool isAllowed = IsHttps(target) || (HasScheme(target, "http://") && !IsHttps(url));
        if (redirects == kMostRedirects || !isAllowed)
            return {WebResult::RedirectRefused, WSAECONNABORTED, {}};
        url = target;
    }
}

WebFetch::WebFetch(WebRequest request) : m_parts(std::make_unique<Parts>(std::move(request))) {}

WebFetch::~WebFetch() = default;

WebResult WebFetch::Run(WebReceiver& receiver) {
    return m_parts->Run(receiver);
}

void WebFetch::Cancel() {
    m_parts->Cancel();
}

} // namespace quorvel
