// Replaces a file as a whole or not at all.
//
// Data is written to a new file in the target's folder, and Commit puts it in the target's place.
// Without a Commit, or if the process ends before it, the target stays unchanged. A symbolic link
// stays a link: the file that it names is replaced. If the target is not an ordinary file, or the
// folder takes no second file, the target is written in place. Its data, for an ordinary file, then
// waits in memory until Commit, which first reserves disk space. Only a process that ends during
// Commit, or a failing disk, leaves mixed content. Nothing is flushed to the disk: after a power
// failure either content is possible.
//
// Failures throw CFileException with the target's name. One thread.
#pragma once

#include <quorvel/framework/string.h>

#include "platform/scoped_handle.h"

#include <string>

namespace quorvel {

class ReplacementFile {
public:
    // Throws when the target exists but cannot be opened for writing, or when no file can be
    // created.
    explicit ReplacementFile(const WCHAR* path);
    ReplacementFile(const ReplacementFile&) = delete;
    ReplacementFile& operator=(const ReplacementFile&) = delete;
    ~ReplacementFile();

    void Write(const void* bytes, UINT count);
    void Commit();

private:
    bool CreateSibling();
    void CreateInPlace();
    void WriteToFile(const char* bytes, std::size_t count);
    void WriteOver();
    [[noreturn]] void ThrowLastError() const;

    const CString m_path;
    CString m_target;
    CString m_sibling;              // empty when written in place
    bool m_holdsOldContent = false; // in place: the new data is pending
    std::string m_pending;
    ScopedHandle m_file;
};

} // namespace quorvel
