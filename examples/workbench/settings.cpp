#include "settings.h"

#include "resource.h"
#include "settings/registry.h"

#include <quorvel/framework/app.h>
#include <quorvel/framework/file.h>
#include <quorvel/keyboard/win/menu_shortcuts.h>
#include <quorvel/system/profile.h>

#include <algorithm>

namespace {

const WCHAR kSourceLimit[] = _T("Source limit");
const WCHAR kChecksOnOpen[] = _T("Check on open");
const WCHAR kLanguage[] = _T("Language");

const ACCEL kDefaultKeys[] = {
    {FVIRTKEY | FCONTROL, 'O', COMMAND_OPEN},
    {FVIRTKEY | FCONTROL, 'S', COMMAND_SAVE},
    {FVIRTKEY | FALT, VK_F4, IDCANCEL},
    {FVIRTKEY | FCONTROL, 'F', COMMAND_FIND},
    {FVIRTKEY, VK_F3, COMMAND_FIND_NEXT},
    {FVIRTKEY | FCONTROL, 'L', COMMAND_FILTER},
    {FVIRTKEY | FCONTROL | FSHIFT, 'L', COMMAND_SHOW_ALL},
    {FVIRTKEY, VK_F7, COMMAND_CHECK},
    {FVIRTKEY | FCONTROL, VK_RETURN, COMMAND_APPLY},
};

void LoadDefaultShortcuts(CKeyboardMappingScheme& scheme) {
    CMenu menu;
    menu.LoadMenu(MENU_MAIN);
    AfxAddMenuCommands(menu, scheme);
    scheme.RemoveKeyboardShortcutUsingCommandID(COMMAND_RECENT); // a list of files, not a command
    for (const ACCEL& key : kDefaultKeys)
        scheme.SetShortcutKey(key.cmd, CKeyboardShortcut(key, FALSE).GetShortcutKey());
}

} // namespace

CRegistryPath Settings::Path() {
    const CWinApp& app = *AfxGetApp();
    return CRegistryPath(HKEY_CURRENT_USER, CString(_T("Software\\")) + app.m_pszRegistryKey +
                                                _T("\\") + app.m_pszProfileName);
}

Settings Settings::Load() {
    const CRegistryPath path = Path();
    Settings settings;
    settings.sourceLimit =
        std::clamp(UINT{AfxGetProfileDWord(path, kSourceLimit, settings.sourceLimit)},
                   kLeastSourceLimit, kMostSourceLimit);
    settings.checksOnOpen = AfxGetProfileDWord(path, kChecksOnOpen, FALSE) != 0;
    settings.language = static_cast<LANGID>(AfxGetProfileDWord(path, kLanguage, 0));
    settings.recentFiles.LoadState(path);
    settings.shortcuts.SetLoadDefaultMappingSchemeFunction(LoadDefaultShortcuts);
    settings.shortcuts.LoadDefaultMappingScheme();
    settings.shortcuts.LoadState(path);
    return settings;
}

void Settings::Save() const {
    const CRegistryPath path = Path();
    AfxWriteProfileDWord(path, kSourceLimit, sourceLimit);
    AfxWriteProfileDWord(path, kChecksOnOpen, static_cast<DWORD>(checksOnOpen));
    AfxWriteProfileDWord(path, kLanguage, language);
    recentFiles.SaveState(path);
    shortcuts.SaveState(path);
}

BOOL Settings::Export(const CString& file, CString& error) {
    try {
        std::vector<RegKey> keys;
        ReadTree(Path(), keys);
        const std::string bytes = EncodeRegFile(FormatRegText(keys));
        CFile(file, CFile::modeCreate | CFile::modeWrite)
            .Write(bytes.data(), static_cast<UINT>(bytes.size()));
        return TRUE;
    } catch (const Failure& failure) {
        error = failure.text;
    } catch (CFileException* exception) {
        exception->GetErrorMessage(error.GetBuffer(MAX_PATH), MAX_PATH);
        error.ReleaseBuffer();
        exception->Delete();
    }
    return FALSE;
}
