// A window of the width and height that it is told, however small or large, with a menu bar of the titles that it is
// told and one large button below. Every item that is chosen, and the button, become the window title.
#include <QApplication>
#include <QLayout>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 4)
        return 1;
    QMainWindow window;
    window.setWindowTitle("Titled");
    window.layout()->setSizeConstraint(QLayout::SetNoConstraint);
    window.resize(arguments[1].toInt(), arguments[2].toInt());

    for (const QString& title : arguments.mid(3)) {
        QMenu* menu = window.menuBar()->addMenu(title);
        for (const char* fruit : {"Apricot", "Banana", "Cherry"})
            menu->addAction(QString("%1 of %2").arg(fruit, title.left(40)));
        menu->actions().front()->setShortcut(QKeySequence("Ctrl+Shift+F8"));
    }
    QObject::connect(window.menuBar(), &QMenuBar::triggered, &window,
        [&window](QAction* action) { window.setWindowTitle(action->text()); });
    auto* button = new QPushButton("Button");
    button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    QObject::connect(button, &QPushButton::clicked, &window, [&window] { window.setWindowTitle("Button"); });
    window.setCentralWidget(button);
    window.show();
    return QApplication::exec();
}
