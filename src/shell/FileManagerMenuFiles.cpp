#include "shell/FileManagerMenuFiles.h"

#include "base/FileUri.h"
#include "base/Quoting.h"
#include "platform/Identifiers.h"

#include <fmt/core.h>

#include <string>
#include <string_view>
#include <utility>

namespace blankwell {
namespace {

using Registrations = std::vector<Registration>;

std::string ownName(std::string_view rest) {
    return fmt::format("{}{}", bundleIdentifier, rest);
}

std::string mark() {
    return fmt::format("# Made by Blankwell+ ({}), which replaces it.\n", bundleIdentifier);
}

/// The value of a desktop entry's `Exec` that creates a file of `type` in the folder that
/// `fieldCode` stands for.
std::string exec(const FileManagerPlaces& places, const FileTypeDefinition& type,
                 std::string_view fieldCode) {
    const auto program = withoutFieldCodes(desktopEntryWord(places.program.path()));
    return desktopEntryValue(fmt::format("{} open {} {}", program, type.id, fieldCode));
}

/// Dolphin sorts the items by their ids.
std::string dolphinItemId(std::size_t index) {
    return fmt::format("item{:02}", index);
}

Registrations dolphinFiles(const CreateFileMenu& menu, const FileManagerPlaces& places) {
    std::string ids;
    std::string items;
    std::size_t index = 0;
    for (const auto& group : menu) {
        ids += ids.empty() ? "" : "_SEPARATOR_;";
        for (const auto& type : group) {
            const auto id = dolphinItemId(index++);
            ids += id + ';';
            items += fmt::format("\n[Desktop Action {}]\nName={}\nIcon={}\nExec={}\n", id,
                                 type.displayName, themeIconName(type), exec(places, type, "%f"));
        }
    }
    auto text = mark() + fmt::format("[Desktop Entry]\n"
                                     "Type=Service\n"
                                     "X-KDE-ServiceTypes=KonqPopupMenu/Plugin\n"
                                     "MimeType=inode/directory;\n"
                                     "X-KDE-Protocols=file\n"
                                     "X-KDE-RequiredNumberOfUrls=1\n"
                                     "X-KDE-Priority=TopLevel\n"
                                     "X-KDE-Submenu={}\n"
                                     "Icon=document-new\n"
                                     "Actions={}\n",
                                     createFileMenuTitle, ids);
    return {RegisteredFile{
        .url = places.dataHome.appending("kio/servicemenus").appending(ownName(".desktop")),
        .contents = std::move(text) + items,
        .isProgram = true, // or Dolphin refuses to run the items
    }};
}

Registrations thunarFiles(const CreateFileMenu& menu, const FileManagerPlaces& places) {
    const auto program = withoutFieldCodes(shellWord(places.program.path()));
    std::vector<CustomAction> actions;
    for (const auto& type : typesOf(menu)) {
        actions.push_back({
            .id = ownName("." + type.id),
            .name = type.displayName,
            .description = fmt::format("Create a blank file: {}", type.displayName),
            .icon = std::string(themeIconName(type)),
            .submenu = std::string(createFileMenuTitle),
            .command = fmt::format("{} open {} %f", program, type.id),
        });
    }
    return {RegisteredActions{
        .url = places.configHome.appending("Thunar/uca.xml"),
        .usual = places.usualThunarActions,
        .actions = std::move(actions),
    }};
}

Registrations pcmanfmQtFiles(const CreateFileMenu& menu, const FileManagerPlaces& places) {
    const auto folder = places.dataHome.appending("file-manager/actions");
    Registrations files;
    std::string list;
    for (const auto& group : menu) {
        list += list.empty() ? "" : "SEPARATOR;";
        for (const auto& type : group) {
            const auto name = ownName("." + type.id);
            list += name + ';';
            files.emplace_back(RegisteredFile{
                .url = folder.appending(name + ".desktop"),
                .contents = mark() + fmt::format("[Desktop Entry]\n"
                                                 "Type=Action\n"
                                                 "Name={}\n"
                                                 "Icon={}\n"
                                                 "TargetLocation=true\n"
                                                 "TargetContext=true\n"
                                                 "Profiles=create;\n"
                                                 "\n"
                                                 "[X-Action-Profile create]\n"
                                                 "MimeTypes=inode/directory;\n"
                                                 "Schemes=file;\n"
                                                 "SelectionCount==1\n"
                                                 "Exec={}\n",
                                                 type.displayName, themeIconName(type),
                                                 exec(places, type, "%f")),
            });
        }
    }
    files.emplace_back(RegisteredFile{
        .url = folder.appending(ownName(".desktop")),
        .contents = mark() + fmt::format("[Desktop Entry]\n"
                                         "Type=Menu\n"
                                         "Name={}\n"
                                         "Icon=document-new\n"
                                         "ItemsList={}\n",
                                         createFileMenuTitle, list),
    });
    return files;
}

RegisteredFile nemoFile(const FileManagerPlaces& places, const FileTypeDefinition& type,
                        std::size_t index, std::string_view place, std::string_view selection,
                        std::string_view extensions) {
    return {
        .url = places.dataHome.appending("nemo/actions")
                   .appending(ownName(fmt::format(".{:02}.{}.nemo_action", index, place))),
        .contents = mark() + fmt::format("[Nemo Action]\n"
                                         "Name={}: {}\n"
                                         "Comment=Create a blank file: {}\n"
                                         "Icon-Name={}\n"
                                         "Selection={}\n"
                                         "Extensions={};\n"
                                         "Exec={}\n",
                                         createFileMenuTitle, type.displayName, type.displayName,
                                         themeIconName(type), selection, extensions,
                                         exec(places, type, "%F")),
    };
}

/// Nemo's actions make no submenu, and stand in the order of their files' names.
Registrations nemoFiles(const CreateFileMenu& menu, const FileManagerPlaces& places) {
    Registrations files;
    std::size_t index = 0;
    for (const auto& type : typesOf(menu)) {
        files.emplace_back(nemoFile(places, type, index, "here", "none", "any"));
        files.emplace_back(nemoFile(places, type, index, "folder", "s", "dir"));
        ++index;
    }
    return files;
}

/// Caja tells the selected names as arguments and starts scripts in the folder of the window, where
/// that is one on a disk.
Registrations cajaFiles(const CreateFileMenu& menu, const FileManagerPlaces& places) {
    const auto folder = places.configHome.appending("caja/scripts").appending(createFileMenuTitle);
    Registrations files;
    for (const auto& type : typesOf(menu)) {
        files.emplace_back(RegisteredFile{
            .url = folder.appending(type.displayName),
            .contents = "#!/bin/sh\n" + mark() +
                        fmt::format("case $CAJA_SCRIPT_CURRENT_URI in\n"
                                    "file://* | x-caja-desktop:*) ;;\n"
                                    "*) exit 1 ;;\n"
                                    "esac\n"
                                    "folder=.\n"
                                    "if [ $# -eq 1 ] && [ -d \"$1\" ]; then\n"
                                    "    folder=$1\n"
                                    "fi\n"
                                    "exec {} open {} -- \"$folder\"\n",
                                    shellWord(places.program.path()), type.id),
            .isProgram = true,
        });
    }
    return files;
}

/// The module that Nautilus' Python loader runs. Takes the program, the types, the identifier of
/// the menu, its title, and the identifier of its entries.
constexpr std::string_view nautilusExtension = R"(import subprocess

from gi.repository import GObject, Nautilus

PROGRAM = {}
TYPES = (
{})


def create(item, type_id, folder):
    subprocess.Popen((PROGRAM, b"open", type_id.encode(), b"--", folder),
                     start_new_session=True)


def menu(place, directory):
    location = directory.get_location()
    if not directory.is_directory() or location.get_path() is None:
        return ()
    title = Nautilus.MenuItem(name="{}." + place, label="{}")
    submenu = Nautilus.Menu()
    title.set_submenu(submenu)
    for type_id, name in TYPES:
        item = Nautilus.MenuItem(name="{}." + place + "." + type_id, label=name)
        item.connect("activate", create, type_id, location.get_path())
        submenu.append_item(item)
    return (title,)


class BlankwellPlusMenu(GObject.GObject, Nautilus.MenuProvider):
    def get_background_items(self, *arguments):
        return menu("here", arguments[-1])

