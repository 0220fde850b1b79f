// Hostile PROJ strings through the parser: every operation must survive any text, and a text that has
// been composed once must come back the same from a second parse and compose. The same texts go through
// the description, the GDAL form and the lookup in the catalogue of projections.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "proj4/pj_catalogue.h"
#include "proj4/proj4_str.h"
#include "proj4/proj4_str_correct.h"

namespace {

std::string composed(const std::string& text, bool for_proj4) {
  Tvx_proj4_str s;
  s.set(text.c_str());
  s.decompose();
  if (for_proj4)
    s.compose_for_proj4();
  else
    s.compose();
  return s.get();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  // The parser takes zero-terminated text: an embedded zero ends it.
  const std::string text(reinterpret_cast<const char*>(data), size);
  const std::string c_text(text.c_str());

  Tvx_proj4_str s, t;
  s.set(c_text.c_str());
  s.decompose();
  s.is_sphere();
  s.is_valid();
  s.get_is_long_lat();
  t.set(s.get());
  t.decompose();
  s.equal(&t);
  t.get_text();
  vx::proj4::find_definition(vx::proj4::catalogue(), t);
  Tvx_proj4_str_correct::patch_proj4_for_gdal(c_text.c_str());
  s.set_is_long_lat();
  s.compose();

  // A number of 1e12 or more is written with an exponent such as "e+12", and the plus sign of the
  // exponent splits the text on the next parse: only texts without one must be stable.
  const std::string once = composed(c_text, false);
  if (once.find("e+") == std::string::npos && composed(once, false) != once) std::abort();
  composed(c_text, true);
  return 0;
}
