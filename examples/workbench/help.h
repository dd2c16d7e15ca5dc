// The commands of the workbench's Help menu, in its order, and the log that a report takes along.
#pragma once

#include <quorvel/framework/string.h>

#include <vector>

class CWnd;

// How the program looks for updates: as its command line says.
struct UpdateOptions {
    bool usesHttps = false;
    std::vector<CString> publicKeys; // the keys' texts
};
UpdateOptions& UpdateOptionsInForce();

void CheckForUpdates(CWnd& owner);
void CheckForNewVersion(CWnd& owner);
void OpenWebPage(CWnd& owner);
void SendReport(CWnd& owner); // opens the user's mail program
void ShowAbout(CWnd& owner);

// A line with date and time; the log is begun anew when it has grown to a megabyte. A log that
// can't be written is no reason to stop.
void Log(const CString& text);
