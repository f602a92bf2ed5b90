<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>AccessibilityAlert</name>
    <message>
        <source>Tarragon requires that Apple&apos;s Accessibility API be enabled.</source>
        <translation>Tarragon needs the accessibility services of your desktop.</translation>
    </message>
    <message>
        <source>Would you like to launch System Preferences so that you can turn on &quot;Enable access for assistive devices&quot;? (Please relaunch Tarragon after turning on this setting)</source>
        <translation>Would you like to switch them on? Tarragon then ends; please start it again, and restart applications whose menus do not show. (On GNOME, Xfce and most other desktops these services come with the package at-spi2-core.)</translation>
    </message>
    <message>
        <source>Open System Preferences</source>
        <translation>Switch On and Quit</translation>
    </message>
    <message>
        <source>Quit Tarragon</source>
        <translation>Quit Tarragon</translation>
    </message>
</context>
<context>
    <name>AppDelegate</name>
    <message>
        <source>No program could be found to open the page: %@</source>
        <translation>No program could be found to open the page: %@</translation>
    </message>
    <message>
        <source>%@ does not open the menus</source>
        <translation>%@ does not open the menus</translation>
    </message>
    <message>
        <source>The desktop or another program keeps this combination of keys for itself.</source>
        <translation>The desktop or another program keeps this combination of keys for itself.</translation>
    </message>
    <message>
        <source>Choose Another</source>
        <translation>Choose Another</translation>
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
    <message>
        <source>Clear the search</source>
        <translation>Clear the search</translation>
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
        <source>Add the title of a window to ignore, or a pattern: * stands for any text, ? for one character.</source>
        <translation>Add the title of a window to ignore, or a pattern: * stands for any text, ? for one character.</translation>
    </message>
    <message>
        <source>Pick a Window…</source>
        <translation>Pick a Window…</translation>
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
        <source>No application is ignored yet. Add one to hide the panel over its windows.</source>
        <translation>No application is ignored yet. Add one to hide the panel over its windows.</translation>
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
        <source>Applications:</source>
        <translation>Applications:</translation>
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
</context>
<context>
    <name>PreferenceTexts</name>
    <message>
        <source>A combination of keys opens the menus at the pointer, once you have switched it on under &quot;Hot Key&quot;.</source>
        <translation>A combination of keys opens the menus at the pointer, once you have switched it on under &quot;Hot Key&quot;.</translation>
    </message>
    <message>
        <source>A combination of keys opens the menus at the pointer, once you have chosen one that is free.</source>
        <translation>A combination of keys opens the menus at the pointer, once you have chosen one that is free.</translation>
    </message>
    <message>
        <source>Press %@ anywhere, and the menus of the application in front open at the pointer.</source>
        <translation>Press %@ anywhere, and the menus of the application in front open at the pointer.</translation>
    </message>
    <message>
        <source>A mouse button can do the same: switch that on under &quot;Hot Key&quot;.</source>
        <translation>A mouse button can do the same: switch that on under &quot;Hot Key&quot;.</translation>
    </message>
    <message>
        <source>The middle mouse button does the same.</source>
        <translation>The middle mouse button does the same.</translation>
    </message>
    <message>
        <source>Mouse button %@ does the same.</source>
        <translation>Mouse button %@ does the same.</translation>
    </message>
    <message>
        <source>Click an item afterwards, or hold the button, move onto an item and let go there.</source>
        <translation>Click an item afterwards, or hold the button, move onto an item and let go there.</translation>
    </message>
    <message>
        <source>%@ does not open the menus: the desktop or another program keeps this combination for itself.</source>
        <translation>%@ does not open the menus: the desktop or another program keeps this combination for itself.</translation>
    </message>
    <message>
        <source>Please choose another one.</source>
        <translation>Please choose another one.</translation>
    </message>
    <message>
        <source>%@ is free.</source>
        <translation>%@ is free.</translation>
    </message>
    <message>
        <source>Choose Another Combination</source>
        <translation>Choose Another Combination</translation>
    </message>
    <message>
        <source>Use %@</source>
        <translation>Use %@</translation>
    </message>
    <message>
        <source>Version %@</source>
        <translation>Version %@</translation>
    </message>
    <message>
        <source>The settings cannot be written to disk: changes are lost when Tarragon quits. The disk may be full, or the folder of the settings protected.</source>
        <translation>The settings cannot be written to disk: changes are lost when Tarragon quits. The disk may be full, or the folder of the settings protected.</translation>
    </message>
    <message>
        <source>Access could not be turned on from here. Open System Preferences yourself, and turn on &quot;Enable access for assistive devices&quot;.</source>
        <translation>The accessibility services could not be switched on. They come with the package at-spi2-core: once it is installed, log in again and switch them on here.</translation>
    </message>
    <message>
        <source>Tarragon cannot read the menus of other applications. Turn on &quot;Enable access for assistive devices&quot; in System Preferences.</source>
        <translation>Tarragon cannot read the menus of other applications, because the accessibility services of your desktop are switched off. They can be switched on here. Some applications have to be started again after that.</translation>
    </message>
    <message>
        <source>Every change counts at once.</source>
        <translation>Every change counts at once.</translation>
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
</context>
<context>
    <name>SRValidator</name>
    <message>
        <source>it&apos;s already used by a system-wide keyboard shortcut. (If you really want to use this key combination, most shortcuts can be changed in the Keyboard &amp; Mouse panel in System Preferences.)</source>
        <translation>it&apos;s already used by a system-wide keyboard shortcut. (If you really want to use this key combination, most shortcuts can be changed in the keyboard settings of your desktop.)</translation>
    </message>
    <message>
        <source>it&apos;s already used by a system-wide keyboard shortcut, %@. (If you really want to use this key combination, most shortcuts can be changed in the Keyboard &amp; Mouse panel in System Preferences.)</source>
        <translation>it&apos;s already used by a system-wide keyboard shortcut, %@. (If you really want to use this key combination, most shortcuts can be changed in the keyboard settings of your desktop.)</translation>
    </message>
    <message>
        <source>it&apos;s already used</source>
        <translation>it&apos;s already used</translation>
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
<context>
    <name>ZDPreferences</name>
    <message>
        <source>Preferences</source>
        <translation>Preferences</translation>
    </message>
    <message>
        <source>Menus</source>
        <translation>Menus</translation>
    </message>
    <message>
        <source>Size of the &amp;menus:</source>
        <translation>Size of the &amp;menus:</translation>
    </message>
    <message>
        <source>As the desktop has it</source>
        <translation>As the desktop has it</translation>
    </message>
    <message>
        <source> points</source>
        <translation> points</translation>
    </message>
    <message>
        <source>For all menus that Tarragon opens.</source>
        <translation>For all menus that Tarragon opens.</translation>
    </message>
    <message>
        <source>Show &amp;keyboard shortcuts</source>
        <translation>Show &amp;keyboard shortcuts</translation>
    </message>
    <message>
        <source>Beside each item, as the application shows them.</source>
        <translation>Beside each item, as the application shows them.</translation>
    </message>
    <message>
        <source>Show &amp;Tarragon&apos;s own menu</source>
        <translation>Show &amp;Tarragon&apos;s own menu</translation>
    </message>
    <message>
        <source>The last of all menus, which leads to these preferences.</source>
        <translation>The last of all menus, which leads to these preferences.</translation>
    </message>
    <message>
        <source>Show the a&amp;pplication&apos;s menus</source>
        <translation>Show the a&amp;pplication&apos;s menus</translation>
    </message>
    <message>
        <source>Without them only the menu of the desktop is shown.</source>
        <translation>Without them only the menu of the desktop is shown.</translation>
    </message>
    <message>
        <source>Show the menu of the &amp;desktop</source>
        <translation>Show the menu of the &amp;desktop</translation>
    </message>
    <message>
        <source>Before those of the application.</source>
        <translation>Before those of the application.</translation>
    </message>
    <message>
        <source>&amp;Fold items that stand for others</source>
        <translation>&amp;Fold items that stand for others</translation>
    </message>
    <message>
        <source>They show while a modifier key is held.</source>
        <translation>They show while a modifier key is held.</translation>
    </message>
    <message>
        <source>Tarragon</source>
        <translation>Tarragon</translation>
    </message>
    <message>
        <source>&amp;Launch on login</source>
        <translation>&amp;Launch on login</translation>
    </message>
    <message>
        <source>Tarragon starts when you log in.</source>
        <translation>Tarragon starts when you log in.</translation>
    </message>
    <message>
        <source>Show an &amp;icon in the tray</source>
        <translation>Show an &amp;icon in the tray</translation>
    </message>
    <message>
        <source>It holds Tarragon&apos;s own menu.</source>
        <translation>It holds Tarragon&apos;s own menu.</translation>
    </message>
    <message>
        <source>How menus are opened</source>
        <translation>How menus are opened</translation>
    </message>
    <message>
        <source>In general</source>
        <translation>In general</translation>
    </message>
    <message>
        <source>At the pointer</source>
        <translation>At the pointer</translation>
    </message>
    <message>
        <source>Above the window</source>
        <translation>Above the window</translation>
    </message>
    <message>
        <source>On the other screens</source>
        <translation>On the other screens</translation>
    </message>
    <message>
        <source>Not for every window</source>
        <translation>Not for every window</translation>
    </message>
    <message>
        <source>Tarragon brings the menus of the application in front to where you work: at the pointer, above the window, and on every screen. Switch on the ways that you like. They open the same menus, and a menu item does what it does in the application itself.</source>
        <translation>Tarragon brings the menus of the application in front to where you work: at the pointer, above the window, and on every screen. Switch on the ways that you like. They open the same menus, and a menu item does what it does in the application itself.</translation>
    </message>
    <message>
        <source>A combination of keys, or a mouse button, opens all menus at the pointer, wherever that is. The application keeps the keyboard the whole time. Choose both under &quot;Hot Key&quot;.</source>
        <translation>A combination of keys, or a mouse button, opens all menus at the pointer, wherever that is. The application keeps the keyboard the whole time. Choose both under &quot;Hot Key&quot;.</translation>
    </message>
    <message>
        <source>A small panel above the window in front shows the titles of its menus. Where there is no room above, it lies on the title bar. Drag the panel, and the window goes with it. Choose how it looks under &quot;Window Top&quot;.</source>
        <translation>A small panel above the window in front shows the titles of its menus. Where there is no room above, it lies on the title bar. Drag the panel, and the window goes with it. Choose how it looks under &quot;Window Top&quot;.</translation>
    </message>
    <message>
        <source>Every screen but the first can have a menu bar at its top, which shows the menus of the application in front, on whichever screen its window is. See &quot;Screen Top&quot;.</source>
        <translation>Every screen but the first can have a menu bar at its top, which shows the menus of the application in front, on whichever screen its window is. See &quot;Screen Top&quot;.</translation>
    </message>
    <message>
        <source>Some windows do without the panel: right-click a title in it to leave out the application, or windows of that title. All that you have left out is under &quot;Ignore List&quot;.</source>
        <translation>Some windows do without the panel: right-click a title in it to leave out the application, or windows of that title. All that you have left out is under &quot;Ignore List&quot;.</translation>
    </message>
    <message>
        <source>&amp;Reset to Defaults</source>
        <translation>&amp;Reset to Defaults</translation>
    </message>
    <message>
        <source>&amp;Apply and Relaunch</source>
        <translation>&amp;Apply and Relaunch</translation>
    </message>
    <message>
        <source>&amp;Quit Tarragon</source>
        <translation>&amp;Quit Tarragon</translation>
    </message>
    <message>
        <source>Turn On</source>
        <translation>Switch On</translation>
    </message>
    <message>
        <source>Keyboard</source>
        <translation>Keyboard</translation>
    </message>
    <message>
        <source>Enable hotkey</source>
        <translation>Enable hotkey</translation>
    </message>
    <message>
        <source>Press a combination of keys anywhere, and the menus of the application in front open at the pointer.</source>
        <translation>Press a combination of keys anywhere, and the menus of the application in front open at the pointer.</translation>
    </message>
    <message>
        <source>Now nothing opens the menus any more: the hot key, the panel and the bars are all switched off.</source>
        <translation>Now nothing opens the menus any more: the hot key, the panel and the bars are all switched off.</translation>
    </message>
    <message>
        <source>&amp;Combination:</source>
        <translation>&amp;Combination:</translation>
    </message>
    <message>
        <source>Combination of keys that opens the menus</source>
        <translation>Combination of keys that opens the menus</translation>
    </message>
    <message>
        <source>Click the field, or press Return in it, and then press the new combination. Escape keeps the old one, Backspace leaves you without any.</source>
        <translation>Click the field, or press Return in it, and then press the new combination. Escape keeps the old one, Backspace leaves you without any.</translation>
    </message>
    <message>
        <source>Try Another Combination</source>
        <translation>Try Another Combination</translation>
    </message>
    <message>
        <source>Mouse</source>
        <translation>Mouse</translation>
    </message>
    <message>
        <source>Open the menus with a &amp;mouse button</source>
        <translation>Open the menus with a &amp;mouse button</translation>
    </message>
    <message>
        <source>The menus open where you press it. The window below the pointer gets the press as well.</source>
        <translation>The menus open where you press it. The window below the pointer gets the press as well.</translation>
    </message>
    <message>
        <source>&amp;Button:</source>
        <translation>&amp;Button:</translation>
    </message>
    <message>
        <source>Mouse button that opens the menus</source>
        <translation>Mouse button that opens the menus</translation>
    </message>
    <message>
        <source>Click the field with the button that you want: the middle one, number 2, or one beyond it.</source>
        <translation>Click the field with the button that you want: the middle one, number 2, or one beyond it.</translation>
    </message>
    <message>
        <source>Show a &amp;panel above the window in front</source>
        <translation>Show a &amp;panel above the window in front</translation>
    </message>
    <message>
        <source>It shows the titles of the window&apos;s menus.</source>
        <translation>It shows the titles of the window&apos;s menus.</translation>
    </message>
    <message>
        <source>What the panel shows</source>
        <translation>What the panel shows</translation>
    </message>
    <message>
        <source>&amp;Every title, side by side</source>
        <translation>&amp;Every title, side by side</translation>
    </message>
    <message>
        <source>&amp;One button that opens all menus</source>
        <translation>&amp;One button that opens all menus</translation>
    </message>
    <message>
        <source>&amp;Label of that button:</source>
        <translation>&amp;Label of that button:</translation>
    </message>
    <message>
        <source>What stands on the one button.</source>
        <translation>What stands on the one button.</translation>
    </message>
    <message>
        <source>Look of the &amp;buttons:</source>
        <translation>Look of the &amp;buttons:</translation>
    </message>
    <message>
        <source>Rounded</source>
        <translation>Rounded</translation>
    </message>
    <message>
        <source>Recessed</source>
        <translation>Recessed</translation>
    </message>
    <message>
        <source>Square</source>
        <translation>Square</translation>
    </message>
    <message>
        <source>Square, without shadow</source>
        <translation>Square, without shadow</translation>
    </message>
    <message>
        <source>As in a menu bar</source>
        <translation>As in a menu bar</translation>
    </message>
    <message>
        <source>How titles and button are drawn.</source>
        <translation>How titles and button are drawn.</translation>
    </message>
    <message>
        <source>&amp;Size of the titles:</source>
        <translation>&amp;Size of the titles:</translation>
    </message>
    <message>
        <source>Larger titles leave room for fewer of them.</source>
        <translation>Larger titles leave room for fewer of them.</translation>
    </message>
    <message>
        <source>Buttons have a border</source>
        <translation>Buttons have a border</translation>
    </message>
    <message>
        <source>A line around each button.</source>
        <translation>A line around each button.</translation>
    </message>
    <message>
        <source>Buttons have a shadow</source>
        <translation>Buttons have a shadow</translation>
    </message>
    <message>
        <source>Below each button.</source>
        <translation>Below each button.</translation>
    </message>
    <message>
        <source>Buttons have a texture</source>
        <translation>Buttons have a texture</translation>
    </message>
    <message>
        <source>Within each button.</source>
        <translation>Within each button.</translation>
    </message>
    <message>
        <source>Buttons are round</source>
        <translation>Buttons are round</translation>
    </message>
    <message>
        <source>Each button has round corners.</source>
        <translation>Each button has round corners.</translation>
    </message>
    <message>
        <source>Where and when it shows</source>
        <translation>Where and when it shows</translation>
    </message>
    <message>
        <source>Always &amp;visible</source>
        <translation>Always &amp;visible</translation>
    </message>
    <message>
        <source>Otherwise it shows only while the pointer is where it would be.</source>
        <translation>Otherwise it shows only while the pointer is where it would be.</translation>
    </message>
    <message>
        <source>On the &amp;title bar</source>
        <translation>On the &amp;title bar</translation>
    </message>
    <message>
        <source>Beside the window&apos;s buttons, wherever the window is.</source>
        <translation>Beside the window&apos;s buttons, wherever the window is.</translation>
    </message>
    <message>
        <source>Also on the &amp;first screen</source>
        <translation>Also on the &amp;first screen</translation>
    </message>
    <message>
        <source>Windows on the other screens have it in any case.</source>
        <translation>Windows on the other screens have it in any case.</translation>
    </message>
    <message>
        <source>&amp;Not at the very top of the first screen</source>
        <translation>&amp;Not at the very top of the first screen</translation>
    </message>
    <message>
        <source>Where a window touches the upper edge, the panel stays away.</source>
        <translation>Where a window touches the upper edge, the panel stays away.</translation>
    </message>
    <message>
        <source>Show a menu &amp;bar on every screen but the first</source>
        <translation>Show a menu &amp;bar on every screen but the first</translation>
    </message>
    <message>
        <source>At its top, with the menus of the application in front.</source>
        <translation>At its top, with the menus of the application in front.</translation>
    </message>
    <message>
        <source>The bars</source>
        <translation>The bars</translation>
    </message>
    <message>
        <source>&amp;Hide the bar</source>
        <translation>&amp;Hide the bar</translation>
    </message>
    <message>
        <source>It comes when the pointer touches the upper edge of the screen, and goes with it. Otherwise windows keep clear of it.</source>
        <translation>It comes when the pointer touches the upper edge of the screen, and goes with it. Otherwise windows keep clear of it.</translation>
    </message>
    <message>
        <source>Only the &amp;left half of the edge has it come</source>
        <translation>Only the &amp;left half of the edge has it come</translation>
    </message>
    <message>
        <source>The right half stays free for other things that wait there.</source>
        <translation>The right half stays free for other things that wait there.</translation>
    </message>
    <message>
        <source>&amp;Translucent</source>
        <translation>&amp;Translucent</translation>
    </message>
    <message>
        <source>What lies below the bar shines through, where the desktop can do that.</source>
        <translation>What lies below the bar shines through, where the desktop can do that.</translation>
    </message>
    <message>
        <source>Shows the menu bar of the application in front where your pointer and eyes are.</source>
        <translation>Shows the menu bar of the application in front where your pointer and eyes are.</translation>
    </message>
    <message>
        <source>Licence</source>
        <translation>Licence</translation>
    </message>
    <message>
        <source>Copyright 2026 The Tarragon developers. Free software under the MIT License: you may use, change and pass it on, without warranty.</source>
        <translation>Copyright 2026 The Tarragon developers. Free software under the MIT License: you may use, change and pass it on, without warranty.</translation>
    </message>
    <message>
        <source>Libraries</source>
        <translation>Libraries</translation>
    </message>
    <message>
        <source>Libraries that Tarragon uses</source>
        <translation>Libraries that Tarragon uses</translation>
    </message>
    <message>
        <source>&amp;Web Page</source>
        <translation>&amp;Web Page</translation>
    </message>
    <message>
        <source>First &amp;Social Page</source>
        <translation>First &amp;Social Page</translation>
    </message>
    <message>
        <source>Se&amp;cond Social Page</source>
        <translation>Se&amp;cond Social Page</translation>
    </message>
    <message>
        <source>Press a title in the panel above the window and its menu opens; move along and the next one does. Drag the panel by its background, and the window moves with it. A right click on a title offers to do without the panel there.</source>
        <translation>Press a title in the panel above the window and its menu opens; move along and the next one does. Drag the panel by its background, and the window moves with it. A right click on a title offers to do without the panel there.</translation>
    </message>
    <message>
        <source>Every screen but the first has a menu bar along its top, for the application in front on whichever screen its window is.</source>
        <translation>Every screen but the first has a menu bar along its top, for the application in front on whichever screen its window is.</translation>
    </message>
    <message>
        <source>Choosing an item</source>
        <translation>Choosing an item</translation>
    </message>
    <message>
        <source>Click it, or go there with the arrow keys and press Return. Typing the first letters of an item finds it, and Escape closes the menus. The application does what its own menu item does.</source>
        <translation>Click it, or go there with the arrow keys and press Return. Typing the first letters of an item finds it, and Escape closes the menus. The application does what its own menu item does.</translation>
    </message>
    <message>
        <source>&amp;Watch a Film</source>
        <translation>&amp;Watch a Film</translation>
    </message>
    <message>
        <source>Panes</source>
        <translation>Panes</translation>
    </message>
    <message>
        <source>General</source>
        <translation>General</translation>
    </message>
    <message>
        <source>Hot Key</source>
        <translation>Hot Key</translation>
    </message>
    <message>
        <source>Window Top</source>
        <translation>Window Top</translation>
    </message>
    <message>
        <source>Screen Top</source>
        <translation>Screen Top</translation>
    </message>
    <message>
        <source>Ignore List</source>
        <translation>Ignore List</translation>
    </message>
    <message>
        <source>About</source>
        <translation>About</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Help</translation>
    </message>
</context>
</TS>
