#include "files/file_dbf.h"

#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "files/file.h"
#include "support/ansi_code_page.h"
#include "support/filesystem.h"
#include "support/mem_main.h"
#include "support/narrow_path.h"
#include "support/str_func.h"

namespace {

constexpr uint8_t VERSION = 3;
constexpr uint8_t END_OF_DESCRIPTORS = 13;
constexpr uint8_t END_OF_FILE = 26;
constexpr uint32_t MIN_SCRATCH = 1000;
constexpr uint32_t NAME_SIZE = 11;
constexpr uint32_t MAX_NAME = 10;
// Descriptors stand between offset 32 and the 16-bit header size, so there can be no more than this.
constexpr uint32_t MAX_DESCRIPTORS = (65536 - 32) / 32 - 1;

// Descriptor layout.
constexpr uint32_t D_TYPE = 11;
constexpr uint32_t D_OFFSET = 12;
constexpr uint32_t D_LENGTH = 16;
constexpr uint32_t D_DECIMAL = 17;

const char* const TRUE_WORDS[] = {"t", "true", "1", "y"};
const char* const FALSE_WORDS[] = {"f", "false", "0", "n"};

uint32_t load_u32(const uint8_t* p) {
  return p[0] | p[1] << 8 | p[2] << 16 | static_cast<uint32_t>(p[3]) << 24;
}
uint16_t load_u16(const uint8_t* p) {
  return static_cast<uint16_t>(p[0] | p[1] << 8);
}

void store_u32(uint8_t* p, uint32_t v) {
  for (int i = 0; i < 4; ++i) p[i] = static_cast<uint8_t>(v >> (8 * i));
}

void store_u16(uint8_t* p, uint16_t v) {
  p[0] = static_cast<uint8_t>(v);
  p[1] = static_cast<uint8_t>(v >> 8);
}

// A double cut toward zero into an int; values beyond its range stop at its ends, NaN gives 0.
int truncate_to_int(double v) {
  if (std::isnan(v)) return 0;
  if (v <= std::numeric_limits<int>::min()) return std::numeric_limits<int>::min();
  if (v >= std::numeric_limits<int>::max()) return std::numeric_limits<int>::max();
  return static_cast<int>(v);
}

void fill_descriptor(uint8_t* d, const Tvx_dbf_prpdef* def, uint32_t offset) {
  std::memset(d, 0, Tvx_file_dbf_exe::DESCRIPTOR_SIZE);
  std::strncpy(reinterpret_cast<char*>(d), def->get_name(), MAX_NAME);
  d[D_TYPE] = static_cast<uint8_t>(def->get_type());
  store_u32(d + D_OFFSET, offset);
  d[D_LENGTH] = static_cast<uint8_t>(def->get_length());
  d[D_DECIMAL] = static_cast<uint8_t>(def->get_decimal());
}

}  // namespace

// ---------------------------------------------------------------------------------------------------
// Field definitions

void Tvx_dbf_prpdefs::set_size(uint32_t count) {
  if (count < f_defs.size()) {
    f_defs.resize(count);
    return;
  }
  while (f_defs.size() < count) add();
}

Tvx_dbf_prpdef* Tvx_dbf_prpdefs::add() {
  f_defs.push_back(std::make_unique<Tvx_dbf_prpdef>());
  return f_defs.back().get();
}

void Tvx_dbf_prpdefs::assign(const Tvx_dbf_prpdefs& other) {
  if (&other == this) return;
  clear();
  for (const auto& def : other.f_defs) add()->assign(*def);
}

// ---------------------------------------------------------------------------------------------------
// Engine: life cycle

Tvx_file_dbf_exe::Tvx_file_dbf_exe() : f_file(std::make_unique<Tvx_file>()) {}

Tvx_file_dbf_exe::~Tvx_file_dbf_exe() {
  close();
}

uint16_t Tvx_file_dbf_exe::header_size() const {
  return load_u16(f_header + 8);
}
uint16_t Tvx_file_dbf_exe::record_size() const {
  return load_u16(f_header + 10);
}
uint32_t Tvx_file_dbf_exe::get_nr() const {
  return load_u32(f_header + 4);
}

