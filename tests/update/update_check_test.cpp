#include "update/update_check.h"

#include <quorvel/frame/exception_text.h>

#include "support/date_time.h"
#include "update/scripted_check.h"

#include <algorithm>

namespace {

using namespace quorvel;

const COleDateTime kListed(2024, 3, 12, 8, 30, 0);
const std::string kNew = Listing("2024-03-12", "<item/><item/>");
const std::string kResponse = Response(kNew, LengthField(kNew.size()));
std::string Error(const std::string& cause) {
    return ErrorBox(cause + "\n");
}
const std::string kQuestion =
    "(44) There are new updates available as of 3/12/2024 9:30:00 AM.  Would you like to download "
    "them now?\n";
const std::string kChecking = "[pane]\nConnecting to updates server...\n"
                              "Connected to updates server. Checking for new updates...\n";
const std::string kDownloading = "[large pane]\nConnecting to updates server...\n";

class Check : public testing::Test, protected CheckSurroundings {
protected:
    Check() {
        check.Open();
        view.Take();
    }
    COleDateTime LastModified() const { return AfxGetProfileCheckForUpdatesLastModified(path); }
    void ExpectEnd(View::Result result) {
        EXPECT_FALSE(check.IsActive());
        EXPECT_TRUE(view.m_hidden);
        EXPECT_EQ(std::vector{result}, view.m_results);
        source.Release(check);
        EXPECT_FALSE(HasTemporaryFiles());
    }

    UpdateCheck check{path, local, view, source};
};

TEST_F(Check, ANewerListingIsDownloadedWhenTheUserWantsIt) {
    ASSERT_TRUE(check.Check());
    const UpdateRequest& asked = source.m_last->m_request;
    EXPECT_EQ(_T("http://host.example/updates.xml"), asked.url);
    EXPECT_TRUE(asked.headerOnly && asked.hostTimeOut == 30000);
    EXPECT_EQ(source.m_now, AfxGetProfileCheckForUpdatesLastChecked(path));
    source.Answer(check, kHead);
    EXPECT_EQ(kChecking + kQuestion + kDownloading, view.Take());

    const UpdateRequest& request = source.m_last->m_request;
    EXPECT_EQ(_T("http://127.0.0.1/updates.xml?u=http://h"), request.url);
    EXPECT_TRUE(!request.headerOnly && request.receiveBufferSize == 128);
    source.Answer(check, kResponse);
    const std::string all = std::to_string(kResponse.size());
    EXPECT_EQ("Connected to updates server. Downloading the latest updates...\nDownloaded 0 of " +
                  all + " bytes (0%)\nDownloaded " + all + " of " + all +
                  " bytes (100%)\n2 entries\n",
              view.Take());
    EXPECT_EQ(kNew, LocalFile());
    EXPECT_EQ(kListed, LastModified());
    EXPECT_EQ(_T("Local update file is dated 3/12/2024 1:00:00 AM."), view.m_published);
    ExpectEnd(resultUpdated);

    // The same listing again, in the same check and in one of the next run.
    source.PassTime();
    UpdateCheck next(path, local, view, source);
    for (UpdateCheck* each : {&check, &next}) {
        source.Begin(*each);
        EXPECT_EQ(resultUpToDate, view.m_results.back());
        source.PassTime();
    }
    view.m_answer = IDNO;
    ASSERT_TRUE(check.Check());
    source.Answer(check, Response("", "Last-Modified: Wed, 13 Mar 2024 08:30:00 GMT\r\n"));
    EXPECT_EQ(resultDeclined, view.m_results.back());
    EXPECT_EQ(kListed, LastModified());
}

TEST_F(Check, ACheckThatMayNotStartSaysWhy) {
    const std::string invalid = Error("The updates file URL is invalid.");
    const std::string recent =
        "(40) You must wait at least 15 seconds before checking for updates again.\n";
    const WCHAR* const url = _T("http://host.example/");
    static const auto allowsNothing = [](const WCHAR*) { return 0; };
    const struct {
        const WCHAR* url;
        int secondsSinceLast;
        std::string shown;
        DWORD createError = 0, connectError = 0;
        bool linkIsAllowed = true;
    } rows[] = {
        {_T("host.example"), 60, invalid},
        {_T("http://h/a\x3000z"), 60, invalid},
        {url, 60, "", 0, 0, false},
        {url, 14, recent},
        {url, -60, recent},
        {url, 15, Error("The VaskSocket class has not been initialized."), 1},
        {url, 15, "[pane]\nConnecting to updates server...\n" + Error("Error 10022."), 0, 10022},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << &row - rows);
        AfxWriteProfileCheckForUpdatesURL(path, row.url);
        const COleDateTime last = source.m_now - COleDateTimeSpan(0, 0, 0, row.secondsSinceLast);
        AfxWriteProfileCheckForUpdatesLastChecked(path, last);
        source.m_createError = row.createError;
        source.m_connectError = row.connectError;
        QuorvelSetOpenExternalLinkCallback(row.linkIsAllowed ? nullptr : +allowsNothing);
        UpdateCheck refused(path, folder.Path(_T("none")), view, source);
        EXPECT_FALSE(refused.Check() || refused.IsActive());
        EXPECT_EQ(row.shown, view.Take());
        EXPECT_EQ(last, AfxGetProfileCheckForUpdatesLastChecked(path));
    }
    EXPECT_TRUE(view.m_results.empty());
    EXPECT_EQ(0, source.m_alive);
}

