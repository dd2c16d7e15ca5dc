// The publisher's keys that a check accepts, and the judgement of a body by its signature.
#pragma once

#include <quorvel/framework/date_time.h>
#include <quorvel/system/registry_path.h>

#include "update/minisign.h"

namespace quorvel {

// Where a check keeps what it accepted last, so that nothing older is accepted again.
struct AcceptedNames {
    const WCHAR* date;
    const WCHAR* serial;
};

// Of one publisher: a signature by any of them counts.
class PublisherKeys {
public:
    // Once a key was to be set, bodies without a good signature are refused, also when the text
    // was no key: a mistake must not turn the protection off.
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

    // 0, and the facts of the trusted comment; or the id of a text, and what is inserted there.
    UINT Verify(const WCHAR* bodyFile, const WCHAR* signatureFile, CString& insert);
    CString GetTrustedComment() const { return m_comment; }
    // When the comment says that the body was signed, in UTC; the empty date when it does not.
    COleDateTime GetSignedDate() const;

    // What was accepted last, and what the body that was verified last would be.
    struct Accepted {
        COleDateTime date;
        ULONGLONG serial = 0;
    };
    Accepted GetAccepted() const;
    void SetAccepted(const Accepted& accepted);
    Accepted GetVerified(const COleDateTime& date) const {
        return {date, m_facts.serial.value_or(0)};
    }
    // Whether it is older than what was accepted last, by either figure. A body without a serial
    // number is older than one that has it.
    bool IsReplay(const Accepted& verified) const;

private:
    CRegistryPath m_path;
    AcceptedNames m_names;
    minisign::Facts m_facts;
    CString m_comment;
};

} // namespace quorvel
