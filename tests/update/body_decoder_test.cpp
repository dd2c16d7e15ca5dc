#include "update/body_decoder.h"

#include "support/test.h"

namespace {

using quorvel::BodyDecoder;

// "abc" and 1,000 zeros as gzip.
const std::string kAbc("\x1f\x8b\x08\0\0\0\0\0\x02\x03\x4b\x4c\x4a\x06\0\xc2\x41\x24\x35\x03\0\0\0",
                       23);
const std::string kZeros("\x1f\x8b\x08\0\0\0\0\0\x02\x03\x33\x30\x18\x05\xa3\x60\x14\x0c\x77\0\0"
                         "\x83\x99\x5f\xa8\xe8\x03\0\0",
                         29);

TEST(BodyDecoder, TakesTheCodingsOffOrSaysWhatIsWrong) {
    const std::string chunked = "transfer-encoding: , Chunked\r\n";
    const std::string gzip = "Content-Encoding: gzip\r\n";
    using enum BodyDecoder::Outcome;
    const std::tuple<std::string, std::string, BodyDecoder::Outcome, std::string> rows[] = {
        // With and without a length
        {"", "abc", Complete, "abc"},
        {"Content-Length: 3x\r\nContent-Encoding: identity\r\n", "abc", Complete, "abc"},
        {"content-length: 3\r\n", "abcd", Complete, "abc"},
        {"Content-Length: 4\r\n", "abc", Incomplete, "abc"},
        // Chunked
        {chunked + "Content-Length: 1\r\n",
         "3;x=\"y\"\r\nabc\r\n00A \r\n0123456789\r\n0\r\nX: y\r\n\r\nno more", Complete,
         "abc0123456789"},
        {chunked, "2\nab\n0\n", Complete, "ab"},
        {chunked, "2\r\nab\r\n", Incomplete, "ab"},
        {chunked, "2\r\na", Incomplete, "a"},
        {chunked, "2\r\nabc\r\n0\r\n\r\n", Damaged, "ab"},
        {chunked, "x\r\n", Damaged, ""},
        {chunked, "10000000000000000\r\nab", Damaged, ""},
        // Gzip
        {gzip, kAbc + kAbc, Complete, "abcabc"},
        {gzip, kAbc.substr(0, 22), Incomplete, "abc"},
        {gzip, "abc", Damaged, ""},
        {gzip, "", Incomplete, ""},
        {gzip, kZeros, TooLong, ""},
        {"Transfer-Encoding: X-GZIP, chunked\r\n", "17\r\n" + kAbc + "\r\n0\r\n\r\n", Complete,
         "abc"},
        // Unsupported encodings
        {"Transfer-Encoding: chunked, gzip\r\n", "3\r\nabc\r\n0\r\n\r\n", Damaged, ""},
        {"Content-Encoding: chunked\r\n", "3\r\nabc\r\n0\r\n\r\n", Damaged, ""},
        {"Content-Encoding: gzip, gzip\r\n", kAbc, Damaged, ""},
        {"Content-Encoding: br\r\n", "abc", Damaged, ""},
    };
    for (const auto& [fields, body, outcome, expected] : rows) {
        CHttpHeader header;
        ASSERT_TRUE(header.InitializeFromStream(
            CString(("HTTP/1.1 200 OK\r\n" + fields + "\r\n").c_str())));
        for (const std::size_t piece : {std::size_t{1}, body.size() + 1}) {
            SCOPED_TRACE(fields + body + " by " + std::to_string(piece));
            std::string decoded;
            BodyDecoder decoder(header, 13, [&](const char* bytes, std::size_t count) {
                decoded.append(bytes, count);
            });
            for (std::size_t at = 0; at < body.size(); at += piece)
                decoder.Add(body.data() + at, std::min(piece, body.size() - at));
            EXPECT_EQ(outcome, decoder.GetOutcome());
            if (outcome != TooLong && outcome != Damaged) {
                EXPECT_EQ(expected, decoded);
            }
        }
    }
}

} // namespace
