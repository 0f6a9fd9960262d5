<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP">
<context>
    <name>BootLoaderLink</name>
    <message>
        <source>Start to update, please keep device power on.</source>
        <translation>アップデートを開始します。デバイスの電源を切らないでください。</translation>
    </message>
    <message>
        <source>Waiting for device response, loop %1...</source>
        <translation>デバイスの応答を待っています、%1 回目...</translation>
    </message>
    <message>
        <source>Update failed.</source>
        <translation>アップデートに失敗しました。</translation>
    </message>
    <message>
        <source>Error when waiting for device.</source>
        <translation>デバイスの応答待ちでエラーが発生しました。</translation>
    </message>
    <message>
        <source>Error when waiting for hardware match flag.</source>
        <translation>ハードウェア照合結果の待機中にエラーが発生しました。</translation>
    </message>
    <message>
        <source>Hardware does not match type 0x%1, version 0x%2.</source>
        <translation>ハードウェアがタイプ 0x%1、バージョン 0x%2 と一致しません。</translation>
    </message>
    <message>
        <source>Hardware type 0x%1, hardware version 0x%2 matched.</source>
        <translation>ハードウェアタイプ 0x%1、ハードウェアバージョン 0x%2 が一致しました。</translation>
    </message>
    <message>
        <source>Transferring... %1 %2% done.</source>
        <translation>転送中... %1 %2% 完了。</translation>
    </message>
    <message>
        <source>Failed: Target is not responding.</source>
        <translation>失敗: デバイスが応答しません。</translation>
    </message>
    <message>
        <source>CRC error. File damaged.</source>
        <translation>CRC エラー。ファイルが破損しています。</translation>
    </message>
    <message>
        <source>Transfer 100% done.</source>
        <translation>転送が 100% 完了しました。</translation>
    </message>
    <message>
        <source>Device said: 0x%1</source>
        <translation>デバイスの応答: 0x%1</translation>
    </message>
</context>
<context>
    <name>CalibrationProcedure</name>
    <message>
        <source>Prepare calibration base and take Vanto up then power on,
presss OK when Vanto is ready.</source>
        <translation>校正台を用意し、Vanto を持ち上げて電源を入れてください。
Vanto の準備ができたら OK を押してください。</translation>
    </message>
    <message>
        <source>Vanto will reboot if not in calibrating state &amp; calibration key is correct,
press OK when ready</source>
        <translation>校正状態でなく校正キーが正しければ Vanto は再起動します。
準備ができたら OK を押してください</translation>
    </message>
    <message>
        <source>Wait for Vanto reboots and beeps 8 times,
press OK when beep finished</source>
        <translation>Vanto が再起動してビープ音が 8 回鳴るまで待ち、
鳴り終わったら OK を押してください</translation>
    </message>
    <message>
        <source>Put Vanto onto calibration base &amp; push it tightly, move thumb root to right pos, press OK when ready</source>
        <translation>Vanto を校正台に載せてしっかり押し付け、親指付け根を正しい位置に動かしてから OK を押してください</translation>
    </message>
    <message>
        <source>Take Vanto up,
press OK when ready</source>
        <translation>Vanto を持ち上げ、
準備ができたら OK を押してください</translation>
    </message>
    <message>
        <source>Move thumb root to right position,
press OK when ready</source>
        <translation>親指付け根を正しい位置に動かし、
準備ができたら OK を押してください</translation>
    </message>
    <message>
        <source>Calibration finished, you may power off and power on the Vanto now to see the result</source>
        <translation>校正が完了しました。Vanto の電源を入れ直すと結果を確認できます</translation>
    </message>
    <message>
        <source>Please input calibration key:</source>
        <translation>校正キーを入力してください:</translation>
    </message>
    <message>
        <source>Invalid calibration key</source>
        <translation>校正キーが無効です</translation>
    </message>
</context>
<context>
    <name>FirmwareUpdater</name>
    <message>
        <source>Serial port not available</source>
        <translation>シリアルポートを使用できません</translation>
    </message>
    <message>
        <source>Power off the device and remove app other devices from bus, press OK when ready.
Power on the device when prompted.</source>
        <translation>デバイスの電源を切り、他のデバイスをすべてバスから外してから OK を押してください。
指示が出たらデバイスの電源を入れてください。</translation>
    </message>
    <message>
        <source>Please select firmware source:</source>
        <translation>ファームウェアの取得元を選択してください:</translation>
    </message>
    <message>
        <source>Open update file</source>
        <translation>アップデートファイルを開く</translation>
    </message>
    <message>
        <source>Upgrade firmware file (*.upd)</source>
        <translation>ファームウェアアップデートファイル (*.upd)</translation>
    </message>
    <message>
        <source>Hardware &amp; type not read, proceed?</source>
        <translation>ハードウェアのタイプが読み出されていません。続行しますか?</translation>
    </message>
    <message>
        <source>Please select hardware type/version:</source>
        <translation>ハードウェアのタイプ/バージョンを選択してください:</translation>
    </message>
    <message>
        <source>Please select firmware type:</source>
        <translation>ファームウェアの種類を選択してください:</translation>
    </message>
    <message>
        <source>Open file &apos;%1&apos; failed.</source>
        <translation>ファイル「%1」を開けませんでした。</translation>
    </message>
    <message>
        <source>Invalid update file</source>
        <translation>無効なアップデートファイルです</translation>
    </message>
    <message>
        <source>Firmware updated successfully</source>
        <translation>ファームウェアをアップデートしました</translation>
    </message>
    <message>
        <source>Firmware update in progress. Please wait until it finishes.</source>
        <translation>ファームウェアをアップデートしています。終わるまでお待ちください。</translation>
    </message>
    <message>
        <source>Reading the list of firmware...</source>
        <translation>ファームウェアの一覧を読み込んでいます...</translation>
    </message>
    <message>
        <source>Downloading the firmware...</source>
        <translation>ファームウェアをダウンロードしています...</translation>
    </message>
</context>
<context>
    <name>HandIdentity</name>
    <message>
        <source>firmware V%1.%2.%3</source>
        <translation>ファームウェア V%1.%2.%3</translation>
    </message>
    <message>
        <source>hardware %1</source>
        <translation>ハードウェア %1</translation>
    </message>
</context>
<context>
    <name>HandInformation</name>
    <message>
        <source>not supported</source>
        <translation>未対応</translation>
    </message>
    <message>
        <source>refused</source>
        <translation>拒否</translation>
    </message>
    <message>
        <source>not read</source>
        <translation>未読出</translation>
    </message>
    <message>
        <source>none</source>
        <translation>なし</translation>
    </message>
    <message>
        <source>Node id</source>
        <translation>ノード ID</translation>
    </message>
    <message>
        <source>Protocol</source>
        <translation>プロトコル</translation>
    </message>
    <message>
        <source>Protocol version</source>
        <translation>プロトコルバージョン</translation>
    </message>
    <message>
        <source>Firmware version</source>
        <translation>ファームウェアバージョン</translation>
    </message>
    <message>
        <source>Hardware type</source>
        <translation>ハードウェアタイプ</translation>
    </message>
    <message>
        <source>Boot loader</source>
        <translation>ブートローダー</translation>
    </message>
    <message>
        <source>UID</source>
        <translation>UID</translation>
    </message>
    <message>
        <source>Battery voltage</source>
        <translation>バッテリー電圧</translation>
    </message>
    <message>
        <source>Button count</source>
        <translation>ボタンの押下回数</translation>
    </message>
    <message>
        <source>Usage, total</source>
        <translation>使用量 (合計)</translation>
    </message>
    <message>
        <source>Usage</source>
        <translation>使用量</translation>
    </message>
    <message>
        <source>Thumb root, raw position</source>
        <translation>親指付け根の位置 (生値)</translation>
    </message>
    <message>
        <source>Thumb root, preset</source>
        <translation>親指付け根のプリセット</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>Target position</source>
        <translation>目標位置</translation>
    </message>
    <message>
        <source>Angle (0.01°)</source>
        <translation>角度 (0.01°)</translation>
    </message>
    <message>
        <source>Target angle (0.01°)</source>
        <translation>目標角度 (0.01°)</translation>
    </message>
    <message>
        <source>Current</source>
        <translation>電流</translation>
    </message>
    <message>
        <source>Force</source>
        <translation>力</translation>
    </message>
</context>
<context>
    <name>HandTask</name>
    <message>
        <source>Cancelled.</source>
        <translation>キャンセルしました。</translation>
    </message>
    <message>
        <source>The hand does not answer.</source>
        <translation>ハンドが応答しません。</translation>
    </message>
    <message>
        <source>The port is no longer available.</source>
        <translation>ポートがなくなりました。</translation>
    </message>
    <message>
        <source>The hand has been closed or halted.</source>
        <translation>ハンドが閉じられたか、停止されました。</translation>
    </message>
    <message>
        <source>Another hand answers. Nothing is written to it.</source>
        <translation>別のハンドが応答しています。そのハンドには何も書き込みません。</translation>
    </message>
    <message>
        <source>Node 255 is every hand on the bus. Nothing is written to it.</source>
        <translation>ノード 255 はバス上のすべてのハンドを表します。何も書き込みません。</translation>
    </message>
</context>
<context>
    <name>NodeDialogs</name>
    <message>
        <source>Both</source>
        <translation>両方</translation>
    </message>
    <message>
        <source>Node (decimal or 0x...):</source>
        <translation>ノード (10進数または 0x...):</translation>
    </message>
    <message>
        <source>Protocol:</source>
        <translation>プロトコル:</translation>
    </message>
    <message>
        <source>Enter a number from 0 to 255.</source>
        <translation>0 から 255 までの数を入力してください。</translation>
    </message>
    <message>
        <source>First node:</source>
        <translation>最初のノード:</translation>
    </message>
    <message>
        <source>Last node:</source>
        <translation>最後のノード:</translation>
    </message>
    <message>
        <source>The last node must not be below the first one.</source>
        <translation>最後のノードは最初のノード以上でなければなりません。</translation>
    </message>
    <message>
        <source>Node 0 is available only over SerialCtrl. Choose this protocol.</source>
        <translation>ノード 0 は SerialCtrl でのみ使用できます。このプロトコルを選択してください。</translation>
    </message>
