// Texts from outside (projection strings, paths, arguments) quoted in a message. Such a text can be
// long (a projection string of 100 KB) and can hold control characters that would garble a terminal or
// a log line, so it is shown in a form that is safe to print.
#pragma once

#include <cstddef>
#include <string>

namespace vx::text {

// The text with every control character (below 0x20, and 0x7F) replaced by '?'; a text of more than
// max_bytes is cut there (never inside a UTF-8 sequence) and ends in "... (N bytes)".
std::string echo(const std::string& text, std::size_t max_bytes = 160);

}  // namespace vx::text
