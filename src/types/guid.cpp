#include <quorvel/types/guid.h>

#include <quorvel/util/text/identifier.h>
#include <quorvel/util/text/match.h>

#include <utility>

CGUID::CGUID() : m_guid(DEFAULT_GUID) {
    GenerateNewGUID();
}

BOOL CGUID::GenerateNewGUID() {
    CStringA guid;
    if (!AfxGenerateID(guid, GUID_LENGTH))
        return FALSE;
    m_guid = std::move(guid.MakeUpper());
    return TRUE;
}

BOOL CGUID::IsValidGUID(const char* text) {
    static_assert(GUID_LENGTH == 32);
    return AfxValidateText(text, "^[\\da-f]{32}$", FALSE);
}

BOOL CGUID::SetGUID(const char* text) {
    if (!IsValidGUID(text))
        return FALSE;
    m_guid = text;
    return TRUE;
}

void CGUID::Serialize(CArchive& archive) const {
    archive.Write(IsValid() ? m_guid.GetString() : DEFAULT_GUID, GUID_LENGTH);
}

void CGUID::Deserialize(CArchive& archive) {
    char guid[GUID_LENGTH];
    if (archive.Read(guid, GUID_LENGTH) != GUID_LENGTH)
        AfxThrowArchiveException(CArchiveException::endOfFile, archive.m_strFileName);
    m_guid = CStringA(guid, GUID_LENGTH);
}
