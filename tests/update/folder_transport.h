// A transport as a host might write it: fetches updates from a shared folder on its own thread.
#pragma once

#include <quorvel/framework/exceptions.h>
#include <quorvel/framework/file.h>
#include <quorvel/update/update_transport.h>

#include <memory>
#include <mutex>
#include <thread>

// "http://any.host/name" means the file "name" in the folder.
class FolderTransport : public CUpdateTransport {
public:
    explicit FolderTransport(const CString& folder) : m_folder(folder) {}
    ~FolderTransport() override { Cancel(); }

    void Start(const Request& request) override {
        Cancel();
        m_progress = Progress();
        m_isCancelled = false;
        m_thread = std::thread([this, request] { Copy(request); });
    }
    void Cancel() override {
        m_isCancelled = true;
        if (m_thread.joinable())
            m_thread.join(); // waits for at most one block
    }
    Progress GetProgress() const override {
        const std::lock_guard lock(m_mutex);
        return m_progress;
    }
    BOOL GetHeaderField(const WCHAR* name, CString& value) const override {
        if (CString(name).CompareNoCase(_T("Last-Modified")) != 0)
            return FALSE;
        value = _T("Tue, 12 Mar 2024 08:30:00 GMT"); // a real transport uses the file's date
        return TRUE;
    }

private:
    void Copy(const Request& request) {
        try {
            CopyBlocks(request);
        } catch (CException* exception) {
            exception->Delete();
            Change([](Progress& now) { now.statusCode = 404; });
        }
        Change([](Progress& now) { now.hasEnded = TRUE; });
    }
    void CopyBlocks(const Request& request) {
        const CString name = request.url.Mid(request.url.ReverseFind('/') + 1);
        CFile source(m_folder + name, CFile::modeRead | CFile::shareDenyWrite);
        const ULONGLONG length = source.GetLength();
        Change([=](Progress& now) {
            now.isConnected = TRUE;
            now.statusCode = 200;
            now.expected = length;
        });
        if (request.headerOnly)
            return;
        CFile target(request.fileName, CFile::modeWrite);
        char block[16 * 1024];
        while (const UINT count = m_isCancelled ? 0 : source.Read(block, sizeof block)) {
            target.Write(block, count);
            Change([=](Progress& now) { now.received += count; });
        }
    }
    template <class Changes>
    void Change(Changes change) {
        {
            const std::lock_guard lock(m_mutex);
            change(m_progress);
        }
        NotifyChanged();
    }

    const CString m_folder;
    std::thread m_thread;
    std::atomic<bool> m_isCancelled = false;
    mutable std::mutex m_mutex;
    Progress m_progress; // guarded by the lock
};
