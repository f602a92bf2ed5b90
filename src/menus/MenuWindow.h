#pragma once

#include "menus/MenuSlots.h"
#include "menus/MenuTypeSelect.h"
#include "mirror/Menu.h"
#include "mirror/MenuPresenter.h"

#include <memory>
#include <optional>
#include <vector>

#include <QMenu>

namespace tarragon {

class MenuTracking;

// One open menu of a pop-up. Keeps the menu and the items that it shows alive, whatever becomes of the model.
class MenuWindow : public QMenu {
public:
    // parent is the window of the menu above, or nullptr.
    MenuWindow(std::shared_ptr<Menu> menu, std::shared_ptr<MenuTracking> tracking, MenuWindow* parent = nullptr);
    ~MenuWindow() override;

    // Has the delegate update the menu and takes over its items. False when there is nothing to show, or the pop-up
    // has ended meanwhile.
    bool prepare();

    // Shows the items that belong to the modifiers held.
    void showAlternates();

    // Tells the delegate that the menu has closed, once.
    void tellClosed();

    void setVisible(bool visible) override;

protected:
    bool event(QEvent* event) override;
    void actionEvent(QActionEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    struct Place {
        MenuSlot slot;
        std::size_t shown = 0; // position in the slot
        QAction* action = nullptr;
        QString title; // as it is shown
    };

    std::optional<MenuNeighbour> neighbourByKey(int key) const;
    bool isOfOpening(const QMouseEvent& event) const;
    void moveHeldButton(const QMouseEvent& release);
    QWidget& outermost();
    bool fill();
    void removeEverything();
    void dress(Place& place);
    MenuDelegate* delegate() const;
    std::shared_ptr<MenuItem> itemOf(const QAction* action) const;
    void tellHighlight();
    void typeSelect(const QString& text);

    std::shared_ptr<Menu> _menu;
    std::shared_ptr<MenuTracking> _tracking;
    std::vector<Place> _places;
    MenuTypeSelect _typeSelect;
    std::shared_ptr<MenuItem> _highlighted;
    bool _open = false;
    bool _changingActions = false;
};

} // namespace tarragon
