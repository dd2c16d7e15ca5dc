// updater: checks a web server for an update listing and shows it. See kUsage.
#include "common/program.h"
#include "console_view.h"

#include <quorvel/framework/app.h>
#include <quorvel/framework/file.h>
#include <quorvel/net/vask_socket.h>
#include <quorvel/system/application_data_folders.h>
#include <quorvel/update/check_for_updates.h>
#include <quorvel/update/check_for_updates_profile.h>
#include <quorvel/update/https_update_transport.h>

#include <csignal>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

using namespace quorvel::win32;
namespace fs = std::filesystem;

namespace {

constexpr char kUsage[] =
    R"(usage: updater [--site URL] --settings KEY [--file FILE] [--https]
               [--key FILE]... [--max-age DAYS] [--auto | --reset] [--yes]

Shows the update listing that was downloaded last, checks the site for a newer one, and
downloads it.

  --site URL      the address of the listing, kept in the settings; it is asked for over
                  HTTP at port 80, whatever scheme and port the address has
  --settings KEY  where the settings are, below HKEY_CURRENT_USER: Software\Company\Program
  --file FILE     the local updates file; without it one in the user's data folder
  --https         asks as the address says, with its scheme and port, and follows redirections
  --key FILE      accepts only a listing that is signed by this public key of minisign, or by
                  another one that is given in the same way
  --max-age DAYS  with a key: reports a listing that is older
  --auto          checks only when the reminder of the settings is due
  --reset         forgets the listing and its date instead, after asking
  --yes           downloads or resets without asking

Interrupting the program (Ctrl+C) cancels the check; a second time ends it wherever it waits.

exit code: 0 up to date, 1 the check failed or was refused, 2 wrong usage, 3 not downloaded
           or not reset
)";

enum ExitCode { kExitDone = 0, kExitFailed = 1, kExitUsage = 2, kExitDeclined = 3 };

volatile std::sig_atomic_t g_isInterrupted = 0;

// The first one waits for a question to be answered; nothing holds the next one back. Windows
// resets the handler by itself.
extern "C" void OnInterrupt(int signal) {
    g_isInterrupted = 1;
    std::signal(signal, SIG_DFL);
}

struct Options {
    CString site;
    CString settings;
    CString file;
    std::vector<CString> keys; // names of files
    int maxAge = 0;
    bool usesHttps = false;
    bool isAuto = false;
    bool resets = false;
    bool alwaysYes = false;
};

int ReadDays(const CString& text) {
    if (text.IsEmpty() || text.GetLength() > 5 || text.SpanIncluding(_T("0123456789")) != text)
        throw Failure{kExitUsage, _T("no number of days: ") + text};
    int days = 0;
    for (int i = 0; i < text.GetLength(); ++i)
        days = days * 10 + (text[i] - '0');
    return days;
}

Options ReadOptions(const std::vector<CString>& arguments) {
    Options options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const bool hasValue = i + 1 < arguments.size();
        if (arguments[i] == _T("--site") && hasValue)
            options.site = arguments[++i];
        else if (arguments[i] == _T("--settings") && hasValue)
            options.settings = arguments[++i];
        else if (arguments[i] == _T("--file") && hasValue)
            options.file = arguments[++i];
        else if (arguments[i] == _T("--key") && hasValue)
            options.keys.push_back(arguments[++i]);
        else if (arguments[i] == _T("--max-age") && hasValue)
            options.maxAge = ReadDays(arguments[++i]);
        else if (arguments[i] == _T("--https"))
            options.usesHttps = true;
        else if (arguments[i] == _T("--auto"))
            options.isAuto = true;
        else if (arguments[i] == _T("--reset"))
            options.resets = true;
        else if (arguments[i] == _T("--yes"))
            options.alwaysYes = true;
        else
            throw Failure{kExitUsage, _T("not understood: ") + arguments[i]};
    }
    if (options.settings.IsEmpty())
        throw Failure{kExitUsage, _T("--settings is needed (updater --help)")};
    return options;
}

CString DefaultFile() {
    CString folder;
    CApplicationDataFolders(_T("Quorvel"), _T("updater"), _T(""))
        .GetUserLocalProductNameFolder(folder, TRUE);
    std::error_code error;
    fs::create_directories(fs::path(std::basic_string<WCHAR>(folder.GetString())), error);
    if (folder.IsEmpty() || error)
        throw Failure{kExitFailed, _T("the data folder can't be made: ") + folder};
    return folder + _T("updates.xml");
}

void AddKeys(CCheckForUpdates& check, const std::vector<CString>& fileNames) {
    for (const CString& each : fileNames) {
        char bytes[1024]; // a key is shorter
        CFile file(each, CFile::modeRead | CFile::shareDenyWrite);
        const UINT count = file.Read(bytes, sizeof bytes);
        const CStringA text(bytes, static_cast<int>(count));
        if (!check.AddPublicKey(CString(text.GetString())))
            throw Failure{kExitFailed, _T("no public key: ") + each};
    }
}

// Until the check has ended. The check's own timer sees to it that an interruption is noticed.
void DispatchMessages(CCheckForUpdates& check) {
    MSG message;
    while (check.IsActive() && GetMessageW(&message, nullptr, 0, 0) > 0) {
        DispatchMessageW(&message);
        if (g_isInterrupted)
            check.Cancel();
    }
}

int Update(const Options& options) {
    const CRegistryPath path(HKEY_CURRENT_USER, options.settings);
    if (!options.site.IsEmpty() && !AfxWriteProfileCheckForUpdatesURL(path, options.site))
        throw Failure{kExitFailed, _T("the settings can't be written: ") + options.settings};
    ConsoleView view(options.alwaysYes);
    CHttpsUpdateTransport transport;
    CCheckForUpdates check(path, options.file.IsEmpty() ? DefaultFile() : options.file, view);
    if (options.usesHttps)
        check.SetTransport(&transport);
    check.SetStrict(TRUE);
    AddKeys(check, options.keys);
    check.SetMaxAge(options.maxAge);
    check.Open();
    if (options.resets) {
        check.Reset();
        return view.HasAgreed() ? kExitDone : kExitDeclined;
    }
    if (options.isAuto && !AfxIsCheckForUpdatesReminderDue(path))
        return kExitDone;
    const CUpdateListing former = check.GetListing();
    if (!check.Check())
        return kExitFailed;
    DispatchMessages(check);
    switch (view.GetResult()) {
    case ConsoleView::resultUpdated:
        PrintNews(former, check.GetListing());
        return kExitDone;
    case ConsoleView::resultUpToDate:
        return kExitDone;
    case ConsoleView::resultFailed:
        return kExitFailed;
    case ConsoleView::resultCancelled:
        Print(stdout, _T("The check was cancelled."));
        return kExitDeclined;
    default:
        return kExitDeclined;
    }
}

int Run(const std::vector<CString>& arguments) {
    if (arguments.size() == 1 && arguments[0] == _T("--help")) {
        std::fputs(kUsage, stdout);
        return kExitDone;
    }
    const Options options = ReadOptions(arguments);
    if (!CVaskSocket::Initialize())
        return kExitFailed; // the box has said why
    struct Deinitializer {
        ~Deinitializer() { CVaskSocket::Deinitialize(); }
    } const deinitializer;
    return Update(options);
}

} // namespace

int main(int argc, char** argv) {
    std::signal(SIGINT, OnInterrupt);
    CWinApp app(_T("updater"));
    return RunProgram(_T("updater"), kExitFailed,
                      [&] { return Run(ProgramArguments(argc, argv)); });
}
