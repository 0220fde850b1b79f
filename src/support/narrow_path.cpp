#include "support/narrow_path.h"

#include <cstring>
#include <string>

#include "support/ansi_code_page.h"
#include "support/filesystem.h"

char Tvx_path::f_path[VX_NARROW_PATH_MAX];
char Tvx_path::f_buffer[VX_NARROW_PATH_MAX];
char Tvx_path::f_drive[VX_NARROW_PATH_MAX];
char Tvx_path::f_dir[VX_NARROW_PATH_MAX];
char Tvx_path::f_fname[VX_NARROW_PATH_MAX];
char Tvx_path::f_ext[VX_NARROW_PATH_MAX];
char Tvx_path::f_tmp_filename[VX_NARROW_PATH_MAX];

namespace {

constexpr size_t kCopyBlock = 2048;

bool is_separator(char c) {
  return c == '\\' || c == '/';
}

// Copies at most VX_NARROW_PATH_MAX - 1 characters and the terminator into a caller's buffer.
void put(char* out, const std::string& text) {
  if (!out) return;
  const size_t n = text.size() < VX_NARROW_PATH_MAX - 1 ? text.size() : VX_NARROW_PATH_MAX - 1;
  std::memcpy(out, text.data(), n);
  out[n] = '\0';
}

std::string text_of(const char* s) {
  return s ? s : "";
}

std::FILE* open_narrow(const char* path, const char* mode) {
  return path ? vx::filesystem::open_file(vx::strconv::utf8_to_wide(path), mode) : nullptr;
}

bool remove_narrow(const char* path) {
  return vx::filesystem::remove_file(vx::strconv::utf8_to_wide(text_of(path)));
}

// Copies up to `limit` bytes from one stream to another in blocks of 2048 bytes; gives the count copied.
uint64_t copy_stream(std::FILE* in, std::FILE* out, uint64_t limit) {
  char block[kCopyBlock];
  uint64_t total = 0;
  while (total < limit) {
    const size_t want = limit - total < kCopyBlock ? static_cast<size_t>(limit - total) : kCopyBlock;
    const size_t n = std::fread(block, 1, want, in);
    if (n == 0) break;
    std::fwrite(block, 1, n, out);
    total += n;
  }
  return total;
}

bool write_zeros(std::FILE* out, uint64_t count) {
  const char zeros[kCopyBlock] = {};
  while (count > 0) {
    const size_t n = count < kCopyBlock ? static_cast<size_t>(count) : kCopyBlock;
    if (std::fwrite(zeros, 1, n, out) != n) return false;
    count -= n;
  }
  return true;
}

}  // namespace

void vx_split_path(const char* path, char* drive, char* directory, char* name, char* extension) {
  const std::string p = text_of(path);
  const size_t drive_len = p.size() >= 2 && p[1] == ':' ? 2 : 0;
  size_t name_start = drive_len;
  for (size_t i = drive_len; i < p.size(); ++i)
    if (is_separator(p[i])) name_start = i + 1;
  const size_t dot = p.rfind('.');
  const size_t ext_start = dot != std::string::npos && dot >= name_start ? dot : p.size();
  put(drive, p.substr(0, drive_len));
  put(directory, p.substr(drive_len, name_start - drive_len));
  put(name, p.substr(name_start, ext_start - name_start));
  put(extension, p.substr(ext_start));
}

void vx_make_path(char* out, const char* drive, const char* directory, const char* name,
                  const char* extension) {
  std::string p;
  if (drive && *drive) p += std::string(1, drive[0]) + ":";
  const std::string dir = text_of(directory);
  if (!dir.empty()) p += is_separator(dir.back()) ? dir : dir + "\\";
  p += text_of(name);
  const std::string ext = text_of(extension);
  if (!ext.empty()) p += ext[0] == '.' ? ext : "." + ext;
  put(out, p);
}

void Tvx_path::split(const char* path) {
  vx_split_path(path, f_drive, f_dir, f_fname, f_ext);
}

