// The 1:100,000 level: 12 by 12 sheets in a million sheet, numbered 1 to 144 row by row from the
// north-west.
#pragma once

#include <cstdint>
#include <string>

#include "stdlist/stdlist_string.h"

namespace vx::stdlist::helper_100 {

constexpr std::uint64_t COUNT = 144;
constexpr std::uint64_t ROW = 12;

bool in_range(std::uint64_t number);
bool is_valid(const stdlist_string& sheet);
bool left_edge(std::uint64_t number);
bool right_edge(std::uint64_t number);
std::uint64_t line(std::uint64_t number);
std::uint64_t line_min(std::uint64_t number);
std::uint64_t line_max(std::uint64_t number);
// Line-cycle rule with rows of 12.
std::uint64_t next(std::uint64_t number, int step);

// Number of a text, INVALID_IDX unless it parses to 1 to 144.
std::uint64_t int_by_str(const wchar_t* text);
// "%llu", "?" outside 1 to 144.
std::wstring str_by_int(std::uint64_t number);
std::wstring get(const stdlist_string& sheet);
// Stores the parsed number only when it is in range; otherwise nothing changes.
void set(stdlist_string& sheet, const wchar_t* text);

// Whether a sheet of `type` can start at `number` without running past the east edge.
bool supports_type(std::uint64_t number, Tvx_stdlist_type type);

// The designation at 1:100,000: "N-37-12,38-1"; nothing at another scale.
void fill_str(const stdlist_string& sheet, std::wstring& out);
void recursive(std::uint64_t number, std::uint64_t index, std::uint64_t previous, int step, int type,
               std::wstring& out);
// Letter and "-", the next column and "-" after an east-edge number, then the number `offset` along
// the row; "?" when the number or the million part is bad. Used by the older designation routine.
std::wstring str(const stdlist_string& sheet, int offset);
// The older routine's text at 1:100,000: "-", the number, and for a double or quadruple str() of the
// later sheets.
void output_str(const stdlist_string& sheet, std::wstring& out);

}  // namespace vx::stdlist::helper_100
