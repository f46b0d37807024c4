#include "contract/AccessScopesContract.h"

#include "platform/linux/LinuxAccessScopes.h"
#include "support/FakeAccessScopes.h"

namespace blankwell {
namespace {

struct FakeAccessScopesWorld {
    AccessScopes& scopes() { return fake; }

    void grant(const FileUrl& url) { fake.grants.insert(url.standardized()); }

    bool isOpen(const FileUrl& url) { return fake.open[url] > 0; }

    EventLog events;
    FakeAccessScopes fake{events};
};

struct LinuxAccessScopesWorld {
    AccessScopes& scopes() { return real; }

    void grant(const FileUrl& url) { real.admit(url); }

    bool isOpen(const FileUrl& url) const { return real.isOpen(url); }

    LinuxAccessScopes real;
};

INSTANTIATE_TYPED_TEST_SUITE_P(FakeAccessScopes, AccessScopesContract, FakeAccessScopesWorld);
INSTANTIATE_TYPED_TEST_SUITE_P(LinuxAccessScopes, AccessScopesContract, LinuxAccessScopesWorld);

TEST(FakeAccessScopesTest, AStopThatIsNotOwedIsUnbalanced) {
    EventLog events;
    FakeAccessScopes scopes(events);
    scopes.stop(FileUrl("/a"));
    EXPECT_FALSE(scopes.isBalanced());
}

TEST(LinuxAccessScopesTest, AnOpenFolderIsOpenForWhatItCovers) {
    LinuxAccessScopes scopes;
    scopes.admit(FileUrl("/a/b"));
    scopes.admit(FileUrl("/a/b/c"));
    ASSERT_TRUE(scopes.start(FileUrl("/a/b")));
    EXPECT_TRUE(scopes.isOpen(FileUrl("/a/b/c/d")));
    EXPECT_FALSE(scopes.isOpen(FileUrl("/a")));
    EXPECT_FALSE(scopes.isOpen(FileUrl("/a/bc")));
    EXPECT_EQ(scopes.openFoldersCovering(FileUrl("/a/b/c/d")),
              std::vector<FileUrl>{FileUrl("/a/b")});
    ASSERT_TRUE(scopes.start(FileUrl("/a/b/c")));
    EXPECT_EQ(scopes.openFoldersCovering(FileUrl("/a/b/c/d")),
              (std::vector<FileUrl>{FileUrl("/a/b"), FileUrl("/a/b/c")}));
}

} // namespace
} // namespace blankwell
