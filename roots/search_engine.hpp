// Outward search for a sign change, shared by C05AVF and its direct drivers
// C05AUF and C05AGF. The state lives in the caller's array c (eleven elements).
#pragma once

#include "roots/report.hpp"

namespace lbx::roots {

enum class SearchStatus {
    ok,              // intermediate return (ind != 0) or interval found (ind == 0)
    bounds_order,    // BOUNDL >= BOUNDU (v1, v2)
    x_outside,       // X outside [BOUNDL, BOUNDU] (v1, v2, v3)
    h_too_small,     // X + H == X (v1 = X, v2 = H)
    both_outside,    // X + H and X - H both outside the bounds (v1 .. v4)
    ind_invalid,     // iv = IND
    no_sign_change,  // bounds exhausted; v1, v2 the last interval searched
};

using SearchReport = Report<SearchStatus>;

// One entry of the outward search (see docs/roots-zero.md for IND and C).
// On a successful finish X and Y bracket a sign change, the caller's last
// value is f(X), and C(1) holds f(Y) (so the bracketing engine can start at
// once with IND = -1); an exact zero gives Y = X and C(1) = 0.
SearchReport search_engine_step(double& x, double fx, double h, double boundl, double boundu,
                                double& y, double* c, int& ind);

}  // namespace lbx::roots
