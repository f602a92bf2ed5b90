#include "mirror/CacheLock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <string>
#include <thread>
#include <vector>

namespace tarragon {
namespace {

// Waits, for as long as it takes, until a probe waits for the lock.
void waitForProbe(const CacheLock& lock) {
    while (!lock.probeWaits())
        std::this_thread::yield();
}

TEST(CacheLock, IsHeldByOneAtATime) {
    CacheLock lock;
    std::atomic<int> holders = 0;
    std::vector<std::jthread> threads;
    for (int index = 0; index < 8; ++index) {
        threads.emplace_back([&, probes = index % 2 == 0] {
            for (int round = 0; round < 200; ++round) {
                if (probes)
                    lock.lockForProbe();
                else
                    EXPECT_TRUE(lock.lockForFilling());
                EXPECT_EQ(++holders, 1);
                --holders;
                lock.unlock();
            }
        });
    }
    threads.clear();
    EXPECT_FALSE(lock.probeWaits());
}

TEST(CacheLock, LetsAProbeGoBeforeEveryFillingThatHasNotBegun) {
    for (int round = 0; round < 50; ++round) {
        CacheLock lock;
        std::vector<std::string> order;
        std::vector<std::jthread> threads;
        ASSERT_TRUE(lock.lockForFilling());
        for (int index = 0; index < 6; ++index) {
            threads.emplace_back([&] {
                ASSERT_TRUE(lock.lockForFilling());
                order.emplace_back("filling");
                lock.unlock();
            });
        }
        threads.emplace_back([&] {
            lock.lockForProbe();
            order.emplace_back("probe");
            lock.unlock();
        });
        waitForProbe(lock);
        lock.unlock();
        threads.clear();
        ASSERT_EQ(order.size(), 7U);
        ASSERT_EQ(order.front(), "probe");
    }
}

TEST(CacheLock, MakesAProbeWaitForTheFillingUnderWay) {
    CacheLock lock;
    ASSERT_TRUE(lock.lockForFilling());
    EXPECT_FALSE(lock.probeWaits());
    std::atomic<bool> ended = false;
    std::jthread probe([&] {
        lock.lockForProbe();
        EXPECT_TRUE(ended);
        lock.unlock();
    });
    waitForProbe(lock);
    ended = true;
    lock.unlock();
    probe.join();
    EXPECT_FALSE(lock.probeWaits());
}

TEST(CacheLock, SendsFillingsAwayThatWaitWhenItIsClosedOrComeLater) {
    CacheLock lock;
    ASSERT_TRUE(lock.lockForFilling());
    EXPECT_FALSE(lock.isClosed());
    std::vector<std::future<bool>> fillings;
    for (int index = 0; index < 4; ++index) {
        fillings.push_back(std::async(std::launch::async, [&] {
            const bool hasLock = lock.lockForFilling();
            if (hasLock)
                lock.unlock();
            return hasLock;
        }));
    }
    lock.close();
    // The lock is still held: they do not wait for it.
    const auto tooLate = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    for (const auto& filling : fillings)
        EXPECT_EQ(filling.wait_until(tooLate), std::future_status::ready);
    EXPECT_TRUE(lock.isClosed());
    lock.unlock();
    for (auto& filling : fillings)
        EXPECT_FALSE(filling.get());
    EXPECT_FALSE(lock.lockForFilling());
}

} // namespace
} // namespace tarragon
