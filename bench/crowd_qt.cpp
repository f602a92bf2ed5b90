// The Qt counterpart of crowd_gtk.c. Usage: crowd_qt ITEMS.

#include <QApplication>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

int main(int argumentCount, char** arguments) {
    QApplication application(argumentCount, arguments);
    const int items = argumentCount > 1 ? QString(arguments[1]).toInt() : 0;
    QMainWindow window;
    window.setWindowTitle("Crowd");
    window.resize(500, 200);
    QMenu* crowd = window.menuBar()->addMenu("Crowd");
    for (int index = 1; index <= items; ++index)
        crowd->addAction(QString("Person %1").arg(index));
    window.show();
    return QApplication::exec();
}
