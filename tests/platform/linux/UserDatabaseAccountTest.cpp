#include "platform/linux/UserDatabaseAccount.h"

#include "contract/AccountContract.h"
#include "platform/linux/ProcessEnvironment.h"
#include "support/ChildProcess.h"
#include "support/FakeSurroundings.h"
#include "support/PrivateMounts.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <pwd.h>

namespace blankwell {
namespace {

struct FakeAccountSubject {
    const Account& account() { return fake; }

    FakeAccount fake;
};

struct UserDatabaseSubject {
    const Account& account() { return databaseAccount; }

    ProcessEnvironment environment;
    UserDatabaseAccount databaseAccount{environment};
};

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, AccountContract, FakeAccountSubject);
INSTANTIATE_TYPED_TEST_SUITE_P(UserDatabase, AccountContract, UserDatabaseSubject);

struct UserDatabaseAccountTest : testing::Test {
    /// Runs `body` in a process whose user database is `entries` alone, as the user `user`.
    void asUser(uid_t user, const std::string& entries, const std::function<void()>& body) {
        const auto database = folder.addFile("passwd", entries).path();
        inChildProcess([&] {
            enterPrivateMounts(user);
            bindMount(database, "/etc/passwd");
            ASSERT_EQ(::setresuid(user, user, user), 0);
            body();
        });
    }

    TemporaryFolder folder;
    FakeEnvironment environment;
    UserDatabaseAccount account{environment};
};

TEST_F(UserDatabaseAccountTest, ReadsTheEntryOfTheUserWhoRunsTheProcess) {
    asUser(4242, "root:x:0:0::/root:/bin/sh\nnina:x:4242:4242:Nina:/home/nina:/bin/sh\n", [&] {
        environment.variables["HOME"] = "/elsewhere";
        ASSERT_TRUE(account.record());
        EXPECT_EQ(account.record()->home, FileUrl("/home/nina"));
        EXPECT_EQ(account.userName(), "nina");
    });
}

TEST_F(UserDatabaseAccountTest, AUserWithoutAnEntryHasNoRecord) {
    asUser(4242, "root:x:0:0::/root:/bin/sh\n", [&] {
        EXPECT_FALSE(account.record());
        EXPECT_EQ(account.userName(), std::nullopt);
        EXPECT_EQ(account.processHome(), FileUrl("/"));
    });
}

TEST_F(UserDatabaseAccountTest, AnEntryWithoutAHomeIsStillARecord) {
    asUser(4242, "nina:x:4242:4242:Nina::/bin/sh\n", [&] {
        ASSERT_TRUE(account.record());
        EXPECT_EQ(account.record()->home, std::nullopt);
        EXPECT_EQ(account.processHome(), FileUrl("/"));
    });
}

TEST_F(UserDatabaseAccountTest, AnEntryMayBeLong) {
    const auto name = std::string(100'000, 'n');
    asUser(4242, "nina:x:4242:4242:" + name + ":/home/nina:/bin/sh\n", [&] {
        ASSERT_TRUE(account.record());
        EXPECT_EQ(account.record()->home, FileUrl("/home/nina"));
    });
}

TEST_F(UserDatabaseAccountTest, TheProcessHomeIsTheEnvironmentsIfAbsolute) {
    asUser(4242, "nina:x:4242:4242:Nina:/home/nina:/bin/sh\n", [&] {
        EXPECT_EQ(account.processHome(), FileUrl("/home/nina"));
        environment.variables["HOME"] = "/elsewhere";
        EXPECT_EQ(account.processHome(), FileUrl("/elsewhere"));
        for (const auto* const unusable : {"", "relative"}) {
            environment.variables["HOME"] = unusable;
            EXPECT_EQ(account.processHome(), FileUrl("/home/nina"));
        }
    });
}

TEST(AccountRecordTest, OnlyAnAbsoluteHomeIsAHome) {
    const auto homeOf = [](const char* directory) {
        std::string text = directory == nullptr ? "" : directory;
        passwd entry{};
        entry.pw_dir = directory == nullptr ? nullptr : text.data();
        return accountRecord(entry).home;
    };
    EXPECT_EQ(homeOf("/home/nina/"), FileUrl("/home/nina"));
    EXPECT_EQ(homeOf(nullptr), std::nullopt);
    EXPECT_EQ(homeOf(""), std::nullopt);
    EXPECT_EQ(homeOf("nina"), std::nullopt);
}

} // namespace
} // namespace blankwell
