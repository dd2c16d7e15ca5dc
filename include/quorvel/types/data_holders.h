// CByteData, CWordData and CDWordData: an unsigned integer of 8, 16 or 32 bits, used as flags and
// fields.
//
// A field is `width` bits from bit `shift` on, counted from the lowest bit. The three classes
// differ only in the width of their value; the comments are at the first one. A plain number may be
// on either side of == and !=. Only Serialize and Deserialize throw. One thread at a time may use
// an object.
#pragma once

#include <quorvel/framework/archive.h>
#include <quorvel/platform/platform.h>

class QUORVEL_API CByteData { // a BYTE
public:
    // The value of a new object, and the bounds of a field.
    static constexpr BYTE DEFAULT_DATA = 0;
    static constexpr int MIN_BIT_SHIFT = 0;
    static constexpr int MAX_BIT_SHIFT = 7;
    static constexpr int MIN_FIELD_WIDTH = 1;
    static constexpr int MAX_FIELD_WIDTH = 8;

    CByteData() noexcept = default;
    CByteData(BYTE data) noexcept : m_data(data) {} // implicit
    CByteData(const CByteData& other) noexcept = default;
    CByteData& operator=(const CByteData& other) noexcept = default;

    // The value in its own width, little-endian. Both throw as CArchive does: readOnly, writeOnly,
    // or endOfFile with the value unchanged.
    virtual void Serialize(CArchive& archive);
    virtual void Deserialize(CArchive& archive);
    virtual ~CByteData() = default;

    friend BOOL operator==(const CByteData& left, const CByteData& right) noexcept {
        return left.m_data == right.m_data;
    }
    friend BOOL operator!=(const CByteData& left, const CByteData& right) noexcept {
        return left.m_data != right.m_data;
    }

    // The whole value.
    void SetData(BYTE data) noexcept { m_data = data; }
    BYTE GetData() const noexcept { return m_data; }

    // Set, clear and test all bits of the mask.
    void SetFlag(BYTE mask) noexcept { m_data |= mask; }
    void ClearFlag(BYTE mask) noexcept { m_data &= static_cast<BYTE>(~mask); }
    BOOL IsFlagSet(BYTE mask) const noexcept { return (m_data & mask) == mask; } // all its bits

    // The bounds are above. A field value is valid when it is not above the maximum of its width.
    static BOOL IsValidBitShift(int shift) noexcept;
    static BOOL IsValidFieldWidth(int width) noexcept;
    static BOOL IsValidField(int shift, int width) noexcept; // not beyond the top bit
    static BYTE GetMaximumFieldValue(int width) noexcept;    // 0 for an invalid width
    static BOOL IsValidFieldValue(int width, BYTE value) noexcept;
    static BYTE GetFieldMask(int shift, int width) noexcept; // 0 for an invalid field

    BYTE GetFieldData(int shift, int width) const noexcept; // 0 for an invalid field
    // Returns FALSE and changes nothing for an invalid field or a value above its maximum.
    BOOL SetFieldData(int shift, int width, BYTE fieldValue) noexcept;

private:
    BYTE m_data = DEFAULT_DATA;
};

class QUORVEL_API CWordData { // a WORD
public:
    CWordData() noexcept = default;
    CWordData(WORD data) noexcept : m_data(data) {} // implicit
    CWordData(const CWordData& other) noexcept = default;
    CWordData& operator=(const CWordData& other) noexcept = default;

    // As in CByteData.
    virtual void Serialize(CArchive& archive);
    virtual void Deserialize(CArchive& archive);
    virtual ~CWordData() = default;

    friend BOOL operator==(const CWordData& left, const CWordData& right) noexcept {
        return left.m_data == right.m_data;
    }
    friend BOOL operator!=(const CWordData& left, const CWordData& right) noexcept {
        return left.m_data != right.m_data;
    }

    // As in CByteData.
    void SetData(WORD data) noexcept { m_data = data; }
    WORD GetData() const noexcept { return m_data; }
    void SetFlag(WORD mask) noexcept { m_data |= mask; }
    void ClearFlag(WORD mask) noexcept { m_data &= static_cast<WORD>(~mask); }
    BOOL IsFlagSet(WORD mask) const noexcept { return (m_data & mask) == mask; }
    static BOOL IsValidBitShift(int shift) noexcept;
    static BOOL IsValidFieldWidth(int width) noexcept;
    static BOOL IsValidField(int shift, int width) noexcept;
    static WORD GetMaximumFieldValue(int width) noexcept;
    static BOOL IsValidFieldValue(int width, WORD value) noexcept;
    static WORD GetFieldMask(int shift, int width) noexcept;
    WORD GetFieldData(int shift, int width) const noexcept;
    BOOL SetFieldData(int shift, int width, WORD fieldValue) noexcept;

protected:
    // As in CByteData.
    static constexpr WORD DEFAULT_DATA = 0;
    static constexpr int MIN_BIT_SHIFT = 0;
    static constexpr int MAX_BIT_SHIFT = 15;
    static constexpr int MIN_FIELD_WIDTH = 1;
    static constexpr int MAX_FIELD_WIDTH = 16;

private:
    WORD m_data = DEFAULT_DATA;
};

class QUORVEL_API CDWordData { // a DWORD
public:
    CDWordData() noexcept = default;
    CDWordData(DWORD data) noexcept : m_data(data) {} // implicit
    CDWordData(const CDWordData& other) noexcept = default;
    CDWordData& operator=(const CDWordData& other) noexcept = default;

    // As in CByteData.
    virtual void Serialize(CArchive& archive);
    virtual void Deserialize(CArchive& archive);
    virtual ~CDWordData() = default;

    friend BOOL operator==(const CDWordData& left, const CDWordData& right) noexcept {
        return left.m_data == right.m_data;
    }
    friend BOOL operator!=(const CDWordData& left, const CDWordData& right) noexcept {
        return left.m_data != right.m_data;
    }

    // As in CByteData.
    void SetData(DWORD data) noexcept { m_data = data; }
    DWORD GetData() const noexcept { return m_data; }
    void SetFlag(DWORD mask) noexcept { m_data |= mask; }
    void ClearFlag(DWORD mask) noexcept { m_data &= ~mask; }
    BOOL IsFlagSet(DWORD mask) const noexcept { return (m_data & mask) == mask; }
    static BOOL IsValidBitShift(int shift) noexcept;
    static BOOL IsValidFieldWidth(int width) noexcept;
    static BOOL IsValidField(int shift, int width) noexcept;
    static DWORD GetMaximumFieldValue(int width) noexcept;
    static BOOL IsValidFieldValue(int width, DWORD value) noexcept;
    static DWORD GetFieldMask(int shift, int width) noexcept;
    DWORD GetFieldData(int shift, int width) const noexcept;
    BOOL SetFieldData(int shift, int width, DWORD fieldValue) noexcept;

protected:
    // As in CByteData.
    static constexpr DWORD DEFAULT_DATA = 0;
    static constexpr int MIN_BIT_SHIFT = 0;
    static constexpr int MAX_BIT_SHIFT = 31;
    static constexpr int MIN_FIELD_WIDTH = 1;
    static constexpr int MAX_FIELD_WIDTH = 32;

private:
    DWORD m_data = DEFAULT_DATA;
};
