// The shape file reader of hosts: a shape file with its index and its table, read record by record and
// value by value through the file classes, which cut every count to what the files hold.
#include <algorithm>
#include <cctype>
#include <cstdio>
#include <memory>
#include <new>
#include <string>

#include "files/file_dbf.h"
#include "files/file_shp.h"
#include "geom/multipatch3d.h"
#include "geom/op2d.h"
#include "geom/op3d.h"
#include "services/flat_types.h"
#include "support/ansi_code_page.h"
#include "support/filesystem.h"
#include "support/text_case.h"

struct Tvx_shp_reader {
  Tvx_file_shp shp;
  std::unique_ptr<Tvx_file_dbf> dbf;  // null without a table
  std::string encoding;               // iconv name of the table's code page
  uint32_t rows = 0;
  Tvx_op2d record;  // the parts of the record read last
  std::wstring text;
};

namespace {

// The code page that a .cpg names: "UTF-8", or a Windows code page as its number ("1251"), perhaps after
// "CP", "WINDOWS-" or "ANSI " ("CP1251" is GDAL's form). Anything else, and no .cpg at all, leaves the
// library's own narrow code page.
std::string table_encoding(const std::wstring& shp_path) {
  std::string cpg;
  if (std::FILE* f = vx::filesystem::open_file(vx::filesystem::change_extension(shp_path, L".cpg"), "rb")) {
    char buffer[64];
    cpg.assign(buffer, std::fread(buffer, 1, sizeof buffer, f));
    std::fclose(f);
  }
  const auto blank = [](char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; };
  cpg.erase(std::remove_if(cpg.begin(), cpg.end(), blank), cpg.end());
  cpg = vx::text::ansi_to_upper(cpg);
  if (cpg == "UTF-8" || cpg == "UTF8") return "UTF-8";
  for (const char* prefix : {"CP", "WINDOWS-", "ANSI"}) {
    if (cpg.rfind(prefix, 0) == 0) cpg.erase(0, std::string(prefix).size());
  }
  const bool number = !cpg.empty() && cpg.size() <= 5 &&
                      std::all_of(cpg.begin(), cpg.end(), [](char c) { return c >= '0' && c <= '9'; });
  return number ? "CP" + cpg : vx::strconv::ansi_iconv_name();
}

// The rows that the table's file can hold, whatever its header says: a record takes at least its
// deletion mark and its fields' bytes.
uint32_t rows_held(Tvx_file_dbf& dbf, const std::wstring& path) {
  uint64_t record = 1;
  for (uint32_t i = 0; i < dbf.get_np(); ++i) record += dbf.get_prp_len(i);
  const uint64_t held = vx::filesystem::file_size(path) / record;
  return static_cast<uint32_t>(std::min<uint64_t>(dbf.get_nr(), held));
}

void open_table(Tvx_shp_reader& r, const std::wstring& shp_path) {
  const std::wstring path = vx::filesystem::change_extension(shp_path, L".dbf");
  auto dbf = std::make_unique<Tvx_file_dbf>();
  if (dbf->open(path, true) != 0) return;
  r.rows = rows_held(*dbf, path);
  r.dbf = std::move(dbf);
  r.encoding = table_encoding(shp_path);
}

const wchar_t* keep(Tvx_shp_reader& r, const char* narrow) {
  std::string s = narrow ? narrow : "";
  const auto first = s.find_first_not_of(' ');
  s = first == std::string::npos ? std::string() : s.substr(first, s.find_last_not_of(' ') - first + 1);
  r.text = vx::strconv::narrow_to_wide(s, r.encoding.c_str());
  return r.text.c_str();
}

void add_part(Tvx_op2d& out, const Tvx_pp3d& in) {
  Tvx_pp2d* part = out.add();
  for (int i = 0; i < in.get_size(); ++i) part->add(in.get(i).x, in.get(i).y);
}

// The record's geometry by its own type, flattened to parts of x and y.
void read_parts(Tvx_file_shp& shp, int type, Tvx_op2d& out) {
  switch (type) {
    case SHP_POINT: {
      Tvx_point2d p{};
      shp.get_point(&p);
      out.add()->add(p.x, p.y);
      break;
    }
    case SHP_POINT_Z: {
      Tvx_point3d p{};
      shp.get_point_z(&p);
      out.add()->add(p.x, p.y);
      break;
    }
    case SHP_MULTIPOINT:
      shp.get_multipoint(out.add());
      break;
    case SHP_MULTIPOINT_Z: {
      Tvx_pp3d pp;
      shp.get_multipoint_z(&pp);
      add_part(out, pp);
      break;
    }
    case SHP_POLYLINE:
    case SHP_POLYGON:
      type == SHP_POLYGON ? shp.get_polygon(&out) : shp.get_polyline(&out);
      break;
    case SHP_POLYLINE_Z:
    case SHP_POLYGON_Z: {
      Tvx_op3d op;
      shp.get_polygon_z(&op);
      for (int k = 0; k < op.get_size(); ++k) add_part(out, *op.get(k));
      break;
    }
    case SHP_MULTIPATCH: {
      Tvx_multipatch3d mp;
      shp.get_multipatch(&mp);
      for (int k = 0; k < mp.get_size(); ++k) add_part(out, *mp.get(k)->get_pp_ptr());
      break;
    }
    default:
      break;
  }
}

}  // namespace

