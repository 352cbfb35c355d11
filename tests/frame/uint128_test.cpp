// The portable 128-bit integer of 32-bit builds against the compiler's own.
#include "frame/uint128.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>

namespace {

using Native = unsigned __int128;
using lbx::PortableUInt128;

PortableUInt128 portable(Native v)
{
    return {static_cast<std::uint64_t>(v >> 64), static_cast<std::uint64_t>(v)};
}

Native native(PortableUInt128 v)
{
    return (static_cast<Native>(v.hi) << 64) | v.lo;
}

// Edge values and random ones of every width.
std::vector<Native> samples()
{
    const Native max = ~static_cast<Native>(0);
    std::vector<Native> v = {0,
                             1,
                             2,
                             0xffffffffU,
                             0x100000000ULL,
                             ~0ULL,
                             static_cast<Native>(~0ULL) + 1,
                             max,
                             max - 1,
                             max >> 1,
                             static_cast<Native>(4294967087ULL) * 4294967087ULL * 4294967087ULL};
    std::mt19937_64 gen(20240603);
    for (int bits : {16, 32, 63, 64, 65, 96, 127, 128})
        for (int i = 0; i < 12; ++i) {
            Native x = (static_cast<Native>(gen()) << 64) | gen();
            v.push_back(bits == 128 ? x : x & ((static_cast<Native>(1) << bits) - 1));
        }
    return v;
}

TEST(PortableUInt128, ArithmeticMatchesTheBuiltInType)
{
    const auto v = samples();
    for (Native a : v) {
        for (Native b : v) {
            const PortableUInt128 pa = portable(a), pb = portable(b);
            ASSERT_EQ(native(pa + pb), a + b);
            ASSERT_EQ(native(pa - pb), a - b);
            ASSERT_EQ(native(pa * pb), a * b);
            ASSERT_EQ(native(pa & pb), a & b);
            ASSERT_EQ(pa < pb, a < b);
            ASSERT_EQ(pa >= pb, a >= b);
            ASSERT_EQ(pa == pb, a == b);
            if (b != 0)
                ASSERT_EQ(native(pa % pb), a % b)
                    << static_cast<std::uint64_t>(a) << " % " << static_cast<std::uint64_t>(b);
        }
        for (int n : {0, 1, 31, 32, 63, 64, 65, 100, 127}) {
            ASSERT_EQ(native(portable(a) >> n), a >> n);
            ASSERT_EQ(native(portable(a) << n), a << n);
        }
        ASSERT_EQ(static_cast<bool>(portable(a)), a != 0);
        ASSERT_EQ(static_cast<std::uint32_t>(portable(a)), static_cast<std::uint32_t>(a));
    }
}

TEST(PortableUInt128, FullProductOfTwo64BitValues)
{
    for (Native a : samples())
        for (Native b : samples()) {
            const auto x = static_cast<std::uint64_t>(a), y = static_cast<std::uint64_t>(b);
            ASSERT_EQ(native(PortableUInt128::product(x, y)), static_cast<Native>(x) * y);
        }
}

}  // namespace
