// Fuzz target of the dBASE table reader: the input is the table file. Every field of the first
// records is read in every form, then written in every form and the records moved, so that the
// write-back path runs too.
#include <unistd.h>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "files/file_dbf.h"

namespace {

std::string g_folder;

// The scratch folder goes when the process ends.
void remove_scratch_folder() {
  for (const char* name : {"f.dbf", "f.0", "f.1"}) std::remove((g_folder + "/" + name).c_str());
  rmdir(g_folder.c_str());
}

const std::string& scratch_folder() {
  static const std::string folder = [] {
    char name[] = "/tmp/vxk_fuzz_dbf_XXXXXX";
    const char* made = mkdtemp(name);
    if (!made) return std::string("/tmp");
    g_folder = made;
    std::atexit(remove_scratch_folder);
    return g_folder;
  }();
  return folder;
}

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
  const std::string path = scratch_folder() + "/f.dbf";
  if (FILE* f = std::fopen(path.c_str(), "wb")) {
    if (size) std::fwrite(data, 1, size, f);
    std::fclose(f);
  }
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
