// Keys of publishers. The checks accept the first two.
#pragma once

#include <quorvel/framework/string.h>

#include "listing/signing.h"

inline SigningKey KeyOf(unsigned char seed) {
    std::array<unsigned char, 40> random;
    random.fill(seed);
    return MakeSigningKey(random);
}
inline const SigningKey kKey = KeyOf(1), kNextKey = KeyOf(2), kForeignKey = KeyOf(3);

inline CString PublicOf(const SigningKey& key) {
    return CString(PublicKeyText(key).c_str());
}
