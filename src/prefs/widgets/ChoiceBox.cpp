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
    if (event->type() != QEvent::ShortcutOverride || !static_cast<QKeyEvent*>(event)->matches(QKeySequence::Cancel))
        return QComboBox::eventFilter(watched, event);
    // The press that follows is the list's, which closes.
    event->accept();
    return true;
}

} // namespace tarragon
