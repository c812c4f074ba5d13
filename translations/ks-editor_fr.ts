<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR" sourcelanguage="en">
<context>
    <name>ksAllFieldsPage</name>
    <message>
        <source>All fields</source>
        <translation>Tous les champs</translation>
    </message>
</context>
<context>
    <name>ksColourEditor</name>
    <message>
        <source>R</source>
        <translation>R</translation>
    </message>
    <message>
        <source>G</source>
        <translation>V</translation>
    </message>
    <message>
        <source>B</source>
        <translation>B</translation>
    </message>
    <message>
        <source>A</source>
        <translation>A</translation>
    </message>
    <message>
        <source>Choose a colour</source>
        <translation>Choisir une couleur</translation>
    </message>
    <message>
        <source>%1, choose a colour</source>
        <translation>%1, choisir une couleur</translation>
    </message>
</context>
<context>
    <name>ksConstraintPage</name>
    <message>
        <source>Target</source>
        <translation>Cible</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Source</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Haut</translation>
    </message>
    <message>
        <source>Refers to</source>
        <translation>Références</translation>
    </message>
    <message>
        <source>Remove &apos;%1&apos; from constraint</source>
        <translation>Retrait de &apos;%1&apos; de la contrainte</translation>
    </message>
    <message>
        <source>Constraint</source>
        <translation>Contrainte</translation>
    </message>
</context>
<context>
    <name>ksDialogs</name>
    <message>
        <source>Unsaved Edits</source>
        <translation>Modifications non enregistrées</translation>
    </message>
    <message>
        <source>The edits of &apos;%1&apos; are not saved.</source>
        <translation>Les modifications de «&#xa0;%1&#xa0;» ne sont pas enregistrées.</translation>
    </message>
    <message>
        <source>They are lost if you discard them.</source>
        <translation>Elles seront perdues si vous ne les enregistrez pas.</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Ouvrir</translation>
    </message>
    <message>
        <source>Models (*.gltf *.glb *.dae *.fbx *.obj *.stl *.ply *.3ds *.3mf *.x3d *.blend *.off *.lwo)</source>
        <translation>Modèles (*.gltf *.glb *.dae *.fbx *.obj *.stl *.ply *.3ds *.3mf *.x3d *.blend *.off *.lwo)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Tous les fichiers (*)</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Enregistrer sous</translation>
    </message>
    <message>
        <source>glTF (*.gltf);;Binary glTF (*.glb)</source>
        <translation>glTF (*.gltf);;glTF binaire (*.glb)</translation>
    </message>
    <message>
        <source>Run Script</source>
        <translation>Exécuter un script</translation>
    </message>
    <message>
        <source>Scripts (*.js)</source>
        <translation>Scripts (*.js)</translation>
    </message>
    <message>
        <source>History Limit</source>
        <translation>Limite de l’historique</translation>
    </message>
    <message>
        <source>How many steps the history keeps, 0 for all of them.
A history that has steps keeps its limit: the new one holds from the next
document on that is opened.</source>
        <translation>Nombre d’étapes que l’historique conserve, 0 pour toutes.
Un historique qui contient déjà des étapes garde sa limite&#xa0;: la nouvelle s’applique
à partir du prochain document ouvert.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>ksDocument</name>
    <message>
        <source>Left out: %1</source>
        <translation>Omis&#xa0;: %1</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Sans titre</translation>
    </message>
</context>
<context>
    <name>ksHandleDrag</name>
    <message>
        <source>&apos;%1&apos; cannot be moved here: what is above it has no extent in some direction</source>
        <translation>«&#xa0;%1&#xa0;» ne peut pas être déplacé ici&#xa0;: un de ses ancêtres a une étendue nulle dans une direction</translation>
    </message>
    <message>
        <source>Turn</source>
        <translation>Rotation de</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Mise à l’échelle de</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>Déplacement de</translation>
    </message>
