<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP" sourcelanguage="en">
<context>
    <name>ksAllFieldsPage</name>
    <message>
        <source>All fields</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ksColourEditor</name>
    <message>
        <source>R</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>G</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>B</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose a colour</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, choose a colour</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ksDialogs</name>
    <message>
        <source>Unsaved Edits</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The edits of &apos;%1&apos; are not saved.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>They are lost if you discard them.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Models (*.gltf *.glb *.dae *.fbx *.obj *.stl *.ply *.3ds *.3mf *.x3d *.blend *.off *.lwo)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save As</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>glTF (*.gltf);;Binary glTF (*.glb)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Run Script</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scripts (*.js)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>History Limit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>How many steps the history keeps, 0 for all of them.
A history that has steps keeps its limit: the new one holds from the next
document on that is opened.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ksDocument</name>
    <message>
        <source>Left out: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ksHandleDrag</name>
    <message>
        <source>&apos;%1&apos; cannot be moved here: what is above it has no extent in some direction</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ksImageEditor</name>
    <message>
        <source>Load...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>none</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, load from a file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, remove</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ksInspector</name>
    <message>
        <source>Nothing is selected.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Inspector</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Inspector, scroll</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ksInspectorPages</name>
    <message>
        <source>Constraint</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Light</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Light links</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mesh</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Material</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Node</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tags</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Transform</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Variants</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ksInspectorRow</name>
    <message>
        <source>Set %1 of %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ksListEditor</name>
    <message>
        <source>Add</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>add</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add selected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>add the other selected nodes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>remove</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Up</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>move up</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Down</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>move down</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, what to add</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ksMainWindow</name>
    <message>
        <source>Messages</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Warnings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Outline</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Inspector</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Script Console</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import Warnings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save &amp;As...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Add Node</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>D&amp;uplicate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Re&amp;name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>S&amp;how or Hide</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Move</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Up</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Down</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Out of Its Parent</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Into the One Before</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select N&amp;one</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Checkpoint</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Return to Checkpoint comes back to here.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Re&amp;turn to Checkpoint</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>H&amp;istory</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>History &amp;Limit...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tools</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Select</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Turn</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>S&amp;cale</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Local Axes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Frame Selection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Frame &amp;All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Script</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Run...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Esc</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Console</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ks-editor %1: edits 3D models, and takes every edit back.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Opening %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>: takes more memory than it is given</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Saved %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Undo &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Redo &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ksNodeEdits</name>
    <message>
        <source>Rename &apos;%1&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hide</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Node</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ksNumbersEditor</name>
    <message>
        <source>%1, drag to change</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ksOutline</name>
    <message>
        <source>Filter by name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Filter of the outline</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Outline</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Columns of the outline</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ksOutlineModel</name>
    <message>
        <source>Node</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shown</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>(unnamed)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is shown</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ksScriptInput</name>
    <message>
        <source>Completions</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ksScriptPanel</name>
    <message>
        <source>Output of scripts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>scene.find(&apos;Table&apos;).translate([0, 1, 0])    Tab completes, help() helps</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Line of script</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Run</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Run the line</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop the script</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stops the script (Esc)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no limit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Silence that ends scripts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop is heeded when a script edits or prints. One that does neither for so long is ended.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End when silent for</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>console</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ksScrubLabel</name>
    <message>
        <source>Drag sideways to change the number</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ksValueEditor</name>
    <message>
        <source>%1, scroll sideways</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, scroll</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ksViewport</name>
    <message>
        <source>Viewport</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The picture of the scene</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Frame around what is selected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Picture of the scene</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The scene cannot be drawn: OpenGL 2.1 is not available here. Everything else works.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
