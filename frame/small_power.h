#pragma once
// x², x³ and x⁴ as the platform's pow gives them, without paying for a general pow per value.
//
// The moment sums raise every observation to the second, third and fourth power, and the result
// must not move by a single bit from what pow returns. pow is accurate to 0.54 units in the last
// place; so when the exact power lies within 0.4 units of a double, that double is the only one
// pow can return, and it is what this returns. The exact power is known to about 2^-104 of its
// size from error-free products. Anything else (near a rounding midpoint, at a power of two, in
// the subnormal or near-overflow range, or not finite) goes to pow itself.

namespace orv {

// Bit-identical to std::pow(base, n) for n = 2, 3, 4; other n go straight to std::pow.
double smallPower(double base, int n);

// The three at once, sharing the square: what the moment sums need per observation.
struct SmallPowers {
  double square;
  double cube;
  double fourth;
};
SmallPowers smallPowers(double x);

}  // namespace orv
