// Draws contact sheets of the preferences window, every pane in one picture for each theme, direction and scale, into
// the folder named.

#include "Pictures.h"
#include "app/RegisteredPreferences.h"
#include "fake/FakePlatform.h"
#include "platform/qt/QtTexts.h"
#include "platform/qt/WholePixelStyle.h"
#include "prefs/PreferencesWindowController.h"
#include "prefs/widgets/QtPreferencesInterface.h"
#include "prefs/widgets/QtPreferencesWindow.h"

#include <algorithm>
#include <iostream>
#include <memory>
#include <string>

#include <QApplication>
#include <QDir>
#include <QPainter>
#include <QScreen>
#include <QStyle>

namespace tarragon {

namespace {

// Keeps an eye on the window that the controller owns.
class WatchedInterface : public PreferencesInterface {
public:
    explicit WatchedInterface(const Platform& platform)
        : _interface(platform, "1.2.3", std::cerr) { }
    std::unique_ptr<PreferencesWindow> loadWindow(PreferencesWindowController& controller) override {
        auto made = _interface.loadWindow(controller);
        window = dynamic_cast<QtPreferencesWindow*>(made.get());
        return made;
    }
    QtPreferencesWindow* window = nullptr;

private:
    QtPreferencesInterface _interface;
};

// Every pane of a window, in rows of three.
QImage sheetOfPanes(double scale, bool showsNotices) {
    FakePlatform fake;
    fake.defaults.registerDefaults(registeredPreferences());
    fake.keyboard.setSymbolicHotKeys({{SymbolicHotKey{true, 49, hotkey::OptionKey}}});
    Platform platform = fake.platform();
    platform.settingsWithoutEffect = {"FoldAlternate", "ShowAppleMenu", "ShowApplicationMenu", "ButtonHasShadow",
        "ButtonHasTexture", "ButtonHasBorder", "ButtonRound"};
    WatchedInterface interface(platform);
    PreferencesWindowController controller(
        {platform.accessibility, platform.defaults, platform.workspace, platform.hotKeys, platform.keyboard, nullptr,
            "", {"https://p", "https://s", "https://t", "https://f"}},
        interface, nullptr);
    QtPreferencesWindow& window = *interface.window;
    moveToScreen(window, scale);
    controller.displayWindow();
    if (showsNotices) {
        window.setHotKeyRefusal(HotKeyRefusal{"Alt+Space", "Ctrl+Shift+Space"});
        window.setBorderNotice(BorderNotice::AccessIsMissing);
        window.setHideHotKeyWarning(false);
        window.setHideButtonWarning(false);
    }
    constexpr int Columns = 3;
    constexpr int Gap = 16;
    QList<QImage> panes;
    for (const PreferenceItem& item : window.toolbarItems()) {
        window.setSelectedItem(static_cast<std::size_t>(panes.size()));
        controller.selectPreferencesForItem(item, false);
        for (int round = 0; round < 3; ++round) {
            QCoreApplication::sendPostedEvents();
            QCoreApplication::processEvents();
        }
        panes += window.grab().toImage();
    }
    QList<QPoint> places;
    int top = Gap;
    for (qsizetype first = 0; first < panes.size(); first += Columns) {
        double row = 0;
        for (qsizetype index = first; index < std::min(first + Columns, panes.size()); ++index) {
            places += QPoint(Gap + int(index - first) * (window.width() + Gap), top);
            row = std::max(row, panes[index].deviceIndependentSize().height());
        }
        top += int(row) + Gap;
    }
    QImage sheet(QSize(Columns * (window.width() + Gap) + Gap, top) * scale, QImage::Format_ARGB32_Premultiplied);
    sheet.setDevicePixelRatio(scale);
    sheet.fill(Qt::gray);
    QPainter painter(&sheet);
    for (qsizetype index = 0; index < panes.size(); ++index)
        painter.drawImage(places[index], panes[index]);
    painter.end();
    return sheet;
}

} // namespace

} // namespace tarragon

int main(int argumentCount, char** arguments) {
    using namespace tarragon;
    usePictureScreens();
    const QApplication application(argumentCount, arguments);
    int exitStatus = 0;
    const auto request = pictureRequest(argumentCount, arguments, exitStatus);
    if (!request)
        return exitStatus;
    const QtTexts texts(":/translations/tarragon_linux.qm", {request->language});
    QApplication::setStyle(new WholePixelStyle("Fusion"));
    // Off the windows: what the pointer is above looks different.
    QCursor::setPos(QGuiApplication::primaryScreen()->geometry().bottomRight());
    const QDir& folder = request->folder;
    const QPalette light = QApplication::style()->standardPalette();
    const auto save = [&folder](const QString& name, double scale, bool showsNotices) {
        const QString file = folder.filePath(QString("preferences-%1-%2.png").arg(name).arg(scale));
        if (sheetOfPanes(scale, showsNotices).save(file))
            return true;
        std::cerr << "Cannot write " << file.toStdString() << '\n';
        return false;
    };
    const QFont font = QApplication::font();
    for (const auto& [theme, palette] : {std::pair("light", light), std::pair("dark", darkPalette())}) {
        QApplication::setPalette(palette);
        for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            QApplication::setLayoutDirection(direction);
            const QString name = QString(theme) + (direction == Qt::RightToLeft ? "-right-to-left" : "");
            for (const double scale : PictureScales) {
                if (!save(name, scale, false))
                    return 1;
            }
            if (!save(name + "-notices", 1, true))
                return 1;
        }
        QApplication::setLayoutDirection(Qt::LeftToRight);
        for (const int points : {9, 24}) {
            QFont sized = font;
            sized.setPointSize(points);
            QApplication::setFont(sized);
            if (!save(QString("%1-%2pt").arg(theme).arg(points), 1, false))
                return 1;
        }
        QApplication::setFont(font);
    }
    return 0;
}
