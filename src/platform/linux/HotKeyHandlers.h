#pragma once

#include "platform/HotKeyService.h"

#include <cstdint>
#include <map>

namespace blankwell {

/// The handlers that are installed in a hot key service.
class HotKeyHandlers {
public:
    using Handler = HotKeyService::Handler;
    using Reference = HotKeyService::HandlerReference;

    Reference install(Handler handler);
    void remove(Reference handler);

    /// Tells the handlers that the hot key `id` was pressed. They may register and unregister hot
    /// keys, and install and remove handlers: one that is removed is not called any more.
    void call(EventHotKeyID id);

private:
    std::map<Reference, Handler> handlers_;
    std::uint64_t lastReference_ = 0;
};

} // namespace blankwell
