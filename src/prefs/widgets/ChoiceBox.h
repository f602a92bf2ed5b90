#pragma once

#include <QComboBox>

namespace tarragon {

// A choice of several, whose open list keeps Escape to itself. The toolkit's own list closes when it is asked whether
// it wants the key; the key itself comes afterwards, and would then close the window.
class ChoiceBox : public QComboBox {
    Q_OBJECT

public:
    using QComboBox::QComboBox;

    void showPopup() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace tarragon
