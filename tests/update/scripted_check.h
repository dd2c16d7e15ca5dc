// A check for updates without a network: a view that records its calls, and connections whose
// server is the test.
#pragma once

#include <quorvel/frame/module.h>
#include <quorvel/system/registry_path.h>
#include <quorvel/update/check_for_updates_profile.h>
#include <quorvel/update/check_for_updates_view.h>
#include <quorvel/update/update_listing.h>

#include "net/http_header_reader.h"
#include "support/environment.h"
#include "support/registry.h"
#include "support/temporary_folder.h"
#include "support/test.h"
#include "update/update_flow.h"

#include <filesystem>
#include <fstream>

inline std::string Narrow(const CString& text) {
    return CStringA(text.GetString()).GetString();
}

// What a server may answer, and the box for what went wrong.
inline const std::string kHead =
    "HTTP/1.1 200 OK\r\nLast-Modified: Tue, 12 Mar 2024 08:30:00 GMT\r\n\r\n";
inline std::string Response(const std::string& body, const std::string& fields = "") {
    return "HTTP/1.1 200 OK\r\n" + fields + "\r\n" + body;
}
inline std::string LengthField(std::size_t length) {
    return "Content-Length: " + std::to_string(length) + "\r\n";
}
inline std::string Listing(const std::string& date, const std::string& items = "") {
    return "<?xml version='1.0'?><rss><channel><lastBuildDate>" + date + "</lastBuildDate>" +
           items + "</channel></rss>";
}
inline const std::string kOldListing = Listing("2024-01-01");
inline const std::string kNotFound =
    "The server has not found anything that matches the requested URI.";
inline const std::string kIncomplete = "The server's answer is incomplete. Please try again later.";
inline std::string ErrorBox(const std::string& cause) {
    return "(30) An error has occurred while checking for updates.\r\n\r\n" + cause;
}

// The text of a message box after its type.
inline std::string BoxLine(const CString& text, UINT type) {
    CString line;
    line.Format(_T("(%02x) "), type);
    return Narrow(line + text);
}

typedef CCheckForUpdatesView View;
using enum View::Result;

class RecordingView : public CCheckForUpdatesView {
public:
    void ShowProgress(BOOL isDownload) override { Note(isDownload ? "[large pane]" : "[pane]"); }
    void HideProgress() override {
        m_hidden = true;
        Count();
    }
    void SetProgressText(const WCHAR* text) override { Note(Narrow(text)); }
    void SetProgressFigures(ULONGLONG, ULONGLONG, int percent, const WCHAR* text) override {
        if (*text != 0)
            Note(Narrow(text));
        m_percent = percent;
    }
    void SetPublishedText(const WCHAR* text) override { m_published = text; }
    void SetLastCheckedText(const WCHAR* text) override { m_lastChecked = text; }
    void ShowListing(const CUpdateListing& listing) override {
        Note(std::to_string(listing.GetItems().size()) + " entries");
    }
    int ShowMessage(const WCHAR* text, UINT type) override {
        Note(BoxLine(text, type));
        if (m_onMessage)
            std::exchange(m_onMessage, nullptr)();
        return m_answer;
    }
    BOOL PostCheckFinished(DWORD code) override {
        m_postedCode = code;
        return m_posts;
    }
    void OnFinished(Result result) override { m_results.push_back(result); }

    // The recorded calls since the last Take, one line each.
    std::string Take() { return std::exchange(m_notes, {}); }

    int m_answer = IDYES;
    std::function<void()> m_onMessage; // called once, while a box is shown
    std::function<void()> m_onCall;    // called once, after that many other calls
    int m_callsBefore = 0;
    BOOL m_posts = FALSE;
    DWORD m_postedCode = 0;
    int m_percent = -1;
    bool m_hidden = false;
    CString m_published, m_lastChecked;
    std::vector<Result> m_results;

private:
    void Note(const std::string& text) {
        m_notes += text + '\n';
        if (text.ends_with("pane]"))
            m_hidden = false;
        Count();
    }
    void Count() {
        if (m_onCall && m_callsBefore-- == 0)
            std::exchange(m_onCall, nullptr)();
    }
    std::string m_notes;
};

class ScriptedConnection : public quorvel::UpdateConnection {
public:
    ScriptedConnection(DWORD createError, DWORD connectError, int& alive)
        : m_createError(createError), m_connectError(connectError), m_alive(alive) {
        ++m_alive;
    }
    ~ScriptedConnection() override { --m_alive; }
    const void* GetSender() const override { return this; }
    DWORD Create() override { return m_createError; }
    DWORD Connect(const quorvel::UpdateRequest& request) override {
        m_request = request;
        return m_connectError;
    }
    void Close() override { m_closed = true; }
    bool HasEnded(DWORD& error) const override {
        error = 0;
        return m_hasEnded;
    }
    ULONGLONG GetBytesReceived() const override { return m_received; }
    bool IsHeaderParsed() const override {
        return m_reader.GetState() == quorvel::HttpHeaderReader::State::Complete;
    }
    const CHttpHeader& GetHeader() const override { return m_header; }
    CString GetResolvedUrl() const override {
        return _T("http://127.0.0.1/updates.xml?u=http://h");
    }

