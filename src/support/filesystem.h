// Path algebra on wide path texts, and the file system calls that go with it.
//
// Both "\" and "/" separate folders in every path text; the text functions put "\" wherever they add a
// separator themselves. The system functions reach the operating system through one gate, os_path(),
// which turns every "\" into "/" and encodes the path in UTF-8: so "out\HYPS\Hypsa.shp" is the file
// out/HYPS/Hypsa.shp. No other module calls a POSIX file function on a path directly: open, stat, copy,
// move, remove and make folders through the functions below.
#pragma once

#include <cstdint>
#include <cstdio>
#include <ctime>
#include <string>
#include <vector>

namespace vx::filesystem {

// ---- text functions -----------------------------------------------------------------------------------

bool is_absolute(const std::wstring& path);
bool is_relative(const std::wstring& path);
std::wstring drive(const std::wstring& path);
std::wstring directory(const std::wstring& path);  // up to and including the last separator
std::wstring filename(const std::wstring& path);
std::wstring basename(const std::wstring& path);        // file name without its last extension
std::wstring extension(const std::wstring& path);       // ".shp", lower case; "" when none
std::wstring full_extension(const std::wstring& path);  // from the first "." of the file name on
std::wstring change_extension(const std::wstring& path, const std::wstring& extension);
std::wstring change_full_extension(const std::wstring& path, const std::wstring& extension);
std::wstring change_filename(const std::wstring& path, const std::wstring& name);
std::wstring change_basename(const std::wstring& path, const std::wstring& name);
std::wstring change_directory(const std::wstring& path, const std::wstring& directory);
std::wstring add_suffix(const std::wstring& path, const std::wstring& suffix);
std::wstring mangle_filename(const std::wstring& path);
std::wstring include_directory_separator(const std::wstring& path);
std::wstring native_path(const std::wstring& path);  // every "/" becomes "\"

// Resolves "." and ".." and joins with "\"; a trailing separator does not survive. A text whose
// components all vanish (".") throws std::out_of_range("invalid string position").
std::wstring clean_path(const std::wstring& path);

std::wstring combine(const std::wstring& left, const std::wstring& right);
std::wstring combine(const std::vector<std::wstring>& parts);
std::wstring absolute_path(const std::wstring& base, const std::wstring& path);
std::wstring relative_path(const std::wstring& base, const std::wstring& target);
// The leading components on which all paths agree (without regard to case), joined by "\".
std::wstring common_directory(const std::vector<std::wstring>& paths);
bool is_equal(const std::wstring& a, const std::wstring& b);

bool is_valid(wchar_t character);
bool is_valid_file_name(wchar_t character);
bool is_valid(const std::wstring& path);
bool is_valid_file_name(const std::wstring& name);
std::wstring make_valid(const std::wstring& path);
std::wstring make_valid_filename(const std::wstring& name);

bool is_virtual(const std::wstring& path);
std::wstring make_virtual(const std::wstring& path);
std::wstring from_virtual(const std::wstring& path);

// A path under change: each step edits the one string, get() gives it.
class transform {
 public:
  explicit transform(std::wstring path) : f_path(std::move(path)) {}
  transform& dir(const std::wstring& text);      // change_directory
  transform& base(const std::wstring& text);     // change_basename
  transform& ext(const std::wstring& text);      // change_extension
  transform& ext_add(const std::wstring& text);  // appends the text
  transform& suffix(const std::wstring& text);   // add_suffix
  const std::wstring& get() const { return f_path; }
  // The path if it does not exist, else the first of "a_1.shp", "a_2.shp", ... that does not.
  std::wstring get_unique() const;

 private:
  std::wstring f_path;
};

// ---- the gate to the operating system -----------------------------------------------------------------

// The path that POSIX calls take: every "\" becomes "/", then UTF-8.
std::string os_path(const std::wstring& path);

// ---- system functions ---------------------------------------------------------------------------------

// Opens a file like fopen (modes "rb", "rb+", "wb", "wb+", ...). Null on failure.
std::FILE* open_file(const std::wstring& path, const char* mode);
// Opens a file descriptor like open(2). -1 on failure.
int open_descriptor(const std::wstring& path, int flags, unsigned mode = 0666);

bool path_exist(const std::wstring& path);
bool is_directory(const std::wstring& path);
bool is_file(const std::wstring& path);
std::time_t file_mtime(const std::wstring& path);  // 0 when unknown
uint64_t file_size(const std::wstring& path);      // 0 when unknown
bool file_readable(const std::wstring& path);
bool file_writable(const std::wstring& path);

// True when both paths name an existing file and it is the same one (the same device and inode, links
// followed), however the two are spelled.
bool is_same_file(const std::wstring& a, const std::wstring& b);

// False, with errno telling why, when the copy could not be made: EISDIR for a folder on either side,
// EEXIST for an existing target without overwrite, EINVAL for a target that is the source itself.
bool copy_file(const std::wstring& from, const std::wstring& to, bool overwrite);
bool move_file(const std::wstring& from, const std::wstring& to, bool overwrite);
bool remove_file(const std::wstring& path);

bool make_directory(const std::wstring& path);  // one level; false if it could not be made
bool make_path(const std::wstring& path);       // every missing level; true when the folder exists
bool copy_directory(const std::wstring& from, const std::wstring& to);
bool move_directory(const std::wstring& from, const std::wstring& to);
bool remove_directory(const std::wstring& path);  // the folder with all it holds
bool remove_path(const std::wstring& path);       // a file, or a folder with all it holds

enum find_flags : unsigned {
  find_files = 1,
  find_directories = 2,
  find_recursive = 4,
};
// Paths (built by combine) of the entries of a folder whose names match the pattern ("*" and "?",
// without regard to case), in name order. The second form takes folder and pattern as one text.
std::vector<std::wstring> find(const std::wstring& directory, const std::wstring& pattern, unsigned flags);
std::vector<std::wstring> find(const std::wstring& pattern, unsigned flags);

std::wstring current_path();
std::wstring username();
std::wstring hostname();
std::wstring temp_directory();  // ends in a separator
// Creates an empty file with a fresh name in the folder and gives its path; "" on failure.
std::wstring temp_filename(const std::wstring& directory, const std::wstring& prefix);

// The path with every link resolved, or the path as given when it cannot be resolved (it does not
// exist, or a link points nowhere).
std::wstring real_path(const std::wstring& path);

// Opens for writing a new file with a fresh name beside path (in its folder, named after it, never an
// existing file), created with the modes 0666 less the process's mask. Gives the descriptor, or -1 with
// errno telling why; temp receives the name.
int create_beside(const std::wstring& path, std::wstring& temp);

}  // namespace vx::filesystem
