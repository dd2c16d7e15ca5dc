#include <quorvel/util/text/encoding_names.h>

#include "platform/case_fold.h"
#include "util/text/encoding_table.h"
#include "util/text/no_throw.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

namespace {

using quorvel::Encoding;
using quorvel::kEncodings;

// A name and its encoding.
struct Entry {
    std::string_view name;
    const Encoding* encoding;
};

consteval std::size_t CountAliases() {
    std::size_t count = 0;
    for (const Encoding& encoding : kEncodings)
        if (!encoding.aliases.empty())
            count += 1 + static_cast<std::size_t>(std::ranges::count(encoding.aliases, ' '));
    return count;
}

consteval auto SortAliases() {
    std::array<Entry, CountAliases()> entries;
    std::size_t count = 0;
    for (const Encoding& encoding : kEncodings) {
        std::string_view rest = encoding.aliases;
        while (!rest.empty()) {
            const std::size_t length = std::min(rest.find(' '), rest.size());
            entries[count++] = {rest.substr(0, length), &encoding};
            rest.remove_prefix(std::min(length + 1, rest.size()));
        }
    }
    std::ranges::sort(entries, {}, &Entry::name);
    return entries;
}

consteval auto SortNames() {
    std::array<Entry, std::size(kEncodings)> entries;
    for (std::size_t i = 0; i < entries.size(); ++i)
        entries[i] = {kEncodings[i].name, &kEncodings[i]};
    std::ranges::sort(entries, {}, &Entry::name);
    return entries;
}

constexpr auto kAliases = SortAliases();
constexpr auto kNames = SortNames();

constexpr bool HasNoRepeats(std::span<const Entry> entries) {
    return std::ranges::adjacent_find(entries, {}, &Entry::name) == entries.end();
}
static_assert(kAliases.size() == 346 && HasNoRepeats(kAliases));
static_assert(kNames.size() == 143 && HasNoRepeats(kNames));
static_assert(std::ranges::count(kEncodings, "", &Encoding::aliases) == 143 - 90);

// A name in lower case. Empty when it is null, too long or not ASCII, so it matches no entry.
class LookupName {
public:
    explicit LookupName(const WCHAR* name) {
        while (name != nullptr && *name != 0) {
            const WCHAR folded = quorvel::FoldCase(*name++);
            if (folded >= 0x80 || m_length == m_text.size()) {
                m_length = 0;
                return;
            }
            m_text[m_length++] = static_cast<char>(folded);
        }
    }

    const Encoding* FindIn(std::span<const Entry> entries) const {
        const std::string_view name(m_text.data(), m_length);
        const auto found = std::ranges::lower_bound(entries, name, {}, &Entry::name);
        return found != entries.end() && found->name == name ? found->encoding : nullptr;
    }

private:
    std::array<char, 48> m_text; // the longest name has 45
    std::size_t m_length = 0;
};

} // namespace

BOOL AfxGetPreferredCharacterEncodingName(const WCHAR* name, CString& preferred) {
    const Encoding* const encoding = LookupName(name).FindIn(kAliases);
    return encoding != nullptr && quorvel::WithoutException([&] {
               const std::string_view text = encoding->name;
               const auto length = static_cast<int>(text.size());
               std::ranges::copy(text, preferred.GetBufferSetLength(length));
               return true;
           });
}

BOOL AfxCharacterEncodingToCodePage(const WCHAR* name, UINT& codePage) {
    codePage = 0;
    const LookupName lookup(name);
    const Encoding* encoding = lookup.FindIn(kAliases);
    if (encoding == nullptr)
        encoding = lookup.FindIn(kNames);
    if (encoding == nullptr)
        return FALSE;
    codePage = encoding->codePage;
    return TRUE;
}
