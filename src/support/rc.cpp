#include "support/rc.h"

#include <array>
#include <vector>

#include "support/ansi_code_page.h"
#include "vxk_proj4_shp.h"

int Tvx_rc::f_lang = 0;
bool Tvx_rc::f_auto_lang_flag = false;
std::string Tvx_rc::f_buffer;

namespace {

// Rows of one block. A null row is a text that this library does not carry: it reads as "unknown str".
struct block_rows {
  int size;
  std::vector<const char*> eng;
  std::vector<const char*> rus;  // UTF-8 here; converted to Windows-1251 once, at first use
};

const char* const kUnknown = "unknown str";

block_rows common_block() {
  return {5,
          {"done", "user stop", "error", "Load from", "Save to"},
          {"выполнено", "прервано пользователем", "ошибка", "Загрузить из", "Сохранить в"}};
}

// Labels of a projection description. Only the rows that the description prints are carried.
block_rows forms_pj_block() {
  block_rows b{36, std::vector<const char*>(36, nullptr), std::vector<const char*>(36, nullptr)};
  const struct {
    int index;
    const char* eng;
    const char* rus;
  } rows[] = {
      {0, "Spheroid", "Эллипсоид"},
      {2, "Semimajor axis", "Большая полуось"},
      {3, "Semiminor axis", "Малая полуось"},
      {4, "Inverse flattering", "Обратный коэфф. сжатия"},
      {6, "Datum", "Датум"},
      {7, "Datum parameters", "Параметры датума"},
      {14, "Projection", "Проекция"},
      {17, "Central Meridian", "Центральный меридиан"},
      {18, "Central Meridian", "Меридиан центра проекции"},
      {19, "Latitude of Origin", "Широта начала коорд."},
      {20, "False Easting", "Сдвиг к востоку"},
      {21, "False Northing", "Сдвиг к северу"},
      {22, "1st Standart Parallel", "1я стандартная параллель"},
      {23, "1st Standart Parallel", "1я стандартная параллель"},
      {24, "2nd Standart Parallel", "2я стандартная параллель"},
      {26, "Scale Factor", "Масштабный коэфф."},
      {27, "Alpha", "Альфа"},
      {29, "Unknown", "Не определена"},
      {33, "Zone", "Номер зоны"},
  };
  for (const auto& r : rows) {
    b.eng[r.index] = r.eng;
    b.rus[r.index] = r.rus;
  }
  return b;
}

// The Russian read and write messages stand crossed over (the read error speaks of writing and the
// write error of reading); they are kept so.
block_rows err_common_block() {
  return {4,
          {"Not enough memory. Size to alloc: %d", "Can't open file: \"%s\"", "Error reading file: \"%s\"",
           "Error writing file: \"%s\""},
          {"Недостаточно свободной памяти. Размер выделяемой памяти: %d", "Не могу открыть файл: \"%s\"",
           "Ошибка записи в файл: \"%s\"", "Ошибка чтения из файла: \"%s\""}};
}

block_rows empty_block(int size) {
  return {size, std::vector<const char*>(size, nullptr), std::vector<const char*>(size, nullptr)};
}

constexpr int kBlockCount = 12;

// One language of every block, the Russian texts already in the narrow code page.
struct language_table {
  std::array<int, kBlockCount> sizes{};
  std::array<std::vector<std::string>, kBlockCount> eng;
  std::array<std::vector<std::string>, kBlockCount> rus;
  std::array<std::vector<bool>, kBlockCount> present;
};

language_table build_tables() {
  const std::array<block_rows, kBlockCount> blocks = {common_block(),   empty_block(23),    empty_block(12),
                                                      empty_block(14),  empty_block(4),     empty_block(7),
                                                      forms_pj_block(), empty_block(6),     empty_block(6),
                                                      empty_block(13),  err_common_block(), empty_block(1)};
  language_table t;
  for (int b = 0; b < kBlockCount; ++b) {
    t.sizes[b] = blocks[b].size;
    for (int i = 0; i < blocks[b].size; ++i) {
      const bool has = blocks[b].eng[i] != nullptr;
      t.present[b].push_back(has);
      t.eng[b].emplace_back(has ? blocks[b].eng[i] : "");
      t.rus[b].push_back(has ? vx::strconv::wide_to_ansi(vx::strconv::utf8_to_wide(blocks[b].rus[i])) : "");
    }
  }
  return t;
}

const language_table& tables() {
  static const language_table t = build_tables();
  return t;
}

}  // namespace

void Tvx_rc::set_lang(int value) {
  f_lang = value;
}

void Tvx_rc::get_auto_lang() {
  if (f_auto_lang_flag) return;
  f_lang = vx_res_get_lng() == 0 ? 1 : 0;
  f_auto_lang_flag = true;
}

int Tvx_rc::block_size(int block) {
  return block >= 0 && block < kBlockCount ? tables().sizes[block] : 0;
}

const char* Tvx_rc::get_str(int block, int index) {
  get_auto_lang();
  f_buffer = kUnknown;
  if (index < 0 || index >= block_size(block)) return f_buffer.c_str();
  const language_table& t = tables();
  if (t.present[block][index]) f_buffer = f_lang == 1 ? t.rus[block][index] : t.eng[block][index];
  return f_buffer.c_str();
}
