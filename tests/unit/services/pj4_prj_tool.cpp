// Writes the projection files of a shape set through the public interface, for the checks against
// GDAL: pj4_prj_tool SHAPE.shp "PROJ string" writes SHAPE.prj (ESRI WKT) and SHAPE.pj4.
#include <cstdio>
#include <string>

#include "vxk_proj4_shp.h"

namespace {

std::wstring widen(const char* ascii) {
  std::wstring out;
  for (const char* p = ascii; *p; ++p) out.push_back(static_cast<unsigned char>(*p));
  return out;
}

void append(const wchar_t* text, void* user) {
  *static_cast<std::wstring*>(user) += text;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: pj4_prj_tool SHAPE.shp \"PROJ string\"\n");
    return 2;
  }
  const std::string shp = argv[1];
  const std::wstring proj = widen(argv[2]);
  std::wstring wkt;
  Ivx_string_adp* sink = vx_string_adp_create(nullptr, append, &wkt);
  const bool exported = vx_pj4_export_esri(proj.c_str(), sink);
  vx_string_adp_destroy(sink);
  if (!exported) return 1;
  const std::string prj = shp.substr(0, shp.size() - 4) + ".prj";
  std::FILE* f = std::fopen(prj.c_str(), "wb");
  if (!f) return 1;
  for (wchar_t c : wkt) std::fputc(static_cast<char>(c), f);  // ESRI WKT is ASCII
  std::fclose(f);
  return vx_pj4_save_w(widen(shp.c_str()).c_str(), proj.c_str()) ? 0 : 1;
}
