#include "update/update_check.h"

#include <quorvel/frame/module.h>

#include "support/date_time.h"
#include "support/text.h"
#include "update/scripted_check.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace {

using namespace quorvel;
typedef CCheckForUpdatesView View;

const COleDateTime kListed(2024, 3, 12, 8, 30, 0);
const std::string kOld =
    "<?xml version='1.0'?><rss><channel><lastBuildDate>2024-01-01</lastBuildDate></channel></rss>";
const std::string kNew = "<?xml version='1.0'?><rss><channel><lastBuildDate>2024-03-12"
                         "</lastBuildDate><item/><item/></channel></rss>";

const std::string kDate = "Last-Modified: Tue, 12 Mar 2024 08:30:00 GMT\r\n";
const std::string kHead = "HTTP/1.1 200 OK\r\n" + kDate + "\r\n";

std::string Length(std::size_t length) {
    return "Content-Length: " + std::to_string(length) + "\r\n";
}
std::string Response(const std::string& fields, const std::string& body) {
    return "HTTP/1.1 200 OK\r\n" + fields + "\r\n" + body;
}
std::string Error(const std::string& cause) {
    return "(30) An error has occurred while checking for updates.\r\n\r\n" + cause + "\n";
}
const std::string kQuestion =
    "(44) There are new updates available as of 3/12/2024 8:30:00 AM.  Would you like to download "
    "them now?\n";
const std::string kChecking = "[pane]\nConnecting to updates server...\n"
                              "Connected to updates server. Checking for new updates...\n";
const std::string kDownloading = "[large pane]\nConnecting to updates server...\n";

class Check : public testing::Test, protected CheckSurroundings {
protected:
    Check() {
        folder.Write(_T("updates.xml"), kOld);
        check.Open();
        view.Take();
    }
    ~Check() override { QuorvelSetOpenExternalLinkCallback(nullptr); }
    COleDateTime LastModified() const { return AfxGetProfileCheckForUpdatesLastModified(path); }
    std::string LocalFile() const { return folder.Read(_T("updates.xml")); }
    // As far as the download has begun.
    void BeginDownload() {
        ASSERT_TRUE(check.Check());
        source.Answer(check, kHead);
        ASSERT_TRUE(check.IsActive());
        ASSERT_FALSE(source.m_last->m_request.headerOnly);
        view.Take();
    }
    void ExpectEnd(View::Result result) {
        EXPECT_FALSE(check.IsActive());
        EXPECT_TRUE(view.m_hidden);
        EXPECT_EQ(std::vector{result}, view.m_results);
        source.Release(check);
        EXPECT_FALSE(HasTemporaryFiles());
    }

    UpdateCheck check{path, folder.Path(_T("updates.xml")), view, source};
};

TEST_F(Check, ANewerListingIsDownloadedWhenTheUserWantsIt) {
    const std::string response = Response(Length(kNew.size()), kNew);
    ASSERT_TRUE(check.Check());
    const UpdateRequest& asked = source.m_last->m_request;
    EXPECT_EQ(_T("http://host.example/updates.xml"), asked.url);
    EXPECT_TRUE(asked.headerOnly && asked.port == 80 && asked.hostTimeOut == 30000);
    EXPECT_EQ(source.m_now, AfxGetProfileCheckForUpdatesLastChecked(path));
    source.Answer(check, kHead);
    EXPECT_EQ(kChecking + kQuestion + kDownloading, view.Take());

    const UpdateRequest& request = source.m_last->m_request;
    EXPECT_EQ(_T("127.0.0.1/updates.xml"), request.url);
    EXPECT_TRUE(!request.headerOnly && request.port == 80 && request.receiveBufferSize == 128);
    source.Answer(check, response);
    const std::string all = std::to_string(response.size());
    EXPECT_EQ("Connected to updates server. Downloading the latest updates...\nDownloaded 0 of " +
                  all + " bytes (0%)\nDownloaded " + all + " of " + all +
                  " bytes (100%)\n2 entries\n",
              view.Take());
    EXPECT_EQ(kNew, LocalFile());
    EXPECT_EQ(kListed, LastModified());
    EXPECT_EQ(_T("Local update file is dated 3/12/2024 12:00:00 AM."), view.m_published);
    ExpectEnd(View::resultUpdated);

    // The same listing again, by the same check and by one of the next run.
    source.m_now += COleDateTimeSpan(0, 0, 0, 15);
    UpdateCheck next(path, folder.Path(_T("updates.xml")), view, source);
    for (UpdateCheck* each : {&check, &next}) {
        ASSERT_TRUE(each->Check());
        source.Answer(*each, kHead);
        EXPECT_EQ(kChecking + "(40) There are no new updates available.\n", view.Take());
        EXPECT_EQ(View::resultUpToDate, view.m_results.back());
        source.m_now += COleDateTimeSpan(0, 0, 0, 15);
    }
}

