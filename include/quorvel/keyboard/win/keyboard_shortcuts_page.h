// CKeyboardShortcutsPage: the page of a property sheet on which users edit the keys of a scheme.
// Windows only, user-interface thread.
//
// The template is the host's, so that its texts are in the host's language; the constructor names
// its controls. The list shows the scheme, the field filters it by command or key. Assign, and a
// double click, open CAssignShortcutDlg for the selected command; Clear, and the Delete key, take
// the keys of the selected commands away; Reset gives one its default key back, Reset all all of
// them. OK and Apply put the edited scheme in the place of the host's.
#pragma once

#include <quorvel/controls/win/vask_property_page.h>
#include <quorvel/framework/win/edit.h>
#include <quorvel/keyboard/win/keyboard_shortcut_list_ctrl.h>

class QUORVEL_API CKeyboardShortcutsPage : public CVaskPropertyPage {
    DECLARE_DYNAMIC(CKeyboardShortcutsPage)
public:
    // Ids in the template. The list is one of CKeyboardShortcutListCtrl, with LVS_OWNERDATA. The
    // template must have the list and the field; a button that it does not have is 0.
    struct Controls {
        // Ids of controls in the template.
        int list;
        int filter;
        int assign;
        int clear;
        int reset;
        int resetAll;
    };

    // The scheme must outlive the page.
    CKeyboardShortcutsPage(UINT templateId, const Controls& controls,
                           CKeyboardMappingScheme& scheme);

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    BOOL LoadData() override;
    BOOL SaveData() override;
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;

private:
    void Filter();
    void Assign();

    const Controls m_controls;
    CKeyboardMappingScheme& m_scheme;
    CKeyboardShortcutListCtrl m_list;
    CEdit m_filter;
};
