#include <quorvel/update/update_listing.h>

#include <quorvel/util/calendar/local_time.h>

#include "support/date_time.h"
#include "support/message_box_recorder.h"
#include "support/temporary_folder.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace {

typedef CUpdateListingItem Item;

const std::string kDeclaration = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n";
const COleDateTime kPublished(2024, 3, 12, 8, 30, 0);

std::string Listing(const std::string& items,
                    const std::string& date = "Tue, 12 Mar 2024 08:30 GMT") {
    return "<?xml version=\"1.0\" "
           "encoding=\"utf-8\"?>\n<rss><channel><title>x</title><lastBuildDate>" +
           date + "</lastBuildDate>" + items + "</channel></rss>";
}

class UpdateListing : public testing::Test {
protected:
    BOOL Load(const std::string& text) {
        folder.Write(_T("updates.xml"), text);
        return AfxLoadUpdateListing(folder.Path(_T("updates.xml")), listing);
    }

    TemporaryFolder folder;
    MessageBoxRecorder recorder;
    CUpdateListing listing;
};

TEST_F(UpdateListing, EntriesAreReadInOrderWithChildrenInAnyOrder) {
    ASSERT_TRUE(Load(Listing(
        "<item><title> A &amp; B </title><link>http://h/a</link><description>\n both \t ends\n"
        "</description><pubDate>Mon, 22 Jan 2024 10:00:00 +0100</pubDate><priority>HIGH</priority>"
        "</item><other><item><title>no</title></item></other>"
        "<item a='b'><priority>low</priority><pubDate>2023-11-17T14:15:00</pubDate>"
        "<guid>1</guid><description>  "
        "</description><title>\xc4\x8c</title><title>2nd</title></item>"
        "<Item/><item><description><![CDATA[<b>]]></description><pubDate>soon</pubDate>"
        "<priority>urgent</priority></item>")));
    const Item expected[] = {
        {_T(" A & B "),
         _T("both \t ends"),
         BYTE{0},
         {2024, 1, 22, 9, 0, 0},
         _T("http://h/a"),
         FALSE},
        {_T("\x010c"), _T(""), BYTE{2}, {2023, 11, 17, 14, 15, 0}, _T(""), FALSE},
        {_T(""), _T("<b>"), BYTE{1}, COleDateTime(), _T(""), FALSE}};
    ASSERT_EQ(std::size(expected), listing.GetItems().size());
    for (std::size_t i = 0; i < std::size(expected); ++i)
        EXPECT_TRUE(expected[i] == listing.GetItems()[i]) << i;
    EXPECT_EQ(kPublished, listing.GetPublishedDate());
    EXPECT_TRUE(recorder.Take().empty());
}

TEST_F(UpdateListing, AnEntryWithoutADateIsOfNow) {
    const COleDateTime before = AfxGetCurrentUTCTime();
    ASSERT_TRUE(Load(Listing("<item/>")));
    ASSERT_EQ(1u, listing.GetItems().size());
    const COleDateTime date = listing.GetItems()[0].GetDate();
    EXPECT_TRUE(before <= date && date <= AfxGetCurrentUTCTime());
    EXPECT_TRUE(listing.GetItems()[0] == Item(_T(""), _T(""), BYTE{1}, date, _T(""), FALSE));
}

TEST_F(UpdateListing, ALaterFileReplacesTheEntriesAndADateItCanRead) {
    EXPECT_EQ(COleDateTime(), listing.GetPublishedDate());
    ASSERT_TRUE(Load(Listing("<item/><item/>")));
    ASSERT_TRUE(Load(Listing("<item/>", "unknown")));
    EXPECT_EQ(1u, listing.GetItems().size());
    EXPECT_EQ(kPublished, listing.GetPublishedDate());
    ASSERT_TRUE(Load(Listing("", "2025-01-02")));
    EXPECT_EQ(0u, listing.GetItems().size());
    EXPECT_EQ(COleDateTime(2025, 1, 2, 0, 0, 0), listing.GetPublishedDate());
}

TEST_F(UpdateListing, AFileThatIsNoListingIsReportedAndChangesNothing) {
    const CString start = _T("An error has occurred while loading the local updates ")
                          _T("file.\r\n\r\nThe file is missing ");
    static const struct {
        const char *label, *text;
        const WCHAR* missing; // null: what the loader says
    } kRows[] = {
        {"no XML", "HTTP/1.1 200 OK", nullptr},
        {"an empty file", "", nullptr},
        {"cut",
         "<?xml version='1.0'?><rss><channel><lastBuildDate>2025-01-02</lastBuildDate><item>",
         nullptr},
        {"another root", "<html/>", _T("the <rss> tag.")},
        {"letter case", "<RSS><channel><lastBuildDate/></channel></RSS>", _T("the <rss> tag.")},
        {"no channel", "<rss><item/></rss>", _T("the <channel> tag.")},
        {"no date", "<rss><channel><item/></channel></rss>", _T("the <lastBuildDate> tag.")},
        {"a date elsewhere", "<rss><lastBuildDate/><channel/></rss>",
         _T("the <lastBuildDate> tag.")},
    };
    ASSERT_TRUE(Load(Listing("<item><title>kept</title></item>")));
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.label);
        EXPECT_FALSE(Load(row.missing != nullptr ? kDeclaration + row.text : row.text));
        const auto boxes = recorder.Take();
        ASSERT_EQ(1u, boxes.size());
        if (row.missing != nullptr) {
            EXPECT_EQ(start + row.missing, boxes[0].text);
            EXPECT_EQ(UINT{MB_OK | MB_ICONEXCLAMATION}, boxes[0].type);
        } else {
            EXPECT_FALSE(boxes[0].text.IsEmpty());
            EXPECT_EQ(UINT{MB_OK | MB_ICONSTOP}, boxes[0].type);
        }
        ASSERT_EQ(1u, listing.GetItems().size());
        EXPECT_EQ(_T("kept"), listing.GetItems()[0].GetTitle());
        EXPECT_EQ(kPublished, listing.GetPublishedDate());
    }
    for (const WCHAR* name : {static_cast<const WCHAR*>(nullptr), _T(""), _T("/none/of/it.xml")}) {
        EXPECT_FALSE(AfxLoadUpdateListing(name, listing));
        EXPECT_EQ(1u, recorder.Take().size());
    }
}

} // namespace
