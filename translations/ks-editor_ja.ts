<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP" sourcelanguage="en">
<context>
    <name>ksAllFieldsPage</name>
    <message>
        <source>All fields</source>
        <translation>すべてのフィールド</translation>
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
        <translation>色を選択</translation>
    </message>
    <message>
        <source>%1, choose a colour</source>
        <translation>%1: 色を選択</translation>
    </message>
</context>
<context>
    <name>ksConstraintPage</name>
    <message>
        <source>Target</source>
        <translation>ターゲット</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>ソース</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>上方向</translation>
    </message>
    <message>
        <source>Refers to</source>
        <translation>参照先</translation>
    </message>
    <message>
        <source>Remove &apos;%1&apos; from constraint</source>
        <translation>コンストレイントから &apos;%1&apos; を削除</translation>
    </message>
    <message>
        <source>Constraint</source>
        <translation>コンストレイント</translation>
    </message>
</context>
<context>
    <name>ksDialogs</name>
    <message>
        <source>Unsaved Edits</source>
        <translation>未保存の編集</translation>
    </message>
    <message>
        <source>The edits of &apos;%1&apos; are not saved.</source>
        <translation>「%1」の編集内容は保存されていません。</translation>
    </message>
    <message>
        <source>They are lost if you discard them.</source>
        <translation>破棄すると編集内容は失われます。</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>開く</translation>
    </message>
    <message>
        <source>Models (*.gltf *.glb *.dae *.fbx *.obj *.stl *.ply *.3ds *.3mf *.x3d *.blend *.off *.lwo)</source>
        <translation>モデル (*.gltf *.glb *.dae *.fbx *.obj *.stl *.ply *.3ds *.3mf *.x3d *.blend *.off *.lwo)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>すべてのファイル (*)</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>名前を付けて保存</translation>
    </message>
    <message>
        <source>glTF (*.gltf);;Binary glTF (*.glb)</source>
        <translation>glTF (*.gltf);;バイナリ glTF (*.glb)</translation>
    </message>
    <message>
        <source>Run Script</source>
        <translation>スクリプトを実行</translation>
    </message>
    <message>
        <source>Scripts (*.js)</source>
        <translation>スクリプト (*.js)</translation>
    </message>
    <message>
        <source>History Limit</source>
        <translation>履歴の上限</translation>
    </message>
    <message>
        <source>How many steps the history keeps, 0 for all of them.
A history that has steps keeps its limit: the new one holds from the next
document on that is opened.</source>
        <translation>履歴に残す操作の数です。0 にするとすべて残します。
すでに操作がある履歴の上限は変わりません。新しい上限は
次に開くドキュメントから有効になります。</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
</context>
<context>
    <name>ksDocument</name>
    <message>
        <source>Left out: %1</source>
        <translation>省略: %1</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>無題</translation>
    </message>
</context>
<context>
    <name>ksHandleDrag</name>
    <message>
        <source>&apos;%1&apos; cannot be moved here: what is above it has no extent in some direction</source>
        <translation>「%1」はここでは動かせません: 上位のノードに大きさのない方向があります</translation>
    </message>
    <message>
        <source>Turn</source>
        <translation>回転</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>拡大縮小</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>移動</translation>
    </message>
</context>
<context>
    <name>ksImageEditor</name>
    <message>
        <source>Load...</source>
        <translation>読み込み...</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>none</source>
        <translation>なし</translation>
    </message>
    <message>
        <source>%1, load from a file</source>
        <translation>%1: ファイルから読み込み</translation>
    </message>
    <message>
        <source>%1, remove</source>
        <translation>%1: 削除</translation>
    </message>
</context>
<context>
    <name>ksInspector</name>
    <message>
        <source>Nothing is selected.</source>
        <translation>何も選択されていません。</translation>
    </message>
    <message>
        <source>Inspector</source>
        <translation>インスペクター</translation>
    </message>
    <message>
        <source>Inspector, scroll</source>
        <translation>インスペクター: スクロール</translation>
    </message>
