// Argument checks shared by the chapter's routines, raising the routine's own
// messages (each routine's Msg struct names the shared templates).
#pragma once

#include <algorithm>
#include <climits>
#include <cstddef>

#include "frame/fail.hpp"

namespace lbx::sorting {

// M2 >= 1, M1 >= 1, M1 <= M2, in this order.
template <class Msg>
bool segment_ok(int m1, int m2, lbx::Fail& fail)
{
    if (m2 < 1)
        fail(Msg::M2_LT_1, m2);
    else if (m1 < 1)
        fail(Msg::M1_LT_1, m1);
    else if (m1 > m2)
        fail(Msg::M1_GT_M2, m1, m2);
    else
        return true;
    return false;
}

// The matrix forms: rows M1..M2 and columns N1..N2 of an LDM by N2 array.
template <class Msg>
bool matrix_ok(int ldm, int m1, int m2, int n1, int n2, lbx::Fail& fail)
{
    if (!segment_ok<Msg>(m1, m2, fail))
        return false;
    if (n2 < 1)
        fail(Msg::N2_LT_1, n2);
    else if (n1 < 1)
        fail(Msg::N1_LT_1, n1);
    else if (n1 > n2)
        fail(Msg::N1_GT_N2, n1, n2);
    else if (ldm < m2)
        fail(Msg::LDM_LT_M2, ldm, m2);
    else
        return true;
    return false;
}

// Character keys: positions L1..L2 of elements of length len; L1 >= 1, L1 <= L2,
// L2 <= len, in this order.
template <class Msg>
bool positions_ok(int l1, int l2, std::size_t len, lbx::Fail& fail)
{
    if (l1 < 1)
        fail(Msg::L1_LT_1, l1);
    else if (l1 > l2)
        fail(Msg::L1_GT_L2, l1, l2);
    else if (static_cast<std::size_t>(l2) > len)
        fail(Msg::L2_GT_LEN, l2, static_cast<int>(std::min<std::size_t>(len, INT_MAX)));
    else
        return true;
    return false;
}

// ORDER one of A, a, D, d; sets ascending.
template <class Msg>
bool order_ok(char order, bool& ascending, lbx::Fail& fail)
{
    ascending = order == 'A' || order == 'a';
    if (ascending || order == 'D' || order == 'd')
        return true;
    fail(Msg::BAD_ORDER, order);
    return false;
}

}  // namespace lbx::sorting
