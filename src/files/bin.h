// Tvx_bin: a growing byte buffer with a cursor. Shape records are assembled in it and taken apart from
// it; it reads and writes both byte orders because the shape format mixes them.
#pragma once

#include <cstdint>
#include <string>

class Tvx_file;

class Tvx_bin {
 public:
  // Growth step of the buffer: reallocation stays rare while a record is built.
  static constexpr uint32_t GROWTH_STEP = 1048576;

  Tvx_bin() = default;
  ~Tvx_bin();
  Tvx_bin(const Tvx_bin&) = delete;
  Tvx_bin& operator=(const Tvx_bin&) = delete;

  void clear();
  uint8_t* get_buffer_ptr() const { return f_buffer; }
  uint32_t get_capacity() const { return f_capacity; }
  void set_capacity(uint32_t n);
  uint32_t get_size() const { return f_size; }
  void set_size(uint32_t n);
  uint32_t get_offset() const { return f_offset; }
  void set_offset(uint32_t n);

  uint32_t put_data(uint32_t count, const void* data);
  uint32_t put_bool(bool v);
  uint32_t put_char(char v);
  uint32_t put_int(int32_t v);
  uint32_t put_uint(uint32_t v);
  uint32_t put_float(float v);
  uint32_t put_double(double v);
  uint32_t put_str(const char* text);
  uint32_t put_invert_int(int32_t v);
  uint32_t put_invert_uint(uint32_t v);
  uint32_t put_invert_double(double v);
  uint32_t put_int_byte_order(int32_t v, bool invert);
  uint32_t put_uint_byte_order(uint32_t v, bool invert);
  uint32_t put_double_byte_order(double v, bool invert);

  uint32_t get_data(uint32_t count, void* data);
  int get_char();
  bool get_bool();
  int32_t get_int();
  uint32_t get_uint();
  float get_float();
  double get_double();
  const char* get_str();
  int32_t get_invert_int();
  uint32_t get_invert_uint();
  double get_invert_double();
  int32_t get_int_byte_order(bool invert);
  uint32_t get_uint_byte_order(bool invert);
  double get_double_byte_order(bool invert);

  int save_to_file(const char* path);
  int save_to_file(const std::wstring& path);
  int load_from_file(const char* path);
  int load_from_file(const std::wstring& path);
  void load_file_part(Tvx_file* file, uint32_t count);
  void save_file_part(Tvx_file* file);
  void load_file_all(Tvx_file* file);
  void save_file_all(Tvx_file* file);

 private:
  // Makes room for count bytes at the cursor (growing size as a put does) and returns their address,
  // or null when the buffer cannot hold them (a 32-bit overflow or a failed allocation).
  uint8_t* reserve(uint32_t count);
  void reallocate(uint32_t n);

  uint32_t f_step = GROWTH_STEP;
  uint32_t f_capacity = 0;
  uint32_t f_size = 0;
  uint32_t f_offset = 0;
  uint8_t* f_buffer = nullptr;
  std::string f_text;
};
