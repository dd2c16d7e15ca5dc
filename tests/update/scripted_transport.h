// Transports of a host without a network: one whose progress the test sets, and one that fetches
// from a shared folder.
#pragma once

#include <quorvel/update/update_transport.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

class ScriptedTransport : public CUpdateTransport {
public:
    void Start(const Request& request) override {
        m_request = request;
        m_progress = Progress();
        ++m_starts;
    }
    void Cancel() override { ++m_cancels; }
    Progress GetProgress() const override { return m_progress; }
    BOOL GetHeaderField(const WCHAR*, CString& lastModified) const override {
        lastModified = _T("Tue, 12 Mar 2024 08:30:00 GMT"); // the checks ask for no other field
        return TRUE;
    }
    // Without a notification: the check polls.
    void Show(UINT statusCode, ULONGLONG received, ULONGLONG expected = 0) {
        m_progress = {TRUE, statusCode, received, expected, FALSE, 0, CString()};
    }
    void End(DWORD error = 0, const CString& text = CString()) {
        m_progress.hasEnded = TRUE;
        m_progress.error = error;
        m_progress.errorText = text;
    }

    Request m_request;
    Progress m_progress;
    int m_starts = 0, m_cancels = 0;
};

// "http://any.host/name" means the file "name" in the folder.
class FolderTransport : public ScriptedTransport {
public:
    explicit FolderTransport(const CString& folder) : m_folder(folder) {}

    void Start(const Request& request) override {
        const CString name = m_folder + request.url.Mid(request.url.ReverseFind('/') + 1);
        std::ifstream source(PathOf(name), std::ios::binary);
        const std::string bytes(std::istreambuf_iterator<char>(source), {});
        if (!request.headerOnly)
            std::ofstream(PathOf(request.fileName), std::ios::binary) << bytes;
        Show(source.is_open() ? 200 : 404, request.headerOnly ? 0 : bytes.size(), bytes.size());
        End();
        NotifyChanged();
    }

private:
    static std::filesystem::path PathOf(const CString& name) {
        return std::basic_string<WCHAR>(name);
    }

    const CString m_folder;
};
