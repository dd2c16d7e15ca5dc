// The dialogs of the checks for updates with the options that a host can set: its own transport,
// the publisher's keys, strictness, and the age of listings. What each refuses has its own tests.
#include <quorvel/res/message_ids.h>
#include <quorvel/res/resource_ids.h>
#include <quorvel/update/win/check_for_updates_dlg.h>
#include <quorvel/update/win/update_dlg.h>

#include "update/folder_transport.h"
#include "update/signing_keys.h"
#include "update/win/scripted_dialog.h"

namespace {

// The site is a folder that the transport reads.
class SecuredDialogs : public testing::Test, protected CheckSurroundings {
protected:
    SecuredDialogs() {
        folder.Write(_T("local.xml"), kOld);
        boxes.m_answer = IDYES;
        dialog.SetTransport(&transport);
    }
    void Publish(const WCHAR* name, const std::string& bytes, const std::string& signature) {
        folder.Write(name, bytes);
        folder.Write(CString(name) + _T(".minisig"), signature);
        AfxWriteProfileCheckForUpdatesURL(path, CString(_T("https://host.example/")) + name);
        AfxWriteProfileCheckForUpdatesLastChecked(path, COleDateTime());
        AfxWriteProfileCheckForUpdatesLastModified(path, COleDateTime());
    }
    // Presses Check and waits for its end with this number of boxes. Returns what they showed.
    std::string Check(CCheckForUpdatesDlg& checking, std::size_t boxCount) {
        AfxWriteProfileCheckForUpdatesLastChecked(path, COleDateTime());
        const auto hasEnded = [&] {
            return boxes.m_boxes.size() >= boxCount && !HasTemporaryFiles();
        };
        const auto nothingFollows = [](HWND) {};
        const DialogDriver driver({ClickOn(QUORVEL_UPDATES_CHECK), WaitUntil(hasEnded),
                                   nothingFollows, nothingFollows, Press(VK_ESCAPE)});
        EXPECT_EQ(checking.DoModal(), IDCANCEL);
        EXPECT_TRUE(driver.HasRun());
        EXPECT_FALSE(HasTemporaryFiles());
        EXPECT_EQ(boxes.m_boxes.size(), boxCount);
        return boxes.Lines();
    }
    void ExpectRefused(const std::string& refusal) {
        EXPECT_NE(Check(dialog, 2).find('\n' + ErrorBox(refusal)), std::string::npos) << refusal;
        EXPECT_EQ(LocalFile(), kOld);
    }
    std::string LocalFile() const { return folder.Read(_T("local.xml")); }

