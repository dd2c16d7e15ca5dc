// pack: compresses and decompresses files. See kUsage.
#include "common/program.h"

#include <quorvel/frame/exception_text.h>
#include <quorvel/framework/app.h>
#include <quorvel/framework/file.h>
#include <quorvel/util/compression/compression.h>
#include <quorvel/util/compression/zip_file.h>

#include <filesystem>
#include <string>
#include <system_error>

namespace fs = std::filesystem;

namespace {

constexpr char kUsage[] =
    R"(usage: pack [--progress] [--level N] COMMAND SOURCE TARGET

  deflate SOURCE TARGET   compress a file into a zlib stream
  inflate SOURCE TARGET   decompress a zlib stream
  zip SOURCE TARGET       make a zip archive that holds the file

  --level N    from 0 (fast) to 9 (small)
  --progress   show how far deflate and inflate are: in a window on Windows,
               on the terminal elsewhere

TARGET is written when all has gone well, and replaces a file of that name.

exit code: 0 done, 1 failed, 2 wrong usage
)";

enum ExitCode { kExitDone = 0, kExitFailed = 1, kExitUsage = 2 };

[[noreturn]] void FailUsage(const CString& reason) {
    throw Failure{kExitUsage, reason + _T(" (pack --help)")};
}

[[noreturn]] void FailOn(const CString& fileName, const CString& reason) {
    throw Failure{kExitFailed, fileName + _T(": ") + reason};
}

// The library reports in message boxes; here they are lines on the standard error.
class Application : public CWinApp {
public:
    Application() : CWinApp(_T("pack")) {}
    int DoMessageBox(const WCHAR* prompt, UINT, UINT) override {
        m_message = prompt;
        m_message.Replace(_T("\r\n\r\n"), _T(" "));
        return IDOK;
    }
    // The text of the last box; empty before the first.
    const CString& Message() const { return m_message; }

private:
    CString m_message;
};

struct Job {
    const Application& application;
    CString source;
    CString target;
    int level;
    bool showProgress;
};

void Open(CFile& file, const CString& name, UINT flags) {
    CFileException error;
    if (file.Open(name, flags, &error))
        return;
    CString reason;
    AfxGetExceptionText(&error, reason);
    FailOn(name, reason);
}

template <class Convert>
void ConvertFile(const Job& job, const CString& into, Convert convert) {
    CFile source;
    CFile target;
    Open(source, job.source, CFile::modeRead | CFile::shareDenyWrite);
    Open(target, into, CFile::modeCreate | CFile::modeWrite);
    if (!convert(source, target))
        FailOn(job.source, job.application.Message().IsEmpty() ? CString(_T("The file is empty."))
                                                               : job.application.Message());
    target.Close();
}

void Deflate(const Job& job, const CString& into) {
    ConvertFile(job, into, [&](CFile& source, CFile& target) {
        DWORD bytesRead, bytesWritten;
        return AfxDeflate(source, bytesRead, target, bytesWritten, job.level, job.showProgress,
                          _T("pack"), _T(""));
    });
}

void Inflate(const Job& job, const CString& into) {
    ConvertFile(job, into, [&](CFile& source, CFile& target) {
        DWORD bytesRead, bytesWritten;
        return AfxInflate(source, bytesRead, target, bytesWritten, job.showProgress, _T("pack"),
                          _T(""));
    });
}

void Zip(const Job& job, const CString& into) {
    CString error;
    if (!AfxCompressFileToZipFile(job.source, into, job.level, error))
        FailOn(job.source, error);
}

struct Command {
    const WCHAR* name;
    void (*run)(const Job&, const CString& into);
};
constexpr Command kCommands[] = {
    {_T("deflate"), Deflate}, {_T("inflate"), Inflate}, {_T("zip"), Zip}};

fs::path PathOf(const CString& name) {
    return fs::path(std::basic_string<WCHAR>(name));
}

// A free name in the target's folder. The file is removed at the end unless it has become the
// target.
class PartFile {
public:
    explicit PartFile(const CString& target) : m_target(target) {
        int number = 0;
        do
            m_name.Format(_T("%s.part%d"), target.GetString(), ++number);
        while (fs::exists(PathOf(m_name)));
    }
    PartFile(const PartFile&) = delete;
    ~PartFile() {
        std::error_code ignored;
        fs::remove(PathOf(m_name), ignored);
    }
    const CString& Name() const { return m_name; }
    void BecomeTarget() const {
        std::error_code error;
        fs::rename(PathOf(m_name), PathOf(m_target), error);
        if (error)
            FailOn(m_target, _T("cannot be replaced"));
    }

private:
    const CString m_target;
    CString m_name;
};

void Run(const Command& command, const Job& job) {
    const PartFile part(job.target);
    command.run(job, part.Name());
    const auto before = fs::file_size(PathOf(job.source));
    const auto after = fs::file_size(PathOf(part.Name()));
    part.BecomeTarget();
    CString line;
    line.Format(_T("%s: %I64u bytes, %s: %I64u bytes"), job.source.GetString(),
                static_cast<ULONGLONG>(before), job.target.GetString(),
                static_cast<ULONGLONG>(after));
    Print(stdout, line);
}

int ParseLevel(const CString& text) {
    if (text.GetLength() != 1 || text[0] < '0' || text[0] > '9')
        FailUsage(_T("not a level from 0 to 9: ") + text);
    return text[0] - '0';
}

void RunCommandLine(const Application& application, const std::vector<CString>& arguments) {
    Job job{application, {}, {}, -1, false};
    std::vector<CString> words;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (arguments[i] == _T("--progress"))
            job.showProgress = true;
        else if (arguments[i] == _T("--level"))
            job.level = ParseLevel(++i < arguments.size() ? arguments[i] : CString());
        else
            words.push_back(arguments[i]);
    }
    if (words.size() == 1 && words[0] == _T("--help")) {
        std::fputs(kUsage, stdout);
        return;
    }
    if (words.size() != 3)
        FailUsage(_T("a command, a source and a target are needed"));
    job.source = words[1];
    job.target = words[2];
    for (const Command& command : kCommands)
        if (words[0] == command.name)
            return Run(command, job);
    FailUsage(_T("unknown command: ") + words[0]);
}

} // namespace

int main(int argc, char** argv) {
    const Application application;
    return RunProgram(_T("pack"), kExitFailed, [&] {
        RunCommandLine(application, ProgramArguments(argc, argv));
        return kExitDone;
    });
}
