// Facts about a shape file that vxk reproject tells its user and the library does not report: the box
// of its header, whether its records carry measures, and why a record became a null record. Read from
// the files themselves, every offset checked against the file's size.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vxk::shape_facts {

struct box {
  double xmin = 0, ymin = 0, xmax = 0, ymax = 0;
};

// The number of records of a shape file, from the length of its index (100 bytes of header, then 8 per
// record). 0 when the index cannot be read.
std::uint32_t record_count(const std::string& shp);

// The box of the file's header; false when the header cannot be read or the box is not finite.
bool header_box(const std::string& shp, box& out);

// Whether the records carry measures (M): a measured type, or z records whose length holds measures
// (told by the first record that has a shape).
bool carries_measures(const std::string& shp);

// For every record that has a shape in the source `src` and is a null record in the result `dst`, a line
// "record N: why" (N counted from 1, as GIS programs number features from their table): the record could
// not be read, or the first vertex that the transformation from `from` to `to` refuses.
std::vector<std::string> null_record_reasons(const std::string& src, const std::string& dst,
                                             const std::string& from, const std::string& to);

}  // namespace vxk::shape_facts
