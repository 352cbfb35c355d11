// Fast ascending sort with the reference quicksort's result.
//
// Two doubles that compare equal have the same bits unless they are -0.0 and
// +0.0, and NaNs compare with nothing, so data free of NaNs and of mixed
// zeros has exactly one ascending order: every correct sort returns the
// reference quicksort's bits.  Such data goes to an LSD radix sort on the
// order-preserving integer image of each double (11-bit digits, passes whose
// digit is the same for every key skipped); data already in order, or in
// reverse order, is settled by the scan that looks for NaNs and zeros.  Long
// data is sorted by all OpenMP threads; the result does not depend on their
// number.
#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <memory>
#include <new>

#include <omp.h>

#include "sorting/quicksort.hpp"

namespace lbx::sorting {

namespace {

using u64 = std::uint64_t;

constexpr int digit_bits = 11;
constexpr int digits = 6;  // 6 x 11 >= 64
constexpr u64 digit_mask = (u64{1} << digit_bits) - 1;
constexpr std::size_t buckets = std::size_t{1} << digit_bits;
constexpr u64 sign = u64{1} << 63;

// Below this length the reference sort is as fast as the radix sort's set-up.
constexpr long radix_threshold = 768;
// From this length the passes are shared among the OpenMP threads.
constexpr std::size_t parallel_threshold = std::size_t{1} << 20;

inline u64 key_of(double d)
{
    const u64 u = std::bit_cast<u64>(d);
    return u ^ (static_cast<u64>(static_cast<std::int64_t>(u) >> 63) | sign);
}

inline double double_of(u64 k)
{
    const u64 mask = static_cast<u64>(static_cast<std::int64_t>(k) >> 63);
    return std::bit_cast<double>(k ^ (~mask | sign));
}

struct Scan {
    bool nan = false, negative_zero = false, positive_zero = false;
    bool ascending = true, descending = true;
};

Scan scan(const double* a, std::size_t n)
{
    Scan s;
    unsigned nan = 0, nz = 0, pz = 0, up = 0, down = 0;
    for (std::size_t i = 0; i < n; ++i) {
        const double v = a[i];
        nan |= (v != v);
        const bool zero = v == 0.0;
        nz |= zero & std::signbit(v);
        pz |= zero & !std::signbit(v);
        if (i > 0) {
            up |= a[i - 1] > v;
            down |= a[i - 1] < v;
        }
    }
    s.nan = nan;
    s.negative_zero = nz;
    s.positive_zero = pz;
    s.ascending = !up;
    s.descending = !down;
    return s;
}

}  // namespace

RadixScratch::RadixScratch(std::size_t n)
    : threads(n >= parallel_threshold ? omp_get_max_threads() : 1),
      tmp(new (std::nothrow) unsigned long long[n]),
      totals(new (std::nothrow) std::size_t[digits * buckets]()),
      counts(new (std::nothrow) std::size_t[static_cast<std::size_t>(threads) * buckets])
{
}

void radix_sort(double* a, std::size_t n, RadixScratch& scratch)
{
    u64* tmp = reinterpret_cast<u64*>(scratch.tmp.get());
    static_assert(sizeof(u64) == sizeof(unsigned long long));
    const int wanted = scratch.threads;

    // Histograms of every digit over the whole data, to skip the passes whose
    // digit is the same for all keys.
    std::size_t* totals = scratch.totals.get();
    for (std::size_t i = 0; i < n; ++i) {
        const u64 k = key_of(a[i]);
        for (int d = 0; d < digits; ++d)
            ++totals[d * buckets + ((k >> (d * digit_bits)) & digit_mask)];
    }
    const u64 first = key_of(a[0]);

    // Each pass is a stable scatter: thread t owns the t-th contiguous chunk of
    // the source and writes its keys after those of the chunks before it, so the
    // result is the same for any number of threads.
    std::size_t* counts = scratch.counts.get();
    bool in_tmp = false;  // where the keys live: a (as bit images) or tmp
    bool keyed = false;   // whether a already holds keys rather than doubles
    for (int d = 0; d < digits; ++d) {
        const int shift = d * digit_bits;
        if (totals[d * buckets + ((first >> shift) & digit_mask)] == n)
            continue;  // every key has this digit
#pragma omp parallel num_threads(wanted)
        {
            const int team = omp_get_num_threads();
            const int t = omp_get_thread_num();
            const std::size_t lo = n * static_cast<std::size_t>(t) / static_cast<std::size_t>(team);
            const std::size_t hi =
                n * static_cast<std::size_t>(t + 1) / static_cast<std::size_t>(team);
            auto key_at = [&](std::size_t i) {
                return in_tmp ? tmp[i] : keyed ? std::bit_cast<u64>(a[i]) : key_of(a[i]);
            };
            std::size_t* c = &counts[static_cast<std::size_t>(t) * buckets];
            if (team == 1) {
                // One chunk: its counts are the whole data's.
                std::copy(&totals[d * buckets], &totals[(d + 1) * buckets], c);
            } else {
                std::fill(c, c + buckets, std::size_t{0});
                for (std::size_t i = lo; i < hi; ++i)
                    ++c[(key_at(i) >> shift) & digit_mask];
            }
#pragma omp barrier
#pragma omp single
            {
                std::size_t offset = 0;
                for (std::size_t b = 0; b < buckets; ++b)
                    for (int u = 0; u < team; ++u) {
                        std::size_t& cell = counts[static_cast<std::size_t>(u) * buckets + b];
                        const std::size_t m = cell;
                        cell = offset;
                        offset += m;
                    }
            }
            if (in_tmp) {
                for (std::size_t i = lo; i < hi; ++i) {
                    const u64 k = tmp[i];
                    a[c[(k >> shift) & digit_mask]++] = std::bit_cast<double>(k);
                }
            } else {
                for (std::size_t i = lo; i < hi; ++i) {
                    const u64 k = key_at(i);
                    tmp[c[(k >> shift) & digit_mask]++] = k;
                }
            }
        }
        keyed = true;
        in_tmp = !in_tmp;
    }
    if (in_tmp) {
#pragma omp parallel for num_threads(wanted) schedule(static)
        for (std::size_t i = 0; i < n; ++i)
            a[i] = double_of(tmp[i]);
    } else if (keyed) {
#pragma omp parallel for num_threads(wanted) schedule(static)
        for (std::size_t i = 0; i < n; ++i)
            a[i] = double_of(std::bit_cast<u64>(a[i]));
    }
}

void sort_ascending(double* rv, long m1, long m2)
{
    const long n = m2 - m1 + 1;
    if (n < radix_threshold) {
        reference_quicksort(rv, m1, m2);
        return;
    }
    double* a = rv + (m1 - 1);
    const Scan s = scan(a, static_cast<std::size_t>(n));
    if (s.nan || (s.negative_zero && s.positive_zero)) {
        reference_quicksort(rv, m1, m2);
        return;
    }
    if (s.ascending)
        return;
    if (s.descending) {
        std::reverse(a, a + n);
        return;
    }
    // Without room for the radix sort's arrays, the reference sort gives the
    // same result in place: sorting never fails for want of memory.
    RadixScratch scratch(static_cast<std::size_t>(n));
    if (!scratch.ready()) {
        reference_quicksort(rv, m1, m2);
        return;
    }
    radix_sort(a, static_cast<std::size_t>(n), scratch);
}

}  // namespace lbx::sorting
