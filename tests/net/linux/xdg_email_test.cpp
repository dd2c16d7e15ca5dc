// Mail with xdg-email: a script of that name in PATH records its arguments.
#include <quorvel/net/mail.h>

#include "net/linux/mailto.h"
#include "net/mail_message.h"
#include "support/environment.h"
#include "support/message_box_recorder.h"
#include "support/temporary_folder.h"
#include "support/test.h"

namespace {

constexpr const WCHAR* kNoSupport = _T("Unable to load mail system support.");
constexpr const WCHAR* kNotSent = _T("Send mail failed to send message.");

TEST(Mailto, HoldsTextsThatCannotBeAnythingElse) {
    const std::tuple<const WCHAR*, const WCHAR*, const WCHAR*, const WCHAR*, const char*> rows[] = {
        {_T("Ann"), _T("ann@example.com"), _T("Hi"), _T("Text"),
         "mailto:%22Ann%22%20%3Cann@example.com%3E?subject=Hi&body=Text"},
        {_T("a@b.c"), _T("SMTP:a@b.c"), _T("s"), _T("b"), "mailto:a@b.c?subject=s&body=b"},
        {_T("--attach"), _T("-a@b.c"), _T("-s"), _T("-n"),
         "mailto:%22--attach%22%20%3C-a@b.c%3E?subject=-s&body=-n"},
        {_T("a\nBcc: x"), _T("a\r\n@b.c"), _T("s\r\nBcc: y"), _T("1\n2\r\n3\r4\r\n"),
         "mailto:%22a%20Bcc%3A%20x%22%20%3Ca%20%20@b.c%3E?subject=s%20%20Bcc%3A%20y"
         "&body=1%0D%0A2%0D%0A3%0D%0A4%0D%0A"},
        {_T("q\"\\"), _T("a&cc=x@b.c"), _T("50%0A?&="), _T("\u00fc\u20ac"),
         "mailto:%22q%5C%22%5C%5C%22%20%3Ca%26cc%3Dx@b.c%3E?subject=50%250A%3F%26%3D"
         "&body=%C3%BC%E2%82%AC"},
    };
    for (const auto& [name, address, subject, body, uri] : rows) {
        quorvel::MailMessage message({name, address, subject, body, nullptr, nullptr});
        EXPECT_EQ(quorvel::MailtoOf(message.Get()), uri);
    }
}

TEST(Mailto, AttachmentNamesAreNamesOnly) {
    using quorvel::AttachmentNameOf;
    ExpectCases<std::string>({CASE(AttachmentNameOf("b.txt", "/x/a.txt"), "b.txt"),
                              CASE(AttachmentNameOf("", "/x/a.txt"), "a.txt"),
                              CASE(AttachmentNameOf("../../b.txt", "/x/a.txt"), "b.txt"),
                              CASE(AttachmentNameOf("..", "/x/a.txt"), "a.txt"),
                              CASE(AttachmentNameOf("c\\b.txt", "/x/a.txt"), "b.txt"),
                              CASE(AttachmentNameOf("b/", "/x/a.txt"), "a.txt")});
}

class XdgEmail : public testing::Test {
protected:
    // The script writes its arguments, one in each line, and ends as `last` says.
    void Install(const std::string& last) {
        m_folder.Write(_T("xdg-email"), "#!/bin/sh\nprintf '%s\\n' \"$@\" >\"$0.seen\"\n"
                                        "while [ $# -gt 1 ]; do case $1 in --attach) "
                                        "/bin/cat \"$2\" >>\"$0.seen\" ;; esac; shift; done\n" +
                                            last + "\n");
        std::filesystem::permissions(std::filesystem::path(m_folder.Path(_T("xdg-email")).ToUTF8()),
                                     std::filesystem::perms(0755));
    }
    BOOL Send(const WCHAR* path = nullptr, const WCHAR* name = nullptr) {
        return AfxSendMessage2(_T("a@b.c"), _T("a@b.c"), _T("s"), _T("b"), path, name);
    }
    // Compares the result of sending with its box; null: sent without a box.
    void ExpectBox(BOOL isSent, const WCHAR* text, const char* label) {
        std::vector<RecordedMessageBox> boxes;
        if (text != nullptr)
            boxes.push_back({text, MB_OK | MB_ICONSTOP, 0});
        EXPECT_EQ(m_app.Take(), boxes) << label;
        EXPECT_EQ(isSent, text == nullptr) << label;
    }
    std::string Seen() const { return m_folder.Read(_T("xdg-email.seen")); }
    std::size_t FilesLeft() const {
        return static_cast<std::size_t>(
            std::distance(std::filesystem::directory_iterator(m_temporary.Path().ToUTF8()), {}));
    }

    const TemporaryFolder m_folder, m_temporary;
    const EnvironmentVariable m_path{"PATH", m_folder.Path().ToUTF8().c_str()};
    const EnvironmentVariable m_temporaryPath{"TMPDIR", m_temporary.Path().ToUTF8().c_str()};
    MessageBoxRecorder m_app;
};

TEST_F(XdgEmail, EndsAsTheProgramEnds) {
    const std::pair<const char*, const WCHAR*> rows[] = {
        {"exit 0", nullptr},        {"exit 1", kNotSent},  {"exit 3", kNoSupport},
        {"exit 4", kNotSent},       {"exit 130", nullptr}, {"kill -INT $$", nullptr},
        {"kill -KILL $$", kNotSent}};
    for (const auto& [last, box] : rows) {
        Install(last);
        ExpectBox(Send(), box, last);
        ExpectBox(AfxSendMessage(_T("a"), _T("a@b.c"), _T("s"), _T("b"), nullptr, nullptr), box,
                  last);
    }
    const CString body(_T('b'), 200000); // is one argument, longer than the system takes
    ExpectBox(AfxSendMessage2(_T("a"), _T("a@b.c"), _T("s"), body, nullptr, nullptr), kNotSent,
              "long");
    std::filesystem::remove(m_folder.Path(_T("xdg-email")).ToUTF8());
    ExpectBox(Send(), kNoSupport, "missing");
}

TEST_F(XdgEmail, AttachesTheFileUnderItsName) {
    Install("exit 0");
    m_folder.Write(_T("-a.txt"), "contents");
    const std::string path = m_folder.Path(_T("-a.txt")).ToUTF8();
    const std::string last = "\nmailto:a@b.c?subject=s&body=b\ncontents";
    for (const WCHAR* name : {static_cast<const WCHAR*>(nullptr), _T("-a.txt")}) {
        EXPECT_TRUE(Send(m_folder.Path(_T("-a.txt")), name));
        EXPECT_EQ(Seen(), "--utf8\n--attach\n" + path + last);
    }
    EXPECT_EQ(FilesLeft(), 0u);

    EXPECT_TRUE(Send(m_folder.Path(_T("-a.txt")), _T("../b \u00fc.txt")));
    const std::string seen = Seen();
    const std::string begin = "--utf8\n--attach\n" + m_temporary.Path().ToUTF8() + "/quorvel-mail-";
    EXPECT_EQ(seen.substr(0, begin.size()), begin);
    EXPECT_EQ(seen.substr(begin.size() + 6), "/b \u00fc.txt" + last);
    EXPECT_EQ(FilesLeft(), 1u) << "the mail program reads it later";

    Install("exit 4");
    EXPECT_FALSE(Send(m_folder.Path(_T("-a.txt")), _T("b.txt")));
    EXPECT_EQ(FilesLeft(), 1u) << "that of a failure is removed";
}

} // namespace
