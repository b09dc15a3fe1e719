<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-License-Identifier: Apache-2.0 -->
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>LUTCameraTransfer</name>
    <message>
        <source>LUT Operating...</source>
        <translation>正在操作查找表…</translation>
    </message>
    <message>
        <source>LUT Updating...</source>
        <translation>正在更新查找表…</translation>
    </message>
    <message>
        <source>Loading from camera failed after %1 of %2 points. The curve is unchanged.</source>
        <translation>从相机加载失败：共 %2 点，已读取 %1 点。曲线未改变。</translation>
    </message>
    <message>
        <source>Loading from camera failed. The curve is unchanged.</source>
        <translation>从相机加载失败。曲线未改变。</translation>
    </message>
    <message>
        <source>Loading from camera completed.</source>
        <translation>从相机加载完成。</translation>
    </message>
    <message>
        <source>Applying to camera was stopped after %1 of %2 points. The table in the camera is incomplete.</source>
        <translation>应用到相机已中止：共 %2 点，已写入 %1 点。相机中的查找表不完整。</translation>
    </message>
    <message>
        <source>Applied to camera successfully.</source>
        <translation>已成功应用到相机。</translation>
    </message>
    <message>
        <source>Only %1 of %2 points were applied to the camera.</source>
        <translation>共 %2 点，只有 %1 点成功应用到相机。</translation>
    </message>
</context>
<context>
    <name>LUTFileDialogs</name>
    <message>
        <source>Open txt File</source>
        <translation>打开 txt 文件</translation>
    </message>
    <message>
        <source>txt Files (*.txt)</source>
        <translation>txt 文件 (*.txt)</translation>
    </message>
    <message>
        <source>Save as txt File</source>
        <translation>另存为 txt 文件</translation>
    </message>
    <message>
        <source>txt File (*.txt)</source>
        <translation>txt 文件 (*.txt)</translation>
    </message>
    <message>
        <source>Failed to import file. Incorrect file format.</source>
        <translation>导入文件失败，文件格式不正确。</translation>
    </message>
    <message>
        <source>Importing from file completed.</source>
        <translation>从文件导入完成。</translation>
    </message>
    <message>
        <source>Exporting to file completed.</source>
        <translation>导出到文件完成。</translation>
    </message>
    <message>
        <source>File opreation failed, possable storage disk is full.</source>
        <translation>文件操作失败，存储磁盘可能已满。</translation>
    </message>
</context>
<context>
    <name>ORXCommonFeature</name>
    <message>
        <source>Common Features</source>
        <translation>常用参数</translation>
    </message>
    <message>
        <source>Basic Features</source>
        <translation>基本参数</translation>
    </message>
    <message>
        <source>ISP</source>
        <translation>图像信号处理</translation>
    </message>
    <message>
        <source>Transport Layer Control</source>
        <translation>传输层控制</translation>
    </message>
    <message>
        <source>Balance Ratio Selector</source>
        <translation>白平衡系数选择器</translation>
    </message>
    <message>
        <source>Balance Ratio</source>
        <translation>白平衡系数</translation>
    </message>
    <message>
        <source>White Balance</source>
        <translation>白平衡</translation>
    </message>
</context>
<context>
    <name>ORXCCMValueWidget</name>
    <message>
        <source>Row %1, column %2</source>
        <translation>第 %1 行，第 %2 列</translation>
    </message>
    <message>
        <source>Set by the host program</source>
        <translation>由主机程序设定</translation>
    </message>
</context>
<context>
    <name>ColorMatrix</name>
    <message>
        <source>The color correction settings cannot be used.</source>
        <translation>色彩校正设置文件无法使用。</translation>
    </message>
    <message>
        <source>The file is left as it is:</source>
        <translation>该文件保持原样：</translation>
    </message>
</context>
<context>
    <name>ORXFeatureGroup</name>
    <message>
        <source>No feature matches &quot;%1&quot;.</source>
        <translation>没有与“%1”匹配的参数。</translation>
    </message>
    <message>
        <source>Search features</source>
        <translation>搜索参数</translation>
    </message>
    <message>
        <source>Search by name (Ctrl+F)</source>
        <translation>按名称搜索（Ctrl+F）</translation>
    </message>
