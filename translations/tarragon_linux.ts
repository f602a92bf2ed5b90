<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>AppDelegate</name>
    <message>
        <source>No program could be found to open the settings: %@</source>
        <translation>No program could be found to open the settings: %@</translation>
    </message>
    <message>
        <source>No program could be found to open the page: %@</source>
        <translation>No program could be found to open the page: %@</translation>
    </message>
</context>
<context>
    <name>ApplicationChooser</name>
    <message>
        <source>Add Application</source>
        <translation>Add Application</translation>
    </message>
    <message>
        <source>Search applications</source>
        <translation>Search applications</translation>
    </message>
    <message>
        <source>Type a part of the application&apos;s name</source>
        <translation>Type a part of the application&apos;s name</translation>
    </message>
    <message>
        <source>Installed applications</source>
        <translation>Installed applications</translation>
    </message>
    <message>
        <source>No installed application matches. &quot;Other&quot; finds an application by its file.</source>
        <translation>No installed application matches. &quot;Other&quot; finds an application by its file.</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Add</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Other…</source>
        <translation>Other…</translation>
    </message>
    <message>
        <source>Choose an application that is not in the list by its file</source>
        <translation>Choose an application that is not in the list by its file</translation>
    </message>
    <message>
        <source>Choose an Application</source>
        <translation>Choose an Application</translation>
    </message>
</context>
<context>
    <name>IgnoreListView</name>
    <message>
        <source>Type new window title or wildcard pattern here</source>
        <translation>Type new window title or wildcard pattern here</translation>
    </message>
    <message>
        <source>Select an application to see which of its windows are ignored.</source>
        <translation>Select an application to see which of its windows are ignored.</translation>
    </message>
    <message>
        <source>This entry cannot be read. Remove it and add the application again to change it.</source>
        <translation>This entry cannot be read. Remove it and add the application again to change it.</translation>
    </message>
    <message>
        <source>All windows of this application are ignored.</source>
        <translation>All windows of this application are ignored.</translation>
    </message>
    <message>
        <source>Ignore the window that you click next</source>
        <translation>Ignore the window that you click next</translation>
    </message>
    <message>
        <source>Ignored applications</source>
        <translation>Ignored applications</translation>
    </message>
    <message>
        <source>Applications:</source>
        <translation>Applications:</translation>
    </message>
    <message>
        <source>Add…</source>
        <translation>Add…</translation>
    </message>
    <message>
        <source>Add an application to the list</source>
        <translation>Add an application to the list</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Remove</translation>
    </message>
    <message>
        <source>Remove the selected application from the list</source>
        <translation>Remove the selected application from the list</translation>
    </message>
    <message>
        <source>Ignore all windows of this application</source>
        <translation>Ignore all windows of this application</translation>
    </message>
    <message>
        <source>Whatever their titles are. Without it, only windows with these titles.</source>
        <translation>Whatever their titles are. Without it, only windows with these titles.</translation>
    </message>
    <message>
        <source>Ignored window titles and patterns</source>
        <translation>Ignored window titles and patterns</translation>
    </message>
    <message>
        <source>Add Title</source>
        <translation>Add Title</translation>
    </message>
    <message>
        <source>Add a window title or pattern</source>
        <translation>Add a window title or pattern</translation>
    </message>
    <message>
        <source>Remove the selected window title or pattern</source>
        <translation>Remove the selected window title or pattern</translation>
    </message>
    <message>
        <source>Click the window to ignore. Escape cancels.</source>
        <translation>Click the window to ignore. Escape cancels.</translation>
    </message>
    <message>
        <source>The pointer cannot be had just now. Please try again.</source>
        <translation>The pointer cannot be had just now. Please try again.</translation>
    </message>
    <message>
        <source>It is not known which application that window belongs to.</source>
        <translation>It is not known which application that window belongs to.</translation>
    </message>
    <message>
        <source>That window has no title to know it by. Add its application instead.</source>
        <translation>That window has no title to know it by. Add its application instead.</translation>
    </message>
    <message>
        <source>Window title or pattern</source>
        <translation>Window title or pattern</translation>
    </message>
    <message>
        <source>(empty title)</source>
        <translation>(empty title)</translation>
    </message>
    <message>
        <source>Add the title of a window to ignore, or a pattern: * stands for any text, ? for one character.</source>
        <translation>Add the title of a window to ignore, or a pattern: * stands for any text, ? for one character.</translation>
    </message>
    <message>
        <source>Pick a Window…</source>
        <translation>Pick a Window…</translation>
    </message>
    <message>
        <source>No application is ignored yet. Add one to hide the panel over its windows.</source>
        <translation>No application is ignored yet. Add one to hide the panel over its windows.</translation>
    </message>