    def get_file_items(self, *arguments):
        files = arguments[-1]
        return menu("folder", files[0]) if len(files) == 1 else ()
)";

Registrations nautilusFiles(const CreateFileMenu& menu, const FileManagerPlaces& places) {
    std::string types;
    for (const auto& type : typesOf(menu)) {
        types += fmt::format("    (\"{}\", \"{}\"),\n", type.id, type.displayName);
    }
    return {RegisteredFile{
        .url = places.dataHome.appending("nautilus-python/extensions/blankwell_plus.py"),
        .contents =
            mark() + fmt::format(nautilusExtension, pythonBytes(places.program.path()), types,
                                 bundleIdentifier, createFileMenuTitle, bundleIdentifier),
    }};
}

} // namespace

std::vector<Registration> fileManagerMenuFiles(FileManager manager, const CreateFileMenu& menu,
                                               const FileManagerPlaces& places) {
    if (menu.empty()) {
        return {};
    }
    switch (manager) {
    case FileManager::nautilus:
        return nautilusFiles(menu, places);
    case FileManager::dolphin:
        return dolphinFiles(menu, places);
    case FileManager::thunar:
        return thunarFiles(menu, places);
    case FileManager::nemo:
        return nemoFiles(menu, places);
    case FileManager::caja:
        return cajaFiles(menu, places);
    case FileManager::pcmanfmQt:
        return pcmanfmQtFiles(menu, places);
    }
    std::unreachable();
}

std::vector<Registration> extensionMenuFiles(FileManager manager, const CreateFileMenu& menu,
                                             const FileManagerPlaces& places) {
    if (menu.empty()) {
        return {};
    }
    std::string ids;
    std::string types;
    for (const auto& group : menu) {
        ids += ids.empty() ? "" : "-;"; // a separator
        for (const auto& type : group) {
            ids += type.id + ';';
            types += fmt::format("\n[Type {}]\nName={}\nIcon={}\n", type.id, type.displayName,
                                 themeIconName(type));
        }
    }
    auto text = mark() + fmt::format("[Menu]\nTitle={}\nProgram={}\nTypes={}\n",
                                     createFileMenuTitle, fileUri(places.program), ids);
    return {RegisteredFile{
        .url = places.dataHome.appending("blankwell-plus/menus").appending(infoOf(manager).id),
        .contents = std::move(text) + types,
    }};
}

} // namespace blankwell
