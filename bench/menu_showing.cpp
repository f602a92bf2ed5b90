// How the cost of showing a menu grows with its items, beside the toolkit's own menu with the same texts, without a
// display; and what exchanging all alternate items of an open menu costs.

#include "Statistics.h"

#include "fake/FakeDisplays.h"
#include "fake/FakeMenuInput.h"
#include "menus/MenuView.h"
#include "mirror/Menu.h"
#include "mirror/MenuItem.h"

#include <cstdio>
#include <memory>
#include <string>

#include <QApplication>
#include <QKeyEvent>

namespace {

using namespace tarragon;

constexpr int rounds = 9;

std::string titleOf(int index) {
    return "Item " + std::to_string(index);
}

// Every second item opens a menu, the others have a key.
std::shared_ptr<Menu> menuOf(int items) {
    auto menu = std::make_shared<Menu>("menu");
    for (int index = 0; index < items; ++index) {
        const auto item = std::make_shared<MenuItem>(titleOf(index), "", index % 2 ? "" : "k");
        if (index % 2)
            item->setSubmenu(std::make_shared<Menu>(titleOf(index)));
        menu->addItem(item);
    }
    return menu;
}

// Every second item is the alternate of the one before it.
std::shared_ptr<Menu> menuOfAlternates(int items) {
    auto menu = std::make_shared<Menu>("menu");
    for (int index = 0; index < items; ++index) {
        const auto item = std::make_shared<MenuItem>(titleOf(index), "", "");
        item->setAlternate(index % 2);
        item->setKeyEquivalentModifierMask(index % 2 ? modifier::Option : 0);
        menu->addItem(item);
    }
    return menu;
}

void finishEvents() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

class Showing {
public:
    double costOf(const std::shared_ptr<Menu>& menu) {
        Samples samples;
        for (int round = 0; round < rounds; ++round) {
            samples.time([&] { _view.popUpMenu(menu, {100, 700}); });
            _view.closeMenus();
            finishEvents();
        }
        return samples.median();
    }

    double costOfExchange(const std::shared_ptr<Menu>& menu) {
        _view.popUpMenu(menu, {100, 700});
        Samples samples;
        for (int round = 0; round < rounds; ++round) {
            const bool isPressed = round % 2 == 0;
            QKeyEvent event(isPressed ? QEvent::KeyPress : QEvent::KeyRelease, Qt::Key_Alt,
                isPressed ? Qt::NoModifier : Qt::AltModifier);
            samples.time([&] { QCoreApplication::sendEvent(QApplication::activePopupWidget(), &event); });
        }
        _view.closeMenus();
        finishEvents();
        return samples.median();
    }

private:
    FakeDisplays _displays;
    NotificationCenter _notificationCenter;
    FakeMenuInput _menuInput;
    MenuView _view{_displays, _notificationCenter, _menuInput};
};

double costOfToolkitsOwn(int items) {
    Samples samples;
    for (int round = 0; round < rounds; ++round) {
        QMenu menu;
        samples.time([&] {
            for (int index = 0; index < items; ++index) {
                if (index % 2)
                    menu.addMenu(QString::fromStdString(titleOf(index)));
                else
                    menu.addAction(QString::fromStdString(titleOf(index)))->setShortcut(Qt::Key_K);
            }
            menu.popup({100, 100});
        });
        menu.close();
        finishEvents();
    }
    return samples.median();
}

} // namespace

int main(int argumentCount, char* arguments[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // It tells at each menu what it cannot do.
    qputenv("QT_LOGGING_RULES", "*.warning=false;*.info=false");
    const QApplication application(argumentCount, arguments);
    Showing showing;
    std::puts("Showing a menu, beside the toolkit's own of the same texts (medians):");
    for (const int items : {100, 1000, 5000}) {
        const double ours = showing.costOf(menuOf(items));
        const double peer = costOfToolkitsOwn(items);
        const double exchange = showing.costOfExchange(menuOfAlternates(items));
        std::printf("%6d items: %8.2f ms, peer %8.2f ms, ratio %.2f; exchanging its alternates %8.2f ms\n", items, ours,
            peer, peer / ours, exchange);
    }
    return 0;
}
