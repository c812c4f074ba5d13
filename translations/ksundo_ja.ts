<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP" sourcelanguage="en">
<context>
    <name>ksEulerRotationOrderUndoCommand</name>
    <message>
        <source>Translate</source>
        <translation>移動</translation>
    </message>
</context>
<context>
    <name>ksImageFieldUndoCommand</name>
    <message>
        <source>Set Texture</source>
        <translation>テクスチャの設定</translation>
    </message>
</context>
<context>
    <name>ksRotationPivotDirectionUndoCommand</name>
    <message>
        <source>Change Rotation Pivot</source>
        <translation>回転ピボットの変更</translation>
    </message>
</context>
<context>
    <name>ksRotationPivotOrientationUndoCommand</name>
    <message>
        <source>Change Rotation Pivot</source>
        <translation>回転ピボットの変更</translation>
    </message>
</context>
<context>
    <name>ksRotationPivotTranslationUndoCommand</name>
    <message>
        <source>Change Rotation Pivot Translation</source>
        <translation>回転ピボットの補正移動の変更</translation>
    </message>
</context>
<context>
    <name>ksRotationPivotUndoCommand</name>
    <message>
        <source>Change Rotation Pivot</source>
        <translation>回転ピボットの変更</translation>
    </message>
</context>
<context>
    <name>ksRotationUndoCommand</name>
    <message>
        <source>Rotate</source>
        <translation>回転</translation>
    </message>
</context>
<context>
    <name>ksScalePivotTranslationUndoCommand</name>
    <message>
        <source>Change Scale Pivot Translation</source>
        <translation>スケールピボットの補正移動の変更</translation>
    </message>
</context>
<context>
    <name>ksScalePivotUndoCommand</name>
    <message>
        <source>Change Scale Pivot</source>
        <translation>スケールピボットの変更</translation>
    </message>
</context>
<context>
    <name>ksScaleUndoCommand</name>
    <message>
        <source>Scale</source>
        <translation>拡大縮小</translation>
    </message>
</context>
<context>
    <name>ksSetEnvironmentUndoCommand</name>
    <message>
        <source>Change Environment</source>
        <translation>環境の変更</translation>
    </message>
</context>
<context>
    <name>ksShearUndoCommand</name>
    <message>
        <source>Shear</source>
        <translation>せん断</translation>
    </message>
</context>
<context>
    <name>ksTransformVariantNameUndoCommand</name>
    <message>
        <source>Transform Variant Name</source>
        <translation>変形バリアントの名前</translation>
    </message>
</context>
<context>
    <name>ksTransformVariantOptionsUndoCommand</name>
    <message>
        <source>Transform Variant Options</source>
        <translation>変形バリアントのオプション</translation>
    </message>
</context>
<context>
    <name>ksTranslationUndoCommand</name>
    <message>
        <source>Translate</source>
        <translation>移動</translation>
    </message>
</context>
<context>
    <name>ksUndoStack</name>
    <message>
        <source>Undo/Redo History</source>
        <translation>操作履歴</translation>
    </message>
</context>
</TS>
