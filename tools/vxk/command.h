// Commands of the vxk program. Each command lives in a file of its own and registers itself with
// VXK_COMMAND, so that main.cpp never has to change when a command is added.
#pragma once

#include <string>
#include <vector>

namespace vxk {

using command_fn = int (*)(const std::vector<std::string>& args);

struct command {
  const char* name;
  const char* summary;
  command_fn run;
};

std::vector<command>& commands();

// What went wrong in a command's work (a designation that names no sheet, a file that cannot be
// written): the reason is printed, and vxk exits with 1.
struct failure {
  std::string message;
};

// The command line itself is wrong (an unknown option, a missing value, too many arguments): one line
// with the mistake and a pointer to the command's help, and vxk exits with 2.
struct usage_error {
  std::string message;
};

void fail_if(bool bad, const std::string& message);

// Exit statuses, as every command's help documents them.
constexpr int EXIT_FAILED = 1;
constexpr int EXIT_USAGE = 2;

struct command_registration {
  command_registration(const char* name, const char* summary, command_fn run) {
    commands().push_back({name, summary, run});
  }
};

}  // namespace vxk

#define VXK_COMMAND(name, summary, fn) \
  static const ::vxk::command_registration vxk_command_registration_##fn(name, summary, fn)
