#include <quorvel/types/data_holders.h>

#include <limits>

// One definition for all three classes.
#define QUORVEL_DEFINE_HOLDER(Class, Value)                                                        \
    void Class::Serialize(CArchive& archive) {                                                     \
        archive << m_data;                                                                         \
    }                                                                                              \
    void Class::Deserialize(CArchive& archive) {                                                   \
        archive >> m_data;                                                                         \
    }                                                                                              \
    BOOL Class::IsValidBitShift(int shift) noexcept {                                              \
        return shift >= MIN_BIT_SHIFT && shift <= MAX_BIT_SHIFT;                                   \
    }                                                                                              \
    BOOL Class::IsValidFieldWidth(int width) noexcept {                                            \
        return width >= MIN_FIELD_WIDTH && width <= MAX_FIELD_WIDTH;                               \
    }                                                                                              \
    BOOL Class::IsValidField(int shift, int width) noexcept {                                      \
        return IsValidBitShift(shift) && IsValidFieldWidth(width) &&                               \
               shift + width <= MAX_FIELD_WIDTH;                                                   \
    }                                                                                              \
    Value Class::GetMaximumFieldValue(int width) noexcept {                                        \
        if (!IsValidFieldWidth(width))                                                             \
            return 0;                                                                              \
        return static_cast<Value>(std::numeric_limits<Value>::max() >> (MAX_FIELD_WIDTH - width)); \
    }                                                                                              \
    BOOL Class::IsValidFieldValue(int width, Value value) noexcept {                               \
        return IsValidFieldWidth(width) && value <= GetMaximumFieldValue(width);                   \
    }                                                                                              \
    Value Class::GetFieldMask(int shift, int width) noexcept {                                     \
        if (!IsValidField(shift, width))                                                           \
            return 0;                                                                              \
        return static_cast<Value>(GetMaximumFieldValue(width) << shift);                           \
    }                                                                                              \
    Value Class::GetFieldData(int shift, int width) const noexcept {                               \
        if (!IsValidField(shift, width))                                                           \
            return 0;                                                                              \
        return static_cast<Value>((m_data & GetFieldMask(shift, width)) >> shift);                 \
    }                                                                                              \
    BOOL Class::SetFieldData(int shift, int width, Value fieldValue) noexcept {                    \
        if (!IsValidField(shift, width) || !IsValidFieldValue(width, fieldValue))                  \
            return FALSE;                                                                          \
        m_data =                                                                                   \
            static_cast<Value>((m_data & ~GetFieldMask(shift, width)) | (fieldValue << shift));    \
        return TRUE;                                                                               \
    }

QUORVEL_DEFINE_HOLDER(CByteData, BYTE)
QUORVEL_DEFINE_HOLDER(CWordData, WORD)
QUORVEL_DEFINE_HOLDER(CDWordData, DWORD)