</context>
<context>
    <name>ParameterFile</name>
    <message>
        <source>The folder %1 cannot be created.</source>
        <translation>フォルダー %1 を作成できません。</translation>
    </message>
    <message>
        <source>The file does not exist.</source>
        <translation>ファイルが存在しません。</translation>
    </message>
    <message>
        <source>This is not a regular file.</source>
        <translation>これは通常のファイルではありません。</translation>
    </message>
    <message>
        <source>line %1, offset %2</source>
        <translation>%1 行目、オフセット %2</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>ファイルが空です。</translation>
    </message>
    <message>
        <source>The file is larger than 1 MiB.</source>
        <translation>ファイルが 1 MiB を超えています。</translation>
    </message>
    <message>
        <source>This is not valid JSON (%1): %2</source>
        <translation>有効な JSON ではありません (%1): %2</translation>
    </message>
    <message>
        <source>This is a sequence, not hand parameters.</source>
        <translation>これはシーケンスで、ハンドのパラメーターではありません。</translation>
    </message>
    <message>
        <source>This is not a file of hand parameters: &quot;kind&quot; is not &quot;%1&quot;.</source>
        <translation>これはハンドのパラメーターのファイルではありません:「kind」が「%1」ではありません。</translation>
    </message>
    <message>
        <source>the file comes from a newer program (version %1, this program reads version %2)</source>
        <translation>このファイルはより新しいプログラムのものです (バージョン %1、このプログラムはバージョン %2 を読み込みます)</translation>
    </message>
    <message>
        <source>expected %1, found %2</source>
        <translation>%1 が必要ですが、%2 でした</translation>
    </message>
    <message>
        <source>expected a time such as &quot;2026-11-22T06:25:17Z&quot;, found %1</source>
        <translation>「2026-11-22T06:25:17Z」のような日時が必要ですが、%1 でした</translation>
    </message>
    <message>
        <source>expected an integer from 0 to 255, found %1</source>
        <translation>0 から 255 までの整数が必要ですが、%1 でした</translation>
    </message>
    <message>
        <source>%1 is not valid</source>
        <translation>%1 は無効です</translation>
    </message>
    <message>
        <source>there is no such finger</source>
        <translation>そのような指はありません</translation>
    </message>
    <message>
        <source>expected an object, found %1</source>
        <translation>オブジェクトが必要ですが、%1 でした</translation>
    </message>
    <message>
        <source>expected a text, found %1</source>
        <translation>文字列が必要ですが、%1 でした</translation>
    </message>
    <message>
        <source>expected an array of %1 numbers, found %2</source>
        <translation>%1 個の数の配列が必要ですが、%2 でした</translation>
    </message>
    <message>
        <source>expected a number, found %1</source>
        <translation>数が必要ですが、%1 でした</translation>
    </message>
    <message>
        <source>unknown key</source>
        <translation>不明なキー</translation>
    </message>
</context>
<context>
    <name>Parameters</name>
    <message>
        <source>Current limit</source>
        <translation>電流上限</translation>
    </message>
    <message>
        <source>Force limit</source>
        <translation>力上限</translation>
    </message>
    <message>
        <source>Position limits</source>
        <translation>位置の上下限</translation>
    </message>
    <message>
        <source>Self-test level</source>
        <translation>自己診断レベル</translation>
    </message>
    <message>
        <source>Beep switch</source>
        <translation>ビープ設定</translation>
    </message>
    <message>
        <source>Calibration</source>
        <translation>校正</translation>
    </message>
    <message>
        <source>Thumb</source>
        <translation>親指</translation>
    </message>
    <message>
        <source>Index</source>
        <translation>人差し指</translation>
    </message>
    <message>
        <source>Middle</source>
        <translation>中指</translation>
    </message>
    <message>
        <source>Third</source>
        <translation>薬指</translation>
    </message>
    <message>
        <source>Little</source>
        <translation>小指</translation>
    </message>
    <message>
        <source>Thumb root</source>
        <translation>親指付け根</translation>
    </message>
    <message>
        <source>The file does not have this value.</source>
        <translation>ファイルにこの値がありません。</translation>
    </message>
    <message>
        <source>The hand does not give this value.</source>
        <translation>ハンドからこの値を取得できません。</translation>
    </message>
    <message>
        <source>Not representable: over Modbus gains range from 0 to 655.35.</source>
        <translation>表現できません: Modbus ではゲインの範囲は 0 から 655.35 です。</translation>
    </message>
    <message>
        <source>Node id</source>
        <translation>ノード ID</translation>
    </message>
    <message>
        <source>Protocol</source>
        <translation>プロトコル</translation>
    </message>
    <message>
        <source>Firmware</source>
        <translation>ファームウェア</translation>
    </message>
    <message>
        <source>Hardware</source>
        <translation>ハードウェア</translation>
    </message>
    <message>
        <source>Boot loader</source>
        <translation>ブートローダー</translation>
    </message>
    <message>
        <source>UID</source>
        <translation>UID</translation>
    </message>
    <message>
        <source>%1: not a number</source>
        <translation>%1: 数ではありません</translation>
    </message>
    <message>
        <source>%1: no answer</source>
        <translation>%1: 応答なし</translation>
    </message>
    <message>
        <source>%1: refused (result %2, sub error %3)</source>
        <translation>%1: 拒否 (結果 %2、サブエラー %3)</translation>
    </message>
    <message>
        <source>written</source>
        <translation>書込済み</translation>
    </message>
    <message>
        <source>refused (result %1, sub error %2)</source>
        <translation>拒否 (結果 %1、サブエラー %2)</translation>
    </message>
    <message>
        <source>not kept (%1)</source>
        <translation>反映されず (%1)</translation>
    </message>
    <message>
        <source>not kept</source>
        <translation>反映されず</translation>
    </message>
    <message>
        <source>no answer</source>
        <translation>応答なし</translation>
    </message>
    <message>
        <source>Not known: values range from 0 to %1.</source>
        <translation>不明な値です: 範囲は 0 から %1 です。</translation>
    </message>
    <message>
        <source>%1: no valid answer (result %2)</source>
        <translation>%1: 有効な応答がありません (結果 %2)</translation>
    </message>
    <message>
        <source>no answer, the hand may have a part of it</source>
        <translation>応答なし、一部だけ書き込まれた可能性があります</translation>
    </message>
</context>
<context>
    <name>PortError</name>
    <message>
        <source>No port is selected. Plug in the hand&apos;s adapter and click Refresh.</source>
        <translation>ポートが選択されていません。ハンドのアダプターを接続し、「更新」を押してください。</translation>
    </message>
    <message>
        <source>The port is no longer available. Plug the adapter in again and click Refresh.</source>
        <translation>ポートがなくなりました。アダプターを接続し直し、「更新」を押してください。</translation>
    </message>
    <message>
        <source>You do not have permission to use this port. It belongs to the group &quot;%1&quot;. To join that group, run
    sudo usermod -aG %1 $USER
and log in again.</source>
        <translation>このポートを使う権限がありません。ポートのグループは「%1」です。次のコマンドでグループに入り、
    sudo usermod -aG %1 $USER
ログインし直してください。</translation>
    </message>
    <message>
        <source>Another program is using this port. Close it and try again. (ModemManager may use a new adapter for a few seconds.)</source>
        <translation>別のプログラムがこのポートを使用しています。終了してからやり直してください。(新しいアダプターは数秒間 ModemManager に使用されます。)</translation>
    </message>
</context>
<context>
    <name>PortList</name>
    <message>
        <source>Serial number %1</source>
        <translation>シリアル番号 %1</translation>
    </message>
    <message>
        <source>added by VANTO_PORTS</source>
        <translation>VANTO_PORTS で追加</translation>
    </message>
</context>
<context>
    <name>Program</name>
    <message>
        <source>VantoSetting</source>
        <translation>VantoSetting</translation>
    </message>
</context>
<context>
    <name>StepEditors</name>
    <message>
        <source>Not stored. Press Return to send and store it.</source>
        <translation>保存されていません。Enter キーで送信して保存します。</translation>
    </message>
</context>
<context>
    <name>Theme</name>
    <message>
        <source>Please select style:</source>
        <translation>テーマを選択してください:</translation>
    </message>
</context>
<context>
    <name>UnitDisplay</name>
    <message>
        <source>degree</source>
        <translation>度</translation>
    </message>
</context>
<context>
    <name>UpdateFile</name>
    <message>
        <source>Processing update file - %1%...</source>
        <translation>アップデートファイルを処理中 - %1%...</translation>
    </message>
    <message>
        <source>Hardware type: 0x%1, ver: 0x%2</source>
        <translation>ハードウェアタイプ: 0x%1、バージョン: 0x%2</translation>
    </message>
    <message>
        <source>Invalid update file.</source>
        <translation>無効なアップデートファイルです。</translation>
    </message>
    <message>
        <source>File damaged.</source>
        <translation>ファイルが破損しています。</translation>
    </message>
    <message>
        <source>Open file &apos;%1&apos; failed.</source>
        <translation>ファイル「%1」を開けませんでした。</translation>
    </message>
</context>
<context>
    <name>UpdateFirmware</name>
    <message>
        <source>Failed when openning port &apos;%1&apos;.</source>
        <translation>ポート「%1」を開けませんでした。</translation>
    </message>
</context>
<context>
    <name>vanto::ActionMarkers</name>
    <message>
        <source>Write %1: P %2, I %3, D %4, G %5</source>
        <translation>%1を書き込み: P %2、I %3、D %4、G %5</translation>
    </message>
    <message>
        <source>Write %1: current limit %2</source>
        <translation>%1を書き込み: 電流上限 %2</translation>
    </message>
    <message>
        <source>Write %1: force limit %2</source>
        <translation>%1を書き込み: 力上限 %2</translation>
    </message>
    <message>
        <source>Write %1: position limits %2, %3</source>
        <translation>%1を書き込み: 位置の上下限 %2、%3</translation>
    </message>
    <message>
        <source>Write self-test level %1</source>
        <translation>自己診断レベル %1 を書き込み</translation>
    </message>
    <message>
        <source>Write beep switch %1</source>
        <translation>ビープ設定 %1 を書き込み</translation>
    </message>
    <message>
        <source>Write calibration</source>
        <translation>校正を書き込み</translation>
    </message>
    <message>
        <source>Init</source>
        <translation>初期化</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>リセット</translation>
    </message>
    <message>
        <source>Calibrate</source>
        <translation>校正</translation>
    </message>
    <message>
        <source>Set %1: %2</source>
        <translation>%1を設定: %2</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>再開</translation>
    </message>
    <message>
        <source>Halt</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>Step %1</source>
        <translation>ステップ %1</translation>
    </message>
    <message>
        <source>%1 (and %2 more)</source>
        <translation>%1 (他 %2 件)</translation>
    </message>
