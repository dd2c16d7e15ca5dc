// The vector form of the UTF-8 converters for x86 processors with SSSE3.
#include "platform/linux/text/utf8_kernels.h"

#if defined(__i386__) || defined(__x86_64__)

#include <tmmintrin.h>

#define QUORVEL_VECTOR __attribute__((target("ssse3,popcnt")))
#define QUORVEL_INLINE QUORVEL_VECTOR __attribute__((always_inline)) inline
#define QUORVEL_OP(name) _mm_##name

namespace {

typedef __m128i Register;

QUORVEL_INLINE Register InEveryLane(__m128i lane) {
    return lane;
}
QUORVEL_INLINE __m128i LaneOf(Register vector, int) {
    return vector;
}
QUORVEL_INLINE Register SwapMiddle(Register vector) {
    return vector;
}
QUORVEL_INLINE bool HasBits(Register units, int mask) {
    const Register bits = units & _mm_set1_epi16(static_cast<short>(mask));
    return _mm_movemask_epi8(_mm_cmpeq_epi16(bits, Register{})) != 0xffff;
}
QUORVEL_INLINE Register Blend(Register no, Register yes, Register condition) {
    return (condition & yes) | (~condition & no);
}

} // namespace

#include "platform/linux/text/utf8_blocks.h"

const quorvel::Utf8Kernels* quorvel::Ssse3Utf8() {
    const bool supported = __builtin_cpu_supports("ssse3") && __builtin_cpu_supports("popcnt");
    return supported ? &kKernels : nullptr;
}

#else

const quorvel::Utf8Kernels* quorvel::Ssse3Utf8() {
    return nullptr;
}

#endif
