// How the cost of a menu grows with its items, on a desktop in memory: what is measured is ours alone. Toolkits take
// longer for each item of a long menu by themselves.

#include "Statistics.h"

#include "fake/FakePlatform.h"
#include "mirror/AppAccessibility.h"
#include "mirror/FillingThreads.h"

#include <cstdio>
#include <functional>
#include <memory>
#include <string>

namespace {

using namespace tarragon;

class NoFillings : public FillingThreads {
public:
    void detachNewThread(std::function<void()>) override { }
};

// Milliseconds for one opening of a menu with that many items.
double costOf(int items) {
    FakePlatform fake;
    FakeApplication application = fake.addApplication("Crowd");
    FakeMenu menu = application.menu("People");
    for (int index = 0; index < items; ++index)
        menu.item("Person " + std::to_string(index));
    fake.activate(application);
    const auto reader = AppAccessibility::initWithFocusedApp(fake.platform(), std::make_unique<NoFillings>());
    reader->update();
    const auto people = reader->menu()->itemAtIndex(0)->submenu();
    Samples samples;
    for (int round = 0; round < 9; ++round) {
        fake.accessibility.clearCalls();
        samples.time([&] { reader->menuNeedsUpdate(*people); });
    }
    return samples.median();
}

} // namespace

int main() {
    std::puts("Opening a menu on a desktop in memory (medians):");
    for (const int items : {100, 1000, 10000}) {
        const double cost = costOf(items);
        std::printf("%6d items %8.2f ms, %.2f microseconds for each\n", items, cost, cost * 1000 / items);
    }
    return 0;
}
