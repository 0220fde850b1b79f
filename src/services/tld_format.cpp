// Encoding and decoding of TLD files. The layout is written down byte by byte in docs/tld-format.md.
#include "services/tld_format.h"

#include <cstring>
#include <limits>
#include <utility>

namespace vx::tld {
namespace {

constexpr size_t POINT_BYTES = 16;
constexpr size_t METRIC_BYTES = 24;
constexpr size_t CHAR_BYTES = 4;

class byte_writer {
 public:
  void u32(uint32_t v) {
    for (int i = 0; i < 4; ++i) f_bytes.push_back(static_cast<uint8_t>(v >> (8 * i)));
  }
  void i32(int32_t v) { u32(static_cast<uint32_t>(v)); }
  void f64(double v) {
    uint64_t bits;
    std::memcpy(&bits, &v, sizeof bits);
    for (int i = 0; i < 8; ++i) f_bytes.push_back(static_cast<uint8_t>(bits >> (8 * i)));
  }
  void point(const Tvx_vtx_d2& p) {
    f64(p.x);
    f64(p.y);
  }
  void wide(const std::wstring& text) {
    u32(static_cast<uint32_t>(text.size()));
    for (wchar_t c : text) u32(static_cast<uint32_t>(c));
  }
  void append(const std::vector<uint8_t>& bytes) {
    f_bytes.insert(f_bytes.end(), bytes.begin(), bytes.end());
  }
  std::vector<uint8_t>& bytes() { return f_bytes; }

 private:
  std::vector<uint8_t> f_bytes;
};

// Reads little-endian values from a span of bytes and never past its end: a read that does not fit
// fails and consumes nothing.
class byte_reader {
 public:
  byte_reader(const uint8_t* data, size_t size) : f_data(data), f_size(size) {}

  size_t remaining() const { return f_size - f_pos; }

  bool u32(uint32_t& v) {
    if (remaining() < 4) return false;
    v = 0;
    for (int i = 0; i < 4; ++i) v |= static_cast<uint32_t>(f_data[f_pos + i]) << (8 * i);
    f_pos += 4;
    return true;
  }
  bool i32(int32_t& v) {
    uint32_t u;
    if (!u32(u)) return false;
    v = static_cast<int32_t>(u);
    return true;
  }
  bool f64(double& v) {
    if (remaining() < 8) return false;
    uint64_t bits = 0;
    for (int i = 0; i < 8; ++i) bits |= static_cast<uint64_t>(f_data[f_pos + i]) << (8 * i);
    std::memcpy(&v, &bits, sizeof v);
    f_pos += 8;
    return true;
  }
  bool point(Tvx_vtx_d2& p) { return f64(p.x) && f64(p.y); }
  bool magic() {
    if (remaining() < sizeof MAGIC || std::memcmp(f_data + f_pos, MAGIC, sizeof MAGIC) != 0) return false;
    f_pos += sizeof MAGIC;
    return true;
  }
  // Splits off the next n bytes as a reader of their own.
  bool take(size_t n, byte_reader& part) {
    if (remaining() < n) return false;
    part = byte_reader(f_data + f_pos, n);
    f_pos += n;
    return true;
  }

