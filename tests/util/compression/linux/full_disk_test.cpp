// A device that is always full.
#include <quorvel/util/compression/compression.h>
#include <quorvel/util/compression/zip_file.h>
#include <quorvel/util/compression/zstream.h>

#include "support/message_box_recorder.h"
#include "support/temporary_folder.h"
#include "support/text.h"
#include "util/compression/bytes.h"

#include <gtest/gtest.h>

TEST(FullDisk, IsToldByEveryWayToCompress) {
    MessageBoxRecorder recorder;
    for (const std::size_t size : {3u, 200000u}) {
        const std::string bytes = RandomBytes(size);
        CFile full(_T("/dev/full"), CFile::modeWrite);
        TestFile source(bytes);
        DWORD bytesRead;
        DWORD bytesWritten;
        EXPECT_FALSE(
            AfxDeflate(source, bytesRead, full, bytesWritten, -1, FALSE, nullptr, nullptr));
        auto boxes = recorder.Take();
        ASSERT_EQ(boxes.size(), 1u);
        EXPECT_EQ(boxes[0].text, _T("An error has occurred while deflating data.\r\n\r\n")
                                 _T("The disk is full."));
        TestFile packed(Packed(bytes));
        EXPECT_FALSE(AfxInflate(packed, bytesRead, full, bytesWritten, FALSE, nullptr, nullptr));
        boxes = recorder.Take();
        ASSERT_EQ(boxes.size(), 1u);
        EXPECT_EQ(boxes[0].text, _T("An error has occurred while inflating data.\r\n\r\n")
                                 _T("The disk is full."));

        CZStream stream;
        ASSERT_TRUE(stream.DeflateInit(-1));
        source.SeekToBegin();
        UINT written;
        EXPECT_EQ(stream.Deflate(source, 0xffffffff, full, written), 0);
        stream.DeflateEnd();

        TemporaryFolder folder;
        folder.Write(_T("source"), bytes);
        CString error;
        EXPECT_FALSE(
            AfxCompressFileToZipFile(folder.Path(_T("source")), _T("/dev/full"), -1, error));
        EXPECT_FALSE(error.IsEmpty());
    }
    EXPECT_TRUE(recorder.Take().empty());
}
