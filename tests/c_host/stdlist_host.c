/* A host written in C: it sees only the public header and links the shared library. It drives a
 * sheet record through create, setters, list fetches into a sink, to_string and destroy, and exits
 * non-zero on the first result that differs from what it expects. */
#include <stdio.h>
#include <string.h>
#include <wchar.h>

#include "vxk_proj4_shp.h"

#define MAX_ROWS 200
#define ROW_LEN 64

struct rows {
  int count;
  wchar_t text[MAX_ROWS][ROW_LEN];
};

static void on_wide(const wchar_t* text, void* user) {
  struct rows* r = (struct rows*)user;
  if (r->count < MAX_ROWS && text) {
    wcsncpy(r->text[r->count], text, ROW_LEN - 1);
    r->text[r->count][ROW_LEN - 1] = L'\0';
  }
  r->count++;
}

static int failures = 0;

static void check(int ok, const char* what) {
  if (!ok) {
    fprintf(stderr, "stdlist_host: FAILED: %s\n", what);
    failures++;
  }
}

static void check_row(const struct rows* r, int i, const wchar_t* expected, const char* what) {
  int ok = i < r->count && wcscmp(r->text[i], expected) == 0;
  if (!ok)
    fprintf(stderr, "stdlist_host: row %d: got '%ls', expected '%ls'\n", i,
            i < r->count ? r->text[i] : L"<none>", expected);
  check(ok, what);
}

typedef void (*fetch_fn)(Ivx_string_adp*);

static void fetch(fetch_fn fn, struct rows* r) {
  Ivx_string_adp* sink = vx_string_adp_create(NULL, on_wide, r);
  r->count = 0;
  fn(sink);
  vx_string_adp_destroy(sink);
}

static void to_string(const Tvx_stdlist_string* sheet, struct rows* r) {
  Ivx_string_adp* sink = vx_string_adp_create(NULL, on_wide, r);
  r->count = 0;
  vx_stdlist_to_string(sheet, sink);
  vx_string_adp_destroy(sink);
}

int main(void) {
  struct rows r;
  Tvx_stdlist_string* sheet = vx_stdlist_create();
  check(sheet != NULL, "create");
  check(vx_stdlist_valid(sheet), "new record valid");
  to_string(sheet, &r);
  check(r.count == 1, "one feed");
  check_row(&r, 0, L"A-1", "new record prints A-1");

  check(vx_stdlist_init(sheet, VX_STDLIST_SC_MLN, VX_STDLIST_TP_DBL, VX_STDLIST_NORTH), "init");
  check(vx_stdlist_set_mln_letter(sheet, L'N'), "set letter");
  check(vx_stdlist_set_mln_number_str(sheet, L"37"), "set number text");
  check(vx_stdlist_get_mln_letter(sheet) == L'N', "get letter");
  check(vx_stdlist_get_mln_number(sheet) == 37, "get number");
  to_string(sheet, &r);
  check_row(&r, 0, L"N-37,38", "double million sheet");
  check(vx_stdlist_get_mid_meridian(sheet) == 42.0, "mid meridian of a double");
  check(wcscmp(vx_stdlist_type_tostr(sheet), L"Сдвоенный лист") == 0, "type text");
  check(wcscmp(vx_stdlist_scale_tostr(sheet), L"1:1000000") == 0, "scale text");

  {
    bool types[4] = {false, false, false, false};
    vx_stdlist_set_mln_letter(sheet, L'T');
    vx_stdlist_fetch_supported_types(sheet, types);
    check(types[0] && types[1] && !types[2] && types[3], "supported types at T");
  }

  fetch(vx_stdlist_fetch_scales, &r);
  check(r.count == 8, "eight scale rows");
  check_row(&r, 0, L"", "first scale row empty");
  check_row(&r, 3, L"1:200000", "fourth scale row");
  fetch(vx_stdlist_fetch_200_romans, &r);
  check(r.count == 36, "36 numerals");
  check_row(&r, 35, L"XXXVI", "last numeral");
  fetch(vx_stdlist_fetch_25_letters, &r);
  check_row(&r, 0, L"а", "small letters");

  {
    Tvx_stdlist_string* copy = vx_stdlist_create();
    vx_stdlist_assign(copy, sheet);
    check(vx_stdlist_equal(copy, sheet), "assign and equal");
    vx_stdlist_set_25_letter_idx(copy, 9);
    check(vx_stdlist_get_25_letter_idx(copy) == 0, "filtering getter");
    check(!vx_stdlist_equal(copy, sheet), "records differ");
    vx_stdlist_destroy(copy);
  }

  vx_stdlist_destroy(sheet);
  vx_stdlist_destroy(NULL);
  if (failures == 0) printf("stdlist_host: all checks passed\n");
  return failures == 0 ? 0 : 1;
}
