// Inverse of the standard normal distribution function, shared by the
// distribution routines of this chapter and by the random-variate chapter.
#pragma once

namespace lbx::stats {

// Returns x with P(Z <= x) = p for the standard normal variable Z, 0 < p < 1.
// Wichura's rational approximations (about 16 significant digits). Where
// min(p, 1 - p) is 0 it is replaced by the smallest positive normalised
// number before the logarithm, so no infinity arises (|x| <= 37.5).
double inverse_normal(double p);

// The same deviate from q = p - 0.5 and m = min(p, 1 - p), for callers that
// know both exactly (0.5 + q itself would round away digits of a small q).
double inverse_normal_split(double q, double m);

}  // namespace lbx::stats
