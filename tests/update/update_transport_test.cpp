// Checks with a transport of the host.
#include <quorvel/update/update_transport.h>

#include <quorvel/net/http_status_code_text.h>
#include <quorvel/types/version_number.h>
#include <quorvel/update/check_for_updates.h>
#include <quorvel/update/new_version_check.h>

#include "net/socket_peer.h"
#include "update/scripted_check.h"
#include "update/scripted_transport.h"
#include "update/windowed_check.h"

namespace {

const std::string kListing = Listing("2024-03-12");

class CheckWithTransport : public testing::Test, protected CheckSurroundings {
protected:
    CheckWithTransport() {
        AfxWriteProfileCheckForUpdatesURL(path, _T("https://host.example:8443/updates.xml"));
        check.SetTransport(&scripted);
    }
    // Until the listing itself is requested.
    void AnswerHead() {
        scripted.Show(200, 0);
        scripted.End();
        StatusWindow::PumpUntil([&] { return scripted.m_starts == 2; });
        view.Take();
    }

    ScriptedTransport scripted;
    CCheckForUpdates check{path, local, view};
};

TEST_F(CheckWithTransport, AVersionIsReadFromAHostsFolder) {
    folder.Write(_T("version.txt"), "1.2.3.5");
    FolderTransport transport(folder.Path(_T("")));
    AfxWriteProfileCheckForUpdatesURL(path, _T("https://host.example/version.txt"));
    CNewVersionCheck version(path, {1, 2, 3, 4}, view);
    version.SetTransport(&transport);
    ASSERT_TRUE(version.Check());
    StatusWindow::PumpUntil([&] { return !version.IsActive(); });
    EXPECT_NE(std::string::npos, view.Take().find("Latest version: 1.2.3.5"));
}

// Like a dialog that the host destroys while a box of its check is shown.
class ClosingView : public quorvel::WindowedCheck<CWnd, quorvel::UpdateCheck> {
public:
    using WindowedCheck::WindowedCheck;
    int ShowMessage(const WCHAR*, UINT) override {
        m_onMessage();
        return IDOK;
    }
    BOOL PostCheckFinished(DWORD) override { return FALSE; }
    std::function<void()> m_onMessage;
};

TEST_F(CheckWithTransport, AWindowMayReleaseItsCheckInABox) {
    CWnd window;
    auto closing = std::make_shared<ClosingView>(window, std::make_unique<quorvel::HttpSource>(),
                                                 path, local.GetString());
    quorvel::CheckOptions options;
    options.transport = &scripted;
    closing->SetOptions(options);
    closing->m_onMessage = [&] {
        closing->Leave();
        closing.reset();
    };
    ASSERT_TRUE(closing->GetFlow().Check());
    scripted.Show(404, 0);
    scripted.End();
    StatusWindow::PumpUntil([&] { return closing == nullptr; });
    EXPECT_EQ(nullptr, closing);
}

TEST_F(CheckWithTransport, ACodeOfTheHostIsReportedWhileNoCheckRuns) {
    check.OnCheckFinished(0);
    check.OnCheckFinished(404);
    EXPECT_EQ(ErrorBox(Narrow(AfxGetHTTPStatusCodeText(404))) + "\n", view.Take());
}

TEST_F(CheckWithTransport, TheRequestsAndTheProgressAreThoseOfADownload) {
    ASSERT_TRUE(check.Check());
    EXPECT_TRUE(scripted.m_request.headerOnly && scripted.m_request.fileName.IsEmpty());
    AnswerHead();
    EXPECT_EQ(_T("https://host.example:8443/updates.xml"), scripted.m_request.url);
    EXPECT_TRUE(!scripted.m_request.headerOnly && scripted.m_request.bodyLimit == 64 << 20);
    scripted.Show(200, 50, 100);
    StatusWindow::PumpUntil([&] { return view.m_percent == 50; });
    EXPECT_EQ("Connected to updates server. Downloading the latest updates...\n"
              "Downloaded 0 of 100 bytes (0%)\nDownloaded 50 of 100 bytes (50%)\n",
              view.Take());
    check.Cancel();
    EXPECT_EQ(2, scripted.m_cancels);
    StatusWindow::PumpUntil([&] { return !HasTemporaryFiles(); });
    EXPECT_FALSE(check.IsActive() || HasTemporaryFiles());
    EXPECT_EQ("", view.Take());
}

TEST_F(CheckWithTransport, WhatATransportGetsWrongIsRefusedInOneBox) {
    const std::string tooLong = "The update listing is too long. At most 64.0 MB are accepted.";
    const struct {
        const char* label;
        UINT statusCode;
        std::string body;
        ULONGLONG expected;
        DWORD error;
        std::string errorText, shown; // no text: that of the transport
    } rows[] = {
        {"no answer", 0, "", 0, WSAECONNREFUSED, "Nobody is at home.", ""},
        {"breaks off", 200, "<?xml", 100, WSAECONNRESET, "Broken off.", ""},
        {"short, and unnoticed", 200, kListing, 1000, 0, "", kIncomplete},
        {"too long", 200, kListing, 0, WSAEMSGSIZE, "", tooLong},
        {"announced as too long", 200, "", 65 << 20, 0, "", tooLong},
        {"without a code", 0, "", 0, 0, "", "Unknown HTTP status code."},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        AfxWriteProfileCheckForUpdatesLastChecked(path, COleDateTime());
        CCheckForUpdates each(path, local, view);
        each.SetTransport(&scripted);
        scripted.m_starts = 0;
        ASSERT_TRUE(each.Check());
        AnswerHead();
        std::ofstream(CStringA(scripted.m_request.fileName), std::ios::binary) << row.body;
        scripted.Show(row.statusCode, row.body.size(), row.expected);
        scripted.End(row.error, CString(row.errorText.c_str()));
        StatusWindow::PumpUntil([&] { return !each.IsActive() && !HasTemporaryFiles(); });
        EXPECT_FALSE(each.IsActive() || HasTemporaryFiles());
        const std::string shown = view.Take();
        EXPECT_NE(std::string::npos, shown.find(ErrorBox(row.errorText + row.shown))) << shown;
        EXPECT_EQ(shown.find("(30) "), shown.rfind("(30) ")) << shown;
        EXPECT_EQ(resultFailed, view.m_results.back());
        EXPECT_EQ(kOldListing, LocalFile());
        EXPECT_EQ(COleDateTime(), AfxGetProfileCheckForUpdatesLastModified(path));
    }
}

TEST_F(CheckWithTransport, ASecondCheckHasToWaitForTheTransport) {
    ASSERT_TRUE(check.Check());
    AfxWriteProfileCheckForUpdatesLastChecked(path, COleDateTime());
    {
        CCheckForUpdates second(path, local, view);
        second.SetTransport(&scripted);
        EXPECT_FALSE(second.Check());
    }
    EXPECT_TRUE(check.IsActive());
    EXPECT_EQ(0, scripted.m_cancels);
}

} // namespace
