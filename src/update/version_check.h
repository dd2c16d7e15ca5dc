// The check for a new version. Downloads the number of the latest version, a short text, and
// compares it with the version of the running program.
//
// It shows exactly one message, with the result or the failure, unless it is cancelled.
#pragma once

#include <quorvel/types/version_number.h>

#include "update/update_flow.h"

namespace quorvel {

// Compares the text of a version file with the version of the running program. Returns the id of a
// message (new version, up to date, ahead, or invalid version) and the latest version.
// CVersionNumber parses the text, so a line end after the number makes it invalid.
UINT CompareVersionText(const WCHAR* text, const CVersionNumber& current, CVersionNumber& latest);

class VersionCheck : public UpdateFlow {
public:
    VersionCheck(const CRegistryPath& path, const CVersionNumber& current,
                 CCheckForUpdatesView& view, UpdateSource& source);

    // Like UpdateCheck::Check.
    bool Check();

private:
    void OnStatus(int status) override;
    void OnBody(const Body& body) override;

    const CVersionNumber m_current;
};

} // namespace quorvel
