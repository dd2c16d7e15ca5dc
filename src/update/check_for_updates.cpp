#include <quorvel/update/check_for_updates.h>

#include "update/http_connection.h"
#include "update/new_version_check.h"
#include "update/update_check.h"

namespace {

// The window goes before the check that it tells, whose connections may still post to it.
template <class Flow>
struct Engine {
    template <class Subject>
    Engine(const CRegistryPath& path, const Subject& subject, CCheckForUpdatesView& view)
        : flow(path, subject, view, source) {
        source.SetFlow(&flow);
    }
    ~Engine() { source.SetFlow(nullptr); }

    quorvel::HttpSource source;
    Flow flow;
};

} // namespace

struct CCheckForUpdates::Parts : Engine<quorvel::UpdateCheck> {
    using Engine::Engine;
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

struct CNewVersionCheck::Parts : Engine<quorvel::NewVersionCheck> {
    using Engine::Engine;
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
