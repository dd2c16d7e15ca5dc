// Checks that accept only files that the publisher has signed.
#include "update/update_check.h"
#include "update/version_check.h"

#include <quorvel/system/profile.h>
#include <quorvel/update/check_for_updates.h>

#include "listing/signing.h"
#include "support/test.h"
#include "update/scripted_check.h"

namespace {

using namespace quorvel;
typedef CCheckForUpdatesView View;

SigningKey Key(unsigned char seed) {
    std::array<unsigned char, 40> random;
    random.fill(seed);
    return MakeSigningKey(random);
}
const SigningKey kKey = Key(1), kNextKey = Key(2), kForeignKey = Key(3);

CString PublicKey(const SigningKey& key) {
    return CString(PublicKeyText(key).c_str());
}
std::string Listing(const std::string& date) {
    return "<?xml version='1.0'?><rss><channel><lastBuildDate>" + date +
           "</lastBuildDate></channel></rss>";
}
std::string Answer(const std::string& body, const std::string& fields = "") {
    return "HTTP/1.1 200 OK\r\n" + fields + "\r\n" + body;
}
std::string Error(const std::string& cause) {
    return "(30) An error has occurred while checking for updates.\r\n\r\n" + cause;
}

const std::string kOld = "old";
const std::string kHead = Answer("", "Last-Modified: Tue, 12 Mar 2024 08:30:00 GMT\r\n");
const std::string kWrong = "The signature does not fit the update. It was changed on its way, or "
                           "its publisher did not sign it.\n";
const std::string kInvalid = "The signature of the update is damaged or has an unknown format.\n";
const std::string kReplayed = "The server offers an update that is older than the last one.\n";

class SignedCheck : public testing::Test, protected CheckSurroundings {
protected:
    SignedCheck() {
        folder.Write(_T("local.xml"), kOld);
        check.Verifier().SetKey(PublicKey(kKey));
    }
    // Runs a whole check with the server's three answers; returns what was shown at its end.
    std::string Run(const std::string& listing, const std::string& signature) {
        AfxWriteProfileCheckForUpdatesLastModified(path, COleDateTime());
        UpdateCheck each(path, folder.Path(_T("local.xml")), view, source);
        each.Verifier() = check.Verifier();
        each.SetMaxAge(maxAge);
        return Run(each, listing, signature);
    }
    std::string Run(UpdateCheck& each, const std::string& listing, const std::string& signature) {
        source.m_now += COleDateTimeSpan(0, 0, 0, 15);
        EXPECT_TRUE(each.Check());
        source.Answer(each, kHead);
        source.Answer(each, listing);
        view.Take();
        if (each.IsActive())
            source.Answer(each, signature);
        EXPECT_FALSE(each.IsActive());
        source.Release(each);
        each.Poll();
        each.Poll();
        EXPECT_FALSE(HasTemporaryFiles());
        return view.Take();
    }
    std::string LocalFile() const { return folder.Read(_T("local.xml")); }

