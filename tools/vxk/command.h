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

struct command_registration {
  command_registration(const char* name, const char* summary, command_fn run) {
    commands().push_back({name, summary, run});
  }
};

}  // namespace vxk

#define VXK_COMMAND(name, summary, fn) \
  static const ::vxk::command_registration vxk_command_registration_##fn(name, summary, fn)
