<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>AccessibilityAlert</name>
    <message>
        <source>Tarragon requires that Apple&apos;s Accessibility API be enabled.</source>
        <translation>Tarragon a besoin des services d’accessibilité de l’environnement de bureau.</translation>
    </message>
    <message>
        <source>Would you like to launch System Preferences so that you can turn on &quot;Enable access for assistive devices&quot;? (Please relaunch Tarragon after turning on this setting)</source>
        <translation>Faut-il les activer&#xa0;? Tarragon se ferme ensuite et doit être relancé, de même que les applications dont les menus n’apparaissent pas. (Sous GNOME, Xfce et la plupart des autres environnements de bureau, ces services sont fournis par le paquet at-spi2-core.)</translation>
    </message>
    <message>
        <source>Open System Preferences</source>
        <translation>Activer et quitter</translation>
    </message>
    <message>
        <source>Quit Tarragon</source>
        <translation>Quitter Tarragon</translation>
    </message>
</context>
<context>
    <name>AppDelegate</name>
    <message>
        <source>No program could be found to open the page: %@</source>
        <translation>Aucun programme n’a été trouvé pour ouvrir la page&#xa0;: %@</translation>
    </message>
    <message>
        <source>%@ does not open the menus</source>
        <translation>%@ n’ouvre pas les menus</translation>
    </message>
    <message>
        <source>The desktop or another program keeps this combination of keys for itself.</source>
        <translation>Cette combinaison de touches est déjà utilisée par l’environnement de bureau ou un autre programme.</translation>
    </message>
    <message>
        <source>Choose Another</source>
        <translation>En choisir une autre</translation>
    </message>
</context>
<context>
    <name>ApplicationChooser</name>
    <message>
        <source>Add Application</source>
        <translation>Ajouter une application</translation>
    </message>
    <message>
        <source>Search applications</source>
        <translation>Rechercher des applications</translation>
    </message>
    <message>
        <source>Type a part of the application&apos;s name</source>
        <translation>Saisir une partie du nom de l’application</translation>
    </message>
    <message>
        <source>Installed applications</source>
        <translation>Applications installées</translation>
    </message>
    <message>
        <source>No installed application matches. &quot;Other&quot; finds an application by its file.</source>
        <translation>Aucune application installée ne correspond. «&#xa0;Autre&#xa0;» permet de choisir une application par son fichier.</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Ajouter</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Other…</source>
        <translation>Autre…</translation>
    </message>
    <message>
        <source>Choose an application that is not in the list by its file</source>
        <translation>Choisir par son fichier une application absente de la liste</translation>
    </message>
    <message>
        <source>Choose an Application</source>
        <translation>Choisir une application</translation>
    </message>
    <message>
        <source>Clear the search</source>
        <translation>Effacer la recherche</translation>
    </message>
