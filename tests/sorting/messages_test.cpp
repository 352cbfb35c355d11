// The chapter's one message table: every catalogue message of the sorting
// routines raised by a call with one bad argument (or several, to pin the check
// order), its values quoted, and the outputs untouched on failure.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "gen/sorting.hpp"
#include "lbx3207qk.h"
#include "tests/support/messages.hpp"

namespace {

using lbx::test::Raised;

Raised sort(int m1, int m2, const char* order, std::size_t len = 1)
{
    double rv[4] = {4, 3, 2, 1};
    const Raised r =
        lbx::test::traced([&](char* e, int* i) { m01caft_(rv, &m1, &m2, order, e, i, len, 200); });
    const bool moved = rv[0] != 4 || rv[1] != 3 || rv[2] != 2 || rv[3] != 1;
    EXPECT_EQ(moved, r.ifail == 0 && m1 < m2) << m1 << " " << m2 << " " << order;
    return r;
}

// IRANK must be untouched on failure and fully written on success.
void check_irank(const std::vector<int>& irank, int first, int last, const Raised& r)
{
    for (int i = 0; i < static_cast<int>(irank.size()); ++i) {
        const bool written = irank[i] != -7;
        EXPECT_EQ(written, r.ifail == 0 && i + 1 >= first && i + 1 <= last)
            << "IRANK(" << i + 1 << ")";
    }
}

Raised rank_vector(bool real, int m1, int m2, const char* order)
{
    const double rv[5] = {3, 1, 2, 1, 0};
    const int iv[5] = {3, 1, 2, 1, 0};
    std::vector<int> irank(5, -7);
    const Raised r = lbx::test::traced([&](char* e, int* i) {
        if (real)
            m01daft_(rv, &m1, &m2, order, irank.data(), e, i, 1, 200);
        else
            m01dbft_(iv, &m1, &m2, order, irank.data(), e, i, 1, 200);
    });
    check_irank(irank, m1, m2, r);
    return r;
}

// M01DCF on five names of length 4 (the caller may pass another length).
Raised rank_chars(int m1, int m2, int l1, int l2, const char* order = "A", std::size_t len = 4)
{
    const char ch[] = "pearfig applplumkiwi";
    std::vector<int> irank(5, -7);
    const Raised r = lbx::test::traced([&](char* e, int* i) {
        m01dcft_(ch, &m1, &m2, &l1, &l2, order, irank.data(), e, i, len, 1, 200);
    });
    check_irank(irank, m1, m2, r);
    return r;
}

Raised search_chars(bool valid, int m1, int m2, const char* ch, const char* item = "b")
{
    const int v = valid ? 1 : 0;
    int result = -1;
    const Raised r = lbx::test::traced([&](char* e, int* i) {
        result = m01ncft_(&v, ch, &m1, &m2, item, e, i, 2, std::strlen(item), 200);
    });
    if (r.ifail != 0) {
        EXPECT_EQ(result, 0) << "the value on failure";
    }
    return r;
}

Raised sort_integers(int m1, int m2, const char* order)
{
    int iv[4] = {4, 3, 2, 1};
    const Raised r =
        lbx::test::traced([&](char* e, int* i) { m01cbft_(iv, &m1, &m2, order, e, i, 1, 200); });
    EXPECT_EQ(iv[0] != 4 || iv[1] != 3 || iv[2] != 2 || iv[3] != 1, r.ifail == 0 && m1 < m2);
    return r;
}

Raised sort_chars(int m1, int m2, int l1, int l2, const char* order = "A")
{
    char ch[] = "pearfigxapplplum";
    const Raised r = lbx::test::traced(
        [&](char* e, int* i) { m01ccft_(ch, &m1, &m2, &l1, &l2, order, e, i, 4, 1, 200); });
    EXPECT_EQ(std::string(ch) != "pearfigxapplplum", r.ifail == 0 && m1 < m2);
    return r;
}

// M01EAF, M01EBF, M01ECF, M01EDF (which = 0..3) on four elements.
Raised rearrange(int which, int m1, int m2, std::vector<int> irank)
{
    double rv[4] = {1, 2, 3, 4};
    int iv[4] = {1, 2, 3, 4};
    char ch[] = "abcd";
    std::complex<double> cv[4] = {1, 2, 3, 4};
    const Raised r = lbx::test::traced([&](char* e, int* i) {
        if (which == 0)
            m01eaft_(rv, &m1, &m2, irank.data(), e, i, 200);
        else if (which == 1)
            m01ebft_(iv, &m1, &m2, irank.data(), e, i, 200);
        else if (which == 2)
            m01ecft_(ch, &m1, &m2, irank.data(), e, i, 1, 200);
        else
            m01edft_(cv, &m1, &m2, irank.data(), e, i, 200);
    });
    const bool moved = which == 0   ? rv[0] != 1 || rv[1] != 2 || rv[2] != 3 || rv[3] != 4
                       : which == 1 ? iv[0] != 1 || iv[1] != 2 || iv[2] != 3 || iv[3] != 4
                       : which == 2 ? std::string(ch) != "abcd"
                                    : cv[0] != 1.0 || cv[1] != 2.0 || cv[2] != 3.0 || cv[3] != 4.0;
    EXPECT_EQ(moved, r.ifail == 0 && m1 < m2) << which;
    return r;
}

// M01ZAF, M01ZBF, M01ZCF (which = 0..2); IPERM and ICYCL outside M1..M2 untouched.
Raised permutation(int which, int m1, int m2, std::vector<int> iperm)
{
    const std::vector<int> before = iperm;
    std::vector<int> icycl(iperm.size(), -7);
    const Raised r = lbx::test::traced([&](char* e, int* i) {
        if (which == 0)
            m01zaft_(iperm.data(), &m1, &m2, e, i, 200);
        else if (which == 1)
            m01zbft_(iperm.data(), &m1, &m2, e, i, 200);
        else
            m01zcft_(iperm.data(), &m1, &m2, icycl.data(), e, i, 200);
    });
    if (r.ifail != 0 || which > 0) {
        EXPECT_EQ(iperm, before) << "IPERM changed";
    }
    if (which == 2) {
        check_irank(icycl, m1, m2, r);
    }
    return r;
}

// M01DEF, M01DFF, M01DJF, M01DKF (which = 0..3) on a 4 by 3 matrix; IRANK is
// indexed by rows for the first two.
Raised rank_matrix(int which, int ldm, int m1, int m2, int n1, int n2, const char* order = "A")
{
    const double rm[12] = {1, 2, 1, 0, 5, 4, 5, 3, 0, 0, 1, 1};
    const int im[12] = {1, 2, 1, 0, 5, 4, 5, 3, 0, 0, 1, 1};
    std::vector<int> irank(4, -7);
    int* ir = irank.data();
    const Raised r = lbx::test::traced([&](char* e, int* i) {
        if (which == 0)
            m01deft_(rm, &ldm, &m1, &m2, &n1, &n2, order, ir, e, i, 1, 200);
        else if (which == 1)
            m01dfft_(im, &ldm, &m1, &m2, &n1, &n2, order, ir, e, i, 1, 200);
        else if (which == 2)
            m01djft_(rm, &ldm, &m1, &m2, &n1, &n2, order, ir, e, i, 1, 200);
        else
            m01dkft_(im, &ldm, &m1, &m2, &n1, &n2, order, ir, e, i, 1, 200);
    });
    check_irank(irank, which < 2 ? m1 : n1, which < 2 ? m2 : n2, r);
    return r;
}

int by_value(const int* i, const int* j, int*, double* ruser)
{
    return ruser[*i - 1] > ruser[*j - 1];
}

Raised rank_user(int m1, int m2)
{
    double ruser[4] = {4, 3, 2, 1};
    int iuser[1] = {0};
    std::vector<int> irank(4, -7);
    const Raised r = lbx::test::traced([&](char* e, int* i) {
        m01dzft_(&by_value, &m01dzf_comparh_, &m1, &m2, irank.data(), iuser, ruser, e, i, 200);
    });
    check_irank(irank, m1, m2, r);
    return r;
}

Raised search(bool real, bool valid, int m1, int m2, std::vector<double> x, double item = 2)
{
    const std::vector<int> ix(x.begin(), x.end());
    const int v = valid ? 1 : 0, it = static_cast<int>(item);
    int result = -1;
    const Raised r = lbx::test::traced([&](char* e, int* i) {
        result = real ? m01naft_(&v, x.data(), &m1, &m2, &item, e, i, 200)
                      : m01nbft_(&v, ix.data(), &m1, &m2, &it, e, i, 200);
    });
    if (r.ifail != 0) {
        EXPECT_EQ(result, 0) << "the value on failure";
    }
    return r;
}

TEST(Sorting, EveryMessageInItsCheckOrder)
{
    using Call = std::function<Raised()>;
    using Values = std::vector<std::string>;
    std::vector<lbx::test::Trigger> rows;
    auto add = [&](const char* name, const char* id, Call call, Values v = {},
                   const char* note = "") {
        rows.push_back({name, id, std::move(call), std::move(v), note});
    };
    // M2 < 1, M1 < 1, M1 > M2 for a routine given as call(m1, m2), its other
    // arguments bad where it has any (the segment is checked first).
    auto segment = [&](const char* name, std::function<Raised(int, int)> call) {
        add(name, "M2_LT_1", [=] { return call(0, 0); }, {"0"});
        add(name, "M1_LT_1", [=] { return call(-1, 3); }, {"-1"});
        add(name, "M1_GT_M2", [=] { return call(3, 2); }, {"3", "2"});
    };

    segment("M01CAF", [](int m1, int m2) { return sort(m1, m2, "Q"); });
    add("M01CAF", "M2_LT_1", [] { return sort(1, 0, "A"); }, {"0"});
    add("M01CAF", "BAD_ORDER", [] { return sort(1, 3, "Z"); }, {"Z"});
    add(
        "M01CAF", "BAD_ORDER", [] { return sort(2, 2, " "); }, {""}, "one element");
    add(
        "M01CAF", "BAD_ORDER", [] { return sort(1, 3, "\x01"); }, {""}, "separator byte");
    add(
        "M01CAF", "", [] { return sort(2, 2, "d"); }, {}, "one element is left alone");
    add(
        "M01CAF", "", [] { return sort(1, 4, "ascending", 9); }, {}, "first character");
    add(
        "M01CAF", "", [] { return sort(1, 4, "A", 0); }, {}, "declared length 1");
    add("M01CAF", "", [] { return sort(3, 4, "a"); });

    segment("M01CBF", [](int m1, int m2) { return sort_integers(m1, m2, "Q"); });
    add("M01CBF", "BAD_ORDER", [] { return sort_integers(1, 4, "C"); }, {"C"});
    add("M01CBF", "", [] { return sort_integers(2, 4, "a"); });

    segment("M01CCF", [](int m1, int m2) { return sort_chars(m1, m2, 0, 9, "Q"); });
    add("M01CCF", "L1_LT_1", [] { return sort_chars(1, 4, -2, 9, "Q"); }, {"-2"});
    add("M01CCF", "L1_GT_L2", [] { return sort_chars(1, 4, 4, 3, "Q"); }, {"4", "3"});
    add("M01CCF", "L2_GT_LEN", [] { return sort_chars(1, 4, 1, 5, "Q"); }, {"5", "4"});
    add("M01CCF", "BAD_ORDER", [] { return sort_chars(1, 4, 1, 4, "?"); }, {"?"});
    add(
        "M01CCF", "", [] { return sort_chars(3, 3, 1, 4, "d"); }, {}, "one element");
    add("M01CCF", "", [] { return sort_chars(1, 4, 4, 4); });

    for (bool real : {true, false}) {
        const char* name = real ? "M01DAF" : "M01DBF";
        segment(name, [=](int m1, int m2) { return rank_vector(real, m1, m2, "Q"); });
        add(
            name, "BAD_ORDER", [=] { return rank_vector(real, 2, 2, "x"); }, {"x"}, "one element");
        add(
            name, "", [=] { return rank_vector(real, 2, 2, "d"); }, {}, "one element");
        add(
            name, "", [=] { return rank_vector(real, 2, 5, "a"); }, {}, "IRANK(2..5) only");
    }

    segment("M01DCF", [](int m1, int m2) { return rank_chars(m1, m2, 0, 9, "Q"); });
    add(
        "M01DCF", "L1_LT_1", [] { return rank_chars(1, 5, 0, 9, "Q"); }, {"0"}, "before L2");
    add("M01DCF", "L1_GT_L2", [] { return rank_chars(1, 5, 3, 2, "Q"); }, {"3", "2"});
    add(
        "M01DCF", "L1_GT_L2", [] { return rank_chars(1, 5, 1, 0); }, {"1", "0"}, "L2 = 0");
    add("M01DCF", "L2_GT_LEN", [] { return rank_chars(1, 5, 2, 5, "Q"); }, {"5", "4"});
    add(
        "M01DCF", "L2_GT_LEN", [] { return rank_chars(1, 2, 1, 4, "A", 3); }, {"4", "3"},
        "the caller's length");
    add("M01DCF", "BAD_ORDER", [] { return rank_chars(1, 5, 1, 4, "-"); }, {"-"});
    add(
        "M01DCF", "", [] { return rank_chars(2, 4, 4, 4, "d"); }, {}, "one position");

    const char* matrix_names[] = {"M01DEF", "M01DFF", "M01DJF", "M01DKF"};
    for (int w = 0; w < 4; ++w) {
        const char* name = matrix_names[w];
        segment(name, [=](int m1, int m2) { return rank_matrix(w, 0, m1, m2, 0, 0, "Q"); });
        add(name, "N2_LT_1", [=] { return rank_matrix(w, 0, 1, 4, 0, 0, "Q"); }, {"0"});
        add(name, "N1_LT_1", [=] { return rank_matrix(w, 0, 1, 4, 0, 3, "Q"); }, {"0"});
        add(name, "N1_GT_N2", [=] { return rank_matrix(w, 0, 1, 4, 3, 2); }, {"3", "2"});
        add(
            name, "LDM_LT_M2", [=] { return rank_matrix(w, 3, 1, 4, 1, 3, "Q"); }, {"3", "4"},
            "before ORDER");
        add(name, "BAD_ORDER", [=] { return rank_matrix(w, 4, 1, 4, 1, 3, "E"); }, {"E"});
        add(name, "", [=] { return rank_matrix(w, 4, 2, 3, 2, 3, "D"); });
        add(
            name, "", [=] { return rank_matrix(w, 3, 1, 3, 3, 3); }, {}, "LDM = M2");
    }

    segment("M01DZF", [](int m1, int m2) { return rank_user(m1, m2); });
    add("M01DZF", "", [] { return rank_user(2, 4); });

    const char* rearrange_names[] = {"M01EAF", "M01EBF", "M01ECF", "M01EDF"};
    for (int w = 0; w < 4; ++w) {
        const char* name = rearrange_names[w];
        segment(name, [=](int m1, int m2) { return rearrange(w, m1, m2, {9, 9, 9, 9}); });
        add(name, "RANK_RANGE", [=] { return rearrange(w, 2, 4, {9, 2, 5, 3}); }, {"3", "5"});
        add(
            name, "RANK_RANGE",
            [=] {
                return rearrange(w, 2, 4, {9, 1, 2, 3});
            },
            {"2", "1"}, "below M1");
        add(
            name, "RANK_REPEATED",
            [=] {
                return rearrange(w, 1, 4, {2, 1, 2, 9});
            },
            {"1", "3", "2"}, "before the later range failure");
        add(name, "", [=] { return rearrange(w, 2, 4, {9, 4, 2, 3}); });
    }

    const char* permutation_names[] = {"M01ZAF", "M01ZBF", "M01ZCF"};
    for (int w = 0; w < 3; ++w) {
        const char* name = permutation_names[w];
        segment(name, [=](int m1, int m2) { return permutation(w, m1, m2, {9, 9, 9}); });
        add(name, "PERM_RANGE", [=] { return permutation(w, 1, 3, {0, 1, 2}); }, {"1", "0"});
        add(name, "PERM_RANGE", [=] { return permutation(w, 2, 3, {2, 3, 4}); }, {"3", "4"});
        add(name, "PERM_REPEATED",
            [=] {
                return permutation(w, 1, 4, {3, 1, 3, 3});
            },
            {"1", "3", "3"});
        add(
            name, "",
            [=] {
                return permutation(w, 2, 4, {0, 3, 4, 2, 0});
            },
            {}, "segment");
        add(name, "", [=] { return permutation(w, 1, 1, {1}); });
    }

    for (bool real : {true, false}) {
        const char* name = real ? "M01NAF" : "M01NBF";
        segment(name, [=](int m1, int m2) { return search(real, true, m1, m2, {3, 2, 1}); });
        add(name, "NOT_ASCENDING", [=] { return search(real, true, 1, 4, {1, 2, 2, 1}); }, {"3"});
        add(
            name, "NOT_ASCENDING",
            [=] {
                return search(real, true, 2, 3, {9, 5, 4});
            },
            {"2"}, "from M1");
        add(
            name, "",
            [=] {
                return search(real, true, 1, 3, {2, 2, 2});
            },
            {}, "ties");
        add(
            name, "",
            [=] {
                return search(real, true, 2, 3, {9, 1, 4, 0});
            },
            {}, "segment only");
        add(
            name, "",
            [=] {
                return search(real, false, 1, 3, {3, 2, 1});
            },
            {}, "not checked");
    }
    add(
        "M01NAF", "NOT_ASCENDING",
        [] {
            return search(true, true, 1, 3, {1, NAN, 3});
        },
        {"1"}, "a NaN");
    segment("M01NCF", [](int m1, int m2) { return search_chars(true, m1, m2, "c b a "); });
    add("M01NCF", "NOT_ASCENDING", [] { return search_chars(true, 1, 3, "a c b "); }, {"2"});
    add(
        "M01NCF", "NOT_ASCENDING",
        [] {
            return search_chars(true, 1, 2,
                                "a\x80"
                                "a ");
        },
        {"1"}, "bytes compare unsigned");
    add(
        "M01NCF", "", [] { return search_chars(true, 1, 3, "a a a "); }, {}, "ties");
    add(
        "M01NCF", "", [] { return search_chars(false, 1, 2, "b a "); }, {}, "not checked");

    lbx::test::check_catalogue(lbx::sorting::catalogue_messages, rows);
}

}  // namespace
