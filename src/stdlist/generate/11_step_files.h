// What every step of the generator uses to write its files: the shape file and table it holds open,
// the object vector of one record, the records of its table, and the tables of labels.
#pragma once

#include <string>
#include <vector>

#include "services/flat_types.h"

namespace vx::stdlist {

// The shape file and the table of one step, closed when the step ends however it ends: the table
// first, then the shape file.
struct step_files {
  Tvx_shp_basic* shp = nullptr;
  void* table = nullptr;
  step_files() = default;
  ~step_files() {
    vx_dbf_close(table);
    vx_shp_file_close(shp);
  }
  step_files(const step_files&) = delete;
  step_files& operator=(const step_files&) = delete;
};

// The object vector of one record, destroyed with its parts when the record has been written.
struct object_vector {
  Tvx_op2d* handle = vx_ov_d2_create();
  object_vector() = default;
  ~object_vector() { vx_ov_d2_destroy(handle); }
  object_vector(const object_vector&) = delete;
  object_vector& operator=(const object_vector&) = delete;
  // A new empty part; null when none can be made.
  Tvx_pp2d* add_part() { return handle ? vx_ov_d2_add(handle) : nullptr; }
};

// Appends a polyline of one part with these vertices.
bool add_polyline(Tvx_shp_basic* shp, const std::vector<Tvx_vtx_d2>& vertices);

// Appends an empty record to a table that grows record by record, and sets its ID (the index plus 1);
// the answer is the new record's index.
int append_record(void* table);

// A table of labels (the digits round the frame, the names of the adjacent sheets): the ID, the class
// code, the text, and its font and size as texts.
enum { LABEL_ID, LABEL_L_CODE, LABEL_TEXT, LABEL_FONT, LABEL_SIZE, LABEL_COLUMNS };
void init_label_fields(Tvx_dbf_field (&fields)[LABEL_COLUMNS]);
// Creates a polyline file and its table of labels with no records, as the label steps hold them open;
// false when either cannot be made.
bool create_label_files(step_files& files, const std::wstring& shp_path);
// Appends one label: the text in the system's narrow code page, the font of every label, and the size.
void append_label(void* table, int code, const std::wstring& text, const char* size);

}  // namespace vx::stdlist
