// The text functions of the path algebra: pure operations on wide path texts.
#include <stdexcept>

#include "support/filesystem.h"
#include "support/text_case.h"

namespace vx::filesystem {

namespace {

constexpr const wchar_t* kSeparators = L"\\/";
constexpr const wchar_t* kBadPathChars = L"<>:\"|?*";
constexpr const wchar_t* kBadNameChars = L"\\<>:\"|?*//";  // the slash twice, as the set has always stood

bool is_separator(wchar_t c) {
  return c == L'\\' || c == L'/';
}

bool is_latin_letter(wchar_t c) {
  return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z');
}

bool has_drive_mark(const std::wstring& path) {
  return path.size() >= 2 && path[1] == L':';
}

bool in_set(wchar_t c, const wchar_t* set) {
  for (; *set; ++set)
    if (*set == c) return true;
  return false;
}

// Position where the file name starts.
size_t name_start(const std::wstring& path) {
  const size_t sep = path.find_last_of(kSeparators);
  return sep == std::wstring::npos ? 0 : sep + 1;
}

// Components between separators, empty ones dropped.
std::vector<std::wstring> split(const std::wstring& path) {
  std::vector<std::wstring> parts;
  std::wstring part;
  for (wchar_t c : path) {
    if (!is_separator(c)) {
      part += c;
      continue;
    }
    if (!part.empty()) parts.push_back(part);
    part.clear();
  }
  if (!part.empty()) parts.push_back(part);
  return parts;
}

// Keeps "." out and lets ".." eat the last kept component (but never another "..").
std::vector<std::wstring> resolve_dots(const std::vector<std::wstring>& parts) {
  std::vector<std::wstring> kept;
  for (const std::wstring& p : parts) {
    if (p == L".") continue;
    if (p == L".." && !kept.empty() && kept.back() != L"..") {
      kept.pop_back();
      continue;
    }
    kept.push_back(p);
  }
  return kept;
}

// Cuts the path at `dot` (unless it is npos or the very first character) and adds the new extension.
std::wstring replace_from(const std::wstring& path, size_t dot, const std::wstring& extension) {
  std::wstring result = (dot == std::wstring::npos || dot == 0) ? path : path.substr(0, dot);
  if (extension.empty()) return result;
  if (extension[0] != L'.') result += L'.';
  return result + extension;
}

std::wstring replace_bad(std::wstring text, const wchar_t* bad, bool spare_drive_mark) {
  for (size_t i = 0; i < text.size(); ++i) {
    if (spare_drive_mark && i == 1 && text[i] == L':') continue;
    if (in_set(text[i], bad)) text[i] = L'_';
  }
  return text;
}

}  // namespace

bool is_absolute(const std::wstring& path) {
  if (path.empty()) return false;
  return is_separator(path[0]) || has_drive_mark(path);
}

bool is_relative(const std::wstring& path) {
  return !is_absolute(path);
}

std::wstring drive(const std::wstring& path) {
  return has_drive_mark(path) && is_latin_letter(path[0]) ? path.substr(0, 2) : std::wstring();
}

std::wstring directory(const std::wstring& path) {
  return path.substr(0, name_start(path));
}

std::wstring filename(const std::wstring& path) {
  return path.substr(name_start(path));
}

std::wstring basename(const std::wstring& path) {
  const std::wstring name = filename(path);
  const size_t dot = name.rfind(L'.');
  return dot == std::wstring::npos || dot == 0 ? name : name.substr(0, dot);
}

std::wstring extension(const std::wstring& path) {
  const std::wstring name = filename(path);
  const size_t dot = name.rfind(L'.');
  if (dot == std::wstring::npos || dot == 0) return std::wstring();
  return vx::text::to_lower(name.substr(dot));
}

std::wstring full_extension(const std::wstring& path) {
  const std::wstring name = filename(path);
  const size_t dot = name.find(L'.');
  return dot == std::wstring::npos ? std::wstring() : name.substr(dot);
}

std::wstring change_extension(const std::wstring& path, const std::wstring& extension) {
  const size_t stop = path.find_last_of(L".\\/");
  const bool is_dot = stop != std::wstring::npos && path[stop] == L'.';
  return replace_from(path, is_dot ? stop : std::wstring::npos, extension);
}

std::wstring change_full_extension(const std::wstring& path, const std::wstring& extension) {
  return replace_from(path, path.find(L'.', name_start(path)), extension);
}

std::wstring change_filename(const std::wstring& path, const std::wstring& name) {
  return directory(path) + name;
}

std::wstring change_basename(const std::wstring& path, const std::wstring& name) {
  const std::wstring file = filename(path);
  return directory(path) + name + file.substr(basename(path).size());
}

std::wstring change_directory(const std::wstring& path, const std::wstring& directory) {
  if (directory.empty()) return filename(path);
  return include_directory_separator(directory) + filename(path);
}

std::wstring add_suffix(const std::wstring& path, const std::wstring& suffix) {
  const std::wstring base = basename(path);
  return directory(path) + base + suffix + filename(path).substr(base.size());
}

std::wstring mangle_filename(const std::wstring& path) {
  return path;
}

std::wstring include_directory_separator(const std::wstring& path) {
  if (!path.empty() && is_separator(path.back())) return path;
  return path + L'\\';
}

std::wstring native_path(const std::wstring& path) {
  std::wstring result = path;
  for (wchar_t& c : result)
    if (c == L'/') c = L'\\';
  return result;
}

std::wstring clean_path(const std::wstring& path) {
  if (path.empty()) return path;
  std::vector<std::wstring> parts = split(path);
  const std::wstring drive_mark =
      has_drive_mark(path) && is_latin_letter(path[0]) ? path.substr(0, 2) : std::wstring();
  if (!drive_mark.empty() && !parts.empty()) parts.erase(parts.begin());
  std::wstring result;
  if (is_separator(path[0])) {
    result += L'\\';
    if (path.size() > 1 && is_separator(path[1])) result += L'\\';
  }
  if (!drive_mark.empty()) result += drive_mark + L'\\';
  for (const std::wstring& p : resolve_dots(parts)) result += p + L'\\';
  if (result.empty()) throw std::out_of_range("invalid string position");
  result.pop_back();
  return result;
}

std::wstring combine(const std::wstring& left, const std::wstring& right) {
  if (left.empty()) return right;
  if (right.empty()) return left;
  if (is_separator(right[0]) || has_drive_mark(right)) return right;
  return include_directory_separator(left) + right;
}

std::wstring combine(const std::vector<std::wstring>& parts) {
  std::wstring result;
  for (const std::wstring& p : parts) result = combine(result, p);
  return result;
}

std::wstring absolute_path(const std::wstring& base, const std::wstring& path) {
  if (!path.empty() && is_absolute(path)) return clean_path(path);
  return clean_path(combine(directory(base), path));
}

std::wstring relative_path(const std::wstring& base, const std::wstring& target) {
  const std::wstring from = clean_path(directory(base));
  const std::wstring to = clean_path(target);
  const std::wstring from_drive = drive(from);
  const std::wstring to_drive = drive(to);
  if (!from_drive.empty() && !to_drive.empty() && !vx::text::equal_nocase(from_drive, to_drive)) return to;
  auto is_network = [](const std::wstring& p) {
    return p.size() >= 2 && is_separator(p[0]) && is_separator(p[1]);
  };
  if (is_network(to) && !is_network(from)) return to;
  const std::vector<std::wstring> from_parts = split(from.substr(from_drive.size()));
  const std::vector<std::wstring> to_parts = split(to.substr(to_drive.size()));
  size_t common = 0;
  while (common < from_parts.size() && common < to_parts.size() &&
         vx::text::equal_nocase(from_parts[common], to_parts[common]))
    ++common;
  std::wstring result;
  for (size_t i = common; i < from_parts.size(); ++i) result += L"..\\";
  for (size_t i = common; i < to_parts.size(); ++i) result += to_parts[i] + L'\\';
  if (!result.empty()) result.pop_back();
  return result;
}

std::wstring common_directory(const std::vector<std::wstring>& paths) {
  if (paths.empty()) return std::wstring();
  std::vector<std::wstring> common = split(paths[0]);
  for (size_t i = 1; i < paths.size(); ++i) {
    const std::vector<std::wstring> parts = split(paths[i]);
    size_t n = 0;
    while (n < common.size() && n < parts.size() && vx::text::equal_nocase(common[n], parts[n])) ++n;
    common.resize(n);
  }
  std::wstring result;
  for (const std::wstring& p : common) result += (result.empty() ? L"" : L"\\") + p;
  return result;
}

bool is_equal(const std::wstring& a, const std::wstring& b) {
  return vx::text::equal_nocase(clean_path(a), clean_path(b));
}

bool is_valid(wchar_t character) {
  return character == 0 || !in_set(character, kBadPathChars);
}

bool is_valid_file_name(wchar_t character) {
  return character == 0 || !in_set(character, kBadNameChars);
}

bool is_valid(const std::wstring& path) {
  for (size_t i = 0; i < path.size(); ++i) {
    if (i == 1 && path[i] == L':') continue;
    if (!is_valid(path[i])) return false;
  }
  return true;
}

bool is_valid_file_name(const std::wstring& name) {
  for (wchar_t c : name)
    if (!is_valid_file_name(c)) return false;
  return true;
}

std::wstring make_valid(const std::wstring& path) {
  return replace_bad(path, kBadPathChars, true);
}

std::wstring make_valid_filename(const std::wstring& name) {
  return replace_bad(name, kBadNameChars, false);
}

bool is_virtual(const std::wstring& path) {
  return !path.empty() && path[0] == L'*';
}

std::wstring make_virtual(const std::wstring& path) {
  return is_virtual(path) ? path : L"*" + path;
}

std::wstring from_virtual(const std::wstring& path) {
  return is_virtual(path) ? path.substr(1) : path;
}

transform& transform::dir(const std::wstring& text) {
  f_path = change_directory(f_path, text);
  return *this;
}

transform& transform::base(const std::wstring& text) {
  f_path = change_basename(f_path, text);
  return *this;
}

transform& transform::ext(const std::wstring& text) {
  f_path = change_extension(f_path, text);
  return *this;
}

transform& transform::ext_add(const std::wstring& text) {
  f_path += text;
  return *this;
}

transform& transform::suffix(const std::wstring& text) {
  f_path = add_suffix(f_path, text);
  return *this;
}

std::wstring transform::get_unique() const {
  if (f_path.empty() || !path_exist(f_path)) return f_path;
  for (unsigned long long n = 1;; ++n) {
    const std::wstring candidate = add_suffix(f_path, L"_" + std::to_wstring(n));
    if (!path_exist(candidate)) return candidate;
  }
}

}  // namespace vx::filesystem
