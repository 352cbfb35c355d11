// F07ZAZN: gets or sets a value of the tuning table that the blocked
// linear-algebra routines read through their ilaenv (linalg/shims.cpp).
//
//   ISPEC  1 block size NB        5 minimum column dimension (unused: 2)
//          2 minimum block size   6 SVD crossover (128)
//          3 crossover NX         7 processors (1)
//          4 shifts (QR sweeps)   8 multishift crossover (50)
//                                 9 divide and conquer leaf size (25)
//                                10, 11 NaN and infinity arithmetic (0: not
//                                       relied upon)
//
// SETGET 1 stores IVAL, any other value returns the value in IVAL.  ISPEC
// outside 1..11 is error 1, an unknown name error 2 (ISPEC is tested first):
// the error is reported through F06AAZN as argument 1 or 2 of "F07ZAZN/ILAENV";
// a get then returns minus the error number in IVAL, a set stops the program.
//
// The table is process-wide state, initialised statically and changed only by
// a set; its entries are relaxed atomics, so reads are as cheap as plain loads
// and a get racing a set sees one of the two values.
#include "linalg/tuning.hpp"

#include <array>
#include <atomic>
#include <cstddef>
#include <string_view>
#include <utility>

#include "frame/units.hpp"
#include "gen/linalg.hpp"

