// The Qt counterpart of hostile_gtk.c: strange titles, a crowd, menus that are filled as they open and ones that
// change on a timer. Every action that is chosen becomes the window title.
#include <QApplication>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTimer>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QMainWindow window;
    window.setWindowTitle("Hostile");
    window.resize(500, 200);

    QMenu* crowd = window.menuBar()->addMenu("Crowd");
    for (int index = 1; index <= 500; ++index)
        crowd->addAction(QString("Person %1").arg(index));

    QMenu* depth = window.menuBar()->addMenu("Depth");
    for (int level = 1; level <= 12; ++level)
        depth = depth->addMenu(QString("Level %1").arg(level));
    depth->addAction("Bottom");

    QMenu* strange = window.menuBar()->addMenu("Strange");
    strange->addAction("Plain");
    strange->addAction(QString(10000, 'x'));
    strange->addAction("");
    strange->addAction("-");
    strange->addAction("שלום עולם");
    strange->addAction("👩‍👩‍👧‍👦 family 🇪🇺 flag");
    strange->addAction("Ampersand && Sons");
    strange->addAction("Bar|in|title");
    strange->addAction("Twin");
    strange->addAction("Twin");
    strange->addAction("Hidden")->setVisible(false);

    QMenu* late = window.menuBar()->addMenu("Late");
    QObject::connect(late, &QMenu::aboutToShow, late, [late] {
        late->clear();
        late->addAction("Filled as it opened");
    });

    QMenu* restless = window.menuBar()->addMenu("Restless");
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, restless, [&] {
        restless->clear();
        ++ticks;
        for (int index = 0; index < 3 + ticks % 5; ++index)
            restless->addAction(QString("Item %1 of round %2").arg(index).arg(ticks));
    });
    timer.start(50);

    QObject::connect(window.menuBar(), &QMenuBar::triggered, &window,
        [&window](QAction* action) { window.setWindowTitle(action->text().left(60)); });
    window.show();
    return QApplication::exec();
}
