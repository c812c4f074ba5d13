<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>ksAllFieldsPage</name>
    <message>
        <source>All fields</source>
        <translation>Alle Felder</translation>
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
        <translation>G</translation>
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
        <translation>Farbe wählen</translation>
    </message>
    <message>
        <source>%1, choose a colour</source>
        <translation>%1, Farbe wählen</translation>
    </message>
</context>
<context>
    <name>ksConstraintPage</name>
    <message>
        <source>Target</source>
        <translation>Ziel</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Quelle</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Oben</translation>
    </message>
    <message>
        <source>Refers to</source>
        <translation>Verweist auf</translation>
    </message>
    <message>
        <source>Remove &apos;%1&apos; from constraint</source>
        <translation>Entfernen von &apos;%1&apos; aus dem Constraint</translation>
    </message>
    <message>
        <source>Constraint</source>
        <translation>Constraint</translation>
    </message>
</context>
<context>
    <name>ksDialogs</name>
    <message>
        <source>Unsaved Edits</source>
        <translation>Ungespeicherte Änderungen</translation>
    </message>
    <message>
        <source>The edits of &apos;%1&apos; are not saved.</source>
        <translation>Die Änderungen an &apos;%1&apos; sind nicht gespeichert.</translation>
    </message>
    <message>
        <source>They are lost if you discard them.</source>
        <translation>Beim Verwerfen gehen sie verloren.</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Models (*.gltf *.glb *.dae *.fbx *.obj *.stl *.ply *.3ds *.3mf *.x3d *.blend *.off *.lwo)</source>
        <translation>Modelle (*.gltf *.glb *.dae *.fbx *.obj *.stl *.ply *.3ds *.3mf *.x3d *.blend *.off *.lwo)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Speichern unter</translation>
    </message>
    <message>
        <source>glTF (*.gltf);;Binary glTF (*.glb)</source>
        <translation>glTF (*.gltf);;Binäres glTF (*.glb)</translation>
    </message>
    <message>
        <source>Run Script</source>
        <translation>Skript ausführen</translation>
    </message>
    <message>
        <source>Scripts (*.js)</source>
        <translation>Skripte (*.js)</translation>
    </message>
    <message>
        <source>History Limit</source>
        <translation>Verlaufsgrenze</translation>
    </message>
    <message>
        <source>How many steps the history keeps, 0 for all of them.
A history that has steps keeps its limit: the new one holds from the next
document on that is opened.</source>
        <translation>Wie viele Schritte der Verlauf behält, 0 für alle.
Ein Verlauf, der Schritte enthält, behält seine Grenze: Die neue gilt ab dem
nächsten Dokument, das geöffnet wird.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>ksDocument</name>
    <message>
        <source>Left out: %1</source>
        <translation>Ausgelassen: %1</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Unbenannt</translation>
    </message>
</context>
<context>
    <name>ksHandleDrag</name>
    <message>
        <source>&apos;%1&apos; cannot be moved here: what is above it has no extent in some direction</source>
        <translation>&apos;%1&apos; lässt sich hier nicht verschieben: Ein übergeordneter Knoten hat in einer Richtung keine Ausdehnung</translation>
    </message>
    <message>
        <source>Turn</source>
        <translation>Drehen</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Skalieren</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>Verschieben</translation>
    </message>
</context>
<context>
    <name>ksImageEditor</name>
    <message>
        <source>Load...</source>
        <translation>Laden...</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keines</translation>
    </message>
    <message>
        <source>%1, load from a file</source>
        <translation>%1, aus Datei laden</translation>
    </message>
    <message>
        <source>%1, remove</source>
        <translation>%1, entfernen</translation>
    </message>
</context>
<context>
    <name>ksInspector</name>
    <message>
        <source>Nothing is selected.</source>
        <translation>Nichts ausgewählt.</translation>
    </message>
    <message>
        <source>Inspector</source>
        <translation>Inspektor</translation>
    </message>
    <message>
        <source>Inspector, scroll</source>
        <translation>Inspektor, scrollen</translation>
    </message>
