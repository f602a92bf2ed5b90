#pragma once

#include <QLabel>

namespace tarragon {

// A line of help below a control: fainter than the control, and below the words of a check box where the dynamic
// property "indented" is set.
class HelpLine : public QLabel {
    Q_OBJECT

public:
    explicit HelpLine(QWidget* parent = nullptr);

protected:
    bool event(QEvent* event) override;

private:
    void dress();
};

} // namespace tarragon
