// A seeded randomized driver over every exported entry (the table is generated
// from the catalogues: gen/fuzz_entries.hpp).  Each call gets hostile scalars
// (NaN, infinities, signed zeros, subnormals, huge and negative values),
// random option bytes and character lengths, damaged generator states and
// communication arrays; every array and scalar lies between canaries (poisoned
// under AddressSanitizer).  A call passes when it ends within a second, writes
// nothing outside its arguments nor into its inputs, and returns a documented
// IFAIL (0 or one of the routine's catalogue error numbers, -999 among them)
// with, from a traced entry, a coded message of one of the routine's pairs.
// Half the calls draw their scalars from ordinary ranges instead, so that the
// searches and generators run past their checks.
// Reverse-communication routines (IND) are driven on to the end of their
// search, with a damaged C array now and then.
//
// The calls run in child processes, one per seed chunk, so a call that never
// ends or a hard failure (IFAIL = 0, a documented stop) ends only its chunk.
// Findings named in expected_findings.txt are counted but do not fail the run.
//
//   lbx_fuzz --seconds S [--seed N] [--fixed]   chunks N, N+1, ... for S seconds
//   lbx_fuzz --chunks K [--seed N]              K chunks (the test suite's run)
//   lbx_fuzz --seed N --chunks 1 --verbose      one chunk again, naming each call
#include <dirent.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cfloat>
#include <chrono>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <map>
#include <regex>
#include <span>
#include <string>
#include <thread>
#include <vector>

#include "frame/errors.hpp"
#include "lbx3207qk.h"

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/asan_interface.h>
#define LBX_POISON(p, n) ASAN_POISON_MEMORY_REGION(p, n)
#define LBX_UNPOISON(p, n) ASAN_UNPOISON_MEMORY_REGION(p, n)
#else
#define LBX_POISON(p, n) ((void)(p), (void)(n))
#define LBX_UNPOISON(p, n) ((void)(p), (void)(n))
#endif

namespace lbx::fuzz {

struct Pair {
    int ifail;
    int code;
    bool ranged = false;  // any error number from ifail up