</context>
<context>
    <name>ksInspectorFields</name>
    <message>
        <source>Attenuation</source>
        <translation>Abschwächung</translation>
    </message>
    <message>
        <source>Base color</source>
        <translation>Grundfarbe</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Comment</source>
        <translation>Kommentar</translation>
    </message>
    <message>
        <source>Cone angle</source>
        <translation>Kegelwinkel</translation>
    </message>
    <message>
        <source>Diffuse</source>
        <translation>Diffus</translation>
    </message>
    <message>
        <source>Enabled</source>
        <translation>Eingeschaltet</translation>
    </message>
    <message>
        <source>Glossy</source>
        <translation>Glanz</translation>
    </message>
    <message>
        <source>Intensity</source>
        <translation>Intensität</translation>
    </message>
    <message>
        <source>Layer</source>
        <translation>Ebene</translation>
    </message>
    <message>
        <source>Locked</source>
        <translation>Gesperrt</translation>
    </message>
    <message>
        <source>Lod bias</source>
        <translation>LOD-Versatz</translation>
    </message>
    <message>
        <source>Mapping offset</source>
        <translation>Texturversatz</translation>
    </message>
    <message>
        <source>Mapping rotation</source>
        <translation>Texturdrehung</translation>
    </message>
    <message>
        <source>Mapping scale</source>
        <translation>Texturskalierung</translation>
    </message>
    <message>
        <source>Metalness</source>
        <translation>Metallanteil</translation>
    </message>
    <message>
        <source>Opacity</source>
        <translation>Deckkraft</translation>
    </message>
    <message>
        <source>Penumbra angle</source>
        <translation>Halbschattenwinkel</translation>
    </message>
    <message>
        <source>Pick id</source>
        <translation>Auswahlkennung</translation>
    </message>
    <message>
        <source>Planar projection</source>
        <translation>Ebene Projektion</translation>
    </message>
    <message>
        <source>Projection size</source>
        <translation>Projektionsgröße</translation>
    </message>
    <message>
        <source>Reference distance</source>
        <translation>Bezugsabstand</translation>
    </message>
    <message>
        <source>Refraction index</source>
        <translation>Brechungsindex</translation>
    </message>
    <message>
        <source>Render order</source>
        <translation>Renderfolge</translation>
    </message>
    <message>
        <source>Revision</source>
        <translation>Revision</translation>
    </message>
    <message>
        <source>Rotate pivot</source>
        <translation>Drehpunkt</translation>
    </message>
    <message>
        <source>Roughness</source>
        <translation>Rauheit</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Skalierung</translation>
    </message>
    <message>
        <source>Scale pivot</source>
        <translation>Skalierungspunkt</translation>
    </message>
    <message>
        <source>Shear</source>
        <translation>Scherung</translation>
    </message>
    <message>
        <source>Sort key</source>
        <translation>Sortierschlüssel</translation>
    </message>
    <message>
        <source>Stencil reference</source>
        <translation>Schablonenwert</translation>
    </message>
    <message>
        <source>Time offset</source>
        <translation>Zeitversatz</translation>
    </message>
    <message>
        <source>Translation</source>
        <translation>Verschiebung</translation>
    </message>
    <message>
        <source>Transparency mode</source>
        <translation>Transparenzmodus</translation>
    </message>
    <message>
        <source>User flags</source>
        <translation>Benutzermarken</translation>
    </message>
    <message>
        <source>Weight</source>
        <translation>Gewicht</translation>
    </message>
</context>
<context>
    <name>ksInspectorRow</name>
    <message>
        <source>Set %1 of %2</source>
        <translation>Änderung von %1 bei %2</translation>
    </message>
</context>
<context>
    <name>ksLightPage</name>
    <message>
        <source>Select the nodes that are meant first, and then add this one to them.</source>
        <translation>Zuerst die gemeinten Knoten auswählen, dann diesen dazu.</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Linear</source>
        <translation>Linear</translation>
    </message>
    <message>
        <source>Quadratic</source>
        <translation>Quadratisch</translation>
    </message>
    <message>
        <source>Visibility reference</source>
        <translation>Sichtbarkeitsreferenz</translation>
    </message>
    <message>
        <source>Set visibility reference</source>
        <translation>Zuweisung der Sichtbarkeitsreferenz</translation>
    </message>
    <message>
        <source>Use selected</source>
        <translation>Auswahl nutzen</translation>
    </message>
    <message>
        <source>None of the other selected nodes is a light.</source>
        <translation>Keiner der anderen ausgewählten Knoten ist ein Licht.</translation>
    </message>
    <message>
        <source>Remove links</source>
        <translation>Entfernen von Verknüpfungen</translation>
    </message>
    <message>
        <source>Add links</source>
        <translation>Hinzufügen von Verknüpfungen</translation>
    </message>
    <message>
        <source>Lights</source>
        <translation>Lichter</translation>
    </message>
    <message>
        <source>Nodes that they shine on</source>
        <translation>Beleuchtete Knoten</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Licht</translation>
    </message>
    <message>
        <source>Light links</source>
        <translation>Lichtverknüpfungen</translation>
    </message>
