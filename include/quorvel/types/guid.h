// CGUID: a persistent identifier of 32 hexadecimal characters.
//
// One thread at a time may use an object. A failed allocation throws CMemoryException.
#pragma once

#include <quorvel/framework/archive.h>
#include <quorvel/framework/string.h>
#include <quorvel/platform/platform.h>

class QUORVEL_API CGUID {
public:
    // The characters of an identifier, which has no hyphens or braces; and the one of zeros.
    static constexpr int GUID_LENGTH = 32;
    static constexpr char DEFAULT_GUID[] = "00000000000000000000000000000000";

    // A new identifier, as from GenerateNewGUID. If the system has no random bytes it is
    // DEFAULT_GUID. IsValid accepts that value, so compare with it where it matters.
    CGUID();
    CGUID(const CGUID& other) = default;
    CGUID& operator=(const CGUID& other) = default;

    // Case-sensitive, although the digits of both cases mean the same.
    BOOL operator==(const CGUID& other) const noexcept { return m_guid == other.m_guid; }
    BOOL operator!=(const CGUID& other) const noexcept { return m_guid != other.m_guid; }

    // Sets a random identifier from AfxGenerateID, in upper case. Returns FALSE and leaves the
    // identifier unchanged only when the system has no random bytes or an allocation fails.
    BOOL GenerateNewGUID();

    // Whether the text is 32 hexadecimal digits, in either case. FALSE for a null text.
    static BOOL IsValidGUID(const char* text);
    BOOL IsValid() const { return IsValidGUID(m_guid); }
    BOOL SetGUID(const char* text); // FALSE and no change for an invalid text

    // As it was set or generated.
    CStringA GetGUID() const { return m_guid; }
    CString ToString() const { return CString(m_guid.GetString()); }

    // Exactly 32 bytes: the identifier, or DEFAULT_GUID if it is not valid. Loading does not
    // validate. Both throw as CArchive does; a failed load changes nothing.
    void Serialize(CArchive& archive) const;
    void Deserialize(CArchive& archive);

private:
    CStringA m_guid;
};
