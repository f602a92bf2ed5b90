#include "prefs/widgets/ChoiceBox.h"

#include <QAbstractItemView>
#include <QKeyEvent>

namespace tarragon {

void ChoiceBox::showPopup() {
    // Before those of the toolkit.
    view()->installEventFilter(this);
    QComboBox::showPopup();
}

bool ChoiceBox::eventFilter(QObject* watched, QEvent* event) {
    const bool isPress = event->type() == QEvent::KeyPress;
    const bool isKey = isPress || event->type() == QEvent::ShortcutOverride;
    if (!isKey || !static_cast<QKeyEvent*>(event)->matches(QKeySequence::Cancel))
        return QComboBox::eventFilter(watched, event);
    event->accept();
    if (isPress)
        hidePopup();
    return true;
}

} // namespace tarragon