TEST_F(Check, ACheckThatMayNotStartSaysWhy) {
    const std::string invalid = Error("The updates file URL is invalid.");
    const std::string recent =
        "(40) You must wait at least 15 seconds before checking for updates again.\n";
    const WCHAR* const url = _T("http://host.example/");
    const double second = 1.0 / 86400;
    static const auto allowsNothing = [](const WCHAR*) { return 0; };
    const struct {
        const WCHAR* url;
        double secondsSinceLast;
        DWORD createError, connectError;
        bool linkIsAllowed;
        std::string shown;
        bool connects;
    } rows[] = {
        {_T(""), 60, 0, 0, true, invalid, false},
        {_T("host.example"), 60, 0, 0, true, invalid, false},
        {_T("http://host.example/a b"), 60, 0, 0, true, invalid, false},
        {_T("http://host.example/\r\nX: y"), 60, 0, 0, true, invalid, false},
        {_T("file:///a b"), 60, 0, 0, true, invalid, false},
        {_T("http://host.example/\x00a0"), 60, 0, 0, true, invalid, false},
        {url, 60, 0, 0, false, "", false},
        {url, 14, 0, 0, true, recent, false},
        {url, -60, 0, 0, true, recent, false},
        {url, 15, 1, 0, true, Error("The VaskSocket class has not been initialized."), true},
        {url, 15, 10055, 0, true, Error("Error 10055."), true},
        {url, 15, 0, 1, true,
         "[pane]\nConnecting to updates server...\n" +
             Error("The VaskSocket class has not been initialized."),
         true},
        {url, 15, 0, 10022, true,
         "[pane]\nConnecting to updates server...\n" + Error("Error 10022."), true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << &row - rows);
        AfxWriteProfileCheckForUpdatesURL(path, row.url);
        const COleDateTime last = source.m_now - COleDateTimeSpan(row.secondsSinceLast * second);
        AfxWriteProfileCheckForUpdatesLastChecked(path, last);
        source.m_createError = row.createError;
        source.m_connectError = row.connectError;
        QuorvelSetOpenExternalLinkCallback(row.linkIsAllowed ? nullptr : +allowsNothing);
        UpdateCheck refused(path, _T("none"), view, source);
        const int made = source.m_made;
        EXPECT_FALSE(refused.Check() || refused.IsActive());
        EXPECT_EQ(row.shown, view.Take());
        EXPECT_EQ(row.connects, source.m_made > made);
        EXPECT_EQ(last, AfxGetProfileCheckForUpdatesLastChecked(path));
    }
    EXPECT_TRUE(view.m_results.empty());
    EXPECT_EQ(0, source.m_alive);
}

