<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
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
    <name>ksConstraintPage</name>
    <message>
        <source>Target</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Source</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Up</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Refers to</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove &apos;%1&apos; from constraint</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Constraint</source>
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
    <message>
        <source>Turn</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scale</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move</source>
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
    <name>ksInspectorRow</name>
    <message>
        <source>Set %1 of %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ksLightPage</name>
    <message>
        <source>Select the nodes that are meant first, and then add this one to them.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>None</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Linear</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quadratic</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Visibility reference</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set visibility reference</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Use selected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>None of the other selected nodes is a light.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove links</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add links</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lights</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nodes that they shine on</source>
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
    <message>
        <source>Apply</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>apply</source>
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
    <name>ksMaterialPage</name>
    <message>
        <source>None</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Material</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Image</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set image</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Component %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All components</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Environment</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mesh</source>
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
    <name>ksNodePage</name>
    <message>
        <source>Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rename &apos;%1&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rename to &apos;%1&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shown</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show &apos;%1&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hide &apos;%1&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Node</source>
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
    <name>ksTagsPage</name>
    <message>
        <source>The tag &apos;%1&apos; is there already.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add tag &apos;%1&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove tag &apos;%1&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>User tags</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Layers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tags</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ksTransformPage</name>
    <message>
        <source>Rotation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scale pivot shift</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rotate pivot shift</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Orientation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Direction</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rotation order</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quaternion</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Turn &apos;%1&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Transform</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The node&apos;s own</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Variant %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Space</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Parent</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>World</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Follows direction</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Direction&apos;s axis</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>x axis</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>y axis</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>z axis</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Type %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Inherit type</source>
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
    <message>
        <source>Not all selected nodes have this value</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ksVariantsPage</name>
    <message>
        <source>Add variant &apos;%1&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove variant</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rename variant to &apos;%1&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Apply variant</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move variant</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Translation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scale</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shear</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scale pivot</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rotate pivot</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scale pivot shift</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rotate pivot shift</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Orientation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Direction</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rotation order</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Inherit type</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Applies</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Variants</source>
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
