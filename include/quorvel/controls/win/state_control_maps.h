// Maps in which dialogs and property pages declare the controls whose state they save. A value is
// the place of the control's state: an open key, a section of the application's profile, or a
// registry path. Windows only, user-interface thread.
#pragma once

#include <quorvel/framework/map.h>
#include <quorvel/system/registry_path.h>

class CAutoCompleteEdit;
class CVaskListCtrl;

namespace quorvel {

// From each control to the place of its state. The keys are not closed.
typedef CMap<CAutoCompleteEdit*, CAutoCompleteEdit*, HKEY, HKEY> EditKeys;
typedef CMap<CAutoCompleteEdit*, CAutoCompleteEdit*, CString, const WCHAR*> EditSections;
typedef CMap<CVaskListCtrl*, CVaskListCtrl*, HKEY, HKEY> ListKeys;
typedef CMap<CVaskListCtrl*, CVaskListCtrl*, CString, const WCHAR*> ListSections;
typedef CMap<CVaskListCtrl*, CVaskListCtrl*, CRegistryPath, const CRegistryPath&> ListPaths;

} // namespace quorvel
