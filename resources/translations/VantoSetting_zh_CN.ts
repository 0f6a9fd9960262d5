<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
<context>
    <name>BootLoaderLink</name>
    <message>
        <source>Start to update, please keep device power on.</source>
        <translation>开始更新，请保持设备通电。</translation>
    </message>
    <message>
        <source>Waiting for device response, loop %1...</source>
        <translation>正在等待设备响应，第 %1 次...</translation>
    </message>
    <message>
        <source>Update failed.</source>
        <translation>更新失败。</translation>
    </message>
    <message>
        <source>Error when waiting for device.</source>
        <translation>等待设备时出错。</translation>
    </message>
    <message>
        <source>Error when waiting for hardware match flag.</source>
        <translation>等待硬件匹配标志时出错。</translation>
    </message>
    <message>
        <source>Hardware does not match type 0x%1, version 0x%2.</source>
        <translation>硬件与类型 0x%1、版本 0x%2 不匹配。</translation>
    </message>
    <message>
        <source>Hardware type 0x%1, hardware version 0x%2 matched.</source>
        <translation>硬件类型 0x%1、硬件版本 0x%2 匹配。</translation>
    </message>
    <message>
        <source>Transferring... %1 %2% done.</source>
        <translation>正在传输... %1 已完成 %2%。</translation>
    </message>
    <message>
        <source>Failed: Target is not responding.</source>
        <translation>失败：目标设备无响应。</translation>
    </message>
    <message>
        <source>CRC error. File damaged.</source>
        <translation>CRC 错误，文件已损坏。</translation>
    </message>
    <message>
        <source>Transfer 100% done.</source>
        <translation>传输完成 100%。</translation>
    </message>
    <message>
        <source>Device said: 0x%1</source>
        <translation>设备返回：0x%1</translation>
    </message>
</context>
<context>
    <name>CalibrationProcedure</name>
    <message>
        <source>Prepare calibration base and take Vanto up then power on,
presss OK when Vanto is ready.</source>
        <translation>请准备好校准底座，拿起 Vanto 并通电，
Vanto 就绪后按“确定”。</translation>
    </message>
    <message>
        <source>Vanto will reboot if not in calibrating state &amp; calibration key is correct,
press OK when ready</source>
        <translation>若 Vanto 未处于校准状态且校准密钥正确，将会重启，
就绪后按“确定”</translation>
    </message>
    <message>
        <source>Wait for Vanto reboots and beeps 8 times,
press OK when beep finished</source>
        <translation>请等待 Vanto 重启并蜂鸣 8 次，
蜂鸣结束后按“确定”</translation>
    </message>
    <message>
        <source>Put Vanto onto calibration base &amp; push it tightly, move thumb root to right pos, press OK when ready</source>
        <translation>请将 Vanto 放到校准底座上并压紧，把拇指根部移到正确位置，就绪后按“确定”</translation>
    </message>
    <message>
        <source>Take Vanto up,
press OK when ready</source>
        <translation>请拿起 Vanto，
就绪后按“确定”</translation>
    </message>
    <message>
        <source>Move thumb root to right position,
press OK when ready</source>
        <translation>请将拇指根部移到正确位置，
就绪后按“确定”</translation>
    </message>
    <message>
        <source>Calibration finished, you may power off and power on the Vanto now to see the result</source>
        <translation>校准完成，现在可将 Vanto 断电再通电以查看结果</translation>
    </message>
    <message>
        <source>Please input calibration key:</source>
        <translation>请输入校准密钥：</translation>
    </message>
    <message>
        <source>Invalid calibration key</source>
        <translation>校准密钥无效</translation>
    </message>
</context>
<context>
    <name>FirmwareUpdater</name>
    <message>
        <source>Serial port not available</source>
        <translation>串口不可用</translation>
    </message>
    <message>
        <source>Power off the device and remove app other devices from bus, press OK when ready.
Power on the device when prompted.</source>
        <translation>请关闭设备电源并从总线上移除所有其他设备，就绪后按“确定”。
出现提示时再给设备通电。</translation>
    </message>
    <message>
        <source>Please select firmware source:</source>
        <translation>请选择固件来源：</translation>
    </message>
    <message>
        <source>Open update file</source>
        <translation>打开更新文件</translation>
    </message>
    <message>
        <source>Upgrade firmware file (*.upd)</source>
        <translation>固件升级文件 (*.upd)</translation>
    </message>
    <message>
        <source>Hardware &amp; type not read, proceed?</source>
        <translation>尚未读取硬件及类型，是否继续？</translation>
    </message>
    <message>
        <source>Please select hardware type/version:</source>
        <translation>请选择硬件类型/版本：</translation>
    </message>
    <message>
        <source>Please select firmware type:</source>
        <translation>请选择固件类型：</translation>
    </message>
    <message>
        <source>Open file &apos;%1&apos; failed.</source>
        <translation>打开文件“%1”失败。</translation>
    </message>
    <message>
        <source>Invalid update file</source>
        <translation>无效的更新文件</translation>
    </message>
    <message>
        <source>Firmware updated successfully</source>
        <translation>固件更新成功</translation>
    </message>
    <message>
        <source>Firmware update in progress. Please wait until it finishes.</source>
        <translation>正在更新固件，请等待完成。</translation>
    </message>
    <message>
        <source>Reading the list of firmware...</source>
        <translation>正在读取固件列表...</translation>
    </message>
    <message>
        <source>Downloading the firmware...</source>
        <translation>正在下载固件...</translation>
    </message>
</context>
<context>
    <name>HandIdentity</name>
    <message>
        <source>firmware V%1.%2.%3</source>
        <translation>固件 V%1.%2.%3</translation>
    </message>
    <message>
        <source>hardware %1</source>
        <translation>硬件 %1</translation>
    </message>
</context>
<context>
    <name>HandInformation</name>
    <message>
        <source>not supported</source>
        <translation>不支持</translation>
    </message>
    <message>
        <source>refused</source>
        <translation>被拒绝</translation>
    </message>
    <message>
        <source>not read</source>
        <translation>未读取</translation>
    </message>
    <message>
        <source>none</source>
        <translation>无</translation>
    </message>
    <message>
        <source>Node id</source>
        <translation>节点 ID</translation>
    </message>
    <message>
        <source>Protocol</source>
        <translation>协议</translation>
    </message>
    <message>
        <source>Protocol version</source>
        <translation>协议版本</translation>
    </message>
    <message>
        <source>Firmware version</source>
        <translation>固件版本</translation>
    </message>
    <message>
        <source>Hardware type</source>
        <translation>硬件类型</translation>
    </message>
    <message>
        <source>Boot loader</source>
        <translation>引导程序</translation>
    </message>
    <message>
        <source>UID</source>
        <translation>UID</translation>
    </message>
    <message>
        <source>Battery voltage</source>
        <translation>电池电压</translation>
    </message>
    <message>
        <source>Button count</source>
        <translation>按键次数</translation>
    </message>
    <message>
        <source>Usage, total</source>
        <translation>累计使用量</translation>
    </message>
    <message>
        <source>Usage</source>
        <translation>使用量</translation>
    </message>
    <message>
        <source>Thumb root, raw position</source>
        <translation>拇指根部，原始位置</translation>
    </message>
    <message>
        <source>Thumb root, preset</source>
        <translation>拇指根部，预设位置</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>Target position</source>
        <translation>目标位置</translation>
    </message>
    <message>
        <source>Angle (0.01°)</source>
        <translation>角度 (0.01°)</translation>
    </message>
    <message>
        <source>Target angle (0.01°)</source>
        <translation>目标角度 (0.01°)</translation>
    </message>
    <message>
        <source>Current</source>
        <translation>电流</translation>
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
        <translation>已取消。</translation>
    </message>
    <message>
        <source>The hand does not answer.</source>
        <translation>灵巧手无应答。</translation>
    </message>
    <message>
        <source>The port is no longer available.</source>
        <translation>端口已不存在。</translation>
    </message>
    <message>
        <source>The hand has been closed or halted.</source>
        <translation>灵巧手已关闭或已停止。</translation>
    </message>
    <message>
        <source>Another hand answers. Nothing is written to it.</source>
        <translation>另一只灵巧手在应答。不会向其写入任何内容。</translation>
    </message>
    <message>
        <source>Node 255 is every hand on the bus. Nothing is written to it.</source>
        <translation>节点 255 代表总线上的所有灵巧手。不会向其写入任何内容。</translation>
    </message>
</context>
<context>
    <name>NodeDialogs</name>
    <message>
        <source>Both</source>
        <translation>两种</translation>
    </message>
    <message>
        <source>Node (decimal or 0x...):</source>
        <translation>节点（十进制或 0x...）：</translation>
    </message>
    <message>
        <source>Protocol:</source>
        <translation>协议：</translation>
    </message>
    <message>
        <source>Enter a number from 0 to 255.</source>
        <translation>请输入 0 到 255 之间的数字。</translation>
    </message>
    <message>
        <source>First node:</source>
        <translation>第一个节点：</translation>
    </message>
    <message>
        <source>Last node:</source>
        <translation>最后一个节点：</translation>
    </message>
    <message>
        <source>The last node must not be below the first one.</source>
        <translation>最后一个节点不能小于第一个节点。</translation>
    </message>
    <message>
        <source>Node 0 is available only over SerialCtrl. Choose this protocol.</source>
        <translation>节点 0 仅可通过 SerialCtrl 使用。请选择此协议。</translation>
    </message>
