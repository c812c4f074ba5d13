<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR" sourcelanguage="en">
<context>
    <name>ksEulerRotationOrderUndoCommand</name>
    <message>
        <source>Translate</source>
        <translation>Déplacement</translation>
    </message>
</context>
<context>
    <name>ksImageFieldUndoCommand</name>
    <message>
        <source>Set Texture</source>
        <translation>Affectation de la texture</translation>
    </message>
</context>
<context>
    <name>ksRotationPivotDirectionUndoCommand</name>
    <message>
        <source>Change Rotation Pivot</source>
        <translation>Modification du pivot de rotation</translation>
    </message>
</context>
<context>
    <name>ksRotationPivotOrientationUndoCommand</name>
    <message>
        <source>Change Rotation Pivot</source>
        <translation>Modification du pivot de rotation</translation>
    </message>
</context>
<context>
    <name>ksRotationPivotTranslationUndoCommand</name>
    <message>
        <source>Change Rotation Pivot Translation</source>
        <translation>Modification du décalage du pivot de rotation</translation>
    </message>
</context>
<context>
    <name>ksRotationPivotUndoCommand</name>
    <message>
        <source>Change Rotation Pivot</source>
        <translation>Modification du pivot de rotation</translation>
    </message>
</context>
<context>
    <name>ksRotationUndoCommand</name>
    <message>
        <source>Rotate</source>
        <translation>Rotation</translation>
    </message>
</context>
<context>
    <name>ksScalePivotTranslationUndoCommand</name>
    <message>
        <source>Change Scale Pivot Translation</source>
        <translation>Modification du décalage du pivot d’échelle</translation>
    </message>
</context>
<context>
    <name>ksScalePivotUndoCommand</name>
    <message>
        <source>Change Scale Pivot</source>
        <translation>Modification du pivot d’échelle</translation>
    </message>
</context>
<context>
    <name>ksScaleUndoCommand</name>
    <message>
        <source>Scale</source>
        <translation>Mise à l’échelle</translation>
    </message>
</context>
<context>
    <name>ksSetEnvironmentUndoCommand</name>
    <message>
        <source>Change Environment</source>
        <translation>Modification de l’environnement</translation>
    </message>
</context>
<context>
    <name>ksShearUndoCommand</name>
    <message>
        <source>Shear</source>
        <translation>Cisaillement</translation>
    </message>
</context>
<context>
    <name>ksTransformVariantNameUndoCommand</name>
    <message>
        <source>Transform Variant Name</source>
        <translation>Nom de la variante de transformation</translation>
    </message>
</context>
<context>
    <name>ksTransformVariantOptionsUndoCommand</name>
    <message>
        <source>Transform Variant Options</source>
        <translation>Options de la variante de transformation</translation>
    </message>
</context>
<context>
    <name>ksTranslationUndoCommand</name>
    <message>
        <source>Translate</source>
        <translation>Déplacement</translation>
    </message>
</context>
<context>
    <name>ksUndoStack</name>
    <message>
        <source>Undo/Redo History</source>
        <translation>Historique des modifications</translation>
    </message>
</context>
</TS>
