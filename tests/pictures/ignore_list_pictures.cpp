// Draws the editor of the ignore list and its dialog in both themes, both directions, three scales and several sizes of
// font, one picture each, into the folder named.

#include "Pictures.h"
#include "fake/FakeDefaults.h"
#include "fake/FakeInstalledApplications.h"
#include "fake/FakeWindowPicker.h"
#include "ignore/IgnoreDictionary.h"
#include "platform/qt/QtTexts.h"
#include "platform/qt/WholePixelStyle.h"
#include "prefs/ignorelist/widgets/ApplicationChooser.h"
#include "prefs/ignorelist/widgets/ApplicationIcons.h"
#include "prefs/ignorelist/widgets/IgnoreListView.h"

#include <iostream>
#include <string>
#include <vector>

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QStyle>
#include <QTreeView>

namespace tarragon {

namespace {

constexpr QSize PaneSize(560, 330);
constexpr int Margin = 12;

TarragonBlacklist entry(const std::string& name, std::vector<std::string> titles, bool all) {
    TarragonBlacklist made;
    made.setAppName(name);
    made.setIgnoreAllAppWindows(all);
    made.setWindowsWithTitlesToIgnore(std::move(titles));
    return made;
}

// Everything that the pictures show.
class Desktop {
public:
    Desktop() {
        for (const char* name :
            {"Archive Manager", "Calculator", "Document Viewer", "Image Viewer", "Mail", "Music", "Text Editor"})
            installed.addApplication({name, std::string("org.example.") + name, name, {}, {}, ""});
    }
    void fill() {
        IgnoreDictionary dictionary;
        const bool isStored = dictionary.setEntry("org.example.Mail", entry("Mail", {}, true))
            && dictionary.setEntry("org.example.Editor",
                entry("Text Editor",
                    {"Untitled*", "Ungespeicherte Änderungen an der Übersicht der Jahresberichte (2026) - Entwurf",
                        "مستند جديد", "Chapter ?", ""},
                    false))
            && dictionary.setEntry("org.example.Long",
                entry("An application with a name that is longer than anything that fits into a row", {}, false))
            && dictionary.setEntry("org.example.Nameless", TarragonBlacklist()) && dictionary.store(defaults);
        if (!isStored)
            std::cerr << "The list could not be stored\n";
    }

    FakeDefaults defaults;
    FakeInstalledApplications installed;
    FakeWindowPicker picker;
};

enum class Pane { Empty, Filled, AllWindows, Picking };

struct Look {
    QString theme;
    double scale;
    Qt::LayoutDirection direction;
    int fontSize;
};

bool drawPane(Pane pane, const Look& look, const QString& file) {
    Desktop desktop;
    if (pane != Pane::Empty)
        desktop.fill();
    IgnoreListView view;
    view.setServices(desktop.defaults, &desktop.installed, &desktop.picker);
    view.setContentsMargins(Margin, Margin, Margin, Margin);
    view.resize(PaneSize.expandedTo(view.minimumSizeHint()));
    moveToScreen(view, look.scale);
    view.show();
    auto* const applications = view.findChild<QTreeView*>("applications");
    auto* const titles = view.findChild<QTreeView*>("titles");
    if (pane == Pane::Filled || pane == Pane::AllWindows)
        applications->setCurrentIndex(applications->model()->index(pane == Pane::Filled ? 1 : 0, 0));
    if (pane == Pane::Filled)
        titles->setCurrentIndex(titles->model()->index(1, 0));
    if (pane == Pane::Picking)
        view.findChild<QPushButton*>("pickWindow")->click();
    QCoreApplication::processEvents();
    return view.grab().save(file);
}

bool drawChooser(const Look& look, const QString& file) {
    Desktop desktop;
    ApplicationIcons icons(&desktop.installed);
    ApplicationChooser chooser(desktop.installed, icons, "");
    moveToScreen(chooser, look.scale);
    chooser.show();
    chooser.findChild<QLineEdit*>()->setText("er");
    QCoreApplication::processEvents();
    return chooser.grab().save(file);
}

bool drawAll(const QDir& folder, const Look& look) {
    QApplication::setLayoutDirection(look.direction);
    QFont font("DejaVu Sans");
    font.setPointSize(look.fontSize);
    QApplication::setFont(font);
    const QString name = QString("%1-%2-%3-%4.png")
                             .arg(look.theme)
                             .arg(look.scale)
                             .arg(look.direction == Qt::LeftToRight ? "ltr" : "rtl")
                             .arg(look.fontSize);
    return drawPane(Pane::Empty, look, folder.filePath("ignorelist-empty-" + name))
        && drawPane(Pane::Filled, look, folder.filePath("ignorelist-filled-" + name))
        && drawPane(Pane::AllWindows, look, folder.filePath("ignorelist-all-" + name))
        && drawPane(Pane::Picking, look, folder.filePath("ignorelist-picking-" + name))
        && drawChooser(look, folder.filePath("ignorelist-chooser-" + name));
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
    const QDir& folder = request->folder;
    const QPalette light = QApplication::style()->standardPalette();
    std::vector<Look> looks;
    for (const char* theme : {"light", "dark"}) {
        for (const double scale : PictureScales) {
            for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft})
                looks.push_back({theme, scale, direction, 10});
        }
        for (const int fontSize : {9, 16, 24})
            looks.push_back({theme, 1, Qt::LeftToRight, fontSize});
    }
    for (const Look& look : looks) {
        QApplication::setPalette(look.theme == "dark" ? darkPalette() : light);
        if (!drawAll(folder, look)) {
            std::cerr << "Cannot write into " << arguments[1] << '\n';
            return 1;
        }
    }
    return 0;
}
