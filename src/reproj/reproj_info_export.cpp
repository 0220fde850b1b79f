// The flat function of projection equivalence.
#include <exception>

#include "reproj/reproj_info.h"
#include "support/ansi_code_page.h"
#include "vxk_proj4_shp.h"

extern "C" {

VX_API int vx_pj4_equivalent_w(const wchar_t* a, const wchar_t* b) {
  try {
    const auto verdict = Tvx_reproj_info::compare(vx::strconv::wide_to_utf8(a ? a : L"").c_str(),
                                                  vx::strconv::wide_to_utf8(b ? b : L"").c_str());
    switch (verdict) {
      case Tvx_reproj_info::verdict::same:
        return 1;
      case Tvx_reproj_info::verdict::different:
        return 0;
      case Tvx_reproj_info::verdict::first_unreadable:
        return -1;
      case Tvx_reproj_info::verdict::second_unreadable:
        return -2;
    }
    return 0;
  } catch (const std::exception&) {
    return 0;
  }
}

}  // extern "C"
