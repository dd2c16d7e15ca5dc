// Makes keys and signatures in the text format of minisign. Secret keys have no password: whoever
// can read such a file can sign.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

struct SigningKey {
    std::array<unsigned char, 8> id;
    std::array<unsigned char, 32> point;  // public
    std::array<unsigned char, 64> secret; // its second half is the point
};

// From 40 random bytes.
SigningKey MakeSigningKey(const std::array<unsigned char, 40>& random);

std::string PublicKeyText(const SigningKey& key);
std::string SecretKeyText(const SigningKey& key);
// False for a text that is none, or has a password.
bool ReadSecretKey(std::string_view text, SigningKey& key);

// The signature file of these bytes. The comment is one line.
std::string SignatureText(const SigningKey& key, std::string_view bytes, std::string_view comment);
