#include "platform/linux/update/Ed25519.h"

#include "base/Bytes.h"
#include "support/SigningKey.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

bool isSigned(std::string_view message, std::string_view signature, std::string_view key) {
    return isSignedByEd25519(bytesOf(message), signature, key);
}

TEST(Ed25519Test, AcceptsAVectorOfRfc8032) {
    EXPECT_TRUE(isSigned("",
                         "5VZDAMNgrHKQhuLMgG6CioSHfx645dl02HPgZSJJAVVfuIIVkKM7rMYeOXAc"
                         "+bRr0lv18FlbviRlUUFDjnoQCw==",
                         "11qYAYKxCrfVS/7TyWQHOg7hcvPapiMlrwIaaPcHURo="));
}

TEST(Ed25519Test, OnlyTheSignedBytesPass) {
    const SigningKey key;
    const auto signature = key.sign("message");
    EXPECT_TRUE(isSigned("message", signature, key.publicKey()));
    EXPECT_FALSE(isSigned("massage", signature, key.publicKey()));
    EXPECT_FALSE(isSigned("messag", signature, key.publicKey()));
    EXPECT_FALSE(isSigned("", signature, key.publicKey()));
}

TEST(Ed25519Test, OnlyTheKeyOfTheSignerPasses) {
    const SigningKey key;
    EXPECT_FALSE(isSigned("message", key.sign("message"), SigningKey().publicKey()));
}

TEST(Ed25519Test, WhatIsNoSignatureOrKeyNeverPasses) {
    const SigningKey key;
    const auto signature = key.sign("message");
    for (const std::string& other :
         {std::string(), signature + "\n", signature.substr(4), "====" + signature.substr(4),
          " " + signature.substr(1), std::string(88, '\0'), std::string(86, 'A') + "=="}) {
        EXPECT_FALSE(isSigned("message", other, key.publicKey())) << other;
    }
    for (const std::string& other : {std::string(), key.publicKey() + "=", std::string(44, 'A')}) {
        EXPECT_FALSE(isSigned("message", signature, other)) << other;
    }
}

} // namespace
} // namespace blankwell
