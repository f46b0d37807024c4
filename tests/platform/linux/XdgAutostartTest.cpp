#include "platform/linux/XdgAutostart.h"

#include "contract/LoginItemContract.h"
#include "platform/linux/UnavailableLoginItem.h"
#include "support/ChildProcess.h"
#include "support/FakeLoginItem.h"
#include "support/TemporaryFolder.h"

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <thread>

namespace blankwell {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

constexpr auto entryName = "autostart/app.example.desktop";

FileUrl addProgram(const TemporaryFolder& folder, const std::string& place,
                   std::string_view script = "#!/bin/sh\n") {
    const auto program = folder.addFile(place + "/blankwell-plus", script);
    std::filesystem::permissions(program.path(), std::filesystem::perms::owner_all |
                                                     std::filesystem::perms::others_read |
                                                     std::filesystem::perms::others_exec);
    return program;
}

struct World {
    TemporaryFolder folder;
    FileUrl program = addProgram(folder, "bin");
    XdgAutostart item{folder.at("config"), "app.example", program};
};

struct FakeWorld {
    FakeLoginItem item;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, LoginItemContract, FakeWorld);
INSTANTIATE_TYPED_TEST_SUITE_P(Xdg, LoginItemContract, World);

struct XdgAutostartTest : testing::Test {
    std::string entry() const { return folder.contents(std::string("config/") + entryName); }

    void writeEntry(std::string_view text) const {
        folder.addFile(std::string("config/") + entryName, text);
    }

    XdgAutostart itemFor(const FileUrl& other) const {
        return {folder.at("config"), "app.example", other};
    }

