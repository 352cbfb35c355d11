// The chapter's one message table: every catalogue message of the sorting
// routines raised by a call with one bad argument (or several, to pin the check
// order), its values quoted, and the outputs untouched on failure.
#include <gtest/gtest.h>

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
using lbx::test::traced;

// out[0..] written exactly at first..last (1-based) after a success.
void expect_written(const std::vector<int>& out, int first, int last, const Raised& r)
{
    for (int i = 1; i <= static_cast<int>(out.size()); ++i)
        EXPECT_EQ(out[i - 1] != -7, r.ifail == 0 && i >= first && i <= last) << "element " << i;
}

// M01CAF, M01CBF, M01CCF (which = 0..2) on a descending vector: it changes
// exactly when a sort of more than one element succeeds.
Raised sort(int which, int m1, int m2, const char* order, int l1 = 1, int l2 = 4,
            std::size_t len = 1)
{
    std::vector<double> rv = {4, 3, 2, 1};
    std::vector<int> iv = {4, 3, 2, 1};
    std::string ch = "pearfigxapplplum";
    const Raised r = traced([&](char* e, int* i) {
        which == 0   ? m01caft_(rv.data(), &m1, &m2, order, e, i, len, 200)
        : which == 1 ? m01cbft_(iv.data(), &m1, &m2, order, e, i, 1, 200)
                     : m01ccft_(ch.data(), &m1, &m2, &l1, &l2, order, e, i, 4, 1, 200);
    });
    const bool moved = rv != std::vector<double>{4, 3, 2, 1} ||
                       iv != std::vector<int>{4, 3, 2, 1} || ch != "pearfigxapplplum";
    EXPECT_EQ(moved, r.ifail == 0 && m1 < m2) << which << " " << m1 << ":" << m2 << order;
    return r;
}

int by_value(const int* i, const int* j, int*, double* ruser)
{
    return ruser[*i - 1] > ruser[*j - 1];
}

// M01DAF, M01DBF (which = 0, 1), M01DCF (2: five names of length 4, or len),
// M01DZF (3, by the values of the first).
Raised rank(int which, int m1, int m2, const char* order = "A", int l1 = 1, int l2 = 4,
            std::size_t len = 4)
{
    double rv[5] = {3, 1, 2, 1, 0};
    const int iv[5] = {3, 1, 2, 1, 0};
    int iuser[1] = {0};
    std::vector<int> irank(5, -7);
    int* ir = irank.data();
    const Raised r = traced([&](char* e, int* i) {
        which == 0   ? m01daft_(rv, &m1, &m2, order, ir, e, i, 1, 200)
        : which == 1 ? m01dbft_(iv, &m1, &m2, order, ir, e, i, 1, 200)
        : which == 2
            ? m01dcft_("pearfig applplumkiwi", &m1, &m2, &l1, &l2, order, ir, e, i, len, 1, 200)
            : m01dzft_(&by_value, &m01dzf_comparh_, &m1, &m2, ir, iuser, rv, e, i, 200);
    });
    expect_written(irank, m1, m2, r);
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
    const Raised r = traced([&](char* e, int* i) {
        which == 0   ? m01deft_(rm, &ldm, &m1, &m2, &n1, &n2, order, ir, e, i, 1, 200)
        : which == 1 ? m01dfft_(im, &ldm, &m1, &m2, &n1, &n2, order, ir, e, i, 1, 200)
        : which == 2 ? m01djft_(rm, &ldm, &m1, &m2, &n1, &n2, order, ir, e, i, 1, 200)
                     : m01dkft_(im, &ldm, &m1, &m2, &n1, &n2, order, ir, e, i, 1, 200);
    });
    expect_written(irank, which < 2 ? m1 : n1, which < 2 ? m2 : n2, r);
    return r;
}

// M01EAF, M01EBF, M01ECF, M01EDF (which = 0..3) on four elements.
Raised reorder(int which, int m1, int m2, std::vector<int> irank)
{
    std::vector<double> rv = {1, 2, 3, 4};
    std::vector<int> iv = {1, 2, 3, 4};
    std::string ch = "abcd";
    std::vector<std::complex<double>> cv = {1, 2, 3, 4};
    const Raised r = traced([&](char* e, int* i) {
        which == 0   ? m01eaft_(rv.data(), &m1, &m2, irank.data(), e, i, 200)
        : which == 1 ? m01ebft_(iv.data(), &m1, &m2, irank.data(), e, i, 200)
        : which == 2 ? m01ecft_(ch.data(), &m1, &m2, irank.data(), e, i, 1, 200)
                     : m01edft_(cv.data(), &m1, &m2, irank.data(), e, i, 200);
    });
    const bool moved = rv != std::vector<double>{1, 2, 3, 4} ||
                       iv != std::vector<int>{1, 2, 3, 4} || ch != "abcd" ||
                       cv != std::vector<std::complex<double>>{1, 2, 3, 4};
    EXPECT_EQ(moved, r.ifail == 0 && m1 < m2) << which;
    return r;
}