</context>
<context>
    <name>ParameterFile</name>
    <message>
        <source>The folder %1 cannot be created.</source>
        <translation>无法创建文件夹 %1。</translation>
    </message>
    <message>
        <source>The file does not exist.</source>
        <translation>文件不存在。</translation>
    </message>
    <message>
        <source>This is not a regular file.</source>
        <translation>这不是普通文件。</translation>
    </message>
    <message>
        <source>line %1, offset %2</source>
        <translation>第 %1 行，偏移 %2</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>文件为空。</translation>
    </message>
    <message>
        <source>The file is larger than 1 MiB.</source>
        <translation>文件大于 1 MiB。</translation>
    </message>
    <message>
        <source>This is not valid JSON (%1): %2</source>
        <translation>这不是有效的 JSON（%1）：%2</translation>
    </message>
    <message>
        <source>This is a sequence, not hand parameters.</source>
        <translation>这是序列，不是灵巧手参数。</translation>
    </message>
    <message>
        <source>This is not a file of hand parameters: &quot;kind&quot; is not &quot;%1&quot;.</source>
        <translation>这不是灵巧手参数文件：“kind”不是“%1”。</translation>
    </message>
    <message>
        <source>the file comes from a newer program (version %1, this program reads version %2)</source>
        <translation>文件来自较新版本的程序（版本 %1，本程序可读取版本 %2）</translation>
    </message>
    <message>
        <source>expected %1, found %2</source>
        <translation>应为 %1，实际为 %2</translation>
    </message>
    <message>
        <source>expected a time such as &quot;2026-11-22T06:25:17Z&quot;, found %1</source>
        <translation>应为时间（例如“2026-11-22T06:25:17Z”），实际为 %1</translation>
    </message>
    <message>
        <source>expected an integer from 0 to 255, found %1</source>
        <translation>应为 0 到 255 之间的整数，实际为 %1</translation>
    </message>
    <message>
        <source>%1 is not valid</source>
        <translation>%1 无效</translation>
    </message>
    <message>
        <source>there is no such finger</source>
        <translation>没有此手指</translation>
    </message>
    <message>
        <source>expected an object, found %1</source>
        <translation>应为对象，实际为 %1</translation>
    </message>
    <message>
        <source>expected a text, found %1</source>
        <translation>应为文本，实际为 %1</translation>
    </message>
    <message>
        <source>expected an array of %1 numbers, found %2</source>
        <translation>应为包含 %1 个数字的数组，实际为 %2</translation>
    </message>
    <message>
        <source>expected a number, found %1</source>
        <translation>应为数字，实际为 %1</translation>
    </message>
    <message>
        <source>unknown key</source>
        <translation>未知的键</translation>
    </message>
</context>
<context>
    <name>Parameters</name>
    <message>
        <source>Current limit</source>
        <translation>电流上限</translation>
    </message>
    <message>
        <source>Force limit</source>
        <translation>力上限</translation>
    </message>
    <message>
        <source>Position limits</source>
        <translation>位置限制</translation>
    </message>
    <message>
        <source>Self-test level</source>
        <translation>自检级别</translation>
    </message>
    <message>
        <source>Beep switch</source>
        <translation>蜂鸣开关</translation>
    </message>
    <message>
        <source>Calibration</source>
        <translation>校准</translation>
    </message>
    <message>
        <source>Thumb</source>
        <translation>拇指</translation>
    </message>
    <message>
        <source>Index</source>
        <translation>食指</translation>
    </message>
    <message>
        <source>Middle</source>
        <translation>中指</translation>
    </message>
    <message>
        <source>Third</source>
        <translation>无名指</translation>
    </message>
    <message>
        <source>Little</source>
        <translation>小指</translation>
    </message>
    <message>
        <source>Thumb root</source>
        <translation>拇指根部</translation>
    </message>
    <message>
        <source>The file does not have this value.</source>
        <translation>文件中没有此值。</translation>
    </message>
    <message>
        <source>The hand does not give this value.</source>
        <translation>灵巧手不提供此值。</translation>
    </message>
    <message>
        <source>Not representable: over Modbus gains range from 0 to 655.35.</source>
        <translation>无法表示：通过 Modbus 时增益范围为 0 到 655.35。</translation>
    </message>
    <message>
        <source>Node id</source>
        <translation>节点 ID</translation>
    </message>
    <message>
        <source>Protocol</source>
        <translation>协议</translation>
    </message>
    <message>
        <source>Firmware</source>
        <translation>固件</translation>
    </message>
    <message>
        <source>Hardware</source>
        <translation>硬件</translation>
    </message>
    <message>
        <source>Boot loader</source>
        <translation>引导程序</translation>
    </message>
    <message>
        <source>UID</source>
        <translation>UID</translation>
    </message>
    <message>
        <source>%1: not a number</source>
        <translation>%1：不是数字</translation>
    </message>
    <message>
        <source>%1: no answer</source>
        <translation>%1：无应答</translation>
    </message>
    <message>
        <source>%1: refused (result %2, sub error %3)</source>
        <translation>%1：被拒绝（结果 %2，子错误 %3）</translation>
    </message>
    <message>
        <source>written</source>
        <translation>已写入</translation>
    </message>
    <message>
        <source>refused (result %1, sub error %2)</source>
        <translation>被拒绝（结果 %1，子错误 %2）</translation>
    </message>
    <message>
        <source>not kept (%1)</source>
        <translation>未保留（%1）</translation>
    </message>
    <message>
        <source>not kept</source>
        <translation>未保留</translation>
    </message>
    <message>
        <source>no answer</source>
        <translation>无应答</translation>
    </message>
    <message>
        <source>Not known: values range from 0 to %1.</source>
        <translation>未知：取值范围为 0 到 %1。</translation>
    </message>
    <message>
        <source>%1: no valid answer (result %2)</source>
        <translation>%1：无有效应答（结果 %2）</translation>
    </message>
    <message>
        <source>no answer, the hand may have a part of it</source>
        <translation>无应答，灵巧手可能只写入了一部分</translation>
    </message>
</context>
<context>
    <name>PortError</name>
    <message>
        <source>No port is selected. Plug in the hand&apos;s adapter and click Refresh.</source>
        <translation>未选择端口。请插入灵巧手的适配器，然后按“刷新”。</translation>
    </message>
    <message>
        <source>The port is no longer available. Plug the adapter in again and click Refresh.</source>
        <translation>端口已不存在。请重新插入适配器，然后按“刷新”。</translation>
    </message>
    <message>
        <source>You do not have permission to use this port. It belongs to the group &quot;%1&quot;. To join that group, run
    sudo usermod -aG %1 $USER
and log in again.</source>
        <translation>没有使用此端口的权限。它属于用户组“%1”，请用以下命令加入该组
    sudo usermod -aG %1 $USER
然后重新登录。</translation>
    </message>
    <message>
        <source>Another program is using this port. Close it and try again. (ModemManager may use a new adapter for a few seconds.)</source>
        <translation>此端口正被其他程序占用，请关闭该程序后重试。（ModemManager 会占用新插入的适配器数秒。）</translation>
    </message>
</context>
<context>
    <name>PortList</name>
    <message>
        <source>Serial number %1</source>
        <translation>序列号 %1</translation>
    </message>
    <message>
        <source>added by VANTO_PORTS</source>
        <translation>由 VANTO_PORTS 添加</translation>
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
        <translation>未保存。按回车键发送并保存。</translation>
    </message>
</context>
<context>
    <name>Theme</name>
    <message>
        <source>Please select style:</source>
        <translation>请选择主题：</translation>
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
        <translation>正在处理更新文件 - %1%...</translation>
    </message>
    <message>
        <source>Hardware type: 0x%1, ver: 0x%2</source>
        <translation>硬件类型：0x%1，版本：0x%2</translation>
    </message>
    <message>
        <source>Invalid update file.</source>
        <translation>无效的更新文件。</translation>
    </message>
    <message>
        <source>File damaged.</source>
        <translation>文件已损坏。</translation>
    </message>
    <message>
        <source>Open file &apos;%1&apos; failed.</source>
        <translation>打开文件“%1”失败。</translation>
    </message>
</context>
<context>
    <name>UpdateFirmware</name>
    <message>
        <source>Failed when openning port &apos;%1&apos;.</source>
        <translation>打开端口“%1”时失败。</translation>
    </message>
</context>
<context>
    <name>vanto::ActionMarkers</name>
    <message>
        <source>Write %1: P %2, I %3, D %4, G %5</source>
        <translation>写入%1：P %2，I %3，D %4，G %5</translation>
    </message>
    <message>
        <source>Write %1: current limit %2</source>
        <translation>写入%1：电流上限 %2</translation>
    </message>
    <message>
        <source>Write %1: force limit %2</source>
        <translation>写入%1：力上限 %2</translation>
    </message>
    <message>
        <source>Write %1: position limits %2, %3</source>
        <translation>写入%1：位置限制 %2，%3</translation>
    </message>
    <message>
        <source>Write self-test level %1</source>
        <translation>写入自检级别 %1</translation>
    </message>
    <message>
        <source>Write beep switch %1</source>
        <translation>写入蜂鸣开关 %1</translation>
    </message>
    <message>
        <source>Write calibration</source>
        <translation>写入校准</translation>
    </message>
    <message>
        <source>Init</source>
        <translation>初始化</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>复位</translation>
    </message>
    <message>
        <source>Calibrate</source>
        <translation>校准</translation>
    </message>
    <message>
        <source>Set %1: %2</source>
        <translation>设置%1：%2</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>继续</translation>
    </message>
    <message>
        <source>Halt</source>
        <translation>急停</translation>
    </message>
    <message>
        <source>Step %1</source>
        <translation>步骤 %1</translation>
    </message>
    <message>
        <source>%1 (and %2 more)</source>
        <translation>%1（另有 %2 个）</translation>
    </message>
