#include "settings.h"

#include <quorvel/system/profile.h>

#include <algorithm>

namespace {

constexpr std::size_t kMostRecentFiles = 9;

const WCHAR kSourceLimit[] = _T("Source limit");
const WCHAR kChecksOnOpen[] = _T("Check on open");
const WCHAR kLanguage[] = _T("Language");

CString RecentName(std::size_t index) {
    CString name;
    name.Format(_T("Recent file %d"), static_cast<int>(index) + 1);
    return name;
}

} // namespace

CRegistryPath Settings::Path() {
    return CRegistryPath(HKEY_CURRENT_USER, _T("Software\\Quorvel\\Workbench"));
}

Settings Settings::Load() {
    const CRegistryPath path = Path();
    Settings settings;
    settings.sourceLimit =
        std::clamp(UINT{AfxGetProfileDWord(path, kSourceLimit, settings.sourceLimit)},
                   kLeastSourceLimit, kMostSourceLimit);
    settings.checksOnOpen = AfxGetProfileDWord(path, kChecksOnOpen, FALSE) != 0;
    settings.language = static_cast<LANGID>(AfxGetProfileDWord(path, kLanguage, 0));
    for (std::size_t i = 0; i < kMostRecentFiles; ++i)
        if (const CString file = AfxGetProfileString(path, RecentName(i), nullptr); !file.IsEmpty())
            settings.recentFiles.push_back(file);
    return settings;
}

void Settings::Save() const {
    const CRegistryPath path = Path();
    AfxWriteProfileDWord(path, kSourceLimit, sourceLimit);
    AfxWriteProfileDWord(path, kChecksOnOpen, static_cast<DWORD>(checksOnOpen));
    AfxWriteProfileDWord(path, kLanguage, language);
    for (std::size_t i = 0; i < kMostRecentFiles; ++i)
        AfxWriteProfileString(path, RecentName(i),
                              i < recentFiles.size() ? recentFiles[i].GetString() : nullptr);
}

void Settings::AddRecentFile(const CString& file) {
    std::erase_if(recentFiles,
                  [&file](const CString& each) { return each.CompareNoCase(file) == 0; });
    recentFiles.insert(recentFiles.begin(), file);
    if (recentFiles.size() > kMostRecentFiles)
        recentFiles.pop_back();
}
