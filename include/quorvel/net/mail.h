// Passes a message to the user's mail program, where the user edits and sends it.
//
// Both functions take one recipient and at most one attachment. If one of the first four texts is
// null or empty, they return FALSE without a box. The attachment is omitted when its path is null
// or not that of a file. Give a full path, since the mail program may run in another folder.
// Without an attachment name the attachment has the name of the file. Any other failure shows one
// box and returns FALSE. TRUE means that the mail program took the message, or that the user closed
// it without sending. User-interface thread.
//
// On Windows the message is passed to Simple MAPI (MAPI32.DLL), with texts in the active code page.
// The call returns when the mail program's window is closed; until then the windows of this thread
// are disabled. In a 32-bit program, a crash inside the mail library counts as a failure.
//
// On Linux both functions run xdg-email, without a shell, and return when it ends. Line breaks in
// the name, the address and the subject become blanks, so that they cannot start another header; a
// type before the address ("SMTP:") is removed. To send an attachment under a different name, the
// file is copied into a private temporary folder. The copy is not deleted, since the mail program
// reads it later. All texts are one argument of that program, and the system limits it to 128 KB
// after escaping: a longer message is not sent. An interrupted xdg-email counts as cancelled by the
// user. Without xdg-email the box says "Unable to load mail system support."
#pragma once

#include <quorvel/platform/platform.h>

// On Windows: requires that mail is configured ("MAPI" is 1 in section "Mail" of the system's
// profile) and logs on; the mail system may show its own windows to ask. Boxes have the stop
// icon.
QUORVEL_API BOOL AfxSendMessage2(const WCHAR* name, const WCHAR* address, const WCHAR* subject,
                                 const WCHAR* body, const WCHAR* attachmentPath,
                                 const WCHAR* attachmentName);
// On Windows: requires neither, does not log on, and shows the framework's messages.
QUORVEL_API BOOL AfxSendMessage(const WCHAR* name, const WCHAR* address, const WCHAR* subject,
                                const WCHAR* body, const WCHAR* attachmentPath,
                                const WCHAR* attachmentName);