    bool matches(int error) const { return error == ifail || (ranged && error > ifail); }
};

class Call;

struct Entry {
    const char* name;
    const char* routine;
    const char* layer;
    void (*thunk)(Call&);
    bool has_ifail;
    bool traced;
    bool reverse;
    std::span<const Pair> pairs;
};

struct Text {
    enum Kind { option, input, output };
    char* p;
    std::size_t len;
};

// ---------------------------------------------------------------- random values

class Rng {
public:
    explicit Rng(std::uint64_t seed) : s_(seed)
    {
        s_ = next() ^ 0x5DEECE66Dull;  // seeds next to each other give unrelated streams
    }
    std::uint64_t next()
    {
        std::uint64_t z = (s_ += 0x9E3779B97F4A7C15ull);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
        return z ^ (z >> 31);
    }
    long below(long n) { return static_cast<long>(next() % static_cast<std::uint64_t>(n)); }
    bool chance(int percent) { return below(100) < percent; }
    double uniform() { return (next() >> 11) * 0x1p-53; }

private:
    std::uint64_t s_;
};

double hostile_real(Rng& r)
{
    static const double special[] = {0.0,
                                     -0.0,
                                     1.0,
                                     -1.0,
                                     0.5,
                                     2.0,
                                     3.0,
                                     10.0,
                                     -10.0,
                                     1e-310,
                                     -1e-310,
                                     4.9e-324,
                                     DBL_MIN,
                                     DBL_MAX,
                                     -DBL_MAX,
                                     INFINITY,
                                     -INFINITY,
                                     NAN,
                                     -NAN,
                                     1e300,
                                     -1e300,
                                     DBL_EPSILON,
                                     1 - DBL_EPSILON / 2,
                                     1 + DBL_EPSILON,
                                     170.5,
                                     -170.5,
                                     171.7,
                                     -200.0,
                                     1e15,
                                     0.999999,
                                     1e-15,
                                     4.5,
                                     1e6};
    switch (r.below(4)) {
        case 0:
            return special[r.below(std::size(special))];
        case 1:
            return -20 + 40 * r.uniform();
        case 2: {
            const double m = std::pow(10.0, -320 + 628 * r.uniform());
            return r.chance(50) ? m : -m;
        }
        default:
            return static_cast<double>(r.below(41) - 20);
    }
}

int hostile_int(Rng& r)
{
    static const int special[] = {
        0,       1,           -1,          2,       3,          4,    5,      6,   7,
        8,       9,           10,          -2,      23,         99,   100,    633, INT_MAX,
        INT_MIN, INT_MAX - 1, INT_MIN + 1, 1 << 30, -(1 << 30), 1260, 1000000};
    switch (r.below(3)) {
        case 0:
            return special[r.below(std::size(special))];
        case 1:
            return static_cast<int>(r.below(40)) - 8;
        default:
            return static_cast<int>(static_cast<std::uint32_t>(r.next()));
    }
}

// A length or count: mostly small, sometimes long, never huge; now and then
// negative.
int hostile_size(Rng& r)
{
    const long k = r.below(100);
    if (k < 6)
        return static_cast<int>(std::array<int, 6>{INT_MIN, -1, -2, 0, 0, -100}[k]);
    if (k < 80)
        return static_cast<int>(r.below(65));
    if (k < 98)
        return static_cast<int>(r.below(1000));
    return static_cast<int>(r.below(5000));
}

// ---------------------------------------------------------------- the user's procedures

struct UserFunction {
    int family = 0;
    double root = 0, scale = 1;
};
UserFunction g_user;

double user_value(double x)
{
    const double d = x - g_user.root;
    switch (g_user.family) {
        case 0:
            return g_user.scale * d;
        case 1:
            return NAN;
        case 2:
            return d > 0 ? INFINITY : -INFINITY;
        case 3:
            return 1 / d;
        case 4: {
            std::uint64_t b;
            std::memcpy(&b, &x, 8);
            b = (b ^ (b >> 29)) * 0xBF58476D1CE4E5B9ull;
            return static_cast<double>(static_cast<std::int64_t>(b >> 11)) - 0x1p51;
        }
        case 5:
            return 0;
        case 6:
            return std::sin(g_user.scale * x);
        case 7:
            return d > 0 ? 1e-310 : -1e-310;
        case 8:
            return g_user.scale * d * d * d - 1e300;
        default:
            return std::isnan(x) ? 0.0 : std::exp(std::fabs(x)) * (d > 0 ? 1 : -1);
    }
}

// An INTEGER or LOGICAL result of the user's procedure: the hostile real value
// brought into the range of an int (NaN gives 0), since converting a value
// outside it is undefined.
int user_int(double x)
{
    const double v = user_value(x);
    if (!(v == v))
        return 0;
    return static_cast<int>(std::fmax(-2147483648.0, std::fmin(2147483647.0, v)));
}

// ---------------------------------------------------------------- arguments

constexpr std::size_t canary_bytes = 64;
constexpr unsigned char canary_byte = 0xA5;
constexpr long max_elements = 1L << 22;

struct Slot {
    std::string name;
    unsigned char* block = nullptr;
    std::size_t bytes = 0;
    bool in = false;
    std::vector<unsigned char> before;
    unsigned char* data() const { return block + canary_bytes; }
};

struct Finding {
    std::string kind, detail;
};

class Call {
public:
    Call(Rng& rng, const Entry& e, int ifail_mode)
        : rng_(rng), entry_(e), ifail_mode_(ifail_mode), ordinary_(rng.chance(50))
    {
    }
    ~Call()
    {
        for (Slot& s : slots_) {
            LBX_UNPOISON(s.block, s.bytes + 2 * canary_bytes);
            std::free(s.block);
        }
    }
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;

    template <class T>
    T* scalar(const char* name, bool in)
    {
        bool fresh = false;
        Slot& s = slot(name, sizeof(T), in, fresh);
        T* p = reinterpret_cast<T*>(s.data());
        if (fresh)
            *p = value<T>(name);
        return p;
    }

    template <class T>
    T* size(const char* name, bool in)
    {
        bool fresh = false;
        Slot& s = slot(name, sizeof(T), in, fresh);
        T* p = reinterpret_cast<T*>(s.data());
        if (fresh)
            *p = hostile_size(rng_);
        return p;
    }

    // A length computed in double from hostile sizes: beyond any array the
    // driver gives, so the call is skipped.
    long extent(double n, const char* routine, const char* arg)
    {
        return extent(n > 1e18 ? 1000000000000000000L : static_cast<long>(n), routine, arg);
    }

