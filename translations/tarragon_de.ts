<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>AccessibilityAlert</name>
    <message>
        <source>Tarragon requires that Apple&apos;s Accessibility API be enabled.</source>
        <translation>Tarragon benötigt die Barrierefreiheitsdienste der Arbeitsumgebung.</translation>
    </message>
    <message>
        <source>Would you like to launch System Preferences so that you can turn on &quot;Enable access for assistive devices&quot;? (Please relaunch Tarragon after turning on this setting)</source>
        <translation>Sollen sie eingeschaltet werden? Tarragon wird dann beendet und muss neu gestartet werden, ebenso Anwendungen, deren Menüs nicht erscheinen. (In GNOME, Xfce und den meisten anderen Arbeitsumgebungen gehören diese Dienste zum Paket at-spi2-core.)</translation>
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
        <translation>Diese Tastenkombination ist bereits von der Arbeitsumgebung oder einem anderen Programm belegt.</translation>
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
        <translation>Einen Teil des Anwendungsnamens eingeben</translation>
    </message>
    <message>
        <source>Installed applications</source>
        <translation>Installierte Anwendungen</translation>
    </message>
    <message>
        <source>No installed application matches. &quot;Other&quot; finds an application by its file.</source>
        <translation>Keine passende installierte Anwendung gefunden. Mit „Andere“ lässt sich eine Anwendung anhand ihrer Datei wählen.</translation>
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
        <translation>Andere …</translation>
    </message>
    <message>
        <source>Choose an application that is not in the list by its file</source>
        <translation>Eine nicht aufgeführte Anwendung anhand ihrer Datei wählen</translation>
    </message>
    <message>
        <source>Choose an Application</source>
        <translation>Anwendung wählen</translation>
    </message>
    <message>
        <source>Clear the search</source>
        <translation>Suche leeren</translation>
    </message>
