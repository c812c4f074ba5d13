<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>ksEulerRotationOrderUndoCommand</name>
    <message>
        <source>Translate</source>
        <translation>Verschieben</translation>
    </message>
</context>
<context>
    <name>ksImageFieldUndoCommand</name>
    <message>
        <source>Set Texture</source>
        <translation>Zuweisung der Textur</translation>
    </message>
</context>
<context>
    <name>ksRotationPivotDirectionUndoCommand</name>
    <message>
        <source>Change Rotation Pivot</source>
        <translation>Änderung des Drehpunkts</translation>
    </message>
</context>
<context>
    <name>ksRotationPivotOrientationUndoCommand</name>
    <message>
        <source>Change Rotation Pivot</source>
        <translation>Änderung des Drehpunkts</translation>
    </message>
</context>
<context>
    <name>ksRotationPivotTranslationUndoCommand</name>
    <message>
        <source>Change Rotation Pivot Translation</source>
        <translation>Änderung des Drehpunktversatzes</translation>
    </message>
</context>
<context>
    <name>ksRotationPivotUndoCommand</name>
    <message>
        <source>Change Rotation Pivot</source>
        <translation>Änderung des Drehpunkts</translation>
    </message>
</context>
<context>
    <name>ksRotationUndoCommand</name>
    <message>
        <source>Rotate</source>
        <translation>Drehen</translation>
    </message>
</context>
<context>
    <name>ksScalePivotTranslationUndoCommand</name>
    <message>
        <source>Change Scale Pivot Translation</source>
        <translation>Änderung des Skalierungspunktversatzes</translation>
    </message>
</context>
<context>
    <name>ksScalePivotUndoCommand</name>
    <message>
        <source>Change Scale Pivot</source>
        <translation>Änderung des Skalierungspunkts</translation>
    </message>
</context>
<context>
    <name>ksScaleUndoCommand</name>
    <message>
        <source>Scale</source>
        <translation>Skalieren</translation>
    </message>
</context>
<context>
    <name>ksSetEnvironmentUndoCommand</name>
    <message>
        <source>Change Environment</source>
        <translation>Änderung der Umgebung</translation>
    </message>
</context>
<context>
    <name>ksShearUndoCommand</name>
    <message>
        <source>Shear</source>
        <translation>Scheren</translation>
    </message>
</context>
<context>
    <name>ksTransformVariantNameUndoCommand</name>
    <message>
        <source>Transform Variant Name</source>
        <translation>Name der Transformationsvariante</translation>
    </message>
</context>
<context>
    <name>ksTransformVariantOptionsUndoCommand</name>
    <message>
        <source>Transform Variant Options</source>
        <translation>Optionen der Transformationsvariante</translation>
    </message>
</context>
<context>
    <name>ksTranslationUndoCommand</name>
    <message>
        <source>Translate</source>
        <translation>Verschieben</translation>
    </message>
</context>
<context>
    <name>ksUndoStack</name>
    <message>
        <source>Undo/Redo History</source>
        <translation>Bearbeitungsverlauf</translation>
    </message>
</context>
</TS>
