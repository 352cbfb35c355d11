// Error exits of the F07/F08 own path: every case of linalg_error_exits.txt
// (written by tools/linalg_error_exits.py from the reference sources) calls a
// traced entry with one bad argument (two in a check-order case) while the
// reporter records, and expects the reported name and argument number, INFO =
// -number and untouched arrays.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <array>
#include <cctype>
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

struct Param {
    std::string name, value;
    char type =
        'i';  // i d z s c l a: integer, real, complex, single, single complex, logical, option
    bool array = false, output = false;  // output: a scalar without a value
};

struct Case {
    std::string text, chapter, standard;
    std::vector<Param> params;
    std::vector<std::pair<std::string, std::string>> changes;
    int expected = 0;
};

// CHAPTER STANDARD | NAME:TYPE[[]][=VALUE] ... | NAME=VALUE ... or - | EXPECTED
std::vector<Case> read_cases()
{
    std::ifstream in(std::string(LBX_TEST_DATA) + "/linalg_error_exits.txt");
    std::vector<Case> cases;
    for (std::string text; std::getline(in, text);) {
        if (text.empty() || text[0] == '#')
            continue;
        Case c;
        c.text = text;
        for (char& ch : text)
            ch = ch == '|' ? '\n' : ch;
        std::istringstream fields(text);
        std::string head, params, changes, expected, w;
        (void)(std::getline(fields, head) && std::getline(fields, params) &&
               std::getline(fields, changes) && std::getline(fields, expected));
        std::istringstream(head) >> c.chapter >> c.standard;
        for (std::istringstream ps(params); ps >> w;) {
            Param p;
            const auto colon = w.find(':'), eq = w.find('=');
            p.name = w.substr(0, colon);
            p.type = w.at(colon + 1);
            p.array = w.compare(colon + 2, 2, "[]") == 0;
            p.output = !p.array && eq == std::string::npos;
            if (eq != std::string::npos)
                p.value = w.substr(eq + 1);
            c.params.push_back(p);
        }
        for (std::istringstream cs(changes); cs >> w;)
            if (w != "-")
                c.changes.emplace_back(w.substr(0, w.find('=')), w.substr(w.find('=') + 1));
        c.expected = std::stoi(expected);
        cases.push_back(std::move(c));
    }
    EXPECT_GT(cases.size(), 1000U);
    return cases;
}

constexpr std::size_t array_elements = 4096;
constexpr std::int32_t integer_canary = -1'234'567'891;

std::size_t element_size(char type)
{
    return type == 'd' || type == 'c' ? 8 : type == 'z' ? 16 : type == 'a' ? 1 : 4;
}

// One buffer per argument: arrays of canaries (NaNs, a large negative
// integer, '?') for a bad call; for the valid call, which computes where a
// dimension is 1, zero reals and integers 1 (a valid pivot index).
struct Call {
    std::vector<std::vector<unsigned char>> data, fresh;
    int info_at = -1, options = 0;

    explicit Call(const Case& c)
    {
        for (const Param& p : c.params) {
            std::vector<unsigned char> buf(element_size(p.type) * (p.array ? array_elements : 1));
            const bool canary = c.expected != 0 || !p.array;
            const std::size_t step = std::min<std::size_t>(element_size(p.type), 8);
            for (std::size_t at = 0; at < buf.size(); at += step) {
                const std::uint64_t nan8 = 0x7ff8'dead'beef'0001ULL;
                const std::uint32_t nan4 = 0x7fc0'beefU;
                const std::int32_t i4 = canary ? integer_canary : 1;
                if (p.type == 'a')
                    buf[at] = canary ? '?' : 0;
                else if (!canary && p.type != 'i')
                    std::memset(&buf[at], 0, step);
                else if (step == 8)
                    std::memcpy(&buf[at], &nan8, 8);
                else
                    std::memcpy(&buf[at], p.type == 'i' || p.type == 'l' ? (const void*)&i4 : &nan4,
                                4);
            }
            if (!p.array && !p.output) {
                std::string v = p.value;
                for (const auto& [n, value] : c.changes)
                    v = n == p.name ? value : v;
                const std::int32_t i = p.type == 'l' ? v == "T" : p.type == 'i' ? std::stoi(v) : 0;
                const double d[2] = {p.type == 'd' || p.type == 'z' ? std::stod(v) : 0.0, 0.0};
                const float s[2] = {p.type == 's' || p.type == 'c' ? std::stof(v) : 0.0F, 0.0F};
                if (p.type == 'a')
                    buf[0] = static_cast<unsigned char>(v.at(0));
                else
                    std::memcpy(buf.data(),
                                p.type == 'd' || p.type == 'z'   ? (const void*)d
                                : p.type == 's' || p.type == 'c' ? (const void*)s
                                                                 : &i,
                                buf.size());
            }
            if (p.name == "INFO")
                info_at = static_cast<int>(data.size());
            options += p.type == 'a' && !p.array ? 1 : 0;
            data.push_back(std::move(buf));
        }
        fresh = data;
    }

