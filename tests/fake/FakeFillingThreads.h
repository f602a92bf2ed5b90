#pragma once

#include "mirror/FillingThreads.h"

#include <cstddef>
#include <deque>
#include <memory>

namespace tarragon {

// Keeps the fillings of the menu cache back until the test runs them, on the test's own thread.
class FakeFillingThreads : public FillingThreads {
public:
    // Outlives the threads, which belong to the cache.
    class Work {
    public:
        std::size_t waiting() const { return _waiting.size(); }
        // Runs the oldest filling; false when there is none.
        bool runNext();
        void runAll();

    private:
        friend class FakeFillingThreads;
        std::deque<std::function<void()>> _waiting;
    };

    explicit FakeFillingThreads(std::shared_ptr<Work> work)
        : _work(std::move(work)) { }
    FakeFillingThreads(const FakeFillingThreads&) = delete;
    FakeFillingThreads& operator=(const FakeFillingThreads&) = delete;
    ~FakeFillingThreads() override;

    void detachNewThread(std::function<void()> work) override;

private:
    std::shared_ptr<Work> _work;
};

} // namespace tarragon
