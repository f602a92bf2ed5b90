#pragma once

#include "platform/StatusItems.h"
#include "platform/qt/EmbeddingTray.h"
#include "platform/qt/NotifierWatch.h"

#include <cstdint>
#include <vector>

#include <QObject>

namespace tarragon {

class QtStatusItem;
class RunLoop;

// Where a status item is shown.
enum class TrayKind : std::uint8_t { None, Notifier, Embedding };

// Status items as notifier items on the session bus where a tray shows these, else in a tray that takes windows in.
// Both may come and go at any time; the items follow them. Needs the QApplication.
class QtStatusItems : public StatusItems {
public:
    // Neither is owned; both outlive this object. Without an embedding tray the session bus alone is looked at.
    explicit QtStatusItems(RunLoop& runLoop, EmbeddingTray* embeddingTray = nullptr);
    ~QtStatusItems() override;
    QtStatusItems(const QtStatusItems&) = delete;
    QtStatusItems& operator=(const QtStatusItems&) = delete;

    // The item must not outlive this object.
    std::unique_ptr<StatusItem> addItem(StatusItemDescription description) override;

private:
    friend class QtStatusItem;

    TrayKind trayKind() const;
    void showAnew();

    RunLoop& _runLoop;
    EmbeddingTray* _embeddingTray;
    NotifierWatch _notifierWatch;
    std::vector<QtStatusItem*> _items;
    std::unique_ptr<QObject> _paletteWatch;
};

} // namespace tarragon
