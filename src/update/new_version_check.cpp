#include <quorvel/update/new_version_check.h>

#include "update/check_engine.h"
#include "update/version_check.h"

struct CNewVersionCheck::Parts : quorvel::CheckEngine<quorvel::VersionCheck> {
    using CheckEngine::CheckEngine;
};

CNewVersionCheck::CNewVersionCheck(const CRegistryPath& path, const CVersionNumber& currentVersion,
                                   CCheckForUpdatesView& view)
    : m_parts(std::make_unique<Parts>(path, currentVersion, view)) {}

CNewVersionCheck::~CNewVersionCheck() = default;

BOOL CNewVersionCheck::Check() {
    return m_parts->flow.Check();
}

BOOL CNewVersionCheck::IsActive() const {
    return m_parts->flow.IsActive();
}

void CNewVersionCheck::Cancel() {
    m_parts->flow.Cancel();
}

void CNewVersionCheck::OnCheckFinished(DWORD code) {
    m_parts->flow.OnCheckFinished(code);
}

void CNewVersionCheck::SetStrict(BOOL strict) {
    m_parts->flow.SetStrict(strict != FALSE);
}

void CNewVersionCheck::SetTransport(CUpdateTransport* transport) {
    m_parts->source.SetTransport(transport);
}

BOOL CNewVersionCheck::SetPublicKey(const WCHAR* text) {
    return m_parts->flow.Verifier().SetKey(text) ? TRUE : FALSE;
}

BOOL CNewVersionCheck::AddPublicKey(const WCHAR* text) {
    return m_parts->flow.Verifier().AddKey(text) ? TRUE : FALSE;
}
