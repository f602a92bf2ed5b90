<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>AppDelegate</name>
    <message>
        <source>No program could be found to open the settings: %@</source>
        <translation>Aucun programme n’a été trouvé pour ouvrir les préférences&#xa0;: %@</translation>
    </message>
    <message>
        <source>No program could be found to open the page: %@</source>
        <translation>Aucun programme n’a été trouvé pour ouvrir la page&#xa0;: %@</translation>
    </message>
</context>
<context>
    <name>IgnoreMenu</name>
    <message>
        <source>Ignore all %@ windows</source>
        <translation>Ignorer toutes les fenêtres de %@</translation>
    </message>
    <message>
        <source>Ignore all %@ windows with current title</source>
        <translation>Ignorer toutes les fenêtres de %@ portant le titre actuel</translation>
    </message>
</context>
<context>
    <name>MessagePanels</name>
    <message>
        <source>About Tarragon</source>
        <translation>À propos de Tarragon</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Open Web Page</source>
        <translation>Ouvrir la page web</translation>
    </message>
    <message>
        <source>Something went wrong.</source>
        <translation>Une erreur s’est produite.</translation>
    </message>
    <message>
        <source>Open System Preferences</source>
        <translation>Activer et quitter</translation>
    </message>
    <message>
        <source>Quit Tarragon</source>
        <translation>Quitter Tarragon</translation>
    </message>
    <message>
        <source>The address of the release list is no https, http or file address: %@</source>
        <translation>L’adresse de la liste des versions n’est pas une adresse https, http ou file&#xa0;: %@</translation>
    </message>
    <message>
        <source>The release list cannot be reached: %@</source>
        <translation>La liste des versions est inaccessible&#xa0;: %@</translation>
    </message>
    <message>
        <source>The address of the release list leads on to one that is less safe.</source>
        <translation>L’adresse de la liste des versions redirige vers une adresse moins sûre.</translation>
    </message>
    <message>
        <source>The server of the release list answered: %@</source>
        <translation>Le serveur de la liste des versions a répondu&#xa0;: %@</translation>
    </message>
    <message>
        <source>The release list did not arrive in time.</source>
        <translation>La liste des versions n’est pas arrivée à temps.</translation>
    </message>
    <message>
        <source>What arrived is too large for a release list.</source>
        <translation>Les données reçues sont trop volumineuses pour une liste des versions.</translation>
    </message>
    <message>
        <source>What arrived is no release list.</source>
        <translation>Les données reçues ne sont pas une liste des versions.</translation>
    </message>
    <message>
        <source>The release list names no release.</source>
        <translation>La liste des versions n’en contient aucune.</translation>
    </message>
    <message>
        <source>The program that asks for updates did not do its work.</source>
        <translation>Le programme qui recherche les mises à jour n’a pas fonctionné.</translation>
    </message>
    <message>
        <source>No address is configured where new versions are listed.</source>
        <translation>Aucune adresse n’est configurée pour la liste des nouvelles versions.</translation>
    </message>
    <message>
        <source>This is Tarragon %@. Newer versions come with the updates of your system, or set &quot;UpdateFeed&quot; in the preferences to the address of a release list.</source>
        <translation>Version installée&#xa0;: Tarragon %@. Les nouvelles versions arrivent avec les mises à jour du système. Il est aussi possible d’indiquer l’adresse d’une liste des versions dans la préférence «&#xa0;UpdateFeed&#xa0;».</translation>
    </message>
    <message>
        <source>Looking for a newer version...</source>
        <translation>Recherche d’une nouvelle version…</translation>
    </message>
    <message>
        <source>This is Tarragon %@.</source>
        <translation>Version installée&#xa0;: Tarragon %@.</translation>
    </message>
    <message>
        <source>Tarragon is up to date.</source>
        <translation>Tarragon est à jour.</translation>
    </message>
    <message>
        <source>No version is newer than %@, which is yours.</source>
        <translation>Aucune version n’est plus récente que la version installée, %@.</translation>
    </message>
    <message>
        <source>Tarragon %@ is available.</source>
        <translation>Tarragon %@ est disponible.</translation>
    </message>
    <message>
        <source>You have version %@.</source>
        <translation>La version installée est la %@.</translation>
    </message>
    <message>
        <source>It could not be told whether there is a newer version.</source>
        <translation>Impossible de déterminer s’il existe une nouvelle version.</translation>
    </message>
    <message>
        <source>Shows the menu bar of the application in front where your pointer and eyes are.</source>
        <translation>Affiche la barre de menus de l’application active là où se trouvent le pointeur et le regard.</translation>
    </message>
    <message>
        <source>Copyright 2026 The Tarragon developers. Free software under the MIT License.</source>
        <translation>Copyright 2026 Les développeurs de Tarragon. Logiciel libre sous licence MIT.</translation>
    </message>
    <message>
        <source>Made with Qt, libdbus, XCB, libxkbcommon, libplist, pugixml, libappstream and JSON for Modern C++.</source>
        <translation>Réalisé avec Qt, libdbus, XCB, libxkbcommon, libplist, pugixml, libappstream et JSON for Modern C++.</translation>
    </message>
    <message>
        <source>Using Tarragon</source>
        <translation>Utiliser Tarragon</translation>
    </message>
    <message>
        <source>Press the hot key (Alt+Space unless you changed it) to open the menus of the application in front at the pointer. Choose an item with the mouse, or with the arrow keys and Return; Escape closes the menus.</source>
        <translation>Le raccourci clavier (Alt+Espace, sauf modification) ouvre les menus de l’application active à l’emplacement du pointeur. Choisir un élément avec la souris, ou avec les touches fléchées et Entrée&#xa0;; Échap ferme les menus.</translation>
    </message>
    <message>
        <source>If the hot key does nothing, your desktop uses the same combination for itself: choose another one in the preferences.</source>
        <translation>Si le raccourci clavier est sans effet, l’environnement de bureau utilise lui-même cette combinaison&#xa0;: en choisir une autre dans les préférences.</translation>
    </message>
    <message>
        <source>Tarragon requires that Apple&apos;s Accessibility API be enabled.</source>
        <translation>Tarragon a besoin des services d’accessibilité de l’environnement de bureau.</translation>
    </message>
    <message>
        <source>Would you like to launch System Preferences so that you can turn on &quot;Enable access for assistive devices&quot;? (Please relaunch Tarragon after turning on this setting)</source>
        <translation>Faut-il les activer&#xa0;? Tarragon se ferme ensuite et doit être relancé, de même que les applications dont les menus n’apparaissent pas. (Sous GNOME, Xfce et la plupart des autres environnements de bureau, ces services sont fournis par le paquet at-spi2-core. Sans lui, rien ne se passe.)</translation>
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
        <translation>Maj + </translation>
    </message>
