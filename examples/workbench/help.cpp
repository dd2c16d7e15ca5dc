#include "help.h"

#include "resource.h"
#include "settings.h"
#include "texts.h"

#include <quorvel/controls/win/hyperlink_ctrl.h>
#include <quorvel/controls/win/vask_dialog.h>
#include <quorvel/framework/app.h>
#include <quorvel/framework/date_time.h>
#include <quorvel/framework/file.h>
#include <quorvel/net/mail.h>
#include <quorvel/system/application_data_folders.h>
#include <quorvel/system/open_file.h>
#include <quorvel/update/check_for_updates_profile.h>
#include <quorvel/update/https_update_transport.h>
#include <quorvel/update/win/check_for_updates_dlg.h>
#include <quorvel/update/win/update_dlg.h>
#include <quorvel/util/text/utf8.h>

#include <shlobj.h>

namespace {

const WCHAR kWebPage[] = _T("http://www.example.com/workbench/");
const WCHAR kListing[] = _T("http://www.example.com/workbench/updates.xml");
const WCHAR kVersionFile[] = _T("http://www.example.com/workbench/version.txt");
const WCHAR kMailAddress[] = _T("workbench@example.com");
const WCHAR kVersion[] = _T("1.0.0.0");

CString DataFile(const WCHAR* name) {
    CString folder;
    CApplicationDataFolders(_T("Quorvel"), _T("Workbench"), nullptr)
        .GetUserLocalProductNameFolder(folder, TRUE);
    ::SHCreateDirectoryExW(nullptr, folder, nullptr);
    return folder + name;
}

// The key of an address that a check asks at, which a new user does not have yet.
CRegistryPath PathWithAddress(const CRegistryPath& path, const WCHAR* address) {
    if (AfxGetProfileCheckForUpdatesURL(path).IsEmpty())
        AfxWriteProfileCheckForUpdatesURL(path, address);
    return path;
}

// A check as the command line says.
template <class Dialog>
void Run(Dialog& dialog) {
    CHttpsUpdateTransport transport;
    if (UpdateOptionsInForce().usesHttps)
        dialog.SetTransport(&transport);
    dialog.SetStrict(TRUE);
    for (const CString& key : UpdateOptionsInForce().publicKeys)
        if (!dialog.AddPublicKey(key))
            return static_cast<void>(AfxMessageBox(TextOf(TEXT_NO_KEY), MB_ICONERROR));
    dialog.DoModal();
}

class AboutDialog : public CVaskDialog {
public:
    explicit AboutDialog(CWnd& owner) : CVaskDialog(DIALOG_ABOUT, &owner) {}

protected:
    void DoDataExchange(CDataExchange* exchange) override {
        CVaskDialog::DoDataExchange(exchange);
        DDX_Control(exchange, CONTROL_LINK, m_link);
    }
    BOOL LoadData() override {
        SetDlgItemText(CONTROL_VERSION, TextOf(TEXT_ABOUT, kVersion));
        m_link.SetDisplayText(kWebPage);
        m_link.SetURI(kWebPage);
        m_link.SetFlags(CHyperlinkCtrl::HAS_URI | CHyperlinkCtrl::CAN_OPEN_URI |
                        CHyperlinkCtrl::CAN_COPY_URI);
        return TRUE;
    }
    void GetBoldControlIDs(std::vector<int>& ids) override { ids.push_back(CONTROL_VERSION); }

private:
    CHyperlinkCtrl m_link;
};

} // namespace

UpdateOptions& UpdateOptionsInForce() {
    static UpdateOptions s_options;
    return s_options;
}

void CheckForUpdates(CWnd& owner) {
    CCheckForUpdatesDlg dialog(PathWithAddress(Settings::Path(), kListing),
                               DataFile(_T("updates.xml")), FALSE, nullptr, &owner);
    Run(dialog);
}

void CheckForNewVersion(CWnd& owner) {
    CUpdateDlg dialog(
        0, PathWithAddress(CRegistryPath(Settings::Path(), _T("New version")), kVersionFile),
        kVersion, &owner);
    Run(dialog);
}

void OpenWebPage(CWnd&) {
    AfxOpenFile(kWebPage, nullptr, nullptr, TRUE);
}

void SendReport(CWnd&) {
    const CString log = DataFile(_T("workbench.log"));
    AfxSendMessage(kMailAddress, kMailAddress, TextOf(TEXT_REPORT_SUBJECT, kVersion),
                   TextOf(TEXT_REPORT_BODY), log, nullptr);
}

void ShowAbout(CWnd& owner) {
    AboutDialog(owner).DoModal();
}

void Log(const CString& text) {
    constexpr ULONGLONG kMostBytes = 1 << 20;
    CFile file;
    if (!file.Open(DataFile(_T("workbench.log")), CFile::modeCreate | CFile::modeNoTruncate |
                                                      CFile::modeWrite | CFile::shareDenyWrite))
        return;
    CStringA line;
    AfxWideCharToUTF8(
        COleDateTime::GetCurrentTime().Format(_T("%Y-%m-%d %H:%M:%S ")) + text + _T("\r\n"), line);
    try {
        if (file.SeekToEnd() > kMostBytes)
            file.SetLength(0);
        file.Write(line.GetString(), static_cast<UINT>(line.GetLength()));
    } catch (CFileException* exception) {
        exception->Delete();
    }
}