</context>
<context>
    <name>ksImageEditor</name>
    <message>
        <source>Load...</source>
        <translation>Charger...</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Retirer</translation>
    </message>
    <message>
        <source>none</source>
        <translation>aucune</translation>
    </message>
    <message>
        <source>%1, load from a file</source>
        <translation>%1, charger depuis un fichier</translation>
    </message>
    <message>
        <source>%1, remove</source>
        <translation>%1, retirer</translation>
    </message>
</context>
<context>
    <name>ksInspector</name>
    <message>
        <source>Nothing is selected.</source>
        <translation>Aucune sélection.</translation>
    </message>
    <message>
        <source>Inspector</source>
        <translation>Inspecteur</translation>
    </message>
    <message>
        <source>Inspector, scroll</source>
        <translation>Inspecteur, défilement</translation>
    </message>
</context>
<context>
    <name>ksInspectorFields</name>
    <message>
        <source>Attenuation</source>
        <translation>Atténuation</translation>
    </message>
    <message>
        <source>Base color</source>
        <translation>Couleur de base</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>Couleur</translation>
    </message>
    <message>
        <source>Comment</source>
        <translation>Commentaire</translation>
    </message>
    <message>
        <source>Cone angle</source>
        <translation>Angle du cône</translation>
    </message>
    <message>
        <source>Diffuse</source>
        <translation>Diffus</translation>
    </message>
    <message>
        <source>Enabled</source>
        <translation>Activé</translation>
    </message>
    <message>
        <source>Glossy</source>
        <translation>Brillance</translation>
    </message>
    <message>
        <source>Intensity</source>
        <translation>Intensité</translation>
    </message>
    <message>
        <source>Layer</source>
        <translation>Calque</translation>
    </message>
    <message>
        <source>Locked</source>
        <translation>Verrouillé</translation>
    </message>
    <message>
        <source>Lod bias</source>
        <translation>Biais de LOD</translation>
    </message>
    <message>
        <source>Mapping offset</source>
        <translation>Décalage de texture</translation>
    </message>
    <message>
        <source>Mapping rotation</source>
        <translation>Rotation de texture</translation>
    </message>
    <message>
        <source>Mapping scale</source>
        <translation>Échelle de texture</translation>
    </message>
    <message>
        <source>Metalness</source>
        <translation>Métallicité</translation>
    </message>
    <message>
        <source>Opacity</source>
        <translation>Opacité</translation>
    </message>
    <message>
        <source>Penumbra angle</source>
        <translation>Angle de pénombre</translation>
    </message>
    <message>
        <source>Pick id</source>
        <translation>Id. de sélection</translation>
    </message>
    <message>
        <source>Planar projection</source>
        <translation>Projection plane</translation>
    </message>
    <message>
        <source>Projection size</source>
        <translation>Taille de projection</translation>
    </message>
    <message>
        <source>Reference distance</source>
        <translation>Distance de référence</translation>
    </message>
    <message>
        <source>Refraction index</source>
        <translation>Indice de réfraction</translation>
    </message>
    <message>
        <source>Render order</source>
        <translation>Ordre de rendu</translation>
    </message>
    <message>
        <source>Revision</source>
        <translation>Révision</translation>
    </message>
    <message>
        <source>Rotate pivot</source>
        <translation>Pivot de rotation</translation>
    </message>
    <message>
        <source>Roughness</source>
        <translation>Rugosité</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Échelle</translation>
    </message>
    <message>
        <source>Scale pivot</source>
        <translation>Pivot d’échelle</translation>
    </message>
    <message>
        <source>Shear</source>
        <translation>Cisaillement</translation>
    </message>
    <message>
        <source>Sort key</source>
        <translation>Clé de tri</translation>
    </message>
    <message>
        <source>Stencil reference</source>
        <translation>Valeur de stencil</translation>
    </message>
    <message>
        <source>Time offset</source>
        <translation>Décalage temporel</translation>
    </message>
    <message>
        <source>Translation</source>
        <translation>Translation</translation>
    </message>
    <message>
        <source>Transparency mode</source>
        <translation>Mode de transparence</translation>
    </message>
    <message>
        <source>User flags</source>
        <translation>Drapeaux utilisateur</translation>
    </message>
    <message>
        <source>Weight</source>
        <translation>Poids</translation>
    </message>
