#include "shell/ApplicationRegistrations.h"

#include <gmock/gmock.h>

#include <map>

namespace blankwell {
namespace {

using testing::ElementsAre;

const UserPlaces places{FileUrl("/h"), FileUrl("/h/data"), FileUrl("/h/config")};
const DesktopTemplates templates{"[Desktop Entry]\nExec=@BLANKWELL_APPLICATION_PATH@ %u\n"
                                 "Exec=@BLANKWELL_APPLICATION_PATH@ --action=x\n",
                                 "[D-BUS Service]\nExec=@BLANKWELL_APPLICATION_PATH@ -b\n"};

struct Outline {
    std::map<std::string, std::string> files;
    std::map<std::string, std::string> links;
    std::vector<RegisteredEntry> entries;
};

Outline outlineFor(std::string bundle) {
    Outline outline;
    for (const auto& each :
         applicationRegistrations(FileUrl(std::move(bundle)), places, templates)) {
        if (const auto* const file = std::get_if<RegisteredFile>(&each)) {
            outline.files[file->url.path()] = file->contents;
        } else if (const auto* const link = std::get_if<RegisteredLink>(&each)) {
            outline.links[link->url.path()] = link->target.path();
        } else {
            outline.entries.push_back(std::get<RegisteredEntry>(each));
        }
    }
    return outline;
}

TEST(ApplicationRegistrationsTest, TheSessionLearnsWhereTheApplicationIs) {
    EXPECT_EQ(outlineFor("/B.app").files,
              (std::map<std::string, std::string>{
                  {"/h/data/applications/app.blankwell.BlankwellPlus.desktop",
                   "[Desktop Entry]\nExec=\"/B.app/Contents/Linux/blankwell-plus\" %u\n"
                   "Exec=\"/B.app/Contents/Linux/blankwell-plus\" --action=x\n"},
                  {"/h/data/dbus-1/services/app.blankwell.BlankwellPlus.service",
                   "[D-BUS Service]\nExec=\"/B.app/Contents/Linux/blankwell-plus\" -b\n"},
              }));
}

TEST(ApplicationRegistrationsTest, AnyPathIsQuotedAsEachFileTakesIt) {
    const auto files = outlineFor("/a b\n\"100%\"/B.app").files;
    EXPECT_THAT(
        files.at("/h/data/applications/app.blankwell.BlankwellPlus.desktop"),
        testing::HasSubstr(R"(Exec="/a b\n\\"100%%\\"/B.app/Contents/Linux/blankwell-plus" %u)"));
    EXPECT_THAT(
        files.at("/h/data/dbus-1/services/app.blankwell.BlankwellPlus.service"),
        testing::HasSubstr(R"(Exec="/a b\n\\"100%\\"/B.app/Contents/Linux/blankwell-plus" -b)"));
}

TEST(ApplicationRegistrationsTest, TheRestIsLinkedFromTheBundle) {
    EXPECT_EQ(outlineFor("/B.app").links,
              (std::map<std::string, std::string>{
                  {"/h/.local/bin/blankwell", "/B.app/Contents/Linux/blankwell"},
                  {"/h/data/icons/hicolor/scalable/apps/app.blankwell.BlankwellPlus.svg",
                   "/B.app/Contents/Resources/icons/app.blankwell.BlankwellPlus.svg"},
                  {"/h/data/man/man1/blankwell.1", "/B.app/Contents/Resources/man/blankwell.1"},
                  {"/h/data/bash-completion/completions/blankwell",
                   "/B.app/Contents/Resources/completions/blankwell.bash"},
                  {"/h/data/zsh/site-functions/_blankwell",
                   "/B.app/Contents/Resources/completions/_blankwell"},
                  {"/h/data/fish/vendor_completions.d/blankwell.fish",
                   "/B.app/Contents/Resources/completions/blankwell.fish"},
              }));
}

TEST(ApplicationRegistrationsTest, TheSchemeIsAnEntryInTheUsersList) {
    EXPECT_THAT(outlineFor("/B.app").entries,
                ElementsAre(RegisteredEntry{
                    FileUrl("/h/config/mimeapps.list"), "Default Applications",
                    "x-scheme-handler/blankwellplus", "app.blankwell.BlankwellPlus.desktop"}));
}

} // namespace
} // namespace blankwell
