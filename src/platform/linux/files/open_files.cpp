#include "platform/linux/files/open_files.h"

#include <unistd.h>

#include <algorithm>
#include <mutex>
#include <vector>

namespace quorvel {

namespace {

// A process has few files open at a time, so a plain list is enough.
struct Registry {
    std::mutex mutex;
    std::vector<const OpenFile*> files;
};

Registry& OpenFiles() { // never destroyed, like the table of handles
    static Registry& registry = *new Registry;
    return registry;
}

} // namespace

OpenFile::OpenFile(int descriptor, const struct stat& status, DWORD access, DWORD share)
    : m_descriptor(descriptor), m_device(status.st_dev), m_inode(status.st_ino),
      m_mode(status.st_mode), m_access(access), m_share(share) {}

OpenFile::~OpenFile() {
    if (m_registered) {
        const std::lock_guard lock(OpenFiles().mutex);
        std::erase(OpenFiles().files, this);
    }
    // Last: while the descriptor is open, no other file can have its number.
    close(m_descriptor);
}

bool OpenFile::ConflictsWith(dev_t device, ino_t inode, DWORD access, DWORD share) const {
    if (device != m_device || inode != m_inode || m_access == 0 || access == 0)
        return false;
    return (access & ~m_share) != 0 || (m_access & ~share) != 0;
}

bool OpenFile::Register() {
    const std::lock_guard lock(OpenFiles().mutex);
    auto& files = OpenFiles().files;
    const auto conflicts = [this](const OpenFile* other) {
        return other->ConflictsWith(m_device, m_inode, m_access, m_share);
    };
    if (std::any_of(files.begin(), files.end(), conflicts))
        return false;
    files.push_back(this);
    m_registered = true;
    return true;
}

bool OpenFile::IsHeld(const struct stat& status, DWORD access) {
    constexpr DWORD kShareAll = kReadAccess | kWriteAccess | kDeleteAccess;
    const std::lock_guard lock(OpenFiles().mutex);
    const auto& files = OpenFiles().files;
    return std::any_of(files.begin(), files.end(), [&](const OpenFile* other) {
        return other->ConflictsWith(status.st_dev, status.st_ino, access, kShareAll);
    });
}

} // namespace quorvel
