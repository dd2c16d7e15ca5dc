// The dialogs of the checks for updates with the options that a host can set: its own transport,
// the publisher's keys, strictness, and the age of listings. What each refuses has its own tests.
#include <quorvel/res/message_ids.h>
#include <quorvel/res/resource_ids.h>
#include <quorvel/update/win/check_for_updates_dlg.h>
#include <quorvel/update/win/update_dlg.h>

#include "update/scripted_transport.h"
#include "update/signing_keys.h"
#include "update/win/scripted_dialog.h"

#include <process.h>

namespace {

// The site is a folder that the transport reads.
class SecuredDialogs : public testing::Test, protected CheckSurroundings {
protected:
    SecuredDialogs() { dialog.SetTransport(&transport); }
    void Publish(const WCHAR* name, const std::string& bytes, const std::string& signature) {
        folder.Write(name, bytes);
        folder.Write(CString(name) + _T(".minisig"), signature);
        AfxWriteProfileCheckForUpdatesURL(path, CString(_T("https://host.example/")) + name);
        AfxWriteProfileCheckForUpdatesLastChecked(path, COleDateTime());
        AfxWriteProfileCheckForUpdatesLastModified(path, COleDateTime());
    }
    // Sets options in the open dialog, presses Check and waits for its end with this number of
    // boxes. Returns what they showed.
    std::string Check(
        std::size_t boxCount, std::function<void()> set = [] {}) {
        AfxWriteProfileCheckForUpdatesLastChecked(path, COleDateTime());
        const auto hasEnded = [&] {
            return boxes.m_boxes.size() >= boxCount && !HasTemporaryFiles();
        };
        const auto nothingFollows = [](HWND) {};
        const DialogDriver driver({[&](HWND) { set(); }, ClickOn(QUORVEL_UPDATES_CHECK),
                                   WaitUntil(hasEnded), nothingFollows, nothingFollows,
                                   Press(VK_ESCAPE)});
        EXPECT_EQ(dialog.DoModal(), IDCANCEL);
        EXPECT_TRUE(driver.HasRun());
        EXPECT_FALSE(HasTemporaryFiles());
        EXPECT_EQ(boxes.m_boxes.size(), boxCount);
        return boxes.Lines();
    }

    FolderTransport transport{folder.Path(_T(""))};
    BoxScript boxes{IDYES};
    CCheckForUpdatesDlg dialog{path, local, FALSE, nullptr};
};

TEST_F(SecuredDialogs, AListingNeedsAKeyASignatureAndAProperLength) {
    const std::string listing = Listing("2024-03-10");
    Publish(_T("updates.xml"), listing, SignatureText(kNextKey, listing, ""));
    EXPECT_FALSE(dialog.SetPublicKey(_T("no key")) || dialog.AddPublicKey(_T("no key")));
    EXPECT_EQ(Check(1).find(ErrorBox("The key of the publisher of updates is invalid.")), 0u);
    const std::tuple<std::function<void()>, std::string, std::string> rows[] = {
        {[&] { EXPECT_TRUE(dialog.SetPublicKey(PublicOf(kKey))); },
         ErrorBox("The update was signed with the unknown key 0202020202020202."), kOldListing},
        {[&] {
             EXPECT_TRUE(dialog.AddPublicKey(PublicOf(kNextKey)));
             dialog.SetBodyLimit(20);
         },
         ErrorBox("The update listing is too long."), kOldListing},
        {[&] {
             dialog.SetBodyLimit(1000);
             dialog.SetMaxAge(1);
         },
         "(30) The latest update listing is from 3/10/2024", listing},
    };
    for (const auto& [set, box, file] : rows) {
        EXPECT_NE(Check(2, set).find('\n' + box), std::string::npos) << box;
        EXPECT_EQ(LocalFile(), file);
    }
}

constexpr const char* kSharedKey = "QUORVEL_TEST_SHARED_KEY";
constexpr const char* kSharedFolder = "QUORVEL_TEST_SHARED_FOLDER";

class TwoProcesses : public SecuredDialogs {
protected:
    // As if 15 seconds had passed each time.
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
};

TEST_F(TwoProcesses, OnOnePathLeaveAWholeListing) {
    std::string items;
    for (int i = 0; i < 2000; ++i)
        items += "<item><title>Title</title></item>";
    const std::string listing = Listing("2024-03-10", items);
    Publish(_T("updates.xml"), listing, "");
    const EnvironmentVariable sharedKey(kSharedKey, CStringA(key.Path()));
    const EnvironmentVariable sharedFolder(kSharedFolder, CStringA(folder.Path(_T(""))));
    WCHAR program[MAX_PATH];
    ::GetModuleFileNameW(nullptr, program, MAX_PATH);
    const intptr_t other = ::_wspawnl(_P_NOWAIT, program, L"x", L"--gtest_also_run_disabled_tests",
                                      L"--gtest_filter=*.DISABLED_TheOther", nullptr);
    ASSERT_NE(other, -1);
    CheckOften(path, folder.Path(_T("")));
    int code = 99;
    EXPECT_EQ(::_cwait(&code, other, 0), other);
    EXPECT_EQ(code, 0);
    EXPECT_EQ(LocalFile(), listing);
}

// Run by the test above, in a process of its own.
TEST_F(TwoProcesses, DISABLED_TheOther) {
    CheckOften({HKEY_CURRENT_USER, CString(std::getenv(kSharedKey))},
               CString(std::getenv(kSharedFolder)));
}

TEST_F(SecuredDialogs, AVersionFileCountsByItsSignature) {
    Publish(_T("version.txt"), "1.2.3.9", SignatureText(kForeignKey, "1.2.3.9", ""));
    CUpdateDlg version(0, path, CVersionNumber(1, 2, 3, 4));
    version.SetTransport(&transport);
    EXPECT_TRUE(version.SetPublicKey(PublicOf(kKey)));
    EXPECT_EQ(version.DoModal(), IDCANCEL);
    EXPECT_EQ(boxes.Lines().find(ErrorBox("The update was signed with the unknown key")), 0u);
    EXPECT_TRUE(version.AddPublicKey(PublicOf(kForeignKey)));
    AfxWriteProfileCheckForUpdatesLastChecked(path, COleDateTime());
    EXPECT_EQ(version.DoModal(), IDCANCEL);
    EXPECT_EQ(boxes.Lines().find("(40) A new version of the program is available."), 0u);
}

} // namespace
