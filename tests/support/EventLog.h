#pragma once

#include <string>
#include <vector>

namespace blankwell {

/// What several doubles were asked to do, in one order.
using EventLog = std::vector<std::string>;

} // namespace blankwell
