// A file that is replaced as a whole or not at all.
//
// What is written goes to a new file in the target's folder, which takes the target's place in
// Commit; without a Commit, and when the process ends before, the target is as it was. A symbolic
// link stays one: the file it leads to is replaced. Where the target is no ordinary file, or the
// folder takes no second one, the target is written in place. An ordinary file is then kept until
// Commit, which first reserves the room on the disk; what is written waits in memory. Only a
// process that ends within Commit, and a disk that fails, leave a mixture. Nothing is forced to the
// disk: after a power cut either content may be there.
//
// Failures throw CFileException with the target's name. One thread.
#pragma once

#include <quorvel/framework/string.h>

#include "platform/scoped_handle.h"

#include <string>

namespace quorvel {

class ReplacementFile {
public:
    // Refused when the target exists and can't be opened for writing, or when nothing can be
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
    CString m_sibling;              // empty: written in place
    bool m_holdsOldContent = false; // in place: what was written is pending
    std::string m_pending;
    ScopedHandle m_file;
};

} // namespace quorvel
