// The run over all pairs: every pair once, stopping, and failures that leave no parallel region.
#include "analysis/pair_blocks.h"

#include <gtest/gtest.h>
#include <omp.h>

#include <atomic>
#include <chrono>
#include <stdexcept>
#include <thread>
#include <vector>

using namespace kq;

namespace {

class PairBlocks : public testing::TestWithParam<int> {
protected:
    void SetUp() override { omp_set_num_threads(GetParam()); }
    void TearDown() override { omp_set_num_threads(omp_get_num_procs()); }
};

} // namespace

TEST_P(PairBlocks, MeetEveryPairOnceAndReportUpwardsToTheTotal)
{
    for (const int n : {0, 1, 2, 7, 8, 9, 100})
        for (const int side : {1, 8, 64}) {
            std::vector<int> met(static_cast<std::size_t>(n * n));
            std::vector<std::int64_t> reports;
            const bool ended = for_pair_blocks(
                n, side,
                [&](const PairBlock& block, Pace&) {
                    std::int64_t pairs = 0;
                    for (int i = block.first_i; i < block.end_i; i++)
                        for (int j = block.first_j; j < block.end_of_row(i); j++, pairs++)
                            met[static_cast<std::size_t>(i * n + j)]++;
                    return pairs;
                },
                [&](std::int64_t done) { return reports.push_back(done), true; });
            EXPECT_TRUE(ended);
            EXPECT_TRUE(std::is_sorted(reports.begin(), reports.end()));
            EXPECT_EQ(reports.back(), number_of_pairs(n));
            for (int i = 0; i < n; i++)
                for (int j = 0; j < n; j++)
                    ASSERT_EQ(met[static_cast<std::size_t>(i * n + j)], j < i) << n << " " << side;
        }
}

TEST_P(PairBlocks, StopInTheMiddleOfLongBlocks)
{
    using namespace std::chrono_literals;
    const auto start = std::chrono::steady_clock::now();
    std::atomic<int> bodies = 0;
    int reports = 0;
    const bool ended = for_pair_blocks(
        100, 10,
        [&](const PairBlock&, Pace& pace) -> std::int64_t {
            bodies++;
            while (pace.go_on()) // until the report says stop
                std::this_thread::sleep_for(1ms);
            return 0;
        },
        [&](std::int64_t) { return ++reports < 5; });
    EXPECT_FALSE(ended);
    EXPECT_EQ(reports, 5);
    EXPECT_LE(bodies, GetParam());
    EXPECT_LT(std::chrono::steady_clock::now() - start, 10s);
}

TEST_P(PairBlocks, ThrowAgainWhatABodyOrTheReportThrows)
{
    const auto nothing = [](const PairBlock&, Pace&) -> std::int64_t { return 1; };
    const auto failing = [](const PairBlock& block, Pace&) -> std::int64_t {
        if (block.first_i == 50) throw std::runtime_error("body");
        return 1;
    };
    EXPECT_THROW(for_pair_blocks(100, 10, failing, [](std::int64_t) { return true; }), std::runtime_error);
    EXPECT_THROW(
        for_pair_blocks(100, 10, nothing, [](std::int64_t) -> bool { throw std::logic_error("report"); }),
        std::logic_error);
}

INSTANTIATE_TEST_SUITE_P(Threads, PairBlocks, testing::Values(1, 2, 3));