 private:
  const uint8_t* f_data;
  size_t f_size;
  size_t f_pos = 0;
};

std::wstring num(uint64_t v) {
  return std::to_wstring(v);
}

// ---- encoding

void encode_text(const Tvx_text_data& text, byte_writer& out) {
  out.i32(text.get_type());
  out.u32(text.color);
  out.u32(text.style);
  out.i32(text.align);
  out.f64(text.angle);
  out.u32(static_cast<uint32_t>(text.points().size()));
  for (const Tvx_vtx_d2& p : text.points()) out.point(p);
  out.u32(static_cast<uint32_t>(text.metrics().size()));
  for (const Tvx_text_metric& m : text.metrics()) {
    out.f64(m.size);
    out.f64(m.delta_x);
    out.f64(m.delta_y);
  }
  out.wide(text.text);
  out.wide(text.font_name);
  const Tvx_callout* callout = text.get_callout();
  out.u32(callout ? 1 : 0);
  if (!callout) return;
  out.u32(static_cast<uint32_t>(callout->end_points.size()));
  for (const Tvx_vtx_d2& p : callout->end_points) out.point(p);
}

// ---- decoding

// Reads a count of elements of the given size, refusing one that the bytes left cannot hold.
bool read_count(byte_reader& in, size_t element_bytes, uint32_t& count) {
  return in.u32(count) && count <= in.remaining() / element_bytes;
}

std::wstring read_points(byte_reader& in, std::vector<Tvx_vtx_d2>& points, const wchar_t* what) {
  uint32_t count = 0;
  if (!read_count(in, POINT_BYTES, count)) return std::wstring(what) + L" count does not fit in the record";
  points.resize(count);
  for (Tvx_vtx_d2& p : points) in.point(p);
  return {};
}

std::wstring read_wide(byte_reader& in, std::wstring& text, const wchar_t* what) {
  uint32_t count = 0;
  if (!read_count(in, CHAR_BYTES, count)) return std::wstring(what) + L" length does not fit in the record";
  text.resize(count);
  for (wchar_t& c : text) {
    uint32_t unit = 0;
    in.u32(unit);
    if (unit == 0) return std::wstring(what) + L" holds a zero character";
    c = static_cast<wchar_t>(unit);
  }
  return {};
}

std::wstring read_metrics(byte_reader& in, int32_t type, size_t point_count,
                          std::vector<Tvx_text_metric>& metrics) {
  uint32_t count = 0;
  if (!in.u32(count)) return L"the record ends before the size count";
  const size_t expected = Tvx_text_data::metric_count(type, point_count);
  if (count != expected) {
    return L"holds " + num(count) + L" sizes where a label of type " + std::to_wstring(type) + L" with " +
           num(point_count) + L" points has " + num(expected);
  }
  if (count > in.remaining() / METRIC_BYTES) return L"sizes and deltas do not fit in the record";
  metrics.resize(count);
  for (Tvx_text_metric& m : metrics) in.f64(m.size) && in.f64(m.delta_x) && in.f64(m.delta_y);
  return {};
}

std::wstring read_callout(byte_reader& in, Tvx_text_data& text) {
  uint32_t flag = 0;
  if (!in.u32(flag)) return L"the record ends before the callout flag";
  if (flag > 1) return L"callout flag " + num(flag) + L" is neither 0 nor 1";
  if (flag == 0) return {};
  return read_points(in, text.add_callout()->end_points, L"callout end point");
}

std::wstring decode_text(byte_reader& in, Tvx_text_data& text) {
  int32_t type = 0;
  if (!(in.i32(type) && in.u32(text.color) && in.u32(text.style) && in.i32(text.align) &&
        in.f64(text.angle))) {
    return L"the record ends inside its fixed fields";
  }
  text.set_type(type);
  std::vector<Tvx_vtx_d2> points;
  std::vector<Tvx_text_metric> metrics;
  std::wstring error = read_points(in, points, L"point");
  if (error.empty()) error = read_metrics(in, type, points.size(), metrics);
  if (error.empty()) text.assign_geometry(std::move(points), std::move(metrics));
  if (error.empty()) error = read_wide(in, text.text, L"text");
  if (error.empty()) error = read_wide(in, text.font_name, L"font name");
  if (error.empty()) error = read_callout(in, text);
  if (error.empty() && in.remaining() != 0) error = num(in.remaining()) + L" bytes left over in the record";
  return error;
}

std::wstring decode_header(byte_reader& in, uint32_t& count) {
  if (!in.magic()) return L"not a TLD file: the magic number \"VXTL\" is missing";
  uint32_t version = 0;
  if (!in.u32(version) || !in.u32(count)) return L"truncated: the header is incomplete";
  if (version != VERSION) {
    return L"unsupported TLD version " + num(version) + L" (this library reads version " + num(VERSION) +
           L")";
  }
  return {};
}

std::wstring at_label(uint32_t index, uint32_t count, const std::wstring& problem) {
  return L"label " + num(index) + L" of " + num(count) + L" (from 0): " + problem;
}

}  // namespace

std::wstring encode(const Tvx_text_list_base& list, std::vector<uint8_t>& bytes) {
  constexpr size_t LIMIT = std::numeric_limits<uint32_t>::max();
  if (list.size() > LIMIT) return L"too many labels for one file";
  byte_writer out;
  out.bytes().assign(MAGIC, MAGIC + sizeof MAGIC);
  out.u32(VERSION);
  out.u32(static_cast<uint32_t>(list.size()));
  for (size_t i = 0; i < list.size(); ++i) {
    byte_writer record;
    encode_text(*list.at(i), record);
    if (record.bytes().size() > LIMIT) return L"label " + num(i) + L" is too large for one record";
    out.u32(static_cast<uint32_t>(record.bytes().size()));
    out.append(record.bytes());
  }
  bytes = std::move(out.bytes());
  return {};
}

std::wstring decode(const uint8_t* data, size_t size, Tvx_text_list_base& list) {
  list.clear();
  byte_reader in(data, size);
  uint32_t count = 0;
  if (std::wstring error = decode_header(in, count); !error.empty()) return error;
  for (uint32_t i = 0; i < count; ++i) {
    uint32_t length = 0;
    byte_reader record(nullptr, 0);
    if (!in.u32(length)) return at_label(i, count, L"truncated: the file ends before the label");
    if (!in.take(length, record)) {
      return at_label(
          i, count,
          L"truncated: the record claims " + num(length) + L" bytes, " + num(in.remaining()) + L" remain");
    }
    auto text = std::make_unique<Tvx_text_data>();
    if (std::wstring error = decode_text(record, *text); !error.empty()) return at_label(i, count, error);
    list.append(std::move(text));
  }
  if (in.remaining() != 0) return num(in.remaining()) + L" bytes after the last label";
  return {};
}

}  // namespace vx::tld
