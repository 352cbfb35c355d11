// Catalogue messages raised by tests: every (routine, message id) row of a
// chapter's generated catalogue_messages has a trigger, a call that must
// raise it.  The error number and message code a trigger raises are compared
// with the catalogue row (split from ERRBUF by the frame's P01ABTN), the
// values quoted with the ones the trigger names.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "frame/errors.hpp"
#include "frame/fail.hpp"

namespace lbx::test {

struct Raised {
    int ifail = 0;
    int code = 0;
    std::vector<std::string> values;  // blank-stripped value fields
};

// The coded message in ERRBUF after a call that set IFAIL.
inline Raised split(const char* errbuf, int ifail)
{
    Raised r;
    r.ifail = ifail;
    if (ifail == 0)
        return r;
    int status = 0;
    char fields[frame::max_fields][frame::field_length];
    frame::P01ABTN(errbuf, r.code, fields, status);
    EXPECT_EQ(status, 0) << "malformed coded message";
    const int k = std::atoi(std::string(fields[2], frame::field_length).c_str());
    for (int i = 0; i < k && i + 3 < frame::max_fields; ++i) {
        std::string v(fields[3 + i], frame::field_length);
        v.erase(v.find_last_not_of(' ') + 1);
        r.values.push_back(v);
    }
    return r;
}

// A real as a value field quotes it (blank-stripped), to compare with Raised::values:
// Fortran's 1PE22.15, whose three-digit exponents go without the letter E.
inline std::string e(double v)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.15E", v);
    std::string s = std::isnan(v) ? "NaN" : text;
    if (const auto at = s.find('E'); at != std::string::npos && s.size() - at == 5)
        s.erase(at, 1);
    return s;
}

// Calls f(errbuf, &ifail) (a traced entry) and splits what it left.
template <class F>
Raised traced(F f)
{
    char errbuf[200];
    int ifail = 0;
    f(errbuf, &ifail);
    return split(errbuf, ifail);
}

// One call and the message it must raise; id "" is a call that must succeed.
// values, when given, are the value fields the message must quote.
struct Trigger {
    const char* routine;
    const char* id;
    std::function<Raised()> call;
    std::vector<std::string> values = {};
    const char* note = "";
};

// Every catalogue row needs a trigger; every trigger raises its row's pair.
inline void check_catalogue(std::span<const MessageRow> rows, const std::vector<Trigger>& triggers)
{
    for (const MessageRow& row : rows) {
        bool found = false;
        for (const Trigger& t : triggers)
            found = found || (std::string(t.routine) == row.routine && std::string(t.id) == row.id);
        EXPECT_TRUE(found) << "no trigger raises " << row.routine << " " << row.id;
    }
    for (const Trigger& t : triggers) {
        const std::string what = std::string(t.routine) + " " + t.id + " " + t.note;
        const MessageRow* row = nullptr;
        for (const MessageRow& r : rows)
            if (std::string(t.routine) == r.routine && std::string(t.id) == r.id)
                row = &r;
        const Raised got = t.call();
        if (*t.id == '\0') {
            EXPECT_EQ(got.ifail, 0) << what << " code " << got.code;
            continue;
        }
        if (row == nullptr) {
            ADD_FAILURE() << what << ": not a message of the catalogue";
            continue;
        }
        if (row->ranged)
            EXPECT_GE(got.ifail, row->ifail) << what;
        else
            EXPECT_EQ(got.ifail, row->ifail) << what;
        EXPECT_EQ(got.code, row->code) << what;
        if (!t.values.empty()) {
            EXPECT_EQ(got.values, t.values) << what;
        }
    }
}

}  // namespace lbx::test
