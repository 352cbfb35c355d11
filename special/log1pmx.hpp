// u - ln(1 + u) without cancellation, shared with the statistics chapter.
#pragma once

namespace lbx::special {

// x - 1 - ln x written as u - ln(1 + u) with u = x - 1, for u > -1, accurate
// to a few ULPs also for small |u|.
double log1pmx_neg(double u);

}  // namespace lbx::special
