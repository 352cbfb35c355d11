// The own path of the F06 level-2/3 BLAS and packed-storage routines.
//
// Error exits: for every routine a valid call, then each argument the
// reference routine checks made bad on its own (option '/' or a letter the
// routine refuses, dimension -1, leading dimension one short of the least the
// reference routine accepts, increment 0), and each neighbouring pair of them
// made bad together; the argument numbers are read off the reference BLAS
// 3.11 sources, and the outputs must be untouched.  Results: the valid call
// against the external library's routine with the same inputs, bit for bit.
#include <gtest/gtest.h>

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

// The arrays and scalars of one element type; RALPHA and RBETA are the real
// scalars of the Hermitian routines.
template <class T>
struct Arrays {
    T alpha, beta;
    double ralpha = 0.75, rbeta = -0.375;
    std::vector<T> a, b, c, x, y;
    explicit Arrays(T al, T be, double shift) : alpha(al), beta(be)
    {
        for (int i = 0; i < 64; ++i) {
            const double u = 0.5 + (i * 37 % 17) / 17.0, v = (i * 11 % 7) / 7.0 - 0.5;
            double s = shift;
            for (auto* r : {&a, &b, &c, &x, &y})
                if constexpr (std::is_same_v<T, double>)
                    r->push_back(u + (s += 0.125));
                else
                    r->push_back({u + (s += 0.125), v});
        }
    }
    bool operator==(const Arrays& o) const
    {
        auto same = [](const auto& p, const auto& q) {
            return std::memcmp(p.data(), q.data(), p.size() * sizeof p[0]) == 0;
        };
        return same(a, o.a) && same(b, o.b) && same(c, o.c) && same(x, o.x) && same(y, o.y);
    }
};

struct Data {
    Arrays<double> d{0.75, -0.375, 0};
    Arrays<Complex> z{{0.75, -0.25}, {-0.375, 0.5}, 0.625};
    template <class T>
    Arrays<T>& of()
    {
        if constexpr (std::is_same_v<T, double>)
            return d;
        else
            return z;
    }
    bool operator==(const Data& o) const { return d == o.d && z == o.z; }
};

template <std::size_t>
constexpr std::size_t one = 1;
template <std::size_t>
using Length = std::size_t;

// An own routine: the standard arguments, SRNAME, a length of 1 per option
// (options come first in every one of these routines), SRNAME's length.
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

// The external library's routine of a standard name.
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

// One bad argument (an option letter or an integer) and its argument number.
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
    std::string name, srname;  // the standard name, what the traced layer hands on
    Call valid;
    std::vector<Bad> bad;
    void (*own)(Call&, Data&, std::string_view);
    void (*peer)(Call&, Data&, const char*);
};

