#include <quorvel/util/text/escape.h>

#include <quorvel/util/text/utf8.h>

#include "util/text/no_throw.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

namespace {

constexpr std::size_t kUrlLimit = 2083; // characters
constexpr std::size_t kEscape = 3;      // characters of one escape

// The output for one byte of the text.
struct UrlItem {
    char text[kEscape];
    BYTE length;
};

constexpr bool IsKept(int byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
           (byte >= '0' && byte <= '9') || byte == '-' || byte == '_' || byte == '.' || byte == '*';
}

typedef std::array<UrlItem, 256> UrlItems;
constexpr UrlItems MakeUrlItems(bool spaceAsPlus) {
    constexpr char digits[] = "0123456789ABCDEF";
    UrlItems items{};
    for (int byte = 0; byte < 256; ++byte)
        items[static_cast<std::size_t>(byte)] =
            IsKept(byte) ? UrlItem{{static_cast<char>(byte)}, 1}
                         : UrlItem{{'%', digits[byte >> 4], digits[byte & 15]}, 3};
    if (spaceAsPlus)
        items[' '] = {{'+'}, 1};
    return items;
}
constexpr UrlItems kUrlItems[2] = {MakeUrlItems(false), MakeUrlItems(true)};

// Copies the whole item with one store and advances by its length. So there is no branch on the
// kind of byte.
char* Append(char* end, const UrlItem& item) {
    std::memcpy(end, &item, sizeof item);
    return end + item.length;
}

constexpr std::basic_string_view<WCHAR> kMetacharacters = _T("#$()*+.?[\\]^{|}");

} // namespace

BOOL AfxUTF8EscapeUnsafeURLCharacters(const char* utf8Text, CStringA& escaped, BOOL spaceAsPlus) {
    if (utf8Text == nullptr)
        return FALSE;
    const UrlItems& items = kUrlItems[spaceAsPlus ? 1 : 0];
    const auto bytes = reinterpret_cast<const BYTE*>(utf8Text);
    const std::size_t size = strnlen(utf8Text, kUrlLimit + 1); // more can't fit
    char buffer[kUrlLimit + sizeof(UrlItem)];
    char* end = buffer;
    char* const limit = buffer + kUrlLimit;
    std::size_t done = 0;
    for (;;) { // takes the bytes that surely fit, then repeats with the room that is left
        const auto sure = std::min(size - done, static_cast<std::size_t>(limit - end) / kEscape);
        if (sure == 0)
            break;
        for (const std::size_t last = done + sure; done < last; ++done)
            end = Append(end, items[bytes[done]]);
    }
    while (done < size && items[bytes[done]].length <= limit - end)
        end = Append(end, items[bytes[done++]]);
    return quorvel::WithoutException([&] {
        escaped.SetString(buffer, static_cast<int>(end - buffer));
        return done == size;
    });
}

BOOL AfxMultiByteToUTF8EscapeUnsafeURLCharacters(UINT codePage, DWORD flags, const char* text,
                                                 CStringA& escaped, BOOL spaceAsPlus) {
    CStringA utf8Text;
    return AfxMultiByteToUTF8(codePage, flags, text, utf8Text) &&
           AfxUTF8EscapeUnsafeURLCharacters(utf8Text, escaped, spaceAsPlus);
}

BOOL AfxWideCharToUTF8EscapeUnsafeURLCharacters(const WCHAR* text, CStringA& escaped,
                                                BOOL spaceAsPlus) {
    CStringA utf8Text;
    return AfxWideCharToUTF8(text, utf8Text) &&
           AfxUTF8EscapeUnsafeURLCharacters(utf8Text, escaped, spaceAsPlus);
}

BOOL AfxEscapeRegularExpressionMetacharacters(const WCHAR* text, CString& escaped) {
    if (text == nullptr)
        return FALSE;
    return quorvel::WithoutException([&] {
        CString result; // the text may be part of the output string
        for (; *text != 0; ++text) {
            if (kMetacharacters.find(*text) != kMetacharacters.npos)
                result.AppendChar('\\');
            result.AppendChar(*text);
        }
        escaped = std::move(result);
        return true;
    });
}
