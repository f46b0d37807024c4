#include "platform/linux/LinuxFileSystem.h"

#include "contract/FileSystemContract.h"
#include "support/ChildProcess.h"
#include "support/FakeFileSystem.h"
#include "support/PrivateMounts.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <filesystem>

namespace blankwell {
namespace {

struct RealSurroundings {
    FileSystem& fileSystem() { return files; }

    [[nodiscard]] FileUrl folder() const { return temporary.url(); }

    void addFile(const char* name, const std::string& text) { temporary.addFile(name, text); }

    void addFolder(const char* name) { temporary.addFolder(name); }

    [[nodiscard]] std::string contents(const char* name) const { return temporary.contents(name); }

    void addDanglingLink(const char* name) {
        std::filesystem::create_symlink("points nowhere", temporary.at(name).path());
    }

    TemporaryFolder temporary;
    LinuxFileSystem files;
};

struct FakeSurroundings {
    FakeSurroundings() { files.addFolder("/f"); }

    FileSystem& fileSystem() { return files; }

    [[nodiscard]] FileUrl folder() const { return FileUrl("/f"); }

    void addFile(const std::string& name, const std::string& text) {
        files.addFile("/f/" + name, text);
    }

    void addFolder(const std::string& name) { files.addFolder("/f/" + name); }

    void addDanglingLink(const std::string& name) { files.links.insert(FileUrl("/f/" + name)); }

    [[nodiscard]] std::string contents(const std::string& name) const {
        return files.contents("/f/" + name);
    }

