#include "shell/FileManagerMenuFiles.h"

#include "filetypes/FileTypeCatalog.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <string>

namespace blankwell {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

CreateFileMenu menuOf(const std::vector<std::string>& ids) {
    std::vector<FileTypeDefinition> types;
    std::ranges::transform(ids, std::back_inserter(types),
                           [](const std::string& id) { return *FileTypeCatalog::definition(id); });
    return createFileMenu(types);
}

struct FileManagerMenuFilesTest : testing::Test {
    std::vector<Registration> files(FileManager manager, const std::vector<std::string>& ids = {
                                                             "docx", "md", "txt"}) const {
        return fileManagerMenuFiles(manager, menuOf(ids), places);
    }

    static const RegisteredFile& file(const Registration& registration) {
        return std::get<RegisteredFile>(registration);
    }

    FileManagerPlaces places{FileUrl("/h/.local/share"), FileUrl("/h/.config"),
                             FileUrl("/etc/xdg/Thunar/uca.xml"), FileUrl("/B.app/blankwell")};
};

TEST_F(FileManagerMenuFilesTest, TypesAreGroupedAsInTheStatusMenuInTheUsersOrder) {
    const auto menu = menuOf({"docx", "py", "md", "html", "txt"});
    std::vector<std::string> ids;
    std::ranges::transform(typesOf(menu), std::back_inserter(ids), &FileTypeDefinition::id);
    EXPECT_THAT(ids, ElementsAre("md", "txt", "py", "html", "docx"));
    EXPECT_EQ(menu.size(), 3U);
    EXPECT_EQ(menuOf({"py"}).size(), 1U);
}

TEST_F(FileManagerMenuFilesTest, WithoutTypesThereIsNoMenu) {
    for (const auto manager : allFileManagers) {
        EXPECT_THAT(files(manager, {}), IsEmpty());
    }
}

TEST_F(FileManagerMenuFilesTest, EveryFileNamesItsOwner) {
    for (const auto manager : allFileManagers) {
        for (const auto& registration : files(manager)) {
            if (const auto* const own = std::get_if<RegisteredFile>(&registration)) {
                EXPECT_THAT(own->contents, HasSubstr("app.blankwell.BlankwellPlus"));
            }
        }
    }
}

TEST_F(FileManagerMenuFilesTest, DolphinHasOneFileThatItMayRun) {
    const auto all = files(FileManager::dolphin);
    ASSERT_EQ(all.size(), 1U);
    EXPECT_EQ(file(all[0]).url.path(),
              "/h/.local/share/kio/servicemenus/app.blankwell.BlankwellPlus.desktop");
    EXPECT_TRUE(file(all[0]).isProgram);
    EXPECT_EQ(file(all[0]).contents,
              "# Made by Blankwell+ (app.blankwell.BlankwellPlus), which replaces it.\n"
              "[Desktop Entry]\n"
              "Type=Service\n"
              "X-KDE-ServiceTypes=KonqPopupMenu/Plugin\n"
              "MimeType=inode/directory;\n"
              "X-KDE-Protocols=file\n"
              "X-KDE-RequiredNumberOfUrls=1\n"
              "X-KDE-Priority=TopLevel\n"
              "X-KDE-Submenu=Create File\n"
              "Icon=document-new\n"
              "Actions=item00;item01;_SEPARATOR_;item02;\n"
              "\n"
              "[Desktop Action item00]\n"
              "Name=Markdown\n"
              "Icon=text-x-generic\n"
              "Exec=\"/B.app/blankwell\" open md %f\n"
              "\n"
              "[Desktop Action item01]\n"
              "Name=Text\n"
              "Icon=text-x-generic\n"
              "Exec=\"/B.app/blankwell\" open txt %f\n"
              "\n"
              "[Desktop Action item02]\n"
              "Name=Word Document\n"
              "Icon=x-office-document\n"
              "Exec=\"/B.app/blankwell\" open docx %f\n");
}

TEST_F(FileManagerMenuFilesTest, ThunarHasActionsInItsList) {
    const auto all = files(FileManager::thunar, {"md"});
    ASSERT_EQ(all.size(), 1U);
    EXPECT_EQ(std::get<RegisteredActions>(all[0]),
              (RegisteredActions{
                  .url = FileUrl("/h/.config/Thunar/uca.xml"),
                  .usual = FileUrl("/etc/xdg/Thunar/uca.xml"),
                  .actions = {{
                      .id = "app.blankwell.BlankwellPlus.md",
                      .name = "Markdown",
                      .description = "Create a blank file: Markdown",
                      .icon = "text-x-generic",
                      .submenu = "Create File",
                      .command = "'/B.app/blankwell' open md %f",
                  }},
              }));
}

TEST_F(FileManagerMenuFilesTest, PcmanfmQtHasAMenuAndAFileForEachItem) {
    const auto all = files(FileManager::pcmanfmQt);
    ASSERT_EQ(all.size(), 4U);
    EXPECT_EQ(file(all[0]).url.path(),
              "/h/.local/share/file-manager/actions/app.blankwell.BlankwellPlus.md.desktop");
    EXPECT_EQ(file(all[0]).contents,
              "# Made by Blankwell+ (app.blankwell.BlankwellPlus), which replaces it.\n"
              "[Desktop Entry]\n"
              "Type=Action\n"
              "Name=Markdown\n"
              "Icon=text-x-generic\n"
              "TargetLocation=true\n"
              "TargetContext=true\n"
              "Profiles=create;\n"
              "\n"
              "[X-Action-Profile create]\n"
              "MimeTypes=inode/directory;\n"
              "Schemes=file;\n"
              "SelectionCount==1\n"
              "Exec=\"/B.app/blankwell\" open md %f\n");
    EXPECT_EQ(file(all[3]).url.path(),
              "/h/.local/share/file-manager/actions/app.blankwell.BlankwellPlus.desktop");
    EXPECT_EQ(file(all[3]).contents,
              "# Made by Blankwell+ (app.blankwell.BlankwellPlus), which replaces it.\n"
              "[Desktop Entry]\n"
              "Type=Menu\n"
              "Name=Create File\n"
              "Icon=document-new\n"
              "ItemsList=app.blankwell.BlankwellPlus.md;app.blankwell.BlankwellPlus.txt;"
              "SEPARATOR;app.blankwell.BlankwellPlus.docx;\n");
}

TEST_F(FileManagerMenuFilesTest, NemoHasAnActionForTheSpotAndOneForTheFolder) {
    const auto all = files(FileManager::nemo, {"md"});
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(file(all[0]).url.path(),
              "/h/.local/share/nemo/actions/app.blankwell.BlankwellPlus.00.here.nemo_action");
    EXPECT_EQ(file(all[0]).contents,
              "# Made by Blankwell+ (app.blankwell.BlankwellPlus), which replaces it.\n"
              "[Nemo Action]\n"
              "Name=Create File: Markdown\n"
              "Comment=Create a blank file: Markdown\n"
              "Icon-Name=text-x-generic\n"
              "Selection=none\n"
              "Extensions=any;\n"
              "Exec=\"/B.app/blankwell\" open md %F\n");
    EXPECT_THAT(file(all[1]).contents, HasSubstr("\nSelection=s\nExtensions=dir;\n"));
}

TEST_F(FileManagerMenuFilesTest, CajaHasAScriptForEachType) {
    const auto all = files(FileManager::caja, {"docx"});
    ASSERT_EQ(all.size(), 1U);
    EXPECT_EQ(file(all[0]).url.path(), "/h/.config/caja/scripts/Create File/Word Document");
    EXPECT_TRUE(file(all[0]).isProgram);
    EXPECT_EQ(file(all[0]).contents,
              "#!/bin/sh\n"
              "# Made by Blankwell+ (app.blankwell.BlankwellPlus), which replaces it.\n"
              "case $CAJA_SCRIPT_CURRENT_URI in\n"
              "file://* | x-caja-desktop:*) ;;\n"
              "*) exit 1 ;;\n"
              "esac\n"
              "folder=.\n"
              "if [ $# -eq 1 ] && [ -d \"$1\" ]; then\n"
              "    folder=$1\n"
              "fi\n"
              "exec '/B.app/blankwell' open docx -- \"$folder\"\n");
}

TEST_F(FileManagerMenuFilesTest, NautilusHasAnExtension) {
    const auto all = files(FileManager::nautilus);
    ASSERT_EQ(all.size(), 1U);
    EXPECT_EQ(file(all[0]).url.path(),
              "/h/.local/share/nautilus-python/extensions/blankwell_plus.py");
    EXPECT_THAT(file(all[0]).contents, HasSubstr("PROGRAM = b\"/B.app/blankwell\"\n"
                                                 "TYPES = (\n"
                                                 "    (\"md\", \"Markdown\"),\n"
                                                 "    (\"txt\", \"Text\"),\n"
                                                 "    (\"docx\", \"Word Document\"),\n"
                                                 ")\n"));
}

TEST_F(FileManagerMenuFilesTest, AnExtensionReadsWhatItShows) {
    places.program = FileUrl("/my B.app/blankwell");
    const auto menu = menuOf({"docx", "md", "txt"});
    const auto all = extensionMenuFiles(FileManager::nemo, menu, places);
    ASSERT_EQ(all.size(), 1U);
    EXPECT_EQ(file(all[0]).url.path(), "/h/.local/share/blankwell-plus/menus/nemo");
    EXPECT_FALSE(file(all[0]).isProgram);
    EXPECT_EQ(file(all[0]).contents,
              "# Made by Blankwell+ (app.blankwell.BlankwellPlus), which replaces it.\n"
              "[Menu]\n"
              "Title=Create File\n"
              "Program=file:///my%20B.app/blankwell\n"
              "Types=md;txt;-;docx;\n"
              "\n"
              "[Type md]\n"
              "Name=Markdown\n"
              "Icon=text-x-generic\n"
              "\n"
              "[Type txt]\n"
              "Name=Text\n"
              "Icon=text-x-generic\n"
              "\n"
              "[Type docx]\n"
              "Name=Word Document\n"
              "Icon=x-office-document\n");
    EXPECT_THAT(extensionMenuFiles(FileManager::nemo, {}, places), IsEmpty());
}

TEST_F(FileManagerMenuFilesTest, AnyPathOfTheProgramIsQuoted) {
    places.program = FileUrl("/a b/it's \"100%\" $x\n\\/blankwell");
    const auto command = [&](FileManager manager) {
        return file(files(manager, {"md"})[0]).contents;
    };
    constexpr auto entry = R"(Exec="/a b/it's \\"100%%\\" \\$x\n\\\\/blankwell" open md )";
    for (const auto manager : {FileManager::dolphin, FileManager::nemo, FileManager::pcmanfmQt}) {
        EXPECT_THAT(command(manager), HasSubstr(entry));
    }
    EXPECT_THAT(command(FileManager::caja),
                HasSubstr("exec '/a b/it'\\''s \"100%\" $x\n\\/blankwell' open md"));
    EXPECT_THAT(command(FileManager::nautilus),
                HasSubstr(R"(b"/a b/it's \x22100%\x22 $x\x0a\x5c/blankwell")"));
    EXPECT_EQ(std::get<RegisteredActions>(files(FileManager::thunar, {"md"})[0]).actions[0].command,
              "'/a b/it'\\''s \"100%%\" $x\n\\/blankwell' open md %f");
}

} // namespace
} // namespace blankwell
