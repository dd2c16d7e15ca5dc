// What the program does with the registry. Every operation throws Failure.
#pragma once

#include "reg_text.h"

#include "common/program.h"

#include <quorvel/system/registry_path.h>

// The exit codes of the program.
enum ExitCode { kExitDone = 0, kExitNotFound = 1, kExitFailed = 2 };

// "HKCU\Software\Name" or "HKEY_CURRENT_USER\Software\Name" as a path and back, with the long name.
CRegistryPath ParsePath(const CString& text);
CString TextOf(const CRegistryPath& path);

// The keys and values directly below a key.
std::vector<Wide> ReadKeyNames(const CRegistryPath& path);
std::vector<RegValue> ReadValues(const CRegistryPath& path);
RegValue ReadValue(const CRegistryPath& path, const CString& name);
// The key and all below it. Fails where a name has a line break, which .reg text cannot hold.
void ReadTree(const CRegistryPath& path, std::vector<RegKey>& keys);

void WriteValue(const CRegistryPath& path, const RegValue& value);
void RemoveValue(const CRegistryPath& path, const CString& name);
// With all below it.
void RemoveKey(const CRegistryPath& path);
// Does what a .reg text says. One that names a key not at or below the path does nothing.
void Apply(const CRegistryPath& path, const std::vector<RegKey>& keys);
