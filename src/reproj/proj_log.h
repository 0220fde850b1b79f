// PROJ's own reports. PROJ writes its errors on standard error through the logging function of its
// context, one line for each vertex it cannot transform; a library inside a host must not print. The
// library installs its own logging function on PROJ's default context, the context all its PROJ calls
// use, and keeps the reports, so that a run can pass them on through the environment: each distinct
// text once, with the number of times PROJ gave it.
#pragma once

#include <string>
#include <vector>

namespace vx::proj_log {

// Installs the library's logging function on PROJ's default context. Cheap; called before the
// library's PROJ calls, so that a function another user of the default context installed in the
// meantime does not receive the library's reports.
void install();

struct report {
  std::string text;  // as PROJ gave it, made safe to print and cut to a sane length
  unsigned count;    // how many times
};

// The reports since the last take, distinct texts in the order of their first appearance; the store
// is emptied. At most eight distinct texts are kept; later ones are counted under "other reports".
std::vector<report> take();

// "PROJ: <text>", with " (N times)" when it came more than once.
std::string describe(const report& r);

// Takes the reports and passes each on through the environment as a message.
void pass_on();

}  // namespace vx::proj_log
