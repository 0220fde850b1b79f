// A helper of the GDAL cross-checks (gdal_check.py):
//   gdal_probe write DIR    writes a shape file of every type we write, each with its table, and prints
//                           as JSON what it wrote;
//   gdal_probe read FILE    reads a shape file with our reader and prints its records as JSON;
//   gdal_probe dbf FILE     reads a table with our reader and prints its fields and records as JSON.
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "files/file_dbf.h"
#include "files/file_shp.h"

namespace {

using part3 = std::vector<Tvx_point3d>;
using shape3 = std::vector<part3>;  // z is ignored for the plane types

struct record {
  bool null;
  shape3 parts;
  std::vector<int> patch_types;
  int id;
  const char* name;
  double value;
  bool flag;
};

struct layer {
  const char* file;
  int type;
  std::vector<record> records;
};

std::string json_number(double v) {
  char buf[64];
  std::snprintf(buf, sizeof buf, "%.17g", v);
  return buf;
}

std::string json_text(const char* text) {
  std::string out = "\"";
  for (const char* p = text; *p; ++p) {
    if (*p == '"' || *p == '\\') out += '\\';
    if (static_cast<unsigned char>(*p) < 0x20) continue;
    out += *p;
  }
  return out + "\"";
}

std::string json_parts(const shape3& parts, bool z) {
  std::string out = "[";
  for (size_t k = 0; k < parts.size(); ++k) {
    out += k ? ",[" : "[";
    for (size_t i = 0; i < parts[k].size(); ++i) {
      const auto& p = parts[k][i];
      out += (i ? ",[" : "[") + json_number(p.x) + "," + json_number(p.y);
      if (z) out += "," + json_number(p.z);
      out += "]";
    }
    out += "]";
  }
  return out + "]";
}

bool has_z(int type) {
  return type == 11 || type == 13 || type == 15 || type == 18 || type == 31;
}

std::vector<layer> layers() {
  const part3 square = {{0, 0, 1}, {0, 10, 2}, {10, 10, 3}, {10, 0, 4}, {0, 0, 1}};
  const part3 hole = {{2, 2, 5}, {8, 2, 5}, {8, 8, 5}, {2, 8, 5}, {2, 2, 5}};
  const part3 line_a = {{-3.5, 4.25, 0.5}, {5, 6, 1.5}, {7.125, -1, 2.5}};
  const part3 line_b = {{100, 200, -1}, {101, 201, -2}};
  return {
      {"point",
       1,
       {{false, {{{1.5, -2.5, 0}}}, {}, 1, "one", 1.25, true},
        {false, {{{30, 60, 0}}}, {}, 2, "two", -7.5, false}}},
      {"polyline",
       3,
       {{false, {line_a, line_b}, {}, 1, "two parts", 3.5, true},
        {true, {}, {}, 2, "null", 0, false},
        {false, {line_a}, {}, 3, "one part", 0.0625, true}}},
      {"polygon", 5, {{false, {square, hole}, {}, 7, "with hole", 64, true}}},
      {"multipoint", 8, {{false, {{{1, 2, 0}, {3, 4, 0}, {-5, 6.5, 0}}}, {}, 1, "three", 3, false}}},
      {"pointz",
       11,
       {{false, {{{1, 2, 3}}}, {}, 1, "z three", 3, true},
        {false, {{{-4, 5, -6.5}}}, {}, 2, "z minus", -6.5, false}}},
      {"polylinez", 13, {{false, {line_a, line_b}, {}, 1, "z lines", 1, true}}},
      {"polygonz", 15, {{false, {square, hole}, {}, 1, "z polygon", 2, true}}},
      {"multipointz", 18, {{false, {{{1, 2, 3}, {4, 5, 6}}}, {}, 1, "z points", 2, false}}},
      {"multipatch",
       31,
       {{false, {square, hole}, {vx_patch_outer_ring, vx_patch_inner_ring}, 1, "rings", 1, true}}},
  };
}

Tvx_dbf_prpdefs table_fields() {
  Tvx_dbf_prpdefs defs;
  const struct {
    const char* name;
    char type;
    unsigned length, decimal;
  } fields[] = {{"ID", 'N', 5, 0}, {"NAME", 'C', 20, 0}, {"VAL", 'N', 12, 4}, {"FLAG", 'L', 1, 0}};
  for (const auto& f : fields) {
    Tvx_dbf_prpdef* d = defs.add();
    d->set_name(f.name);
    d->set_type(f.type);
    d->set_length(f.length);
    d->set_decimal(f.decimal);
  }
  return defs;
}

void add_record(Tvx_file_shp& shp, int type, const record& r) {
  if (r.null) {
    shp.add_empty();
    return;
  }
  Tvx_op2d op;
  Tvx_op3d op3;
  Tvx_multipatch3d mp;
  for (size_t k = 0; k < r.parts.size(); ++k) {
    Tvx_pp2d* pp = op.add();
    Tvx_pp3d* pp3 = op3.add();
    Tvx_patch3d* patch = mp.add();
    if (k < r.patch_types.size()) patch->set_type(static_cast<Tvx_patch_3d_type>(r.patch_types[k]));
    for (const auto& p : r.parts[k]) {
      pp->add(vx_point2d(p.x, p.y));
      pp3->add(p);
      patch->get_pp_ptr()->add(p);
    }
  }
  Tvx_point2d p2 = vx_point2d(r.parts[0][0].x, r.parts[0][0].y);
  Tvx_point3d p3 = r.parts[0][0];
  switch (type) {
    case 1:
      shp.add_point(&p2);
      break;
    case 3:
      shp.add_polyline(&op);
      break;
    case 5:
      shp.add_polygon(&op);
      break;
    case 8:
      shp.add_multipoint(op.get(0));
      break;
    case 11:
      shp.add_point_z(&p3);
      break;
    case 13:
      shp.add_polyline_z(&op3);
      break;
    case 15:
      shp.add_polygon_z(&op3);
      break;
    case 18:
      shp.add_multipoint_z(op3.get(0));
      break;
    case 31:
      shp.add_multipatch(&mp);
      break;
  }
}

std::string write_layer(const std::string& dir, const layer& l) {
  const std::string base = dir + "/" + l.file;
  Tvx_file_shp shp;
  shp.create((base + ".shp").c_str(), l.type);
  Tvx_dbf_prpdefs defs = table_fields();
  Tvx_file_dbf dbf;
  dbf.create((base + ".dbf").c_str(), &defs, static_cast<uint32_t>(l.records.size()));
  std::string out = "{\"file\":" + json_text((base + ".shp").c_str()) +
                    ",\"type\":" + std::to_string(l.type) + ",\"records\":[";
  for (size_t i = 0; i < l.records.size(); ++i) {
    const record& r = l.records[i];
    add_record(shp, l.type, r);
    dbf.set_rec(static_cast<uint32_t>(i));
    dbf.set_int(0, r.id);
    dbf.set_str(1, r.name);
    dbf.set_dbl(2, r.value);
    dbf.set_bool(3, r.flag);
    out += (i ? "," : "") + std::string("{\"null\":") + (r.null ? "true" : "false") +
           ",\"parts\":" + json_parts(r.parts, has_z(l.type)) + ",\"ID\":" + std::to_string(r.id) +
           ",\"NAME\":" + json_text(r.name) + ",\"VAL\":" + json_number(r.value) +
           ",\"FLAG\":" + (r.flag ? "true" : "false") + "}";
  }
  dbf.close();
  shp.close();
  return out + "]}";
}

int write_all(const std::string& dir) {
  std::string out = "[";
  bool first = true;
  for (const layer& l : layers()) {
    out += (first ? "" : ",") + write_layer(dir, l);
    first = false;
  }
  std::printf("%s]\n", out.c_str());
  return 0;
}

// Our reading of one record, as parts of points with z (z is 0 for the plane types).
shape3 read_record(Tvx_file_shp& shp, int type) {
  shape3 parts;
  auto from2 = [&](Tvx_op2d& op) {
    for (int k = 0; k < op.get_size(); ++k) {
      parts.emplace_back();
      for (int i = 0; i < op.get(k)->get_size(); ++i)
        parts.back().push_back(vx_point3d(op.get(k)->get(i).x, op.get(k)->get(i).y, 0));
    }
  };
  auto from3 = [&](Tvx_pp3d* pp) {
    parts.emplace_back();
    for (int i = 0; i < pp->get_size(); ++i) parts.back().push_back(pp->get(i));
  };
  switch (type) {
    case 1: {
      Tvx_point2d p;
      shp.get_point(&p);
      parts.push_back({vx_point3d(p.x, p.y, 0)});
      break;
    }
    case 3:
    case 5: {
      Tvx_op2d op;
      shp.get_polyline(&op);
      from2(op);
      break;
    }
    case 8: {
      Tvx_op2d op;
      shp.get_multipoint(op.add());
      from2(op);
      break;
    }
    case 11: {
      Tvx_point3d p;
      shp.get_point_z(&p);
      parts.push_back({p});
      break;
    }
    case 13:
    case 15: {
      Tvx_op3d op;
      shp.get_polygon_z(&op);
      for (int k = 0; k < op.get_size(); ++k) from3(op.get(k));
      break;
    }
    case 18: {
      Tvx_pp3d pp;
      shp.get_multipoint_z(&pp);
      from3(&pp);
      break;
    }
    case 31: {
      Tvx_multipatch3d mp;
      shp.get_multipatch(&mp);
      for (int k = 0; k < mp.get_size(); ++k) from3(mp.get(k)->get_pp_ptr());
      break;
    }
  }
  return parts;
}

int read_shape(const std::string& path) {
  Tvx_file_shp shp;
  shp.open(path.c_str(), true);
  std::string out = "{\"type\":" + std::to_string(shp.get_type()) + ",\"records\":[";
  for (unsigned i = 0; i < shp.get_no(); ++i) {
    const int type = shp.get_obj_type(i);
    out += (i ? "," : "") + std::string("{\"type\":") + std::to_string(type) +
           ",\"parts\":" + json_parts(read_record(shp, type), true) + "}";
  }
  std::printf("%s]}\n", out.c_str());
  return 0;
}

int read_table(const std::string& path) {
  Tvx_file_dbf dbf;
  if (dbf.open(path.c_str(), true) != 0) return 1;
  std::string out = "{\"fields\":[";
  for (uint32_t i = 0; i < dbf.get_np(); ++i)
    out += (i ? "," : "") + std::string("{\"name\":") + json_text(dbf.get_prp_name(i)) + ",\"type\":\"" +
           static_cast<char>(dbf.get_prp_type(i)) + "\",\"length\":" + std::to_string(dbf.get_prp_len(i)) +
           ",\"decimal\":" + std::to_string(dbf.get_prp_dec(i)) + "}";
  out += "],\"records\":[";
  for (uint32_t r = 0; r < dbf.get_nr(); ++r) {
    dbf.set_rec(r);
    out += r ? ",[" : "[";
    for (uint32_t i = 0; i < dbf.get_np(); ++i) {
      out += (i ? "," : "") + std::string("{\"str\":") + json_text(dbf.get_str(i));
      out += ",\"int\":" + std::to_string(dbf.get_int(i));
      out += ",\"dbl\":" + json_number(dbf.get_dbl(i));
      out += std::string(",\"bool\":") + (dbf.get_bool(i) ? "true" : "false") + "}";
    }
    out += "]";
  }
  std::printf("%s]}\n", out.c_str());
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: gdal_probe write DIR | read FILE.shp | dbf FILE.dbf\n");
    return 2;
  }
  const std::string command = argv[1];
  if (command == "write") return write_all(argv[2]);
  if (command == "read") return read_shape(argv[2]);
  if (command == "dbf") return read_table(argv[2]);
  return 2;
}
