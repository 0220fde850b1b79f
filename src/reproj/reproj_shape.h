// Reprojection of a shape file into another coordinate system, record by record, in the same order
// and with the same number of records, so that the attribute table stays valid beside the result. The
// table itself (.dbf) and its code page file (.cpg) are copied as they are.
#pragma once

// What a caller may learn of a run beyond its result: how far it has come, how many records had to be
// written as null records and why, and whether files failed.
struct Tvx_reproj_shape_report {
  // Called after each record with the number of records done and the number in the source.
  void (*progress)(unsigned done, unsigned total, void* user) = nullptr;
  void* user = nullptr;
  unsigned records = 0;  // records written to the destination
  unsigned failed = 0;   // of these, null records that stand for a record that could not be transformed
  // Records of the source that could not be read: null records that stand for them, and records that
  // the index counts but no longer holds (a cut-off .shx; these have no record at the destination).
  unsigned unreadable = 0;
  unsigned file_errors = 0;  // failures to open, read, write or copy a file, each reported
};

class Tvx_reproj_shape {
 public:
  // Source .shp, source PROJ string, destination .shp, destination PROJ string. The projections are
  // PROJ-string texts, never file names. 0 when the transformation could be built, 1 when it could not
  // or when a file of the destination is a file of the source (then no file is touched, and the reason
  // is reported through the environment). A record that cannot be read or transformed becomes a null
  // record; files that cannot be read or written are reported through the environment without changing
  // the result, and a source that is not a shape file gets no destination. PROJ's own reports go
  // through the environment as messages, each text once with its count. All four pointers must be valid.
  static int execute(const wchar_t* src_file, const wchar_t* src_proj, const wchar_t* dst_file,
                     const wchar_t* dst_proj, Tvx_reproj_shape_report* report = nullptr);
  // The same with UTF-8 texts; a null pointer stands for the empty text.
  static int execute(const char* src_file, const char* src_proj, const char* dst_file, const char* dst_proj,
                     Tvx_reproj_shape_report* report = nullptr);
};
