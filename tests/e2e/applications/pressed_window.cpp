// A window with a menu bar that tells on standard output, line by line, of the mouse buttons that are pressed and
// released in it, as X numbers them, and of the items that are chosen.
#include <cstdio>

#include <QApplication>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>

namespace {

void tell(const char* what, const QByteArray& which) {
    std::printf("%s %s\n", what, which.constData());
    std::fflush(stdout);
}

QByteArray numberOf(Qt::MouseButton button) {
    switch (button) {
    case Qt::LeftButton:
        return "1";
    case Qt::MiddleButton:
        return "2";
    case Qt::RightButton:
        return "3";
    case Qt::BackButton:
        return "8";
    case Qt::ForwardButton:
        return "9";
    default:
        return "unknown";
    }
}

class Surface : public QWidget {
protected:
    void mousePressEvent(QMouseEvent* event) override { tell("press", numberOf(event->button())); }
    void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
    void mouseReleaseEvent(QMouseEvent* event) override { tell("release", numberOf(event->button())); }
};

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QMainWindow window;
    window.setWindowTitle("Pressed");
    window.setCentralWidget(new Surface);
    window.resize(500, 400);
    for (const char* title : {"Fruit", "Nuts"}) {
        QMenu* menu = window.menuBar()->addMenu(title);
        for (const char* item : {"Apricot", "Banana", "Cherry"})
            menu->addAction(item);
    }
    QObject::connect(window.menuBar(), &QMenuBar::triggered, &window,
        [](const QAction* action) { tell("chosen", action->text().toUtf8()); });
    window.show();
    return QApplication::exec();
}
