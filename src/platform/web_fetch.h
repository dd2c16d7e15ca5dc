// Fetches one resource over HTTPS or HTTP with the system's library for it, which is loaded at run
// time.
#pragma once

#include <quorvel/platform/platform.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace quorvel {

typedef std::basic_string<WCHAR> WebText;

struct WebRequest {
    WebText url;
    bool headerOnly = false;
    DWORD connectMilliseconds = 30000;
    DWORD stallMilliseconds = 30000;
};

struct WebResult {
    enum Kind {
        Fetched,
        Failed,
        NotTrusted,      // or no secure connection is possible
        RedirectRefused, // too many, or one from HTTPS to HTTP
        NoLibrary        // `text` is its name
    };
    Kind kind = Fetched;
    DWORD error = 0; // a Winsock error or a system error
    WebText text;    // from the library; may be empty
};

// Run calls it on its thread, and only for the final answer.
class WebReceiver {
public:
    typedef std::vector<std::pair<std::string, std::string>> Fields;
    virtual void OnConnected() = 0;
    // `length` is the length of the body that OnBody will get; 0 when it is unknown.
    virtual void OnHeader(UINT statusCode, Fields fields, ULONGLONG length) = 0;
    virtual bool OnBody(const char* bytes, std::size_t count) = 0; // false: stop

protected:
    ~WebReceiver() = default;
};

class WebFetch {
public:
    static constexpr int kMostRedirects = 5;

    explicit WebFetch(WebRequest request);
    WebFetch(const WebFetch&) = delete;
    ~WebFetch();

    WebResult Run(WebReceiver& receiver); // blocks; call it once
    // Any thread, while the object exists. Run then ends soon, at the latest after the time-outs.
    void Cancel();

private:
    class Parts;
    const std::unique_ptr<Parts> m_parts;
};

} // namespace quorvel
