#include "files/bin.h"

#include <cstdlib>
#include <cstring>
#include <limits>

#include "files/file.h"
#include "support/mem_main.h"

namespace {

constexpr uint32_t MAX_U32 = std::numeric_limits<uint32_t>::max();

void store_le32(uint8_t* p, uint32_t v) {
  for (int i = 0; i < 4; ++i) p[i] = static_cast<uint8_t>(v >> (8 * i));
}

void store_be32(uint8_t* p, uint32_t v) {
  for (int i = 0; i < 4; ++i) p[i] = static_cast<uint8_t>(v >> (8 * (3 - i)));
}

uint32_t load_le32(const uint8_t* p) {
  uint32_t v = 0;
  for (int i = 3; i >= 0; --i) v = (v << 8) | p[i];
  return v;
}

uint32_t load_be32(const uint8_t* p) {
  uint32_t v = 0;
  for (int i = 0; i < 4; ++i) v = (v << 8) | p[i];
  return v;
}

uint64_t double_bits(double v) {
  uint64_t bits;
  std::memcpy(&bits, &v, sizeof bits);
  return bits;
}

double bits_double(uint64_t bits) {
  double v;
  std::memcpy(&v, &bits, sizeof v);
  return v;
}

uint32_t float_bits(float v) {
  uint32_t bits;
  std::memcpy(&bits, &v, sizeof bits);
  return bits;
}

float bits_float(uint32_t bits) {
  float v;
  std::memcpy(&v, &bits, sizeof v);
  return v;
}

}  // namespace

Tvx_bin::~Tvx_bin() {
  clear();
}

void Tvx_bin::clear() {
  Tvx_mem_main::free_and_null(f_buffer);
  f_capacity = f_size = f_offset = 0;
}

// Reallocates to exactly n bytes. A failed allocation leaves an empty buffer behind.
void Tvx_bin::reallocate(uint32_t n) {
  void* p = Tvx_mem_main::mem_realloc(f_buffer, n);
  if (!p) {
    clear();
    return;
  }
  f_buffer = static_cast<uint8_t*>(p);
  f_capacity = n;
  if (f_size > n) f_size = n;
  if (f_offset > n) f_offset = n;
}

void Tvx_bin::set_capacity(uint32_t n) {
  if (n == 0) {
    clear();
    return;
  }
  reallocate(n);
}

void Tvx_bin::set_size(uint32_t n) {
  if (n == f_size) return;
  if (f_capacity < n) {
    reallocate(n > MAX_U32 - f_step ? MAX_U32 : n + f_step);
    if (!f_buffer) return;
  }
  // Bytes that come into use are zeroed, so a read past the old end gives zeros.
  if (n > f_size) std::memset(f_buffer + f_size, 0, n - f_size);
  f_size = n;
  if (f_offset > n) f_offset = n;
}

void Tvx_bin::set_offset(uint32_t n) {
  if (n > f_size) set_size(n);
  f_offset = n <= f_size ? n : f_size;
}

uint8_t* Tvx_bin::reserve(uint32_t count) {
  if (count == 0 || count > MAX_U32 - f_offset) return nullptr;
  const uint32_t end = f_offset + count;
  if (end > f_size) set_size(end);
  if (!f_buffer || end > f_size) return nullptr;
  uint8_t* p = f_buffer + f_offset;
  f_offset = end;
  return p;
}

uint32_t Tvx_bin::put_data(uint32_t count, const void* data) {
  if (uint8_t* p = reserve(count)) std::memcpy(p, data, count);
  return f_offset;
}

uint32_t Tvx_bin::put_bool(bool v) {
  return put_char(v ? 1 : 0);
}

uint32_t Tvx_bin::put_char(char v) {
  return put_data(1, &v);
}

uint32_t Tvx_bin::put_int(int32_t v) {
  return put_uint(static_cast<uint32_t>(v));
}

uint32_t Tvx_bin::put_uint(uint32_t v) {
  return put_uint_byte_order(v, false);
}

uint32_t Tvx_bin::put_float(float v) {
  return put_uint(float_bits(v));
}

uint32_t Tvx_bin::put_double(double v) {
  return put_double_byte_order(v, false);
}

uint32_t Tvx_bin::put_str(const char* text) {
  const uint32_t length = static_cast<uint32_t>(std::strlen(text)) + 1;
  put_uint(length);
  return put_data(length, text);
}

uint32_t Tvx_bin::put_invert_int(int32_t v) {
  return put_int_byte_order(v, true);
}

uint32_t Tvx_bin::put_invert_uint(uint32_t v) {
  return put_uint_byte_order(v, true);
}