extern "C" {

VX_API Tvx_shp_reader* vx_shp_reader_open_w(const wchar_t* path) {
  if (!path) return nullptr;
  try {
    auto r = std::make_unique<Tvx_shp_reader>();
    r->shp.open(std::wstring(path), true);
    if (!r->shp.is_open()) return nullptr;
    open_table(*r, path);
    return r.release();
  } catch (const std::exception&) {
    return nullptr;
  }
}

VX_API void vx_shp_reader_close(Tvx_shp_reader* reader) {
  delete reader;
}

VX_API int vx_shp_reader_get_type(const Tvx_shp_reader* reader) {
  return reader->shp.get_type();
}

VX_API uint32_t vx_shp_reader_get_count(const Tvx_shp_reader* reader) {
  return reader->shp.get_no();
}

VX_API uint32_t vx_shp_reader_read(Tvx_shp_reader* reader, uint32_t record) {
  reader->record.clear();
  if (record >= reader->shp.get_no()) return 0;
  try {
    read_parts(reader->shp, reader->shp.get_obj_type(record), reader->record);
    // A record that could not be read whole gives nothing, not the part of it that was read.
    if (reader->shp.is_record_damaged()) reader->record.clear();
  } catch (const std::exception&) {
    reader->record.clear();
  }
  return static_cast<uint32_t>(reader->record.get_size());
}

VX_API bool vx_shp_reader_get_part(const Tvx_shp_reader* reader, uint32_t part, Tvx_pp2d* vector) {
  vector->clear();
  if (part >= static_cast<uint32_t>(reader->record.get_size())) return false;
  try {
    vector->assign(reader->record.get(static_cast<int>(part)));
    return true;
  } catch (const std::exception&) {
    vector->clear();
    return false;
  }
}

VX_API uint32_t vx_shp_reader_get_row_count(const Tvx_shp_reader* reader) {
  return reader->rows;
}

VX_API uint32_t vx_shp_reader_get_column_count(const Tvx_shp_reader* reader) {
  return reader->dbf ? reader->dbf->get_np() : 0;
}

VX_API const wchar_t* vx_shp_reader_get_column_name(Tvx_shp_reader* reader, uint32_t column) {
  try {
    return keep(*reader, reader->dbf ? reader->dbf->get_prp_name(column) : "");
  } catch (const std::exception&) {
    return L"";
  }
}

VX_API int32_t vx_shp_reader_find_column(Tvx_shp_reader* reader, const wchar_t* name) {
  if (!name) return -1;
  try {
    std::wstring wanted = name;
    wanted.erase(0, wanted.find_first_not_of(L' '));
    wanted.erase(wanted.find_last_not_of(L' ') + 1);
    for (uint32_t i = 0; i < vx_shp_reader_get_column_count(reader); ++i) {
      if (vx::text::equal_nocase(vx_shp_reader_get_column_name(reader, i), wanted))
        return static_cast<int32_t>(i);
    }
  } catch (const std::exception&) {
  }
  return -1;
}

VX_API const wchar_t* vx_shp_reader_get_value(Tvx_shp_reader* reader, uint32_t row, uint32_t column) {
  try {
    if (!reader->dbf || row >= reader->rows || column >= reader->dbf->get_np()) return keep(*reader, "");
    reader->dbf->set_rec(row);
    return keep(*reader, reader->dbf->get_str(column));
  } catch (const std::exception&) {
    return L"";
  }
}

}  // extern "C"
