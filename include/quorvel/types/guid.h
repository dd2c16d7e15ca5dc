// CGUID: a persistent identifier of 32 hexadecimal characters.
//
// One object may be used by one thread at a time. A lack of memory throws CMemoryException.
#pragma once

#include <quorvel/framework/archive.h>
#include <quorvel/framework/string.h>
#include <quorvel/platform/platform.h>

class QUORVEL_API CGUID {
public:
    static constexpr int GUID_LENGTH = 32;
    static constexpr char DEFAULT_GUID[] = "00000000000000000000000000000000";

    // A new identifier, as GenerateNewGUID makes it; DEFAULT_GUID when the system has no random
    // bytes to give, which IsValid accepts: compare with it where that matters.
    CGUID();
    CGUID(const CGUID& other) = default;
    CGUID& operator=(const CGUID& other) = default;

    BOOL operator==(const CGUID& other) const noexcept { return m_guid == other.m_guid; }
    BOOL operator!=(const CGUID& other) const noexcept { return m_guid != other.m_guid; }

    // A random identifier from AfxGenerateID, in upper case. FALSE, and the identifier as it was,
    // only when the system has no random bytes to give or there is no memory.
    BOOL GenerateNewGUID();

    // 32 hexadecimal digits of either case and nothing else. FALSE for a null text.
    static BOOL IsValidGUID(const char* text);
    BOOL IsValid() const { return IsValidGUID(m_guid); }
    BOOL SetGUID(const char* text); // FALSE, and the identifier as it was, for an invalid text

    CStringA GetGUID() const { return m_guid; }
    CString ToString() const { return CString(m_guid.GetString()); }

    // Exactly 32 bytes: the identifier; DEFAULT_GUID in place of one that is not valid. Loading
    // does not validate. Both throw as CArchive does; nothing is then loaded.
    void Serialize(CArchive& archive) const;
    void Deserialize(CArchive& archive);

private:
    CStringA m_guid;
};
