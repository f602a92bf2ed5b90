<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>AccessibilityAlert</name>
    <message>
        <source>Tarragon requires that Apple&apos;s Accessibility API be enabled.</source>
        <translation>Tarragon braucht die Bedienungshilfen Ihres Desktops.</translation>
    </message>
    <message>
        <source>Would you like to launch System Preferences so that you can turn on &quot;Enable access for assistive devices&quot;? (Please relaunch Tarragon after turning on this setting)</source>
        <translation>Sollen sie eingeschaltet werden? Tarragon wird dann beendet; starten Sie es danach bitte neu.</translation>
    </message>
    <message>
        <source>Open System Preferences</source>
        <translation>Einschalten und beenden</translation>
    </message>
    <message>
        <source>Quit Tarragon</source>
        <translation>Tarragon beenden</translation>
    </message>
</context>
<context>
    <name>AppDelegate</name>
    <message>
        <source>No program could be found to open the page: %@</source>
        <translation>Es wurde kein Programm gefunden, das die Seite öffnen kann: %@</translation>
    </message>
    <message>
        <source>%@ does not open the menus</source>
        <translation>%@ öffnet die Menüs nicht</translation>
    </message>
    <message>
        <source>The desktop or another program keeps this combination of keys for itself.</source>
        <translation>Der Desktop oder ein anderes Programm behält diese Tastenkombination für sich.</translation>
    </message>
    <message>
        <source>Choose Another</source>
        <translation>Andere wählen</translation>
    </message>
</context>
<context>
    <name>ApplicationChooser</name>
    <message>
        <source>Add Application</source>
        <translation>Anwendung hinzufügen</translation>
    </message>
    <message>
        <source>Search applications</source>
        <translation>Anwendungen suchen</translation>
    </message>
    <message>
        <source>Type a part of the application&apos;s name</source>
        <translation>Geben Sie einen Teil des Namens der Anwendung ein</translation>
    </message>
    <message>
        <source>Installed applications</source>
        <translation>Installierte Anwendungen</translation>
    </message>
    <message>
        <source>No installed application matches. &quot;Other&quot; finds an application by its file.</source>
        <translation>Keine installierte Anwendung passt. „Andere“ findet eine Anwendung über ihre Datei.</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Other…</source>
        <translation>Andere…</translation>
    </message>
    <message>
        <source>Choose an application that is not in the list by its file</source>
        <translation>Eine Anwendung, die nicht in der Liste steht, über ihre Datei wählen</translation>
    </message>
    <message>
        <source>Choose an Application</source>
        <translation>Eine Anwendung wählen</translation>
    </message>
</context>
<context>
    <name>IgnoreListView</name>
    <message>
        <source>Type new window title or wildcard pattern here</source>
        <translation>Neuen Fenstertitel oder ein Muster hier eingeben</translation>
    </message>
    <message>
        <source>Select an application to see which of its windows are ignored.</source>
        <translation>Wählen Sie eine Anwendung aus, um zu sehen, welche ihrer Fenster ignoriert werden.</translation>
    </message>
    <message>
        <source>This entry cannot be read. Remove it and add the application again to change it.</source>
        <translation>Dieser Eintrag ist nicht lesbar. Entfernen Sie ihn und fügen Sie die Anwendung neu hinzu, um ihn zu ändern.</translation>
    </message>
    <message>
        <source>All windows of this application are ignored.</source>
        <translation>Alle Fenster dieser Anwendung werden ignoriert.</translation>
    </message>
    <message>
        <source>Add the title of a window to ignore, or a pattern: * stands for any text, ? for one character.</source>
        <translation>Fügen Sie den Titel eines Fensters hinzu, das ignoriert werden soll, oder ein Muster: * steht für beliebigen Text, ? für ein Zeichen.</translation>
    </message>
    <message>
        <source>Pick a Window…</source>
        <translation>Fenster zeigen…</translation>
    </message>
    <message>
        <source>Ignore the window that you click next</source>
        <translation>Das Fenster ignorieren, auf das Sie als Nächstes klicken</translation>
    </message>
    <message>
        <source>Ignored applications</source>
        <translation>Ignorierte Anwendungen</translation>
    </message>
    <message>
        <source>No application is ignored yet. Add one to hide the panel over its windows.</source>
        <translation>Noch wird keine Anwendung ignoriert. Fügen Sie eine hinzu, um die Leiste über ihren Fenstern auszublenden.</translation>
    </message>
    <message>
        <source>Add…</source>
        <translation>Hinzufügen…</translation>
    </message>
    <message>
        <source>Add an application to the list</source>
        <translation>Eine Anwendung zur Liste hinzufügen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Remove the selected application from the list</source>
        <translation>Die gewählte Anwendung aus der Liste entfernen</translation>
    </message>
    <message>
        <source>Ignore all windows of this application</source>
        <translation>Alle Fenster dieser Anwendung ignorieren</translation>
    </message>
    <message>
        <source>Whatever their titles are. Without it, only windows with these titles.</source>
        <translation>Welche Titel sie auch haben. Ohne dies nur Fenster mit diesen Titeln.</translation>
    </message>
    <message>
        <source>Ignored window titles and patterns</source>
        <translation>Ignorierte Fenstertitel und Muster</translation>
    </message>
    <message>
        <source>Add Title</source>
        <translation>Titel hinzufügen</translation>
    </message>
    <message>
        <source>Add a window title or pattern</source>
        <translation>Einen Fenstertitel oder ein Muster hinzufügen</translation>
    </message>
    <message>
        <source>Remove the selected window title or pattern</source>
        <translation>Den gewählten Fenstertitel oder das Muster entfernen</translation>
    </message>
    <message>
        <source>Applications:</source>
        <translation>Anwendungen:</translation>
    </message>
    <message>
        <source>Click the window to ignore. Escape cancels.</source>
        <translation>Klicken Sie auf das Fenster, das ignoriert werden soll. Escape bricht ab.</translation>
    </message>
    <message>
        <source>The pointer cannot be had just now. Please try again.</source>
        <translation>Der Zeiger ist gerade nicht zu haben. Bitte versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>It is not known which application that window belongs to.</source>
        <translation>Es ist nicht bekannt, zu welcher Anwendung dieses Fenster gehört.</translation>
    </message>
    <message>
        <source>That window has no title to know it by. Add its application instead.</source>
        <translation>Dieses Fenster hat keinen Titel, an dem es zu erkennen wäre. Fügen Sie stattdessen seine Anwendung hinzu.</translation>
    </message>
    <message>
        <source>Window title or pattern</source>
        <translation>Fenstertitel oder Muster</translation>
    </message>
    <message>
        <source>(empty title)</source>
        <translation>(leerer Titel)</translation>
    </message>
