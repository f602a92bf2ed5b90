#pragma once

#include <QToolButton>

namespace tarragon {

// The button beside a recorder's field, with a sign drawn in the colours of the theme.
class SRRecorderButton : public QToolButton {
    Q_OBJECT

public:
    enum class Sign {
        Clear, // a cross: empties the combination
        SnapBack, // an arrow that turns back: leaves everything as it was
    };

    explicit SRRecorderButton(QWidget* parent = nullptr);

    Sign sign() const { return _sign; }
    // name says what the button does.
    void setSign(Sign sign, const QString& name);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Sign _sign = Sign::Clear;
};

} // namespace tarragon
