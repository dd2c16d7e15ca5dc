// A file that is replaced as a whole or not at all.
//
// What is written goes to a new file in the target's folder, which takes the target's place in
// Commit; without a Commit, and when the process ends before, the target is as it was. A symbolic
// link stays one: the file it leads to is replaced. Where the target is no ordinary file, or the
// folder takes no second one, the target is written in place: it keeps its content until the first
// Write, and from then on this promise does not hold.
// Nothing is forced to the disk: after a power cut either content may be there.
//
// Failures throw CFileException with the target's name. One thread.
#pragma once

#include <quorvel/framework/string.h>

#include "platform/scoped_handle.h"

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
    void EmptyTarget();
    [[noreturn]] void ThrowLastError() const;

    const CString m_path;
    CString m_target;
    CString m_sibling;              // empty: written in place
    bool m_holdsOldContent = false; // in place, and nothing was written yet
    ScopedHandle m_file;
};

} // namespace quorvel
