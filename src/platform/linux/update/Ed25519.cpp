#include "platform/linux/update/Ed25519.h"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>

#include <openssl/evp.h>

namespace blankwell {
namespace {

struct FreeKey {
    void operator()(EVP_PKEY* key) const { EVP_PKEY_free(key); }
};

struct FreeContext {
    void operator()(EVP_MD_CTX* context) const { EVP_MD_CTX_free(context); }
};

const unsigned char* raw(const void* bytes) {
    return static_cast<const unsigned char*>(bytes);
}

bool isBase64Character(char character) {
    const auto lowered = static_cast<char>(character | 0x20);
    return (lowered >= 'a' && lowered <= 'z') || (character >= '0' && character <= '9') ||
           character == '+' || character == '/';
}

/// Exactly `Size` bytes, written as base64 with its padding and nothing else.
template <std::size_t Size>
std::optional<std::array<unsigned char, Size>> decoded(std::string_view text) {
    constexpr std::size_t groups = (Size + 2) / 3;
    constexpr std::size_t padding = groups * 3 - Size;
    if (text.size() != groups * 4 ||
        !std::ranges::all_of(text.substr(0, text.size() - padding), isBase64Character) ||
        !std::ranges::all_of(text.substr(text.size() - padding), [](char c) { return c == '='; })) {
        return std::nullopt;
    }
    std::array<unsigned char, groups * 3> bytes{};
    EVP_DecodeBlock(bytes.data(), raw(text.data()), static_cast<int>(text.size()));
    std::array<unsigned char, Size> result{};
    std::ranges::copy_n(bytes.begin(), Size, result.begin());
    return result;
}

} // namespace

bool isSignedByEd25519(std::span<const std::byte> message, std::string_view signature,
                       std::string_view key) {
    const auto signatureBytes = decoded<64>(signature);
    const auto keyBytes = decoded<32>(key);
    if (!signatureBytes || !keyBytes) {
        return false;
    }
    const std::unique_ptr<EVP_PKEY, FreeKey> publicKey(
        EVP_PKEY_new_raw_public_key(EVP_PKEY_ED25519, nullptr, keyBytes->data(), keyBytes->size()));
    const std::unique_ptr<EVP_MD_CTX, FreeContext> context(EVP_MD_CTX_new());
    return publicKey && context &&
           EVP_DigestVerifyInit(context.get(), nullptr, nullptr, nullptr, publicKey.get()) == 1 &&
           EVP_DigestVerify(context.get(), signatureBytes->data(), signatureBytes->size(),
                            raw(message.data()), message.size()) == 1;
}

} // namespace blankwell
