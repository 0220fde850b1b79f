// The positions along one axis of a sheet or a box: inner main lines, marks, and how many of each a set
// of parameters makes. The generator's members and the admission checks of the flat functions both
// use them, so that what is counted before a run is what the run builds.
#pragma once

#include <cstdint>
#include <vector>

namespace vx::stdlist::axis {

// Conversions that cut towards zero the way the processor does: a value that does not fit (or NaN)
// gives INT32_MIN, and for the unsigned form anything below 1 gives 0 and anything too large the
// largest value.
std::int32_t cut32(double value);
std::uint64_t cut_u64(double value);

// A standard sheet from a to b cut into n parts: the n - 1 inner lines (none for n below 2).
std::vector<double> sheet_main(double a, double b, int n);
// The n * m + 1 marks of a sheet, both edges included (none for a negative product).
std::vector<double> sheet_marks(double a, double b, int n, int m);

// A free box from a to b: multiples of step from just above a, while below b (the first one skipped
// for a negative a off the step, as cutting towards zero gives).
std::vector<double> box_main(double a, double b, double step);
// Marks from the edge a at whole steps (the step's fraction cut off); none for a step below 1.
std::vector<double> box_marks(double a, double b, double step);

// count positions from a to b at one equal step, both ends included (none for a count below 1): the
// k-th is a plus k times the step, so that the last need not be b to the bit.
std::vector<double> pivots(double a, double b, int count);

// How many positions the functions above give, without building them.
std::int64_t sheet_main_count(int n);
std::int64_t sheet_marks_count(int n, int m);
std::int64_t box_main_count(double a, double b, double step);
std::int64_t box_marks_count(double a, double b, double step);

}  // namespace vx::stdlist::axis
