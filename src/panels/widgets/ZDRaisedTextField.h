#pragma once

#include <QLabel>

namespace tarragon {

// A label of plain text that looks raised: with a light edge one point below its characters, under a dark theme with a
// dark one.
class ZDRaisedTextField : public QLabel {
public:
    explicit ZDRaisedTextField(const QString& text = {}, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace tarragon
