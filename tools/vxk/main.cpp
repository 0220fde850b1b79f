// vxk: entry point and command dispatch.
#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstring>

#include "command.h"

namespace vxk {

std::vector<command>& commands() {
  static std::vector<command> all;
  return all;
}

}  // namespace vxk

namespace {

void print_usage(std::FILE* out) {
  std::fprintf(out,
               "usage: vxk COMMAND [ARGS...]\n"
               "\n"
               "Map sheet nomenclature and reprojection of vector data through PROJ.\n"
               "\n"
               "commands:\n");
  auto cmds = vxk::commands();
  std::sort(cmds.begin(), cmds.end(),
            [](const vxk::command& a, const vxk::command& b) { return std::strcmp(a.name, b.name) < 0; });
  for (const auto& c : cmds) std::fprintf(out, "  %-12s %s\n", c.name, c.summary);
  std::fprintf(out,
               "\nexamples:\n"
               "  vxk sheet N-37-VI                   designation, scale, type and middle meridian\n"
               "  vxk sheet --neighbours N-37-VI      the four neighbours of a 1:200,000 sheet\n");
  std::fprintf(out, "\nRun 'vxk COMMAND --help' for the options and examples of a command.\n");
}

}  // namespace

int main(int argc, char** argv) {
  // A write past a file size limit must fail with its reason (EFBIG) and be reported, not kill the
  // program half-way through its output.
  std::signal(SIGXFSZ, SIG_IGN);
  if (argc < 2) {
    print_usage(stderr);
    return 2;
  }
  const std::string name = argv[1];
  if (name == "--help" || name == "-h" || name == "help") {
    print_usage(stdout);
    return 0;
  }
  for (const auto& c : vxk::commands()) {
    if (name == c.name) return c.run(std::vector<std::string>(argv + 2, argv + argc));
  }
  std::fprintf(stderr, "vxk: unknown command '%s'\n\n", name.c_str());
  print_usage(stderr);
  return 2;
}