</context>
<context>
    <name>vanto::BasicPage</name>
    <message>
        <source>Wait for command</source>
        <translation>コマンド待ち</translation>
    </message>
    <message>
        <source>Stretch only</source>
        <translation>指を伸ばすのみ</translation>
    </message>
    <message>
        <source>Full self-test</source>
        <translation>完全自己診断</translation>
    </message>
    <message>
        <source>Basic Only</source>
        <translation>基本のみ</translation>
    </message>
    <message>
        <source>All</source>
        <translation>すべて</translation>
    </message>
    <message>
        <source>Unknown protocol</source>
        <translation>不明なプロトコルです</translation>
    </message>
    <message>
        <source>Basic info loaded</source>
        <translation>基本情報を読み込みました</translation>
    </message>
    <message>
        <source>getSelfTestLevel(0x%1, ...) got invalid value &apos;%2&apos;</source>
        <translation>getSelfTestLevel(0x%1, ...) が無効な値「%2」を返しました</translation>
    </message>
    <message>
        <source>getBeepSwitch(0x%1, ...) got invalid value &apos;%1&apos;</source>
        <translation>getBeepSwitch(0x%1, ...) が無効な値「%1」を返しました</translation>
    </message>
    <message>
        <source>Please input new node id:</source>
        <translation>新しいノード ID を入力してください:</translation>
    </message>
    <message>
        <source>node id changed from &apos;0x%1&apos; to &apos;0x%2&apos;, please wait for device rebooting then rescan devices</source>
        <translation>ノード ID を「0x%1」から「0x%2」に変更しました。デバイスの再起動を待って再スキャンしてください</translation>
    </message>
    <message>
        <source>node id changed from &apos;0x%1&apos; to &apos;0x%2&apos;, need to rescan devices</source>
        <translation>ノード ID を「0x%1」から「0x%2」に変更しました。再スキャンしてください</translation>
    </message>
    <message>
        <source>Beep succeeded</source>
        <translation>ビープ音を鳴らしました</translation>
    </message>
    <message>
        <source>Invalid self-test level &apos;%1&apos;</source>
        <translation>無効な自己診断レベル「%1」</translation>
    </message>
    <message>
        <source>Set self-test level succeeded</source>
        <translation>自己診断レベルを設定しました</translation>
    </message>
    <message>
        <source>Invalid beep switch level &apos;%d&apos;</source>
        <translation>無効なビープ設定「%d」</translation>
    </message>
    <message>
        <source>Set beep switch succeeded</source>
        <translation>ビープ音を設定しました</translation>
    </message>
    <message>
        <source>Start init succeeded</source>
        <translation>初期化を開始しました</translation>
    </message>
    <message>
        <source>Reset succeeded</source>
        <translation>リセットしました</translation>
    </message>
    <message>
        <source>Firmware Version:</source>
        <translation>ファームウェアバージョン:</translation>
    </message>
    <message>
        <source>Firmware Version</source>
        <translation>ファームウェアバージョン</translation>
    </message>
    <message>
        <source>Protocol Version:</source>
        <translation>プロトコルバージョン:</translation>
    </message>
    <message>
        <source>Protocol Version</source>
        <translation>プロトコルバージョン</translation>
    </message>
    <message>
        <source>Hardware Type &amp; Version:</source>
        <translation>ハードウェアタイプとバージョン:</translation>
    </message>
    <message>
        <source>Hardware Type and Version</source>
        <translation>ハードウェアタイプとバージョン</translation>
    </message>
    <message>
        <source>Boot Loader Version:</source>
        <translation>ブートローダーバージョン:</translation>
    </message>
    <message>
        <source>Boot Loader Version</source>
        <translation>ブートローダーバージョン</translation>
    </message>
    <message>
        <source>Self Test Level:</source>
        <translation>自己診断レベル:</translation>
    </message>
    <message>
        <source>Self Test Level</source>
        <translation>自己診断レベル</translation>
    </message>
    <message>
        <source>Set</source>
        <translation>設定</translation>
    </message>
    <message>
        <source>Set self-test level</source>
        <translation>自己診断レベルを設定</translation>
    </message>
    <message>
        <source>Beep Switch:</source>
        <translation>ビープ設定:</translation>
    </message>
    <message>
        <source>Beep Switch</source>
        <translation>ビープ設定</translation>
    </message>
    <message>
        <source>Set beep switch</source>
        <translation>ビープ設定を書き込む</translation>
    </message>
    <message>
        <source>Pos Calibration:</source>
        <translation>位置校正:</translation>
    </message>
    <message>
        <source>Thumb</source>
        <translation>親指</translation>
    </message>
    <message>
        <source>Thumb calibrated start position</source>
        <translation>親指の校正開始位置</translation>
    </message>
    <message>
        <source>~</source>
        <translation>~</translation>
    </message>
    <message>
        <source>Thumb calibrated end position</source>
        <translation>親指の校正終了位置</translation>
    </message>
    <message>
        <source>Index</source>
        <translation>人差し指</translation>
    </message>
    <message>
        <source>Index calibrated start position</source>
        <translation>人差し指の校正開始位置</translation>
    </message>
    <message>
        <source>Index calibrated end position</source>
        <translation>人差し指の校正終了位置</translation>
    </message>
    <message>
        <source>Middle</source>
        <translation>中指</translation>
    </message>
    <message>
        <source>Middle calibrated start position</source>
        <translation>中指の校正開始位置</translation>
    </message>
    <message>
        <source>Middle calibrated end position</source>
        <translation>中指の校正終了位置</translation>
    </message>
    <message>
        <source>Third</source>
        <translation>薬指</translation>
    </message>
    <message>
        <source>Third calibrated start position</source>
        <translation>薬指の校正開始位置</translation>
    </message>
    <message>
        <source>Third calibrated end position</source>
        <translation>薬指の校正終了位置</translation>
    </message>
    <message>
        <source>Little</source>
        <translation>小指</translation>
    </message>
    <message>
        <source>Little calibrated start position</source>
        <translation>小指の校正開始位置</translation>
    </message>
    <message>
        <source>Little calibrated end position</source>
        <translation>小指の校正終了位置</translation>
    </message>
    <message>
        <source>Thumb root</source>
        <translation>親指付け根</translation>
    </message>
    <message>
        <source>Thumb root calibrated start position</source>
        <translation>親指付け根の校正開始位置</translation>
    </message>
    <message>
        <source>Thumb root calibrated end position</source>
        <translation>親指付け根の校正終了位置</translation>
    </message>
    <message>
        <source>Thumb Root Pos:</source>
        <translation>付け根位置:</translation>
    </message>
    <message>
        <source>Thumb root position 1</source>
        <translation>親指付け根の位置 1</translation>
    </message>
    <message>
        <source>Thumb root position 2</source>
        <translation>親指付け根の位置 2</translation>
    </message>
    <message>
        <source>Thumb root position 3</source>
        <translation>親指付け根の位置 3</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>再読み込み</translation>
    </message>
    <message>
        <source>Set ID</source>
        <translation>ID 設定</translation>
    </message>
    <message>
        <source>Beep</source>
        <translation>ビープ</translation>
    </message>
    <message>
        <source>Init</source>
        <translation>初期化</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>リセット</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>アップデート</translation>
    </message>
    <message>
        <source>Calibrate</source>
        <translation>校正</translation>
    </message>
</context>
<context>
    <name>vanto::CalibratingDialog</name>
    <message>
        <source>Thumb Root Pos:</source>
        <translation>付け根位置:</translation>
    </message>
    <message>
        <source>Thumb root position</source>
        <translation>親指付け根の位置</translation>
    </message>
    <message>
        <source>The thumb root moves to this position at once</source>
        <translation>親指付け根がすぐにその位置へ動きます</translation>
    </message>
</context>
<context>
    <name>vanto::ConnectionView</name>
    <message>
        <source>The port has been lost. Check the cable.</source>
        <translation>ポートが失われました。ケーブルを確認してください。</translation>
    </message>
    <message>
        <source>The hand does not answer. Check its power.</source>
        <translation>ハンドが応答しません。電源を確認してください。</translation>
    </message>
    <message>
        <source>The hand answers again</source>
        <translation>ハンドが再び応答しています</translation>
    </message>
    <message>
        <source>Reconnected</source>
        <translation>再接続しました</translation>
    </message>
    <message>
        <source>Another hand answers (%1). It has not been opened.</source>
        <translation>別のハンドが応答しています (%1)。開いていません。</translation>
    </message>
    <message>
        <source>Choose a port and click Scan.</source>
        <translation>ポートを選択して [スキャン] をクリックしてください。</translation>
    </message>
    <message>
        <source>Hands that answer are added to the devices. Stop ends the scan.</source>
        <translation>応答したハンドはデバイス一覧に追加されます。[停止] でスキャンを終了します。</translation>
    </message>
    <message>
        <source>The hand is ready.</source>
        <translation>ハンドの準備ができています。</translation>
    </message>
    <message>
        <source>Check the hand&apos;s power and its side of the cable.
It is asked once a second until it answers.</source>
        <translation>ハンドの電源とハンド側のケーブルを確認してください。
応答するまで 1 秒ごとに問い合わせます。</translation>
    </message>
    <message>
        <source>Connect the adapter again. It is looked for once a second.
Reload on the Basic page tries to open the port at once.</source>
        <translation>アダプターを接続し直してください。1 秒ごとに検索します。
[基本] ページの再読み込みはすぐにポートを開こうとします。</translation>
    </message>
    <message>
        <source>Scan again, or open the node in the Options menu.</source>
        <translation>再度スキャンするか、[オプション] メニューからノードを開いてください。</translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation>未接続</translation>
    </message>
    <message>
        <source>Scanning</source>
        <translation>スキャン中</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>接続済み</translation>
    </message>
    <message>
        <source>No answer</source>
        <translation>応答なし</translation>
    </message>
    <message>
        <source>Port lost</source>
        <translation>ポート喪失</translation>
    </message>
    <message>
        <source>No hand chosen</source>
        <translation>ハンド未選択</translation>
    </message>
    <message>
        <source>Connection: %1</source>
        <translation>接続: %1</translation>
    </message>
    <message>
        <source>The port cannot be opened again. %1</source>
        <translation>ポートを再び開けません。%1</translation>
    </message>
    <message>
        <source>Connect the adapter again, choose its port and click Scan.</source>
        <translation>アダプターを再接続し、そのポートを選択して [スキャン] をクリックしてください。</translation>
    </message>
    <message>
        <source>Continue ends a halt.</source>
        <translation>[再開] で停止を解除します。</translation>
    </message>
    <message>
        <source>The port is back. The hand does not answer yet.</source>
        <translation>ポートは復帰しましたが、ハンドはまだ応答しません。</translation>
    </message>
    <message>
        <source>Every hand answers to node 255 over SerialCtrl.
With several hands on the bus, all of them act and their replies collide.</source>
        <translation>SerialCtrl では、すべてのハンドがノード 255 に応答します。
バスに複数のハンドがあると、すべてが動作し、応答が衝突します。</translation>
    </message>
</context>
<context>
    <name>vanto::CopyGainsDialog</name>
    <message>
        <source>Gains in the file of:</source>
        <translation>ファイル内のコピー元のゲイン:</translation>
    </message>
    <message>
        <source>Copy to:</source>
        <translation>コピー先:</translation>
    </message>
</context>
<context>
    <name>vanto::CursorPanel</name>
    <message>
        <source> s</source>
        <translation> s</translation>
    </message>
    <message>
        <source>Cursor %1</source>
        <translation>カーソル %1</translation>
    </message>
    <message>
        <source>Values at the cursors and between them</source>
        <translation>カーソル位置とその間の値</translation>
    </message>
    <message>
        <source>Cursor 1</source>
        <translation>カーソル 1</translation>
    </message>
    <message>
        <source>Cursor 2</source>
        <translation>カーソル 2</translation>
    </message>
    <message>
        <source>Minimum</source>
        <translation>最小</translation>
    </message>
    <message>
        <source>Mean</source>
        <translation>平均</translation>
    </message>
    <message>
        <source>Maximum</source>
        <translation>最大</translation>
    </message>
    <message>
        <source>%1 s apart</source>
        <translation>間隔 %1 s</translation>
    </message>
    <message>
        <source>The recording is too large for means: it is shown as minima and maxima of groups of samples.</source>
        <translation>記録が大きすぎるため平均は計算できません。サンプルのグループごとの最小値と最大値で表示しています。</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>finger, quantity</comment>
        <translation>%1、%2</translation>
    </message>
