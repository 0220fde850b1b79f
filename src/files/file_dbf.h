// Table file (dBASE III, ".dbf"): field definitions, and a record-at-a-time engine that keeps one
// record in memory and writes it back when the cursor moves away. A field is a "property" (prp) here.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

class Tvx_file;

// One field definition: name, type letter, length and decimal count. Nothing is checked here; the
// file writer cuts what does not fit.
class Tvx_dbf_prpdef {
 public:
  const char* get_name() const { return f_name.c_str(); }
  char get_type() const { return f_type; }
  uint32_t get_length() const { return f_length; }
  uint32_t get_decimal() const { return f_decimal; }
  void set_name(const char* name) { f_name = name ? name : ""; }
  void set_type(char type) { f_type = type; }
  void set_length(uint32_t length) { f_length = length; }
  void set_decimal(uint32_t decimal) { f_decimal = decimal; }
  void assign(const Tvx_dbf_prpdef& other) { *this = other; }

 private:
  std::string f_name;
  char f_type = 'C';
  uint32_t f_length = 20;
  uint32_t f_decimal = 0;
};

// An owned list of field definitions.
class Tvx_dbf_prpdefs {
 public:
  void clear() { f_defs.clear(); }
  uint32_t get_size() const { return static_cast<uint32_t>(f_defs.size()); }
  Tvx_dbf_prpdef* get(uint32_t index) const { return f_defs[index].get(); }
  void set_size(uint32_t count);
  Tvx_dbf_prpdef* add();
  void assign(const Tvx_dbf_prpdefs& other);

 private:
  std::vector<std::unique_ptr<Tvx_dbf_prpdef>> f_defs;
};

class Tvx_file_dbf_exe {
 public:
  static constexpr uint32_t HEADER_SIZE = 32;
  static constexpr uint32_t DESCRIPTOR_SIZE = 32;
  static constexpr uint32_t NO_RECORD = 0xFFFFFFFFu;

  Tvx_file_dbf_exe();
  ~Tvx_file_dbf_exe();
  Tvx_file_dbf_exe(const Tvx_file_dbf_exe&) = delete;
  Tvx_file_dbf_exe& operator=(const Tvx_file_dbf_exe&) = delete;

  int open(const char* path, bool read_only);
  int create(const char* path, const Tvx_dbf_prpdefs* defs, uint32_t count);
  void close();

  uint8_t get_foxpro_code_page() const { return f_header[29]; }
  void set_foxpro_code_page(uint8_t code_page);
  uint32_t get_np() const { return f_np; }
  void set_np(uint32_t count);
  uint32_t get_nr() const;

  const char* get_prp_name(uint32_t index);
  void set_prp_name(uint32_t index, const char* name);
  int get_prp_type(uint32_t index) const;
  uint32_t get_prp_len(uint32_t index) const;
  int get_prp_dec(uint32_t index) const;
  bool find_prp_by_name(const char* name, uint32_t& index);

  void set_rec(uint32_t index);
  uint32_t get_rec() const { return f_cur_rec; }
  void save_rec(uint32_t index);
  void load_rec(uint32_t index);
  bool add_rec(uint32_t count);
  bool add_prp(const Tvx_dbf_prpdefs* defs);

  const char* get_str(uint32_t index);
  int get_int(uint32_t index);
  double get_dbl(uint32_t index);
  bool get_bool(uint32_t index);
  void set_str(uint32_t index, const char* text);
  void set_int(uint32_t index, int value);
  void set_dbl(uint32_t index, double value);
  void set_bool(uint32_t index, bool value);

  // Raw field bytes, without regard to the type letter.
  const char* get_prp_str(uint32_t index);
  int get_prp_int(uint32_t index);
  double get_prp_dbl(uint32_t index);
  void set_prp_str(uint32_t index, const char* text);
  void set_prp_int(uint32_t index, int value);
  void set_prp_dbl(uint32_t index, double value);

  void alloc_rec();
  void free_rec();
  void alloc_buff(uint32_t size);
  void free_buff();
  static bool try_bool(const char* text, bool* value);
  const char* generate_tmp_filename(const char* path);