TEST_F(Check, AnAnswerThatOffersNothingEndsTheCheck) {
    const std::string none = "(40) There are no new updates available.\n";
    const std::string unknown = Error("Unknown HTTP status code.");
    AfxWriteProfileCheckForUpdatesLastModified(path, kListed);
    const std::string newer = Response("last-modified: Wed, 13 Mar 2024 08:30:00 GMT\r\n", "");
    const std::string question =
        "(44) There are new updates available as of 3/13/2024 8:30:00 AM.  Would you like to "
        "download them now?\n";
    view.m_answer = IDNO;
    const struct {
        std::string response, shown;
        DWORD code;
        View::Result result;
    } rows[] = {
        {newer, question, 0, View::resultDeclined},
        {kHead, none, 0, View::resultUpToDate},
        {Response("", ""), none, 0, View::resultUpToDate},
        {Response("Last-Modified: soon\r\n", ""), none, 0, View::resultUpToDate},
        {"HTTP/1.0 404 Not found\r\n\r\n",
         Error("The server has not found anything that matches the requested URI."), 404,
         View::resultFailed},
        {"HTTP/1.0 10060 x\r\n\r\n", unknown, 1, View::resultFailed},
        {"HTTP/1.0 0 x\r\n\r\n", unknown, 1, View::resultFailed},
        {"HTTP/1.0 200 OK\r\n", unknown, 1, View::resultFailed},
        {"", unknown, 1, View::resultFailed},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.response);
        UpdateCheck each(path, _T("none"), view, source);
        source.m_now += COleDateTimeSpan(1.0);
        ASSERT_TRUE(each.Check());
        source.Answer(each, row.response, 3);
        EXPECT_EQ(kChecking + row.shown, view.Take());
        EXPECT_EQ(row.code, view.m_postedCode);
        EXPECT_EQ(row.result, view.m_results.back());
        EXPECT_FALSE(each.IsActive());
    }
    EXPECT_EQ(std::size(rows), view.m_results.size());
    EXPECT_EQ(kListed, LastModified());
}

TEST_F(Check, AnErrorOfEitherConnectionEndsTheCheckWithItsText) {
    for (const bool isDownloading : {false, true})
        for (const int status : {2, 3, kStatusConnected, 8, 9, kStatusClosed}) {
            SCOPED_TRACE(testing::Message() << isDownloading << ' ' << status);
            source.m_now += COleDateTimeSpan(1.0);
            ASSERT_TRUE(check.Check());
            if (isDownloading)
                source.Answer(check, kHead);
            view.Take();
            EXPECT_FALSE(check.Check());
            EXPECT_EQ(Error("A connection socket is already active."), view.Take());
            view.m_results.clear();
            view.m_posts = status == kStatusConnected; // the end is then reported later
            check.OnSocketStatus(source.m_last, status, 10060);
            if (view.m_posts) {
                EXPECT_TRUE(check.IsActive() && view.m_results.empty());
                check.Cancel();
                check.OnCheckFinished(view.m_postedCode);
                check.OnCheckFinished(view.m_postedCode);
            }
            EXPECT_EQ(Error("Error 10060."), view.Take());
            ExpectEnd(View::resultFailed);
        }
    EXPECT_EQ(kOld, LocalFile());
    EXPECT_EQ(COleDateTime(), LastModified());
}

