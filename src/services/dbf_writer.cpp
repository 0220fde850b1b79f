// The table writer of the sheet generator and of hosts: columns described by vx_dbf_field_init, a table
// created with its records present, numbers and texts set by column and record.
#include <cstring>
#include <new>

#include "files/file_dbf.h"
#include "services/flat_types.h"

namespace {

constexpr int MAX_WIDTH = 254;

Tvx_file_dbf& table_of(void* table) {
  return *static_cast<Tvx_file_dbf*>(table);
}

char type_letter(uint8_t type) {
  return type == VX_DBF_CHARACTER ? 'C' : type == VX_DBF_NUMERIC ? 'N' : 0;
}

bool filled(const Tvx_dbf_field& field) {
  return type_letter(field.type) != 0 && field.width > 0 && field.name[0] != 0;
}

bool describe(const Tvx_dbf_field* fields, int count, Tvx_dbf_prpdefs& defs) {
  for (int i = 0; i < count; ++i) {
    if (!filled(fields[i])) return false;
    Tvx_dbf_prpdef* def = defs.add();
    def->set_name(std::string(fields[i].name, strnlen(fields[i].name, sizeof fields[i].name)).c_str());
    def->set_type(type_letter(fields[i].type));
    def->set_length(fields[i].width);
    def->set_decimal(fields[i].decimals);
  }
  return true;
}

// Moves to the record when the table has it and the column exists.
bool seek_cell(Tvx_file_dbf& table, int column, int record) {
  if (column < 0 || record < 0) return false;
  if (static_cast<uint32_t>(column) >= table.get_np() || static_cast<uint32_t>(record) >= table.get_nr())
    return false;
  table.set_rec(static_cast<uint32_t>(record));
  return true;
}

}  // namespace

extern "C" {

VX_API bool vx_dbf_field_init(Tvx_dbf_field* field, const char* name, int type, int width, int decimals) {
  std::memset(field, 0, sizeof *field);
  if (!type_letter(static_cast<uint8_t>(type)) || width < 1 || width > MAX_WIDTH || decimals < 0 ||
      decimals > MAX_WIDTH)
    return false;
  std::strncpy(field->name, name ? name : "", sizeof field->name - 1);
  field->type = static_cast<uint8_t>(type);
  field->width = static_cast<uint8_t>(width);
  field->decimals = static_cast<uint8_t>(decimals);
  return true;
}

VX_API void* vx_dbf_create_w(const wchar_t* path, int column_count, int record_count,
                             const Tvx_dbf_field* fields, int /*reserved*/) {
  if (!path || column_count < 1 || record_count < 0 || !fields) return nullptr;
  try {
    Tvx_dbf_prpdefs defs;
    if (!describe(fields, column_count, defs)) return nullptr;
    auto* table = new Tvx_file_dbf();
    if (table->create(std::wstring(path), &defs, static_cast<uint32_t>(record_count)) == 0) return table;
    delete table;
  } catch (const std::exception&) {
  }
  return nullptr;
}

VX_API int32_t vx_dbf_get_nr(void* table) {
  return static_cast<int32_t>(table_of(table).get_nr());
}

VX_API bool vx_dbf_add_records(void* table, int count) {
  if (count < 1) return false;
  try {
    return table_of(table).add_rec(static_cast<uint32_t>(count));
  } catch (const std::exception&) {
    return false;
  }
}

VX_API bool vx_dbf_set_int(void* table, int column, int record, int32_t value) {
  try {
    if (!seek_cell(table_of(table), column, record)) return false;
    table_of(table).set_int(static_cast<uint32_t>(column), value);
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

VX_API bool vx_dbf_set_str(void* table, int column, int record, const char* text) {
  try {
    if (!seek_cell(table_of(table), column, record)) return false;
    table_of(table).set_str(static_cast<uint32_t>(column), text ? text : "");
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

VX_API void vx_dbf_close(void* table) {
  if (!table) return;
  try {
    table_of(table).close();
  } catch (const std::exception&) {
  }
  delete static_cast<Tvx_file_dbf*>(table);
}

}  // extern "C"
