#pragma once

#include "platform/BundleStore.h"

#include <gtest/gtest.h>

namespace blankwell {

/// What every `BundleStore` does. `World` has `store()`, the port under test, `at(name)`, a place,
/// `addBundle(url)`, which puts a bundle of this application there, `addStranger(url)`, which puts
/// something else there, and `move(from, to)`.
template <typename World>
struct BundleStoreContract : testing::Test {
    BundleStoreContract() { world.addBundle(bundle); }

    World world;
    FileUrl bundle = world.at("from/B.app");
    FileUrl folder = world.at("to");
    FileUrl place = world.at("to/B.app");
};

TYPED_TEST_SUITE_P(BundleStoreContract);

TYPED_TEST_P(BundleStoreContract, KnowsWhereABundleOfThisApplicationStands) {
    auto& store = this->world.store();
    EXPECT_TRUE(store.stands(this->bundle));
    EXPECT_FALSE(store.stands(this->place));
    this->world.addStranger(this->place);
    EXPECT_FALSE(store.stands(this->place));
}

TYPED_TEST_P(BundleStoreContract, ACopyHasTheSameNameAndIsAnotherBundle) {
    auto& store = this->world.store();
    EXPECT_EQ(store.copyInto(this->folder, this->bundle), this->place);
    EXPECT_TRUE(store.stands(this->place));
    EXPECT_TRUE(store.stands(this->bundle));
    EXPECT_NE(store.identity(this->place), store.identity(this->bundle));
}

TYPED_TEST_P(BundleStoreContract, ABundleOfOursThatStandsThereIsExchanged) {
    auto& store = this->world.store();
    this->world.addBundle(this->place);
    const auto before = store.identity(this->place);
    EXPECT_EQ(store.copyInto(this->folder, this->bundle), this->place);
    EXPECT_TRUE(store.stands(this->place));
    EXPECT_NE(store.identity(this->place), before);
}

TYPED_TEST_P(BundleStoreContract, SomethingElseThereIsAnErrorAndStays) {
    this->world.addStranger(this->place);
    const auto copied = this->world.store().copyInto(this->folder, this->bundle);
    ASSERT_FALSE(copied);
    EXPECT_NE(copied.error().description, "");
    EXPECT_FALSE(this->world.store().stands(this->place));
}

TYPED_TEST_P(BundleStoreContract, ABundleThatStandsThereItselfIsLeftAlone) {
    auto& store = this->world.store();
    const auto before = store.identity(this->bundle);
    EXPECT_EQ(store.copyInto(this->world.at("from"), this->bundle), this->bundle);
    EXPECT_EQ(store.identity(this->bundle), before);
}

TYPED_TEST_P(BundleStoreContract, ABundleIsNotCopiedIntoItself) {
    auto& store = this->world.store();
    EXPECT_FALSE(store.copyInto(this->bundle.appending("Contents"), this->bundle));
    EXPECT_FALSE(store.stands(this->bundle.appending("Contents/B.app")));
}

TYPED_TEST_P(BundleStoreContract, AnIdentityStaysThroughAMove) {
    auto& store = this->world.store();
    const auto identity = store.identity(this->bundle);
    ASSERT_TRUE(identity);
    this->world.move(this->bundle, this->place);
    EXPECT_EQ(store.identity(this->place), identity);
    EXPECT_EQ(store.identity(this->bundle), std::nullopt);
}

REGISTER_TYPED_TEST_SUITE_P(BundleStoreContract, KnowsWhereABundleOfThisApplicationStands,
                            ACopyHasTheSameNameAndIsAnotherBundle,
                            ABundleOfOursThatStandsThereIsExchanged,
                            SomethingElseThereIsAnErrorAndStays,
                            ABundleThatStandsThereItselfIsLeftAlone, ABundleIsNotCopiedIntoItself,
                            AnIdentityStaysThroughAMove);

} // namespace blankwell
