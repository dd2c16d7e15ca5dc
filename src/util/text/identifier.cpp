#include <quorvel/util/text/identifier.h>

#include "platform/random.h"
#include "util/text/no_throw.h"

#include <algorithm>

namespace {

template <class Ch>
bool Generate(CStringT<Ch>& id, int length) {
    CStringT<Ch> result;
    Ch* const digits = result.GetBufferSetLength(length);
    BYTE bytes[256];
    for (int done = 0; done < length;) {
        const int count = std::min<int>(length - done, sizeof bytes);
        if (!quorvel::FillRandom(bytes, static_cast<std::size_t>(count)))
            return false;
        for (int i = 0; i < count; ++i, ++done)
            digits[done] = static_cast<Ch>("0123456789abcdef"[bytes[i] & 15]);
    }
    id = std::move(result);
    return true;
}

} // namespace

BOOL AfxGenerateID(CString& id, int length) {
    return length > 0 && quorvel::WithoutException([&] { return Generate(id, length); });
}

BOOL AfxGenerateID(CStringA& id, int length) {
    return length > 0 && quorvel::WithoutException([&] { return Generate(id, length); });
}
