#include "stdlist/level_common.h"

#include <cerrno>
#include <climits>
#include <cwchar>

namespace vx::stdlist {

const wchar_t* const INVALID_CHR = L"?";

std::uint64_t line_cycle_next(std::uint64_t index, int step, std::uint64_t length) {
  const std::int64_t len = static_cast<std::int64_t>(length);
  const std::int64_t idx = static_cast<std::int64_t>(index);
  const std::int64_t s = static_cast<std::int32_t>(static_cast<std::uint32_t>(idx + step));
  const std::int64_t min = (idx - 1) / len * len;
  const std::int64_t max = min + len;
  if (idx == min + 1 && step < 0) return static_cast<std::uint64_t>(s + len);
  if (idx == max && step >= 1) return static_cast<std::uint64_t>(s - len);
  std::int64_t v = s < 0 ? s + max : s;
  if (v == min) return static_cast<std::uint64_t>(max);
  if (v >= min && v <= max) return static_cast<std::uint64_t>(v);
  return static_cast<std::uint64_t>(min + v % len);
}

std::int64_t wrap_mod(std::int64_t value, std::int64_t modulus) {
  const std::int64_t r = value % modulus;
  return r < 0 ? r + modulus : r;
}

std::wstring number_text(std::uint64_t value) {
  wchar_t buf[32];
  std::swprintf(buf, sizeof buf / sizeof buf[0], L"%llu", static_cast<unsigned long long>(value));
  return buf;
}

std::wstring number_text_or_invalid(std::uint64_t value, bool in_range) {
  return in_range ? number_text(value) : std::wstring(INVALID_CHR);
}

bool parse_decimal(const wchar_t* text, std::int64_t& value) {
  if (!text) return false;
  errno = 0;
  wchar_t* end = nullptr;
  const long long v = std::wcstoll(text, &end, 10);
  if (end == text || errno != 0 || v < INT_MIN || v > INT_MAX) return false;
  value = v;
  return true;
}

}  // namespace vx::stdlist
