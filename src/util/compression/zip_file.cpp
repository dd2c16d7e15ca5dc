#include <quorvel/util/compression/zip_file.h>

#include <quorvel/frame/exception_text.h>
#include <quorvel/framework/exceptions.h>
#include <quorvel/framework/file.h>
#include <quorvel/res/message_ids.h>

#include "platform/scoped_handle.h"
#include "platform/win32.h"
#include "util/compression/zip_path.h"

#include <minizip/unzip.h>
#include <minizip/zip.h>

#include <chrono>
#include <cstring>
#include <memory>
#include <string>

namespace {

constexpr UINT kReadSize = 16384;
constexpr uLong kNamesAreUTF8 = 1u << 11;      // a flag of the entry
constexpr uLong kMadeOnVFAT = 14u << 8;        // the high byte names the file system
constexpr ULONGLONG kNeedsZip64 = 0xf0000000u; // incompressible data grows a little

struct CodeRow {
    int code;
    UINT textId;
};
constexpr CodeRow kCodes[] = {
    {ZIP_OK, quorvel::kTextZipOk},
    {ZIP_PARAMERROR, quorvel::kTextZipInvalidParameter},
    {ZIP_BADZIPFILE, quorvel::kTextZipInvalidFile},
    {ZIP_INTERNALERROR, quorvel::kTextZipInternalError},
};

int Fail(int code, CString& errorText) {
    errorText = AfxGetZipErrorText(code);
    return code;
}

int FailWith(CException* exception, CString& errorText) {
    AfxGetExceptionText(exception, errorText);
    return ZIP_INTERNALERROR;
}

// Deliberate: writes UTC, although the zip format has local time and no time zone.
zip_fileinfo EntryMadeNow() {
    using namespace std::chrono;
    const auto now = floor<seconds>(system_clock::now());
    const auto today = floor<days>(now);
    const year_month_day date(today);
    const hh_mm_ss time(now - today);
    zip_fileinfo entry = {};
    entry.tmz_date.tm_sec = static_cast<int>(time.seconds().count());
    entry.tmz_date.tm_min = static_cast<int>(time.minutes().count());
    entry.tmz_date.tm_hour = static_cast<int>(time.hours().count());
    entry.tmz_date.tm_mday = static_cast<int>(static_cast<unsigned>(date.day()));
    entry.tmz_date.tm_mon = static_cast<int>(static_cast<unsigned>(date.month())) - 1;
    entry.tmz_date.tm_year = static_cast<int>(date.year());
    return entry;
}

// Returns 0 for a device that has no length.
ULONGLONG LengthOf(const CFile& file) {
    try {
        return file.GetLength();
    } catch (CException* exception) {
        exception->Delete();
        return 0;
    }
}

int OpenEntry(void* zip, const WCHAR* name, int level, ULONGLONG size) {
    // The archive writer would notice this too late, when part of the entry is written.
    if (level < Z_DEFAULT_COMPRESSION || level > Z_BEST_COMPRESSION)
        return Z_STREAM_ERROR;
    const CStringA bytes(name);
    const zip_fileinfo entry = EntryMadeNow();
    // For entries "made on DOS" (0) some readers decode the name in the DOS code page, whatever the
    // flag says. For entries "made on Unix" they read the attributes as a file without permissions.
    const bool isUTF8 = GetACP() == CP_UTF8;
    const uLong madeBy = isUTF8 ? kMadeOnVFAT : 0;
    const uLong flags = isUTF8 ? kNamesAreUTF8 : 0;
    return zipOpenNewFileInZip4_64(zip, bytes, &entry, nullptr, 0, nullptr, 0, nullptr, Z_DEFLATED,
                                   level, 0, -MAX_WBITS, DEF_MEM_LEVEL, Z_DEFAULT_STRATEGY, nullptr,
                                   0, madeBy, flags, size >= kNeedsZip64);
}

int CopyIntoEntry(void* zip, CFile& source, CString& errorText) {
    try {
        BYTE buffer[kReadSize];
        while (const UINT count = source.Read(buffer, kReadSize)) {
            const int error = zipWriteInFileInZip(zip, buffer, count);
            if (error != ZIP_OK)
                return Fail(error, errorText);
        }
        return ZIP_OK;
    } catch (CException* exception) {
        const int error = FailWith(exception, errorText);
        exception->Delete();
        return error;
    }
}

struct CloseZip {
    void operator()(void* zip) const { AfxCloseZipFile(zip); }
};
typedef std::unique_ptr<void, CloseZip> ScopedZip;

// The archive writer gives no reason when it fails to open the file. So the same file is opened
// again to get the system's error.
DWORD ErrorOfOpening(const WCHAR* path, int append) {
    const bool create = append == APPEND_STATUS_CREATE;
    quorvel::ScopedHandle file(CreateFileW(path, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                           nullptr, create ? OPEN_ALWAYS : OPEN_EXISTING,
                                           FILE_ATTRIBUTE_NORMAL, nullptr));
    const DWORD error = GetLastError();
    if (!file.IsValid())
        return error;
    file.Close();
    if (create && error != ERROR_ALREADY_EXISTS)
        DeleteFileW(path);
    return append == APPEND_STATUS_ADDINZIP ? ERROR_INVALID_DATA : ERROR_NOT_ENOUGH_MEMORY;
}

// The archive writer takes a file of a few bytes or of zeros for an archive and overwrites it.
bool IsArchive(const char* path) {
    const unzFile archive = unzOpen(path);
    return archive != nullptr && unzClose(archive) == UNZ_OK;
}

bool IsInUse(const WCHAR* path) {
    CFile probe;
    if (probe.Open(path, CFile::modeWrite | CFile::shareDenyNone) ||
        GetLastError() != ERROR_SHARING_VIOLATION)
        return false;
    SetLastError(ERROR_SHARING_VIOLATION);
    return true;
}

const WCHAR* BareName(const WCHAR* path) {
    const WCHAR* name = path;
    for (; *path != 0; ++path)
        if (*path == '\\' || *path == '/')
            name = path + 1;
    return name;
}

} // namespace

