// Student's t tail probabilities (G01EBF).
//
// With a = DF/2, x = DF/(DF + T^2) and y = T^2/(DF + T^2):
// P(|T| >= |t|) = I_x(a, 1/2) and P(|T| <= |t|) = I_y(1/2, a), both from one
// evaluation of the regularised incomplete beta function, so that each tail
// keeps its relative accuracy.
#include <cmath>

#include "gen/stats.hpp"
#include "stats/incomplete_beta.hpp"
#include "stats/tail.hpp"

namespace lbx::stats {

double G01EBFN(char tail, double t, double df, lbx::Fail& fail) {
  const Tail which = tail_code(tail);
  if (which == Tail::invalid) {
    fail(G01EBF_msg::TAIL_INVALID, tail);
    return 0.0;
  }
  if (!(df >= 1.0)) {  // also NaN
    fail(G01EBF_msg::DF_TOO_SMALL, df);
    return 0.0;
  }
  if (std::isnan(t)) return t;
  const double at = std::fabs(t);
  double x;
  double y;
  if (at == 0.0) {
    x = 1.0;
    y = 0.0;
  } else if (at <= 1e150 && df <= 1e300) {
    const double s = df + at * at;
    x = df / s;
    y = at * at / s;
  } else {  // scaled so that nothing overflows
    const double w = df / at;
    x = w / (at + w);
    y = at / (at + w);
  }
  const BetaProbabilities b = incomplete_beta(0.5 * df, 0.5, x, y);
  const double both_tails = b.p;  // P(|T| >= |t|)
  const double central = b.q;     // P(|T| <= |t|)
  switch (which) {
    case Tail::significance:
      return both_tails;
    case Tail::confidence:
      return central;
    case Tail::upper:
      return t >= 0.0 ? 0.5 * both_tails : 0.5 + 0.5 * central;
    default:  // lower
      return t >= 0.0 ? 0.5 + 0.5 * central : 0.5 * both_tails;
  }
}

}  // namespace lbx::stats
