#include "stdlist/joined_row.h"

#include "stdlist/helper_mln.h"
#include "stdlist/level_common.h"

namespace vx::stdlist {

void append_row_join(const row_level& level, std::uint64_t number, std::uint64_t index,
                     std::uint64_t previous, int step, int type, std::wstring& out) {
  for (; step < type; ++step) {
    bool crossed = false;
    if (step > 0) {
      out += L',';
      crossed = previous >= 1 && previous <= level.count && previous % level.row == 0;
      if (crossed) out += helper_mln::get_next_list_num_str(number, 1);
    }
    if (step == 0 || crossed) out += L'-';
    out += level.text(index);
    previous = index;
    const bool valid = index >= 1 && index <= level.count;
    index = valid ? line_cycle_next(index, 1, level.row) : INVALID_IDX;
  }
}

}  // namespace vx::stdlist