 private:
  struct span {
    uint8_t* data;
    uint32_t size;
  };

  uint16_t header_size() const;
  bool read_header_that_fits();
  uint16_t record_size() const;
  uint8_t* descriptor(uint32_t index) const { return f_prp + DESCRIPTOR_SIZE * index; }
  span field(uint32_t index) const;
  uint32_t count_descriptors();
  void read_descriptors();
  bool record_position(uint32_t index, uint32_t& position) const;
  void write_header();
  void write_byte(uint8_t byte);
  void write_records(uint32_t count);
  void store_binary(uint32_t index, const void* value, uint32_t size);
  void load_binary(uint32_t index, void* value, uint32_t size) const;
  const char* format_text(const char* format, ...);
  bool copy_with_new_fields(const Tvx_dbf_prpdefs* defs);
  void copy_records(Tvx_file_dbf_exe& old, Tvx_file& out, const uint8_t* header);

  std::string f_file_name;
  std::string f_tmp_name;
  std::unique_ptr<Tvx_file> f_file;
  bool f_read_only = false;
  uint8_t f_header[HEADER_SIZE] = {};
  uint32_t f_np = 0;
  uint8_t* f_prp = nullptr;
  uint32_t f_cur_rec = NO_RECORD;
  bool f_dirty = false;
  uint8_t* f_rec = nullptr;
  uint8_t* f_blank = nullptr;
  uint32_t f_buff_size = 0;
  char* f_buff = nullptr;
};

// The public handle of a table: forwards to its engine. Wide paths are narrowed first.
class Tvx_file_dbf {
 public:
  Tvx_file_dbf();
  ~Tvx_file_dbf();
  Tvx_file_dbf(const Tvx_file_dbf&) = delete;
  Tvx_file_dbf& operator=(const Tvx_file_dbf&) = delete;

  int open(const char* path, bool read_only) { return f_exe->open(path, read_only); }
  int open(const std::wstring& path, bool read_only);
  int create(const char* path, const Tvx_dbf_prpdefs* defs, uint32_t count) {
    return f_exe->create(path, defs, count);
  }
  int create(const std::wstring& path, const Tvx_dbf_prpdefs* defs, uint32_t count);
  void close() { f_exe->close(); }

  uint8_t get_foxpro_code_page() const { return f_exe->get_foxpro_code_page(); }
  void set_foxpro_code_page(uint8_t code_page) { f_exe->set_foxpro_code_page(code_page); }
  uint32_t get_np() const { return f_exe->get_np(); }
  uint32_t get_nr() const { return f_exe->get_nr(); }
  const char* get_prp_name(uint32_t index) { return f_exe->get_prp_name(index); }
  void set_prp_name(uint32_t index, const char* name) { f_exe->set_prp_name(index, name); }
  int get_prp_type(uint32_t index) const { return f_exe->get_prp_type(index); }
  uint32_t get_prp_len(uint32_t index) const { return f_exe->get_prp_len(index); }
  int get_prp_dec(uint32_t index) const { return f_exe->get_prp_dec(index); }
  bool find_prp_by_name(const char* name, uint32_t& index) { return f_exe->find_prp_by_name(name, index); }

  void set_rec(uint32_t index) { f_exe->set_rec(index); }
  const char* get_str(uint32_t index) { return f_exe->get_str(index); }
  int get_int(uint32_t index) { return f_exe->get_int(index); }
  double get_dbl(uint32_t index) { return f_exe->get_dbl(index); }
  bool get_bool(uint32_t index) { return f_exe->get_bool(index); }
  void set_str(uint32_t index, const char* text) { f_exe->set_str(index, text); }
  void set_int(uint32_t index, int value) { f_exe->set_int(index, value); }
  void set_dbl(uint32_t index, double value) { f_exe->set_dbl(index, value); }
  void set_bool(uint32_t index, bool value) { f_exe->set_bool(index, value); }
  bool add_rec(uint32_t count) { return f_exe->add_rec(count); }
  bool add_prp(const Tvx_dbf_prpdefs* defs) { return f_exe->add_prp(defs); }

 private:
  Tvx_file_dbf_exe* f_exe;
};
