#include "contract/FrontFolderContract.h"
#include "contract/WorkspaceContract.h"

#include "support/FakeApplication.h"
#include "support/FakeSurroundings.h"

namespace blankwell {
namespace {

struct FakeFrontFolderWorld {
    FrontFolder& front() { return fake; }

    static FileUrl folder(std::string_view name) { return FileUrl("/folders").appending(name); }

    void showNothing() { fake.answer = ""; }

    void show(const FileUrl& folder) { fake.answer = folder.path(); }

    void showTrash() { fake.answer = std::nullopt; }

    FakeFrontFolder fake;
};

struct FakeWorkspaceWorld {
    Workspace& workspace() { return fake; }

    bool isNextShown(const FileUrl& url) {
        return next < events.size() && events[next++] == "reveal " + url.path();
    }

    EventLog events;
    FakeWorkspace fake{events};
    std::size_t next = 0;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Double, FrontFolderContract, FakeFrontFolderWorld);
INSTANTIATE_TYPED_TEST_SUITE_P(Double, WorkspaceContract, FakeWorkspaceWorld);

} // namespace
} // namespace blankwell
