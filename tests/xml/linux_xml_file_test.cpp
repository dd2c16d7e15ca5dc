// A file whose long name leaves no room for a second file, and encodings that Wine lacks.
#include <quorvel/xml/check_xml.h>
#include <quorvel/xml/xml_file.h>

#include "support/temporary_folder.h"
#include "support/test.h"

#include <sys/resource.h>

#include <csignal>

TEST(LinuxXmlFile, BytesWithoutAMeaningAreAFaultWhereTheyStand) {
    const std::tuple<std::string, std::string, int> rows[] = {
        {"euc-jp", "\xa4\xa2\xa4</a>", 1},
        {"hz-gb-2312", std::string(70001, 'x') + "~{<:Ky~}</a>", -1},
        {"hz-gb-2312", "~{<:Ky~}xy\xff</a>", 4},
        {"hz-gb-2312", std::string(70001, 'x') + "~{<:\xffKy~}</a>", 70002},
    };
    const TemporaryFolder folder;
    for (const auto& [encoding, content, offset] : rows) {
        const std::string start = "<?xml version='1.0' encoding='" + encoding + "'?><a>";
        folder.Write(_T("file.xml"), start + content);
        CXMLFault fault;
        const BOOL isWellFormed = AfxCheckXMLFile(folder.Path(_T("file.xml")), fault);
        EXPECT_EQ(isWellFormed ? -1 : fault.nOffset - static_cast<int>(start.size()), offset)
            << content;
    }
}

TEST(LinuxXmlFile, WrittenInPlaceItIsKeptUntilThereIsSomethingToWrite) {
    const CString name(_T('n'), 252);
    const TemporaryFolder folder;
    folder.Write(name, "earlier and longer than what replaces it");
    CMarkup markup(_T("<a/>"));
    CString error;
    markup.SetXMLDeclaration(_T("<?xml encoding='latin1'?>"));
    EXPECT_EQ(AfxSaveXMLFile(markup, folder.Path(name), error), 0);
    EXPECT_EQ(folder.Read(name), "earlier and longer than what replaces it");
    markup.SetXMLDeclaration(_T("<?xml ?>"));
    EXPECT_NE(AfxSaveXMLFile(markup, folder.Path(name), error), 0);
    EXPECT_EQ(folder.Read(name), "<?xml ?><a/>");

    // If the whole text does not fit, nothing is changed.
    EXPECT_TRUE(markup.SetDoc(_T("<a>") + CString(_T('x'), 10000) + _T("</a>")));
    const auto ignored = std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit;
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit small = {4096, limit.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    EXPECT_EQ(AfxSaveXMLFile(markup, folder.Path(name), error), 0);
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, ignored);
    EXPECT_EQ(folder.Read(name), "<?xml ?><a/>");
    EXPECT_NE(AfxSaveXMLFile(markup, folder.Path(name), error), 0);
    EXPECT_GT(folder.Read(name).size(), 10000u);
}
