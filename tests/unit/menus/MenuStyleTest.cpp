#include "menus/MenuStyle.h"

#include "MenuViewFixture.h"

#include <QApplication>
#include <QPixmapCache>

namespace tarragon {

namespace {

class MenuStyleTest : public MenuViewFixture {
protected:
    MenuStyleTest() { addItem(*addSubmenu(*_root, "File"), "Save"); }
    ~MenuStyleTest() override {
        QPixmapCache::setCacheLimit(_usualLimit);
        QPixmapCache::clear();
    }

    void openAndPaint() {
        popUp();
        openMenu().grab();
        press(Qt::Key_Down);
        openMenu().grab();
        _view->closeMenus();
        settle();
    }

    int _usualLimit = QPixmapCache::cacheLimit();
};

TEST_F(MenuStyleTest, LeavesTheCacheOfPicturesToTheRestOfTheProgram) {
    EXPECT_EQ(_usualLimit, 10240);
    QPixmap picture(16, 16);
    picture.fill(Qt::red);
    QPixmapCache::insert("somebody else's", picture);
    openAndPaint();
    EXPECT_TRUE(QPixmapCache::find("somebody else's", &picture));
}

// A cache that is full throws out what was not asked for lately.
TEST_F(MenuStyleTest, AddsNoPicturesThatNobodyAsksForAgain) {
    for (int warmUp = 0; warmUp < 3; ++warmUp)
        openAndPaint();
    QPixmapCache::clear();
    constexpr int Kilobytes = 20; // some twenty arrows
    QPixmapCache::setCacheLimit(Kilobytes);
    QPixmap picture(16, 16);
    picture.fill(Qt::red);
    ASSERT_TRUE(QPixmapCache::insert("somebody else's", picture));
    for (int opening = 0; opening < 60; ++opening)
        openAndPaint();
    EXPECT_TRUE(QPixmapCache::find("somebody else's", &picture));
}

TEST_F(MenuStyleTest, PaintsWithTheColoursOfTheMenu) {
    popUp();
    const QImage usual = openMenu().grab().toImage();
    _view->closeMenus();
    settle();
    const QPalette former = QApplication::palette();
    QPalette changed = former;
    changed.setColor(QPalette::Text, Qt::red);
    changed.setColor(QPalette::WindowText, Qt::red);
    changed.setColor(QPalette::ButtonText, Qt::red);
    QApplication::setPalette(changed);
    popUp();
    EXPECT_NE(openMenu().grab().toImage(), usual);
    _view->closeMenus();
    settle();
    QApplication::setPalette(former);
    popUp();
    EXPECT_EQ(openMenu().grab().toImage(), usual);
}

} // namespace

} // namespace tarragon
