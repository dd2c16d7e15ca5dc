// The publisher's keys that a check accepts, and the verification of a body by its signature.
#pragma once

#include <quorvel/framework/date_time.h>
#include <quorvel/system/registry_path.h>

#include "update/minisign.h"

namespace quorvel {

// The names under which a check stores what it accepted last, so that it accepts nothing older.
struct AcceptedNames {
    const WCHAR* date;
    const WCHAR* serial;
};

// The keys of one publisher. A signature by any of them is accepted.
class PublisherKeys {
public:
    // After the first attempt to set a key, bodies without a valid signature are refused, even if
    // the key's text was invalid: a mistake must not disable the protection.
    bool SetKey(const WCHAR* text);
    bool AddKey(const WCHAR* text);
    bool IsOn() const { return m_isOn; }
    bool HasKeys() const { return !m_keys.empty(); }

protected:
    std::vector<minisign::PublicKey> m_keys;

private:
    bool m_isOn = false;
};

class UpdateVerifier : public PublisherKeys {
public:
    UpdateVerifier(const CRegistryPath& path, const AcceptedNames& names)
        : m_path(path), m_names(names) {}

    void SetKeys(const PublisherKeys& keys) { PublisherKeys::operator=(keys); }

    // Returns 0 and sets the comment's facts, or returns the id of a text and sets its insert.
    UINT Verify(const WCHAR* bodyFile, const WCHAR* signatureFile, CString& insert);
    CString GetTrustedComment() const { return m_comment; }
    // The time of the signature by the comment, in UTC; the empty date if it has none.
    COleDateTime GetSignedDate() const;

    // The last accepted state, and the state after accepting the verified body.
    struct Accepted {
        COleDateTime date;
        ULONGLONG serial = 0;
    };
    Accepted GetAccepted() const;
    void SetAccepted(const Accepted& accepted);
    Accepted GetVerified(const COleDateTime& date) const {
        return {date, m_facts.serial.value_or(0)};
    }
    // Whether the body is older than the one accepted last, by date or serial number. A body
    // without a serial number is older than one with it.
    bool IsReplay(const Accepted& verified) const;

private:
    CRegistryPath m_path;
    AcceptedNames m_names;
    minisign::Facts m_facts;
    CString m_comment;
};

} // namespace quorvel
