// The table of user-facing texts, in English and in Russian (Windows-1251), by block and index.
//
// Block 0 holds status words ("done", "user stop", "error", ...), block 10 the error messages of the file
// and memory layers, block 6 the labels of a projection description. The language is asked of the host
// through vx_res_get_lng once, at the first text: 0 selects Russian, anything else English.
#pragma once

#include <string>

// Rows of this build's block of generation messages (Tvx_rc::get_ext_str(EXT_GENERATE, row)).
enum Tvx_rc_generate {
  EXT_GENERATE = 0,
  GEN_NO_SHEET = 0,     // no designation
  GEN_SCALE = 1,        // "%s": the sheet's scale
  GEN_DIVISIONS = 2,    // "%d" x 4: longitude main and additional, latitude main and additional
  GEN_SHEET_LINES = 3,  // "%d" the limit, then the four divisions
  GEN_STEPS = 4,        // "%g" x 2: the steps
  GEN_BOX_UNSET = 5,    // no arguments
  GEN_BOX = 6,          // "%g" x 4: x minimum, x maximum, y minimum, y maximum
  GEN_BOX_LINES = 7,    // "%d" the limit, "%g" x 2 the steps
  GEN_STOPPED = 8,      // "%s": what stopped the run
};

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

  // Texts of this build beyond the numbered blocks, in blocks of their own, so that get_str and the
  // numbered blocks keep their numbers and sizes. Block 0 holds the refusals of generation parameters
  // (see EXT_GENERATE). Same language, buffer and "unknown str" as get_str.
  static const char* get_ext_str(int block, int index);
  static int ext_block_size(int block);

 private:
  // Copies the text, or "unknown str" for none, into the buffer and points to it.
  static const char* answer(const std::string* text);

  static int f_lang;
  static bool f_auto_lang_flag;
  static std::string f_buffer;
};
