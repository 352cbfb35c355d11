// M01CAF's fast paths against std::sort (an independent sort: data free of NaNs
// and of mixed signed zeros has one ascending order), data with NaNs and both
// zeros against a transcription of the defining quicksort, segment boundaries,
// lengths around the switch to the radix sort (its messages:
// messages_test.cpp); and, with the allocation hook here, the -999 exit of the
// chapter's routines that allocate.
#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <limits>
#include <new>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include <omp.h>

#include "gen/sorting.hpp"
#include "lbx3207qk.h"

// Allocation failure on demand: the allocation after `fail_countdown` more
// allocations throws (a negative countdown never fails).
namespace {
int fail_countdown = -1;
}
void* operator new(std::size_t n)
{
    if (fail_countdown >= 0 && fail_countdown-- == 0)
        throw std::bad_alloc();
    if (void* p = std::malloc(n != 0 ? n : 1))
        return p;
    throw std::bad_alloc();
}
// Every form is replaced: a sanitizer runtime has its own array and nothrow forms.
void* operator new[](std::size_t n)
{
    return operator new(n);
}
void* operator new(std::size_t n, const std::nothrow_t&) noexcept
{
    try {
        return operator new(n);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
void* operator new[](std::size_t n, const std::nothrow_t&) noexcept
{
    return operator new(n, std::nothrow);
}
void operator delete[](void* p) noexcept
{
    std::free(p);
}
void operator delete[](void* p, std::size_t) noexcept
{
    std::free(p);
}
void operator delete(void* p) noexcept
{
    std::free(p);
}
void operator delete(void* p, std::size_t) noexcept
{
    std::free(p);
}

namespace {

// Data of one ascending order: any double but NaN; subnormals of both signs and
// +0; -0 with duplicates; a narrow range (radix passes skipped); ascending,
// descending and constant data with ties (settled by the scan).
std::vector<double> data(std::size_t n, int kind, std::uint64_t seed)
{
    std::mt19937_64 gen(seed);
    std::vector<double> v(n);
    for (std::size_t i = 0; i < n; ++i) {
        const std::uint64_t bits = gen();
        const double x = kind == 0   ? std::bit_cast<double>(bits)
                         : kind == 1 ? std::ldexp(static_cast<double>(bits % 2001) - 1000, -1070)
                         : kind == 2 ? static_cast<double>(bits % 5) - 4
                         : kind == 3 ? 1.0 + static_cast<double>(bits % 1000) * 0x1p-52
                         : kind == 4 ? static_cast<double>(i / 3)
                         : kind == 5 ? static_cast<double>((n - i) / 3)
                                     : 2.5;
        v[i] = std::isnan(x) ? INFINITY : x == 0 ? (kind == 2 ? -0.0 : 0.0) : x;
    }
    return v;
}

bool same_bits(const std::vector<double>& a, const std::vector<double>& b)
{
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), 8 * a.size()) == 0;
}

TEST(M01CAF, MatchesAnIndependentSortOnSegments)
{
    for (std::size_t n : {2u, 15u, 16u, 767u, 768u, 769u, 5000u, 100000u}) {
        for (int kind = 0; kind < 7; ++kind) {
            for (char order : {'A', 'D'}) {
                std::vector<double> v = data(n, kind, n * 7 + kind), rv(n + 4, -1.5), want = rv;
                std::copy(v.begin(), v.end(), rv.begin() + 2);
                int m1 = 3, m2 = static_cast<int>(n) + 2, ifail = 1;
                m01caf_(rv.data(), &m1, &m2, &order, &ifail, 1);
                std::sort(v.begin(), v.end());
                if (order == 'D')
                    std::reverse(v.begin(), v.end());
                std::copy(v.begin(), v.end(), want.begin() + 2);
                EXPECT_TRUE(ifail == 0 && same_bits(rv, want)) << n << " " << kind << order;
            }
        }
    }
}

// The defining quicksort, transcribed independently of the library from its
// description: median of three, a Wichmann-Hill shuffle of lopsided parts,
// parts of at most 15 left to one final insertion pass.  With NaNs or both
// signed zeros it alone defines M01CAF's result.
void reference_sort(std::vector<double>& rv, long m1, long m2)
{
    auto at = [&](long i) -> double& { return rv[i - 1]; };
    auto swap = [&](long i, long j) { std::swap(at(i), at(j)); };
    auto lopsided = [](long a, long b) { return a > 5 * b + 25; };
    long ix = 15223, iy = 17795, iz = 28707, lo = m1, hi = m2;
    std::vector<std::pair<long, long>> stack;  // lo (negative: shuffle first), hi
    bool flag = false;
    while (m2 - m1 > 14) {
        if (flag) {
            ix = 171 * (ix % 177) - 2 * (ix / 177);
            ix += ix < 0 ? 30269 : 0;
            iy = 172 * (iy % 176) - 35 * (iy / 176);
            iy += iy < 0 ? 30307 : 0;
            iz = 170 * (iz % 178) - 63 * (iz / 178);
            iz += iz < 0 ? 30323 : 0;
            const double s = ix / 30269.0 + iy / 30307.0 + iz / 30323.0;
            const long k = static_cast<long>(lo + (s - std::trunc(s)) * (hi - lo));
            swap(lo, k);
            swap(hi, lo + hi - k);
        }
        if (at(lo) > at(hi))
            swap(lo, hi);
        const long mid = (lo + hi) / 2;
        if (at(lo) > at(mid))
            swap(lo, mid);
        else if (at(mid) > at(hi))
            swap(mid, hi);
        const double t = at(mid);
        long i = lo, j = hi;
        while (true) {
            while (at(++i) < t) {
            }
            while (at(--j) > t) {
            }
            if (i >= j)
                break;
            swap(i, j);
        }
        const long left = i - lo, right = hi - j;
        if (left > 15 && right > 15) {
            if (right <= left) {
                stack.push_back({lopsided(left, right) ? -lo : lo, i - 1});
                lo = j + 1;
                flag = lopsided(right, left);
            } else {
                stack.push_back({lopsided(right, left) ? -(j + 1) : j + 1, hi});
                hi = i - 1;
                flag = lopsided(left, right);
            }
        } else if (left > 15 && right <= left) {
            hi = i - 1;
            flag = lopsided(left, right);
        } else if (right > 15 && right > left) {
            lo = j + 1;
            flag = lopsided(right, left);
        } else {
            if (stack.empty())
                break;
            flag = stack.back().first < 0;
            lo = std::abs(stack.back().first);
            hi = stack.back().second;
            stack.pop_back();
        }
    }
    for (long p = m1 + 1; p <= m2; ++p) {
        const double v = at(p);
        long q = p - 1;
        for (; q >= m1 && at(q) > v; --q)
            at(q + 1) = at(q);
        at(q + 1) = v;
    }
}

TEST(M01CAF, MatchesTheReferenceQuicksortWithNaNsAndSignedZeros)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const long n = 30000;
    const std::pair<long, long> segments[] = {{1, n}, {1, 15}, {1, 16}, {37, 12345}, {2, 800}};
    std::mt19937_64 gen(12345);
    for (int kind = 0; kind < 4; ++kind) {
        std::vector<double> base(n);
        for (long i = 0; i < n; ++i) {
            const double u = std::uniform_real_distribution<double>()(gen);
            base[i] = kind == 0   ? (u < 0.25 ? -0.0 : std::floor(u * 4) - 2)  // both zeros
                      : kind == 1 ? u
                      : kind == 2 ? i * 0.5
                                  : std::min(i, n - i);  // organ pipe
            if (kind > 0 && u * 1000 - std::floor(u * 1000) < 0.1)
                base[i] = u * 1000 - std::floor(u * 1000) < 0.05 ? nan : -nan;
        }
        for (const auto& [m1, m2] : segments) {
            for (const char* order : {"A", "d"}) {
                std::vector<double> got = base, want = base;
                int i1 = static_cast<int>(m1), i2 = static_cast<int>(m2), ifail = 0;
                m01caf_(got.data(), &i1, &i2, order, &ifail, 1);
                reference_sort(want, m1, m2);
                if (*order == 'd')
                    std::reverse(want.begin() + (m1 - 1), want.begin() + m2);
                EXPECT_TRUE(same_bits(got, want)) << kind << " " << m1 << " " << m2 << order;
            }
        }
    }
}

