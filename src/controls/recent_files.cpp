#include <quorvel/controls/recent_files.h>

#include <quorvel/system/profile.h>

#include <algorithm>

namespace {

CString NameOf(int index) {
    CString name;
    name.Format(_T("Recent file %d"), index + 1);
    return name;
}

} // namespace

BOOL CRecentFiles::Add(const WCHAR* fileName) {
    const CString file(fileName); // it may be one of ours
    if (file.IsEmpty())
        return FALSE;
    Remove(file);
    m_files.insert(m_files.begin(), file);
    if (GetCount() > std::max(m_limit, 1))
        m_files.pop_back();
    return TRUE;
}

BOOL CRecentFiles::Remove(const WCHAR* fileName) {
    if (fileName == nullptr)
        return FALSE;
    const CString file(fileName);
    return std::erase_if(m_files, [&file](const CString& each) {
               return each.CompareNoCase(file) == 0;
           }) != 0;
}

CString CRecentFiles::GetFile(int index) const {
    return index >= 0 && index < GetCount() ? m_files[static_cast<std::size_t>(index)] : CString();
}

BOOL CRecentFiles::SaveState(const CRegistryPath& path) const {
    BOOL isSaved = TRUE;
    for (int i = 0; i < std::max(m_limit, GetCount()); ++i) {
        if (i < GetCount())
            isSaved &= AfxWriteProfileString(path, NameOf(i), GetFile(i));
        else if (!AfxGetProfileString(path, NameOf(i), _T("")).IsEmpty())
            isSaved &= AfxWriteProfileString(path, NameOf(i), _T(""));
    }
    return isSaved;
}

BOOL CRecentFiles::LoadState(const CRegistryPath& path) {
    m_files.clear();
    for (int i = std::max(m_limit, 1) - 1; i >= 0; --i)
        Add(AfxGetProfileString(path, NameOf(i), _T("")));
    return !m_files.empty();
}