</context>
<context>
    <name>vanto::BasicPage</name>
    <message>
        <source>Wait for command</source>
        <translation>等待命令</translation>
    </message>
    <message>
        <source>Stretch only</source>
        <translation>仅伸展</translation>
    </message>
    <message>
        <source>Full self-test</source>
        <translation>完整自检</translation>
    </message>
    <message>
        <source>Basic Only</source>
        <translation>仅基本</translation>
    </message>
    <message>
        <source>All</source>
        <translation>全部</translation>
    </message>
    <message>
        <source>Unknown protocol</source>
        <translation>未知协议</translation>
    </message>
    <message>
        <source>Basic info loaded</source>
        <translation>基本信息已加载</translation>
    </message>
    <message>
        <source>getSelfTestLevel(0x%1, ...) got invalid value &apos;%2&apos;</source>
        <translation>getSelfTestLevel(0x%1, ...) 得到无效值“%2”</translation>
    </message>
    <message>
        <source>getBeepSwitch(0x%1, ...) got invalid value &apos;%1&apos;</source>
        <translation>getBeepSwitch(0x%1, ...) 得到无效值“%1”</translation>
    </message>
    <message>
        <source>Please input new node id:</source>
        <translation>请输入新的节点 ID：</translation>
    </message>
    <message>
        <source>node id changed from &apos;0x%1&apos; to &apos;0x%2&apos;, please wait for device rebooting then rescan devices</source>
        <translation>节点 ID 已由“0x%1”改为“0x%2”，请等设备重启后重新扫描</translation>
    </message>
    <message>
        <source>node id changed from &apos;0x%1&apos; to &apos;0x%2&apos;, need to rescan devices</source>
        <translation>节点 ID 已由“0x%1”改为“0x%2”，请重新扫描设备</translation>
    </message>
    <message>
        <source>Beep succeeded</source>
        <translation>蜂鸣成功</translation>
    </message>
    <message>
        <source>Invalid self-test level &apos;%1&apos;</source>
        <translation>无效的自检级别“%1”</translation>
    </message>
    <message>
        <source>Set self-test level succeeded</source>
        <translation>自检级别设置成功</translation>
    </message>
    <message>
        <source>Invalid beep switch level &apos;%d&apos;</source>
        <translation>无效的蜂鸣设置“%d”</translation>
    </message>
    <message>
        <source>Set beep switch succeeded</source>
        <translation>蜂鸣开关设置成功</translation>
    </message>
    <message>
        <source>Start init succeeded</source>
        <translation>初始化已启动</translation>
    </message>
    <message>
        <source>Reset succeeded</source>
        <translation>复位成功</translation>
    </message>
    <message>
        <source>Firmware Version:</source>
        <translation>固件版本：</translation>
    </message>
    <message>
        <source>Firmware Version</source>
        <translation>固件版本</translation>
    </message>
    <message>
        <source>Protocol Version:</source>
        <translation>协议版本：</translation>
    </message>
    <message>
        <source>Protocol Version</source>
        <translation>协议版本</translation>
    </message>
    <message>
        <source>Hardware Type &amp; Version:</source>
        <translation>硬件类型和版本：</translation>
    </message>
    <message>
        <source>Hardware Type and Version</source>
        <translation>硬件类型和版本</translation>
    </message>
    <message>
        <source>Boot Loader Version:</source>
        <translation>引导程序版本：</translation>
    </message>
    <message>
        <source>Boot Loader Version</source>
        <translation>引导程序版本</translation>
    </message>
    <message>
        <source>Self Test Level:</source>
        <translation>自检级别：</translation>
    </message>
    <message>
        <source>Self Test Level</source>
        <translation>自检级别</translation>
    </message>
    <message>
        <source>Set</source>
        <translation>设置</translation>
    </message>
    <message>
        <source>Set self-test level</source>
        <translation>设置自检级别</translation>
    </message>
    <message>
        <source>Beep Switch:</source>
        <translation>蜂鸣开关：</translation>
    </message>
    <message>
        <source>Beep Switch</source>
        <translation>蜂鸣开关</translation>
    </message>
    <message>
        <source>Set beep switch</source>
        <translation>设置蜂鸣开关</translation>
    </message>
    <message>
        <source>Pos Calibration:</source>
        <translation>位置校准：</translation>
    </message>
    <message>
        <source>Thumb</source>
        <translation>拇指</translation>
    </message>
    <message>
        <source>Thumb calibrated start position</source>
        <translation>拇指校准起始位置</translation>
    </message>
    <message>
        <source>~</source>
        <translation>~</translation>
    </message>
    <message>
        <source>Thumb calibrated end position</source>
        <translation>拇指校准结束位置</translation>
    </message>
    <message>
        <source>Index</source>
        <translation>食指</translation>
    </message>
    <message>
        <source>Index calibrated start position</source>
        <translation>食指校准起始位置</translation>
    </message>
    <message>
        <source>Index calibrated end position</source>
        <translation>食指校准结束位置</translation>
    </message>
    <message>
        <source>Middle</source>
        <translation>中指</translation>
    </message>
    <message>
        <source>Middle calibrated start position</source>
        <translation>中指校准起始位置</translation>
    </message>
    <message>
        <source>Middle calibrated end position</source>
        <translation>中指校准结束位置</translation>
    </message>
    <message>
        <source>Third</source>
        <translation>无名指</translation>
    </message>
    <message>
        <source>Third calibrated start position</source>
        <translation>无名指校准起始位置</translation>
    </message>
    <message>
        <source>Third calibrated end position</source>
        <translation>无名指校准结束位置</translation>
    </message>
    <message>
        <source>Little</source>
        <translation>小指</translation>
    </message>
    <message>
        <source>Little calibrated start position</source>
        <translation>小指校准起始位置</translation>
    </message>
    <message>
        <source>Little calibrated end position</source>
        <translation>小指校准结束位置</translation>
    </message>
    <message>
        <source>Thumb root</source>
        <translation>拇指根部</translation>
    </message>
    <message>
        <source>Thumb root calibrated start position</source>
        <translation>拇指根部校准起始位置</translation>
    </message>
    <message>
        <source>Thumb root calibrated end position</source>
        <translation>拇指根部校准结束位置</translation>
    </message>
    <message>
        <source>Thumb Root Pos:</source>
        <translation>拇指根部位置：</translation>
    </message>
    <message>
        <source>Thumb root position 1</source>
        <translation>拇指根部位置 1</translation>
    </message>
    <message>
        <source>Thumb root position 2</source>
        <translation>拇指根部位置 2</translation>
    </message>
    <message>
        <source>Thumb root position 3</source>
        <translation>拇指根部位置 3</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>重新加载</translation>
    </message>
    <message>
        <source>Set ID</source>
        <translation>设置 ID</translation>
    </message>
    <message>
        <source>Beep</source>
        <translation>蜂鸣</translation>
    </message>
    <message>
        <source>Init</source>
        <translation>初始化</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>复位</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>更新固件</translation>
    </message>
    <message>
        <source>Calibrate</source>
        <translation>校准</translation>
    </message>
</context>
<context>
    <name>vanto::CalibratingDialog</name>
    <message>
        <source>Thumb Root Pos:</source>
        <translation>拇指根部位置：</translation>
    </message>
    <message>
        <source>Thumb root position</source>
        <translation>拇指根部位置</translation>
    </message>
    <message>
        <source>The thumb root moves to this position at once</source>
        <translation>拇指根部会立即移动到该位置</translation>
    </message>
</context>
<context>
    <name>vanto::ConnectionView</name>
    <message>
        <source>The port has been lost. Check the cable.</source>
        <translation>端口已丢失。请检查电缆。</translation>
    </message>
    <message>
        <source>The hand does not answer. Check its power.</source>
        <translation>灵巧手无应答。请检查其电源。</translation>
    </message>
    <message>
        <source>The hand answers again</source>
        <translation>灵巧手恢复应答</translation>
    </message>
    <message>
        <source>Reconnected</source>
        <translation>已重新连接</translation>
    </message>
    <message>
        <source>Another hand answers (%1). It has not been opened.</source>
        <translation>另一只灵巧手在应答（%1）。未打开它。</translation>
    </message>
    <message>
        <source>Choose a port and click Scan.</source>
        <translation>请选择端口并点击扫描。</translation>
    </message>
    <message>
        <source>Hands that answer are added to the devices. Stop ends the scan.</source>
        <translation>应答的灵巧手会加入设备列表。停止按钮结束扫描。</translation>
    </message>
    <message>
        <source>The hand is ready.</source>
        <translation>灵巧手已就绪。</translation>
    </message>
    <message>
        <source>Check the hand&apos;s power and its side of the cable.
It is asked once a second until it answers.</source>
        <translation>请检查灵巧手的电源及其一侧的电缆。
在应答之前每秒询问一次。</translation>
    </message>
    <message>
        <source>Connect the adapter again. It is looked for once a second.
Reload on the Basic page tries to open the port at once.</source>
        <translation>请重新连接适配器。每秒查找一次。
基本页面上的重新加载会立即尝试打开端口。</translation>
    </message>
    <message>
        <source>Scan again, or open the node in the Options menu.</source>
        <translation>请重新扫描，或在选项菜单中打开节点。</translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation>未连接</translation>
    </message>
    <message>
        <source>Scanning</source>
        <translation>正在扫描</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>已连接</translation>
    </message>
    <message>
        <source>No answer</source>
        <translation>无应答</translation>
    </message>
    <message>
        <source>Port lost</source>
        <translation>端口丢失</translation>
    </message>
    <message>
        <source>No hand chosen</source>
        <translation>未选择灵巧手</translation>
    </message>
    <message>
        <source>Connection: %1</source>
        <translation>连接：%1</translation>
    </message>
    <message>
        <source>The port cannot be opened again. %1</source>
        <translation>无法重新打开端口。%1</translation>
    </message>
    <message>
        <source>Connect the adapter again, choose its port and click Scan.</source>
        <translation>请重新连接适配器，选择其端口并点击扫描。</translation>
    </message>
    <message>
        <source>Continue ends a halt.</source>
        <translation>“继续”结束停止状态。</translation>
    </message>
    <message>
        <source>The port is back. The hand does not answer yet.</source>
        <translation>端口已恢复，但手尚未应答。</translation>
    </message>
    <message>
        <source>Every hand answers to node 255 over SerialCtrl.
With several hands on the bus, all of them act and their replies collide.</source>
        <translation>通过 SerialCtrl，每只手都会应答节点 255。
总线上有多只手时，它们都会动作，应答会冲突。</translation>
    </message>
</context>
<context>
    <name>vanto::CopyGainsDialog</name>
    <message>
        <source>Gains in the file of:</source>
        <translation>使用文件中此手指的增益：</translation>
    </message>
    <message>
        <source>Copy to:</source>
        <translation>复制到：</translation>
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
        <translation>游标 %1</translation>
    </message>
    <message>
        <source>Values at the cursors and between them</source>
        <translation>游标处及其间的值</translation>
    </message>
    <message>
        <source>Cursor 1</source>
        <translation>游标 1</translation>
    </message>
    <message>
        <source>Cursor 2</source>
        <translation>游标 2</translation>
    </message>
    <message>
        <source>Minimum</source>
        <translation>最小值</translation>
    </message>
    <message>
        <source>Mean</source>
        <translation>平均值</translation>
    </message>
    <message>
        <source>Maximum</source>
        <translation>最大值</translation>
    </message>
    <message>
        <source>%1 s apart</source>
        <translation>相距 %1 s</translation>
    </message>
    <message>
        <source>The recording is too large for means: it is shown as minima and maxima of groups of samples.</source>
        <translation>录制文件过大，无法计算平均值：以各组采样的最小值和最大值显示。</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>finger, quantity</comment>
        <translation>%1，%2</translation>
    </message>
