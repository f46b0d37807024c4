#include "platform/linux/LinuxRegistrations.h"

#include "contract/RegistrationsContract.h"
#include "support/ChildProcess.h"
#include "support/FakeRegistrations.h"
#include "support/FakeUserDefaults.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace blankwell {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr auto oddName = "a b/\"quotes' 100% \n\xff/x";
constexpr auto contents = "# app.blankwell.BlankwellPlus\n";

class FakeRegistrationsWorld {
public:
    Registrations& registrations() { return registrations_; }

    static Registration file(std::string_view name) {
        return RegisteredFile{.url = FileUrl("/folder").appending(name), .contents = contents};
    }

    std::set<std::string> names() const {
        std::set<std::string> names;
        for (const auto& [group, held] : registrations_.held) {
            for (const auto& one : held) {
                names.emplace(std::get<RegisteredFile>(one).url.lastPathComponent());
            }
        }
        return names;
    }

private:
    FakeRegistrations registrations_;
};

class LinuxRegistrationsWorld {
public:
    Registrations& registrations() { return registrations_; }

    Registration file(std::string_view name) const {
        return RegisteredFile{.url = folder_.at(name), .contents = contents};
    }

    std::set<std::string> names() const {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder_.url().path())) {
            names.insert(entry.path().filename().string());
        }
        return names;
    }

private:
    TemporaryFolder folder_;
    FakeUserDefaults list_;
    LinuxRegistrations registrations_{list_, folder_.url()};
};

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, RegistrationsContract, FakeRegistrationsWorld);
INSTANTIATE_TYPED_TEST_SUITE_P(Linux, RegistrationsContract, LinuxRegistrationsWorld);

struct LinuxRegistrationsTest : testing::Test {
    /// Every path in the folder.
    std::set<std::string> tree() const {
        std::set<std::string> paths;
        for (const auto& entry : fs::recursive_directory_iterator(folder.url().path())) {
            paths.insert(entry.path().string());
        }
        return paths;
    }

    RegisteredFile file(std::string_view name, std::string_view text = contents) const {
        return {.url = folder.at(name), .contents = std::string(text)};
    }

    RegisteredEntry entry() const { return {folder.at("lists/mime"), "Group", "key", "value"}; }

    RegisteredActions actions() const {
        return {folder.at("thunar/uca.xml"),
                folder.at("usual.xml"),
                {CustomAction{.id = "app.blankwell.BlankwellPlus.md", .name = "Markdown"}}};
    }

    std::vector<Registration> everything() const {
        return {file("files/one"), file(oddName),
                RegisteredLink{folder.at("links/l"), folder.at("B.app/Contents/x")}, entry(),
                actions()};
    }

    TemporaryFolder folder;
    FakeUserDefaults list;
    LinuxRegistrations registrations{list, folder.url()};
};

TEST_F(LinuxRegistrationsTest, PutsEverythingInPlace) {
    ASSERT_TRUE(registrations.set("all", everything()));
    EXPECT_EQ(folder.contents("files/one"), contents);
    EXPECT_EQ(folder.contents(oddName), contents);
    EXPECT_EQ(fs::read_symlink(folder.at("links/l").path()), folder.at("B.app/Contents/x").path());
    EXPECT_EQ(folder.contents("lists/mime"), "[Group]\nkey=value\n");
    EXPECT_THAT(folder.contents("thunar/uca.xml"), HasSubstr("<name>Markdown</name>"));
    EXPECT_THAT(registrations.groups(), ElementsAre("all"));
}

TEST_F(LinuxRegistrationsTest, ClearingLeavesWhatWasThereBefore) {
    folder.addFile("files/users", "mine");
    const auto before = tree();
    ASSERT_TRUE(registrations.set("all", everything()));
    ASSERT_TRUE(registrations.clear("all"));
    EXPECT_EQ(tree(), before);
    EXPECT_THAT(list.values, IsEmpty());
}

TEST_F(LinuxRegistrationsTest, TheSameAgainWritesNothing) {
    ASSERT_TRUE(registrations.set("all", everything()));
    const auto time = fs::last_write_time(folder.at("files").path());
    list.written.clear();
    ASSERT_TRUE(registrations.set("all", everything()));
    EXPECT_EQ(fs::last_write_time(folder.at("files").path()), time);
    EXPECT_THAT(list.written, IsEmpty());
    ASSERT_TRUE(registrations.clear("all"));
    EXPECT_THAT(tree(), IsEmpty());
}