    long extent(long n, const char* routine, const char* arg)
    {
        if (n == -1) {  // "*": the length rules of the routine
            const std::string a = arg;
            n = a == "STATE" ? 2048 : (a == "IUSER" || a == "RUSER") ? 64 : 1024;
            (void)routine;
        }
        if (n < 0)
            return 0;
        if (n > max_elements) {
            skip_ = true;
            return 0;
        }
        return n;
    }

    template <class T>
    T* array(const char* name, long n, bool in)
    {
        bool fresh = false;
        Slot& s = slot(name, sizeof(T) * n, in, fresh);
        T* p = reinterpret_cast<T*>(s.data());
        if (fresh)
            fill(name, p, n);
        return p;
    }

    Text text(const char* name, Text::Kind kind, long declared, long count)
    {
        std::size_t len;
        if (kind == Text::option)
            len = rng_.chance(85) ? 1 : 1 + rng_.below(8);
        else if (kind == Text::output)
            len = declared > 0 ? declared + rng_.below(4) : rng_.below(121);
        else
            len = rng_.chance(10) ? 0 : rng_.below(rng_.chance(90) ? 90 : 400);
        bool fresh = false;
        Slot& s = slot(name, len * count, kind != Text::output, fresh);
        char* p = reinterpret_cast<char*>(s.data());
        if (fresh) {
            static const char options[] = "AaDdLlUuSsCcRrTtBbNnXxYyEeFfGgIi ";
            for (std::size_t i = 0; i < len * count; ++i) {
                if (kind == Text::output)
                    p[i] = 'Z';
                else if (kind == Text::option && i == 0 && rng_.chance(80))
                    p[i] = options[rng_.below(sizeof options - 1)];
                else if (rng_.chance(80))
                    p[i] = static_cast<char>(32 + rng_.below(95));
                else
                    p[i] = static_cast<char>(
                        std::array<int, 6>{0, 1, 127, 255, 10, 32}[rng_.below(6)]);
            }
        }
        return {p, len};
    }

    Text errbuf()
    {
        bool fresh = false;
        Slot& s = slot("ERRBUF", 200, false, fresh);
        char* p = reinterpret_cast<char*>(s.data());
        if (fresh)
            std::memset(p, '#', 200);
        static const std::size_t lengths[] = {200, 200, 200, 0, 1, 80, 1000};
        return {p, lengths[rng_.below(std::size(lengths))]};
    }

    int* ifail()
    {
        bool fresh = false;
        Slot& s = slot("IFAIL", sizeof(int), false, fresh);
        int* p = reinterpret_cast<int*>(s.data());
        *p = entry_.traced ? hostile_int(rng_) : ifail_mode_;
        return p;
    }

    template <class T>
    void result(T)
    {
    }

    bool enter();
    void leave();

    // After the call: the canaries, the inputs, IFAIL and ERRBUF.
    bool check(Finding& f);

    Slot* find(const char* name)
    {
        for (Slot& s : slots_)
            if (s.name == name)
                return &s;
        return nullptr;
    }
    bool skipped() const { return skip_; }

private:
    Slot& slot(const char* name, std::size_t bytes, bool in, bool& fresh)
    {
        if (Slot* s = find(name))
            return *s;
        fresh = true;
        Slot s;
        s.name = name;
        s.bytes = bytes;
        s.in = in;
        s.block = static_cast<unsigned char*>(std::malloc(bytes + 2 * canary_bytes));
        if (s.block == nullptr)
            std::abort();
        std::memset(s.block, canary_byte, canary_bytes);
        std::memset(s.block + canary_bytes + bytes, canary_byte, canary_bytes);
        slots_.push_back(std::move(s));
        return slots_.back();
    }

    template <class T>
    T value(const char* name)
    {
        const std::string n = name;
        if constexpr (std::is_floating_point_v<T>) {
            if (ordinary_)  // a value a search or a variate routine accepts, mostly
                return static_cast<T>(rng_.chance(70) ? -10 + 20 * rng_.uniform()
                                                      : std::pow(10.0, -12 + 12 * rng_.uniform()));
            return static_cast<T>(hostile_real(rng_));
        } else if constexpr (std::is_same_v<T, int>) {
            if (n == "IND" && rng_.chance(70))
                return 1;
            if (ordinary_)
                return static_cast<int>(rng_.below(5));
            return hostile_int(rng_);
        } else {
            using R = typename T::value_type;
            return T(static_cast<R>(hostile_real(rng_)), static_cast<R>(hostile_real(rng_)));
        }
    }

