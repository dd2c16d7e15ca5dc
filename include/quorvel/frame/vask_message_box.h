// Message boxes with a bold heading above the text, a check box below it, and a help target.
//
// Each shows its box through AfxMessageBox with help id 0 and returns its result, the id of a
// button such as IDOK. It returns 0, and shows nothing, when a text is null, when a catalogue id
// does not load, and when the message formatter refuses a format. User-interface thread.
//
// Check state: 0 unchecked, 1 checked; the box starts unchecked when it comes in as anything else.
// What the user left is written back when the box closes; it is unchanged when none was shown.
//
// Help target: null for none. The Help button opens a web address in the browser, after asking the
// host's link hook, and shows anything else as an HTML Help topic. Without a check box a target
// adds MB_HELP to the type. Deliberate: with a check box it does not, the caller's type must have
// MB_HELP for the button to be there.
//
// On Linux the box is written to the terminal: the heading above the text, the check box below it
// as it came in; there is no Help.
#pragma once

#include <quorvel/framework/string.h>

QUORVEL_API int AfxVaskMessageBox(const WCHAR* text, UINT type, const WCHAR* helpTarget);
QUORVEL_API int AfxVaskMessageBox(UINT textId, UINT type, const WCHAR* helpTarget);
QUORVEL_API int AfxVaskMessageBox(const WCHAR* heading, const WCHAR* text, UINT type,
                                  const WCHAR* helpTarget);
QUORVEL_API int AfxVaskMessageBox(UINT headingId, UINT textId, UINT type, const WCHAR* helpTarget);
QUORVEL_API int AfxVaskMessageBox(const WCHAR* text, const WCHAR* checkBoxText, int& checkState,
                                  UINT type, const WCHAR* helpTarget);
QUORVEL_API int AfxVaskMessageBox(UINT textId, UINT checkBoxTextId, int& checkState, UINT type,
                                  const WCHAR* helpTarget);
QUORVEL_API int AfxVaskMessageBox(const WCHAR* heading, const WCHAR* text,
                                  const WCHAR* checkBoxText, int& checkState, UINT type,
                                  const WCHAR* helpTarget);
QUORVEL_API int AfxVaskMessageBox(UINT headingId, UINT textId, UINT checkBoxTextId, int& checkState,
                                  UINT type, const WCHAR* helpTarget);

// The text is a format of the message formatter (%1, %2, %1!d!), as CString::FormatMessage takes
// it; the heading and the check box's text are not.
QUORVEL_API int AfxFormatStringVaskMessageBox(const WCHAR* format, UINT type,
                                              const WCHAR* helpTarget, ...);
QUORVEL_API int AfxFormatStringVaskMessageBox(UINT formatId, UINT type, const WCHAR* helpTarget,
                                              ...);
QUORVEL_API int AfxFormatStringVaskMessageBox(const WCHAR* heading, const WCHAR* format, UINT type,
                                              const WCHAR* helpTarget, ...);
QUORVEL_API int AfxFormatStringVaskMessageBox(UINT headingId, UINT formatId, UINT type,
                                              const WCHAR* helpTarget, ...);
QUORVEL_API int AfxFormatStringVaskMessageBox(const WCHAR* format, const WCHAR* checkBoxText,
                                              int& checkState, UINT type, const WCHAR* helpTarget,
                                              ...);
QUORVEL_API int AfxFormatStringVaskMessageBox(UINT formatId, UINT checkBoxTextId, int& checkState,
                                              UINT type, const WCHAR* helpTarget, ...);
QUORVEL_API int AfxFormatStringVaskMessageBox(const WCHAR* heading, const WCHAR* format,
                                              const WCHAR* checkBoxText, int& checkState, UINT type,
                                              const WCHAR* helpTarget, ...);
QUORVEL_API int AfxFormatStringVaskMessageBox(UINT headingId, UINT formatId, UINT checkBoxTextId,
                                              int& checkState, UINT type, const WCHAR* helpTarget,
                                              ...);
QUORVEL_STRING_INSERTS(int, AfxFormatStringVaskMessageBox,
                       (const WCHAR* format, UINT type, const WCHAR* helpTarget),
                       (format, type, helpTarget))
QUORVEL_STRING_INSERTS(int, AfxFormatStringVaskMessageBox,
                       (UINT formatId, UINT type, const WCHAR* helpTarget),
                       (formatId, type, helpTarget))
QUORVEL_STRING_INSERTS(int, AfxFormatStringVaskMessageBox,
                       (const WCHAR* heading, const WCHAR* format, UINT type,
                        const WCHAR* helpTarget),
                       (heading, format, type, helpTarget))
QUORVEL_STRING_INSERTS(int, AfxFormatStringVaskMessageBox,
                       (UINT headingId, UINT formatId, UINT type, const WCHAR* helpTarget),
                       (headingId, formatId, type, helpTarget))
QUORVEL_STRING_INSERTS(int, AfxFormatStringVaskMessageBox,
                       (const WCHAR* format, const WCHAR* checkBoxText, int& checkState, UINT type,
                        const WCHAR* helpTarget),
                       (format, checkBoxText, checkState, type, helpTarget))
QUORVEL_STRING_INSERTS(int, AfxFormatStringVaskMessageBox,
                       (UINT formatId, UINT checkBoxTextId, int& checkState, UINT type,
                        const WCHAR* helpTarget),
                       (formatId, checkBoxTextId, checkState, type, helpTarget))
QUORVEL_STRING_INSERTS(int, AfxFormatStringVaskMessageBox,
                       (const WCHAR* heading, const WCHAR* format, const WCHAR* checkBoxText,
                        int& checkState, UINT type, const WCHAR* helpTarget),
                       (heading, format, checkBoxText, checkState, type, helpTarget))
QUORVEL_STRING_INSERTS(int, AfxFormatStringVaskMessageBox,
                       (UINT headingId, UINT formatId, UINT checkBoxTextId, int& checkState,
                        UINT type, const WCHAR* helpTarget),
                       (headingId, formatId, checkBoxTextId, checkState, type, helpTarget))

// For hosts that exercise their handling of crashes: asks, with No as the default, and on Yes
// divides an integer by zero, which ends the program unless the host catches it.
QUORVEL_API void AfxPerformDivideByZeroException();