</context>
<context>
    <name>ksInspectorRow</name>
    <message>
        <source>Set %1 of %2</source>
        <translation>Modification de %1 pour %2</translation>
    </message>
</context>
<context>
    <name>ksLightPage</name>
    <message>
        <source>Select the nodes that are meant first, and then add this one to them.</source>
        <translation>Sélectionnez d’abord les nœuds voulus, puis ajoutez celui-ci à la sélection.</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Aucune</translation>
    </message>
    <message>
        <source>Linear</source>
        <translation>Linéaire</translation>
    </message>
    <message>
        <source>Quadratic</source>
        <translation>Quadratique</translation>
    </message>
    <message>
        <source>Visibility reference</source>
        <translation>Référence de visibilité</translation>
    </message>
    <message>
        <source>Set visibility reference</source>
        <translation>Affectation de la référence de visibilité</translation>
    </message>
    <message>
        <source>Use selected</source>
        <translation>Utiliser la sélection</translation>
    </message>
    <message>
        <source>None of the other selected nodes is a light.</source>
        <translation>Aucun des autres nœuds sélectionnés n’est une lumière.</translation>
    </message>
    <message>
        <source>Remove links</source>
        <translation>Suppression de liens</translation>
    </message>
    <message>
        <source>Add links</source>
        <translation>Ajout de liens</translation>
    </message>
    <message>
        <source>Lights</source>
        <translation>Lumières</translation>
    </message>
    <message>
        <source>Nodes that they shine on</source>
        <translation>Nœuds éclairés</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Lumière</translation>
    </message>
    <message>
        <source>Light links</source>
        <translation>Liens de lumière</translation>
    </message>
</context>
<context>
    <name>ksListEditor</name>
    <message>
        <source>Add</source>
        <translation>Ajouter</translation>
    </message>
    <message>
        <source>add</source>
        <translation>ajouter</translation>
    </message>
    <message>
        <source>Add selected</source>
        <translation>Ajouter la sélection</translation>
    </message>
    <message>
        <source>add the other selected nodes</source>
        <translation>ajouter les autres nœuds sélectionnés</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Retirer</translation>
    </message>
    <message>
        <source>remove</source>
        <translation>retirer</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Haut</translation>
    </message>
    <message>
        <source>move up</source>
        <translation>déplacer vers le haut</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Bas</translation>
    </message>
    <message>
        <source>move down</source>
        <translation>déplacer vers le bas</translation>
    </message>
    <message>
        <source>%1, what to add</source>
        <translation>%1, élément à ajouter</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Appliquer</translation>
    </message>
    <message>
        <source>apply</source>
        <translation>appliquer</translation>
    </message>
