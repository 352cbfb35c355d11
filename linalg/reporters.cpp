// The illegal-argument reporters of the linear-algebra routines (F06AAZN, and
// F16AAZN for the F16 routines) and their environment access (F06AAUN reads a
// variable, F06AATN sets one).
//
// The reporters have three modes, chosen by the environment variable
// TSLTESTING (its first 100 characters):
//
//   blank or unset  normal: the record(s) on unit 6, then the process stops.
//                   A routine named "CHECKED" or "checked" stops at once,
//                   writing nothing (a caller that has already reported).
//   "BLAS..."       recording, for test programs that provoke illegal
//                   arguments on purpose.  TSLTESTBLASENV holds four I6
//                   fields: the output unit, the expected argument number, a
//                   pass flag (1 while every report was the expected one) and
//                   a call flag; TSLTESTBLASENVSRNAMT the expected routine name
//                   (6 characters).  A report that differs writes a record on
//                   the output unit and clears the pass flag; every report sets
//                   the call flag and rewrites TSLTESTBLASENV; control returns.
//   anything else   the reporters return at once, writing nothing.
//
// The expected name is compared with both halves of a pairing name split at
// its last "/" ("F07AJF/DGETRI": "F07AJF" and "DGETRI"), so a test may expect
// either; a name without such a "/" is compared whole.  Names compare as
// Fortran compares character values: the shorter padded with blanks.
//
// F16AAZN's records: for INFO < 0 (argument -INFO is illegal) the name with
// its trailing blanks dropped, -INFO in I3 and the value VAL right-justified
// in 12 characters (as list-directed output writes a default integer); for
// INFO >= 0 (an internal error, whatever the mode) one record on unit 6 and
// control returns.  In recording mode it compares -INFO with the expected
// number and its records name F16AAZN.
//
// Records go through the frame's unit writer (one block per report, written
// as X04BAF writes), the stop is the frame's (a Fortran STOP).  The environment is read and written
// with getenv/setenv: not safe against another thread setting variables at once.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <string_view>

#include "frame/units.hpp"
#include "gen/linalg.hpp"