</context>
<context>
    <name>ORXFeatureSaveWidget</name>
    <message>
        <source>Default</source>
        <translation>默认</translation>
    </message>
    <message>
        <source>User Set 1</source>
        <translation>用户集 1</translation>
    </message>
    <message>
        <source>User Set 2</source>
        <translation>用户集 2</translation>
    </message>
    <message>
        <source>User Set 3</source>
        <translation>用户集 3</translation>
    </message>
    <message>
        <source>user set1 saved.</source>
        <translation>用户集 1 已保存。</translation>
    </message>
    <message>
        <source>user set2 saved.</source>
        <translation>用户集 2 已保存。</translation>
    </message>
    <message>
        <source>user set3 saved.</source>
        <translation>用户集 3 已保存。</translation>
    </message>
    <message>
        <source>user default loaded.</source>
        <translation>默认用户集已加载。</translation>
    </message>
    <message>
        <source>user set1 loaded.</source>
        <translation>用户集 1 已加载。</translation>
    </message>
    <message>
        <source>user set2 loaded.</source>
        <translation>用户集 2 已加载。</translation>
    </message>
    <message>
        <source>user set3 loaded.</source>
        <translation>用户集 3 已加载。</translation>
    </message>
    <message>
        <source>Configuration suscceeded. The camera will load the default UserSet when it is rebooted.</source>
        <translation>配置成功。相机重启后将加载默认用户集。</translation>
    </message>
    <message>
        <source>Configuration suscceeded. The camera will load the UserSet1 when it is rebooted.</source>
        <translation>配置成功。相机重启后将加载用户集 1。</translation>
    </message>
    <message>
        <source>Configuration suscceeded. The camera will load the UserSet2 when it is rebooted.</source>
        <translation>配置成功。相机重启后将加载用户集 2。</translation>
    </message>
    <message>
        <source>Configuration suscceeded. The camera will load the UserSet3 when it is rebooted.</source>
        <translation>配置成功。相机重启后将加载用户集 3。</translation>
    </message>
    <message>
        <source>User Set Control</source>
        <translation>用户集控制</translation>
    </message>
    <message>
        <source>Setting ...</source>
        <translation>正在设置……</translation>
    </message>
    <message>
        <source>Prompt</source>
        <translation>提示</translation>
    </message>
    <message>
        <source>The camera did not confirm that the user set is loaded.</source>
        <translation>相机未确认用户集已加载完成。</translation>
    </message>
</context>
<context>
    <name>ORXFeatureToolBar</name>
    <message>
        <source>Refresh</source>
        <translation>刷新</translation>
    </message>
    <message>
        <source>Langue</source>
        <translation>语言</translation>
    </message>
    <message>
        <source>User Set Control</source>
        <translation>用户集控制</translation>
    </message>
    <message>
        <source>User Lever: </source>
        <translation>用户级别：</translation>
    </message>
    <message>
        <source>Guru</source>
        <translation>资深</translation>
    </message>
    <message>
        <source>Beginner</source>
        <translation>初级</translation>
    </message>
</context>
<context>
    <name>HostWaitLine</name>
    <message>
        <source>Waiting for the camera (%1 s)</source>
        <translation>正在等待相机（%1 秒）</translation>
    </message>
    <message>
        <source>Waiting for the camera: %1 (%2 s)</source>
        <translation>正在等待相机：%1（%2 秒）</translation>
    </message>
</context>
<context>
    <name>ReadingProgressLine</name>
    <message>
        <source>Reading features: %1 of %2</source>
        <translation>正在读取参数：%1 / %2</translation>
    </message>
</context>
<context>
    <name>ORXFeatureTree</name>
    <message>
        <source>Description</source>
        <translation>说明</translation>
    </message>
    <message>
        <source>Add to Favorites</source>
        <translation>添加到收藏夹</translation>
    </message>
    <message>
        <source>Remove from Favorites</source>
        <translation>从收藏夹移除</translation>
    </message>
    <message>
        <source>Remove All</source>
        <translation>全部移除</translation>
    </message>
    <message>
        <source>Node &apos;%1&apos;:failed to save value &apos;%2&apos;</source>
        <translation>节点“%1”：值“%2”保存失败</translation>
    </message>
    <message>
        <source>Failed to set the feature value.</source>
        <translation>设置参数失败。</translation>
    </message>
    <message>
        <source>Node &apos;%1&apos;: Failed to execute Node. %2</source>
        <translation>节点“%1”：执行失败。%2</translation>
    </message>
    <message>
        <source>The camera is about to reboot. Reconnect the
