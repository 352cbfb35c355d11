// Out-of-line entry of the bracketing engine (used by C05AZF).
#include "roots/zero_engine.hpp"

#include "roots/zero_engine_inline.hpp"

namespace lbx::roots {

ZeroReport zero_engine_step(double& x, double& y, double fx, double tolx, int ir, double* c,
                            int& ind)
{
    return zero_engine_step_inline(x, y, fx, tolx, ir, c, ind);
}

}  // namespace lbx::roots
