// The own path of the F06 level-2/3 BLAS and packed-storage routines.
//
// Error exits: for every routine a valid call, then each argument the
// reference routine checks made bad on its own (option '/' or a letter the
// routine refuses, dimension -1, leading dimension one short of the least the
// reference routine accepts for the valid call, increment 0), and each
// neighbouring pair of those made bad together; the expected argument numbers
// are read off the reference BLAS 3.11 sources, and the outputs must be
// untouched.  Results: the valid call against the external library's routine
// called directly with the same inputs, bit for bit.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "frame/entry.hpp"
#include "linalg/blas_own.hpp"

namespace {

using lbx::Complex;

// The scalar arguments of a call: options in argument order, then the integers.
struct Call {
    char opt[6] = "";
    int m = 0, n = 0, k = 0, kl = 0, ku = 0, lda = 0, ldb = 0, ldc = 0, incx = 0, incy = 0;
    const char* o(int i) const { return &opt[i]; }
};

// Every array and scalar any of the routines reads or writes.
struct Data {
    double alpha = 0.75, beta = -0.375;
    Complex zalpha{0.75, -0.25}, zbeta{-0.375, 0.5};
    std::vector<double> a, b, c, x, y;
    std::vector<Complex> za, zb, zc, zx, zy;
    Data()
    {
        for (int i = 0; i < 64; ++i) {
            const double u = 0.5 + (i * 37 % 17) / 17.0, v = (i * 11 % 7) / 7.0 - 0.5;
            double shift = 0;
            for (auto* r : {&a, &b, &c, &x, &y})
                r->push_back(u + (shift += 0.125));
            for (auto* z : {&za, &zb, &zc, &zx, &zy})
                z->push_back({u + (shift += 0.125), v});
        }
    }
    bool operator==(const Data& o) const
    {
        auto same = [](const auto& p, const auto& q) {
            return std::memcmp(p.data(), q.data(), p.size() * sizeof p[0]) == 0;
        };
        return same(a, o.a) && same(b, o.b) && same(c, o.c) && same(x, o.x) && same(y, o.y) &&
               same(za, o.za) && same(zb, o.zb) && same(zc, o.zc) && same(zx, o.zx) &&
               same(zy, o.zy);
    }
};

template <std::size_t>
constexpr std::size_t one = 1;
template <std::size_t>
using Length = std::size_t;

// Calls an own routine: the standard arguments, then SRNAME and a length of 1
// per option (options come first in every one of these routines), then
// SRNAME's length.
template <auto F>
struct Own {
    std::string_view srname;
    template <class... A>
    void operator()(A... a) const
    {
        constexpr std::size_t options = (0 + ... + std::is_same_v<A, const char*>);
        [&]<std::size_t... I>(std::index_sequence<I...>)
        {
            F(a..., srname.data(), one<I>..., srname.size());
        }
        (std::make_index_sequence<options>{});
    }
};

// Calls the external library's routine of a standard name directly.
struct Peer {
    const char* symbol;
    template <class... A>
    void operator()(A... a) const
    {
        constexpr std::size_t options = (0 + ... + std::is_same_v<A, const char*>);
        [&]<std::size_t... I>(std::index_sequence<I...>)
        {
            using Fn = void(A..., Length<I>...);
            reinterpret_cast<Fn*>(lbx::frame::external_routine(symbol))(a..., one<I>...);
        }
        (std::make_index_sequence<options>{});
    }
};

// One bad argument: an option letter or an integer, and the argument number
// the reference routine reports for it.
struct Bad {
    int option = -1;  // index into Call::opt, or -1
    char letter = '/';
    int Call::*field = nullptr;
    int value = 0;
    int info = 0;
    void apply(Call& c) const
    {
        if (option >= 0)
            c.opt[option] = letter;
        else
            c.*field = value;
    }
};
Bad opt(int index, int info, char letter = '/')
{
    return {index, letter, nullptr, 0, info};
}
Bad bad(int Call::*field, int value, int info)
{
    return {-1, '/', field, value, info};
}

struct Routine {
    std::string name;    // standard name
    std::string srname;  // what the traced layer hands on
    Call valid;
    std::vector<Bad> bad;
    void (*own)(Call&, Data&, std::string_view);
    void (*peer)(Call&, Data&, const char*);
};

template <auto F, class Shape>
Routine routine(std::string name, std::string srname, Shape, Call valid, std::vector<Bad> bad)
{
    return {std::move(name),
            std::move(srname),
            valid,
            std::move(bad),
            [](Call& c, Data& d, std::string_view s) { Shape{}(Own<F>{s}, c, d); },
            [](Call& c, Data& d, const char* symbol) { Shape{}(Peer{symbol}, c, d); }};
}

Call make(const char* opt, std::initializer_list<std::pair<int Call::*, int>> ints)
{
    Call c;
    std::strncpy(c.opt, opt, sizeof c.opt - 1);
    for (auto [f, v] : ints)
        c.*f = v;
    return c;
}

constexpr auto M = &Call::m, N = &Call::n, K = &Call::k, KL = &Call::kl, KU = &Call::ku,
               LDA = &Call::lda, LDB = &Call::ldb, LDC = &Call::ldc, INCX = &Call::incx,
               INCY = &Call::incy;

// The argument lists, one per family: f is Own or Peer.
std::vector<Routine> routines()
{
    // Level 2.
    const Call gemv = make("t", {{M, 3}, {N, 4}, {LDA, 3}, {INCX, 2}, {INCY, 1}});
    const std::vector<Bad> gemv_bad = {opt(0, 1),      bad(M, -1, 2),   bad(N, -1, 3),
                                       bad(LDA, 2, 6), bad(INCX, 0, 8), bad(INCY, 0, 11)};
    const Call gbmv =
        make("N", {{M, 3}, {N, 4}, {KL, 1}, {KU, 2}, {LDA, 4}, {INCX, 2}, {INCY, -1}});
    const std::vector<Bad> gbmv_bad = {opt(0, 1),        bad(M, -1, 2),   bad(N, -1, 3),
                                       bad(KL, -1, 4),   bad(KU, -1, 5),  bad(LDA, 3, 8),
                                       bad(INCX, 0, 10), bad(INCY, 0, 13)};
    const Call symv = make("l", {{N, 4}, {LDA, 4}, {INCX, 1}, {INCY, 2}});
    const std::vector<Bad> symv_bad = {opt(0, 1), bad(N, -1, 2), bad(LDA, 3, 5), bad(INCX, 0, 7),
                                       bad(INCY, 0, 10)};
    const Call sbmv = make("U", {{N, 4}, {K, 2}, {LDA, 3}, {INCX, 1}, {INCY, 2}});
    const std::vector<Bad> sbmv_bad = {opt(0, 1),      bad(N, -1, 2),   bad(K, -1, 3),
                                       bad(LDA, 2, 6), bad(INCX, 0, 8), bad(INCY, 0, 11)};
    const Call spmv = make("L", {{N, 4}, {INCX, 2}, {INCY, 1}});
    const std::vector<Bad> spmv_bad = {opt(0, 1), bad(N, -1, 2), bad(INCX, 0, 6), bad(INCY, 0, 9)};
    const Call trmv = make("UTN", {{N, 4}, {LDA, 4}, {INCX, 2}});
    const std::vector<Bad> trmv_bad = {opt(0, 1),     opt(1, 2),      opt(2, 3),
                                       bad(N, -1, 4), bad(LDA, 3, 6), bad(INCX, 0, 8)};
    const Call tbmv = make("lnn", {{N, 4}, {K, 2}, {LDA, 3}, {INCX, -1}});
    const std::vector<Bad> tbmv_bad = {opt(0, 1),     opt(1, 2),      opt(2, 3),      bad(N, -1, 4),
                                       bad(K, -1, 5), bad(LDA, 2, 7), bad(INCX, 0, 9)};
    const Call tpmv = make("LCU", {{N, 4}, {INCX, 1}});
    const std::vector<Bad> tpmv_bad = {opt(0, 1), opt(1, 2), opt(2, 3), bad(N, -1, 4),
                                       bad(INCX, 0, 7)};
    const Call ger = make("", {{M, 3}, {N, 4}, {INCX, 2}, {INCY, 1}, {LDA, 3}});
    const std::vector<Bad> ger_bad = {bad(M, -1, 1), bad(N, -1, 2), bad(INCX, 0, 5),
                                      bad(INCY, 0, 7), bad(LDA, 2, 9)};
    const Call syr = make("U", {{N, 4}, {INCX, 2}, {LDA, 4}});
    const std::vector<Bad> syr_bad = {opt(0, 1), bad(N, -1, 2), bad(INCX, 0, 5), bad(LDA, 3, 7)};
    const Call spr = make("l", {{N, 4}, {INCX, 1}});
    const std::vector<Bad> spr_bad = {opt(0, 1), bad(N, -1, 2), bad(INCX, 0, 5)};
    const Call syr2 = make("L", {{N, 4}, {INCX, 1}, {INCY, 2}, {LDA, 4}});
    const std::vector<Bad> syr2_bad = {opt(0, 1), bad(N, -1, 2), bad(INCX, 0, 5), bad(INCY, 0, 7),
                                       bad(LDA, 3, 9)};
    const Call spr2 = make("U", {{N, 4}, {INCX, 2}, {INCY, 1}});
    const std::vector<Bad> spr2_bad = {opt(0, 1), bad(N, -1, 2), bad(INCX, 0, 5), bad(INCY, 0, 7)};

    auto gemv_d = [](auto f, Call& c, Data& d) {
        f(c.o(0), &c.m, &c.n, &d.alpha, d.a.data(), &c.lda, d.x.data(), &c.incx, &d.beta,
          d.y.data(), &c.incy);
    };
    auto gemv_z = [](auto f, Call& c, Data& d) {
        f(c.o(0), &c.m, &c.n, &d.zalpha, d.za.data(), &c.lda, d.zx.data(), &c.incx, &d.zbeta,
          d.zy.data(), &c.incy);
    };
    auto gbmv_d = [](auto f, Call& c, Data& d) {
        f(c.o(0), &c.m, &c.n, &c.kl, &c.ku, &d.alpha, d.a.data(), &c.lda, d.x.data(), &c.incx,
          &d.beta, d.y.data(), &c.incy);
    };
    auto gbmv_z = [](auto f, Call& c, Data& d) {
        f(c.o(0), &c.m, &c.n, &c.kl, &c.ku, &d.zalpha, d.za.data(), &c.lda, d.zx.data(), &c.incx,
          &d.zbeta, d.zy.data(), &c.incy);
    };
    auto symv_d = [](auto f, Call& c, Data& d) {
        f(c.o(0), &c.n, &d.alpha, d.a.data(), &c.lda, d.x.data(), &c.incx, &d.beta, d.y.data(),
          &c.incy);
    };
    auto symv_z = [](auto f, Call& c, Data& d) {
        f(c.o(0), &c.n, &d.zalpha, d.za.data(), &c.lda, d.zx.data(), &c.incx, &d.zbeta, d.zy.data(),
          &c.incy);
    };
    auto sbmv_d = [](auto f, Call& c, Data& d) {
        f(c.o(0), &c.n, &c.k, &d.alpha, d.a.data(), &c.lda, d.x.data(), &c.incx, &d.beta,
          d.y.data(), &c.incy);
    };
    auto sbmv_z = [](auto f, Call& c, Data& d) {
        f(c.o(0), &c.n, &c.k, &d.zalpha, d.za.data(), &c.lda, d.zx.data(), &c.incx, &d.zbeta,
          d.zy.data(), &c.incy);
    };
    auto spmv_d = [](auto f, Call& c, Data& d) {
        f(c.o(0), &c.n, &d.alpha, d.a.data(), d.x.data(), &c.incx, &d.beta, d.y.data(), &c.incy);
    };
    auto spmv_z = [](auto f, Call& c, Data& d) {
        f(c.o(0), &c.n, &d.zalpha, d.za.data(), d.zx.data(), &c.incx, &d.zbeta, d.zy.data(),
          &c.incy);
    };
    auto trmv_d = [](auto f, Call& c, Data& d) {
        f(c.o(0), c.o(1), c.o(2), &c.n, d.a.data(), &c.lda, d.x.data(), &c.incx);
    };
    auto trmv_z = [](auto f, Call& c, Data& d) {
        f(c.o(0), c.o(1), c.o(2), &c.n, d.za.data(), &c.lda, d.zx.data(), &c.incx);
    };
    auto tbmv_d = [](auto f, Call& c, Data& d) {
        f(c.o(0), c.o(1), c.o(2), &c.n, &c.k, d.a.data(), &c.lda, d.x.data(), &c.incx);
    };
    auto tbmv_z = [](auto f, Call& c, Data& d) {
        f(c.o(0), c.o(1), c.o(2), &c.n, &c.k, d.za.data(), &c.lda, d.zx.data(), &c.incx);
    };
    auto tpmv_d = [](auto f, Call& c, Data& d) {
        f(c.o(0), c.o(1), c.o(2), &c.n, d.a.data(), d.x.data(), &c.incx);
    };
    auto tpmv_z = [](auto f, Call& c, Data& d) {
        f(c.o(0), c.o(1), c.o(2), &c.n, d.za.data(), d.zx.data(), &c.incx);
    };
    auto ger_d = [](auto f, Call& c, Data& d) {
        f(&c.m, &c.n, &d.alpha, d.x.data(), &c.incx, d.y.data(), &c.incy, d.a.data(), &c.lda);
    };
    auto ger_z = [](auto f, Call& c, Data& d) {
        f(&c.m, &c.n, &d.zalpha, d.zx.data(), &c.incx, d.zy.data(), &c.incy, d.za.data(), &c.lda);
    };
    auto syr_d = [](auto f, Call& c, Data& d) {
        f(c.o(0), &c.n, &d.alpha, d.x.data(), &c.incx, d.a.data(), &c.lda);
    };
    auto her_z = [](auto f, Call& c, Data& d) {
        f(c.o(0), &c.n, &d.alpha, d.zx.data(), &c.incx, d.za.data(), &c.lda);
    };
    auto spr_d = [](auto f, Call& c, Data& d) {
        f(c.o(0), &c.n, &d.alpha, d.x.data(), &c.incx, d.a.data());
    };
    auto hpr_z = [](auto f, Call& c, Data& d) {
        f(c.o(0), &c.n, &d.alpha, d.zx.data(), &c.incx, d.za.data());
    };
    auto syr2_d = [](auto f, Call& c, Data& d) {
        f(c.o(0), &c.n, &d.alpha, d.x.data(), &c.incx, d.y.data(), &c.incy, d.a.data(), &c.lda);
    };
    auto her2_z = [](auto f, Call& c, Data& d) {
        f(c.o(0), &c.n, &d.zalpha, d.zx.data(), &c.incx, d.zy.data(), &c.incy, d.za.data(), &c.lda);
    };
    auto spr2_d = [](auto f, Call& c, Data& d) {
        f(c.o(0), &c.n, &d.alpha, d.x.data(), &c.incx, d.y.data(), &c.incy, d.a.data());
    };
    auto hpr2_z = [](auto f, Call& c, Data& d) {
        f(c.o(0), &c.n, &d.zalpha, d.zx.data(), &c.incx, d.zy.data(), &c.incy, d.za.data());
    };

    // Level 3.  GEMM: LDA >= rows of op(A) (M with 'N', else K), LDB >= rows of
    // op(B) (K with 'N', else N).
    const Call dgemm = make("NT", {{M, 3}, {N, 4}, {K, 2}, {LDA, 3}, {LDB, 4}, {LDC, 3}});
    const Call zgemm = make("cN", {{M, 3}, {N, 4}, {K, 2}, {LDA, 2}, {LDB, 2}, {LDC, 3}});
    auto gemm_bad = [](int lda, int ldb, int ldc) {
        return std::vector<Bad>{opt(0, 1),
                                opt(1, 2),
                                bad(M, -1, 3),
                                bad(N, -1, 4),
                                bad(K, -1, 5),
                                bad(LDA, lda - 1, 8),
                                bad(LDB, ldb - 1, 10),
                                bad(LDC, ldc - 1, 13)};
    };
    // SYMM/HEMM: LDA >= M on the left, N on the right.
    const Call symm_r = make("RU", {{M, 3}, {N, 4}, {LDA, 4}, {LDB, 3}, {LDC, 3}});
    const Call symm_l = make("lL", {{M, 3}, {N, 4}, {LDA, 3}, {LDB, 3}, {LDC, 3}});
    auto symm_bad = [](int lda) {
        return std::vector<Bad>{
            opt(0, 1),      opt(1, 2),      bad(M, -1, 3), bad(N, -1, 4), bad(LDA, lda - 1, 7),
            bad(LDB, 2, 9), bad(LDC, 2, 12)};
    };
    // TRMM/TRSM: LDA >= M on the left, N on the right; LDB >= M.
    const Call trxm_l = make("LUNN", {{M, 3}, {N, 4}, {LDA, 3}, {LDB, 3}});
    const Call trxm_r = make("rlTu", {{M, 3}, {N, 4}, {LDA, 4}, {LDB, 3}});
    auto trxm_bad = [](int lda) {
        return std::vector<Bad>{opt(0, 1),
                                opt(1, 2),
                                opt(2, 3),
                                opt(3, 4),
                                bad(M, -1, 5),
                                bad(N, -1, 6),
                                bad(LDA, lda - 1, 9),
                                bad(LDB, 2, 11)};
    };
    // SYRK/HERK/SYR2K/HER2K: LDA (and LDB) >= N with 'N', else K; LDC >= N.
    const Call rk_n = make("UN", {{N, 4}, {K, 2}, {LDA, 4}, {LDB, 4}, {LDC, 4}});
    const Call rk_t = make("LT", {{N, 4}, {K, 2}, {LDA, 2}, {LDB, 2}, {LDC, 4}});
    const Call rk_c = make("uc", {{N, 4}, {K, 2}, {LDA, 2}, {LDB, 2}, {LDC, 4}});
    auto rk_bad = [](int lda, char refused) {
        return std::vector<Bad>{opt(0, 1),      opt(1, 2),     opt(1, 2, refused),
                                bad(N, -1, 3),  bad(K, -1, 4), bad(LDA, lda - 1, 7),
                                bad(LDC, 3, 10)};
    };
    auto r2k_bad = [](int lda, char refused) {
        return std::vector<Bad>{opt(0, 1),
                                opt(1, 2),
                                opt(1, 2, refused),
                                bad(N, -1, 3),
                                bad(K, -1, 4),
                                bad(LDA, lda - 1, 7),
                                bad(LDB, lda - 1, 9),
                                bad(LDC, 3, 12)};
    };

    auto gemm_d = [](auto f, Call& c, Data& d) {
        f(c.o(0), c.o(1), &c.m, &c.n, &c.k, &d.alpha, d.a.data(), &c.lda, d.b.data(), &c.ldb,
          &d.beta, d.c.data(), &c.ldc);
    };
    auto gemm_z = [](auto f, Call& c, Data& d) {
        f(c.o(0), c.o(1), &c.m, &c.n, &c.k, &d.zalpha, d.za.data(), &c.lda, d.zb.data(), &c.ldb,
          &d.zbeta, d.zc.data(), &c.ldc);
    };
    auto symm_d = [](auto f, Call& c, Data& d) {
        f(c.o(0), c.o(1), &c.m, &c.n, &d.alpha, d.a.data(), &c.lda, d.b.data(), &c.ldb, &d.beta,
          d.c.data(), &c.ldc);
    };
    auto symm_z = [](auto f, Call& c, Data& d) {
        f(c.o(0), c.o(1), &c.m, &c.n, &d.zalpha, d.za.data(), &c.lda, d.zb.data(), &c.ldb, &d.zbeta,
          d.zc.data(), &c.ldc);
    };
    auto trxm_d = [](auto f, Call& c, Data& d) {
        f(c.o(0), c.o(1), c.o(2), c.o(3), &c.m, &c.n, &d.alpha, d.a.data(), &c.lda, d.b.data(),
          &c.ldb);
    };
    auto trxm_z = [](auto f, Call& c, Data& d) {
        f(c.o(0), c.o(1), c.o(2), c.o(3), &c.m, &c.n, &d.zalpha, d.za.data(), &c.lda, d.zb.data(),
          &c.ldb);
    };
    auto syrk_d = [](auto f, Call& c, Data& d) {
        f(c.o(0), c.o(1), &c.n, &c.k, &d.alpha, d.a.data(), &c.lda, &d.beta, d.c.data(), &c.ldc);
    };
    auto herk_z = [](auto f, Call& c, Data& d) {
        f(c.o(0), c.o(1), &c.n, &c.k, &d.alpha, d.za.data(), &c.lda, &d.beta, d.zc.data(), &c.ldc);
    };
    auto syrk_z = [](auto f, Call& c, Data& d) {
        f(c.o(0), c.o(1), &c.n, &c.k, &d.zalpha, d.za.data(), &c.lda, &d.zbeta, d.zc.data(),
          &c.ldc);
    };
    auto syr2k_d = [](auto f, Call& c, Data& d) {
        f(c.o(0), c.o(1), &c.n, &c.k, &d.alpha, d.a.data(), &c.lda, d.b.data(), &c.ldb, &d.beta,
          d.c.data(), &c.ldc);
    };
    auto her2k_z = [](auto f, Call& c, Data& d) {
        f(c.o(0), c.o(1), &c.n, &c.k, &d.zalpha, d.za.data(), &c.lda, d.zb.data(), &c.ldb, &d.beta,
          d.zc.data(), &c.ldc);
    };
    auto syr2k_z = [](auto f, Call& c, Data& d) {
        f(c.o(0), c.o(1), &c.n, &c.k, &d.zalpha, d.za.data(), &c.lda, d.zb.data(), &c.ldb, &d.zbeta,
          d.zc.data(), &c.ldc);
    };

    // Rectangular full packed: TFSM's LDB >= max(1, M); SFRK/HFRK's LDA >= N
    // with 'N', else K.  The real routines take 'T', the complex ones 'C'.
    const Call dtfsm = make("tRlTu", {{M, 3}, {N, 4}, {LDB, 3}});
    const Call ztfsm = make("cRlCu", {{M, 3}, {N, 4}, {LDB, 3}});
    auto tfsm_bad = [](char refused) {
        return std::vector<Bad>{opt(0, 1),     opt(0, 1, refused), opt(1, 2), opt(2, 3),
                                opt(3, 4),     opt(3, 4, refused), opt(4, 5), bad(M, -1, 6),
                                bad(N, -1, 7), bad(LDB, 2, 11)};
    };
    const Call dsfrk = make("TLT", {{N, 4}, {K, 2}, {LDA, 2}});
    const Call zhfrk = make("NUn", {{N, 4}, {K, 2}, {LDA, 4}});
    auto sfrk_bad = [](int lda, char refused) {
        return std::vector<Bad>{opt(0, 1),     opt(0, 1, refused),  opt(1, 2),
                                opt(2, 3),     opt(2, 3, refused),  bad(N, -1, 4),
                                bad(K, -1, 5), bad(LDA, lda - 1, 8)};
    };
    auto tfsm_d = [](auto f, Call& c, Data& d) {
        f(c.o(0), c.o(1), c.o(2), c.o(3), c.o(4), &c.m, &c.n, &d.alpha, d.a.data(), d.b.data(),
          &c.ldb);
    };
    auto tfsm_z = [](auto f, Call& c, Data& d) {
        f(c.o(0), c.o(1), c.o(2), c.o(3), c.o(4), &c.m, &c.n, &d.zalpha, d.za.data(), d.zb.data(),
          &c.ldb);
    };
    auto sfrk_d = [](auto f, Call& c, Data& d) {
        f(c.o(0), c.o(1), c.o(2), &c.n, &c.k, &d.alpha, d.a.data(), &c.lda, &d.beta, d.c.data());
    };
    auto hfrk_z = [](auto f, Call& c, Data& d) {
        f(c.o(0), c.o(1), c.o(2), &c.n, &c.k, &d.alpha, d.za.data(), &c.lda, &d.beta, d.zc.data());
    };

    return {
        routine<lbx_own_dgemv_>("DGEMV", "F06PAF/DGEMV", gemv_d, gemv, gemv_bad),
        routine<lbx_own_dgbmv_>("DGBMV", "DGBMV", gbmv_d, gbmv, gbmv_bad),
        routine<lbx_own_dsymv_>("DSYMV", "DSYMV", symv_d, symv, symv_bad),
        routine<lbx_own_dsbmv_>("DSBMV", "DSBMV", sbmv_d, sbmv, sbmv_bad),
        routine<lbx_own_dspmv_>("DSPMV", "DSPMV", spmv_d, spmv, spmv_bad),
        routine<lbx_own_dtrmv_>("DTRMV", "DTRMV", trmv_d, trmv, trmv_bad),
        routine<lbx_own_dtbmv_>("DTBMV", "DTBMV", tbmv_d, tbmv, tbmv_bad),
        routine<lbx_own_dtpmv_>("DTPMV", "DTPMV", tpmv_d, tpmv, tpmv_bad),
        routine<lbx_own_dtrsv_>("DTRSV", "DTRSV", trmv_d, trmv, trmv_bad),
        routine<lbx_own_dtbsv_>("DTBSV", "DTBSV", tbmv_d, tbmv, tbmv_bad),
        routine<lbx_own_dtpsv_>("DTPSV", "DTPSV", tpmv_d, tpmv, tpmv_bad),
        routine<lbx_own_dger_>("DGER", "DGER", ger_d, ger, ger_bad),
        routine<lbx_own_dsyr_>("DSYR", "DSYR", syr_d, syr, syr_bad),
        routine<lbx_own_dspr_>("DSPR", "DSPR", spr_d, spr, spr_bad),
        routine<lbx_own_dsyr2_>("DSYR2", "DSYR2", syr2_d, syr2, syr2_bad),
        routine<lbx_own_dspr2_>("DSPR2", "DSPR2", spr2_d, spr2, spr2_bad),
        routine<lbx_own_zgemv_>("ZGEMV", "F06SAF/ZGEMV", gemv_z, gemv, gemv_bad),
        routine<lbx_own_zgbmv_>("ZGBMV", "ZGBMV", gbmv_z, gbmv, gbmv_bad),
        routine<lbx_own_zhemv_>("ZHEMV", "ZHEMV", symv_z, symv, symv_bad),
        routine<lbx_own_zhbmv_>("ZHBMV", "ZHBMV", sbmv_z, sbmv, sbmv_bad),
        routine<lbx_own_zhpmv_>("ZHPMV", "ZHPMV", spmv_z, spmv, spmv_bad),
        routine<lbx_own_ztrmv_>("ZTRMV", "ZTRMV", trmv_z, trmv, trmv_bad),
        routine<lbx_own_ztbmv_>("ZTBMV", "ZTBMV", tbmv_z, tbmv, tbmv_bad),
        routine<lbx_own_ztpmv_>("ZTPMV", "ZTPMV", tpmv_z, tpmv, tpmv_bad),
        routine<lbx_own_ztrsv_>("ZTRSV", "ZTRSV", trmv_z, trmv, trmv_bad),
        routine<lbx_own_ztbsv_>("ZTBSV", "ZTBSV", tbmv_z, tbmv, tbmv_bad),
        routine<lbx_own_ztpsv_>("ZTPSV", "ZTPSV", tpmv_z, tpmv, tpmv_bad),
        routine<lbx_own_zgeru_>("ZGERU", "ZGERU", ger_z, ger, ger_bad),
        routine<lbx_own_zgerc_>("ZGERC", "ZGERC", ger_z, ger, ger_bad),
        routine<lbx_own_zher_>("ZHER", "ZHER", her_z, syr, syr_bad),
        routine<lbx_own_zhpr_>("ZHPR", "ZHPR", hpr_z, spr, spr_bad),
        routine<lbx_own_zher2_>("ZHER2", "ZHER2", her2_z, syr2, syr2_bad),
        routine<lbx_own_zhpr2_>("ZHPR2", "ZHPR2", hpr2_z, spr2, spr2_bad),
        routine<lbx_own_dgemm_>("DGEMM", "F06YAF/DGEMM", gemm_d, dgemm, gemm_bad(3, 4, 3)),
        routine<lbx_own_dsymm_>("DSYMM", "DSYMM", symm_d, symm_r, symm_bad(4)),
        routine<lbx_own_dtrmm_>("DTRMM", "DTRMM", trxm_d, trxm_l, trxm_bad(3)),
        routine<lbx_own_dtrsm_>("DTRSM", "DTRSM", trxm_d, trxm_r, trxm_bad(4)),
        routine<lbx_own_dsyrk_>("DSYRK", "DSYRK", syrk_d, rk_t, rk_bad(2, '/')),
        routine<lbx_own_dsyr2k_>("DSYR2K", "DSYR2K", syr2k_d, rk_n, r2k_bad(4, '/')),
        routine<lbx_own_zgemm_>("ZGEMM", "F06ZAF/ZGEMM", gemm_z, zgemm, gemm_bad(2, 2, 3)),
        routine<lbx_own_zhemm_>("ZHEMM", "ZHEMM", symm_z, symm_l, symm_bad(3)),
        routine<lbx_own_zsymm_>("ZSYMM", "ZSYMM", symm_z, symm_r, symm_bad(4)),
        routine<lbx_own_ztrmm_>("ZTRMM", "ZTRMM", trxm_z, trxm_r, trxm_bad(4)),
        routine<lbx_own_ztrsm_>("ZTRSM", "ZTRSM", trxm_z, trxm_l, trxm_bad(3)),
        routine<lbx_own_zherk_>("ZHERK", "ZHERK", herk_z, rk_c, rk_bad(2, 'T')),
        routine<lbx_own_zsyrk_>("ZSYRK", "ZSYRK", syrk_z, rk_n, rk_bad(4, 'C')),
        routine<lbx_own_zher2k_>("ZHER2K", "ZHER2K", her2k_z, rk_n, r2k_bad(4, 'T')),
        routine<lbx_own_zsyr2k_>("ZSYR2K", "ZSYR2K", syr2k_z, rk_t, r2k_bad(2, 'C')),
        routine<lbx_own_dtfsm_>("DTFSM", "F06WBF/DTFSM", tfsm_d, dtfsm, tfsm_bad('C')),
        routine<lbx_own_dsfrk_>("DSFRK", "DSFRK", sfrk_d, dsfrk, sfrk_bad(2, 'C')),
        routine<lbx_own_ztfsm_>("ZTFSM", "ZTFSM", tfsm_z, ztfsm, tfsm_bad('T')),
        routine<lbx_own_zhfrk_>("ZHFRK", "F06WQF/ZHFRK", hfrk_z, zhfrk, sfrk_bad(4, 'T')),
    };
}

// The reporter's recording mode: expect a report of `info` naming `name`.
void arm(int info, const std::string& name)
{
    char env[32];
    std::snprintf(env, sizeof env, "%6d%6d%6d%6d", 6, info, 1, 0);
    setenv("TSLTESTING", "BLAS", 1);
    setenv("TSLTESTBLASENV", env, 1);
    setenv("TSLTESTBLASENVSRNAMT", (name + "      ").substr(0, 6).c_str(), 1);
}

// The pass flag and the call flag the reporter left behind.
std::pair<int, int> recorded()
{
    const std::string env = std::getenv("TSLTESTBLASENV");
    return {std::atoi(env.substr(12, 6).c_str()), std::atoi(env.substr(18, 6).c_str())};
}

// SRNAME in a longer buffer: only its own length may be read.
void call_own(const Routine& r, Call& c, Data& d)
{
    const std::string buffer = r.srname + "XYZ";
    r.own(c, d, std::string_view(buffer.data(), r.srname.size()));
}

// The recording mode lasts for one test only: other suites of the chapter see
// the reporter's normal mode.
class BlasOwn : public ::testing::Test {
protected:
    void TearDown() override
    {
        unsetenv("TSLTESTING");
        unsetenv("TSLTESTBLASENV");
        unsetenv("TSLTESTBLASENVSRNAMT");
    }
};

TEST_F(BlasOwn, ValidCallMatchesExternalRoutine)
{
    for (const Routine& r : routines()) {
        SCOPED_TRACE(r.name);
        const Data input;
        Data own, peer;
        Call c = r.valid, cp = r.valid;
        arm(0, r.name);
        call_own(r, c, own);
        EXPECT_EQ(recorded().second, 0) << "reported a valid call";
        std::string symbol = r.name + "_";
        for (char& ch : symbol)
            ch = static_cast<char>(std::tolower(static_cast<unsigned char>(ch)));
        r.peer(cp, peer, symbol.c_str());
        EXPECT_FALSE(own == input) << "computed nothing";
        EXPECT_TRUE(own == peer) << "differs from the external " << symbol;
    }
}

TEST_F(BlasOwn, BadArgumentReportedAndOutputsUntouched)
{
    for (const Routine& r : routines()) {
        // Each bad argument alone, then each with the next one checked.
        std::vector<std::vector<Bad>> cases;
        for (std::size_t i = 0; i < r.bad.size(); ++i) {
            cases.push_back({r.bad[i]});
            if (i + 1 < r.bad.size() && r.bad[i + 1].info != r.bad[i].info)
                cases.push_back({r.bad[i], r.bad[i + 1]});
        }
        for (const auto& bads : cases) {
            Call c = r.valid;
            int expected = bads.front().info;
            std::string what = r.name;
            for (const Bad& b : bads) {
                b.apply(c);
                what += " arg " + std::to_string(b.info);
            }
            SCOPED_TRACE(what);
            const Data input;
            Data d;
            arm(expected, r.name);
            call_own(r, c, d);
            const auto [pass, called] = recorded();
            EXPECT_EQ(called, 1) << "no report";
            EXPECT_EQ(pass, 1) << "wrong argument number or name";
            EXPECT_TRUE(d == input) << "outputs touched";
        }
    }
}

}  // namespace
