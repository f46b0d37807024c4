#include "contract/FrontFolderContract.h"
#include "contract/WorkspaceContract.h"

#include "base/FileUri.h"
#include "desktop/Desktop.h"
#include "desktop/PrivateBus.h"
#include "desktop/Program.h"
#include "platform/linux/FileManagerFrontFolder.h"
#include "platform/linux/FileManagerWorkspace.h"
#include "support/FakeLog.h"
#include "support/FakeSurroundings.h"

#include <optional>

namespace blankwell {
namespace {

/// Nautilus, which tells exactly, with one window at a time.
class NautilusWorld {
public:
    FrontFolder& front() { return front_; }

    static FileUrl folder(std::string_view name) { return makeFolder(name); }

    void showNothing() {
        nautilus_.reset();
        EXPECT_TRUE(eventually([] { return windowTitles().empty(); }));
    }

    void show(const FileUrl& folder) {
        open(folder.path(), std::string(folder.lastPathComponent()));
    }

    void showTrash() { open("trash:///", "Trash"); }

private:
    void open(const std::string& place, const std::string& title) {
        showNothing();
        nautilus_.emplace(Arguments{"nautilus", place});
        EXPECT_TRUE(windowAppears(title));
    }

    FakeWellKnownFolders wellKnown_;
    FileManagerFrontFolder front_{wellKnown_, desktopHome(), [] { return std::vector<FileUrl>(); }};
    std::optional<Program> nautilus_;
};

class RunningFileManagerWorld {
public:
    Workspace& workspace() { return workspace_; }

    bool isNextShown(const FileUrl& url) {
        std::string call;
        EXPECT_TRUE(eventually([&] { return !(call = manager_.waitingCall()).empty(); }));
        return call == "org.freedesktop.FileManager1.ShowItems " + fileUri(url);
    }

private:
    FakeLog log_;
    FileManagerWorkspace workspace_{log_};
    HungFileManager manager_{"org.freedesktop.FileManager1"};
};

INSTANTIATE_TYPED_TEST_SUITE_P(Nautilus, FrontFolderContract, NautilusWorld);
INSTANTIATE_TYPED_TEST_SUITE_P(Running, WorkspaceContract, RunningFileManagerWorld);

} // namespace
} // namespace blankwell
