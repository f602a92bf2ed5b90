#include "platform/qt/QtStatusItems.h"

#include "platform/Log.h"
#include "platform/RunLoop.h"

#include <QAction>
#include <QFile>
#include <QIcon>
#include <QMenu>
#include <QSystemTrayIcon>

namespace tarragon {

namespace {

// Empty when there is no such image.
QString resourceOfImage(const std::string& name) {
    for (const char* extension : {".svg", ".png"}) {
        QString path = ":/images/" + QString::fromStdString(name) + extension;
        if (QFile::exists(path))
            return path;
    }
    log(LogCategory::Panel, [&] { return "no image named " + name; });
    return {};
}

// A tray without an image would show an empty place.
QIcon iconOf(const StatusItemDescription& description) {
    QIcon icon;
    if (const QString image = resourceOfImage(description.imageName); !image.isEmpty())
        icon.addFile(image);
    if (!description.alternateImageName.empty()) {
        if (const QString image = resourceOfImage(description.alternateImageName); !image.isEmpty())
            icon.addFile(image, {}, QIcon::Selected);
    }
    return icon.isNull() ? QIcon::fromTheme("open-menu") : icon;
}

class QtStatusItem : public StatusItem {
public:
    QtStatusItem(RunLoop& runLoop, const StatusItemDescription& description)
        : _icon(iconOf(description)) {
        for (const StatusMenuItem& item : description.menu) {
            // An ampersand would be taken for the mark of a mnemonic.
            QString title = QString::fromStdString(item.title).replace('&', "&&");
            // Not from within Qt's menu: the action may take this item away.
            QObject::connect(_menu.addAction(title), &QAction::triggered, &_menu,
                [&runLoop, action = item.action] { runLoop.post(action); });
        }
        _icon.setContextMenu(&_menu);
        // The menu of the item is what a plain click is to open as well.
        QObject::connect(&_icon, &QSystemTrayIcon::activated, &_menu, [this](QSystemTrayIcon::ActivationReason reason) {
            if (reason == QSystemTrayIcon::Trigger)
                _menu.popup(QCursor::pos());
        });
        _icon.show();
    }
    ~QtStatusItem() override { _icon.hide(); }
    QtStatusItem(const QtStatusItem&) = delete;
    QtStatusItem& operator=(const QtStatusItem&) = delete;

private:
    QMenu _menu; // the icon does not own it
    QSystemTrayIcon _icon;
};

} // namespace

std::unique_ptr<StatusItem> QtStatusItems::addItem(StatusItemDescription description) {
    return std::make_unique<QtStatusItem>(_runLoop, description);
}

} // namespace tarragon
