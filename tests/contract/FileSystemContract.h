#pragma once

#include "base/Bytes.h"
#include "platform/FileSystem.h"

#include <gmock/gmock.h>

#include <functional>
#include <string>
#include <vector>

namespace blankwell {

/// What every `FileSystem` does. `Surroundings` has a `FileSystem& fileSystem()`, an empty
/// `folder()` and ways to put items there and to read them that do not go through the port:
/// `addFile`, `addFolder`, `addDanglingLink` and `contents`.
template <typename Surroundings>
struct FileSystemContract : testing::Test {
    FileUrl at(std::string_view name) { return surroundings.folder().appending(name); }

    std::vector<std::string> names() {
        std::vector<std::string> found;
        EXPECT_TRUE(surroundings.fileSystem().visitNames(
            surroundings.folder(), [&](std::string_view name) { found.emplace_back(name); }));
        return found;
    }

    Surroundings surroundings;
};

TYPED_TEST_SUITE_P(FileSystemContract);

TYPED_TEST_P(FileSystemContract, TellsWhatIsThereFromWhatIsNot) {
    auto& files = this->surroundings.fileSystem();
    this->surroundings.addFile("file", "");
    this->surroundings.addFolder("folder");
    this->surroundings.addDanglingLink("link");
    for (const auto* name : {"file", "folder", "link"}) {
        EXPECT_EQ(files.itemExists(this->at(name)), true) << name;
    }
    EXPECT_EQ(files.itemExists(this->at("nothing")), false);
}

TYPED_TEST_P(FileSystemContract, OnlyFoldersAreDirectories) {
    auto& files = this->surroundings.fileSystem();
    this->surroundings.addFile("file", "");
    this->surroundings.addFolder("folder");
    EXPECT_TRUE(files.isDirectory(this->at("folder")));
    EXPECT_FALSE(files.isDirectory(this->at("file")));
    EXPECT_FALSE(files.isDirectory(this->at("nothing")));
}

TYPED_TEST_P(FileSystemContract, VisitsEachNameOnce) {
    EXPECT_THAT(this->names(), testing::IsEmpty());
    this->surroundings.addFile("file", "");
    this->surroundings.addFolder("folder");
    this->surroundings.addDanglingLink("link");
    EXPECT_THAT(this->names(), testing::UnorderedElementsAre("file", "folder", "link"));
}

TYPED_TEST_P(FileSystemContract, WritesExactlyTheBytes) {
    auto& files = this->surroundings.fileSystem();
    const std::string text("a\0b\n\xFF", 5);
    EXPECT_TRUE(files.writeNew(this->at("new"), bytesOf(text)));
    EXPECT_EQ(this->surroundings.contents("new"), text);
    EXPECT_TRUE(files.writeNew(this->at("empty"), {}));
    EXPECT_EQ(this->surroundings.contents("empty"), "");
}

TYPED_TEST_P(FileSystemContract, CopiesExactlyTheBytes) {
    const std::string text(100'000, 'x');
    this->surroundings.addFile("source", text);
    EXPECT_TRUE(this->surroundings.fileSystem().copyNew(this->at("source"), this->at("copy")));
    EXPECT_EQ(this->surroundings.contents("copy"), text);
    EXPECT_EQ(this->surroundings.contents("source"), text);
}

TYPED_TEST_P(FileSystemContract, NeverReplacesWhatIsThere) {
    auto& files = this->surroundings.fileSystem();
    this->surroundings.addFile("file", "mine");
    this->surroundings.addFile("source", "other");
    this->surroundings.addFolder("folder");
    this->surroundings.addDanglingLink("link");
    for (const auto* name : {"file", "folder", "link"}) {
        const auto written = files.writeNew(this->at(name), bytesOf("other"));
        ASSERT_FALSE(written) << name;
        EXPECT_TRUE(written.error().is(CocoaCode::fileWriteFileExists)) << name;
        const auto copied = files.copyNew(this->at("source"), this->at(name));
        ASSERT_FALSE(copied) << name;
        EXPECT_TRUE(copied.error().is(CocoaCode::fileWriteFileExists)) << name;
    }
    EXPECT_EQ(this->surroundings.contents("file"), "mine");
    EXPECT_THAT(this->names(), testing::UnorderedElementsAre("file", "source", "folder", "link"));
}

TYPED_TEST_P(FileSystemContract, AMissingFolderIsAnError) {
    auto& files = this->surroundings.fileSystem();
    this->surroundings.addFile("source", "");
    const auto inside = this->at("nothing").appending("new");
    EXPECT_TRUE(files.writeNew(inside, {}).error().is(CocoaCode::fileNoSuchFile));
    EXPECT_TRUE(files.copyNew(this->at("source"), inside).error().is(CocoaCode::fileNoSuchFile));
}

TYPED_TEST_P(FileSystemContract, AMissingSourceMakesNothing) {
    EXPECT_FALSE(this->surroundings.fileSystem().copyNew(this->at("nothing"), this->at("copy")));
    EXPECT_THAT(this->names(), testing::IsEmpty());
}

TYPED_TEST_P(FileSystemContract, AnItemIsKnownByItsLastComponent) {
    EXPECT_EQ(this->surroundings.fileSystem().displayName(this->at("My folder")), "My folder");
}

REGISTER_TYPED_TEST_SUITE_P(FileSystemContract, TellsWhatIsThereFromWhatIsNot,
                            OnlyFoldersAreDirectories, VisitsEachNameOnce, WritesExactlyTheBytes,
                            CopiesExactlyTheBytes, NeverReplacesWhatIsThere,
                            AMissingFolderIsAnError, AMissingSourceMakesNothing,
                            AnItemIsKnownByItsLastComponent);

} // namespace blankwell
