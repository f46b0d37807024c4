#include "views/ExtensionStatusModel.h"

#include "platform/Workspace.h"

#include <gmock/gmock.h>

namespace blankwell {
namespace {

using testing::ElementsAre;

/// A desktop that opens the URLs that a test names.
struct ScriptedWorkspace : Workspace {
    void reveal(const FileUrl& /*url*/) override { ADD_FAILURE() << "nothing is to be shown"; }

    bool open(std::string_view url) override {
        asked.emplace_back(url);
        return url == openable;
    }

    std::vector<std::string> asked;
    std::string openable;
};

constexpr auto* first = "x-apple.systempreferences:com.apple.ExtensionsPreferences";
constexpr auto* second = "x-apple.systempreferences:com.apple.preferences.extensions";

struct ExtensionStatusModelTest : testing::Test {
    ScriptedWorkspace workspace;
    ExtensionStatusModel model{workspace};
};

TEST_F(ExtensionStatusModelTest, TheCardHasTheseTexts) {
    EXPECT_EQ(extensionStatusCard,
              (CardTexts{"puzzlepiece.extension.fill", ColorRole::accent, "Finder Extension",
                         "Enable the Blankwell+ Finder extension for Finder context menus where "
                         "macOS allows them.",
                         "Open Extension Settings"}));
}

TEST_F(ExtensionStatusModelTest, OpensTheSettingsOfExtensions) {
    workspace.openable = first;
    model.openExtensionSettings();
    EXPECT_THAT(workspace.asked, ElementsAre(first));
}

TEST_F(ExtensionStatusModelTest, WhereTheyDoNotOpenTheirOtherPlaceIsTried) {
    workspace.openable = second;
    model.openExtensionSettings();
    EXPECT_THAT(workspace.asked, ElementsAre(first, second));
}

TEST_F(ExtensionStatusModelTest, WhereNeitherOpensThatIsAll) {
    model.openExtensionSettings();
    EXPECT_THAT(workspace.asked, ElementsAre(first, second));
}

} // namespace
} // namespace blankwell