</context>
<context>
    <name>IgnoreMenu</name>
    <message>
        <source>Ignore all %@ windows</source>
        <translation>Alle Fenster von %@ ignorieren</translation>
    </message>
    <message>
        <source>Ignore all %@ windows with current title</source>
        <translation>Alle Fenster von %@ mit dem aktuellen Titel ignorieren</translation>
    </message>
</context>
<context>
    <name>KeyComboWords</name>
    <message>
        <source>Return</source>
        <translation>Eingabetaste</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tab</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Leertaste</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Rücktaste</translation>
    </message>
    <message>
        <source>Escape</source>
        <translation>Escape</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Enter</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Pos1</translation>
    </message>
    <message>
        <source>Page Up</source>
        <translation>Bild auf</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Entf</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Ende</translation>
    </message>
    <message>
        <source>Page Down</source>
        <translation>Bild ab</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Unten</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Oben</translation>
    </message>
    <message>
        <source>Command+</source>
        <translation>Super+</translation>
    </message>
    <message>
        <source>Option+</source>
        <translation>Alt+</translation>
    </message>
    <message>
        <source>Control+</source>
        <translation>Strg+</translation>
    </message>
    <message>
        <source>Shift+</source>
        <translation>Umschalt+</translation>
    </message>
    <message>
        <source>Pad %@</source>
        <translation>Ziffernblock %@</translation>
    </message>
