// Fetches one resource over HTTPS or HTTP with the library that the system has for it, which is
// loaded at run time.
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
    const char* library = nullptr; // in the place of the system's
};

struct WebResult {
    enum Kind {
        Fetched,
        Failed,
        NotTrusted,      // or no secure connection at all
        RedirectRefused, // too many, or one that gives the protection up
        NoLibrary        // the text is its name
    };
    Kind kind = Fetched;
    DWORD error = 0; // a Winsock error or a system error
    WebText text;    // the library's; may be empty
};

// Called on the thread of Run, for the last answer only.
class WebReceiver {
public:
    typedef std::vector<std::pair<std::string, std::string>> Fields;
    virtual void OnConnected() = 0;
    // `length` is that of the body, as it will be given; 0 when it is not known.
    virtual void OnHeader(UINT statusCode, Fields fields, ULONGLONG length) = 0;
    virtual bool OnBody(const char* bytes, std::size_t count) = 0; // false: no more of it

protected:
    ~WebReceiver() = default;
};

class WebFetch {
public:
    static constexpr int kMostRedirects = 5;

    explicit WebFetch(WebRequest request);
    WebFetch(const WebFetch&) = delete;
    ~WebFetch();

    WebResult Run(WebReceiver& receiver); // blocks; once
    // Any thread, while the object exists: Run ends soon, and at the latest by the time-outs.
    void Cancel();

private:
    class Parts;
    const std::unique_ptr<Parts> m_parts;
};

} // namespace quorvel
