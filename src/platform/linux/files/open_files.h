// The files that this process has open, and their share modes.
#pragma once

#include "platform/linux/waits/handle.h"

#include <sys/stat.h>

#include <string>
#include <utility>

namespace quorvel {

// Kinds of access, with the values of the FILE_SHARE_... flags that allow them.
enum FileAccess : DWORD { kReadAccess = 1, kWriteAccess = 2, kDeleteAccess = 4 };

// One open file. Duplicated handles share it and its position.
class OpenFile : public HandleObject {
public:
    // Takes ownership of the descriptor.
    OpenFile(int descriptor, const struct stat& status, DWORD access, DWORD share);
    ~OpenFile() override;

    int Descriptor() const { return m_descriptor; }
    bool Allows(DWORD access) const { return (m_access & access) == access; }
    bool IsOnDisk() const { return S_ISREG(m_mode); }
    mode_t Mode() const { return m_mode; }

    // Adds the file to the list of open files; its destructor removes it. Returns false when its
    // access or share mode conflicts with another open file.
    bool Register();
    // Whether any open handle forbids this access to the file.
    static bool IsHeld(const struct stat& status, DWORD access);

private:
    bool ConflictsWith(dev_t device, ino_t inode, DWORD access, DWORD share) const;

    const int m_descriptor;
    const dev_t m_device;
    const ino_t m_inode;
    const mode_t m_mode;
    const DWORD m_access;
    const DWORD m_share;
    bool m_registered = false;
};

// The read-only attribute: a file that nobody has permission to write.
inline bool IsReadOnly(const struct stat& status) {
    return S_ISREG(status.st_mode) && !(status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH));
}

} // namespace quorvel
