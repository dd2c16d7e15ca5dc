// CPropertySheet: a dialog of several pages with tabs, or a wizard. Windows only. Use an object on
// one thread.
//
// DoModal runs a message loop as CDialog's does (dialog.h), with the keys of a sheet, such as
// Ctrl+Tab; idle time is for the visible page. It returns the id of the button that closed the
// sheet, IDOK, IDCANCEL or ID_WIZFINISH, or the argument of EndDialog. It returns -1 when the sheet
// has no pages, when a page has no template, and when its owner is destroyed. A second DoModal
// returns -1 at once with ERROR_ALREADY_EXISTS.
#pragma once

#include <quorvel/framework/win/property_page.h>

#include <vector>

// The ids of a wizard's buttons.
inline constexpr int ID_WIZBACK = 0x3023;
inline constexpr int ID_WIZNEXT = 0x3024;
inline constexpr int ID_WIZFINISH = 0x3025;

class QUORVEL_API CPropertySheet : public CWnd {
    DECLARE_DYNAMIC(CPropertySheet)
public:
    CPropertySheet();
    // The owner of the sheet is the parent or the top-level window that contains it; for null it is
    // the thread's active window. A caption id is that of a catalogue text.
    explicit CPropertySheet(const WCHAR* caption, CWnd* parent = nullptr, UINT selectPage = 0);
    explicit CPropertySheet(UINT captionId, CWnd* parent = nullptr, UINT selectPage = 0);
    ~CPropertySheet() override;

    // Shows the sheet until it ends; the results are at the top of this file.
    virtual INT_PTR DoModal();
    // Creates a modeless sheet. Call DestroyWindow when IsClosed returns TRUE, or earlier.
    BOOL Create(CWnd* parent = nullptr);
    // TRUE after OK or Cancel was pressed and no page refused.
    BOOL IsClosed() const;
    void EndDialog(int result); // ends DoModal with this result; hides a modeless sheet

    // Pages are not owned. Null, and a position that does not exist, are ignored.
    void AddPage(CPropertyPage* page);
    void RemovePage(CPropertyPage* page);
    void RemovePage(int position);
    int GetPageCount() const { return static_cast<int>(m_pages.size()); }
    CPropertyPage* GetPage(int position) const;        // null for a position that does not exist
    int GetPageIndex(const CPropertyPage* page) const; // -1 if not in this sheet
    int GetActiveIndex() const; // the start page before the sheet is shown; -1: no page
    CPropertyPage* GetActivePage() const { return GetPage(GetActiveIndex()); }
    BOOL SetActivePage(int position);
    BOOL SetActivePage(CPropertyPage* page) { return SetActivePage(GetPageIndex(page)); }

    void SetTitle(const WCHAR* text, UINT style = 0);     // style: PSH_PROPTITLE
    void SetWizardMode() { m_psh.dwFlags |= PSH_WIZARD; } // before it is shown
    // TRUE for any of the wizard styles.
    BOOL IsWizard() const {
        return (m_psh.dwFlags & (PSH_WIZARD | PSH_WIZARD97 | PSH_WIZARD_LITE)) != 0;
    }
    // Call the following while the sheet is shown. SetWizardButtons is allowed in OnSetActive.
    void SetWizardButtons(DWORD flags);
    void SetFinishText(const WCHAR* text) {
        SendMessage(PSM_SETFINISHTEXT, 0, reinterpret_cast<LPARAM>(text));
    }
    BOOL PressButton(int button) { // PSBTN_OK and so on
        return PostMessage(PSM_PRESSBUTTON, static_cast<WPARAM>(button));
    }

    // Flags, bitmaps and the start page. Changes take effect only before the sheet is shown.
    PROPSHEETHEADERW m_psh;

    BOOL PreTranslateMessage(MSG* message) override;
    BOOL ContinueModal() override;

protected:
    // Called when the sheet and its first page exist, before they are shown.
    virtual BOOL OnInitDialog();

    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
    void OnSysCommand(UINT id, LPARAM lParam);
    LRESULT OnKickIdle(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

    CWnd* m_pParentWnd; // not owned

private:
    LRESULT HandleInitDialog(WPARAM wParam, LPARAM lParam);
    LRESULT OnPressButton(WPARAM wParam, LPARAM lParam);
    BOOL CreateSheet(HWND owner);
    HPROPSHEETPAGE MakePage(CPropertyPage& page) const; // null without a template

    CString m_caption;
    std::vector<CPropertyPage*> m_pages;
    bool m_initialized = false; // OnInitDialog has run
    int m_pressed = IDCANCEL;   // the last pressed button that can close the sheet
};
