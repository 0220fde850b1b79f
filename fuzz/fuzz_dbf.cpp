// Fuzz target of the dBASE table reader: the input is the table file. Every field of the first
// records is read in every form, then written in every form and the records moved, so that the
// write-back path runs too.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "files/file_dbf.h"
#include "scratch.h"

namespace {

void read_fields(Tvx_file_dbf& dbf) {
  for (uint32_t i = 0; i <= dbf.get_np(); ++i) {
    dbf.get_prp_name(i);
    dbf.get_str(i);
    dbf.get_int(i);
    dbf.get_dbl(i);
    dbf.get_bool(i);
  }
}

void write_fields(Tvx_file_dbf& dbf) {
  for (uint32_t i = 0; i <= dbf.get_np(); ++i) {
    dbf.set_int(i, -123456789);
    dbf.set_dbl(i, 1e300);
    dbf.set_bool(i, true);
    dbf.set_str(i, "fuzz");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string path = vxk_fuzz::scratch_folder("dbf") + "/f.dbf";
  vxk_fuzz::write_file(path, data, size);
  Tvx_file_dbf dbf;
  if (dbf.open(path.c_str(), false) != 0) return 0;
  uint32_t index = 0;
  dbf.find_prp_by_name("ID", index);
  const uint32_t records = dbf.get_nr() < 8 ? dbf.get_nr() : 8;
  for (uint32_t r = 0; r <= records; ++r) {
    dbf.set_rec(r);
    read_fields(dbf);
    write_fields(dbf);
  }
  // Appending writes behind the records that the header claims; only for tables of plausible size.
  if (dbf.get_nr() < 1000) dbf.add_rec(1);
  dbf.close();
  return 0;
}
