// Uses WinHTTP's blocking calls on the caller's thread. Closing the request from another thread
// ends them: on Windows soon, elsewhere at the latest after the time-outs.
#include "platform/web_fetch.h"

#include "platform/win32.h"

#include <winhttp.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <mutex>
#include <optional>

namespace quorvel {

namespace {

constexpr const char* kLibrary = "winhttp.dll";

// Constants that the headers for older systems lack.
constexpr DWORD kAutomaticProxy = 4;  // since Windows 8.1
constexpr DWORD kResponseTimeOut = 7; // limits the wait for the header and the handshake
constexpr DWORD kTls12 = 0x800, kTls12And13 = 0x2800;
constexpr DWORD kSecureFault = 0x00010000; // a flag of the status callback

struct WinHttp {
    decltype(&::WinHttpOpen) open;
    decltype(&::WinHttpConnect) connect;
    decltype(&::WinHttpOpenRequest) openRequest;
    decltype(&::WinHttpSendRequest) send;
    decltype(&::WinHttpReceiveResponse) receive;
    decltype(&::WinHttpQueryHeaders) queryHeaders;
    decltype(&::WinHttpReadData) read;
    decltype(&::WinHttpCloseHandle) close;
    decltype(&::WinHttpSetOption) setOption;
    decltype(&::WinHttpSetTimeouts) setTimeouts;
    decltype(&::WinHttpCrackUrl) crackUrl;
    decltype(&::WinHttpSetStatusCallback) setStatusCallback;
    HMODULE module;
};

template <class Function>
bool Find(HMODULE library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
    return function != nullptr;
}

// Neither WinHTTP nor this library is unloaded: a cancelled request may still run in them.
std::optional<WinHttp> Load() {
    const HMODULE library = LoadLibraryA(kLibrary);
    WinHttp functions;
    functions.module = library;
    HMODULE own = nullptr;
    const bool isWhole =
        library != nullptr && Find(library, "WinHttpOpen", functions.open) &&
        Find(library, "WinHttpConnect", functions.connect) &&
        Find(library, "WinHttpOpenRequest", functions.openRequest) &&
        Find(library, "WinHttpSendRequest", functions.send) &&
        Find(library, "WinHttpReceiveResponse", functions.receive) &&
        Find(library, "WinHttpQueryHeaders", functions.queryHeaders) &&
        Find(library, "WinHttpReadData", functions.read) &&
        Find(library, "WinHttpCloseHandle", functions.close) &&
        Find(library, "WinHttpSetOption", functions.setOption) &&
        Find(library, "WinHttpSetTimeouts", functions.setTimeouts) &&
        Find(library, "WinHttpCrackUrl", functions.crackUrl) &&
        Find(library, "WinHttpSetStatusCallback", functions.setStatusCallback) &&
        GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                           reinterpret_cast<LPCWSTR>(&Load), &own);
    return isWhole ? std::optional(functions) : std::nullopt;
}

std::optional<WinHttp> Library() {
    static const std::optional<WinHttp> s_functions = Load();
    return s_functions;
}

DWORD SocketErrorOf(DWORD error) {
    static constexpr struct {
        DWORD of, error;
    } kErrors[] = {
        {ERROR_WINHTTP_TIMEOUT, WSAETIMEDOUT},
        {WSAETIMEDOUT, WSAETIMEDOUT}, // Wine's code
        {ERROR_WINHTTP_NAME_NOT_RESOLVED, WSAHOST_NOT_FOUND},
        {ERROR_WINHTTP_CANNOT_CONNECT, WSAECONNREFUSED},
        {ERROR_WINHTTP_CONNECTION_ERROR, WSAECONNRESET},
        {ERROR_WINHTTP_INVALID_SERVER_RESPONSE, WSAECONNRESET},
    };
    for (const auto& each : kErrors)
        if (each.of == error)
            return each.error;
    return WSAECONNABORTED;
}

bool IsTrustFault(DWORD error) {
    static constexpr DWORD kFaults[] = {
        ERROR_WINHTTP_SECURE_FAILURE,
        ERROR_WINHTTP_SECURE_CHANNEL_ERROR,
        ERROR_WINHTTP_SECURE_CERT_DATE_INVALID,
        ERROR_WINHTTP_SECURE_CERT_CN_INVALID,
        ERROR_WINHTTP_SECURE_INVALID_CA,
        ERROR_WINHTTP_SECURE_INVALID_CERT,
        ERROR_WINHTTP_SECURE_CERT_REVOKED,
        ERROR_WINHTTP_SECURE_CERT_WRONG_USAGE,
        ERROR_WINHTTP_CLIENT_AUTH_CERT_NEEDED,
        static_cast<DWORD>(SEC_E_SECPKG_NOT_FOUND), // Wine without its TLS library
    };
    return std::find(std::begin(kFaults), std::end(kFaults), error) != std::end(kFaults);
}

// The error with a text for a certificate's fault, by the flags of the callback.
DWORD FaultOf(DWORD flags) {
    static constexpr struct {
        DWORD flag, error;
    } kFaults[] = {
        {WINHTTP_CALLBACK_STATUS_FLAG_CERT_REVOKED, ERROR_WINHTTP_SECURE_CERT_REVOKED},
        {WINHTTP_CALLBACK_STATUS_FLAG_INVALID_CA, ERROR_WINHTTP_SECURE_INVALID_CA},
        {WINHTTP_CALLBACK_STATUS_FLAG_CERT_CN_INVALID, ERROR_WINHTTP_SECURE_CERT_CN_INVALID},
        {WINHTTP_CALLBACK_STATUS_FLAG_CERT_DATE_INVALID, ERROR_WINHTTP_SECURE_CERT_DATE_INVALID},
        {WINHTTP_CALLBACK_STATUS_FLAG_INVALID_CERT, ERROR_WINHTTP_SECURE_INVALID_CERT},
    };
    for (const auto& each : kFaults)
        if (flags & each.flag)
            return each.error;
    return ERROR_WINHTTP_SECURE_FAILURE;
}

void CALLBACK OnStatus(HINTERNET, DWORD_PTR context, DWORD status, LPVOID information, DWORD) {
    if (status == kSecureFault && context != 0 && information != nullptr)
        *reinterpret_cast<std::atomic<DWORD>*>(context) = *static_cast<const DWORD*>(information);
}

} // namespace

