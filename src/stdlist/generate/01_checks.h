// What may reach the generator. The flat generate functions ask these before any generator is built:
// a standard sheet at a scale without a geometry, divisions that divide by zero, a free box with steps
// that never end its loops, a box unset or empty, or more lines and marks than a run can hold, would
// each make the generator hang, divide by zero or allocate without bound. Such a call writes nothing;
// the reason goes to the host's environment in the language of the messages.
#pragma once

#include <cstdint>

#include "stdlist/generate/00_params.h"

namespace vx::stdlist {

// The most main lines, or marks, along one axis of a run.
constexpr std::int64_t MAX_AXIS_POSITIONS = 100000;

// True when the parameters may reach a generator; otherwise the reason is reported and the answer is
// false.
bool admit(const stdlist_params& params);
bool admit(const custom_params& params);

}  // namespace vx::stdlist
