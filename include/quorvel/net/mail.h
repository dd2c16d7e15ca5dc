// Handing a message over to the user's mail program, where the user edits and sends it.
//
// Both functions take one recipient and at most one attachment. The first four texts must not be
// null or empty: FALSE at once otherwise, without a box. The attachment is left out when its path
// is null or names no file; without an attachment name it bears the file's own. Any other failure
// shows one box and gives FALSE. TRUE when the mail program took the message, and when the user
// closed it without sending. User-interface thread.
//
// On Windows the message goes to Simple MAPI (MAPI32.DLL), with texts in the active code page. The
// call returns when the mail program's window is closed; until then the thread's windows are
// disabled. In a 32-bit program a mail library that faults counts as one that failed.
//
// On Linux both functions run xdg-email, without a shell, and return when that ends. Line breaks in
// the name, the address and the subject become blanks, so that they cannot begin another header; a
// type before the address ("SMTP:") is left out. An attachment under another name than its file's
// is copied into a private folder among the temporary files, which stays, since the mail program
// reads it later. An interrupted xdg-email counts as the user's abort. Without xdg-email the box is
// "Unable to load mail system support."
#pragma once

#include <quorvel/platform/platform.h>

// On Windows: requires that mail is configured ("MAPI" is 1 in section "Mail" of the system's
// profile) and logs on, with the mail system's own windows if it needs to ask. Its boxes have the
// stop icon.
QUORVEL_API BOOL AfxSendMessage2(const WCHAR* name, const WCHAR* address, const WCHAR* subject,
                                 const WCHAR* body, const WCHAR* attachmentPath,
                                 const WCHAR* attachmentName);
// On Windows: neither, and it shows the framework's messages.
QUORVEL_API BOOL AfxSendMessage(const WCHAR* name, const WCHAR* address, const WCHAR* subject,
                                const WCHAR* body, const WCHAR* attachmentPath,
                                const WCHAR* attachmentName);