TEST_F(Check, ADownloadCountsAsDoneOnceEveryByteHasCome) {
    const std::size_t size = kNew.size();
    const std::string done = "2 entries\n"; // what came is shown in any case
    const std::string unknown = Error("Unknown HTTP status code.");
    const std::string tooLong = Error("Error 10040.");
    const struct {
        const char* label;
        std::string response;
        std::size_t piece;
        bool losesStatuses, isDone;
        int percent; // -1: no figures
        std::string shown, file;
    } rows[] = {
        {"at once", Response(Length(size), kNew), 4096, false, true, 100, done, kNew},
        {"byte by byte", Response(Length(size), kNew), 1, false, true, 100, done, kNew},
        {"another letter case", Response("content-length: " + std::to_string(size) + "\r\n", kNew),
         16, false, true, 100, done, kNew},
        {"statuses lost", Response(Length(size), kNew), 16, true, true, 100, done, kNew},
        {"a byte short", Response(Length(size + 1), kNew), 16, false, false, 99, done, kNew},
        {"half of it", Response(Length(2 * size + Response(Length(200), "").size()), kNew), 16,
         false, false, 50, done, kNew},
        {"of unknown length", Response("", kNew), 16, false, false, 100, done, kNew},
        {"of unknown length, the header apart", Response("", kNew), Response("", "").size(), false,
         false, 100, done, kNew},
        {"no number", Response("Content-Length: 5 or so\r\n", kNew), 16, false, false, 100, done,
         kNew},
        {"more than was told", Response(Length(7), kNew), 4096, false, false, 100, done, kNew},
        {"no listing", Response(Length(6), "<html>"), 1, false, true, 100,
         "(10) The file is not a valid XML file.\n", "<html>"},
        {"another status", "HTTP/1.1 404 x\r\n" + Length(5) + "\r\n<rss>", 4096, false, false, -1,
         Error("The server has not found anything that matches the requested URI."), kOld},
        {"no end of the header", "HTTP/1.1 200 OK\r\n", 4096, false, false, -1, unknown, kOld},
        {"no header", "<html>\r\n" + kNew, 4096, false, false, -1, unknown, kOld},
        {"too long by what is told", Response(Length(1001), kNew), 4096, false, false, 0, tooLong,
         kOld},
        {"too long for 64 bits", Response("Content-Length: 18446744073709551615\r\n", kNew), 4096,
         false, false, 0, tooLong, kOld},
        {"too long by what comes", Response("", kNew + std::string(1000, ' ')), 4096, false, false,
         100, tooLong, kOld},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        source.m_now += COleDateTimeSpan(1.0);
        AfxWriteProfileCheckForUpdatesLastModified(path, COleDateTime());
        UpdateCheck each(path, folder.Path(_T("updates.xml")), view, source);
        each.SetBodyLimit(1000);
        folder.Write(_T("updates.xml"), kOld);
        ASSERT_TRUE(each.Check());
        source.Answer(each, kHead);
        view.m_percent = -1;
        source.Answer(each, row.response, row.piece, row.losesStatuses);
        EXPECT_EQ(row.isDone ? kListed : COleDateTime(), LastModified());
        EXPECT_EQ(row.percent, view.m_percent);
        const std::string shown = view.Take();
        EXPECT_TRUE(shown.ends_with(row.shown)) << shown;
        EXPECT_EQ(row.shown == done ? View::resultUpdated : View::resultFailed,
                  view.m_results.back());
        EXPECT_EQ(row.file, LocalFile());
    }
}

TEST_F(Check, FilesThatFailAreNamedAndTheOldListingStays) {
    const CString target = folder.Path(_T("none/updates.xml"));
    UpdateCheck lost(path, target, view, source);
    ASSERT_TRUE(lost.Check());
    source.Answer(lost, kHead);
    view.Take();
    source.Answer(lost, Response(Length(kNew.size()), kNew));
    EXPECT_NE(std::string::npos,
              view.Take().find("(30) An error has occurred while creating the file '" +
                               Narrow(target) + "'.\r\n\r\n"));
    EXPECT_EQ(std::vector{View::resultFailed}, view.m_results);
    EXPECT_EQ(COleDateTime(), LastModified()) << "to be offered again";

    source.m_now += COleDateTimeSpan(1.0);
    BeginDownload();
    const CString temporary = source.m_last->m_request.localFile;
    source.m_last->Receive(Response(Length(kNew.size()), kNew));
    std::filesystem::remove(std::filesystem::path(std::basic_string<WCHAR>(temporary)));
    check.OnSocketStatus(source.m_last, kStatusClosed, 0);
    EXPECT_NE(std::string::npos,
              view.Take().find("(30) An error has occurred while opening the file '" +
                               Narrow(temporary) + "'.\r\n\r\n"));
    EXPECT_EQ(kOld, LocalFile());

    source.m_now += COleDateTimeSpan(1.0);
    const EnvironmentVariable noFolder(kTemporaryVariable, Narrow(folder.Path(_T("none"))).c_str());
    ASSERT_TRUE(check.Check());
    source.Answer(check, kHead);
    EXPECT_NE(std::string::npos, view.Take().find("(10) A system error has occurred.\r\n\r\n"));
    EXPECT_EQ(View::resultFailed, view.m_results.back());
    EXPECT_FALSE(check.IsActive());
}

