// Ranking keys: unsigned integers whose ascending order is the ranking order.
//
// Reals: -0.0 ties with +0.0, NaNs (of any sign or payload) tie with each other
// and come after every number in both orders; descending order inverts the
// keys of numbers.  Integers: the sign bit flipped, inverted for descending.
#pragma once

#include <bit>
#include <cstdint>

namespace lbx::sorting {

inline std::uint64_t rank_key(double x, bool ascending)
{
    constexpr std::uint64_t sign = std::uint64_t{1} << 63;
    if (x != x)
        return ~std::uint64_t{0};
    const std::uint64_t u = std::bit_cast<std::uint64_t>(x == 0 ? 0.0 : x);
    const std::uint64_t k = (u & sign) != 0 ? ~u : u | sign;
    return ascending ? k : ~k;
}

inline std::uint32_t rank_key(int x, bool ascending)
{
    const std::uint32_t k = static_cast<std::uint32_t>(x) ^ 0x80000000u;
    return ascending ? k : ~k;
}

}  // namespace lbx::sorting
