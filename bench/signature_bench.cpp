// Verifying a signed listing of 1 MB in a file, against libsodium's own calls on bytes in memory.
#include "update/minisign.h"

#include <benchmark/benchmark.h>
#include <sodium.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace {

using namespace quorvel::minisign;

struct Signed {
    Signed() : bytes(1 << 20, 'x') {
        std::array<BYTE, 64> secret;
        const std::array<BYTE, 32> seed = {1};
        crypto_sign_ed25519_seed_keypair(key.point.data(), secret.data(), seed.data());
        const Hash hash = HashOf();
        signature.trustedComment = "timestamp:1710232200 serial:7";
        crypto_sign_ed25519_detached(signature.ofFile.data(), nullptr, hash.data(), hash.size(),
                                     secret.data());
        const std::string comment = SignedComment();
        crypto_sign_ed25519_detached(signature.ofComment.data(), nullptr,
                                     reinterpret_cast<const BYTE*>(comment.data()), comment.size(),
                                     secret.data());
    }
    Hash HashOf() const {
        Hash hash;
        crypto_generichash_blake2b(hash.data(), hash.size(),
                                   reinterpret_cast<const BYTE*>(bytes.data()), bytes.size(),
                                   nullptr, 0);
        return hash;
    }
    std::string SignedComment() const {
        return std::string(signature.ofFile.begin(), signature.ofFile.end()) +
               signature.trustedComment;
    }

    const std::string bytes;
    PublicKey key = {};
    Signature signature = {};
};

void VerifyListing(benchmark::State& state) {
    const Signed listing;
    const auto path = std::filesystem::temp_directory_path() / "quorvel-bench-listing";
    std::ofstream(path, std::ios::binary) << listing.bytes;
    const std::u16string name = path.u16string();
    for (auto _ : state)
        if (!Verify(listing.signature, HashFile(name.c_str()), listing.key))
            state.SkipWithError("not verified");
    std::filesystem::remove(path);
}
BENCHMARK(VerifyListing)->Name("Signature/Quorvel/1MB")->Unit(benchmark::kMicrosecond);

void VerifyWithSodium(benchmark::State& state) {
    const Signed listing;
    const std::string comment = listing.SignedComment();
    for (auto _ : state) {
        const Hash hash = listing.HashOf();
        if (crypto_sign_ed25519_verify_detached(listing.signature.ofFile.data(), hash.data(),
                                                hash.size(), listing.key.point.data()) != 0 ||
            crypto_sign_ed25519_verify_detached(listing.signature.ofComment.data(),
                                                reinterpret_cast<const BYTE*>(comment.data()),
                                                comment.size(), listing.key.point.data()) != 0)
            state.SkipWithError("not verified");
    }
}
BENCHMARK(VerifyWithSodium)->Name("Signature/libsodium/1MB")->Unit(benchmark::kMicrosecond);

} // namespace
