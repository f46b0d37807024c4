#pragma once

#include <fstream>
#include <sstream>
#include <string>

namespace blankwell {

/// The bytes of the file at `path`; empty if there is none.
inline std::string contentsOf(const std::string& path) {
    std::ostringstream contents;
    contents << std::ifstream(path, std::ios::binary).rdbuf();
    return contents.str();
}

} // namespace blankwell