camera later.</source>
        <translation>相机即将重启。请稍后
重新连接相机。</translation>
    </message>
    <message>
        <source>Select a feature to read what it does.</source>
        <translation>选中一个参数，即可查看其说明。</translation>
    </message>
    <message>
        <source>Nothing to show here. A right click, a long touch or the Menu key on a feature adds it to the favorites.</source>
        <translation>此处暂无内容。右键单击或长按某个参数，或选中后按菜单键，可将其添加到收藏夹。</translation>
    </message>
    <message>
        <source>Prompt</source>
        <translation>提示</translation>
    </message>
    <message>
        <source>Setting features...</source>
        <translation>正在设置参数……</translation>
    </message>
    <message>
        <source>Updating features...</source>
        <translation>正在更新参数……</translation>
    </message>
</context>
<context>
    <name>ReadOnlyReason</name>
    <message>
        <source>Read-only on this camera.</source>
        <translation>此参数在该相机上为只读。</translation>
    </message>
    <message>
        <source>Not available because of %1</source>
        <translation>当前不可用，取决于：%1</translation>
    </message>
    <message>
        <source>Locked by %1</source>
        <translation>已锁定，取决于：%1</translation>
    </message>
</context>
<context>
    <name>ORXFeatureWidget</name>
    <message>
        <source>Please select a connected camera.</source>
        <translation>请选择已连接的相机。</translation>
    </message>
    <message>
        <source>Prompt</source>
        <translation>提示</translation>
    </message>
    <message>
        <source>Not supported.</source>
        <translation>不支持该功能。</translation>
    </message>
</context>
<context>
    <name>ORXInterface</name>
    <message>
        <source>the host registered no callback</source>
        <translation>主机未注册回调函数</translation>
    </message>
    <message>
        <source>the feature is not readable</source>
        <translation>该参数不可读</translation>
    </message>
</context>
<context>
    <name>ORXMainFeatureWidget</name>
    <message>
        <source>Feature Tree</source>
        <translation>属性树</translation>
    </message>
    <message>
        <source>Common</source>
        <translation>常用</translation>
    </message>
    <message>
        <source>Trigger</source>
        <translation>触发</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>图像</translation>
    </message>
    <message>
        <source>This camera has nothing to show on this page at this user level.</source>
        <translation>在当前用户级别下，该相机在此页面没有可显示的参数。</translation>
    </message>
    <message>
        <source>No feature of this group matches &quot;%1&quot;.</source>
        <translation>该组中没有与“%1”匹配的参数。</translation>
    </message>
</context>
<context>
    <name>ORXPropertySpinBox</name>
    <message>
        <source>Min:%1; Max:%2; Step Value:%3</source>
        <translation>最小值：%1；最大值：%2；步长：%3</translation>
    </message>
</context>
<context>
    <name>ORXTriggerFeature</name>
    <message>
        <source>Trigger</source>
        <translation>触发</translation>
    </message>
    <message>
        <source>IO Input</source>
        <translation>IO 输入</translation>
    </message>
    <message>
        <source>Auto Trigger Time(ms)</source>
        <translation>自动触发周期（毫秒）</translation>
    </message>
    <message>
        <source>Enable Auto Trigger</source>
        <translation>自动触发使能</translation>
    </message>
    <message>
        <source>IO Output</source>
        <translation>IO 输出</translation>
    </message>
    <message>
        <source>Encoder Control</source>
        <translation>编码器控制</translation>
    </message>
    <message>
        <source>Frequency Converter Control</source>
        <translation>频率转换控制</translation>
    </message>
</context>
<context>
    <name>QIntegerParamSetCtrl</name>
    <message>
        <source>Range:%1 to %2</source>
        <translation>范围：%1 至 %2</translation>
    </message>
</context>
<context>
    <name>QLUTDrawWidget</name>
    <message>
        <source>Curve of the look-up table</source>
        <translation>查找表曲线</translation>
    </message>
    <message>
        <source>Index</source>
        <translation>索引</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>值</translation>
    </message>
    <message>
        <source>%1 of %2 points</source>
        <translation>第 %1 点，共 %2 点</translation>
    </message>
    <message>
        <source>Index: %1