    template <class T>
    void fill(const char* name, T* p, long n)
    {
        const std::string a = name;
        if constexpr (std::is_same_v<T, int>) {
            if (a == "STATE" && n >= 1260) {
                fill_state(p, n);
                return;
            }
        }
        const bool plain = rng_.chance(50);  // one kind of value, or any
        const double base = hostile_real(rng_);
        for (long i = 0; i < n; ++i) {
            if constexpr (std::is_floating_point_v<T>)
                p[i] = static_cast<T>(plain ? base + i % 7 : hostile_real(rng_));
            else if constexpr (std::is_same_v<T, int>)
                p[i] = plain ? static_cast<int>(rng_.below(20)) : hostile_int(rng_);
            else
                p[i] = T(static_cast<typename T::value_type>(hostile_real(rng_)),
                         static_cast<typename T::value_type>(hostile_real(rng_)));
        }
    }

    // A generator state: a good one of a random generator, often damaged
    // after; or garbage.
    void fill_state(int* state, long n)
    {
        for (long i = 0; i < n; ++i)
            state[i] = hostile_int(rng_);
        if (rng_.chance(15))
            return;
        int genid = 1 + static_cast<int>(rng_.below(6)),
            subid = 1 + static_cast<int>(rng_.below(3));
        int seed[6], lseed = 1 + static_cast<int>(rng_.below(6)), lstate = static_cast<int>(n),
                     ifail = 1;
        for (int& s : seed)
            s = hostile_int(rng_);
        g05kff_(&genid, &subid, seed, &lseed, state, &lstate, &ifail);
        if (ifail != 0 || rng_.chance(35))
            return;
        const long used = std::clamp<long>(state[0], 1, n);
        for (long k = 1 + rng_.below(3); k > 0; --k) {
            const long at = rng_.chance(20) ? 0 : rng_.below(used + 2 > n ? n : used + 2);
            state[at] = rng_.chance(50) ? hostile_int(rng_) : state[at] ^ (1 << rng_.below(31));
        }
    }

    Rng& rng_;
    const Entry& entry_;
    int ifail_mode_;
    bool ordinary_;  // scalars from ordinary ranges this call, to get past the checks
    bool skip_ = false;
    std::vector<Slot> slots_;
};

}  // namespace lbx::fuzz

#include "gen/fuzz_entries.hpp"

