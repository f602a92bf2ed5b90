#include "ReaderTest.h"

namespace tarragon {
namespace {

class LargeMenu : public ReaderTest {
protected:
    // Opens a menu of that many items and tells how many calls it took.
    std::size_t callsToOpen(int items, bool withSubmenus) {
        const std::string title = "Large " + std::to_string(items);
        const FakeMenu large = mail.menu(title);
        for (int index = 0; index < items; ++index) {
            if (withSubmenus)
                large.submenu("Item " + std::to_string(index));
            else
                large.item("Item " + std::to_string(index));
        }
        reader->update();
        fake.accessibility.clearCalls();
        EXPECT_EQ(open(title).size(), static_cast<std::size_t>(items));
        return fake.accessibility.callCount();
    }
};

TEST_F(LargeMenu, TakesCallsInProportionToItsLength) {
    const std::size_t few = callsToOpen(1000, false);
    const std::size_t many = callsToOpen(5000, false);
    EXPECT_LT(many, few * 5);
    EXPECT_GT(many, few * 4);
}

TEST_F(LargeMenu, TakesCallsInProportionToItsSubmenus) {
    const std::size_t few = callsToOpen(1000, true);
    const std::size_t many = callsToOpen(5000, true);
    EXPECT_LT(many, few * 5);
    EXPECT_GT(many, few * 4);
}

} // namespace
} // namespace tarragon
