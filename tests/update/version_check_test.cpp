#include "update/version_check.h"

#include "update/scripted_check.h"

namespace {

using namespace quorvel;

class NewVersion : public testing::Test, protected CheckSurroundings {
protected:
    VersionCheck check{path, {1, 2, 3, 4}, view, source};
};

TEST_F(NewVersion, TheAnswerIsComparedWithTheProgramInOneBox) {
    const std::string invalid =
        "(30) The version number retrieved from the update site is invalid.\n";
    const auto versions = [](const std::string& text, const std::string& latest) {
        return "(40) " + text + "\r\n\r\nYour version: 1.2.3.4\r\nLatest version: " + latest + "\n";
    };
    const std::string newer = versions("A new version of the program is available.", "1.2.3.5");
    const std::string same =
        versions("You are using the latest official version of the program.", "1.2.3.4");
    const std::string ahead =
        "You are using a newer version than the latest official version of the program.";
    const std::tuple<std::string, std::string, View::Result, bool> rows[] = {
        {Response("1.2.3.5"), newer, resultUpdated, false},
        {Response("1.2.3.4"), same, resultUpToDate, false},
        {Response("1.2"), versions(ahead, "1.2.0.0"), resultUpToDate, false},
        {Response(""), versions(ahead, "0.0.0.0"), resultUpToDate, false},
        {Response(""), invalid, resultFailed, true},
        {Response("1.2."), invalid, resultFailed, true},
        {Response("1.2.3.5", LengthField(8)), newer, resultUpdated, false},
        {Response("1.2.3.5", LengthField(8)), ErrorBox(kIncomplete + "\n"), resultFailed, true},
        {Response("1.2.3.5\r\n"), invalid, resultFailed, false},
        {Response("", LengthField(65537)),
         ErrorBox("The file with the version number is too long. At most 64.0 KB are accepted.\n"),
         resultFailed, false},
    };
    for (const auto& [response, shown, result, isStrict] : rows) {
        SCOPED_TRACE(response.substr(0, 80));
        check.SetStrict(isStrict);
        view.m_results.clear();
        source.PassTime();
        ASSERT_TRUE(check.Check());
        EXPECT_EQ(source.m_now, AfxGetProfileCheckForUpdatesLastChecked(path));
        source.Answer(check, response, 50000);
        EXPECT_EQ("[pane]\n" + shown, view.Take());
        EXPECT_TRUE(view.m_hidden);
        EXPECT_EQ(std::vector{result}, view.m_results);
        source.Release(check);
        EXPECT_FALSE(HasTemporaryFiles());
    }
}

TEST_F(NewVersion, AMissingFileIsNamed) {
    ASSERT_TRUE(check.Check());
    source.m_last->Receive("HTTP/1.1 200 OK\r\n\r\n1.2.3.5");
    const CString name = source.m_last->m_request.localFile;
    std::filesystem::remove(std::filesystem::path(std::basic_string<WCHAR>(name)));
    check.OnSocketStatus(source.m_last, Http::statusEnded, 0);
    EXPECT_EQ(0u, view.Take().find("[pane]\n(30) An error has occurred while opening the file '" +
                                   Narrow(name) + "'.\r\n\r\n"));
}

} // namespace
