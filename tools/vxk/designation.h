// Sheet designations on the command line: reading them into a record, printing a record back, and the
// small owners of library handles that the commands share.
#pragma once

#include <string>
#include <vector>

#include "rows_sink.h"
#include "vxk_proj4_shp.h"

namespace vxk {

// What went wrong, for the message on stderr.
struct failure {
  std::string message;
};

void fail_if(bool bad, const std::string& message);
std::string u8(const std::wstring& text);

// A record owned for the length of a command.
class sheet_record {
 public:
  sheet_record() : p_(vx_stdlist_create()) {}
  ~sheet_record() { vx_stdlist_destroy(p_); }
  sheet_record(const sheet_record&) = delete;
  sheet_record& operator=(const sheet_record&) = delete;
  Tvx_stdlist_string* get() const { return p_; }

 private:
  Tvx_stdlist_string* p_;
};

// The designation the library prints for the record.
std::wstring designation_of(const Tvx_stdlist_string* sheet);

// Fills the record's levels from the designation of one sheet, such as "N-37-12-Б-в-4", exactly as
// written; gives the scale. Throws failure with the reason.
Tvx_stdlist_scale parse_designation(const std::wstring& text, Tvx_stdlist_string* sheet);

// Puts the parsed sheet at its scale, type and hemisphere; throws failure for a type the scale does not
// have, or a sheet that is not valid.
void place_sheet(Tvx_stdlist_string* sheet, Tvx_stdlist_scale scale, Tvx_stdlist_type type, bool south);

// A designation as the library prints it, joined sheets included ("N-37-VI,38-I" is a double sheet),
// read forgivingly: blanks around it, any case, and letters that look alike in the Latin and Cyrillic
// alphabets (the band "Н" is read as "H", the 1:500,000 letter "A" as "А", the numeral "Х" as "X").
// Fills and places the record; throws failure when the text names no sheet, or not the joined sheet
// that the library would print.
void read_printed_designation(const std::string& utf8, bool south, Tvx_stdlist_string* sheet);

}  // namespace vxk