namespace lbx::linalg {

namespace {

constexpr int row_length = 11;
constexpr int nrows = 85;

constexpr std::array<std::string_view, nrows> stems{
    "F07AD", "F07AJ", "F07AR", "F07AW", "F07BD", "F07BR", "F07CE", "F07CS", "F07FC", "F07FD",
    "F07FJ", "F07FQ", "F07FR", "F07FW", "F07HD", "F07HR", "F07JE", "F07JS", "F07KD", "F07KR",
    "F07MD", "F07MR", "F07NR", "F07TJ", "F07TW", "F08AE", "F08AF", "F08AG", "F08AH", "F08AJ",
    "F08AK", "F08AS", "F08AT", "F08AU", "F08AV", "F08AW", "F08AX", "F08BF", "F08BT", "F08CE",
    "F08CF", "F08CG", "F08CH", "F08CJ", "F08CK", "F08CS", "F08CT", "F08CU", "F08CV", "F08CW",
    "F08CX", "F08FD", "F08FE", "F08FG", "F08FR", "F08FS", "F08FU", "F08JD", "F08JH", "F08JJ",
    "F08JV", "F08KA", "F08KB", "F08KC", "F08KE", "F08KF", "F08KG", "F08KN", "F08KP", "F08KQ",
    "F08KS", "F08KT", "F08KU", "F08MD", "F08ME", "F08NE", "F08NF", "F08NS", "F08NT", "F08PE",
    "F08PS", "F08SE", "F08SS", "F08YH", "F08YV"};

// ISPEC 1..4 of each row; ISPEC 5..11 are the same in every row.
//
// The blocked routines are the reference ones, their level-3 work done by the
// external library's kernels (packed GEMM micro-kernels that reach full speed
// from panels of about 64 columns on a modern x86-64 core).  Hence:
// - one-sided factorizations (LU, Cholesky, inversion): NB 64, where the
//   panel's level-2 work is still small against the GEMM update; complex LU
//   (four real multiplies per element) does well a little wider (80), complex
//   inversion a little narrower (56);
// - QR-type factorizations: the panel and the T factor cost about NB/N of the
//   work, so a wider block pays (112 real, 80 complex), generated Q with the
//   same NB as its factorization; applying Q (DORMQR and relatives) is pure
//   level 3 and takes the widest block, 128;
// - crossover 0 for the factorizations that block from the first column;
//   reductions to condensed form (tridiagonal, bidiagonal, Hessenberg) keep
//   the reference crossover, where the remaining matrix is cheaper unblocked;
//   DORGHR/ZUNGHR use NB 16 with minimum 4 (small Householder panels);
// - the drivers: NB 32, minimum 3, crossover 128, 2 (the second value, the
//   recursion or workspace floor, as the drivers' own queries expect); the
//   mixed-precision Cholesky drivers take the factorization's 64;
// - routines that are not blocked read NB only as a count of right-hand sides
//   or not at all: NB 1 (solve one column at a time, no workspace) or zeros;
// - symmetric indefinite: Bunch-Kaufman's panel has a pivot search per column,
//   unblocked is fastest in real arithmetic (1 1), a block of 4 in complex;
// - Hessenberg QR: no block size; ISPEC 4 is the value its shift strategy
//   reads (2 real, 9 complex);
// - DTGSYL blocks by ISPEC 2 (rows); 2 keeps the reference subsystem size.
constexpr int row_values[nrows][4] = {
    {64, 0, 0, 0},    // F07AD DGETRF
    {64, 2, 0, 0},    // F07AJ DGETRI
    {80, 0, 0, 0},    // F07AR ZGETRF
    {56, 2, 0, 0},    // F07AW ZGETRI
    {32, 2, 0, 0},    // F07BD DGBTRF (band: the work array is NB x NB)
    {32, 2, 0, 0},    // F07BR ZGBTRF
    {1, 0, 0, 0},     // F07CE DGTTRS
    {1, 0, 0, 0},     // F07CS ZGTTRS
    {64, 3, 128, 2},  // F07FC DSPOSV
    {64, 2, 0, 0},    // F07FD DPOTRF
    {64, 2, 0, 0},    // F07FJ DPOTRI
    {64, 3, 128, 2},  // F07FQ ZCPOSV
    {64, 2, 0, 0},    // F07FR ZPOTRF
    {64, 2, 0, 0},    // F07FW ZPOTRI
    {32, 2, 0, 0},    // F07HD DPBTRF (band: the work array is NB x NB)
    {32, 2, 0, 0},    // F07HR ZPBTRF
    {1, 0, 0, 0},     // F07JE DPTTRS
    {1, 0, 0, 0},     // F07JS ZPTTRS
    {64, 2, 0, 0},    // F07KD DPSTRF
    {64, 2, 0, 0},    // F07KR ZPSTRF
    {1, 1, 0, 0},     // F07MD DSYTRF
    {4, 2, 0, 0},     // F07MR ZHETRF
    {4, 2, 0, 0},     // F07NR ZSYTRF
    {64, 2, 0, 0},    // F07TJ DTRTRI
    {64, 2, 0, 0},    // F07TW ZTRTRI
    {112, 2, 0, 0},   // F08AE DGEQRF
    {112, 2, 0, 0},   // F08AF DORGQR
    {128, 2, 0, 0},   // F08AG DORMQR
    {112, 2, 0, 0},   // F08AH DGELQF
    {112, 2, 0, 0},   // F08AJ DORGLQ
    {128, 2, 0, 0},   // F08AK DORMLQ
    {80, 2, 0, 0},    // F08AS ZGEQRF
    {80, 2, 0, 0},    // F08AT ZUNGQR
    {128, 2, 0, 0},   // F08AU ZUNMQR
    {80, 2, 0, 0},    // F08AV ZGELQF
    {80, 2, 0, 0},    // F08AW ZUNGLQ
    {128, 2, 0, 0},   // F08AX ZUNMLQ
    {32, 2, 128, 0},  // F08BF DGEQP3 (column pivoting: level-2 norm updates)
    {32, 2, 128, 0},  // F08BT ZGEQP3
    {112, 2, 0, 0},   // F08CE DGEQLF
    {112, 2, 0, 0},   // F08CF DORGQL
    {128, 2, 0, 0},   // F08CG DORMQL
    {112, 2, 0, 0},   // F08CH DGERQF
    {112, 2, 0, 0},   // F08CJ DORGRQ
    {128, 2, 0, 0},   // F08CK DORMRQ
    {80, 2, 0, 0},    // F08CS ZGEQLF
    {80, 2, 0, 0},    // F08CT ZUNGQL
    {128, 2, 0, 0},   // F08CU ZUNMQL
    {80, 2, 0, 0},    // F08CV ZGERQF
    {80, 2, 0, 0},    // F08CW ZUNGRQ
    {128, 2, 0, 0},   // F08CX ZUNMRQ
    {32, 3, 128, 2},  // F08FD DSYEVR
    {32, 2, 32, 0},   // F08FE DSYTRD (half the work is DSYMV: keep the panel narrow)
    {128, 2, 0, 0},   // F08FG DORMTR
    {32, 3, 128, 2},  // F08FR ZHEEVR
    {32, 2, 32, 0},   // F08FS ZHETRD
    {128, 2, 0, 0},   // F08FU ZUNMTR
    {32, 3, 128, 2},  // F08JD DSTEVR
    {0, 0, 0, 0},     // F08JH DSTEDC (reads ISPEC 9 only)
    {0, 0, 0, 0},     // F08JJ DSTEBZ (NB 0: one interval at a time)
    {0, 0, 0, 0},     // F08JV ZSTEDC
    {32, 3, 128, 2},  // F08KA DGELSS
    {32, 3, 128, 2},  // F08KB DGESVD
    {32, 3, 128, 2},  // F08KC DGELSD
    {32, 2, 128, 0},  // F08KE DGEBRD (half the work is level 2)
    {32, 2, 128, 0},  // F08KF DORGBR
    {128, 2, 0, 0},   // F08KG DORMBR
    {32, 3, 128, 2},  // F08KN ZGELSS
    {32, 3, 128, 2},  // F08KP ZGESVD
    {32, 3, 128, 2},  // F08KQ ZGELSD
    {32, 2, 128, 0},  // F08KS ZGEBRD
    {32, 2, 128, 0},  // F08KT ZUNGBR
    {128, 2, 0, 0},   // F08KU ZUNMBR
    {0, 0, 0, 0},     // F08MD DBDSDC (reads ISPEC 9 only)
    {0, 0, 0, 0},     // F08ME DBDSQR (name "F08MEV..." only)
    {32, 2, 128, 0},  // F08NE DGEHRD
    {16, 4, 0, 0},    // F08NF DORGHR
    {32, 2, 128, 0},  // F08NS ZGEHRD
    {16, 4, 0, 0},    // F08NT ZUNGHR
    {0, 0, 0, 2},     // F08PE DHSEQR
    {0, 0, 0, 9},     // F08PS ZHSEQR
    {64, 2, 0, 0},    // F08SE DSYGST
    {64, 2, 0, 0},    // F08SS ZHEGST
    {32, 2, 0, 0},    // F08YH DTGSYL
    {32, 2, 0, 0},    // F08YV ZTGSYL
};

constexpr int common_values[row_length - 4] = {2, 128, 1, 50, 25, 0, 0};

using Row = std::array<std::atomic<int>, row_length>;

constexpr Row make_row(int r)
{
    return {row_values[r][0], row_values[r][1], row_values[r][2], row_values[r][3],
            common_values[0], common_values[1], common_values[2], common_values[3],
            common_values[4], common_values[5], common_values[6]};
}

template <std::size_t... R>
constexpr std::array<Row, nrows> make_table(std::index_sequence<R...>)
{
    return {make_row(R)...};
}

// Constant-initialised: no start-up code, no order of initialisation.
constinit std::array<Row, nrows> table = make_table(std::make_index_sequence<nrows>{});

}  // namespace

int tuning_row(std::string_view name) noexcept
{
    char stem[5];
    for (std::size_t i = 0; i < 5; ++i) {
        const char c = i < name.size() ? name[i] : ' ';
        stem[i] = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    }
    const std::string_view s(stem, 5);
    for (int r = 0; r < nrows; ++r) {
        if (stems[r] != s)
            continue;
        if (s == "F08ME" && !(name.size() >= 6 && (name[5] == 'V' || name[5] == 'v')))
            return -1;
        return r;
    }
    return -1;
}

void F07ZAZN(int ispec, std::string_view name, int& ival, int setget)
{
    const bool set = setget == 1;
    const int row = tuning_row(name);
    int error = 0;
    if (ispec < 1 || ispec > row_length)
        error = 1;
    else if (row < 0)
        error = 2;
    if (error == 0) {
        std::atomic<int>& value = table[row][ispec - 1];
        if (set)
            value.store(ival, std::memory_order_relaxed);
        else
            ival = value.load(std::memory_order_relaxed);
        return;
    }
    if (!set)
        ival = -error;
    F06AAZN("F07ZAZN/ILAENV", error);
    if (set)
        lbx::frame::stop_process();
}

}  // namespace lbx::linalg
