// The flat functions of projection strings, through the public header.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sink_rows.h"
#include "vxk_proj4_shp.h"

namespace {

using vxk_test::fetch;

constexpr int kRussian = 0;
constexpr int kEnglish = 1;

std::vector<std::wstring> gdal(const wchar_t* text, bool* ok = nullptr) {
  bool result = false;
  auto rows = fetch([&](Ivx_string_adp* s) { result = vx_pj4_export_gdal(text, s); });
  if (ok) *ok = result;
  return rows;
}

std::vector<std::wstring> describe(const wchar_t* text, int language) {
  return fetch([&](Ivx_string_adp* s) { vx_pj4_describe_w(text, language, s); });
}

TEST(Proj4Export, GdalFormOfAOneParallelConic) {
  bool ok = false;
  EXPECT_EQ(
      gdal(L"+proj=lcc +lat_1=45 +lon_0=10 +ellps=GRS80", &ok),
      std::vector<std::wstring>{L"+proj=lcc +lon_0=10 +lat_0=45 +lat_1=45 +lat_2=45 +ellps=GRS80 +no_defs"});
  EXPECT_TRUE(ok);
}

TEST(Proj4Export, GdalFormOfTextWithoutKnownParameterFeedsNothing) {
  bool ok = true;
  EXPECT_TRUE(gdal(L"EPSG:4326", &ok).empty());
  EXPECT_FALSE(ok);
  EXPECT_TRUE(gdal(nullptr, &ok).empty());
  EXPECT_FALSE(ok);
  EXPECT_FALSE(vx_pj4_export_gdal(L"+proj=utm +zone=37", nullptr));
}

TEST(Proj4Export, DescriptionInEitherLanguageOneRowPerLine) {
  EXPECT_EQ(
      describe(L"+proj=tmerc +lon_0=39 +ellps=krass", kEnglish),
      (std::vector<std::wstring>{L"Projection = tmerc", L"Central Meridian = 39", L"Spheroid = krass"}));
  EXPECT_EQ(
      describe(L"+proj=tmerc +lon_0=39 +ellps=krass", kRussian),
      (std::vector<std::wstring>{L"Проекция = tmerc", L"Центральный меридиан = 39", L"Эллипсоид = krass"}));
  EXPECT_EQ(describe(L"+units=m", 7), std::vector<std::wstring>{L"Projection = Unknown"});
  EXPECT_EQ(describe(nullptr, kRussian), std::vector<std::wstring>{L"Проекция = Не определена"});
}

// The language of one description does not become the language of the library's other messages.
TEST(Proj4Export, DescriptionLeavesTheMessageLanguageAlone) {
  const int host = vx_res_get_lng();
  vx_res_set_lng(kEnglish);
  describe(L"+proj=merc", kRussian);
  EXPECT_EQ(describe(L"+proj=merc", vx_res_get_lng()), std::vector<std::wstring>{L"Projection = merc"});
  vx_res_set_lng(host);
}

TEST(Proj4Export, CatalogueListsEveryEntry) {
  bool ok = false;
  const auto rows = fetch([&](Ivx_string_adp* s) { ok = vx_pj4_fetch_catalogue(nullptr, s); });
  EXPECT_TRUE(ok);
  ASSERT_EQ(rows.size(), 209u);  // 27 projections, 2 UPS, 60 Gauss-Kruger, 120 UTM
  EXPECT_EQ(rows[0], L"1\tGeographic\tlongitude and latitude\t+proj=longlat +no_defs");
  EXPECT_EQ(rows[208],
            L"209\tUTM\tzone 60, southern hemisphere\t+proj=utm +zone=60 +south +datum=WGS84 +units=m "
            L"+no_defs\tzone=60\tdatum=WGS84");
  EXPECT_EQ(fetch([&](Ivx_string_adp* s) { vx_pj4_fetch_catalogue(L"", s); }).size(), 209u);
}

TEST(Proj4Export, CatalogueEntryOfAProjString) {
  bool ok = false;
  const auto rows = fetch([&](Ivx_string_adp* s) {
    ok = vx_pj4_fetch_catalogue(L"+proj=tmerc +lon_0=39 +x_0=7500000 +ellps=krass", s);
  });
  EXPECT_TRUE(ok);
  EXPECT_EQ(rows, std::vector<std::wstring>{
                      L"36\tGauss-Kruger\tzone 7\t+proj=tmerc +lon_0=39 +lat_0=0 +x_0=7500000 "
                      L"+y_0=0 +k_0=1 +units=m +no_defs\tzone=7"});
  const auto none = fetch([&](Ivx_string_adp* s) { ok = vx_pj4_fetch_catalogue(L"+proj=krovak", s); });
  EXPECT_FALSE(ok);
  EXPECT_TRUE(none.empty());
  EXPECT_FALSE(vx_pj4_fetch_catalogue(nullptr, nullptr));
}

}  // namespace