</context>
<context>
    <name>vanto::DeviceBar</name>
    <message>
        <source>Unknown device protocol type</source>
        <translation>デバイスのプロトコルの種類が不明です</translation>
    </message>
    <message>
        <source>Unknown device protocol version</source>
        <translation>デバイスのプロトコルバージョンが不明です</translation>
    </message>
    <message>
        <source>Unknown device name</source>
        <translation>デバイス名が不明です</translation>
    </message>
    <message>
        <source>Unsupported protocol version</source>
        <translation>対応していないプロトコルバージョンです</translation>
    </message>
    <message>
        <source>node &apos;0x%1&apos; found, firmware version: %2.%3.%4</source>
        <translation>ノード「0x%1」が見つかりました、ファームウェアバージョン: %2.%3.%4</translation>
    </message>
    <message>
        <source>Port:</source>
        <translation>ポート:</translation>
    </message>
    <message>
        <source>Serial port</source>
        <translation>シリアルポート</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>更新</translation>
    </message>
    <message>
        <source>Refresh ports</source>
        <translation>ポート一覧を更新</translation>
    </message>
    <message>
        <source>Device:</source>
        <translation>デバイス:</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>デバイス</translation>
    </message>
    <message>
        <source>Scan</source>
        <translation>スキャン</translation>
    </message>
    <message>
        <source>Scan for devices</source>
        <translation>デバイスをスキャン</translation>
    </message>
    <message>
        <source>No hand answers at node %1.</source>
        <translation>ノード %1 で応答するハンドはありません。</translation>
    </message>
</context>
<context>
    <name>vanto::DownloadDialog</name>
    <message>
        <source>%1
%2 of %3</source>
        <translation>%1
%2 / %3</translation>
    </message>
</context>
<context>
    <name>vanto::FingerLegend</name>
    <message>
        <source>Shows the lines of this finger</source>
        <translation>この指の線を表示します</translation>
    </message>
</context>
<context>
    <name>vanto::FirmwareDownload</name>
    <message>
        <source>Error when saving firmware file.</source>
        <translation>ファームウェアファイルの保存中にエラーが発生しました。</translation>
    </message>
    <message>
        <source>Error when reading version file from server.</source>
        <translation>サーバーからバージョンファイルを読み込めませんでした。</translation>
    </message>
    <message>
        <source>Error when parsing version file.</source>
        <translation>バージョンファイルを解析できませんでした。</translation>
    </message>
    <message>
        <source>Error when reading firmware file from server.</source>
        <translation>サーバーからファームウェアファイルを読み込めませんでした。</translation>
    </message>
</context>
<context>
    <name>vanto::ForcePage</name>
    <message>
        <source>This hand has force sensors. Set its force limits on the Setting page.</source>
        <translation>このハンドには力センサーがあります。力上限は「設定」ページで設定します。</translation>
    </message>
</context>
<context>
    <name>vanto::HaltControl</name>
    <message>
        <source>The port is lost; nothing can be sent. Switch the power off.</source>
        <translation>ポートが失われたため何も送信できません。電源を切ってください。</translation>
    </message>
    <message>
        <source>Continued</source>
        <translation>再開しました</translation>
    </message>
    <message>
        <source>The hand does not answer. Press Continue again.</source>
        <translation>ハンドが応答しません。もう一度 [再開] を押してください。</translation>
    </message>
    <message>
        <source>Halting</source>
        <translation>停止中</translation>
    </message>
    <message>
        <source>Halted</source>
        <translation>停止済み</translation>
    </message>
    <message>
        <source>Halt not confirmed. Switch the power off.</source>
        <translation>停止を確認できません。電源を切ってください。</translation>
    </message>
    <message>
        <source>Stop sent to all hands, not confirmed. Switch the power off.</source>
        <translation>すべてのハンドに停止を送信しましたが確認できません。電源を切ってください。</translation>
    </message>
    <message>
        <source>Halt</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>再開</translation>
    </message>
    <message>
        <source>Halt not
confirmed</source>
        <translation>停止
未確認</translation>
    </message>
    <message>
        <source>The fingers are held. Continue allows motions again.</source>
        <translation>指は保持されています。[再開] で動作が再び可能になります。</translation>
    </message>
    <message>
        <source>Stops all fingers at once (Esc, Pause, Shift+Esc)</source>
        <translation>すべての指を直ちに停止します (Esc、Pause、Shift+Esc)</translation>
    </message>
</context>
<context>
    <name>vanto::HandInformationDialog</name>
    <message>
        <source>Hand information</source>
        <translation>ハンド情報</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名前</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>値</translation>
    </message>
    <message>
        <source>Hand Information</source>
        <translation>ハンド情報</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>コピー</translation>
    </message>
    <message>
        <source>Save Report...</source>
        <translation>レポートを保存...</translation>
    </message>
    <message>
        <source>Saves this, all parameters, the messages and the last frames</source>
        <translation>この情報、すべてのパラメーター、メッセージ、最新のフレームを保存します</translation>
    </message>
    <message>
        <source>Save report</source>
        <translation>レポートを保存</translation>
    </message>
    <message>
        <source>Text files (*.txt)</source>
        <translation>テキスト ファイル (*.txt)</translation>
    </message>
    <message>
        <source>JSON files (*.json)</source>
        <translation>JSON ファイル (*.json)</translation>
    </message>
    <message>
        <source>The report could not be saved in &apos;%1&apos;.</source>
        <translation>レポートを「%1」に保存できませんでした。</translation>
    </message>
