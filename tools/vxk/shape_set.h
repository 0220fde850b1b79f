// A generated sheet as files on disk, read back through the library's shape file reader: the shape
// files of one set (scene or latlong) with their tables and the coordinate system they are in.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "vxk_proj4_shp.h"

namespace vxk {

using part = std::vector<Tvx_vtx_d2>;

struct shape_record {
  std::vector<part> parts;
  std::vector<std::wstring> values;  // one per column of the layer
};

// One shape file with its table, read whole.
struct shape_layer {
  std::string name;  // "Frame", the file's name without ".shp"
  int type = 0;      // the shape type of the file's header
  std::vector<std::wstring> columns;
  std::vector<shape_record> records;

  // The record's value in the named column (without regard to case); empty when there is no such
  // column.
  std::wstring value(const shape_record& r, const std::wstring& column) const;
};

// Reads the shape file with its table; false when it cannot be opened.
bool read_shape_file(const std::filesystem::path& shp, shape_layer& out);

// The files of a generated set that exist, in the order in which they are drawn.
struct sheet_files {
  std::vector<shape_layer> layers;
  std::vector<std::string> missing;  // "FRAME/FrameAdj.shp", the set's files that are not there
  std::wstring proj;                 // the set's PROJ string, from the .pj4 of its first file; may be empty

  // The layer of that name, or null.
  const shape_layer* find(const std::string& name) const;
};

// The set in `folder` (which holds HYPS/ and FRAME/: the folder given to vxk generate, or its latlong/).
// Throws failure when none of its files can be read.
sheet_files read_sheet_files(const std::filesystem::path& folder);

}  // namespace vxk
