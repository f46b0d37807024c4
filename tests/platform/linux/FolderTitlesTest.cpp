#include "platform/linux/FolderTitles.h"

#include <gtest/gtest.h>

#include <set>

namespace blankwell {
namespace {

/// Tells the folders at `paths` from all other places.
IsFolder folders(std::set<std::string> paths) {
    return [paths = std::move(paths)](const FileUrl& url) { return paths.contains(url.path()); };
}

TEST(ThunarTitleTest, HoldsThePathBeforeTheProgramsName) {
    EXPECT_EQ(folderInThunarTitle("/a/b - Thunar", folders({"/a/b"})), FileUrl("/a/b"));
    EXPECT_EQ(folderInThunarTitle("/ - Thunar", folders({"/"})), FileUrl("/"));
    EXPECT_EQ(folderInThunarTitle("/a/b", folders({"/a/b"})), FileUrl("/a/b"));
}

TEST(ThunarTitleTest, ABareNameTellsNothing) {
    EXPECT_EQ(folderInThunarTitle("b - Thunar", folders({"b", "/b"})), std::nullopt);
    EXPECT_EQ(folderInThunarTitle("trash:/// - Thunar", folders({"/"})), std::nullopt);
    EXPECT_EQ(folderInThunarTitle("", folders({""})), std::nullopt);
}

TEST(ThunarTitleTest, APathWhereNoFolderStandsTellsNothing) {
    EXPECT_EQ(folderInThunarTitle("/a/b - Thunar", folders({"/a"})), std::nullopt);
}

TEST(ThunarTitleTest, APathThatReadsTwoWaysTellsNothing) {
    const auto title = "/a - Thunar";
    EXPECT_EQ(folderInThunarTitle(title, folders({"/a - Thunar"})), FileUrl("/a - Thunar"));
    EXPECT_EQ(folderInThunarTitle(title, folders({"/a", "/a - Thunar"})), std::nullopt);
}

TEST(NemoTitleTest, HoldsThePathAfterTheName) {
    EXPECT_EQ(folderInNemoTitle("b - /a/b", folders({"/a/b"})), FileUrl("/a/b"));
    EXPECT_EQ(folderInNemoTitle("c - d - /a/c - d", folders({"/a/c - d"})), FileUrl("/a/c - d"));
    EXPECT_EQ(folderInNemoTitle("Home - /home/u", folders({"/home/u"})), FileUrl("/home/u"));
}

TEST(NemoTitleTest, ABareNameTellsNothing) {
    EXPECT_EQ(folderInNemoTitle("b", folders({"b", "/b"})), std::nullopt);
    EXPECT_EQ(folderInNemoTitle("", folders({""})), std::nullopt);
}

TEST(NemoTitleTest, AnotherSchemeTellsNothing) {
    const auto everything = [](const FileUrl&) { return true; };
    EXPECT_EQ(folderInNemoTitle("Trash - trash:///", everything), std::nullopt);
    EXPECT_EQ(folderInNemoTitle("b - sftp://host/a/b", everything), std::nullopt);
}

TEST(NemoTitleTest, APathWhereNoFolderStandsTellsNothing) {
    EXPECT_EQ(folderInNemoTitle("b - /a/b", folders({"/a"})), std::nullopt);
}

TEST(DolphinTitleTest, EndsWithTheProgramsName) {
    EXPECT_EQ(captionOfDolphinTitle("Notes — Dolphin"), "Notes");
    EXPECT_EQ(captionOfDolphinTitle("a — b — Dolphin"), "a — b");
    EXPECT_EQ(captionOfDolphinTitle("Notes"), "Notes");
}

} // namespace
} // namespace blankwell