TEST_F(Check, CancellingEndsEveryPhaseInSilence) {
    const auto late = [&](ScriptedConnection* connection) {
        for (const int status :
             {kStatusConnected, kStatusHeaderParsed, kStatusBytesReceived, kStatusClosed})
            check.OnSocketStatus(connection, status, status == kStatusBytesReceived ? 5 : 0);
        check.OnSocketStatus(connection, kStatusConnected, 10053);
    };
    ASSERT_TRUE(check.Check());
    view.Take();
    check.Cancel();
    check.Cancel();
    EXPECT_TRUE(source.m_last->m_closed);
    late(source.m_last);
    ExpectEnd(View::resultCancelled);

    source.m_now += COleDateTimeSpan(1.0);
    view.m_results.clear();
    ASSERT_TRUE(check.Check());
    view.m_onMessage = [this] { check.Cancel(); };
    source.Answer(check, kHead);
    EXPECT_EQ(kChecking + kQuestion, view.Take());
    ExpectEnd(View::resultCancelled);

    source.m_now += COleDateTimeSpan(1.0);
    view.m_results.clear();
    BeginDownload();
    source.m_last->Receive(Response(Length(kNew.size()), "part"));
    late(nullptr);
    check.Cancel();
    late(source.m_last);
    EXPECT_TRUE(HasTemporaryFiles()) << "the connection may still write to it";
    EXPECT_EQ("", view.Take());
    ExpectEnd(View::resultCancelled);
    EXPECT_EQ(0, source.m_alive);
    EXPECT_EQ(kOld, LocalFile());
}

TEST_F(Check, OpeningShowsTheFileAndTheLastCheck) {
    COleDateTime invalid = kListed;
    invalid.SetStatus(COleDateTime::invalid);
    const COleDateTime winter(2024, 1, 2, 20, 0, 0);
    const std::tuple<COleDateTime, const WCHAR*> rows[] = {
        {COleDateTime(), _T("")},
        {invalid, _T("")},
        {winter, _T("Last checked for updates on 1/2/2024 9:00:00 PM.")}}; // Berlin
    for (const auto& [lastChecked, text] : rows) {
        AfxWriteProfileCheckForUpdatesLastChecked(path, lastChecked);
        UpdateCheck each(path, folder.Path(_T("updates.xml")), view, source);
        each.Open();
        EXPECT_EQ(text, view.m_lastChecked);
        EXPECT_EQ("0 entries\n", view.Take());
        EXPECT_EQ(_T("Local update file is dated 1/1/2024 12:00:00 AM."), view.m_published);
    }
    UpdateCheck none(path, folder.Path(_T("none.xml")), view, source);
    none.Open();
    EXPECT_EQ(_T("Local update file does not exist.  Click Check to check for updates."),
              view.m_published);
    EXPECT_EQ("", view.Take());
    folder.Write(_T("none.xml"), "x");
    none.Open();
    EXPECT_EQ("(10) The file is not a valid XML file.\n", view.Take());
}

TEST_F(Check, ResettingForgetsTheListingButNotTheLastCheck) {
    AfxWriteProfileCheckForUpdatesLastModified(path, kListed);
    AfxWriteProfileCheckForUpdatesLastChecked(path, kListed);
    const std::string question =
        "(24) Are you sure you want to reset the check for updates data?\n";
    view.m_answer = IDNO;
    check.Reset();
    EXPECT_EQ(question, view.Take());
    EXPECT_EQ(kOld, LocalFile());
    EXPECT_EQ(kListed, LastModified());

    view.m_answer = IDYES;
    check.Reset();
    EXPECT_EQ(question + "0 entries\n", view.Take());
    EXPECT_FALSE(folder.Has(_T("updates.xml")));
    EXPECT_EQ(COleDateTime(), LastModified());
    EXPECT_EQ(COleDateTime(), check.GetListing().GetPublishedDate());
    EXPECT_EQ(_T("Local update file does not exist.  Click Check to check for updates."),
              view.m_published);
    EXPECT_EQ(kListed, AfxGetProfileCheckForUpdatesLastChecked(path));
}

} // namespace
