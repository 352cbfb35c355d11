// Every catalogue shape, generated, compiled and called through its layers
// with the Fortran convention: argument order, hidden lengths, extras,
// adapters, user arrays, results and the -999 path.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstring>
#include <new>
#include <string>

#include "gen/shapes.hpp"

// The generated entries of the shapes catalogue (declared here as a C caller
// would).
extern "C" {
double z99aaf_(const double* x, int* ifail);
double z99aaft_(const double* x, char* errbuf, int* ifail, std::size_t errbuf_len);
void z99abf_(const double* a, lbx::shapes::Z99ABF_FFn f, double* fx, int* iuser, double* ruser,
             int* ifail);
void z99acft_(const int* sorder, const int* n, double* a, char* errbuf, int* ifail, std::size_t);
void z99acf_(const int* n, double* a, int* ifail);
void z99adf_(const int* n, int* info);
void z99adft_(const int* call_vendor, const int* sorder, const int* n, int* info);
void z99aef_(const int* n, int* state, double* x, int* ifail);
void z99aff_(const char* order, char* text, int* flag, std::size_t order_len, std::size_t text_len);
int z99agf_();
int z99agfn_();
int Z99AGFN();
void z99ahf_(lbx::shapes::Z99AHF_FFn f, const double* x, double* fx, int* ifail);
void z99ahft_(lbx::shapes::Z99AHF_FFn f, lbx::shapes::Z99AHF_FAdapter fh, const double* x,
              double* fx, int* iuser, double* ruser, char* errbuf, int* ifail, std::size_t);
int z99aif_(const char* key, lbx::shapes::Z99AIF_SAYFn say, int* ifail, std::size_t key_len);
void z99ajf_(char* names, const char* codes, const int* n, std::size_t names_len,
             std::size_t codes_len);
void y90gcft_(const int* itrace);
}

namespace lbx::shapes {

// Implementations that record what reached them.
namespace seen {
int sorder = -1, call_vendor = -1, lstate = -1;
std::string text;
const int* iuser = nullptr;
bool throw_bad_alloc = false;
}  // namespace seen

double Z99AAFN(double x, lbx::Fail& fail)
{
    if (seen::throw_bad_alloc)
        throw std::bad_alloc();
    if (x < 0)
        fail(Z99AAF_msg::X_NEGATIVE, x, 0.0);
    return 2 * x;
}

void Z99ABFN(double a, const Z99ABF_FProc& f, double& fx, int* iuser, double* ruser, lbx::Fail&)
{
    seen::iuser = iuser;
    fx = f(a, iuser, ruser);
}

void Z99ACFN(int n, double* a, lbx::Fail&)
{
    for (int i = 0; i < n; ++i)
        a[i] += 1;
}

void Z99ADFN(bool call_vendor, int sorder, int n, int& info)
{
    seen::call_vendor = call_vendor;
    seen::sorder = sorder;
    info = -n;
}

void Z99AEFN(int, int*, double*, int lstate, lbx::Fail& fail)
{
    seen::lstate = lstate;
    if (lstate < 20)
        fail(Z99AEF_msg::LSTATE_SMALL, lstate, 20);
}

void Z99AFFN(char order, std::span<char> text, lbx::Logical& flag)
{
    std::memset(text.data(), '*', text.size());
    text[0] = order;
    flag = flag & 1 ? 0 : 1;
}

int Z99AGFN()
{
    return 42;
}

void Z99AHFN(const Z99AHF_FProc& f, double x, double& fx, int* iuser, double* ruser, lbx::Fail&)
{
    fx = f(x, iuser, ruser) + iuser[0] + ruser[0];
}

bool Z99AIFN(std::string_view key, const Z99AIF_SAYProc& say, lbx::Fail&)
{
    seen::text = std::string(key);
    say("hello", 5);
    return key == "KEYS";
}

// Element i of NAMES becomes element i of CODES followed by its length digit.
void Z99AJFN(lbx::CharArray<char> names, lbx::CharArray<const char> codes, int n)
{
    for (int i = 0; i < n; ++i) {
        std::memcpy(names[i], codes[i], std::min<std::size_t>(codes.len, names.len));
        names[i][names.len - 1] = static_cast<char>('0' + codes.len);
    }
}

}  // namespace lbx::shapes

