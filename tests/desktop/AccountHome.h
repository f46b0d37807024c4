#pragma once

namespace blankwell {

/// Makes the thrown-away home of the private desktop the one of the account too, for this process
/// and what it starts from now on: files for the Desktop go there. Nobody else sees that. Throws
/// `std::system_error` where it cannot be done.
void moveAccountHome();

} // namespace blankwell
