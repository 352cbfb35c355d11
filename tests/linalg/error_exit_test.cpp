// Error exits of the F07/F08 own path: every case of linalg_error_exits.txt
// (written by tools/linalg_error_exits.py from the reference sources) calls a
// traced entry with one bad argument while the reporter records, and expects
// the reported name and argument number, INFO = -number and untouched arrays.
// The same table called on the external library's routine checks the table.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <complex>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

// ------------------------------------------------------------------ the table

struct Param {
    std::string name;
    char type =
        'i';  // i d z s c l a: integer, real, complex, single, single complex, logical, option
    bool array = false;
    bool output = false;  // a scalar without a value in the valid call
    std::string value;
};

struct Case {
    int line = 0;
    std::string chapter;
    std::string standard;
    std::vector<Param> params;
    std::vector<std::pair<std::string, std::string>> changes;  // last: the bad argument
    int expected = 0;

    [[nodiscard]] std::string label() const
    {
        std::string s = chapter + "/" + standard + " (line " + std::to_string(line) + ")";
        for (const auto& [n, v] : changes) {
            s += " " + n + "=" + v;
        }
        return s;
    }
};

std::vector<std::string> split(const std::string& text, const std::string& sep)
{
    std::vector<std::string> out;
    std::size_t from = 0;
    for (std::size_t at; (at = text.find(sep, from)) != std::string::npos; from = at + sep.size()) {
        out.push_back(text.substr(from, at - from));
    }
    out.push_back(text.substr(from));
    return out;
}

std::vector<std::string> words(const std::string& text)
{
    std::istringstream in(text);
    std::vector<std::string> out;
    for (std::string w; in >> w;) {
        out.push_back(w);
    }
    return out;
}

std::vector<Case> read_cases()
{
    std::ifstream in(std::string(LBX_TEST_DATA) + "/linalg_error_exits.txt");
    std::vector<Case> cases;
    std::string text;
    for (int line = 1; std::getline(in, text); ++line) {
        if (text.empty() || text[0] == '#') {
            continue;
        }
        const auto fields = split(text, " | ");
        if (fields.size() != 4) {
            ADD_FAILURE() << "line " << line << ": four fields expected";
            continue;
        }
        Case c;
        c.line = line;
        const auto head = words(fields[0]);
        c.chapter = head.at(0);
        c.standard = head.at(1);
        for (const auto& w : words(fields[1])) {
            Param p;
            const auto colon = w.find(':');
            p.name = w.substr(0, colon);
            std::string rest = w.substr(colon + 1);
            p.type = rest.at(0);
            const auto eq = rest.find('=');
            p.array = rest.compare(1, 2, "[]") == 0;
            p.output = !p.array && eq == std::string::npos;
            if (eq != std::string::npos) {
                p.value = rest.substr(eq + 1);
            }
            c.params.push_back(p);
        }
        if (fields[2] != "-") {
            for (const auto& w : words(fields[2])) {
                const auto eq = w.find('=');
                c.changes.emplace_back(w.substr(0, eq), w.substr(eq + 1));
            }
        }
        c.expected = std::stoi(fields[3]);
        cases.push_back(std::move(c));
    }
    return cases;
}

// ------------------------------------------------- the arguments of one call

constexpr std::size_t array_elements = 4096;
constexpr std::uint64_t real_canary = 0x7ff8'dead'beef'0001ULL;  // a quiet NaN
constexpr std::uint32_t single_canary = 0x7fc0'beefU;            // a quiet NaN
constexpr std::int32_t integer_canary = -1'234'567'891;

std::size_t element_size(char type)
{
    switch (type) {
        case 'd':
            return 8;
        case 'z':
            return 16;
        case 'c':
            return 8;
        case 'a':
            return 1;
        default:  // i s l
            return 4;
    }
}

void fill_canary(char type, std::vector<unsigned char>& buf)
{
    const std::size_t step = type == 'a' ? 1 : (type == 'd' || type == 'z') ? 8 : 4;
    for (std::size_t at = 0; at + step <= buf.size(); at += step) {
        if (step == 8) {
            std::memcpy(&buf[at], &real_canary, 8);
        } else if (step == 1) {
            buf[at] = '?';
        } else if (type == 's' || type == 'c') {
            std::memcpy(&buf[at], &single_canary, 4);
        } else {
            std::memcpy(&buf[at], &integer_canary, 4);
        }
    }
}

// The arrays of a valid call, which computes where a dimension is 1: zero
// reals, and integers 1 (a valid pivot index).
void fill_valid(char type, std::vector<unsigned char>& buf)
{
    std::fill(buf.begin(), buf.end(), 0);
    if (type == 'i') {
        const std::int32_t one = 1;
        for (std::size_t at = 0; at + 4 <= buf.size(); at += 4) {
            std::memcpy(&buf[at], &one, 4);
        }
    }
}