</context>
<context>
    <name>MessagePanels</name>
    <message>
        <source>About Tarragon</source>
        <translation>Über Tarragon</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Open Web Page</source>
        <translation>Internetseite öffnen</translation>
    </message>
    <message>
        <source>Something went wrong.</source>
        <translation>Etwas ist schiefgegangen.</translation>
    </message>
    <message>
        <source>The address of the release list is no https, http or file address: %@</source>
        <translation>Die Adresse der Versionsliste ist keine https-, http- oder file-Adresse: %@</translation>
    </message>
    <message>
        <source>The release list cannot be reached: %@</source>
        <translation>Die Versionsliste ist nicht erreichbar: %@</translation>
    </message>
    <message>
        <source>The address of the release list leads on to one that is less safe.</source>
        <translation>Die Adresse der Versionsliste leitet zu einer weniger sicheren weiter.</translation>
    </message>
    <message>
        <source>The server of the release list answered: %@</source>
        <translation>Der Server der Versionsliste hat geantwortet: %@</translation>
    </message>
    <message>
        <source>The release list did not arrive in time.</source>
        <translation>Die Versionsliste ist nicht rechtzeitig eingetroffen.</translation>
    </message>
    <message>
        <source>What arrived is too large for a release list.</source>
        <translation>Die empfangenen Daten sind zu groß für eine Versionsliste.</translation>
    </message>
    <message>
        <source>What arrived is no release list.</source>
        <translation>Die empfangenen Daten sind keine Versionsliste.</translation>
    </message>
    <message>
        <source>The release list names no release.</source>
        <translation>Die Versionsliste nennt keine Version.</translation>
    </message>
    <message>
        <source>The program that asks for updates did not do its work.</source>
        <translation>Das Programm, das nach Aktualisierungen sucht, hat nicht funktioniert.</translation>
    </message>
    <message>
        <source>No address is configured where new versions are listed.</source>
        <translation>Es ist keine Adresse eingestellt, unter der neue Versionen zu finden sind.</translation>
    </message>
    <message>
        <source>This is Tarragon %@. Newer versions come with the updates of your system, or set &quot;UpdateFeed&quot; in the preferences to the address of a release list.</source>
        <translation>Dies ist Tarragon %@. Neuere Versionen kommen mit den Aktualisierungen des Systems. Oder in den Einstellungen unter „UpdateFeed“ die Adresse einer Versionsliste eintragen.</translation>
    </message>
    <message>
        <source>Looking for a newer version...</source>
        <translation>Suche nach einer neueren Version …</translation>
    </message>
    <message>
        <source>This is Tarragon %@.</source>
        <translation>Dies ist Tarragon %@.</translation>
    </message>
    <message>
        <source>Tarragon is up to date.</source>
        <translation>Tarragon ist auf dem neuesten Stand.</translation>
    </message>
    <message>
        <source>No version is newer than %@, which is yours.</source>
        <translation>Es gibt keine neuere Version als die installierte %@.</translation>
    </message>
    <message>
        <source>Tarragon %@ is available.</source>
        <translation>Tarragon %@ ist verfügbar.</translation>
    </message>
    <message>
        <source>You have version %@.</source>
        <translation>Installiert ist Version %@.</translation>
    </message>
    <message>
        <source>It could not be told whether there is a newer version.</source>
        <translation>Es ließ sich nicht feststellen, ob es eine neuere Version gibt.</translation>
    </message>
    <message>
        <source>Shows the menu bar of the application in front where your pointer and eyes are.</source>
        <translation>Zeigt die Menüleiste der aktiven Anwendung dort, wo Mauszeiger und Augen gerade sind.</translation>
    </message>
    <message>
        <source>Copyright 2026 The Tarragon developers. Free software under the MIT License.</source>
        <translation>Copyright 2026 Die Tarragon-Entwickler. Freie Software unter der MIT-Lizenz.</translation>
    </message>
    <message>
        <source>Made with Qt, libdbus, XCB, libxkbcommon, libplist, pugixml, libappstream and JSON for Modern C++.</source>
        <translation>Entwickelt mit Qt, libdbus, XCB, libxkbcommon, libplist, pugixml, libappstream und JSON for Modern C++.</translation>
    </message>
</context>
<context>
    <name>PreferenceTexts</name>
    <message>
        <source>A combination of keys opens the menus at the pointer, once you have switched it on under &quot;Hot Key&quot;.</source>
        <translation>Eine Tastenkombination öffnet die Menüs am Zeiger, sobald Sie sie unter „Tastenkürzel“ eingeschaltet haben.</translation>
    </message>
    <message>
        <source>A combination of keys opens the menus at the pointer, once you have chosen one that is free.</source>
        <translation>Eine Tastenkombination öffnet die Menüs am Zeiger, sobald Sie eine freie gewählt haben.</translation>
    </message>
    <message>
        <source>Press %@ anywhere, and the menus of the application in front open at the pointer.</source>
        <translation>Drücken Sie irgendwo %@, und die Menüs der vorderen Anwendung öffnen sich am Zeiger.</translation>
    </message>
    <message>
        <source>A mouse button can do the same: switch that on under &quot;Hot Key&quot;.</source>
        <translation>Eine Maustaste kann dasselbe: Schalten Sie das unter „Tastenkürzel“ ein.</translation>
    </message>
    <message>
        <source>The middle mouse button does the same.</source>
        <translation>Die mittlere Maustaste tut dasselbe.</translation>
    </message>
    <message>
        <source>Mouse button %@ does the same.</source>
        <translation>Maustaste %@ tut dasselbe.</translation>
    </message>
    <message>
        <source>Click an item afterwards, or hold the button, move onto an item and let go there.</source>
        <translation>Klicken Sie danach auf einen Eintrag, oder halten Sie die Taste, ziehen Sie auf einen Eintrag und lassen Sie dort los.</translation>
    </message>
    <message>
        <source>%@ does not open the menus: the desktop or another program keeps this combination for itself.</source>
        <translation>%@ öffnet die Menüs nicht: Der Desktop oder ein anderes Programm behält diese Kombination für sich.</translation>
    </message>
    <message>
        <source>Please choose another one.</source>
        <translation>Bitte wählen Sie eine andere.</translation>
    </message>
    <message>
        <source>%@ is free.</source>
        <translation>%@ ist frei.</translation>
    </message>
    <message>
        <source>Choose Another Combination</source>
        <translation>Andere Kombination wählen</translation>
    </message>
    <message>
        <source>Use %@</source>
        <translation>%@ verwenden</translation>
    </message>
    <message>
        <source>Version %@</source>
        <translation>Version %@</translation>
    </message>
    <message>
        <source>Tarragon cannot read the menus of other applications. Turn on &quot;Enable access for assistive devices&quot; in System Preferences.</source>
        <translation>Tarragon kann die Menüs anderer Anwendungen nicht lesen, weil die Bedienungshilfen Ihres Desktops ausgeschaltet sind. Hier lassen sie sich einschalten. Manche Anwendungen müssen danach neu gestartet werden.</translation>
    </message>
    <message>
        <source>Every change counts at once.</source>
        <translation>Jede Änderung gilt sofort.</translation>
    </message>
