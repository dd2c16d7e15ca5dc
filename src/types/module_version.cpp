#include <quorvel/types/module_version.h>

#include <quorvel/types/version_number.h>

#include "platform/win32.h"

#include <algorithm>
#include <new>

namespace {

constexpr DWORD kFixedFileInfoSignature = 0xfeef04bd;
constexpr WORD kWesternCodePage = 1252;
constexpr DWORD kFileNameLength = 260;

// The fixed block holds a version's four parts as the halves of two numbers.
CVersionNumber Join(DWORD mostSignificant, DWORD leastSignificant) {
    return {HIWORD(mostSignificant), LOWORD(mostSignificant), HIWORD(leastSignificant),
            LOWORD(leastSignificant)};
}

void Split(const CVersionNumber& version, WORD& major, WORD& minor, WORD& revision, WORD& build) {
    major = static_cast<WORD>(version.GetMajorVersion());
    minor = static_cast<WORD>(version.GetMinorVersion());
    revision = static_cast<WORD>(version.GetRevisionNumber());
    build = static_cast<WORD>(version.GetBuildNumber());
}

} // namespace

CModuleVersion::CModuleVersion(const CModuleVersion& other) {
    *this = other;
}

CModuleVersion& CModuleVersion::operator=(const CModuleVersion& other) {
    if (this == &other)
        return *this;
    m_data = other.m_data;
    m_fileName = other.m_fileName;
    m_fixedFileInfo = nullptr;
    if (other.m_fixedFileInfo != nullptr) {
        const auto offset =
            reinterpret_cast<const BYTE*>(other.m_fixedFileInfo) - other.m_data.data();
        m_fixedFileInfo = reinterpret_cast<const VS_FIXEDFILEINFO*>(m_data.data() + offset);
    }
    m_lastError = other.m_lastError;
    m_language = other.m_language;
    m_codePage = other.m_codePage;
    return *this;
}

void CModuleVersion::Release() noexcept {
    m_fileName.Empty();
    m_data = std::vector<BYTE>(); // unlike clear(), frees it
    m_fixedFileInfo = nullptr;
    m_lastError = 0;
}

BOOL CModuleVersion::Fail(DWORD error) noexcept {
    Release();
    m_lastError = error;
    return FALSE;
}

BOOL CModuleVersion::Load(const WCHAR* fileName) {
    if (fileName == nullptr) {
        m_lastError = ERROR_BAD_ARGUMENTS;
        return FALSE;
    }
    m_codePage = kWesternCodePage;
    DWORD ignored = 0;
    const DWORD size = GetFileVersionInfoSizeW(fileName, &ignored);
    if (size == 0) {
        m_lastError = ::GetLastError();
        return FALSE;
    }
    const CString name(fileName); // the argument may point into what is released
    Release();
    try {
        m_data.resize(size);
    } catch (const std::bad_alloc&) {
        return Fail(ERROR_NOT_ENOUGH_MEMORY);
    }
    if (!GetFileVersionInfoW(name, 0, size, m_data.data()))
        return Fail(::GetLastError());
    if (!ReadFixedFileInfo() || !ReadTranslation())
        return FALSE;
    m_fileName = name;
    return TRUE;
}

BOOL CModuleVersion::Load(HINSTANCE module) {
    WCHAR fileName[kFileNameLength];
    if (GetModuleFileNameW(module, fileName, kFileNameLength) == 0) {
        m_lastError = ::GetLastError();
        return FALSE;
    }
    fileName[kFileNameLength - 1] = 0; // old systems cut a longer path without a terminator
    return Load(fileName);
}

BOOL CModuleVersion::ReadFixedFileInfo() noexcept {
    void* value = nullptr;
    UINT size = 0;
    if (!VerQueryValueW(m_data.data(), _T("\\"), &value, &size))
        return Fail(::GetLastError());
    const auto* info = static_cast<const VS_FIXEDFILEINFO*>(value);
    if (size < sizeof *info || info->dwSignature != kFixedFileInfoSignature)
        return Fail(ERROR_SUCCESS);
    m_fixedFileInfo = info;
    return TRUE;
}

BOOL CModuleVersion::ReadTranslation() noexcept {
    void* value = nullptr;
    UINT size = 0;
    if (!VerQueryValueW(m_data.data(), _T("\\VarFileInfo\\Translation"), &value, &size))
        return Fail(::GetLastError());
    if (size < sizeof(DWORD)) // an array without entries
        return Fail(ERROR_RESOURCE_DATA_NOT_FOUND);
    const auto* translation = static_cast<const WORD*>(value);
    m_language = translation[0];
    m_codePage = translation[1];
    return TRUE;
}

