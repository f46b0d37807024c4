#include "platform/linux/LinuxTrash.h"

#include "contract/TrashContract.h"
#include "desktop/BusPeer.h"
#include "desktop/Desktop.h"
#include "desktop/PrivateBus.h"
#include "desktop/Program.h"
#include "support/ChildProcess.h"
#include "support/FakeMainQueue.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <systemd/sd-bus.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace blankwell {
namespace {

using std::chrono::milliseconds;
using testing::HasSubstr;
using Clock = std::chrono::steady_clock;
using Answer = std::expected<TrashLocation, SystemError>;

bool stands(const FileUrl& url) {
    return std::filesystem::exists(std::filesystem::symlink_status(url.path()));
}

/// What the Trash of the home holds.
FileUrl inTrash(std::string_view name) {
    return desktopHome().appending(".local/share/Trash/files").appending(name);
}

std::string readText(const FileUrl& url) {
    std::ifstream file(url.path());
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The desktop as it is: GIO, its portal's program, and Nautilus, which the bus starts.
class DesktopTrashWorld {
public:
    Trash& trash() { return trash_; }

    FileUrl add(std::string_view name) {
        auto item = makeFolder("Applications").appending(name);
        std::filesystem::create_directory(item.path());
        std::ofstream(item.appending("inside").path()) << "inside";
        return item;
    }

    static bool stands(const FileUrl& url) { return blankwell::stands(url); }

    void settle() {
        EXPECT_TRUE(eventually([&] {
            queue_.run();
            return trash_.open == 0;
        }));
    }

private:
    /// Knows how many answers of the desktop are missing.
    struct CountingTrash : LinuxTrash {
        using LinuxTrash::LinuxTrash;

        void recycle(const FileUrl& url, Completion completion) override {
            ++open;
            LinuxTrash::recycle(url,
                                [this, completion = std::move(completion)](Answer given) mutable {
                                    --open;
                                    completion(std::move(given));
                                });
        }

        int open = 0;
    };

    FakeMainQueue queue_;
    CountingTrash trash_{queue_};
};

INSTANTIATE_TYPED_TEST_SUITE_P(Desktop, TrashContract, DesktopTrashWorld);

struct LinuxTrashTest : testing::Test {
    /// What `refused` says, or nothing.
    static std::string words(const std::expected<void, FileManagerScriptFailure>& outcome) {
        if (outcome) {
            return "";
        }
        const auto& refused = std::get<FileManagerScriptFailure::Refused>(outcome.error().reason);
        return refused.localizedDescription.value_or("");
    }

    /// Lets `meanwhile` act until the desktop has answered.
    std::optional<Answer>
    recycled(const FileUrl& url, const std::function<void()>& meanwhile = [] {}) {
        std::optional<Answer> answer;
        trash.recycle(url, [&](Answer given) { answer = std::move(given); });
        EXPECT_TRUE(eventually([&] {
            meanwhile();
            queue.run();
            return answer.has_value();
        }));
        return answer;
    }

    FakeMainQueue queue;
    LinuxTrash trash{
        queue,
        {.portal = milliseconds(2000), .fileManager = {milliseconds(3000), milliseconds(300)}}};
    FileUrl item = makeFile("Applications/it em.app/inside").deletingLastPathComponent();
};

TEST_F(LinuxTrashTest, WhatGioTookCanBePutBack) {
    ASSERT_TRUE(trash.trashItem(item));
    EXPECT_TRUE(stands(inTrash("it em.app/inside")));
    EXPECT_THAT(readText(desktopHome().appending(".local/share/Trash/info/it em.app.trashinfo")),
                HasSubstr("\nPath=" + desktopHome().path() + "/Applications/it%20em.app\n"));
}

TEST_F(LinuxTrashTest, OfALinkTheLinkGoes) {
    const auto link = desktopHome().appending("link");
    std::filesystem::create_directory_symlink(item.path(), link.path());

    EXPECT_TRUE(trash.trashItem(link));

    EXPECT_FALSE(stands(link));
    EXPECT_TRUE(stands(item));
}

TEST_F(LinuxTrashTest, ALinkIsNotHandedToThePortalWhichWouldFollowIt) {
    const auto link = desktopHome().appending("link");
    std::filesystem::create_directory_symlink(item.path(), link.path());

    const auto answer = recycled(link);

    ASSERT_TRUE(answer);
    ASSERT_FALSE(*answer);
    EXPECT_EQ(answer->error().code, ELOOP);
    EXPECT_TRUE(stands(link));
    EXPECT_TRUE(stands(item));
}

TEST_F(LinuxTrashTest, AVolumeInMemoryHasNoTrashAndTheFileManagerIsNotAsked) {
    const TemporaryFolder memory("/dev/shm");
    const auto bundle = memory.addFolder("Blankwell+.app");
    const PrivateBus bus;
    const HungFileManager nautilus("org.gnome.Nautilus");

    const auto trashed = trash.trashItem(bundle);
    ASSERT_FALSE(trashed);
    EXPECT_EQ(trashed.error().code, ENOTSUP);
    EXPECT_THAT(trashed.error().description,
                HasSubstr("\"" + bundle.path() + "\" cannot be moved to the Trash: "));
    EXPECT_EQ(words(trash.deleteWithFileManager(bundle)),
              "The Trash does not take \"" + bundle.path() + "\" from where it stands.");
    EXPECT_EQ(nautilus.waitingCall(), "");
    EXPECT_TRUE(stands(bundle));
}

TEST_F(LinuxTrashTest, AFolderThatMayNotBeChangedKeepsItsItem) {
    withoutPrivilege([this] {
        const auto trashed = trash.trashItem(item);
        ASSERT_FALSE(trashed);
        EXPECT_TRUE(trashed.error().is(CocoaCode::fileWriteNoPermission))
            << trashed.error().description;
    });
    EXPECT_TRUE(stands(item));
}

TEST_F(LinuxTrashTest, WithoutABusOnlyGioIsLeft) {
    ::setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent", 1);

    const auto answer = recycled(item);
    ASSERT_TRUE(answer);
    EXPECT_FALSE(*answer);
    EXPECT_THAT(words(trash.deleteWithFileManager(item)), HasSubstr("session bus"));
    EXPECT_TRUE(trash.trashItem(item));
}

TEST_F(LinuxTrashTest, WithoutAFileManagerOnTheBusItIsSaid) {
    const PrivateBus bus;
    EXPECT_EQ(words(trash.deleteWithFileManager(item)),
              "There is no file manager that moves items to the Trash for others.");
    EXPECT_TRUE(stands(item));
}

TEST_F(LinuxTrashTest, ARunningThunarIsAskedAndMovesIt) {
    const Program thunar({"thunar", "--daemon"});
    ASSERT_TRUE(eventually([] { return isOnBus("org.xfce.FileManager"); }));

    EXPECT_TRUE(trash.deleteWithFileManager(item));

    EXPECT_FALSE(isOnBus("org.gnome.Nautilus"));
    EXPECT_TRUE(eventually([&] { return stands(inTrash("it em.app/inside")); }));
}

TEST_F(LinuxTrashTest, AFileManagerThatHangsIsGivenUp) {
    const PrivateBus bus;
    const HungFileManager nautilus("org.gnome.Nautilus");
    const auto start = Clock::now();
    EXPECT_NE(words(trash.deleteWithFileManager(item)), "");
    EXPECT_GE(Clock::now() - start, milliseconds(2900));
    EXPECT_LT(Clock::now() - start, milliseconds(4000));
    EXPECT_THAT(nautilus.waitingCall(), HasSubstr("TrashURIs file:///"));
}

/// The desktop's portal, as a test plays it.
struct PortalTrashTest : LinuxTrashTest {
    /// Answers a request, whose item is `handed`, with `result`, or as `answer` says.
    void handle(sd_bus_message* call) {
        EXPECT_EQ(sd_bus_message_is_method_call(call, "org.freedesktop.portal.Trash", "TrashFile"),
                  1);
        EXPECT_STREQ(sd_bus_message_get_path(call), "/org/freedesktop/portal/desktop");
        int descriptor = -1;
        require(sd_bus_message_read(call, "h", &descriptor), "no descriptor");
        handed = std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(descriptor));
        answer(call);
    }

    std::string handed;
    std::function<void(sd_bus_message*)> answer;
    PrivateBus bus;
    BusPeer portal{"org.freedesktop.portal.Desktop", [this](auto* call) { handle(call); }};
};

TEST_F(PortalTrashTest, IsHandedTheItem) {
    answer = [](auto* call) { sd_bus_reply_method_return(call, "u", 1U); };
    const auto moved = recycled(item, [this] { portal.process(); });
    ASSERT_TRUE(moved);
    EXPECT_EQ(*moved, Answer(std::nullopt));
    EXPECT_EQ(handed, item.path());
}

TEST_F(PortalTrashTest, WhatItRefusesIsAFailure) {
    const std::vector<std::function<void(sd_bus_message*)>> answers = {
        [](auto* call) { sd_bus_reply_method_return(call, "u", 0U); },
        [](auto* call) { sd_bus_reply_method_return(call, "s", "nonsense"); },
        [](auto* call) { sd_bus_reply_method_return(call, ""); },
        [](auto* call) { sd_bus_reply_method_errorf(call, SD_BUS_ERROR_FAILED, "Scripted"); },
    };
    for (const auto& refusal : answers) {
        answer = refusal;
        const auto moved = recycled(item, [this] { portal.process(); });
        ASSERT_TRUE(moved);
        ASSERT_FALSE(*moved);
        EXPECT_THAT(moved->error().description,
                    HasSubstr("The desktop cannot move \"" + item.path() + "\" to the Trash: "));
    }
}

TEST_F(PortalTrashTest, OneThatHangsIsGivenUp) {
    answer = [](auto*) {};
    const auto start = Clock::now();
    const auto moved = recycled(item, [this] { portal.process(); });
    ASSERT_TRUE(moved);
    ASSERT_FALSE(*moved);
    EXPECT_EQ(moved->error().code, ETIMEDOUT);
    EXPECT_GE(Clock::now() - start, milliseconds(1900));
    EXPECT_LT(Clock::now() - start, milliseconds(3000));
}

TEST_F(PortalTrashTest, ABusThatHangsIsGivenUp) {
    bus.hang();
    const auto moved = recycled(item);
    ASSERT_TRUE(moved);
    ASSERT_FALSE(*moved);
    EXPECT_EQ(moved->error().code, ETIMEDOUT);
}

TEST_F(PortalTrashTest, ABusThatEndsIsAFailure) {
    answer = [this](auto*) { bus.end(); };
    const auto moved = recycled(item, [this] {
        if (handed.empty()) {
            portal.process();
        }
    });
    ASSERT_TRUE(moved);
    EXPECT_FALSE(*moved);
}

TEST_F(PortalTrashTest, ATrashThatEndsMeanwhileDoesNotWaitAndNeverAnswers) {
    answer = [](auto*) {};
    bool isAnswered = false;
    std::optional<LinuxTrash> shortLived;
    shortLived.emplace(queue, LinuxTrash::Patience{.portal = std::chrono::seconds(10)});
    shortLived->recycle(item, [&](const auto&) { isAnswered = true; });
    ASSERT_TRUE(eventually([this] {
        portal.process();
        return !handed.empty();
    }));

    const auto start = Clock::now();
    shortLived.reset();
    EXPECT_LT(Clock::now() - start, milliseconds(1000));
    queue.run();
    EXPECT_FALSE(isAnswered);
}

} // namespace
} // namespace blankwell