</context>
<context>
    <name>IgnoreMenu</name>
    <message>
        <source>Ignore all %@ windows</source>
        <translation>Ignore all %@ windows</translation>
    </message>
    <message>
        <source>Ignore all %@ windows with current title</source>
        <translation>Ignore all %@ windows with current title</translation>
    </message>
</context>
<context>
    <name>KeyComboWords</name>
    <message>
        <source>Return</source>
        <translation>Return</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tab</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Space</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Backspace</translation>
    </message>
    <message>
        <source>Escape</source>
        <translation>Escape</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Num Lock</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Enter</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Insert</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Home</translation>
    </message>
    <message>
        <source>Page Up</source>
        <translation>Page Up</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Delete</translation>
    </message>
    <message>
        <source>End</source>
        <translation>End</translation>
    </message>
    <message>
        <source>Page Down</source>
        <translation>Page Down</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Left</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Right</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Down</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Up</translation>
    </message>
    <message>
        <source>Command+</source>
        <translation>Ctrl+</translation>
    </message>
    <message>
        <source>Option+</source>
        <translation>Alt+</translation>
    </message>
    <message>
        <source>Control+</source>
        <translation>Super+</translation>
    </message>
    <message>
        <source>Shift+</source>
        <translation>Shift+</translation>
    </message>
    <message>
        <source>Pad %@</source>
        <translation>Pad %@</translation>
    </message>
