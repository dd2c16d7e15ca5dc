// The dialogs of the checks for updates with the options that a host can set: its own transport,
// the publisher's keys, strictness, and the age of listings.
#include <quorvel/res/message_ids.h>
#include <quorvel/res/resource_ids.h>
#include <quorvel/update/win/check_for_updates_dlg.h>
#include <quorvel/update/win/update_dlg.h>

#include "listing/signing.h"
#include "update/folder_transport.h"
#include "update/win/scripted_dialog.h"

#include <commctrl.h>

namespace {

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
           "</lastBuildDate><item><title>" + date + "</title></item></channel></rss>";
}

const std::string kError = "(30) An error has occurred while checking for updates.\r\n\r\n";

// The site is a folder that the transport reads.
class SecuredDialogs : public testing::Test, protected CheckSurroundings {
protected:
    SecuredDialogs() {
        folder.Write(_T("local.xml"), kOld);
        boxes.m_answer = IDYES;
    }
    void Publish(const WCHAR* name, const std::string& bytes, const std::string& signature) {
        folder.Write(name, bytes);
        const CString signatureFile = CString(name) + _T(".minisig");
        if (signature.empty())
            ::DeleteFileW(folder.Path(signatureFile));
        else
            folder.Write(signatureFile, signature);
        AfxWriteProfileCheckForUpdatesURL(path, CString(_T("https://host.example/")) + name);
        AfxWriteProfileCheckForUpdatesLastChecked(path, COleDateTime());
        AfxWriteProfileCheckForUpdatesLastModified(path, COleDateTime());
    }
    // Presses Check and waits for its end with this number of boxes. Returns what they showed.
    std::string Check(CCheckForUpdatesDlg& dialog, std::size_t boxCount) {
        const auto hasEnded = [&] {
            return boxes.m_boxes.size() >= boxCount && !HasTemporaryFiles();
        };
        const auto nothingFollows = [](HWND) {};
        const DialogDriver driver({ClickOn(QUORVEL_UPDATES_CHECK), WaitUntil(hasEnded),
                                   nothingFollows, nothingFollows, Press(VK_ESCAPE)});
        EXPECT_EQ(dialog.DoModal(), IDCANCEL);
        EXPECT_TRUE(driver.HasRun());
        EXPECT_FALSE(HasTemporaryFiles());
        EXPECT_EQ(boxes.m_boxes.size(), boxCount);
        return boxes.Lines();
    }
    std::string LocalFile() const { return folder.Read(_T("local.xml")); }

    const std::string kOld = Listing("2024-01-01");
    FolderTransport transport{folder.Path(_T(""))};
    BoxScript boxes;
};

TEST_F(SecuredDialogs, AHostsTransportNeedsNoSockets) {
    Publish(_T("updates.xml"), Listing("2024-03-01"), "");
    CCheckForUpdatesDlg dialog(path, folder.Path(_T("local.xml")), FALSE, nullptr);
    dialog.SetTransport(&transport);
    EXPECT_EQ(Check(dialog, 1).find("(44) There are new updates available as of 3/12/2024"), 0u);
    EXPECT_EQ(LocalFile(), Listing("2024-03-01"));
    folder.Write(_T("version.txt"), "1.2.3.5");
    Publish(_T("version.txt"), "1.2.3.5", "");
    CUpdateDlg version(0, path, CVersionNumber(1, 2, 3, 4));
    version.SetTransport(&transport);
    EXPECT_EQ(version.DoModal(), IDCANCEL);
    EXPECT_EQ(boxes.Lines(), "(40) A new version of the program is available.\r\n\r\n"
                             "Your version: 1.2.3.4\r\nLatest version: 1.2.3.5\n");
}

