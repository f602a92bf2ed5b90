#pragma once

#include <QFrame>

namespace tarragon {

// A field that stands out: something does not work, and what to do about it is written in it.
class NoticeView : public QFrame {
    Q_OBJECT

public:
    using QFrame::QFrame;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace tarragon
