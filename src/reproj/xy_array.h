// The coordinate buffer of batch reprojection: two parallel arrays of doubles, the layout that PROJ's
// batch call transforms in place. A buffer is reused from shape to shape and never shrinks by resizing.
#pragma once

class Tvx_xy_array {
 public:
  Tvx_xy_array() = default;
  ~Tvx_xy_array() { clear(); }
  Tvx_xy_array(const Tvx_xy_array&) = delete;
  Tvx_xy_array& operator=(const Tvx_xy_array&) = delete;

  unsigned get_capacity() const { return f_capacity; }
  // Reallocates both arrays to exactly n elements; 0 frees them but leaves the capacity field alone.
  void set_capacity(unsigned n);
  unsigned get_size() const { return f_size; }
  // Grows the arrays to exactly n when they are too small; never shrinks them.
  void set_size(unsigned n);
  // Both free the arrays and leave capacity and size as they are.
  void clear();
  void clear_xy() { clear(); }

  double* get_x_ptr() { return f_x; }
  double* get_y_ptr() { return f_y; }
  // No accessor checks its index.
  double get_x(unsigned i) const { return f_x[i]; }
  double get_y(unsigned i) const { return f_y[i]; }
  void set_x(unsigned i, double x) { f_x[i] = x; }
  void set_y(unsigned i, double y) { f_y[i] = y; }
  void set_xy(unsigned i, double x, double y) {
    f_x[i] = x;
    f_y[i] = y;
  }

 private:
  unsigned f_capacity = 0;
  unsigned f_size = 0;
  double* f_x = nullptr;
  double* f_y = nullptr;
};