int Tvx_file_dbf_exe::create(const char* path, const Tvx_dbf_prpdefs* defs, uint32_t count) {
  close();
  f_file_name = path;
  f_read_only = false;
  if (f_file->create(path) != 0) return 1;
  const uint32_t n = defs ? defs->get_size() : 0;
  uint32_t record = 1;
  for (uint32_t i = 0; i < n; ++i) record += defs->get(i)->get_length() & 0xFFFF;
  std::memset(f_header, 0, HEADER_SIZE);
  f_header[0] = VERSION;
  f_header[1] = f_header[2] = f_header[3] = 1;
  store_u32(f_header + 4, count);
  store_u16(f_header + 8, static_cast<uint16_t>(DESCRIPTOR_SIZE * n + 33));
  store_u16(f_header + 10, static_cast<uint16_t>(record));
  f_file->write(f_header, HEADER_SIZE);
  set_np(n);
  uint32_t offset = 1;
  for (uint32_t i = 0; i < n; ++i) {
    fill_descriptor(descriptor(i), defs->get(i), offset);
    offset += defs->get(i)->get_length();
    f_file->write(descriptor(i), DESCRIPTOR_SIZE);
  }
  write_byte(END_OF_DESCRIPTORS);
  alloc_rec();
  alloc_buff(MIN_SCRATCH);
  std::memset(f_rec, ' ', record_size());
  for (uint32_t i = 0; i < count; ++i) f_file->write(f_rec, record_size());
  write_byte(END_OF_FILE);
  return 0;
}

int Tvx_file_dbf_exe::open(const char* path, bool read_only) {
  close();
  f_file_name = path;
  f_read_only = read_only;
  if (f_file->open(path, read_only) != 0) return 1;
  if (!read_header_that_fits()) {
    close();
    return 1;
  }
  set_np(count_descriptors());
  read_descriptors();
  alloc_rec();
  if (f_buff_size < MIN_SCRATCH) alloc_buff(MIN_SCRATCH);
  return 0;
}

// A table's header must fit the file it heads: a file too short for it, or with sizes that cannot be,
// is not a table (an empty file, a text renamed), and is refused with its reason. A record count that
// the file cannot hold is cut to what it holds, and reported as damage.
bool Tvx_file_dbf_exe::read_header_that_fits() {
  const uint32_t size = f_file->get_size();
  const std::wstring name = Tvx_file::widen_path(f_file_name.c_str());
  std::string fault;
  if (size >= HEADER_SIZE + 1) f_file->read(f_header, HEADER_SIZE);
  if (size < HEADER_SIZE + 1) {
    fault = "it is shorter than the 32-byte header (" + std::to_string(size) + " bytes)";
  } else if (header_size() < HEADER_SIZE + 1 || header_size() > size) {
    fault = "its header size " + std::to_string(header_size()) + " does not fit a file of " +
            std::to_string(size) + " bytes";
  } else if (record_size() == 0) {
    fault = "its record size is 0";
  }
  if (!fault.empty()) {
    Tvx_file::report_content(name, "is not a dBASE table: " + fault);
    return false;
  }
  const uint32_t held = (size - header_size()) / record_size();
  if (get_nr() > held) {
    Tvx_file::report_content(name, "is damaged: its header counts " + std::to_string(get_nr()) +
                                       " records, it holds " + std::to_string(held));
    store_u32(f_header + 4, held);
  }
  return true;
}

// Descriptors run until the byte 13, or until the next one would pass the header size, or the end of
// the file: a header that lies about its size cannot make the scan run on.
uint32_t Tvx_file_dbf_exe::count_descriptors() {
  const uint32_t file_size = f_file->get_size();
  uint32_t i = 0;
  for (; i < MAX_DESCRIPTORS; ++i) {
    const uint32_t position = HEADER_SIZE + DESCRIPTOR_SIZE * i;
    if (position >= file_size) break;
    uint8_t mark = 0;
    f_file->seek(position);
    f_file->read(&mark, 1);
    if (mark == END_OF_DESCRIPTORS) break;
    if (((DESCRIPTOR_SIZE * i + 64) & 0xFFE0) > header_size()) break;
  }
  return i;
}

// Reads the descriptors; a stored offset of 0 is computed from the field before, so that tables from
// writers that leave it empty load as well.
void Tvx_file_dbf_exe::read_descriptors() {
  f_file->seek(HEADER_SIZE);
  for (uint32_t i = 0; i < f_np; ++i) {
    uint8_t* d = descriptor(i);
    f_file->read(d, DESCRIPTOR_SIZE);
    if (load_u32(d + D_OFFSET) != 0) continue;
    const uint32_t offset = i == 0 ? 1 : load_u32(descriptor(i - 1) + D_OFFSET) + descriptor(i - 1)[D_LENGTH];
    store_u32(d + D_OFFSET, offset);
  }
}