</context>
<context>
    <name>ksListEditor</name>
    <message>
        <source>Add</source>
        <translation>Neu</translation>
    </message>
    <message>
        <source>add</source>
        <translation>neu hinzufügen</translation>
    </message>
    <message>
        <source>Add selected</source>
        <translation>Auswahl hinzufügen</translation>
    </message>
    <message>
        <source>add the other selected nodes</source>
        <translation>die anderen ausgewählten Knoten hinzufügen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>remove</source>
        <translation>entfernen</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Auf</translation>
    </message>
    <message>
        <source>move up</source>
        <translation>aufwärts verschieben</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Ab</translation>
    </message>
    <message>
        <source>move down</source>
        <translation>abwärts verschieben</translation>
    </message>
    <message>
        <source>%1, what to add</source>
        <translation>%1, neuer Eintrag</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Anwenden</translation>
    </message>
    <message>
        <source>apply</source>
        <translation>anwenden</translation>
    </message>
</context>
<context>
    <name>ksMainWindow</name>
    <message>
        <source>Messages</source>
        <translation>Meldungen</translation>
    </message>
    <message>
        <source>Warnings</source>
        <translation>Warnungen</translation>
    </message>
    <message>
        <source>Outline</source>
        <translation>Gliederung</translation>
    </message>
    <message>
        <source>Inspector</source>
        <translation>Inspektor</translation>
    </message>
    <message>
        <source>Script Console</source>
        <translation>Skriptkonsole</translation>
    </message>
    <message>
        <source>Import Warnings</source>
        <translation>Importwarnungen</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Neu</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>Ö&amp;ffnen...</translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save &amp;As...</source>
        <translation>Speichern &amp;unter...</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Add Node</source>
        <translation>Neuer &amp;Knoten</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>Re&amp;name</source>
        <translation>&amp;Umbenennen</translation>
    </message>
    <message>
        <source>S&amp;how or Hide</source>
        <translation>&amp;Ein-/Ausblenden</translation>
    </message>
    <message>
        <source>&amp;Move</source>
        <translation>&amp;Verschieben</translation>
    </message>
    <message>
        <source>&amp;Up</source>
        <translation>Nach &amp;oben</translation>
    </message>
    <message>
        <source>&amp;Down</source>
        <translation>Nach &amp;unten</translation>
    </message>
    <message>
        <source>&amp;Out of Its Parent</source>
        <translation>Aus dem &amp;Elternknoten</translation>
    </message>
    <message>
        <source>&amp;Into the One Before</source>
        <translation>In den &amp;Knoten davor</translation>
    </message>
    <message>
        <source>Select N&amp;one</source>
        <translation>&amp;Nichts auswählen</translation>
    </message>
    <message>
        <source>&amp;Checkpoint</source>
        <translation>&amp;Prüfpunkt setzen</translation>
    </message>
    <message>
        <source>Return to Checkpoint comes back to here.</source>
        <translation>„Zurück zum Prüfpunkt“ führt hierher zurück.</translation>
    </message>
    <message>
        <source>Re&amp;turn to Checkpoint</source>
        <translation>&amp;Zurück zum Prüfpunkt</translation>
    </message>
    <message>
        <source>H&amp;istory</source>
        <translation>Verlau&amp;f</translation>
    </message>
    <message>
        <source>History &amp;Limit...</source>
        <translation>Verlaufs&amp;grenze...</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source>&amp;Select</source>
        <translation>&amp;Auswählen</translation>
    </message>
    <message>
        <source>&amp;Turn</source>
        <translation>&amp;Drehen</translation>
    </message>
    <message>
        <source>S&amp;cale</source>
        <translation>&amp;Skalieren</translation>
    </message>
    <message>
        <source>&amp;Local Axes</source>
        <translation>&amp;Lokale Achsen</translation>
    </message>
    <message>
        <source>&amp;Frame Selection</source>
        <translation>Auswahl ein&amp;passen</translation>
    </message>
    <message>
        <source>Frame &amp;All</source>
        <translation>Alles &amp;einpassen</translation>
    </message>
    <message>
        <source>&amp;Script</source>
        <translation>&amp;Skript</translation>
    </message>
    <message>
        <source>&amp;Run...</source>
        <translation>&amp;Ausführen...</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>&amp;Stopp</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>&amp;Console</source>
        <translation>&amp;Konsole</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Keys</source>
        <translation>&amp;Tastenkürzel</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>&amp;Info</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Info</translation>
    </message>
    <message>
        <source>ks-editor %1: edits 3D models, and takes every edit back.</source>
        <translation>ks-editor %1: bearbeitet 3D-Modelle und macht jede Bearbeitung rückgängig.</translation>
    </message>
    <message>
        <source>Opening %1</source>
        <translation>%1 wird geöffnet</translation>
    </message>
    <message>
        <source>: takes more memory than it is given</source>
        <translation>: benötigt mehr Speicher, als zur Verfügung steht</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Unbenannt</translation>
    </message>
    <message>
        <source>Saved %1.</source>
        <translation>%1 gespeichert.</translation>
    </message>
    <message>
        <source>&amp;Undo &quot;%1&quot;</source>
        <translation>&amp;Rückgängig: %1</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo &quot;%1&quot;</source>
        <translation>&amp;Wiederholen: %1</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Du&amp;plicate</source>
        <translation>&amp;Duplizieren</translation>
    </message>
    <message>
        <source>S&amp;elect All</source>
        <translation>&amp;Alles auswählen</translation>
    </message>
