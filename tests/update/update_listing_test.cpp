#include <quorvel/update/update_listing.h>

#include <quorvel/util/calendar/local_time.h>

#include "support/date_time.h"
#include "support/message_box_recorder.h"
#include "support/temporary_folder.h"
#include "support/test.h"

namespace {

typedef CUpdateListingItem Item;

const COleDateTime kPublished(2024, 3, 12, 8, 30, 0);

std::string Listing(const std::string& items, const std::string& date = "2024-03-12T08:30:00") {
    return "<rss><channel><title>x</title><lastBuildDate>" + date + "</lastBuildDate>" + items +
           "</channel></rss>";
}

class UpdateListing : public testing::Test {
protected:
    BOOL Load(const std::string& text) {
        folder.Write(_T("updates.xml"), "<?xml version='1.0'?>" + text);
        return AfxLoadUpdateListing(folder.Path(_T("updates.xml")), listing);
    }

    TemporaryFolder folder;
    MessageBoxRecorder recorder;
    CUpdateListing listing;
};

TEST_F(UpdateListing, EntriesAreReadInOrderWithChildrenInAnyOrder) {
    const COleDateTime before = AfxGetCurrentUTCTime();
    ASSERT_TRUE(Load(Listing(
        "<item><title> A &amp; B </title><link>http://h/a</link><description>\n both \t ends\n"
        "</description><pubDate>Mon, 22 Jan 2024 10:00:00 +0100</pubDate><priority>HIGH</priority>"
        "</item><other><item><title>no</title></item></other><item a='b'><priority>low</priority>"
        "<description>  </description><pubDate>soon</pubDate><title>\xc4\x8c</title></item>"
        "<Item/><item/>")));
    ASSERT_EQ(3u, listing.GetItems().size());
    const COleDateTime now = listing.GetItems()[2].GetDate(); // an entry without a date
    EXPECT_TRUE(before <= now && now <= AfxGetCurrentUTCTime());
    const std::vector<Item> expected = {
        {_T(" A & B "), _T("both \t ends"), BYTE{0}, {2024, 1, 22, 9, 0, 0}, _T("http://h/a"), 0},
        {_T("\x010c"), _T(""), BYTE{2}, COleDateTime(), _T(""), FALSE},
        {_T(""), _T(""), BYTE{1}, now, _T(""), FALSE}};
    EXPECT_TRUE(expected == listing.GetItems());
    EXPECT_EQ(kPublished, listing.GetPublishedDate());

    ASSERT_TRUE(Load(Listing("", "unknown")));
    EXPECT_EQ(0u, listing.GetItems().size());
    EXPECT_EQ(kPublished, listing.GetPublishedDate()) << "no date is no reason to forget it";
    EXPECT_TRUE(recorder.Take().empty());
}

TEST_F(UpdateListing, AFileThatIsNoListingIsReportedAndChangesNothing) {
    const CString start = _T("An error has occurred while loading the local updates file.")
                          _T("\r\n\r\nThe file is missing the ");
    const std::tuple<const char*, const WCHAR*> rows[] = {
        {"HTTP/1.1 200 OK", nullptr}, // the loader's own text
        {"<rss><channel><lastBuildDate>2025-01-02</lastBuildDate><item>", nullptr},
        {"<RSS><channel><lastBuildDate/></channel></RSS>", _T("<rss> tag.")},
        {"<rss><item/></rss>", _T("<channel> tag.")},
        {"<rss><lastBuildDate/><channel/></rss>", _T("<lastBuildDate> tag.")},
    };
    ASSERT_TRUE(Load(Listing("<item/>")));
    for (const auto& [text, missing] : rows) {
        SCOPED_TRACE(text);
        EXPECT_FALSE(Load(text));
        const RecordedMessageBox box = recorder.Take().at(0);
        EXPECT_EQ(missing != nullptr, box.text == start + missing);
        EXPECT_EQ(MB_OK | (missing != nullptr ? MB_ICONEXCLAMATION : MB_ICONSTOP), box.type);
        EXPECT_EQ(1u, listing.GetItems().size());
        EXPECT_EQ(kPublished, listing.GetPublishedDate());
    }
    EXPECT_FALSE(AfxLoadUpdateListing(nullptr, listing));
}

} // namespace
