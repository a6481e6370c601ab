#pragma once
// The probability of Rayleigh's Z under a uniform distribution of directions.
//
// RayleighCriticalZ(P, n) is the closed-form approximation of the critical Z for probability P
// and n observations (K = -ln P):
//   Zc(P) = K + (2K - K²)/4/n + (12K - 3K² - K³)/72/n² + (42K² - 12K - 8K³ - K⁴)/288/n³.
// RayleighProbability(Z, n) inverts it by a decimal digit-by-digit search: walk P down from 1
// in steps of 0.1 until Zc(P) >= Z, step back and walk down again in steps ten times smaller,
// until |Z - Zc(P)| <= 1e-7.
//
// Zc has a maximum below n from n = 6 on, so for a concentrated sample no P may reach Z. The
// search then walks P towards 0 and stops once a step can no longer change P; it answers 0 when
// Zc never reached Z, and the last P it reached otherwise. It always terminates: at most a few
// hundred passes of at most about twenty steps.
//
// Errors: n = 0 divides by zero (11); P must lie in (0, 1] for the logarithm (5).

#include <cstdint>

namespace orv {

double RayleighCriticalZ(double p, std::int32_t n);
double RayleighProbability(double z, std::int32_t n);

}  // namespace orv