BOOL CModuleVersion::GetFileVersion(WORD& major, WORD& minor, WORD& revision,
                                    WORD& build) const noexcept {
    CVersionNumber version;
    const BOOL loaded = GetFileVersion(version);
    Split(version, major, minor, revision, build);
    return loaded;
}

BOOL CModuleVersion::GetProductVersion(WORD& major, WORD& minor, WORD& revision,
                                       WORD& build) const noexcept {
    CVersionNumber version;
    const BOOL loaded = GetProductVersion(version);
    Split(version, major, minor, revision, build);
    return loaded;
}

BOOL CModuleVersion::GetFileVersion(CVersionNumber& version) const noexcept {
    if (!HasValidFixedFileInfo())
        return FALSE;
    version = Join(m_fixedFileInfo->dwFileVersionMS, m_fixedFileInfo->dwFileVersionLS);
    return TRUE;
}

BOOL CModuleVersion::GetProductVersion(CVersionNumber& version) const noexcept {
    if (!HasValidFixedFileInfo())
        return FALSE;
    version = Join(m_fixedFileInfo->dwProductVersionMS, m_fixedFileInfo->dwProductVersionLS);
    return TRUE;
}

DWORD CModuleVersion::GetFileFlags(DWORD& zero) const noexcept {
    zero = 0;
    return HasValidFixedFileInfo() ? m_fixedFileInfo->dwFileFlags : 0;
}

DWORD CModuleVersion::GetFileOS(DWORD& zero) const noexcept {
    zero = 0;
    return HasValidFixedFileInfo() ? m_fixedFileInfo->dwFileOS : 0;
}

DWORD CModuleVersion::GetFileType(DWORD& zero) const noexcept {
    zero = 0;
    return HasValidFixedFileInfo() ? m_fixedFileInfo->dwFileType : 0;
}

DWORD CModuleVersion::GetFileSubtype(DWORD& zero) const noexcept {
    zero = 0;
    return HasValidFixedFileInfo() ? m_fixedFileInfo->dwFileSubtype : 0;
}

BOOL CModuleVersion::GetSubBlockValue(const WCHAR* name, CString& value) {
    const CString key(name); // the argument may point into `value`
    value.Empty();
    if (name == nullptr) {
        m_lastError = ERROR_BAD_ARGUMENTS;
        return FALSE;
    }
    if (!IsLoaded()) {
        m_lastError = ERROR_INVALID_HANDLE;
        return FALSE;
    }
    CString path;
    path.Format(_T("\\StringFileInfo\\%04x%04x\\%s"), m_language, m_codePage, key.GetString());
    void* found = nullptr;
    UINT length = 0; // in characters, with the terminator
    if (!VerQueryValueW(m_data.data(), path, &found, &length)) {
        m_lastError = ::GetLastError();
        return FALSE;
    }
    // In a damaged resource the length may be too large, or the terminator missing.
    const auto* text = static_cast<const WCHAR*>(found);
    const auto* dataEnd = m_data.data() + m_data.size();
    const auto held = (dataEnd - static_cast<const BYTE*>(found)) / sizeof *text;
    const WCHAR* end = text + std::min<std::size_t>(length, held);
    value.SetString(text, static_cast<int>(std::find(text, end, WCHAR()) - text));
    return TRUE;
}

BOOL CModuleVersion::GetComments(CString& value) {
    return GetSubBlockValue(_T("Comments"), value);
}

BOOL CModuleVersion::GetCompanyName(CString& value) {
    return GetSubBlockValue(_T("CompanyName"), value);
}

BOOL CModuleVersion::GetFileDescription(CString& value) {
    return GetSubBlockValue(_T("FileDescription"), value);
}

BOOL CModuleVersion::GetFileVersion(CString& value) {
    return GetSubBlockValue(_T("FileVersion"), value);
}

BOOL CModuleVersion::GetInternalName(CString& value) {
    return GetSubBlockValue(_T("InternalName"), value);
}

BOOL CModuleVersion::GetLegalCopyright(CString& value) {
    return GetSubBlockValue(_T("LegalCopyright"), value);
}

BOOL CModuleVersion::GetLegalTrademarks(CString& value) {
    return GetSubBlockValue(_T("LegalTrademarks"), value);
}

BOOL CModuleVersion::GetOriginalFileName(CString& value) {
    return GetSubBlockValue(_T("OriginalFileName"), value);
}

BOOL CModuleVersion::GetPrivateBuild(CString& value) {
    return GetSubBlockValue(_T("PrivateBuild"), value);
}

BOOL CModuleVersion::GetProductName(CString& value) {
    return GetSubBlockValue(_T("ProductName"), value);
}

BOOL CModuleVersion::GetProductVersion(CString& value) {
    return GetSubBlockValue(_T("ProductVersion"), value);
}

BOOL CModuleVersion::GetSpecialBuild(CString& value) {
    return GetSubBlockValue(_T("SpecialBuild"), value);
}