</context>
<context>
    <name>ksMainWindow</name>
    <message>
        <source>Messages</source>
        <translation>Messages</translation>
    </message>
    <message>
        <source>Warnings</source>
        <translation>Avertissements</translation>
    </message>
    <message>
        <source>Outline</source>
        <translation>Hiérarchie</translation>
    </message>
    <message>
        <source>Inspector</source>
        <translation>Inspecteur</translation>
    </message>
    <message>
        <source>Script Console</source>
        <translation>Console de script</translation>
    </message>
    <message>
        <source>Import Warnings</source>
        <translation>Avertissements d’import</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Fichier</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Nouveau</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>&amp;Ouvrir...</translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation>Fichiers &amp;récents</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Enregistrer</translation>
    </message>
    <message>
        <source>Save &amp;As...</source>
        <translation>Enregistrer &amp;sous...</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Quitter</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>É&amp;dition</translation>
    </message>
    <message>
        <source>&amp;Add Node</source>
        <translation>A&amp;jouter un nœud</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Supprimer</translation>
    </message>
    <message>
        <source>Re&amp;name</source>
        <translation>Reno&amp;mmer</translation>
    </message>
    <message>
        <source>S&amp;how or Hide</source>
        <translation>A&amp;fficher ou masquer</translation>
    </message>
    <message>
        <source>&amp;Move</source>
        <translation>&amp;Déplacer</translation>
    </message>
    <message>
        <source>&amp;Up</source>
        <translation>Vers le &amp;haut</translation>
    </message>
    <message>
        <source>&amp;Down</source>
        <translation>Vers le &amp;bas</translation>
    </message>
    <message>
        <source>&amp;Out of Its Parent</source>
        <translation>Hors du &amp;parent</translation>
    </message>
    <message>
        <source>&amp;Into the One Before</source>
        <translation>Dans le p&amp;récédent</translation>
    </message>
    <message>
        <source>Select N&amp;one</source>
        <translation>T&amp;out désélectionner</translation>
    </message>
    <message>
        <source>&amp;Checkpoint</source>
        <translation>&amp;Point de contrôle</translation>
    </message>
    <message>
        <source>Return to Checkpoint comes back to here.</source>
        <translation>«&#xa0;Revenir au point de contrôle&#xa0;» ramène à cet état.</translation>
    </message>
    <message>
        <source>Re&amp;turn to Checkpoint</source>
        <translation>Re&amp;venir au point de contrôle</translation>
    </message>
    <message>
        <source>H&amp;istory</source>
        <translation>&amp;Historique</translation>
    </message>
    <message>
        <source>History &amp;Limit...</source>
        <translation>L&amp;imite de l’historique...</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Affichage</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Outils</translation>
    </message>
    <message>
        <source>&amp;Select</source>
        <translation>&amp;Sélectionner</translation>
    </message>
    <message>
        <source>&amp;Turn</source>
        <translation>&amp;Pivoter</translation>
    </message>
    <message>
        <source>S&amp;cale</source>
        <translation>É&amp;chelle</translation>
    </message>
    <message>
        <source>&amp;Local Axes</source>
        <translation>Axes &amp;locaux</translation>
    </message>
    <message>
        <source>&amp;Frame Selection</source>
        <translation>C&amp;adrer la sélection</translation>
    </message>
    <message>
        <source>Frame &amp;All</source>
        <translation>Cadrer &amp;tout</translation>
    </message>
    <message>
        <source>&amp;Script</source>
        <translation>&amp;Script</translation>
    </message>
    <message>
        <source>&amp;Run...</source>
        <translation>&amp;Exécuter...</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>&amp;Arrêter</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Échap</translation>
    </message>
    <message>
        <source>&amp;Console</source>
        <translation>&amp;Console</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>A&amp;ide</translation>
    </message>
    <message>
        <source>&amp;Keys</source>
        <translation>&amp;Raccourcis</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Raccourcis clavier</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>À &amp;propos</translation>
    </message>
    <message>
        <source>About</source>
        <translation>À propos</translation>
    </message>
    <message>
        <source>ks-editor %1: edits 3D models, and takes every edit back.</source>
        <translation>ks-editor %1&#xa0;: édite des modèles 3D et sait annuler chaque modification.</translation>
    </message>
    <message>
        <source>Opening %1</source>
        <translation>Ouverture de %1</translation>
    </message>
    <message>
        <source>: takes more memory than it is given</source>
        <translation>: demande plus de mémoire qu’il n’est permis</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Sans titre</translation>
    </message>
    <message>
        <source>Saved %1.</source>
        <translation>%1 a été enregistré.</translation>
    </message>
    <message>
        <source>&amp;Undo &quot;%1&quot;</source>
        <translation>&amp;Annuler «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Annuler</translation>
    </message>
    <message>
        <source>&amp;Redo &quot;%1&quot;</source>
        <translation>&amp;Rétablir «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Rétablir</translation>
    </message>
    <message>
        <source>Du&amp;plicate</source>
        <translation>D&amp;upliquer</translation>
    </message>
    <message>
        <source>S&amp;elect All</source>
        <translation>&amp;Tout sélectionner</translation>
    </message>
