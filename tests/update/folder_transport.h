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
    BOOL GetHeaderField(const WCHAR* name, CString& value) const override {
        if (CString(name).CompareNoCase(_T("Last-Modified")) != 0)
            return FALSE;
        value = _T("Tue, 12 Mar 2024 08:30:00 GMT"); // a real transport uses the file's date
        return TRUE;
    }

private:
    typedef std::basic_string<WCHAR> Name;

    void Copy(const Request& request) {
        const CString name = m_folder + request.url.Mid(request.url.ReverseFind('/') + 1);
        std::ifstream source(std::filesystem::path(Name(name)), std::ios::binary);
        const std::string bytes(std::istreambuf_iterator<char>(source), {});
        Progress now;
        now.isConnected = now.hasEnded = TRUE;
        now.statusCode = source.is_open() ? 200 : 404;
        now.expected = bytes.size();
        if (source.is_open() && !request.headerOnly) {
            std::ofstream(std::filesystem::path(Name(request.fileName)), std::ios::binary) << bytes;
            now.received = bytes.size();
        }
        {
            const std::lock_guard lock(m_mutex);
            m_progress = now;
        }
        NotifyChanged();
    }

    const CString m_folder;
    std::thread m_thread;
    mutable std::mutex m_mutex;
    Progress m_progress; // guarded by the lock
};
