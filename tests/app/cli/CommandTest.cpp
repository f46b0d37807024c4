#include "app/cli/Command.h"

#include <gtest/gtest.h>

#include <vector>

namespace blankwell::cli {
namespace {

using Arguments = std::vector<std::string_view>;

Invocation parsed(const Arguments& arguments) {
    const auto result = parseArguments(arguments);
    EXPECT_TRUE(result) << result.error();
    return result.value_or(Invocation{});
}

std::string problem(const Arguments& arguments) {
    const auto result = parseArguments(arguments);
    return result ? "(none)" : result.error();
}

TEST(CommandTest, CreateTakesATypeAndAPlace) {
    EXPECT_EQ(parsed({"create", "md"}).command, Command(CreateCommand{.typeID = "md"}));
    EXPECT_EQ(parsed({"create", "md", "a b"}).command, Command(CreateCommand{"md", "a b"}));
    EXPECT_EQ(parsed({"create", "md", "--desktop"}).command,
              Command(CreateCommand{"md", CreationDestinationMode::desktop}));
    EXPECT_EQ(parsed({"create", "--front", "md"}).command,
              Command(CreateCommand{"md", CreationDestinationMode::frontFinderFolder}));
}

TEST(CommandTest, CreateTakesOnePlaceOnly) {
    for (const auto& arguments :
         {Arguments{"create"}, Arguments{"create", "--desktop"},
          Arguments{"create", "md", "a", "b"}, Arguments{"create", "md", "a", "--desktop"},
          Arguments{"create", "md", "--front", "--desktop"}}) {
        EXPECT_EQ(problem(arguments),
                  "usage: blankwell create TYPE [FOLDER | --desktop | --front]");
    }
}

TEST(CommandTest, OpenTakesAUrl) {
    EXPECT_EQ(parsed({"open", "x:y"}).command, Command(OpenCommand{"x:y"}));
}

TEST(CommandTest, AutostartTakesOnOffOrNothing) {
    EXPECT_EQ(parsed({"autostart"}).command, Command(AutostartCommand{}));
    EXPECT_EQ(parsed({"autostart", "on"}).command,
              Command(AutostartCommand{AutostartCommand::Change::on}));
    EXPECT_EQ(parsed({"autostart", "off"}).command,
              Command(AutostartCommand{AutostartCommand::Change::off}));
    EXPECT_EQ(problem({"autostart", "maybe"}), "usage: blankwell autostart [on | off]");
    EXPECT_EQ(problem({"autostart", "on", "off"}), "usage: blankwell autostart [on | off]");
}

TEST(CommandTest, OpenTakesATypeAndAFolderToo) {
    EXPECT_EQ(parsed({"open", "md", "--", "-a"}).command, Command(RequestCommand{"md", "-a"}));
    EXPECT_EQ(problem({"open"}), "usage: blankwell open URL | open TYPE FOLDER");
    EXPECT_EQ(problem({"open", "md", "/a", "/b"}), "usage: blankwell open URL | open TYPE FOLDER");
}

TEST(CommandTest, InstallTakesAFolder) {
    EXPECT_EQ(parsed({"install"}).command, Command(InstallCommand{}));
    EXPECT_EQ(parsed({"install", "--to", "/a"}).command, Command(InstallCommand{"/a"}));
    for (const auto& arguments : {Arguments{"install", "/a"}, Arguments{"install", "--to"},
                                  Arguments{"install", "--to", "/a", "/b"}}) {
        EXPECT_EQ(problem(arguments), "usage: blankwell install [--to FOLDER]");
    }
}

TEST(CommandTest, UninstallTakesTheConsent) {
    EXPECT_EQ(parsed({"uninstall"}).command, Command(UninstallCommand{}));
    EXPECT_EQ(parsed({"uninstall", "--yes"}).command,
              Command(UninstallCommand{.isConfirmed = true}));
    EXPECT_EQ(problem({"uninstall", "now"}), "usage: blankwell uninstall [--yes]");
    EXPECT_EQ(problem({"unregister", "--yes"}), "no option '--yes' here");
}

TEST(CommandTest, UnregisterTakesNothing) {
    EXPECT_EQ(parsed({"unregister"}).command, Command(UnregisterCommand{}));
    EXPECT_EQ(problem({"unregister", "x"}), "usage: blankwell unregister");
}

TEST(CommandTest, MenusAreListedOrTurned) {
    using enum MenusCommand::Change;
    EXPECT_EQ(parsed({"menus"}).command, Command(MenusCommand{}));
    EXPECT_EQ(parsed({"menus", "list"}).command, Command(MenusCommand{}));
    EXPECT_EQ(parsed({"menus", "on"}).command, Command(MenusCommand{on, {}}));
    EXPECT_EQ(parsed({"menus", "off", "thunar", "nemo"}).command,
              Command(MenusCommand{off, {"thunar", "nemo"}}));
    for (const auto& arguments : {Arguments{"menus", "thunar"}, Arguments{"menus", "list", "x"}}) {
        EXPECT_EQ(problem(arguments),
                  "usage: blankwell menus [list | on [MANAGER...] | off [MANAGER...]]");
    }
}

TEST(CommandTest, QuickCreateTakesNothing) {
    EXPECT_EQ(parsed({"quick-create"}).command, Command(QuickCreateCommand{}));
    EXPECT_EQ(problem({"quick-create", "md"}), "usage: blankwell quick-create");
}

TEST(CommandTest, ListsArePrintedAsTextOrJson) {
    EXPECT_EQ(parsed({"types"}).command, Command(TypesCommand{}));
    EXPECT_EQ(parsed({"types", "--json"}).command, Command(TypesCommand{ListFormat::json}));
    EXPECT_EQ(parsed({"folders"}).command, Command(FoldersCommand{}));
    EXPECT_EQ(parsed({"--json", "folders"}).command, Command(FoldersCommand{ListFormat::json}));
    EXPECT_EQ(problem({"types", "x"}), "usage: blankwell types [--json]");
}

TEST(CommandTest, FoldersAreAddedAndForgotten) {
    EXPECT_EQ(parsed({"folders", "add", "/a"}).command, Command(AddFolderCommand{"/a"}));
    EXPECT_EQ(parsed({"folders", "forget", "/a"}).command, Command(ForgetFolderCommand{"/a"}));
    for (const auto& arguments :
         {Arguments{"folders", "add"}, Arguments{"folders", "forget"},
          Arguments{"folders", "add", "/a", "/b"}, Arguments{"folders", "list"}}) {
        EXPECT_EQ(problem(arguments),
                  "usage: blankwell folders [--json | add FOLDER | forget FOLDER]");
    }
    EXPECT_EQ(problem({"folders", "add", "/a", "--json"}), "no option '--json' here");
}

TEST(CommandTest, WhatFollowsTwoDashesIsNoOption) {
    EXPECT_EQ(parsed({"create", "md", "--", "--desktop"}).command,
              Command(CreateCommand{"md", "--desktop"}));
    EXPECT_EQ(parsed({"create", "md", "-"}).command, Command(CreateCommand{"md", "-"}));
}

TEST(CommandTest, HelpAndVersionAreCommands) {
    for (const auto& arguments :
         {Arguments{"--help"}, Arguments{"-h"}, Arguments{"create", "--help"}}) {
        EXPECT_EQ(parsed(arguments).command, Command(HelpCommand{}));
    }
    EXPECT_EQ(parsed({"--version"}).command, Command(VersionCommand{}));
}

TEST(CommandTest, VerboseGoesWithEveryCommand) {
    EXPECT_EQ(parsed({"--verbose", "open", "x:y"}), (Invocation{OpenCommand{"x:y"}, true}));
    EXPECT_FALSE(parsed({"open", "x:y"}).verbose);
}

TEST(CommandTest, WhatIsNotUnderstoodIsNamed) {
    EXPECT_EQ(problem({}), "no command given; 'blankwell --help' lists them");
    EXPECT_EQ(problem({"destroy"}), "no command 'destroy'; 'blankwell --help' lists them");
    EXPECT_EQ(problem({"create", "md", "--quick"}), "no option '--quick' here");
    EXPECT_EQ(problem({"types", "--desktop"}), "no option '--desktop' here");
    EXPECT_EQ(problem({"create", "md", ""}), "an argument is empty");
}

} // namespace
} // namespace blankwell::cli