</context>
<context>
    <name>ksInspectorFields</name>
    <message>
        <source>Attenuation</source>
        <translation>減衰</translation>
    </message>
    <message>
        <source>Base color</source>
        <translation>ベースカラー</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>カラー</translation>
    </message>
    <message>
        <source>Comment</source>
        <translation>コメント</translation>
    </message>
    <message>
        <source>Cone angle</source>
        <translation>コーン角</translation>
    </message>
    <message>
        <source>Diffuse</source>
        <translation>拡散</translation>
    </message>
    <message>
        <source>Enabled</source>
        <translation>有効</translation>
    </message>
    <message>
        <source>Glossy</source>
        <translation>光沢</translation>
    </message>
    <message>
        <source>Intensity</source>
        <translation>強度</translation>
    </message>
    <message>
        <source>Layer</source>
        <translation>レイヤー</translation>
    </message>
    <message>
        <source>Locked</source>
        <translation>ロック</translation>
    </message>
    <message>
        <source>Lod bias</source>
        <translation>LOD バイアス</translation>
    </message>
    <message>
        <source>Mapping offset</source>
        <translation>マッピングオフセット</translation>
    </message>
    <message>
        <source>Mapping rotation</source>
        <translation>マッピング回転</translation>
    </message>
    <message>
        <source>Mapping scale</source>
        <translation>マッピングスケール</translation>
    </message>
    <message>
        <source>Metalness</source>
        <translation>メタリック</translation>
    </message>
    <message>
        <source>Opacity</source>
        <translation>不透明度</translation>
    </message>
    <message>
        <source>Penumbra angle</source>
        <translation>半影角</translation>
    </message>
    <message>
        <source>Pick id</source>
        <translation>ピック ID</translation>
    </message>
    <message>
        <source>Planar projection</source>
        <translation>平面投影</translation>
    </message>
    <message>
        <source>Projection size</source>
        <translation>投影サイズ</translation>
    </message>
    <message>
        <source>Reference distance</source>
        <translation>基準距離</translation>
    </message>
    <message>
        <source>Refraction index</source>
        <translation>屈折率</translation>
    </message>
    <message>
        <source>Render order</source>
        <translation>描画順</translation>
    </message>
    <message>
        <source>Revision</source>
        <translation>リビジョン</translation>
    </message>
    <message>
        <source>Rotate pivot</source>
        <translation>回転ピボット</translation>
    </message>
    <message>
        <source>Roughness</source>
        <translation>粗さ</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>スケール</translation>
    </message>
    <message>
        <source>Scale pivot</source>
        <translation>スケールピボット</translation>
    </message>
    <message>
        <source>Shear</source>
        <translation>せん断</translation>
    </message>
    <message>
        <source>Sort key</source>
        <translation>ソートキー</translation>
    </message>
    <message>
        <source>Stencil reference</source>
        <translation>ステンシル参照値</translation>
    </message>
    <message>
        <source>Time offset</source>
        <translation>時間オフセット</translation>
    </message>
    <message>
        <source>Translation</source>
        <translation>移動</translation>
    </message>
    <message>
        <source>Transparency mode</source>
        <translation>透明モード</translation>
    </message>
    <message>
        <source>User flags</source>
        <translation>ユーザーフラグ</translation>
    </message>
    <message>
        <source>Weight</source>
        <translation>ウェイト</translation>
    </message>
</context>
<context>
    <name>ksInspectorRow</name>
    <message>
        <source>Set %1 of %2</source>
        <translation>%1 の設定 %2</translation>
    </message>
</context>
<context>
    <name>ksLightPage</name>
    <message>
        <source>Select the nodes that are meant first, and then add this one to them.</source>
        <translation>先に対象のノードを選択し、続けてこのノードを選択に加えてください。</translation>
    </message>
    <message>
        <source>None</source>
        <translation>なし</translation>
    </message>
    <message>
        <source>Linear</source>
        <translation>線形</translation>
    </message>
    <message>
        <source>Quadratic</source>
        <translation>二次</translation>
    </message>
    <message>
        <source>Visibility reference</source>
        <translation>可視性の参照</translation>
    </message>
    <message>
        <source>Set visibility reference</source>
        <translation>可視性の参照の設定</translation>
    </message>
    <message>
        <source>Use selected</source>
        <translation>選択を使用</translation>
    </message>
    <message>
        <source>None of the other selected nodes is a light.</source>
        <translation>ほかに選択されているノードにライトがありません。</translation>
    </message>
    <message>
        <source>Remove links</source>
        <translation>リンクの削除</translation>
    </message>
    <message>
        <source>Add links</source>
        <translation>リンクの追加</translation>
    </message>
    <message>
        <source>Lights</source>
        <translation>ライト</translation>
    </message>
    <message>
        <source>Nodes that they shine on</source>
        <translation>照らされるノード</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>ライト</translation>
    </message>
    <message>
        <source>Light links</source>
        <translation>ライトリンク</translation>
    </message>
