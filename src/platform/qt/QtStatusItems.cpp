#include "platform/qt/QtStatusItems.h"

#include "platform/Log.h"
#include "platform/RunLoop.h"

#include <utility>

#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QEvent>
#include <QMenu>
#include <QPalette>
#include <QSystemTrayIcon>

namespace tarragon {

namespace {

// Calls the function when the colours of the desktop have changed.
class PaletteWatch : public QObject {
public:
    explicit PaletteWatch(std::function<void()> changed)
        : _changed(std::move(changed)) {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == qApp && event->type() == QEvent::ApplicationPaletteChange)
            _changed();
        return false;
    }

private:
    std::function<void()> _changed;
};

// What the item shows in one tray. Destroying it removes it from there.
struct TrayPresence {
    QMenu menu; // the icons do not own it
    std::unique_ptr<QSystemTrayIcon> notifierIcon;
    std::unique_ptr<EmbeddedIcon> embeddedIcon;
};

} // namespace

class QtStatusItem : public StatusItem {
public:
    QtStatusItem(QtStatusItems& items, StatusItemDescription description)
        : _items(items)
        , _description(std::move(description))
        , _image(_description) {
        _items._items.push_back(this);
        show(_items.trayKind());
    }
    ~QtStatusItem() override { std::erase(_items._items, this); }
    QtStatusItem(const QtStatusItem&) = delete;
    QtStatusItem& operator=(const QtStatusItem&) = delete;

    void show(TrayKind kind) {
        _presence.reset();
        if (kind == TrayKind::None)
            log(LogCategory::Panel, [] { return "no tray shows the status item; it waits for one"; });
        else
            _presence = std::make_unique<TrayPresence>();
        if (kind == TrayKind::Notifier)
            showAsNotifier(*_presence);
        else if (kind == TrayKind::Embedding)
            showEmbedded(*_presence);
    }

private:
    void fill(QMenu& menu) {
        for (const StatusMenuItem& item : _description.menu) {
            // An ampersand would be taken for the mark of a mnemonic.
            const QString title = QString::fromStdString(item.title).replace('&', "&&");
            // Not from within Qt's menu: the action may take this item away.
            QObject::connect(menu.addAction(title), &QAction::triggered, &menu,
                [&runLoop = _items._runLoop, action = item.action] { runLoop.post(action); });
        }
    }

    // The toolkit decides once in the life of a program which kind of tray it serves. It is first asked when a watcher
    // is there, and takes the notifier's way then.
    void showAsNotifier(TrayPresence& presence) {
        // The colour of such a tray is not told; mostly it is that of the windows.
        const ImageGround ground = groundOfColour(QApplication::palette().color(QPalette::Window));
        presence.notifierIcon = std::make_unique<QSystemTrayIcon>(_image.icon(ground));
        fill(presence.menu);
        presence.notifierIcon->setContextMenu(&presence.menu);
        // The menu of the item is what a plain click is to open as well.
        QObject::connect(presence.notifierIcon.get(), &QSystemTrayIcon::activated, &presence.menu,
            [&menu = presence.menu](QSystemTrayIcon::ActivationReason reason) {
                if (reason == QSystemTrayIcon::Trigger)
                    menu.popup(QCursor::pos());
            });
        presence.notifierIcon->show();
    }

    void showEmbedded(TrayPresence& presence) {
        fill(presence.menu);
        presence.embeddedIcon = _items._embeddingTray->addIcon(
            {[this](int pixels, ImageGround ground) { return _image.image(pixels, ground); },
                [&menu = presence.menu] { menu.popup(QCursor::pos()); }});
    }

    QtStatusItems& _items;
    const StatusItemDescription _description;
    StatusItemImage _image;
    std::unique_ptr<TrayPresence> _presence; // nullptr without a tray
};

QtStatusItems::QtStatusItems(RunLoop& runLoop, EmbeddingTray* embeddingTray)
    : _runLoop(runLoop)
    , _embeddingTray(embeddingTray)
    , _notifierWatch([this] { showAnew(); })
    , _paletteWatch(std::make_unique<PaletteWatch>([this] { showAnew(); })) {
    if (_embeddingTray != nullptr) {
        _embeddingTray->setChangedHandler([this] {
            // Whoever is shown over the session bus stays there.
            if (!_notifierWatch.hasHost())
                showAnew();
        });
    }
}

QtStatusItems::~QtStatusItems() {
    if (_embeddingTray != nullptr)
        _embeddingTray->setChangedHandler({});
}

std::unique_ptr<StatusItem> QtStatusItems::addItem(StatusItemDescription description) {
    return std::make_unique<QtStatusItem>(*this, std::move(description));
}

TrayKind QtStatusItems::trayKind() const {
    if (_notifierWatch.hasHost())
        return TrayKind::Notifier;
    return _embeddingTray != nullptr && _embeddingTray->isThere() ? TrayKind::Embedding : TrayKind::None;
}

void QtStatusItems::showAnew() {
    for (QtStatusItem* item : _items)
        item->show(trayKind());
}

} // namespace tarragon