</context>
<context>
    <name>ksMaterialPage</name>
    <message>
        <source>None</source>
        <translation>Keines</translation>
    </message>
    <message>
        <source>Material</source>
        <translation>Material</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Set image</source>
        <translation>Zuweisung des Bildes</translation>
    </message>
    <message>
        <source>Component %1</source>
        <translation>Komponente %1</translation>
    </message>
    <message>
        <source>All components</source>
        <translation>Alle Komponenten</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Environment</source>
        <translation>Umgebung</translation>
    </message>
    <message>
        <source>Mesh</source>
        <translation>Mesh</translation>
    </message>
</context>
<context>
    <name>ksNodeEdits</name>
    <message>
        <source>Rename &apos;%1&apos;</source>
        <translation>Umbenennen von &apos;%1&apos;</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Einblenden</translation>
    </message>
    <message>
        <source>Hide</source>
        <translation>Ausblenden</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>Verschieben</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Node</source>
        <translation>Knoten</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Duplizieren</translation>
    </message>
</context>
<context>
    <name>ksNodePage</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Rename &apos;%1&apos;</source>
        <translation>Umbenennen von &apos;%1&apos;</translation>
    </message>
    <message>
        <source>Rename to &apos;%1&apos;</source>
        <translation>Umbenennen in &apos;%1&apos;</translation>
    </message>
    <message>
        <source>Shown</source>
        <translation>Sichtbar</translation>
    </message>
    <message>
        <source>Show &apos;%1&apos;</source>
        <translation>Einblenden von &apos;%1&apos;</translation>
    </message>
    <message>
        <source>Hide &apos;%1&apos;</source>
        <translation>Ausblenden von &apos;%1&apos;</translation>
    </message>
    <message>
        <source>Node</source>
        <translation>Knoten</translation>
    </message>
</context>
<context>
    <name>ksNumbersEditor</name>
    <message>
        <source>%1, drag to change</source>
        <translation>%1, zum Ändern ziehen</translation>
    </message>
</context>
<context>
    <name>ksOutline</name>
    <message>
        <source>Filter by name</source>
        <translation>Nach Namen filtern</translation>
    </message>
    <message>
        <source>Filter of the outline</source>
        <translation>Filter der Gliederung</translation>
    </message>
    <message>
        <source>Outline</source>
        <translation>Gliederung</translation>
    </message>
    <message>
        <source>Columns of the outline</source>
        <translation>Spalten der Gliederung</translation>
    </message>
