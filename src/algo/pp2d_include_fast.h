// Point in ring for large rings. For a ring of more than a thousand vertices the y axis is cut into
// bands at every distinct vertex y, and each band lists the edges that span it, so that a query looks
// only at the edges over its band; a smaller ring is tested edge by edge by Tvx_pp2d::include.
//
// Both tests count crossings of the ray towards negative x with the same rule for each edge, and agree
// on every point off the horizontal edges. A horizontal edge spans no band, so the banded test never
// sees it: a point on one is decided by the count of the band above it (inside along a lower boundary,
// outside along an upper one, and outside at or above the top vertex, which lies in no band), where the
// plain test calls every point of it boundary and so inside. The banded test does not ask whether the
// ring is closed, and a NaN coordinate is never inside it; a vertex whose y is NaN takes part in no
// band.
//
// The ring must stay unchanged from prepare() to the next prepare(): nothing watches it.
#pragma once

#include <cstdint>
#include <memory>
#include <set>
#include <vector>

#include "algo/num_vec.h"

class Tvx_pp2d;

// One end of a band, which stands for the band from its value up to the next end's value, with the
// numbers of the edges that span that band.
class Tvx_fast_diap_end {
 public:
  explicit Tvx_fast_diap_end(double value = 0.0) : value(value), edges(new Tvx_int_vec) {}
  virtual ~Tvx_fast_diap_end() = default;

  double get_value() const { return value; }
  void set_value(double v) { value = v; }
  Tvx_int_vec* get_int_vec() const { return edges.get(); }
  // This value is below the other's.
  bool less(const Tvx_fast_diap_end& other) const;

 private:
  double value;
  std::unique_ptr<Tvx_int_vec> edges;
};

struct Tvx_fast_diap_end_compare_less {
  bool operator()(const Tvx_fast_diap_end* a, const Tvx_fast_diap_end* b) const { return a->less(*b); }
};

// The ordered ends, one for each distinct value by exact comparison. A spare end serves as the key of
// a look-up in the tree, so that a query allocates nothing.
//
// For speed the ends are also kept in a sorted array beside the tree, rebuilt after ends were added,
// and pack() copies the bands' lists into one flat array for the queries that follow; a later change
// drops the packed copy. Both give the answers of the tree, and cost no allocation per query.
class Tvx_fast_diap_ends {
 public:
  Tvx_fast_diap_ends() = default;
  Tvx_fast_diap_ends(const Tvx_fast_diap_ends&) = delete;
  Tvx_fast_diap_ends& operator=(const Tvx_fast_diap_ends&) = delete;
  virtual ~Tvx_fast_diap_ends() { clear(); }

  void clear();
  unsigned get_size() const { return static_cast<unsigned>(ends.size()); }
  // An end of that value, unless there is one already.
  void add_end(double value);
  // As add_end for each value, in one pass.
  void add_ends(std::vector<double> values);
  // Lists `number` at every end from min(a, b) up to, and not including, max(a, b); nothing unless
  // both are ends.
  void add_diap(int number, double a, double b);
  // The edges of the band in which value lies (a value on an end lies in the band above it); null
  // below the first end and at or above the last.
  Tvx_int_vec* get_int_vec_ptr(double value);

  // The same band as a run of `count` edge numbers from `list`; false where get_int_vec_ptr gives null.
  bool get_band(double value, const int32_t*& list, unsigned& count);
  void pack();

 private:
  using end_set = std::set<Tvx_fast_diap_end*, Tvx_fast_diap_end_compare_less>;
  // A new end of the value, placed by the hint.
  void insert_new(end_set::const_iterator hint, double value);
  void index();
  // The position in the sorted array of the first end above value, or -1 where value lies in no band.
  long band_at(double value) const;
  // The position of the end of exactly that value, or -1.
  long position_of(double value) const;

  end_set ends;  // owned
  Tvx_fast_diap_end key;
  std::vector<double> values;             // the ends' values in order, when indexed
  std::vector<Tvx_fast_diap_end*> order;  // the ends in order, when indexed
  bool indexed = false;
  std::vector<uint32_t> band_start;  // when packed: the list of end k is band_edges[start[k]..start[k+1])
  std::vector<int32_t> band_edges;
  bool packed = false;
};

class Tvx_pp2d_fast_edges {
 public:
  Tvx_pp2d_fast_edges() = default;
  virtual ~Tvx_pp2d_fast_edges() = default;

  // The bands of the ring's edges; edge i runs from vertex i - 1 to vertex i.
  void prepare(const Tvx_pp2d* ring);
  // True inside or on the boundary.
  bool include(double x, double y);

 private:
  const Tvx_pp2d* ring = nullptr;  // not owned
  std::unique_ptr<Tvx_fast_diap_ends> ends = std::make_unique<Tvx_fast_diap_ends>();
};

class Tvx_pp2d_include_fast {
 public:
  // Rings of at least this many vertices get bands.
  static constexpr int MIN_BANDED_SIZE = 1001;

  Tvx_pp2d_include_fast() = default;
  virtual ~Tvx_pp2d_include_fast() = default;

  void prepare(const Tvx_pp2d* ring);
  // False before any prepare().
  bool include(double x, double y);
  void delete_fast_edges() { edges.reset(); }
  bool has_fast_edges() const { return edges != nullptr; }

 private:
  const Tvx_pp2d* ring = nullptr;  // not owned
  std::unique_ptr<Tvx_pp2d_fast_edges> edges;
};
