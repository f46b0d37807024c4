#pragma once

#include "platform/Alert.h"

namespace blankwell {

/// A message box with one button. Enter, Escape and closing it all take note.
class QtAlert : public Alert {
public:
    void runModal(const AlertContent& content) override;
};

} // namespace blankwell
