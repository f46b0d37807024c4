#include "contract/FileManagersContract.h"
#include "contract/FrontFolderContract.h"
#include "contract/WorkspaceContract.h"

#include "support/FakeApplication.h"
#include "support/FakeFileManagers.h"
#include "support/FakeSurroundings.h"

#include <algorithm>

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

class FakeFileManagersWorld {
public:
    FileManagers& managers() { return managers_; }

    void start() { managers_.processes.push_back({.name = "one"}); }

    bool isBack() const {
        const auto& processes = managers_.processes;
        return !processes.empty() && processes.back().name == "one" && !processes.back().isGone;
    }

    bool staysAway() const { return managers_.processes.empty(); }

    bool staysAlone() const {
        return std::ranges::count(managers_.processes, false, &FakeFileManagers::Process::isGone) ==
               1;
    }

    static bool ends(const RunningFileManager& process) { return process.isTerminated(); }

private:
    EventLog events_;
    FakeFileManagers managers_{events_};
};

INSTANTIATE_TYPED_TEST_SUITE_P(Double, FileManagersContract, FakeFileManagersWorld);
INSTANTIATE_TYPED_TEST_SUITE_P(Double, FrontFolderContract, FakeFrontFolderWorld);
INSTANTIATE_TYPED_TEST_SUITE_P(Double, WorkspaceContract, FakeWorkspaceWorld);

} // namespace
} // namespace blankwell
