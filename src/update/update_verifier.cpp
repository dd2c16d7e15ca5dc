#include "update/update_verifier.h"

#include <quorvel/framework/exceptions.h>
#include <quorvel/framework/file.h>
#include <quorvel/res/message_ids.h>
#include <quorvel/system/profile.h>

#include <algorithm>

namespace quorvel {

namespace {

constexpr const WCHAR* kKey = _T("Check For Updates");

// Both texts are ASCII; any other character becomes '?', which makes them invalid.
std::string Narrowed(const CString& text) {
    std::string narrow;
    for (int i = 0; i < text.GetLength(); ++i)
        narrow += text[i] < 0x80 ? static_cast<char>(text[i]) : '?';
    return narrow;
}

// Returns an empty text for a longer file, which cannot be a signature.
std::string ReadSmallFile(const WCHAR* fileName) {
    constexpr UINT kLimit = 1 << 15;
    CFile file(fileName, CFile::modeRead | CFile::shareDenyWrite);
    std::string bytes(kLimit, 0);
    const UINT count = file.Read(bytes.data(), kLimit);
    bytes.resize(count < kLimit ? count : 0);
    return bytes;
}

} // namespace

bool PublisherKeys::SetKey(const WCHAR* text) {
    m_keys.clear();
    return AddKey(text);
}

bool PublisherKeys::AddKey(const WCHAR* text) {
    m_isOn = true;
    minisign::PublicKey key;
    if (text == nullptr || !minisign::ReadPublicKey(Narrowed(CString(text)), key))
        return false;
    m_keys.push_back(key);
    return true;
}

UINT UpdateVerifier::Verify(const WCHAR* bodyFile, const WCHAR* signatureFile, CString& insert) {
    minisign::Signature signature;
    if (!minisign::ReadSignature(ReadSmallFile(signatureFile), signature))
        return kTextUpdatesSignatureInvalid;
    insert = minisign::KeyIdText(signature.id);
    // An id is not secret: two keys may have the same one, and then either is accepted.
    std::vector<minisign::PublicKey> candidates;
    std::copy_if(m_keys.begin(), m_keys.end(), std::back_inserter(candidates),
                 [&](const auto& each) { return each.id == signature.id; });
    if (candidates.empty())
        return kTextUpdatesSignatureUnknownKey;
    const minisign::Hash hash = minisign::HashFile(bodyFile);
    if (std::none_of(candidates.begin(), candidates.end(),
                     [&](const auto& each) { return minisign::Verify(signature, hash, each); }))
        return kTextUpdatesSignatureWrong;
    m_facts = minisign::ReadFacts(signature.trustedComment);
    m_comment.Empty();
    for (const char each : signature.trustedComment)
        m_comment += static_cast<WCHAR>(each >= ' ' && each < 0x7f ? each : '?');
    return 0;
}

COleDateTime UpdateVerifier::GetSignedDate() const {
    constexpr double kDayOf1970 = 25569;
    constexpr ULONGLONG kSecondsToYear10000 = 253402300800;
    const ULONGLONG seconds = m_facts.timestamp.value_or(0);
    if (seconds == 0 || seconds >= kSecondsToYear10000)
        return COleDateTime();
    return COleDateTime(kDayOf1970 + static_cast<double>(seconds) / 86400);
}

UpdateVerifier::Accepted UpdateVerifier::GetAccepted() const {
    const CRegistryPath path(m_path, kKey);
    COleDateTime date = AfxGetProfileOleDateTime(path, m_names.date, COleDateTime());
    if (date.GetStatus() != COleDateTime::valid ||
        COleDateTime(date.m_dt).GetStatus() != COleDateTime::valid)
        date = COleDateTime();
    return {date, AfxGetProfileQWord(path, m_names.serial, 0)};
}

void UpdateVerifier::SetAccepted(const Accepted& accepted) {
    const CRegistryPath path(m_path, kKey);
    AfxWriteProfileOleDateTime(path, m_names.date, accepted.date);
    AfxWriteProfileQWord(path, m_names.serial, accepted.serial);
}

bool UpdateVerifier::IsReplay(const Accepted& verified) const {
    const Accepted accepted = GetAccepted();
    return verified.date < accepted.date || verified.serial < accepted.serial;
}

} // namespace quorvel
