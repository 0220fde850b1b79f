#include "files/file.h"

#include <cstring>

#include "support/ansi_code_page.h"
#include "support/env.h"
#include "support/filesystem.h"

namespace {

// Messages of the error block of the message table: open, read and write failures.
constexpr int ERR_BLOCK = 10;
constexpr int ERR_OPEN = 1;
constexpr int ERR_READ = 2;
constexpr int ERR_WRITE = 3;

}  // namespace

Tvx_file::~Tvx_file() {
  close();
}

std::wstring Tvx_file::widen_path(const char* path) {
  return vx::strconv::utf8_to_wide(path ? path : "");
}

int Tvx_file::open(const char* path, bool read_only) {
  return open(widen_path(path), read_only);
}

int Tvx_file::open(const std::wstring& path, bool read_only) {
  f_read_only = read_only;
  return open_mode(path, read_only ? "rb" : "rb+");
}

int Tvx_file::create(const char* path) {
  return create(widen_path(path));
}

int Tvx_file::create(const std::wstring& path) {
  f_read_only = false;
  return open_mode(path, "wb+");
}

int Tvx_file::open_mode(const std::wstring& path, const char* mode) {
  close();
  f_name = path;
  f_stream = vx::filesystem::open_file(path, mode);
  if (f_stream) return 0;
  err_open();
  return 1;
}

// Buffered bytes reach the disk only here, so a failed close is a failed write.
void Tvx_file::close() {
  if (!f_stream) return;
  const bool flushed = std::fclose(f_stream) == 0;
  f_stream = nullptr;
  if (!flushed) err_write();
}

void Tvx_file::seek(uint32_t position) {
  if (f_stream) std::fseek(f_stream, static_cast<long>(position), SEEK_SET);
}

void Tvx_file::seek_from_end(long position) {
  if (f_stream) std::fseek(f_stream, position, SEEK_END);
}

uint32_t Tvx_file::get_size() {
  if (!f_stream) return 0;
  const long here = std::ftell(f_stream);
  std::fseek(f_stream, 0, SEEK_END);
  const long end = std::ftell(f_stream);
  std::fseek(f_stream, here, SEEK_SET);
  return end < 0 ? 0 : static_cast<uint32_t>(end);
}

// One block of count bytes is moved or the failure is reported; the result is 0 either way, and a
// count of 0 moves no block and so counts as a failure.
int Tvx_file::read(void* data, uint32_t count) {
  if (!f_stream || std::fread(data, count, 1, f_stream) != 1) err_read();
  return 0;
}

int Tvx_file::write(const void* data, uint32_t count) {
  if (!f_stream || std::fwrite(data, count, 1, f_stream) != 1) err_write();
  return 0;
}

void Tvx_file::err_open() {
  report(ERR_OPEN);
}
void Tvx_file::err_read() {
  report(ERR_READ);
}
void Tvx_file::err_write() {
  report(ERR_WRITE);
}

// The wide name goes into the narrow format as its raw bytes, so the message stops at the first zero
// byte: a Latin name shows as its first letter. That is how the report has always looked.
void Tvx_file::report(int index) {
  Tvx_env_main::error_rc(ERR_BLOCK, index, reinterpret_cast<const char*>(f_name.c_str()));
}