namespace {

using namespace lbx::shapes;

double square_plus_user(const double* x, int* iuser, double* ruser)
{
    ++iuser[0];
    return *x * *x + ruser[0];
}

double cube(const double* x)
{
    return *x * *x * *x;
}

std::string said;
void say(const char* text, const int* n, std::size_t len)
{
    said = std::string(text, len) + "/" + std::to_string(*n);
}

TEST(Shapes, FunctionResultQuietFailureAndAllocationFailure)
{
    double x = 1.5;
    int ifail = 1;
    EXPECT_EQ(z99aaf_(&x, &ifail), 3.0);
    EXPECT_EQ(ifail, 0);
    x = -1;
    ifail = 1;
    EXPECT_EQ(z99aaf_(&x, &ifail), -2.0);
    EXPECT_EQ(ifail, 3);
    seen::throw_bad_alloc = true;
    z99aaf_(&x, &ifail);
    seen::throw_bad_alloc = false;
    EXPECT_EQ(ifail, -999);
}

TEST(Shapes, TracedEntryUsesTwoHundredCharactersWhateverLengthArrives)
{
    char errbuf[201];
    std::memset(errbuf, 'Z', sizeof errbuf);
    int ifail = 99;
    double x = -4;
    z99aaft_(&x, errbuf, &ifail, 7);
    EXPECT_EQ(ifail, 3);
    EXPECT_EQ(errbuf[0], '\x01');
    EXPECT_EQ(errbuf[199], '\0');
    EXPECT_EQ(errbuf[200], 'Z');  // nothing beyond the 200 characters
    EXPECT_EQ(errbuf[198], ' ');  // blank after the last separator
}

TEST(Shapes, AdapterPassesUserArraysUnchanged)
{
    int iuser[3] = {0, 7, 9};
    double ruser[2] = {0.25, 0};
    double a = 3, fx = 0;
    int ifail = 0;
    z99abf_(&a, &square_plus_user, &fx, iuser, ruser, &ifail);
    EXPECT_EQ(fx, 9.25);
    EXPECT_EQ(iuser[0], 1);
    EXPECT_EQ(seen::iuser, iuser);
}

TEST(Shapes, LeadingExtraReachesTracedEntryNotImplementation)
{
    double a[2] = {1, 2};
    int n = 2, ifail = 0;
    z99acf_(&n, a, &ifail);
    EXPECT_EQ(a[1], 3.0);
    int sorder = 5;
    char errbuf[200];
    z99acft_(&sorder, &n, a, errbuf, &ifail, 200);
    EXPECT_EQ(a[0], 3.0);
}

TEST(Shapes, VendorFlagAndOrderComeFirstAndInfoReports)
{
    int n = 4, info = 0;
    z99adf_(&n, &info);
    EXPECT_EQ(seen::call_vendor, 0);
    EXPECT_EQ(seen::sorder, 1);
    EXPECT_EQ(info, -4);
    int vendor = 3, sorder = 2;  // only bit 0 of a LOGICAL counts
    z99adft_(&vendor, &sorder, &n, &info);
    EXPECT_EQ(seen::call_vendor, 1);
    EXPECT_EQ(seen::sorder, 2);
    vendor = 2;
    z99adft_(&vendor, &sorder, &n, &info);
    EXPECT_EQ(seen::call_vendor, 0);
}

TEST(Shapes, TrailingExtraTakesThePlainEntrysValue)
{
    int n = 1, state[1] = {16}, ifail = 1;
    double x[1];
    z99aef_(&n, state, x, &ifail);
    EXPECT_EQ(seen::lstate, 19);
    EXPECT_EQ(ifail, 4);
}

TEST(Shapes, CharacterLengthsFollowAllArguments)
{
    char text[6];
    int flag = 0;
    z99aff_("Dx", text, &flag, 2, 6);
    EXPECT_EQ(std::string(text, 6), "D*****");
    EXPECT_EQ(flag, 1);
    std::memset(text, '#', sizeof text);
    z99aff_("Ax", text, &flag, 0, 3);  // the option's declared length is 1
    EXPECT_EQ(std::string(text, 6), "A**###");
    EXPECT_EQ(flag, 0);
}

TEST(Shapes, ExportedImplementation)
{
    EXPECT_EQ(z99agf_() + z99agfn_() + ::Z99AGFN(), 3 * 42);
}

// A traced caller's adapter of its own receives the pass-through arrays.
double count_in_iuser(Z99AHF_FFn fn, const double* x, int* iuser, double* ruser)
{
    ++iuser[0];
    return fn(x) * ruser[0];
}

// The plain entry passes dummy user arrays; a traced caller's own adapter
// receives the caller's.
TEST(Shapes, UserArraysOfPlainAndTracedCallers)
{
    double x = 2, fx = 0, ruser[1] = {0.5};
    int iuser[1] = {10}, ifail = 0;
    z99ahf_(&cube, &x, &fx, &ifail);
    EXPECT_EQ(fx, 8.0);
    char errbuf[200];
    z99ahft_(&cube, &count_in_iuser, &x, &fx, iuser, ruser, errbuf, &ifail, 200);
    EXPECT_EQ(iuser[0], 11);
    EXPECT_EQ(fx, 4.0 + 11 + 0.5);
}

TEST(Shapes, LogicalResultDeclaredLengthAndCharacterCallback)
{
    int ifail = 0;
    EXPECT_EQ(z99aif_("KEYSTONE", &say, &ifail, 8),
              1);  // declared length 4: "KEYS"
    EXPECT_EQ(seen::text, "KEYS");
    EXPECT_EQ(said, "hello/5");
    EXPECT_EQ(z99aif_("KE", &say, &ifail, 2),
              0);  // never reads past the caller's length
    EXPECT_EQ(seen::text, "KE");
}

}  // namespace

