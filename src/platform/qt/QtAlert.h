#pragma once

#include "platform/Alert.h"

namespace blankwell {

/// A message box. Enter presses the button that has the keyboard, the first one to begin with.
class QtAlert : public Alert {
public:
    std::size_t runModal(const AlertContent& content) override;
};

} // namespace blankwell
