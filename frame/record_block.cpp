// RecordBlock and its writers: the records of one message written by one
// Fortran WRITE statement, on a helper thread that the writing thread waits
// for within a bound.
//
// Why a helper thread: the Fortran runtime holds a unit for the whole of a
// statement.  A function called inside the caller's own output statement
// (print *, G01EBF(..., IFAIL)) that fails noisily would write its records on
// the unit that this very thread holds, and wait for itself forever.  The
// helper waits instead; after two seconds the failing call goes on without
// it (a hard failure then writes the records on standard error and stops),
// and the helper writes the block once the caller's statement has released
// the unit.  In every other case the wait ends as soon as the block is
// written, so the records come in their order with the caller's own.  No lock
// of ours is taken: the helper and the caller share the job through one
// atomic count of owners.
#include <pthread.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <semaphore>

#include "frame/units.hpp"

extern "C" void lbx_unit_write_block(int unit, const char* text, int total, const int* lens,
                                     int nrec);

namespace lbx::frame {

namespace {

constexpr int busy_bound_seconds = 2;

struct Job {
    std::atomic<int> owners{2};
    std::binary_semaphore written{0};
    int unit = 0;
    RecordBlock block;
};

void release(Job* job)
{
    if (job->owners.fetch_sub(1, std::memory_order_acq_rel) == 1) {
        job->~Job();
        std::free(job);
    }
}

}  // namespace

void RecordBlock::add(std::string_view rec) noexcept
{
    if (count_ == max_records)
        return;
    std::size_t len = std::min<std::size_t>(rec.size(), max_length);
    while (len >= 2 && rec[len - 1] == ' ')
        --len;
    if (len != 0)
        std::memcpy(text_ + total_, rec.data(), len);
    lens_[count_++] = static_cast<int>(len);
    total_ += static_cast<int>(len);
}

namespace {

void* run_job(void* p)
{
    Job* job = static_cast<Job*>(p);
    job->block.write_here(job->unit);
    job->written.release();
    release(job);
    return nullptr;
}

}  // namespace

bool write_block(int unit, const RecordBlock& block) noexcept
{
    if (unit < 0 || block.count() == 0)
        return true;
    // A C caller's own buffered output comes first.
    std::fflush(stdout);
#ifdef _WIN32
    // The DLL's Fortran runtime is its own, apart from the caller's: no statement
    // of the caller's can hold its unit, so the block is written here.
    block.write_here(unit);
    return true;
#endif
    void* memory = std::malloc(sizeof(Job));
    if (memory == nullptr) {
        block.write_here(unit);
        return true;
    }
    Job* job = new (memory) Job;
    job->unit = unit;
    job->block = block;
    pthread_t helper;
    if (pthread_create(&helper, nullptr, run_job, job) != 0) {
        job->owners.store(1, std::memory_order_relaxed);
        release(job);
        block.write_here(unit);
        return true;
    }
    pthread_detach(helper);
    const bool written = job->written.try_acquire_for(std::chrono::seconds(busy_bound_seconds));
    release(job);
    return written;
}

void RecordBlock::write_here(int unit) const noexcept
{
    lbx_unit_write_block(unit, text_, total_, lens_, count_);
}

void RecordBlock::write_to_stderr() const noexcept
{
    const char* p = text_;
    for (int r = 0; r < count_; ++r) {
        char line[max_length + 1];
        std::memcpy(line, p, lens_[r]);
        line[lens_[r]] = '\n';
        p += lens_[r];
        if (::write(2, line, lens_[r] + 1) < 0)
            return;
    }
}

}  // namespace lbx::frame
