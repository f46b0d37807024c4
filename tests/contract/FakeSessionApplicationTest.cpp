#include "support/FakeSessionApplication.h"
#include "contract/SessionApplicationContract.h"

namespace blankwell {
namespace {

struct FakeSession {
    FakeSession() {
        application.failWith = {HandOverFailure::Request::notTaken, "It does not run."};
    }

    void run() { application.failWith.reset(); }

    void hang() {
        application.failWith = {HandOverFailure::Request::unknown, "It does not answer."};
    }

    [[nodiscard]] std::vector<std::string> received() const { return application.taken; }

    FakeSessionApplication application;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, SessionApplicationContract, FakeSession);

} // namespace
} // namespace blankwell