</context>
<context>
    <name>ksMaterialPage</name>
    <message>
        <source>None</source>
        <translation>Aucun</translation>
    </message>
    <message>
        <source>Material</source>
        <translation>Matériau</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Image</translation>
    </message>
    <message>
        <source>Set image</source>
        <translation>Affectation de l’image</translation>
    </message>
    <message>
        <source>Component %1</source>
        <translation>Composante %1</translation>
    </message>
    <message>
        <source>All components</source>
        <translation>Toutes les composantes</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Paramètres</translation>
    </message>
    <message>
        <source>Environment</source>
        <translation>Environnement</translation>
    </message>
    <message>
        <source>Mesh</source>
        <translation>Maillage</translation>
    </message>
</context>
<context>
    <name>ksNodeEdits</name>
    <message>
        <source>Rename &apos;%1&apos;</source>
        <translation>Renommage de &apos;%1&apos;</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Affichage de</translation>
    </message>
    <message>
        <source>Hide</source>
        <translation>Masquage de</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>Déplacement de</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Suppression de</translation>
    </message>
    <message>
        <source>Node</source>
        <translation>Noeud</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Duplication de</translation>
    </message>
</context>
<context>
    <name>ksNodePage</name>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Rename &apos;%1&apos;</source>
        <translation>Renommage de &apos;%1&apos;</translation>
    </message>
    <message>
        <source>Rename to &apos;%1&apos;</source>
        <translation>Renommage en &apos;%1&apos;</translation>
    </message>
    <message>
        <source>Shown</source>
        <translation>Visible</translation>
    </message>
    <message>
        <source>Show &apos;%1&apos;</source>
        <translation>Affichage de &apos;%1&apos;</translation>
    </message>
    <message>
        <source>Hide &apos;%1&apos;</source>
        <translation>Masquage de &apos;%1&apos;</translation>
    </message>
    <message>
        <source>Node</source>
        <translation>Nœud</translation>
    </message>
</context>
<context>
    <name>ksNumbersEditor</name>
    <message>
        <source>%1, drag to change</source>
        <translation>%1, glisser pour modifier</translation>
    </message>
</context>
<context>
    <name>ksOutline</name>
    <message>
        <source>Filter by name</source>
        <translation>Filtrer par nom</translation>
    </message>
    <message>
        <source>Filter of the outline</source>
        <translation>Filtre de la hiérarchie</translation>
    </message>
    <message>
        <source>Outline</source>
        <translation>Hiérarchie</translation>
    </message>
    <message>
        <source>Columns of the outline</source>
        <translation>Colonnes de la hiérarchie</translation>
    </message>
</context>
<context>
    <name>ksOutlineModel</name>
    <message>
        <source>Node</source>
        <translation>Nœud</translation>
    </message>
    <message>
        <source>Shown</source>
        <translation>Visible</translation>
    </message>
    <message>
        <source>(unnamed)</source>
        <translation>(sans nom)</translation>
    </message>
    <message>
        <source>%1 is shown</source>
        <translation>%1 est visible</translation>
    </message>
</context>
<context>
    <name>ksScriptInput</name>
    <message>
        <source>Completions</source>
        <translation>Complétions</translation>
    </message>