TEST_F(SecuredDialogs, OnlyWhatThePublisherSignedReplacesTheFileAndARefusalIsSaidOnce) {
    const std::string good = Listing("2024-03-10");
    const std::string old = Listing("2024-03-09");
    const std::string next = Listing("2024-03-11");
    const std::string wrong = "The signature does not fit the update.";
    const struct {
        const char* label;
        std::string listing, signature;
        std::string refusal; // the beginning of the box; empty: the file is replaced
    } rows[] = {
        {"forged", Listing("2024-03-12"), SignatureText(kKey, good, ""), wrong},
        {"wrong key", good, SignatureText(kForeignKey, good, ""),
         "The update was signed with the unknown key 0303030303030303."},
        {"no signature", good, "", "The signature of the update could not be downloaded."},
        {"no text of a signature", good, "<html/>", "The signature of the update is damaged"},
        {"no listing", "<html/>", SignatureText(kKey, "<html/>", ""),
         "The server did not send an update listing."},
        {"good", good, SignatureText(kKey, good, "serial:2"), ""},
        {"old", old, SignatureText(kKey, old, "serial:2"), "The server offers an update that is"},
        {"old number", next, SignatureText(kKey, next, "serial:1"),
         "The server offers an update that is"},
        {"by the next key", next, SignatureText(kNextKey, next, "serial:2"), ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        folder.Write(_T("local.xml"), kOld);
        Publish(_T("updates.xml"), row.listing, row.signature);
        CCheckForUpdatesDlg dialog(path, folder.Path(_T("local.xml")), FALSE, nullptr);
        dialog.SetTransport(&transport);
        EXPECT_TRUE(dialog.SetPublicKey(PublicKey(kKey)));
        EXPECT_TRUE(dialog.AddPublicKey(PublicKey(kNextKey)));
        if (row.refusal.empty()) {
            Check(dialog, 1);
            EXPECT_EQ(LocalFile(), row.listing);
        } else {
            EXPECT_NE(Check(dialog, 2).find('\n' + kError + row.refusal), std::string::npos);
            EXPECT_EQ(LocalFile(), kOld);
            EXPECT_EQ(AfxGetProfileCheckForUpdatesLastModified(path), COleDateTime());
        }
    }
}

TEST_F(SecuredDialogs, AnOldListingIsReportedAndATextThatIsNoKeyRefusesEveryCheck) {
    const std::string good = Listing("2024-03-10");
    Publish(_T("updates.xml"), good, SignatureText(kKey, good, ""));
    CCheckForUpdatesDlg dialog(path, folder.Path(_T("local.xml")), FALSE, nullptr);
    dialog.SetTransport(&transport);
    const std::string invalid =
        kError + "The key of the publisher of updates is invalid. Nothing was downloaded.\n";
    for (const WCHAR* text : {static_cast<const WCHAR*>(nullptr), _T("no key")}) {
        EXPECT_FALSE(dialog.SetPublicKey(text));
        EXPECT_EQ(Check(dialog, 1), invalid);
    }
    EXPECT_FALSE(dialog.AddPublicKey(_T("no key")));
    EXPECT_TRUE(dialog.SetPublicKey(PublicKey(kKey)));
    dialog.SetMaxAge(1);
    EXPECT_NE(Check(dialog, 2).find("\n(30) The latest update listing is from 3/10/2024"),
              std::string::npos);
    EXPECT_EQ(LocalFile(), good);
}

TEST_F(SecuredDialogs, AListingThatIsTooLongIsRefused) {
    Publish(_T("updates.xml"), Listing("2024-03-10"), "");
    CCheckForUpdatesDlg dialog(path, folder.Path(_T("local.xml")), FALSE, nullptr);
    dialog.SetTransport(&transport);
    dialog.SetBodyLimit(20);
    EXPECT_NE(Check(dialog, 2).find("The update listing is too long."), std::string::npos);
    EXPECT_EQ(LocalFile(), kOld);
}

TEST_F(SecuredDialogs, WhatIsSetWhileADialogIsOpenCountsForTheNextCheck) {
    Publish(_T("updates.xml"), Listing("2024-03-10"), "");
    CCheckForUpdatesDlg dialog(path, folder.Path(_T("local.xml")), FALSE, nullptr);
    const DialogDriver driver({[&](HWND) {
                                   dialog.SetTransport(&transport);
                                   dialog.SetPublicKey(PublicKey(kKey));
                               },
                               ClickOn(QUORVEL_UPDATES_CHECK),
                               WaitUntil([&] { return boxes.m_boxes.size() >= 2; }),
                               Press(VK_ESCAPE)});
    dialog.DoModal();
    EXPECT_NE(boxes.Lines().find("The signature of the update could not be downloaded."),
              std::string::npos);
    EXPECT_EQ(LocalFile(), kOld);
}

constexpr const WCHAR* kSharedKey = _T("QUORVEL_TEST_SHARED_KEY");
constexpr const WCHAR* kSharedFolder = _T("QUORVEL_TEST_SHARED_FOLDER");

// Checks again and again, as if 15 seconds had passed each time.
class TwoProcesses : public SecuredDialogs {
protected:
    void CheckOften(const CRegistryPath& shared, const CString& sharedFolder) {
        FolderTransport reader(sharedFolder);
        for (int round = 0; round < 5; ++round) {
            AfxWriteProfileCheckForUpdatesLastChecked(shared, COleDateTime());
            AfxWriteProfileCheckForUpdatesLastModified(shared, COleDateTime());
            CCheckForUpdatesDlg dialog(shared, sharedFolder + _T("local.xml"), FALSE, nullptr);
            dialog.SetTransport(&reader);
            const DialogDriver driver(
                {ClickOn(QUORVEL_UPDATES_CHECK), WaitUntil([&] { return !boxes.m_boxes.empty(); }),
                 WaitUntil([&] { return !HasTemporaryFiles(); }), Press(VK_ESCAPE)});
            EXPECT_EQ(dialog.DoModal(), IDCANCEL);
            EXPECT_FALSE(HasTemporaryFiles());
            boxes.Take(); // the other process may have checked just now
        }
    }
    static CString Variable(const WCHAR* name) {
        WCHAR value[MAX_PATH] = {};
        ::GetEnvironmentVariableW(name, value, MAX_PATH);
        return value;
    }
};

TEST_F(TwoProcesses, OnOnePathLeaveAWholeListing) {
    std::string items;
    for (int i = 0; i < 2000; ++i)
        items += "<item><title>Title</title></item>";
    const std::string listing = "<?xml version='1.0'?><rss><channel><lastBuildDate>2024-03-10"
                                "</lastBuildDate>" +
                                items + "</channel></rss>";
    Publish(_T("updates.xml"), listing, "");
    ::SetEnvironmentVariableW(kSharedKey, key.Path());
    ::SetEnvironmentVariableW(kSharedFolder, folder.Path(_T("")));
    WCHAR program[MAX_PATH];
    ::GetModuleFileNameW(nullptr, program, MAX_PATH);
    WCHAR arguments[] = L"x --gtest_also_run_disabled_tests --gtest_filter=*.DISABLED_TheOther";
    STARTUPINFOW how = {};
    how.cb = sizeof how;
    PROCESS_INFORMATION other;
    ASSERT_TRUE(::CreateProcessW(program, arguments, nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                                 &how, &other));
    CheckOften(path, folder.Path(_T("")));
    EXPECT_EQ(::WaitForSingleObject(other.hProcess, 60000), DWORD{WAIT_OBJECT_0});
    DWORD code = 99;
    ::GetExitCodeProcess(other.hProcess, &code);
    EXPECT_EQ(code, 0u);
    ::CloseHandle(other.hThread);
    ::CloseHandle(other.hProcess);
    EXPECT_EQ(LocalFile(), listing);
}

// Run by the test above, in a process of its own.
TEST_F(TwoProcesses, DISABLED_TheOther) {
    CheckOften({HKEY_CURRENT_USER, Variable(kSharedKey)}, Variable(kSharedFolder));
}

TEST_F(SecuredDialogs, AVersionFileCountsByItsSignatureAlone) {
    const struct {
        const char* label;
        SigningKey key;
        const char* signedText;
        const char* comment;
        std::string box;
    } rows[] = {
        {"forged", kKey, "1.2.3.4", "timestamp:2000000",
         kError + "The signature does not fit the update."},
        {"wrong key", kForeignKey, "1.2.3.9", "timestamp:2000000",
         kError + "The update was signed with the unknown key"},
        {"good", kNextKey, "1.2.3.9", "timestamp:2000000",
         "(40) A new version of the program is available."},
        {"old", kKey, "1.2.3.9", "timestamp:1000000",
         kError + "The server offers an update that is older"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        Publish(_T("version.txt"), "1.2.3.9", SignatureText(row.key, row.signedText, row.comment));
        CUpdateDlg dialog(0, path, CVersionNumber(1, 2, 3, 4));
        dialog.SetTransport(&transport);
        EXPECT_TRUE(dialog.SetPublicKey(PublicKey(kKey)));
        EXPECT_TRUE(dialog.AddPublicKey(PublicKey(kNextKey)));
        EXPECT_EQ(dialog.DoModal(), IDCANCEL);
        ASSERT_EQ(boxes.m_boxes.size(), 1u);
        EXPECT_EQ(boxes.Lines().find(row.box), 0u);
        EXPECT_FALSE(HasTemporaryFiles());
        EXPECT_EQ(LocalFile(), kOld);
    }
}

// Uses sockets, since a transport is always strict.
TEST_F(SecuredDialogs, StrictChecksRefuseABodyThatIsTooShort) {
    const std::string body = Listing("2024-03-10");
    const std::string cut = "HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\n" + body;
    for (const bool isStrict : {true, false}) {
        Scripted<CCheckForUpdatesDlg> dialog(source, path, folder.Path(_T("local.xml")), FALSE,
                                             nullptr);
        dialog.SetStrict(isStrict);
        const auto answer = [&](const std::string& response) -> DialogDriver::Step {
            return [&, response](HWND) { source.Answer(StatusMessages{dialog.m_hWnd}, response); };
        };
        const DialogDriver driver(
            {ClickOn(QUORVEL_UPDATES_CHECK),
             answer("HTTP/1.1 200 OK\r\nLast-Modified: Tue, 12 Mar 2024 08:30:00 GMT\r\n\r\n"),
             answer(cut), Press(VK_ESCAPE)});
        dialog.DoModal();
        EXPECT_EQ(boxes.Lines().find("The server's answer is incomplete.") != std::string::npos,
                  isStrict);
        EXPECT_EQ(LocalFile(), isStrict ? kOld : body);
        source.m_now += COleDateTimeSpan(1.0);
    }
    Scripted<CUpdateDlg> version(source, 0, path, CVersionNumber(1, 2, 3, 4));
    version.SetStrict(TRUE);
    const DialogDriver driver({[&](HWND box) {
        source.Answer(StatusMessages{box}, "HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n1.2.3");
    }});
    version.DoModal();
    EXPECT_EQ(boxes.Lines().find(kError + "The server's answer is incomplete."), 0u);
}

} // namespace
