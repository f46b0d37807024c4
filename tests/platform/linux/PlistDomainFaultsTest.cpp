#include "platform/linux/PlistDomain.h"

#include "support/ChildProcess.h"
#include "support/FileContents.h"
#include "support/PrivateMounts.h"
#include "support/TemporaryFolder.h"

#include <fmt/core.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <random>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/time.h>

namespace blankwell {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

struct PlistDomainFaultsTest : testing::Test {
    static constexpr uid_t nobody = 65534;

    [[nodiscard]] std::string path(std::string_view name) const {
        return fmt::format("{}/{}", directory, name);
    }

    [[nodiscard]] std::vector<std::string> names() const {
        std::vector<std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator(directory)) {
            found.push_back(entry.path().filename());
        }
        return found;
    }

    /// Runs `body` as a user who may do no more than the permissions of files say.
    void unprivileged(const std::function<void()>& body) const {
        ASSERT_EQ(::chown(directory.c_str(), nobody, nobody), 0);
        for (const auto& name : names()) {
            ASSERT_EQ(::lchown(path(name).c_str(), nobody, nobody), 0);
        }
        inChildProcess([&] {
            ASSERT_EQ(::setresgid(nobody, nobody, nobody), 0);
            ASSERT_EQ(::setresuid(nobody, nobody, nobody), 0);
            body();
        });
    }

    TemporaryFolder folder;
    std::string directory = folder.url().path();
    PlistDomain domain{directory, "d"};
};

