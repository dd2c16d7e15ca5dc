// Checks that accept only files that the publisher has signed.
#include "update/update_check.h"
#include "update/version_check.h"

#include <quorvel/system/profile.h>
#include <quorvel/update/check_for_updates.h>

#include "update/scripted_check.h"
#include "update/signing_keys.h"

namespace {

using namespace quorvel;

const std::string kWrong = "The signature does not fit the update. It was changed on its way, or "
                           "its publisher did not sign it.\n";
const std::string kInvalid = "The signature of the update is damaged or has an unknown format.\n";
const std::string kReplayed = "The server offers an update that is older than the last one.\n";

class SignedCheck : public testing::Test, protected CheckSurroundings {
protected:
    SignedCheck() { check.Verifier().SetKey(PublicOf(kKey)); }
    // Runs a whole check with the server's three answers; returns what was shown at its end.
    std::string Run(const std::string& listing, const std::string& signature) {
        AfxWriteProfileCheckForUpdatesLastModified(path, COleDateTime());
        UpdateCheck each(path, local, view, source);
        each.Verifier() = check.Verifier();
        each.SetMaxAge(maxAge);
        source.PassTime();
        source.Begin(each);
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
    std::string RunSigned(const std::string& listing, const std::string& comment = "",
                          const SigningKey& signer = kKey) {
        return Run(Response(listing), Response(SignatureText(signer, listing, comment)));
    }

    UpdateCheck check{path, local, view, source};
    int maxAge = 0;
};

TEST_F(SignedCheck, AListingWithoutAGoodSignatureChangesNothing) {
    const std::string listing = Listing("2024-03-12"), good = Response(listing);
    const std::string future = Listing("2024-03-20"), noListing = "<html/>";
    const std::string signature = SignatureText(kKey, listing, "serial:1");
    SigningKey disguised = kForeignKey;
    disguised.id = kKey.id;
    const struct {
        const char* label;
        std::string listing, signature, shown;
    } rows[] = {
        {"no signature", good, "HTTP/1.1 404 Not found\r\n\r\n",
         "The signature of the update could not be downloaded.\r\n\r\n" + kNotFound},
        {"a page instead", good, Response("<html/>"), kInvalid},
        {"of another file", good, Response(SignatureText(kKey, "other", "serial:1")), kWrong},
        {"foreign key", good, Response(SignatureText(kForeignKey, listing, "")),
         "The update was signed with the unknown key 0303030303030303.\n"},
        {"foreign key with the id", good, Response(SignatureText(disguised, listing, "")), kWrong},
        {"cut", good, Response(signature.substr(0, 200), LengthField(signature.size())),
         kIncomplete},
        {"long", good, Response(std::string(20000, 'x')),
         "The signature of the update is too long. At most 16.0 KB are accepted.\n"},
        {"signed, and no listing", Response(noListing),
         Response(SignatureText(kKey, noListing, "serial:1")),
         "The server did not send an update listing. The local updates file was not changed."},
        {"from the future", Response(future), Response(SignatureText(kKey, future, "serial:1")),
         "The server dates its update listing in the future: "},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        const std::string shown = Run(row.listing, row.signature);
        EXPECT_EQ(0u, shown.find(ErrorBox(row.shown))) << shown;
        EXPECT_EQ(resultFailed, view.m_results.back());
        EXPECT_EQ(kOldListing, LocalFile());
        EXPECT_EQ(COleDateTime(), AfxGetProfileCheckForUpdatesLastModified(path));
    }
}

TEST_F(SignedCheck, NothingOlderIsAcceptedThanWhatWasAcceptedLast) {
    const std::tuple<const char*, const char*, bool> rows[] = {
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
        folder.Write(_T("local.xml"), kOldListing);
        const std::string shown = RunSigned(Listing(date), comment);
        EXPECT_EQ(isAccepted ? Listing(date) : kOldListing, LocalFile());
        EXPECT_EQ(isAccepted ? resultUpdated : resultFailed, view.m_results.back());
        EXPECT_EQ(!isAccepted, shown.find(ErrorBox(kReplayed)) == 0) << shown;
    }
    CRegistryPath settings(path, _T("Check For Updates"));
    EXPECT_EQ(6u, AfxGetProfileQWord(settings, _T("Signed Serial"), 0));
    check.Reset();
    RunSigned(Listing("2024-01-01"));
    EXPECT_EQ(Listing("2024-01-01"), LocalFile());
}

TEST_F(SignedCheck, AnyKeyOfAListCountsAndNoneAtAllRefuses) {
    const std::string listing = Listing("2024-03-12");
    RunSigned(listing, "", kNextKey);
    EXPECT_EQ(kOldListing, LocalFile());
    EXPECT_TRUE(check.Verifier().AddKey(PublicOf(kNextKey)));
    RunSigned(listing, "", kNextKey);
    EXPECT_EQ(listing, LocalFile());

    const std::string invalid = "The key of the publisher of updates is invalid.";
    CCheckForUpdates hosts(path, local, view);
    for (const WCHAR* text : {static_cast<const WCHAR*>(nullptr), _T(""), _T("no key")}) {
        EXPECT_FALSE(hosts.SetPublicKey(text) || hosts.AddPublicKey(text) || hosts.Check());
        EXPECT_EQ(ErrorBox(invalid + " Nothing was downloaded.\n"), view.Take());
    }
    EXPECT_TRUE(hosts.SetPublicKey(PublicOf(kKey)) && hosts.AddPublicKey(PublicOf(kNextKey)));
}

TEST_F(SignedCheck, AListingThatStaysOldIsReported) {
    const std::string listing = Listing("2024-03-05");
    const std::string stale = "(30) The latest update listing is from 3/5/2024";
    maxAge = 8;
    EXPECT_EQ(std::string::npos, RunSigned(listing).find(stale));
    maxAge = 7;
    EXPECT_NE(std::string::npos, RunSigned(listing).find(stale));
    // Also when the server has nothing newer.
    UpdateCheck next(path, local, view, source);
    next.Verifier() = check.Verifier();
    next.SetMaxAge(7);
    source.PassTime();
    source.Begin(next);
    EXPECT_EQ(resultUpToDate, view.m_results.back());
    EXPECT_NE(std::string::npos, view.Take().find(stale));
}

TEST_F(SignedCheck, AVersionFileIsHeldToItsTimeAndNumber) {
    AfxWriteProfileCheckForUpdatesURL(path, _T("http://h/a?b=c.d#e"));
    const std::tuple<const char*, const char*, View::Result> rows[] = {
        {"1.2.3.5", "timestamp:1710000000 serial:2", resultUpdated},
        {"1.2.3.4", "timestamp:1700000000 serial:2", resultFailed},
        {"1.2.3.4", "timestamp:1710000000", resultFailed},
        {"1.2.3.4", "serial:2", resultFailed},
        {"1.2.3.4", "cancelled", resultCancelled},
        {"1.2.3.4", "timestamp:1710000001 serial:3", resultUpToDate},
    };
    VersionCheck version(path, {1, 2, 3, 4}, view, source);
    version.Verifier().SetKey(PublicOf(kKey));
    for (const auto& [text, comment, result] : rows) {
        SCOPED_TRACE(comment);
        source.PassTime();
        ASSERT_TRUE(version.Check());
        source.Answer(version, Response(text));
        EXPECT_EQ(_T("http://h/a.minisig?b=c.d#e"), source.m_last->m_request.url);
        if (result == resultCancelled)
            version.Cancel();
        else
            source.Answer(version, Response(SignatureText(kKey, text, comment)));
        source.Release(version);
        EXPECT_EQ(result, view.m_results.back());
        EXPECT_EQ(result == resultFailed, view.Take().find(kReplayed) != std::string::npos);
        EXPECT_FALSE(HasTemporaryFiles());
    }
}

} // namespace
