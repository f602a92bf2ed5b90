#pragma once

#include "panels/PanelWindow.h"

#include <list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarragon {

// Windows of panels in memory. Titles are 8 points wide a byte and 10 more, and 18 high; the desktop's title-bar font
// has 13 points.
class FakePanelToolkit : public PanelToolkit {
public:
    // What one window was told.
    struct Window {
        PanelWindowHandler* handler = nullptr; // nullptr once the window has ended
        std::string name; // the title of the window
        Rect frameNS;
        bool visible = false;
        double alpha = 1;
        PanelLevel level = PanelLevel::FrontWindow;
        PanelContent content;
        int timesDisplayed = 0;
        std::vector<Rect> frames; // every one that was set
        std::vector<std::string> told; // "front", "out", "level" and "frame", in order

        // As a user sees it.
        bool isSeen() const { return handler && visible && alpha > 0; }
        // The first button of that title; nothing when there is none.
        const ButtonContent* button(std::string_view title) const;
        std::vector<std::string> titles() const;

        // What the pointer does; points from the bottom-left corner.
        void press(const Point& location, bool controlKey = false);
        void rightPress(const Point& location);
        void drag(const Point& from, const Point& toNS);
        void release();
        void movePointer(const std::optional<Point>& location);
        // The same in the middle of a button.
        void press(std::string_view title, bool controlKey = false);
        void rightPress(std::string_view title);
        void movePointer(std::string_view title);

    private:
        Point middleOf(std::string_view title) const;
        Point inCocoaSpace(const Point& location) const;
    };

    // All windows that were made, the ended ones too, in order.
    std::list<Window>& windows() { return _windows; }
    // The one made last; there has to be one.
    Window& latest() { return _windows.back(); }
    std::size_t livingWindows() const;

    std::unique_ptr<PanelWindow> makeWindow(PanelWindowHandler& handler, const std::string& title) override;
    Size sizeThatFits(const ButtonContent& content) override;
    double titleBarFontSize(double size) override { return size > 0 ? size : 13; }

private:
    std::list<Window> _windows;
};

} // namespace tarragon
