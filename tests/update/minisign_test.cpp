// The keys and signatures in the seeds were made by minisign 0.11.
#include "update/minisign.h"

#include "support/temporary_folder.h"
#include "support/test.h"

#include <fstream>
#include <iterator>

namespace {

using namespace quorvel::minisign;

// The seeds of the fuzz target.
std::string Seed(const char* name) {
    std::ifstream file(QUORVEL_MINISIGN + std::string("/") + name, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

const std::string kKeyLine = Seed("key_line").substr(0, 56), kKey = Seed("key");
const std::string kSignature = Seed("signature"), kBody = "1.2.3.5";
// The lines of the signature.
const std::string kUntrusted = "untrusted comment: signature from minisign secret key\n";
const std::string kFirst = kSignature.substr(kUntrusted.size(), 101);
const std::string kComment = "trusted comment: timestamp:1710232200 file:v.txt serial:7\n";
const std::string kSecond = kSignature.substr(kUntrusted.size() + 101 + kComment.size());

class Minisign : public testing::Test {
protected:
    // "good", "wrong", or "none" if it cannot be parsed.
    std::string Validate(const std::string& key, const std::string& signature,
                         const std::string& body) {
        PublicKey publicKey;
        Signature read;
        if (!ReadPublicKey(key, publicKey) || !ReadSignature(signature, read))
            return "none";
        m_folder.Write(_T("body"), body);
        return read.id == publicKey.id &&
                       Verify(read, HashFile(m_folder.Path(_T("body"))), publicKey)
                   ? "good"
                   : "wrong";
    }
    TemporaryFolder m_folder;
};

TEST_F(Minisign, OneProperFormOfKeysAndSignaturesIsAccepted) {
    const std::string rest = kComment + kSecond;
    const auto withComment = [](const std::string& comment) {
        return kUntrusted + kFirst + "trusted comment: " + comment + "\n" + kSecond;
    };
    std::string sameBits = kFirst;
    sameBits[sameBits.size() - 3] = '1'; // was "0=": decoding drops two of its bits
    const std::tuple<const char*, std::string, std::string, const char*> rows[] = {
        {"minisign's own", kKey, kSignature, "good"},
        {"the key's line alone", kKeyLine, kSignature, "good"},
        {"line ends of Windows", kKeyLine + "\r\n", Seed("crlf"), "good"},
        {"no line end at the end", kKeyLine + "\n", kSignature.substr(0, kSignature.size() - 1),
         "good"},
        {"the older form", kKey, Seed("older_form"), "none"},
        {"another form of base64", kKey, kUntrusted + sameBits + rest, "none"},
        {"a blank in base64", kKey, kUntrusted + " " + kFirst + rest, "none"},
        {"twice", kKey, kSignature + kSignature, "none"},
        {"a fifth line", kKey, kSignature + "\n", "none"},
        {"without its comment", kKey, kFirst + rest, "none"},
        {"without the trusted one", kKey, kUntrusted + kFirst + kSecond, "none"},
        {"a zero", kKey, withComment(std::string(1, 0)), "none"},
        {"a comment without end", kKey, withComment(std::string(8193, 'a')), "none"},
        {"empty key", "", kSignature, "none"},
        {"a key of two keys", kKeyLine + "\n" + kKeyLine, kSignature, "none"},
        {"a comment and no key", "untrusted comment: minisign public key", kSignature, "none"},
        {"a signature as key", kFirst, kSignature, "none"},
        {"a key of zeros", "RWQ" + std::string(53, 'A'), kSignature, "wrong"},
    };
    for (const auto& [label, key, signature, expected] : rows)
        EXPECT_EQ(expected, Validate(key, signature, kBody)) << label;
    EXPECT_EQ("wrong", Validate(kKey, kSignature, "1.2.3.6"));
    for (std::size_t length = 0; length + 1 < kSignature.size(); ++length)
        EXPECT_NE("good", Validate(kKey, kSignature.substr(0, length), kBody)) << length;
}

TEST_F(Minisign, NoByteMayChange) {
    const std::size_t comment = std::string("untrusted comment: ").size();
    const std::string both = kKeyLine + kSignature;
    for (std::size_t i = 0; i < both.size(); ++i) {
        std::string changed = both;
        changed[i] = static_cast<char>(changed[i] ^ 1);
        const std::size_t at = i - kKeyLine.size(); // huge in the key
        EXPECT_EQ(at >= comment && at < kUntrusted.size() - 1,
                  Validate(changed.substr(0, kKeyLine.size()), changed.substr(kKeyLine.size()),
                           kBody) == "good")
            << i;
    }
}

TEST_F(Minisign, TheTrustedCommentsWordsAreRead) {
    constexpr ULONGLONG kMissing = 99;
    const std::tuple<const char*, ULONGLONG, ULONGLONG> rows[] = {
        {"timestamp:1710232200 file:v.txt serial:7", 1710232200, 7},
        {"timestamp:1710232200\tfile:v.txt\thashed", 1710232200, kMissing},
        {"serial:", kMissing, kMissing},
        {"serial:7x", kMissing, kMissing},
        {"serial:-7", kMissing, kMissing},
        {"serial:7 serial:8", kMissing, 7},
        {"xserial:7", kMissing, kMissing},
        {"serial:18446744073709551615", kMissing, 18446744073709551615u},
        {"serial:18446744073709551616", kMissing, kMissing},
    };
    for (const auto& [comment, timestamp, serial] : rows) {
        const Facts facts = ReadFacts(comment);
        EXPECT_EQ(timestamp, facts.timestamp.value_or(kMissing)) << comment;
        EXPECT_EQ(serial, facts.serial.value_or(kMissing)) << comment;
    }
    EXPECT_EQ(_T("0807060504030201"), KeyIdText({1, 2, 3, 4, 5, 6, 7, 8}));
}

} // namespace
