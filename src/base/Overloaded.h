#pragma once

namespace blankwell {

/// One callable made of several, for `std::visit`.
template <typename... Callables>
struct Overloaded : Callables... {
    using Callables::operator()...;
};

} // namespace blankwell
