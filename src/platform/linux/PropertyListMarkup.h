#pragma once

#include <string_view>

namespace blankwell {

/// The part of the XML property list `document` that may be given to libplist's parser, borrowed:
/// from its root element on. Empty if the parser could not take it.
///
/// libplist 2.2 frees and writes a tree by recursion, also the half tree of a document that it
/// refuses: some 100,000 nested arrays end the process. So a document that nests containers deeper
/// than 64, or whose markup is not plain enough to count them surely, is refused here. The
/// declaration and document type are left out: entities can be defined nowhere else.
[[nodiscard]] std::string_view parsableRoot(std::string_view document);

} // namespace blankwell
