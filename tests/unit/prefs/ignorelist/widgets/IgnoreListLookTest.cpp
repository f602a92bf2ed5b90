#include "IgnoreListViewFixture.h"
#include "prefs/ignorelist/widgets/ApplicationChooser.h"
#include "prefs/ignorelist/widgets/ApplicationIcons.h"
#include "prefs/ignorelist/widgets/EntryTable.h"
#include "prefs/ignorelist/widgets/TitleDelegate.h"
#include "unit/EventCounter.h"

#include <QHeaderView>
#include <QPainter>
#include <QProxyStyle>
#include <QStringListModel>
#include <QTemporaryDir>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// What the editor looks like.
class IgnoreListLookTest : public IgnoreListViewFixture {
protected:
    // Whether anything is drawn beside the ground.
    static bool hasInk(const QImage& picture) {
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (picture.pixel(x, y) != picture.pixel(0, picture.height() - 1))
                    return true;
            }
        }
        return false;
    }
    static void expectApart(const QList<QWidget*>& widgets) {
        for (const QWidget* one : widgets) {
            for (const QWidget* other : widgets) {
                EXPECT_TRUE(one == other || !one->geometry().intersects(other->geometry()))
                    << one->objectName().toStdString() << " and " << other->objectName().toStdString();
            }
        }
    }
};

TEST_F(IgnoreListLookTest, DrawsItsRowsAndInAnEmptyTableWhatIsMissing) {
    store({entry("Editor", {"a"})});
    open();
    EXPECT_TRUE(hasInk(applications()->viewport()->grab().toImage()));
    EXPECT_TRUE(hasInk(titles()->viewport()->grab().toImage())) << "the words for an empty table";
    click(applications(), 0);
    EXPECT_TRUE(hasInk(titles()->viewport()->grab().toImage()));
    // Nothing but the row itself.
    const QImage picture = titles()->viewport()->grab().toImage();
    EXPECT_FALSE(hasInk(picture.copy(0, picture.height() / 2, picture.width(), picture.height() / 2)));
}

TEST_F(IgnoreListLookTest, ShowsWhichRowIsSelected) {
    store({entry("Clock"), entry("Editor")});
    open();
    const QImage before = applications()->viewport()->grab().toImage();
    click(applications(), 1);
    EXPECT_NE(applications()->viewport()->grab().toImage(), before);
}

TEST_F(IgnoreListLookTest, ListsWithoutHeadingAndIndent) {
    store({entry("Editor", {"a"})});
    open();
    click(applications(), 0);
    for (const QTreeView* table : {applications(), titles()}) {
        EXPECT_TRUE(table->header()->isHidden());
        EXPECT_EQ(table->visualRect(table->model()->index(0, 0)).left(), 0);
    }
    // A title is as high as an application with its picture.
    EXPECT_EQ(titles()->visualRect(titles()->model()->index(0, 0)).height(),
        applications()->visualRect(applications()->model()->index(0, 0)).height());
    EXPECT_GT(titles()->visualRect(titles()->model()->index(0, 0)).height(), titles()->fontMetrics().height());
}

TEST_F(IgnoreListLookTest, HasPicturesThatGrowWithTheFont) {
    open();
    QFont large = applications()->font();
    large.setPointSize(60);
    applications()->setFont(large);
    EXPECT_EQ(applications()->iconSize().height(), QFontMetrics(applications()->font()).height());
    const QFont before = QApplication::font();
    QApplication::setFont(large);
    EXPECT_EQ(EntryTable().iconSize().height(), QFontMetrics(large).height()) << "from the start";
    QApplication::setFont(before);
}

TEST_F(IgnoreListLookTest, HasPicturesAsLargeAsItsStyleHasThem) {
    class Style : public QProxyStyle {
    public:
        int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
            return metric == PM_SmallIconSize ? 70 : QProxyStyle::pixelMetric(metric, option, widget);
        }
    } style;
    EntryTable table;
    table.setStyle(&style);
    EXPECT_EQ(table.iconSize().height(), 70);
    table.setStyle(nullptr);
}

