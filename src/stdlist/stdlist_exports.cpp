// The flat functions of the sheet designation record. Each one forwards to the record or a level of
// the series; lists leave through the caller's string sink, one feed per row.
#include <cstdint>
#include <new>
#include <string>

#include "stdlist/helper_10.h"
#include "stdlist/helper_100.h"
#include "stdlist/helper_200.h"
#include "stdlist/helper_25.h"
#include "stdlist/helper_50.h"
#include "stdlist/helper_500.h"
#include "stdlist/helper_mln.h"
#include "stdlist/level_common.h"
#include "stdlist/stdlist_string.h"
#include "stdlist/traits.h"
#include "vxk_proj4_shp.h"

namespace {

using vx::stdlist::stdlist_string;
namespace sl = vx::stdlist;

stdlist_string& rec(Tvx_stdlist_string* handle) {
  return handle->sheet;
}
const stdlist_string& rec(const Tvx_stdlist_string* handle) {
  return handle->sheet;
}

void feed(Ivx_string_adp* sink, const std::wstring& text) {
  vx_string_adp_feed(sink, text.c_str());
}

void feed_numbers(Ivx_string_adp* sink, std::uint64_t count) {
  for (std::uint64_t n = 1; n <= count; ++n) feed(sink, sl::number_text(n));
}

// Feeds one row per character of a letter table, skipping the invalid mark at position 0.
void feed_letters(Ivx_string_adp* sink, const wchar_t* table, std::uint64_t count) {
  for (std::uint64_t i = 1; i <= count; ++i) feed(sink, std::wstring(1, table[i]));
}

}  // namespace