void store(const Param& p, const std::string& value, std::vector<unsigned char>& buf)
{
    switch (p.type) {
        case 'i': {
            const std::int32_t v = std::stoi(value);
            std::memcpy(buf.data(), &v, 4);
            break;
        }
        case 'l': {
            const std::int32_t v = value == "T" ? 1 : 0;
            std::memcpy(buf.data(), &v, 4);
            break;
        }
        case 'd':
        case 'z': {
            const double v[2] = {std::stod(value), 0.0};
            std::memcpy(buf.data(), v, p.type == 'd' ? 8 : 16);
            break;
        }
        case 's':
        case 'c': {
            const float v[2] = {std::stof(value), 0.0F};
            std::memcpy(buf.data(), v, p.type == 's' ? 4 : 8);
            break;
        }
        case 'a':
            buf.at(0) = static_cast<unsigned char>(value.at(0));
            break;
        default:
            ADD_FAILURE() << p.name << ": unknown type " << p.type;
    }
}

struct Call {
    std::vector<std::vector<unsigned char>> data;   // one buffer per argument
    std::vector<std::vector<unsigned char>> fresh;  // the arrays as filled
    int info_at = -1;
    int options = 0;

    explicit Call(const Case& c)
    {
        for (std::size_t i = 0; i < c.params.size(); ++i) {
            const Param& p = c.params[i];
            std::vector<unsigned char> buf(element_size(p.type) * (p.array ? array_elements : 1));
            if (c.expected != 0 || !p.array) {
                fill_canary(p.type, buf);
            } else {
                fill_valid(p.type, buf);
            }
            if (!p.array && !p.output) {
                std::string value = p.value;
                for (const auto& [n, v] : c.changes) {
                    if (n == p.name) {
                        value = v;
                    }
                }
                store(p, value, buf);
            }
            if (p.name == "INFO") {
                info_at = static_cast<int>(i);
            }
            options += p.type == 'a' && !p.array ? 1 : 0;
            data.push_back(std::move(buf));
        }
        fresh = data;
    }

    // INFO as returned, or the expected value for a routine without one.
    [[nodiscard]] int info(const Case& c) const
    {
        std::int32_t v = -c.expected;
        if (info_at >= 0) {
            std::memcpy(&v, data[static_cast<std::size_t>(info_at)].data(), 4);
        }
        return v;
    }

    // Arrays the routine wrote to, the first element of workspace excepted.
    [[nodiscard]] std::string touched(const Case& c) const
    {
        std::string out;
        for (std::size_t i = 0; i < c.params.size(); ++i) {
            const Param& p = c.params[i];
            if (!p.array) {
                continue;
            }
            const bool workspace =
                p.name.size() >= 4 && p.name.compare(p.name.size() - 4, 4, "WORK") == 0;
            const std::size_t from = workspace ? element_size(p.type) : 0;
            if (std::memcmp(data[i].data() + from, fresh[i].data() + from, data[i].size() - from) !=
                0) {
                out += " " + p.name;
            }
        }
        return out;
    }
};

// ----------------------------------------------- a call by argument count

// The Fortran convention on x86-64: every visible argument an address, then one
// std::size_t per character argument; all of them are one machine word.
using Word = std::uintptr_t;
template <std::size_t>
using word_t = Word;
constexpr std::size_t max_words = 64;

template <std::size_t... I>
void call_words(void* f, const Word* w, std::index_sequence<I...> /*unused*/)
{
    using Fn = void (*)(word_t<I>...);
    reinterpret_cast<Fn>(f)(w[I]...);
}

template <std::size_t N>
void call_n(void* f, const Word* w)
{
    call_words(f, w, std::make_index_sequence<N>{});
}

template <std::size_t... N>
constexpr auto call_table(std::index_sequence<N...> /*unused*/)
{
    return std::array<void (*)(void*, const Word*), sizeof...(N)>{&call_n<N>...};
}

void call(void* f, const std::vector<Word>& w)
{
    static constexpr auto table = call_table(std::make_index_sequence<max_words + 1>{});
    ASSERT_LE(w.size(), max_words);
    table.at(w.size())(f, w.data());
}