// Shared among 1 to 4 threads (long enough to share), and on one thread with
// the radix sort's first, second or third array refused (the reference
// quicksort then sorts in place): the same sorted vector.
TEST(M01CAF, ResultDoesNotDependOnThreadsOrOnAllocation)
{
    const std::vector<double> v = data((1u << 20) + 12345, 0, 99);
    std::vector<double> sorted = v;
    std::sort(sorted.begin(), sorted.end());
    for (const auto& [threads, countdown] :
         {std::pair{1, -1}, {2, -1}, {3, -1}, {4, -1}, {1, 0}, {1, 1}, {1, 2}}) {
        omp_set_num_threads(threads);
        std::vector<double> rv = v;
        int m1 = 1, m2 = static_cast<int>(rv.size()), ifail = 1;
        fail_countdown = countdown;
        m01caf_(rv.data(), &m1, &m2, "A", &ifail, 1);
        fail_countdown = -1;
        EXPECT_TRUE(ifail == 0 && same_bits(rv, sorted)) << threads << " " << countdown;
    }
    omp_set_num_threads(omp_get_num_procs());
}

// The routines that need working arrays report a failed allocation as -999
// (quietly, IFAIL = 1 on entry) and leave their outputs alone.
TEST(Sorting, AllocationFailureIsMinus999)
{
    const int m1 = 1, m2 = 3000, one = 1;
    std::vector<double> rv(m2, 1.0);
    std::vector<int> irank(m2, -7), iperm(m2);
    std::iota(iperm.begin(), iperm.end(), 1);
    std::string ch(4 * m2, 'x');
    int iuser[1] = {0}, *ir = irank.data();
    auto never = [](const int*, const int*, int*, double*) { return 0; };
    const std::function<void(int*)> calls[] = {
        [&](int* f) { m01daf_(rv.data(), &m1, &m2, "A", ir, f, 1); },
        [&](int* f) { m01dcf_(ch.data(), &m1, &m2, &one, &one, "A", ir, f, 4, 1); },
        [&](int* f) { m01def_(rv.data(), &m2, &m1, &m2, &one, &one, "A", ir, f, 1); },
        [&](int* f) { m01dzf_(never, &m1, &m2, ir, iuser, rv.data(), f); },
        [&](int* f) { m01ccf_(ch.data(), &m1, &m2, &one, &one, "A", f, 4, 1); },
        [&](int* f) { m01eaf_(rv.data(), &m1, &m2, iperm.data(), f); },
        [&](int* f) { m01zaf_(iperm.data(), &m1, &m2, f); },
    };
    for (int k = 0; k < 7; ++k) {
        int ifail = 1;
        fail_countdown = 0;
        calls[k](&ifail);
        fail_countdown = -1;
        EXPECT_TRUE(ifail == -999 && irank[0] == -7 && iperm[0] == 1)
            << "call " << k << ": " << ifail;
    }
}

}  // namespace