</context>
<context>
    <name>vanto::DeviceBar</name>
    <message>
        <source>Unknown device protocol type</source>
        <translation>未知的设备协议类型</translation>
    </message>
    <message>
        <source>Unknown device protocol version</source>
        <translation>未知的设备协议版本</translation>
    </message>
    <message>
        <source>Unknown device name</source>
        <translation>未知的设备名称</translation>
    </message>
    <message>
        <source>Unsupported protocol version</source>
        <translation>不支持的协议版本</translation>
    </message>
    <message>
        <source>node &apos;0x%1&apos; found, firmware version: %2.%3.%4</source>
        <translation>找到节点“0x%1”，固件版本：%2.%3.%4</translation>
    </message>
    <message>
        <source>Port:</source>
        <translation>端口：</translation>
    </message>
    <message>
        <source>Serial port</source>
        <translation>串口</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>刷新</translation>
    </message>
    <message>
        <source>Refresh ports</source>
        <translation>刷新端口列表</translation>
    </message>
    <message>
        <source>Device:</source>
        <translation>设备：</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>设备</translation>
    </message>
    <message>
        <source>Scan</source>
        <translation>扫描</translation>
    </message>
    <message>
        <source>Scan for devices</source>
        <translation>扫描设备</translation>
    </message>
    <message>
        <source>No hand answers at node %1.</source>
        <translation>节点 %1 没有灵巧手应答。</translation>
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
        <translation>显示此手指的曲线</translation>
    </message>
</context>
<context>
    <name>vanto::FirmwareDownload</name>
    <message>
        <source>Error when saving firmware file.</source>
        <translation>保存固件文件时出错。</translation>
    </message>
    <message>
        <source>Error when reading version file from server.</source>
        <translation>从服务器读取版本文件时出错。</translation>
    </message>
    <message>
        <source>Error when parsing version file.</source>
        <translation>解析版本文件时出错。</translation>
    </message>
    <message>
        <source>Error when reading firmware file from server.</source>
        <translation>从服务器读取固件文件时出错。</translation>
    </message>
</context>
<context>
    <name>vanto::ForcePage</name>
    <message>
        <source>This hand has force sensors. Set its force limits on the Setting page.</source>
        <translation>此灵巧手带有力传感器，请在“参数”页设置力上限。</translation>
    </message>
</context>
<context>
    <name>vanto::HaltControl</name>
    <message>
        <source>The port is lost; nothing can be sent. Switch the power off.</source>
        <translation>端口已丢失，无法发送。请切断电源。</translation>
    </message>
    <message>
        <source>Continued</source>
        <translation>已继续</translation>
    </message>
    <message>
        <source>The hand does not answer. Press Continue again.</source>
        <translation>手没有应答。请再次按“继续”。</translation>
    </message>
    <message>
        <source>Halting</source>
        <translation>正在停止</translation>
    </message>
    <message>
        <source>Halted</source>
        <translation>已停止</translation>
    </message>
    <message>
        <source>Halt not confirmed. Switch the power off.</source>
        <translation>停止未确认。请切断电源。</translation>
    </message>
    <message>
        <source>Stop sent to all hands, not confirmed. Switch the power off.</source>
        <translation>已向所有手发送停止，未确认。请切断电源。</translation>
    </message>
    <message>
        <source>Halt</source>
        <translation>急停</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>继续</translation>
    </message>
    <message>
        <source>Halt not
confirmed</source>
        <translation>停止
未确认</translation>
    </message>
    <message>
        <source>The fingers are held. Continue allows motions again.</source>
        <translation>手指被保持。“继续”将重新允许运动。</translation>
    </message>
    <message>
        <source>Stops all fingers at once (Esc, Pause, Shift+Esc)</source>
        <translation>立即停止所有手指（Esc、Pause、Shift+Esc）</translation>
    </message>