TEST_F(IgnoreListLookTest, SaysWhatIsMissingInTheColourOfPromptsAndOnlyWhenItIs) {
    EntryTable table;
    QPalette palette = table.palette();
    palette.setColor(QPalette::PlaceholderText, Qt::red);
    palette.setColor(QPalette::Base, Qt::white);
    table.setPalette(palette);
    table.resize(300, 100);
    EventCounter paints(*table.viewport(), QEvent::Paint);
    table.show();
    ASSERT_TRUE(QTest::qWaitFor([&] { return paints.count > 0; }));
    settle();
    const QImage blank = table.viewport()->grab().toImage();
    settle();
    paints.count = 0;
    settle();
    ASSERT_EQ(paints.count, 0);
    table.setEmptyText("Nothing");
    EXPECT_TRUE(QTest::qWaitFor([&] { return paints.count > 0; }));
    const QImage picture = table.viewport()->grab().toImage();
    bool isRed = false;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            isRed = isRed || picture.pixelColor(x, y).red() > picture.pixelColor(x, y).green() + 100;
    }
    EXPECT_TRUE(isRed);
    EXPECT_NE(picture, blank);
    QStringListModel full({"one"});
    table.setModel(&full);
    EXPECT_EQ(table.accessibleDescription(), "");
    table.setModel(nullptr);
}

TEST_F(IgnoreListLookTest, GivesTheTitlesMoreRoomAndKeepsTheHalvesApart) {
    open();
    settle();
    const QRect left = applications()->geometry();
    const QRect right = titles()->geometry();
    EXPECT_EQ(left.left(), 0) << "as wide as the pane";
    EXPECT_EQ(right.right(), view->width() - 1);
    EXPECT_NEAR(left.width() * 3, right.width() * 2, 8);
    const int gap = right.left() - left.right() - 1;
    EXPECT_GE(gap,
        button("removeApplication")->x() - button("addApplication")->geometry().right()
            + view->fontMetrics().averageCharWidth());
    for (const char* name : {"addApplication", "removeApplication", "addTitle", "removeTitle"})
        EXPECT_EQ(button(name)->width(), button(name)->sizeHint().width()) << name;
}

TEST_F(IgnoreListLookTest, IsNotMadeWiderByItsMessages) {
    open();
    const int before = view->minimumSizeHint().width();
    click(button("pickWindow"));
    picker.pick(PickedWindow{RunningApplication{"Editor", 7, "org.example.Editor", ""}, std::nullopt});
    ASSERT_NE(message(), "");
    settle();
    EXPECT_EQ(view->minimumSizeHint().width(), before);
}

TEST_F(IgnoreListLookTest, HasNoControlOverAnother) {
    open();
    QList<QWidget*> inView = view->findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
    EXPECT_GE(inView.size(), 9);
    expectApart(inView);
    click(button("addApplication"));
    auto* chooser = view->findChild<ApplicationChooser*>();
    ASSERT_NE(chooser, nullptr);
    settle();
    auto* search = chooser->findChild<QWidget*>("searchField");
    auto* list = chooser->findChild<QWidget*>("applications");
    auto* add = chooser->findChild<QWidget*>("add")->parentWidget();
    expectApart({search, list, add});
    EXPECT_LT(search->y(), list->y());
    EXPECT_LT(list->y(), add->y());
}

TEST_F(IgnoreListLookTest, ExplainsEveryButtonAndTheCheckBox) {
    open();
    for (const QAbstractButton* each : view->findChildren<QAbstractButton*>())
        EXPECT_NE(each->toolTip(), "") << each->objectName().toStdString();
    click(button("addApplication"));
    auto* chooser = view->findChild<ApplicationChooser*>();
    ASSERT_NE(chooser, nullptr);
    EXPECT_EQ(chooser->windowTitle(), "Add Application");
    EXPECT_NE(chooser->findChild<QLineEdit*>("searchField")->placeholderText(), "");
    EXPECT_NE(chooser->findChild<QLineEdit*>("searchField")->toolTip(), "");
    EXPECT_NE(chooser->findChild<QPushButton*>("other")->toolTip(), "");
}

