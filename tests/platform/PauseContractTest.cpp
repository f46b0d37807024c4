#include "contract/PauseContract.h"
#include "support/FakePause.h"

#include <optional>
#include <utility>

namespace blankwell {
namespace {

class FakePauseWorld {
public:
    Pause& pause() { return *pause_; }

    void end() { pause_.reset(); }

    void letTimePass() {
        while (pause_ && pause_->elapse()) {
        }
    }

private:
    std::optional<FakePause> pause_{std::in_place};
};

INSTANTIATE_TYPED_TEST_SUITE_P(Double, PauseContract, FakePauseWorld);

} // namespace
} // namespace blankwell
