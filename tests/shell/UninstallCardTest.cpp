#include "shell/UninstallCard.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

TEST(UninstallCardTest, HasTheseTexts) {
    EXPECT_EQ(uninstallCard,
              (CardTexts{"trash", ColorRole::red, "Uninstall Blankwell+",
                         "Move the app to the Trash, remove saved settings, and restart Finder so "
                         "the Finder extension is unloaded.",
                         "Uninstall..."}));
}

} // namespace
} // namespace blankwell