Value: %2</source>
        <translation>索引：%1
值：%2</translation>
    </message>
</context>
<context>
    <name>QPropertyLineEdit</name>
    <message>
        <source>Range: %1 to %2</source>
        <translation>范围：%1 至 %2</translation>
    </message>
</context>
<context>
    <name>UserSetPanel</name>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Load</source>
        <translation>加载</translation>
    </message>
    <message>
        <source>Power-up</source>
        <translation>上电加载</translation>
    </message>
    <message>
        <source>Device Reset</source>
        <translation>设备复位</translation>
    </message>
    <message>
        <source>Save the settings in %1</source>
        <translation>将当前设置保存到%1</translation>
    </message>
    <message>
        <source>Load the settings of %1</source>
        <translation>加载%1的设置</translation>
    </message>
    <message>
        <source>Load %1 whenever the camera starts</source>
        <translation>相机上电时加载%1</translation>
    </message>
    <message>
        <source>Restart the camera</source>
        <translation>重启相机</translation>
    </message>
    <message>
        <source>Current settings:</source>
        <translation>当前用户集：</translation>
    </message>
    <message>
        <source>Loaded at power-up:</source>
        <translation>上电加载：</translation>
    </message>
</context>
<context>
    <name>ZELCustomLineEdit</name>
    <message>
        <source>Search</source>
        <translation>搜索</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>清除</translation>
    </message>
</context>
<context>
    <name>ZELCustomMessageBox</name>
    <message>
        <source>Prompt</source>
        <translation>提示</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>No</source>
        <translation>否</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>是</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
</context>
<context>
    <name>ZELCustomTitleBar</name>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>ORXImgProcessingFeature</name>
    <message>
        <source>Image Processing</source>
        <translation>图像处理</translation>
    </message>
    <message>
        <source>ROI</source>
        <translation>感兴趣区域（ROI）</translation>
    </message>
    <message>
        <source>Draw ROI</source>
        <translation>绘制ROI</translation>
    </message>
    <message>
        <source>AOI</source>
        <translation>自动功能区域（AOI）</translation>
    </message>
    <message>
        <source>Embedded Information</source>
        <translation>嵌入信息</translation>
    </message>
    <message>
        <source>Event Control</source>
        <translation>事件控制</translation>
    </message>
    <message>
        <source>LUT</source>
        <translation>查找表（LUT）</translation>
    </message>
    <message>
        <source>Line Type</source>
        <translation>曲线类型</translation>
    </message>
    <message>
        <source>Fold Line</source>
        <translation>折线</translation>
    </message>
    <message>
        <source>Curve</source>
        <translation>曲线</translation>
    </message>
    <message>
        <source>Free Line</source>
        <translation>自由曲线</translation>
    </message>
    <message>
        <source>Gamma</source>
        <translation>伽马</translation>
    </message>
    <message>
        <source>Contrast</source>
        <translation>对比度</translation>
    </message>
    <message>
        <source>Luminance</source>
        <translation>亮度</translation>
    </message>
    <message>
        <source>Load from Camera</source>
        <translation>从相机读取</translation>
    </message>
    <message>
        <source>Apply to Camera</source>
        <translation>应用到相机</translation>
    </message>
    <message>
        <source>Import from File</source>
        <translation>从文件导入</translation>
    </message>
    <message>
        <source>Export to File</source>
        <translation>导出到文件</translation>
    </message>
    <message>
        <source>Reset Curve</source>
        <translation>重置曲线</translation>
    </message>
    <message>
        <source>Color Correction Matrix</source>
        <translation>色彩校正矩阵</translation>
    </message>
    <message>
        <source>Enable Color Correction Matrix</source>
        <translation>启用色彩校正矩阵</translation>
    </message>
    <message>
        <source>Palette</source>
        <translation>伪彩调色板</translation>
    </message>
</context>
<context>
    <name>RegionDrawWidget</name>
    <message>
        <source>Picture of the sensor area</source>
        <translation>传感器区域示意图</translation>
    </message>
    <message>
        <source>%1 × %2 at (%3, %4)</source>
        <translation>%1 × %2，位于 (%3, %4)</translation>
    </message>
    <message>
        <source>%1 of %2 × %3</source>
        <translation>%1，总范围 %2 × %3</translation>
    </message>
    <message>
        <source>Drag the region to move it, its edges and corners to resize it.
