#include <quorvel/update/check_for_updates.h>

#include "update/check_engine.h"
#include "update/update_check.h"

struct CCheckForUpdates::Parts : quorvel::CheckEngine<quorvel::UpdateCheck> {
    using CheckEngine::CheckEngine;
};

CCheckForUpdates::CCheckForUpdates(const CRegistryPath& path, const WCHAR* localUpdatesFile,
                                   CCheckForUpdatesView& view)
    : m_parts(std::make_unique<Parts>(path, localUpdatesFile, view)) {}

CCheckForUpdates::~CCheckForUpdates() = default;

void CCheckForUpdates::Open() {
    m_parts->flow.Open();
}

BOOL CCheckForUpdates::Check() {
    return m_parts->flow.Check();
}

BOOL CCheckForUpdates::IsActive() const {
    return m_parts->flow.IsActive();
}

void CCheckForUpdates::Cancel() {
    m_parts->flow.Cancel();
}

void CCheckForUpdates::Reset() {
    m_parts->flow.Reset();
}

void CCheckForUpdates::OnCheckFinished(DWORD code) {
    m_parts->flow.OnCheckFinished(code);
}

const CUpdateListing& CCheckForUpdates::GetListing() const {
    return m_parts->flow.GetListing();
}

void CCheckForUpdates::SetBodyLimit(ULONGLONG bytes) {
    m_parts->flow.SetBodyLimit(bytes);
}

void CCheckForUpdates::SetStrict(BOOL strict) {
    m_parts->flow.SetStrict(strict != FALSE);
}

void CCheckForUpdates::SetTransport(CUpdateTransport* transport) {
    m_parts->source.SetTransport(transport);
}

BOOL CCheckForUpdates::SetPublicKey(const WCHAR* text) {
    return m_parts->flow.Verifier().SetKey(text) ? TRUE : FALSE;
}

BOOL CCheckForUpdates::AddPublicKey(const WCHAR* text) {
    return m_parts->flow.Verifier().AddKey(text) ? TRUE : FALSE;
}

void CCheckForUpdates::SetMaxAge(int days) {
    m_parts->flow.SetMaxAge(days);
}
