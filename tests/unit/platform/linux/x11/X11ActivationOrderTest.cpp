#include "platform/linux/x11/X11ActivationOrder.h"

#include <gmock/gmock.h>

namespace tarragon {

using testing::ElementsAre;

TEST(X11ActivationOrder, PutsTheWindowThatWasActiveLastFirst) {
    X11ActivationOrder order;
    order.becameActive(1);
    order.becameActive(2);
    order.becameActive(3);
    order.becameActive(1);
    EXPECT_THAT(order.ordered({3, 1, 2}), ElementsAre(1, 3, 2));
}

TEST(X11ActivationOrder, PutsWindowsThatWereNeverActiveLastAndTopmostFirst) {
    X11ActivationOrder order;
    order.becameActive(1);
    EXPECT_THAT(order.ordered({1, 2, 3}), ElementsAre(1, 3, 2));
    EXPECT_THAT(X11ActivationOrder().ordered({1, 2, 3}), ElementsAre(3, 2, 1));
}

TEST(X11ActivationOrder, ForgetsWindowsThatAreGone) {
    X11ActivationOrder order;
    for (const std::uint32_t window : {1, 2, 3})
        order.becameActive(window);
    order.forget(3);
    EXPECT_THAT(order.ordered({3, 1, 2}), ElementsAre(2, 1, 3));
    order.keepOnly({1});
    EXPECT_THAT(order.ordered({3, 1, 2}), ElementsAre(1, 2, 3));
}

} // namespace tarragon
