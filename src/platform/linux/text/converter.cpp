#include "platform/linux/text/converter.h"

#include "platform/linux/text/icu.h"

#include <algorithm>
#include <iterator>

namespace quorvel {

namespace {

constexpr struct {
    WORD codePage;
    const char* name;
} kConverters[] = {
    {50220, "ISO_2022,locale=ja,version=0"}, // half-width kana become full-width
    {50221, "ISO_2022,locale=ja,version=3"}, // half-width kana are kept: an escape sequence is
                                             // read, but shift-out and shift-in are written
    {50222, "ISO_2022,locale=ja,version=3"},
    {50225, "ISO_2022,locale=ko,version=0"},
    {50227, "ISO_2022,locale=zh,version=0"},
    {50229, "ISO_2022,locale=zh,version=1"},
    {50930, "ibm-930_P120-1999"},
    {50933, "ibm-933_P110-1995"},
    {50935, "ibm-935_P110-1999"},
    {50937, "ibm-937_P110-1999"},
    {50939, "ibm-939_P120-1999"},
    {51932, "euc-jp-2007"},
    {52936, "HZ"}, // starts with "~}" if a text starts with ASCII
    {54936, "gb18030"},
    {57002, "ISCII,version=0"}, // Devanagari
    {57003, "ISCII,version=1"}, // Bengali
    {57004, "ISCII,version=5"}, // Tamil
    {57005, "ISCII,version=6"}, // Telugu
    {57006, "ISCII,version=1"}, // Assamese has the Bengali script
    {57007, "ISCII,version=4"}, // Odia
    {57008, "ISCII,version=7"}, // Kannada
    {57009, "ISCII,version=8"}, // Malayalam
    {57010, "ISCII,version=3"}, // Gujarati
    {57011, "ISCII,version=2"}, // Gurmukhi
};

// Writes the converter's substitute for a missing character and records that it was used.
void Substitute(const void* used, UConverterFromUnicodeArgs* arguments, const UChar*, int32_t,
                UChar32, UConverterCallbackReason reason, UErrorCode* error) {
    if (reason > UCNV_IRREGULAR)
        return;
    *const_cast<bool*>(static_cast<const bool*>(used)) = true;
    *error = U_ZERO_ERROR;
    ucnv_cbFromUWriteSub(arguments, 0, error);
}

DWORD ErrorOf(UErrorCode error) {
    return error == U_MEMORY_ALLOCATION_ERROR ? ERROR_NOT_ENOUGH_MEMORY
                                              : ERROR_NO_UNICODE_TRANSLATION;
}

} // namespace

const char* FindConverter(UINT codePage) {
    const auto row = std::find_if(std::begin(kConverters), std::end(kConverters),
                                  [=](const auto& each) { return each.codePage == codePage; });
    return row != std::end(kConverters) ? row->name : nullptr;
}

void Converter::Close::operator()(UConverter* converter) const {
    ucnv_close(converter);
}

Converter::Converter(const char* name) {
    UErrorCode error = U_ZERO_ERROR;
    m_converter.reset(ucnv_open(name, &error));
    if (U_FAILURE(error))
        return;
    ucnv_setToUCallBack(m_converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr,
                        &error);
    ucnv_setFromUCallBack(m_converter.get(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr,
                          &error);
}

Converter::Single Converter::DecodeSingle(Bytes bytes) {
    UChar units[4];
    UErrorCode error = U_ZERO_ERROR;
    ucnv_resetToUnicode(m_converter.get());
    const int count = ucnv_toUChars(m_converter.get(), units, static_cast<int>(std::size(units)),
                                    reinterpret_cast<const char*>(bytes.data()),
                                    static_cast<int>(bytes.size()), &error);
    if (U_FAILURE(error))
        return {false, error == U_TRUNCATED_CHAR_FOUND, 0};
    return {count == 1, false, units[0]};
}

DWORD Converter::Decode(Bytes bytes, bool strict, WideOutput& output) {
    UErrorCode error = U_ZERO_ERROR;
    if (!strict)
        ucnv_setToUCallBack(m_converter.get(), UCNV_TO_U_CALLBACK_SUBSTITUTE, nullptr, nullptr,
                            nullptr, &error);
    const char* source = reinterpret_cast<const char*>(bytes.data());
    const char* const sourceEnd = source + bytes.size();
    do {
        UChar units[512];
        UChar* end = units;
        error = U_ZERO_ERROR;
        ucnv_toUnicode(m_converter.get(), &end, std::end(units), &source, sourceEnd, nullptr, true,
                       &error);
        for (const UChar* unit = units; unit < end; ++unit) {
            if (!output.Put(*unit))
                return ERROR_INSUFFICIENT_BUFFER;
        }
    } while (error == U_BUFFER_OVERFLOW_ERROR);
    return U_FAILURE(error) ? ErrorOf(error) : ERROR_SUCCESS;
}

DWORD Converter::Encode(WideText text, bool strict, Substitution& substitution,
                        ByteOutput& output) {
    UErrorCode error = U_ZERO_ERROR;
    ucnv_setFallback(m_converter.get(), substitution.bestFit);
    if (substitution.defaultChar != 0) {
        const UChar substitute = substitution.defaultChar;
        ucnv_setSubstString(m_converter.get(), &substitute, 1, &error);
    }
    if (!strict)
        ucnv_setFromUCallBack(m_converter.get(), Substitute, &substitution.used, nullptr, nullptr,
                              &error);
    const UChar* source = text.data();
    const UChar* const sourceEnd = source + text.size();
    do {
        char bytes[1024];
        char* end = bytes;
        error = U_ZERO_ERROR;
        ucnv_fromUnicode(m_converter.get(), &end, std::end(bytes), &source, sourceEnd, nullptr,
                         true, &error);
        for (const char* byte = bytes; byte < end; ++byte) {
            if (!output.Put(*byte))
                return ERROR_INSUFFICIENT_BUFFER;
        }
    } while (error == U_BUFFER_OVERFLOW_ERROR);
    return U_FAILURE(error) ? ErrorOf(error) : ERROR_SUCCESS;
}

} // namespace quorvel