</context>
<context>
    <name>SRModifierFlags</name>
    <message>
        <source>Command + </source>
        <translation>Strg + </translation>
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
        <translation>Umschalt + </translation>
    </message>
</context>
<context>
    <name>SRRecorder</name>
    <message>
        <source>Key combination</source>
        <translation>Tastenkombination</translation>
    </message>
    <message>
        <source>Press it and then the keys. Escape leaves it as it was, Backspace clears it.</source>
        <translation>Drücken Sie darauf und dann die Tasten. Escape lässt alles, wie es war, die Rücktaste löscht.</translation>
    </message>
    <message>
        <source>Leave it as it was</source>
        <translation>Lassen, wie es war</translation>
    </message>
    <message>
        <source>Clear the combination</source>
        <translation>Die Kombination löschen</translation>
    </message>
    <message>
        <source>Record a combination</source>
        <translation>Kombination aufnehmen</translation>
    </message>
    <message>
        <source>Press the keys</source>
        <translation>Tasten drücken</translation>
    </message>
    <message>
        <source>Another program is using the keyboard. Try again in a moment.</source>
        <translation>Ein anderes Programm benutzt gerade die Tastatur. Versuchen Sie es gleich noch einmal.</translation>
    </message>
    <message>
        <source>The desktop has taken the keyboard back. Nothing was recorded; try again.</source>
        <translation>Der Desktop hat die Tastatur zurückgenommen. Nichts wurde aufgenommen; versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>This key cannot be used. Press another one, or Escape to leave it as it was.</source>
        <translation>Diese Taste lässt sich nicht verwenden. Drücken Sie eine andere, oder Escape, um alles zu lassen, wie es war.</translation>
    </message>
    <message>
        <source>This key opens the menus even where you want to type with it. Hold another key with it, such as Alt.</source>
        <translation>Diese Taste öffnet die Menüs auch dort, wo Sie damit schreiben wollen. Halten Sie eine andere dazu, etwa Alt.</translation>
    </message>
    <message>
        <source>The key combination can&apos;t be used!</source>
        <translation>Die Tastenkombination kann nicht verwendet werden!</translation>
    </message>
    <message>
        <source>The desktop does not tell which key combinations are its own, so that this one may be one of them.</source>
        <translation>Der Desktop sagt nicht, welche Tastenkombinationen seine eigenen sind, so dass dies eine davon sein kann.</translation>
    </message>
    <message>
        <source>This key has no name in the keyboard layout that is switched on.</source>
        <translation>Diese Taste hat in der eingeschalteten Tastaturbelegung keinen Namen.</translation>
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
        <translation>sie wird bereits von einem systemweiten Tastenkürzel verwendet. (Soll genau diese Tastenkombination verwendet werden: Die meisten Tastenkürzel lassen sich in den Tastatureinstellungen der Arbeitsumgebung ändern.)</translation>
    </message>
    <message>
        <source>it&apos;s already used by a system-wide keyboard shortcut, %@. (If you really want to use this key combination, most shortcuts can be changed in the Keyboard &amp; Mouse panel in System Preferences.)</source>
        <translation>sie wird schon vom Desktop verwendet: %@. (Wenn Sie diese Tastenkombination wirklich verwenden wollen: Die meisten lassen sich in den Tastatureinstellungen des Desktops ändern.)</translation>
    </message>
    <message>
        <source>it&apos;s already used</source>
        <translation>sie wird bereits verwendet</translation>
    </message>
    <message>
        <source>it&apos;s already used by the menu item &quot;%@&quot;.</source>
        <translation>sie wird bereits vom Menüeintrag „%@“ verwendet.</translation>
    </message>
    <message>
        <source>The key combination %@ can&apos;t be used!</source>
        <translation>Die Tastenkombination %@ kann nicht verwendet werden!</translation>
    </message>
    <message>
        <source>The key combination &quot;%@&quot; can&apos;t be used because %@</source>
        <translation>Die Tastenkombination „%@“ kann nicht verwendet werden: %@</translation>
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
        <translation>Über Tarragon …</translation>
    </message>
    <message>
        <source>Preferences...</source>
        <translation>Einstellungen …</translation>
    </message>
    <message>
        <source>Check for Updates</source>
        <translation>Nach Aktualisierungen suchen</translation>
    </message>
    <message>
        <source>Help...</source>
        <translation>Hilfe …</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
