#include "fake/FakeFillingThreads.h"

#include <utility>

namespace tarragon {

bool FakeFillingThreads::Work::runNext() {
    if (_waiting.empty())
        return false;
    const auto work = std::move(_waiting.front());
    _waiting.pop_front();
    work();
    return true;
}

void FakeFillingThreads::Work::runAll() {
    while (runNext()) { }
}

FakeFillingThreads::~FakeFillingThreads() {
    _work->runAll();
}

void FakeFillingThreads::detachNewThread(std::function<void()> work) {
    _work->_waiting.push_back(std::move(work));
}

} // namespace tarragon