    const std::string kOld = Listing("2024-01-01");
    FolderTransport transport{folder.Path(_T(""))};
    BoxScript boxes;
    CCheckForUpdatesDlg dialog{path, folder.Path(_T("local.xml")), FALSE, nullptr};
};

TEST_F(SecuredDialogs, AListingNeedsAKeyASignatureAndAProperLength) {
    const std::string listing = Listing("2024-03-10");
    Publish(_T("updates.xml"), listing, SignatureText(kNextKey, listing, ""));
    for (const WCHAR* text : {static_cast<const WCHAR*>(nullptr), _T("no key")}) {
        EXPECT_FALSE(dialog.SetPublicKey(text));
        EXPECT_EQ(Check(dialog, 1),
                  ErrorBox("The key of the publisher of updates is invalid. Nothing was "
                           "downloaded.\n"));
    }
    EXPECT_FALSE(dialog.AddPublicKey(_T("no key")));
    EXPECT_TRUE(dialog.SetPublicKey(PublicOf(kKey)));
    ExpectRefused("The update was signed with the unknown key 0202020202020202.");
    EXPECT_TRUE(dialog.AddPublicKey(PublicOf(kNextKey)));
    dialog.SetBodyLimit(20);
    ExpectRefused("The update listing is too long.");
    dialog.SetBodyLimit(1000);
    dialog.SetMaxAge(1);
    const std::string shown = Check(dialog, 2);
    EXPECT_EQ(shown.find("(44) There are new updates available as of 3/12/2024"), 0u);
    EXPECT_NE(shown.find("\n(30) The latest update listing is from 3/10/2024"), std::string::npos);
    EXPECT_EQ(LocalFile(), listing);
}

TEST_F(SecuredDialogs, WhatIsSetWhileADialogIsOpenCountsForTheNextCheck) {
    Publish(_T("updates.xml"), Listing("2024-03-10"), "<html/>");
    CCheckForUpdatesDlg open(path, folder.Path(_T("local.xml")), FALSE, nullptr);
    const DialogDriver driver({[&](HWND) {
                                   open.SetTransport(&transport);
                                   open.SetPublicKey(PublicOf(kKey));
                               },
                               ClickOn(QUORVEL_UPDATES_CHECK),
                               WaitUntil([&] { return boxes.m_boxes.size() >= 2; }),
                               Press(VK_ESCAPE)});
    open.DoModal();
    EXPECT_NE(boxes.Lines().find("The signature of the update is damaged"), std::string::npos);
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
            CCheckForUpdatesDlg checking(shared, sharedFolder + _T("local.xml"), FALSE, nullptr);
            checking.SetTransport(&reader);
            const DialogDriver driver(
                {ClickOn(QUORVEL_UPDATES_CHECK), WaitUntil([&] { return !boxes.m_boxes.empty(); }),
                 WaitUntil([&] { return !HasTemporaryFiles(); }), Press(VK_ESCAPE)});
            EXPECT_EQ(checking.DoModal(), IDCANCEL);
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
    const std::string listing = Listing("2024-03-10", items);
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

TEST_F(SecuredDialogs, AVersionFileCountsByItsSignature) {
    const std::pair<SigningKey, std::string> rows[] = {
        {kForeignKey, ErrorBox("The update was signed with the unknown key")},
        {kNextKey, "(40) A new version of the program is available."},
    };
    for (const auto& [signer, box] : rows) {
        Publish(_T("version.txt"), "1.2.3.9", SignatureText(signer, "1.2.3.9", ""));
        CUpdateDlg version(0, path, CVersionNumber(1, 2, 3, 4));
        version.SetTransport(&transport);
        EXPECT_TRUE(version.SetPublicKey(PublicOf(kKey)));
        EXPECT_TRUE(version.AddPublicKey(PublicOf(kNextKey)));
        EXPECT_EQ(version.DoModal(), IDCANCEL);
        EXPECT_EQ(boxes.m_boxes.size(), 1u);
        EXPECT_EQ(boxes.Lines().find(box), 0u);
        EXPECT_FALSE(HasTemporaryFiles());
    }
}

// Uses sockets, since a transport is always strict.
TEST_F(SecuredDialogs, StrictChecksRefuseABodyThatIsTooShort) {
    const std::string listing = Listing("2024-03-10");
    const std::string incomplete = ErrorBox("The server's answer is incomplete.");
    Scripted<CCheckForUpdatesDlg> strict(source, path, folder.Path(_T("local.xml")), FALSE,
                                         nullptr);
    strict.SetStrict(TRUE);
    const auto answer = [&](const std::string& response) -> DialogDriver::Step {
        return [&, response](HWND) { source.Answer(StatusMessages{strict.m_hWnd}, response); };
    };
    {
        const DialogDriver driver({ClickOn(QUORVEL_UPDATES_CHECK), answer(kHead),
                                   answer(Response(listing, LengthField(1000))), Press(VK_ESCAPE)});
        strict.DoModal();
    }
    EXPECT_NE(boxes.Lines().find('\n' + incomplete), std::string::npos);
    EXPECT_EQ(LocalFile(), kOld);
    source.PassTime();
    Scripted<CUpdateDlg> version(source, 0, path, CVersionNumber(1, 2, 3, 4));
    version.SetStrict(TRUE);
    const DialogDriver driver({[&](HWND box) {
        source.Answer(StatusMessages{box}, Response("1.2.3", LengthField(100)));
    }});
    version.DoModal();
    EXPECT_EQ(boxes.Lines().find(incomplete), 0u);
}

} // namespace