TEST_F(LinuxRegistrationsTest, WhatIsMissingOrChangedIsMended) {
    ASSERT_TRUE(registrations.set("all", everything()));
    fs::remove(folder.at("files/one").path());
    fs::remove(folder.at("links/l").path());
    fs::create_symlink("/gone", folder.at("links/l").path());
    folder.addFile(oddName, "changed");
    ASSERT_TRUE(registrations.set("all", everything()));
    EXPECT_EQ(folder.contents("files/one"), contents);
    EXPECT_EQ(folder.contents(oddName), contents);
    EXPECT_EQ(fs::read_symlink(folder.at("links/l").path()), folder.at("B.app/Contents/x").path());
}

TEST_F(LinuxRegistrationsTest, WhatIsNoLongerWantedGoes) {
    ASSERT_TRUE(registrations.set("all", {file("a/one"), file("b/two"), entry()}));
    ASSERT_TRUE(registrations.set("all", {file("b/two")}));
    EXPECT_EQ(tree(), (std::set{folder.at("b").path(), folder.at("b/two").path()}));
}

TEST_F(LinuxRegistrationsTest, AFolderThatGroupsShareGoesWithTheLast) {
    ASSERT_TRUE(registrations.set("first", {file("shared/a/one")}));
    ASSERT_TRUE(registrations.set("second", {file("shared/b/two")}));
    ASSERT_TRUE(registrations.clear("first"));
    EXPECT_EQ(folder.contents("shared/b/two"), contents);
    ASSERT_TRUE(registrations.clear("second"));
    EXPECT_THAT(tree(), IsEmpty());
}

TEST_F(LinuxRegistrationsTest, TheFoldersOfAPlaceGoWithWhatStoodThere) {
    ASSERT_TRUE(registrations.set("place", {RegisteredPlace{folder.at("a/b/B.app")}}));
    EXPECT_EQ(tree(), (std::set{folder.at("a").path(), folder.at("a/b").path()}));
    folder.addFolder("a/b/B.app");
    ASSERT_TRUE(registrations.set("place", {RegisteredPlace{folder.at("a/b/B.app")}}));
    fs::remove(folder.at("a/b/B.app").path());
    ASSERT_TRUE(registrations.clear("place"));
    EXPECT_THAT(tree(), IsEmpty());
}

TEST_F(LinuxRegistrationsTest, WhatOthersPutIntoOurFoldersStays) {
    ASSERT_TRUE(registrations.set("all", everything()));
    folder.addFile("files/users", "mine");
    ASSERT_TRUE(registrations.clear("all"));
    EXPECT_EQ(tree(), (std::set{folder.at("files").path(), folder.at("files/users").path()}));
}

TEST_F(LinuxRegistrationsTest, WhatOthersWroteInSharedFilesStays) {
    ASSERT_TRUE(registrations.set("all", {entry(), actions()}));
    folder.addFile("lists/mime", "[Group]\nkey=value\ntheirs=1\n");
    auto xml = folder.contents("thunar/uca.xml");
    xml.insert(xml.find("</actions>"), "<action><name>Theirs</name></action>\n");
    folder.addFile("thunar/uca.xml", xml);
    ASSERT_TRUE(registrations.clear("all"));
    EXPECT_EQ(folder.contents("lists/mime"), "[Group]\ntheirs=1\n");
    EXPECT_THAT(folder.contents("thunar/uca.xml"), HasSubstr("<name>Theirs</name>"));
    EXPECT_THAT(folder.contents("thunar/uca.xml"), Not(HasSubstr("Markdown")));
}

TEST_F(LinuxRegistrationsTest, AListBeginsAsTheOneForAllUsers) {
    constexpr auto usual = "<actions>\n<action><name>Usual</name></action>\n</actions>\n";
    folder.addFile("usual.xml", usual);
    ASSERT_TRUE(registrations.set("all", {actions()}));
    EXPECT_THAT(folder.contents("thunar/uca.xml"), HasSubstr("<name>Usual</name>"));
    ASSERT_TRUE(registrations.clear("all"));
    EXPECT_FALSE(fs::exists(folder.at("thunar").path()));
    EXPECT_EQ(folder.contents("usual.xml"), usual);
}