</context>
<context>
    <name>MessagePanels</name>
    <message>
        <source>About Tarragon</source>
        <translation>About Tarragon</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>Open Web Page</source>
        <translation>Open Web Page</translation>
    </message>
    <message>
        <source>Something went wrong.</source>
        <translation>Something went wrong.</translation>
    </message>
    <message>
        <source>Open System Preferences</source>
        <translation>Switch On and Quit</translation>
    </message>
    <message>
        <source>Quit Tarragon</source>
        <translation>Quit Tarragon</translation>
    </message>
    <message>
        <source>The address of the release list is no https, http or file address: %@</source>
        <translation>The address of the release list is no https, http or file address: %@</translation>
    </message>
    <message>
        <source>The release list cannot be reached: %@</source>
        <translation>The release list cannot be reached: %@</translation>
    </message>
    <message>
        <source>The address of the release list leads on to one that is less safe.</source>
        <translation>The address of the release list leads on to one that is less safe.</translation>
    </message>
    <message>
        <source>The server of the release list answered: %@</source>
        <translation>The server of the release list answered: %@</translation>
    </message>
    <message>
        <source>The release list did not arrive in time.</source>
        <translation>The release list did not arrive in time.</translation>
    </message>
    <message>
        <source>What arrived is too large for a release list.</source>
        <translation>What arrived is too large for a release list.</translation>
    </message>
    <message>
        <source>What arrived is no release list.</source>
        <translation>What arrived is no release list.</translation>
    </message>
    <message>
        <source>The release list names no release.</source>
        <translation>The release list names no release.</translation>
    </message>
    <message>
        <source>The program that asks for updates did not do its work.</source>
        <translation>The program that asks for updates did not do its work.</translation>
    </message>
    <message>
        <source>No address is configured where new versions are listed.</source>
        <translation>No address is configured where new versions are listed.</translation>
    </message>
    <message>
        <source>This is Tarragon %@. Newer versions come with the updates of your system, or set &quot;UpdateFeed&quot; in the preferences to the address of a release list.</source>
        <translation>This is Tarragon %@. Newer versions come with the updates of your system, or set &quot;UpdateFeed&quot; in the preferences to the address of a release list.</translation>
    </message>
    <message>
        <source>Looking for a newer version...</source>
        <translation>Looking for a newer version...</translation>
    </message>
    <message>
        <source>This is Tarragon %@.</source>
        <translation>This is Tarragon %@.</translation>
    </message>
    <message>
        <source>Tarragon is up to date.</source>
        <translation>Tarragon is up to date.</translation>
    </message>
    <message>
        <source>No version is newer than %@, which is yours.</source>
        <translation>No version is newer than %@, which is yours.</translation>
    </message>
    <message>
        <source>Tarragon %@ is available.</source>
        <translation>Tarragon %@ is available.</translation>
    </message>
    <message>
        <source>You have version %@.</source>
        <translation>You have version %@.</translation>
    </message>
    <message>
        <source>It could not be told whether there is a newer version.</source>
        <translation>It could not be told whether there is a newer version.</translation>
    </message>
    <message>
        <source>Shows the menu bar of the application in front where your pointer and eyes are.</source>
        <translation>Shows the menu bar of the application in front where your pointer and eyes are.</translation>
    </message>
    <message>
        <source>Copyright 2026 The Tarragon developers. Free software under the MIT License.</source>
        <translation>Copyright 2026 The Tarragon developers. Free software under the MIT License.</translation>
    </message>
    <message>
        <source>Made with Qt, libdbus, XCB, libxkbcommon, libplist, pugixml, libappstream and JSON for Modern C++.</source>
        <translation>Made with Qt, libdbus, XCB, libxkbcommon, libplist, pugixml, libappstream and JSON for Modern C++.</translation>
    </message>
    <message>
        <source>Using Tarragon</source>
        <translation>Using Tarragon</translation>
    </message>
    <message>
        <source>Press the hot key (Alt+Space unless you changed it) to open the menus of the application in front at the pointer. Choose an item with the mouse, or with the arrow keys and Return; Escape closes the menus.</source>
        <translation>Press the hot key (Alt+Space unless you changed it) to open the menus of the application in front at the pointer. Choose an item with the mouse, or with the arrow keys and Return; Escape closes the menus.</translation>
    </message>
    <message>
        <source>If the hot key does nothing, your desktop uses the same combination for itself: choose another one in the preferences.</source>
        <translation>If the hot key does nothing, your desktop uses the same combination for itself: choose another one in the preferences.</translation>
    </message>
    <message>
        <source>Tarragon requires that Apple&apos;s Accessibility API be enabled.</source>
        <translation>Tarragon needs the accessibility services of your desktop.</translation>
    </message>
    <message>
        <source>Would you like to launch System Preferences so that you can turn on &quot;Enable access for assistive devices&quot;? (Please relaunch Tarragon after turning on this setting)</source>
        <translation>Would you like to switch them on? Tarragon then ends; please start it again, and restart applications whose menus do not show. (On GNOME, Xfce and most other desktops these services come with the package at-spi2-core. Without it nothing happens.)</translation>
    </message>
</context>
<context>
    <name>SRModifierFlags</name>
    <message>
        <source>Command + </source>
        <translation>Ctrl + </translation>
    </message>
    <message>
        <source>Option + </source>
        <translation>Alt + </translation>
    </message>
    <message>
        <source>Control + </source>
        <translation>Super + </translation>
    </message>
    <message>
        <source>Shift + </source>
        <translation>Shift + </translation>
    </message>
