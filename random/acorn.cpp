// GENID 5, ACORN (Wikramaratna's additive congruential random number generator) of order
// k = 10 with modulus 2^30:
//   Y^0_n = Y^0_{n-1} (the odd seed),  Y^m_n = (Y^{m-1}_n + Y^m_{n-1}) mod 2^30, m = 1..k,
//   u = (Y^k_n + 1/2) * 2^-30   (the half keeps u inside the open interval (0,1)).
// Block: STATE(4) = k, STATE(5) = 2^30, STATE(6..6+k) = Y^0..Y^k, STATE(k+7) = 5050.
// One step is Y <- A Y with A the lower triangular matrix of ones, so skip-ahead is a
// matrix power mod 2^30.
#include <array>
#include <cstdint>

#include "random/engines.hpp"
#include "random/state.hpp"

namespace lbx::random::acorn {
namespace {

constexpr int kK = kAcornOrder;
constexpr int kDim = kK + 1;
constexpr std::uint64_t kMod = std::uint64_t{1} << 30;
constexpr std::uint64_t kMask = kMod - 1;
constexpr int kY = 5;

using Matrix = std::array<std::uint64_t, kDim * kDim>;

Matrix multiply(const Matrix& p, const Matrix& q)
{
    Matrix r{};
    for (int i = 0; i < kDim; ++i) {
        for (int j = 0; j < kDim; ++j) {
            std::uint64_t s = 0;  // 11 products below 2^60 cannot overflow 64 bits
            for (int l = 0; l < kDim; ++l)
                s += p[i * kDim + l] * q[l * kDim + j];
            r[i * kDim + j] = s & kMask;
        }
    }
    return r;
}

Matrix identity()
{
    Matrix r{};
    for (int i = 0; i < kDim; ++i)
        r[i * kDim + i] = 1;
    return r;
}

Matrix step_matrix()
{
    Matrix r{};
    for (int i = 0; i < kDim; ++i) {
        for (int j = 0; j <= i; ++j)
            r[i * kDim + j] = 1;
    }
    return r;
}

void apply(int* state, const Matrix& m)
{
    std::uint64_t y[kDim], z[kDim];
    for (int i = 0; i < kDim; ++i)
        y[i] = static_cast<std::uint64_t>(state[kY + i]);
    for (int i = 0; i < kDim; ++i) {
        std::uint64_t s = 0;
        for (int l = 0; l < kDim; ++l)
            s += m[i * kDim + l] * y[l];
        z[i] = s & kMask;
    }
    for (int i = 0; i < kDim; ++i)
        state[kY + i] = static_cast<int>(z[i]);
}

}  // namespace

void init(const std::vector<std::int64_t>& words, int* state)
{
    state[0] = kBlockAcorn;
    state[1] = kCheck[5];
    state[2] = 5;
    state[3] = kK;
    state[4] = static_cast<int>(kMod);
    state[kY] = static_cast<int>((static_cast<std::uint64_t>(words[0]) & kMask) | 1);
    for (int i = 1; i < kDim; ++i) {
        state[kY + i] = static_cast<int>(static_cast<std::uint64_t>(words[i]) & kMask);
    }
    state[kBlockAcorn - 1] = kCheck[5];
}

void fill(int* state, double* out, int n)
{
    std::uint32_t y[kDim];
    for (int i = 0; i < kDim; ++i)
        y[i] = static_cast<std::uint32_t>(state[kY + i]);
    for (int i = 0; i < n; ++i) {
        for (int m = 1; m < kDim; ++m)
            y[m] = (y[m] + y[m - 1]) & static_cast<std::uint32_t>(kMask);
        out[i] = (static_cast<double>(y[kK]) + 0.5) * 0x1p-30;
    }
    for (int i = 0; i < kDim; ++i)
        state[kY + i] = static_cast<int>(y[i]);
}

void skip(int* state, std::uint64_t n)
{
    Matrix r = identity(), b = step_matrix();
    while (n) {
        if (n & 1)
            r = multiply(r, b);
        b = multiply(b, b);
        n >>= 1;
    }
    apply(state, r);
}

void skip_pow2(int* state, int p)
{
    // A = I + L with L nilpotent; A^(2^j) = I mod 2^30 once 2^j's binomials vanish (j >= 34),
    // so more than 64 squarings change nothing.
    Matrix b = step_matrix();
    for (int i = 0; i < p && i < 64; ++i)
        b = multiply(b, b);
    apply(state, b);
}

}  // namespace lbx::random::acorn
