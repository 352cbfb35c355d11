// Coded messages and the error exit.
#pragma once

#include <string_view>

namespace lbx::frame {

inline constexpr int max_fields = 12;
inline constexpr int field_length = 80;
inline constexpr int record_length = 80;
inline constexpr int max_records = 12;

inline constexpr int status_ok = 0;
inline constexpr int status_malformed = -1000;
inline constexpr int status_inconsistent = -1001;

// Splits a coded message into at most 12 left-justified fields of 80
// characters.  status: 0, -1000 (malformed: no leading or trailing separator,
// fewer than 3 fields, a number that does not read) or -1001 (the count in
// field 3 disagrees with the number of fields).
void P01ABTN(const char* errbuf, int& code, char (&fields)[max_fields][field_length], int& status);

// The error exit.  Error number 0 returns 0 at once.  IFAIL on entry 0: write
// the records and the closing lines to the error unit and stop the process;
// -1: write them and return the error number; anything else: return it quietly.
int P01ABF(int ifail, int error, std::string_view srname, int nrecords,
           const char (*records)[record_length]);

}  // namespace lbx::frame