    TemporaryFolder folder;
    FileUrl program = addProgram(folder, "bin");
    XdgAutostart item = itemFor(program);
};

TEST_F(XdgAutostartTest, TheEntryStartsTheProgramWithoutAWindow) {
    ASSERT_TRUE(item.turnOn());
    EXPECT_THAT(entry(), StartsWith("[Desktop Entry]\nType=Application\nName=Blankwell+\n"));
    EXPECT_THAT(entry(), HasSubstr("\nExec=\"" + program.path() + "\" --background\n"));
}

TEST_F(XdgAutostartTest, AnyPathMakesAValidEntryThatStartsIt) {
    for (const std::string place : {"plain", "a b", R"(q"u'o`t$e\s)", "é#;=&|<>*?~", "a\nb"}) {
        const auto mark = folder.at(place + "/started");
        const auto odd =
            addProgram(folder, place, "#!/bin/sh\necho \"$@\" > \"${0%/*}/started\"\n");
        ASSERT_TRUE(itemFor(odd).turnOn()) << place;
        const auto file = folder.at(std::string("config/") + entryName).path();
        EXPECT_EQ(std::system(("desktop-file-validate '" + file + "'").c_str()), 0) << place;
        EXPECT_EQ(std::system(("gio launch '" + file + "'").c_str()), 0) << entry();
        for (int turn = 0; turn < 500 && folder.contents(place + "/started") != "--background\n";
             ++turn) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        EXPECT_EQ(folder.contents(place + "/started"), "--background\n") << entry();
    }
}

TEST_F(XdgAutostartTest, APercentSignIsNoFieldCode) {
    // Not launched: GIO looks for the program before it reads the signs.
    ASSERT_TRUE(itemFor(addProgram(folder, "%u 100%")).turnOn());
    EXPECT_THAT(entry(), HasSubstr("/%%u 100%%/blankwell-plus\" --background\n"));
    const auto file = folder.at(std::string("config/") + entryName).path();
    EXPECT_EQ(std::system(("desktop-file-validate '" + file + "'").c_str()), 0);
}

TEST_F(XdgAutostartTest, OffRemovesTheEntryAndLeavesNothing) {
    ASSERT_TRUE(item.turnOn());
    ASSERT_TRUE(item.turnOff());
    EXPECT_TRUE(std::filesystem::is_empty(folder.at("config/autostart").path()));
}

TEST_F(XdgAutostartTest, OffMakesNoFolder) {
    ASSERT_TRUE(item.turnOff());
    EXPECT_FALSE(std::filesystem::exists(folder.at("config").path()));
}

TEST_F(XdgAutostartTest, WhatTheUserSwitchedOffIsOff) {
    ASSERT_TRUE(item.turnOn());
    const auto made = entry();
    for (const auto* line : {"Hidden=true\n", "X-GNOME-Autostart-enabled=false\n"}) {
        writeEntry(made + line);
        EXPECT_EQ(item.isOn(), false);
        EXPECT_TRUE(item.turnOn());
        EXPECT_EQ(item.isOn(), true);
        EXPECT_EQ(entry(), made);
    }
}

TEST_F(XdgAutostartTest, WhatTheUserChangedStaysThroughOffAndOn) {
    const std::string changed = "# mine\n\n[Desktop Entry]\nType=Application\nName=Files\n"
                                "Name[de]=Dateien\nExec=env X=1 /opt/blankwell-plus --background\n"
                                "X-Mine=1\n";
    writeEntry(changed);
    EXPECT_EQ(item.isOn(), true);
    ASSERT_TRUE(item.turnOff());
    EXPECT_EQ(item.isOn(), false);
    EXPECT_EQ(entry(), changed + "Hidden=true\n");
    ASSERT_TRUE(item.turnOn());
    EXPECT_EQ(entry(), changed);
}

TEST_F(XdgAutostartTest, AProgramThatMovedIsStartedFromItsNewPlace) {
    ASSERT_TRUE(itemFor(addProgram(folder, "old")).turnOn());
    writeEntry(entry() + "X-Mine=1\n");
    ASSERT_TRUE(item.turnOn());
    EXPECT_THAT(entry(), HasSubstr("\nExec=\"" + program.path() + "\" --background\n"));
    EXPECT_THAT(entry(), EndsWith("X-Mine=1\n"));
}

TEST_F(XdgAutostartTest, OffRemovesAnEntryForAProgramThatMoved) {
    ASSERT_TRUE(itemFor(addProgram(folder, "old")).turnOn());
    ASSERT_TRUE(item.turnOff());
    EXPECT_EQ(entry(), "(none)");
}

TEST_F(XdgAutostartTest, ALinkedEntryStaysALink) {
    const auto kept = folder.addFile("dotfiles/entry", "[Desktop Entry]\nExec=\n");
    folder.addFolder("config/autostart");
    const auto link = folder.at(std::string("config/") + entryName).path();
    std::filesystem::create_symlink(kept.path(), link);
    ASSERT_TRUE(item.turnOn());
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_THAT(folder.contents("dotfiles/entry"), HasSubstr("--background"));
}

TEST_F(XdgAutostartTest, ADamagedEntryIsToldAndStays) {
    for (const auto* text : {"no entry", "[Other]\nExec=x\n"}) {
        writeEntry(text);
        EXPECT_FALSE(item.isOn());
        EXPECT_FALSE(item.turnOff());
        const auto turned = item.turnOn();
        ASSERT_FALSE(turned);
        EXPECT_THAT(turned.error().description, HasSubstr("is damaged"));
        EXPECT_EQ(entry(), text);
    }
}

TEST_F(XdgAutostartTest, AMissingProgramIsToldAndNothingIsWritten) {
    const auto turned = itemFor(folder.at("gone/blankwell-plus")).turnOn();
    ASSERT_FALSE(turned);
    EXPECT_THAT(turned.error().description, EndsWith("No such file or directory."));
    EXPECT_EQ(entry(), "(none)");
}

TEST_F(XdgAutostartTest, APathThatIsNotUtf8CannotBeNamed) {
    EXPECT_FALSE(itemFor(addProgram(folder, "\xff")).turnOn());
    EXPECT_EQ(entry(), "(none)");
}

TEST_F(XdgAutostartTest, AFolderThatCannotBeWrittenIsToldAndTheEntryStays) {
    ASSERT_TRUE(item.turnOn());
    const auto made = entry();
    for (const auto* name : {"", "config", "config/autostart", "bin"}) {
        std::filesystem::permissions(folder.at(name).path(), std::filesystem::perms(0755));
    }
    std::filesystem::permissions(folder.at(std::string("config/") + entryName).path(),
                                 std::filesystem::perms(0644));
    withoutPrivilege([&] {
        const auto turned = item.turnOff();
        ASSERT_FALSE(turned);
        EXPECT_THAT(turned.error().description, EndsWith("Permission denied."));
        EXPECT_FALSE(itemFor(folder.at("bin/blankwell-plus")).turnOn());
    });
    EXPECT_EQ(entry(), made);
}

TEST_F(XdgAutostartTest, ManyWritersAtOnceLeaveAWholeEntry) {
    ASSERT_TRUE(item.turnOn());
    const auto made = entry();
    std::vector<std::jthread> writers;
    for (int i = 0; i < 8; ++i) {
        writers.emplace_back([this] {
            for (int turn = 0; turn < 20; ++turn) {
                EXPECT_TRUE(item.turnOff());
                EXPECT_TRUE(item.turnOn());
            }
        });
    }
    writers.clear();
    EXPECT_EQ(entry(), made);
}

TEST(UnavailableLoginItemTest, NeverPretends) {
    UnavailableLoginItem item;
    EXPECT_FALSE(item.isOn());
    EXPECT_FALSE(item.turnOn());
    EXPECT_FALSE(item.turnOff());
}

TEST_F(XdgAutostartTest, AForgottenEntryIsGoneWhateverTheUserMadeOfIt) {
    ASSERT_TRUE(item.turnOn());
    item.forget();
    EXPECT_EQ(entry(), "(none)");
    writeEntry("[Desktop Entry]\nType=Application\nName=Mine\nExec=my-own\n");
    item.forget();
    EXPECT_EQ(entry(), "(none)");
    item.forget();
    EXPECT_EQ(item.isOn(), false);
}

TEST_F(XdgAutostartTest, TheFolderGoesWithAForgottenEntryUnlessThereAreOthers) {
    const auto other = folder.addFile("config/autostart/other.desktop");
    ASSERT_TRUE(item.turnOn());
    item.forget();
    EXPECT_TRUE(std::filesystem::exists(other.path()));
    std::filesystem::remove(other.path());
    item.forget();
    EXPECT_FALSE(std::filesystem::exists(folder.at("config/autostart").path()));
}

TEST_F(XdgAutostartTest, OfAForgottenLinkTheTargetStays) {
    const auto target = folder.addFile("mine.desktop", "mine");
    folder.addFolder("config/autostart");
    std::filesystem::create_symlink(target.path(),
                                    folder.at(std::string("config/") + entryName).path());
    item.forget();
    EXPECT_EQ(entry(), "(none)");
    EXPECT_EQ(folder.contents("mine.desktop"), "mine");
}

} // namespace
} // namespace blankwell
