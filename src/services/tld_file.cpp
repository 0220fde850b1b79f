// TLD file handles: a path that is read whole into a list, or written whole from one.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <new>
#include <string>
#include <vector>

#include "services/text_list.h"
#include "services/tld_format.h"
#include "support/ansi_code_page.h"
#include "support/filesystem.h"
#include "vxk_proj4_shp.h"

namespace fs = vx::filesystem;

struct Tvx_tld_file {
  std::wstring path;
  std::wstring error;
};

namespace {

std::wstring system_error(const wchar_t* what, const std::wstring& path) {
  return std::wstring(what) + L" " + path + L": " + vx::strconv::utf8_to_wide(std::strerror(errno));
}

// A handle serves the source of a copy, which exists, and its destination, which may not exist yet:
// a path is usable when it is a regular file that can be read, or when it is missing and its folder
// exists.
bool usable(const std::wstring& path) {
  if (fs::path_exist(path)) return fs::is_file(path) && fs::file_readable(path);
  const std::wstring folder = fs::directory(path);
  return folder.empty() || fs::is_directory(folder);
}

// Reads the whole file; never more than the size the file had when it was opened.
bool read_file(const std::wstring& path, std::vector<uint8_t>& bytes, std::wstring& error) {
  const int fd = fs::open_descriptor(path, O_RDONLY | O_CLOEXEC);
  if (fd < 0) {
    error = system_error(L"cannot open", path);
    return false;
  }
  struct stat st {};
  bool ok = ::fstat(fd, &st) == 0 && S_ISREG(st.st_mode);
  if (ok) bytes.resize(static_cast<size_t>(st.st_size));
  size_t done = 0;
  while (ok && done < bytes.size()) {
    const ssize_t n = ::read(fd, bytes.data() + done, bytes.size() - done);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) break;
    done += static_cast<size_t>(n);
  }
  if (!ok) error = system_error(L"cannot read", path);
  bytes.resize(done);
  ::close(fd);
  return ok;
}

bool write_bytes(int fd, const std::vector<uint8_t>& bytes) {
  size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t n = ::write(fd, bytes.data() + done, bytes.size() - done);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return false;
    done += static_cast<size_t>(n);
  }
  return true;
}

// An existing file keeps its modes when it is replaced.
void keep_modes(int fd, const std::wstring& target) {
  struct stat st {};
  if (::stat(fs::os_path(target).c_str(), &st) == 0) ::fchmod(fd, st.st_mode & 07777);
}

// The file is written whole under a fresh name beside it (beside the file a link points to) and renamed
// over it only when it is complete and on the disk. So a write that fails, on a full disk or under a
// file size limit, leaves the earlier file as it was, and a list read from a file can be written back
// to the same file.
bool write_file(const std::wstring& path, const std::vector<uint8_t>& bytes, std::wstring& error) {
  const std::wstring target = fs::real_path(path);
  std::wstring temp;
  const int fd = fs::create_beside(target, temp);
  if (fd < 0) {
    error = system_error(L"cannot create a file beside", path);
    return false;
  }
  keep_modes(fd, target);
  bool ok = write_bytes(fd, bytes) && ::fsync(fd) == 0;
  if (!ok) error = system_error(L"cannot write", path);
  if (::close(fd) != 0 && ok) {
    error = system_error(L"cannot write", path);
    ok = false;
  }
  if (ok && !fs::move_file(temp, target, true)) {
    error = system_error(L"cannot replace", path);
    ok = false;
  }
  if (!ok) fs::remove_file(temp);
  return ok;
}

bool read_all(Tvx_tld_file& file, Tvx_text_list_base& list) {
  list.clear();
  std::vector<uint8_t> bytes;
  if (!read_file(file.path, bytes, file.error)) return false;
  file.error = vx::tld::decode(bytes.data(), bytes.size(), list);
  return file.error.empty();
}

bool write_all(Tvx_tld_file& file, const Tvx_text_list_base& list) {
  std::vector<uint8_t> bytes;
  file.error = vx::tld::encode(list, bytes);
  return file.error.empty() && write_file(file.path, bytes, file.error);
}

}  // namespace

extern "C" {

VX_API Tvx_tld_file* vx_tld_file_open_w(const wchar_t* path) {
  try {
    std::wstring text = path ? path : L"";
    if (text.empty() || !usable(text)) return nullptr;
    return new Tvx_tld_file{std::move(text), {}};
  } catch (const std::exception&) {
    return nullptr;
  }
}

VX_API bool vx_tld_file_read_all(Tvx_tld_file* file, Tvx_text_list_base* list) {
  try {
    return read_all(*file, *list);
  } catch (const std::exception&) {
    file->error = L"out of memory";
    return false;
  }
}

VX_API bool vx_tld_file_write_all(Tvx_tld_file* file, const Tvx_text_list_base* list, int mode) {
  if (mode != 0) {
    file->error = L"unknown write mode " + std::to_wstring(mode);
    return false;
  }
  try {
    return write_all(*file, *list);
  } catch (const std::exception&) {
    file->error = L"out of memory";
    return false;
  }
}

VX_API const wchar_t* vx_tld_file_get_error(const Tvx_tld_file* file) {
  return file->error.c_str();
}

VX_API void vx_tld_file_close(Tvx_tld_file* file) {
  delete file;
}

}  // extern "C"
