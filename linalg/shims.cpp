// The error reporter and the tuning enquiry of the library's private copy of
// reference LAPACK: its xerbla_ and ilaenv_ calls reach these two.
//
// A standard name ("DGETRI", trailing blanks ignored, any case) is mapped to
// its pairing name ("F07AJF/DGETRI") through the chapter's table of standard
// names.  lbx_xerbla_ reports through F06AAZN under the pairing name, or under
// the standard name itself when the routine has no pairing.  lbx_ilaenv_
// answers ISPEC 1, 2 and 3 from the tuning table (F07ZAZN, by the pairing's
// five-character stem and "FN": "F07AJFN") when the table knows the stem, and
// leaves everything else to the reference ilaenv.
#include "linalg/shims.hpp"

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstddef>
#include <string_view>

#include "gen/linalg.hpp"
#include "linalg/kernels.hpp"
#include "linalg/tuning.hpp"

namespace lbx::linalg {

namespace {

// A standard name in upper case without trailing blanks (at most 16
// characters kept).
class StandardName {
public:
    StandardName(const char* s, std::size_t len)
    {
        while (len > 0 && s[len - 1] == ' ')
            --len;
        len_ = std::min(len, sizeof text_);
        for (std::size_t i = 0; i < len_; ++i) {
            const char c = s[i];
            text_[i] = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
        }
    }
    std::string_view view() const { return {text_, len_}; }

private:
    char text_[16];
    std::size_t len_ = 0;
};

// The pairing name of a standard name, empty when it has none.
std::string_view pairing_of(std::string_view standard)
{
    const auto* first = std::begin(standard_pairings);
    const auto* last = std::end(standard_pairings);
    const auto* it = std::lower_bound(
        first, last, standard,
        [](const StandardPairing& p, std::string_view s) { return p.standard < s; });
    return it != last && it->standard == standard ? it->pairing : std::string_view{};
}

}  // namespace

}  // namespace lbx::linalg

extern "C" void lbx_xerbla_(const char* srname, const int* info, std::size_t len)
{
    using namespace lbx::linalg;
    const StandardName standard(srname, len);
    const std::string_view pairing = pairing_of(standard.view());
    if (!pairing.empty()) {
        F06AAZN(pairing, *info);
        return;
    }
    std::size_t n = len;
    while (n > 0 && srname[n - 1] == ' ')
        --n;
    F06AAZN(std::string_view(srname, n), *info);
}

extern "C" int lbx_ilaenv_(const int* ispec, const char* name, const char* opts, const int* n1,
                           const int* n2, const int* n3, const int* n4, std::size_t name_len,
                           std::size_t opts_len)
{
    using namespace lbx::linalg;
    if (*ispec >= 1 && *ispec <= 3) {
        const std::string_view pairing = pairing_of(StandardName(name, name_len).view());
        if (pairing.size() >= 5) {
            char chapter_name[7];
            std::copy_n(pairing.data(), 5, chapter_name);
            chapter_name[5] = 'F';
            chapter_name[6] = 'N';
            const std::string_view key(chapter_name, 7);
            if (tuning_row(key) >= 0) {
                int value = 0;
                F07ZAZN(*ispec, key, value, 0);
                return value;
            }
        }
    }
    return lbx_ref_ilaenv_(ispec, name, opts, n1, n2, n3, n4, name_len, opts_len);
}

// The BLAS index routines the private LAPACK calls: the external library's
// answer, unless that answer or element 1 is a NaN; then the reference
// routines' answer, the first element of largest magnitude (|re| + |im| for
// complex) found by comparisons that a NaN never wins unless it is element 1.
// The pivot searches of the reference algorithms are written for that answer;
// an index routine that returns a NaN's position (as optimized ones may) can
// lead them to a row outside the matrix.
LBX_EXTERNAL_ROUTINE(idamax_, int(const int*, const double*, const int*));
LBX_EXTERNAL_ROUTINE(isamax_, int(const int*, const float*, const int*));
LBX_EXTERNAL_ROUTINE(izamax_, int(const int*, const lbx::Complex*, const int*));
LBX_EXTERNAL_ROUTINE(icamax_, int(const int*, const std::complex<float>*, const int*));

namespace {

template <class T, class Magnitude, class Fast>
int first_largest(const int* n, const T* x, const int* incx, Magnitude magnitude, Fast fast)
{
    if (*n < 1 || *incx <= 0)
        return 0;
    const std::ptrdiff_t step = *incx;
    const int found = fast(n, x, incx);
    if (found >= 1 && found <= *n && !std::isnan(magnitude(x[(found - 1) * step])) &&
        !std::isnan(magnitude(x[0])))
        return found;
    int index = 1;
    auto largest = magnitude(x[0]);
    for (int i = 1; i < *n; ++i) {
        const auto m = magnitude(x[i * step]);
        if (m > largest) {
            index = i + 1;
            largest = m;
        }
    }
    return index;
}

}  // namespace

extern "C" int lbx_idamax_(const int* n, const double* x, const int* incx)
{
    return first_largest(
        n, x, incx, [](double v) { return std::fabs(v); }, idamax_kernel());
}

extern "C" int lbx_isamax_(const int* n, const float* x, const int* incx)
{
    return first_largest(
        n, x, incx, [](float v) { return std::fabs(v); }, isamax_kernel());
}

extern "C" int lbx_izamax_(const int* n, const lbx::Complex* x, const int* incx)
{
    return first_largest(
        n, x, incx, [](const lbx::Complex& v) { return std::fabs(v.real()) + std::fabs(v.imag()); },
        izamax_kernel());
}

extern "C" int lbx_icamax_(const int* n, const std::complex<float>* x, const int* incx)
{
    return first_largest(
        n, x, incx,
        [](const std::complex<float>& v) { return std::fabs(v.real()) + std::fabs(v.imag()); },
        icamax_kernel());
}
