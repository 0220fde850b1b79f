// What vxk tells its user: texts it repeats from the command line are made safe to print, and what
// the library reports through its environment during a call is collected, so that a command can say
// why it failed in the library's own words.
#pragma once

#include <string>
#include <vector>

namespace vxk {

// The text with control characters replaced by '?' and cut after 160 bytes (with a note of its
// length): a projection string of 100 KB or one with control bytes must not flood or garble a terminal.
std::string echo(const std::string& text);

// Installs an environment in the library for its lifetime and keeps what the library reports: errors
// and messages, in UTF-8, each distinct text once with the number of times it came.
class library_reports {
 public:
  struct line {
    std::string text;
    unsigned count;
  };

  library_reports();
  ~library_reports();
  library_reports(const library_reports&) = delete;
  library_reports& operator=(const library_reports&) = delete;

  const std::vector<line>& errors() const { return errors_; }
  const std::vector<line>& messages() const { return messages_; }

  // "(repeated N times)" after a text that came more than once.
  static std::string with_count(const line& l);

 private:
  static void add(std::vector<line>& lines, const char* text);

  std::vector<line> errors_;
  std::vector<line> messages_;
};

}  // namespace vxk
