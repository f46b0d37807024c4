#pragma once

#include "platform/Bundle.h"

#include <gtest/gtest.h>

namespace blankwell {

/// What every `Bundle` does. `Subject` has `const Bundle& bundle()`, with the resource `blank.docx`
/// and the Info.plist entries "CFBundleName" = "Blankwell+" and "Empty" = "".
template <typename Subject>
struct BundleContract : testing::Test {
    Subject subject;
};

TYPED_TEST_SUITE_P(BundleContract);

TYPED_TEST_P(BundleContract, AResourceIsFoundByNameAndExtension) {
    const auto found = this->subject.bundle().resource("blank", "docx");
    ASSERT_TRUE(found);
    EXPECT_EQ(found->lastPathComponent(), "blank.docx");
    EXPECT_EQ(this->subject.bundle().resource("blank", "doc"), std::nullopt);
    EXPECT_EQ(this->subject.bundle().resource("", "docx"), std::nullopt);
}

TYPED_TEST_P(BundleContract, AnEntryOfTheInfoPropertyListIsFoundByItsKey) {
    EXPECT_EQ(this->subject.bundle().infoString("CFBundleName"), "Blankwell+");
    EXPECT_EQ(this->subject.bundle().infoString("Empty"), "");
    EXPECT_EQ(this->subject.bundle().infoString("CFBundle"), std::nullopt);
}

REGISTER_TYPED_TEST_SUITE_P(BundleContract, AResourceIsFoundByNameAndExtension,
                            AnEntryOfTheInfoPropertyListIsFoundByItsKey);

} // namespace blankwell