</context>
<context>
    <name>SRValidator</name>
    <message>
        <source>it&apos;s already used</source>
        <translation>elle est déjà utilisée</translation>
    </message>
    <message>
        <source>it&apos;s already used by a system-wide keyboard shortcut. (If you really want to use this key combination, most shortcuts can be changed in the Keyboard &amp; Mouse panel in System Preferences.)</source>
        <translation>elle est déjà utilisée par un raccourci clavier du système. (Pour utiliser malgré tout cette combinaison de touches, la plupart des raccourcis se modifient dans les paramètres du clavier de l’environnement de bureau.)</translation>
    </message>
    <message>
        <source>it&apos;s already used by the menu item &quot;%@&quot;.</source>
        <translation>elle est déjà utilisée par l’élément de menu «&#xa0;%@&#xa0;».</translation>
    </message>
    <message>
        <source>The key combination %@ can&apos;t be used!</source>
        <translation>La combinaison de touches %@ ne peut pas être utilisée&#xa0;!</translation>
    </message>
    <message>
        <source>The key combination &quot;%@&quot; can&apos;t be used because %@</source>
        <translation>La combinaison de touches «&#xa0;%@&#xa0;» ne peut pas être utilisée&#xa0;: %@</translation>
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
        <translation>À propos de Tarragon…</translation>
    </message>
    <message>
        <source>Preferences...</source>
        <translation>Préférences…</translation>
    </message>
    <message>
        <source>Check for Updates</source>
        <translation>Rechercher les mises à jour</translation>
    </message>
    <message>
        <source>Help...</source>
        <translation>Aide…</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
</context>
</TS>
