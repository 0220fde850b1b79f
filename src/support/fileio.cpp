#include "support/fileio.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cwchar>

#include "support/filesystem.h"

namespace vx::detail {

namespace {

int open_flags(const wchar_t* mode) {
  const bool writes = std::wcspbrk(mode, L"+wa") != nullptr;
  int flags = writes ? O_RDWR : O_RDONLY;
  if (std::wcschr(mode, L'w')) flags |= O_CREAT | O_TRUNC;
  return flags;
}

// One write of at most `size` bytes, repeated on an interrupt. Bytes written or -1.
ssize_t write_once(int fd, const char* data, size_t size) {
  for (;;) {
    const ssize_t n = ::write(fd, data, size);
    if (n >= 0 || errno != EINTR) return n;
  }
}

}  // namespace

bool fileio_win::open(const std::wstring& path, const wchar_t* mode, lock_mode_t) {
  close();
  if (!mode) return false;
  f_handle = vx::filesystem::open_descriptor(path, open_flags(mode));
  if (f_handle < 0) return false;
  if (std::wcschr(mode, L'a')) ::lseek(f_handle, 0, SEEK_END);
  return true;
}

void fileio_win::close() {
  if (f_handle >= 0) ::close(f_handle);
  f_handle = -1;
}

int64_t fileio_win::write_blocks(const void* pointer, size_t size, size_t block) {
  const char* data = static_cast<const char*>(pointer);
  if (block == 0) block = WRITE_BLOCK;
  int64_t total = 0;
  while (size > 0) {
    const size_t want = size < block ? size : block;
    const ssize_t n = write_once(f_handle, data, want);
    if (n < 0) return -1;
    total += n;
    if (static_cast<size_t>(n) != want) break;
    data += n;
    size -= want;
  }
  return total;
}

}  // namespace vx::detail

namespace vx::fileio {

bool writeall(const std::wstring& path, vx::strconv::encodings encoding, const std::wstring& text) {
  vx::detail::fileio_win file("\r\n");
  if (!file.open(path, L"w")) return false;
  const std::string bytes = vx::strconv::encode(encoding, text);
  const int64_t written = file._write_bytes(bytes.data(), bytes.size());
  file.close();
  return written == static_cast<int64_t>(bytes.size());
}

}  // namespace vx::fileio
