// Reprojection of whole geometry objects: the vertices of one object go to PROJ in one batch, and come
// back into the object only when every one of them was transformed. So an object is reprojected
// completely or not at all. In three dimensions only x and y are transformed; z is left as it is.
#pragma once

#include <memory>

#include "reproj/reproj_xy.h"
#include "reproj/xy_array.h"

struct Tvx_point2d;
class Tvx_pp2d;
class Tvx_op2d;
struct Tvx_point3d;
class Tvx_pp3d;
class Tvx_op3d;
class Tvx_multipatch3d;

class Tvx_reproj_2d : public Tvx_reproj_xy {
 public:
  Tvx_reproj_2d();
  ~Tvx_reproj_2d();

  // Each gives the result of apply_array on the object's vertices; the object changes only when that
  // is true.
  bool apply_pnt(Tvx_point2d* p);
  bool apply_pp(Tvx_pp2d* pp);
  bool apply_op(Tvx_op2d* op);  // all parts, part by part
  bool apply_pnt(Tvx_point3d* p);
  bool apply_pp(Tvx_pp3d* pp);
  bool apply_op(Tvx_op3d* op);
  bool apply_mpatch(Tvx_multipatch3d* mp);  // the vertex vector of every patch, patch by patch

  // Frees the coordinate buffer, which otherwise keeps its largest size from call to call.
  void clear_buffer();

 private:
  template <class Point>
  bool apply_point(Point* p);
  template <class Parts>
  bool apply_parts(const Parts& parts);

  std::unique_ptr<Tvx_xy_array> f_buffer;
};
