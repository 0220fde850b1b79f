// The 1:1,000,000 level, root of the series: band letter "A" to "V" (4 degrees each, counted from the
// equator in both hemispheres) and column number 1 to 60 (6 degrees each, column 1 at 180 degrees
// west). Every finer designation starts with these two.
#pragma once

#include <cstdint>
#include <string>

#include "stdlist/stdlist_string.h"

namespace vx::stdlist {

namespace helper_mln {

// "?" at position 0, the bands "A" to "V" at 1 to 22, and "Z", the polar cap, at 23. The legal range
// ends at 22, so no index reaches "Z".
extern const wchar_t* const ZONE_LETTERS;
constexpr std::uint64_t LETTER_COUNT = 22;
constexpr std::uint64_t NUMBER_COUNT = 60;
// The band that holds the polar circle ("Q").
constexpr std::uint64_t POLAR_LETTER_IDX = 17;

bool letter_in_range(std::uint64_t index);
bool number_in_range(std::uint64_t number);
bool in_range(std::uint64_t number);
bool in_range(std::uint64_t letter_idx, std::uint64_t number);
bool is_valid(const stdlist_string& sheet);
bool has_polar(std::uint64_t letter_idx);

wchar_t letter_by_idx(std::uint64_t index);
wchar_t letter_by_idx_cyclic(std::uint64_t index);
std::uint64_t letter_idx(wchar_t letter);
wchar_t get_letter(const stdlist_string& sheet);
bool set_letter(stdlist_string& sheet, wchar_t letter);

// The column number as text ("%llu"), "?" outside 1 to 60.
std::wstring number(std::uint64_t number);
// The column number of a text, INVALID_IDX unless it parses to 1 to 60.
std::uint64_t number(const std::wstring& text);

// Column advanced by an offset and wrapped round the globe.
std::uint64_t get_next_list_num(std::uint64_t number, int offset);
std::wstring get_next_list_num_str(std::uint64_t number, int offset);
// Column `step` sheets of `type` columns over; 0 wraps to 60.
std::uint64_t next_number(std::uint64_t number, int step, int type);
// Band one step north (+1) or south (-1). Letters count away from the equator in both hemispheres and
// the equator is never crossed: next to band "A" across it is "A" again. In the north "U" steps to "A".
std::uint64_t next_letter_idx(Tvx_stdlist_hemisphere hemisphere, std::uint64_t index, int step);
// Line-cycle rule with a row of 60 columns.
std::uint64_t next(std::uint64_t number, int step);

bool left_edge(std::uint64_t number);
bool right_edge(std::uint64_t number);
std::uint64_t line(std::uint64_t number);
std::uint64_t line_min(std::uint64_t number);
std::uint64_t line_max(std::uint64_t number);

// Appends letter, "-", number; each "?" when out of range.
void mln_part_str(const stdlist_string& sheet, std::wstring& out);
// Appends letter and "-", then at scale 1:1,000,000 the list of joined columns. The third argument
// is kept for the older designation routine and not used.
void fill_str(const stdlist_string& sheet, std::wstring& out, int unused = 0);

// Designation of the sheet one band north or south, of the same type; "?" for an invalid sheet.
std::wstring upper_list_string(const stdlist_string& sheet);
std::wstring lower_list_string(const stdlist_string& sheet);

// Appends `value` ("%d"), 0 counting as 1, raised by one when it equals the digit that stands
// second to last in `out`.
void append_incremented_with_zero_check(int value, std::wstring& out);

}  // namespace helper_mln

// The record's column as text, as helper_mln::number.
std::wstring get_number(const stdlist_string& sheet);
// Parses the column and stores it, or INVALID_IDX when the text is not a column.
bool set_number(stdlist_string& sheet, const wchar_t* text);
// Appends the columns of a joined sheet from position `index` on: "37", "37,38", "59,60,1,2".
void recursive(std::uint64_t number, int index, int type, std::wstring& out);

}  // namespace vx::stdlist
