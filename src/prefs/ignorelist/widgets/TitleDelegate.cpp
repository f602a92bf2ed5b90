#include "prefs/ignorelist/widgets/TitleDelegate.h"

#include "platform/Texts.h"

#include <QLineEdit>

namespace tarragon {

namespace {

constexpr QChar FirstStrongIsolate(0x2068);
constexpr QChar PopDirectionalIsolate(0x2069);

} // namespace

void TitleDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    // A pattern reads in its own direction: in a right-to-left window the star of "Untitled*" stays at its end.
    if (!option->text.isEmpty())
        option->text = FirstStrongIsolate + option->text + PopDirectionalIsolate;
}

QSize TitleDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    // Rows are as high with a picture as without.
    const int padding = option.fontMetrics.height() / 3;
    size.setHeight(qMax(option.decorationSize.height(), option.fontMetrics.height()) + padding);
    return size;
}

QWidget* TitleDelegate::createEditor(
    QWidget* parent, const QStyleOptionViewItem& /*option*/, const QModelIndex& /*index*/) const {
    auto* const editor = new QLineEdit(parent);
    editor->setFrame(false);
    editor->setAutoFillBackground(true);
    editor->setAccessibleName(QString::fromStdString(translated("IgnoreListView", "Window title or pattern")));
    return editor;
}

void TitleDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const {
    const auto* const field = static_cast<QLineEdit*>(editor);
    if (field->isModified() && field->text() != index.data(Qt::EditRole).toString())
        model->setData(index, field->text(), Qt::EditRole);
}

} // namespace tarragon
