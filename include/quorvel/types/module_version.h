// CModuleVersion: the version resource of a module file, its numbers and its texts.
//
// Results are BOOLs; GetLastError gives the system's code of the last failure: 160
// (ERROR_BAD_ARGUMENTS) for a null name, 6 (ERROR_INVALID_HANDLE) for a text asked while nothing is
// loaded. One object may be used by one thread at a time. Copies own a buffer of their own.
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

    // Reads the resource of a file, or of the file that a loaded module came from. A resource that
    // cannot be read, that has a damaged fixed block (GetLastError gives 0 then) or no translation
    // releases the data that is held; a file without a version resource leaves it.
    // Deliberate: the texts of data that is left are looked up with code page 1252 from then on.
    BOOL Load(const WCHAR* fileName);
    BOOL Load(HINSTANCE module);
    BOOL IsLoaded() const noexcept { return !m_data.empty(); }
    DWORD GetLastError() const noexcept { return m_lastError; }
    CString GetFileName() const { return m_fileName; } // the name that was loaded; empty when none

    // FALSE while nothing is loaded: the four values are 0 then, and a CVersionNumber is unchanged.
    BOOL GetFileVersion(WORD& major, WORD& minor, WORD& revision, WORD& build) const noexcept;
    BOOL GetFileVersion(CVersionNumber& version) const noexcept;
    BOOL GetProductVersion(WORD& major, WORD& minor, WORD& revision, WORD& build) const noexcept;
    BOOL GetProductVersion(CVersionNumber& version) const noexcept;

    // Each returns its field of the fixed block, or 0 while nothing is loaded.
    // Deliberate: the argument is always set to 0 and never receives the value.
    DWORD GetFileFlags(DWORD& zero) const noexcept;
    DWORD GetFileOS(DWORD& zero) const noexcept;
    DWORD GetFileType(DWORD& zero) const noexcept;
    DWORD GetFileSubtype(DWORD& zero) const noexcept;

    // A text of the string table that belongs to the file's first translation. On failure the
    // value is empty.
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
    std::vector<BYTE> m_data; // the whole resource, as GetFileVersionInfoW gives it
    const VS_FIXEDFILEINFO* m_fixedFileInfo = nullptr; // lies in m_data
    DWORD m_lastError = 0;
    WORD m_language = 0;
    WORD m_codePage = 0;
};