// ---------------------------------------------------------------- second
// catalogue file

extern "C" {
double z99baf_(const int* n, const double* dx, const int* incx, const double* dy, const int* incy);
double z99baft_(const int* call_vendor, const int* sorder, const int* n, const double* dx,
                const int* incx, const double* dy, const int* incy);
double z99bbf_(const char* norm, const int* m, const int* n, const double* a, const int* lda,
               double* work, std::size_t norm_len);
double z99bdf_(const char* norm, const int* m, const int* n, const double* a, const int* lda,
               double* work, std::size_t norm_len);
double z99bdft_(const int* call_vendor, const int* sorder, const char* norm, const int* m,
                const int* n, const double* a, const int* lda, double* work, const char* srname,
                std::size_t norm_len, std::size_t srname_len);
void drscl_(const int* n, const double* sa, double* sx, const int* incx);
void zdrscl_(const int* n, const double* sa, std::complex<double>* sx, const int* incx);
void z99bcf_(const int* n, const std::complex<double>* z, std::complex<double>* v,
             std::complex<double>* w, int* ifail);
}

// The private own path of Z99BDF: records what it received.
std::string private_call;
extern "C" double lbx_own_dlange_(const char* norm, const int*, const int*, const double*,
                                  const int*, double*, const char* srname, std::size_t norm_len,
                                  std::size_t srname_len)
{
    private_call = std::string(norm, norm_len) + " " + std::string(srname, srname_len);
    return -1;
}

