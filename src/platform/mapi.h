// The records of Simple MAPI: from the SDK on Windows; on Linux equal ones, which only carry a
// message within the library. Texts are in the active code page and are not owned.
#pragma once

#include <quorvel/platform/platform.h>

#if defined(_WIN32)
#include <mapi.h>
#else

namespace quorvel::win32 {

inline constexpr ULONG MAPI_TO = 1;
inline constexpr ULONG SUCCESS_SUCCESS = 0;
inline constexpr ULONG MAPI_USER_ABORT = 1;

struct MapiRecipDesc {
    ULONG ulReserved;
    ULONG ulRecipClass;
    LPSTR lpszName;
    LPSTR lpszAddress;
    ULONG ulEIDSize;
    LPVOID lpEntryID;
};

struct MapiFileDesc {
    ULONG ulReserved;
    ULONG flFlags;
    ULONG nPosition;
    LPSTR lpszPathName;
    LPSTR lpszFileName;
    LPVOID lpFileType;
};

struct MapiMessage {
    ULONG ulReserved;
    LPSTR lpszSubject;
    LPSTR lpszNoteText;
    LPSTR lpszMessageType;
    LPSTR lpszDateReceived;
    LPSTR lpszConversationID;
    ULONG flFlags;
    MapiRecipDesc* lpOriginator;
    ULONG nRecipCount;
    MapiRecipDesc* lpRecips;
    ULONG nFileCount;
    MapiFileDesc* lpFiles;
};

} // namespace quorvel::win32

using namespace quorvel::win32;

#endif
