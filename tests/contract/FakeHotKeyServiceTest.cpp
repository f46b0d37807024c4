#include "support/FakeHotKeyService.h"
#include "contract/HotKeyServiceContract.h"

namespace blankwell {
namespace {

class FakeHotKeyWorld {
public:
    HotKeyService& service() { return service_; }

    void press(std::uint32_t keyCode, std::uint32_t carbonModifiers) {
        service_.press(keyCode, carbonModifiers);
    }

private:
    FakeHotKeyService service_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, HotKeyServiceContract, FakeHotKeyWorld);

} // namespace
} // namespace blankwell