void Tvx_file_dbf_exe::close() {
  if (f_dirty && f_cur_rec != NO_RECORD) save_rec(f_cur_rec);
  f_dirty = false;
  set_np(0);
  free_buff();
  free_rec();
  f_cur_rec = NO_RECORD;
  f_file->close();
  std::memset(f_header, 0, HEADER_SIZE);
}

// ---------------------------------------------------------------------------------------------------
// Engine: memory

void Tvx_file_dbf_exe::set_np(uint32_t count) {
  Tvx_mem_main::free_and_null(f_prp);
  f_prp = count ? static_cast<uint8_t*>(Tvx_mem_main::mem_calloc(count, DESCRIPTOR_SIZE)) : nullptr;
  f_np = f_prp ? count : 0;
}

void Tvx_file_dbf_exe::alloc_rec() {
  free_rec();
  const size_t size = record_size() ? record_size() : 1;
  f_rec = static_cast<uint8_t*>(Tvx_mem_main::mem_calloc(size, 1));
  f_blank = static_cast<uint8_t*>(Tvx_mem_main::mem_calloc(size, 1));
}

void Tvx_file_dbf_exe::free_rec() {
  Tvx_mem_main::free_and_null(f_rec);
  Tvx_mem_main::free_and_null(f_blank);
}

void Tvx_file_dbf_exe::alloc_buff(uint32_t size) {
  if (size <= f_buff_size) return;
  char* p = static_cast<char*>(Tvx_mem_main::mem_realloc(f_buff, size));
  if (!p) return;
  f_buff = p;
  f_buff_size = size;
}

void Tvx_file_dbf_exe::free_buff() {
  Tvx_mem_main::free_and_null(f_buff);
  f_buff_size = 0;
}

// ---------------------------------------------------------------------------------------------------
// Engine: header and descriptors

void Tvx_file_dbf_exe::write_header() {
  f_file->seek(0);
  f_file->write(f_header, HEADER_SIZE);
}

void Tvx_file_dbf_exe::write_byte(uint8_t byte) {
  f_file->write(&byte, 1);
}

void Tvx_file_dbf_exe::set_foxpro_code_page(uint8_t code_page) {
  f_header[29] = code_page;
  write_header();
}

const char* Tvx_file_dbf_exe::get_prp_name(uint32_t index) {
  alloc_buff(MIN_SCRATCH);
  if (index >= f_np || !f_buff) return "";
  std::memcpy(f_buff, descriptor(index), NAME_SIZE);
  f_buff[NAME_SIZE] = 0;
  return f_buff;
}

void Tvx_file_dbf_exe::set_prp_name(uint32_t index, const char* name) {
  if (index >= f_np) return;
  uint8_t* d = descriptor(index);
  std::memset(d, 0, NAME_SIZE);
  std::strncpy(reinterpret_cast<char*>(d), name, MAX_NAME);
  f_file->seek(HEADER_SIZE + DESCRIPTOR_SIZE * index);
  f_file->write(d, NAME_SIZE);
}

int Tvx_file_dbf_exe::get_prp_type(uint32_t index) const {
  return index < f_np ? static_cast<signed char>(descriptor(index)[D_TYPE]) : 0;
}

uint32_t Tvx_file_dbf_exe::get_prp_len(uint32_t index) const {
  return index < f_np ? descriptor(index)[D_LENGTH] : 0;
}

int Tvx_file_dbf_exe::get_prp_dec(uint32_t index) const {
  return index < f_np ? static_cast<signed char>(descriptor(index)[D_DECIMAL]) : 0;
}

bool Tvx_file_dbf_exe::find_prp_by_name(const char* name, uint32_t& index) {
  for (uint32_t i = 0; i < f_np; ++i) {
    if (Tvx_str_func::trim_stricmp(name, get_prp_name(i)) != 0) continue;
    index = i;
    return true;
  }
  return false;
}

// ---------------------------------------------------------------------------------------------------
// Engine: records

// A record's place in the file; false when it lies beyond what a 32-bit file position can reach.
bool Tvx_file_dbf_exe::record_position(uint32_t index, uint32_t& position) const {
  const uint64_t p = header_size() + static_cast<uint64_t>(record_size()) * index;
  if (p > std::numeric_limits<uint32_t>::max()) return false;
  position = static_cast<uint32_t>(p);
  return true;
}

