// Narrow text helpers and a plain list of narrow strings.
//
// Texts are in the system's narrow code page. Functions that return text return a pointer into one
// shared static buffer, valid until the next call of any function of Tvx_str_func.
#pragma once

#include <string>
#include <vector>

class Tvx_str_vec;

class Tvx_str_func {
 public:
  // Copy of the text without leading and trailing blanks, carriage returns, tabs and new lines.
  static const char* trim(const char* text);

  // Scan by "%d" / "%lg": true when one item was read; the value is left alone otherwise.
  static bool str2int(const char* text, int& value);
  static bool str2dbl(const char* text, double& value);

  static const char* int2str(int value);     // "%d"
  static const char* dbl2str(double value);  // "%g"
  static const char* int2str_format(int value, const char* format);
  static const char* dbl2str_format(double value, const char* format);

  // Compares the trimmed texts without regard to case (ASCII and Cyrillic). Both null give 0, a null
  // first text -1, a null second text 1.
  static int trim_stricmp(const char* a, const char* b);

  // Splits the text at every character of `separators`; empty tokens are kept. Always true.
  static bool divide(const char* text, const char* separators, Tvx_str_vec* list);

 private:
  static const char* keep(std::string text);
  static std::string f_buffer;
};

class Tvx_str_vec {
 public:
  void clear();
  void assign(const Tvx_str_vec& other);
  unsigned get_size() const;
  void set_size(unsigned count);
  void set(unsigned index, const char* text);  // ignored past the end
  void add(const char* text);
  // Copies the item into the scratch string and returns its characters ("" past the end).
  const char* get(unsigned index);

 private:
  std::string f_scratch;
  std::vector<std::string> f_items;
};