class WebFetch::Parts {
public:
    explicit Parts(WebRequest request) : m_request(std::move(request)) {}
    ~Parts() {
        for (HINTERNET each : {m_handle, m_connection, m_session})
            if (each != nullptr)
                m_http->close(each);
    }

    WebResult Run(WebReceiver& receiver);
    void Cancel() {
        const std::lock_guard lock(m_mutex);
        m_isCancelled = true;
        if (m_handle != nullptr)
            m_http->close(std::exchange(m_handle, nullptr));
    }

private:
    bool Open();
    HINTERNET OpenRequest(const URL_COMPONENTS& parts);
    bool SetUp(HINTERNET request) const;
    bool Receive(HINTERNET request, WebReceiver& receiver);
    bool ReadHeader(HINTERNET request, WebReceiver& receiver) const;
    WebResult Failure(DWORD error) const;
    WebText TextOf(DWORD error) const;

    const WebRequest m_request;
    std::optional<WinHttp> m_http;
    HINTERNET m_session = nullptr;
    HINTERNET m_connection = nullptr;
    std::atomic<DWORD> m_faults = 0; // of the certificate
    std::mutex m_mutex;              // guards the two members below
    HINTERNET m_handle = nullptr;
    bool m_isCancelled = false;
};

WebText WebFetch::Parts::TextOf(DWORD error) const {
    WCHAR text[512];
    DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_HMODULE | FORMAT_MESSAGE_IGNORE_INSERTS,
                                  m_http->module, error, 0, text, 512, nullptr);
    while (length > 0 && text[length - 1] <= ' ')
        --length;
    return WebText(text, length);
}

WebResult WebFetch::Parts::Failure(DWORD error) const {
    if (IsTrustFault(error))
        return {WebResult::NotTrusted, WSAECONNABORTED,
                TextOf(m_faults != 0 ? FaultOf(m_faults) : error)};
    if (error == ERROR_WINHTTP_REDIRECT_FAILED || error == ERROR_WINHTTP_UNRECOGNIZED_SCHEME)
        return {WebResult::RedirectRefused, WSAECONNABORTED, {}};
    return {WebResult::Failed, SocketErrorOf(error), TextOf(error)};
}

bool WebFetch::Parts::Open() {
    const auto open = [this](DWORD proxy) {
        return m_http->open(_T("Quorvel"), proxy, WINHTTP_NO_PROXY_NAME, WINHTTP_NO_PROXY_BYPASS,
                            0);
    };
    m_session = open(kAutomaticProxy);
    if (m_session == nullptr)
        m_session = open(WINHTTP_ACCESS_TYPE_DEFAULT_PROXY);
    if (m_session == nullptr)
        return false;
    const int connect =
        static_cast<int>(std::min<DWORD>(m_request.connectMilliseconds, 0x7fffffff));
    const int stall = static_cast<int>(std::min<DWORD>(m_request.stallMilliseconds, 0x7fffffff));
    m_http->setTimeouts(m_session, connect, connect, stall, stall);
    DWORD protocols = kTls12And13; // older systems refuse TLS 1.3
    if (m_http->setOption(m_session, WINHTTP_OPTION_SECURE_PROTOCOLS, &protocols, sizeof protocols))
        return true;
    protocols = kTls12;
    return m_http->setOption(m_session, WINHTTP_OPTION_SECURE_PROTOCOLS, &protocols,
                             sizeof protocols) != FALSE;
}

