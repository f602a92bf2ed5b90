<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>AppDelegate</name>
    <message>
        <source>No program could be found to open the settings: %@</source>
        <translation>Es wurde kein Programm gefunden, das die Einstellungen öffnen kann: %@</translation>
    </message>
    <message>
        <source>No program could be found to open the page: %@</source>
        <translation>Es wurde kein Programm gefunden, das die Seite öffnen kann: %@</translation>
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
        <source>Open System Preferences</source>
        <translation>Einschalten und beenden</translation>
    </message>
    <message>
        <source>Quit Tarragon</source>
        <translation>Tarragon beenden</translation>
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
    <message>
        <source>Using Tarragon</source>
        <translation>Tarragon verwenden</translation>
    </message>
    <message>
        <source>Press the hot key (Alt+Space unless you changed it) to open the menus of the application in front at the pointer. Choose an item with the mouse, or with the arrow keys and Return; Escape closes the menus.</source>
        <translation>Das Tastenkürzel (Alt+Leertaste, sofern nicht geändert) öffnet die Menüs der aktiven Anwendung am Mauszeiger. Ein Eintrag lässt sich mit der Maus oder mit den Pfeiltasten und der Eingabetaste wählen; Escape schließt die Menüs.</translation>
    </message>
    <message>
        <source>If the hot key does nothing, your desktop uses the same combination for itself: choose another one in the preferences.</source>
        <translation>Wenn das Tastenkürzel nichts bewirkt, verwendet die Arbeitsumgebung die Kombination selbst: In den Einstellungen lässt sich eine andere wählen.</translation>
    </message>
    <message>
        <source>Tarragon requires that Apple&apos;s Accessibility API be enabled.</source>
        <translation>Tarragon benötigt die Barrierefreiheitsdienste der Arbeitsumgebung.</translation>
    </message>
    <message>
        <source>Would you like to launch System Preferences so that you can turn on &quot;Enable access for assistive devices&quot;? (Please relaunch Tarragon after turning on this setting)</source>
        <translation>Sollen sie eingeschaltet werden? Tarragon wird dann beendet und muss neu gestartet werden, ebenso Anwendungen, deren Menüs nicht erscheinen. (In GNOME, Xfce und den meisten anderen Arbeitsumgebungen gehören diese Dienste zum Paket at-spi2-core. Ohne dieses geschieht nichts.)</translation>
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
</TS>
