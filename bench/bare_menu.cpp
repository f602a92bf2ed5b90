// The peer of the idle agent: the least program with the same toolkit that has a menu to show.

#include <QApplication>
#include <QMenu>

int main(int argumentCount, char** arguments) {
    QApplication application(argumentCount, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    QMenu menu;
    menu.addAction("Item");
    return QApplication::exec();
}
