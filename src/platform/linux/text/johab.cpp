#include "platform/linux/text/johab.h"

namespace quorvel {

namespace {

constexpr int kFill = -1;  // the letter is absent
constexpr int kWrong = -2; // no letter has that number

// Five bits are the number of a letter. The numbers of vowels skip every eighth number and the next
// one.
int Initial(int bits) {
    return bits == 1 ? kFill : bits >= 2 && bits <= 20 ? bits - 2 : kWrong;
}
int Vowel(int bits) {
    if (bits == 2)
        return kFill;
    return bits >= 3 && bits <= 29 && bits % 8 >= 2 ? bits - 3 - bits / 8 * 2 : kWrong;
}
int Final(int bits) {
    if (bits == 1)
        return kFill;
    return bits >= 2 && bits <= 29 && bits != 18 ? bits - 2 - (bits > 18) : kWrong;
}

WCHAR Syllable(int code) {
    const int initial = Initial(code >> 10 & 31);
    const int vowel = Vowel(code >> 5 & 31);
    const int final = Final(code & 31);
    if (initial == kWrong || vowel == kWrong || final == kWrong)
        return 0;
    if (initial >= 0 && vowel >= 0)
        return static_cast<WCHAR>(0xac00 + (initial * 21 + vowel) * 28 + final + 1);
    if ((initial >= 0) + (vowel >= 0) + (final >= 0) != 1)
        return 0;
    return static_cast<WCHAR>(initial >= 0 ? 0x1100 + initial
                              : vowel >= 0 ? 0x1161 + vowel
                                           : 0x11a8 + final);
}

// The index of a character among the 188 of its lead byte; -1 for an invalid trail byte.
int Place(BYTE trail) {
    if (trail >= 0x31 && trail <= 0x7e)
        return trail - 0x31;
    return trail >= 0x91 && trail <= 0xfe ? trail - 0x91 + 78 : -1;
}

constexpr BYTE kPrivateLead = 0xd8;

} // namespace

bool IsJohabLead(BYTE byte) {
    return (byte >= 0x84 && byte <= 0xd3) || (byte >= kPrivateLead && byte <= 0xde) ||
           (byte >= 0xe0 && byte <= 0xf9);
}

WCHAR JohabUnit(BYTE lead, BYTE trail) {
    if (lead < kPrivateLead)
        return Syllable(lead << 8 | trail);
    const int place = Place(trail);
    return lead == kPrivateLead && place >= 0 ? static_cast<WCHAR>(0xe000 + place) : 0;
}

WORD JohabTo949(BYTE lead, BYTE trail) {
    const int place = Place(trail);
    if (lead <= kPrivateLead || place < 0 ||
        (lead == 0xda && trail >= 0xa1 && trail <= 0xd3)) // letters, which have other codes
        return 0;
    const int row = (lead < 0xe0 ? (lead - 0xd9) * 2 + 1 : (lead - 0xe0) * 2 + 42) + place / 94;
    return static_cast<WORD>((0xa0 + row) << 8 | (0xa1 + place % 94));
}

} // namespace quorvel
