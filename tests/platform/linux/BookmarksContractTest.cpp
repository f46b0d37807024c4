#include "contract/BookmarksContract.h"

#include "platform/linux/LinuxAccessScopes.h"
#include "platform/linux/LinuxBookmarks.h"
#include "platform/linux/ScratchFolder.h"
#include "support/FakeBookmarks.h"

#include <filesystem>

namespace blankwell {
namespace {

struct FakeBookmarksWorld {
    Bookmarks& bookmarks() { return fake; }

    FileUrl makeFolder(std::string_view name) const { return FileUrl("/folders").appending(name); }

    FileUrl missingFolder() {
        fake.failCreateWith = cocoaError(CocoaCode::fileNoSuchFile, "no such folder");
        return FileUrl("/missing");
    }

    FileUrl move(const FileUrl& folder, std::string_view name) {
        const auto moved = folder.deletingLastPathComponent().appending(name);
        fake.outcomes.emplace(folder.path(), ResolvedBookmark{.url = moved, .isStale = true});
        return moved;
    }

    void remove(const FileUrl& folder) {
        fake.outcomes.emplace(folder.path(),
                              std::unexpected(cocoaError(CocoaCode::fileNoSuchFile, "gone")));
    }

    FakeBookmarks fake;
};

struct LinuxBookmarksWorld {
    Bookmarks& bookmarks() { return real; }

    FileUrl makeFolder(std::string_view name) const { return FileUrl(scratch.makeFolder(name)); }

    FileUrl missingFolder() const { return FileUrl(scratch.at("missing")); }

    FileUrl move(const FileUrl& folder, std::string_view name) const {
        const auto moved = folder.deletingLastPathComponent().appending(name);
        std::filesystem::rename(folder.path(), moved.path());
        return moved;
    }

    void remove(const FileUrl& folder) const { std::filesystem::remove(folder.path()); }

    ScratchFolder scratch{ScratchFolder::onDisk};
    LinuxAccessScopes scopes;
    LinuxBookmarks real{scopes};
};

INSTANTIATE_TYPED_TEST_SUITE_P(FakeBookmarks, BookmarksContract, FakeBookmarksWorld);
INSTANTIATE_TYPED_TEST_SUITE_P(LinuxBookmarks, BookmarksContract, LinuxBookmarksWorld);

} // namespace
} // namespace blankwell
