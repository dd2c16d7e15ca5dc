#include "update/version_check.h"

#include "update/scripted_check.h"

#include "support/test.h"

namespace {

using namespace quorvel;
typedef CCheckForUpdatesView View;

class NewVersion : public testing::Test, protected CheckSurroundings {
protected:
    VersionCheck check{path, {1, 2, 3, 4}, view, source};
};

TEST_F(NewVersion, TheAnswerIsComparedWithTheProgramInOneBox) {
    const std::string start = "HTTP/1.1 200 OK\r\n\r\n";
    const std::string error = "(30) An error has occurred while checking for updates.\r\n\r\n";
    const std::string invalid =
        "(30) The version number retrieved from the update site is invalid.\n";
    const auto versions = [](const std::string& text, const std::string& latest) {
        return "(40) " + text + "\r\n\r\nYour version: 1.2.3.4\r\nLatest version: " + latest + "\n";
    };
    const std::string cut = "Content-Length: 8\r\n\r\n1.2.3.5";
    const std::string ahead =
        "You are using a newer version than the latest official version of the program.";
    struct Row {
        std::string response, shown;
        View::Result result;
        bool isStrict = false;
    };
    const Row rows[] = {
        {start + "1.2.3.5", versions("A new version of the program is available.", "1.2.3.5"),
         View::resultUpdated},
        {start + "1.2.3.4",
         versions("You are using the latest official version of the program.", "1.2.3.4"),
         View::resultUpToDate},
        {start + "1.2", versions(ahead, "1.2.0.0"), View::resultUpToDate},
        {start, versions(ahead, "0.0.0.0"), View::resultUpToDate},
        {start, invalid, View::resultFailed, true},
        {start + "1.2.", invalid, View::resultFailed, true},
        {"HTTP/1.1 200 OK\r\n" + cut,
         versions("A new version of the program is available.", "1.2.3.5"), View::resultUpdated},
        {"HTTP/1.1 200 OK\r\n" + cut,
         error + "The server's answer is incomplete. Please try again later.\n", View::resultFailed,
         true},
        {"HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n7\r\n1.2.3.4\r\n0\r\n\r\n",
         versions("You are using the latest official version of the program.", "1.2.3.4"),
         View::resultUpToDate, true},
        {start + "1.2.3.5\r\n", invalid, View::resultFailed},
        {"HTTP/1.1 404 Not found\r\n\r\n1.2.3.5",
         error + "The server has not found anything that matches the requested URI.\n",
         View::resultFailed},
        {"1.2.3.5", error + "Unknown HTTP status code.\n", View::resultFailed},
        {"HTTP/1.1 200 OK\r\nContent-Length: 65537\r\n\r\n",
         error + "The file with the version number is too long. At most 64.0 KB are accepted.\n",
         View::resultFailed},
    };
    for (const auto& [response, shown, result, isStrict] : rows) {
        SCOPED_TRACE(response.substr(0, 80));
        check.SetStrict(isStrict);
        view.m_results.clear();
        source.m_now += COleDateTimeSpan(1.0);
        ASSERT_TRUE(check.Check());
        const UpdateRequest& request = source.m_last->m_request;
        EXPECT_TRUE(!request.headerOnly && request.receiveBufferSize == 128);
        EXPECT_EQ(source.m_now, AfxGetProfileCheckForUpdatesLastChecked(path));
        source.Answer(check, response, 50000);
        EXPECT_EQ("[pane]\n" + shown, view.Take());
        EXPECT_TRUE(view.m_hidden);
        EXPECT_EQ(std::vector{result}, view.m_results);
        source.Release(check);
        EXPECT_FALSE(HasTemporaryFiles());
    }
}

TEST_F(NewVersion, AFileThatIsGoneIsNamed) {
    ASSERT_TRUE(check.Check());
    source.m_last->Receive("HTTP/1.1 200 OK\r\n\r\n1.2.3.5");
    const CString name = source.m_last->m_request.localFile;
    std::filesystem::remove(std::filesystem::path(std::basic_string<WCHAR>(name)));
    check.OnSocketStatus(source.m_last, Http::statusEnded, 0);
    EXPECT_EQ(0u, view.Take().find("[pane]\n(30) An error has occurred while opening the file '" +
                                   Narrow(name) + "'.\r\n\r\n"));
}

} // namespace