</context>
<context>
    <name>vanto::HandInformationDialog</name>
    <message>
        <source>Hand information</source>
        <translation>灵巧手信息</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>值</translation>
    </message>
    <message>
        <source>Hand Information</source>
        <translation>灵巧手信息</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Save Report...</source>
        <translation>保存报告...</translation>
    </message>
    <message>
        <source>Saves this, all parameters, the messages and the last frames</source>
        <translation>保存这些信息、所有参数、消息和最近的数据帧</translation>
    </message>
    <message>
        <source>Save report</source>
        <translation>保存报告</translation>
    </message>
    <message>
        <source>Text files (*.txt)</source>
        <translation>文本文件 (*.txt)</translation>
    </message>
    <message>
        <source>JSON files (*.json)</source>
        <translation>JSON 文件 (*.json)</translation>
    </message>
    <message>
        <source>The report could not be saved in &apos;%1&apos;.</source>
        <translation>无法将报告保存到“%1”。</translation>
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
        <translation>参数</translation>
    </message>
    <message>
        <source>Run</source>
        <comment>page</comment>
        <translation>运行</translation>
    </message>
    <message>
        <source>Force</source>
        <translation>力</translation>
    </message>
    <message>
        <source>Sequence</source>
        <translation>序列</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>文件(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Options</source>
        <translation>选项(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>帮助(&amp;H)</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>退出(&amp;X)</translation>
    </message>
    <message>
        <source>Force &amp;Update</source>
        <translation>强制更新(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Theme</source>
        <translation>主题(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>关于(&amp;A)</translation>
    </message>
    <message>
        <source>

Supported protocol:</source>
        <translation>

支持的协议：</translation>
    </message>
    <message>
        <source>
    SerialCtrl Protocol Ver %1.x</source>
        <translation>
    SerialCtrl 协议 Ver %1.x</translation>
    </message>
    <message>
        <source>
    ModBus-RTU Protocol Ver %1.x</source>
        <translation>
    ModBus-RTU 协议 Ver %1.x</translation>
    </message>
    <message>
        <source>&amp;Open Node...</source>
        <translation>打开节点(&amp;O)...</translation>
    </message>
    <message>
        <source>Scan &amp;Range...</source>
        <translation>扫描范围(&amp;R)...</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>视图(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Messages...</source>
        <translation>消息(&amp;M)...</translation>
    </message>
    <message>
        <source>&amp;Save Hand Parameters...</source>
        <translation>保存灵巧手参数(&amp;S)...</translation>
    </message>
    <message>
        <source>&amp;Compare and Restore...</source>
        <translation>比较并恢复(&amp;C)...</translation>
    </message>
    <message>
        <source>Hand &amp;Information...</source>
        <translation>灵巧手信息(&amp;I)...</translation>
    </message>
    <message>
        <source>M&amp;onitor</source>
        <translation>监视器(&amp;O)</translation>
    </message>
</context>
<context>
    <name>vanto::MessageList</name>
    <message>
        <source>Messages</source>
        <translation>消息</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Save...</source>
        <translation>保存...</translation>
    </message>
    <message>
        <source>Save messages</source>
        <translation>保存消息</translation>
    </message>
    <message>
        <source>Text files (*.txt)</source>
        <translation>文本文件 (*.txt)</translation>
    </message>
    <message>
        <source>The messages could not be saved in &apos;%1&apos;.</source>
        <translation>无法将消息保存到 &apos;%1&apos;。</translation>
    </message>
</context>
<context>
    <name>vanto::MessageLog</name>
    <message>
        <source>(x %1), last %2</source>
        <translation>(x %1)，最后 %2</translation>
    </message>
</context>
<context>
    <name>vanto::Modeless</name>
    <message>
        <source>&apos;%1&apos; already exists.</source>
        <translation>&apos;%1&apos; 已存在。</translation>
    </message>
    <message>
        <source>Do you want to replace it?</source>
        <translation>是否替换？</translation>
    </message>
</context>
<context>
    <name>vanto::MonitorDock</name>
    <message>
        <source>Monitor</source>
        <translation>监视器</translation>
    </message>
    <message>
        <source>Current</source>
        <translation>电流</translation>
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
        <translation>每秒采样数</translation>
    </message>
    <message>
        <source>%1 Hz</source>
        <translation>%1 Hz</translation>
    </message>
    <message>
        <source>As fast as possible</source>
        <translation>尽可能快</translation>
    </message>
    <message>
        <source>Shown time</source>
        <translation>显示时长</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 秒</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>暂停</translation>
    </message>
    <message>
        <source>Keeps the plot as it is, to drag and zoom it. Sampling goes on.</source>
        <translation>保持曲线图不变，以便拖动和缩放。采样继续进行。</translation>
    </message>
    <message>
        <source>Text of the marker</source>
        <translation>标记的文本</translation>
    </message>
    <message>
        <source>Mark</source>
        <translation>标记</translation>
    </message>
    <message>
        <source>Open Recording...</source>
        <translation>打开录制文件...</translation>
    </message>
    <message>
        <source>Save Picture...</source>
        <translation>保存图片...</translation>
    </message>
    <message>
        <source>hand opened</source>
        <translation>灵巧手已打开</translation>
    </message>
    <message>
        <source>%1 Hz, %2 recorded</source>
        <translation>%1 Hz，已录制 %2 个采样</translation>
    </message>
    <message>
        <source>%1 samples recorded in &apos;%2&apos;.</source>
        <translation>已将 %1 个采样录制到“%2”。</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>录制</translation>
    </message>
    <message>
        <source>Recordings (*.csv)</source>
        <translation>录制文件 (*.csv)</translation>
    </message>
    <message>
        <source>Stop Recording</source>
        <translation>停止录制</translation>
    </message>
    <message>
        <source>Record...</source>
        <translation>录制...</translation>
    </message>
    <message>
        <source>mark</source>
        <translation>标记</translation>
    </message>
    <message>
        <source>%1 min</source>
        <translation>%1 分钟</translation>
    </message>
    <message>
        <source>Recording stopped because the monitor is hidden: %1 samples in &apos;%2&apos;.</source>
        <translation>监视器已隐藏，录制已停止：%1 个采样，“%2”。</translation>
    </message>
</context>
<context>
    <name>vanto::MonitorPlot</name>
    <message>
        <source>Plot of the measured values</source>
        <translation>测量值曲线图</translation>
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
        <translation>时间 (s)</translation>
    </message>
    <message>
        <source>Limit %1 mA</source>
        <translation>上限 %1 mA</translation>
    </message>
    <message>
        <source>Player %1 mA</source>
        <translation>播放 %1 mA</translation>
    </message>
    <message>
        <source>Left and Right move the time, Plus and Minus zoom it, Home returns.</source>
        <translation>左右键移动时间，加减键缩放，Home 键返回。</translation>
    </message>
    <message>
        <source>Current (mA)</source>
        <translation>电流 (mA)</translation>
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
        <translation>关闭</translation>
    </message>
    <message>
        <source>Close the notice</source>
        <translation>关闭通知</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>显示</translation>
    </message>
</context>
<context>
    <name>vanto::OverlayBar</name>
    <message>
        <source>At the last marker</source>
        <translation>对齐最后一个标记</translation>
    </message>
    <message>
        <source>Time of the overlay that is aligned</source>
        <translation>叠加曲线中用于对齐的时刻</translation>
    </message>
    <message>
        <source>at </source>
        <translation>位于 </translation>
    </message>
    <message>
        <source> s</source>
        <translation> s</translation>
    </message>
    <message>
        <source>Where it is placed</source>
        <translation>放置的时刻</translation>
    </message>
    <message>
        <source>Moves the overlay to each new marker</source>
        <translation>将叠加曲线移到每个新标记处</translation>
    </message>
    <message>
        <source>Remove Overlay</source>
        <translation>移除叠加曲线</translation>
    </message>
    <message>
        <source>Overlay: %1</source>
        <translation>叠加：%1</translation>
    </message>
    <message>
        <source>%1, %2 s</source>
        <comment>marker, time</comment>
        <translation>%1，%2 s</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>开始</translation>
    </message>
</context>
<context>
    <name>vanto::ParameterActions</name>
    <message>
        <source>Parameter files (*.json)</source>
        <translation>参数文件 (*.json)</translation>
    </message>
    <message>
        <source>Reading the parameters of the hand...</source>
        <translation>正在读取灵巧手的参数...</translation>
    </message>
    <message>
        <source>Save hand parameters</source>
        <translation>保存灵巧手参数</translation>
    </message>
    <message>
        <source>Parameters saved in &apos;%1&apos;</source>
        <translation>参数已保存到“%1”</translation>
    </message>
    <message>
        <source>Open parameter file</source>
        <translation>打开参数文件</translation>
    </message>
    <message>
        <source>The file &apos;%1&apos; cannot be used.</source>
        <translation>无法使用文件“%1”。</translation>
    </message>
    <message>
        <source>The file is from hardware %1, the hand is hardware %2. Compare them?</source>
        <translation>文件来自硬件 %1，灵巧手为硬件 %2。是否比较？</translation>
    </message>
    <message>
        <source>The parameters could not be saved in &apos;%1&apos;.</source>
        <translation>无法将参数保存到“%1”。</translation>
    </message>
    <message>
        <source>The file does not have these values, which the hand did not give:</source>
        <translation>文件中没有以下值，因为灵巧手未提供：</translation>
    </message>
</context>
<context>
    <name>vanto::ParameterBackups</name>
    <message>
        <source>Backup of the parameters</source>
        <translation>参数备份</translation>
    </message>
    <message>
        <source>Backup %p%</source>
        <translation>备份 %p%</translation>
    </message>
    <message>
        <source>The parameters were not backed up. %1</source>
        <translation>参数未备份。%1</translation>
    </message>
    <message>
        <source>Compare...</source>
        <translation>比较...</translation>
    </message>
    <message>
        <source>The backup is incomplete. %1</source>
        <translation>备份不完整。%1</translation>
    </message>
    <message>
        <source>The hand does not answer.</source>
        <translation>灵巧手无应答。</translation>
    </message>
    <message>
        <source>The parameters of the hand differ from the backup made before the update.</source>
        <translation>灵巧手的参数与更新前的备份不同。</translation>
    </message>
</context>
<context>
    <name>vanto::ParameterTable</name>
    <message>
        <source>Parameters</source>
        <translation>参数</translation>
    </message>
    <message>
        <source>Parameter</source>
        <translation>参数</translation>
    </message>
    <message>
        <source>Finger</source>
        <translation>手指</translation>
    </message>
    <message>
        <source>In the hand</source>
        <translation>灵巧手中</translation>
    </message>
    <message>
        <source>In the file</source>
        <translation>文件中</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>结果</translation>
    </message>
    <message>
        <source>Level 2 moves the hand when it is switched on</source>
        <translation>级别 2 会使灵巧手在通电时运动</translation>
    </message>
    <message>
        <source>Limits where the finger can move</source>
        <translation>限制手指的活动范围</translation>
    </message>
    <message>
        <source>A wrong calibration drives fingers into their stops</source>
        <translation>错误的校准会使手指撞到限位</translation>
    </message>
    <message>
        <source>The file is from another hand</source>
        <translation>文件来自另一只灵巧手</translation>
    </message>
    <message>
        <source>Never written</source>
        <translation>从不写入</translation>
    </message>
</context>
<context>
    <name>vanto::ParametersDialog</name>
    <message>
        <source>Show equal values</source>
        <translation>显示相同的值</translation>
    </message>
    <message>
        <source>Compare and Restore</source>
        <translation>比较并恢复</translation>
    </message>
    <message>
        <source>File: %1</source>
        <translation>文件：%1</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>进度</translation>
    </message>
    <message>
        <source>Gains</source>
        <translation>增益</translation>
    </message>
    <message>
        <source>Current limits</source>
        <translation>电流上限</translation>
    </message>
    <message>
        <source>Force limits</source>
        <translation>力上限</translation>
    </message>
    <message>
        <source>Position limits</source>
        <translation>位置限制</translation>
    </message>
    <message>
        <source>Self-test level</source>
        <translation>自检级别</translation>
    </message>
    <message>
        <source>Beep switch</source>
        <translation>蜂鸣开关</translation>
    </message>
    <message>
        <source>Kinds:</source>
        <translation>种类：</translation>
    </message>
    <message>
        <source>Fingers:</source>
        <translation>手指：</translation>
    </message>
    <message>
        <source>Copy Gains...</source>
        <translation>复制增益...</translation>
    </message>
    <message>
        <source>Uses the gains of one finger for others, too</source>
        <translation>将一根手指的增益也用于其他手指</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>恢复</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>The file or the hand has no unique id, so the file may be from another hand. The calibrations of two hands are never the same.
Are you sure that the file is from this hand?</source>
        <translation>文件或灵巧手没有唯一 ID，因此文件可能来自另一只灵巧手。两只灵巧手的校准绝不会相同。
确定此文件来自这只灵巧手吗？</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Restoring...</source>
        <translation>正在恢复...</translation>
    </message>
    <message>
        <source>Written: %1</source>
        <translation>已写入：%1</translation>
    </message>
    <message>
        <source>Refused: %1</source>
        <translation>被拒绝：%1</translation>
    </message>
    <message>
        <source>Not kept: %1</source>
        <translation>未保留：%1</translation>
    </message>
    <message>
        <source>No answer: %1</source>
        <translation>无应答：%1</translation>
    </message>
    <message>
        <source>Not tried: %1</source>
        <translation>未尝试：%1</translation>
    </message>
    <message>
        <source>The connection has changed. Close this dialog and compare again.</source>
        <translation>连接已改变。请关闭此对话框并重新比较。</translation>
    </message>
    <message>
        <source>Calibration and position limits define where the fingers end. With wrong ones the fingers are driven into their stops and can be damaged.
Restore those of the file?</source>
        <translation>校准和位置限制决定手指的终点。错误的值会使手指顶到机械限位并可能损坏。
要恢复文件中的值吗？</translation>
    </message>
    <message>
        <source>It is not known which calibration the hand has now, it may be incomplete. Close this dialog and compare again.</source>
        <translation>无法确定灵巧手当前的校准，可能不完整。请关闭此对话框并重新比较。</translation>
    </message>
    <message>
        <source>The calibration of the hand was read again.</source>
        <translation>已重新读取灵巧手的校准。</translation>
    </message>
    <message>
        <source>The calibration of the hand could not be read again.</source>
        <translation>无法重新读取灵巧手的校准。</translation>
    </message>
    <message>
        <source>Another hand may have answered.</source>
        <translation>可能是另一只灵巧手在应答。</translation>
    </message>
    <message>
        <source>The hand has no unique id, so it may be another one now. Close this dialog and compare again.</source>
        <translation>灵巧手没有唯一标识，现在可能已是另一只。请关闭此对话框并重新比较。</translation>
    </message>
    <message>
        <source>Node 255 is every hand on the bus. Open the hand at its own node to restore its parameters.</source>
        <translation>节点 255 代表总线上的所有灵巧手。请以灵巧手自身的节点打开它，再恢复其参数。</translation>
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
        <translation>最近读取的电流上限和播放上限</translation>
    </message>
    <message>
        <source>Cursors</source>
        <translation>游标</translation>
    </message>
    <message>
        <source>Drag a cursor, or click to place the nearer one. The table shows their values.</source>
        <translation>拖动游标，或单击放置较近的一个。表格显示其值。</translation>
    </message>
    <message>
        <source>Overlay...</source>
        <translation>叠加...</translation>
    </message>
    <message>
        <source>Plots an earlier recording over these samples</source>
        <translation>将以前的录制叠加在当前采样上</translation>
    </message>
    <message>
        <source>Open overlay</source>
        <translation>打开叠加录制</translation>
    </message>
</context>
<context>
    <name>vanto::RecentFiles</name>
    <message>
        <source>No files</source>
        <translation>无文件</translation>
    </message>
</context>
<context>
    <name>vanto::RecordingView</name>
    <message>
        <source>Reading the recording...</source>
        <translation>正在读取录制文件...</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>The recording &apos;%1&apos; cannot be opened.</source>
        <translation>无法打开录制文件“%1”。</translation>
    </message>
    <message>
        <source>The recording &apos;%1&apos; is empty.</source>
        <translation>录制文件“%1”为空。</translation>
    </message>
    <message>
        <source>Save Picture...</source>
        <translation>保存图片...</translation>
    </message>
    <message>
        <source>%1 samples, from %2.</source>
        <translation>%1 个采样，始于 %2。</translation>
    </message>
    <message>
        <source>The plot shows the minimum and the maximum of %1 samples each.</source>
        <translation>曲线图显示每 %1 个采样的最小值和最大值。</translation>
    </message>
    <message>
        <source>The last line of the file is incomplete.</source>
        <translation>文件的最后一行不完整。</translation>
    </message>
    <message>
        <source>Save picture</source>
        <translation>保存图片</translation>
    </message>
    <message>
        <source>Pictures (*.png)</source>
        <translation>图片 (*.png)</translation>
    </message>
    <message>
        <source>The picture could not be saved in &apos;%1&apos;.</source>
        <translation>无法将图片保存到“%1”。</translation>
    </message>
    <message>
        <source>Recordings (*.csv)</source>
        <translation>录制文件 (*.csv)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>所有文件 (*)</translation>
    </message>
    <message>
        <source>Open recording</source>
        <translation>打开录制文件</translation>
    </message>
    <message>
        <source>%1 samples.</source>
        <translation>%1 个采样。</translation>
    </message>
</context>
<context>
    <name>vanto::RunPage</name>
    <message>
        <source>Set</source>
        <translation>设置</translation>
    </message>
    <message>
        <source>Thumb</source>
        <translation>拇指</translation>
    </message>
    <message>
        <source>Index</source>
        <translation>食指</translation>
    </message>
    <message>
        <source>Middle</source>
        <translation>中指</translation>
    </message>
    <message>
        <source>Third</source>
        <translation>无名指</translation>
    </message>
    <message>
        <source>Little</source>
        <translation>小指</translation>
    </message>
    <message>
        <source>Thumb root</source>
        <translation>拇指根部</translation>
    </message>
    <message>
        <source>mA</source>
        <translation>mA</translation>
    </message>
    <message>
        <source>Position or angle</source>
        <translation>位置或角度</translation>
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
        <translation>速度：</translation>
    </message>
    <message>
        <source>Current:</source>
        <translation>电流：</translation>
    </message>
    <message>
        <source>Thumb target</source>
        <translation>拇指目标</translation>
    </message>
    <message>
        <source>Thumb position or angle</source>
        <translation>拇指位置或角度</translation>
    </message>
    <message>
        <source>Set Thumb position or angle</source>
        <translation>设置拇指位置或角度</translation>
    </message>
    <message>
        <source>Thumb speed</source>
        <translation>拇指速度</translation>
    </message>
    <message>
        <source>Thumb current</source>
        <translation>拇指电流</translation>
    </message>
    <message>
        <source>Index target</source>
        <translation>食指目标</translation>
    </message>
    <message>
        <source>Index position or angle</source>
        <translation>食指位置或角度</translation>
    </message>
    <message>
        <source>Set Index position or angle</source>
        <translation>设置食指位置或角度</translation>
    </message>
    <message>
        <source>Index speed</source>
        <translation>食指速度</translation>
    </message>
    <message>
        <source>Index current</source>
        <translation>食指电流</translation>
    </message>
    <message>
        <source>Middle target</source>
        <translation>中指目标</translation>
    </message>
    <message>
        <source>Middle position or angle</source>
        <translation>中指位置或角度</translation>
    </message>
    <message>
        <source>Set Middle position or angle</source>
        <translation>设置中指位置或角度</translation>
    </message>
    <message>
        <source>Middle speed</source>
        <translation>中指速度</translation>
    </message>
    <message>
        <source>Middle current</source>
        <translation>中指电流</translation>
    </message>
    <message>
        <source>Third target</source>
        <translation>无名指目标</translation>
    </message>
    <message>
        <source>Third position or angle</source>
        <translation>无名指位置或角度</translation>
    </message>
    <message>
        <source>Set Third position or angle</source>
        <translation>设置无名指位置或角度</translation>
    </message>
    <message>
        <source>Third speed</source>
        <translation>无名指速度</translation>
    </message>
    <message>
        <source>Third current</source>
        <translation>无名指电流</translation>
    </message>
    <message>
        <source>Little target</source>
        <translation>小指目标</translation>
    </message>
    <message>
        <source>Little position or angle</source>
        <translation>小指位置或角度</translation>
    </message>
    <message>
        <source>Set Little position or angle</source>
        <translation>设置小指位置或角度</translation>
    </message>
    <message>
        <source>Little speed</source>
        <translation>小指速度</translation>
    </message>
    <message>
        <source>Little current</source>
        <translation>小指电流</translation>
    </message>
    <message>
        <source>Thumb root target</source>
        <translation>拇指根部目标</translation>
    </message>
    <message>
        <source>Thumb root position or angle</source>
        <translation>拇指根部位置或角度</translation>
    </message>
    <message>
        <source>Set Thumb root position or angle</source>
        <translation>设置拇指根部位置或角度</translation>
    </message>
    <message>
        <source>Thumb root speed</source>
        <translation>拇指根部速度</translation>
    </message>
    <message>
        <source>Thumb root current</source>
        <translation>拇指根部电流</translation>
    </message>
    <message>
        <source>Running info loaded</source>
        <translation>运行信息已加载</translation>
    </message>
</context>
<context>
    <name>vanto::ScanRunner</name>
    <message>
        <source>Trying node &apos;0x%1&apos;...</source>
        <translation>正在尝试节点“0x%1”...</translation>
    </message>
    <message>
        <source>Scan progress</source>
        <translation>扫描进度</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>Open port &apos;%1&apos; failed, protocol=%2, baudrate=%3</source>
        <translation>打开端口“%1”失败，协议=%2，波特率=%3</translation>
    </message>
    <message>
        <source>Scans nodes %1 to %2</source>
        <translation>扫描节点 %1 到 %2</translation>
    </message>
</context>
<context>
    <name>vanto::SequenceActions</name>
    <message>
        <source>Cu&amp;t</source>
        <translation>剪切(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>复制(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>粘贴(&amp;P)</translation>
    </message>
    <message>
        <source>De&amp;lete</source>
        <translation>删除(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Insert Before</source>
        <translation>在前面插入(&amp;I)</translation>
    </message>
    <message>
        <source>&amp;Duplicate</source>
        <translation>生成副本(&amp;D)</translation>
    </message>
    <message>
        <source>Move Do&amp;wn</source>
        <translation>下移(&amp;W)</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>编辑(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>撤销(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>重做(&amp;R)</translation>
    </message>
    <message>
        <source>delete of %1</source>
        <translation>删除%1</translation>
    </message>
    <message>
        <source>cut of %1</source>
        <translation>剪切%1</translation>
    </message>
    <message>
        <source>There are no steps on the clipboard.</source>
        <translation>剪贴板中没有步骤。</translation>
    </message>
    <message>
        <source>The steps on the clipboard have angles, not positions.</source>
        <translation>剪贴板中的步骤使用角度，而不是位置。</translation>
    </message>
    <message>
        <source>The steps on the clipboard have positions, not angles.</source>
        <translation>剪贴板中的步骤使用位置，而不是角度。</translation>
    </message>
    <message>
        <source>paste of %1</source>
        <translation>粘贴%1</translation>
    </message>
    <message>
        <source>duplicate of %1</source>
        <translation>生成%1的副本</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <extracomment>&quot;&amp;Undo&quot; or &quot;&amp;Redo&quot;, and the name of the change</extracomment>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>Mo&amp;ve Up</source>
        <translation>上移(&amp;V)</translation>
    </message>
</context>
<context>
    <name>vanto::SequenceDraft</name>
    <message>
        <source>The folder %1 is not writable.</source>
        <translation>文件夹 %1 不可写。</translation>
    </message>
</context>
<context>
    <name>vanto::SequenceEditor</name>
    <message>
        <source>change of the unit</source>
        <translation>更改单位</translation>
    </message>
    <message>
        <source>move of %1</source>
        <translation>移动%1</translation>
    </message>
    <message>
        <source>step %1</source>
        <translation>第 %1 步</translation>
    </message>
    <message>
        <source>%1 steps</source>
        <translation>步骤（%1 个）</translation>
    </message>
    <message>
        <source>loading of %1</source>
        <translation>加载 %1</translation>
    </message>
</context>
<context>
    <name>vanto::SequenceFiles</name>
    <message>
        <source>The draft of the sequence is not saved: %1</source>
        <translation>序列草稿未保存：%1</translation>
    </message>
    <message>
        <source>No file</source>
        <translation>无文件</translation>
    </message>
    <message>
        <source>%1 (not saved)</source>
        <translation>%1（未保存）</translation>
    </message>
    <message>
        <source>Choose json file</source>
        <translation>选择 JSON 文件</translation>
    </message>
    <message>
        <source>Sequence files (*.json)</source>
        <translation>序列文件 (*.json)</translation>
    </message>
    <message>
        <source>%1 cannot be loaded: %2</source>
        <translation>无法加载 %1：%2</translation>
    </message>
    <message>
        <source>%1 is not saved: %2</source>
        <translation>未保存 %1：%2</translation>
    </message>
    <message>
        <source>Not saved: %1, %2 steps, %3</source>
        <translation>未保存：%1，%2 个步骤，%3</translation>
    </message>
    <message>
        <source>restoring of the unsaved sequence</source>
        <translation>恢复未保存的序列</translation>
    </message>
    <message>
        <source>Not saved: %1, 1 step, %2</source>
        <translation>未保存：%1，1 个步骤，%2</translation>
    </message>
    <message>
        <source>Recent Se&amp;quences</source>
        <translation>最近的序列(&amp;Q)</translation>
    </message>
    <message>
        <source>The draft %1 is damaged.</source>
        <translation>草稿 %1 已损坏。</translation>
    </message>
</context>
<context>
    <name>vanto::SequenceManager</name>
    <message>
        <source>Not everything could be written. Is the disk full?</source>
        <translation>未能全部写入。磁盘是否已满？</translation>
    </message>
    <message>
        <source>The file does not exist.</source>
        <translation>文件不存在。</translation>
    </message>
    <message>
        <source>It is not a regular file.</source>
        <translation>这不是普通文件。</translation>
    </message>
    <message>
        <source>The file is larger than 64 MiB.</source>
        <translation>文件大于 64 MiB。</translation>
    </message>
    <message>
        <source>The file is not a sequence.</source>
        <translation>文件不是序列。</translation>
    </message>
</context>
<context>
    <name>vanto::SequencePage</name>
    <message>
        <source>Position or angle</source>
        <translation>位置或角度</translation>
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
        <translation>速度：</translation>
    </message>
    <message>
        <source>Thumb target</source>
        <translation>拇指目标</translation>
    </message>
    <message>
        <source>Thumb position or angle</source>
        <translation>拇指位置或角度</translation>
    </message>
    <message>
        <source>Thumb speed</source>
        <translation>拇指速度</translation>
    </message>
    <message>
        <source>Index target</source>
        <translation>食指目标</translation>
    </message>
    <message>
        <source>Index position or angle</source>
        <translation>食指位置或角度</translation>
    </message>
    <message>
        <source>Index speed</source>
        <translation>食指速度</translation>
    </message>
    <message>
        <source>Middle target</source>
        <translation>中指目标</translation>
    </message>
    <message>
        <source>Middle position or angle</source>
        <translation>中指位置或角度</translation>
    </message>
    <message>
        <source>Middle speed</source>
        <translation>中指速度</translation>
    </message>
    <message>
        <source>Third target</source>
        <translation>无名指目标</translation>
    </message>
    <message>
        <source>Third position or angle</source>
        <translation>无名指位置或角度</translation>
    </message>
    <message>
        <source>Third speed</source>
        <translation>无名指速度</translation>
    </message>
    <message>
        <source>Little target</source>
        <translation>小指目标</translation>
    </message>
    <message>
        <source>Little position or angle</source>
        <translation>小指位置或角度</translation>
    </message>
    <message>
        <source>Little speed</source>
        <translation>小指速度</translation>
    </message>
    <message>
        <source>Thumb root target</source>
        <translation>拇指根部目标</translation>
    </message>
    <message>
        <source>Thumb root position or angle</source>
        <translation>拇指根部位置或角度</translation>
    </message>
    <message>
        <source>Thumb root speed</source>
        <translation>拇指根部速度</translation>
    </message>
    <message>
        <source>Steps of the sequence</source>
        <translation>序列步骤</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>插入</translation>
    </message>
    <message>
        <source>Insert step</source>
        <translation>插入步骤</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Delete step</source>
        <translation>删除步骤</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>上移</translation>
    </message>
    <message>
        <source>Move step up</source>
        <translation>上移步骤</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>下移</translation>
    </message>
    <message>
        <source>Move step down</source>
        <translation>下移步骤</translation>
    </message>
    <message>
        <source>Run</source>
        <translation>运行</translation>
    </message>
    <message>
        <source>Run sequence</source>
        <translation>运行序列</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>Stop sequence</source>
        <translation>停止序列</translation>
    </message>
    <message>
        <source>Load</source>
        <translation>加载</translation>
    </message>
    <message>
        <source>Load sequence</source>
        <translation>加载序列</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Save sequence</source>
        <translation>保存序列</translation>
    </message>
    <message>
        <source>Hands cannot store sequences yet</source>
        <translation>灵巧手暂不支持存储序列</translation>
    </message>
    <message>
        <source>From hand</source>
        <translation>从灵巧手读取</translation>
    </message>
    <message>
        <source>To hand</source>
        <translation>写入灵巧手</translation>
    </message>
    <message>
        <source>Run on hand</source>
        <translation>在灵巧手运行</translation>
    </message>
    <message>
        <source>Stop on hand</source>
        <translation>停止灵巧手</translation>
    </message>
    <message>
        <source>Delay:</source>
        <translation>延时：</translation>
    </message>
    <message>
        <source>Step delay in milliseconds</source>
        <translation>步骤延时（毫秒）</translation>
    </message>
    <message>
        <source>ms</source>
        <translation>ms</translation>
    </message>
    <message>
        <source>Thumb Root</source>
        <comment>short</comment>
        <translation>拇指根部</translation>
    </message>
    <message>
        <source>Thumb</source>
        <comment>short</comment>
        <translation>拇指</translation>
    </message>
    <message>
        <source>Index</source>
        <comment>short</comment>
        <translation>食指</translation>
    </message>
    <message>
        <source>Middle</source>
        <comment>short</comment>
        <translation>中指</translation>
    </message>
    <message>
        <source>Third</source>
        <comment>short</comment>
        <translation>无名指</translation>
    </message>
    <message>
        <source>Little</source>
        <comment>short</comment>
        <translation>小指</translation>
    </message>
    <message>
        <source>Thumb root</source>
        <comment>short</comment>
        <translation>拇指根部</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>恢复</translation>
    </message>
    <message>
        <source>Restore unsaved sequence</source>
        <translation>恢复未保存的序列</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>放弃</translation>
    </message>
    <message>
        <source>Discard unsaved sequence</source>
        <translation>放弃未保存的序列</translation>
    </message>
    <message>
        <source>Repeat:</source>
        <translation>重复：</translation>
    </message>
    <message>
        <source>How often a run is played</source>
        <translation>每次运行的重复次数</translation>
    </message>
    <message>
        <source>endless</source>
        <translation>无限</translation>
    </message>
    <message>
        <source>insertion of %1</source>
        <translation>插入%1</translation>
    </message>
    <message>
        <source>delete of %1</source>
        <translation>删除%1</translation>
    </message>
</context>
<context>
    <name>vanto::SequencePlayer</name>
    <message>
        <source>Thumb</source>
        <translation>拇指</translation>
    </message>
    <message>
        <source>Index</source>
        <translation>食指</translation>
    </message>
    <message>
        <source>Middle</source>
        <translation>中指</translation>
    </message>
    <message>
        <source>Third</source>
        <translation>无名指</translation>
    </message>
    <message>
        <source>Little</source>
        <translation>小指</translation>
    </message>
    <message>
        <source>Thumb root</source>
        <translation>拇指根部</translation>
    </message>
    <message>
        <source>No VANTO</source>
        <translation>无 VANTO</translation>
    </message>
    <message>
        <source>%s has too big current: %d mA</source>
        <translation>%s电流过大：%d mA</translation>
    </message>
    <message>
        <source>TIME OUT</source>
        <translation>超时</translation>
    </message>
    <message>
        <source>%1(0x%2, ...) returned 0x%3 (sub err %4)</source>
        <translation>%1(0x%2, ...) 返回 0x%3（子错误 %4）</translation>
    </message>
    <message>
        <source>Halted. Press Continue.</source>
        <translation>已停止。请按“继续”。</translation>
    </message>
</context>
<context>
    <name>vanto::SequenceStatus</name>
    <message>
        <source>Step %1: delay %2 ms, speeds %3</source>
        <extracomment>%3 lists the speeds in the order of the columns</extracomment>
        <translation>步骤 %1：延时 %2 ms，速度 %3</translation>
    </message>
    <message>
        <source>Playing step %1 of %2</source>
        <translation>正在运行第 %1 步，共 %2 步</translation>
    </message>
    <message>
        <source>%1, round %2</source>
        <translation>%1，第 %2 轮</translation>
    </message>
    <message>
        <source>%1, round %2 of %3</source>
        <translation>%1，第 %2 轮，共 %3 轮</translation>
    </message>
    <message>
        <source>Moving to step %1</source>
        <translation>正在移动到步骤 %1</translation>
    </message>
    <message>
        <source>Step %1 lasts %2 s more. Stop ends it.</source>
        <translation>步骤 %1 还将持续 %2 秒。“停止”可结束它。</translation>
    </message>
    <message>
        <source>Not sent; Return sends it. %1</source>
        <translation>未发送；按回车键发送。%1</translation>
    </message>
    <message>
        <source>A value is not stored; press Return in its field. %1</source>
        <translation>有一个值未保存；请在其输入框中按回车键。%1</translation>
    </message>
</context>
<context>
    <name>vanto::SettingPage</name>
    <message>
        <source>Thumb</source>
        <translation>拇指</translation>
    </message>
    <message>
        <source>Index</source>
        <translation>食指</translation>
    </message>
    <message>
        <source>Middle</source>
        <translation>中指</translation>
    </message>
    <message>
        <source>Third</source>
        <translation>无名指</translation>
    </message>
    <message>
        <source>Little</source>
        <translation>小指</translation>
    </message>
    <message>
        <source>Thumb root</source>
        <translation>拇指根部</translation>
    </message>
    <message>
        <source>P:</source>
        <translation>P：</translation>
    </message>
    <message>
        <source>I:</source>
        <translation>I：</translation>
    </message>
    <message>
        <source>D:</source>
        <translation>D：</translation>
    </message>
    <message>
        <source>G:</source>
        <translation>G：</translation>
    </message>
    <message>
        <source>Current Limit:</source>
        <translation>电流上限：</translation>
    </message>
    <message>
        <source>mA</source>
        <translation>mA</translation>
    </message>
    <message>
        <source>Force Limit:</source>
        <translation>力上限：</translation>
    </message>
    <message>
        <source>mN</source>
        <translation>mN</translation>
    </message>
    <message>
        <source>Thumb gain P</source>
        <translation>拇指增益 P</translation>
    </message>
    <message>
        <source>Thumb gain I</source>
        <translation>拇指增益 I</translation>
    </message>
    <message>
        <source>Thumb gain D</source>
        <translation>拇指增益 D</translation>
    </message>
    <message>
        <source>Thumb gain G</source>
        <translation>拇指增益 G</translation>
    </message>
    <message>
        <source>Read</source>
        <translation>读取</translation>
    </message>
    <message>
        <source>Read Thumb gains</source>
        <translation>读取拇指增益</translation>
    </message>
    <message>
        <source>Write</source>
        <translation>写入</translation>
    </message>
    <message>
        <source>Write Thumb gains</source>
        <translation>写入拇指增益</translation>
    </message>
    <message>
        <source>Thumb current limit</source>
        <translation>拇指电流上限</translation>
    </message>
    <message>
        <source>Read Thumb current limit</source>
        <translation>读取拇指电流上限</translation>
    </message>
    <message>
        <source>Write Thumb current limit</source>
        <translation>写入拇指电流上限</translation>
    </message>
    <message>
        <source>Thumb force limit</source>
        <translation>拇指力上限</translation>
    </message>
    <message>
        <source>Read Thumb force limit</source>
        <translation>读取拇指力上限</translation>
    </message>
    <message>
        <source>Write Thumb force limit</source>
        <translation>写入拇指力上限</translation>
    </message>
    <message>
        <source>Index gain P</source>
        <translation>食指增益 P</translation>
    </message>
    <message>
        <source>Index gain I</source>
        <translation>食指增益 I</translation>
    </message>
    <message>
        <source>Index gain D</source>
        <translation>食指增益 D</translation>
    </message>
    <message>
        <source>Index gain G</source>
        <translation>食指增益 G</translation>
    </message>
    <message>
        <source>Read Index gains</source>
        <translation>读取食指增益</translation>
    </message>
    <message>
        <source>Write Index gains</source>
        <translation>写入食指增益</translation>
    </message>
    <message>
        <source>Index current limit</source>
        <translation>食指电流上限</translation>
    </message>
    <message>
        <source>Read Index current limit</source>
        <translation>读取食指电流上限</translation>
    </message>
    <message>
        <source>Write Index current limit</source>
        <translation>写入食指电流上限</translation>
    </message>
    <message>
        <source>Index force limit</source>
        <translation>食指力上限</translation>
    </message>
    <message>
        <source>Read Index force limit</source>
        <translation>读取食指力上限</translation>
    </message>
    <message>
        <source>Write Index force limit</source>
        <translation>写入食指力上限</translation>
    </message>
    <message>
        <source>Middle gain P</source>
        <translation>中指增益 P</translation>
    </message>
    <message>
        <source>Middle gain I</source>
        <translation>中指增益 I</translation>
    </message>
    <message>
        <source>Middle gain D</source>
        <translation>中指增益 D</translation>
    </message>
    <message>
        <source>Middle gain G</source>
        <translation>中指增益 G</translation>
    </message>
    <message>
        <source>Read Middle gains</source>
        <translation>读取中指增益</translation>
    </message>
    <message>
        <source>Write Middle gains</source>
        <translation>写入中指增益</translation>
    </message>
    <message>
        <source>Middle current limit</source>
        <translation>中指电流上限</translation>
    </message>
    <message>
        <source>Read Middle current limit</source>
        <translation>读取中指电流上限</translation>
    </message>
    <message>
        <source>Write Middle current limit</source>
        <translation>写入中指电流上限</translation>
    </message>
    <message>
        <source>Middle force limit</source>
        <translation>中指力上限</translation>
    </message>
    <message>
        <source>Read Middle force limit</source>
        <translation>读取中指力上限</translation>
    </message>
    <message>
        <source>Write Middle force limit</source>
        <translation>写入中指力上限</translation>
    </message>
    <message>
        <source>Third gain P</source>
        <translation>无名指增益 P</translation>
    </message>
    <message>
        <source>Third gain I</source>
        <translation>无名指增益 I</translation>
    </message>
    <message>
        <source>Third gain D</source>
        <translation>无名指增益 D</translation>
    </message>
    <message>
        <source>Third gain G</source>
        <translation>无名指增益 G</translation>
    </message>
    <message>
        <source>Read Third gains</source>
        <translation>读取无名指增益</translation>
    </message>
    <message>
        <source>Write Third gains</source>
        <translation>写入无名指增益</translation>
    </message>
    <message>
        <source>Third current limit</source>
        <translation>无名指电流上限</translation>
    </message>
    <message>
        <source>Read Third current limit</source>
        <translation>读取无名指电流上限</translation>
    </message>
    <message>
        <source>Write Third current limit</source>
        <translation>写入无名指电流上限</translation>
    </message>
    <message>
        <source>Third force limit</source>
        <translation>无名指力上限</translation>
    </message>
    <message>
        <source>Read Third force limit</source>
        <translation>读取无名指力上限</translation>
    </message>
    <message>
        <source>Write Third force limit</source>
        <translation>写入无名指力上限</translation>
    </message>
    <message>
        <source>Little gain P</source>
        <translation>小指增益 P</translation>
    </message>
    <message>
        <source>Little gain I</source>
        <translation>小指增益 I</translation>
    </message>
    <message>
        <source>Little gain D</source>
        <translation>小指增益 D</translation>
    </message>
    <message>
        <source>Little gain G</source>
        <translation>小指增益 G</translation>
    </message>
    <message>
        <source>Read Little gains</source>
        <translation>读取小指增益</translation>
    </message>
    <message>
        <source>Write Little gains</source>
        <translation>写入小指增益</translation>
    </message>
    <message>
        <source>Little current limit</source>
        <translation>小指电流上限</translation>
    </message>
    <message>
        <source>Read Little current limit</source>
        <translation>读取小指电流上限</translation>
    </message>
    <message>
        <source>Write Little current limit</source>
        <translation>写入小指电流上限</translation>
    </message>
    <message>
        <source>Little force limit</source>
        <translation>小指力上限</translation>
    </message>
    <message>
        <source>Read Little force limit</source>
        <translation>读取小指力上限</translation>
    </message>
    <message>
        <source>Write Little force limit</source>
        <translation>写入小指力上限</translation>
    </message>
    <message>
        <source>Thumb root gain P</source>
        <translation>拇指根部增益 P</translation>
    </message>
    <message>
        <source>Thumb root gain I</source>
        <translation>拇指根部增益 I</translation>
    </message>
    <message>
        <source>Thumb root gain D</source>
        <translation>拇指根部增益 D</translation>
    </message>
    <message>
        <source>Thumb root gain G</source>
        <translation>拇指根部增益 G</translation>
    </message>
    <message>
        <source>Read Thumb root gains</source>
        <translation>读取拇指根部增益</translation>
    </message>
    <message>
        <source>Write Thumb root gains</source>
        <translation>写入拇指根部增益</translation>
    </message>
    <message>
        <source>Thumb root current limit</source>
        <translation>拇指根部电流上限</translation>
    </message>
    <message>
        <source>Read Thumb root current limit</source>
        <translation>读取拇指根部电流上限</translation>
    </message>
    <message>
        <source>Write Thumb root current limit</source>
        <translation>写入拇指根部电流上限</translation>
    </message>
    <message>
        <source>Thumb root force limit</source>
        <translation>拇指根部力上限</translation>
    </message>
    <message>
        <source>Read Thumb root force limit</source>
        <translation>读取拇指根部力上限</translation>
    </message>
    <message>
        <source>Write Thumb root force limit</source>
        <translation>写入拇指根部力上限</translation>
    </message>
    <message>
        <source>Setting loaded</source>
        <translation>参数已加载</translation>
    </message>
    <message>
        <source>Please check parameter is complete</source>
        <translation>请检查参数是否完整</translation>
    </message>
</context>
<context>
    <name>vanto::StatusReporter</name>
    <message>
        <source>Error</source>
        <translation>错误</translation>
    </message>
    <message>
        <source>Timeout for %1 node &apos;0x%2&apos;...</source>
        <translation>%1 节点“0x%2”超时...</translation>
    </message>
    <message>
        <source>%1(0x%2, ...) returned 0x%3 (sub err %4)</source>
        <translation>%1(0x%2, ...) 返回 0x%3（子错误 %4）</translation>
    </message>
    <message>
        <source>Halted. Press Continue.</source>
        <translation>已停止。请按“继续”。</translation>
    </message>
</context>
<context>
    <name>vanto::StepInput</name>
    <message>
        <source>delay of %1</source>
        <translation>修改%1的延时</translation>
    </message>
    <message>
        <source>speed of %1</source>
        <translation>修改%1的速度</translation>
    </message>
    <message>
        <source>target of %1</source>
        <translation>修改%1的目标</translation>
    </message>
</context>
<context>
    <name>vanto::StepResults</name>
    <message>
        <source>Copy Peaks as Te&amp;xt</source>
        <translation>将峰值复制为文本(&amp;X)</translation>
    </message>
    <message>
        <source>Copy Peaks as &amp;JSON</source>
        <translation>将峰值复制为 JSON(&amp;J)</translation>
    </message>
    <message>
        <source>%1 %2 mA</source>
        <translation>%1 %2 mA</translation>
    </message>
    <message>
        <source>Last run: %1 ms; highest current: %2</source>
        <translation>上次运行：%1 ms；最大电流：%2</translation>
    </message>
    <message>
        <source>Last run, %1 rounds: at most %2 ms; highest current: %3</source>
        <translation>上次运行，%1 轮：最长 %2 ms；最大电流：%3</translation>
    </message>
    <message>
        <source>Step</source>
        <translation>步骤</translation>
    </message>
    <message>
        <source>Time (ms)</source>
        <translation>时间 (ms)</translation>
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
        <translation>“%1”不是普通文件。</translation>
    </message>
    <message>
        <source>Cannot write &apos;%1&apos;: %2</source>
        <translation>无法写入“%1”：%2</translation>
    </message>
    <message>
        <source>The recording has ended: cannot write &apos;%1&apos;: %2</source>
        <translation>录制已结束：无法写入“%1”：%2</translation>
    </message>
</context>
<context>
    <name>vanto::UpdateDialog</name>
    <message>
        <source>Wait a moment...</source>
        <translation>请稍候...</translation>
    </message>
    <message>
        <source>Power up the device now</source>
        <translation>请立即给设备通电</translation>
    </message>
    <message>
        <source>Updating device firmware...</source>
        <translation>正在更新设备固件...</translation>
    </message>
</context>
<context>
    <name>vanto::ValueTable</name>
    <message>
        <source>Measured values</source>
        <translation>测量值</translation>
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
        <translation>电流 (mA)</translation>
    </message>
</context>
</TS>
