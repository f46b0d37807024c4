#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>

#include <openssl/evp.h>
#include <openssl/pem.h>

namespace blankwell {

/// A new Ed25519 key, and what it signs.
class SigningKey {
public:
    SigningKey() : key_(EVP_PKEY_Q_keygen(nullptr, nullptr, "ED25519"), EVP_PKEY_free) {}

    /// The public key, in base64.
    [[nodiscard]] std::string publicKey() const {
        std::array<unsigned char, 32> raw{};
        std::size_t size = raw.size();
        EVP_PKEY_get_raw_public_key(key_.get(), raw.data(), &size);
        return base64({raw.data(), size});
    }

    /// The public key as a PEM file.
    [[nodiscard]] std::string publicKeyPem() const {
        const std::unique_ptr<BIO, decltype(&BIO_free)> memory(BIO_new(BIO_s_mem()), BIO_free);
        PEM_write_bio_PUBKEY(memory.get(), key_.get());
        char* text = nullptr;
        const auto size = BIO_get_mem_data(memory.get(), &text);
        return {text, static_cast<std::size_t>(size)};
    }

    /// The signature of `message`, in base64.
    [[nodiscard]] std::string sign(std::string_view message) const {
        const std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> context(EVP_MD_CTX_new(),
                                                                              EVP_MD_CTX_free);
        std::array<unsigned char, 64> raw{};
        std::size_t size = raw.size();
        EVP_DigestSignInit(context.get(), nullptr, nullptr, nullptr, key_.get());
        EVP_DigestSign(context.get(), raw.data(), &size,
                       reinterpret_cast<const unsigned char*>(message.data()), message.size());
        return base64({raw.data(), size});
    }

private:
    static std::string base64(std::basic_string_view<unsigned char> bytes) {
        std::string text((bytes.size() + 2) / 3 * 4 + 1, '\0');
        const int size = EVP_EncodeBlock(reinterpret_cast<unsigned char*>(text.data()),
                                         bytes.data(), static_cast<int>(bytes.size()));
        text.resize(static_cast<std::size_t>(size));
        return text;
    }

    std::unique_ptr<EVP_PKEY, decltype(&EVP_PKEY_free)> key_;
};

} // namespace blankwell
