// Opening with xdg-open: a script of that name in PATH records its arguments.
#include <quorvel/system/open_file.h>

#include "support/environment.h"
#include "support/message_box_recorder.h"
#include "support/temporary_folder.h"
#include "support/test.h"
#include "system/open_link.h"

using namespace quorvel::win32;

namespace {

class XdgOpen : public testing::Test {
protected:
    void Install(const std::string& last) {
        m_folder.Write(_T("xdg-open"), "#!/bin/sh\n"
                                       "printf '%s|' \"$PWD\" \"$@\" >\"$0.seen\"\n" +
                                           last + "\n");
        std::filesystem::permissions(m_folder.Path(_T("xdg-open")).ToUTF8(),
                                     std::filesystem::perms(0755));
    }
    std::string Seen() const { return m_folder.Read(_T("xdg-open.seen")); }

    const TemporaryFolder m_folder;
    const EnvironmentVariable m_path{"PATH", m_folder.Path().ToUTF8().c_str()};
    MessageBoxRecorder m_app;
};

TEST_F(XdgOpen, GetsOneArgumentAndItsFolder) {
    Install("exit 0");
    m_folder.Write(_T("-a b;$(x).txt"), "");
    const std::string folder = m_folder.Path().ToUTF8();
    const std::string here = std::filesystem::current_path().native();
    EXPECT_TRUE(AfxOpenFile(_T("-a b;$(x).txt"), nullptr, m_folder.Path(), TRUE));
    EXPECT_EQ(Seen(), folder + "|./-a b;$(x).txt|");
    EXPECT_TRUE(AfxOpenFile(m_folder.Path(), _T(""), _T(""), TRUE));
    EXPECT_EQ(Seen(), here + '|' + folder + '|');
    EXPECT_TRUE(AfxOpenFile(_T("x-none:\u00fc b"), _T(""), _T(""), TRUE));
    EXPECT_EQ(Seen(), here + "|x-none:\u00fc b|");
    EXPECT_TRUE(quorvel::OpenExternalLink(_T("https://example.com/a?b&c")));
    EXPECT_EQ(Seen(), here + "|https://example.com/a?b&c|");
    EXPECT_TRUE(m_app.Take().empty());
}

TEST_F(XdgOpen, FailuresAreReportedWhenAskedFor) {
    const struct {
        const char* last;
        DWORD error;
    } rows[] = {{"exit 0", 0},    {"exit 1", 31}, {"exit 2", 2},
                {"exit 3", 1155}, {"exit 4", 31}, {"kill -KILL $$", 31}};
    for (const auto& row : rows) {
        Install(row.last);
        for (const BOOL shows : {TRUE, FALSE}) {
            EXPECT_EQ(
                ErrorOf([shows] { return AfxOpenFile(_T("http://a/"), nullptr, nullptr, shows); }),
                row.error)
                << row.last;
            EXPECT_EQ(m_app.Take().size(), shows && row.error != 0 ? 1u : 0u) << row.last;
        }
    }
    EXPECT_TRUE(quorvel::OpenExternalLink(_T("http://a/"))) << "was handed over";
    EXPECT_EQ(m_app.Take().size(), 1u);
    EXPECT_EQ(ErrorOf([] { return AfxOpenFile(_T("http://a/"), _T("x"), nullptr, FALSE); }), 50u);
    std::filesystem::remove(m_folder.Path(_T("xdg-open")).ToUTF8());
    EXPECT_EQ(ErrorOf([] { return AfxOpenFile(_T("http://a/"), nullptr, nullptr, FALSE); }), 1155u);
}

} // namespace
