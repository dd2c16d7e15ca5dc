#include <quorvel/util/text/md5.h>

#include "platform/scoped_handle.h"
#include "platform/win32.h"
#include "util/text/no_throw.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace {

constexpr std::size_t kDigestSize = 16;
constexpr std::size_t kFileBlockSize = 16384;
constexpr std::size_t kBlockSize = sizeof(MD5_CTX::block);
constexpr std::size_t kLengthSize = 8; // bytes; the last block ends with the message's bit length

// The integer parts of 4294967296 * |sin(i)|, for i from 1.
constexpr DWORD kSines[64] = {
    0xd76aa478, 0xe8c7b756, 0x242070db, 0xc1bdceee, 0xf57c0faf, 0x4787c62a, 0xa8304613, 0xfd469501,
    0x698098d8, 0x8b44f7af, 0xffff5bb1, 0x895cd7be, 0x6b901122, 0xfd987193, 0xa679438e, 0x49b40821,
    0xf61e2562, 0xc040b340, 0x265e5a51, 0xe9b6c7aa, 0xd62f105d, 0x02441453, 0xd8a1e681, 0xe7d3fbc8,
    0x21e1cde6, 0xc33707d6, 0xf4d50d87, 0x455a14ed, 0xa9e3e905, 0xfcefa3f8, 0x676f02d9, 0x8d2a4c8a,
    0xfffa3942, 0x8771f681, 0x6d9d6122, 0xfde5380c, 0xa4beea44, 0x4bdecfa9, 0xf6bb4b60, 0xbebfbc70,
    0x289b7ec6, 0xeaa127fa, 0xd4ef3085, 0x04881d05, 0xd9d4d039, 0xe6db99e5, 0x1fa27cf8, 0xc4ac5665,
    0xf4292244, 0x432aff97, 0xab9423a7, 0xfc93a039, 0x655b59c3, 0x8f0ccc92, 0xffeff47d, 0x85845dd1,
    0x6fa87e4f, 0xfe2ce6e0, 0xa3014314, 0x4e0811a1, 0xf7537e82, 0xbd3af235, 0x2ad7d2bb, 0xeb86d391};

// The functions of the four rounds, each added to `sum`. The first needs fewer operations than the
// standard's form. The second first adds the half that does not depend on `x`, the newest value.
struct Round1 {
    static DWORD Add(DWORD sum, DWORD x, DWORD y, DWORD z) { return sum + (z ^ (x & (y ^ z))); }
    static constexpr unsigned Word(unsigned step) { return step; }
    static constexpr int kShifts[4] = {7, 12, 17, 22};
};
struct Round2 {
    static DWORD Add(DWORD sum, DWORD x, DWORD y, DWORD z) { return sum + (y & ~z) + (x & z); }
    static constexpr unsigned Word(unsigned step) { return (5 * step + 1) % 16; }
    static constexpr int kShifts[4] = {5, 9, 14, 20};
};
struct Round3 {
    static DWORD Add(DWORD sum, DWORD x, DWORD y, DWORD z) { return sum + (x ^ (y ^ z)); }
    static constexpr unsigned Word(unsigned step) { return (3 * step + 5) % 16; }
    static constexpr int kShifts[4] = {4, 11, 16, 23};
};
struct Round4 {
    static DWORD Add(DWORD sum, DWORD x, DWORD y, DWORD z) { return sum + (y ^ (x | ~z)); }
    static constexpr unsigned Word(unsigned step) { return 7 * step % 16; }
    static constexpr int kShifts[4] = {6, 10, 15, 21};
};

struct State {
    DWORD a, b, c, d;
};

DWORD LoadWord(const BYTE* bytes) {
    return static_cast<DWORD>(bytes[0]) | static_cast<DWORD>(bytes[1]) << 8 |
           static_cast<DWORD>(bytes[2]) << 16 | static_cast<DWORD>(bytes[3]) << 24;
}

void StoreWord(BYTE* bytes, DWORD word) {
    for (int i = 0; i < 4; ++i)
        bytes[i] = static_cast<BYTE>(word >> (8 * i));
}

// Inlines the whole block: with calls the state would be stored in memory between the steps.
template <class Round, unsigned round, unsigned step>
[[gnu::always_inline]] inline void Step(DWORD& a, DWORD b, DWORD c, DWORD d, const BYTE* block) {
    const DWORD sum = a + LoadWord(block + 4 * Round::Word(step)) + kSines[16 * round + step];
    a = b + std::rotl(Round::Add(sum, b, c, d), Round::kShifts[step % 4]);
}

template <class Round, unsigned round, unsigned step>
[[gnu::always_inline]] inline void FourSteps(State& s, const BYTE* block) {
    Step<Round, round, step>(s.a, s.b, s.c, s.d, block);
    Step<Round, round, step + 1>(s.d, s.a, s.b, s.c, block);
    Step<Round, round, step + 2>(s.c, s.d, s.a, s.b, block);
    Step<Round, round, step + 3>(s.b, s.c, s.d, s.a, block);
}

