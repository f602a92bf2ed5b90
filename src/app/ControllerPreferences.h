#pragma once

#include <cstdint>

namespace tarragon {

// The controller's own copies of the settings, as they were when they were last read.
struct ControllerPreferences {
    bool _enableHotkey = false;
    bool _foldAlternate = false;
    bool _keyEquivalents = false;
    bool _showAppleMenu = false;
    bool _showTarragonMenu = false;
    bool _tarragonAlwaysVisible = false;
    bool _tarragonAlwaysRight = false;
    bool _showOnPrimaryScreen = false;
    bool _enableButton = false;
    bool _horizontal = false;
    bool _smartIgnore = false;
    std::int8_t _fontSizeSmall = 0; // in spite of its name a point size
    std::int8_t _titleFontSizeSmall = 0; // likewise
    std::int64_t _buttonStyle = 0;
    bool _showApplicationMenu = false;
    bool _screenTopEnabled = false;
    bool _screenTopAutoHide = false;
    bool _screenTopTransparency = false;
    bool _mouseButtonEnabled = false;
    bool _screenTopHalfHotZone = false;
    bool _hideOnPrimaryTopEdge = false;
};

} // namespace tarragon