    // Receives bytes as the sockets do.
    void Receive(const std::string& bytes) {
        m_received += bytes.size();
        m_reader.Add(bytes.data(), bytes.size(), m_header);
        if (m_request.headerOnly)
            return;
        std::ofstream(CStringA(m_request.localFile), std::ios::binary | std::ios::app) << bytes;
    }

    quorvel::UpdateRequest m_request;
    bool m_closed = false, m_hasEnded = false;

private:
    const DWORD m_createError, m_connectError;
    int& m_alive;
    ULONGLONG m_received = 0;
    quorvel::HttpHeaderReader m_reader;
    CHttpHeader m_header;
};

class ScriptedSource : public quorvel::UpdateSource {
public:
    std::unique_ptr<quorvel::UpdateConnection> NewConnection() override {
        auto connection =
            std::make_unique<ScriptedConnection>(m_createError, m_connectError, m_alive);
        m_last = connection.get();
        ++m_count;
        return connection;
    }
    CString GetWinsockErrorText(DWORD code) override {
        CString text;
        text.Format(_T("Error %u."), code);
        return text;
    }
    COleDateTime GetCurrentUTCTime() override { return m_now; }
    void PassTime() { m_now += COleDateTimeSpan(0, 0, 0, 15); } // until a check may start again

    // Sends the server's whole answer to the last connection in pieces, and ends the
    // connection; on request the queue loses every status. `flow` is a check, or forwards
    // statuses to one.
    template <class Flow>
    void Answer(Flow&& flow, const std::string& response, std::size_t piece = 4096,
                bool losesStatuses = false) {
        using namespace quorvel;
        ScriptedConnection* const connection = m_last;
        const auto send = [&](int status, DWORD error) {
            if (!losesStatuses)
                flow.OnSocketStatus(connection, status, error);
        };
        send(Http::statusConnected, 0);
        for (std::size_t at = 0; at < response.size() && !connection->m_closed; at += piece) {
            const std::string bytes = response.substr(at, piece);
            const bool hadHeader = connection->IsHeaderParsed();
            connection->Receive(bytes);
            if (!hadHeader && connection->IsHeaderParsed())
                send(Http::statusHeaderParsed, 0);
            send(Http::statusReceived, static_cast<DWORD>(bytes.size()));
        }
        bool isClosed = connection->m_closed;
        if (!isClosed) {
            flow.Poll(); // the connection has not ended yet
            send(Http::statusEnded, 0);
            connection->m_hasEnded = true;
            isClosed = losesStatuses || connection->m_closed;
            flow.Poll();
        }
        if (isClosed)
            flow.OnSocketStatus(connection, Http::statusClosed, 0);
    }
    // Starts a check, and answers what is asked first.
    template <class Flow>
    void Begin(Flow&& flow) {
        EXPECT_TRUE(flow.Check());
        Answer(flow, kHead);
    }
    // The last status of the last connection.
    template <class Flow>
    void Release(Flow&& flow) {
        flow.OnSocketStatus(m_last, quorvel::Http::statusClosed, 0);
    }

    DWORD m_createError = 0, m_connectError = 0;
    COleDateTime m_now{2024, 3, 12, 12, 0, 0};
    ScriptedConnection* m_last = nullptr;
    int m_alive = 0;
    int m_count = 0; // of all connections
};

// The environment of a check: settings with an address, a local listing, and private folders,
// including the one for temporary files.
class CheckSurroundings {
public:
    CheckSurroundings() : m_variable(kTemporaryVariable, CStringA(m_temporary.Path().GetString())) {
        AfxWriteProfileCheckForUpdatesURL(path, _T("http://host.example/updates.xml"));
        folder.Write(_T("local.xml"), kOldListing);
    }
    ~CheckSurroundings() { QuorvelSetOpenExternalLinkCallback(nullptr); }

    bool HasTemporaryFiles() const { return !std::filesystem::is_empty(Wide(m_temporary.Path())); }

    std::string LocalFile() const { return folder.Read(_T("local.xml")); }

    TemporaryFolder folder;
    const CString local = folder.Path(_T("local.xml")); // the listing
    TestKey key;
    const CRegistryPath path{HKEY_CURRENT_USER, key.Path()};
    RecordingView view;
    ScriptedSource source;

private:
    TemporaryFolder m_temporary;
    EnvironmentVariable m_variable;
};