TEST_F(PlistDomainFaultsTest, AFullDiskLeavesTheDomainAsItWas) {
    inChildProcess([this] {
        enterPrivateMounts();
        ASSERT_EQ(::mount("tmpfs", directory.c_str(), "tmpfs", 0, "size=64k"), 0);
        ASSERT_TRUE(domain.set("k", "v"));

        const auto saved = domain.set("large", std::string(100'000, 'a'));
        ASSERT_FALSE(saved);
        EXPECT_EQ(saved.error().code, ENOSPC);
        EXPECT_EQ(saved.error().description,
                  fmt::format("Could not save the settings in {}: No space left on device.",
                              path("d.plist")));
        EXPECT_THAT(PlistDomain(directory, "d").keys(""), ElementsAre("k"));
        EXPECT_THAT(names(), Not(Contains("d.plist.tmp")));
        EXPECT_TRUE(domain.set("small", true));
    });
}

TEST_F(PlistDomainFaultsTest, AReadOnlyVolumeFailsTheWrite) {
    ASSERT_TRUE(domain.set("k", "v"));
    inChildProcess([this] {
        enterPrivateMounts();
        ASSERT_EQ(::mount(directory.c_str(), directory.c_str(), nullptr, MS_BIND, nullptr), 0);
        ASSERT_EQ(
            ::mount(nullptr, directory.c_str(), nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY, nullptr),
            0);
        const auto saved = domain.set("k", "w");
        ASSERT_FALSE(saved);
        EXPECT_THAT(saved.error().description, HasSubstr("Read-only file system"));
        EXPECT_EQ(domain.value("k"), PropertyValue("v"));
    });
}

TEST_F(PlistDomainFaultsTest, AReadOnlyFolderFailsTheWriteAndStillReads) {
    ASSERT_TRUE(domain.set("k", "v"));
    ASSERT_EQ(::chmod(directory.c_str(), 0500), 0);
    unprivileged([this] {
        const auto saved = domain.set("k", "w");
        ASSERT_FALSE(saved);
        EXPECT_THAT(saved.error().description, HasSubstr("Could not save the settings in"));
        EXPECT_THAT(saved.error().description, HasSubstr("Permission denied"));
        EXPECT_EQ(domain.value("k"), PropertyValue("v"));
    });
}

TEST_F(PlistDomainFaultsTest, AFolderThatCannotBeMadeFailsTheWrite) {
    ASSERT_EQ(::chmod(directory.c_str(), 0500), 0);
    unprivileged([this] {
        PlistDomain elsewhere(path("missing"), "d");
        EXPECT_EQ(elsewhere.value("k"), std::nullopt);
        const auto saved = elsewhere.set("k", "w");
        ASSERT_FALSE(saved);
        EXPECT_EQ(saved.error().code, EACCES);
    });
}

TEST_F(PlistDomainFaultsTest, AnUnreadableFileIsNeverReplaced) {
    ASSERT_TRUE(domain.set("k", "v"));
    ASSERT_EQ(::chmod(path("d.plist").c_str(), 0), 0);
    unprivileged([this] {
        PlistDomain fresh(directory, "d");
        EXPECT_EQ(fresh.value("k"), std::nullopt);
        EXPECT_FALSE(fresh.remove("k"));
        const auto saved = fresh.set("other", true);
        ASSERT_FALSE(saved);
        EXPECT_EQ(
            saved.error().description,
            fmt::format("Could not read the settings in {}: Permission denied.", path("d.plist")));
    });
    EXPECT_THAT(PlistDomain(directory, "d").keys(""), ElementsAre("k"));
}

TEST_F(PlistDomainFaultsTest, ADeviceInPlaceOfTheFileIsNotTakenForADamagedOne) {
    std::filesystem::create_symlink("/dev/null", path("d.plist"));
    unprivileged([this] {
        const auto saved = domain.set("k", true);
        ASSERT_FALSE(saved);
        EXPECT_THAT(saved.error().description, HasSubstr("Could not read the settings in"));
    });
}

TEST_F(PlistDomainFaultsTest, ADamagedFileThatCannotBeKeptIsNotReplaced) {
    std::ofstream(path("d.plist")) << "damaged";
    ASSERT_EQ(::chmod(directory.c_str(), 0500), 0);
    unprivileged([this] { EXPECT_FALSE(domain.set("k", true)); });
    EXPECT_EQ(contentsOf(path("d.plist")), "damaged");
}

TEST_F(PlistDomainFaultsTest, AnInterruptedWaitForTheLockGoesOn) {
    ASSERT_TRUE(domain.set("k", "v"));
    FileDescriptor held(::open(path("d.plist.lock").c_str(), O_RDWR | O_CLOEXEC));
    ASSERT_EQ(::flock(held.get(), LOCK_EX), 0);

    struct sigaction interrupt{};
    interrupt.sa_handler = [](int) {};
    struct sigaction previous{};
    ASSERT_EQ(::sigaction(SIGALRM, &interrupt, &previous), 0);
    const itimerval often{{0, 5'000}, {0, 5'000}};
    ASSERT_EQ(::setitimer(ITIMER_REAL, &often, nullptr), 0);
    std::thread releasing([&] {
        sigset_t all{};
        ::sigfillset(&all);
        ::pthread_sigmask(SIG_BLOCK, &all, nullptr);
        std::this_thread::sleep_for(std::chrono::milliseconds(60));
        held.reset();
    });
    EXPECT_TRUE(domain.set("k", "w"));
    releasing.join();
    const itimerval never{};
    ::setitimer(ITIMER_REAL, &never, nullptr);
    ::sigaction(SIGALRM, &previous, nullptr);
    EXPECT_EQ(domain.value("k"), PropertyValue("w"));
}

TEST_F(PlistDomainFaultsTest, WritersAtOnceLoseNothing) {
    constexpr int writers = 4;
    constexpr int writes = 75;
    std::vector<pid_t> children;
    for (int writer = 0; writer < writers; ++writer) {
        const auto child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            bool saved = true;
            for (int number = 0; number < writes; ++number) {
                saved = domain.set(fmt::format("{}.{}", writer, number), true) && saved;
            }
            ::_exit(saved ? 0 : 1);
        }
        children.push_back(child);
    }
    for (const auto child : children) {
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(domain.keys("").size(), static_cast<std::size_t>(writers * writes));
    EXPECT_THAT(names(), testing::UnorderedElementsAre("d.plist", "d.plist.lock"));
}

/// A process that sets the keys `from`, `from` + 1, … until it is killed, and says so after each.
class EndlessWriter {
public:
    EndlessWriter(PlistDomain& domain, int from) {
        std::array<int, 2> ends{};
        EXPECT_EQ(::pipe2(ends.data(), O_CLOEXEC), 0);
        acknowledgements_ = FileDescriptor(ends[0]);
        FileDescriptor writing(ends[1]);
        process_ = ::fork();
        EXPECT_GE(process_, 0);
        if (process_ == 0) {
            for (int number = from;; ++number) {
                const bool saved = domain.set(fmt::format("k{}", number), std::string(50, 'v')) &&
                                   ::write(writing.get(), ".", 1) == 1;
                if (!saved) {
                    ::_exit(1);
                }
            }
        }
    }

    /// Kills the process some time after its first write, and tells how many it had acknowledged.
    int killAfter(std::chrono::microseconds time) {
        std::array<char, 1024> dots{};
        int count = static_cast<int>(::read(acknowledgements_.get(), dots.data(), 1));
        std::this_thread::sleep_for(time);
        EXPECT_EQ(::kill(process_, SIGKILL), 0);
        int status = 0;
        EXPECT_EQ(::waitpid(process_, &status, 0), process_);
        EXPECT_TRUE(WIFSIGNALED(status)) << "a write failed";
        ssize_t length = 0;
        while ((length = ::read(acknowledgements_.get(), dots.data(), dots.size())) > 0) {
            count += static_cast<int>(length);
        }
        return count;
    }

private:
    FileDescriptor acknowledgements_;
    pid_t process_ = -1;
};

TEST_F(PlistDomainFaultsTest, AWriterKilledAtAnyMomentLosesNothingThatWasSaved) {
    std::mt19937 random(1);
    int acknowledged = 0;
    int inMidSave = 0;
    for (int round = 0; round < 200; ++round) {
        EndlessWriter writer(domain, acknowledged);
        acknowledged += writer.killAfter(std::chrono::microseconds(random() % 8000));
        inMidSave += std::filesystem::exists(path("d.plist.tmp")) ? 1 : 0;

        PlistDomain fresh(directory, "d");
        for (int number = 0; number < acknowledged; ++number) {
            ASSERT_TRUE(fresh.value(fmt::format("k{}", number))) << "round " << round;
        }
        ASSERT_TRUE(fresh.set("round", fmt::format("{}", round)));
        ASSERT_THAT(names(), testing::UnorderedElementsAre("d.plist", "d.plist.lock"));
    }
    EXPECT_GT(inMidSave, 0) << "the kills missed the saves";
    RecordProperty("inMidSave", inMidSave);
}

} // namespace
} // namespace blankwell
