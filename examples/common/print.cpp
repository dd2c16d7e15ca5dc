#include "common/console.h"

#include <quorvel/util/text/utf8.h>

void Print(std::FILE* stream, const CString& line) {
    CStringA bytes;
    AfxWideCharToUTF8(line, bytes);
    std::fprintf(stream, "%s\n", bytes.GetString());
}