void Tvx_file_dbf_exe::save_rec(uint32_t index) {
  uint32_t position = 0;
  if (!f_rec || !record_position(index, position)) return;
  f_file->seek(position);
  f_file->write(f_rec, record_size());
}

// What the file does not hold reads as zeros.
void Tvx_file_dbf_exe::load_rec(uint32_t index) {
  if (!f_rec) return;
  std::memset(f_rec, 0, record_size());
  uint32_t position = 0;
  if (!record_position(index, position)) return;
  f_file->seek(position);
  f_file->read(f_rec, record_size());
}

void Tvx_file_dbf_exe::set_rec(uint32_t index) {
  if (index == f_cur_rec) return;
  if (f_dirty) {
    save_rec(f_cur_rec);
    f_dirty = false;
  }
  load_rec(index);
  f_cur_rec = index;
}

void Tvx_file_dbf_exe::write_records(uint32_t count) {
  for (uint32_t i = 0; i < count; ++i) f_file->write(f_blank, record_size());
}

bool Tvx_file_dbf_exe::add_rec(uint32_t count) {
  if (!f_blank) return true;
  std::memset(f_blank, ' ', record_size());
  uint32_t position = 0;
  if (!record_position(get_nr(), position)) return true;
  f_file->seek(position);
  write_records(count);
  write_byte(END_OF_FILE);
  store_u32(f_header + 4, get_nr() + count);
  write_header();
  return true;
}

// ---------------------------------------------------------------------------------------------------
// Engine: fields

// The bytes of a field inside the record buffer. A descriptor whose offset or length reaches past the
// record gives only the bytes inside it, and a bad index gives none.
Tvx_file_dbf_exe::span Tvx_file_dbf_exe::field(uint32_t index) const {
  if (index >= f_np || !f_rec) return {nullptr, 0};
  const uint8_t* d = descriptor(index);
  const uint64_t offset = load_u32(d + D_OFFSET);
  const uint64_t end = offset + d[D_LENGTH];
  if (offset >= record_size()) return {nullptr, 0};
  const uint64_t stop = end < record_size() ? end : record_size();
  return {f_rec + offset, static_cast<uint32_t>(stop - offset)};
}

void Tvx_file_dbf_exe::store_binary(uint32_t index, const void* value, uint32_t size) {
  const span f = field(index);
  if (f.size) std::memcpy(f.data, value, f.size < size ? f.size : size);
  f_dirty = true;
}

void Tvx_file_dbf_exe::load_binary(uint32_t index, void* value, uint32_t size) const {
  std::memset(value, 0, size);
  const span f = field(index);
  if (f.size) std::memcpy(value, f.data, f.size < size ? f.size : size);
}

const char* Tvx_file_dbf_exe::format_text(const char* format, ...) {
  alloc_buff(MIN_SCRATCH);
  if (!f_buff) return "";
  va_list args;
  va_start(args, format);
  std::vsnprintf(f_buff, f_buff_size, format, args);
  va_end(args);
  return f_buff;
}

const char* Tvx_file_dbf_exe::get_prp_str(uint32_t index) {
  const span f = field(index);
  alloc_buff(f.size + 1 > MIN_SCRATCH ? f.size + 1 : MIN_SCRATCH);
  if (!f_buff) return "";
  if (f.size) std::memcpy(f_buff, f.data, f.size);
  f_buff[f.size] = 0;
  return f_buff;
}

int Tvx_file_dbf_exe::get_prp_int(uint32_t index) {
  int32_t v;
  load_binary(index, &v, sizeof v);
  return v;
}

double Tvx_file_dbf_exe::get_prp_dbl(uint32_t index) {
  double v;
  load_binary(index, &v, sizeof v);
  return v;
}

// The text is cut to the field's length and padded with spaces.
void Tvx_file_dbf_exe::set_prp_str(uint32_t index, const char* text) {
  const span f = field(index);
  f_dirty = true;
  if (!f.size) return;
  const size_t length = strnlen(text, f.size);
  std::memset(f.data, ' ', f.size);
  std::memcpy(f.data, text, length);
}

void Tvx_file_dbf_exe::set_prp_int(uint32_t index, int value) {
  const int32_t v = value;
  store_binary(index, &v, sizeof v);
}

