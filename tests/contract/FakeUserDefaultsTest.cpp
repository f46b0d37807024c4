#include "contract/UserDefaultsContract.h"

#include "support/FakeUserDefaults.h"

namespace blankwell {
namespace {

struct FakeUserDefaultsWorld {
    UserDefaults& here() { return domain; }

    UserDefaults& there() { return domain; }

    void putForeign(const std::string& key) {
        domain.values.erase(key);
        domain.foreignKeys.insert(key);
    }

    FakeUserDefaults domain;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, UserDefaultsContract, FakeUserDefaultsWorld);

} // namespace
} // namespace blankwell
