#include "platform/linux/locale/collation.h"

#include <quorvel/platform/linux_api.h>

#include "platform/linux/locale/locale.h"
#include "platform/linux/text/icu.h"

#include <map>
#include <memory>
#include <mutex>

namespace quorvel {
namespace {

struct Close {
    void operator()(UCollator* collator) const { ucol_close(collator); }
};
typedef std::unique_ptr<UCollator, Close> Collator;

// Created once for each locale and then only read, which ICU allows on several threads. Null when
// ICU has none.
const UCollator* CollatorOf(LCID locale) {
    static std::mutex& mutex = *new std::mutex;
    static auto& collators = *new std::map<LCID, Collator>; // never destroyed: in use until the end
    const std::lock_guard lock(mutex);
    const auto known = collators.find(locale);
    if (known != collators.end())
        return known->second.get();
    const char* const name = IcuLocaleName(locale);
    if (name == nullptr)
        return nullptr;
    UErrorCode error = U_ZERO_ERROR;
    Collator collator(ucol_open(name, &error));
    if (U_FAILURE(error))
        return nullptr;
    return collators.emplace(locale, std::move(collator)).first->second.get();
}

int ResultOf(UCollationResult result) {
    return result == UCOL_LESS    ? CSTR_LESS_THAN
           : result == UCOL_EQUAL ? CSTR_EQUAL
                                  : CSTR_GREATER_THAN;
}

} // namespace

namespace win32 {

int CompareStringW(LCID locale, DWORD flags, LPCWSTR first, int firstLength, LPCWSTR second,
                   int secondLength) {
    if (flags != 0) {
        SetLastError(ERROR_INVALID_FLAGS);
        return 0;
    }
    const UCollator* const collator = CollatorOf(locale);
    if (first == nullptr || second == nullptr || collator == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    return ResultOf(ucol_strcoll(collator, first, firstLength < 0 ? -1 : firstLength, second,
                                 secondLength < 0 ? -1 : secondLength));
}

} // namespace win32
} // namespace quorvel
