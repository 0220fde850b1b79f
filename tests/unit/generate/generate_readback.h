// What a step wrote, read back with the library's own readers: the lines of a shape file, vertex by
// vertex, and the rows of its table as texts without their padding. (GDAL reads the same files in the
// generation checks.)
#pragma once

#include <iomanip>
#include <ostream>
#include <string>
#include <vector>

#include "files/file_dbf.h"
#include "files/file_shp.h"
#include "geom/op2d.h"
#include "stdlist/traits.h"
#include "support/ansi_code_page.h"

// Two vertices are the same when both coordinates are equal to the bit; shown as (x, y).
inline bool operator==(const Tvx_vtx_d2& a, const Tvx_vtx_d2& b) {
  return a.x == b.x && a.y == b.y;
}
inline std::ostream& operator<<(std::ostream& out, const Tvx_vtx_d2& v) {
  return out << std::setprecision(17) << "(" << v.x << ", " << v.y << ")";
}

namespace vxk_test {

using line = std::vector<Tvx_vtx_d2>;

// The vertices of a point vector.
inline line points(const Tvx_pp2d* pv) {
  line l;
  for (uint32_t i = 0; i < vx_pv_d2_get_size(pv); ++i) l.push_back(vx_pv_d2_get_vtx(pv, i));
  return l;
}

// The first part of every polyline record.
inline std::vector<line> written_lines(const std::wstring& shp_path) {
  Tvx_file_shp shp;
  std::vector<line> out;
  if (shp.open(shp_path, true) != 0) return out;
  for (unsigned i = 0; i < shp.get_no(); ++i) {
    shp.get_obj_type(i);
    Tvx_op2d o;
    line l;
    if (shp.get_polyline(&o) && o.get_size() > 0) {
      const Tvx_pp2d* part = o.get(0);
      for (int k = 0; k < part->get_size(); ++k) l.push_back(Tvx_vtx_d2{part->get(k).x, part->get(k).y});
    }
    out.push_back(l);
  }
  return out;
}

// The point of every point record.
inline line written_points(const std::wstring& shp_path) {
  Tvx_file_shp shp;
  line out;
  if (shp.open(shp_path, true) != 0) return out;
  for (unsigned i = 0; i < shp.get_no(); ++i) {
    shp.get_obj_type(i);
    Tvx_point2d p{};
    if (shp.get_point(&p)) out.push_back(Tvx_vtx_d2{p.x, p.y});
  }
  return out;
}

struct table {
  std::vector<std::string> columns;
  std::vector<std::vector<std::string>> rows;
  // The text of a column in a row, found by the column's name.
  std::string at(size_t row, const std::string& column) const {
    for (size_t c = 0; c < columns.size(); ++c) {
      if (columns[c] == column) return rows.at(row).at(c);
    }
    return "<no column " + column + ">";
  }
};

// Every cell as text, blanks on either side removed (numbers included).
inline table written_table(const std::wstring& shp_path) {
  Tvx_file_dbf dbf;
  table t;
  if (dbf.open(vx::stdlist::traits::dbf_path(shp_path), true) != 0) return t;
  for (uint32_t c = 0; c < dbf.get_np(); ++c) t.columns.emplace_back(dbf.get_prp_name(c));
  for (uint32_t r = 0; r < dbf.get_nr(); ++r) {
    dbf.set_rec(r);
    std::vector<std::string> row;
    for (uint32_t c = 0; c < dbf.get_np(); ++c) {
      std::string s = dbf.get_str(c);
      const size_t a = s.find_first_not_of(' ');
      const size_t b = s.find_last_not_of(' ');
      row.push_back(a == std::string::npos ? std::string() : s.substr(a, b - a + 1));
    }
    t.rows.push_back(row);
  }
  return t;
}

// A text of the generator's tables, written here in UTF-8, as the table holds it (Windows-1251).
inline std::string cp1251(const std::string& utf8) {
  return vx::strconv::wide_to_ansi(vx::strconv::utf8_to_wide(utf8));
}

}  // namespace vxk_test
