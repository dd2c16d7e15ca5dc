// mail: hands a message over to the user's mail program. See kUsage.
#include "common/program.h"

#include <quorvel/framework/app.h>
#include <quorvel/framework/filesystem_path.h>
#include <quorvel/net/mail.h>

#include <filesystem>

namespace {

constexpr char kUsage[] =
    R"(usage: mail --to ADDRESS --subject TEXT --body TEXT [OPTION...]

Opens a message in your mail program, where you edit and send it.

  --to ADDRESS     the recipient's address
  --name NAME      the recipient's name (the address)
  --subject TEXT
  --body TEXT
  --attach FILE    attach a file
  --as NAME        the attachment's name (that of the file)

exit code: 0 handed over, or closed without sending; 1 failed, 2 wrong usage
)";

enum ExitCode { kExitDone = 0, kExitFailed = 1, kExitUsage = 2 };

[[noreturn]] void FailUsage(const CString& reason) {
    throw Failure{kExitUsage, reason + _T(" (mail --help)")};
}

// The library reports in message boxes; here that is a line on the standard error.
class Application : public CWinApp {
public:
    Application() : CWinApp(_T("mail")) {}
    int DoMessageBox(const WCHAR* prompt, UINT, UINT) override {
        m_message = prompt;
        return IDOK;
    }
    const CString& Message() const { return m_message; }

private:
    CString m_message;
};

struct Option {
    const WCHAR* name;
    bool isNeeded;
    CString value;
};

void ReadOptions(const std::vector<CString>& arguments, std::vector<Option>& options) {
    for (std::size_t i = 0; i < arguments.size(); i += 2) {
        Option* found = nullptr;
        for (Option& option : options)
            if (arguments[i] == option.name)
                found = &option;
        if (found == nullptr)
            FailUsage(_T("unknown option: ") + arguments[i]);
        if (i + 1 == arguments.size())
            FailUsage(_T("a value is missing: ") + arguments[i]);
        found->value = arguments[i + 1];
    }
    for (const Option& option : options)
        if (option.isNeeded && option.value.IsEmpty())
            FailUsage(CString(_T("needed, and not empty: ")) + option.name);
}

const WCHAR* NullIfEmpty(const CString& text) {
    return text.IsEmpty() ? nullptr : text.GetString();
}

int Run(const Application& application, const std::vector<CString>& arguments) {
    if (arguments.size() == 1 && arguments[0] == _T("--help")) {
        std::fputs(kUsage, stdout);
        return kExitDone;
    }
    std::vector<Option> options = {{_T("--to"), true, {}},      {_T("--subject"), true, {}},
                                   {_T("--body"), true, {}},    {_T("--name"), false, {}},
                                   {_T("--attach"), false, {}}, {_T("--as"), false, {}}};
    ReadOptions(arguments, options);
    const CString& to = options[0].value;
    const CString& name = options[3].value.IsEmpty() ? to : options[3].value;
    CString attachment = options[4].value;
    if (!attachment.IsEmpty()) {
        const std::filesystem::path path = AfxStringToPath(attachment);
        if (!std::filesystem::is_regular_file(
                path)) // the library would send the message without it
            throw Failure{kExitFailed, attachment + _T(": there is no such file")};
        attachment =
            AfxPathToString(std::filesystem::absolute(path)); // the mail program may run elsewhere
    }
    if (!AfxSendMessage2(name, to, options[1].value, options[2].value, NullIfEmpty(attachment),
                         NullIfEmpty(options[5].value)))
        throw Failure{kExitFailed, application.Message()};
    return kExitDone;
}

} // namespace

int main(int argc, char** argv) {
    const Application application;
    return RunProgram(_T("mail"), kExitFailed,
                      [&] { return Run(application, ProgramArguments(argc, argv)); });
}
