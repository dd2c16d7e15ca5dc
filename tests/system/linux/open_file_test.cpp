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
}

TEST_F(XdgOpen, FailuresAreReportedWhenAskedFor) {
    const auto error = [](const WCHAR* file, const WCHAR* parameters, BOOL shows) {
        return ErrorOf([&] { return AfxOpenFile(file, parameters, nullptr, shows); });
    };
    const std::tuple<const char*, DWORD> rows[] = {
        {"exit 0", 0}, {"exit 2", 2}, {"exit 3", 1155}, {"exit 4", 31}, {"kill -KILL $$", 31}};
    for (const auto& [last, expected] : rows) {
        Install(last);
        for (const BOOL shows : {TRUE, FALSE}) {
            EXPECT_EQ(error(_T("http://a/"), nullptr, shows), expected) << last;
            EXPECT_EQ(m_app.Take().size(), shows && expected != 0 ? 1u : 0u) << last;
        }
    }
    EXPECT_TRUE(quorvel::OpenExternalLink(_T("http://a/"))) << "was handed over";
    EXPECT_EQ(m_app.Take().size(), 1u);
    EXPECT_EQ(error(_T("http://a/"), _T("x"), FALSE), 50u);
    EXPECT_EQ(error(_T("-option"), nullptr, FALSE), 2u);
    std::filesystem::remove(m_folder.Path(_T("xdg-open")).ToUTF8());
    EXPECT_EQ(error(_T("http://a/"), nullptr, FALSE), 1155u);
}

} // namespace