// `traced`: the chapter routine's traced entry (CALL_VENDOR, SORDER first);
// otherwise the standard routine itself.
void run(void* f, Call& a, bool traced)
{
    static const std::int32_t call_vendor = 0;
    static const std::int32_t sorder = 1;
    std::vector<Word> w;
    if (traced) {
        w.push_back(reinterpret_cast<Word>(&call_vendor));
        w.push_back(reinterpret_cast<Word>(&sorder));
    }
    for (auto& buf : a.data) {
        w.push_back(reinterpret_cast<Word>(buf.data()));
    }
    for (int i = 0; i < a.options; ++i) {
        w.push_back(Word{1});
    }
    call(f, w);
}

std::string lower(std::string s)
{
    for (auto& ch : s) {
        ch = static_cast<char>(std::tolower(static_cast<unsigned char>(ch)));
    }
    return s;
}

// -------------------------------------------------------- the recording mode

constexpr int record_unit = 6;

void record(const Case& c)
{
    char env[32];
    std::snprintf(env, sizeof env, "%6d%6d%6d%6d", record_unit, c.expected, 1, 0);
    ::setenv("TSLTESTING", "BLAS", 1);
    ::setenv("TSLTESTBLASENV", env, 1);
    ::setenv("TSLTESTBLASENVSRNAMT", c.chapter.c_str(), 1);
}

// Pass flag and call flag as the reporter left them.
std::pair<int, int> recorded()
{
    const char* env = std::getenv("TSLTESTBLASENV");
    int unit = 0;
    int number = 0;
    int pass = -1;
    int called = -1;
    if (env == nullptr || std::sscanf(env, "%6d%6d%6d%6d", &unit, &number, &pass, &called) != 4) {
        return {-1, -1};
    }
    return {pass, called};
}

void stop_recording()
{
    ::unsetenv("TSLTESTING");
    ::unsetenv("TSLTESTBLASENV");
    ::unsetenv("TSLTESTBLASENVSRNAMT");
}

// Every case of one chapter through the library's traced entries; one failure
// lists every case that went wrong.
void check_chapter(const std::string& chapter)
{
    void* lib = dlopen(LBX_SHARED_LIBRARY, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(lib, nullptr) << dlerror();
    std::string failures;
    int count = 0;
    for (const Case& c : read_cases()) {
        if (c.chapter.compare(0, chapter.size(), chapter) != 0) {
            continue;
        }
        ++count;
        void* f = dlsym(lib, (lower(c.chapter) + "t_").c_str());
        if (f == nullptr) {
            failures += "\n  " + c.label() + ": no traced entry";
            continue;
        }
        Call a(c);
        record(c);
        run(f, a, true);
        const auto [pass, called] = recorded();
        stop_recording();
        std::string wrong;
        if (pass != 1) {
            wrong += " pass flag " + std::to_string(pass);
        }
        if (called != (c.expected != 0 ? 1 : 0)) {
            wrong += " call flag " + std::to_string(called);
        }
        // A valid call may still find a singular matrix (INFO > 0).
        if (c.expected != 0 ? a.info(c) != -c.expected : a.info(c) < 0) {
            wrong += " INFO " + std::to_string(a.info(c));
        }
        if (c.expected != 0) {
            const auto t = a.touched(c);
            if (!t.empty()) {
                wrong += " wrote" + t;
            }
        }
        if (!wrong.empty()) {
            failures +=
                "\n  " + c.label() + ": expected " + std::to_string(c.expected) + "," + wrong;
        }
    }
    EXPECT_GT(count, 0) << "no cases of " << chapter;
    EXPECT_TRUE(failures.empty()) << "failing cases:" << failures;
}

TEST(ErrorExits, F07)
{
    check_chapter("F07");
}

TEST(ErrorExits, F08)
{
    check_chapter("F08");
}

// The table itself against the external library's standard routines: each
// bad argument makes INFO the expected negative number there too (its
// reporter prints a line per case).
TEST(ErrorExits, TableAgreesWithExternalLibrary)
{
    void* lib = dlopen(LBX_PEER_LIBRARY, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(lib, nullptr) << dlerror();
    std::string failures;
    for (const Case& c : read_cases()) {
        void* f = dlsym(lib, (lower(c.standard) + "_").c_str());
        if (f == nullptr) {
            failures += "\n  " + c.label() + ": not in the external library";
            continue;
        }
        Call a(c);
        run(f, a, false);
        // Some of its routines report without storing INFO.
        const bool agrees = c.expected != 0 ? a.info(c) == -c.expected : a.info(c) >= 0;
        if (!agrees && a.info(c) != integer_canary) {
            failures += "\n  " + c.label() + ": expected " + std::to_string(c.expected) +
                        ", INFO " + std::to_string(a.info(c));
        }
    }
    EXPECT_TRUE(failures.empty()) << "cases the external library reports otherwise:" << failures;
}

}  // namespace