Arrow keys move it, with Shift they resize it. Escape takes a drag back.</source>
        <translation>拖动区域可移动，拖动边或角可调整大小。
方向键移动区域，按住 Shift 调整大小，按 Esc 撤销拖动。</translation>
    </message>
    <message>
        <source>%1, locked</source>
        <translation>%1，已锁定</translation>
    </message>
    <message>
        <source>ROI</source>
        <translation>感兴趣区域</translation>
    </message>
    <message>
        <source>AOI</source>
        <translation>自动功能区域</translation>
    </message>
</context>
<context>
    <name>CopyActions</name>
    <message>
        <source>Copy Value</source>
        <translation>复制值</translation>
    </message>
    <message>
        <source>Copy Name</source>
        <translation>复制名称</translation>
    </message>
    <message>
        <source>Copy as Text</source>
        <translation>复制为文本</translation>
    </message>
</context>
<context>
    <name>ChangesPanel</name>
    <message>
        <source>Changes</source>
        <translation>变更</translation>
    </message>
    <message>
        <source>Revert</source>
        <translation>恢复</translation>
    </message>
    <message>
        <source>Save...</source>
        <translation>保存…</translation>
    </message>
    <message>
        <source>Compare...</source>
        <translation>比较…</translation>
    </message>
    <message>
        <source>Save Features</source>
        <translation>保存参数</translation>
    </message>
    <message>
        <source>Compare with Features</source>
        <translation>与参数文件比较</translation>
    </message>
    <message>
        <source>Feature files (*.features)</source>
        <translation>参数文件 (*.features)</translation>
    </message>
</context>
<context>
    <name>ChangeJournal</name>
    <message>
        <source>Time</source>
        <translation>时间</translation>
    </message>
    <message>
        <source>Feature</source>
        <translation>参数</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>原值</translation>
    </message>
    <message>
        <source>Now</source>
        <translation>现值</translation>
    </message>
    <message>
        <source>Cause</source>
        <translation>原因</translation>
    </message>
    <message>
        <source>camera</source>
        <translation>相机</translation>
    </message>
    <message>
        <source>camera, %1 times</source>
        <translation>相机，%1 次</translation>
    </message>
    <message>
        <source>edited</source>
        <translation>已编辑</translation>
    </message>
    <message>
        <source>after %1</source>
        <translation>由“%1”引起</translation>
    </message>
    <message>
        <source>executed</source>
        <translation>已执行</translation>
    </message>
</context>
<context>
    <name>FeatureFile</name>
    <message>
        <source>Line %1 is not UTF-8 text.</source>
        <translation>第 %1 行不是 UTF-8 文本。</translation>
    </message>
    <message>
        <source>Line %1 has no tab between a name and a value.</source>
        <translation>第 %1 行的名称与值之间没有制表符。</translation>
    </message>
    <message>
        <source>Line %1 has no name before the tab.</source>
        <translation>第 %1 行的制表符前没有名称。</translation>
    </message>
    <message>
        <source>Line %1 has a second tab; in a value it is written &quot;\t&quot;.</source>
        <translation>第 %1 行有第二个制表符；值中的制表符应写作“\t”。</translation>
    </message>
    <message>
        <source>Line %1 has a backslash without &quot;\&quot;, &quot;t&quot;, &quot;n&quot; or &quot;r&quot; behind it.</source>
        <translation>第 %1 行的反斜杠后没有“\”、“t”、“n”或“r”。</translation>
    </message>
    <message>
        <source>Line %1 gives %2 a second value; the first one is in line %3.</source>
        <translation>第 %1 行再次给出 %2 的值，第一次出现在第 %3 行。</translation>
    </message>
    <message>
        <source>The file is too large for a feature file.</source>
        <translation>文件过大，不是参数文件。</translation>
    </message>
