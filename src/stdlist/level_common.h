// What every level of the sheet series shares: the marks for "no such value", the line-cycle rule by
// which a position moves along its row, and the number texts that designations are made of.
#pragma once

#include <cstdint>
#include <string>

namespace vx::stdlist {

// Level values are one-based; index 0 and the text "?" stand for "no such value".
constexpr std::uint64_t INVALID_IDX = 0;
extern const wchar_t* const INVALID_CHR;
constexpr wchar_t INVALID_WCHAR = L'?';

// Moves a position of a row-major grid with rows of `length` along its own row, wrapping inside the
// row and never into the next one. The caller range-tests `index` first.
std::uint64_t line_cycle_next(std::uint64_t index, int step, std::uint64_t length);

// Remainder that is never negative, for wrapping counts that may have gone below zero.
std::int64_t wrap_mod(std::int64_t value, std::int64_t modulus);

// A number as the designation writes it ("%llu"), or "?" when `in_range` is false.
std::wstring number_text(std::uint64_t value);
std::wstring number_text_or_invalid(std::uint64_t value, bool in_range);

// Parses a base-10 number the way the level setters do. Returns false when the text is null, holds no
// digits, or the value does not fit a 32-bit integer; otherwise `value` is set (it may be negative).
bool parse_decimal(const wchar_t* text, std::int64_t& value);

}  // namespace vx::stdlist