extern "C" {

VX_API void vx_stdlist_fetch_hemispheres(Ivx_string_adp* sink) {
  feed(sink, L"N");
  feed(sink, L"S");
}

VX_API void vx_stdlist_fetch_scales(Ivx_string_adp* sink) {
  feed(sink, L"");
  for (Tvx_stdlist_scale s = VX_STDLIST_SC_MLN; s <= VX_STDLIST_SC_10; ++s) {
    if (const wchar_t* text = sl::traits::listed_scale_text(s)) feed(sink, text);
  }
}

VX_API void vx_stdlist_fetch_scale_str(Tvx_stdlist_scale scale, Ivx_string_adp* sink) {
  if (const wchar_t* text = sl::traits::listed_scale_text(scale)) feed(sink, text);
}

VX_API void vx_stdlist_fetch_types(Ivx_string_adp* sink) {
  for (Tvx_stdlist_type t = VX_STDLIST_TP_SGL; t <= VX_STDLIST_TP_QRP; ++t) {
    feed(sink, sl::traits::type_text(t));
  }
}

VX_API void vx_stdlist_fetch_mln_letters(Ivx_string_adp* sink) {
  feed_letters(sink, sl::helper_mln::ZONE_LETTERS, sl::helper_mln::LETTER_COUNT);
}

VX_API void vx_stdlist_fetch_mln_numbers(Ivx_string_adp* sink) {
  feed_numbers(sink, sl::helper_mln::NUMBER_COUNT);
}

VX_API void vx_stdlist_fetch_500_letters(Ivx_string_adp* sink) {
  feed_letters(sink, sl::helper_500::LETTERS, sl::helper_500::COUNT);
}

VX_API void vx_stdlist_fetch_200_romans(Ivx_string_adp* sink) {
  for (std::uint64_t i = 1; i <= sl::helper_200::COUNT; ++i) feed(sink, sl::helper_200::string(i));
}

VX_API void vx_stdlist_fetch_100_numbers(Ivx_string_adp* sink) {
  feed_numbers(sink, sl::helper_100::COUNT);
}

VX_API void vx_stdlist_fetch_50_letters(Ivx_string_adp* sink) {
  feed_letters(sink, sl::helper_50::LETTERS, sl::helper_50::COUNT);
}

VX_API void vx_stdlist_fetch_25_letters(Ivx_string_adp* sink) {
  feed_letters(sink, sl::helper_25::LETTERS, sl::helper_25::COUNT);
}

VX_API void vx_stdlist_fetch_10_numbers(Ivx_string_adp* sink) {
  feed_numbers(sink, sl::helper_10::COUNT);
}

VX_API Tvx_stdlist_string* vx_stdlist_create(void) {
  return new (std::nothrow) Tvx_stdlist_string{};
}

VX_API void vx_stdlist_destroy(Tvx_stdlist_string* sheet) {
  delete sheet;
}

VX_API void vx_stdlist_assign(Tvx_stdlist_string* destination, const Tvx_stdlist_string* source) {
  rec(destination) = rec(source);
}

VX_API bool vx_stdlist_equal(const Tvx_stdlist_string* a, const Tvx_stdlist_string* b) {
  return rec(a) == rec(b);
}

VX_API bool vx_stdlist_valid(const Tvx_stdlist_string* sheet) {
  return rec(sheet).is_valid();
}

VX_API void vx_stdlist_init_default(Tvx_stdlist_string* sheet) {
  rec(sheet).init_default();
}

VX_API bool vx_stdlist_init(Tvx_stdlist_string* sheet, Tvx_stdlist_scale scale, Tvx_stdlist_type type,
                            Tvx_stdlist_hemisphere hemisphere) {
  return rec(sheet).init(scale, type, hemisphere);
}

VX_API Tvx_stdlist_hemisphere vx_stdlist_get_hemisphere(const Tvx_stdlist_string* sheet) {
  return rec(sheet).get_hemisphere();
}

VX_API Tvx_stdlist_scale vx_stdlist_get_scale(const Tvx_stdlist_string* sheet) {
  return rec(sheet).get_scale();
}

VX_API Tvx_stdlist_type vx_stdlist_get_type(const Tvx_stdlist_string* sheet) {
  return rec(sheet).get_type();
}

VX_API int vx_stdlist_hemisphere_tostr(const Tvx_stdlist_string* sheet) {
  return rec(sheet).get_str_hemisphere();
}

VX_API const wchar_t* vx_stdlist_scale_tostr(const Tvx_stdlist_string* sheet) {
  return rec(sheet).get_scale_str();
}

VX_API const wchar_t* vx_stdlist_type_tostr(const Tvx_stdlist_string* sheet) {
  return rec(sheet).get_type_str();
}

VX_API void vx_stdlist_fetch_supported_types(const Tvx_stdlist_string* sheet, bool types[4]) {
  rec(sheet).fetch_supported_list_types(types);
}

VX_API double vx_stdlist_get_mid_meridian(const Tvx_stdlist_string* sheet) {
  return rec(sheet).get_mid_meridian();
}

VX_API void vx_stdlist_to_string(const Tvx_stdlist_string* sheet, Ivx_string_adp* sink) {
  std::wstring text;
  feed(sink, rec(sheet).get_output_string(text));
}

VX_API bool vx_stdlist_fetch_neighbours(const Tvx_stdlist_string* sheet, Ivx_string_adp* sink) {
  const stdlist_string& s = rec(sheet);
  if (s.get_scale() != VX_STDLIST_SC_200) return false;
  std::wstring left, right, upper, lower;
  const bool filled =
      sl::helper_200::get_neighbor_list_str(s.get_hemisphere(), s.get_mln_letter_idx(), s.get_mln_number(),
                                            s.get_200_roman_idx(), left, right, upper, lower, s.get_type());
  for (const std::wstring* text : {&left, &right, &upper, &lower}) feed(sink, *text);
  return filled;
}

VX_API uint64_t vx_stdlist_get_mln_letter_idx(const Tvx_stdlist_string* sheet) {
  return rec(sheet).get_mln_letter_idx();
}

VX_API bool vx_stdlist_set_mln_letter_idx(Tvx_stdlist_string* sheet, uint64_t index) {
  return rec(sheet).set_mln_letter_idx(index);
}

VX_API int vx_stdlist_get_mln_letter(const Tvx_stdlist_string* sheet) {
  return sl::helper_mln::get_letter(rec(sheet));
}

VX_API bool vx_stdlist_set_mln_letter(Tvx_stdlist_string* sheet, wchar_t letter) {
  return sl::helper_mln::set_letter(rec(sheet), letter);
}

VX_API uint64_t vx_stdlist_get_mln_number(const Tvx_stdlist_string* sheet) {
  return rec(sheet).get_mln_number();
}

VX_API void vx_stdlist_get_mln_number_str(const Tvx_stdlist_string* sheet, Ivx_string_adp* sink) {
  feed(sink, sl::get_number(rec(sheet)));
}

VX_API bool vx_stdlist_set_mln_number(Tvx_stdlist_string* sheet, uint64_t number) {
  return rec(sheet).set_mln_number(number);
}

VX_API bool vx_stdlist_set_mln_number_str(Tvx_stdlist_string* sheet, const wchar_t* text) {
  return sl::set_number(rec(sheet), text);
}

VX_API uint64_t vx_stdlist_get_500_letter_idx(const Tvx_stdlist_string* sheet) {
  return rec(sheet).get_500_letter_idx();
}

VX_API int vx_stdlist_get_500_letter(const Tvx_stdlist_string* sheet) {
  return sl::helper_500::letter_by_idx(rec(sheet).get_500_letter_idx());
}

VX_API bool vx_stdlist_set_500_letter_idx(Tvx_stdlist_string* sheet, uint64_t index) {
  return rec(sheet).set_500_letter_idx(index);
}

VX_API bool vx_stdlist_set_500_letter(Tvx_stdlist_string* sheet, wchar_t letter) {
  return rec(sheet).set_500_letter_idx(sl::helper_500::index(letter));
}

VX_API uint64_t vx_stdlist_get_200_roman_idx(const Tvx_stdlist_string* sheet) {
  return rec(sheet).get_200_roman_idx();
}

VX_API void vx_stdlist_get_200_roman(const Tvx_stdlist_string* sheet, Ivx_string_adp* sink) {
  feed(sink, sl::helper_200::string(rec(sheet).get_200_roman_idx()));
}

VX_API bool vx_stdlist_set_200_roman_idx(Tvx_stdlist_string* sheet, uint64_t index) {
  return rec(sheet).set_200_roman_idx(index);
}

VX_API bool vx_stdlist_set_200_roman(Tvx_stdlist_string* sheet, const wchar_t* numeral) {
  return rec(sheet).set_200_roman_idx(numeral ? sl::helper_200::index(numeral) : sl::INVALID_IDX);
}

VX_API uint64_t vx_stdlist_get_100_number(const Tvx_stdlist_string* sheet) {
  return rec(sheet).get_100_number();
}

VX_API void vx_stdlist_get_100_number_str(const Tvx_stdlist_string* sheet, Ivx_string_adp* sink) {
  feed(sink, sl::helper_100::get(rec(sheet)));
}

VX_API bool vx_stdlist_set_100_number(Tvx_stdlist_string* sheet, uint64_t number) {
  return rec(sheet).set_100_number(number);
}

VX_API void vx_stdlist_set_100_number_str(Tvx_stdlist_string* sheet, const wchar_t* text) {
  sl::helper_100::set(rec(sheet), text);
}

VX_API uint64_t vx_stdlist_get_50_letter_idx(const Tvx_stdlist_string* sheet) {
  return rec(sheet).get_50_letter_idx();
}

VX_API int vx_stdlist_get_50_letter(const Tvx_stdlist_string* sheet) {
  return sl::helper_50::letter_by_idx(rec(sheet).get_50_letter_idx());
}

VX_API bool vx_stdlist_set_50_letter_idx(Tvx_stdlist_string* sheet, uint64_t index) {
  return rec(sheet).set_50_letter_idx(index);
}

VX_API uint64_t vx_stdlist_set_50_letter(Tvx_stdlist_string* sheet, wchar_t letter) {
  rec(sheet).set_50_letter_idx(sl::helper_50::index(letter));
  return rec(sheet).get_50_letter_idx();
}

VX_API uint64_t vx_stdlist_get_25_letter_idx(const Tvx_stdlist_string* sheet) {
  return rec(sheet).get_25_letter_idx();
}

VX_API int vx_stdlist_get_25_letter(const Tvx_stdlist_string* sheet) {
  return sl::helper_25::letter_by_idx(rec(sheet).raw_25_letter_idx());
}

VX_API void vx_stdlist_set_25_letter_idx(Tvx_stdlist_string* sheet, uint64_t index) {
  rec(sheet).set_25_letter_idx(index);
}

VX_API uint64_t vx_stdlist_set_25_letter(Tvx_stdlist_string* sheet, wchar_t letter) {
  rec(sheet).set_25_letter_idx(sl::helper_25::index(letter));
  return rec(sheet).raw_25_letter_idx();
}

VX_API uint64_t vx_stdlist_get_10_number(const Tvx_stdlist_string* sheet) {
  return rec(sheet).get_10_number();
}

VX_API int vx_stdlist_get_10_number_str(const Tvx_stdlist_string* sheet) {
  return sl::helper_10::get(rec(sheet))[0];
}

VX_API bool vx_stdlist_set_10_number(Tvx_stdlist_string* sheet, uint64_t number) {
  return rec(sheet).set_10_number(number);
}

VX_API uint64_t vx_stdlist_set_10_number_str(Tvx_stdlist_string* sheet, wchar_t digit) {
  rec(sheet).set_10_number(sl::helper_10::int_by_char(digit));
  return rec(sheet).get_10_number();
}

}  // extern "C"
