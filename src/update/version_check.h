// The check for a new version: downloads the number of the latest version, a short text, and
// compares it with that of the running program.
//
// It shows exactly one message, what the comparison or a failure says, unless it is cancelled.
#pragma once

#include <quorvel/types/version_number.h>

#include "update/update_flow.h"

namespace quorvel {

// What the text of a version file means beside the version of the running program: the id of a
// message (new version, up to date, ahead, or no version number at all) and the latest version. The
// text is read as CVersionNumber reads it, so that a line end behind the number makes it invalid.
UINT JudgeVersionText(const WCHAR* text, const CVersionNumber& current, CVersionNumber& latest);

class VersionCheck : public UpdateFlow {
public:
    VersionCheck(const CRegistryPath& path, const CVersionNumber& current,
                 CCheckForUpdatesView& view, UpdateSource& source);

    // As UpdateCheck::Check.
    bool Check();

private:
    void OnStatus(int status) override;
    void OnBody(const Body& body) override;

    const CVersionNumber m_current;
};

} // namespace quorvel