template <auto F, class T, class Shape>
Routine routine(std::string name, std::string srname, Shape, Call valid, std::vector<Bad> bad)
{
    return {std::move(name),
            std::move(srname),
            valid,
            std::move(bad),
            [](Call& c, Data& d, std::string_view s) { Shape{}(Own<F>{s}, c, d.of<T>()); },
            [](Call& c, Data& d, const char* sym) { Shape{}(Peer{sym}, c, d.of<T>()); }};
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

// The argument lists, one per family, for either element type: f is Own or Peer.
auto gemv = [](auto f, Call& c, auto& d) {
    f(c.o(0), &c.m, &c.n, &d.alpha, d.a.data(), &c.lda, d.x.data(), &c.incx, &d.beta, d.y.data(),
      &c.incy);
};
auto gbmv = [](auto f, Call& c, auto& d) {
    f(c.o(0), &c.m, &c.n, &c.kl, &c.ku, &d.alpha, d.a.data(), &c.lda, d.x.data(), &c.incx, &d.beta,
      d.y.data(), &c.incy);
};
auto symv = [](auto f, Call& c, auto& d) {
    f(c.o(0), &c.n, &d.alpha, d.a.data(), &c.lda, d.x.data(), &c.incx, &d.beta, d.y.data(),
      &c.incy);
};
auto sbmv = [](auto f, Call& c, auto& d) {
    f(c.o(0), &c.n, &c.k, &d.alpha, d.a.data(), &c.lda, d.x.data(), &c.incx, &d.beta, d.y.data(),
      &c.incy);
};
auto spmv = [](auto f, Call& c, auto& d) {
    f(c.o(0), &c.n, &d.alpha, d.a.data(), d.x.data(), &c.incx, &d.beta, d.y.data(), &c.incy);
};
auto trmv = [](auto f, Call& c, auto& d) {
    f(c.o(0), c.o(1), c.o(2), &c.n, d.a.data(), &c.lda, d.x.data(), &c.incx);
};
auto tbmv = [](auto f, Call& c, auto& d) {
    f(c.o(0), c.o(1), c.o(2), &c.n, &c.k, d.a.data(), &c.lda, d.x.data(), &c.incx);
};
auto tpmv = [](auto f, Call& c, auto& d) {
    f(c.o(0), c.o(1), c.o(2), &c.n, d.a.data(), d.x.data(), &c.incx);
};
auto ger = [](auto f, Call& c, auto& d) {
    f(&c.m, &c.n, &d.alpha, d.x.data(), &c.incx, d.y.data(), &c.incy, d.a.data(), &c.lda);
};
auto syr = [](auto f, Call& c, auto& d) {
    f(c.o(0), &c.n, &d.ralpha, d.x.data(), &c.incx, d.a.data(), &c.lda);
};
auto spr = [](auto f, Call& c, auto& d) {
    f(c.o(0), &c.n, &d.ralpha, d.x.data(), &c.incx, d.a.data());
};
auto syr2 = [](auto f, Call& c, auto& d) {
    f(c.o(0), &c.n, &d.alpha, d.x.data(), &c.incx, d.y.data(), &c.incy, d.a.data(), &c.lda);
};
auto spr2 = [](auto f, Call& c, auto& d) {
    f(c.o(0), &c.n, &d.alpha, d.x.data(), &c.incx, d.y.data(), &c.incy, d.a.data());
};
auto gemm = [](auto f, Call& c, auto& d) {
    f(c.o(0), c.o(1), &c.m, &c.n, &c.k, &d.alpha, d.a.data(), &c.lda, d.b.data(), &c.ldb, &d.beta,
      d.c.data(), &c.ldc);
};
auto symm = [](auto f, Call& c, auto& d) {
    f(c.o(0), c.o(1), &c.m, &c.n, &d.alpha, d.a.data(), &c.lda, d.b.data(), &c.ldb, &d.beta,
      d.c.data(), &c.ldc);
};
auto trxm = [](auto f, Call& c, auto& d) {
    f(c.o(0), c.o(1), c.o(2), c.o(3), &c.m, &c.n, &d.alpha, d.a.data(), &c.lda, d.b.data(), &c.ldb);
};
auto syrk = [](auto f, Call& c, auto& d) {
    f(c.o(0), c.o(1), &c.n, &c.k, &d.alpha, d.a.data(), &c.lda, &d.beta, d.c.data(), &c.ldc);
};
auto herk = [](auto f, Call& c, auto& d) {
    f(c.o(0), c.o(1), &c.n, &c.k, &d.ralpha, d.a.data(), &c.lda, &d.rbeta, d.c.data(), &c.ldc);
};
auto syr2k = [](auto f, Call& c, auto& d) {
    f(c.o(0), c.o(1), &c.n, &c.k, &d.alpha, d.a.data(), &c.lda, d.b.data(), &c.ldb, &d.beta,
      d.c.data(), &c.ldc);
};
auto her2k = [](auto f, Call& c, auto& d) {
    f(c.o(0), c.o(1), &c.n, &c.k, &d.alpha, d.a.data(), &c.lda, d.b.data(), &c.ldb, &d.rbeta,
      d.c.data(), &c.ldc);
};
auto tfsm = [](auto f, Call& c, auto& d) {
    f(c.o(0), c.o(1), c.o(2), c.o(3), c.o(4), &c.m, &c.n, &d.alpha, d.a.data(), d.b.data(), &c.ldb);
};
auto sfrk = [](auto f, Call& c, auto& d) {
    f(c.o(0), c.o(1), c.o(2), &c.n, &c.k, &d.ralpha, d.a.data(), &c.lda, &d.rbeta, d.c.data());
};

std::vector<Routine> routines()
{
    // Level 2.
    const Call gemv_c = make("t", {{M, 3}, {N, 4}, {LDA, 3}, {INCX, 2}, {INCY, 1}});
    const std::vector<Bad> gemv_b = {opt(0, 1),      bad(M, -1, 2),   bad(N, -1, 3),
                                     bad(LDA, 2, 6), bad(INCX, 0, 8), bad(INCY, 0, 11)};
    const Call gbmv_c =
        make("N", {{M, 3}, {N, 4}, {KL, 1}, {KU, 2}, {LDA, 4}, {INCX, 2}, {INCY, -1}});
    const std::vector<Bad> gbmv_b = {opt(0, 1),        bad(M, -1, 2),   bad(N, -1, 3),
                                     bad(KL, -1, 4),   bad(KU, -1, 5),  bad(LDA, 3, 8),
                                     bad(INCX, 0, 10), bad(INCY, 0, 13)};
    const Call symv_c = make("l", {{N, 4}, {LDA, 4}, {INCX, 1}, {INCY, 2}});
    const std::vector<Bad> symv_b = {opt(0, 1), bad(N, -1, 2), bad(LDA, 3, 5), bad(INCX, 0, 7),
                                     bad(INCY, 0, 10)};
    const Call sbmv_c = make("U", {{N, 4}, {K, 2}, {LDA, 3}, {INCX, 1}, {INCY, 2}});
    const std::vector<Bad> sbmv_b = {opt(0, 1),      bad(N, -1, 2),   bad(K, -1, 3),
                                     bad(LDA, 2, 6), bad(INCX, 0, 8), bad(INCY, 0, 11)};
    const Call spmv_c = make("L", {{N, 4}, {INCX, 2}, {INCY, 1}});
    const std::vector<Bad> spmv_b = {opt(0, 1), bad(N, -1, 2), bad(INCX, 0, 6), bad(INCY, 0, 9)};
    const Call trmv_c = make("UTN", {{N, 4}, {LDA, 4}, {INCX, 2}});
    const std::vector<Bad> trmv_b = {opt(0, 1),     opt(1, 2),      opt(2, 3),
                                     bad(N, -1, 4), bad(LDA, 3, 6), bad(INCX, 0, 8)};
    const Call tbmv_c = make("lnn", {{N, 4}, {K, 2}, {LDA, 3}, {INCX, -1}});
    const std::vector<Bad> tbmv_b = {opt(0, 1),     opt(1, 2),      opt(2, 3),      bad(N, -1, 4),
                                     bad(K, -1, 5), bad(LDA, 2, 7), bad(INCX, 0, 9)};
    const Call tpmv_c = make("LCU", {{N, 4}, {INCX, 1}});
    const std::vector<Bad> tpmv_b = {opt(0, 1), opt(1, 2), opt(2, 3), bad(N, -1, 4),
                                     bad(INCX, 0, 7)};
    const Call ger_c = make("", {{M, 3}, {N, 4}, {INCX, 2}, {INCY, 1}, {LDA, 3}});
    const std::vector<Bad> ger_b = {bad(M, -1, 1), bad(N, -1, 2), bad(INCX, 0, 5), bad(INCY, 0, 7),
                                    bad(LDA, 2, 9)};
    const Call syr_c = make("U", {{N, 4}, {INCX, 2}, {LDA, 4}});
    const std::vector<Bad> syr_b = {opt(0, 1), bad(N, -1, 2), bad(INCX, 0, 5), bad(LDA, 3, 7)};
    const Call spr_c = make("l", {{N, 4}, {INCX, 1}});
    const std::vector<Bad> spr_b = {opt(0, 1), bad(N, -1, 2), bad(INCX, 0, 5)};
    const Call syr2_c = make("L", {{N, 4}, {INCX, 1}, {INCY, 2}, {LDA, 4}});
    const std::vector<Bad> syr2_b = {opt(0, 1), bad(N, -1, 2), bad(INCX, 0, 5), bad(INCY, 0, 7),
                                     bad(LDA, 3, 9)};
    const Call spr2_c = make("U", {{N, 4}, {INCX, 2}, {INCY, 1}});
    const std::vector<Bad> spr2_b = {opt(0, 1), bad(N, -1, 2), bad(INCX, 0, 5), bad(INCY, 0, 7)};

    // Level 3.  GEMM: LDA >= rows of op(A), LDB >= rows of op(B).  SYMM, TRMM,
    // TRSM: LDA >= M on the left, N on the right.  The rank-k updates: LDA
    // (LDB) >= N with 'N', else K; the Hermitian ones refuse 'T', the complex
    // symmetric ones 'C'.
    const Call dgemm = make("NT", {{M, 3}, {N, 4}, {K, 2}, {LDA, 3}, {LDB, 4}, {LDC, 3}});
    const Call zgemm = make("cN", {{M, 3}, {N, 4}, {K, 2}, {LDA, 2}, {LDB, 2}, {LDC, 3}});
    auto gemm_b = [](int lda, int ldb, int ldc) {
        return std::vector<Bad>{opt(0, 1),
                                opt(1, 2),
                                bad(M, -1, 3),
                                bad(N, -1, 4),
                                bad(K, -1, 5),
                                bad(LDA, lda - 1, 8),
                                bad(LDB, ldb - 1, 10),
                                bad(LDC, ldc - 1, 13)};
    };
    const Call symm_r = make("RU", {{M, 3}, {N, 4}, {LDA, 4}, {LDB, 3}, {LDC, 3}});
    const Call symm_l = make("lL", {{M, 3}, {N, 4}, {LDA, 3}, {LDB, 3}, {LDC, 3}});
    auto symm_b = [](int lda) {
        return std::vector<Bad>{
            opt(0, 1),      opt(1, 2),      bad(M, -1, 3), bad(N, -1, 4), bad(LDA, lda - 1, 7),
            bad(LDB, 2, 9), bad(LDC, 2, 12)};
    };
    const Call trxm_l = make("LUNN", {{M, 3}, {N, 4}, {LDA, 3}, {LDB, 3}});
    const Call trxm_r = make("rlTu", {{M, 3}, {N, 4}, {LDA, 4}, {LDB, 3}});
    auto trxm_b = [](int lda) {
        return std::vector<Bad>{opt(0, 1),
                                opt(1, 2),
                                opt(2, 3),
                                opt(3, 4),
                                bad(M, -1, 5),
                                bad(N, -1, 6),
                                bad(LDA, lda - 1, 9),
                                bad(LDB, 2, 11)};
    };
    const Call rk_n = make("UN", {{N, 4}, {K, 2}, {LDA, 4}, {LDB, 4}, {LDC, 4}});
    const Call rk_t = make("LT", {{N, 4}, {K, 2}, {LDA, 2}, {LDB, 2}, {LDC, 4}});
    const Call rk_c = make("uc", {{N, 4}, {K, 2}, {LDA, 2}, {LDB, 2}, {LDC, 4}});
    auto rk_b = [](int lda, char refused, bool two) {
        std::vector<Bad> b = {opt(0, 1),     opt(1, 2),     opt(1, 2, refused),
                              bad(N, -1, 3), bad(K, -1, 4), bad(LDA, lda - 1, 7)};
        if (two)
            b.push_back(bad(LDB, lda - 1, 9));
        b.push_back(bad(LDC, 3, two ? 12 : 10));
        return b;
    };
    // Rectangular full packed: TFSM's LDB >= max(1, M); SFRK/HFRK's LDA >= N
    // with 'N', else K.  The real routines take 'T', the complex ones 'C'.
    const Call dtfsm = make("tRlTu", {{M, 3}, {N, 4}, {LDB, 3}});
    const Call ztfsm = make("cRlCu", {{M, 3}, {N, 4}, {LDB, 3}});
    auto tfsm_b = [](char refused) {
        return std::vector<Bad>{opt(0, 1),     opt(0, 1, refused), opt(1, 2), opt(2, 3),
                                opt(3, 4),     opt(3, 4, refused), opt(4, 5), bad(M, -1, 6),
                                bad(N, -1, 7), bad(LDB, 2, 11)};
    };
    const Call dsfrk = make("TLT", {{N, 4}, {K, 2}, {LDA, 2}});
    const Call zhfrk = make("NUn", {{N, 4}, {K, 2}, {LDA, 4}});
    auto sfrk_b = [](int lda, char refused) {
        return std::vector<Bad>{opt(0, 1),     opt(0, 1, refused),  opt(1, 2),
                                opt(2, 3),     opt(2, 3, refused),  bad(N, -1, 4),
                                bad(K, -1, 5), bad(LDA, lda - 1, 8)};
    };

    using D = double;
    using Z = Complex;
    return {
        routine<lbx_own_dgemv_, D>("DGEMV", "F06PAF/DGEMV", gemv, gemv_c, gemv_b),
        routine<lbx_own_dgbmv_, D>("DGBMV", "DGBMV", gbmv, gbmv_c, gbmv_b),
        routine<lbx_own_dsymv_, D>("DSYMV", "DSYMV", symv, symv_c, symv_b),
        routine<lbx_own_dsbmv_, D>("DSBMV", "DSBMV", sbmv, sbmv_c, sbmv_b),
        routine<lbx_own_dspmv_, D>("DSPMV", "DSPMV", spmv, spmv_c, spmv_b),
        routine<lbx_own_dtrmv_, D>("DTRMV", "DTRMV", trmv, trmv_c, trmv_b),
        routine<lbx_own_dtbmv_, D>("DTBMV", "DTBMV", tbmv, tbmv_c, tbmv_b),
        routine<lbx_own_dtpmv_, D>("DTPMV", "DTPMV", tpmv, tpmv_c, tpmv_b),
        routine<lbx_own_dtrsv_, D>("DTRSV", "DTRSV", trmv, trmv_c, trmv_b),
        routine<lbx_own_dtbsv_, D>("DTBSV", "DTBSV", tbmv, tbmv_c, tbmv_b),
        routine<lbx_own_dtpsv_, D>("DTPSV", "DTPSV", tpmv, tpmv_c, tpmv_b),
        routine<lbx_own_dger_, D>("DGER", "DGER", ger, ger_c, ger_b),
        routine<lbx_own_dsyr_, D>("DSYR", "DSYR", syr, syr_c, syr_b),
        routine<lbx_own_dspr_, D>("DSPR", "DSPR", spr, spr_c, spr_b),
        routine<lbx_own_dsyr2_, D>("DSYR2", "DSYR2", syr2, syr2_c, syr2_b),
        routine<lbx_own_dspr2_, D>("DSPR2", "DSPR2", spr2, spr2_c, spr2_b),
        routine<lbx_own_zgemv_, Z>("ZGEMV", "F06SAF/ZGEMV", gemv, gemv_c, gemv_b),
        routine<lbx_own_zgbmv_, Z>("ZGBMV", "ZGBMV", gbmv, gbmv_c, gbmv_b),
        routine<lbx_own_zhemv_, Z>("ZHEMV", "ZHEMV", symv, symv_c, symv_b),
        routine<lbx_own_zhbmv_, Z>("ZHBMV", "ZHBMV", sbmv, sbmv_c, sbmv_b),
        routine<lbx_own_zhpmv_, Z>("ZHPMV", "ZHPMV", spmv, spmv_c, spmv_b),
        routine<lbx_own_ztrmv_, Z>("ZTRMV", "ZTRMV", trmv, trmv_c, trmv_b),
        routine<lbx_own_ztbmv_, Z>("ZTBMV", "ZTBMV", tbmv, tbmv_c, tbmv_b),
        routine<lbx_own_ztpmv_, Z>("ZTPMV", "ZTPMV", tpmv, tpmv_c, tpmv_b),
        routine<lbx_own_ztrsv_, Z>("ZTRSV", "ZTRSV", trmv, trmv_c, trmv_b),
        routine<lbx_own_ztbsv_, Z>("ZTBSV", "ZTBSV", tbmv, tbmv_c, tbmv_b),
        routine<lbx_own_ztpsv_, Z>("ZTPSV", "ZTPSV", tpmv, tpmv_c, tpmv_b),
        routine<lbx_own_zgeru_, Z>("ZGERU", "ZGERU", ger, ger_c, ger_b),
        routine<lbx_own_zgerc_, Z>("ZGERC", "ZGERC", ger, ger_c, ger_b),
        routine<lbx_own_zher_, Z>("ZHER", "ZHER", syr, syr_c, syr_b),
        routine<lbx_own_zhpr_, Z>("ZHPR", "ZHPR", spr, spr_c, spr_b),
        routine<lbx_own_zher2_, Z>("ZHER2", "ZHER2", syr2, syr2_c, syr2_b),
        routine<lbx_own_zhpr2_, Z>("ZHPR2", "ZHPR2", spr2, spr2_c, spr2_b),
        routine<lbx_own_dgemm_, D>("DGEMM", "F06YAF/DGEMM", gemm, dgemm, gemm_b(3, 4, 3)),
        routine<lbx_own_dsymm_, D>("DSYMM", "DSYMM", symm, symm_r, symm_b(4)),
        routine<lbx_own_dtrmm_, D>("DTRMM", "DTRMM", trxm, trxm_l, trxm_b(3)),
        routine<lbx_own_dtrsm_, D>("DTRSM", "DTRSM", trxm, trxm_r, trxm_b(4)),
        routine<lbx_own_dsyrk_, D>("DSYRK", "DSYRK", syrk, rk_t, rk_b(2, '/', false)),
        routine<lbx_own_dsyr2k_, D>("DSYR2K", "DSYR2K", syr2k, rk_n, rk_b(4, '/', true)),
        routine<lbx_own_zgemm_, Z>("ZGEMM", "F06ZAF/ZGEMM", gemm, zgemm, gemm_b(2, 2, 3)),
        routine<lbx_own_zhemm_, Z>("ZHEMM", "ZHEMM", symm, symm_l, symm_b(3)),
        routine<lbx_own_zsymm_, Z>("ZSYMM", "ZSYMM", symm, symm_r, symm_b(4)),
        routine<lbx_own_ztrmm_, Z>("ZTRMM", "ZTRMM", trxm, trxm_r, trxm_b(4)),
        routine<lbx_own_ztrsm_, Z>("ZTRSM", "ZTRSM", trxm, trxm_l, trxm_b(3)),
        routine<lbx_own_zherk_, Z>("ZHERK", "ZHERK", herk, rk_c, rk_b(2, 'T', false)),
        routine<lbx_own_zsyrk_, Z>("ZSYRK", "ZSYRK", syrk, rk_n, rk_b(4, 'C', false)),
        routine<lbx_own_zher2k_, Z>("ZHER2K", "ZHER2K", her2k, rk_n, rk_b(4, 'T', true)),
        routine<lbx_own_zsyr2k_, Z>("ZSYR2K", "ZSYR2K", syr2k, rk_t, rk_b(2, 'C', true)),
        routine<lbx_own_dtfsm_, D>("DTFSM", "F06WBF/DTFSM", tfsm, dtfsm, tfsm_b('C')),
        routine<lbx_own_dsfrk_, D>("DSFRK", "DSFRK", sfrk, dsfrk, sfrk_b(2, 'C')),
        routine<lbx_own_ztfsm_, Z>("ZTFSM", "ZTFSM", tfsm, ztfsm, tfsm_b('T')),
        routine<lbx_own_zhfrk_, Z>("ZHFRK", "F06WQF/ZHFRK", sfrk, zhfrk, sfrk_b(4, 'T')),
    };
}

// Runs the own routine with the reporter recording a report of `info` naming
// the routine (none expected for 0); SRNAME sits in a longer buffer, of which
// only its own length may be read.  Returns the pass and call flags.
std::pair<int, int> call_own(const Routine& r, Call& c, Data& d, int info)
{
    char env[32];
    std::snprintf(env, sizeof env, "%6d%6d%6d%6d", 6, info, 1, 0);
    setenv("TSLTESTING", "BLAS", 1);
    setenv("TSLTESTBLASENV", env, 1);
    setenv("TSLTESTBLASENVSRNAMT", (r.name + "      ").substr(0, 6).c_str(), 1);
    const std::string buffer = r.srname + "XYZ";
    r.own(c, d, std::string_view(buffer.data(), r.srname.size()));
    const std::string rec = std::getenv("TSLTESTBLASENV");
    unsetenv("TSLTESTING");
    return {std::atoi(rec.substr(12, 6).c_str()), std::atoi(rec.substr(18, 6).c_str())};
}

TEST(BlasOwn, ValidCallMatchesExternalRoutine)
{
    for (const Routine& r : routines()) {
        SCOPED_TRACE(r.name);
        const Data input;
        Data own, peer;
        Call c = r.valid, cp = r.valid;
        EXPECT_EQ(call_own(r, c, own, 0).second, 0) << "reported a valid call";
        std::string symbol = r.name + "_";
        for (char& ch : symbol)
            ch = static_cast<char>(std::tolower(static_cast<unsigned char>(ch)));
        r.peer(cp, peer, symbol.c_str());
        EXPECT_FALSE(own == input) << "computed nothing";
        EXPECT_TRUE(own == peer) << "differs from the external " << symbol;
    }
}

TEST(BlasOwn, BadArgumentReportedAndOutputsUntouched)
{
    for (const Routine& r : routines()) {
        // Each bad argument alone, then with the next one checked.
        for (std::size_t i = 0; i < r.bad.size(); ++i)
            for (std::size_t j = i; j < std::min(i + 2, r.bad.size()); ++j) {
                if (j > i && r.bad[j].info == r.bad[i].info)
                    continue;
                Call c = r.valid;
                r.bad[i].apply(c);
                r.bad[j].apply(c);
                SCOPED_TRACE(r.name + " arg " + std::to_string(r.bad[i].info) + " and " +
                             std::to_string(r.bad[j].info));
                const Data input;
                Data d;
                const auto [pass, called] = call_own(r, c, d, r.bad[i].info);
                EXPECT_EQ(called, 1) << "no report";
                EXPECT_EQ(pass, 1) << "wrong argument number or name";
                EXPECT_TRUE(d == input) << "outputs touched";
            }
    }
}

}  // namespace
