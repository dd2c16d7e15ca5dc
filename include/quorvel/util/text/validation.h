// Validates texts and numbers that address a place on the network. Nothing throws. Any thread.
#pragma once

#include <quorvel/platform/platform.h>

// Whether the text begins with one of the schemes http://, https://, ftp://, gopher://, file://,
// mailto: and news:, in any letter case, followed by more than slashes. FALSE for null, for control
// characters and, except in the file name of file://, for blanks. Does not test whether the address
// exists.
QUORVEL_API BOOL AfxIsValidURL(const WCHAR* text);

// Whether the text is a dotted IPv4 address: four decimal numbers from 0 to 255. Leading zeros are
// refused, since some programs read such numbers as octal. FALSE for null.
QUORVEL_API BOOL AfxIsValidIPAddress(const WCHAR* text);

// Whether a connection can be made to the port: 1 to 65535.
QUORVEL_API BOOL AfxIsValidPortNumber(int port);