// M01ZAF, M01ZBF, M01ZCF (which = 0..2); IPERM and ICYCL outside M1..M2
// untouched.
Raised perm(int which, int m1, int m2, std::vector<int> iperm)
{
    const std::vector<int> before = iperm;
    std::vector<int> icycl(iperm.size(), -7);
    const Raised r = traced([&](char* e, int* i) {
        which == 0   ? m01zaft_(iperm.data(), &m1, &m2, e, i, 200)
        : which == 1 ? m01zbft_(iperm.data(), &m1, &m2, e, i, 200)
                     : m01zcft_(iperm.data(), &m1, &m2, icycl.data(), e, i, 200);
    });
    EXPECT_TRUE(iperm == before || (r.ifail == 0 && which == 0)) << "IPERM changed";
    if (which == 2)
        expect_written(icycl, m1, m2, r);
    return r;
}

// M01NAF, M01NBF, M01NCF (which = 0..2; M01NCF on elements of length 2); the
// value on failure is 0.
Raised find(int which, int valid, int m1, int m2, std::vector<double> x, const char* ch = "")
{
    std::vector<int> ix;  // the integer twin (a NaN becomes 0: it has no integer value)
    for (double v : x)
        ix.push_back(v == v ? static_cast<int>(v) : 0);
    const int item = 2;
    const double ritem = 2;
    int result = -1;
    const Raised r = traced([&](char* e, int* i) {
        result = which == 0   ? m01naft_(&valid, x.data(), &m1, &m2, &ritem, e, i, 200)
                 : which == 1 ? m01nbft_(&valid, ix.data(), &m1, &m2, &item, e, i, 200)
                              : m01ncft_(&valid, ch, &m1, &m2, "b", e, i, 2, 1, 200);
    });
    EXPECT_TRUE(r.ifail == 0 || result == 0) << "the value on failure";
    return r;
}

