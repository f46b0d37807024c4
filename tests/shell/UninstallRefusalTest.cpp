#include "shell/UninstallRefusal.h"

#include <gmock/gmock.h>

namespace blankwell {
namespace {

using testing::HasSubstr;
using testing::Optional;
using testing::StartsWith;

const FileUrl bundle{"/opt/Blankwell+.app"};

TEST(UninstallRefusalTest, ABundleOfTheUsersOwnIsRemovedByItself) {
    EXPECT_EQ(removerElsewhere(InstallationForm::ownBundle, bundle), std::nullopt);
}

TEST(UninstallRefusalTest, OfEachOtherItIsSaidWhoRemovesIt) {
    using enum InstallationForm;
    EXPECT_THAT(removerElsewhere(package, bundle),
                Optional(HasSubstr("apt remove blankwell-plus")));
    EXPECT_THAT(removerElsewhere(foreignBundle, bundle),
                Optional(HasSubstr("Whoever installed it can remove it.")));
    EXPECT_THAT(removerElsewhere(sandbox, bundle), Optional(HasSubstr("software center")));
    EXPECT_THAT(removerElsewhere(looseProgram, FileUrl("/x/bin")),
                Optional(StartsWith(
                    "Blankwell+ is not running from an application bundle: /x/bin\nIt was not")));
}

} // namespace
} // namespace blankwell
