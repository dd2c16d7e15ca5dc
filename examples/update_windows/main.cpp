// update_windows: shows an update dialog and works it as a user does. See kUsage.
#include <quorvel/framework/app.h>
#include <quorvel/framework/file.h>
#include <quorvel/framework/wnd.h>
#include <quorvel/net/vask_socket.h>
#include <quorvel/update/https_update_transport.h>
#include <quorvel/update/win/check_for_updates_dlg.h>
#include <quorvel/update/win/check_for_updates_reminder_dlg.h>
#include <quorvel/update/win/check_for_updates_settings_dlg.h>
#include <quorvel/update/win/update_dlg.h>

#include "common/program.h"
#include "user.h"
#include "window_text.h"

#include <cstdio>
#include <utility>

namespace {

constexpr char kUsage[] =
    R"(usage: update_windows KEY FILE [--https] [--key FILE] COMMAND

Shows an update dialog, works it by keys as a user does, and prints what is shown, as it is read
back from the windows: titles, texts, rows, boxes and balloons. In parentheses: what the user
does, and the names of icons. The settings are in KEY below HKEY_CURRENT_USER, the local updates
file is FILE.

  check [no|cancel]   a check; the question is answered with Yes, or No, or the download is
                      cancelled
  reset               resets the check, and answers Yes
  settings URL DAYS   types both and presses Enter, and Escape if they are refused
  remind              a reminder, which is dismissed
  version NUMBER      a check for a new version by a program of that version

With --https checks ask as the address says, with --key they accept only what is signed by that
public key of minisign. Exit code 2: wrong arguments.
)";
constexpr int kWrongUsage = 2;

struct Options {
    CRegistryPath path;
    CString file;
    bool usesHttps = false;
    CString keyFile;
    std::vector<CString> command;
};

Options ReadOptions(const std::vector<CString>& arguments) {
    Options options;
    for (std::size_t i = 2; i < arguments.size(); ++i) {
        if (options.command.empty() && arguments[i] == _T("--https"))
            options.usesHttps = true;
        else if (options.command.empty() && arguments[i] == _T("--key") && i + 1 < arguments.size())
            options.keyFile = arguments[++i];
        else
            options.command.push_back(arguments[i]);
    }
    if (options.command.empty())
        throw Failure{kWrongUsage, _T("a key, a file and a command are needed")};
    options.path = CRegistryPath(HKEY_CURRENT_USER, arguments[0]);
    options.file = arguments[1];
    return options;
}

CString ReadKey(const CString& fileName) {
    char bytes[1024]; // a key is shorter
    CFile file(fileName, CFile::modeRead | CFile::shareDenyWrite);
    const UINT count = file.Read(bytes, sizeof bytes);
    return CString(CStringA(bytes, static_cast<int>(count)).GetString());
}

// Shows a dialog that checks, as the options say.
template <class Dialog>
void ShowChecking(Dialog& dialog, const Options& options) {
    CHttpsUpdateTransport transport;
    if (options.usesHttps)
        dialog.SetTransport(&transport);
    if (!options.keyFile.IsEmpty())
        dialog.SetPublicKey(ReadKey(options.keyFile));
    dialog.DoModal();
    dialog.SetTransport(nullptr);
}

void ShowUpdates(const Options& options) {
    CCheckForUpdatesDlg dialog(options.path, options.file, FALSE, nullptr);
    ShowChecking(dialog, options);
}

bool Run(const Options& options) {
    const CString& name = options.command[0];
    const std::size_t count = options.command.size() - 1;
    const auto argument = [&](std::size_t i) { return options.command[i]; };
    const User::Step leave = Press(VK_ESCAPE, _T("Escape"));
    if (name == _T("check") && count <= 1) {
        const CString how = count == 1 ? argument(1) : CString();
        std::vector<User::Step> steps = {PressAlt('C'), PrintControls, leave};
        if (::GetFileAttributesW(options.file) == INVALID_FILE_ATTRIBUTES)
            steps.insert(steps.begin(), PrintControls);
        User user(std::move(steps), how == _T("no") ? IDNO : IDYES);
        user.m_cancelsDownload = how == _T("cancel");
        ShowUpdates(options);
    } else if (name == _T("reset") && count == 0) {
        const User user({PressAlt('R'), PrintControls, leave}, IDYES);
        ShowUpdates(options);
    } else if (name == _T("settings") && count == 2) {
        const auto tab = [](HWND) { PressKey(VK_TAB); };
        const User user({Type(argument(1)), tab, tab, Type(argument(2)), PrintControls,
                         Press(VK_RETURN, _T("Enter")), leave},
                        IDOK);
        if (CCheckForUpdatesSettingsDlg(options.path).DoModal() == IDOK)
            Print(stdout, _T("The settings are stored."));
    } else if (name == _T("remind") && count == 0) {
        const User user({PrintControls, PressAlt('D')}, IDOK);
        CCheckForUpdatesReminderDlg dialog(options.path);
        dialog.SetStatus(_T("You have not checked for updates for 14 days."));
        dialog.DoModal();
    } else if (name == _T("version") && count == 1) {
        DWORD major = 0, minor = 0, revision = 0, build = 0;
        if (!CVersionNumber::ParseVersionNumberString(argument(1), major, minor, revision, build))
            return false;
        const User user({}, IDOK);
        CUpdateDlg dialog(0, options.path, CVersionNumber(major, minor, revision, build));
        ShowChecking(dialog, options);
    } else {
        return false;
    }
    return true;
}

} // namespace

int main(int argc, char** argv) {
    UsePlainStreams();
    const std::vector<CString> arguments = ProgramArguments(argc, argv);
    return RunProgram(_T("update_windows"), 1, [&] {
        if (arguments.size() == 1 && arguments[0] == _T("--help")) {
            std::fputs(kUsage, stdout);
            return 0;
        }
        const Options options = ReadOptions(arguments);
        CWinApp app(_T("Notebook"));
        CVaskSocket::Initialize();
        const bool isDone = Run(options);
        CVaskSocket::Deinitialize();
        if (!isDone)
            throw Failure{kWrongUsage, _T("no such command: ") + options.command[0]};
        return 0;
    });
}
