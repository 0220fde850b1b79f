#include "support/echo.h"

namespace vx::text {

std::string echo(const std::string& text, std::size_t max_bytes) {
  std::size_t cut = text.size();
  if (cut > max_bytes) {
    cut = max_bytes;
    while (cut > 0 && (static_cast<unsigned char>(text[cut]) & 0xC0) == 0x80) --cut;
  }
  std::string out = text.substr(0, cut);
  for (char& c : out) {
    const auto u = static_cast<unsigned char>(c);
    if (u < 0x20 || u == 0x7F) c = '?';
  }
  if (cut < text.size()) out += "... (" + std::to_string(text.size()) + " bytes)";
  return out;
}

}  // namespace vx::text