uint32_t Tvx_bin::put_invert_double(double v) {
  return put_double_byte_order(v, true);
}

uint32_t Tvx_bin::put_int_byte_order(int32_t v, bool invert) {
  return put_uint_byte_order(static_cast<uint32_t>(v), invert);
}

uint32_t Tvx_bin::put_uint_byte_order(uint32_t v, bool invert) {
  uint8_t bytes[4];
  invert ? store_be32(bytes, v) : store_le32(bytes, v);
  return put_data(4, bytes);
}

uint32_t Tvx_bin::put_double_byte_order(double v, bool invert) {
  const uint64_t bits = double_bits(v);
  uint8_t bytes[8];
  for (int i = 0; i < 8; ++i) {
    const int shift = 8 * (invert ? 7 - i : i);
    bytes[i] = static_cast<uint8_t>(bits >> shift);
  }
  return put_data(8, bytes);
}

uint32_t Tvx_bin::get_data(uint32_t count, void* data) {
  if (count == 0) return f_offset;
  if (const uint8_t* p = reserve(count)) {
    std::memcpy(data, p, count);
  } else {
    std::memset(data, 0, count);
  }
  return f_offset;
}

int Tvx_bin::get_char() {
  signed char c = 0;
  get_data(1, &c);
  return c;
}

bool Tvx_bin::get_bool() {
  return get_char() != 0;
}

int32_t Tvx_bin::get_int() {
  return static_cast<int32_t>(get_uint());
}

uint32_t Tvx_bin::get_uint() {
  return get_uint_byte_order(false);
}

float Tvx_bin::get_float() {
  return bits_float(get_uint());
}

double Tvx_bin::get_double() {
  return get_double_byte_order(false);
}

// The text is taken from the bytes that the buffer holds: a stored length that runs past the end of
// the data ends the text there, instead of growing the buffer by a count read from the data itself.
const char* Tvx_bin::get_str() {
  const uint32_t length = get_uint();
  const uint32_t available = f_size - f_offset;
  const uint32_t span = length < available ? length : available;
  const char* start = reinterpret_cast<const char*>(f_buffer) + f_offset;
  f_text.assign(start, span > 0 ? strnlen(start, span) : 0);
  f_offset += span;
  return f_text.c_str();
}

int32_t Tvx_bin::get_invert_int() {
  return get_int_byte_order(true);
}

uint32_t Tvx_bin::get_invert_uint() {
  return get_uint_byte_order(true);
}

double Tvx_bin::get_invert_double() {
  return get_double_byte_order(true);
}

int32_t Tvx_bin::get_int_byte_order(bool invert) {
  return static_cast<int32_t>(get_uint_byte_order(invert));
}

uint32_t Tvx_bin::get_uint_byte_order(bool invert) {
  uint8_t bytes[4];
  get_data(4, bytes);
  return invert ? load_be32(bytes) : load_le32(bytes);
}

double Tvx_bin::get_double_byte_order(bool invert) {
  uint8_t bytes[8];
  get_data(8, bytes);
  uint64_t bits = 0;
  for (int i = 0; i < 8; ++i) {
    const int shift = 8 * (invert ? 7 - i : i);
    bits |= static_cast<uint64_t>(bytes[i]) << shift;
  }
  return bits_double(bits);
}

int Tvx_bin::save_to_file(const char* path) {
  return save_to_file(Tvx_file::widen_path(path));
}

int Tvx_bin::save_to_file(const std::wstring& path) {
  Tvx_file file;
  const int rc = file.create(path);
  if (rc != 0) return rc;
  save_file_part(&file);
  file.close();
  return 0;
}

int Tvx_bin::load_from_file(const char* path) {
  return load_from_file(Tvx_file::widen_path(path));
}

int Tvx_bin::load_from_file(const std::wstring& path) {
  Tvx_file file;
  const int rc = file.open(path, true);
  if (rc != 0) return rc;
  const uint32_t size = file.get_size();
  set_capacity(size);
  set_size(size);
  f_offset = 0;
  file.read(f_buffer, f_size);
  return 0;
}

void Tvx_bin::load_file_part(Tvx_file* file, uint32_t count) {
  set_size(count);
  f_offset = 0;
  file->read(f_buffer, f_size);
}

void Tvx_bin::save_file_part(Tvx_file* file) {
  file->write(f_buffer, f_size);
}

void Tvx_bin::load_file_all(Tvx_file* file) {
  const uint32_t size = file->get_size();
  file->seek(0);
  load_file_part(file, size);
}

void Tvx_bin::save_file_all(Tvx_file* file) {
  file->seek(0);
  save_file_part(file);
}
