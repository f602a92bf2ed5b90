// The peer of the panel's titles: a window of the same toolkit with a plain menu bar. Reads its menus from a file, a
// line each, "TITLE" for a menu and a tab with a title for an item ("-" for a line), and tells where its titles are as
// "X Y TITLE", pixels of the middle in the root window, and then "ready". Usage: bench_bare_menu_bar FILE

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QTimer>

#include <fstream>
#include <iostream>
#include <string>

int main(int argumentCount, char** arguments) {
    QApplication application(argumentCount, arguments);
    if (argumentCount != 2)
        return 2;
    QMainWindow window;
    QMenu* menu = nullptr;
    std::ifstream menus(arguments[1]);
    for (std::string line; std::getline(menus, line);) {
        if (!line.starts_with('\t'))
            menu = window.menuBar()->addMenu(QString::fromStdString(line));
        else if (menu && line == "\t-")
            menu->addSeparator();
        else if (menu)
            menu->addAction(QString::fromStdString(line.substr(1)));
    }
    window.resize(600, 300);
    window.show();
    // Where a title is, is known once the window manager has put the window in its place.
    QTimer::singleShot(1000, [&] {
        for (const QAction* title : window.menuBar()->actions()) {
            const QPoint middle =
                window.menuBar()->mapToGlobal(window.menuBar()->actionGeometry(const_cast<QAction*>(title)).center());
            std::cout << middle.x() << ' ' << middle.y() << ' ' << title->text().toStdString() << std::endl;
        }
        std::cout << "ready" << std::endl;
    });
    return QApplication::exec();
}