</context>
<context>
    <name>ksScriptPanel</name>
    <message>
        <source>Output of scripts</source>
        <translation>Sortie des scripts</translation>
    </message>
    <message>
        <source>scene.find(&apos;Table&apos;).translate([0, 1, 0])    Tab completes, help() helps</source>
        <translation>scene.find(&apos;Table&apos;).translate([0, 1, 0])    Tab complète, help() aide</translation>
    </message>
    <message>
        <source>Line of script</source>
        <translation>Ligne de script</translation>
    </message>
    <message>
        <source>Run</source>
        <translation>Exécuter</translation>
    </message>
    <message>
        <source>Run the line</source>
        <translation>Exécuter la ligne</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Arrêter</translation>
    </message>
    <message>
        <source>Stop the script</source>
        <translation>Arrêter le script</translation>
    </message>
    <message>
        <source>Stops the script (Esc)</source>
        <translation>Arrête le script (Échap)</translation>
    </message>
    <message>
        <source> s</source>
        <translation> s</translation>
    </message>
    <message>
        <source>no limit</source>
        <translation>sans limite</translation>
    </message>
    <message>
        <source>Silence that ends scripts</source>
        <translation>Silence mettant fin aux scripts</translation>
    </message>
    <message>
        <source>Stop is heeded when a script edits or prints. One that does neither for so long is ended.</source>
        <translation>L’arrêt prend effet quand un script modifie la scène ou affiche du texte. Un script qui ne fait ni l’un ni l’autre pendant cette durée est interrompu.</translation>
    </message>
    <message>
        <source>End when silent for</source>
        <translation>Fin après silence de</translation>
    </message>
    <message>
        <source>console</source>
        <translation>console</translation>
    </message>
    <message>
        <source>ended after %1 s of silence</source>
        <translation>arrêté après %1 s de silence</translation>
    </message>
</context>
<context>
    <name>ksScrubLabel</name>
    <message>
        <source>Drag sideways to change the number</source>
        <translation>Glisser horizontalement pour modifier le nombre</translation>
    </message>
</context>
<context>
    <name>ksTagsPage</name>
    <message>
        <source>The tag &apos;%1&apos; is there already.</source>
        <translation>L’étiquette «&#xa0;%1&#xa0;» existe déjà.</translation>
    </message>
    <message>
        <source>Add tag &apos;%1&apos;</source>
        <translation>Ajout de l’étiquette &apos;%1&apos;</translation>
    </message>
    <message>
        <source>Remove tag &apos;%1&apos;</source>
        <translation>Retrait de l’étiquette &apos;%1&apos;</translation>
    </message>
    <message>
        <source>User tags</source>
        <translation>Étiquettes utilisateur</translation>
    </message>
    <message>
        <source>Layers</source>
        <translation>Calques</translation>
    </message>
    <message>
        <source>Tags</source>
        <translation>Étiquettes</translation>
    </message>
</context>
<context>
    <name>ksTransformPage</name>
    <message>
        <source>Rotation</source>
        <translation>Rotation</translation>
    </message>
    <message>
        <source>Scale pivot shift</source>
        <translation>Décalage pivot échelle</translation>
    </message>
    <message>
        <source>Rotate pivot shift</source>
        <translation>Décalage pivot rotation</translation>
    </message>
    <message>
        <source>Orientation</source>
        <translation>Orientation</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>Direction</translation>
    </message>
    <message>
        <source>Rotation order</source>
        <translation>Ordre de rotation</translation>
    </message>
    <message>
        <source>Quaternion</source>
        <translation>Quaternion</translation>
    </message>
    <message>
        <source>Turn &apos;%1&apos;</source>
        <translation>Rotation de &apos;%1&apos;</translation>
    </message>
    <message>
        <source>Transform</source>
        <translation>Transformation</translation>
    </message>
    <message>
        <source>The node&apos;s own</source>
        <translation>Propre au nœud</translation>
    </message>
    <message>
        <source>Variant %1</source>
        <translation>Variante %1</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Espace</translation>
    </message>
    <message>
        <source>Parent</source>
        <translation>Parent</translation>
    </message>
    <message>
        <source>World</source>
        <translation>Monde</translation>
    </message>
    <message>
        <source>Follows direction</source>
        <translation>Suit la direction</translation>
    </message>
    <message>
        <source>Direction&apos;s axis</source>
        <translation>Axe de direction</translation>
    </message>
    <message>
        <source>x axis</source>
        <translation>axe x</translation>
    </message>
    <message>
        <source>y axis</source>
        <translation>axe y</translation>
    </message>
    <message>
        <source>z axis</source>
        <translation>axe z</translation>
    </message>
    <message>
        <source>Type %1</source>
        <translation>Type %1</translation>
    </message>
    <message>
        <source>Inherit type</source>
        <translation>Type d’héritage</translation>
    </message>
