// The transform stage over FFTW3: see plans.hpp.
#include "fft/plans.hpp"

#include <fftw3.h>

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <map>
#include <memory>
#include <mutex>

namespace lbx::fft {

namespace {

// FFTW's planner (plan creation and destruction) is not thread-safe: every
// call of it is made under this lock.
std::mutex& planner_lock()
{
    static std::mutex m;
    return m;
}

struct PlanDeleter {
    void operator()(fftw_plan_s* p) const noexcept
    {
        std::lock_guard<std::mutex> hold(planner_lock());
        fftw_destroy_plan(p);
    }
};
using Plan = std::shared_ptr<fftw_plan_s>;

struct Entry {
    Plan plan;
    bool measured = false;
};

std::atomic<bool> planner_fails{false};

// Planning time a measured plan may take, seconds.
constexpr double measure_seconds = 4.0;

// Plans by key; at most max_plans, then the cache starts afresh.
constexpr std::size_t max_plans = 256;

struct Cache {
    std::mutex lock;
    std::map<std::vector<int>, Entry> plans;
};

Cache& cache()
{
    static Cache* c = new Cache;  // never destroyed: threads may outlive static destruction
    return *c;
}

std::vector<int> key_of(const Problem& p, bool in_place, int align_in, int align_out)
{
    std::vector<int> k;
    k.reserve(6 + 3 * (p.dims.size() + p.loops.size()));
    k.push_back(static_cast<int>(p.kind));
    k.push_back(p.kind == Kind::c2c ? p.sign : 0);
    k.push_back(in_place ? 1 : 0);
    k.push_back(align_in);
    k.push_back(align_out);
    k.push_back(static_cast<int>(p.dims.size()));
    for (const Dim& d : p.dims)
        k.insert(k.end(), {d.n, d.is, d.os});
    for (const Dim& d : p.loops)
        k.insert(k.end(), {d.n, d.is, d.os});
    return k;
}

// Elements spanned by an array with these lengths and strides.
std::size_t extent(const std::vector<int>& n, const std::vector<int>& stride)
{
    std::size_t e = 1;
    for (std::size_t i = 0; i < n.size(); ++i)
        e += static_cast<std::size_t>(n[i] - 1) * static_cast<std::size_t>(std::abs(stride[i]));
    return e;
}

// Bytes of the input and the output array of a problem.
void array_bytes(const Problem& p, std::size_t& in_bytes, std::size_t& out_bytes)
{
    std::vector<int> n_in, s_in, n_out, s_out;
    for (std::size_t i = 0; i < p.dims.size(); ++i) {
        const Dim& d = p.dims[i];
        const bool last = i + 1 == p.dims.size();
        const int half = last && p.kind != Kind::c2c ? d.n / 2 + 1 : d.n;
        n_in.push_back(p.kind == Kind::c2r ? half : d.n);
        n_out.push_back(p.kind == Kind::r2c ? half : d.n);
        s_in.push_back(d.is);
        s_out.push_back(d.os);
    }
    for (const Dim& d : p.loops) {
        n_in.push_back(d.n);
        n_out.push_back(d.n);
        s_in.push_back(d.is);
        s_out.push_back(d.os);
    }
    const std::size_t c = sizeof(fftw_complex), r = sizeof(double);
    in_bytes = extent(n_in, s_in) * (p.kind == Kind::r2c ? r : c);
    out_bytes = extent(n_out, s_out) * (p.kind == Kind::c2r ? r : c);
}

// Makes a plan; the caller holds the planner lock.  A measured plan is made on
// scratch arrays of the same alignment (measuring overwrites its arrays).
fftw_plan make_plan(const Problem& p, void* in, void* out, bool measure)
{
    std::vector<fftw_iodim> dims, loops;
    for (const Dim& d : p.dims)
        dims.push_back({d.n, d.is, d.os});
    for (const Dim& d : p.loops)
        loops.push_back({d.n, d.is, d.os});
    const bool in_place = in == out;
    void* scratch = nullptr;
    if (measure) {
        std::size_t in_bytes = 0, out_bytes = 0;
        array_bytes(p, in_bytes, out_bytes);
        const std::size_t pad = 64;
        const std::size_t in_alloc = (in_place ? std::max(in_bytes, out_bytes) : in_bytes) + pad;
        const std::size_t total = in_alloc + (in_place ? 0 : out_bytes + pad);
        scratch = fftw_malloc(total);
        if (scratch == nullptr)
            return nullptr;
        char* base = static_cast<char*>(scratch);
        const auto shift = [](const void* user) {
            return static_cast<std::size_t>(reinterpret_cast<std::uintptr_t>(user) % 32);
        };
        void* s_in = base + shift(in);
        void* s_out = in_place ? s_in : base + in_alloc + shift(out);
        in = s_in;
        out = s_out;
    }
    const unsigned flags = measure ? FFTW_MEASURE : FFTW_ESTIMATE;
    // Measuring stops after measure_seconds (a large prime length would take
    // tens of seconds); the process-wide limit is restored afterwards.
    if (measure)
        fftw_set_timelimit(measure_seconds);
    const int rank = static_cast<int>(dims.size());
    const int howmany = static_cast<int>(loops.size());
    fftw_plan plan = nullptr;
    switch (p.kind) {
        case Kind::c2c:
            plan = fftw_plan_guru_dft(
                rank, dims.data(), howmany, loops.data(), static_cast<fftw_complex*>(in),
                static_cast<fftw_complex*>(out), p.sign < 0 ? FFTW_FORWARD : FFTW_BACKWARD, flags);
            break;
        case Kind::r2c:
            plan = fftw_plan_guru_dft_r2c(rank, dims.data(), howmany, loops.data(),
                                          static_cast<double*>(in), static_cast<fftw_complex*>(out),
                                          flags);
            break;
        case Kind::c2r:
            plan = fftw_plan_guru_dft_c2r(rank, dims.data(), howmany, loops.data(),
                                          static_cast<fftw_complex*>(in), static_cast<double*>(out),
                                          flags);
            break;
    }
    if (scratch != nullptr) {
        fftw_free(scratch);
        fftw_set_timelimit(FFTW_NO_TIMELIMIT);
    }
    return plan;
}

Plan plan_for(const Problem& p, void* in, void* out, Effort effort)
{
    const bool in_place = in == out;
    const int align_in = fftw_alignment_of(static_cast<double*>(in));
    const int align_out = fftw_alignment_of(static_cast<double*>(out));
    std::vector<int> key = key_of(p, in_place, align_in, align_out);
    key.push_back(effort == Effort::estimate ? 1 : 0);
    Cache& c = cache();
    bool measure = effort == Effort::measure;
    {
        std::lock_guard<std::mutex> hold(c.lock);
        const auto it = c.plans.find(key);
        if (it != c.plans.end()) {
            if (it->second.measured || effort == Effort::estimate)
                return it->second.plan;
            measure = true;  // seen before: now worth measuring
        }
    }
    fftw_plan made = nullptr;
    {
        std::lock_guard<std::mutex> hold(planner_lock());
        made = make_plan(p, in, out, measure);
        if (made == nullptr && measure)
            made = make_plan(p, in, out, false);
    }
    if (made == nullptr)
        return nullptr;
    Plan plan(made, PlanDeleter());
    std::lock_guard<std::mutex> hold(c.lock);
    if (c.plans.size() >= max_plans)
        c.plans.clear();
    Entry& e = c.plans[key];
    if (!e.measured) {  // another thread may have measured meanwhile
        e.plan = plan;
        e.measured = measure;
    }
    return e.plan;
}

}  // namespace

bool execute(const Problem& p, void* in, void* out, Effort effort)
{
    if (planner_fails.load(std::memory_order_relaxed))
        return false;
    const Plan plan = plan_for(p, in, out, effort);
    if (!plan)
        return false;
    switch (p.kind) {
        case Kind::c2c:
            fftw_execute_dft(plan.get(), static_cast<fftw_complex*>(in),
                             static_cast<fftw_complex*>(out));
            break;
        case Kind::r2c:
            fftw_execute_dft_r2c(plan.get(), static_cast<double*>(in),
                                 static_cast<fftw_complex*>(out));
            break;
        case Kind::c2r:
            fftw_execute_dft_c2r(plan.get(), static_cast<fftw_complex*>(in),
                                 static_cast<double*>(out));
            break;
    }
    return true;
}

std::size_t cached_plans()
{
    Cache& c = cache();
    std::lock_guard<std::mutex> hold(c.lock);
    return c.plans.size();
}

void clear_plan_cache()
{
    Cache& c = cache();
    std::map<std::vector<int>, Entry> old;
    {
        std::lock_guard<std::mutex> hold(c.lock);
        old.swap(c.plans);
    }
}  // the plans are destroyed here, outside the cache lock

void simulate_planner_failure(bool on) noexcept
{
    planner_fails.store(on);
}

void scale(double* x, std::size_t count, double s) noexcept
{
    for (std::size_t i = 0; i < count; ++i)
        x[i] *= s;
}

}  // namespace lbx::fft
