// Loads the installed library and uses one of its classes, functions and texts, and the headers
// that a public header includes.
#include <quorvel/framework/string.h>
#include <quorvel/res/message_ids.h>
#include <quorvel/util/compression/zstream.h>

#include <cstdio>

int main() {
    CString text(_T("installed"));
    if (text.MakeUpper() != _T("INSTALLED"))
        return 1;
    if (!text.LoadString(quorvel::kTextExceptionMemory) || text != _T("Out of memory."))
        return 2;
    CZStream stream;
    if (!stream.DeflateInit(6) || deflateBound(&stream, 100) < 100)
        return 3;
    stream.DeflateEnd();
    std::puts("consumer: the installed library works");
    return 0;
}
