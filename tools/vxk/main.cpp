// vxk: entry point and command dispatch, and the one place where a command's failure becomes a message
// and an exit status.
#include <proj.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <exception>

#include "command.h"

namespace vxk {

std::vector<command>& commands() {
  static std::vector<command> all;
  return all;
}

void fail_if(bool bad, const std::string& message) {
  if (bad) throw failure{message};
}

}  // namespace vxk

namespace {

void print_usage() {
  std::printf(
      "usage: vxk COMMAND [ARGS...]\n"
      "       vxk --version\n"
      "\n"
      "Map sheet nomenclature and reprojection of vector data through PROJ.\n"
      "\n"
      "commands:\n");
  auto cmds = vxk::commands();
  std::sort(cmds.begin(), cmds.end(),
            [](const vxk::command& a, const vxk::command& b) { return std::strcmp(a.name, b.name) < 0; });
  for (const auto& c : cmds) std::printf("  %-12s %s\n", c.name, c.summary);
  std::printf(
      "\n"
      "examples:\n"
      "  vxk sheet N-37-VI                   designation, scale, type and middle meridian\n"
      "  vxk sheet --neighbours N-37-VI      the four neighbours of a 1:200,000 sheet\n"
      "  vxk sheet --at 55.7558 37.6173      the sheets of every scale that hold a point\n"
      "  vxk sheet N-37-VI --bounds          the corners of a sheet in degrees\n"
      "\n"
      "Run 'vxk COMMAND --help' for the options and examples of a command. The user guide is in\n"
      "docs/guide/ of the source tree.\n"
      "\n"
      "exit status: 0 done; 1 the work failed (the reason is printed); 2 the command line is wrong.\n");
}

void print_version() {
  std::printf("vxk %s (library vxk_proj4_shp %s, PROJ %s)\n", VXK_VERSION, VXK_VERSION, proj_info().version);
}

int usage(const std::string& command, const std::string& message) {
  const std::string prefix = command.empty() ? "vxk" : "vxk " + command;
  std::fprintf(stderr, "%s: %s (see '%s --help')\n", prefix.c_str(), message.c_str(), prefix.c_str());
  return vxk::EXIT_USAGE;
}

// Runs a command; what it throws becomes its message and exit status.
int run(const vxk::command& c, const std::vector<std::string>& args) {
  try {
    return c.run(args);
  } catch (const vxk::usage_error& e) {
    return usage(c.name, e.message);
  } catch (const vxk::failure& f) {
    std::fprintf(stderr, "vxk %s: %s\n", c.name, f.message.c_str());
  } catch (const std::exception& e) {
    std::fprintf(stderr, "vxk %s: %s\n", c.name, e.what());
  }
  return vxk::EXIT_FAILED;
}

}  // namespace

int main(int argc, char** argv) {
  // A write past a file size limit must fail with its reason (EFBIG) and be reported, not kill the
  // program half-way through its output.
  std::signal(SIGXFSZ, SIG_IGN);
  if (argc < 2) return usage("", "give a command");
  const std::string name = argv[1];
  if (name == "--help" || name == "-h" || name == "help") {
    print_usage();
    return 0;
  }
  if (name == "--version" || name == "-V") {
    print_version();
    return 0;
  }
  for (const auto& c : vxk::commands()) {
    if (name == c.name) return run(c, std::vector<std::string>(argv + 2, argv + argc));
  }
  return usage("", "unknown command '" + name + "'");
}
