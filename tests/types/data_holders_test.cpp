#include <quorvel/types/data_holders.h>
#include <quorvel/types/guid.h>

#include "support/archive_image.h"

template <class Value>
static std::string ImageOf(Value& value) {
    return Stored([&](CArchive& archive) { value.Serialize(archive); });
}

template <class Holder, class Value>
static void ExpectMask(int shift, int width, Value mask) {
    EXPECT_EQ(Holder::IsValidField(shift, width), mask != 0);
    EXPECT_EQ(Holder::GetFieldMask(shift, width), mask);
    Holder holder(static_cast<Value>(~Value{0}));
    EXPECT_EQ(holder.GetFieldData(shift, width), mask != 0 ? mask >> shift : 0);
    EXPECT_EQ(holder.SetFieldData(shift, width, 0), mask != 0);
    EXPECT_EQ(holder.GetData(), static_cast<Value>(~mask));
}

TEST(DataHolders, FieldsStayInsideTheirValue) {
    const std::tuple<int, int, BYTE, WORD, DWORD> rows[] = {
        {-1, 2, 0, 0, 0}, {2, -1, 0, 0, 0},         {0, 32, 0, 0, 0xffffffff},
        {0, 0, 0, 0, 0},  {5, 4, 0, 0x1e0, 0x1e0},  {INT_MAX, INT_MAX, 0, 0, 0},
        {1, 32, 0, 0, 0}, {4, 4, 0xf0, 0xf0, 0xf0}, {15, 1, 0, 0x8000, 0x8000},
    };
    for (const auto& [shift, width, byteMask, wordMask, dwordMask] : rows) {
        SCOPED_TRACE(testing::Message() << width << " bits from " << shift);
        ExpectMask<CByteData>(shift, width, byteMask);
        ExpectMask<CWordData>(shift, width, wordMask);
        ExpectMask<CDWordData>(shift, width, dwordMask);
    }
    CByteData data;
    EXPECT_TRUE(data.SetFieldData(2, 3, 5));
    EXPECT_FALSE(data.SetFieldData(2, 3, 8));
    EXPECT_EQ(data.GetData(), 0x14);
    EXPECT_FALSE(data.IsFlagSet(0x15)); // a flag is all its bits
}

TEST(DataHolders, AreStoredInTheirOwnWidth) {
    ExpectImage(CByteData(0xf1), "\xf1", CByteData(1));
    ExpectImage(CWordData(0x1234), "\x34\x12", CWordData(1));
    ExpectImage(CDWordData(0x89abcdef), "\xef\xcd\xab\x89", CDWordData(1));
    struct Doubled : CByteData {
        using CByteData::CByteData;
        void Serialize(CArchive& archive) { archive << WORD{0x1234}; }
    } doubled(1);
    EXPECT_EQ(ImageOf<CByteData>(doubled), "\x34\x12");
}

TEST(Guid, IsThirtyTwoHexadecimalDigits) {
    const std::string digits = "0123456789abcdefABCDEF0123456789", most = digits.substr(1);
    for (const std::string& text : {digits, most, digits + "0", most + "g", most + "\xe9"}) {
        SCOPED_TRACE(text);
        const bool valid = text == digits;
        CGUID guid;
        const CStringA generated = guid.GetGUID();
        EXPECT_EQ(CGUID::IsValidGUID(text.c_str()), valid);
        EXPECT_EQ(guid.SetGUID(text.c_str()), valid);
        EXPECT_EQ(guid.GetGUID(), valid ? CStringA(digits.c_str()) : generated);
    }
    CGUID guid;
    EXPECT_TRUE(guid.IsValid() && guid != CGUID() && !guid.SetGUID(nullptr));

    guid.SetGUID(digits.c_str());
    EXPECT_EQ(ImageOf(guid), digits);
    const auto load = [&](CArchive& archive) { guid.Deserialize(archive); };
    EXPECT_EQ(LoadCause(digits.substr(1), load), CArchiveException::endOfFile);
    EXPECT_EQ(guid.GetGUID(), digits.c_str());
    const std::string zeroInside = digits.substr(0, 31) + std::string(1, '\0');
    EXPECT_EQ(LoadCause(zeroInside + "next", load), CArchiveException::none);
    EXPECT_FALSE(guid.IsValid());
    EXPECT_EQ(ImageOf(guid), CGUID::DEFAULT_GUID);
}
