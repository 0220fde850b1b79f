#include "reproj/reproj_info.h"

#include <proj.h>

#include <memory>

#include "support/ansi_code_page.h"

namespace {

// A PROJ context for one question, released with it.
class question_context {
 public:
  question_context() : f_ctx(proj_context_create()) {
    if (!f_ctx) return;
    proj_log_level(f_ctx, PJ_LOG_NONE);
    proj_context_use_proj4_init_rules(f_ctx, 1);
  }
  ~question_context() {
    if (f_ctx) proj_context_destroy(f_ctx);
  }
  question_context(const question_context&) = delete;
  question_context& operator=(const question_context&) = delete;
  PJ_CONTEXT* get() const { return f_ctx; }

 private:
  PJ_CONTEXT* f_ctx;
};

struct pj_destroyer {
  void operator()(PJ* p) const { proj_destroy(p); }
};
using pj_ptr = std::unique_ptr<PJ, pj_destroyer>;

// What PROJ makes of the text, or null; no object without a context.
pj_ptr create(const question_context& ctx, const char* text) {
  if (!ctx.get() || !text) return nullptr;
  return pj_ptr(proj_create(ctx.get(), text));
}

}  // namespace

std::string Tvx_reproj_info::expand_epsg(const std::string& text) {
  return text.find("+init=") == std::string::npos ? text : expand_any(text);
}

std::string Tvx_reproj_info::expand_any(const std::string& text) {
  question_context ctx;
  pj_ptr object = create(ctx, text.c_str());
  if (!object) return text;
  const char* expanded = proj_as_proj_string(ctx.get(), object.get(), PJ_PROJ_4, nullptr);
  return expanded ? std::string(expanded) : text;
}

Tvx_reproj_info::verdict Tvx_reproj_info::compare(const char* a, const char* b) {
  question_context ctx;
  pj_ptr first = create(ctx, a);
  pj_ptr second = create(ctx, b);
  if (!first) return verdict::first_unreadable;
  if (!second) return verdict::second_unreadable;
  const bool same =
      proj_is_equivalent_to(first.get(), second.get(), PJ_COMP_EQUIVALENT_EXCEPT_AXIS_ORDER_GEOGCRS) != 0;
  return same ? verdict::same : verdict::different;
}

bool Tvx_reproj_info::equivalent(const char* a, const char* b) {
  return compare(a, b) == verdict::same;
}

bool Tvx_reproj_info::equivalent(const wchar_t* a, const wchar_t* b) {
  return equivalent(vx::strconv::wide_to_utf8(a ? a : L"").c_str(),
                    vx::strconv::wide_to_utf8(b ? b : L"").c_str());
}
