// Sorting kernels of M01CAF.
#pragma once

#include <cstddef>
#include <memory>

namespace lbx::sorting {

// The reference quicksort of a segment rv(m1..m2) (1-based, rv[0] is rv(1)):
// median of three, a Wichmann-Hill shuffle of lopsided parts, parts of at most
// 15 elements left to one final insertion pass.  Its result, including the
// placement of NaNs and of -0.0 against +0.0, defines M01CAF's result.
void reference_quicksort(double* rv, long m1, long m2);

// Ascending sort of a[0..n-1] with the same result as reference_quicksort:
// data without NaNs and without both signed zeros has one sorted order, which
// a radix sort reaches faster; anything else goes to the reference sort.
void sort_ascending(double* rv, long m1, long m2);

// The radix sort's working arrays for n keys, allocated without throwing.
struct RadixScratch {
    explicit RadixScratch(std::size_t n);
    bool ready() const { return tmp && totals && counts; }
    int threads;                                // the threads that share each pass
    std::unique_ptr<unsigned long long[]> tmp;  // n words
    std::unique_ptr<std::size_t[]> totals;      // every digit's histogram
    std::unique_ptr<std::size_t[]> counts;      // one histogram per thread
};

// LSD radix sort of n doubles free of NaNs, with ready scratch for n keys.
void radix_sort(double* a, std::size_t n, RadixScratch& scratch);

}  // namespace lbx::sorting
