// Fuzz target of the hosts' shape file reader (vx_shp_reader_*): a .shp, its .shx and its .dbf in one
// input. The first eight bytes (little-endian) give the lengths of the .shp and the .shx parts, each
// taken modulo what is left; the .dbf is the rest. Every record is read with every part, and every
// value of the first rows.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "scratch.h"
#include "vxk_proj4_shp.h"

namespace {

size_t length_at(const uint8_t* p, size_t left) {
  const size_t n = p[0] | p[1] << 8 | p[2] << 16 | static_cast<size_t>(p[3]) << 24;
  return left ? n % (left + 1) : 0;
}

void read_everything(Tvx_shp_reader* r) {
  Tvx_pp2d* pv = vx_pv_d2_create();
  const uint32_t count = vx_shp_reader_get_count(r) < 256 ? vx_shp_reader_get_count(r) : 256;
  for (uint32_t i = 0; i <= count; ++i) {
    const uint32_t parts = vx_shp_reader_read(r, i);
    for (uint32_t k = 0; k <= parts && k < 1024; ++k) vx_shp_reader_get_part(r, k, pv);
  }
  vx_pv_d2_destroy(pv);
  const uint32_t rows = vx_shp_reader_get_row_count(r) < 64 ? vx_shp_reader_get_row_count(r) : 64;
  const uint32_t columns = vx_shp_reader_get_column_count(r);
  for (uint32_t c = 0; c <= columns; ++c) vx_shp_reader_find_column(r, vx_shp_reader_get_column_name(r, c));
  for (uint32_t row = 0; row <= rows; ++row)
    for (uint32_t c = 0; c <= columns; ++c) vx_shp_reader_get_value(r, row, c);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 8) return 0;
  size_t left = size - 8;
  const size_t shp_size = length_at(data, left);
  left -= shp_size;
  const size_t shx_size = length_at(data + 4, left);
  const uint8_t* p = data + 8;
  const std::string base = vxk_fuzz::scratch_folder("shp_reader") + "/f";
  vxk_fuzz::write_file(base + ".shp", p, shp_size);
  vxk_fuzz::write_file(base + ".shx", p + shp_size, shx_size);
  vxk_fuzz::write_file(base + ".dbf", p + shp_size + shx_size, left - shx_size);
  const std::wstring path(base.begin(), base.end());
  if (Tvx_shp_reader* r = vx_shp_reader_open_w((path + L".shp").c_str())) {
    read_everything(r);
    vx_shp_reader_close(r);
  }
  return 0;
}
