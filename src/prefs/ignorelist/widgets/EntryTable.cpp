#include "prefs/ignorelist/widgets/EntryTable.h"

#include "prefs/ignorelist/widgets/TitleDelegate.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>

namespace tarragon {

EntryTable::EntryTable(QWidget* parent)
    : QTreeView(parent) {
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setHeaderHidden(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setItemDelegate(new TitleDelegate(this));
    updateIconSize();
}

void EntryTable::updateIconSize() {
    const int height = qMax(style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this), fontMetrics().height());
    setIconSize({height, height});
}

void EntryTable::changeEvent(QEvent* event) {
    QTreeView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        updateIconSize();
}

QSize EntryTable::minimumSizeHint() const {
    const QSize text(fontMetrics().averageCharWidth() * 20, fontMetrics().lineSpacing() * 6);
    return QTreeView::minimumSizeHint().expandedTo(text);
}

void EntryTable::setModel(QAbstractItemModel* rows) {
    QTreeView::setModel(rows);
    if (rows) {
        connect(rows, &QAbstractItemModel::modelReset, this, &EntryTable::updateDescription);
        connect(rows, &QAbstractItemModel::rowsInserted, this, &EntryTable::updateDescription);
        connect(rows, &QAbstractItemModel::rowsRemoved, this, &EntryTable::updateDescription);
    }
    updateDescription();
}

void EntryTable::setEmptyText(const QString& text) {
    _emptyText = text;
    updateDescription();
}

bool EntryTable::isEmpty() const {
    return !model() || model()->rowCount() == 0;
}

void EntryTable::updateDescription() {
    setAccessibleDescription(isEmpty() ? _emptyText : QString());
    viewport()->update();
}

void EntryTable::keyPressEvent(QKeyEvent* event) {
    // Keys come here from the editor of a row too.
    const bool isOurs = hasFocus();
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isOurs && event->key() == Qt::Key_Delete && event->modifiers() == Qt::NoModifier)
        emit removePressed();
    else if (isOurs && isEnter && editTriggers() != NoEditTriggers && currentIndex().isValid())
        edit(currentIndex());
    else
        QTreeView::keyPressEvent(event);
}

void EntryTable::paintEvent(QPaintEvent* event) {
    QTreeView::paintEvent(event);
    if (!isEmpty())
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    const int margin = fontMetrics().height() / 2;
    painter.drawText(
        viewport()->rect().adjusted(margin, margin, -margin, -margin), Qt::AlignCenter | Qt::TextWordWrap, _emptyText);
}

void EntryTable::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
    // Tab ends editing. The next row is another one by then, for the edited row has moved.
    const bool goesOn = hint == QAbstractItemDelegate::EditNextItem || hint == QAbstractItemDelegate::EditPreviousItem;
    QTreeView::closeEditor(editor, goesOn ? QAbstractItemDelegate::NoHint : hint);
}

} // namespace tarragon