    EventLog events;
    FakeFileSystem files{events};
};

INSTANTIATE_TYPED_TEST_SUITE_P(Linux, FileSystemContract, RealSurroundings);
INSTANTIATE_TYPED_TEST_SUITE_P(Fake, FileSystemContract, FakeSurroundings);

struct LinuxFileSystemTest : testing::Test {
    TemporaryFolder folder;
    LinuxFileSystem files;
};

TEST_F(LinuxFileSystemTest, AFileInPlaceOfTheFolderIsAnErrorAndNotAFreeName) {
    folder.addFile("file");
    const auto exists = files.itemExists(folder.at("file").appending("Untitled.txt"));
    ASSERT_FALSE(exists);
    EXPECT_EQ(exists.error(), (SystemError{SystemError::Domain::posix, ENOTDIR,
                                           "Could not look for \"Untitled.txt\" in \"file\": Not "
                                           "a directory."}));
}

TEST_F(LinuxFileSystemTest, ANameThatIsTooLongIsAnErrorAndNotAFreeName) {
    EXPECT_EQ(files.itemExists(folder.at(std::string(255, 'n'))), false);
    const auto exists = files.itemExists(folder.at(std::string(256, 'n')));
    ASSERT_FALSE(exists);
    EXPECT_EQ(exists.error().code, ENAMETOOLONG);
}

TEST_F(LinuxFileSystemTest, APathWithAZeroByteIsRefusedWhole) {
    folder.addFile("a");
    const auto url = folder.at(std::string_view("a\0b", 3));
    EXPECT_EQ(files.itemExists(url).error().code, EINVAL);
    EXPECT_EQ(files.writeNew(url, {}).error().code, EINVAL);
    EXPECT_EQ(files.visitNames(url, [](std::string_view) {}).error().code, EINVAL);
    EXPECT_FALSE(files.isDirectory(url));
}

TEST_F(LinuxFileSystemTest, ALinkToAFolderIsADirectory) {
    folder.addFolder("real");
    std::filesystem::create_directory_symlink("real", folder.at("link").path());
    EXPECT_TRUE(files.isDirectory(folder.at("link")));
    EXPECT_TRUE(files.writeNew(folder.at("link").appending("new"), bytesOf("x")));
    EXPECT_EQ(folder.contents("real/new"), "x");
}

TEST_F(LinuxFileSystemTest, NamesAreBytes) {
    for (const auto* name : {"new\nline", "not \xFF UTF-8", " ", "-rf", "\"'%#?&\\"}) {
        ASSERT_TRUE(files.writeNew(folder.at(name), bytesOf(name))) << name;
        EXPECT_EQ(folder.contents(name), name);
        EXPECT_EQ(files.itemExists(folder.at(name)), true);
    }
}

TEST_F(LinuxFileSystemTest, NewFilesGetTheModeThatTheUmaskLeaves) {
    const auto previous = ::umask(027);
    ASSERT_TRUE(files.writeNew(folder.at("new"), {}));
    ::umask(previous);
    struct stat status{};
    ::stat(folder.at("new").path().c_str(), &status);
    EXPECT_EQ(status.st_mode & 0777U, 0640U);
}

TEST_F(LinuxFileSystemTest, ACopyOfAReadOnlyTemplateCanBeWrittenTo) {
    folder.addFile("template", "document");
    std::filesystem::permissions(folder.at("template").path(), std::filesystem::perms::owner_read);
    ASSERT_TRUE(files.copyNew(folder.at("template"), folder.at("copy")));
    struct stat status{};
    ::stat(folder.at("copy").path().c_str(), &status);
    EXPECT_NE(status.st_mode & S_IWUSR, 0U);
}

TEST_F(LinuxFileSystemTest, ASourceThatIsMissingIsTheOneThatIsNamed) {
    const auto copied = files.copyNew(folder.at("template"), folder.at("copy"));
    ASSERT_FALSE(copied);
    EXPECT_EQ(copied.error().code, ENOENT);
    EXPECT_THAT(copied.error().description, testing::StartsWith("Could not read \"template\""));
}

TEST_F(LinuxFileSystemTest, ASourceThatCannotBeReadLeavesNoCopy) {
    const auto copied = files.copyNew(folder.addFolder("template"), folder.at("copy"));
    ASSERT_FALSE(copied);
    EXPECT_EQ(copied.error().code, EISDIR);
    EXPECT_EQ(files.itemExists(folder.at("copy")), false);
}

TEST_F(LinuxFileSystemTest, AFolderWithoutWritePermissionIsTheSystemsError) {
    std::filesystem::permissions(folder.url().path(), std::filesystem::perms(0755));
    inChildProcess([&] {
        becomeUnprivileged();
        const auto written = files.writeNew(folder.at("Untitled.txt"), {});
        ASSERT_FALSE(written);
        EXPECT_TRUE(written.error().is(CocoaCode::fileWriteNoPermission));
        EXPECT_THAT(written.error().description,
                    testing::MatchesRegex("Could not create \"Untitled.txt\" in "
                                          "\"blankwell-......\": Permission denied\\."));
    });
    EXPECT_EQ(files.itemExists(folder.at("Untitled.txt")), false);
}

TEST_F(LinuxFileSystemTest, AFolderThatCannotBeSearchedIsAnErrorAndNotAFreeName) {
    std::filesystem::permissions(folder.url().path(), std::filesystem::perms(0644));
    inChildProcess([&] {
        becomeUnprivileged();
        const auto exists = files.itemExists(folder.at("Untitled.txt"));
        ASSERT_FALSE(exists);
        EXPECT_EQ(exists.error().code, EACCES);
    });
}

TEST_F(LinuxFileSystemTest, AFullDiskLeavesNoPartialFile) {
    const std::string contents(1 << 20, 'x');
    folder.addFile("source", contents);
    const auto small = folder.addFolder("small");
    inChildProcess([&] {
        enterPrivateMounts();
        mountTmpfs(small.path(), "size=64k");
        const auto target = small.appending("Untitled.txt");
        const auto written = files.writeNew(target, bytesOf(contents));
        ASSERT_FALSE(written);
        EXPECT_TRUE(written.error().is(CocoaCode::fileWriteOutOfSpace));
        const auto copied = files.copyNew(folder.at("source"), target);
        ASSERT_FALSE(copied);
        EXPECT_TRUE(copied.error().is(CocoaCode::fileWriteOutOfSpace));
        EXPECT_EQ(files.itemExists(target), false);
    });
}

TEST_F(LinuxFileSystemTest, AReadOnlyVolumeIsTheSystemsError) {
    const auto volume = folder.addFolder("volume");
    inChildProcess([&] {
        enterPrivateMounts();
        mountTmpfs(volume.path(), "size=64k", MS_RDONLY);
        const auto written = files.writeNew(volume.appending("a"), {});
        ASSERT_FALSE(written);
        EXPECT_TRUE(written.error().is(CocoaCode::fileWriteVolumeReadOnly));
    });
}

TEST_F(LinuxFileSystemTest, AFileThatSomebodyPutInPlaceOfThePartialOneIsKept) {
    // The write fails half-way with EFBIG; the signal that comes first exchanges the file.
    static std::string path;
    path = folder.at("new").path();
    inChildProcess([&] {
        std::signal(SIGXFSZ, [](int) {
            ::rename(path.c_str(), (path + ".moved").c_str());
            ::symlink("somebody else's", path.c_str());
        });
        const rlimit limit{.rlim_cur = 4096, .rlim_max = 4096};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        const std::string contents(8192, 'x');
        const auto written = files.writeNew(folder.at("new"), bytesOf(contents));
        ASSERT_FALSE(written);
        EXPECT_EQ(written.error().code, EFBIG);
    });
    EXPECT_TRUE(std::filesystem::is_symlink(path));
}

TEST_F(LinuxFileSystemTest, TheListOfAFolderThatCannotBeReadIsAnError) {
    EXPECT_FALSE(files.visitNames(folder.at("nothing"), [](std::string_view) {}));
    folder.addFile("file");
    EXPECT_EQ(files.visitNames(folder.at("file"), [](std::string_view) {}).error().code, ENOTDIR);
}

} // namespace
} // namespace blankwell