namespace lbx::linalg {

namespace {

constexpr int output_unit = 6;

// One record under construction; text beyond its capacity is dropped.
class Record {
public:
    Record& text(std::string_view s)
    {
        const std::size_t n = std::min(s.size(), sizeof buf_ - len_);
        std::copy_n(s.data(), n, buf_ + len_);
        len_ += n;
        return *this;
    }
    // Fortran Iw: right-justified in w characters, w asterisks when it does
    // not fit.
    Record& integer(long v, int w)
    {
        char field[32];
        int n = std::snprintf(field, sizeof field, "%*ld", w, v);
        if (n > w) {
            std::memset(field, '*', static_cast<std::size_t>(w));
            n = w;
        }
        return text({field, static_cast<std::size_t>(n)});
    }
    std::string_view view() const { return {buf_, len_}; }

private:
    char buf_[400];
    std::size_t len_ = 0;
};

// The records as one block on unit (X04BAF's writing, one WRITE statement).
// A function called inside the caller's own output statement on that unit
// cannot write there until the statement ends: before a stop the records
// then go to standard error, otherwise they follow when the unit is free.
void write(int unit, std::initializer_list<const Record*> records, bool stopping = false)
{
    lbx::frame::RecordBlock block;
    for (const Record* r : records)
        block.add(r->view());
    if (!lbx::frame::write_block(unit, block) && stopping)
        block.write_to_stderr();
}

std::string_view trim_right(std::string_view s)
{
    const std::size_t end = s.find_last_not_of(' ');
    return end == std::string_view::npos ? std::string_view{} : s.substr(0, end + 1);
}

// Equality of two character values, the shorter padded with blanks.
bool fortran_equal(std::string_view a, std::string_view b)
{
    return trim_right(a) == trim_right(b);
}

// The first `length` characters of an environment variable, blank-filled.
template <std::size_t length>
struct EnvValue {
    char text[length];
    explicit EnvValue(const char* name) { F06AAUN(name, std::span<char>(text, length)); }
    std::string_view view() const { return {text, length}; }
};

enum class Mode { normal, recording, silent };

Mode reporting_mode()
{
    const EnvValue<100> testing("TSLTESTING");
    const std::string_view t = testing.view();
    if (t.find_first_not_of(' ') == std::string_view::npos)
        return Mode::normal;
    return t.substr(0, 4) == "BLAS" ? Mode::recording : Mode::silent;
}

// Fortran I6 input of one field: blanks are ignored, an empty field is zero.
// A field that is not a number reads as zero.
int read_i6(std::string_view field)
{
    long v = 0;
    int sign = 1;
    bool digits = false;
    for (char c : field) {
        if (c == ' ')
            continue;
        if ((c == '-' || c == '+') && !digits && sign == 1 && v == 0) {
            sign = c == '-' ? -1 : 1;
        } else if (c >= '0' && c <= '9') {
            v = v * 10 + (c - '0');
            digits = true;
        } else {
            return 0;
        }
    }
    return static_cast<int>(sign * v);
}

// Recording mode: compares the report with the expected one, writes the
// mismatch records and rewrites TSLTESTBLASENV.
void record_report(std::string_view reporter, std::string_view srname, long info)
{
    const EnvValue<100> env("TSLTESTBLASENV");
    const EnvValue<6> expected_name("TSLTESTBLASENVSRNAMT");
    int fields[4];
    for (int i = 0; i < 4; ++i)
        fields[i] = read_i6(env.view().substr(6 * i, 6));
    const int unit = fields[0];
    const int expected = fields[1];
    int& pass = fields[2];
    int& called = fields[3];

    std::string_view chapter_part = srname, standard_part = srname;
    const std::size_t slash = srname.rfind('/');
    if (slash != std::string_view::npos && slash >= 1 && slash + 1 < srname.size()) {
        chapter_part = srname.substr(0, std::min<std::size_t>(slash, 13));
        standard_part = srname.substr(slash + 1, 13);
    }

    if (info != expected) {
        Record rec;
        rec.text(" ******* ").text(reporter).text(" WAS CALLED WITH INFO = ").integer(info, 6);
        if (expected != 0)
            rec.text(" INSTEAD OF ").integer(expected, 2);
        rec.text(" *******");
        write(unit, {&rec});
        pass = 0;
    }
    if (!fortran_equal(chapter_part, expected_name.view()) &&
        !fortran_equal(standard_part, expected_name.view())) {
        Record rec;
        rec.text(" ******* ").text(reporter).text(" WAS CALLED WITH ROUTINE_NAME = ").text(srname);
        rec.text(" INSTEAD OF ").text(expected_name.view()).text(" *******");
        write(unit, {&rec});
        pass = 0;
    }
    called = 1;
    Record out;
    for (int f : fields)
        out.integer(f, 6);
    const std::string_view v = out.view();
    F06AATN("TSLTESTBLASENV", v);
}

bool checked(std::string_view srname)
{
    return fortran_equal(srname, "CHECKED") || fortran_equal(srname, "checked");
}

}  // namespace

void F06AAZN(std::string_view srname, int info)
{
    switch (reporting_mode()) {
        case Mode::silent:
            return;
        case Mode::recording:
            record_report("F06AAZN", srname, info);
            return;
        case Mode::normal:
            break;
    }
    if (!checked(srname)) {
        Record rec;
        rec.text(" ** On entry to ").text(srname).text(" parameter number ").integer(info, 2);
        rec.text(" had an illegal value");
        write(output_unit, {&rec}, true);
    }
    lbx::frame::stop_process();
}

void F16AAZN(std::string_view srname, int info, int val)
{
    const std::string_view name = trim_right(srname);
    if (info >= 0) {
        Record rec;
        if (info == 999)
            rec.text(" ** Internal memory allocation failed in routine ").text(name);
        else
            rec.text(" ** Unknown error code")
                .integer(info, 5)
                .text(" raised by routine ")
                .text(name);
        write(output_unit, {&rec});
        return;
    }
    const long argument = -static_cast<long>(info);
    switch (reporting_mode()) {
        case Mode::silent:
            return;
        case Mode::recording:
            record_report("F16AAZN", srname, argument);
            return;
        case Mode::normal:
            break;
    }
    if (!checked(srname)) {
        Record first, second;
        first.text(" ** On entry to ").text(name).text(", parameter number").integer(argument, 3);
        second.text(" ** had the illegal value of").integer(val, 12);
        write(output_unit, {&first, &second}, true);
    }
    lbx::frame::stop_process();
}

void F06AAUN(std::string_view name, std::span<char> value)
{
    std::memset(value.data(), ' ', value.size());
    const std::string_view n = trim_right(name);
    char cname[256];
    if (n.empty() || n.size() >= sizeof cname)
        return;
    std::copy_n(n.data(), n.size(), cname);
    cname[n.size()] = '\0';
    const char* v = std::getenv(cname);
    if (v == nullptr)
        return;
    std::memcpy(value.data(), v, std::min(std::strlen(v), value.size()));
}

void F06AATN(std::string_view name, std::string_view value)
{
    const std::string_view n = trim_right(name);
    const std::string_view v = trim_right(value);
    char cname[256], cvalue[1024];
    if (n.empty() || n.size() >= sizeof cname || v.size() >= sizeof cvalue)
        return;
    std::copy_n(n.data(), n.size(), cname);
    cname[n.size()] = '\0';
    std::copy_n(v.data(), v.size(), cvalue);
    cvalue[v.size()] = '\0';
#ifdef _WIN32
    _putenv_s(cname, cvalue);
#else
    setenv(cname, cvalue, 1);
#endif
}

}  // namespace lbx::linalg
