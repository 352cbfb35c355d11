// Coded messages: the writer's exact bytes, the splitter's statuses, and the
// plain entry's records.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "frame/entry.hpp"
#include "frame/errors.hpp"
#include "frame/fail.hpp"

namespace {

using lbx::frame::P01ABTN;

std::string field_text(const char (&f)[80])
{
    std::string s(f, 80);
    return s.substr(0, s.find_last_not_of(' ') + 1);
}

// A 200-character buffer holding text, blank-filled.
struct Buffer {
    char b[200];
    explicit Buffer(const std::string& text, char fill = ' ')
    {
        std::memset(b, fill, sizeof b);
        std::memcpy(b, text.data(), std::min<std::size_t>(text.size(), 200));
    }
};

TEST(CodedMessage, WriterProducesExactFields)
{
    char buf[200];
    int ifail = 7;
    lbx::Fail fail(buf, ifail);
    EXPECT_EQ(buf[0], '\0');
    EXPECT_EQ(ifail, 0);
    constexpr lbx::Message<4> m{2, 99999};
    fail(m, -200.0, -170, 'd', std::string_view("ab"));
    fail.finish();
    const std::string want =
        "\x01    2\x01"
        "99999\x01    4\x01"
        "-2.000000000000000E+02\x01"
        "       -170\x01"
        "d\x01"
        "ab\x01";
    EXPECT_EQ(std::string(buf, want.size()), want);
    EXPECT_EQ(ifail, 2);
    for (std::size_t i = want.size(); i < 199; ++i)
        ASSERT_EQ(buf[i], ' ') << i;
    EXPECT_EQ(buf[199], '\0');
}

TEST(CodedMessage, RealFieldsKeepTheirWidth)
{
    struct Case {
        double v;
        const char* text;
    } cases[] = {
        {1.5, " 1.500000000000000E+00"},
        {-1.7976931348623157e308, "-1.79769313486232E+308"},
        {2.2250738585072014e-308, " 2.225073858507201E-308"},
        {__builtin_nan(""), "                   NaN"},
        {-__builtin_inf(), "             -Infinity"},
    };
    for (const Case& c : cases) {
        char buf[200];
        int ifail = 0;
        lbx::Fail fail(buf, ifail);
        fail(lbx::Message<1>{1, 1}, c.v);
        std::string f(buf + 19, 23);
        f = f.substr(0, f.find('\x01'));
        EXPECT_EQ(f.size(), 22u) << c.text;
        EXPECT_EQ(f, std::string(c.text).substr(std::string(c.text).size() - 22)) << c.v;
    }
}

TEST(CodedMessage, SplitterStatuses)
{
    struct Case {
        const char* label;
        std::string text;
        char fill;
        int status;
        int code;
    } cases[] = {
        {"well formed",
         "\x01    2\x01"
         "99999\x01    1\x01    -7\x01",
         ' ', 0, 99999},
        {"trailing NULs ignored",
         "\x01    1\x01"
         "99998\x01    0\x01",
         '\0', 0, 99998},
        {"no leading separator",
         " \x01    1\x01"
         "99998\x01    0\x01",
         ' ', -1000, 0},
        {"last character not a separator",
         "\x01    1\x01"
         "99998\x01    0\x01x",
         ' ', -1000, 0},
        {"separator alone", "\x01", ' ', -1000, 0},
        {"empty buffer", "", ' ', -1000, 0},
        {"two fields",
         "\x01    1\x01"
         "99998\x01",
         ' ', -1000, 0},
        {"field 1 not a number",
         "\x01  one\x01"
         "99998\x01    0\x01",
         ' ', -1000, 0},
        {"count too small",
         "\x01    1\x01"
         "99998\x01    0\x01    5\x01",
         ' ', -1001, 99998},
        {"count too large",
         "\x01    1\x01"
         "99998\x01    3\x01    5\x01",
         ' ', -1001, 99998},
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

TEST(CodedMessage, SplitterKeepsTwelveFieldsLeftJustified)
{
    std::string text =
        "\x01    1\x01"
        "99999\x01   10\x01";
    for (int k = 1; k <= 10; ++k)
        text += "   v" + std::to_string(k) + "\x01";
    Buffer b(text);
    int code = 0, status = 0;
    char fields[12][80];
    P01ABTN(b.b, code, fields, status);
    EXPECT_EQ(status, -1001);  // 13 fields, 12 kept, so the count of 10 disagrees
    EXPECT_EQ(field_text(fields[0]), "1");
    EXPECT_EQ(field_text(fields[3]), "v1");
    EXPECT_EQ(field_text(fields[11]), "v9");
}

TEST(CodedMessage, SplitterCutsLongFieldsAt80)
{
    std::string text =
        "\x01    1\x01"
        "1\x01 1\x01" +
        std::string(100, 'x') + "\x01";
    Buffer b(text);
    int code = 0, status = 0;
    char fields[12][80];
    P01ABTN(b.b, code, fields, status);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(field_text(fields[3]), std::string(80, 'x'));
}

const char* const records_a[] = {" ** On entry, M1 = {1} and M2 = {2}.",
                                 " ** Constraint: M1 <= M2."};
const lbx::frame::MessageText table[] = {{1, 99997, records_a, 2}};

TEST(CodedMessage, RecordsQuoteStrippedValues)
{
    char buf[200];
    int ifail = 0;
    lbx::Fail fail(buf, ifail);
    fail(lbx::Message<2>{1, 99997}, 5, 3);
    char records[12][80];
    int n = 0;
    EXPECT_EQ(lbx::frame::format_records(1, buf, table, records, n), 1);
    ASSERT_EQ(n, 2);
    EXPECT_EQ(field_text(records[0]), " ** On entry, M1 = 5 and M2 = 3.");
    EXPECT_EQ(field_text(records[1]), " ** Constraint: M1 <= M2.");
}

TEST(CodedMessage, UnknownPairOrMalformedMessageIsUnexpectedError)
{
    struct Case {
        int error;
        std::string text;
        const char* record;
    } cases[] = {
        {1,
         "\x01    1\x01"
         "12345\x01    0\x01",
         " ** Unexpected error (    1,12345)"},
        {2,
         "\x01    1\x01"
         "99997\x01    2\x01    5\x01    3\x01",
         " ** Unexpected error (    2,99997)"},
        {1, "garbage", " ** Unexpected error (    1,    0)"},
    };
    for (const Case& c : cases) {
        Buffer b(c.text);
        char records[12][80];
        int n = 0;
        EXPECT_EQ(lbx::frame::format_records(c.error, b.b, table, records, n), -99);
        EXPECT_EQ(n, 1);
        EXPECT_EQ(field_text(records[0]), c.record);
    }
}

TEST(ErrorExit, QuietModesReturnTheNumber)
{
    const char records[1][80] = {};
    for (int ifail : {1, 2, -2, 100})
        EXPECT_EQ(lbx::frame::P01ABF(ifail, 3, "M01CAF", 1, records), 3) << ifail;
    EXPECT_EQ(lbx::frame::P01ABF(0, 0, "M01CAF", 0, nullptr), 0);
}

}  // namespace
