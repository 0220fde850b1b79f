// The nomenclature of one topographic map sheet as a plain value: hemisphere, scale, type and one
// coordinate per level of the series. Only the levels on the sheet's own chain count for validity and
// printing; the others keep what they hold and survive a change of scale.
#pragma once

#include <cstdint>
#include <string>

#include "vxk_proj4_shp.h"

namespace vx::stdlist {

class stdlist_string {
 public:
  // Hemisphere north, scale 1:1,000,000, single sheet, every coordinate 1: sheet "A-1".
  stdlist_string() = default;
  stdlist_string(Tvx_stdlist_hemisphere hemisphere, Tvx_stdlist_scale scale, Tvx_stdlist_type type,
                 std::uint64_t mln_letter_idx, std::uint64_t mln_number, std::uint64_t letter_500_idx,
                 std::uint64_t roman_200_idx, std::uint64_t number_100, std::uint64_t letter_50_idx,
                 std::uint64_t letter_25_idx, std::uint64_t number_10);

  bool operator==(const stdlist_string& other) const;
  bool operator!=(const stdlist_string& other) const { return !(*this == other); }

  void init_default() { *this = stdlist_string(); }
  bool init(Tvx_stdlist_scale scale, Tvx_stdlist_type type, Tvx_stdlist_hemisphere hemisphere);
  bool is_valid() const;

  Tvx_stdlist_hemisphere get_hemisphere() const { return hemisphere_; }
  Tvx_stdlist_scale get_scale() const { return scale_; }
  Tvx_stdlist_type get_type() const { return type_; }
  void set_hemisphere(Tvx_stdlist_hemisphere hemisphere);
  void set_scale(Tvx_stdlist_scale scale);
  void set_type(Tvx_stdlist_type type, bool force);
  void set_str_hemisphere(wchar_t letter);

  // "N", "S", else "?".
  wchar_t get_str_hemisphere() const;
  // Constant texts of the scale and type; "?" when there is none.
  const wchar_t* get_scale_str() const;
  const wchar_t* get_type_str() const;
  // Unlike the member: scale 0 gives "?", scale 3 "1:300000", anything else outside 1 to 8 "".
  static std::wstring get_scale_str(const stdlist_string& sheet);
  void set_scale_str(const std::wstring& text, bool& found);
  void set_type_str(const std::wstring& text);

  // Which types a client should offer at the sheet's latitude band, indexed type minus one.
  void fetch_supported_list_types(bool types[4]) const;

  // Fields of the levels. The setters follow the flat interface: see each definition.
  std::uint64_t get_mln_letter_idx() const { return mln_letter_idx_; }
  bool set_mln_letter_idx(std::uint64_t index);
  std::uint64_t get_mln_number() const { return mln_number_; }
  bool set_mln_number(std::uint64_t number);
  std::uint64_t get_500_letter_idx() const { return letter_500_idx_; }
  bool set_500_letter_idx(std::uint64_t index);
  std::uint64_t get_200_roman_idx() const { return roman_200_idx_; }
  bool set_200_roman_idx(std::uint64_t index);
  std::uint64_t get_100_number() const { return number_100_; }
  bool set_100_number(std::uint64_t number);
  std::uint64_t get_50_letter_idx() const { return letter_50_idx_; }
  bool set_50_letter_idx(std::uint64_t index);
  // The only getter that filters: an index outside 1 to 4 reads as INVALID_IDX.
  std::uint64_t get_25_letter_idx() const;
  // The only setter that does not check.
  void set_25_letter_idx(std::uint64_t index) { letter_25_idx_ = index; }
  std::uint64_t get_10_number() const { return number_10_; }
  bool set_10_number(std::uint64_t number);

  // The designation: empties `out`, writes it and returns `out`.
  std::wstring& get_output_string(std::wstring& out) const;
  // Appends the designation in use.
  void fill_str2(std::wstring& out) const;
  // The older designation routine and the new string it gives. It keeps its counter in a static, so
  // it is not re-entrant, and at 1:1,000,000 doubles and at 1:200,000, 1:50,000 and 1:25,000 it writes
  // the million part twice: fill_str2 is the routine in use.
  std::wstring get_output_string() const;
  void fill_str(std::wstring& out) const;
  // Middle meridian of the sheet's column span, whole degrees.
  std::int32_t get_mid_meridian() const;

  // A one-character text gets a leading "0"; anything else comes back unchanged.
  static std::wstring zero(const std::wstring& text);

  // Raw field access for the level helpers, which test ranges themselves.
  std::uint64_t raw_25_letter_idx() const { return letter_25_idx_; }

 private:
  void fill_str_sheet_start(int counter, std::wstring& out) const;

  Tvx_stdlist_scale scale_ = VX_STDLIST_SC_MLN;
  Tvx_stdlist_type type_ = VX_STDLIST_TP_SGL;
  Tvx_stdlist_hemisphere hemisphere_ = VX_STDLIST_NORTH;
  std::uint64_t mln_letter_idx_ = 1;
  std::uint64_t mln_number_ = 1;
  std::uint64_t letter_500_idx_ = 1;
  std::uint64_t roman_200_idx_ = 1;
  std::uint64_t number_100_ = 1;
  std::uint64_t letter_50_idx_ = 1;
  std::uint64_t letter_25_idx_ = 1;
  std::uint64_t number_10_ = 1;
};

// Whether `init` and `set_type` store this type at this scale.
bool type_allowed(Tvx_stdlist_scale scale, Tvx_stdlist_type type);

}  // namespace vx::stdlist

// What a handle of the flat interface points to.
struct Tvx_stdlist_string {
  vx::stdlist::stdlist_string sheet;
};
