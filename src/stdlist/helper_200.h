// The 1:200,000 level: 6 by 6 sheets in a million sheet, numbered "I" to "XXXVI" row by row from the
// north-west. It is the finest level that is drawn, and the only one whose neighbours are computed.
#pragma once

#include <cstdint>
#include <string>

#include "stdlist/stdlist_string.h"

namespace vx::stdlist {

namespace helper_200 {

constexpr std::uint64_t COUNT = 36;
constexpr std::uint64_t ROW = 6;

bool in_range(std::uint64_t index);
bool is_valid(const stdlist_string& sheet);
// The row with the polar circle: 13 to 18.
bool has_polar(std::uint64_t index);

// The numeral, "?" outside 1 to 36.
std::wstring string(std::uint64_t index);
std::wstring letter_by_idx(std::uint64_t index);
// "?" for 0, otherwise the numeral at (index - 1) mod 36 + 1.
std::wstring letter_by_idx_cyclic(std::uint64_t index);
// Exact search over the 36 numerals; INVALID_IDX when none matches.
std::uint64_t index(const std::wstring& text);

bool roman_left_edge(std::uint64_t index);
bool roman_right_edge(std::uint64_t index);
bool roman_up_edge(std::uint64_t index);
bool roman_down_edge(std::uint64_t index);
// One column or row over, wrapping inside the million sheet; INVALID_IDX when the result is out of range.
std::uint64_t get_left_roman_idx(std::uint64_t index);
std::uint64_t get_right_roman_idx(std::uint64_t index);
std::uint64_t get_up_roman_idx(std::uint64_t index);
std::uint64_t get_down_roman_idx(std::uint64_t index);

std::uint64_t line(std::uint64_t index);
std::uint64_t line_min(std::uint64_t index);
std::uint64_t line_max(std::uint64_t index);

// Line-cycle rule with rows of 6.
std::uint64_t next_list_idx(std::uint64_t index, int step);
// The line-cycle step applied `type` times: with a step of 1 or -1, `type` columns along the row.
std::uint64_t next(std::uint64_t index, int step, int type);
// `step` rows north (south for a negative step), wrapping over the million sheet.
std::uint64_t next(std::uint64_t index, int step);
std::uint64_t upper(std::uint64_t index);
std::uint64_t lower(std::uint64_t index);

// Designations of the four neighbours of a sheet of `type` joined sheets.
std::wstring get_left_list_str(Tvx_stdlist_hemisphere hemisphere, std::uint64_t letter, std::uint64_t number,
                               std::uint64_t index, Tvx_stdlist_type type);
std::wstring get_right_list_str(Tvx_stdlist_hemisphere hemisphere, std::uint64_t letter, std::uint64_t number,
                                std::uint64_t index, Tvx_stdlist_type type);
std::wstring get_upper_list_str(Tvx_stdlist_hemisphere hemisphere, std::uint64_t letter, std::uint64_t number,
                                std::uint64_t index, Tvx_stdlist_type type);
std::wstring get_lower_list_str(Tvx_stdlist_hemisphere hemisphere, std::uint64_t letter, std::uint64_t number,
                                std::uint64_t index, Tvx_stdlist_type type);
// Fills left, right, upper and lower in that order; true when none of them is empty.
bool get_neighbor_list_str(Tvx_stdlist_hemisphere hemisphere, std::uint64_t letter, std::uint64_t number,
                           std::uint64_t index, std::wstring& left, std::wstring& right, std::wstring& upper,
                           std::wstring& lower, Tvx_stdlist_type type);
bool all_filled(const std::wstring& left, const std::wstring& right, const std::wstring& upper,
                const std::wstring& lower);

// Million sheet ("letter-number") of the neighbour above or below; no hemisphere rule.
std::wstring get_up_list_num_str(std::uint64_t letter, std::uint64_t number, std::uint64_t index);
std::wstring get_down_list_num_str(std::uint64_t letter, std::uint64_t number, std::uint64_t index);

// The designation at 1:200,000: "N-37-V,VI", "N-37-VI,38-I"; nothing at another scale.
void fill_str(const stdlist_string& sheet, std::wstring& out);
// Appends the numerals of a joined sheet from `step` on; `previous` is the sheet before.
void recursive(std::uint64_t number, std::uint64_t index, std::uint64_t previous, int step, int type,
               std::wstring& out);
// Older form of fill_str: expects the caller to have written letter and number, keeps its counter in a
// static, and so is not re-entrant.
void fill_str_old(const stdlist_string& sheet, std::wstring& out);

}  // namespace helper_200

// The last Roman index of a designation such as "N-37-VI,38-I". Throws std::out_of_range for a text
// of fewer than three fields. A one-digit column is not provided for: "N-7-VI,8-I" reads as "VII".
std::uint64_t parse_out_last_roman(const std::wstring& text);

}  // namespace vx::stdlist
