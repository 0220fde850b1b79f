// Questions put to PROJ directly about projection texts, without the library's own parser: what a text
// means spelled out in full, and whether two texts describe the same coordinate system.
//
// The texts go to PROJ as they stand, so they may be anything PROJ reads: PROJ strings, "EPSG:4326",
// WKT, PROJJSON, and the older "+init=epsg:4326". PROJ reads a PROJ string without "+type=crs" as an
// operation rather than a system, and two operations are the same only when their texts are.
//
// Each question runs in a PROJ context of its own, with PROJ's logging off (a text PROJ cannot read is
// an answer here, not a message on the host's stderr) and with the PROJ.4 rules for "+init=" on, which
// PROJ 9 otherwise refuses.
#pragma once

#include <string>

class Tvx_reproj_info {
 public:
  // The answer of compare: the same system, different ones, or a text that PROJ cannot read.
  enum class verdict { same, different, first_unreadable, second_unreadable };

  // A text holding "+init=" anywhere spelled out by expand_any; any other text as it is.
  static std::string expand_epsg(const std::string& text);
  // The PROJ.4 form of whatever the text describes, or the text itself when PROJ cannot read it or
  // has no PROJ.4 form for it.
  static std::string expand_any(const std::string& text);

  // True when PROJ reads both texts and finds them equivalent, geographic systems that differ only in
  // the order of their axes included. A text PROJ cannot read is equivalent to nothing, not even to
  // itself.
  static bool equivalent(const char* a, const char* b);
  // Wide texts are narrowed to UTF-8 first.
  static bool equivalent(const wchar_t* a, const wchar_t* b);

  // The same question, telling an unreadable text (the first found) from a different system.
  static verdict compare(const char* a, const char* b);
};
