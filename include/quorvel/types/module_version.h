// CModuleVersion: the version resource of a module file, its numbers and its texts.
//
// Functions return BOOL, and GetLastError returns the code of the last failure: 160
// (ERROR_BAD_ARGUMENTS) for a null name, 6 (ERROR_INVALID_HANDLE) for a text when nothing is
// loaded, or the system's. One thread at a time may use an object. A copy has a buffer of its own.
#pragma once

#include <quorvel/framework/string.h>
#include <quorvel/platform/platform.h>

#include <vector>

class CVersionNumber;

class QUORVEL_API CModuleVersion {
public:
    CModuleVersion() = default;
    CModuleVersion(const CModuleVersion& other);
    CModuleVersion& operator=(const CModuleVersion& other);
    ~CModuleVersion() = default;

    // Reads the resource of a file, or of the file of a loaded module. The object's old data is
    // released when the resource cannot be read, has a damaged fixed block (GetLastError then
    // returns 0) or has no translation. A file without a version resource keeps the old data;
    // deliberate: its texts are from then on looked up with code page 1252.
    BOOL Load(const WCHAR* fileName);
    BOOL Load(HINSTANCE module);
    BOOL IsLoaded() const noexcept { return !m_data.empty(); }  // whether there is data of a file
    DWORD GetLastError() const noexcept { return m_lastError; } // of the last failure
    CString GetFileName() const { return m_fileName; } // the name that was loaded, or empty

    // When nothing is loaded, FALSE: the four values become 0, a CVersionNumber is unchanged.
    BOOL GetFileVersion(WORD& major, WORD& minor, WORD& revision, WORD& build) const noexcept;
    BOOL GetFileVersion(CVersionNumber& version) const noexcept;
    BOOL GetProductVersion(WORD& major, WORD& minor, WORD& revision, WORD& build) const noexcept;
    BOOL GetProductVersion(CVersionNumber& version) const noexcept;

    // Each returns its field of the fixed block, or 0 when nothing is loaded. Deliberate: the
    // argument is always set to 0 and never receives the value.
    DWORD GetFileFlags(DWORD& zero) const noexcept;
    DWORD GetFileOS(DWORD& zero) const noexcept;
    DWORD GetFileType(DWORD& zero) const noexcept;
    DWORD GetFileSubtype(DWORD& zero) const noexcept;

    // A text from the string table of the file's first translation. On failure returns FALSE and an
    // empty value.
    BOOL GetSubBlockValue(const WCHAR* name, CString& value);
    BOOL GetComments(CString& value);
    BOOL GetCompanyName(CString& value);
    BOOL GetFileDescription(CString& value);
    BOOL GetFileVersion(CString& value);
    BOOL GetInternalName(CString& value);
    BOOL GetLegalCopyright(CString& value);
    BOOL GetLegalTrademarks(CString& value);
    BOOL GetOriginalFileName(CString& value);
    BOOL GetPrivateBuild(CString& value);
    BOOL GetProductName(CString& value);
    BOOL GetProductVersion(CString& value);
    BOOL GetSpecialBuild(CString& value);

private:
    BOOL Fail(DWORD error) noexcept;
    void Release() noexcept;
    BOOL HasValidFixedFileInfo() const noexcept { return m_fixedFileInfo != nullptr; }
    BOOL ReadFixedFileInfo() noexcept;
    BOOL ReadTranslation() noexcept;

    CString m_fileName;
    std::vector<BYTE> m_data; // the whole resource from GetFileVersionInfoW
    const VS_FIXEDFILEINFO* m_fixedFileInfo = nullptr; // points into m_data
    DWORD m_lastError = 0;
    WORD m_language = 0;
    WORD m_codePage = 0;
};
