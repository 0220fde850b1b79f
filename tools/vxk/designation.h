// Sheet designations on the command line: reading them into a record, printing a record back, where a
// sheet lies, and the small owners of library handles that the commands share.
#pragma once

#include <string>
#include <vector>

#include "command.h"
#include "rows_sink.h"
#include "vxk_proj4_shp.h"

namespace vxk {

std::string u8(const std::wstring& text);

// A record owned for the length of a command, or of a list of sheets.
class sheet_record {
 public:
  sheet_record() : p_(vx_stdlist_create()) {}
  explicit sheet_record(const Tvx_stdlist_string* copy) : sheet_record() { vx_stdlist_assign(p_, copy); }
  ~sheet_record() { vx_stdlist_destroy(p_); }
  sheet_record(sheet_record&& other) noexcept : p_(other.p_) { other.p_ = nullptr; }
  sheet_record& operator=(sheet_record&&) = delete;
  sheet_record(const sheet_record&) = delete;
  sheet_record& operator=(const sheet_record&) = delete;
  Tvx_stdlist_string* get() const { return p_; }

 private:
  Tvx_stdlist_string* p_;
};

// The designation the library prints for the record.
std::wstring designation_of(const Tvx_stdlist_string* sheet);

// The designation a map maker writes. It is the library's, except at 1:10,000, where the library leaves
// out the band and column ("-4-А-а-1"): here they stand in front ("N-37-4-А-а-1").
std::wstring full_designation_of(const Tvx_stdlist_string* sheet);

// A designation read forgivingly, as every command takes one, and as the library prints it, joined
// sheets included ("N-37-VI,38-I" is a double sheet):
//   - blanks around the text and around its "-" and "," are dropped; a blank between two parts stands
//     for "-" ("N 37 VI"); dashes of other kinds ("–", "−") are hyphens;
//   - case does not matter;
//   - letters that look and read alike in the Latin and Cyrillic alphabets stand for each other (the
//     band "М" is "M", the numeral "Х" is "X", the 1:500,000 letter "A" is "А"). Letters that look alike
//     but read differently (Cyrillic "Н", "Р", "В", "С" as a band; Latin "B", "H", "P", "C" where a
//     Cyrillic letter stands) are refused with both readings, since which one is meant cannot be told.
// `type` 0 takes the type from the text: a single sheet, or as many as the commas join. Fills and places
// the record in its hemisphere; throws failure when the text names no sheet, or not the joined sheet
// that the library prints, and usage_error when `type` and the text disagree.
void read_printed_designation(const std::string& utf8, bool south, Tvx_stdlist_string* sheet,
                              Tvx_stdlist_type type = 0);

// The box of a valid sheet in degrees of Pulkovo 1942, as the library lays it out, its edges on the
// whole 75 seconds where the series puts them.
struct sheet_box {
  double west, east, south, north;
};
sheet_box box_of(const Tvx_stdlist_string* sheet);

// The single sheets of a finer scale that lie in the sheet, row by row from the corner where its
// numbering starts (north-west in the north, south-west in the south, where rows count from the south
// edge). Throws failure for a scale that is not finer than the sheet's.
std::vector<sheet_record> children_of(const Tvx_stdlist_string* sheet, Tvx_stdlist_scale scale);

// A scale as people write it: "1:200000", "1:200 000", "1:200,000" or "200000". Throws usage_error.
Tvx_stdlist_scale scale_of(const std::string& text);

}  // namespace vxk
