#include "support/rc.h"

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

// The texts of this build that the numbered blocks do not carry. Block 0: why generation parameters
// were refused before any sheet was drawn, and why a run stopped.
block_rows generate_block() {
  return {
      9,
      {"Sheet generation refused: no sheet designation was given",
       "Sheet generation refused: the sheet's scale is %s; only 1:1000000 and 1:200000 sheets are drawn",
       "Sheet generation refused: each division must be 1 or more (longitude %d and %d, latitude %d and %d)",
       "Sheet generation refused: the divisions give more than %d lines or marks along one axis "
       "(longitude %d and %d, latitude %d and %d)",
       "Box generation refused: the grid steps must be finite and positive (%g, %g)",
       "Box generation refused: the box is not set",
       "Box generation refused: the box must be finite, each minimum below its maximum "
       "(x %g to %g, y %g to %g)",
       "Box generation refused: the steps give more than %d lines or marks along one axis (steps %g, %g)",
       "Sheet generation stopped: %s"},
      {"Генерация листа отклонена: не задано обозначение листа",
       "Генерация листа отклонена: масштаб листа %s; рисуются только листы масштабов 1:1000000 и 1:200000",
       "Генерация листа отклонена: каждое деление должно быть не меньше 1 (по долготе %d и %d, по широте %d "
       "и %d)",
       "Генерация листа отклонена: деления дают больше %d линий или отметок по одной оси (по долготе %d и "
       "%d, "
       "по широте %d и %d)",
       "Генерация по координатам отклонена: шаги сетки должны быть конечными и положительными (%g, %g)",
       "Генерация по координатам отклонена: не заданы границы",
       "Генерация по координатам отклонена: границы должны быть конечными, минимум меньше максимума "
       "(x от %g до %g, y от %g до %g)",
       "Генерация по координатам отклонена: шаги дают больше %d линий или отметок по одной оси (шаги %g, %g)",
       "Генерация листа прервана: %s"}};
}

// One language of every block of a table, the Russian texts already in the narrow code page.
struct language_table {
  std::vector<int> sizes;
  std::vector<std::vector<std::string>> eng;
  std::vector<std::vector<std::string>> rus;
  std::vector<std::vector<bool>> present;

  int size(int block) const {
    return block >= 0 && block < static_cast<int>(sizes.size()) ? sizes[block] : 0;
  }
};

language_table build_table(const std::vector<block_rows>& blocks) {
  language_table t;
  for (const block_rows& b : blocks) {
    t.sizes.push_back(b.size);
    t.eng.emplace_back();
    t.rus.emplace_back();
    t.present.emplace_back();
    for (int i = 0; i < b.size; ++i) {
      const bool has = b.eng[i] != nullptr;
      t.present.back().push_back(has);
      t.eng.back().emplace_back(has ? b.eng[i] : "");
      t.rus.back().push_back(has ? vx::strconv::wide_to_ansi(vx::strconv::utf8_to_wide(b.rus[i])) : "");
    }
  }
  return t;
}

const language_table& tables() {
  static const language_table t =
      build_table({common_block(), empty_block(23), empty_block(12), empty_block(14), empty_block(4),
                   empty_block(7), forms_pj_block(), empty_block(6), empty_block(6), empty_block(13),
                   err_common_block(), empty_block(1)});
  return t;
}

// The row in the language (1 Russian, anything else English); null for a row out of range or one that
// the table does not carry.
const std::string* find_row(const language_table& t, int block, int index, int lang) {
  if (index < 0 || index >= t.size(block) || !t.present[block][index]) return nullptr;
  return lang == 1 ? &t.rus[block][index] : &t.eng[block][index];
}

const language_table& ext_tables() {
  static const language_table t = build_table({generate_block()});
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
  return tables().size(block);
}

int Tvx_rc::ext_block_size(int block) {
  return ext_tables().size(block);
}

const char* Tvx_rc::get_str(int block, int index) {
  get_auto_lang();
  return answer(find_row(tables(), block, index, f_lang));
}

const char* Tvx_rc::get_ext_str(int block, int index) {
  get_auto_lang();
  return answer(find_row(ext_tables(), block, index, f_lang));
}

const char* Tvx_rc::answer(const std::string* text) {
  f_buffer = text ? *text : kUnknown;
  return f_buffer.c_str();
}
