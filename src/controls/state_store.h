// The storage for the state of controls between two runs: named numbers and texts, in nested
// groups. A group is an open registry key or a section of the application's profile.
//
// Any program may have written the stored values: a value of another kind counts as missing. Used
// on the user-interface thread. Throws CMemoryException when memory runs out.
#pragma once

#include <quorvel/framework/string.h>
#include <quorvel/system/registry_path.h>

#include <memory>

namespace quorvel {

class StateGroup {
public:
    virtual ~StateGroup() = default;

    // Returns false when the system refuses.
    virtual bool WriteNumber(const WCHAR* name, int value) const = 0;
    virtual bool WriteText(const WCHAR* name, const WCHAR* text) const = 0;

    virtual int ReadNumber(const WCHAR* name, int defaultValue) const = 0;
    // Returns false if the text is missing. A section then reports an empty text instead.
    virtual bool ReadText(const WCHAR* name, CString& text) const = 0;

    // The group of this name below this one. Null when its key cannot be created or opened. A
    // section creates groups with their first value, so its groups are never null.
    virtual std::unique_ptr<StateGroup> CreateGroup(const WCHAR* name) const = 0;
    virtual std::unique_ptr<StateGroup> OpenGroup(const WCHAR* name) const = 0;
};

typedef std::unique_ptr<StateGroup> StatePlace;

// The values of the key itself; null for a null key. With `closesKey` the group closes the key.
StatePlace KeyState(HKEY key, bool closesKey);
// The key of a path. The first form creates it with all its parents, the second only opens it. Null
// when that fails or the path is invalid.
StatePlace CreatedPathState(const CRegistryPath& path);
StatePlace OpenedPathState(const CRegistryPath& path);
// A section of the application's profile. Null for a null or empty name, and without an application
// object.
StatePlace SectionState(const WCHAR* section);

} // namespace quorvel
