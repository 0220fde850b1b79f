// Projection files: the .pj4 beside a shape file and the ESRI WKT of a .prj.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "test_paths.h"
#include "vxk_proj4_shp.h"

namespace {

namespace fs = std::filesystem;

const wchar_t* const GK7 = L"+proj=tmerc +lon_0=39 +lat_0=0 +x_0=7500000 +y_0=0 +k_0=1 +ellps=krass +units=m";

struct feeds {
  std::vector<std::wstring> rows;
  static void on(const wchar_t* text, void* user) {
    static_cast<feeds*>(user)->rows.emplace_back(text ? text : L"<null>");
  }
};

// Runs one call that feeds a sink and gives back what was fed.
template <typename F>
std::vector<std::wstring> fed(F&& call, bool& result) {
  feeds f;
  Ivx_string_adp* sink = vx_string_adp_create(nullptr, feeds::on, &f);
  result = call(sink);
  vx_string_adp_destroy(sink);
  return f.rows;
}

std::string file_text(const fs::path& p) {
  std::ifstream in(p, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::vector<std::wstring> load(const std::wstring& path, bool& ok) {
  return fed([&](Ivx_string_adp* s) { return vx_pj4_load_simple_w(path.c_str(), s); }, ok);
}

std::vector<std::wstring> esri(const wchar_t* proj, bool& ok) {
  return fed([&](Ivx_string_adp* s) { return vx_pj4_export_esri(proj, s); }, ok);
}

TEST(Pj4Files, SaveAndLoadAreInverses) {
  const fs::path dir = vxk_test::scratch_dir("pj4_inverse");
  const std::wstring shp = dir.wstring() + L"/Hypsa.shp";
  const std::vector<std::wstring> texts = {
      GK7, L"+proj=longlat +ellps=krass +towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +no_defs",
      L"+proj=utm +zone=37 +datum=WGS84 +units=m +no_defs", L"+proj=longlat +datum=WGS84"};
  for (const std::wstring& text : texts) {
    ASSERT_TRUE(vx_pj4_save_w(shp.c_str(), text.c_str()));
    bool ok = false;
    EXPECT_EQ(load(dir.wstring() + L"/Hypsa.pj4", ok), std::vector<std::wstring>{text});
    EXPECT_TRUE(ok);
  }
}

TEST(Pj4Files, FileIsOneLineOfUtf8BesideTheShapeFile) {
  const fs::path dir = vxk_test::scratch_dir("pj4_beside");
  const std::wstring shp = dir.wstring() + L"\\HYPS\\Hypsl.shp";
  fs::create_directories(dir / "HYPS");
  ASSERT_TRUE(vx_pj4_save_w(shp.c_str(), L"+proj=longlat +ellps=krass\r\n+no_defs"));
  EXPECT_EQ(file_text(dir / "HYPS" / "Hypsl.pj4"), "+proj=longlat +ellps=krass  +no_defs\n");
  EXPECT_FALSE(fs::exists(dir / "HYPS" / "Hypsl.shp"));
}

TEST(Pj4Files, NonAsciiTextGoesAsUtf8) {
  const fs::path dir = vxk_test::scratch_dir("pj4_utf8");
  const std::wstring shp = dir.wstring() + L"/a.shp";
  ASSERT_TRUE(vx_pj4_save_w(shp.c_str(), L"+proj=longlat +nadgrids=сетка.gsb"));
  EXPECT_EQ(file_text(dir / "a.pj4"),
            "+proj=longlat +nadgrids=\xD1\x81\xD0\xB5\xD1\x82\xD0\xBA\xD0\xB0.gsb\n");
  bool ok = false;
  EXPECT_EQ(load(dir.wstring() + L"/a.pj4", ok)[0], L"+proj=longlat +nadgrids=сетка.gsb");
}

TEST(Pj4Files, SaveWithoutExtensionAddsOne) {
  const fs::path dir = vxk_test::scratch_dir("pj4_no_ext");
  ASSERT_TRUE(vx_pj4_save_w((dir.wstring() + L"/frame").c_str(), GK7));
  EXPECT_TRUE(fs::exists(dir / "frame.pj4"));
}

TEST(Pj4Files, SaveIntoAMissingFolderFails) {
  const fs::path dir = vxk_test::scratch_dir("pj4_no_folder");
  EXPECT_FALSE(vx_pj4_save_w((dir.wstring() + L"/latlong/HYPS/Hypsa.shp").c_str(), GK7));
  EXPECT_FALSE(vx_pj4_save_w(L"", GK7));
}

TEST(Pj4Files, LoadAcceptsCarriageReturnAndByteOrderMark) {
  const fs::path dir = vxk_test::scratch_dir("pj4_crlf");
  std::ofstream(dir / "proj0.pj4", std::ios::binary)
      << "\xEF\xBB\xBF+proj=longlat +ellps=krass\r\nsecond line\r\n";
  bool ok = false;
  EXPECT_EQ(load(dir.wstring() + L"/proj0.pj4", ok),
            std::vector<std::wstring>{L"+proj=longlat +ellps=krass"});
  EXPECT_TRUE(ok);
}

TEST(Pj4Files, FailedLoadFeedsNothing) {
  const fs::path dir = vxk_test::scratch_dir("pj4_fail");
  bool ok = true;
  EXPECT_TRUE(load(dir.wstring() + L"/absent.pj4", ok).empty());
  EXPECT_FALSE(ok);
  std::ofstream(dir / "empty.pj4");
  EXPECT_TRUE(load(dir.wstring() + L"/empty.pj4", ok).empty());
  EXPECT_FALSE(ok);
  std::ofstream(dir / "huge.pj4") << std::string(64 * 1024 + 1, 'x');
  EXPECT_TRUE(load(dir.wstring() + L"/huge.pj4", ok).empty());
  EXPECT_FALSE(ok);
  EXPECT_TRUE(load(dir.wstring(), ok).empty());  // a folder
  EXPECT_FALSE(ok);
}

TEST(Pj4Files, EsriWktOfAProjectedSystem) {
  bool ok = false;
  const std::vector<std::wstring> rows = esri(GK7, ok);
  ASSERT_TRUE(ok);
  ASSERT_EQ(rows.size(), 1u);
  const std::wstring& wkt = rows[0];
  EXPECT_EQ(wkt.rfind(L"PROJCS[", 0), 0u) << wkt;
  EXPECT_NE(wkt.find(L"PROJECTION[\"Transverse_Mercator\"]"), std::wstring::npos) << wkt;
  EXPECT_NE(wkt.find(L"PARAMETER[\"False_Easting\",7500000.0]"), std::wstring::npos) << wkt;
  EXPECT_NE(wkt.find(L"PARAMETER[\"Central_Meridian\",39.0]"), std::wstring::npos) << wkt;
  EXPECT_NE(wkt.find(L"SPHEROID[\"Krassovsky_1942\",6378245.0,298.3]"), std::wstring::npos) << wkt;
  // One line, so that it is written to a .prj as it stands.
  EXPECT_EQ(wkt.find_first_of(L"\r\n"), std::wstring::npos);
}

TEST(Pj4Files, EsriWktOfAGeographicSystem) {
  bool ok = false;
  const std::vector<std::wstring> rows = esri(L"+proj=longlat +datum=WGS84 +no_defs", ok);
  ASSERT_TRUE(ok);
  EXPECT_EQ(rows.at(0).rfind(L"GEOGCS[", 0), 0u) << rows.at(0);
  EXPECT_NE(rows.at(0).find(L"DATUM[\"D_WGS_1984\""), std::wstring::npos) << rows.at(0);
}

TEST(Pj4Files, EsriWktOfATextThatIsNoSystemFeedsNothing) {
  bool ok = true;
  EXPECT_TRUE(esri(L"/style/std_list/proj0.pj4", ok).empty());
  EXPECT_FALSE(ok);
  EXPECT_TRUE(esri(L"+proj=nosuchprojection +ellps=krass", ok).empty());
  EXPECT_FALSE(ok);
  EXPECT_TRUE(esri(L"", ok).empty());
  EXPECT_FALSE(ok);
}

}  // namespace

namespace {

TEST(Pj4Files, LongLatIsTheLibrarysOwnReadingOfProj) {
  EXPECT_TRUE(
      vx_pj4_is_longlat_w(L"+proj=longlat +ellps=krass +towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12"));
  EXPECT_TRUE(vx_pj4_is_longlat_w(L"+proj=LatLong +datum=WGS84"));
  EXPECT_TRUE(vx_pj4_is_longlat_w(L"PROJ=LONGLAT"));
  EXPECT_FALSE(vx_pj4_is_longlat_w(GK7));
  EXPECT_FALSE(vx_pj4_is_longlat_w(L"+proj=utm +zone=37 +datum=WGS84"));
  EXPECT_FALSE(vx_pj4_is_longlat_w(L""));
  EXPECT_FALSE(vx_pj4_is_longlat_w(L"/style/std_list/proj0.pj4"));
}

}  // namespace
