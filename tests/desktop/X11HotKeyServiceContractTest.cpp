#include "contract/HotKeyServiceContract.h"
#include "desktop/PrivateDisplay.h"
#include "desktop/TestKeyboard.h"
#include "platform/linux/X11HotKeyService.h"

namespace blankwell {
namespace {

class X11HotKeyWorld {
public:
    HotKeyService& service() { return service_; }

    void press(std::uint32_t keyCode, std::uint32_t carbonModifiers) {
        keyboard_.hit(keyCode, carbonModifiers);
        service_.processEvents();
    }

private:
    PrivateDisplay display_;
    TestKeyboard keyboard_;
    X11HotKeyService service_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(X11, HotKeyServiceContract, X11HotKeyWorld);

} // namespace
} // namespace blankwell
