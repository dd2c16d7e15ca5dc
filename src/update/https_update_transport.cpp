#include <quorvel/update/https_update_transport.h>

#include <quorvel/framework/exceptions.h>
#include <quorvel/framework/file.h>
#include <quorvel/res/message_ids.h>

#include "platform/web_fetch.h"
#include "platform/win32.h"

#include <mutex>
#include <thread>

namespace {

CString TextOf(UINT id, const WCHAR* insert) {
    CString text;
    text.FormatMessage(id, insert);
    return text;
}

CString Widened(const std::string& bytes) {
    CString text;
    for (const char each : bytes)
        text += static_cast<WCHAR>(static_cast<unsigned char>(each));
    return text;
}

} // namespace

// One request. After a cancellation its further work has no visible effect.
struct CHttpsUpdateTransport::Job final : quorvel::WebReceiver {
    explicit Job(const Request& what, quorvel::WebRequest how = {})
        : request(what), fetch(std::move(how)) {}

    const Request request;
    quorvel::WebFetch fetch;

    std::mutex mutex;                       // guards the members below
    CHttpsUpdateTransport* owner = nullptr; // null when cancelled
    Progress progress;
    UINT textId = 0; // the error's text with this insert; 0: the insert is the text
    CString insert;
    Fields fields;
    CFile file;
    bool isOpen = false;

    template <class Changes>
    bool Change(Changes change) {
        const std::lock_guard lock(mutex);
        if (owner == nullptr)
            return false;
        change();
        owner->OnChanged();
        return true;
    }
    void CloseFile() {
        if (std::exchange(isOpen, false))
            file.Abort(); // closes without throwing
    }
    // The first error counts. The check's thread loads its text, because it loads all texts.
    void Fail(DWORD error, UINT id = 0, const CString& text = CString()) {
        if (progress.error != 0)
            return;
        progress.error = error;
        textId = id;
        insert = text;
    }

    void OnConnected() override {
        Change([this] { progress.isConnected = TRUE; });
    }
    void OnHeader(UINT statusCode, Fields received, ULONGLONG length) override {
        Change([&] {
            fields = std::move(received);
            progress.isConnected = TRUE;
            progress.statusCode = statusCode;
            progress.expected = request.headerOnly ? 0 : length;
        });
    }
    bool OnBody(const char* bytes, std::size_t count) override {
        bool isTaken = false;
        return Change([&] { isTaken = Write(bytes, count); }) && isTaken;
    }
    bool Write(const char* bytes, std::size_t count) {
        try {
            if (progress.received + count > request.bodyLimit) {
                Fail(WSAEMSGSIZE);
                progress.received += count;
                return false;
            }
            if (!isOpen && !file.Open(request.fileName, CFile::modeWrite | CFile::shareDenyWrite)) {
                Fail(::GetLastError());
                return false;
            }
            isOpen = true;
            file.Write(bytes, static_cast<UINT>(count));
            progress.received += count;
            return true;
        } catch (CFileException* exception) {
            Fail(static_cast<DWORD>(exception->m_lOsError));
            exception->Delete();
        } catch (CException* exception) {
            Fail(ERROR_WRITE_FAULT);
            exception->Delete();
        }
        return false;
    }
    void End(const quorvel::WebResult& result) {
        using quorvel::WebResult;
        const CString text(result.text.c_str());
        CloseFile();
        if (result.kind == WebResult::NoLibrary)
            Fail(result.error, quorvel::kTextUpdatesNoHttps, text);
        else if (result.kind == WebResult::RedirectRefused)
            Fail(result.error, quorvel::kTextUpdatesRedirectRefused);
        else if (result.kind == WebResult::NotTrusted)
            Fail(result.error, quorvel::kTextUpdatesNotTrusted, text);
        else if (result.kind == WebResult::Failed)
            Fail(result.error, 0, text);
        else if (progress.expected > progress.received)
            Fail(WSAECONNRESET, quorvel::kTextUpdatesIncomplete);
        progress.hasEnded = TRUE;
    }
};

CHttpsUpdateTransport::CHttpsUpdateTransport() : m_job(std::make_shared<Job>(Request())) {}

CHttpsUpdateTransport::~CHttpsUpdateTransport() {
    Cancel();
}

BOOL CHttpsUpdateTransport::SetTimeOuts(DWORD connect, DWORD stall) {
    if (connect == 0 || stall == 0)
        return FALSE;
    m_connectTimeOut = connect;
    m_stallTimeOut = stall;
    return TRUE;
}

void CHttpsUpdateTransport::Run(const std::shared_ptr<Job>& job) {
    quorvel::WebResult result = {quorvel::WebResult::Failed, WSAENOBUFS, {}};
    try {
        result = job->fetch.Run(*job);
    } catch (CException* exception) {
        exception->Delete();
    } catch (const std::exception&) {
        // No memory: `result` already reports a failure.
    }
    job->Change([&] { job->End(result); });
}

void CHttpsUpdateTransport::Start(const Request& request) {
    Cancel();
    quorvel::WebRequest how;
    how.url = request.url.GetString();
    how.headerOnly = request.headerOnly != FALSE;
    how.connectMilliseconds = m_connectTimeOut;
    how.stallMilliseconds = m_stallTimeOut;
    m_job = std::make_shared<Job>(request, std::move(how));
    m_job->owner = this;
    try {
        // Nobody waits for this thread, because a name look-up cannot be interrupted.
        std::thread([job = m_job] { Run(job); }).detach();
    } catch (const std::exception&) {
        m_job->Change([this] { m_job->End({quorvel::WebResult::Failed, WSAENOBUFS, {}}); });
    }
}

void CHttpsUpdateTransport::Cancel() {
    {
        const std::lock_guard lock(m_job->mutex);
        m_job->owner = nullptr;
        m_job->CloseFile();
    }
    m_job->fetch.Cancel();
}

CUpdateTransport::Progress CHttpsUpdateTransport::GetProgress() const {
    const std::lock_guard lock(m_job->mutex);
    Progress progress = m_job->progress;
    if (progress.hasEnded)
        progress.errorText =
            m_job->textId != 0 ? TextOf(m_job->textId, m_job->insert) : m_job->insert;
    return progress;
}

BOOL CHttpsUpdateTransport::GetHeaderField(const WCHAR* name, CString& value) const {
    const std::lock_guard lock(m_job->mutex);
    for (const auto& [fieldName, fieldValue] : m_job->fields) {
        if (name == nullptr || Widened(fieldName).CompareNoCase(name) != 0)
            continue;
        value = Widened(fieldValue);
        return TRUE;
    }
    return FALSE;
}
