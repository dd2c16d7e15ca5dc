// The keys and signatures were made by minisign 0.11.
#include "update/minisign.h"

#include <quorvel/framework/string.h>

#include "listing/signing.h"
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
    const std::string cut = kSignature.substr(0, kSignature.size() - 1);
    std::string sameBits = kFirst;
    sameBits[sameBits.size() - 3] = '1'; // was "0=": decoding drops two of its bits
    const struct {
        const char* label;
        std::string key, signature, body;
        const char* expected;
    } rows[] = {
        {"minisign's own", kKey, kSignature, kBody, "good"},
        {"the key's line alone", kKeyLine, kSignature, kBody, "good"},
        {"line ends of Windows", WithCrLf(kKey + "\n"), WithCrLf(kSignature), kBody, "good"},
        {"no line end at the end", kKeyLine + "\n", cut, kBody, "good"},
        {"another file", kKey, kSignature, "1.2.3.6", "wrong"},
        {"an empty file", kKey, kSignature, "", "wrong"},
        {"another trusted comment", kKey,
         kUntrusted + kFirst + "trusted comment: serial:8\n" + kSecond, kBody, "wrong"},
        {"another untrusted comment", kKey, "untrusted comment: \n" + kFirst + kComment + kSecond,
         kBody, "good"},
        {"the older form", kKey, kLegacy, kBody, "none"},
        {"another form of base64", kKey, kUntrusted + sameBits + kComment + kSecond, kBody, "none"},
        {"a blank in base64", kKey, kUntrusted + " " + kFirst + kComment + kSecond, kBody, "none"},
        {"twice", kKey, kSignature + kSignature, kBody, "none"},
        {"a fifth line", kKey, kSignature + "\n", kBody, "none"},
        {"without its comment", kKey, kFirst + kComment + kSecond, kBody, "none"},
        {"without the trusted one", kKey, kUntrusted + kFirst + kSecond, kBody, "none"},
        {"a zero", kKey,
         kUntrusted + kFirst + "trusted comment: a" + std::string(1, 0) + "\n" + kSecond, kBody,
         "none"},
        {"a comment without end", kKey,
         kUntrusted + kFirst + "trusted comment: " + std::string(8193, 'a') + "\n" + kSecond, kBody,
         "none"},
        {"empty", kKey, "", kBody, "none"},
        {"empty key", "", kSignature, kBody, "none"},
        {"a key of two keys", kKeyLine + "\n" + kKeyLine, kSignature, kBody, "none"},
        {"a comment and no key", "untrusted comment: minisign public key", kSignature, kBody,
         "none"},
        {"a signature as key", kFirst, kSignature, kBody, "none"},
        {"a key of zeros", "RWQ" + std::string(53, 'A'), kSignature, kBody, "wrong"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.expected, Validate(row.key, row.signature, row.body)) << row.label;
    for (std::size_t length = 0; length + 1 < kSignature.size(); ++length)
        EXPECT_NE("good", Validate(kKey, kSignature.substr(0, length), kBody)) << length;
}

TEST_F(Minisign, NoByteMayChange) {
    for (std::size_t i = 0; i < kKeyLine.size(); ++i) {
        std::string key = kKeyLine;
        key[i] = static_cast<char>(key[i] ^ 1);
        EXPECT_NE("good", Validate(key, kSignature, kBody)) << "byte of the key " << i;
    }
    for (std::size_t i = 0; i < kSignature.size(); ++i) {
        std::string signature = kSignature;
        signature[i] = static_cast<char>(signature[i] ^ 1);
        const bool isFree =
            i >= std::string("untrusted comment: ").size() && i < kUntrusted.size() - 1;
        EXPECT_EQ(isFree, Validate(kKey, signature, kBody) == "good")
            << "byte of the signature " << i;
    }
}

TEST_F(Minisign, WhatTheExampleSignsIsGoodAndItsSecretKeyIsReadAgain) {
    std::array<unsigned char, 40> random;
    random.fill(0x5a);
    const SigningKey key = MakeSigningKey(random);
    SigningKey again;
    ASSERT_TRUE(ReadSecretKey(SecretKeyText(key), again));
    EXPECT_EQ("good", Validate(PublicKeyText(key), SignatureText(again, kBody, "serial:1"), kBody));
    EXPECT_FALSE(ReadSecretKey(PublicKeyText(key), again));
}

TEST_F(Minisign, TheTrustedCommentsWordsAreRead) {
    constexpr ULONGLONG kMissing = 99;
    const struct {
        const char* comment;
        ULONGLONG timestamp, serial;
    } rows[] = {
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
    for (const auto& row : rows) {
        const Facts facts = ReadFacts(row.comment);
        EXPECT_EQ(row.timestamp, facts.timestamp.value_or(kMissing)) << row.comment;
        EXPECT_EQ(row.serial, facts.serial.value_or(kMissing)) << row.comment;
    }
    EXPECT_EQ(_T("0807060504030201"), KeyIdText({1, 2, 3, 4, 5, 6, 7, 8}));
}

} // namespace