    UpdateCheck check{path, folder.Path(_T("local.xml")), view, source};
    int maxAge = 0;
};

TEST_F(SignedCheck, OnlyAListingWithAGoodSignatureReplacesTheFile) {
    const std::string good = Listing("2024-03-12");
    const std::string signature = SignatureText(kKey, good, "serial:1");
    const std::string foreign = "The update was signed with the unknown key 0303030303030303.\n";
    SigningKey disguised = kForeignKey;
    disguised.id = kKey.id;
    const struct {
        const char* label;
        std::string listing, signature, shown; // empty: the file is replaced
    } rows[] = {
        {"no signature", Answer(good), "HTTP/1.1 404 Not found\r\n\r\n",
         "The signature of the update could not be downloaded.\r\n\r\nThe server has not found "
         "anything that matches the requested URI.\n"},
        {"a page instead", Answer(good), Answer("<html/>"), kInvalid},
        {"of another file", Answer(good), Answer(SignatureText(kKey, "other", "serial:1")), kWrong},
        {"changed listing", Answer(Listing("2024-03-13")), Answer(signature), kWrong},
        {"foreign key", Answer(good), Answer(SignatureText(kForeignKey, good, "")), foreign},
        {"foreign key with the id", Answer(good), Answer(SignatureText(disguised, good, "")),
         kWrong},
        {"twice", Answer(good), Answer(signature + signature), kInvalid},
        {"cut", Answer(good),
         Answer(signature.substr(0, 200),
                "Content-Length: " + std::to_string(signature.size()) + "\r\n"),
         "The server's answer is incomplete. Please try again later.\n"},
        {"1 GB announced", Answer(good), Answer("", "Content-Length: 1073741824\r\n"),
         "The signature of the update is too long. At most 16.0 KB are accepted.\n"},
        {"long", Answer(good), Answer(std::string(20000, 'x')),
         "The signature of the update is too long. At most 16.0 KB are accepted.\n"},
        {"signed, and no listing", Answer("<html/>"),
         Answer(SignatureText(kKey, "<html/>", "serial:1")),
         "The server did not send an update listing. The local updates file was not changed."},
        {"from the future", Answer(Listing("2024-03-20")),
         Answer(SignatureText(kKey, Listing("2024-03-20"), "serial:1")),
         "The server dates its update listing in the future: "},
        {"good", Answer(good), Answer(signature), ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        const std::string shown = Run(row.listing, row.signature);
        if (row.shown.empty()) {
            EXPECT_EQ(View::resultUpdated, view.m_results.back()) << shown;
            EXPECT_EQ(good, LocalFile());
            continue;
        }
        EXPECT_EQ(0u, shown.find(Error(row.shown))) << shown;
        EXPECT_EQ(View::resultFailed, view.m_results.back());
        EXPECT_EQ(kOld, LocalFile());
        EXPECT_EQ(COleDateTime(), AfxGetProfileCheckForUpdatesLastModified(path));
    }
}

TEST_F(SignedCheck, TheSignatureIsFetchedLikeTheListingFromItsSideOfTheAddress) {
    for (const auto& [url, expected] : {
             std::pair{_T("http://h/a.xml"), _T("http://h/a.xml.minisig")},
             {_T("http://h/a?b=c.d#e"), _T("http://h/a.minisig?b=c.d#e")},
         }) {
        AfxWriteProfileCheckForUpdatesURL(path, url);
        VersionCheck version(path, {1, 2, 3, 4}, view, source);
        version.Verifier().SetKey(PublicKey(kKey));
        source.m_now += COleDateTimeSpan(0, 0, 0, 15);
        ASSERT_TRUE(version.Check());
        source.Answer(version, Answer("1.2.3.5"));
        EXPECT_EQ(expected, source.m_last->m_request.url);
        EXPECT_TRUE(!source.m_last->m_request.headerOnly &&
                    source.m_last->m_request.receiveBufferSize == 128);
        version.Cancel();
        EXPECT_EQ(View::resultCancelled, view.m_results.back());
    }
}

TEST_F(SignedCheck, NothingOlderIsAcceptedThanWhatWasAcceptedLast) {
    const struct {
        const char* date;
        const char* comment;
        bool isAccepted;
    } rows[] = {
        {"2024-03-10", "", true},
        {"2024-03-10", "timestamp:1", true}, // the same once again
        {"2024-03-09", "", false},
        {"no date", "", false},
        {"2024-03-10", "serial:5", true},
        {"2024-03-11", "serial:4", false},
        {"2024-03-11", "", false}, // a number must not be missing afterwards
        {"2024-03-09", "serial:6", false},
        {"2024-03-11", "serial:5", true},
        {"2024-03-11", "serial:6", true},
    };
    for (const auto& [date, comment, isAccepted] : rows) {
        SCOPED_TRACE(testing::Message() << date << " " << comment);
        folder.Write(_T("local.xml"), kOld);
        const std::string listing = Listing(date);
        const std::string shown =
            Run(Answer(listing), Answer(SignatureText(kKey, listing, comment)));
        EXPECT_EQ(isAccepted ? listing : kOld, LocalFile());
        EXPECT_EQ(!isAccepted, shown.find(Error(kReplayed)) == 0) << shown;
    }
    CRegistryPath settings(path, _T("Check For Updates"));
    EXPECT_EQ(6u, AfxGetProfileQWord(settings, _T("Signed Serial"), 0));
    check.Reset();
    const std::string older = Listing("2024-01-01");
    Run(Answer(older), Answer(SignatureText(kKey, older, "")));
    EXPECT_EQ(older, LocalFile());
}

TEST_F(SignedCheck, AnyKeyOfAListCountsAndNoneAtAllRefuses) {
    const std::string listing = Listing("2024-03-12");
    const std::string byNext = Answer(SignatureText(kNextKey, listing, ""));
    Run(Answer(listing), byNext);
    EXPECT_EQ(kOld, LocalFile());
    EXPECT_TRUE(check.Verifier().AddKey(PublicKey(kNextKey)));
    Run(Answer(listing), byNext);
    EXPECT_EQ(listing, LocalFile());

    CCheckForUpdates hosts(path, folder.Path(_T("local.xml")), view);
    for (const WCHAR* text : {static_cast<const WCHAR*>(nullptr), _T(""), _T("no key")}) {
        EXPECT_FALSE(hosts.SetPublicKey(text));
        source.m_now += COleDateTimeSpan(1.0);
        view.Take();
        EXPECT_FALSE(hosts.Check());
        EXPECT_EQ(
            Error("The key of the publisher of updates is invalid. Nothing was downloaded.\n"),
            view.Take());
    }
    EXPECT_FALSE(hosts.AddPublicKey(_T("no key")));
    EXPECT_TRUE(hosts.SetPublicKey(PublicKey(kKey)));
    EXPECT_TRUE(hosts.AddPublicKey(PublicKey(kNextKey)));
}

TEST_F(SignedCheck, AListingThatStaysOldIsReported) {
    const std::string listing = Listing("2024-03-05");
    const std::string signature = Answer(SignatureText(kKey, listing, ""));
    const std::string stale = "(30) The latest update listing is from 3/5/2024";
    maxAge = 8;
    EXPECT_EQ(std::string::npos, Run(Answer(listing), signature).find(stale));
    maxAge = 7;
    EXPECT_NE(std::string::npos, Run(Answer(listing), signature).find(stale));
    // Also when the server has nothing newer.
    check.SetMaxAge(7);
    UpdateCheck next(path, folder.Path(_T("local.xml")), view, source);
    next.Verifier() = check.Verifier();
    next.SetMaxAge(7);
    source.m_now += COleDateTimeSpan(0, 0, 0, 15);
    ASSERT_TRUE(next.Check());
    source.Answer(next, kHead);
    EXPECT_EQ(View::resultUpToDate, view.m_results.back());
    EXPECT_NE(std::string::npos, view.Take().find(stale));
}

TEST_F(SignedCheck, AVersionFileIsHeldToItsTimeAndNumber) {
    const struct {
        const char* version;
        const char* comment;
        View::Result result;
    } rows[] = {
        {"1.2.3.5", "timestamp:1710000000 serial:2", View::resultUpdated},
        {"1.2.3.4", "timestamp:1700000000 serial:2", View::resultFailed},
        {"1.2.3.4", "timestamp:1710000000", View::resultFailed},
        {"1.2.3.4", "serial:2", View::resultFailed},
        {"1.2.3.4", "timestamp:1710000001 serial:3", View::resultUpToDate},
    };
    for (const auto& [text, comment, result] : rows) {
        SCOPED_TRACE(comment);
        VersionCheck version(path, {1, 2, 3, 4}, view, source);
        version.Verifier().SetKey(PublicKey(kKey));
        source.m_now += COleDateTimeSpan(0, 0, 0, 15);
        ASSERT_TRUE(version.Check());
        source.Answer(version, Answer(text));
        source.Answer(version, Answer(SignatureText(kKey, text, comment)));
        EXPECT_EQ(result, view.m_results.back());
        const std::string shown = view.Take();
        EXPECT_EQ(result == View::resultFailed, shown.find(kReplayed) != std::string::npos)
            << shown;
    }
}

} // namespace
