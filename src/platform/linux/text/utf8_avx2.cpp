// The vector form of the UTF-8 converters for x86 processors with AVX2.
#include "platform/linux/text/utf8_kernels.h"

#if defined(__i386__) || defined(__x86_64__)

#include <immintrin.h>

#define QUORVEL_VECTOR __attribute__((target("avx2,bmi,bmi2,popcnt")))
#define QUORVEL_INLINE QUORVEL_VECTOR __attribute__((always_inline)) inline
#define QUORVEL_OP(name) _mm256_##name

namespace {

typedef __m256i Register; // two lanes

QUORVEL_INLINE Register InEveryLane(__m128i lane) {
    return _mm256_broadcastsi128_si256(lane);
}
QUORVEL_INLINE __m128i LaneOf(Register vector, int lane) {
    return lane == 0 ? _mm256_castsi256_si128(vector) : _mm256_extracti128_si256(vector, 1);
}
// Converts between the order in memory and the order of halves in which the operations on lanes
// work. It is its own inverse.
QUORVEL_INLINE Register SwapMiddle(Register vector) {
    return _mm256_permute4x64_epi64(vector, 0xd8); // 0, 2, 1, 3
}
QUORVEL_INLINE bool HasBits(Register units, int mask) {
    return _mm256_testz_si256(units, _mm256_set1_epi16(static_cast<short>(mask))) == 0;
}
QUORVEL_INLINE Register Blend(Register no, Register yes, Register condition) {
    return _mm256_blendv_epi8(no, yes, condition);
}

} // namespace

#include "platform/linux/text/utf8_blocks.h"

const quorvel::Utf8Kernels* quorvel::Avx2Utf8() {
    const bool supported = __builtin_cpu_supports("avx2") && __builtin_cpu_supports("bmi") &&
                           __builtin_cpu_supports("bmi2") && __builtin_cpu_supports("popcnt");
    return supported ? &kKernels : nullptr;
}

#else

const quorvel::Utf8Kernels* quorvel::Avx2Utf8() {
    return nullptr;
}

#endif
