// The options of the workbench.
#pragma once

#include "settings.h"

class CWnd;

// Lets the user change them. FALSE, and nothing changed, when the user cancels.
BOOL EditOptions(CWnd& owner, Settings& settings);
// Takes menus, dialogs and messages from the libraries of the chosen language from here on.
void InstallLanguage(LANGID language);