</context>
<context>
    <name>IgnoreListView</name>
    <message>
        <source>Type new window title or wildcard pattern here</source>
        <translation>Saisir un titre de fenêtre ou un motif</translation>
    </message>
    <message>
        <source>Select an application to see which of its windows are ignored.</source>
        <translation>Sélectionner une application pour voir lesquelles de ses fenêtres sont ignorées.</translation>
    </message>
    <message>
        <source>This entry cannot be read. Remove it and add the application again to change it.</source>
        <translation>Cette entrée est illisible. Pour la modifier, la supprimer puis ajouter de nouveau l’application.</translation>
    </message>
    <message>
        <source>All windows of this application are ignored.</source>
        <translation>Toutes les fenêtres de cette application sont ignorées.</translation>
    </message>
    <message>
        <source>Add the title of a window to ignore, or a pattern: * stands for any text, ? for one character.</source>
        <translation>Ajouter le titre d’une fenêtre à ignorer, ou un motif&#xa0;: * remplace n’importe quel texte, ? un seul caractère.</translation>
    </message>
    <message>
        <source>Pick a Window…</source>
        <translation>Désigner une fenêtre…</translation>
    </message>
    <message>
        <source>Ignore the window that you click next</source>
        <translation>Ignorer la prochaine fenêtre cliquée</translation>
    </message>
    <message>
        <source>Ignored applications</source>
        <translation>Applications ignorées</translation>
    </message>
    <message>
        <source>No application is ignored yet. Add one to hide the panel over its windows.</source>
        <translation>Aucune application n’est encore ignorée. En ajouter une pour masquer le panneau au-dessus de ses fenêtres.</translation>
    </message>
    <message>
        <source>Add…</source>
        <translation>Ajouter…</translation>
    </message>
    <message>
        <source>Add an application to the list</source>
        <translation>Ajouter une application à la liste</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>Remove the selected application from the list</source>
        <translation>Supprimer de la liste l’application sélectionnée</translation>
    </message>
    <message>
        <source>Ignore all windows of this application</source>
        <translation>Ignorer toutes les fenêtres de cette application</translation>
    </message>
    <message>
        <source>Whatever their titles are. Without it, only windows with these titles.</source>
        <translation>Quel que soit leur titre. Sinon, seulement les fenêtres portant ces titres.</translation>
    </message>
    <message>
        <source>Ignored window titles and patterns</source>
        <translation>Titres de fenêtre et motifs ignorés</translation>
    </message>
    <message>
        <source>Add Title</source>
        <translation>Ajouter un titre</translation>
    </message>
    <message>
        <source>Add a window title or pattern</source>
        <translation>Ajouter un titre de fenêtre ou un motif</translation>
    </message>
    <message>
        <source>Remove the selected window title or pattern</source>
        <translation>Supprimer le titre de fenêtre ou le motif sélectionné</translation>
    </message>
    <message>
        <source>Applications:</source>
        <translation>Applications&#xa0;:</translation>
    </message>
    <message>
        <source>Click the window to ignore. Escape cancels.</source>
        <translation>Cliquer sur la fenêtre à ignorer. Échap annule.</translation>
    </message>
    <message>
        <source>The pointer cannot be had just now. Please try again.</source>
        <translation>Le pointeur est actuellement utilisé par un autre programme. Veuillez réessayer.</translation>
    </message>
    <message>
        <source>It is not known which application that window belongs to.</source>
        <translation>Impossible de déterminer à quelle application appartient cette fenêtre.</translation>
    </message>
    <message>
        <source>That window has no title to know it by. Add its application instead.</source>
        <translation>Cette fenêtre n’a pas de titre. Ajouter plutôt son application.</translation>
    </message>
    <message>
        <source>Window title or pattern</source>
        <translation>Titre de fenêtre ou motif</translation>
    </message>
    <message>
        <source>(empty title)</source>
        <translation>(titre vide)</translation>
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
    <name>KeyComboWords</name>
    <message>
        <source>Return</source>
        <translation>Entrée</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tab</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Espace</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Retour arrière</translation>
    </message>
    <message>
        <source>Escape</source>
        <translation>Échap</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Verr. num.</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Entrée (pavé)</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Inser</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Début</translation>
    </message>
    <message>
        <source>Page Up</source>
        <translation>Page préc.</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Suppr</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Fin</translation>
    </message>
    <message>
        <source>Page Down</source>
        <translation>Page suiv.</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Gauche</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Droite</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Bas</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Haut</translation>
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
        <translation>Maj+</translation>
    </message>
    <message>
        <source>Pad %@</source>
        <translation>%@ (pavé)</translation>
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
</context>
<context>
    <name>PreferenceTexts</name>
    <message>
        <source>A combination of keys opens the menus at the pointer, once you have switched it on under &quot;Hot Key&quot;.</source>
        <translation>Une combinaison de touches ouvre les menus au pointeur, une fois activée sous «&#xa0;Raccourci&#xa0;».</translation>
    </message>
    <message>
        <source>A combination of keys opens the menus at the pointer, once you have chosen one that is free.</source>
        <translation>Une combinaison de touches ouvre les menus au pointeur, une fois choisie parmi celles qui sont libres.</translation>
    </message>
    <message>
        <source>Press %@ anywhere, and the menus of the application in front open at the pointer.</source>
        <translation>Où que ce soit, %@ ouvre au pointeur les menus de l’application active.</translation>
    </message>
    <message>
        <source>A mouse button can do the same: switch that on under &quot;Hot Key&quot;.</source>
        <translation>Un bouton de la souris peut en faire autant&#xa0;: l’activer sous «&#xa0;Raccourci&#xa0;».</translation>
    </message>
    <message>
        <source>The middle mouse button does the same.</source>
        <translation>Le bouton central de la souris fait de même.</translation>
    </message>
    <message>
        <source>Mouse button %@ does the same.</source>
        <translation>Le bouton %@ de la souris fait de même.</translation>
    </message>
    <message>
        <source>Click an item afterwards, or hold the button, move onto an item and let go there.</source>
        <translation>Cliquer ensuite sur un élément, ou maintenir le bouton enfoncé et le relâcher sur un élément.</translation>
    </message>
    <message>
        <source>%@ does not open the menus: the desktop or another program keeps this combination for itself.</source>
        <translation>%@ n’ouvre pas les menus&#xa0;: cette combinaison est déjà utilisée par l’environnement de bureau ou un autre programme.</translation>
    </message>
    <message>
        <source>Please choose another one.</source>
        <translation>Veuillez en choisir une autre.</translation>
    </message>
    <message>
        <source>%@ is free.</source>
        <translation>%@ est libre.</translation>
    </message>
    <message>
        <source>Choose Another Combination</source>
        <translation>Choisir une autre combinaison</translation>
    </message>
    <message>
        <source>Use %@</source>
        <translation>Utiliser %@</translation>
    </message>
    <message>
        <source>Version %@</source>
        <translation>Version %@</translation>
    </message>
    <message>
        <source>The settings cannot be written to disk: changes are lost when Tarragon quits. The disk may be full, or the folder of the settings protected.</source>
        <translation>Les préférences ne peuvent pas être enregistrées&#xa0;: les modifications seront perdues lorsque Tarragon sera quitté. Le disque est peut-être plein, ou leur dossier protégé en écriture.</translation>
    </message>
    <message>
        <source>Access could not be turned on from here. Open System Preferences yourself, and turn on &quot;Enable access for assistive devices&quot;.</source>
        <translation>Les services d’accessibilité n’ont pas pu être activés. Ils sont fournis par le paquet at-spi2-core&#xa0;: une fois celui-ci installé, reconnectez-vous et activez-les ici.</translation>
    </message>
    <message>
        <source>Tarragon cannot read the menus of other applications. Turn on &quot;Enable access for assistive devices&quot; in System Preferences.</source>
        <translation>Tarragon ne peut pas lire les menus des autres applications, car les services d’accessibilité de l’environnement de bureau sont désactivés. Ils peuvent être activés ici. Certaines applications doivent ensuite être relancées.</translation>
    </message>
    <message>
        <source>Every change counts at once.</source>
        <translation>Les modifications prennent effet immédiatement.</translation>
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
    <name>SRRecorder</name>
    <message>
        <source>Key combination</source>
        <translation>Combinaison de touches</translation>
    </message>
    <message>
        <source>Press it and then the keys. Escape leaves it as it was, Backspace clears it.</source>
        <translation>Appuyer ici, puis sur les touches. Échap ne change rien, Retour arrière efface la combinaison.</translation>
    </message>
    <message>
        <source>Leave it as it was</source>
        <translation>Ne rien changer</translation>
    </message>
    <message>
        <source>Clear the combination</source>
        <translation>Effacer la combinaison</translation>
    </message>
    <message>
        <source>Record a combination</source>
        <translation>Enregistrer une combinaison</translation>
    </message>
    <message>
        <source>Press the keys</source>
        <translation>Appuyer sur les touches</translation>
    </message>
    <message>
        <source>Another program is using the keyboard. Try again in a moment.</source>
        <translation>Un autre programme utilise le clavier. Réessayer dans un instant.</translation>
    </message>
    <message>
        <source>The desktop has taken the keyboard back. Nothing was recorded; try again.</source>
        <translation>L’environnement de bureau a repris le clavier. Rien n’a été enregistré, veuillez réessayer.</translation>
    </message>
    <message>
        <source>This key cannot be used. Press another one, or Escape to leave it as it was.</source>
        <translation>Cette touche ne peut pas être utilisée. Appuyer sur une autre, ou sur Échap pour ne rien changer.</translation>
    </message>
    <message>
        <source>This key opens the menus even where you want to type with it. Hold another key with it, such as Alt.</source>
        <translation>Cette touche ouvre les menus même pendant la saisie de texte. La combiner avec une autre touche, comme Alt.</translation>
    </message>
    <message>
        <source>The key combination can&apos;t be used!</source>
        <translation>La combinaison de touches ne peut pas être utilisée&#xa0;!</translation>
    </message>
    <message>
        <source>The desktop does not tell which key combinations are its own, so that this one may be one of them.</source>
        <translation>L’environnement de bureau n’indique pas quelles combinaisons de touches il utilise&#xa0;; celle-ci en fait peut-être partie.</translation>
    </message>
    <message>
        <source>This key has no name in the keyboard layout that is switched on.</source>
        <translation>Cette touche n’a pas de nom dans la disposition de clavier active.</translation>
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
    <message>
        <source>it&apos;s already used by a system-wide keyboard shortcut, %@. (If you really want to use this key combination, most shortcuts can be changed in the Keyboard &amp; Mouse panel in System Preferences.)</source>
        <translation>elle est déjà utilisée par un raccourci clavier du système, «&#xa0;%@&#xa0;». (Pour utiliser malgré tout cette combinaison de touches, la plupart des raccourcis se modifient dans les paramètres du clavier de l’environnement de bureau.)</translation>
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
<context>
    <name>ZDMouseButtonIdentifier</name>
    <message>
        <source>Click here with the mouse button that is to open the menus.</source>
        <translation>Cliquer ici avec le bouton de la souris qui doit ouvrir les menus.</translation>
    </message>
    <message>
        <source>Button Number: %@</source>
        <translation>Bouton numéro&#xa0;: %@</translation>
    </message>