HINTERNET WebFetch::Parts::OpenRequest(const URL_COMPONENTS& parts) {
    const WebText host(parts.lpszHostName, parts.dwHostNameLength);
    WebText object(parts.lpszUrlPath, parts.dwUrlPathLength);
    object.append(parts.lpszExtraInfo, parts.dwExtraInfoLength);
    object.resize(std::min(object.find('#'), object.size()));
    m_connection = m_http->connect(m_session, host.c_str(), parts.nPort, 0);
    if (m_connection == nullptr)
        return nullptr;
    const bool isSecure = parts.nScheme == INTERNET_SCHEME_HTTPS;
    return m_http->openRequest(m_connection, m_request.headerOnly ? _T("HEAD") : _T("GET"),
                               object.c_str(), nullptr, WINHTTP_NO_REFERER,
                               WINHTTP_DEFAULT_ACCEPT_TYPES, isSecure ? WINHTTP_FLAG_SECURE : 0);
}

bool WebFetch::Parts::SetUp(HINTERNET request) const {
    DWORD timeOut = m_request.stallMilliseconds;
    DWORD redirects = kMostRedirects;
    DWORD policy = WINHTTP_OPTION_REDIRECT_POLICY_DISALLOW_HTTPS_TO_HTTP;
    m_http->setOption(request, kResponseTimeOut, &timeOut, sizeof timeOut);
    m_http->setStatusCallback(request, OnStatus, kSecureFault, 0);
    return m_http->setOption(request, WINHTTP_OPTION_REDIRECT_POLICY, &policy, sizeof policy) &&
           m_http->setOption(request, WINHTTP_OPTION_MAX_HTTP_AUTOMATIC_REDIRECTS, &redirects,
                             sizeof redirects);
}

bool WebFetch::Parts::ReadHeader(HINTERNET request, WebReceiver& receiver) const {
    DWORD status = 0, size = sizeof status;
    if (!m_http->queryHeaders(request, WINHTTP_QUERY_STATUS_CODE | WINHTTP_QUERY_FLAG_NUMBER,
                              nullptr, &status, &size, nullptr))
        return false;
    WebReceiver::Fields fields;
    ULONGLONG length = 0;
    for (const char* name : {"Last-Modified", "Content-Length", "Content-Encoding", "ETag"}) {
        WCHAR value[512];
        size = sizeof value;
        if (!m_http->queryHeaders(request, WINHTTP_QUERY_CUSTOM,
                                  WebText(name, name + strlen(name)).c_str(), value, &size,
                                  nullptr))
            continue;
        std::string narrow;
        for (const WCHAR* each = value; *each != 0; ++each)
            narrow += static_cast<char>(*each);
        if (strcmp(name, "Content-Length") == 0)
            length = std::strtoull(narrow.c_str(), nullptr, 10);
        fields.emplace_back(name, narrow);
    }
    receiver.OnHeader(status, std::move(fields), length);
    return true;
}

bool WebFetch::Parts::Receive(HINTERNET request, WebReceiver& receiver) {
    if (!m_http->receive(request, nullptr) || !ReadHeader(request, receiver))
        return false;
    char block[16 * 1024]; // when the time is over, Wine drops a block that is not full
    DWORD count = 0;
    do {
        if (!m_http->read(request, block, sizeof block, &count))
            return false;
    } while (count > 0 && receiver.OnBody(block, count));
    return true;
}

WebResult WebFetch::Parts::Run(WebReceiver& receiver) {
    m_http = Library();
    if (!m_http) {
        const std::string name = kLibrary;
        return {WebResult::NoLibrary, ERROR_FILE_NOT_FOUND, WebText(name.begin(), name.end())};
    }
    URL_COMPONENTS parts = {};
    parts.dwStructSize = sizeof parts;
    parts.dwSchemeLength = parts.dwHostNameLength = parts.dwUrlPathLength =
        parts.dwExtraInfoLength = static_cast<DWORD>(-1);
    if (!m_http->crackUrl(m_request.url.c_str(), 0, 0, &parts) || !Open())
        return Failure(GetLastError());
    const HINTERNET request = OpenRequest(parts);
    if (request == nullptr)
        return Failure(GetLastError());
    {
        const std::lock_guard lock(m_mutex);
        m_handle = request;
        if (m_isCancelled)
            return {WebResult::Failed, WSAECONNABORTED, {}};
    }
    if (!SetUp(request) ||
        !m_http->send(request, nullptr, 0, nullptr, 0, 0, reinterpret_cast<DWORD_PTR>(&m_faults)))
        return Failure(GetLastError());
    receiver.OnConnected();
    return Receive(request, receiver) ? WebResult() : Failure(GetLastError());
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