TEST_F(IgnoreListLookTest, EditsOnTheTableItselfAndForAScreenReader) {
    store({entry("Editor", {"a"})});
    open();
    click(applications(), 0);
    click(titles(), 0);
    QTest::keyClick(titles(), Qt::Key_Return);
    ASSERT_NE(editor(), nullptr);
    EXPECT_TRUE(editor()->autoFillBackground());
    EXPECT_FALSE(editor()->hasFrame());
    EXPECT_EQ(editor()->accessibleName(), "Window title or pattern");
}

TEST_F(IgnoreListLookTest, ShowsTextsOfSeveralLinesInOne) {
    store({entry("Editor", {"one\u2028two", "one\u2029two", ""})});
    open();
    click(applications(), 0);
    EXPECT_THAT(rows(titles()), ElementsAre("one two", "one two", "(empty title)"));
    const auto font = [this](int row) { return titles()->model()->index(row, 0).data(Qt::FontRole); };
    EXPECT_FALSE(font(0).isValid());
    EXPECT_TRUE(font(2).value<QFont>().italic());
}

TEST_F(IgnoreListLookTest, DrawsAPatternInItsOwnDirection) {
    class Delegate : public TitleDelegate {
    public:
        using TitleDelegate::initStyleOption;
    } delegate;
    store({entry("Editor", {"Untitled*"})});
    open();
    click(applications(), 0);
    QStyleOptionViewItem option;
    delegate.initStyleOption(&option, titles()->model()->index(0, 0));
    EXPECT_EQ(option.text, QString::fromUtf8("\u2068Untitled*\u2069"));
}

TEST_F(IgnoreListLookTest, SaysThatThereIsNothingOnceTheLastApplicationIsRemoved) {
    store({entry("Editor")});
    open();
    EXPECT_EQ(applications()->accessibleDescription(), "");
    click(applications(), 0);
    click(button("removeApplication"));
    EXPECT_THAT(applications()->accessibleDescription().toStdString(), HasSubstr("No application"));
}

TEST_F(IgnoreListLookTest, HasTheNewPicturesWhenItIsShownAgain) {
    QTemporaryDir folder;
    QPixmap picture(16, 16);
    picture.fill(Qt::red);
    ASSERT_TRUE(picture.save(folder.filePath("red.png")));
    store({entry("Mail")});
    open();
    const auto colour = [this] {
        const auto icon = applications()->model()->index(0, 0).data(Qt::DecorationRole).value<QIcon>();
        return icon.pixmap(16).toImage().pixelColor(8, 8);
    };
    EXPECT_NE(colour(), QColor(Qt::red));
    installed.addApplication(
        {"/apps/mail.desktop", "org.example.Mail", "Mail", {}, {}, folder.filePath("red.png").toStdString()});
    EXPECT_NE(colour(), QColor(Qt::red)) << "asking takes time";
    view->hide();
    view->show();
    EXPECT_EQ(colour(), QColor(Qt::red));
}

