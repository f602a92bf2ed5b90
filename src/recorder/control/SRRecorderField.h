#pragma once

#include "recorder/SRRecorderTexts.h"

#include <QStringList>
#include <QWidget>

namespace tarragon {

// The part of a recorder that shows the combination, and that is clicked, or pressed with Space or Enter, to record
// another one. Looks like a line edit of the style. Knows nothing of keys.
class SRRecorderField : public QWidget {
    Q_OBJECT

public:
    explicit SRRecorderField(QWidget* parent = nullptr);

    void display(const SRRecorderText& text, bool isRecording);
    // The texts that it must have room for.
    void setLongTexts(const QStringList& texts);

    bool isRecording() const { return _isRecording; }
    QString text() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    // The user wants to record.
    void pressed();
    // Keys come here from now on, and go elsewhere.
    void focusGained();
    void focusLost();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    QSize textSize() const;

    SRRecorderText _text;
    QStringList _longTexts;
    bool _isRecording = false;
    int _pressedKey = 0; // of the toolkit's; 0 for none
};

} // namespace tarragon