</context>
<context>
    <name>vanto::MainWindow</name>
    <message>
        <source>Basic</source>
        <translation>基本</translation>
    </message>
    <message>
        <source>Setting</source>
        <translation>設定</translation>
    </message>
    <message>
        <source>Run</source>
        <comment>page</comment>
        <translation>動作</translation>
    </message>
    <message>
        <source>Force</source>
        <translation>力</translation>
    </message>
    <message>
        <source>Sequence</source>
        <translation>シーケンス</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>ファイル(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Options</source>
        <translation>オプション(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>ヘルプ(&amp;H)</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>終了(&amp;X)</translation>
    </message>
    <message>
        <source>Force &amp;Update</source>
        <translation>強制アップデート(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Theme</source>
        <translation>テーマ(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>バージョン情報(&amp;A)</translation>
    </message>
    <message>
        <source>

Supported protocol:</source>
        <translation>

対応プロトコル:</translation>
    </message>
    <message>
        <source>
    SerialCtrl Protocol Ver %1.x</source>
        <translation>
    SerialCtrl プロトコル Ver %1.x</translation>
    </message>
    <message>
        <source>
    ModBus-RTU Protocol Ver %1.x</source>
        <translation>
    ModBus-RTU プロトコル Ver %1.x</translation>
    </message>
    <message>
        <source>&amp;Open Node...</source>
        <translation>ノードを開く(&amp;O)...</translation>
    </message>
    <message>
        <source>Scan &amp;Range...</source>
        <translation>スキャン範囲(&amp;R)...</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>表示(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Messages...</source>
        <translation>メッセージ(&amp;M)...</translation>
    </message>
    <message>
        <source>&amp;Save Hand Parameters...</source>
        <translation>ハンドのパラメーターを保存(&amp;S)...</translation>
    </message>
    <message>
        <source>&amp;Compare and Restore...</source>
        <translation>比較と復元(&amp;C)...</translation>
    </message>
    <message>
        <source>Hand &amp;Information...</source>
        <translation>ハンド情報(&amp;I)...</translation>
    </message>
    <message>
        <source>M&amp;onitor</source>
        <translation>モニター(&amp;O)</translation>
    </message>
</context>
<context>
    <name>vanto::MessageList</name>
    <message>
        <source>Messages</source>
        <translation>メッセージ</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>コピー</translation>
    </message>
    <message>
        <source>Save...</source>
        <translation>保存...</translation>
    </message>
    <message>
        <source>Save messages</source>
        <translation>メッセージを保存</translation>
    </message>
    <message>
        <source>Text files (*.txt)</source>
        <translation>テキスト ファイル (*.txt)</translation>
    </message>
    <message>
        <source>The messages could not be saved in &apos;%1&apos;.</source>
        <translation>メッセージを &apos;%1&apos; に保存できませんでした。</translation>
    </message>
</context>
<context>
    <name>vanto::MessageLog</name>
    <message>
        <source>(x %1), last %2</source>
        <translation>(x %1)、最終 %2</translation>
    </message>
</context>
<context>
    <name>vanto::Modeless</name>
    <message>
        <source>&apos;%1&apos; already exists.</source>
        <translation>&apos;%1&apos; は既に存在します。</translation>
    </message>
    <message>
        <source>Do you want to replace it?</source>
        <translation>置き換えますか?</translation>
    </message>
</context>
<context>
    <name>vanto::MonitorDock</name>
    <message>
        <source>Monitor</source>
        <translation>モニター</translation>
    </message>
    <message>
        <source>Current</source>
        <translation>電流</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>Angle</source>
        <translation>角度</translation>
    </message>
    <message>
        <source>Force</source>
        <translation>力</translation>
    </message>
    <message>
        <source>Samples per second</source>
        <translation>1 秒あたりのサンプル数</translation>
    </message>
    <message>
        <source>%1 Hz</source>
        <translation>%1 Hz</translation>
    </message>
    <message>
        <source>As fast as possible</source>
        <translation>できるだけ速く</translation>
    </message>
    <message>
        <source>Shown time</source>
        <translation>表示する時間</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 秒</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>一時停止</translation>
    </message>
    <message>
        <source>Keeps the plot as it is, to drag and zoom it. Sampling goes on.</source>
        <translation>グラフを固定し、ドラッグやズームができるようにします。サンプリングは続きます。</translation>
    </message>
    <message>
        <source>Text of the marker</source>
        <translation>マーカーのテキスト</translation>
    </message>
    <message>
        <source>Mark</source>
        <translation>マーク</translation>
    </message>
    <message>
        <source>Open Recording...</source>
        <translation>記録を開く...</translation>
    </message>
    <message>
        <source>Save Picture...</source>
        <translation>画像を保存...</translation>
    </message>
    <message>
        <source>hand opened</source>
        <translation>ハンドを開きました</translation>
    </message>
    <message>
        <source>%1 Hz, %2 recorded</source>
        <translation>%1 Hz、%2 件記録済み</translation>
    </message>
    <message>
        <source>%1 samples recorded in &apos;%2&apos;.</source>
        <translation>%1 件のサンプルを「%2」に記録しました。</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>記録</translation>
    </message>
    <message>
        <source>Recordings (*.csv)</source>
        <translation>記録 (*.csv)</translation>
    </message>
    <message>
        <source>Stop Recording</source>
        <translation>記録を停止</translation>
    </message>
    <message>
        <source>Record...</source>
        <translation>記録...</translation>
    </message>
    <message>
        <source>mark</source>
        <translation>マーカー</translation>
    </message>
    <message>
        <source>%1 min</source>
        <translation>%1 分</translation>
    </message>
    <message>
        <source>Recording stopped because the monitor is hidden: %1 samples in &apos;%2&apos;.</source>
        <translation>モニターが非表示になったため、記録を終了しました: %1 件のサンプル、「%2」。</translation>
    </message>
</context>
<context>
    <name>vanto::MonitorPlot</name>
    <message>
        <source>Plot of the measured values</source>
        <translation>測定値のグラフ</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>Force</source>
        <translation>力</translation>
    </message>
    <message>
        <source>Time (s)</source>
        <translation>時間 (秒)</translation>
    </message>
    <message>
        <source>Limit %1 mA</source>
        <translation>上限 %1 mA</translation>
    </message>
    <message>
        <source>Player %1 mA</source>
        <translation>再生 %1 mA</translation>
    </message>
    <message>
        <source>Left and Right move the time, Plus and Minus zoom it, Home returns.</source>
        <translation>左右キーで時間を移動し、+ と - で拡大・縮小し、Home で戻ります。</translation>
    </message>
    <message>
        <source>Current (mA)</source>
        <translation>電流 (mA)</translation>
    </message>
    <message>
        <source>Angle (°)</source>
        <translation>角度 (°)</translation>
    </message>
</context>
<context>
    <name>vanto::NoticeBar</name>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Close the notice</source>
        <translation>通知を閉じる</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>表示</translation>
    </message>
</context>
<context>
    <name>vanto::OverlayBar</name>
    <message>
        <source>At the last marker</source>
        <translation>最後のマーカーに合わせる</translation>
    </message>
    <message>
        <source>Time of the overlay that is aligned</source>
        <translation>位置を合わせる重ね表示の時刻</translation>
    </message>
    <message>
        <source>at </source>
        <translation>位置 </translation>
    </message>
    <message>
        <source> s</source>
        <translation> s</translation>
    </message>
    <message>
        <source>Where it is placed</source>
        <translation>配置する時刻</translation>
    </message>
    <message>
        <source>Moves the overlay to each new marker</source>
        <translation>新しいマーカーごとに重ね表示を移動します</translation>
    </message>
    <message>
        <source>Remove Overlay</source>
        <translation>重ね表示を消去</translation>
    </message>
    <message>
        <source>Overlay: %1</source>
        <translation>重ね表示: %1</translation>
    </message>
    <message>
        <source>%1, %2 s</source>
        <comment>marker, time</comment>
        <translation>%1、%2 s</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>開始</translation>
    </message>
</context>
<context>
    <name>vanto::ParameterActions</name>
    <message>
        <source>Parameter files (*.json)</source>
        <translation>パラメーターファイル (*.json)</translation>
    </message>
    <message>
        <source>Reading the parameters of the hand...</source>
        <translation>ハンドのパラメーターを読み出しています...</translation>
    </message>
    <message>
        <source>Save hand parameters</source>
        <translation>ハンドのパラメーターを保存</translation>
    </message>
    <message>
        <source>Parameters saved in &apos;%1&apos;</source>
        <translation>パラメーターを「%1」に保存しました</translation>
    </message>
    <message>
        <source>Open parameter file</source>
        <translation>パラメーターファイルを開く</translation>
    </message>
    <message>
        <source>The file &apos;%1&apos; cannot be used.</source>
        <translation>ファイル「%1」は使用できません。</translation>
    </message>
    <message>
        <source>The file is from hardware %1, the hand is hardware %2. Compare them?</source>
        <translation>ファイルはハードウェア %1 のもので、ハンドはハードウェア %2 です。比較しますか?</translation>
    </message>
    <message>
        <source>The parameters could not be saved in &apos;%1&apos;.</source>
        <translation>パラメーターを「%1」に保存できませんでした。</translation>
    </message>
    <message>
        <source>The file does not have these values, which the hand did not give:</source>
        <translation>ハンドから得られなかった次の値はファイルに含まれていません:</translation>
    </message>
</context>
<context>
    <name>vanto::ParameterBackups</name>
    <message>
        <source>Backup of the parameters</source>
        <translation>パラメーターのバックアップ</translation>
    </message>
    <message>
        <source>Backup %p%</source>
        <translation>バックアップ %p%</translation>
    </message>
    <message>
        <source>The parameters were not backed up. %1</source>
        <translation>パラメーターをバックアップできませんでした。%1</translation>
    </message>
    <message>
        <source>Compare...</source>
        <translation>比較...</translation>
    </message>
    <message>
        <source>The backup is incomplete. %1</source>
        <translation>バックアップは不完全です。%1</translation>
    </message>
    <message>
        <source>The hand does not answer.</source>
        <translation>ハンドが応答しません。</translation>
    </message>
    <message>
        <source>The parameters of the hand differ from the backup made before the update.</source>
        <translation>ハンドのパラメーターがアップデート前のバックアップと異なります。</translation>
    </message>
</context>
<context>
    <name>vanto::ParameterTable</name>
    <message>
        <source>Parameters</source>
        <translation>パラメーター</translation>
    </message>
    <message>
        <source>Parameter</source>
        <translation>パラメーター</translation>
    </message>
    <message>
        <source>Finger</source>
        <translation>指</translation>
    </message>
    <message>
        <source>In the hand</source>
        <translation>ハンド内</translation>
    </message>
    <message>
        <source>In the file</source>
        <translation>ファイル内</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>結果</translation>
    </message>
    <message>
        <source>Level 2 moves the hand when it is switched on</source>
        <translation>レベル 2 では電源を入れるとハンドが動きます</translation>
    </message>
    <message>
        <source>Limits where the finger can move</source>
        <translation>指が動ける範囲を制限します</translation>
    </message>
    <message>
        <source>A wrong calibration drives fingers into their stops</source>
        <translation>誤った校正では指がストッパーに突き当たります</translation>
    </message>
    <message>
        <source>The file is from another hand</source>
        <translation>ファイルは別のハンドのものです</translation>
    </message>
    <message>
        <source>Never written</source>
        <translation>書き込みません</translation>
    </message>
</context>
<context>
    <name>vanto::ParametersDialog</name>
    <message>
        <source>Show equal values</source>
        <translation>同じ値も表示</translation>
    </message>
    <message>
        <source>Compare and Restore</source>
        <translation>比較と復元</translation>
    </message>
    <message>
        <source>File: %1</source>
        <translation>ファイル: %1</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>進行状況</translation>
    </message>
    <message>
        <source>Gains</source>
        <translation>ゲイン</translation>
    </message>
    <message>
        <source>Current limits</source>
        <translation>電流上限</translation>
    </message>
    <message>
        <source>Force limits</source>
        <translation>力上限</translation>
    </message>
    <message>
        <source>Position limits</source>
        <translation>位置の上下限</translation>
    </message>
    <message>
        <source>Self-test level</source>
        <translation>自己診断レベル</translation>
    </message>
    <message>
        <source>Beep switch</source>
        <translation>ビープ設定</translation>
    </message>
    <message>
        <source>Kinds:</source>
        <translation>種類:</translation>
    </message>
    <message>
        <source>Fingers:</source>
        <translation>指:</translation>
    </message>
    <message>
        <source>Copy Gains...</source>
        <translation>ゲインをコピー...</translation>
    </message>
    <message>
        <source>Uses the gains of one finger for others, too</source>
        <translation>1 本の指のゲインを他の指にも使用します</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>復元</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>コピー</translation>
    </message>
    <message>
        <source>The file or the hand has no unique id, so the file may be from another hand. The calibrations of two hands are never the same.
Are you sure that the file is from this hand?</source>
        <translation>ファイルまたはハンドに固有 ID がないため、ファイルは別のハンドのものかもしれません。2 つのハンドの校正が同じになることはありません。
ファイルがこのハンドのものであることは確かですか?</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Restoring...</source>
        <translation>復元しています...</translation>
    </message>
    <message>
        <source>Written: %1</source>
        <translation>書込済み: %1</translation>
    </message>
    <message>
        <source>Refused: %1</source>
        <translation>拒否: %1</translation>
    </message>
    <message>
        <source>Not kept: %1</source>
        <translation>反映されず: %1</translation>
    </message>
    <message>
        <source>No answer: %1</source>
        <translation>応答なし: %1</translation>
    </message>
    <message>
        <source>Not tried: %1</source>
        <translation>未試行: %1</translation>
    </message>
    <message>
        <source>The connection has changed. Close this dialog and compare again.</source>
        <translation>接続が変わりました。このダイアログを閉じて、もう一度比較してください。</translation>
    </message>
    <message>
        <source>Calibration and position limits define where the fingers end. With wrong ones the fingers are driven into their stops and can be damaged.
Restore those of the file?</source>
        <translation>校正と位置の上下限は指の可動端を決めます。誤った値では指がストッパーに押し付けられ、破損するおそれがあります。
ファイルの値を復元しますか?</translation>
    </message>
    <message>
        <source>It is not known which calibration the hand has now, it may be incomplete. Close this dialog and compare again.</source>
        <translation>ハンドの現在の校正は不明です。不完全な可能性があります。このダイアログを閉じて、もう一度比較してください。</translation>
    </message>
    <message>
        <source>The calibration of the hand was read again.</source>
        <translation>ハンドの校正を読み直しました。</translation>
    </message>
    <message>
        <source>The calibration of the hand could not be read again.</source>
        <translation>ハンドの校正を読み直せませんでした。</translation>
    </message>
    <message>
        <source>Another hand may have answered.</source>
        <translation>別のハンドが応答した可能性があります。</translation>
    </message>
    <message>
        <source>The hand has no unique id, so it may be another one now. Close this dialog and compare again.</source>
        <translation>ハンドに固有 ID がないため、別のハンドに変わっている可能性があります。このダイアログを閉じて、もう一度比較してください。</translation>
    </message>
    <message>
        <source>Node 255 is every hand on the bus. Open the hand at its own node to restore its parameters.</source>
        <translation>ノード 255 はバス上のすべてのハンドを表します。パラメーターを復元するには、ハンド自身のノードで開いてください。</translation>
    </message>
</context>
<context>
    <name>vanto::PlotPanel</name>
    <message>
        <source>Limits</source>
        <translation>上限</translation>
    </message>
    <message>
        <source>The current limits that were read last, and the limit of the player</source>
        <translation>最後に読み出した電流上限と再生時の上限</translation>
    </message>
    <message>
        <source>Cursors</source>
        <translation>カーソル</translation>
    </message>
    <message>
        <source>Drag a cursor, or click to place the nearer one. The table shows their values.</source>
        <translation>カーソルをドラッグするか、クリックして近い方を置きます。値は表に表示されます。</translation>
    </message>
    <message>
        <source>Overlay...</source>
        <translation>重ねて表示...</translation>
    </message>
    <message>
        <source>Plots an earlier recording over these samples</source>
        <translation>以前の記録をこのサンプルに重ねて表示します</translation>
    </message>
    <message>
        <source>Open overlay</source>
        <translation>重ねる記録を開く</translation>
    </message>
</context>
<context>
    <name>vanto::RecentFiles</name>
    <message>
        <source>No files</source>
        <translation>ファイルなし</translation>
    </message>
</context>
<context>
    <name>vanto::RecordingView</name>
    <message>
        <source>Reading the recording...</source>
        <translation>記録を読み込んでいます...</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>The recording &apos;%1&apos; cannot be opened.</source>
        <translation>記録「%1」を開けません。</translation>
    </message>
    <message>
        <source>The recording &apos;%1&apos; is empty.</source>
        <translation>記録「%1」は空です。</translation>
    </message>
    <message>
        <source>Save Picture...</source>
        <translation>画像を保存...</translation>
    </message>
    <message>
        <source>%1 samples, from %2.</source>
        <translation>%1 サンプル、開始 %2。</translation>
    </message>
    <message>
        <source>The plot shows the minimum and the maximum of %1 samples each.</source>
        <translation>グラフは %1 サンプルごとの最小値と最大値を示します。</translation>
    </message>
    <message>
        <source>The last line of the file is incomplete.</source>
        <translation>ファイルの最後の行が不完全です。</translation>
    </message>
    <message>
        <source>Save picture</source>
        <translation>画像を保存</translation>
    </message>
    <message>
        <source>Pictures (*.png)</source>
        <translation>画像 (*.png)</translation>
    </message>
    <message>
        <source>The picture could not be saved in &apos;%1&apos;.</source>
        <translation>画像を「%1」に保存できませんでした。</translation>
    </message>
    <message>
        <source>Recordings (*.csv)</source>
        <translation>記録 (*.csv)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>すべてのファイル (*)</translation>
    </message>
    <message>
        <source>Open recording</source>
        <translation>記録を開く</translation>
    </message>
    <message>
        <source>%1 samples.</source>
        <translation>サンプル数: %1。</translation>
    </message>
</context>
<context>
    <name>vanto::RunPage</name>
    <message>
        <source>Set</source>
        <translation>設定</translation>
    </message>
    <message>
        <source>Thumb</source>
        <translation>親指</translation>
    </message>
    <message>
        <source>Index</source>
        <translation>人差し指</translation>
    </message>
    <message>
        <source>Middle</source>
        <translation>中指</translation>
    </message>
    <message>
        <source>Third</source>
        <translation>薬指</translation>
    </message>
    <message>
        <source>Little</source>
        <translation>小指</translation>
    </message>
    <message>
        <source>Thumb root</source>
        <translation>親指付け根</translation>
    </message>
    <message>
        <source>mA</source>
        <translation>mA</translation>
    </message>
    <message>
        <source>Position or angle</source>
        <translation>位置または角度</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>Angle</source>
        <translation>角度</translation>
    </message>
    <message>
        <source>ticks</source>
        <translation>ticks</translation>
    </message>
    <message>
        <source>Speed:</source>
        <translation>速度:</translation>
    </message>
    <message>
        <source>Current:</source>
        <translation>電流:</translation>
    </message>
    <message>
        <source>Thumb target</source>
        <translation>親指の目標</translation>
    </message>
    <message>
        <source>Thumb position or angle</source>
        <translation>親指の位置または角度</translation>
    </message>
    <message>
        <source>Set Thumb position or angle</source>
        <translation>親指の位置または角度を設定</translation>
    </message>
    <message>
        <source>Thumb speed</source>
        <translation>親指の速度</translation>
    </message>
    <message>
        <source>Thumb current</source>
        <translation>親指の電流</translation>
    </message>
    <message>
        <source>Index target</source>
        <translation>人差し指の目標</translation>
    </message>
    <message>
        <source>Index position or angle</source>
        <translation>人差し指の位置または角度</translation>
    </message>
    <message>
        <source>Set Index position or angle</source>
        <translation>人差し指の位置または角度を設定</translation>
    </message>
    <message>
        <source>Index speed</source>
        <translation>人差し指の速度</translation>
    </message>
    <message>
        <source>Index current</source>
        <translation>人差し指の電流</translation>
    </message>
    <message>
        <source>Middle target</source>
        <translation>中指の目標</translation>
    </message>
    <message>
        <source>Middle position or angle</source>
        <translation>中指の位置または角度</translation>
    </message>
    <message>
        <source>Set Middle position or angle</source>
        <translation>中指の位置または角度を設定</translation>
    </message>
    <message>
        <source>Middle speed</source>
        <translation>中指の速度</translation>
    </message>
    <message>
        <source>Middle current</source>
        <translation>中指の電流</translation>
    </message>
    <message>
        <source>Third target</source>
        <translation>薬指の目標</translation>
    </message>
    <message>
        <source>Third position or angle</source>
        <translation>薬指の位置または角度</translation>
    </message>
    <message>
        <source>Set Third position or angle</source>
        <translation>薬指の位置または角度を設定</translation>
    </message>
    <message>
        <source>Third speed</source>
        <translation>薬指の速度</translation>
    </message>
    <message>
        <source>Third current</source>
        <translation>薬指の電流</translation>
    </message>
    <message>
        <source>Little target</source>
        <translation>小指の目標</translation>
    </message>
    <message>
        <source>Little position or angle</source>
        <translation>小指の位置または角度</translation>
    </message>
    <message>
        <source>Set Little position or angle</source>
        <translation>小指の位置または角度を設定</translation>
    </message>
    <message>
        <source>Little speed</source>
        <translation>小指の速度</translation>
    </message>
    <message>
        <source>Little current</source>
        <translation>小指の電流</translation>
    </message>
    <message>
        <source>Thumb root target</source>
        <translation>親指付け根の目標</translation>
    </message>
    <message>
        <source>Thumb root position or angle</source>
        <translation>親指付け根の位置または角度</translation>
    </message>
    <message>
        <source>Set Thumb root position or angle</source>
        <translation>親指付け根の位置または角度を設定</translation>
    </message>
    <message>
        <source>Thumb root speed</source>
        <translation>親指付け根の速度</translation>
    </message>
    <message>
        <source>Thumb root current</source>
        <translation>親指付け根の電流</translation>
    </message>
    <message>
        <source>Running info loaded</source>
        <translation>動作情報を読み込みました</translation>
    </message>
</context>
<context>
    <name>vanto::ScanRunner</name>
    <message>
        <source>Trying node &apos;0x%1&apos;...</source>
        <translation>ノード「0x%1」を確認中...</translation>
    </message>
    <message>
        <source>Scan progress</source>
        <translation>スキャンの進行状況</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>Open port &apos;%1&apos; failed, protocol=%2, baudrate=%3</source>
        <translation>ポート「%1」を開けませんでした、プロトコル=%2、ボーレート=%3</translation>
    </message>
    <message>
        <source>Scans nodes %1 to %2</source>
        <translation>ノード %1 から %2 をスキャンします</translation>
    </message>
</context>
<context>
    <name>vanto::SequenceActions</name>
    <message>
        <source>Cu&amp;t</source>
        <translation>切り取り(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>コピー(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>貼り付け(&amp;P)</translation>
    </message>
    <message>
        <source>De&amp;lete</source>
        <translation>削除(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Insert Before</source>
        <translation>前に挿入(&amp;I)</translation>
    </message>
    <message>
        <source>&amp;Duplicate</source>
        <translation>複製(&amp;D)</translation>
    </message>
    <message>
        <source>Move Do&amp;wn</source>
        <translation>下へ移動(&amp;W)</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>編集(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>元に戻す(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>やり直し(&amp;R)</translation>
    </message>
    <message>
        <source>delete of %1</source>
        <translation>%1の削除</translation>
    </message>
    <message>
        <source>cut of %1</source>
        <translation>%1の切り取り</translation>
    </message>
    <message>
        <source>There are no steps on the clipboard.</source>
        <translation>クリップボードにステップがありません。</translation>
    </message>
    <message>
        <source>The steps on the clipboard have angles, not positions.</source>
        <translation>クリップボードのステップは位置ではなく角度です。</translation>
    </message>
    <message>
        <source>The steps on the clipboard have positions, not angles.</source>
        <translation>クリップボードのステップは角度ではなく位置です。</translation>
    </message>
    <message>
        <source>paste of %1</source>
        <translation>%1の貼り付け</translation>
    </message>
    <message>
        <source>duplicate of %1</source>
        <translation>%1の複製</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <extracomment>&quot;&amp;Undo&quot; or &quot;&amp;Redo&quot;, and the name of the change</extracomment>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>Mo&amp;ve Up</source>
        <translation>上へ移動(&amp;V)</translation>
    </message>
</context>
<context>
    <name>vanto::SequenceDraft</name>
    <message>
        <source>The folder %1 is not writable.</source>
        <translation>フォルダー %1 に書き込めません。</translation>
    </message>
</context>
<context>
    <name>vanto::SequenceEditor</name>
    <message>
        <source>change of the unit</source>
        <translation>単位の変更</translation>
    </message>
    <message>
        <source>move of %1</source>
        <translation>%1の移動</translation>
    </message>
    <message>
        <source>step %1</source>
        <translation>ステップ %1</translation>
    </message>
    <message>
        <source>%1 steps</source>
        <translation>%1 ステップ</translation>
    </message>
    <message>
        <source>loading of %1</source>
        <translation>%1 の読み込み</translation>
    </message>
</context>
<context>
    <name>vanto::SequenceFiles</name>
    <message>
        <source>The draft of the sequence is not saved: %1</source>
        <translation>シーケンスの下書きが保存されていません: %1</translation>
    </message>
    <message>
        <source>No file</source>
        <translation>ファイルなし</translation>
    </message>
    <message>
        <source>%1 (not saved)</source>
        <translation>%1 (未保存)</translation>
    </message>
    <message>
        <source>Choose json file</source>
        <translation>JSON ファイルを選択</translation>
    </message>
    <message>
        <source>Sequence files (*.json)</source>
        <translation>シーケンスファイル (*.json)</translation>
    </message>
    <message>
        <source>%1 cannot be loaded: %2</source>
        <translation>%1 を読み込めません: %2</translation>
    </message>
    <message>
        <source>%1 is not saved: %2</source>
        <translation>%1 は保存されませんでした: %2</translation>
    </message>
    <message>
        <source>Not saved: %1, %2 steps, %3</source>
        <translation>未保存: %1、%2 ステップ、%3</translation>
    </message>
    <message>
        <source>restoring of the unsaved sequence</source>
        <translation>未保存のシーケンスの復元</translation>
    </message>
    <message>
        <source>Not saved: %1, 1 step, %2</source>
        <translation>未保存: %1、1 ステップ、%2</translation>
    </message>
    <message>
        <source>Recent Se&amp;quences</source>
        <translation>最近使ったシーケンス(&amp;Q)</translation>
    </message>
    <message>
        <source>The draft %1 is damaged.</source>
        <translation>下書き %1 は破損しています。</translation>
    </message>
</context>
<context>
    <name>vanto::SequenceManager</name>
    <message>
        <source>Not everything could be written. Is the disk full?</source>
        <translation>一部を書き込めませんでした。ディスクがいっぱいではありませんか?</translation>
    </message>
    <message>
        <source>The file does not exist.</source>
        <translation>ファイルが存在しません。</translation>
    </message>
    <message>
        <source>It is not a regular file.</source>
        <translation>通常のファイルではありません。</translation>
    </message>
    <message>
        <source>The file is larger than 64 MiB.</source>
        <translation>ファイルが 64 MiB を超えています。</translation>
    </message>
    <message>
        <source>The file is not a sequence.</source>
        <translation>ファイルはシーケンスではありません。</translation>
    </message>
</context>
<context>
    <name>vanto::SequencePage</name>
    <message>
        <source>Position or angle</source>
        <translation>位置または角度</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>Angle</source>
        <translation>角度</translation>
    </message>
    <message>
        <source>ticks</source>
        <translation>ticks</translation>
    </message>
    <message>
        <source>Speed:</source>
        <translation>速度:</translation>
    </message>
    <message>
        <source>Thumb target</source>
        <translation>親指の目標</translation>
    </message>
    <message>
        <source>Thumb position or angle</source>
        <translation>親指の位置または角度</translation>
    </message>
    <message>
        <source>Thumb speed</source>
        <translation>親指の速度</translation>
    </message>
    <message>
        <source>Index target</source>
        <translation>人差し指の目標</translation>
    </message>
    <message>
        <source>Index position or angle</source>
        <translation>人差し指の位置または角度</translation>
    </message>
    <message>
        <source>Index speed</source>
        <translation>人差し指の速度</translation>
    </message>
    <message>
        <source>Middle target</source>
        <translation>中指の目標</translation>
    </message>
    <message>
        <source>Middle position or angle</source>
        <translation>中指の位置または角度</translation>
    </message>
    <message>
        <source>Middle speed</source>
        <translation>中指の速度</translation>
    </message>
    <message>
        <source>Third target</source>
        <translation>薬指の目標</translation>
    </message>
    <message>
        <source>Third position or angle</source>
        <translation>薬指の位置または角度</translation>
    </message>
    <message>
        <source>Third speed</source>
        <translation>薬指の速度</translation>
    </message>
    <message>
        <source>Little target</source>
        <translation>小指の目標</translation>
    </message>
    <message>
        <source>Little position or angle</source>
        <translation>小指の位置または角度</translation>
    </message>
    <message>
        <source>Little speed</source>
        <translation>小指の速度</translation>
    </message>
    <message>
        <source>Thumb root target</source>
        <translation>親指付け根の目標</translation>
    </message>
    <message>
        <source>Thumb root position or angle</source>
        <translation>親指付け根の位置または角度</translation>
    </message>
    <message>
        <source>Thumb root speed</source>
        <translation>親指付け根の速度</translation>
    </message>
    <message>
        <source>Steps of the sequence</source>
        <translation>シーケンスのステップ</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>挿入</translation>
    </message>
    <message>
        <source>Insert step</source>
        <translation>ステップを挿入</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>Delete step</source>
        <translation>ステップを削除</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>上へ</translation>
    </message>
    <message>
        <source>Move step up</source>
        <translation>ステップを上へ移動</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>下へ</translation>
    </message>
    <message>
        <source>Move step down</source>
        <translation>ステップを下へ移動</translation>
    </message>
    <message>
        <source>Run</source>
        <translation>実行</translation>
    </message>
    <message>
        <source>Run sequence</source>
        <translation>シーケンスを実行</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>Stop sequence</source>
        <translation>シーケンスを停止</translation>
    </message>
    <message>
        <source>Load</source>
        <translation>読込</translation>
    </message>
    <message>
        <source>Load sequence</source>
        <translation>シーケンスを読み込む</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Save sequence</source>
        <translation>シーケンスを保存</translation>
    </message>
    <message>
        <source>Hands cannot store sequences yet</source>
        <translation>ハンドはまだシーケンスを保存できません</translation>
    </message>
    <message>
        <source>From hand</source>
        <translation>ハンドから</translation>
    </message>
    <message>
        <source>To hand</source>
        <translation>ハンドへ</translation>
    </message>
    <message>
        <source>Run on hand</source>
        <translation>ハンドで実行</translation>
    </message>
    <message>
        <source>Stop on hand</source>
        <translation>ハンドで停止</translation>
    </message>
    <message>
        <source>Delay:</source>
        <translation>待ち時間:</translation>
    </message>
    <message>
        <source>Step delay in milliseconds</source>
        <translation>ステップの待ち時間 (ミリ秒)</translation>
    </message>
    <message>
        <source>ms</source>
        <translation>ms</translation>
    </message>
    <message>
        <source>Thumb Root</source>
        <comment>short</comment>
        <translation>親指付け根</translation>
    </message>
    <message>
        <source>Thumb</source>
        <comment>short</comment>
        <translation>親指</translation>
    </message>
    <message>
        <source>Index</source>
        <comment>short</comment>
        <translation>人差し指</translation>
    </message>
    <message>
        <source>Middle</source>
        <comment>short</comment>
        <translation>中指</translation>
    </message>
    <message>
        <source>Third</source>
        <comment>short</comment>
        <translation>薬指</translation>
    </message>
    <message>
        <source>Little</source>
        <comment>short</comment>
        <translation>小指</translation>
    </message>
    <message>
        <source>Thumb root</source>
        <comment>short</comment>
        <translation>親指付け根</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>復元</translation>
    </message>
    <message>
        <source>Restore unsaved sequence</source>
        <translation>未保存のシーケンスを復元</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>破棄</translation>
    </message>
    <message>
        <source>Discard unsaved sequence</source>
        <translation>未保存のシーケンスを破棄</translation>
    </message>
    <message>
        <source>Repeat:</source>
        <translation>繰り返し:</translation>
    </message>
    <message>
        <source>How often a run is played</source>
        <translation>実行時にシーケンスを再生する回数</translation>
    </message>
    <message>
        <source>endless</source>
        <translation>無限</translation>
    </message>
    <message>
        <source>insertion of %1</source>
        <translation>%1の挿入</translation>
    </message>
    <message>
        <source>delete of %1</source>
        <translation>%1の削除</translation>
    </message>
</context>
<context>
    <name>vanto::SequencePlayer</name>
    <message>
        <source>Thumb</source>
        <translation>親指</translation>
    </message>
    <message>
        <source>Index</source>
        <translation>人差し指</translation>
    </message>
    <message>
        <source>Middle</source>
        <translation>中指</translation>
    </message>
    <message>
        <source>Third</source>
        <translation>薬指</translation>
    </message>
    <message>
        <source>Little</source>
        <translation>小指</translation>
    </message>
    <message>
        <source>Thumb root</source>
        <translation>親指付け根</translation>
    </message>
    <message>
        <source>No VANTO</source>
        <translation>VANTO がありません</translation>
    </message>
    <message>
        <source>%s has too big current: %d mA</source>
        <translation>%sの電流が大きすぎます: %d mA</translation>
    </message>
    <message>
        <source>TIME OUT</source>
        <translation>タイムアウト</translation>
    </message>
    <message>
        <source>%1(0x%2, ...) returned 0x%3 (sub err %4)</source>
        <translation>%1(0x%2, ...) が 0x%3 を返しました (サブエラー %4)</translation>
    </message>
    <message>
        <source>Halted. Press Continue.</source>
        <translation>停止しています。[再開] を押してください。</translation>
    </message>
</context>
<context>
    <name>vanto::SequenceStatus</name>
    <message>
        <source>Step %1: delay %2 ms, speeds %3</source>
        <extracomment>%3 lists the speeds in the order of the columns</extracomment>
        <translation>ステップ %1: 待ち時間 %2 ms、速度 %3</translation>
    </message>
    <message>
        <source>Playing step %1 of %2</source>
        <translation>ステップ %1 / %2 を再生中</translation>
    </message>
    <message>
        <source>%1, round %2</source>
        <translation>%1、%2 回目</translation>
    </message>
    <message>
        <source>%1, round %2 of %3</source>
        <translation>%1、%2 / %3 回目</translation>
    </message>
    <message>
        <source>Moving to step %1</source>
        <translation>ステップ %1 へ移動中</translation>
    </message>
    <message>
        <source>Step %1 lasts %2 s more. Stop ends it.</source>
        <translation>ステップ %1 はあと %2 秒続きます。[停止] で終了します。</translation>
    </message>
    <message>
        <source>Not sent; Return sends it. %1</source>
        <translation>未送信です。Enter キーで送信します。%1</translation>
    </message>
    <message>
        <source>A value is not stored; press Return in its field. %1</source>
        <translation>保存されていない値があります。その欄で Enter キーを押してください。%1</translation>
    </message>
</context>
<context>
    <name>vanto::SettingPage</name>
    <message>
        <source>Thumb</source>
        <translation>親指</translation>
    </message>
    <message>
        <source>Index</source>
        <translation>人差し指</translation>
    </message>
    <message>
        <source>Middle</source>
        <translation>中指</translation>
    </message>
    <message>
        <source>Third</source>
        <translation>薬指</translation>
    </message>
    <message>
        <source>Little</source>
        <translation>小指</translation>
    </message>
    <message>
        <source>Thumb root</source>
        <translation>親指付け根</translation>
    </message>
    <message>
        <source>P:</source>
        <translation>P:</translation>
    </message>
    <message>
        <source>I:</source>
        <translation>I:</translation>
    </message>
    <message>
        <source>D:</source>
        <translation>D:</translation>
    </message>
    <message>
        <source>G:</source>
        <translation>G:</translation>
    </message>
    <message>
        <source>Current Limit:</source>
        <translation>電流上限:</translation>
    </message>
    <message>
        <source>mA</source>
        <translation>mA</translation>
    </message>
    <message>
        <source>Force Limit:</source>
        <translation>力上限:</translation>
    </message>
    <message>
        <source>mN</source>
        <translation>mN</translation>
    </message>
    <message>
        <source>Thumb gain P</source>
        <translation>親指のゲイン P</translation>
    </message>
    <message>
        <source>Thumb gain I</source>
        <translation>親指のゲイン I</translation>
    </message>
    <message>
        <source>Thumb gain D</source>
        <translation>親指のゲイン D</translation>
    </message>
    <message>
        <source>Thumb gain G</source>
        <translation>親指のゲイン G</translation>
    </message>
    <message>
        <source>Read</source>
        <translation>読出</translation>
    </message>
    <message>
        <source>Read Thumb gains</source>
        <translation>親指のゲインを読み出す</translation>
    </message>
    <message>
        <source>Write</source>
        <translation>書込</translation>
    </message>
    <message>
        <source>Write Thumb gains</source>
        <translation>親指のゲインを書き込む</translation>
    </message>
    <message>
        <source>Thumb current limit</source>
        <translation>親指の電流上限</translation>
    </message>
    <message>
        <source>Read Thumb current limit</source>
        <translation>親指の電流上限を読み出す</translation>
    </message>
    <message>
        <source>Write Thumb current limit</source>
        <translation>親指の電流上限を書き込む</translation>
    </message>
    <message>
        <source>Thumb force limit</source>
        <translation>親指の力上限</translation>
    </message>
    <message>
        <source>Read Thumb force limit</source>
        <translation>親指の力上限を読み出す</translation>
    </message>
    <message>
        <source>Write Thumb force limit</source>
        <translation>親指の力上限を書き込む</translation>
    </message>
    <message>
        <source>Index gain P</source>
        <translation>人差し指のゲイン P</translation>
    </message>
    <message>
        <source>Index gain I</source>
        <translation>人差し指のゲイン I</translation>
    </message>
    <message>
        <source>Index gain D</source>
        <translation>人差し指のゲイン D</translation>
    </message>
    <message>
        <source>Index gain G</source>
        <translation>人差し指のゲイン G</translation>
    </message>
    <message>
        <source>Read Index gains</source>
        <translation>人差し指のゲインを読み出す</translation>
    </message>
    <message>
        <source>Write Index gains</source>
        <translation>人差し指のゲインを書き込む</translation>
    </message>
    <message>
        <source>Index current limit</source>
        <translation>人差し指の電流上限</translation>
    </message>
    <message>
        <source>Read Index current limit</source>
        <translation>人差し指の電流上限を読み出す</translation>
    </message>
    <message>
        <source>Write Index current limit</source>
        <translation>人差し指の電流上限を書き込む</translation>
    </message>
    <message>
        <source>Index force limit</source>
        <translation>人差し指の力上限</translation>
    </message>
    <message>
        <source>Read Index force limit</source>
        <translation>人差し指の力上限を読み出す</translation>
    </message>
    <message>
        <source>Write Index force limit</source>
        <translation>人差し指の力上限を書き込む</translation>
    </message>
    <message>
        <source>Middle gain P</source>
        <translation>中指のゲイン P</translation>
    </message>
    <message>
        <source>Middle gain I</source>
        <translation>中指のゲイン I</translation>
    </message>
    <message>
        <source>Middle gain D</source>
        <translation>中指のゲイン D</translation>
    </message>
    <message>
        <source>Middle gain G</source>
        <translation>中指のゲイン G</translation>
    </message>
    <message>
        <source>Read Middle gains</source>
        <translation>中指のゲインを読み出す</translation>
    </message>
    <message>
        <source>Write Middle gains</source>
        <translation>中指のゲインを書き込む</translation>
    </message>
    <message>
        <source>Middle current limit</source>
        <translation>中指の電流上限</translation>
    </message>
    <message>
        <source>Read Middle current limit</source>
        <translation>中指の電流上限を読み出す</translation>
    </message>
    <message>
        <source>Write Middle current limit</source>
        <translation>中指の電流上限を書き込む</translation>
    </message>
    <message>
        <source>Middle force limit</source>
        <translation>中指の力上限</translation>
    </message>
    <message>
        <source>Read Middle force limit</source>
        <translation>中指の力上限を読み出す</translation>
    </message>
    <message>
        <source>Write Middle force limit</source>
        <translation>中指の力上限を書き込む</translation>
    </message>
    <message>
        <source>Third gain P</source>
        <translation>薬指のゲイン P</translation>
    </message>
    <message>
        <source>Third gain I</source>
        <translation>薬指のゲイン I</translation>
    </message>
    <message>
        <source>Third gain D</source>
        <translation>薬指のゲイン D</translation>
    </message>
    <message>
        <source>Third gain G</source>
        <translation>薬指のゲイン G</translation>
    </message>
    <message>
        <source>Read Third gains</source>
        <translation>薬指のゲインを読み出す</translation>
    </message>
    <message>
        <source>Write Third gains</source>
        <translation>薬指のゲインを書き込む</translation>
    </message>
    <message>
        <source>Third current limit</source>
        <translation>薬指の電流上限</translation>
    </message>
    <message>
        <source>Read Third current limit</source>
        <translation>薬指の電流上限を読み出す</translation>
    </message>
    <message>
        <source>Write Third current limit</source>
        <translation>薬指の電流上限を書き込む</translation>
    </message>
    <message>
        <source>Third force limit</source>
        <translation>薬指の力上限</translation>
    </message>
    <message>
        <source>Read Third force limit</source>
        <translation>薬指の力上限を読み出す</translation>
    </message>
    <message>
        <source>Write Third force limit</source>
        <translation>薬指の力上限を書き込む</translation>
    </message>
    <message>
        <source>Little gain P</source>
        <translation>小指のゲイン P</translation>
    </message>
    <message>
        <source>Little gain I</source>
        <translation>小指のゲイン I</translation>
    </message>
    <message>
        <source>Little gain D</source>
        <translation>小指のゲイン D</translation>
    </message>
    <message>
        <source>Little gain G</source>
        <translation>小指のゲイン G</translation>
    </message>
    <message>
        <source>Read Little gains</source>
        <translation>小指のゲインを読み出す</translation>
    </message>
    <message>
        <source>Write Little gains</source>
        <translation>小指のゲインを書き込む</translation>
    </message>
    <message>
        <source>Little current limit</source>
        <translation>小指の電流上限</translation>
    </message>
    <message>
        <source>Read Little current limit</source>
        <translation>小指の電流上限を読み出す</translation>
    </message>
    <message>
        <source>Write Little current limit</source>
        <translation>小指の電流上限を書き込む</translation>
    </message>
    <message>
        <source>Little force limit</source>
        <translation>小指の力上限</translation>
    </message>
    <message>
        <source>Read Little force limit</source>
        <translation>小指の力上限を読み出す</translation>
    </message>
    <message>
        <source>Write Little force limit</source>
        <translation>小指の力上限を書き込む</translation>
    </message>
    <message>
        <source>Thumb root gain P</source>
        <translation>親指付け根のゲイン P</translation>
    </message>
    <message>
        <source>Thumb root gain I</source>
        <translation>親指付け根のゲイン I</translation>
    </message>
    <message>
        <source>Thumb root gain D</source>
        <translation>親指付け根のゲイン D</translation>
    </message>
    <message>
        <source>Thumb root gain G</source>
        <translation>親指付け根のゲイン G</translation>
    </message>
    <message>
        <source>Read Thumb root gains</source>
        <translation>親指付け根のゲインを読み出す</translation>
    </message>
    <message>
        <source>Write Thumb root gains</source>
        <translation>親指付け根のゲインを書き込む</translation>
    </message>
    <message>
        <source>Thumb root current limit</source>
        <translation>親指付け根の電流上限</translation>
    </message>
    <message>
        <source>Read Thumb root current limit</source>
        <translation>親指付け根の電流上限を読み出す</translation>
    </message>
    <message>
        <source>Write Thumb root current limit</source>
        <translation>親指付け根の電流上限を書き込む</translation>
    </message>
    <message>
        <source>Thumb root force limit</source>
        <translation>親指付け根の力上限</translation>
    </message>
    <message>
        <source>Read Thumb root force limit</source>
        <translation>親指付け根の力上限を読み出す</translation>
    </message>
    <message>
        <source>Write Thumb root force limit</source>
        <translation>親指付け根の力上限を書き込む</translation>
    </message>
    <message>
        <source>Setting loaded</source>
        <translation>設定を読み込みました</translation>
    </message>
    <message>
        <source>Please check parameter is complete</source>
        <translation>すべての値が入力されているか確認してください</translation>
    </message>
</context>
<context>
    <name>vanto::StatusReporter</name>
    <message>
        <source>Error</source>
        <translation>エラー</translation>
    </message>
    <message>
        <source>Timeout for %1 node &apos;0x%2&apos;...</source>
        <translation>%1 ノード「0x%2」がタイムアウトしました...</translation>
    </message>
    <message>
        <source>%1(0x%2, ...) returned 0x%3 (sub err %4)</source>
        <translation>%1(0x%2, ...) が 0x%3 を返しました (サブエラー %4)</translation>
    </message>
    <message>
        <source>Halted. Press Continue.</source>
        <translation>停止しています。[再開] を押してください。</translation>
    </message>
</context>
<context>
    <name>vanto::StepInput</name>
    <message>
        <source>delay of %1</source>
        <translation>%1の待ち時間</translation>
    </message>
    <message>
        <source>speed of %1</source>
        <translation>%1の速度</translation>
    </message>
    <message>
        <source>target of %1</source>
        <translation>%1の目標</translation>
    </message>
</context>
<context>
    <name>vanto::StepResults</name>
    <message>
        <source>Copy Peaks as Te&amp;xt</source>
        <translation>ピークをテキストとしてコピー(&amp;X)</translation>
    </message>
    <message>
        <source>Copy Peaks as &amp;JSON</source>
        <translation>ピークを JSON としてコピー(&amp;J)</translation>
    </message>
    <message>
        <source>%1 %2 mA</source>
        <translation>%1 %2 mA</translation>
    </message>
    <message>
        <source>Last run: %1 ms; highest current: %2</source>
        <translation>前回の実行: %1 ms、最大電流: %2</translation>
    </message>
    <message>
        <source>Last run, %1 rounds: at most %2 ms; highest current: %3</source>
        <translation>前回の実行、%1 回: 最大 %2 ms、最大電流: %3</translation>
    </message>
    <message>
        <source>Step</source>
        <translation>ステップ</translation>
    </message>
    <message>
        <source>Time (ms)</source>
        <translation>時間 (ms)</translation>
    </message>
    <message>
        <source>%1 (mA)</source>
        <translation>%1 (mA)</translation>
    </message>
</context>
<context>
    <name>vanto::TelemetryRecorder</name>
    <message>
        <source>&apos;%1&apos; is not a regular file.</source>
        <translation>「%1」は通常のファイルではありません。</translation>
    </message>
    <message>
        <source>Cannot write &apos;%1&apos;: %2</source>
        <translation>「%1」に書き込めません: %2</translation>
    </message>
    <message>
        <source>The recording has ended: cannot write &apos;%1&apos;: %2</source>
        <translation>記録が終了しました:「%1」に書き込めません: %2</translation>
    </message>
</context>
<context>
    <name>vanto::UpdateDialog</name>
    <message>
        <source>Wait a moment...</source>
        <translation>しばらくお待ちください...</translation>
    </message>
    <message>
        <source>Power up the device now</source>
        <translation>デバイスの電源を入れてください</translation>
    </message>
    <message>
        <source>Updating device firmware...</source>
        <translation>デバイスのファームウェアをアップデートしています...</translation>
    </message>
</context>
<context>
    <name>vanto::ValueTable</name>
    <message>
        <source>Measured values</source>
        <translation>測定値</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>Angle (°)</source>
        <translation>角度 (°)</translation>
    </message>
    <message>
        <source>Force</source>
        <translation>力</translation>
    </message>
    <message>
        <source>Current (mA)</source>
        <translation>電流 (mA)</translation>
    </message>
</context>
</TS>