</context>
<context>
    <name>ksOutlineModel</name>
    <message>
        <source>Node</source>
        <translation>Knoten</translation>
    </message>
    <message>
        <source>Shown</source>
        <translation>Sichtbar</translation>
    </message>
    <message>
        <source>(unnamed)</source>
        <translation>(ohne Namen)</translation>
    </message>
    <message>
        <source>%1 is shown</source>
        <translation>%1 ist sichtbar</translation>
    </message>
</context>
<context>
    <name>ksScriptInput</name>
    <message>
        <source>Completions</source>
        <translation>Vorschläge</translation>
    </message>
</context>
<context>
    <name>ksScriptPanel</name>
    <message>
        <source>Output of scripts</source>
        <translation>Skriptausgabe</translation>
    </message>
    <message>
        <source>scene.find(&apos;Table&apos;).translate([0, 1, 0])    Tab completes, help() helps</source>
        <translation>scene.find(&apos;Table&apos;).translate([0, 1, 0])    Tab ergänzt, help() hilft</translation>
    </message>
    <message>
        <source>Line of script</source>
        <translation>Skriptzeile</translation>
    </message>
    <message>
        <source>Run</source>
        <translation>Ausführen</translation>
    </message>
    <message>
        <source>Run the line</source>
        <translation>Zeile ausführen</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stopp</translation>
    </message>
    <message>
        <source>Stop the script</source>
        <translation>Skript stoppen</translation>
    </message>
    <message>
        <source>Stops the script (Esc)</source>
        <translation>Stoppt das Skript (Esc)</translation>
    </message>
    <message>
        <source> s</source>
        <translation> s</translation>
    </message>
    <message>
        <source>no limit</source>
        <translation>unbegrenzt</translation>
    </message>
    <message>
        <source>Silence that ends scripts</source>
        <translation>Stille, die Skripte beendet</translation>
    </message>
    <message>
        <source>Stop is heeded when a script edits or prints. One that does neither for so long is ended.</source>
        <translation>„Stopp“ wirkt, sobald ein Skript etwas bearbeitet oder ausgibt. Tut es so lange weder das eine noch das andere, wird es beendet.</translation>
    </message>
    <message>
        <source>End when silent for</source>
        <translation>Beenden nach Stille von</translation>
    </message>
    <message>
        <source>console</source>
        <translation>Konsole</translation>
    </message>
    <message>
        <source>ended after %1 s of silence</source>
        <translation>nach %1 s Stille beendet</translation>
    </message>
</context>
<context>
    <name>ksScrubLabel</name>
    <message>
        <source>Drag sideways to change the number</source>
        <translation>Seitlich ziehen, um die Zahl zu ändern</translation>
    </message>
</context>
<context>
    <name>ksTagsPage</name>
    <message>
        <source>The tag &apos;%1&apos; is there already.</source>
        <translation>Das Tag &apos;%1&apos; ist bereits vorhanden.</translation>
    </message>
    <message>
        <source>Add tag &apos;%1&apos;</source>
        <translation>Hinzufügen des Tags &apos;%1&apos;</translation>
    </message>
    <message>
        <source>Remove tag &apos;%1&apos;</source>
        <translation>Entfernen des Tags &apos;%1&apos;</translation>
    </message>
    <message>
        <source>User tags</source>
        <translation>Benutzer-Tags</translation>
    </message>
    <message>
        <source>Layers</source>
        <translation>Ebenen</translation>
    </message>
    <message>
        <source>Tags</source>
        <translation>Tags</translation>
    </message>
