// The keys and signatures were made by minisign 0.11.
#include "update/minisign.h"

#include <quorvel/framework/string.h>

#include "support/temporary_folder.h"
#include "support/test.h"

namespace {

using namespace quorvel::minisign;

const std::string kKeyLine = "RWS/Khd8ASra5MzNYt/64RQe2AzAHYstVTQMYPHqRNbkKpmrGz9jG4En";
const std::string kKey = "untrusted comment: minisign public key E4DA2A017C172ABF\n" + kKeyLine;
const std::string kBody = "1.2.3.5";
const std::string kFirst =
    "RUS/Khd8ASra5Bij1WoHiXjeATZ7hpCBIctshqZpLaiR/8e88KOi/xl+zDS97iUa68FDhVc/"
    "qhJTgybhG+O413VvpVrizFr5Eg0=\n";
const std::string kComment = "trusted comment: timestamp:1710232200 file:v.txt serial:7\n";
const std::string kSecond =
    "N724wtChdpPYAw2NcTSzbxTj/iEI0q297iDyVrWHbeo/7G8ibVfRaFXjQIoC8cA2LYj8xMN2"
    "GRKmAkNx9H0+AA==\n";
const std::string kUntrusted = "untrusted comment: signature from minisign secret key\n";
const std::string kSignature = kUntrusted + kFirst + kComment + kSecond;
const std::string kLegacy =
    kUntrusted +
    "RWS/Khd8ASra5FZPD83eFFM4J6F+yg+KWOUoVDgcvtWstb1dJkchvYSI8JUUTFJZV6pgIkIlAtgrn7lPs1HCeRkJvepq"
    "pCjN2g4=\n" +
    kComment +
    "hOTkDvfhr5oqjFaa0FH8zUpQmZc1oAIVHaUtHDR4EK1Q4HyoaIKaaemUsbowV9aLJYPP3ubnu2LozERQNsRTCw==\n";

std::string WithCrLf(std::string text) {
    for (std::size_t at = 0; (at = text.find('\n', at)) != text.npos; at += 2)
        text.insert(at, 1, '\r');
    return text;
}

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
        {"line ends of Windows", WithCrLf(kKey + "\n"), WithCrLf(kSignature), "good"},
        {"no line end at the end", kKeyLine + "\n", kSignature.substr(0, kSignature.size() - 1),
         "good"},
        {"the older form", kKey, kLegacy, "none"},
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
        {"", kMissing, kMissing},
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
