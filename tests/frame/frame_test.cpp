// The frame: the coded message's exact bytes, the splitter's statuses, the
// plain entry's records, the quiet error exit, and the frame's own catalogue
// messages (X04BBF) and the allocation failure every routine can report.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <new>
#include <string>

#include "frame/entry.hpp"
#include "frame/errors.hpp"
#include "frame/fail.hpp"
#include "gen/frame.hpp"
#include "lbx3207qk.h"
#include "tests/support/messages.hpp"

namespace {

using lbx::frame::P01ABTN;

std::string trimmed(const char (&f)[80])
{
    std::string s(f, 80);
    return s.substr(0, s.find_last_not_of(' ') + 1);
}

// A coded message written with '|' for the separator byte 1.
std::string coded(std::string text)
{
    std::replace(text.begin(), text.end(), '|', '\x01');
    return text;
}

// A 200-character buffer holding a coded message, filled with fill.
struct Buffer {
    char b[200];
    explicit Buffer(const std::string& text, char fill = ' ')
    {
        std::memset(b, fill, sizeof b);
        const std::string c = coded(text);
        std::memcpy(b, c.data(), std::min<std::size_t>(c.size(), 200));
    }
};

// Integers in 11, reals in 22 (three-digit exponents, NaN, infinities), text as
// is.
TEST(CodedMessage, WriterProducesExactFields)
{
    char buf[200];
    int ifail = 7;
    lbx::Fail fail(buf, ifail);
    EXPECT_EQ(buf[0], '\0');
    EXPECT_EQ(ifail, 0);
    fail(lbx::Message<9>{2, 99999}, -200.0, -170, 'd', std::string_view("ab"), 1.5,
         -1.7976931348623157e308, 2.2250738585072014e-308, __builtin_nan(""), -__builtin_inf());
    fail.finish();
    const std::string want = coded(
        "|    2|99999|    9|-2.000000000000000E+02|       -170|d|ab| "
        "1.500000000000000E+00|"
        "-1.797693134862316+308| 2.225073858507201-308|                   NaN|"
        "             -Infinity|");
    EXPECT_EQ(std::string(buf, want.size()), want);
    EXPECT_EQ(ifail, 2);
    EXPECT_EQ(std::string(buf + want.size(), 199 - want.size()),
              std::string(199 - want.size(), ' '));
    EXPECT_EQ(buf[199], '\0');
}

TEST(CodedMessage, SplitterStatuses)
{
    struct Case {
        const char* label;
        std::string text;
        char fill;
        int status, code;
    } cases[] = {
        {"well formed", "|    2|99999|    1|    -7|", ' ', 0, 99999},
        {"trailing NULs", "|    1|99998|    0|", '\0', 0, 99998},
        {"no leading separator", " |    1|99998|    0|", ' ', -1000, 0},
        {"last not a separator", "|    1|99998|    0|x", ' ', -1000, 0},
        {"separator alone", "|", ' ', -1000, 0},
        {"empty", "", ' ', -1000, 0},
        {"two fields", "|    1|99998|", ' ', -1000, 0},
        {"not a number", "|  one|99998|    0|", ' ', -1000, 0},
        {"count too small", "|    1|99998|    0|    5|", ' ', -1001, 99998},
        {"count too large", "|    1|99998|    3|    5|", ' ', -1001, 99998},
    };
    for (const Case& c : cases) {
        Buffer b(c.text, c.fill);
        int code = -5, status = 5;
        char fields[12][80];
        P01ABTN(b.b, code, fields, status);
        EXPECT_EQ(status, c.status) << c.label;
        EXPECT_EQ(code, c.code) << c.label;
    }
}

TEST(CodedMessage, SplitterKeepsTwelveFieldsOf80)
{
    std::string text = "|    1|99999|   10|";
    for (int k = 1; k <= 9; ++k)
        text += "   v" + std::to_string(k) + "|";
    text += std::string(100, 'x') + "|";
    Buffer b(text);
    int code = 0, status = 0;
    char fields[12][80];
    P01ABTN(b.b, code, fields, status);
    EXPECT_EQ(status, -1001);  // 13 fields, 12 kept, so the count of 10 disagrees
    EXPECT_EQ(trimmed(fields[0]), "1");
    EXPECT_EQ(trimmed(fields[3]), "v1");
    EXPECT_EQ(trimmed(fields[11]), "v9");
    Buffer longer("|    1|    1|    1|" + std::string(100, 'x') + "|");
    P01ABTN(longer.b, code, fields, status);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(trimmed(fields[3]), std::string(80, 'x'));
}

const char* const records_a[] = {" ** On entry, M1 = {1} and M2 = {2}.",
                                 " ** Constraint: M1 <= M2."};
const lbx::frame::MessageText table[] = {{1, 99997, records_a, 2}};

TEST(CodedMessage, RecordsQuoteValuesOrReportUnexpectedError)
{
    struct Case {
        int error;
        std::string text;
        int result;
        std::vector<std::string> records;
    } cases[] = {
        {1,
         "|    1|99997|    2|          5|    3|",
         1,
         {" ** On entry, M1 = 5 and M2 = 3.", " ** Constraint: M1 <= M2."}},
        {1, "|    1|12345|    0|", -99, {" ** Unexpected error (    1,12345)"}},
        {2, "|    1|99997|    2|    5|    3|", -99, {" ** Unexpected error (    2,99997)"}},
        {1, "garbage", -99, {" ** Unexpected error (    1,    0)"}},
    };
    for (const Case& c : cases) {
        Buffer b(c.text);
        char records[12][80];
        int n = 0;
        EXPECT_EQ(lbx::frame::format_records(c.error, b.b, table, records, n), c.result) << c.text;
        std::vector<std::string> got;
        for (int i = 0; i < n; ++i)
            got.push_back(trimmed(records[i]));
        EXPECT_EQ(got, c.records);
    }
}

// A plain entry whose caller asks for no records gets the same number from a
// quiet writer (which only checks the message) as from the full message: the
// error, or -99 when the pair is undefined or the values do not fit.
TEST(CodedMessage, QuietWriterAgreesWithTheFullMessage)
{
    struct Case {
        const char* label;
        int ifail, code;
        std::size_t text;  // characters of the text value
        int result;
    } cases[] = {
        {"defined", 1, 99997, 5, 1},
        {"undefined pair", 1, 12345, 5, -99},
        {"text fills the buffer", 1, 99997, 179 - 12 - 23, 1},
        {"text one too long", 1, 99997, 180 - 12 - 23, -99},
    };
    for (const Case& c : cases) {
        const std::string text(c.text, 'x');
        for (bool quiet : {true, false}) {
            char errbuf[200];
            int ifail = 0;
            const int caller = 1;
            lbx::Fail fail(errbuf, ifail, quiet ? &caller : nullptr);
            fail(lbx::Message<3>{c.ifail, c.code}, 7, 2.5, std::string_view(text));
            fail.finish();
            EXPECT_EQ(ifail, c.ifail);
            EXPECT_EQ(lbx::frame::plain_exit(1, ifail, errbuf, "M01CAF", table), c.result)
                << c.label << (quiet ? ", quiet" : ", full");
        }
    }
}

// The quiet modes return the number and write nothing; IFAIL = -1 writes the
// records and the soft-failure lines on the error unit.
TEST(ErrorExit, QuietModesWriteNothing)
{
    char records[1][80];
    std::memset(records, ' ', sizeof records);
    std::memcpy(records[0], " ** A record.", 13);
    const auto written = [] {
        std::ifstream in("fort.65");
        return std::string(std::istreambuf_iterator<char>(in), {});
    };
    std::remove("fort.65");
    int one = 1, unit = 65, six = 6;
    x04aaf_(&one, &unit);
    for (int ifail : {1, 2, -2, 100})
        EXPECT_EQ(lbx::frame::P01ABF(ifail, 3, "M01CAF", 1, records), 3) << ifail;
    EXPECT_EQ(lbx::frame::P01ABF(0, 0, "M01CAF", 0, nullptr), 0);
    EXPECT_EQ(written(), "");
    EXPECT_EQ(lbx::frame::P01ABF(-1, 3, "M01CAF", 1, records), 3);
    EXPECT_EQ(written(),
              " ** A record.\n ** ABNORMAL EXIT from TSL Library "
              "routine M01CAF: IFAIL =     3\n"
              " ** TSL soft failure - control returned\n");
    x04aaf_(&one, &six);
    std::remove("fort.65");
}

// X04BBF reads through the Fortran runtime: an empty preconnected file ends at
// once; a unit whose file is a folder cannot be read.
lbx::test::Raised read_unit(int unit, bool folder)
{
    const std::string name = "fort." + std::to_string(unit);
    if (folder)
        mkdir(name.c_str(), 0700);
    else
        std::ofstream(name).flush();
    char rec[8];
    const lbx::test::Raised r =
        lbx::test::traced([&](char* e, int* i) { x04bbft_(&unit, rec, e, i, 8, 200); });
    std::remove(name.c_str());
    return r;
}

TEST(FrameMessages, EveryCatalogueMessage)
{
    lbx::test::check_catalogue(
        lbx::frame::catalogue_messages,
        {
            {"X04BBF", "END_OF_FILE", [] { return read_unit(71, false); }},
            {"X04BBF", "READ_ERROR", [] { return read_unit(72, true); }, {"72"}},
        });
}

// Allocation failure is the frame's -999, code 99991, for every routine, here
// from a user function of C05AYF that throws; another exception is -99.
double throws_bad_alloc(const double*, int*, double*)
{
    throw std::bad_alloc();
}

TEST(FrameMessages, AllocationFailureAndOtherExceptions)
{
    const double a = 0, b = 1, eps = 1e-8, eta = 0;
    double x = 0, ruser[1];
    int iuser[1];
    const lbx::test::Raised r = lbx::test::traced([&](char* e, int* i) {
        c05ayft_(&a, &b, &eps, &eta, throws_bad_alloc, c05ayf_fh_, &x, iuser, ruser, e, i, 200);
    });
    EXPECT_EQ(r.ifail, -999);
    EXPECT_EQ(r.code, 99991);
    char buf[200];
    int ifail = 1;
    lbx::Fail fail(buf, ifail);
    try {
        throw 1;
    } catch (...) {
        fail.exception();
    }
    EXPECT_EQ(ifail, -99);
}

}  // namespace