void Tvx_file_dbf_exe::set_prp_dbl(uint32_t index, double value) {
  store_binary(index, &value, sizeof value);
}

const char* Tvx_file_dbf_exe::get_str(uint32_t index) {
  switch (get_prp_type(index)) {
    case 'B':
      return format_text("%g", get_prp_dbl(index));
    case 'I':
      return format_text("%d", get_prp_int(index));
    default:
      return get_prp_str(index);
  }
}

int Tvx_file_dbf_exe::get_int(uint32_t index) {
  switch (get_prp_type(index)) {
    case 'I':
      return get_prp_int(index);
    case 'B':
      return truncate_to_int(get_prp_dbl(index));
    default: {
      int v = 0;
      Tvx_str_func::str2int(get_prp_str(index), v);
      return v;
    }
  }
}

double Tvx_file_dbf_exe::get_dbl(uint32_t index) {
  switch (get_prp_type(index)) {
    case 'B':
      return get_prp_dbl(index);
    case 'I':
      return get_prp_int(index);
    default: {
      double v = 0;
      Tvx_str_func::str2dbl(get_prp_str(index), v);
      return v;
    }
  }
}

bool Tvx_file_dbf_exe::get_bool(uint32_t index) {
  switch (get_prp_type(index)) {
    case 'B':
      return get_prp_dbl(index) != 0.0;
    case 'I':
      return get_prp_int(index) != 0;
    default: {
      bool v = false;
      try_bool(get_prp_str(index), &v);
      return v;
    }
  }
}

bool Tvx_file_dbf_exe::try_bool(const char* text, bool* value) {
  for (const char* word : TRUE_WORDS) {
    if (Tvx_str_func::trim_stricmp(text, word) != 0) continue;
    *value = true;
    return true;
  }
  for (const char* word : FALSE_WORDS) {
    if (Tvx_str_func::trim_stricmp(text, word) != 0) continue;
    *value = false;
    return true;
  }
  *value = false;
  return false;
}

void Tvx_file_dbf_exe::set_str(uint32_t index, const char* text) {
  switch (get_prp_type(index)) {
    case 'B': {
      double v = 0;
      Tvx_str_func::str2dbl(text, v);
      set_prp_dbl(index, v);
      break;
    }
    case 'I': {
      int v = 0;
      Tvx_str_func::str2int(text, v);
      set_prp_int(index, v);
      break;
    }
    default:
      set_prp_str(index, text);
  }
}

// A text field takes the number right-aligned in its whole length: "%<len>d" without decimals,
// "%<len>.<dec>f" with them.
void Tvx_file_dbf_exe::set_int(uint32_t index, int value) {
  switch (get_prp_type(index)) {
    case 'I':
      set_prp_int(index, value);
      break;
    case 'B':
      set_prp_dbl(index, value);
      break;
    default: {
      const unsigned length = get_prp_len(index);
      const int decimals = get_prp_dec(index);
      char format[32];
      if (decimals < 1) {
        std::snprintf(format, sizeof format, "%%%ud", length);
        set_prp_str(index, format_text(format, value));
      } else {
        std::snprintf(format, sizeof format, "%%%u.%df", length, decimals);
        set_prp_str(index, format_text(format, static_cast<double>(value)));
      }
    }
  }
}

void Tvx_file_dbf_exe::set_dbl(uint32_t index, double value) {
  switch (get_prp_type(index)) {
    case 'B':
      set_prp_dbl(index, value);
      break;
    case 'I':
      set_prp_int(index, truncate_to_int(value));
      break;
    default: {
      // A negative decimal count can only come from a damaged descriptor; it would make no format.
      const int decimals = get_prp_dec(index) < 0 ? 0 : get_prp_dec(index);
      char format[32];
      std::snprintf(format, sizeof format, "%%%u.%df", get_prp_len(index), decimals);
      set_prp_str(index, format_text(format, value));
    }
  }
}

void Tvx_file_dbf_exe::set_bool(uint32_t index, bool value) {
  switch (get_prp_type(index)) {
    case 'B':
      set_prp_dbl(index, value ? 1.0 : 0.0);
      break;
    case 'I':
      set_prp_int(index, value ? 1 : 0);
      break;
    default:
      set_prp_str(index, value ? "T" : "F");
  }
}

// ---------------------------------------------------------------------------------------------------
// Engine: adding fields by rewriting the file

