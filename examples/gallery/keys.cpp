// The list of keyboard shortcuts and its dialogs.
#include <quorvel/keyboard/win/assign_shortcut_dlg.h>
#include <quorvel/keyboard/win/capture_shortcut_key_dlg.h>
#include <quorvel/keyboard/win/keyboard_shortcut_list_ctrl.h>

#include "gallery.h"
#include "take_box.h"

namespace {

constexpr unsigned int kNewWindow = 103;

CKeyboardMappingScheme Scheme() {
    constexpr unsigned char kCtrl = CShortcutKey::MODIFIER_CONTROL;
    constexpr unsigned char kShift = CShortcutKey::MODIFIER_SHIFT;
    CKeyboardMappingScheme scheme(Own(_T("Shortcuts"), _T("Tastenkombinationen")), nullptr);
    const CKeyboardShortcut shortcuts[] = {
        {100, Own(_T("Open"), _T("Öffnen")), {'O', kCtrl}},
        {101, Own(_T("Save"), _T("Speichern")), {'S', kCtrl}},
        {102, Own(_T("Save All"), _T("Alles speichern")), {'S', kCtrl | kShift}},
        {kNewWindow, Own(_T("New Window"), _T("Neues Fenster")), {}},
        {104, Own(_T("Refresh"), _T("Aktualisieren")), {VK_F5, 0}},
        {105, Own(_T("Delete"), _T("Löschen")), {VK_DELETE, CShortcutKey::MODIFIER_EXTENDED}},
        {106, Own(_T("Print"), _T("Drucken")), {'P', kCtrl}},
        {107, Own(_T("Full Screen"), _T("Vollbild")), {VK_F11, 0}},
    };
    for (const CKeyboardShortcut& shortcut : shortcuts)
        scheme.AddKeyboardShortcut(shortcut);
    return scheme;
}

class ShortcutWindow : public CWnd {
public:
    ShortcutWindow() {
        const int resolution = ResolutionOfScreen();
        CreateEx(WS_EX_DLGMODALFRAME, _T("Static"), m_scheme.GetName(),
                 WS_OVERLAPPEDWINDOW | WS_VISIBLE, 40, 40, 360 * resolution / 96,
                 230 * resolution / 96, nullptr, nullptr);
        CRect client;
        GetClientRect(client);
        m_list.Create(WS_CHILD | WS_VISIBLE | LVS_SHOWSELALWAYS, client, this, 1);
        m_list.SetExtendedStyle(LVS_EX_FULLROWSELECT, LVS_EX_FULLROWSELECT);
        m_list.AddKeyboardMappingScheme(&m_scheme);
        m_list.LoadKeyboardMappingScheme(0);
        m_list.SetFocus();
    }

    const CKeyboardMappingScheme m_scheme = Scheme();
    CKeyboardShortcutListCtrl m_list;
};

bool TakeSorted(const char* path) {
    ShortcutWindow window;
    window.m_list.SortItemsByColumn(CKeyboardShortcutListCtrl::COLUMN_SHORTCUT_KEY);
    return SavePicture(window.m_hWnd, path);
}

bool TakeFiltered(const char* path) {
    ShortcutWindow window;
    window.m_list.Filter(_T("save"));
    return SavePicture(window.m_hWnd, path);
}

// Ctrl+S was moved from Save to New Window.
bool TakeMoved(const char* path) {
    ShortcutWindow window;
    constexpr int kRow = 3;
    window.m_list.SetShortcutKey(kRow, {'S', CShortcutKey::MODIFIER_CONTROL});
    window.m_list.SelectItem(kRow);
    return SavePicture(window.m_hWnd, path);
}

// Takes a picture of a dialog after the steps, and closes it by its Cancel button.
bool TakeDialog(CDialog& dialog, std::vector<DialogDriver::Step> steps, const char* path) {
    bool isTaken = false;
    steps.push_back([](HWND) {}); // until what the last one caused has been drawn
    steps.push_back([&](HWND box) { isTaken = SavePicture(box, path); });
    steps.push_back(ClickOn(IDCANCEL));
    DialogDriver driver(std::move(steps));
    return dialog.DoModal() == IDCANCEL && isTaken;
}

bool TakeCapture(const char* path) {
    CCaptureShortcutKeyDlg dialog;
    return TakeDialog(dialog, {}, path);
}

bool TakeAssign(const char* path) {
    const CKeyboardMappingScheme scheme = Scheme();
    CAssignShortcutDlg dialog(scheme, kNewWindow);
    return TakeDialog(dialog, {PressWith(VK_CONTROL, 'S')}, path);
}

} // namespace

const std::vector<Picture> kKeyPictures = {
    {"shortcut_list_sorted", TakeSorted, true},
    {"shortcut_list_filtered", TakeFiltered},
    {"shortcut_list_moved_key", TakeMoved},
    {"shortcut_list_moved_key_german", InGerman<TakeMoved>},
    {"capture_shortcut_key", TakeCapture},
    {"capture_shortcut_key_german", InGerman<TakeCapture>, true},
    {"assign_shortcut", TakeAssign},
    {"assign_shortcut_german", InGerman<TakeAssign>, true},
};