const char* Tvx_path::change_file_ext(const char* path, const char* extension) {
  split(path);
  vx_make_path(f_path, f_drive, f_dir, f_fname, extension);
  return f_path;
}

const char* Tvx_path::change_file_name(const char* path, const char* name) {
  split(name);
  const std::string fname = f_fname;
  const std::string ext = f_ext;
  split(path);
  vx_make_path(f_path, f_drive, f_dir, fname.c_str(), ext.c_str());
  return f_path;
}

const char* Tvx_path::get_file_drive(const char* path) {
  split(path);
  return f_drive;
}

const char* Tvx_path::get_file_dir(const char* path) {
  split(path);
  return f_dir;
}

const char* Tvx_path::get_file_name(const char* path) {
  split(path);
  return f_fname;
}

const char* Tvx_path::get_file_ext(const char* path) {
  split(path);
  put(f_buffer, f_ext[0] == '.' ? f_ext + 1 : f_ext);
  return f_buffer;
}

const char* Tvx_path::get_file_path(const char* path) {
  split(path);
  put(f_buffer, std::string(f_drive) + f_dir);
  return f_buffer;
}

const char* Tvx_path::make_file_path(const char* drive, const char* directory, const char* name,
                                     const char* extension) {
  vx_make_path(f_path, drive, directory, name, extension);
  return f_path;
}

const char* Tvx_path::make_tmp_filename(const char* path) {
  const std::wstring dir = vx::filesystem::directory(vx::strconv::utf8_to_wide(text_of(path)));
  put(f_tmp_filename, vx::strconv::wide_to_utf8(vx::filesystem::temp_filename(dir, L"vxt")));
  return f_tmp_filename;
}

bool Tvx_file_func::can_create_new(const char* path) {
  if (std::FILE* f = open_narrow(path, "rb")) {
    std::fclose(f);
    return false;
  }
  std::FILE* f = open_narrow(path, "wb");
  if (!f) return false;
  std::fclose(f);
  remove_narrow(path);
  return true;
}

bool Tvx_file_func::can_read(const char* path) {
  std::FILE* f = open_narrow(path, "rb");
  if (f) std::fclose(f);
  return f != nullptr;
}

uint32_t Tvx_file_func::file_size(const char* path) {
  std::FILE* f = open_narrow(path, "rb");
  if (!f) return 0;
  const uint32_t size = file_size(f);
  std::fclose(f);
  return size;
}

uint32_t Tvx_file_func::file_size(std::FILE* stream) {
  if (!stream) return 0;
  const long at = std::ftell(stream);
  if (at < 0 || std::fseek(stream, 0, SEEK_END) != 0) return 0;
  const long end = std::ftell(stream);
  std::fseek(stream, at, SEEK_SET);
  return end < 0 ? 0 : static_cast<uint32_t>(end);
}

int Tvx_file_func::copy(const char* from, const char* to) {
  std::FILE* in = open_narrow(from, "rb");
  std::FILE* out = in ? open_narrow(to, "wb") : nullptr;
  if (in && out) copy_stream(in, out, UINT64_MAX);
  if (out) std::fclose(out);
  if (in) std::fclose(in);
  return 0;
}

int Tvx_file_func::move(const char* from, const char* to) {
  copy(from, to);
  remove_narrow(from);
  return 0;
}

int Tvx_file_func::resize(const char* path, uint32_t size) {
  std::FILE* in = open_narrow(path, "rb");
  if (!in) return 1;
  const std::string tmp = Tvx_path::make_tmp_filename(path);
  std::FILE* out = tmp.empty() ? nullptr : open_narrow(tmp.c_str(), "wb");
  bool ok = out != nullptr;
  if (ok) ok = write_zeros(out, size - copy_stream(in, out, size));
  std::fclose(in);
  if (out) ok = std::fclose(out) == 0 && ok;
  if (ok)
    ok = vx::filesystem::copy_file(vx::strconv::utf8_to_wide(tmp), vx::strconv::utf8_to_wide(path), true);
  if (!tmp.empty()) remove_narrow(tmp.c_str());
  return ok ? 0 : 1;
}
