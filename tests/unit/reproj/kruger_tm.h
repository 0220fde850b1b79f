// An independent transverse Mercator for checking PROJ's results: Krüger's series in the third
// flattening to sixth order, as published by C. F. F. Karney, "Transverse Mercator with an accuracy of
// a few nanometers", J. Geodesy 85 (2011) 475-485, equations (7), (9), (10), (35). Within a 6 degree
// zone its error is far below a micrometre, so it serves as reference to a millimetre.
#pragma once

#include <cmath>

namespace vxk_test {

struct tm_params {
  double a;      // semi-major axis, metres
  double rf;     // inverse flattening
  double lon_0;  // central meridian, degrees
  double lat_0;  // latitude of origin, degrees
  double k_0;    // scale on the central meridian
  double x_0;    // false easting, metres
  double y_0;    // false northing, metres
};

namespace kruger_detail {

constexpr double kPi = 3.14159265358979323846;

inline double rad(double deg) {
  return deg * kPi / 180.0;
}

// Rectifying radius A and the coefficients alpha_1..alpha_6 of the forward series.
struct series {
  double A;
  double alpha[6];
  double e;
};

inline series make_series(const tm_params& p) {
  const double f = 1.0 / p.rf;
  const double n = f / (2.0 - f);
  const double n2 = n * n, n3 = n2 * n, n4 = n3 * n, n5 = n4 * n, n6 = n5 * n;
  series s;
  s.e = std::sqrt(f * (2.0 - f));
  s.A = p.a / (1.0 + n) * (1.0 + n2 / 4.0 + n4 / 64.0 + n6 / 256.0);
  s.alpha[0] = n / 2 - 2 * n2 / 3 + 5 * n3 / 16 + 41 * n4 / 180 - 127 * n5 / 288 + 7891 * n6 / 37800;
  s.alpha[1] = 13 * n2 / 48 - 3 * n3 / 5 + 557 * n4 / 1440 + 281 * n5 / 630 - 1983433 * n6 / 1935360;
  s.alpha[2] = 61 * n3 / 240 - 103 * n4 / 140 + 15061 * n5 / 26880 + 167603 * n6 / 181440;
  s.alpha[3] = 49561 * n4 / 161280 - 179 * n5 / 168 + 6601661 * n6 / 7257600;
  s.alpha[4] = 34729 * n5 / 80640 - 3418889 * n6 / 1995840;
  s.alpha[5] = 212378941 * n6 / 319334400;
  return s;
}

// Gauss-Schreiber coordinates on the sphere of radius A: (xi, eta), before the scale k_0.
inline void xi_eta(const series& s, double phi, double lam, double* xi, double* eta) {
  const double tau = std::tan(phi);
  const double sigma = std::sinh(s.e * std::atanh(s.e * tau / std::sqrt(1 + tau * tau)));
  const double taup = tau * std::sqrt(1 + sigma * sigma) - sigma * std::sqrt(1 + tau * tau);
  const double xip = std::atan2(taup, std::cos(lam));
  const double etap = std::asinh(std::sin(lam) / std::sqrt(taup * taup + std::cos(lam) * std::cos(lam)));
  *xi = xip;
  *eta = etap;
  for (int j = 1; j <= 6; ++j) {
    *xi += s.alpha[j - 1] * std::sin(2 * j * xip) * std::cosh(2 * j * etap);
    *eta += s.alpha[j - 1] * std::cos(2 * j * xip) * std::sinh(2 * j * etap);
  }
}

}  // namespace kruger_detail

// Easting and northing of (lon, lat) in degrees.
inline void kruger_forward(const tm_params& p, double lon, double lat, double* e, double* n) {
  using namespace kruger_detail;
  const series s = make_series(p);
  double xi, eta, xi0, eta0;
  xi_eta(s, rad(lat), rad(lon - p.lon_0), &xi, &eta);
  xi_eta(s, rad(p.lat_0), 0.0, &xi0, &eta0);
  *e = p.x_0 + p.k_0 * s.A * eta;
  *n = p.y_0 + p.k_0 * s.A * (xi - xi0);
}

}  // namespace vxk_test