</context>
<context>
    <name>FeatureFileRow</name>
    <message>
        <source>%1 (code 0x%2)</source>
        <translation>%1（代码 0x%2）</translation>
    </message>
    <message>
        <source>Not reached</source>
        <translation>未处理</translation>
    </message>
    <message>
        <source>Different</source>
        <translation>不同</translation>
    </message>
    <message>
        <source>Not on this camera</source>
        <translation>此相机没有该参数</translation>
    </message>
    <message>
        <source>No value of this feature</source>
        <translation>不是该参数的值</translation>
    </message>
    <message>
        <source>Cannot be read</source>
        <translation>无法读取</translation>
    </message>
    <message>
        <source>Cannot be written now</source>
        <translation>当前无法写入</translation>
    </message>
    <message>
        <source>The selector cannot be set</source>
        <translation>无法设置选择器</translation>
    </message>
    <message>
        <source>Written</source>
        <translation>已写入</translation>
    </message>
    <message>
        <source>The camera has changed it</source>
        <translation>相机已更改该值</translation>
    </message>
    <message>
        <source>Refused</source>
        <translation>被拒绝</translation>
    </message>
</context>
<context>
    <name>FeatureFileTable</name>
    <message>
        <source>Feature</source>
        <translation>参数</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>相机</translation>
    </message>
    <message>
        <source>File</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>结果</translation>
    </message>
</context>
<context>
    <name>FeatureFileDialog</name>
    <message>
        <source>Feature %1 of %2</source>
        <translation>第 %1 个参数，共 %2 个</translation>
    </message>
    <message>
        <source>Working...</source>
        <translation>正在处理…</translation>
    </message>
    <message>
        <source>%1 values were saved to &quot;%2&quot;. These could not be saved:</source>
        <translation>%1 个值已保存到“%2”。以下值无法保存：</translation>
    </message>
    <message>
        <source>%1 values were saved to &quot;%2&quot;.</source>
        <translation>%1 个值已保存到“%2”。</translation>
    </message>
    <message>
        <source>The file &quot;%1&quot; cannot be written.</source>
        <translation>无法写入文件“%1”。</translation>
    </message>
    <message>
        <source>The file &quot;%1&quot; cannot be read.</source>
        <translation>无法读取文件“%1”。</translation>
    </message>
    <message>
        <source>The file &quot;%1&quot; is not understood; nothing was read or written.</source>
        <translation>无法理解文件“%1”；没有读取或写入任何值。</translation>
    </message>
    <message>
        <source>There is no feature in the file &quot;%1&quot;.</source>
        <translation>文件“%1”中没有参数。</translation>
    </message>
    <message>
        <source>%1 of %2 values differ.</source>
        <translation>%2 个值中有 %1 个不同。</translation>
    </message>
    <message>
        <source>None of %1 values differs.</source>
        <translation>%1 个值全部相同。</translation>
    </message>
    <message>
        <source>The file is of another model, %1.</source>
        <translation>文件来自另一型号 %1。</translation>
    </message>
    <message>
        <source>%1 of %2 values were written and read back.</source>
        <translation>%2 个值中已写入并读回 %1 个。</translation>
    </message>
    <message>
        <source>Ended before everything was done.</source>
        <translation>在全部完成之前已结束。</translation>
    </message>
    <message>
        <source>End</source>
        <translation>结束</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Feature File</source>
        <translation>参数文件</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>应用</translation>
    </message>
</context>
<context>
    <name>TrendPanel</name>
    <message>
        <source>Trend</source>
        <translation>趋势</translation>
    </message>
    <message>
        <source>Trend of %1</source>
        <translation>%1 的趋势</translation>
    </message>
    <message>
        <source>Select a feature with a number.</source>
        <translation>请选择数值类参数。</translation>
    </message>
    <message>
        <source>Nothing was read yet.</source>
        <translation>尚未读取。</translation>
    </message>
    <message>
        <source>-%1 min</source>
        <translation>-%1 分钟</translation>
    </message>
    <message>
        <source>-%1 s</source>
        <translation>-%1 秒</translation>
    </message>
    <message>
        <source>now</source>
        <translation>现在</translation>
    </message>
    <message>
        <source>min %1   mean %2   max %3</source>
        <translation>最小 %1   平均 %2   最大 %3</translation>
    </message>
</context>
<context>
    <name>CFeatureGroupModel</name>
    <message>
        <source>%1, changed</source>
        <translation>%1，有变更</translation>
    </message>
</context>
</TS>
