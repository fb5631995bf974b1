// kernel: a computation over all pairs of species, block by block and on all cores.
#include "analysis/pair_blocks.h"

#include <omp.h>

#include <atomic>
#include <chrono>
#include <cmath>
#include <exception>
#include <thread>

namespace kq {

namespace {

constexpr auto between_looks = std::chrono::milliseconds(1);

// What the threads of one run share.
struct Run {
    const PairBody& body;
    const Report& report;
    std::int64_t blocks;
    int n, side;
    std::atomic<std::int64_t> next = 0, done = 0;
    std::atomic<int> working = 0;
    std::atomic<bool> stopped = false;
    std::atomic_flag has_failed{};
    std::exception_ptr failure{}; // of the first thread that failed

    void fail()
    {
        if (!has_failed.test_and_set()) failure = std::current_exception();
        stopped = true;
    }
};

// Counts a thread among those that compute.
class Working {
public:
    explicit Working(std::atomic<int>& count)
        : count_(count)
    {
        count_++;
    }
    ~Working() { count_--; }
    Working(const Working&) = delete;
    Working& operator=(const Working&) = delete;

private:
    std::atomic<int>& count_;
};

class CallersPace final : public Pace {
public:
    explicit CallersPace(Run& run)
        : run_(run)
        , report_(run.report)
    {
    }
    bool go_on() override
    {
        if (!run_.stopped && !report_(run_.done)) run_.stopped = true;
        return !run_.stopped;
    }

private:
    Run& run_;
    PacedReport report_;
};

class WorkersPace final : public Pace {
public:
    explicit WorkersPace(const Run& run)
        : run_(run)
    {
    }
    bool go_on() override { return !run_.stopped; }

private:
    const Run& run_;
};

// Blocks are numbered row by row: row r of blocks has r + 1 of them.
PairBlock block_at(std::int64_t index, int n, int side)
{
    auto r = static_cast<std::int64_t>((std::sqrt(8.0 * static_cast<double>(index) + 1) - 1) / 2);
    while (r * (r + 1) / 2 > index) // should the root have been rounded up
        r--;
    const auto first_i = static_cast<int>(r) * side;
    const auto first_j = static_cast<int>(index - r * (r + 1) / 2) * side;
    return {first_i, std::min(first_i + side, n), first_j, std::min(first_j + side, n)};
}

void run_blocks(Run& run, Pace& pace)
{
    const Working working(run.working);
    while (pace.go_on()) {
        const std::int64_t block = run.next++;
        if (block >= run.blocks) return;
        run.done += run.body(block_at(block, run.n, run.side), pace);
    }
}

// The calling thread has found no further block; the others still compute theirs.
void wait_for_others(const Run& run, Pace& pace)
{
    while (run.working > 0 && pace.go_on())
        std::this_thread::sleep_for(between_looks);
}

void take_part(Run& run)
{
    try {
        if (omp_get_thread_num() == 0) { // the thread that met the parallel region
            CallersPace pace(run);
            run_blocks(run, pace);
            wait_for_others(run, pace);
        } else {
            WorkersPace pace(run);
            run_blocks(run, pace);
        }
    } catch (...) {
        run.fail();
    }
}

} // namespace

bool for_pair_blocks(int n, int side, const PairBody& body, const Report& report)
{
    const std::int64_t rows = (n + side - 1) / side;
    Run run{.body = body, .report = report, .blocks = rows * (rows + 1) / 2, .n = n, .side = side};
    [[maybe_unused]] const int threads = // its use below escapes clang's analyzer
        static_cast<int>(std::clamp<std::int64_t>(run.blocks, 1, omp_get_max_threads()));
#pragma omp parallel num_threads(threads)
    take_part(run);
    if (run.failure) std::rethrow_exception(run.failure);
    return !run.stopped && report(run.done);
}

} // namespace kq
