// The stretch of a line on which a label can stand. Both classes simplify a copy of the line by chords
// (with a quarter of the generalisation), look for the longest nearly straight piece, at most two
// segments long, and unless told to keep the direction turn the copy so that the text reads from west
// to east. Three vertices lie nearly straight when the chord from the first to the third is longer than
// 0.9 times the sum of the two segments.
//
// The result is the index in `out` of the vertex where the stretch begins, or a negative value when no
// stretch fits; `out` then holds what the steps made of it so far.
#pragma once

class Tvx_pp2d;

// The place on a line that a label prefers.
enum Tvx_text_position { vx_text_middle = 0, vx_text_end = 1, vx_text_start = 2 };

class Tvx_pp2d_labeling {
 public:
  // The longest piece; -1.0 when the simplified line is not longer than min_length or no piece is.
  static double prepare_along(const Tvx_pp2d* source, double generalisation, double min_length,
                              bool keep_direction, Tvx_pp2d* out);
};

class Tvx_pp2d_labeling_weight {
 public:
  // The simplified line is densified (pieces of at most 1.1 * min_length) and each piece longer than
  // min_length is scored by its length times a weight that rises from 0.25 at one place of the line to
  // 1.0 at the position asked for: the end (vx_text_end), the middle (vx_text_middle) or, for any
  // other value, the start, where the first piece that fits wins. -1 when none fits.
  static int prepare_along(const Tvx_pp2d* source, double generalisation, double min_length,
                           bool keep_direction, Tvx_text_position position, Tvx_pp2d* out);
};
