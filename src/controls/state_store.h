// Where controls keep their state between two runs: named numbers and texts, in groups within
// groups. A group is an open registry key or a section of the application's profile.
//
// What a control reads may have been written by anybody: a value of another kind counts as missing.
// Used on the user-interface thread. Lack of memory throws CMemoryException.
#pragma once

#include <quorvel/framework/string.h>
#include <quorvel/system/registry_path.h>

#include <memory>

namespace quorvel {

class StateGroup {
public:
    virtual ~StateGroup() = default;

    // False when the system refuses.
    virtual bool WriteNumber(const WCHAR* name, int value) const = 0;
    virtual bool WriteText(const WCHAR* name, const WCHAR* text) const = 0;

    virtual int ReadNumber(const WCHAR* name, int defaultValue) const = 0;
    // False when there is no such text, which a section reports as an empty one instead.
    virtual bool ReadText(const WCHAR* name, CString& text) const = 0;

    // The group of that name below this one. Null when its key cannot be created or opened; those
    // of a section are created with their first value, so that they are never null.
    virtual std::unique_ptr<StateGroup> CreateGroup(const WCHAR* name) const = 0;
    virtual std::unique_ptr<StateGroup> OpenGroup(const WCHAR* name) const = 0;
};

typedef std::unique_ptr<StateGroup> StatePlace;

// Values of the key itself; null for a null key. With `closesKey` the key is closed with the group.
StatePlace KeyState(HKEY key, bool closesKey);
// The key of a path, created with all above it or only opened; null when that fails or the path is
// not valid.
StatePlace CreatedPathState(const CRegistryPath& path);
StatePlace OpenedPathState(const CRegistryPath& path);
// A section of the application's profile; null for a null or empty name and without an application
// object.
StatePlace SectionState(const WCHAR* section);

} // namespace quorvel
