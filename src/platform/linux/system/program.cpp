#include "platform/linux/system/program.h"

#include "platform/linux/system/system_error.h"

#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <system_error>
#include <thread>

namespace quorvel {

namespace {

using Clock = std::chrono::steady_clock;

constexpr auto kPause = std::chrono::milliseconds(5);
constexpr int kNoProgram = 127; // exit code of a child that failed to start it

// The settings for starting a program: default signals, and its folder.
class Start {
public:
    explicit Start(const std::string& folder) {
        posix_spawnattr_init(&m_attributes);
        posix_spawn_file_actions_init(&m_actions);
        sigset_t signals;
        sigemptyset(&signals);
        posix_spawnattr_setsigmask(&m_attributes, &signals);
        sigaddset(&signals, SIGCHLD);
        sigaddset(&signals, SIGPIPE);
        posix_spawnattr_setsigdefault(&m_attributes, &signals);
        posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
        if (!folder.empty())
            posix_spawn_file_actions_addchdir_np(&m_actions, folder.c_str());
    }
    Start(const Start&) = delete;
    ~Start() {
        posix_spawn_file_actions_destroy(&m_actions);
        posix_spawnattr_destroy(&m_attributes);
    }
    int Spawn(pid_t& process, char* const* arguments) const {
        return posix_spawnp(&process, arguments[0], &m_actions, &m_attributes, arguments, environ);
    }

private:
    posix_spawnattr_t m_attributes;
    posix_spawn_file_actions_t m_actions;
};

ProgramRun Ended(int status) {
    if (WIFSIGNALED(status))
        return {WTERMSIG(status) == SIGINT ? ProgramRun::Interrupted : ProgramRun::Killed, 0};
    const int code = WEXITSTATUS(status);
    if (code == 128 + SIGINT) // as a script reports it
        return {ProgramRun::Interrupted, 0};
    return {code == kNoProgram ? ProgramRun::NotStarted : ProgramRun::Exited, code};
}

// Collects the exit status later. Until then an ended process stays in the system's table.
void ForgetLater(pid_t process) {
    try {
        std::thread([process] {
            while (waitpid(process, nullptr, 0) < 0 && errno == EINTR) {
            }
        }).detach();
    } catch (const std::system_error&) { // no thread: it stays there until this process ends
    }
}

} // namespace

ProgramRun RunProgram(const std::vector<std::string>& arguments, const std::string& folder,
                      std::chrono::milliseconds patience) {
    std::vector<char*> pointers;
    for (const std::string& argument : arguments)
        pointers.push_back(const_cast<char*>(argument.c_str()));
    pointers.push_back(nullptr);
    pid_t process = 0;
    if (const int error = Start(folder).Spawn(process, pointers.data()); error != 0) {
        const bool isThere = error == E2BIG || error == ENOMEM || error == EAGAIN;
        return {isThere ? ProgramRun::Refused : ProgramRun::NotStarted, 0};
    }

    const auto limit = Clock::now() + patience;
    for (;;) {
        int status = 0;
        const pid_t ended = waitpid(process, &status, WNOHANG);
        if (ended == process)
            return Ended(status);
        if (ended < 0 && errno != EINTR) // if the host ignores SIGCHLD, the exit code is lost
            return {ProgramRun::Exited, 0};
        if (Clock::now() >= limit)
            break;
        std::this_thread::sleep_for(kPause);
    }
    ForgetLater(process);
    return {ProgramRun::StillRunning, 0};
}

std::string NewPrivateFolder(const char* prefix) {
    const char* const temporary = std::getenv("TMPDIR");
    std::string path = temporary != nullptr && temporary[0] == '/' ? temporary : "/tmp";
    path = path + '/' + prefix + "XXXXXX";
    if (mkdtemp(path.data()) != nullptr)
        return path;
    win32::SetLastError(ErrorFromErrno(errno));
    return {};
}

} // namespace quorvel