</context>
<context>
    <name>ksListEditor</name>
    <message>
        <source>Add</source>
        <translation>追加</translation>
    </message>
    <message>
        <source>add</source>
        <translation>追加</translation>
    </message>
    <message>
        <source>Add selected</source>
        <translation>選択を追加</translation>
    </message>
    <message>
        <source>add the other selected nodes</source>
        <translation>ほかの選択ノードを追加</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>remove</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>上へ</translation>
    </message>
    <message>
        <source>move up</source>
        <translation>上へ移動</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>下へ</translation>
    </message>
    <message>
        <source>move down</source>
        <translation>下へ移動</translation>
    </message>
    <message>
        <source>%1, what to add</source>
        <translation>%1: 追加する項目</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>適用</translation>
    </message>
    <message>
        <source>apply</source>
        <translation>適用</translation>
    </message>
</context>
<context>
    <name>ksMainWindow</name>
    <message>
        <source>Messages</source>
        <translation>メッセージ</translation>
    </message>
    <message>
        <source>Warnings</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>Outline</source>
        <translation>アウトライナー</translation>
    </message>
    <message>
        <source>Inspector</source>
        <translation>インスペクター</translation>
    </message>
    <message>
        <source>Script Console</source>
        <translation>スクリプトコンソール</translation>
    </message>
    <message>
        <source>Import Warnings</source>
        <translation>インポートの警告</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>ファイル(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>新規(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>開く(&amp;O)...</translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation>最近使ったファイル(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>保存(&amp;S)</translation>
    </message>
    <message>
        <source>Save &amp;As...</source>
        <translation>名前を付けて保存(&amp;A)...</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>終了(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>編集(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Add Node</source>
        <translation>ノードを追加(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>削除(&amp;D)</translation>
    </message>
    <message>
        <source>Re&amp;name</source>
        <translation>名前を変更(&amp;N)</translation>
    </message>
    <message>
        <source>S&amp;how or Hide</source>
        <translation>表示/非表示(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Move</source>
        <translation>移動(&amp;M)</translation>
    </message>
    <message>
        <source>&amp;Up</source>
        <translation>上へ(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Down</source>
        <translation>下へ(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Out of Its Parent</source>
        <translation>親の外へ(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Into the One Before</source>
        <translation>前のノードの中へ(&amp;I)</translation>
    </message>
    <message>
        <source>Select N&amp;one</source>
        <translation>選択解除(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Checkpoint</source>
        <translation>チェックポイントを設定(&amp;C)</translation>
    </message>
    <message>
        <source>Return to Checkpoint comes back to here.</source>
        <translation>「チェックポイントに戻る」でここに戻ります。</translation>
    </message>
    <message>
        <source>Re&amp;turn to Checkpoint</source>
        <translation>チェックポイントに戻る(&amp;T)</translation>
    </message>
    <message>
        <source>H&amp;istory</source>
        <translation>操作履歴(&amp;I)</translation>
    </message>
    <message>
        <source>History &amp;Limit...</source>
        <translation>履歴の上限(&amp;L)...</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>表示(&amp;V)</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>ツール</translation>
    </message>
    <message>
        <source>&amp;Select</source>
        <translation>選択(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Turn</source>
        <translation>回転(&amp;T)</translation>
    </message>
    <message>
        <source>S&amp;cale</source>
        <translation>拡大縮小(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Local Axes</source>
        <translation>ローカル軸(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Frame Selection</source>
        <translation>選択に合わせて表示(&amp;F)</translation>
    </message>
    <message>
        <source>Frame &amp;All</source>
        <translation>全体を表示(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Script</source>
        <translation>スクリプト(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Run...</source>
        <translation>実行(&amp;R)...</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>停止(&amp;S)</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>&amp;Console</source>
        <translation>コンソール(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>ヘルプ(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Keys</source>
        <translation>キー操作(&amp;K)</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>キー操作</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>バージョン情報(&amp;A)</translation>
    </message>
    <message>
        <source>About</source>
        <translation>バージョン情報</translation>
    </message>
    <message>
        <source>ks-editor %1: edits 3D models, and takes every edit back.</source>
        <translation>ks-editor %1: 3D モデルを編集します。どの編集も元に戻せます。</translation>
    </message>
    <message>
        <source>Opening %1</source>
        <translation>%1 を開いています</translation>
    </message>
    <message>
        <source>: takes more memory than it is given</source>
        <translation>: 割り当てられた量を超えるメモリーが必要です</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>無題</translation>
    </message>
    <message>
        <source>Saved %1.</source>
        <translation>%1 を保存しました。</translation>
    </message>
    <message>
        <source>&amp;Undo &quot;%1&quot;</source>
        <translation>「%1」を元に戻す(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>元に戻す(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Redo &quot;%1&quot;</source>
        <translation>「%1」をやり直す(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>やり直す(&amp;R)</translation>
    </message>
    <message>
        <source>Du&amp;plicate</source>
        <translation>複製(&amp;P)</translation>
    </message>
    <message>
        <source>S&amp;elect All</source>
        <translation>すべて選択(&amp;S)</translation>
    </message>
</context>
<context>
    <name>ksMaterialPage</name>
    <message>
        <source>None</source>
        <translation>なし</translation>
    </message>
    <message>
        <source>Material</source>
        <translation>マテリアル</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>画像</translation>
    </message>
    <message>
        <source>Set image</source>
        <translation>画像の設定</translation>
    </message>
    <message>
        <source>Component %1</source>
        <translation>コンポーネント %1</translation>
    </message>
    <message>
        <source>All components</source>
        <translation>すべてのコンポーネント</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>設定</translation>
    </message>
    <message>
        <source>Environment</source>
        <translation>環境</translation>
    </message>
    <message>
        <source>Mesh</source>
        <translation>メッシュ</translation>
    </message>
</context>
<context>
    <name>ksNodeEdits</name>
    <message>
        <source>Rename &apos;%1&apos;</source>
        <translation>名前の変更 &apos;%1&apos;</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>表示</translation>
    </message>
    <message>
        <source>Hide</source>
        <translation>非表示</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>移動</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>Node</source>
        <translation>Node</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>複製</translation>
    </message>
</context>
<context>
    <name>ksNodePage</name>
    <message>
        <source>Name</source>
        <translation>名前</translation>
    </message>
    <message>
        <source>Rename &apos;%1&apos;</source>
        <translation>名前の変更 &apos;%1&apos;</translation>
    </message>
    <message>
        <source>Rename to &apos;%1&apos;</source>
        <translation>名前を &apos;%1&apos; に変更</translation>
    </message>
    <message>
        <source>Shown</source>
        <translation>表示</translation>
    </message>
    <message>
        <source>Show &apos;%1&apos;</source>
        <translation>表示 &apos;%1&apos;</translation>
    </message>
    <message>
        <source>Hide &apos;%1&apos;</source>
        <translation>非表示 &apos;%1&apos;</translation>
    </message>
    <message>
        <source>Node</source>
        <translation>ノード</translation>
    </message>
</context>
<context>
    <name>ksNumbersEditor</name>
    <message>
        <source>%1, drag to change</source>
        <translation>%1: ドラッグで変更</translation>
    </message>
</context>
<context>
    <name>ksOutline</name>
    <message>
        <source>Filter by name</source>
        <translation>名前で絞り込み</translation>
    </message>
    <message>
        <source>Filter of the outline</source>
        <translation>アウトライナーの絞り込み</translation>
    </message>
    <message>
        <source>Outline</source>
        <translation>アウトライナー</translation>
    </message>
    <message>
        <source>Columns of the outline</source>
        <translation>アウトライナーの列</translation>
    </message>
</context>
<context>
    <name>ksOutlineModel</name>
    <message>
        <source>Node</source>
        <translation>ノード</translation>
    </message>
    <message>
        <source>Shown</source>
        <translation>表示</translation>
    </message>
    <message>
        <source>(unnamed)</source>
        <translation>(名前なし)</translation>
    </message>
    <message>
        <source>%1 is shown</source>
        <translation>%1 の表示</translation>
    </message>
</context>
<context>
    <name>ksScriptInput</name>
    <message>
        <source>Completions</source>
        <translation>補完候補</translation>
    </message>
</context>
<context>
    <name>ksScriptPanel</name>
    <message>
        <source>Output of scripts</source>
        <translation>スクリプトの出力</translation>
    </message>
    <message>
        <source>scene.find(&apos;Table&apos;).translate([0, 1, 0])    Tab completes, help() helps</source>
        <translation>scene.find(&apos;Table&apos;).translate([0, 1, 0])    Tab で補完、help() でヘルプ</translation>
    </message>
    <message>
        <source>Line of script</source>
        <translation>スクリプトの入力行</translation>
    </message>
    <message>
        <source>Run</source>
        <translation>実行</translation>
    </message>
    <message>
        <source>Run the line</source>
        <translation>行を実行</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>Stop the script</source>
        <translation>スクリプトを停止</translation>
    </message>
    <message>
        <source>Stops the script (Esc)</source>
        <translation>スクリプトを停止します (Esc)</translation>
    </message>
    <message>
        <source> s</source>
        <translation> 秒</translation>
    </message>
    <message>
        <source>no limit</source>
        <translation>無制限</translation>
    </message>
    <message>
        <source>Silence that ends scripts</source>
        <translation>スクリプト終了までの無応答時間</translation>
    </message>
    <message>
        <source>Stop is heeded when a script edits or prints. One that does neither for so long is ended.</source>
        <translation>停止は、スクリプトが編集または出力するときに効きます。どちらもしないままこの時間が過ぎたスクリプトは終了されます。</translation>
    </message>
    <message>
        <source>End when silent for</source>
        <translation>終了までの無応答時間</translation>
    </message>
    <message>
        <source>console</source>
        <translation>コンソール</translation>
    </message>
    <message>
        <source>ended after %1 s of silence</source>
        <translation>%1 秒間応答がないため終了しました</translation>
    </message>
</context>
<context>
    <name>ksScrubLabel</name>
    <message>
        <source>Drag sideways to change the number</source>
        <translation>横にドラッグして数値を変更</translation>
    </message>
</context>
<context>
    <name>ksTagsPage</name>
    <message>
        <source>The tag &apos;%1&apos; is there already.</source>
        <translation>タグ「%1」はすでにあります。</translation>
    </message>
    <message>
        <source>Add tag &apos;%1&apos;</source>
        <translation>タグ &apos;%1&apos; の追加</translation>
    </message>
    <message>
        <source>Remove tag &apos;%1&apos;</source>
        <translation>タグ &apos;%1&apos; の削除</translation>
    </message>
    <message>
        <source>User tags</source>
        <translation>ユーザータグ</translation>
    </message>
    <message>
        <source>Layers</source>
        <translation>レイヤー</translation>
    </message>
    <message>
        <source>Tags</source>
        <translation>タグ</translation>
    </message>
</context>
<context>
    <name>ksTransformPage</name>
    <message>
        <source>Rotation</source>
        <translation>回転</translation>
    </message>
    <message>
        <source>Scale pivot shift</source>
        <translation>スケールピボット補正</translation>
    </message>
    <message>
        <source>Rotate pivot shift</source>
        <translation>回転ピボット補正</translation>
    </message>
    <message>
        <source>Orientation</source>
        <translation>向き</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>方向</translation>
    </message>
    <message>
        <source>Rotation order</source>
        <translation>回転順序</translation>
    </message>
    <message>
        <source>Quaternion</source>
        <translation>クォータニオン</translation>
    </message>
    <message>
        <source>Turn &apos;%1&apos;</source>
        <translation>回転 &apos;%1&apos;</translation>
    </message>
    <message>
        <source>Transform</source>
        <translation>トランスフォーム</translation>
    </message>
    <message>
        <source>The node&apos;s own</source>
        <translation>ノード自身</translation>
    </message>
    <message>
        <source>Variant %1</source>
        <translation>バリアント %1</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>空間</translation>
    </message>
    <message>
        <source>Parent</source>
        <translation>親</translation>
    </message>
    <message>
        <source>World</source>
        <translation>ワールド</translation>
    </message>
    <message>
        <source>Follows direction</source>
        <translation>方向に従う</translation>
    </message>
    <message>
        <source>Direction&apos;s axis</source>
        <translation>方向の軸</translation>
    </message>
    <message>
        <source>x axis</source>
        <translation>x 軸</translation>
    </message>
    <message>
        <source>y axis</source>
        <translation>y 軸</translation>
    </message>
    <message>
        <source>z axis</source>
        <translation>z 軸</translation>
    </message>
    <message>
        <source>Type %1</source>
        <translation>タイプ %1</translation>
    </message>
    <message>
        <source>Inherit type</source>
        <translation>継承タイプ</translation>
    </message>
</context>
<context>
    <name>ksValueEditor</name>
    <message>
        <source>%1, scroll sideways</source>
        <translation>%1: 横スクロール</translation>
    </message>
    <message>
        <source>%1, scroll</source>
        <translation>%1: スクロール</translation>
    </message>
    <message>
        <source>Not all selected nodes have this value</source>
        <translation>この値でないノードも選択されています</translation>
    </message>
</context>
<context>
    <name>ksVariantsPage</name>
    <message>
        <source>Add variant &apos;%1&apos;</source>
        <translation>バリアント &apos;%1&apos; の追加</translation>
    </message>
    <message>
        <source>Remove variant</source>
        <translation>バリアントの削除</translation>
    </message>
    <message>
        <source>Rename variant to &apos;%1&apos;</source>
        <translation>バリアント名を &apos;%1&apos; に変更</translation>
    </message>
    <message>
        <source>Apply variant</source>
        <translation>バリアントの適用</translation>
    </message>
    <message>
        <source>Move variant</source>
        <translation>バリアントの移動</translation>
    </message>
    <message>
        <source>Translation</source>
        <translation>移動</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>回転</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>スケール</translation>
    </message>
    <message>
        <source>Shear</source>
        <translation>せん断</translation>
    </message>
    <message>
        <source>Scale pivot</source>
        <translation>スケールピボット</translation>
    </message>
    <message>
        <source>Rotate pivot</source>
        <translation>回転ピボット</translation>
    </message>
    <message>
        <source>Scale pivot shift</source>
        <translation>スケールピボット補正</translation>
    </message>
    <message>
        <source>Rotate pivot shift</source>
        <translation>回転ピボット補正</translation>
    </message>
    <message>
        <source>Orientation</source>
        <translation>向き</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>方向</translation>
    </message>
    <message>
        <source>Rotation order</source>
        <translation>回転順序</translation>
    </message>
    <message>
        <source>Inherit type</source>
        <translation>継承タイプ</translation>
    </message>
    <message>
        <source>Applies</source>
        <translation>適用対象</translation>
    </message>
    <message>
        <source>Variants</source>
        <translation>バリアント</translation>
    </message>
</context>
<context>
    <name>ksViewport</name>
    <message>
        <source>Viewport</source>
        <translation>ビューポート</translation>
    </message>
    <message>
        <source>The picture of the scene</source>
        <translation>シーンの画像</translation>
    </message>
    <message>
        <source>Frame around what is selected</source>
        <translation>選択範囲の枠</translation>
    </message>
    <message>
        <source>Picture of the scene</source>
        <translation>シーンの画像</translation>
    </message>
    <message>
        <source>The scene cannot be drawn: OpenGL 2.1 is not available here. Everything else works.</source>
        <translation>シーンを描画できません: ここでは OpenGL 2.1 を使用できません。ほかの機能はすべて使用できます。</translation>
    </message>
</context>
</TS>
