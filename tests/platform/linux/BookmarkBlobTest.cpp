#include "platform/linux/BookmarkBlob.h"

#include "platform/linux/LinuxAccessScopes.h"
#include "platform/linux/LinuxBookmarks.h"
#include "support/BookmarkSeal.h"

#include <fmt/core.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <random>

namespace blankwell {
namespace {

BookmarkBlob sample() {
    return {
        .path = "/home/u/link",
        .location = "/mnt/disk/a/Projects",
        .mountPoint = "/mnt/disk",
        .volume = {.kind = 0xEF53, .id = 0x1122334455667788},
        .folder = {.inode = 4711,
                   .birthTime = BirthTime{1'700'000'000, 999'999'999},
                   .handleType = -1,
                   .handle = "\x01\xFF\x00 handle"},
        .ancestors = {{.inode = 12},
                      {.inode = 2, .handleType = 1, .handle = std::string(128, 'h')}},
    };
}

/// `change` made to a copy of the encoded sample, and sealed again.
template <typename Change>
Bytes resealed(Change change) {
    auto bytes = encodeBookmark(sample());
    change(bytes);
    return sealed(std::move(bytes));
}

Bytes replaced(std::string_view what, std::string_view with) {
    return resealed([&](Bytes& bytes) {
        std::string text(textOf(bytes));
        const auto at = text.find(what);
        ASSERT_NE(at, std::string::npos);
        text.replace(at, what.size(), with);
        const auto changed = bytesOf(text);
        bytes.assign(changed.begin(), changed.end());
    });
}

int codeOf(std::span<const std::byte> bytes) {
    LinuxAccessScopes scopes;
    const auto resolved = LinuxBookmarks(scopes).resolve(bytes);
    return resolved ? 0 : resolved.error().code;
}

TEST(BookmarkBlobTest, ComesBackAsItWas) {
    EXPECT_EQ(decodeBookmark(encodeBookmark(sample())), sample());
}

TEST(BookmarkBlobTest, APathThatIsTheLocationIsKeptOnce) {
    auto blob = sample();
    blob.path = blob.location;
    EXPECT_EQ(decodeBookmark(encodeBookmark(blob)), blob);
    EXPECT_EQ(encodeBookmark(blob).size(), encodeBookmark(sample()).size() - sample().path.size());
}

TEST(BookmarkBlobTest, ExtremesComeBack) {
    BookmarkBlob blob{.path = "/",
                      .location = "/",
                      .mountPoint = "/",
                      .volume = {~std::uint64_t{0}, ~std::uint64_t{0}}};
    blob.strength = IdentityStrength::weak;
    blob.folder = {.inode = ~std::uint64_t{0}, .birthTime = BirthTime{INT64_MIN, 0}};
    EXPECT_EQ(decodeBookmark(encodeBookmark(blob)), blob);

    BookmarkBlob deep{.mountPoint = "/"};
    while (deep.path.size() < PATH_MAX - 3) {
        deep.path += "/\xFF";
    }
    deep.location = deep.path;
    deep.folder = sample().ancestors.back();
    deep.ancestors.assign(deep.path.size() / 2, deep.folder);
    EXPECT_EQ(decodeBookmark(encodeBookmark(deep)), deep);
}

TEST(BookmarkBlobTest, TheLayoutIsTheDocumentedOne) {
    const BookmarkBlob blob{
        .path = "/a",
        .location = "/a",
        .mountPoint = "/",
        .volume = {.kind = 0x0102, .id = 0x0304},
        .folder = {.inode = 3, .birthTime = BirthTime{-2, 4}, .handleType = 5, .handle = "h"},
        .ancestors = {{.inode = 6}}};
    const std::string expected("BWFOLDER"
                               "\x01\0\0\0"
                               "\x55\0\0\0"
                               "\x02\x01\0\0\0\0\0\0"
                               "\x04\x03\0\0\0\0\0\0"
                               "\0"
                               "\x02\0/a"
                               "\0\0"
                               "\x01\0/"
                               "\x02\0"
                               "\x03\0\0\0\0\0\0\0"
                               "\x01"
                               "\xFE\xFF\xFF\xFF\xFF\xFF\xFF\xFF"
                               "\x04\0\0\0"
                               "\x01"
                               "\x05\0\0\0h"
                               "\x06\0\0\0\0\0\0\0"
                               "\0\0",
                               81);
    const auto bytes = encodeBookmark(blob);
    EXPECT_EQ(bytes.size(), 85U);
    EXPECT_EQ(textOf(bytes).substr(0, 81), expected);
}

TEST(BookmarkBlobTest, EveryTruncationIsNoBookmark) {
    const auto bytes = encodeBookmark(sample());
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        EXPECT_EQ(codeOf(std::span(bytes).first(size)), 259) << size;
    }
}

TEST(BookmarkBlobTest, EveryTruncationIsNoBookmarkEvenIfSealed) {
    const auto bytes = encodeBookmark(sample());
    for (std::size_t size = 20; size < bytes.size(); ++size) {
        auto truncated = bytes;
        truncated.resize(size);
        EXPECT_EQ(decodeBookmark(sealed(std::move(truncated))), std::nullopt) << size;
    }
}

TEST(BookmarkBlobTest, EveryChangedByteIsNoBookmark) {
    const auto original = encodeBookmark(sample());
    for (std::size_t at = 0; at < original.size(); ++at) {
        for (int flip = 1; flip < 256; ++flip) {
            auto bytes = original;
            bytes[at] ^= static_cast<std::byte>(flip);
            ASSERT_EQ(decodeBookmark(bytes), std::nullopt) << at << " ^ " << flip;
        }
        auto bytes = original;
        bytes[at] ^= std::byte{0xFF};
        ASSERT_EQ(codeOf(bytes), 259) << at;
    }
}

TEST(BookmarkBlobTest, LongerDataIsNoBookmark) {
    for (const std::size_t more : {1U, 4U, 100U, 1'000'000U}) {
        auto bytes = encodeBookmark(sample());
        bytes.resize(bytes.size() + more);
        EXPECT_EQ(codeOf(bytes), 259) << more;
        EXPECT_EQ(decodeBookmark(sealed(std::move(bytes))), std::nullopt) << more;
    }
}

TEST(BookmarkBlobTest, ForeignDataIsNoBookmark) {
    for (const std::string_view text :
         {"", "BWFOLDER", "book\0\0\0\0mark", "<?xml version=\"1.0\"?><plist/>", "bplist00",
          "/home/u/Projects", "BWFOLDER\x01\0\0\0\x14\0\0\0\0\0\0\0"}) {
        EXPECT_EQ(codeOf(bytesOf(text)), 259) << text;
    }
    EXPECT_EQ(codeOf(Bytes(1'000'000)), 259);
}

TEST(BookmarkBlobTest, RandomBytesAreNoBookmark) {
    std::mt19937 random(20); // NOLINT(*-msc51-cpp): the same bytes at each run
    for (int i = 0; i < 20'000; ++i) {
        Bytes bytes(random() % 400);
        std::ranges::generate(bytes, [&] { return static_cast<std::byte>(random()); });
        ASSERT_EQ(decodeBookmark(bytes), std::nullopt);
    }
}

TEST(BookmarkBlobTest, ALaterVersionIsNotReadable) {
    EXPECT_EQ(codeOf(resealed([](Bytes& bytes) { bytes[8] = std::byte{2}; })), 259);
    EXPECT_EQ(codeOf(resealed([](Bytes& bytes) { bytes[8] = std::byte{0}; })), 259);
    EXPECT_EQ(codeOf(resealed([](Bytes& bytes) { bytes[11] = std::byte{1}; })), 259);
    EXPECT_NE(codeOf(resealed([](Bytes&) {})), 259);
}

TEST(BookmarkBlobTest, PathsThatAreNotAbsoluteAndStandardizedAreRefused) {
    EXPECT_NE(decodeBookmark(replaced("/home/u/link", "/home/u/lint")), std::nullopt);
    for (const std::string_view path :
         {"home/u/links", "/home//links", "/home/./link", "/home/../lin", "/home/u/lin/"}) {
        ASSERT_EQ(path.size(), 12U);
        EXPECT_EQ(decodeBookmark(replaced("/home/u/link", path)), std::nullopt) << path;
    }
    EXPECT_EQ(decodeBookmark(replaced("u/link", std::string_view("u/\0ink", 6))), std::nullopt);
}

TEST(BookmarkBlobTest, PathsThatContradictEachOtherAreRefused) {
    EXPECT_NE(decodeBookmark(replaced("a/Projects", "b/Projects")), std::nullopt);
    EXPECT_EQ(decodeBookmark(replaced("/disk/a/Projects", "/dusk/a/Projects")), std::nullopt);
    EXPECT_EQ(decodeBookmark(replaced("/disk/a/Projects", "/diskxa/Projects")), std::nullopt);
    EXPECT_EQ(decodeBookmark(replaced("a/Projects", "a/Proj/cts")), std::nullopt);
    EXPECT_EQ(decodeBookmark(replaced("a/Projects", "axProjects")), std::nullopt);
}

TEST(BookmarkBlobTest, ALocationThatSaysNothingNewIsRefused) {
    auto blob = sample();
    blob.path = "/mnt/disk/b/Projects";
    const std::string text(textOf(encodeBookmark(blob)));
    auto same = text;
    same.replace(same.find("b/Projects"), 1, "a");
    const auto bytes = bytesOf(same);
    EXPECT_EQ(decodeBookmark(sealed(Bytes(bytes.begin(), bytes.end()))), std::nullopt);
}

TEST(BookmarkBlobTest, APathTooLongForTheSystemIsRefused) {
    BookmarkBlob blob{.path = "/" + std::string(PATH_MAX - 1, 'p'), .mountPoint = "/"};
    blob.location = blob.path;
    blob.ancestors.resize(1);
    EXPECT_EQ(decodeBookmark(encodeBookmark(blob)), std::nullopt);
    blob.path.pop_back();
    blob.location = blob.path;
    EXPECT_EQ(decodeBookmark(encodeBookmark(blob)), blob);
}

TEST(BookmarkBlobTest, ValuesOutOfTheirRangeAreRefused) {
    auto blob = sample();
    blob.folder.birthTime->nanoseconds = 1'000'000'000;
    EXPECT_EQ(decodeBookmark(encodeBookmark(blob)), std::nullopt);
    blob = sample();
    blob.folder.handle = std::string(129, 'h');
    EXPECT_EQ(decodeBookmark(encodeBookmark(blob)), std::nullopt);
    EXPECT_EQ(decodeBookmark(resealed([](Bytes& bytes) { bytes[32] = std::byte{2}; })),
              std::nullopt);
}

} // namespace
} // namespace blankwell
