#include "base/SerialQueue.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <vector>

namespace vexmoor::test {
namespace {

TEST(SerialQueue, RunsAllJobsInOrderOnOneThreadBeforeDestruction) {
    constexpr int kPosters = 4;
    constexpr int kJobs = 500;
    std::vector<std::pair<int, int>> ran; // accessed on the queue's thread only
    std::set<std::thread::id> threads;
    {
        SerialQueue queue;
        std::vector<std::jthread> posters;
        for (int poster = 0; poster < kPosters; ++poster)
            posters.emplace_back([&, poster] {
                for (int job = 0; job < kJobs; ++job)
                    queue.post([&, poster, job] {
                        ran.emplace_back(poster, job);
                        threads.insert(std::this_thread::get_id());
                    });
            });
    }
    ASSERT_EQ(ran.size(), std::size_t{kPosters * kJobs});
    EXPECT_EQ(threads.size(), 1U);
    EXPECT_FALSE(threads.contains(std::this_thread::get_id()));
    std::vector<int> next(kPosters, 0);
    for (const auto& [poster, job] : ran)
        EXPECT_EQ(job, next[std::size_t(poster)]++);
}

TEST(SerialQueue, RunsJobsPostedByTheLastJobs) {
    int ran = 0;
    {
        SerialQueue queue;
        queue.post([&] { queue.post([&] { queue.post([&] { ++ran; }); }); });
    }
    EXPECT_EQ(ran, 1);
}

TEST(SerialQueue, DestroysAJobBeforeItStartsTheNext) {
    std::weak_ptr<int> held;
    bool released = false;
    {
        SerialQueue queue;
        auto value = std::make_shared<int>(0);
        held = value;
        queue.post([owned = std::move(value)] { ++*owned; });
        queue.post([&] { released = held.expired(); });
    }
    EXPECT_TRUE(released);
}

} // namespace
} // namespace vexmoor::test