TEST_F(Check, TheAnswersOfTheServerDecideWhatIsShownAndKept) {
    const std::size_t size = kNew.size();
    const std::string lowerCase =
        "HTTP/1.0 200 OK\r\nlast-modified: Tue, 12 Mar 2024 08:30:00 GMT\r\n\r\n";
    const std::string done = "2 entries\n"; // the listing is shown in any case
    const std::string none = "(40) There are no new updates available.\n";
    const std::string unknown = Error("Unknown HTTP status code.");
    const std::string missing = Error(kNotFound);
    const std::string tooLong =
        Error("The update listing is too long. At most 1000 bytes are accepted.");
    const std::string future =
        "The server dates its update listing in the future: 12/31/9999 9:30:00 AM. Please check "
        "the clock of this computer.";
    const std::string damaged = "The server's answer is damaged, or encoded in an unknown way.";
    const std::string chunked =
        Response("6a\r\n" + kNew + "\r\n0\r\n\r\n", "Transfer-Encoding: chunked\r\n");
    const std::string longer = kNew + std::string(716 - 93 - size, '\n');
    const struct {
        std::string head, response;
        std::size_t piece; // 0: all statuses are lost
        bool isDone;
        std::string shown, file;
        View::Result result;
        bool isStrict = false;
    } rows[] = {
        {Response(""), "", 3, false, none, kOldListing, resultUpToDate},
        {"HTTP/1.0 10060 x\r\n\r\n", "", 3, false, unknown, kOldListing, resultFailed},
        // The body is complete, too short, too long, or of unknown length.
        {lowerCase, kResponse, 1, true, "(100%)\n" + done, kNew, resultUpdated},
        {kHead, kResponse, 0, true, "(100%)\n" + done, kNew, resultUpdated},
        {kHead, Response(kNew, LengthField(size + 1)), 99, false, "(99%)\n" + done, kNew,
         resultUpdated},
        {kHead, Response(longer, "X: " + std::string(93 - 24, 'x') + "\r\n"), 93, false,
         "716 of 93 bytes (770%)\n" + done, longer, resultUpdated},
        // Not a listing, no answer, or a body that is too long, announced or received.
        {kHead, Response("<html>"), 1, false, "(10) The file is not a valid XML file.\n", "<html>",
         resultFailed},
        {kHead, "HTTP/1.1 404 x\r\n\r\n<rss>", 99, false, missing, kOldListing, resultFailed},
        {kHead, "HTTP/1.1 200 OK\r\n", 99, false, unknown, kOldListing, resultFailed},
        {kHead, Response(kNew, LengthField(1001)), 999, false, tooLong, kOldListing, resultFailed},
        {kHead, Response(std::string(1001, ' ')), 9999, false, tooLong, kOldListing, resultFailed},
        // The announced length has more bits than the figures.
        {kHead, Response(kNew, "Content-Length: 18446744073709551615\r\n"), 99, false,
         " of 2147483647 bytes (0%)\n" + done, kNew, resultUpdated},
        // Strict: the body is decoded, and refused unless it is complete and a listing.
        {kHead, kResponse + "x", 9999, true, "(101%)\n" + done, kNew, resultUpdated, true},
        {kHead, chunked, 0, true, "(349%)\n" + done, kNew, resultUpdated, true},
        {kHead, Response(kNew, LengthField(size + 1)), 99, false, Error(kIncomplete), kOldListing,
         resultFailed, true},
        {kHead, Response(kNew, "Content-Encoding: br\r\n"), 9999, false, Error(damaged),
         kOldListing, resultFailed, true},
        {Response("", "Last-Modified: Fri, 31 Dec 9999 08:30:00 GMT\r\n"), "", 99, false,
         Error(future), kOldListing, resultFailed, true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(&row - rows);
        source.PassTime();
        AfxWriteProfileCheckForUpdatesLastModified(path, COleDateTime());
        folder.Write(_T("local.xml"), kOldListing);
        UpdateCheck each(path, local, view, source);
        each.SetBodyLimit(row.shown == tooLong ? 1000 : ~0ull);
        each.SetStrict(row.isStrict);
        ASSERT_TRUE(each.Check());
        source.Answer(each, row.head, 5);
        if (each.IsActive())
            source.Answer(each, row.response, std::max<std::size_t>(row.piece, 1), row.piece == 0);
        const std::string shown = view.Take();
        EXPECT_TRUE(shown.starts_with(kChecking) && shown.ends_with(row.shown)) << shown;
        EXPECT_EQ(row.isDone ? kListed : COleDateTime(), LastModified());
        EXPECT_EQ(row.file, LocalFile());
        EXPECT_EQ(std::vector{row.result}, std::exchange(view.m_results, {}));
    }
}

TEST_F(Check, AStrictCheckForgetsAStoredDateInTheFuture) {
    source.m_now = COleDateTime(2024, 3, 11, 8, 30, 0); // kListed is a day ahead, which is allowed
    for (const bool isStrict : {true, false}) {
        AfxWriteProfileCheckForUpdatesLastModified(path, COleDateTime(2024, 3, 12, 8, 30, 1));
        UpdateCheck each(path, local, view, source);
        each.SetStrict(isStrict);
        source.Begin(each);
        EXPECT_EQ(isStrict, each.IsActive());
        source.PassTime();
    }
}

TEST_F(Check, AnErrorOfEitherConnectionEndsTheCheckWithItsText) {
    CString diskFull;
    ASSERT_TRUE(AfxGetSystemErrorText(ERROR_DISK_FULL, diskFull));
    const std::tuple<bool, DWORD, std::string> rows[] = {
        {false, 10060, "Error 10060."},
        {true, ERROR_DISK_FULL, Narrow(diskFull)},
        {true, 10040,
         "The header of the server's answer is too long. At most 1.00 MB are accepted."},
    };
    for (const auto& [isDownloading, code, text] : rows) {
        source.PassTime();
        ASSERT_TRUE(check.Check());
        const void* const former = source.m_last;
        if (isDownloading) {
            source.Answer(check, kHead);
            check.OnSocketStatus(former, Http::statusConnected, 10053); // was already queued
        }
        view.Take();
        EXPECT_FALSE(check.Check());
        EXPECT_EQ(Error("A connection socket is already active."), view.Take());
        view.m_results.clear();
        view.m_posts = isDownloading; // delays the report of the end
        check.OnSocketStatus(source.m_last, Http::statusReceiving, code);
        if (view.m_posts) {
            EXPECT_TRUE(check.IsActive() && view.m_results.empty());
            check.Cancel();
            check.OnCheckFinished(view.m_postedCode);
        }
        EXPECT_EQ(Error(text), view.Take());
        ExpectEnd(resultFailed);
    }
}

TEST_F(Check, FilesThatFailAreNamedAndTheOldListingStays) {
    const CString target = folder.Path(_T("none/updates.xml"));
    const COleDateTime earlier(2024, 1, 1, 0, 0, 0);
    AfxWriteProfileCheckForUpdatesLastModified(path, earlier);
    UpdateCheck lost(path, target, view, source);
    for (const bool isReset : {false, true}) {
        source.Begin(lost);
        if (isReset)
            lost.Reset();
        view.Take();
        view.m_onMessage = [&] {
            source.m_last->m_hasEnded = true;
            lost.Poll(); // called by a timer, while the box is shown
        };
        source.Answer(lost, kResponse);
        const std::string shown = view.Take();
        const std::string box =
            "(30) An error has occurred while creating the file '" + Narrow(target) + "'.";
        EXPECT_NE(std::string::npos, shown.find(box)) << shown;
        EXPECT_EQ(shown.find(box), shown.rfind(box)) << "twice";
        EXPECT_EQ(isReset ? COleDateTime() : earlier, LastModified()) << "to be offered again";
        source.PassTime();
    }
    const EnvironmentVariable noFolder(kTemporaryVariable, Narrow(folder.Path(_T("none"))).c_str());
    source.Begin(check);
    EXPECT_NE(std::string::npos, view.Take().find("(10) A system error has occurred."));
    EXPECT_EQ(std::vector(3, resultFailed), view.m_results);
}

TEST_F(Check, CancellingADownloadIsSilentAndItsConnectionIsKeptUntilItHasEnded) {
    source.Begin(check);
    view.Take();
    source.m_last->Receive(kResponse.substr(0, 60));
    check.Cancel();
    check.Cancel();
    EXPECT_TRUE(source.m_last->m_closed);
    for (const int status : std::initializer_list<int>{Http::statusHeaderParsed,
                                                       Http::statusReceived, Http::statusEnded})
        check.OnSocketStatus(source.m_last, status, 10053); // queued meanwhile
    EXPECT_TRUE(HasTemporaryFiles()) << "the connection may still write to it";
    EXPECT_EQ("", view.Take());
    check.Poll();
    EXPECT_EQ(1, source.m_alive);
    check.Poll(); // finds out that its last status was lost
    EXPECT_EQ(0, source.m_alive);
    ExpectEnd(resultCancelled);
    EXPECT_EQ(kOldListing, LocalFile());
}

TEST_F(Check, AnyCallOfTheViewMayCancelIt) {
    int call = 0;
    for (bool isCancelled = true; isCancelled && call < 100; ++call) {
        SCOPED_TRACE(call);
        source.PassTime();
        AfxWriteProfileCheckForUpdatesLastModified(path, COleDateTime());
        UpdateCheck each(path, local, view, source);
        view.m_callsBefore = call;
        view.m_onCall = [&each] { each.Cancel(); };
        each.Check();
        for (const std::string& answer : {kHead, kResponse})
            if (each.IsActive())
                source.Answer(each, answer, 50);
        isCancelled = view.m_onCall == nullptr;
        EXPECT_FALSE(each.IsActive());
        EXPECT_EQ(1u, std::exchange(view.m_results, {}).size());
    }
    EXPECT_GT(call, 10);
}

TEST_F(Check, ResettingForgetsTheListingButNotTheLastCheck) {
    EXPECT_EQ(_T("Local update file is dated 1/1/2024 1:00:00 AM."), view.m_published);
    EXPECT_EQ(_T(""), view.m_lastChecked) << "never";
    AfxWriteProfileCheckForUpdatesLastModified(path, kListed);
    AfxWriteProfileCheckForUpdatesLastChecked(path, kListed);
    const std::string question =
        "(24) Are you sure you want to reset the check for updates data?\n";
    view.m_answer = IDNO;
    check.Reset();
    EXPECT_EQ(question, view.Take());
    EXPECT_EQ(kOldListing, LocalFile());
    EXPECT_EQ(kListed, LastModified());
    view.m_answer = IDYES;
    check.Reset();
    EXPECT_EQ(question + "0 entries\n", view.Take());
    EXPECT_FALSE(folder.Has(_T("local.xml")));
    EXPECT_EQ(COleDateTime(), LastModified());
    EXPECT_EQ(kListed, AfxGetProfileCheckForUpdatesLastChecked(path));
    UpdateCheck(path, local, view, source).Open();
    EXPECT_EQ("", view.Take());
    EXPECT_EQ(_T("Local update file does not exist.  Click Check to check for updates."),
              view.m_published);
    EXPECT_EQ(_T("Last checked for updates on 3/12/2024 9:30:00 AM."),
              view.m_lastChecked); // Berlin
}

} // namespace
