#include "framework/replacement_file.h"

#include <quorvel/framework/exceptions.h>

#include "platform/replace_file.h"
#include "platform/win32.h"

#include <algorithm>
#include <exception>

namespace quorvel {

namespace {

bool IsMissing(DWORD error) {
    return error == ERROR_FILE_NOT_FOUND;
}

} // namespace

ReplacementFile::ReplacementFile(const WCHAR* path)
    : m_path(path), m_target(FinalPath(path).c_str()) {
    // A user who may not write the target may not replace it. Checks the attribute too, because
    // some systems let a privileged user open a read-only file.
    const DWORD attributes = GetFileAttributesW(m_target);
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0) {
        SetLastError(ERROR_ACCESS_DENIED);
        ThrowLastError();
    }
    ScopedHandle target(CreateFileW(m_target, GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    const bool exists = target.IsValid();
    if (!exists && !IsMissing(GetLastError()))
        ThrowLastError();
    const bool isOrdinary = !exists || GetFileType(target.Get()) == FILE_TYPE_DISK;
    target.Close();
    if (isOrdinary && CreateSibling())
        return;
    CreateInPlace();
    m_holdsOldContent = exists && isOrdinary;
}

ReplacementFile::~ReplacementFile() {
    if (!m_file.IsValid())
        return;
    const DWORD error = GetLastError();
    m_file.Close();
    if (!m_sibling.IsEmpty())
        DeleteFileW(m_sibling);
    SetLastError(error);
}

bool ReplacementFile::CreateSibling() {
    constexpr int kAttempts = 100;
    for (int i = 0; i < kAttempts && !m_file.IsValid(); ++i) {
        m_sibling.Format(_T("%s.%d.tmp"), m_target.GetString(), i);
        m_file = ScopedHandle(CreateFileW(m_sibling, GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                          FILE_ATTRIBUTE_NORMAL, nullptr));
        const DWORD error = GetLastError();
        if (!m_file.IsValid() && error != ERROR_FILE_EXISTS && error != ERROR_ALREADY_EXISTS)
            break;
    }
    if (m_file.IsValid())
        ProtectLike(m_sibling, m_target);
    else
        m_sibling.Empty();
    return m_file.IsValid();
}

void ReplacementFile::CreateInPlace() {
    m_file = ScopedHandle(CreateFileW(m_target, GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                      OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!m_file.IsValid())
        ThrowLastError();
}

void ReplacementFile::Write(const void* bytes, UINT count) {
    if (!m_holdsOldContent)
        return WriteToFile(static_cast<const char*>(bytes), count);
    try {
        m_pending.append(static_cast<const char*>(bytes), count);
    } catch (const std::exception&) { // no memory, or longer than a string may be
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        ThrowLastError();
    }
}

void ReplacementFile::WriteToFile(const char* bytes, std::size_t count) {
    constexpr std::size_t kPiece = std::size_t(1) << 30;
    while (count > 0) {
        const DWORD piece = static_cast<DWORD>(std::min(count, kPiece));
        DWORD written = 0;
        if (!WriteFile(m_file.Get(), bytes, piece, &written, nullptr))
            ThrowLastError();
        if (written < piece)
            AfxThrowFileException(CFileException::diskFull, ERROR_DISK_FULL, m_path);
        bytes += piece;
        count -= piece;
    }
}

void ReplacementFile::WriteOver() {
    if (!ReserveRoom(m_file.Get(), m_pending.size()))
        ThrowLastError();
    WriteToFile(m_pending.data(), m_pending.size());
    if (!SetEndOfFile(m_file.Get()))
        ThrowLastError();
}

void ReplacementFile::Commit() {
    if (m_holdsOldContent)
        WriteOver();
    if (m_file.Close() && (m_sibling.IsEmpty() || MoveOver(m_sibling, m_target)))
        return;
    const DWORD error = GetLastError();
    if (!m_sibling.IsEmpty())
        DeleteFileW(m_sibling);
    SetLastError(error);
    ThrowLastError();
}

void ReplacementFile::ThrowLastError() const {
    CFileException::ThrowOsError(static_cast<LONG>(GetLastError()), m_path);
    AfxThrowFileException(CFileException::genericException, -1, m_path); // no code is available
}

} // namespace quorvel