void* AfxOpenZipFile(const WCHAR* path, int append) {
    std::string bytes;
    DWORD error;
    if (!AfxIsValidString(path)) {
        error = ERROR_INVALID_PARAMETER;
    } else if (!quorvel::ToZipPath(path, bytes)) {
        error = ERROR_PATH_NOT_FOUND;
    } else {
        const bool canOpen = append != APPEND_STATUS_ADDINZIP || IsArchive(bytes.c_str());
        if (void* const zip = canOpen ? zipOpen(bytes.c_str(), append) : nullptr)
            return zip;
        error = ErrorOfOpening(path, append);
    }
    SetLastError(error);
    return nullptr;
}

int AfxCloseZipFile(void* zip) {
    return zipClose(zip, nullptr);
}

CString AfxGetZipErrorText(int zipError) {
    CString text;
    if (zipError == ZIP_ERRNO)
        text = std::strerror(0); // Deliberate: not the current error
    for (const CodeRow& row : kCodes)
        if (row.code == zipError)
            text.LoadString(row.textId);
    if (text.IsEmpty())
        text.LoadString(quorvel::kTextUnknownError);
    return text;
}

int AfxAddFileToZipFile(void* zip, const WCHAR* sourcePath, const WCHAR* nameInZip, int level,
                        CString& errorText) {
    if (!AfxIsValidString(sourcePath))
        return Fail(ZIP_PARAMERROR, errorText);
    CFile source;
    CFileException openError;
    const BOOL opened =
        source.Open(sourcePath, CFile::modeRead | CFile::shareDenyWrite, &openError);
    int error = OpenEntry(zip, nameInZip != nullptr ? nameInZip : sourcePath, level,
                          opened ? LengthOf(source) : 0);
    if (error != ZIP_OK)
        return Fail(error, errorText);
    error = opened ? CopyIntoEntry(zip, source, errorText) : FailWith(&openError, errorText);
    const int closeError = zipCloseFileInZip(zip);
    if (error == ZIP_OK && closeError != ZIP_OK)
        error = Fail(closeError, errorText);
    return error;
}

BOOL AfxCompressFileToZipFile(const WCHAR* sourcePath, const WCHAR* zipPath, int level,
                              CString& errorText) {
    if (!AfxIsValidString(sourcePath) || !AfxIsValidString(zipPath)) {
        Fail(ZIP_PARAMERROR, errorText);
        return FALSE;
    }
    if (GetFileAttributesW(sourcePath) == INVALID_FILE_ATTRIBUTES) {
        AfxGetFileExceptionErrorMessage(CFileException::fileNotFound, errorText);
        return FALSE;
    }
    CFile held; // keeps the archive from being the source itself, which would empty it
    held.Open(sourcePath, CFile::modeRead | CFile::shareDenyWrite);
    ScopedZip zip(IsInUse(zipPath) ? nullptr : AfxOpenZipFile(zipPath, APPEND_STATUS_CREATE));
    if (zip == nullptr) {
        const LONG error = static_cast<LONG>(GetLastError());
        AfxGetFileExceptionErrorMessage(CFileException::OsErrorToException(error), errorText);
        return FALSE;
    }
    if (AfxAddFileToZipFile(zip.get(), sourcePath, BareName(sourcePath), level, errorText) !=
        ZIP_OK)
        return FALSE;
    const int error = AfxCloseZipFile(zip.release());
    if (error != ZIP_OK)
        Fail(error, errorText);
    return error == ZIP_OK;
}