TEST(Sorting, EveryMessageInItsCheckOrder)
{
    using Call = std::function<Raised()>;
    std::vector<lbx::test::Trigger> rows;
    auto add = [&](const char* name, const char* id, Call call, std::vector<std::string> v = {}) {
        rows.push_back({name, id, call, v});
    };
    // M2 < 1, M1 < 1, M1 > M2 for a routine given as call(m1, m2), its other
    // arguments bad where it has any (the segment is checked first).
    auto segment = [&](const char* name, std::function<Raised(int, int)> call) {
        add(name, "M2_LT_1", [=] { return call(0, 0); }, {"0"});
        add(name, "M1_LT_1", [=] { return call(-1, 3); }, {"-1"});
        add(name, "M1_GT_M2", [=] { return call(3, 2); }, {"3", "2"});
    };
    const char* sorts[] = {"M01CAF", "M01CBF", "M01CCF"};
    for (int w = 0; w < 3; ++w) {
        segment(sorts[w], [=](int m1, int m2) { return sort(w, m1, m2, "Q", 0, 9); });
        add(sorts[w], "BAD_ORDER", [=] { return sort(w, 1, 3, "Z"); }, {"Z"});
        add(sorts[w], "", [=] { return sort(w, 2, 2, "d"); });  // one element
        add(sorts[w], "", [=] { return sort(w, 2, 4, "a"); });
    }
    add("M01CAF", "M2_LT_1", [] { return sort(0, 1, 0, "A"); }, {"0"});
    add("M01CAF", "BAD_ORDER", [] { return sort(0, 2, 2, " "); }, {""});     // one element
    add("M01CAF", "BAD_ORDER", [] { return sort(0, 1, 3, "\x01"); }, {""});  // separator byte
    add("M01CAF", "", [] { return sort(0, 1, 4, "ascending", 1, 4, 9); });   // first character
    add("M01CAF", "", [] { return sort(0, 1, 4, "A", 1, 4, 0); });           // declared length 1
    add("M01CCF", "L1_LT_1", [] { return sort(2, 1, 4, "Q", -2, 9); }, {"-2"});
    add("M01CCF", "L1_GT_L2", [] { return sort(2, 1, 4, "Q", 4, 3); }, {"4", "3"});
    add("M01CCF", "L2_GT_LEN", [] { return sort(2, 1, 4, "Q", 1, 5); }, {"5", "4"});
    add("M01CCF", "", [] { return sort(2, 1, 4, "A", 4, 4); });

    const char* ranks[] = {"M01DAF", "M01DBF", "M01DCF"};
    for (int w = 0; w < 3; ++w) {
        segment(ranks[w], [=](int m1, int m2) { return rank(w, m1, m2, "Q", 0, 9); });
        add(ranks[w], "BAD_ORDER", [=] { return rank(w, 2, 2, "x"); }, {"x"});  // one element
        add(ranks[w], "", [=] { return rank(w, 2, 2, "d"); });
        add(ranks[w], "", [=] { return rank(w, 2, 5, "a", 4, 4); });  // IRANK(2..5) only
    }
    add("M01DCF", "L1_LT_1", [] { return rank(2, 1, 5, "Q", 0, 9); }, {"0"});  // before L2
    add("M01DCF", "L1_GT_L2", [] { return rank(2, 1, 5, "Q", 3, 2); }, {"3", "2"});
    add("M01DCF", "L1_GT_L2", [] { return rank(2, 1, 5, "A", 1, 0); }, {"1", "0"});
    add("M01DCF", "L2_GT_LEN", [] { return rank(2, 1, 5, "Q", 2, 5); }, {"5", "4"});
    add("M01DCF", "L2_GT_LEN", [] { return rank(2, 1, 2, "A", 1, 4, 3); }, {"4", "3"});

    const char* matrices[] = {"M01DEF", "M01DFF", "M01DJF", "M01DKF"};
    for (int w = 0; w < 4; ++w) {
        const char* name = matrices[w];
        segment(name, [=](int m1, int m2) { return rank_matrix(w, 0, m1, m2, 0, 0, "Q"); });
        add(name, "N2_LT_1", [=] { return rank_matrix(w, 0, 1, 4, 0, 0, "Q"); }, {"0"});
        add(name, "N1_LT_1", [=] { return rank_matrix(w, 0, 1, 4, 0, 3, "Q"); }, {"0"});
        add(name, "N1_GT_N2", [=] { return rank_matrix(w, 0, 1, 4, 3, 2); }, {"3", "2"});
        add(name, "LDM_LT_M2", [=] { return rank_matrix(w, 3, 1, 4, 1, 3, "Q"); }, {"3", "4"});
        add(name, "BAD_ORDER", [=] { return rank_matrix(w, 4, 1, 4, 1, 3, "E"); }, {"E"});
        add(name, "", [=] { return rank_matrix(w, 4, 2, 3, 2, 3, "D"); });
        add(name, "", [=] { return rank_matrix(w, 3, 1, 3, 3, 3); });  // LDM = M2
    }
    segment("M01DZF", [](int m1, int m2) { return rank(3, m1, m2); });
    add("M01DZF", "", [] { return rank(3, 2, 4); });

    const char* rearranges[] = {"M01EAF", "M01EBF", "M01ECF", "M01EDF"};
    for (int w = 0; w < 4; ++w) {
        const char* name = rearranges[w];
        segment(name, [=](int m1, int m2) { return reorder(w, m1, m2, {9, 9, 9, 9}); });
        add(name, "RANK_RANGE", [=] { return reorder(w, 2, 4, {9, 2, 5, 3}); }, {"3", "5"});
        add(name, "RANK_RANGE", [=] { return reorder(w, 2, 4, {9, 1, 2, 3}); }, {"2", "1"});
        // Before the later range failure.
        add(name, "RANK_REPEATED", [=] { return reorder(w, 1, 4, {2, 1, 2, 9}); }, {"1", "3", "2"});
        add(name, "", [=] { return reorder(w, 2, 4, {9, 4, 2, 3}); });
    }

    const char* permutations[] = {"M01ZAF", "M01ZBF", "M01ZCF"};
    for (int w = 0; w < 3; ++w) {
        const char* name = permutations[w];
        segment(name, [=](int m1, int m2) { return perm(w, m1, m2, {9, 9, 9}); });
        add(name, "PERM_RANGE", [=] { return perm(w, 1, 3, {0, 1, 2}); }, {"1", "0"});
        add(name, "PERM_RANGE", [=] { return perm(w, 2, 3, {2, 3, 4}); }, {"3", "4"});
        add(name, "PERM_REPEATED", [=] { return perm(w, 1, 4, {3, 1, 3, 3}); }, {"1", "3", "3"});
        add(name, "", [=] { return perm(w, 2, 4, {0, 3, 4, 2, 0}); });
        add(name, "", [=] { return perm(w, 1, 1, {1}); });
    }

    const char* searches[] = {"M01NAF", "M01NBF", "M01NCF"};
    for (int w = 0; w < 3; ++w) {
        const char* name = searches[w];
        segment(name, [=](int m1, int m2) { return find(w, 1, m1, m2, {3, 2, 1}, "c b a "); });
        add(name, "NOT_ASCENDING", [=] { return find(w, 1, 1, 3, {1, 3, 2}, "a c b "); }, {"2"});
        add(name, "NOT_ASCENDING",
            [=] {
                return find(w, 1, 2, 3, {9, 5, 4}, "z e d ");
            },
            {"2"});                                                            // from M1
        add(name, "", [=] { return find(w, 1, 1, 3, {2, 2, 2}, "a a a "); });  // ties
        add(name, "", [=] { return find(w, 0, 1, 3, {3, 2, 1}, "c b a "); });  // unchecked
    }
    add("M01NAF", "NOT_ASCENDING", [] { return find(0, 1, 1, 3, {1, NAN, 3}); }, {"1"});
    add("M01NBF", "", [] { return find(1, 1, 2, 3, {9, 1, 4, 0}); });  // segment only
    add("M01NCF", "NOT_ASCENDING",
        [] {
            return find(2, 1, 1, 2, {},
                        "a\x80"
                        "a ");
        },
        {"1"});  // bytes compare unsigned
    add("M01NCF", "NOT_ASCENDING", [] { return find(2, 1, 1, 2, {}, "acab"); },
        {"1"});  // the second byte

    lbx::test::check_catalogue(lbx::sorting::catalogue_messages, rows);
}

}  // namespace