</context>
<context>
    <name>ZDPreferences</name>
    <message>
        <source>Preferences</source>
        <translation>Préférences</translation>
    </message>
    <message>
        <source>Menus</source>
        <translation>Menus</translation>
    </message>
    <message>
        <source>Size of the &amp;menus:</source>
        <translation>Taille des &amp;menus&#xa0;:</translation>
    </message>
    <message>
        <source>As the desktop has it</source>
        <translation>Comme le bureau</translation>
    </message>
    <message>
        <source> points</source>
        <translation> points</translation>
    </message>
    <message>
        <source>For all menus that Tarragon opens.</source>
        <translation>Pour tous les menus ouverts par Tarragon.</translation>
    </message>
    <message>
        <source>Show &amp;keyboard shortcuts</source>
        <translation>Afficher les &amp;raccourcis clavier</translation>
    </message>
    <message>
        <source>Beside each item, as the application shows them.</source>
        <translation>À côté de chaque élément, comme dans l’application.</translation>
    </message>
    <message>
        <source>Show &amp;Tarragon&apos;s own menu</source>
        <translation>Afficher le menu de &amp;Tarragon</translation>
    </message>
    <message>
        <source>The last of all menus, which leads to these preferences.</source>
        <translation>Le dernier de tous les menus, qui mène à ces préférences.</translation>
    </message>
    <message>
        <source>Show the a&amp;pplication&apos;s menus</source>
        <translation>Afficher les menus de l’&amp;application</translation>
    </message>
    <message>
        <source>Without them only the menu of the desktop is shown.</source>
        <translation>Sinon, seul le menu du bureau est affiché.</translation>
    </message>
    <message>
        <source>Show the menu of the &amp;desktop</source>
        <translation>Afficher le menu du &amp;bureau</translation>
    </message>
    <message>
        <source>Before those of the application.</source>
        <translation>Avant ceux de l’application.</translation>
    </message>
    <message>
        <source>&amp;Fold items that stand for others</source>
        <translation>Re&amp;grouper les éléments alternatifs</translation>
    </message>
    <message>
        <source>They show while a modifier key is held.</source>
        <translation>Ils apparaissent tant qu’une touche de modification est enfoncée.</translation>
    </message>
    <message>
        <source>Tarragon</source>
        <translation>Tarragon</translation>
    </message>
    <message>
        <source>&amp;Launch on login</source>
        <translation>&amp;Lancer à l’ouverture de session</translation>
    </message>
    <message>
        <source>Tarragon starts when you log in.</source>
        <translation>Tarragon démarre à l’ouverture de session.</translation>
    </message>
    <message>
        <source>Show an &amp;icon in the tray</source>
        <translation>Afficher une &amp;icône dans la zone de notification</translation>
    </message>
    <message>
        <source>It holds Tarragon&apos;s own menu.</source>
        <translation>Elle contient le menu de Tarragon.</translation>
    </message>
    <message>
        <source>How menus are opened</source>
        <translation>Comment ouvrir les menus</translation>
    </message>
    <message>
        <source>In general</source>
        <translation>En général</translation>
    </message>
    <message>
        <source>At the pointer</source>
        <translation>Au pointeur</translation>
    </message>
    <message>
        <source>Above the window</source>
        <translation>Au-dessus de la fenêtre</translation>
    </message>
    <message>
        <source>On the other screens</source>
        <translation>Sur les autres écrans</translation>
    </message>
    <message>
        <source>Not for every window</source>
        <translation>Pas pour toutes les fenêtres</translation>
    </message>
    <message>
        <source>Tarragon brings the menus of the application in front to where you work: at the pointer, above the window, and on every screen. Switch on the ways that you like. They open the same menus, and a menu item does what it does in the application itself.</source>
        <translation>Tarragon amène les menus de l’application active là où se fait le travail&#xa0;: au pointeur, au-dessus de la fenêtre et sur chaque écran. Chaque moyen s’active à volonté. Tous ouvrent les mêmes menus, et un élément de menu agit comme dans l’application elle-même.</translation>
    </message>
    <message>
        <source>A combination of keys, or a mouse button, opens all menus at the pointer, wherever that is. The application keeps the keyboard the whole time. Choose both under &quot;Hot Key&quot;.</source>
        <translation>Une combinaison de touches ou un bouton de la souris ouvre tous les menus au pointeur, où qu’il soit. L’application garde le clavier tout ce temps. Les deux se choisissent sous «&#xa0;Raccourci&#xa0;».</translation>
    </message>
    <message>
        <source>A small panel above the window in front shows the titles of its menus. Where there is no room above, it lies on the title bar. Drag the panel, and the window goes with it. Choose how it looks under &quot;Window Top&quot;.</source>
        <translation>Un petit panneau au-dessus de la fenêtre active affiche les titres de ses menus. Faute de place, il se pose sur la barre de titre. Faire glisser le panneau déplace aussi la fenêtre. Son aspect se choisit sous «&#xa0;Haut de fenêtre&#xa0;».</translation>
    </message>
    <message>
        <source>Every screen but the first can have a menu bar at its top, which shows the menus of the application in front, on whichever screen its window is. See &quot;Screen Top&quot;.</source>
        <translation>Chaque écran sauf le premier peut avoir en haut une barre de menus, qui affiche les menus de l’application active, quel que soit l’écran où se trouve sa fenêtre. Voir «&#xa0;Haut d’écran&#xa0;».</translation>
    </message>
    <message>
        <source>Some windows do without the panel: right-click a title in it to leave out the application, or windows of that title. All that you have left out is under &quot;Ignore List&quot;.</source>
        <translation>Certaines fenêtres se passent du panneau&#xa0;: un clic droit sur l’un de ses titres permet d’ignorer l’application, ou les fenêtres portant ce titre. Tout ce qui est ignoré figure sous «&#xa0;Fenêtres ignorées&#xa0;».</translation>
    </message>
    <message>
        <source>&amp;Reset to Defaults</source>
        <translation>Rétablir les valeurs par &amp;défaut</translation>
    </message>
    <message>
        <source>&amp;Apply and Relaunch</source>
        <translation>A&amp;ppliquer et relancer</translation>
    </message>
    <message>
        <source>&amp;Quit Tarragon</source>
        <translation>&amp;Quitter Tarragon</translation>
    </message>
    <message>
        <source>Turn On</source>
        <translation>Activer</translation>
    </message>
    <message>
        <source>Keyboard</source>
        <translation>Clavier</translation>
    </message>
    <message>
        <source>Enable hotkey</source>
        <translation>Ouvrir les menus avec un raccour&amp;ci clavier</translation>
    </message>
    <message>
        <source>Press a combination of keys anywhere, and the menus of the application in front open at the pointer.</source>
        <translation>Où que ce soit, une combinaison de touches ouvre au pointeur les menus de l’application active.</translation>
    </message>
    <message>
        <source>Now nothing opens the menus any more: the hot key, the panel and the bars are all switched off.</source>
        <translation>Le raccourci clavier, le panneau et les barres sont tous désactivés. En activer au moins un pour accéder aux menus.</translation>
    </message>
    <message>
        <source>&amp;Combination:</source>
        <translation>Com&amp;binaison&#xa0;:</translation>
    </message>
    <message>
        <source>Combination of keys that opens the menus</source>
        <translation>Combinaison de touches qui ouvre les menus</translation>
    </message>
    <message>
        <source>Click the field, or press Return in it, and then press the new combination. Escape keeps the old one, Backspace leaves you without any.</source>
        <translation>Cliquer sur le champ, ou y appuyer sur Entrée, puis appuyer sur la nouvelle combinaison. Échap conserve l’ancienne, Retour arrière l’efface.</translation>
    </message>
    <message>
        <source>Try Another Combination</source>
        <translation>Choisir une autre combinaison</translation>
    </message>
    <message>
        <source>Mouse</source>
        <translation>Souris</translation>
    </message>
    <message>
        <source>Open the menus with a &amp;mouse button</source>
        <translation>Ouvrir les menus avec un bouton de la &amp;souris</translation>
    </message>
    <message>
        <source>The menus open where you press it. The window below the pointer gets the press as well.</source>
        <translation>Les menus s’ouvrent à l’endroit du clic. La fenêtre sous le pointeur reçoit aussi ce clic.</translation>
    </message>
    <message>
        <source>&amp;Button:</source>
        <translation>B&amp;outon&#xa0;:</translation>
    </message>
    <message>
        <source>Mouse button that opens the menus</source>
        <translation>Bouton de la souris qui ouvre les menus</translation>
    </message>
    <message>
        <source>Click the field with the button that you want: the middle one, number 2, or one beyond it.</source>
        <translation>Cliquer sur le champ avec le bouton voulu&#xa0;: celui du milieu, numéro 2, ou un autre au-delà.</translation>
    </message>
    <message>
        <source>Show a &amp;panel above the window in front</source>
        <translation>Afficher un &amp;panneau au-dessus de la fenêtre active</translation>
    </message>
    <message>
        <source>It shows the titles of the window&apos;s menus.</source>
        <translation>Il affiche les titres des menus de la fenêtre.</translation>
    </message>
    <message>
        <source>What the panel shows</source>
        <translation>Contenu du panneau</translation>
    </message>
    <message>
        <source>&amp;Every title, side by side</source>
        <translation>&amp;Tous les titres, côte à côte</translation>
    </message>
    <message>
        <source>&amp;One button that opens all menus</source>
        <translation>&amp;Un seul bouton qui ouvre tous les menus</translation>
    </message>
    <message>
        <source>&amp;Label of that button:</source>
        <translation>&amp;Libellé de ce bouton&#xa0;:</translation>
    </message>
    <message>
        <source>What stands on the one button.</source>
        <translation>Le texte affiché sur ce seul bouton.</translation>
    </message>
    <message>
        <source>Look of the &amp;buttons:</source>
        <translation>Aspect des &amp;boutons&#xa0;:</translation>
    </message>
    <message>
        <source>Rounded</source>
        <translation>Arrondis</translation>
    </message>
    <message>
        <source>Recessed</source>
        <translation>En creux</translation>
    </message>
    <message>
        <source>Square</source>
        <translation>Carrés</translation>
    </message>
    <message>
        <source>Square, without shadow</source>
        <translation>Carrés, sans ombre</translation>
    </message>
    <message>
        <source>As in a menu bar</source>
        <translation>Comme dans une barre de menus</translation>
    </message>
    <message>
        <source>How titles and button are drawn.</source>
        <translation>Le dessin des titres et du bouton.</translation>
    </message>
    <message>
        <source>&amp;Size of the titles:</source>
        <translation>Taille des t&amp;itres&#xa0;:</translation>
    </message>
    <message>
        <source>Larger titles leave room for fewer of them.</source>
        <translation>Plus les titres sont grands, moins ils sont nombreux à tenir.</translation>
    </message>
    <message>
        <source>Buttons have a border</source>
        <translation>Boutons avec bordure</translation>
    </message>
    <message>
        <source>A line around each button.</source>
        <translation>Un trait autour de chaque bouton.</translation>
    </message>
    <message>
        <source>Buttons have a shadow</source>
        <translation>Boutons avec ombre</translation>
    </message>
    <message>
        <source>Below each button.</source>
        <translation>Sous chaque bouton.</translation>
    </message>
    <message>
        <source>Buttons have a texture</source>
        <translation>Boutons avec texture</translation>
    </message>
    <message>
        <source>Within each button.</source>
        <translation>À l’intérieur de chaque bouton.</translation>
    </message>
    <message>
        <source>Buttons are round</source>
        <translation>Boutons arrondis</translation>
    </message>
    <message>
        <source>Each button has round corners.</source>
        <translation>Chaque bouton a des coins arrondis.</translation>
    </message>
    <message>
        <source>Where and when it shows</source>
        <translation>Où et quand il apparaît</translation>
    </message>
    <message>
        <source>Always &amp;visible</source>
        <translation>Toujours &amp;visible</translation>
    </message>
    <message>
        <source>Otherwise it shows only while the pointer is where it would be.</source>
        <translation>Sinon, il n’apparaît que lorsque le pointeur est à son emplacement.</translation>
    </message>
    <message>
        <source>On the &amp;title bar</source>
        <translation>Sur la ba&amp;rre de titre</translation>
    </message>
    <message>
        <source>Beside the window&apos;s buttons, wherever the window is.</source>
        <translation>À côté des boutons de la fenêtre, où que soit celle-ci.</translation>
    </message>
    <message>
        <source>Also on the &amp;first screen</source>
        <translation>Au&amp;ssi sur le premier écran</translation>
    </message>
    <message>
        <source>Windows on the other screens have it in any case.</source>
        <translation>Les fenêtres des autres écrans l’ont dans tous les cas.</translation>
    </message>
    <message>
        <source>&amp;Not at the very top of the first screen</source>
        <translation>Pas tout e&amp;n haut du premier écran</translation>
    </message>
    <message>
        <source>Where a window touches the upper edge, the panel stays away.</source>
        <translation>Lorsqu’une fenêtre touche le bord supérieur, le panneau n’apparaît pas.</translation>
    </message>
    <message>
        <source>Show a menu &amp;bar on every screen but the first</source>
        <translation>Afficher une &amp;barre de menus sur chaque écran sauf le premier</translation>
    </message>
    <message>
        <source>At its top, with the menus of the application in front.</source>
        <translation>En haut, avec les menus de l’application active.</translation>
    </message>
    <message>
        <source>The bars</source>
        <translation>Les barres</translation>
    </message>
    <message>
        <source>&amp;Hide the bar</source>
        <translation>&amp;Masquer la barre</translation>
    </message>
    <message>
        <source>It comes when the pointer touches the upper edge of the screen, and goes with it. Otherwise windows keep clear of it.</source>
        <translation>Elle apparaît quand le pointeur touche le bord supérieur de l’écran et disparaît avec lui. Si elle n’est pas masquée, les fenêtres lui laissent la place.</translation>
    </message>
    <message>
        <source>Only the &amp;left half of the edge has it come</source>
        <translation>Ne l’afficher que depuis la moitié &amp;gauche du bord</translation>
    </message>
    <message>
        <source>The right half stays free for other things that wait there.</source>
        <translation>La moitié droite reste libre pour d’autres actions liées à ce bord.</translation>
    </message>
    <message>
        <source>&amp;Translucent</source>
        <translation>&amp;Translucide</translation>
    </message>
    <message>
        <source>What lies below the bar shines through, where the desktop can do that.</source>
        <translation>Ce qui se trouve sous la barre transparaît, si l’environnement de bureau le permet.</translation>
    </message>
    <message>
        <source>Shows the menu bar of the application in front where your pointer and eyes are.</source>
        <translation>Affiche la barre de menus de l’application active là où se trouvent le pointeur et le regard.</translation>
    </message>
    <message>
        <source>Licence</source>
        <translation>Licence</translation>
    </message>
    <message>
        <source>Copyright 2026 The Tarragon developers. Free software under the MIT License: you may use, change and pass it on, without warranty.</source>
        <translation>Copyright 2026 Les développeurs de Tarragon. Logiciel libre sous licence MIT&#xa0;: il peut être utilisé, modifié et redistribué, sans garantie.</translation>
    </message>
    <message>
        <source>Libraries</source>
        <translation>Bibliothèques</translation>
    </message>
    <message>
        <source>Libraries that Tarragon uses</source>
        <translation>Bibliothèques utilisées par Tarragon</translation>
    </message>
    <message>
        <source>&amp;Web Page</source>
        <translation>Page &amp;web</translation>
    </message>
    <message>
        <source>First &amp;Social Page</source>
        <translation>&amp;Premier réseau social</translation>
    </message>
    <message>
        <source>Se&amp;cond Social Page</source>
        <translation>&amp;Second réseau social</translation>
    </message>
    <message>
        <source>Press a title in the panel above the window and its menu opens; move along and the next one does. Drag the panel by its background, and the window moves with it. A right click on a title offers to do without the panel there.</source>
        <translation>Appuyer sur un titre du panneau au-dessus de la fenêtre ouvre son menu&#xa0;; continuer vers le titre suivant ouvre le sien. Faire glisser le panneau par son fond déplace aussi la fenêtre. Un clic droit sur un titre propose de s’y passer du panneau.</translation>
    </message>
    <message>
        <source>Every screen but the first has a menu bar along its top, for the application in front on whichever screen its window is.</source>
        <translation>Chaque écran sauf le premier a en haut une barre de menus pour l’application active, quel que soit l’écran où se trouve sa fenêtre.</translation>
    </message>
    <message>
        <source>Choosing an item</source>
        <translation>Choisir un élément</translation>
    </message>
    <message>
        <source>Click it, or go there with the arrow keys and press Return. Typing the first letters of an item finds it, and Escape closes the menus. The application does what its own menu item does.</source>
        <translation>Cliquer dessus, ou s’y rendre avec les touches fléchées et appuyer sur Entrée. Saisir les premières lettres d’un élément permet de le trouver, et Échap ferme les menus. L’application réagit comme à son propre élément de menu.</translation>
    </message>
    <message>
        <source>&amp;Watch a Film</source>
        <translation>&amp;Voir une vidéo</translation>
    </message>
    <message>
        <source>Panes</source>
        <translation>Volets</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Général</translation>
    </message>
    <message>
        <source>Hot Key</source>
        <translation>Raccourci</translation>
    </message>
    <message>
        <source>Window Top</source>
        <translation>Haut de fenêtre</translation>
    </message>
    <message>
        <source>Screen Top</source>
        <translation>Haut d’écran</translation>
    </message>
    <message>
        <source>Ignore List</source>
        <translation>Fenêtres ignorées</translation>
    </message>
    <message>
        <source>About</source>
        <translation>À propos</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
</context>
</TS>