const char* Tvx_file_dbf_exe::generate_tmp_filename(const char* path) {
  for (uint32_t counter = 0;; ++counter) {
    const std::string candidate = Tvx_path::change_file_ext(path, std::to_string(counter).c_str());
    if (!Tvx_file_func::can_create_new(candidate.c_str())) continue;
    f_tmp_name = candidate;
    return f_tmp_name.c_str();
  }
}

bool Tvx_file_dbf_exe::add_prp(const Tvx_dbf_prpdefs* defs) {
  const std::string name = f_file_name;
  generate_tmp_filename(name.c_str());
  const bool read_only = f_read_only;
  close();
  const bool copied = Tvx_file_func::copy(name.c_str(), f_tmp_name.c_str()) == 0;
  if (copied) copy_with_new_fields(defs);
  return open(name.c_str(), read_only) == 0 && copied;
}

// Writes the table anew under its own name from the temporary copy: the old descriptors, the new
// ones, then every old record widened with spaces. The temporary copy is removed afterwards.
bool Tvx_file_dbf_exe::copy_with_new_fields(const Tvx_dbf_prpdefs* defs) {
  Tvx_file_dbf_exe old;
  if (old.open(f_tmp_name.c_str(), true) != 0) return false;
  Tvx_file out;
  if (out.create(f_file_name.c_str()) == 0) {
    uint8_t header[HEADER_SIZE];
    std::memcpy(header, old.f_header, HEADER_SIZE);
    out.write(header, HEADER_SIZE);
    uint32_t offset = 1;
    for (uint32_t i = 0; i < old.f_np; ++i) {
      out.write(old.descriptor(i), DESCRIPTOR_SIZE);
      offset += old.descriptor(i)[D_LENGTH];
    }
    const uint32_t added = defs ? defs->get_size() : 0;
    for (uint32_t i = 0; i < added; ++i) {
      uint8_t d[DESCRIPTOR_SIZE];
      fill_descriptor(d, defs->get(i), offset);
      offset += defs->get(i)->get_length();
      out.write(d, DESCRIPTOR_SIZE);
    }
    const uint8_t end_of_descriptors = END_OF_DESCRIPTORS;
    out.write(&end_of_descriptors, 1);
    store_u16(header + 8, static_cast<uint16_t>(DESCRIPTOR_SIZE * (old.f_np + added) + 33));
    store_u16(header + 10, static_cast<uint16_t>(offset));
    out.seek(0);
    out.write(header, HEADER_SIZE);
    copy_records(old, out, header);
    out.close();
  }
  old.close();
  vx::filesystem::remove_file(Tvx_file::widen_path(f_tmp_name.c_str()));
  return true;
}

// Copies the records that the old file really holds; a header count that claims more stops at the end
// of the data.
void Tvx_file_dbf_exe::copy_records(Tvx_file_dbf_exe& old, Tvx_file& out, const uint8_t* header) {
  const uint32_t new_size = load_u16(header + 10);
  const uint32_t old_size = old.record_size();
  const uint32_t file_size = old.f_file->get_size();
  const uint32_t data = file_size > old.header_size() ? file_size - old.header_size() : 0;
  const uint32_t held = old_size ? data / old_size : 0;
  const uint32_t count = old.get_nr() < held ? old.get_nr() : held;
  std::vector<uint8_t> buffer((old_size > new_size ? old_size : new_size) + 1, ' ');
  old.f_file->seek(old.header_size());
  out.seek(load_u16(header + 8));
  for (uint32_t i = 0; i < count; ++i) {
    old.f_file->read(buffer.data(), old_size);
    out.write(buffer.data(), new_size);
  }
  const uint8_t end_of_file = END_OF_FILE;
  out.write(&end_of_file, 1);
}

// ---------------------------------------------------------------------------------------------------
// Public handle

Tvx_file_dbf::Tvx_file_dbf() : f_exe(new Tvx_file_dbf_exe) {}

Tvx_file_dbf::~Tvx_file_dbf() {
  delete f_exe;
}

int Tvx_file_dbf::open(const std::wstring& path, bool read_only) {
  return f_exe->open(vx::strconv::wide_to_utf8(path).c_str(), read_only);
}

int Tvx_file_dbf::create(const std::wstring& path, const Tvx_dbf_prpdefs* defs, uint32_t count) {
  return f_exe->create(vx::strconv::wide_to_utf8(path).c_str(), defs, count);
}