</context>
<context>
    <name>ksValueEditor</name>
    <message>
        <source>%1, scroll sideways</source>
        <translation>%1, défilement horizontal</translation>
    </message>
    <message>
        <source>%1, scroll</source>
        <translation>%1, défilement</translation>
    </message>
    <message>
        <source>Not all selected nodes have this value</source>
        <translation>Les nœuds sélectionnés n’ont pas tous cette valeur</translation>
    </message>
</context>
<context>
    <name>ksVariantsPage</name>
    <message>
        <source>Add variant &apos;%1&apos;</source>
        <translation>Ajout de la variante &apos;%1&apos;</translation>
    </message>
    <message>
        <source>Remove variant</source>
        <translation>Suppression de la variante</translation>
    </message>
    <message>
        <source>Rename variant to &apos;%1&apos;</source>
        <translation>Renommage de la variante en &apos;%1&apos;</translation>
    </message>
    <message>
        <source>Apply variant</source>
        <translation>Application de la variante</translation>
    </message>
    <message>
        <source>Move variant</source>
        <translation>Déplacement de la variante</translation>
    </message>
    <message>
        <source>Translation</source>
        <translation>Translation</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>Rotation</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Échelle</translation>
    </message>
    <message>
        <source>Shear</source>
        <translation>Cisaillement</translation>
    </message>
    <message>
        <source>Scale pivot</source>
        <translation>Pivot d’échelle</translation>
    </message>
    <message>
        <source>Rotate pivot</source>
        <translation>Pivot de rotation</translation>
    </message>
    <message>
        <source>Scale pivot shift</source>
        <translation>Décalage pivot échelle</translation>
    </message>
    <message>
        <source>Rotate pivot shift</source>
        <translation>Décalage pivot rotation</translation>
    </message>
    <message>
        <source>Orientation</source>
        <translation>Orientation</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>Direction</translation>
    </message>
    <message>
        <source>Rotation order</source>
        <translation>Ordre de rotation</translation>
    </message>
    <message>
        <source>Inherit type</source>
        <translation>Type d’héritage</translation>
    </message>
    <message>
        <source>Applies</source>
        <translation>Applique</translation>
    </message>
    <message>
        <source>Variants</source>
        <translation>Variantes</translation>
    </message>
</context>
<context>
    <name>ksViewport</name>
    <message>
        <source>Viewport</source>
        <translation>Vue 3D</translation>
    </message>
    <message>
        <source>The picture of the scene</source>
        <translation>L’image de la scène</translation>
    </message>
    <message>
        <source>Frame around what is selected</source>
        <translation>Cadre de sélection</translation>
    </message>
    <message>
        <source>Picture of the scene</source>
        <translation>Image de la scène</translation>
    </message>
    <message>
        <source>The scene cannot be drawn: OpenGL 2.1 is not available here. Everything else works.</source>
        <translation>Impossible d’afficher la scène&#xa0;: OpenGL 2.1 n’est pas disponible ici. Tout le reste fonctionne.</translation>
    </message>
</context>
</TS>
