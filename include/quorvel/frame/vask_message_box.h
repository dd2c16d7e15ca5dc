// Message boxes with a bold heading above the text, a check box below it, and a help target.
//
// Each shows its box through AfxMessageBox with help id 0 and returns the id of the button, such as
// IDOK. It returns 0 and shows nothing when a text is null, when a catalogue text is missing, and
// when the message formatter refuses a format. User-interface thread.
//
// Check state: 0 is unchecked, 1 is checked; any other initial value counts as unchecked. The
// user's choice is written back when the box closes. Without a box the state is unchanged.
//
// Help target: null for no help. The Help button asks the host's link hook and then opens a web
// address in the browser; it shows any other target as an HTML Help topic. Without a check box a
// target adds MB_HELP to the type. Deliberate: with a check box it does not; the Help button
// appears only if the caller's type has MB_HELP.
//
// On Linux the box is written to the terminal: the heading above the text, and the check box below
// it in its initial state. There is no Help button.
#pragma once

#include <quorvel/framework/string.h>

// Show texts, or catalogue texts by their ids, without formatting.
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

// The text is a format as in CString::FormatMessage (%1, %2, %1!d!). The heading and the text of
// the check box are not formats.
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

// For hosts that test their crash handling: asks the user (default: No) and on Yes divides an
// integer by zero, which ends the program unless the host catches it.
QUORVEL_API void AfxPerformDivideByZeroException();
