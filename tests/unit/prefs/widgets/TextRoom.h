#pragma once

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QSpinBox>

#include <gtest/gtest.h>

namespace tarragon {

inline void expectRoom(const QWidget& widget, const QSize& wanted, const QString& text) {
    EXPECT_GE(widget.width(), wanted.width()) << widget.objectName().toStdString() << ": " << text.toStdString();
    EXPECT_GE(widget.height(), wanted.height()) << widget.objectName().toStdString() << ": " << text.toStdString();
}

// That every control and label of a pane that shows has the room that its text takes.
inline void expectAllTextsFit(const QWidget& pane) {
    for (const QWidget* widget : pane.findChildren<QWidget*>()) {
        if (!widget->isVisible())
            continue;
        if (const auto* label = qobject_cast<const QLabel*>(widget)) {
            if (label->wordWrap())
                expectRoom(
                    *label, {label->minimumSizeHint().width(), label->heightForWidth(label->width())}, label->text());
            else
                expectRoom(*label, label->sizeHint(), label->text());
        } else if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
            expectRoom(*button, button->minimumSizeHint(), button->text());
        } else if (const auto* group = qobject_cast<const QGroupBox*>(widget)) {
            expectRoom(*group, group->minimumSizeHint(), group->title());
        } else if (const auto* box = qobject_cast<const QComboBox*>(widget)) {
            expectRoom(*box, box->minimumSizeHint(), box->currentText());
        } else if (const auto* spin = qobject_cast<const QSpinBox*>(widget)) {
            expectRoom(*spin, spin->minimumSizeHint(), spin->text());
        }
    }
}

} // namespace tarragon
