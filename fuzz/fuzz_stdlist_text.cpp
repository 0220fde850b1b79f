// Arbitrary texts and values through the sheet record: setters from text, every designation routine,
// the neighbours of a 1:200,000 sheet and the reading of the last Roman numeral of a designation.
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>

#include "stdlist/helper_200.h"
#include "stdlist/stdlist_string.h"
#include "support/ansi_code_page.h"
#include "vxk_proj4_shp.h"

namespace {

void ignore_feed(const wchar_t*, void*) {}

void drive_record(const uint8_t* data, size_t size, const std::wstring& text) {
  Tvx_stdlist_string* sheet = vx_stdlist_create();
  Ivx_string_adp* sink = vx_string_adp_create(nullptr, &ignore_feed, nullptr);
  vx_stdlist_init(sheet, data[0] % 11, data[1] % 6, data[2] % 4);
  vx_stdlist_set_mln_letter(sheet, text.empty() ? L'?' : text[0]);
  vx_stdlist_set_mln_number_str(sheet, text.c_str());
  vx_stdlist_set_200_roman(sheet, text.c_str());
  vx_stdlist_set_100_number_str(sheet, text.c_str());
  vx_stdlist_set_500_letter(sheet, text.size() > 1 ? text[1] : L'?');
  vx_stdlist_set_50_letter(sheet, text.size() > 2 ? text[2] : L'?');
  vx_stdlist_set_25_letter_idx(sheet, size > 3 ? data[3] : 0);
  vx_stdlist_set_10_number_str(sheet, text.size() > 3 ? text[3] : L'?');
  vx_stdlist_to_string(sheet, sink);
  vx_stdlist_get_mid_meridian(sheet);
  const vx::stdlist::stdlist_string& s = sheet->sheet;
  s.get_output_string();
  std::wstring l, r, u, d;
  vx::stdlist::helper_200::get_neighbor_list_str(s.get_hemisphere(), s.get_mln_letter_idx(),
                                                 s.get_mln_number(), s.get_200_roman_idx(), l, r, u, d,
                                                 s.get_type());
  vx_string_adp_destroy(sink);
  vx_stdlist_destroy(sheet);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 3) return 0;
  const std::wstring text =
      vx::strconv::utf8_to_wide(std::string(reinterpret_cast<const char*>(data + 3), size - 3));
  drive_record(data, size, text);
  try {
    vx::stdlist::parse_out_last_roman(text);
  } catch (const std::out_of_range&) {
    // a text of fewer than three fields
  }
  return 0;
}
