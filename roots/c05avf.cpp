// C05AVF: search outward from a point for an interval containing a sign
// change, reverse communication.
#include "gen/roots.hpp"
#include "roots/search_engine.hpp"

namespace lbx::roots {

void C05AVFN(double& x, double fx, double h, double boundl, double boundu, double& y, double* c,
             int& ind, lbx::Fail& fail)
{
    const SearchReport r = search_engine_step(x, fx, h, boundl, boundu, y, c, ind);
    switch (r.status) {
        case SearchStatus::ok:
            return;
        case SearchStatus::bounds_order:
            return fail(C05AVF_msg::BOUNDS_ORDER, r.v1, r.v2);
        case SearchStatus::x_outside:
            return fail(C05AVF_msg::X_OUTSIDE, r.v1, r.v2, r.v3);
        case SearchStatus::h_too_small:
            return fail(C05AVF_msg::H_TOO_SMALL, r.v1, r.v2);
        case SearchStatus::both_outside:
            return fail(C05AVF_msg::BOTH_OUTSIDE, r.v1, r.v2, r.v3, r.v4);
        case SearchStatus::ind_invalid:
            return fail(C05AVF_msg::IND_INVALID, r.iv);
        case SearchStatus::no_sign_change:
            return fail(C05AVF_msg::NO_SIGN_CHANGE, r.v1, r.v2);
    }
}

}  // namespace lbx::roots