namespace lbx::shapes {

// The own path of Z99BAF: the negated dot product, so a test sees which path
// ran.
double Z99BAFN(int n, const double* dx, int incx, const double* dy, int incy)
{
    double s = 0;
    for (int i = 0; i < n; ++i)
        s -= dx[i * incx] * dy[i * incy];
    return s;
}

void Z99BCFN(int n, lbx::Complex z, lbx::Complex* v, lbx::Complex& w, lbx::Fail& fail)
{
    if (n < 0)
        return fail(Z99BCF_msg::N_NEGATIVE, n);
    w = 0;
    for (int i = 0; i < n; ++i) {
        w += v[i];
        v[i] *= z;
    }
}

}  // namespace lbx::shapes

namespace {

TEST(Shapes, PairedRoutineDispatchesOnBitZeroOfTheVendorFlag)
{
    const double x[3] = {1, 2, 3}, y[3] = {4, 5, 6};
    int n = 3, inc = 1, sorder = 1;
    EXPECT_EQ(z99baf_(&n, x, &inc, y, &inc),
              -32.0);  // the plain entry takes the own path
    for (int flag : {1, 3, -1})
        EXPECT_EQ(z99baft_(&flag, &sorder, &n, x, &inc, y, &inc), 32.0) << flag;
    for (int flag : {0, 2})
        EXPECT_EQ(z99baft_(&flag, &sorder, &n, x, &inc, y, &inc), -32.0) << flag;
    EXPECT_EQ(Z99BAF_pairing, "Z99BAF/DDOT");
}

// A 2 x 2 matrix: max abs column sum 6 (norm "1"), Frobenius sqrt(30). The
// external own path gets options of length 1; the private one the standard
// arguments and the name.
TEST(Shapes, PairedOwnPathsExternalAndPrivate)
{
    const double a[4] = {1, -3, 2, 4};
    double work[2];
    int m = 2, n = 2, vendor = 1, sorder = 1;
    EXPECT_EQ(z99bbf_("1-norm", &m, &n, a, &m, work, 6), 6.0);
    EXPECT_DOUBLE_EQ(z99bbf_("Frobenius", &m, &n, a, &m, work, 9), std::sqrt(30.0));
    EXPECT_EQ(z99bdf_("Max", &m, &n, a, &m, work, 3), -1.0);
    EXPECT_EQ(private_call, "M Z99BDF/DLANGE");
    EXPECT_EQ(z99bdft_(&vendor, &sorder, "M", &m, &n, a, &m, work, "X", 1, 1), 4.0);
}

TEST(Shapes, ForwardsReachTheExternalRoutine)
{
    double x[2] = {1.5, -2};
    const double half = 0.5, two = 2;
    int n = 2, inc = 1;
    drscl_(&n, &half, x, &inc);
    EXPECT_EQ(x[0], 3.0);
    EXPECT_EQ(x[1], -4.0);
    std::complex<double> z[2] = {{1, 1}, {0, 2}};
    zdrscl_(&n, &two, z, &inc);
    EXPECT_EQ(z[0], std::complex<double>(0.5, 0.5));
    EXPECT_EQ(z[1], std::complex<double>(0, 1));
}

TEST(Shapes, ComplexArgumentsAndASharedMessage)
{
    std::complex<double> v[2] = {{1, 2}, {3, -1}}, w;
    const std::complex<double> z{0, 2};
    int n = 2, ifail = 0;
    z99bcf_(&n, &z, v, &w, &ifail);
    EXPECT_EQ(ifail, 0);
    EXPECT_EQ(w, std::complex<double>(4, 1));
    EXPECT_EQ(v[1], std::complex<double>(2, 6));
    n = -1;
    ifail = 1;
    z99bcf_(&n, &z, v, &w, &ifail);
    EXPECT_EQ(ifail, 1);
}

}  // namespace

TEST(Shapes, CharacterArraysStepByTheirElementLength)
{
    char names[] = "aaaaabbbbbccccc";
    const int n = 3;
    // CODES declared CHARACTER*3: elements 3 apart whatever length the caller
    // passes.
    z99ajf_(names, "ABCDEFGHI", &n, 5, 9);
    EXPECT_STREQ(names, "ABCa3DEFb3GHIc3");
}
