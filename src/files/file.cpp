#include "files/file.h"

#include <sys/stat.h>

#include <cerrno>
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

// The system's reason for the failure that set errno just now.
std::string system_reason() {
  return std::strerror(errno);
}

bool is_directory(std::FILE* f) {
  struct stat st {};
  return ::fstat(fileno(f), &st) == 0 && S_ISDIR(st.st_mode);
}

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

// A folder opens like a file for reading on this system, and then claims a size it does not have: it is
// refused here, as a file that cannot be opened.
int Tvx_file::open_mode(const std::wstring& path, const char* mode) {
  close();
  f_name = path;
  f_stream = vx::filesystem::open_file(path, mode);
  if (f_stream && is_directory(f_stream)) {
    std::fclose(f_stream);
    f_stream = nullptr;
    errno = EISDIR;
  }
  if (f_stream) return 0;
  report(ERR_OPEN, path.empty() ? std::string("empty path") : system_reason());
  return 1;
}

// What was written but still sits in the stream's buffer reaches the file here, so a failure here is
// a lost write.
void Tvx_file::close() {
  if (!f_stream) return;
  const bool failed = std::fclose(f_stream) != 0;
  f_stream = nullptr;
  if (failed && !f_read_only) report(ERR_WRITE, system_reason());
}

void Tvx_file::position(long offset, int whence) {
  if (f_stream && std::fseek(f_stream, offset, whence) != 0) report(ERR_WRITE, system_reason());
}

void Tvx_file::seek(uint32_t position_from_start) {
  position(static_cast<long>(position_from_start), SEEK_SET);
}

void Tvx_file::seek_from_end(long offset) {
  position(offset, SEEK_END);
}

uint32_t Tvx_file::get_size() {
  if (!f_stream) return 0;
  const long here = std::ftell(f_stream);
  position(0, SEEK_END);
  const long end = std::ftell(f_stream);
  position(here, SEEK_SET);
  return end < 0 ? 0 : static_cast<uint32_t>(end);
}

std::string Tvx_file::read_failure_reason() const {
  if (!f_stream) return "the file is not open";
  if (std::ferror(f_stream)) return system_reason();
  return "the file ends before the data";
}

// One block of count bytes is moved or the failure is reported; the result is 0 either way, and a
// count of 0 moves no block and so counts as a failure (without a reason from the system).
int Tvx_file::read(void* data, uint32_t count) {
  errno = 0;
  if (!f_stream || std::fread(data, count, 1, f_stream) != 1)
    report(ERR_READ, count ? read_failure_reason() : "");
  return 0;
}

int Tvx_file::write(const void* data, uint32_t count) {
  errno = 0;
  if (!f_stream || std::fwrite(data, count, 1, f_stream) != 1) {
    report(ERR_WRITE, !f_stream ? "the file is not open" : count && errno ? system_reason() : "");
  }
  return 0;
}

void Tvx_file::err_open() {
  report(ERR_OPEN, "");
}
void Tvx_file::err_read() {
  report(ERR_READ, "");
}
void Tvx_file::err_write() {
  report(ERR_WRITE, "");
}

// The message of the table with the file's whole name, in the narrow code page of messages, followed
// by the system's reason when there is one.
void Tvx_file::report(int index, const std::string& reason) {
  ++f_failures;
  if (!Tvx_env_main::get_env()) return;
  std::string text = Tvx_env_main::format_rc(ERR_BLOCK, index, vx::strconv::wide_to_ansi(f_name).c_str());
  if (!reason.empty()) text += ": " + reason;
  Tvx_env_main::error(text.c_str());
}

void Tvx_file::report_content(const std::wstring& path, const std::string& what) {
  if (!Tvx_env_main::get_env()) return;
  const std::string text = "'" + vx::strconv::wide_to_ansi(path) + "' " + what;
  Tvx_env_main::error(text.c_str());
}
