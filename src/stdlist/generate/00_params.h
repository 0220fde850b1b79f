// What a caller asks the sheet generator for: a standard sheet named by its designation, or a free box
// of coordinates, with the output folder and the scene projection common to both.
#pragma once

#include <cstdint>
#include <string>

#include "stdlist/stdlist_string.h"
#include "vxk_proj4_shp.h"

namespace vx::stdlist {

class base_params {
 public:
  base_params() = default;
  base_params(const base_params&) = default;
  base_params& operator=(const base_params&) = default;
  virtual ~base_params() = default;

  // A parameter object that does not say otherwise is a northern 1:1,000,000 sheet: so a free box gets
  // the margins, dashes and pivot count of that scale.
  virtual Tvx_stdlist_hemisphere get_hemisphere() const { return VX_STDLIST_NORTH; }
  virtual Tvx_stdlist_scale get_scale() const { return VX_STDLIST_SC_MLN; }

  // The folder under which the generator writes. Sub-folder names are glued to it as they stand, so it
  // must end in a separator.
  std::wstring get_output_dir() const { return output_dir_; }
  void set_output_dir(const wchar_t* dir) { output_dir_ = dir; }
  // The PROJ string of the drawing's coordinate system.
  std::wstring get_scene_proj() const { return scene_proj_; }
  void set_scene_proj(const std::wstring& proj);

 private:
  std::wstring output_dir_;
  std::wstring scene_proj_;
};

// A standard sheet. It refers to the caller's designation record, which must outlive it; a copy refers
// to the same record. The record may be null: such parameters never reach a generator.
class stdlist_params : public base_params {
 public:
  explicit stdlist_params(const stdlist_string* sheet) : sheet_(sheet) {}

  const stdlist_string* sheet() const { return sheet_; }

  Tvx_stdlist_hemisphere get_hemisphere() const override { return sheet_->get_hemisphere(); }
  Tvx_stdlist_scale get_scale() const override { return sheet_->get_scale(); }
  Tvx_stdlist_type get_type() const { return sheet_->get_type(); }
  std::wstring& get_output_string(std::wstring& out) const { return sheet_->get_output_string(out); }
  std::int32_t get_mid_meridian() const { return sheet_->get_mid_meridian(); }
  // The band letter's index, 1 for "A".
  std::uint64_t get_mln_letter() const { return sheet_->get_mln_letter_idx(); }
  std::uint64_t get_mln_number() const { return sheet_->get_mln_number(); }
  std::uint64_t get_200_roman_idx() const { return sheet_->get_200_roman_idx(); }
  bool scale_is_200() const { return get_scale() == VX_STDLIST_SC_200; }

  // Divisions of the sheet's width (longitude) and height (latitude): the main lines cut an axis into
  // `main` equal parts, and the marks cut each part again into `additional`.
  void set_lon_divs(int main, int additional);
  void set_lat_divs(int main, int additional);
  void get_lon_divs(int& main, int& additional) const;
  void get_lat_divs(int& main, int& additional) const;
  int get_main_x() const { return main_x_; }
  int get_addt_x() const { return addt_x_; }
  int get_main_y() const { return main_y_; }
  int get_addt_y() const { return addt_y_; }

  // The four neighbours of a 1:200,000 sheet, in the order left, right, upper, lower.
  void get_neighbors(Tvx_stdlist_hemisphere hemisphere, std::uint64_t letter, std::uint64_t number,
                     std::uint64_t roman_idx, std::wstring& left, std::wstring& right, std::wstring& upper,
                     std::wstring& lower, Tvx_stdlist_type type) const;
  // The band holds the polar circle, and so does the sheet's row of 1:200,000 sheets (or the sheet is
  // the whole band).
  bool includes_polar() const;

 private:
  const stdlist_string* sheet_;
  // Two texts that travel with the object and that nothing reads.
  std::wstring spare_text_1_;
  std::wstring spare_text_2_;
  int main_x_ = 0;
  int addt_x_ = 0;
  int main_y_ = 0;
  int addt_y_ = 0;
};

// A free box in degrees. The box is not set until set_box (each value is traits::MAX), and the steps
// are 0.0: such parameters never reach a generator.
class custom_params : public base_params {
 public:
  custom_params();

  void set_grid_steps(double x_step, double y_step);
  void get_grid_steps(double& x_step, double& y_step) const;
  double get_x_step() const { return x_step_; }
  double get_y_step() const { return y_step_; }
  void set_box(double xmin, double xmax, double ymin, double ymax);
  void get_box(double& xmin, double& xmax, double& ymin, double& ymax) const;

 private:
  // Two texts that travel with the object and that nothing reads.
  std::wstring spare_text_1_;
  std::wstring spare_text_2_;
  double xmin_;
  double xmax_;
  double ymin_;
  double ymax_;
  double x_step_ = 0.0;
  double y_step_ = 0.0;
};

}  // namespace vx::stdlist

// What the handles of the flat interface point to.
struct Tvx_stdlist_params {
  vx::stdlist::stdlist_params params;
};
struct Tvx_stdlist_custom_params {
  vx::stdlist::custom_params params;
};