</context>
<context>
    <name>SRRecorder</name>
    <message>
        <source>Record a combination</source>
        <translation>Record a combination</translation>
    </message>
    <message>
        <source>Press the keys</source>
        <translation>Press the keys</translation>
    </message>
    <message>
        <source>Another program is using the keyboard. Try again in a moment.</source>
        <translation>Another program is using the keyboard. Try again in a moment.</translation>
    </message>
    <message>
        <source>The desktop has taken the keyboard back. Nothing was recorded; try again.</source>
        <translation>The desktop has taken the keyboard back. Nothing was recorded; try again.</translation>
    </message>
    <message>
        <source>This key cannot be used. Press another one, or Escape to leave it as it was.</source>
        <translation>This key cannot be used. Press another one, or Escape to leave it as it was.</translation>
    </message>
    <message>
        <source>This key opens the menus even where you want to type with it. Hold another key with it, such as Alt.</source>
        <translation>This key opens the menus even where you want to type with it. Hold another key with it, such as Alt.</translation>
    </message>
    <message>
        <source>The key combination can&apos;t be used!</source>
        <translation>The key combination can&apos;t be used!</translation>
    </message>
    <message>
        <source>The desktop does not tell which key combinations are its own, so that this one may be one of them.</source>
        <translation>The desktop does not tell which key combinations are its own, so that this one may be one of them.</translation>
    </message>
    <message>
        <source>This key has no name in the keyboard layout that is switched on.</source>
        <translation>This key has no name in the keyboard layout that is switched on.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Key combination</source>
        <translation>Key combination</translation>
    </message>
    <message>
        <source>Press it and then the keys. Escape leaves it as it was, Backspace clears it.</source>
        <translation>Press it and then the keys. Escape leaves it as it was, Backspace clears it.</translation>
    </message>
    <message>
        <source>Leave it as it was</source>
        <translation>Leave it as it was</translation>
    </message>
    <message>
        <source>Clear the combination</source>
        <translation>Clear the combination</translation>
    </message>
</context>
<context>
    <name>SRValidator</name>
    <message>
        <source>it&apos;s already used</source>
        <translation>it&apos;s already used</translation>
    </message>
    <message>
        <source>it&apos;s already used by a system-wide keyboard shortcut. (If you really want to use this key combination, most shortcuts can be changed in the Keyboard &amp; Mouse panel in System Preferences.)</source>
        <translation>it&apos;s already used by a system-wide keyboard shortcut. (If you really want to use this key combination, most shortcuts can be changed in the keyboard settings of your desktop.)</translation>
    </message>
    <message>
        <source>it&apos;s already used by the menu item &quot;%@&quot;.</source>
        <translation>it&apos;s already used by the menu item &quot;%@&quot;.</translation>
    </message>
    <message>
        <source>The key combination %@ can&apos;t be used!</source>
        <translation>The key combination %@ can&apos;t be used!</translation>
    </message>
    <message>
        <source>The key combination &quot;%@&quot; can&apos;t be used because %@</source>
        <translation>The key combination &quot;%@&quot; can&apos;t be used because %@</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>it&apos;s already used by a system-wide keyboard shortcut, %@. (If you really want to use this key combination, most shortcuts can be changed in the Keyboard &amp; Mouse panel in System Preferences.)</source>
        <translation>it&apos;s already used by a system-wide keyboard shortcut, %@. (If you really want to use this key combination, most shortcuts can be changed in the keyboard settings of your desktop.)</translation>
    </message>
</context>
<context>
    <name>TarragonMenu</name>
    <message>
        <source>About Tarragon...</source>
        <translation>About Tarragon...</translation>
    </message>
    <message>
        <source>Preferences...</source>
        <translation>Preferences...</translation>
    </message>
    <message>
        <source>Check for Updates</source>
        <translation>Check for Updates</translation>
    </message>
    <message>
        <source>Help...</source>
        <translation>Help...</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quit</translation>
    </message>
</context>
<context>
    <name>ZDMouseButtonIdentifier</name>
    <message>
        <source>Click here with the mouse button that is to open the menus.</source>
        <translation>Click here with the mouse button that is to open the menus.</translation>
    </message>
    <message>
        <source>Button Number: %@</source>
        <translation>Button Number: %@</translation>
    </message>
</context>
</TS>
