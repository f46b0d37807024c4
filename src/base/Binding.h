#pragma once

#include <functional>

namespace blankwell {

/// A value that is kept elsewhere, for a control that shows and changes it.
template <typename Value>
struct Binding {
    std::function<Value()> get;
    std::function<void(const Value&)> set;
};

} // namespace blankwell
