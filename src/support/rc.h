// The table of user-facing texts, in English and in Russian (Windows-1251), by block and index.
//
// Block 0 holds status words ("done", "user stop", "error", ...), block 10 the error messages of the file
// and memory layers, block 6 the labels of a projection description. The language is asked of the host
// through vx_res_get_lng once, at the first text: 0 selects Russian, anything else English.
#pragma once

#include <string>

class Tvx_rc {
 public:
  // 1 selects Russian, any other value English.
  static void set_lang(int value);
  // The language texts are given in now: 1 Russian, anything else English.
  static int get_lang() { return f_lang; }
  // Asks vx_res_get_lng once and sets the language from it; later calls do nothing.
  static void get_auto_lang();
  // The text of the row in the chosen language, or "unknown str" for a block or index out of range.
  // The result points into a static buffer, valid until the next call.
  static const char* get_str(int block, int index);

  // Rows each block serves, for the tests and for callers that walk a block.
  static int block_size(int block);

 private:
  static int f_lang;
  static bool f_auto_lang_flag;
  static std::string f_buffer;
};
