#include "filetypes/UniqueFileUrl.h"

#include "support/FakeFileSystem.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

struct UniqueFileUrlTest : testing::Test {
    UniqueFileUrlTest() { files.addFolder("/f"); }

    std::string name() {
        const auto url = uniqueFileUrl(files, FileUrl("/f"), "Untitled", "txt");
        return url ? std::string(url->lastPathComponent()) : url.error().description;
    }

    void takeUpTo(int last) {
        files.addFile("/f/Untitled.txt");
        for (int number = 2; number <= last; ++number) {
            files.addFile("/f/Untitled " + std::to_string(number) + ".txt");
        }
    }

    EventLog events;
    FakeFileSystem files{events};
};

TEST_F(UniqueFileUrlTest, TheFirstNameHasNoNumber) {
    EXPECT_EQ(name(), "Untitled.txt");
}

TEST_F(UniqueFileUrlTest, NumbersBeginAtTwo) {
    takeUpTo(1);
    EXPECT_EQ(name(), "Untitled 2.txt");
    takeUpTo(2);
    EXPECT_EQ(name(), "Untitled 3.txt");
}

TEST_F(UniqueFileUrlTest, GapsAreFilledFromTheBottom) {
    files.addFile("/f/Untitled 2.txt");
    EXPECT_EQ(name(), "Untitled.txt");
    files.addFile("/f/Untitled.txt");
    files.addFile("/f/Untitled 4.txt");
    EXPECT_EQ(name(), "Untitled 3.txt");
}

TEST_F(UniqueFileUrlTest, FoldersAndLinksTakeNamesToo) {
    files.addFolder("/f/Untitled.txt");
    files.links.insert(FileUrl("/f/Untitled 2.txt"));
    EXPECT_EQ(name(), "Untitled 3.txt");
}

TEST_F(UniqueFileUrlTest, AFewNamesAreFoundWithoutReadingTheFolder) {
    takeUpTo(3);
    EXPECT_EQ(name(), "Untitled 4.txt");
    EXPECT_EQ(files.existenceTests, 4);
    EXPECT_EQ(files.listings, 0);
}

TEST_F(UniqueFileUrlTest, ManyNamesAreFoundByReadingTheFolderOnce) {
    takeUpTo(1000);
    EXPECT_EQ(name(), "Untitled 1001.txt");
    EXPECT_EQ(files.listings, 1);
    EXPECT_LT(files.existenceTests, 32);
}

TEST_F(UniqueFileUrlTest, AGapAmongManyIsFilled) {
    takeUpTo(1000);
    files.files.erase(FileUrl("/f/Untitled 437.txt"));
    EXPECT_EQ(name(), "Untitled 437.txt");
}

TEST_F(UniqueFileUrlTest, NamesThatOnlyLookNumberedTakeNothing) {
    takeUpTo(20);
    for (const auto* other :
         {"Untitled 021.txt", "Untitled 21.md", "Untitled 21.csv", "Document 21.txt",
          "Untitled 21 .txt", "Untitled  21.txt", "Untitled +21.txt", "Untitled 21.txt.txt",
          "Untitled 21", "My Untitled 21.txt", "Untitled .txt", "Untitled 99999999999999999999.txt",
          "Untitled -21.txt"}) {
        files.addFile("/f/" + std::string(other));
    }
    EXPECT_EQ(name(), "Untitled 21.txt");
}

/// A volume on which names that differ in case are the same.
struct CaseInsensitiveFileSystem : FakeFileSystem {
    using FakeFileSystem::FakeFileSystem;

    std::expected<bool, SystemError> itemExists(const FileUrl& url) const override {
        auto lower = url.path();
        lower[lower.rfind('/') + 1] = 'u';
        return *FakeFileSystem::itemExists(url) || *FakeFileSystem::itemExists(FileUrl(lower));
    }
};

TEST_F(UniqueFileUrlTest, TheFileSystemSaysWhichNamesAreEqual) {
    CaseInsensitiveFileSystem volume(events);
    volume.addFolder("/f");
    volume.addFile("/f/untitled.txt");
    for (int number = 2; number <= 40; ++number) {
        volume.addFile((number % 2 == 0 ? "/f/untitled " : "/f/Untitled ") +
                       std::to_string(number) + ".txt");
    }
    EXPECT_EQ(uniqueFileUrl(volume, FileUrl("/f"), "Untitled", "txt")->path(),
              "/f/Untitled 41.txt");
}

TEST_F(UniqueFileUrlTest, AFolderThatCannotBeReadIsAskedNameByName) {
    takeUpTo(1000);
    files.failListingWith = SystemError{SystemError::Domain::posix, 13, "no permission"};
    EXPECT_EQ(name(), "Untitled 1001.txt");
}

TEST_F(UniqueFileUrlTest, AnUnclearAnswerIsNotFree) {
    files.failExistenceWith = SystemError{SystemError::Domain::posix, 5, "input/output error"};
    EXPECT_EQ(name(), "input/output error");
}

} // namespace
} // namespace blankwell