namespace lbx::fuzz {

namespace {

constexpr int status_finding = 41;
constexpr int status_timeout = 42;
constexpr auto call_limit = std::chrono::seconds(1);
constexpr long max_steps = 20000;  // of one reverse-communication search
constexpr int null_unit = 97;      // connected to /dev/null in the work folder

// What a child leaves for the parent.
struct Shared {
    std::atomic<int> entry{-1};
    std::atomic<int> in_call{0};
    std::atomic<int> ifail_mode{0};
    std::atomic<long> call_index{0};
    std::atomic<long> calls{0};
    std::atomic<long> steps{0};
    std::atomic<long> reached[std::size(generated::entries)]{};
    char finding[1024];
};
Shared* g_shared = nullptr;
bool g_verbose = false;
std::atomic<std::int64_t> g_call_start{0};

std::int64_t now_ns()
{
    return std::chrono::duration_cast<std::chrono::nanoseconds>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

void report(int status, const std::string& kind, const std::string& detail)
{
    std::snprintf(g_shared->finding, sizeof g_shared->finding, "%s %s", kind.c_str(),
                  detail.c_str());
    std::fflush(stderr);
    _exit(status);
}

}  // namespace

bool Call::enter()
{
    if (skip_)
        return false;
    for (Slot& s : slots_) {
        if (g_verbose && s.bytes == sizeof(int))
            std::fprintf(stderr, "    %s = %d\n", s.name.c_str(),
                         *reinterpret_cast<int*>(s.data()));
        else if (g_verbose && s.bytes == sizeof(double))
            std::fprintf(stderr, "    %s = %.17g\n", s.name.c_str(),
                         *reinterpret_cast<double*>(s.data()));
        if (s.in)
            s.before.assign(s.data(), s.data() + s.bytes);
        LBX_POISON(s.block, canary_bytes);
        LBX_POISON(s.data() + s.bytes, canary_bytes);
    }
    g_shared->in_call.store(1);
    g_call_start.store(now_ns());
    return true;
}

void Call::leave()
{
    g_call_start.store(0);
    g_shared->in_call.store(0);
    for (Slot& s : slots_)
        LBX_UNPOISON(s.block, s.bytes + 2 * canary_bytes);
}

bool Call::check(Finding& f)
{
    for (Slot& s : slots_) {
        for (std::size_t i = 0; i < canary_bytes; ++i) {
            if (s.block[i] != canary_byte || s.data()[s.bytes + i] != canary_byte) {
                f = {"canary", "written next to " + s.name};
                return false;
            }
        }
        if (s.in && s.bytes != 0 && std::memcmp(s.before.data(), s.data(), s.bytes) != 0) {
            f = {"input", "input argument " + s.name + " changed"};
            return false;
        }
    }
    if (!entry_.has_ifail)
        return true;
    const int ifail = *reinterpret_cast<int*>(find("IFAIL")->data());
    bool documented = ifail == 0;
    for (const Pair& p : entry_.pairs)
        documented = documented || p.matches(ifail);
    if (!documented) {
        f = {"ifail", "IFAIL = " + std::to_string(ifail) + " is not documented"};
        return false;
    }
    if (!entry_.traced)
        return true;
    const char* errbuf = reinterpret_cast<const char*>(find("ERRBUF")->data());
    if (errbuf[199] != '\0' || (ifail == 0 && errbuf[0] != '\0')) {
        f = {"errbuf", "ERRBUF not marked as documented after IFAIL = " + std::to_string(ifail)};
        return false;
    }
    if (ifail == 0)
        return true;
    int code = 0, status = 0;
    char fields[frame::max_fields][frame::field_length];
    frame::P01ABTN(errbuf, code, fields, status);
    bool pair = false;
    for (const Pair& p : entry_.pairs)
        pair = pair || (p.matches(ifail) && p.code == code);
    if (status != 0 || !pair) {
        f = {"errbuf", "coded message (" + std::to_string(ifail) + ", " + std::to_string(code) +
                           ") status " + std::to_string(status) + " is not one of the routine's"};
        return false;
    }
    return true;
}

namespace {

const std::span<const Entry> g_entries(generated::entries);

void apply_settings(Rng& rng)
{
    int one = 1;
    int unit = rng.chance(75) ? null_unit : -1 - static_cast<int>(rng.below(3));
    x04aaf_(&one, &unit);
    unit = rng.chance(75) ? null_unit : -1;
    x04abf_(&one, &unit);
    static const int switches[] = {0, 0, 0, 0, 0, 0, 0, 1, 2, 3, -1};
    int itrace = switches[rng.below(std::size(switches))];
    y90gcft_(&itrace);
}

int ifail_mode(Rng& rng)
{
    const long k = rng.below(1000);
    return k < 450 ? 1 : k < 850 ? -1 : k < 997 ? hostile_int(rng) : 0;
}

// One entry called once, or a reverse-communication search driven to its end.
void run_call(Rng& rng, int index, bool verbose)
{
    const Entry& e = g_entries[index];
    g_shared->reached[index].fetch_add(1);
    const int mode = ifail_mode(rng);
    g_shared->entry.store(index);
    g_shared->ifail_mode.store(mode);
    g_user = {static_cast<int>(rng.below(10)), hostile_real(rng), 1 + rng.below(5)};
    if (!std::isfinite(g_user.root) || std::fabs(g_user.root) > 1e6)
        g_user.root = rng.uniform();
    Call call(rng, e, mode);
    for (long step = 0;; ++step) {
        apply_settings(rng);
        if (verbose)
            std::fprintf(stderr, "call %ld: %s step %ld\n", g_shared->calls.load(), e.name, step);
        e.thunk(call);
        if (call.skipped())
            return;
        Finding f;
        if (!call.check(f))
            report(status_finding, f.kind, e.name + std::string(": ") + f.detail);
        g_shared->steps.fetch_add(1);
        if (!e.reverse)
            return;
        Slot* ind = call.find("IND");
        Slot* ifail = call.find("IFAIL");
        if (*reinterpret_cast<int*>(ifail->data()) != 0 ||
            *reinterpret_cast<int*>(ind->data()) == 0)
            return;
        if (step == max_steps)
            report(status_finding, "nontermination",
                   e.name + std::string(": the search asks for more after ") +
                       std::to_string(max_steps) + " values");
        // The next value the search asked for, and now and then damage.
        if (Slot* fx = call.find("FX"); fx != nullptr) {
            const double x = *reinterpret_cast<double*>(call.find("X")->data());
            *reinterpret_cast<double*>(fx->data()) = user_value(x);
        }
        if (Slot* c = call.find("C"); c != nullptr && rng.chance(2)) {
            double* w = reinterpret_cast<double*>(c->data());
            w[rng.below(c->bytes / sizeof(double))] = hostile_real(rng);
        }
        if (rng.chance(1))
            *reinterpret_cast<int*>(ind->data()) = hostile_int(rng);
    }
}

void watchdog()
{
    for (;;) {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        const std::int64_t start = g_call_start.load();
        if (start != 0 && now_ns() - start > std::chrono::nanoseconds(call_limit).count()) {
            const int e = g_shared->entry.load();
            report(
                status_timeout, "timeout",
                std::string(e >= 0 ? g_entries[e].name : "?") + ": a call ran for over a second");
        }
    }
}

[[noreturn]] void child(std::uint64_t seed, long calls, bool verbose)
{
    std::thread(watchdog).detach();
    // The linear-algebra reporters return silently instead of stopping (a
    // bad argument of those routines is reported, never an error number).
    setenv("TSLTESTING", "FUZZ", 1);
    g_verbose = verbose;
    Rng rng(seed);
    for (long k = 0; k < calls; ++k) {
        g_shared->call_index.store(k);
        run_call(rng, static_cast<int>(rng.below(g_entries.size())), verbose);
        g_shared->calls.fetch_add(1);
    }
    g_shared->entry.store(-1);
    std::exit(0);  // leak detection runs at exit
}

// ---------------------------------------------------------------- the parent

struct Expected {
    std::regex routine;
    std::string kind, line;
};

std::vector<Expected> read_expected(const std::string& path)
{
    std::vector<Expected> list;
    std::ifstream in(path);
    for (std::string line; std::getline(in, line);) {
        const std::string text = line.substr(0, line.find('#'));
        char routine[64], kind[64];
        if (std::sscanf(text.c_str(), "%63s %63s", routine, kind) == 2)
            list.push_back({std::regex(routine), kind, line});
    }
    return list;
}

std::string tail(const std::string& path, int lines)
{
    std::ifstream in(path);
    std::vector<std::string> all;
    for (std::string l; std::getline(in, l);)
        all.push_back(l);
    std::string out;
    for (std::size_t i = all.size() > static_cast<std::size_t>(lines) ? all.size() - lines : 0;
         i < all.size(); ++i)
        out += "    " + all[i] + "\n";
    return out;
}

void remove_folder(const std::string& dir)
{
    if (DIR* d = opendir(dir.c_str())) {
        while (dirent* f = readdir(d)) {
            const std::string n = f->d_name;
            if (n != "." && n != "..")
                std::remove((dir + "/" + n).c_str());
        }
        closedir(d);
    }
    rmdir(dir.c_str());
}

int usage()
{
    std::fprintf(stderr,
                 "usage: lbx_fuzz (--seconds S | --chunks K) [--seed N] [--calls C] [--fixed] "
                 "[--verbose] [--expected FILE]\n");
    return 2;
}

}  // namespace

}  // namespace lbx::fuzz

int main(int argc, char** argv)
{
    using namespace lbx::fuzz;
    double seconds = 0;
    long chunks = 0, calls = 2000;
    std::uint64_t seed = 1;
    bool verbose = false;
    std::string expected_file = LBX_FUZZ_EXPECTED;
    for (int i = 1; i < argc; ++i) {
        const std::string a = argv[i];
        const char* v = i + 1 < argc ? argv[i + 1] : nullptr;
        if (a == "--seconds" && v)
            seconds = std::atof(argv[++i]);
        else if (a == "--chunks" && v)
            chunks = std::atol(argv[++i]);
        else if (a == "--seed" && v)
            seed = std::strtoull(argv[++i], nullptr, 10);
        else if (a == "--calls" && v)
            calls = std::atol(argv[++i]);
        else if (a == "--expected" && v)
            expected_file = argv[++i];
        else if (a == "--verbose")
            verbose = true;
        else if (a == "--fixed")
            ;  // seeds from --seed on, as always: the flag names CI's intent
        else
            return usage();
    }
    if (seconds <= 0 && chunks <= 0)
        return usage();
    const std::vector<Expected> expected = read_expected(expected_file);

    char folder[] = "/tmp/lbx_fuzz.XXXXXX";
    if (mkdtemp(folder) == nullptr)
        return 2;
    const std::string dir = folder, log = dir + "/child.log";
    if (symlink("/dev/null", (dir + "/fort." + std::to_string(null_unit)).c_str()) != 0)
        return 2;
    void* mem =
        mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (mem == MAP_FAILED)
        return 2;
    g_shared = new (mem) Shared;

    const auto t0 = std::chrono::steady_clock::now();
    auto elapsed = [&] {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
    };
    long total_calls = 0, total_steps = 0, done_chunks = 0, hard_stops = 0;
    std::map<std::string, long> expected_hits;
    std::vector<std::string> unexpected;
    std::vector<long> reached(g_entries.size());
    for (std::uint64_t s = seed;; ++s) {
        if (chunks > 0 ? done_chunks >= chunks : elapsed() >= seconds)
            break;
        new (g_shared) Shared;
        std::fflush(nullptr);
        const pid_t pid = fork();
        if (pid == 0) {
            if (chdir(dir.c_str()) != 0)
                _exit(2);
            const int null_fd = open("/dev/null", O_RDWR);
            const int log_fd = open(log.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
            dup2(null_fd, 0);
            dup2(null_fd, 1);
            dup2(log_fd, 2);
            child(s, calls, verbose);
        }
        int status = 0;
        waitpid(pid, &status, 0);
        ++done_chunks;
        total_calls += g_shared->calls.load();
        total_steps += g_shared->steps.load();
        for (std::size_t i = 0; i < reached.size(); ++i)
            reached[i] += g_shared->reached[i].load();
        const int e = g_shared->entry.load();
        const std::string name = e >= 0 ? g_entries[e].name : "";
        const std::string routine = e >= 0 ? g_entries[e].routine : "";
        std::string kind, detail;
        if (WIFEXITED(status) && WEXITSTATUS(status) == 0) {
            if (g_shared->in_call.load() == 0 && e < 0)
                continue;
            // A stop during a call: documented for a plain entry with IFAIL = 0.
            if (g_shared->in_call.load() != 0 && std::string(g_entries[e].layer) == "plain" &&
                g_shared->ifail_mode.load() == 0) {
                ++hard_stops;
                continue;
            }
            kind = "stop";
            detail = name + ": the process stopped";
        } else if (WIFEXITED(status) && (WEXITSTATUS(status) == status_finding ||
                                         WEXITSTATUS(status) == status_timeout)) {
            const std::string f = g_shared->finding;
            kind = f.substr(0, f.find(' '));
            detail = f.substr(f.find(' ') + 1);
        } else {
            kind = "crash";
            detail = name + ": " +
                     (WIFSIGNALED(status) ? "signal " + std::to_string(WTERMSIG(status))
                                          : "exit status " + std::to_string(WEXITSTATUS(status)));
        }
        const Expected* known = nullptr;
        for (const Expected& x : expected)
            if (x.kind == kind && std::regex_match(routine, x.routine))
                known = &x;
        if (known != nullptr) {
            ++expected_hits[known->line];
            continue;
        }
        const std::string repro = "lbx_fuzz --seed " + std::to_string(s) + " --chunks 1 --calls " +
                                  std::to_string(calls) + " --verbose";
        unexpected.push_back(kind + " " + detail + " (call " +
                             std::to_string(g_shared->call_index.load()) + " of seed " +
                             std::to_string(s) + "; again: " + repro + ")\n" + tail(log, 40));
    }
    remove_folder(dir);
    std::string unreached;
    for (std::size_t i = 0; i < reached.size(); ++i)
        if (reached[i] == 0)
            unreached += std::string(" ") + g_entries[i].name;
    // Every entry is reached in a run long enough to expect it.
    if (!unreached.empty() && total_calls >= 40 * static_cast<long>(reached.size()))
        unexpected.push_back("unreached entries:" + unreached);

    std::printf(
        "lbx_fuzz: %ld calls (%ld entry calls with the steps of reverse communication) in "
        "%ld chunks from seed %llu, %.1f s; %ld documented hard stops\n",
        total_calls, total_steps, done_chunks, static_cast<unsigned long long>(seed), elapsed(),
        hard_stops);
    for (const auto& [line, n] : expected_hits)
        std::printf("  expected finding, %ld times: %s\n", n, line.c_str());
    for (const std::string& u : unexpected)
        std::printf("FINDING %s\n", u.c_str());
    return unexpected.empty() ? 0 : 1;
}
