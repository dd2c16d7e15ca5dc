#include <quorvel/framework/win/file_dialog.h>

#include <commdlg.h>

namespace {

// Loaded when it is first needed: few programs that load the library show these dialogs.
typedef BOOL(WINAPI* Ask)(OPENFILENAMEW*);
Ask FindDialog(const char* name) {
    static const HMODULE s_dialogs = ::LoadLibraryW(L"comdlg32.dll"); // stays loaded
    return s_dialogs != nullptr
               ? reinterpret_cast<Ask>(reinterpret_cast<void*>(::GetProcAddress(s_dialogs, name)))
               : nullptr;
}

} // namespace

CFileDialog::CFileDialog(BOOL opens, const WCHAR* extension, const WCHAR* fileName, DWORD flags,
                         const WCHAR* filter, CWnd* parent)
    : m_opens(opens), m_extension(extension), m_path(fileName),
      m_flags(flags | OFN_NOCHANGEDIR | OFN_PATHMUSTEXIST), m_filter(filter), m_parent(parent) {
    if (!m_filter.IsEmpty() && m_filter[m_filter.GetLength() - 1] != '|')
        m_filter += '|';
    for (int i = 0; i < m_filter.GetLength(); ++i)
        if (m_filter[i] == '|')
            m_filter.SetAt(i, 0);
}

INT_PTR CFileDialog::DoModal() {
    constexpr int kLongestPath = 32768;
    const Ask ask = FindDialog(m_opens ? "GetOpenFileNameW" : "GetSaveFileNameW");
    if (ask == nullptr)
        return IDCANCEL;
    std::vector<WCHAR> path(kLongestPath);
    ::lstrcpynW(path.data(), m_path, kLongestPath);
    OPENFILENAMEW question = {};
    question.lStructSize = sizeof question;
    question.hwndOwner = m_parent != nullptr ? m_parent->m_hWnd : ::GetActiveWindow();
    question.lpstrFilter = m_filter.IsEmpty() ? nullptr : m_filter.GetString();
    question.lpstrFile = path.data();
    question.nMaxFile = kLongestPath;
    question.lpstrDefExt = m_extension.IsEmpty() ? nullptr : m_extension.GetString();
    question.Flags = m_flags;
    if (!ask(&question))
        return IDCANCEL;
    m_path = path.data();
    return IDOK;
}
