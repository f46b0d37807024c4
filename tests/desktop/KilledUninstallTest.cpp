#include "desktop/Desktop.h"
#include "desktop/Program.h"
#include "support/KilledProcess.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <string_view>

namespace blankwell {
namespace {

namespace fs = std::filesystem;

/// Every item under a folder, by its path in it; of files the contents.
using Tree = std::map<std::string, std::string>;

fs::path home() {
    return desktopHome().path();
}

void addFile(const fs::path& path, std::string_view contents) {
    fs::create_directories(path.parent_path());
    std::ofstream(path) << contents;
}

std::string contentsOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// What stands in `folder`, but for the items called `without` in it.
Tree treeOf(const fs::path& folder, const std::set<fs::path>& without) {
    Tree tree;
    for (auto entry = fs::recursive_directory_iterator(folder); entry != fs::end(entry); ++entry) {
        const auto path = entry->path().lexically_relative(folder);
        if (without.contains(path)) {
            entry.disable_recursion_pending();
        } else if (entry->is_symlink()) {
            tree[path] = "-> " + fs::read_symlink(entry->path()).string();
        } else {
            tree[path] = entry->is_regular_file() ? contentsOf(entry->path()) : "";
        }
    }
    return tree;
}

/// Of two types: each one more is a file more to remove.
constexpr auto settings = R"(<?xml version="1.0" encoding="UTF-8"?>
<plist version="1.0"><dict>
<key>enabledFileTypeIDs</key><array><string>md</string><string>txt</string></array>
</dict></plist>
)";

/// The tests look at every third step each, so that none takes long.
constexpr int stride = 3;

/// A bundle that was installed into the home of a user who has files, and settings of other
/// programs, of their own. The parameter is the first step to look at.
struct KilledUninstallTest : testing::TestWithParam<int> {
    KilledUninstallTest() {
        addFile(home() / "programs/thunar", "#!/bin/sh\n");
        fs::permissions(home() / "programs/thunar", fs::perms(0755));
        ::setenv("PATH", (home() / "programs").c_str(), 1);
        addFile(home() / "mine/Untitled.md", "mine");
        addFile(home() / ".config/mimeapps.list", "[Added Associations]\ntext/plain=x.desktop\n");
        addFile(
            home() / ".config/Thunar/uca.xml",
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<actions>\n<action>\n\t<name>Mine</name>\n"
            "</action>\n</actions>\n");
        before = settled();
        addFile(home() / ".config/BLNKWLPLUS.app.blankwell.BlankwellPlus.plist", settings);
        run({"/usr/bin/cmake", "--install", BLANKWELL_BUILD, "--strip", "--prefix",
             place.string()});
        run({command, "install", "--to", place.string()});
        run({command, "autostart", "on"});
        installed = settled();
        fs::create_directory(store);
        fs::copy(home() / ".config", store / ".config", everything);
        fs::copy(home() / ".local", store / ".local", everything);
    }

    static void run(const Arguments& arguments) {
        Program program(arguments);
        EXPECT_EQ(program.exitStatus(), 0) << arguments[0] << ' ' << arguments[1];
    }

    /// What there is beside the bundle, the Trash and caches.
    Tree settled() const {
        return treeOf(home(), {"apps", "store", ".cache", ".local/share/Trash",
                               ".local/share/gvfs-metadata"});
    }

    /// Whether the whole bundle is at `path`.
    bool isWhole(const fs::path& path) const {
        return fs::exists(path / "Contents/Info.plist") &&
               fs::exists(path / "Contents/Linux/blankwell-plus");
    }

    /// The bundle back in its place, as a user takes it out of the Trash.
    void restoreBundle() const {
        if (!fs::exists(bundle)) {
            ASSERT_TRUE(isWhole(trashed));
            fs::create_directories(place);
            fs::rename(trashed, bundle);
        }
        fs::remove_all(home() / ".local/share/Trash");
    }

    /// All as it was after the installation.
    void installAgain() const {
        restoreBundle();
        for (const auto* name : {".config", ".local"}) {
            fs::remove_all(home() / name);
            fs::copy(store / name, home() / name, everything);
        }
        ASSERT_EQ(settled(), installed);
    }

    static constexpr auto everything =
        fs::copy_options::recursive | fs::copy_options::copy_symlinks;

    fs::path place = home() / "apps";
    fs::path bundle = place / "Blankwell+.app";
    fs::path trashed = home() / ".local/share/Trash/files/Blankwell+.app";
    fs::path store = home() / "store";
    std::string command = bundle / "Contents/Linux/blankwell";
    Arguments uninstall{command, "uninstall", "--yes"};
    Tree before;
    Tree installed;
};

TEST_P(KilledUninstallTest, NothingOfTheUsersIsLostAndTheNextOneFinishes) {
    for (int last = GetParam(); isKilledAtChange(uninstall, last); last += stride) {
        SCOPED_TRACE(last);
        EXPECT_TRUE(isWhole(bundle) || isWhole(trashed));
        EXPECT_EQ(contentsOf(home() / "mine/Untitled.md"), "mine");
        EXPECT_THAT(contentsOf(home() / ".config/Thunar/uca.xml"), testing::HasSubstr("Mine"));
        EXPECT_THAT(contentsOf(home() / ".config/mimeapps.list"), testing::HasSubstr("x.desktop"));
        restoreBundle();
        run(uninstall);
        EXPECT_EQ(settled(), before);
        if (HasFailure()) {
            break;
        }
        installAgain();
    }
    EXPECT_EQ(settled(), before);
}

TEST_P(KilledUninstallTest, TheNextInstallationMends) {
    for (int last = GetParam(); isKilledAtChange(uninstall, last); last += 3 * stride) {
        SCOPED_TRACE(last);
        restoreBundle();
        run({command, "install", "--to", place.string()});
        auto mended = settled();
        auto wanted = installed;
        // What was cut off in the middle goes with the next write, and the start at login is the
        // user's to switch on.
        mended.erase(".config/mimeapps.list.tmp");
        mended.erase(".config/Thunar/uca.xml.tmp");
        for (auto* tree : {&mended, &wanted}) {
            tree->erase(".config/autostart");
            tree->erase(".config/autostart/app.blankwell.BlankwellPlus.desktop");
        }
        EXPECT_EQ(mended, wanted);
        if (HasFailure()) {
            break;
        }
        installAgain();
    }
}

INSTANTIATE_TEST_SUITE_P(AtEveryStep, KilledUninstallTest, testing::Range(0, stride));

} // namespace
} // namespace blankwell