TEST_F(IgnoreListLookTest, DrawsAWindowForAnApplicationWithoutAPicture) {
    ApplicationIcons icons(nullptr);
    const QImage picture = icons.iconOfBundle("org.example.Gone").pixmap(32).toImage();
    const auto alpha = [&picture](int x, int y) { return picture.pixelColor(x, y).alpha(); };
    EXPECT_EQ(alpha(0, 0), 0);
    EXPECT_EQ(alpha(16, 20), 0) << "inside the window";
    EXPECT_GT(alpha(16, 8), 100) << "its title bar";
    EXPECT_LT(alpha(16, 8), 200) << "it stands back";
    EXPECT_GT(alpha(3, 18), 0) << "its left edge";
    EXPECT_GT(alpha(29, 18), 0) << "its right edge";
    EXPECT_EQ(picture.pixelColor(16, 8).rgb(), QGuiApplication::palette().color(QPalette::Text).rgb());
    bool isSmooth = false;
    for (int y = 0; y < 32; ++y) {
        for (int x = 0; x < 32; ++x)
            isSmooth = isSmooth || (alpha(x, y) > 0 && alpha(x, y) < 100);
    }
    EXPECT_TRUE(isSmooth);
    const QImage selected = icons.iconOfBundle("org.example.Gone").pixmap(32, QIcon::Selected).toImage();
    const QColor ink = QGuiApplication::palette().color(QPalette::HighlightedText);
    EXPECT_NEAR(selected.pixelColor(3, 18).lightness(), ink.lightness(), 8) << "its edge on a selection";
}

TEST_F(IgnoreListLookTest, DrawsAPictureWithoutAnEffectOnWhatIsDrawnAfterIt) {
    QImage canvas(32, 32, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    ApplicationIcons(nullptr).icon("").paint(&painter, canvas.rect());
    EXPECT_TRUE(painter.worldTransform().isIdentity());
    EXPECT_EQ(painter.opacity(), 1);
}

TEST_F(IgnoreListLookTest, ForgetsThePicturesThatHaveChangedOrGone) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("mail.png");
    QPixmap red(16, 16);
    red.fill(Qt::red);
    ASSERT_TRUE(red.save(path));
    FakeInstalledApplications applications;
    applications.addApplication({"/apps/mail.desktop", "org.example.Mail", "Mail", {}, {}, path.toStdString()});
    ApplicationIcons icons(&applications);
    const auto colour = [&icons] {
        return icons.iconOfBundle("org.example.Mail").pixmap(16).toImage().pixelColor(8, 8);
    };
    ASSERT_EQ(colour(), QColor(Qt::red));
    QPixmap blue(64, 64);
    blue.fill(Qt::blue);
    ASSERT_TRUE(blue.save(path));
    icons.forget();
    EXPECT_EQ(colour(), QColor(Qt::blue));
    applications = FakeInstalledApplications();
    icons.forget();
    EXPECT_NE(colour(), QColor(Qt::blue));
    EXPECT_FALSE(icons.icon("/nowhere.png").pixmap(16).isNull());
}

TEST_F(IgnoreListLookTest, FindsPicturesInTheIconTheme) {
    const QTemporaryDir folder;
    ASSERT_TRUE(QDir(folder.path()).mkpath("plain/16x16/apps"));
    QFile index(folder.filePath("plain/index.theme"));
    ASSERT_TRUE(index.open(QIODevice::WriteOnly));
    index.write(
        "[Icon Theme]\nName=Plain\nComment=Plain\nDirectories=16x16/apps\n\n[16x16/apps]\nSize=16\nType=Fixed\n");
    index.close();
    QPixmap picture(16, 16);
    picture.fill(Qt::green);
    ASSERT_TRUE(picture.save(folder.filePath("plain/16x16/apps/mail-client.png")));
    const QStringList paths = QIcon::themeSearchPaths();
    const QString theme = QIcon::themeName();
    QIcon::setThemeSearchPaths({folder.path()});
    QIcon::setThemeName("plain");
    ApplicationIcons icons(nullptr);
    EXPECT_EQ(icons.icon("mail-client").pixmap(16).toImage().pixelColor(8, 8), QColor(Qt::green));
    // In a selected row too, at every scale.
    for (const double scale : {1.0, 2.0})
        EXPECT_EQ(icons.icon("mail-client").pixmap({16, 16}, scale, QIcon::Selected).toImage().pixelColor(8, 8),
            QColor(Qt::green));
    EXPECT_FALSE(icons.icon("nowhere").pixmap(16).isNull());
    QIcon::setThemeName(theme);
    QIcon::setThemeSearchPaths(paths);
}

} // namespace
} // namespace tarragon
