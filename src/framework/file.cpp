#include <quorvel/framework/file.h>

#include "platform/win32.h"

#include <algorithm>
#include <memory>

IMPLEMENT_DYNAMIC(CFile, CObject)

const HANDLE CFile::hFileNull = INVALID_HANDLE_VALUE;

namespace {

constexpr UINT kAccessMask = 0x0003;
constexpr UINT kShareMask = 0x0070;

struct FlagRow {
    UINT flag;
    DWORD value;
};
constexpr FlagRow kAccessRights[] = {
    {CFile::modeRead, GENERIC_READ},
    {CFile::modeWrite, GENERIC_WRITE},
    {CFile::modeReadWrite, GENERIC_READ | GENERIC_WRITE},
};
constexpr FlagRow kShareModes[] = {
    {CFile::shareCompat, 0},
    {CFile::shareExclusive, 0},
    {CFile::shareDenyWrite, FILE_SHARE_READ},
    {CFile::shareDenyRead, FILE_SHARE_WRITE},
    {CFile::shareDenyNone, FILE_SHARE_READ | FILE_SHARE_WRITE},
};

template <std::size_t Count>
const FlagRow* FindFlag(const FlagRow (&rows)[Count], UINT flag) {
    const FlagRow* found =
        std::find_if(rows, rows + Count, [flag](const FlagRow& row) { return row.flag == flag; });
    return found != rows + Count ? found : nullptr;
}

DWORD Disposition(UINT openFlags) {
    if ((openFlags & CFile::modeCreate) == 0)
        return OPEN_EXISTING;
    return (openFlags & CFile::modeNoTruncate) != 0 ? OPEN_ALWAYS : CREATE_ALWAYS;
}

HANDLE OpenHandle(const WCHAR* fileName, UINT openFlags) {
    const FlagRow* rights = FindFlag(kAccessRights, openFlags & kAccessMask);
    const FlagRow* share = FindFlag(kShareModes, openFlags & kShareMask);
    if (rights == nullptr || share == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return CFile::hFileNull;
    }
    return CreateFileW(fileName, rights->value, share->value, nullptr, Disposition(openFlags),
                       FILE_ATTRIBUTE_NORMAL, nullptr);
}

// Returns the name unchanged when the system cannot make it a full path.
CString FullPath(const WCHAR* fileName) {
    const DWORD size = GetFullPathNameW(fileName, 0, nullptr, nullptr);
    CString path;
    const DWORD length =
        size == 0
            ? 0
            : GetFullPathNameW(fileName, size, path.GetBuffer(static_cast<int>(size)), nullptr);
    path.ReleaseBuffer(static_cast<int>(length < size ? length : 0));
    return path.IsEmpty() ? CString(fileName) : path;
}

[[noreturn]] void ThrowLastError(const WCHAR* fileName) {
    const LONG error = static_cast<LONG>(GetLastError());
    AfxThrowFileException(CFileException::OsErrorToException(error), error, fileName);
}

} // namespace

CFile::CFile() : m_hFile(hFileNull), m_bCloseOnDelete(TRUE) {}

CFile::CFile(HANDLE file) : m_hFile(file), m_bCloseOnDelete(FALSE) {}

CFile::CFile(const WCHAR* fileName, UINT openFlags) : CFile() {
    CFileException error;
    if (!CFile::Open(fileName, openFlags, &error))
        AfxThrowFileException(error.m_cause, error.m_lOsError, error.m_strFileName);
}

CFile::~CFile() {
    if (m_bCloseOnDelete)
        CFile::Abort();
}

BOOL CFile::Open(const WCHAR* fileName, UINT openFlags, CFileException* error) {
    CFile::Abort();
    m_bCloseOnDelete = TRUE;
    if (fileName == nullptr)
        fileName = _T("");
    m_strFileName = FullPath(fileName);
    m_hFile = OpenHandle(fileName, openFlags);
    if (m_hFile != hFileNull)
        return TRUE;
    const LONG code = static_cast<LONG>(GetLastError());
    m_strFileName.Empty();
    if (error != nullptr) {
        error->m_cause = CFileException::OsErrorToException(code);
        error->m_lOsError = code;
        error->m_strFileName = fileName;
    }
    return FALSE;
}

CFile* CFile::Duplicate() const {
    auto copy = std::make_unique<CFile>();
    copy->m_strFileName = m_strFileName;
    const HANDLE process = GetCurrentProcess();
    if (!DuplicateHandle(process, m_hFile, process, &copy->m_hFile, 0, FALSE,
                         DUPLICATE_SAME_ACCESS))
        ThrowLastError(m_strFileName);
    return copy.release();
}

void CFile::Close() {
    const HANDLE file = std::exchange(m_hFile, hFileNull);
    const CString fileName = std::exchange(m_strFileName, CString());
    if (file != hFileNull && !CloseHandle(file))
        ThrowLastError(fileName);
}

void CFile::Abort() {
    const HANDLE file = std::exchange(m_hFile, hFileNull);
    m_strFileName.Empty();
    if (file != hFileNull)
        CloseHandle(file);
}

UINT CFile::Read(void* buffer, UINT count) {
    DWORD read = 0;
    if (count > 0 && !ReadFile(m_hFile, buffer, count, &read, nullptr))
        ThrowLastError(m_strFileName);
    return read;
}

void CFile::Write(const void* buffer, UINT count) {
    DWORD written = 0;
    if (count > 0 && !WriteFile(m_hFile, buffer, count, &written, nullptr))
        ThrowLastError(m_strFileName);
    if (written != count)
        AfxThrowFileException(CFileException::diskFull, -1, m_strFileName);
}

void CFile::Flush() {
    if (m_hFile != hFileNull && !FlushFileBuffers(m_hFile))
        ThrowLastError(m_strFileName);
}

ULONGLONG CFile::Seek(LONGLONG offset, UINT from) {
    LARGE_INTEGER distance;
    distance.QuadPart = offset;
    LARGE_INTEGER position;
    if (!SetFilePointerEx(m_hFile, distance, &position, from))
        ThrowLastError(m_strFileName);
    return static_cast<ULONGLONG>(position.QuadPart);
}
static_assert(FILE_BEGIN == CFile::begin && FILE_CURRENT == CFile::current &&
              FILE_END == CFile::end);

ULONGLONG CFile::GetPosition() const {
    return const_cast<CFile*>(this)->CFile::Seek(0, current);
}

ULONGLONG CFile::GetLength() const {
    LARGE_INTEGER size;
    if (!GetFileSizeEx(m_hFile, &size))
        ThrowLastError(m_strFileName);
    return static_cast<ULONGLONG>(size.QuadPart);
}

void CFile::SetLength(ULONGLONG length) {
    Seek(static_cast<LONGLONG>(length), begin);
    if (!SetEndOfFile(m_hFile))
        ThrowLastError(m_strFileName);
}

CString CFile::GetFilePath() const {
    return m_strFileName;
}

CString CFile::GetFileName() const {
    const int separator = std::max(m_strFileName.ReverseFind('\\'), m_strFileName.ReverseFind('/'));
    return m_strFileName.Mid(separator + 1);
}

void CFile::Rename(const WCHAR* oldName, const WCHAR* newName) {
    if (!MoveFileW(oldName, newName))
        ThrowLastError(oldName);
}

void CFile::Remove(const WCHAR* fileName) {
    if (!DeleteFileW(fileName))
        ThrowLastError(fileName);
}