template <class Round, unsigned round>
[[gnu::always_inline]] inline void SixteenSteps(State& s, const BYTE* block) {
    FourSteps<Round, round, 0>(s, block);
    FourSteps<Round, round, 4>(s, block);
    FourSteps<Round, round, 8>(s, block);
    FourSteps<Round, round, 12>(s, block);
}

void DigestBlocks(DWORD (&state)[4], const BYTE* block, std::size_t blocks) {
    State s = {state[0], state[1], state[2], state[3]};
    for (; blocks > 0; --blocks, block += kBlockSize) {
        const State before = s;
        SixteenSteps<Round1, 0>(s, block);
        SixteenSteps<Round2, 1>(s, block);
        SixteenSteps<Round3, 2>(s, block);
        SixteenSteps<Round4, 3>(s, block);
        s = {s.a + before.a, s.b + before.b, s.c + before.c, s.d + before.d};
    }
    state[0] = s.a;
    state[1] = s.b;
    state[2] = s.c;
    state[3] = s.d;
}

} // namespace

void AfxMD5Init(MD5_CTX* context) {
    if (context != nullptr)
        *context = {{0x67452301, 0xefcdab89, 0x98badcfe, 0x10325476}, 0, {}};
}

void AfxMD5Update(MD5_CTX* context, const BYTE* data, unsigned int length) {
    if (context == nullptr || data == nullptr)
        return;
    const std::size_t held = context->length % kBlockSize;
    context->length += length;
    if (held > 0) {
        const auto taken = std::min<std::size_t>(length, kBlockSize - held);
        std::memcpy(context->block + held, data, taken);
        if (held + taken < kBlockSize)
            return;
        DigestBlocks(context->state, context->block, 1);
        data += taken;
        length -= static_cast<unsigned>(taken);
    }
    DigestBlocks(context->state, data, length / kBlockSize);
    const std::size_t rest = length % kBlockSize;
    std::memcpy(context->block, data + (length - rest), rest);
}

void AfxMD5Final(BYTE digest[16], MD5_CTX* context) {
    if (digest == nullptr || context == nullptr)
        return;
    // Appends a 1 bit, zeros, and the length at its place: in this block or, if there is no room,
    // in the next one.
    std::size_t held = context->length % kBlockSize;
    BYTE* const block = context->block;
    block[held++] = 0x80;
    if (held > kBlockSize - kLengthSize) {
        std::memset(block + held, 0, kBlockSize - held);
        DigestBlocks(context->state, block, 1);
        held = 0;
    }
    std::memset(block + held, 0, kBlockSize - kLengthSize - held);
    const ULONGLONG bits = context->length * 8;
    StoreWord(block + kBlockSize - 8, static_cast<DWORD>(bits));
    StoreWord(block + kBlockSize - 4, static_cast<DWORD>(bits >> 32));
    DigestBlocks(context->state, block, 1);
    for (int i = 0; i < 4; ++i)
        StoreWord(digest + 4 * i, context->state[i]);
    *context = {};
}

BOOL AfxGenerateMD5Digest(const BYTE* data, unsigned int length, BYTE digest[16]) {
    if (data == nullptr || digest == nullptr)
        return FALSE;
    MD5_CTX context;
    AfxMD5Init(&context);
    AfxMD5Update(&context, data, length);
    AfxMD5Final(digest, &context);
    return TRUE;
}

BOOL AfxFormatMD5Checksum(const BYTE digest[16], CStringA& text, BOOL upperCase) {
    if (digest == nullptr)
        return FALSE;
    const char* const digits = upperCase ? "0123456789ABCDEF" : "0123456789abcdef";
    char checksum[2 * kDigestSize];
    for (std::size_t i = 0; i < kDigestSize; ++i) {
        checksum[2 * i] = digits[digest[i] >> 4];
        checksum[2 * i + 1] = digits[digest[i] & 15];
    }
    return quorvel::WithoutException([&] {
        text.SetString(checksum, sizeof checksum);
        return true;
    });
}

BOOL AfxGenerateMD5Checksum(const BYTE* data, unsigned int length, CStringA& text, BOOL upperCase) {
    BYTE digest[kDigestSize];
    return AfxGenerateMD5Digest(data, length, digest) &&
           AfxFormatMD5Checksum(digest, text, upperCase);
}

BOOL AfxGenerateFileMD5Checksum(HANDLE file, CStringA& text) {
    text.Empty();
    MD5_CTX context;
    AfxMD5Init(&context);
    BYTE block[kFileBlockSize];
    DWORD read = 0;
    do {
        if (!ReadFile(file, block, sizeof block, &read, nullptr))
            return FALSE;
        AfxMD5Update(&context, block, read);
    } while (read > 0);
    BYTE digest[kDigestSize];
    AfxMD5Final(digest, &context);
    return AfxFormatMD5Checksum(digest, text, FALSE);
}

BOOL AfxGenerateFileMD5Checksum(const WCHAR* path, CStringA& text) {
    if (path == nullptr)
        return FALSE;
    const quorvel::ScopedHandle file(
        CreateFileW(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    return file.IsValid() && AfxGenerateFileMD5Checksum(file.Get(), text);
}