TEST_F(LinuxRegistrationsTest, SharedFilesKeepTheirPermissionsAndLinks) {
    const auto kept = folder.addFile("dotfiles/mime", "[Group]\n");
    fs::permissions(kept.path(), fs::perms(0644));
    folder.addFolder("lists");
    fs::create_symlink(kept.path(), folder.at("lists/mime").path());
    ASSERT_TRUE(registrations.set("all", {entry()}));
    EXPECT_TRUE(fs::is_symlink(folder.at("lists/mime").path()));
    EXPECT_EQ(folder.contents("dotfiles/mime"), "[Group]\nkey=value\n");
    EXPECT_EQ(fs::status(kept.path()).permissions(), fs::perms(0644));
}

TEST_F(LinuxRegistrationsTest, AProgramCanBeStarted) {
    auto program = file("p");
    program.isProgram = true;
    ASSERT_TRUE(registrations.set("all", {program}));
    EXPECT_EQ(fs::status(program.url.path()).permissions(), fs::perms(0700));
    fs::permissions(program.url.path(), fs::perms(0600));
    ASSERT_TRUE(registrations.set("all", {program}));
    EXPECT_EQ(fs::status(program.url.path()).permissions(), fs::perms(0700));
}

TEST_F(LinuxRegistrationsTest, WhatSomebodyElseMadeIsNeverReplacedNorRemoved) {
    folder.addFile("file", "theirs");
    fs::create_symlink("/theirs", folder.at("link").path());
    const auto set = registrations.set(
        "all", {file("file"), RegisteredLink{folder.at("link"), folder.at("B.app/Contents/x")},
                file("other")});
    ASSERT_FALSE(set);
    EXPECT_THAT(set.error().description, HasSubstr("was not made by Blankwell+"));
    EXPECT_EQ(folder.contents("other"), contents);
    ASSERT_TRUE(registrations.clear("all"));
    EXPECT_EQ(folder.contents("file"), "theirs");
    EXPECT_EQ(fs::read_symlink(folder.at("link").path()), "/theirs");
    EXPECT_FALSE(fs::exists(folder.at("other").path()));
}

TEST_F(LinuxRegistrationsTest, OurOwnFileIsKnownWithoutTheList) {
    folder.addFile("file", std::string(contents) + "of a former version\n");
    EXPECT_TRUE(registrations.set("all", {file("file")}));
    EXPECT_EQ(folder.contents("file"), contents);
}

TEST_F(LinuxRegistrationsTest, ADamagedListOfActionsIsToldAndStays) {
    folder.addFile("thunar/uca.xml", "<actions>");
    const auto set = registrations.set("all", {actions()});
    ASSERT_FALSE(set);
    EXPECT_THAT(set.error().description, HasSubstr("is damaged"));
    EXPECT_EQ(folder.contents("thunar/uca.xml"), "<actions>");
}

TEST_F(LinuxRegistrationsTest, NothingIsWrittenThatCannotBeListed) {
    list.failWith = SystemError{SystemError::Domain::posix, 28, "The disk is full."};
    EXPECT_FALSE(registrations.set("all", everything()));
    EXPECT_THAT(tree(), IsEmpty());
}

TEST_F(LinuxRegistrationsTest, WhatCannotBeRemovedStaysListed) {
    ASSERT_TRUE(registrations.set("all", {file("locked/one")}));
    fs::permissions(folder.url().path(), fs::perms(0755));
    fs::permissions(folder.at("locked").path(), fs::perms(0755));
    withoutPrivilege([&] {
        EXPECT_FALSE(registrations.clear("all"));
        EXPECT_THAT(registrations.groups(), ElementsAre("all"));
    });
    EXPECT_EQ(folder.contents("locked/one"), contents);
    EXPECT_TRUE(registrations.clear("all"));
    EXPECT_THAT(tree(), IsEmpty());
}

TEST_F(LinuxRegistrationsTest, WhatPythonCompiledGoesWithItsModule) {
    ASSERT_TRUE(registrations.set("all", {file("py/ours.py")}));
    folder.addFile("py/__pycache__/ours.cpython-311.pyc");
    folder.addFile("py/__pycache__/theirs.cpython-311.pyc");
    ASSERT_TRUE(registrations.clear("all"));
    EXPECT_FALSE(fs::exists(folder.at("py/__pycache__/ours.cpython-311.pyc").path()));
    EXPECT_TRUE(fs::exists(folder.at("py/__pycache__/theirs.cpython-311.pyc").path()));
}

} // namespace
} // namespace blankwell
