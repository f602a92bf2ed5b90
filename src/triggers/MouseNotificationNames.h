#pragma once

namespace tarragon {

// Names of the notification vocabulary for mouse buttons. Nothing posts or observes them yet.
inline constexpr const char* RightMouseButtonDown = "RightMouseButtonDown";
inline constexpr const char* RightMouseButtonUp = "RightMouseButtonUp";
inline constexpr const char* MouseButtonDown = "MouseButtonDown";
inline constexpr const char* MouseButtonUp = "MouseButtonUp";

} // namespace tarragon