</context>
<context>
    <name>ksTransformPage</name>
    <message>
        <source>Rotation</source>
        <translation>Drehung</translation>
    </message>
    <message>
        <source>Scale pivot shift</source>
        <translation>Skalierungspunktversatz</translation>
    </message>
    <message>
        <source>Rotate pivot shift</source>
        <translation>Drehpunktversatz</translation>
    </message>
    <message>
        <source>Orientation</source>
        <translation>Ausrichtung</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>Richtung</translation>
    </message>
    <message>
        <source>Rotation order</source>
        <translation>Drehreihenfolge</translation>
    </message>
    <message>
        <source>Quaternion</source>
        <translation>Quaternion</translation>
    </message>
    <message>
        <source>Turn &apos;%1&apos;</source>
        <translation>Drehen von &apos;%1&apos;</translation>
    </message>
    <message>
        <source>Transform</source>
        <translation>Transformation</translation>
    </message>
    <message>
        <source>The node&apos;s own</source>
        <translation>Eigene des Knotens</translation>
    </message>
    <message>
        <source>Variant %1</source>
        <translation>Variante %1</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Raum</translation>
    </message>
    <message>
        <source>Parent</source>
        <translation>Eltern</translation>
    </message>
    <message>
        <source>World</source>
        <translation>Welt</translation>
    </message>
    <message>
        <source>Follows direction</source>
        <translation>Folgt der Richtung</translation>
    </message>
    <message>
        <source>Direction&apos;s axis</source>
        <translation>Richtungsachse</translation>
    </message>
    <message>
        <source>x axis</source>
        <translation>x-Achse</translation>
    </message>
    <message>
        <source>y axis</source>
        <translation>y-Achse</translation>
    </message>
    <message>
        <source>z axis</source>
        <translation>z-Achse</translation>
    </message>
    <message>
        <source>Type %1</source>
        <translation>Typ %1</translation>
    </message>
    <message>
        <source>Inherit type</source>
        <translation>Vererbungstyp</translation>
    </message>
</context>
<context>
    <name>ksValueEditor</name>
    <message>
        <source>%1, scroll sideways</source>
        <translation>%1, seitlich scrollen</translation>
    </message>
    <message>
        <source>%1, scroll</source>
        <translation>%1, scrollen</translation>
    </message>
    <message>
        <source>Not all selected nodes have this value</source>
        <translation>Nicht alle ausgewählten Knoten haben diesen Wert</translation>
    </message>
</context>
<context>
    <name>ksVariantsPage</name>
    <message>
        <source>Add variant &apos;%1&apos;</source>
        <translation>Hinzufügen der Variante &apos;%1&apos;</translation>
    </message>
    <message>
        <source>Remove variant</source>
        <translation>Entfernen der Variante</translation>
    </message>
    <message>
        <source>Rename variant to &apos;%1&apos;</source>
        <translation>Umbenennen der Variante in &apos;%1&apos;</translation>
    </message>
    <message>
        <source>Apply variant</source>
        <translation>Anwenden der Variante</translation>
    </message>
    <message>
        <source>Move variant</source>
        <translation>Verschieben der Variante</translation>
    </message>
    <message>
        <source>Translation</source>
        <translation>Verschiebung</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>Drehung</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Skalierung</translation>
    </message>
    <message>
        <source>Shear</source>
        <translation>Scherung</translation>
    </message>
    <message>
        <source>Scale pivot</source>
        <translation>Skalierungspunkt</translation>
    </message>
    <message>
        <source>Rotate pivot</source>
        <translation>Drehpunkt</translation>
    </message>
    <message>
        <source>Scale pivot shift</source>
        <translation>Skalierungspunktversatz</translation>
    </message>
    <message>
        <source>Rotate pivot shift</source>
        <translation>Drehpunktversatz</translation>
    </message>
    <message>
        <source>Orientation</source>
        <translation>Ausrichtung</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>Richtung</translation>
    </message>
    <message>
        <source>Rotation order</source>
        <translation>Drehreihenfolge</translation>
    </message>
    <message>
        <source>Inherit type</source>
        <translation>Vererbungstyp</translation>
    </message>
    <message>
        <source>Applies</source>
        <translation>Wirkt auf</translation>
    </message>
    <message>
        <source>Variants</source>
        <translation>Varianten</translation>
    </message>
</context>
<context>
    <name>ksViewport</name>
    <message>
        <source>Viewport</source>
        <translation>3D-Ansicht</translation>
    </message>
    <message>
        <source>The picture of the scene</source>
        <translation>Das Bild der Szene</translation>
    </message>
    <message>
        <source>Frame around what is selected</source>
        <translation>Auswahlrahmen</translation>
    </message>
    <message>
        <source>Picture of the scene</source>
        <translation>Bild der Szene</translation>
    </message>
    <message>
        <source>The scene cannot be drawn: OpenGL 2.1 is not available here. Everything else works.</source>
        <translation>Die Szene kann nicht gezeichnet werden: OpenGL 2.1 ist hier nicht verfügbar. Alles andere funktioniert.</translation>
    </message>
</context>
</TS>
