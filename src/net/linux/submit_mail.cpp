// Passes mail to the user's mail program with xdg-email.
#include "net/submit_mail.h"

#include <quorvel/framework/filesystem_path.h>

#include "net/linux/mailto.h"
#include "platform/linux/system/program.h"

namespace quorvel {

const bool kHasFrameworkMailMessages = false;

namespace {

namespace fs = std::filesystem;

constexpr int kToolMissing = 3; // xdg-email found no mail program

// The attachment's file under the name that the recipient sees: the file itself, or a copy in a
// private folder.
class Attachment {
public:
    explicit Attachment(const MapiFileDesc& file) {
        CString path(file.lpszPathName);
        path.Replace('\\', '/'); // a separator on Linux too
        std::error_code error;
        m_path = fs::absolute(AfxStringToPath(path), error);
        const std::string name = AttachmentNameOf(
            file.lpszFileName != nullptr ? file.lpszFileName : "", m_path.native());
        if (!error && name != m_path.filename().native())
            Copy(name, error);
        m_isReady = !error;
    }
    Attachment(const Attachment&) = delete;
    ~Attachment() {
        std::error_code ignored;
        if (!m_folder.empty())
            fs::remove_all(m_folder, ignored);
    }
    bool IsReady() const { return m_isReady; }
    const std::string& Path() const { return m_path.native(); }
    void Keep() { m_folder.clear(); }

private:
    void Copy(const std::string& name, std::error_code& error) {
        m_folder = NewPrivateFolder("quorvel-mail-");
        if (m_folder.empty()) {
            error = std::make_error_code(std::errc::io_error);
            return;
        }
        const fs::path copy = m_folder / name;
        fs::copy_file(m_path, copy, error);
        m_path = copy;
    }

    fs::path m_path;
    fs::path m_folder; // removed at the end unless Keep was called
    bool m_isReady = false;
};

MailResult ResultOf(const ProgramRun& run) {
    switch (run.end) {
    case ProgramRun::NotStarted:
        return MailResult::NotLoaded;
    case ProgramRun::Interrupted:
        return MailResult::Sent;
    case ProgramRun::Exited:
        if (run.exitCode == 0)
            return MailResult::Sent;
        return run.exitCode == kToolMissing ? MailResult::NotLoaded : MailResult::NotSent;
    default:
        return MailResult::NotSent;
    }
}

MailResult Run(const std::vector<std::string>& arguments) {
    return ResultOf(RunProgram(arguments, "", std::chrono::hours(24 * 365)));
}

MailResult Submit(MapiMessage& message) {
    if (message.nFileCount == 0)
        return Run({"xdg-email", "--utf8", MailtoOf(message)});
    Attachment attachment(*message.lpFiles);
    if (!attachment.IsReady())
        return MailResult::NotSent;
    const MailResult result =
        Run({"xdg-email", "--utf8", "--attach", attachment.Path(), MailtoOf(message)});
    if (result == MailResult::Sent)
        attachment.Keep();
    return result;
}

} // namespace

bool SubmitMail(const MailTexts& texts, bool logsOn, MailReport report) {
    MailMessage message(texts);
    const MailResult result = Submit(message.Get());
    if (result != MailResult::Sent)
        report(result, logsOn);
    return result == MailResult::Sent;
}

} // namespace quorvel