</context>
<context>
    <name>IgnoreListView</name>
    <message>
        <source>Type new window title or wildcard pattern here</source>
        <translation>Fenstertitel oder Muster mit Platzhaltern eingeben</translation>
    </message>
    <message>
        <source>Select an application to see which of its windows are ignored.</source>
        <translation>Eine Anwendung auswählen, um ihre ignorierten Fenster zu sehen.</translation>
    </message>
    <message>
        <source>This entry cannot be read. Remove it and add the application again to change it.</source>
        <translation>Dieser Eintrag ist nicht lesbar. Um ihn zu ändern, den Eintrag entfernen und die Anwendung erneut hinzufügen.</translation>
    </message>
    <message>
        <source>All windows of this application are ignored.</source>
        <translation>Alle Fenster dieser Anwendung werden ignoriert.</translation>
    </message>
    <message>
        <source>Add the title of a window to ignore, or a pattern: * stands for any text, ? for one character.</source>
        <translation>Den Titel eines zu ignorierenden Fensters oder ein Muster hinzufügen: * steht für beliebigen Text, ? für ein Zeichen.</translation>
    </message>
    <message>
        <source>Pick a Window…</source>
        <translation>Fenster anklicken …</translation>
    </message>
    <message>
        <source>Ignore the window that you click next</source>
        <translation>Das als Nächstes angeklickte Fenster ignorieren</translation>
    </message>
    <message>
        <source>Ignored applications</source>
        <translation>Ignorierte Anwendungen</translation>
    </message>
    <message>
        <source>No application is ignored yet. Add one to hide the panel over its windows.</source>
        <translation>Noch wird keine Anwendung ignoriert. Über den Fenstern hinzugefügter Anwendungen erscheint das Panel nicht.</translation>
    </message>
    <message>
        <source>Add…</source>
        <translation>Hinzufügen …</translation>
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
        <translation>Die ausgewählte Anwendung aus der Liste entfernen</translation>
    </message>
    <message>
        <source>Ignore all windows of this application</source>
        <translation>Alle Fenster dieser Anwendung ignorieren</translation>
    </message>
    <message>
        <source>Whatever their titles are. Without it, only windows with these titles.</source>
        <translation>Unabhängig vom Titel. Andernfalls nur Fenster mit den aufgeführten Titeln.</translation>
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
        <translation>Den ausgewählten Fenstertitel oder das ausgewählte Muster entfernen</translation>
    </message>
    <message>
        <source>Applications:</source>
        <translation>Anwendungen:</translation>
    </message>
    <message>
        <source>Click the window to ignore. Escape cancels.</source>
        <translation>Das zu ignorierende Fenster anklicken. Esc bricht ab.</translation>
    </message>
    <message>
        <source>The pointer cannot be had just now. Please try again.</source>
        <translation>Der Mauszeiger wird gerade von einem anderen Programm verwendet. Bitte erneut versuchen.</translation>
    </message>
    <message>
        <source>It is not known which application that window belongs to.</source>
        <translation>Es lässt sich nicht feststellen, zu welcher Anwendung dieses Fenster gehört.</translation>
    </message>
    <message>
        <source>That window has no title to know it by. Add its application instead.</source>
        <translation>Dieses Fenster hat keinen Titel. Stattdessen die zugehörige Anwendung hinzufügen.</translation>
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
        <translation>Eingabe</translation>
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
        <translation>Esc</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Num</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Enter</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Einfg</translation>
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
        <translation>Runter</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Hoch</translation>
    </message>
    <message>
        <source>Command+</source>
        <translation>Strg+</translation>
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
        <translation>Eine Tastenkombination öffnet die Menüs am Mauszeiger, sobald sie unter „Tastenkürzel“ eingeschaltet ist.</translation>
    </message>
    <message>
        <source>A combination of keys opens the menus at the pointer, once you have chosen one that is free.</source>
        <translation>Eine Tastenkombination öffnet die Menüs am Mauszeiger, sobald eine freie gewählt ist.</translation>
    </message>
    <message>
        <source>Press %@ anywhere, and the menus of the application in front open at the pointer.</source>
        <translation>An beliebiger Stelle öffnet %@ die Menüs der aktiven Anwendung am Mauszeiger.</translation>
    </message>
    <message>
        <source>A mouse button can do the same: switch that on under &quot;Hot Key&quot;.</source>
        <translation>Auch eine Maustaste kann das: Sie lässt sich unter „Tastenkürzel“ einschalten.</translation>
    </message>
    <message>
        <source>The middle mouse button does the same.</source>
        <translation>Die mittlere Maustaste bewirkt dasselbe.</translation>
    </message>
    <message>
        <source>Mouse button %@ does the same.</source>
        <translation>Die Maustaste %@ bewirkt dasselbe.</translation>
    </message>
    <message>
        <source>Click an item afterwards, or hold the button, move onto an item and let go there.</source>
        <translation>Danach einen Eintrag anklicken oder die Taste gedrückt halten und über einem Eintrag loslassen.</translation>
    </message>
    <message>
        <source>%@ does not open the menus: the desktop or another program keeps this combination for itself.</source>
        <translation>%@ öffnet die Menüs nicht: Diese Tastenkombination ist bereits von der Arbeitsumgebung oder einem anderen Programm belegt.</translation>
    </message>
    <message>
        <source>Please choose another one.</source>
        <translation>Bitte eine andere wählen.</translation>
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
        <source>The settings cannot be written to disk: changes are lost when Tarragon quits. The disk may be full, or the folder of the settings protected.</source>
        <translation>Die Einstellungen lassen sich nicht speichern: Änderungen gehen verloren, wenn Tarragon beendet wird. Vielleicht ist der Datenträger voll oder der Ordner der Einstellungen schreibgeschützt.</translation>
    </message>
    <message>
        <source>Access could not be turned on from here. Open System Preferences yourself, and turn on &quot;Enable access for assistive devices&quot;.</source>
        <translation>Die Barrierefreiheitsdienste ließen sich nicht einschalten. Sie gehören zum Paket at-spi2-core. Ist es installiert, bitte neu anmelden und sie hier einschalten.</translation>
    </message>
    <message>
        <source>Tarragon cannot read the menus of other applications. Turn on &quot;Enable access for assistive devices&quot; in System Preferences.</source>
        <translation>Tarragon kann die Menüs anderer Anwendungen nicht lesen, weil die Barrierefreiheitsdienste der Arbeitsumgebung ausgeschaltet sind. Hier lassen sie sich einschalten. Manche Anwendungen müssen danach neu gestartet werden.</translation>
    </message>
    <message>
        <source>Every change counts at once.</source>
        <translation>Alle Änderungen wirken sofort.</translation>
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
        <translation>Erst hier drücken, dann die Tasten. Esc lässt alles beim Alten, die Rücktaste löscht die Kombination.</translation>
    </message>
    <message>
        <source>Leave it as it was</source>
        <translation>Unverändert lassen</translation>
    </message>
    <message>
        <source>Clear the combination</source>
        <translation>Kombination löschen</translation>
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
        <translation>Ein anderes Programm verwendet gerade die Tastatur. Bitte gleich noch einmal versuchen.</translation>
    </message>
    <message>
        <source>The desktop has taken the keyboard back. Nothing was recorded; try again.</source>
        <translation>Die Arbeitsumgebung hat die Tastatur zurückgenommen. Es wurde nichts aufgenommen, bitte erneut versuchen.</translation>
    </message>
    <message>
        <source>This key cannot be used. Press another one, or Escape to leave it as it was.</source>
        <translation>Diese Taste kann nicht verwendet werden. Eine andere drücken oder mit Esc alles beim Alten lassen.</translation>
    </message>
    <message>
        <source>This key opens the menus even where you want to type with it. Hold another key with it, such as Alt.</source>
        <translation>Diese Taste öffnet die Menüs auch dann, wenn mit ihr geschrieben werden soll. Sie besser mit einer anderen Taste wie Alt kombinieren.</translation>
    </message>
    <message>
        <source>The key combination can&apos;t be used!</source>
        <translation>Die Tastenkombination kann nicht verwendet werden!</translation>
    </message>
    <message>
        <source>The desktop does not tell which key combinations are its own, so that this one may be one of them.</source>
        <translation>Die Arbeitsumgebung teilt nicht mit, welche Tastenkombinationen sie selbst verwendet. Diese könnte dazugehören.</translation>
    </message>
    <message>
        <source>This key has no name in the keyboard layout that is switched on.</source>
        <translation>Diese Taste hat in der aktiven Tastaturbelegung keinen Namen.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>SRValidator</name>
    <message>
        <source>it&apos;s already used</source>
        <translation>sie wird bereits verwendet</translation>
    </message>
    <message>
        <source>it&apos;s already used by a system-wide keyboard shortcut. (If you really want to use this key combination, most shortcuts can be changed in the Keyboard &amp; Mouse panel in System Preferences.)</source>
        <translation>sie wird bereits von einem systemweiten Tastenkürzel verwendet. (Soll genau diese Tastenkombination verwendet werden: Die meisten Tastenkürzel lassen sich in den Tastatureinstellungen der Arbeitsumgebung ändern.)</translation>
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
    <message>
        <source>it&apos;s already used by a system-wide keyboard shortcut, %@. (If you really want to use this key combination, most shortcuts can be changed in the Keyboard &amp; Mouse panel in System Preferences.)</source>
        <translation>sie wird bereits vom systemweiten Tastenkürzel „%@“ verwendet. (Soll genau diese Tastenkombination verwendet werden: Die meisten Tastenkürzel lassen sich in den Tastatureinstellungen der Arbeitsumgebung ändern.)</translation>
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
        <translation>Hier mit der Maustaste klicken, die die Menüs öffnen soll.</translation>
    </message>
    <message>
        <source>Button Number: %@</source>
        <translation>Maustaste Nummer: %@</translation>
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
        <translation>Wie in der Arbeitsumgebung</translation>
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
        <translation>Neben jedem Eintrag, wie in der Anwendung selbst.</translation>
    </message>
    <message>
        <source>Show &amp;Tarragon&apos;s own menu</source>
        <translation>&amp;Eigenes Menü von Tarragon anzeigen</translation>
    </message>
    <message>
        <source>The last of all menus, which leads to these preferences.</source>
        <translation>Das letzte aller Menüs. Es führt zu diesen Einstellungen.</translation>
    </message>
    <message>
        <source>Show the a&amp;pplication&apos;s menus</source>
        <translation>Menüs der &amp;Anwendung anzeigen</translation>
    </message>
    <message>
        <source>Without them only the menu of the desktop is shown.</source>
        <translation>Sonst erscheint nur das Menü der Arbeitsumgebung.</translation>
    </message>
    <message>
        <source>Show the menu of the &amp;desktop</source>
        <translation>Menü der A&amp;rbeitsumgebung anzeigen</translation>
    </message>
    <message>
        <source>Before those of the application.</source>
        <translation>Vor den Menüs der Anwendung.</translation>
    </message>
    <message>
        <source>&amp;Fold items that stand for others</source>
        <translation>Alternative Einträge &amp;zusammenfassen</translation>
    </message>
    <message>
        <source>They show while a modifier key is held.</source>
        <translation>Sie erscheinen, solange eine Sondertaste gedrückt ist.</translation>
    </message>
    <message>
        <source>Tarragon</source>
        <translation>Tarragon</translation>
    </message>
    <message>
        <source>&amp;Launch on login</source>
        <translation>Bei der Anmeldung &amp;starten</translation>
    </message>
    <message>
        <source>Tarragon starts when you log in.</source>
        <translation>Tarragon startet bei der Anmeldung.</translation>
    </message>
    <message>
        <source>Show an &amp;icon in the tray</source>
        <translation>Symbol im &amp;Infobereich anzeigen</translation>
    </message>
    <message>
        <source>It holds Tarragon&apos;s own menu.</source>
        <translation>Es enthält das eigene Menü von Tarragon.</translation>
    </message>
    <message>
        <source>How menus are opened</source>
        <translation>So werden Menüs geöffnet</translation>
    </message>
    <message>
        <source>In general</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>At the pointer</source>
        <translation>Am Mauszeiger</translation>
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
        <translation>Tarragon bringt die Menüs der aktiven Anwendung dorthin, wo gerade gearbeitet wird: an den Mauszeiger, über das Fenster und auf jeden Bildschirm. Jeder Weg lässt sich einzeln einschalten. Alle öffnen dieselben Menüs, und ein Menüeintrag bewirkt dasselbe wie in der Anwendung.</translation>
    </message>
    <message>
        <source>A combination of keys, or a mouse button, opens all menus at the pointer, wherever that is. The application keeps the keyboard the whole time. Choose both under &quot;Hot Key&quot;.</source>
        <translation>Eine Tastenkombination oder eine Maustaste öffnet alle Menüs am Mauszeiger, wo immer er ist. Die Anwendung behält dabei die ganze Zeit die Tastatur. Beides wird unter „Tastenkürzel“ gewählt.</translation>
    </message>
    <message>
        <source>A small panel above the window in front shows the titles of its menus. Where there is no room above, it lies on the title bar. Drag the panel, and the window goes with it. Choose how it looks under &quot;Window Top&quot;.</source>
        <translation>Ein kleines Panel über dem aktiven Fenster zeigt die Titel seiner Menüs. Wo darüber kein Platz ist, liegt es auf der Titelleiste. Wird das Panel gezogen, geht das Fenster mit. Das Aussehen wird unter „Fensterrand“ gewählt.</translation>
    </message>
    <message>
        <source>Every screen but the first can have a menu bar at its top, which shows the menus of the application in front, on whichever screen its window is. See &quot;Screen Top&quot;.</source>
        <translation>Jeder Bildschirm außer dem ersten kann am oberen Rand eine Menüleiste haben. Sie zeigt die Menüs der aktiven Anwendung, auf welchem Bildschirm ihr Fenster auch ist. Siehe „Bildschirmrand“.</translation>
    </message>
    <message>
        <source>Some windows do without the panel: right-click a title in it to leave out the application, or windows of that title. All that you have left out is under &quot;Ignore List&quot;.</source>
        <translation>Manche Fenster kommen ohne Panel aus: Ein Rechtsklick auf einen Titel darin lässt die Anwendung oder Fenster mit diesem Titel aus. Alles Ausgelassene steht unter „Ignorierliste“.</translation>
    </message>
    <message>
        <source>&amp;Reset to Defaults</source>
        <translation>Auf &amp;Vorgaben zurücksetzen</translation>
    </message>
    <message>
        <source>&amp;Apply and Relaunch</source>
        <translation>An&amp;wenden und neu starten</translation>
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
        <translation>Menüs mit einem Tasten&amp;kürzel öffnen</translation>
    </message>
    <message>
        <source>Press a combination of keys anywhere, and the menus of the application in front open at the pointer.</source>
        <translation>An beliebiger Stelle eine Tastenkombination drücken, und die Menüs der aktiven Anwendung öffnen sich am Mauszeiger.</translation>
    </message>
    <message>
        <source>Now nothing opens the menus any more: the hot key, the panel and the bars are all switched off.</source>
        <translation>Das Tastenkürzel, das Panel und die Leisten sind alle ausgeschaltet. Mindestens eines davon einschalten, um die Menüs zu erreichen.</translation>
    </message>
    <message>
        <source>&amp;Combination:</source>
        <translation>&amp;Tastenkombination:</translation>
    </message>
    <message>
        <source>Combination of keys that opens the menus</source>
        <translation>Tastenkombination, die die Menüs öffnet</translation>
    </message>
    <message>
        <source>Click the field, or press Return in it, and then press the new combination. Escape keeps the old one, Backspace leaves you without any.</source>
        <translation>Das Feld anklicken oder darin die Eingabetaste drücken, dann die neue Kombination drücken. Esc behält die alte, die Rücktaste löscht sie.</translation>
    </message>
    <message>
        <source>Try Another Combination</source>
        <translation>Andere Kombination wählen</translation>
    </message>
    <message>
        <source>Mouse</source>
        <translation>Maus</translation>
    </message>
    <message>
        <source>Open the menus with a &amp;mouse button</source>
        <translation>Menüs mit einer &amp;Maustaste öffnen</translation>
    </message>
    <message>
        <source>The menus open where you press it. The window below the pointer gets the press as well.</source>
        <translation>Die Menüs öffnen sich dort, wo die Taste gedrückt wird. Auch das Fenster unter dem Mauszeiger erhält den Tastendruck.</translation>
    </message>
    <message>
        <source>&amp;Button:</source>
        <translation>Ma&amp;ustaste:</translation>
    </message>
    <message>
        <source>Mouse button that opens the menus</source>
        <translation>Maustaste, die die Menüs öffnet</translation>
    </message>
    <message>
        <source>Click the field with the button that you want: the middle one, number 2, or one beyond it.</source>
        <translation>Das Feld mit der gewünschten Taste anklicken: mit der mittleren, Nummer 2, oder einer weiteren.</translation>
    </message>
    <message>
        <source>Show a &amp;panel above the window in front</source>
        <translation>&amp;Panel über dem aktiven Fenster anzeigen</translation>
    </message>
    <message>
        <source>It shows the titles of the window&apos;s menus.</source>
        <translation>Es zeigt die Titel der Menüs des Fensters.</translation>
    </message>
    <message>
        <source>What the panel shows</source>
        <translation>Was das Panel zeigt</translation>
    </message>
    <message>
        <source>&amp;Every title, side by side</source>
        <translation>&amp;Alle Titel nebeneinander</translation>
    </message>
    <message>
        <source>&amp;One button that opens all menus</source>
        <translation>&amp;Eine Schaltfläche, die alle Menüs öffnet</translation>
    </message>
    <message>
        <source>&amp;Label of that button:</source>
        <translation>&amp;Beschriftung der Schaltfläche:</translation>
    </message>
    <message>
        <source>What stands on the one button.</source>
        <translation>Der Text auf der einen Schaltfläche.</translation>
    </message>
    <message>
        <source>Look of the &amp;buttons:</source>
        <translation>A&amp;ussehen der Schaltflächen:</translation>
    </message>
    <message>
        <source>Rounded</source>
        <translation>Abgerundet</translation>
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
        <translation>Wie Titel und Schaltfläche gezeichnet werden.</translation>
    </message>
    <message>
        <source>&amp;Size of the titles:</source>
        <translation>&amp;Größe der Titel:</translation>
    </message>
    <message>
        <source>Larger titles leave room for fewer of them.</source>
        <translation>Je größer die Titel, desto weniger haben Platz.</translation>
    </message>
    <message>
        <source>Buttons have a border</source>
        <translation>Schaltflächen mit Rand</translation>
    </message>
    <message>
        <source>A line around each button.</source>
        <translation>Eine Linie um jede Schaltfläche.</translation>
    </message>
    <message>
        <source>Buttons have a shadow</source>
        <translation>Schaltflächen mit Schatten</translation>
    </message>
    <message>
        <source>Below each button.</source>
        <translation>Unter jeder Schaltfläche.</translation>
    </message>
    <message>
        <source>Buttons have a texture</source>
        <translation>Schaltflächen mit Struktur</translation>
    </message>
    <message>
        <source>Within each button.</source>
        <translation>In jeder Schaltfläche.</translation>
    </message>
    <message>
        <source>Buttons are round</source>
        <translation>Runde Schaltflächen</translation>
    </message>
    <message>
        <source>Each button has round corners.</source>
        <translation>Jede Schaltfläche hat runde Ecken.</translation>
    </message>
    <message>
        <source>Where and when it shows</source>
        <translation>Wo und wann es erscheint</translation>
    </message>
    <message>
        <source>Always &amp;visible</source>
        <translation>&amp;Immer sichtbar</translation>
    </message>
    <message>
        <source>Otherwise it shows only while the pointer is where it would be.</source>
        <translation>Sonst erscheint es nur, solange der Mauszeiger an seiner Stelle ist.</translation>
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
        <translation>Auch auf dem e&amp;rsten Bildschirm</translation>
    </message>
    <message>
        <source>Windows on the other screens have it in any case.</source>
        <translation>Fenster auf den anderen Bildschirmen haben es in jedem Fall.</translation>
    </message>
    <message>
        <source>&amp;Not at the very top of the first screen</source>
        <translation>&amp;Nicht ganz oben auf dem ersten Bildschirm</translation>
    </message>
    <message>
        <source>Where a window touches the upper edge, the panel stays away.</source>
        <translation>Berührt ein Fenster den oberen Rand, bleibt das Panel weg.</translation>
    </message>
    <message>
        <source>Show a menu &amp;bar on every screen but the first</source>
        <translation>Menü&amp;leiste auf jedem Bildschirm außer dem ersten anzeigen</translation>
    </message>
    <message>
        <source>At its top, with the menus of the application in front.</source>
        <translation>Am oberen Rand, mit den Menüs der aktiven Anwendung.</translation>
    </message>
    <message>
        <source>The bars</source>
        <translation>Die Leisten</translation>
    </message>
    <message>
        <source>&amp;Hide the bar</source>
        <translation>Leiste &amp;ausblenden</translation>
    </message>
    <message>
        <source>It comes when the pointer touches the upper edge of the screen, and goes with it. Otherwise windows keep clear of it.</source>
        <translation>Sie erscheint, wenn der Mauszeiger den oberen Bildschirmrand berührt, und verschwindet mit ihm. Ist sie nicht ausgeblendet, lassen Fenster ihr Platz.</translation>
    </message>
    <message>
        <source>Only the &amp;left half of the edge has it come</source>
        <translation>Nur an der lin&amp;ken Hälfte des Randes einblenden</translation>
    </message>
    <message>
        <source>The right half stays free for other things that wait there.</source>
        <translation>Die rechte Hälfte bleibt für anderes frei, das dort ausgelöst wird.</translation>
    </message>
    <message>
        <source>&amp;Translucent</source>
        <translation>&amp;Durchscheinend</translation>
    </message>
    <message>
        <source>What lies below the bar shines through, where the desktop can do that.</source>
        <translation>Was unter der Leiste liegt, scheint durch, sofern die Arbeitsumgebung das beherrscht.</translation>
    </message>
    <message>
        <source>Shows the menu bar of the application in front where your pointer and eyes are.</source>
        <translation>Zeigt die Menüleiste der aktiven Anwendung dort, wo Mauszeiger und Augen gerade sind.</translation>
    </message>
    <message>
        <source>Licence</source>
        <translation>Lizenz</translation>
    </message>
    <message>
        <source>Copyright 2026 The Tarragon developers. Free software under the MIT License: you may use, change and pass it on, without warranty.</source>
        <translation>Copyright 2026 Die Tarragon-Entwickler. Freie Software unter der MIT-Lizenz: Sie darf verwendet, verändert und weitergegeben werden, ohne Gewährleistung.</translation>
    </message>
    <message>
        <source>Libraries</source>
        <translation>Bibliotheken</translation>
    </message>
    <message>
        <source>Libraries that Tarragon uses</source>
        <translation>Von Tarragon verwendete Bibliotheken</translation>
    </message>
    <message>
        <source>&amp;Web Page</source>
        <translation>&amp;Internetseite</translation>
    </message>
    <message>
        <source>First &amp;Social Page</source>
        <translation>&amp;Erste Social-Media-Seite</translation>
    </message>
    <message>
        <source>Se&amp;cond Social Page</source>
        <translation>&amp;Zweite Social-Media-Seite</translation>
    </message>
    <message>
        <source>Press a title in the panel above the window and its menu opens; move along and the next one does. Drag the panel by its background, and the window moves with it. A right click on a title offers to do without the panel there.</source>
        <translation>Ein Druck auf einen Titel im Panel über dem Fenster öffnet dessen Menü. Beim Weiterfahren mit der Maus öffnet sich das nächste. Wird das Panel am Hintergrund gezogen, bewegt sich das Fenster mit. Ein Rechtsklick auf einen Titel bietet an, dort auf das Panel zu verzichten.</translation>
    </message>
    <message>
        <source>Every screen but the first has a menu bar along its top, for the application in front on whichever screen its window is.</source>
        <translation>Jeder Bildschirm außer dem ersten hat am oberen Rand eine Menüleiste für die aktive Anwendung, auf welchem Bildschirm ihr Fenster auch ist.</translation>
    </message>
    <message>
        <source>Choosing an item</source>
        <translation>Einen Eintrag wählen</translation>
    </message>
    <message>
        <source>Click it, or go there with the arrow keys and press Return. Typing the first letters of an item finds it, and Escape closes the menus. The application does what its own menu item does.</source>
        <translation>Den Eintrag anklicken oder mit den Pfeiltasten ansteuern und die Eingabetaste drücken. Die ersten Buchstaben eines Eintrags einzutippen führt zu ihm, Esc schließt die Menüs. Die Anwendung tut dasselbe wie bei ihrem eigenen Menüeintrag.</translation>
    </message>
    <message>
        <source>&amp;Watch a Film</source>
        <translation>&amp;Video ansehen</translation>
    </message>
    <message>
        <source>Panes</source>
        <translation>Bereiche</translation>
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
        <translation>Ignorierliste</translation>
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
