#pragma once

#include <string>
#include <string_view>

namespace blankwell {

/// `text` as the value of a key of a desktop entry: backslashes, line feeds and the like as escape
/// sequences.
[[nodiscard]] std::string desktopEntryValue(std::string_view text);

/// `word` as one quoted word of a desktop entry's command, whatever it holds. It is no value yet:
/// give the whole command to `desktopEntryValue`.
[[nodiscard]] std::string desktopEntryWord(std::string_view word);

/// `text` with `%` doubled, for commands in which it begins a field code.
[[nodiscard]] std::string withoutFieldCodes(std::string_view text);

/// `word` as one quoted word of a shell command, whatever it holds.
[[nodiscard]] std::string shellWord(std::string_view word);

/// `bytes` as a bytes literal of Python.
[[nodiscard]] std::string pythonBytes(std::string_view bytes);

} // namespace blankwell
