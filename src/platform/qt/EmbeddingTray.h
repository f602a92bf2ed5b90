#pragma once

#include "platform/qt/StatusItemImage.h"

#include <functional>
#include <memory>

#include <QImage>
#include <QPoint>

namespace tarragon {

// An icon within a tray that takes windows in. Destroying it removes it.
class EmbeddedIcon {
public:
    virtual ~EmbeddedIcon() = default;
};

struct EmbeddedIconContent {
    std::function<QImage(int pixels, ImageGround ground)> image;
    std::function<void()> clicked; // with any button of the pointer; called from the run loop
};

// The older kind of tray, which takes the windows of other programs in. Main thread only.
class EmbeddingTray {
public:
    virtual ~EmbeddingTray() = default;

    virtual bool isThere() const = 0;
    // Called from the run loop after a tray has come or gone, or another one has taken its place: its icons are gone
    // then. One handler; an empty one for none.
    virtual void setChangedHandler(std::function<void()> handler) = 0;
    // nullptr when there is no tray. The icon must not outlive this object.
    [[nodiscard]] virtual std::unique_ptr<EmbeddedIcon> addIcon(EmbeddedIconContent content) = 0;
};

} // namespace tarragon