</context>
<context>
    <name>ZDMouseButtonIdentifier</name>
    <message>
        <source>Click here with the mouse button that is to open the menus.</source>
        <translation>Klicken Sie hier mit der Maustaste, die die Menüs öffnen soll.</translation>
    </message>
    <message>
        <source>Button Number: %@</source>
        <translation>Taste Nummer: %@</translation>
    </message>
</context>
<context>
    <name>ZDPreferences</name>
    <message>
        <source>Preferences</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Menus</source>
        <translation>Menüs</translation>
    </message>
    <message>
        <source>Size of the &amp;menus:</source>
        <translation>Größe der &amp;Menüs:</translation>
    </message>
    <message>
        <source>As the desktop has it</source>
        <translation>Wie auf dem Desktop</translation>
    </message>
    <message>
        <source> points</source>
        <translation> Punkt</translation>
    </message>
    <message>
        <source>For all menus that Tarragon opens.</source>
        <translation>Für alle Menüs, die Tarragon öffnet.</translation>
    </message>
    <message>
        <source>Show &amp;keyboard shortcuts</source>
        <translation>&amp;Tastenkürzel anzeigen</translation>
    </message>
    <message>
        <source>Beside each item, as the application shows them.</source>
        <translation>Neben jedem Eintrag, wie die Anwendung sie zeigt.</translation>
    </message>
    <message>
        <source>Show &amp;Tarragon&apos;s own menu</source>
        <translation>&amp;Eigenes Menü von Tarragon anzeigen</translation>
    </message>
    <message>
        <source>The last of all menus, which leads to these preferences.</source>
        <translation>Das letzte aller Menüs, das zu diesen Einstellungen führt.</translation>
    </message>
    <message>
        <source>Show the a&amp;pplication&apos;s menus</source>
        <translation>Menüs der An&amp;wendung anzeigen</translation>
    </message>
    <message>
        <source>Without them only the menu of the desktop is shown.</source>
        <translation>Ohne sie wird nur das Menü des Desktops gezeigt.</translation>
    </message>
    <message>
        <source>Show the menu of the &amp;desktop</source>
        <translation>Menü des &amp;Desktops anzeigen</translation>
    </message>
    <message>
        <source>Before those of the application.</source>
        <translation>Vor denen der Anwendung.</translation>
    </message>
    <message>
        <source>&amp;Fold items that stand for others</source>
        <translation>Einträge &amp;falten, die für andere stehen</translation>
    </message>
    <message>
        <source>They show while a modifier key is held.</source>
        <translation>Sie zeigen sich, solange eine Umschalttaste gehalten wird.</translation>
    </message>
    <message>
        <source>Tarragon</source>
        <translation>Tarragon</translation>
    </message>
    <message>
        <source>&amp;Launch on login</source>
        <translation>Bei der &amp;Anmeldung starten</translation>
    </message>
    <message>
        <source>Tarragon starts by itself when you log in.</source>
        <translation>Tarragon startet von selbst, wenn Sie sich anmelden.</translation>
    </message>
    <message>
        <source>Show an &amp;icon in the tray</source>
        <translation>&amp;Symbol im Benachrichtigungsfeld</translation>
    </message>
    <message>
        <source>It holds Tarragon&apos;s own menu.</source>
        <translation>Es enthält das eigene Menü von Tarragon.</translation>
    </message>
    <message>
        <source>How menus are opened</source>
        <translation>Wie sich Menüs öffnen</translation>
    </message>
    <message>
        <source>In general</source>
        <translation>Im Allgemeinen</translation>
    </message>
    <message>
        <source>At the pointer</source>
        <translation>Am Zeiger</translation>
    </message>
    <message>
        <source>Above the window</source>
        <translation>Über dem Fenster</translation>
    </message>
    <message>
        <source>On the other screens</source>
        <translation>Auf den anderen Bildschirmen</translation>
    </message>
    <message>
        <source>Not for every window</source>
        <translation>Nicht für jedes Fenster</translation>
    </message>
    <message>
        <source>Tarragon brings the menus of the application in front to where you work: at the pointer, above the window, and on every screen. Switch on the ways that you like. They open the same menus, and a menu item does what it does in the application itself.</source>
        <translation>Tarragon bringt die Menüs der vorderen Anwendung dorthin, wo Sie arbeiten: an den Zeiger, über das Fenster und auf jeden Bildschirm. Schalten Sie ein, was Ihnen gefällt. Überall öffnen sich dieselben Menüs, und ein Eintrag tut, was er in der Anwendung selbst tut.</translation>
    </message>
    <message>
        <source>A combination of keys, or a mouse button, opens all menus at the pointer, wherever that is. The application keeps the keyboard the whole time. Choose both under &quot;Hot Key&quot;.</source>
        <translation>Eine Tastenkombination oder eine Maustaste öffnet alle Menüs am Zeiger, wo immer er ist. Die Anwendung behält dabei die Tastatur. Wählen Sie beides unter „Tastenkürzel“.</translation>
    </message>
    <message>
        <source>A small panel above the window in front shows the titles of its menus. Where there is no room above, it lies on the title bar. Drag the panel, and the window goes with it. Choose how it looks under &quot;Window Top&quot;.</source>
        <translation>Eine kleine Leiste über dem vorderen Fenster zeigt die Titel seiner Menüs. Wo darüber kein Platz ist, liegt sie auf der Titelleiste. Ziehen Sie an der Leiste, und das Fenster geht mit. Wie sie aussieht, wählen Sie unter „Fensterrand“.</translation>
    </message>
    <message>
        <source>Every screen but the first can have a menu bar at its top, which shows the menus of the application in front, on whichever screen its window is. See &quot;Screen Top&quot;.</source>
        <translation>Jeder Bildschirm außer dem ersten kann oben eine Menüleiste haben, die die Menüs der vorderen Anwendung zeigt, auf welchem Bildschirm ihr Fenster auch ist. Siehe „Bildschirmrand“.</translation>
    </message>
    <message>
        <source>Some windows do without the panel: right-click a title in it to leave out the application, or windows of that title. All that you have left out is under &quot;Ignore List&quot;.</source>
        <translation>Manche Fenster kommen ohne die Leiste aus: Ein Rechtsklick auf einen Titel darin nimmt die Anwendung aus, oder Fenster mit diesem Titel. Alles, was Sie ausgenommen haben, steht unter „Ausnahmen“.</translation>
    </message>
    <message>
        <source>&amp;Reset to Defaults</source>
        <translation>&amp;Zurücksetzen</translation>
    </message>
    <message>
        <source>Apply and Re&amp;launch</source>
        <translation>Anwenden und neu starten</translation>
    </message>
    <message>
        <source>&amp;Quit Tarragon</source>
        <translation>Tarragon &amp;beenden</translation>
    </message>
    <message>
        <source>Turn On</source>
        <translation>Einschalten</translation>
    </message>
    <message>
        <source>Keyboard</source>
        <translation>Tastatur</translation>
    </message>
    <message>
        <source>Enable hotkey</source>
        <translation>Tastenkürzel einschalten</translation>
    </message>
    <message>
        <source>Press a combination of keys anywhere, and the menus of the application in front open at the pointer.</source>
        <translation>Drücken Sie irgendwo eine Tastenkombination, und die Menüs der vorderen Anwendung öffnen sich am Zeiger.</translation>
    </message>
    <message>
        <source>Now nothing opens the menus any more: the hot key, the panel and the bars are all switched off.</source>
        <translation>Jetzt öffnet nichts mehr die Menüs: Tastenkürzel, Leiste und Menüleisten sind alle ausgeschaltet.</translation>
    </message>
    <message>
        <source>&amp;Combination:</source>
        <translation>&amp;Kombination:</translation>
    </message>
    <message>
        <source>Combination of keys that opens the menus</source>
        <translation>Tastenkombination, die die Menüs öffnet</translation>
    </message>
    <message>
        <source>Click the field, or press Return in it, and then press the new combination. Escape keeps the old one, Backspace leaves you without any.</source>
        <translation>Klicken Sie in das Feld, oder drücken Sie darin die Eingabetaste, und drücken Sie dann die neue Kombination. Escape behält die alte, die Rücktaste löscht sie.</translation>
    </message>
    <message>
        <source>Try Another Combination</source>
        <translation>Andere Kombination versuchen</translation>
    </message>
    <message>
        <source>Mouse</source>
        <translation>Maus</translation>
    </message>
    <message>
        <source>Open the menus with a &amp;mouse button</source>
        <translation>Die Menüs mit einer &amp;Maustaste öffnen</translation>
    </message>
    <message>
        <source>The menus open where you press it. The window below the pointer gets the press as well.</source>
        <translation>Die Menüs öffnen sich, wo Sie sie drücken. Das Fenster unter dem Zeiger bekommt den Druck ebenfalls.</translation>
    </message>
    <message>
        <source>&amp;Button:</source>
        <translation>&amp;Taste:</translation>
    </message>
    <message>
        <source>Mouse button that opens the menus</source>
        <translation>Maustaste, die die Menüs öffnet</translation>
    </message>
    <message>
        <source>Click the field with the button that you want: the middle one, number 2, or one beyond it.</source>
        <translation>Klicken Sie mit der gewünschten Taste in das Feld: der mittleren, Nummer 2, oder einer weiteren.</translation>
    </message>
    <message>
        <source>Show a &amp;panel above the window in front</source>
        <translation>&amp;Leiste über dem vorderen Fenster zeigen</translation>
    </message>
    <message>
        <source>It shows the titles of the window&apos;s menus.</source>
        <translation>Sie zeigt die Titel der Menüs des Fensters.</translation>
    </message>
    <message>
        <source>What the panel shows</source>
        <translation>Was die Leiste zeigt</translation>
    </message>
    <message>
        <source>&amp;Every title, side by side</source>
        <translation>&amp;Alle Titel nebeneinander</translation>
    </message>
    <message>
        <source>&amp;One button that opens all menus</source>
        <translation>&amp;Ein Knopf, der alle Menüs öffnet</translation>
    </message>
    <message>
        <source>&amp;Label of that button:</source>
        <translation>Auf&amp;schrift dieses Knopfs:</translation>
    </message>
    <message>
        <source>What stands on the one button.</source>
        <translation>Was auf dem einen Knopf steht.</translation>
    </message>
    <message>
        <source>Look of the &amp;buttons:</source>
        <translation>Aussehen der &amp;Knöpfe:</translation>
    </message>
    <message>
        <source>Rounded</source>
        <translation>Gerundet</translation>
    </message>
    <message>
        <source>Recessed</source>
        <translation>Vertieft</translation>
    </message>
    <message>
        <source>Square</source>
        <translation>Eckig</translation>
    </message>
    <message>
        <source>Square, without shadow</source>
        <translation>Eckig, ohne Schatten</translation>
    </message>
    <message>
        <source>As in a menu bar</source>
        <translation>Wie in einer Menüleiste</translation>
    </message>
    <message>
        <source>How titles and button are drawn.</source>
        <translation>Wie Titel und Knopf gezeichnet werden.</translation>
    </message>
    <message>
        <source>&amp;Size of the titles:</source>
        <translation>&amp;Größe der Titel:</translation>
    </message>
    <message>
        <source>Larger titles leave room for fewer of them.</source>
        <translation>Größere Titel lassen Platz für weniger davon.</translation>
    </message>
    <message>
        <source>Buttons have a border</source>
        <translation>Knöpfe haben einen Rand</translation>
    </message>
    <message>
        <source>A line around each button.</source>
        <translation>Eine Linie um jeden Knopf.</translation>
    </message>
    <message>
        <source>Buttons have a shadow</source>
        <translation>Knöpfe haben einen Schatten</translation>
    </message>
    <message>
        <source>Below each button.</source>
        <translation>Unter jedem Knopf.</translation>
    </message>
    <message>
        <source>Buttons have a texture</source>
        <translation>Knöpfe haben eine Struktur</translation>
    </message>
    <message>
        <source>Within each button.</source>
        <translation>In jedem Knopf.</translation>
    </message>
    <message>
        <source>Buttons are round</source>
        <translation>Knöpfe sind rund</translation>
    </message>
    <message>
        <source>Each button has round corners.</source>
        <translation>Jeder Knopf hat runde Ecken.</translation>
    </message>
    <message>
        <source>Where and when it shows</source>
        <translation>Wo und wann sie sich zeigt</translation>
    </message>
    <message>
        <source>Always &amp;visible</source>
        <translation>Immer &amp;sichtbar</translation>
    </message>
    <message>
        <source>Otherwise it comes when the pointer is where it would be, and goes with it.</source>
        <translation>Sonst kommt sie, wenn der Zeiger dort ist, wo sie wäre, und geht mit ihm.</translation>
    </message>
    <message>
        <source>On the &amp;title bar</source>
        <translation>Auf der &amp;Titelleiste</translation>
    </message>
    <message>
        <source>Beside the window&apos;s buttons, wherever the window is.</source>
        <translation>Neben den Knöpfen des Fensters, wo immer das Fenster ist.</translation>
    </message>
    <message>
        <source>Also on the &amp;first screen</source>
        <translation>Auch auf dem &amp;ersten Bildschirm</translation>
    </message>
    <message>
        <source>Windows on the other screens have it in any case.</source>
        <translation>Fenster auf den anderen Bildschirmen haben sie in jedem Fall.</translation>
    </message>
    <message>
        <source>&amp;Not at the very top of the first screen</source>
        <translation>&amp;Nicht ganz oben auf dem ersten Bildschirm</translation>
    </message>
    <message>
        <source>Where a window touches the upper edge, the panel stays away.</source>
        <translation>Wo ein Fenster den oberen Rand berührt, bleibt die Leiste weg.</translation>
    </message>
    <message>
        <source>Show a menu &amp;bar on every screen but the first</source>
        <translation>Menü&amp;leiste auf jedem Bildschirm außer dem ersten</translation>
    </message>
    <message>
        <source>At its top, with the menus of the application in front.</source>
        <translation>Oben, mit den Menüs der vorderen Anwendung.</translation>
    </message>
    <message>
        <source>The bars</source>
        <translation>Die Menüleisten</translation>
    </message>
    <message>
        <source>&amp;Hide the bar</source>
        <translation>Leiste aus&amp;blenden</translation>
    </message>
    <message>
        <source>It comes when the pointer touches the upper edge of the screen, and goes with it. Otherwise windows keep clear of it.</source>
        <translation>Sie kommt, wenn der Zeiger den oberen Rand des Bildschirms berührt, und geht mit ihm. Sonst bleiben Fenster von ihr fern.</translation>
    </message>
    <message>
        <source>Only the &amp;left half of the edge has it come</source>
        <translation>Nur die &amp;linke Hälfte des Rands holt sie</translation>
    </message>
    <message>
        <source>The right half stays free for other things that wait there.</source>
        <translation>Die rechte Hälfte bleibt frei für anderes, das dort wartet.</translation>
    </message>
    <message>
        <source>&amp;Translucent</source>
        <translation>&amp;Durchscheinend</translation>
    </message>
    <message>
        <source>What lies below the bar shines through, where the desktop can do that.</source>
        <translation>Was unter der Leiste liegt, scheint durch, wo der Desktop das kann.</translation>
    </message>
    <message>
        <source>Shows the menu bar of the application in front where your pointer and eyes are.</source>
        <translation>Zeigt die Menüleiste der vorderen Anwendung dort, wo Zeiger und Augen sind.</translation>
    </message>
    <message>
        <source>Licence</source>
        <translation>Lizenz</translation>
    </message>
    <message>
        <source>Copyright 2026 The Tarragon developers. Free software under the MIT License: you may use, change and pass it on, without warranty.</source>
        <translation>Copyright 2026 The Tarragon developers. Freie Software unter der MIT-Lizenz: Sie dürfen sie nutzen, ändern und weitergeben, ohne Gewähr.</translation>
    </message>
    <message>
        <source>Libraries</source>
        <translation>Bibliotheken</translation>
    </message>
    <message>
        <source>Libraries that Tarragon uses</source>
        <translation>Bibliotheken, die Tarragon verwendet</translation>
    </message>
    <message>
        <source>&amp;Web Page</source>
        <translation>&amp;Webseite</translation>
    </message>
    <message>
        <source>First &amp;Social Page</source>
        <translation>Erste &amp;soziale Seite</translation>
    </message>
    <message>
        <source>Se&amp;cond Social Page</source>
        <translation>&amp;Zweite soziale Seite</translation>
    </message>
    <message>
        <source>Press a title in the panel above the window and its menu opens; move along and the next one does. Drag the panel by its background, and the window moves with it. A right click on a title offers to do without the panel there.</source>
        <translation>Drücken Sie auf einen Titel in der Leiste über dem Fenster, und sein Menü öffnet sich; bewegen Sie den Zeiger weiter, und das nächste öffnet sich. Ziehen Sie am Grund der Leiste, und das Fenster geht mit. Ein Rechtsklick auf einen Titel bietet an, dort ohne Leiste auszukommen.</translation>
    </message>
    <message>
        <source>Every screen but the first has a menu bar along its top, for the application in front on whichever screen its window is.</source>
        <translation>Jeder Bildschirm außer dem ersten hat oben eine Menüleiste, für die vordere Anwendung, auf welchem Bildschirm ihr Fenster auch ist.</translation>
    </message>
    <message>
        <source>Choosing an item</source>
        <translation>Einen Eintrag wählen</translation>
    </message>
    <message>
        <source>Click it, or go there with the arrow keys and press Return. Typing the first letters of an item finds it, and Escape closes the menus. The application does what its own menu item does.</source>
        <translation>Klicken Sie darauf, oder gehen Sie mit den Pfeiltasten hin und drücken Sie die Eingabetaste. Die ersten Buchstaben eines Eintrags finden ihn, und Escape schließt die Menüs. Die Anwendung tut, was ihr eigener Menüeintrag tut.</translation>
    </message>
    <message>
        <source>&amp;Watch a Film</source>
        <translation>Einen &amp;Film ansehen</translation>
    </message>
    <message>
        <source>Panes</source>
        <translation>Seiten</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Hot Key</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Window Top</source>
        <translation>Fensterrand</translation>
    </message>
    <message>
        <source>Screen Top</source>
        <translation>Bildschirmrand</translation>
    </message>
    <message>
        <source>Ignore List</source>
        <translation>Ausnahmen</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Über</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
</context>
</TS>