    // INFO as returned, or the expected value for a routine without one.
    int info(const Case& c) const
    {
        std::int32_t v = -c.expected;
        if (info_at >= 0)
            std::memcpy(&v, data[info_at].data(), 4);
        return v;
    }

    // Arrays the routine wrote to, the first element of workspace excepted.
    std::string touched(const Case& c) const
    {
        std::string out;
        for (std::size_t i = 0; i < c.params.size(); ++i) {
            const std::string& name = c.params[i].name;
            const bool work = name.size() >= 4 && name.compare(name.size() - 4, 4, "WORK") == 0;
            const std::size_t from = work ? element_size(c.params[i].type) : 0;
            if (c.params[i].array &&
                std::memcmp(data[i].data() + from, fresh[i].data() + from, data[i].size() - from))
                out += " " + name;
        }
        return out;
    }
};

// The Fortran convention on x86-64: every visible argument an address, then
// one length per option; each one machine word.
using Word = std::uintptr_t;
template <std::size_t>
using word_t = Word;

template <std::size_t... I>
void call_words(void* f, const Word* w, std::index_sequence<I...> /*unused*/)
{
    reinterpret_cast<void (*)(word_t<I>...)>(f)(w[I]...);
}

template <std::size_t... N>
constexpr auto call_table(std::index_sequence<N...> /*unused*/)
{
    return std::array<void (*)(void*, const Word*), sizeof...(N)>{
        [](void* f, const Word* w) { call_words(f, w, std::make_index_sequence<N>{}); }...};
}

// The chapter routine's traced entry: CALL_VENDOR false, SORDER 1 first.
void run(void* f, Call& a)
{
    static constexpr auto table = call_table(std::make_index_sequence<65>{});
    static const std::int32_t call_vendor = 0, sorder = 1;
    std::vector<Word> w = {reinterpret_cast<Word>(&call_vendor), reinterpret_cast<Word>(&sorder)};
    for (auto& buf : a.data)
        w.push_back(reinterpret_cast<Word>(buf.data()));
    w.insert(w.end(), a.options, Word{1});
    ASSERT_LT(w.size(), table.size());
    table.at(w.size())(f, w.data());
}

std::string lower(std::string s)
{
    for (auto& ch : s)
        ch = static_cast<char>(std::tolower(static_cast<unsigned char>(ch)));
    return s;
}

TEST(ErrorExits, TracedEntriesReportTheTablesArgument)
{
    void* lib = dlopen(LBX_SHARED_LIBRARY, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(lib, nullptr) << dlerror();
    std::string failures;
    for (const Case& c : read_cases()) {
        void* f = dlsym(lib, (lower(c.chapter) + "t_").c_str());
        if (f == nullptr) {
            failures += "\n  " + c.text + ": no traced entry";
            continue;
        }
        Call a(c);
        char env[32];
        std::snprintf(env, sizeof env, "%6d%6d%6d%6d", 6, c.expected, 1, 0);
        setenv("TSLTESTING", "BLAS", 1);
        setenv("TSLTESTBLASENV", env, 1);
        setenv("TSLTESTBLASENVSRNAMT", c.chapter.c_str(), 1);
        run(f, a);
        int unit = 0, number = 0, pass = -1, called = -1;
        std::sscanf(std::getenv("TSLTESTBLASENV"), "%6d%6d%6d%6d", &unit, &number, &pass, &called);
        unsetenv("TSLTESTING");
        std::string wrong;
        if (pass != 1)
            wrong += " pass flag " + std::to_string(pass);
        if (called != (c.expected != 0 ? 1 : 0))
            wrong += " call flag " + std::to_string(called);
        // A valid call may still find a singular matrix (INFO > 0).
        if (c.expected != 0 ? a.info(c) != -c.expected : a.info(c) < 0)
            wrong += " INFO " + std::to_string(a.info(c));
        if (c.expected != 0 && !a.touched(c).empty())
            wrong += " wrote" + a.touched(c);
        if (!wrong.empty())
            failures += "\n  " + c.text + ":" + wrong;
    }
    EXPECT_TRUE(failures.empty()) << "failing cases:" << failures;
}

}  // namespace
