#pragma once

#include "menus/MenuGrab.h"

#include <vector>

#include <QObject>
#include <QPointer>

class QWidget;

namespace tarragon {

class MenuInput;

// Gives the pop-ups of our ordinary windows, such as lists of combo boxes and context menus, the keyboard and the
// pointer: a click elsewhere closes them, also one into a window of another program. The toolkit is kept from doing so
// itself, because mirrored menus, which look after themselves, must not have it done.
//
// Hears of every pop-up of the application object, which exists before and after this object. Main thread only.
class PopUpInput : public QObject {
public:
    // The menu input outlives this object.
    explicit PopUpInput(MenuInput& menuInput);
    ~PopUpInput() override;
    PopUpInput(const PopUpInput&) = delete;
    PopUpInput& operator=(const PopUpInput&) = delete;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void opened(QWidget& popup);
    void closed(const QWidget& popup);

    MenuGrab _grab;
    std::vector<QPointer<QWidget>> _open; // outermost first; it has the input for those that open from it
};

} // namespace tarragon
