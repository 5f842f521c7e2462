<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>AgentBar</name>
    <message>
        <source>Agent</source>
        <translation>代理</translation>
    </message>
    <message>
        <source>&amp;Feed</source>
        <translation>填充(&amp;F)</translation>
    </message>
    <message>
        <source>Read this machine and feed the managers.</source>
        <translation>读取本机并填充各管理器。</translation>
    </message>
    <message>
        <source>Feed &amp;Every</source>
        <translation>定时填充(&amp;E)</translation>
    </message>
    <message>
        <source>Feed again and again.</source>
        <translation>反复填充。</translation>
    </message>
    <message>
        <source> s</source>
        <translation> 秒</translation>
    </message>
    <message>
        <source>Seconds from one feeding to the next</source>
        <translation>两次填充之间的秒数</translation>
    </message>
    <message>
        <source>&amp;Record…</source>
        <translation>录制(&amp;R)…</translation>
    </message>
    <message>
        <source>Record all calls into a file.</source>
        <translation>把所有调用录制到文件。</translation>
    </message>
    <message>
        <source>Record Calls</source>
        <translation>录制调用</translation>
    </message>
    <message>
        <source>Stop &amp;Recording</source>
        <translation>停止录制(&amp;R)</translation>
    </message>
</context>
<context>
    <name>ArgumentForm</name>
    <message>
        <source>%1 (%2)</source>
        <translation>%1（%2）</translation>
    </message>
    <message>
        <source>no arguments</source>
        <translation>没有参数</translation>
    </message>
</context>
<context>
    <name>BusyBar</name>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>Under way</source>
        <translation>进行中</translation>
    </message>
</context>
<context>
    <name>CallLogPanel</name>
    <message>
        <source>Time</source>
        <translation>时间</translation>
    </message>
    <message>
        <source>Thread</source>
        <translation>线程</translation>
    </message>
    <message>
        <source>Manager</source>
        <translation>管理器</translation>
    </message>
    <message>
        <source>Operation</source>
        <translation>操作</translation>
    </message>
    <message>
        <source>Arguments</source>
        <translation>参数</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>结果</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>大小</translation>
    </message>
    <message>
        <source>µs</source>
        <translation>微秒</translation>
    </message>
    <message>
        <source>Save Selection…</source>
        <translation>保存所选…</translation>
    </message>
    <message>
        <source>Save the selected calls as a scenario.</source>
        <translation>把所选调用保存为场景。</translation>
    </message>
    <message>
        <source>Save Calls as a Scenario</source>
        <translation>把调用保存为场景</translation>
    </message>
    <message>
        <source>Calls</source>
        <translation>调用</translation>
    </message>
    <message>
        <source>Writing the calls</source>
        <translation>正在写入调用</translation>
    </message>
</context>
<context>
    <name>CallPanel</name>
    <message>
        <source>Manager</source>
        <translation>管理器</translation>
    </message>
    <message>
        <source>Operations</source>
        <translation>操作</translation>
    </message>
    <message>
        <source>&amp;Call</source>
        <translation>调用(&amp;C)</translation>
    </message>
    <message>
        <source>Call the operation (Ctrl+Return).</source>
        <translation>调用该操作（Ctrl+Return）。</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>结果</translation>
    </message>
    <message>
        <source>%1 returns %2</source>
        <translation>%1 返回 %2</translation>
    </message>
    <message>
        <source>Refused:</source>
        <translation>被拒绝：</translation>
    </message>
    <message>
        <source>F&amp;ill In What Is Held</source>
        <translation>填入当前值(&amp;I)</translation>
    </message>
    <message>
        <source>What is held has %L1 letters, too many to be edited here.</source>
        <translation>当前值有 %L1 个字符，太多，无法在此编辑。</translation>
    </message>
    <message>
        <source>Calling %1</source>
        <translation>正在调用 %1</translation>
    </message>
    <message>
        <source>%1 has returned %L2 letters, of which the first %L3 are shown:</source>
        <translation>%1 返回了 %L2 个字符，仅显示前 %L3 个：</translation>
    </message>
    <message>
        <source>%1 has returned:</source>
        <translation>%1 返回了：</translation>
    </message>
    <message>
        <source>The call goes on, and the next one begins behind it. What it returns is not shown.</source>
        <translation>调用仍在进行，下一个调用在其后开始。其返回值不再显示。</translation>
    </message>
</context>
<context>
    <name>CatalogueProblem</name>
    <message>
        <source>There is no navigation catalogue</source>
        <translation>没有导航目录</translation>
    </message>
    <message>
        <source>%1 does not exist.</source>
        <translation>%1 不存在。</translation>
    </message>
    <message>
        <source>Put a catalogue there, or name another system root with --root.</source>
        <translation>请在该处放置导航目录，或用 --root 指定其他系统根目录。</translation>
    </message>
    <message>
        <source>The navigation catalogue holds no page</source>
        <translation>导航目录中没有页面</translation>
    </message>
    <message>
        <source>No page could be read from %1.</source>
        <translation>无法从 %1 读出任何页面。</translation>
    </message>
    <message>
        <source>It must be the Base64 text of a JSON array of functions. The findings tell where it is not.</source>
        <translation>它必须是功能 JSON 数组的 Base64 文本。检查结果会指出问题所在。</translation>
    </message>
    <message>
        <source>The navigation catalogue cannot be read</source>
        <translation>无法读取导航目录</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>Make it a file that this user may read, and start again.</source>
        <translation>请使其成为当前用户可读的文件，然后重新启动。</translation>
    </message>
    <message>
        <source>Show Fi&amp;ndings…</source>
        <translation>显示检查结果(&amp;N)…</translation>
    </message>
    <message>
        <source>%1: nothing was found.</source>
        <translation>%1：未发现问题。</translation>
    </message>
    <message>
        <source>Checking the catalogue</source>
        <translation>正在检查导航目录</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
</context>
<context>
    <name>CellText</name>
    <message>
        <source>yes</source>
        <translation>是</translation>
    </message>
    <message>
        <source>no</source>
        <translation>否</translation>
    </message>
    <message>
        <source>%1 d %2:%3:%4</source>
        <translation>%1 天 %2:%3:%4</translation>
    </message>
    <message>
        <source>ok</source>
        <translation>成功</translation>
    </message>
    <message>
        <source>failed</source>
        <translation>失败</translation>
    </message>
    <message>
        <source>%1 bytes</source>
        <translation>%1 字节</translation>
    </message>
    <message>
        <source>percent</source>
        <translation>百分比</translation>
    </message>
    <message>
        <source>permille</source>
        <translation>千分之一</translation>
    </message>
    <message>
        <source>hundredths</source>
        <translation>百分之一</translation>
    </message>
    <message>
        <source>bytes</source>
        <translation>字节</translation>
    </message>
    <message>
        <source>seconds</source>
        <translation>秒</translation>
    </message>
    <message>
        <source>seconds since the epoch</source>
        <translation>自纪元起的秒数</translation>
    </message>
</context>
<context>
    <name>ClientSession</name>
    <message>
        <source>page on a thread</source>
        <translation>线程中的页面</translation>
    </message>
    <message>
        <source>window</source>
        <translation>窗口</translation>
    </message>
</context>
<context>
    <name>DeliveryPanel</name>
    <message>
        <source>Time</source>
        <translation>时间</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>页面</translation>
    </message>
    <message>
        <source>Subscriber</source>
        <translation>订阅者</translation>
    </message>
    <message>
        <source>Thread</source>
        <translation>线程</translation>
    </message>
    <message>
        <source>Latency in µs</source>
        <translation>延迟（微秒）</translation>
    </message>
    <message>
        <source>Page changes</source>
        <translation>页面切换</translation>
    </message>
</context>
<context>
    <name>DeskApplication</name>
    <message>
        <source>not a std::exception</source>
        <translation>并非 std::exception</translation>
    </message>
    <message>
        <source>%1 threw: %2</source>
        <translation>%1 抛出异常：%2</translation>
    </message>
</context>
<context>
    <name>FieldEdit</name>
    <message numerus="yes">
        <source>at most %n byte(s) of UTF-8</source>
        <translation>
            <numerusform>最多 %n 字节的 UTF-8</numerusform>
        </translation>
    </message>
    <message>
        <source>a JSON list</source>
        <translation>JSON 列表</translation>
    </message>
</context>
<context>
    <name>FilterBar</name>
    <message>
        <source>Filter</source>
        <translation>筛选</translation>
    </message>
    <message>
        <source>Filter of %1</source>
        <translation>筛选 %1</translation>
    </message>
    <message numerus="yes">
        <source>%n row(s)</source>
        <translation>
            <numerusform>%n 行</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n row(s)</source>
        <translation>
            <numerusform>%n 行中的 %1 行</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>FindingsDialog</name>
    <message>
        <source>line %1, column %2</source>
        <translation>第 %1 行，第 %2 列</translation>
    </message>
    <message>
        <source>Findings</source>
        <translation>检查结果</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>Problem</source>
        <translation>问题</translation>
    </message>
    <message>
        <source>Effect</source>
        <translation>影响</translation>
    </message>
    <message>
        <source>Advice</source>
        <translation>建议</translation>
    </message>
</context>
<context>
    <name>LinePanel</name>
    <message>
        <source>debug</source>
        <translation>调试</translation>
    </message>
    <message>
        <source>information</source>
        <translation>信息</translation>
    </message>
    <message>
        <source>warning</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>error</source>
        <translation>错误</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>时间</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>级别</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>来源</translation>
    </message>
    <message>
        <source>Thread</source>
        <translation>线程</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>文字</translation>
    </message>
    <message>
        <source>Log</source>
        <translation>日志</translation>
    </message>
</context>
<context>
    <name>LogPanel</name>
    <message>
        <source>Clear</source>
        <translation>清除</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>%1 is not shown</source>
        <translation>%1 未显示</translation>
    </message>
    <message>
        <source>There is no data plugin to show</source>
        <translation>没有可显示的数据插件</translation>
    </message>
    <message>
        <source>Security Client for Development</source>
        <translation>开发用安全客户端</translation>
    </message>
    <message>
        <source>&amp;Choose Another File…</source>
        <translation>选择其他文件(&amp;C)…</translation>
    </message>
    <message>
        <source>Data Plugin</source>
        <translation>数据插件</translation>
    </message>
    <message>
        <source>Libraries (*.so)</source>
        <translation>库文件 (*.so)</translation>
    </message>
    <message>
        <source>%1 cannot be played</source>
        <translation>无法播放 %1</translation>
    </message>
    <message>
        <source>%1 cannot be recorded</source>
        <translation>无法录制 %1</translation>
    </message>
    <message>
        <source>&amp;Navigation</source>
        <translation>导航(&amp;N)</translation>
    </message>
    <message>
        <source>%1 was written.</source>
        <translation>已写入 %1。</translation>
    </message>
    <message>
        <source>%1 cannot be written</source>
        <translation>无法写入 %1</translation>
    </message>
    <message>
        <source>&amp;Registry</source>
        <translation>注册表(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Calls</source>
        <translation>调用(&amp;C)</translation>
    </message>
    <message>
        <source>Page C&amp;hanges</source>
        <translation>页面切换(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Log</source>
        <translation>日志(&amp;L)</translation>
    </message>
    <message>
        <source>Call an &amp;Operation</source>
        <translation>调用操作(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Pictures</source>
        <translation>图片(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>文件(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>退出(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;Agent</source>
        <translation>代理(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Scenario</source>
        <translation>场景(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>视图(&amp;V)</translation>
    </message>
    <message>
        <source>A part of the window has failed</source>
        <translation>窗口的一部分出错</translation>
    </message>
    <message>
        <source>&amp;Findings in the Catalogue…</source>
        <translation>目录检查结果(&amp;F)…</translation>
    </message>
    <message>
        <source>%1.</source>
        <comment>a sentence</comment>
        <translation>%1。</translation>
    </message>
    <message numerus="yes">
        <source>%1 was written without %n refused call(s).</source>
        <translation>
            <numerusform>已写入 %1，不含被拒绝的 %n 次调用。</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ModelPage</name>
    <message>
        <source>%1 (%2)</source>
        <translation>%1（%2）</translation>
    </message>
    <message>
        <source>No manager holds anything for this page.</source>
        <translation>没有管理器持有此页面的内容。</translation>
    </message>
    <message>
        <source>Lists</source>
        <translation>列表</translation>
    </message>
    <message>
        <source>The list has changed meanwhile; nothing was edited.</source>
        <translation>列表已发生变化，未作任何编辑。</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>Reading the page</source>
        <translation>正在读取页面</translation>
    </message>
    <message>
        <source>Editing the list</source>
        <translation>正在编辑列表</translation>
    </message>
    <message>
        <source>Stopped after %1 of %2 calls.</source>
        <translation>已停止：完成 %2 次调用中的 %1 次。</translation>
    </message>
</context>
<context>
    <name>NavigationView</name>
    <message>
        <source>Navigation</source>
        <translation>导航</translation>
    </message>
</context>
<context>
    <name>NotesDialog</name>
    <message>
        <source>Not Read</source>
        <translation>未能读取</translation>
    </message>
    <message>
        <source>Sources that could not be read</source>
        <translation>未能读取的来源</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>来源</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>原因</translation>
    </message>
</context>
<context>
    <name>PageArea</name>
    <message>
        <source>The page cannot be shown</source>
        <translation>页面无法显示</translation>
    </message>
    <message>
        <source>See createPage() of the page&apos;s controller.</source>
        <translation>请查看该页面控制器的 createPage()。</translation>
    </message>
    <message>
        <source>%1 made no widget.</source>
        <translation>%1 没有创建窗口部件。</translation>
    </message>
    <message>
        <source>%1 threw: %2</source>
        <translation>%1 抛出异常：%2</translation>
    </message>
    <message>
        <source>%1 threw.</source>
        <translation>%1 抛出异常。</translation>
    </message>
    <message>
        <source>Choose a page in the navigation.</source>
        <translation>请在导航中选择页面。</translation>
    </message>
    <message>
        <source>The page is not in the catalogue</source>
        <translation>页面不在导航目录中</translation>
    </message>
    <message>
        <source>%1 was selected, which the catalogue does not have.</source>
        <translation>选择了 %1，但导航目录中没有该页面。</translation>
    </message>
    <message>
        <source>Add the page to the catalogue, or choose another one.</source>
        <translation>请把该页面加入导航目录，或选择其他页面。</translation>
    </message>
</context>
<context>
    <name>PageFrame</name>
    <message>
        <source>Back to %1</source>
        <translation>返回 %1</translation>
    </message>
    <message>
        <source>Open %1</source>
        <translation>打开 %1</translation>
    </message>
</context>
<context>
    <name>PageValues</name>
    <message>
        <source>Host</source>
        <translation>主机</translation>
    </message>
    <message>
        <source>Kernel signature</source>
        <translation>内核签名</translation>
    </message>
    <message>
        <source>Server</source>
        <translation>服务器</translation>
    </message>
    <message>
        <source>Online state</source>
        <translation>在线状态</translation>
    </message>
    <message>
        <source>Log-in</source>
        <translation>登录</translation>
    </message>
    <message>
        <source>Password change</source>
        <translation>修改密码</translation>
    </message>
    <message>
        <source>USB</source>
        <translation>USB</translation>
    </message>
    <message>
        <source>Device functions</source>
        <translation>设备功能</translation>
    </message>
    <message>
        <source>Network control</source>
        <translation>网络控制</translation>
    </message>
    <message>
        <source>Network</source>
        <translation>网络</translation>
    </message>
    <message>
        <source>Network rules</source>
        <translation>网络规则</translation>
    </message>
    <message>
        <source>Last network command</source>
        <translation>最近的网络命令</translation>
    </message>
    <message>
        <source>Network rows</source>
        <translation>网络行</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>模式</translation>
    </message>
    <message>
        <source>Three-part configuration</source>
        <translation>三项配置</translation>
    </message>
    <message>
        <source>Policy</source>
        <translation>策略</translation>
    </message>
    <message>
        <source>Finish state</source>
        <translation>完成状态</translation>
    </message>
    <message>
        <source>Security switches</source>
        <translation>安全开关</translation>
    </message>
    <message>
        <source>States</source>
        <translation>状态</translation>
    </message>
    <message>
        <source>Check items</source>
        <translation>检查项</translation>
    </message>
    <message>
        <source>Scan state</source>
        <translation>扫描状态</translation>
    </message>
    <message>
        <source>Scan counts</source>
        <translation>扫描计数</translation>
    </message>
    <message>
        <source>Scan content</source>
        <translation>扫描内容</translation>
    </message>
    <message>
        <source>Configuration errors</source>
        <translation>配置错误</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>级别</translation>
    </message>
    <message>
        <source>Scan</source>
        <translation>扫描</translation>
    </message>
    <message>
        <source>Current path</source>
        <translation>当前路径</translation>
    </message>
    <message>
        <source>Single scan</source>
        <translation>单项扫描</translation>
    </message>
    <message>
        <source>Kernel measurement</source>
        <translation>内核度量</translation>
    </message>
    <message>
        <source>Initialised</source>
        <translation>已初始化</translation>
    </message>
    <message>
        <source>Measurement count</source>
        <translation>度量数量</translation>
    </message>
    <message>
        <source>Measurements</source>
        <translation>度量结果</translation>
    </message>
    <message>
        <source>Interval</source>
        <translation>间隔</translation>
    </message>
    <message>
        <source>Measurement</source>
        <translation>度量</translation>
    </message>
    <message>
        <source>Trusted mode</source>
        <translation>可信模式</translation>
    </message>
    <message>
        <source>Trusted count</source>
        <translation>可信数量</translation>
    </message>
    <message>
        <source>Trusted list</source>
        <translation>可信列表</translation>
    </message>
    <message>
        <source>Trusted rows</source>
        <translation>可信行</translation>
    </message>
    <message>
        <source>System users</source>
        <translation>系统用户</translation>
    </message>
    <message>
        <source>Principal details</source>
        <translation>主体详情</translation>
    </message>
    <message>
        <source>Principal levels</source>
        <translation>主体级别</translation>
    </message>
    <message>
        <source>Checked principal level</source>
        <translation>勾选的主体级别</translation>
    </message>
    <message>
        <source>Last command</source>
        <translation>最近的命令</translation>
    </message>
    <message>
        <source>Object details</source>
        <translation>客体详情</translation>
    </message>
    <message>
        <source>Object levels</source>
        <translation>客体级别</translation>
    </message>
    <message>
        <source>Checked object level</source>
        <translation>勾选的客体级别</translation>
    </message>
    <message>
        <source>Principals to add</source>
        <translation>待添加主体</translation>
    </message>
    <message>
        <source>Files to add</source>
        <translation>待添加文件</translation>
    </message>
    <message>
        <source>Self protection</source>
        <translation>自我保护</translation>
    </message>
    <message>
        <source>Removal of software</source>
        <translation>软件卸载</translation>
    </message>
    <message>
        <source>Protections</source>
        <translation>防护项</translation>
    </message>
    <message>
        <source>Protected software count</source>
        <translation>受保护软件数</translation>
    </message>
    <message>
        <source>Protected software</source>
        <translation>受保护软件</translation>
    </message>
    <message>
        <source>Process protection</source>
        <translation>进程防护</translation>
    </message>
    <message>
        <source>Process count</source>
        <translation>进程数</translation>
    </message>
    <message>
        <source>Processes</source>
        <translation>进程</translation>
    </message>
    <message>
        <source>Process exceptions</source>
        <translation>进程例外</translation>
    </message>
    <message>
        <source>Exception rows</source>
        <translation>例外行</translation>
    </message>
    <message>
        <source>Kernel protection</source>
        <translation>内核防护</translation>
    </message>
    <message>
        <source>Blocking of modules</source>
        <translation>模块拦截</translation>
    </message>
    <message>
        <source>Module count</source>
        <translation>模块数</translation>
    </message>
    <message>
        <source>Kernel modules</source>
        <translation>内核模块</translation>
    </message>
    <message>
        <source>Blocked modules</source>
        <translation>被拦截模块</translation>
    </message>
    <message>
        <source>Directory protection</source>
        <translation>目录防护</translation>
    </message>
    <message>
        <source>File protection</source>
        <translation>文件防护</translation>
    </message>
    <message>
        <source>Directory count</source>
        <translation>目录数</translation>
    </message>
    <message>
        <source>File count</source>
        <translation>文件数</translation>
    </message>
    <message>
        <source>Directories</source>
        <translation>目录</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>Protected objects</source>
        <translation>受保护对象</translation>
    </message>
    <message>
        <source>File destruction</source>
        <translation>文件粉碎</translation>
    </message>
    <message>
        <source>Total</source>
        <translation>总计</translation>
    </message>
    <message>
        <source>By type</source>
        <translation>按类型</translation>
    </message>
    <message>
        <source>By month</source>
        <translation>按月</translation>
    </message>
    <message>
        <source>Failures by month</source>
        <translation>按月失败数</translation>
    </message>
    <message>
        <source>Entries</source>
        <translation>条目</translation>
    </message>
    <message>
        <source>Object counts</source>
        <translation>客体计数</translation>
    </message>
</context>
<context>
    <name>PictureModel</name>
    <message>
        <source>no picture</source>
        <translation>无图片</translation>
    </message>
    <message>
        <source>Key</source>
        <translation>键</translation>
    </message>
    <message>
        <source>Pixels</source>
        <translation>像素</translation>
    </message>
    <message>
        <source>File</source>
        <translation>文件</translation>
    </message>
</context>
<context>
    <name>PicturePanel</name>
    <message>
        <source>Pictures</source>
        <translation>图片</translation>
    </message>
    <message>
        <source>&amp;Directories</source>
        <translation>目录(&amp;D)</translation>
    </message>
    <message>
        <source>Directories</source>
        <translation>目录</translation>
    </message>
    <message>
        <source>Have the picture manager load another directory.</source>
        <translation>让图片管理器再加载一个目录。</translation>
    </message>
    <message>
        <source>Append a Picture Directory</source>
        <translation>追加图片目录</translation>
    </message>
    <message>
        <source>A&amp;ppend…</source>
        <translation>追加(&amp;P)…</translation>
    </message>
</context>
<context>
    <name>PlayBar</name>
    <message>
        <source>Scenario</source>
        <translation>场景</translation>
    </message>
    <message>
        <source>&amp;Open Scenario…</source>
        <translation>打开场景(&amp;O)…</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>播放(&amp;P)</translation>
    </message>
    <message>
        <source>S&amp;tep</source>
        <translation>单步(&amp;T)</translation>
    </message>
    <message>
        <source>Make the next call of the scenario.</source>
        <translation>执行场景的下一次调用。</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>停止(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Loop</source>
        <translation>循环(&amp;L)</translation>
    </message>
    <message>
        <source>Begin again at the end.</source>
        <translation>播完后重新开始。</translation>
    </message>
    <message>
        <source>Place in the scenario</source>
        <translation>场景中的位置</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>速度</translation>
    </message>
    <message>
        <source>Times as fast as it was recorded</source>
        <translation>相对录制速度的倍数</translation>
    </message>
    <message>
        <source>%1×</source>
        <translation>%1×</translation>
    </message>
    <message>
        <source>fastest</source>
        <translation>最快</translation>
    </message>
    <message>
        <source>Open Scenario</source>
        <translation>打开场景</translation>
    </message>
    <message>
        <source>&amp;Pause</source>
        <translation>暂停(&amp;P)</translation>
    </message>
</context>
<context>
    <name>RecordEdit</name>
    <message>
        <source>Fields</source>
        <translation>字段</translation>
    </message>
    <message>
        <source>%1 holds a text that no field can show</source>
        <translation>%1 含有任何字段都无法显示的文本</translation>
    </message>
</context>
<context>
    <name>RecordForm</name>
    <message>
        <source>%1 (%2)</source>
        <translation>%1（%2）</translation>
    </message>
</context>
<context>
    <name>Recording</name>
    <message>
        <source>cannot be written any further: %1</source>
        <translation>无法继续写入：%1</translation>
    </message>
    <message numerus="yes">
        <source>%n call(s) are missing in it</source>
        <translation>
            <numerusform>其中缺少 %n 次调用</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RegistryModel</name>
    <message>
        <source>Key</source>
        <translation>键</translation>
    </message>
    <message>
        <source>Class</source>
        <translation>类</translation>
    </message>
    <message>
        <source>Interface</source>
        <translation>接口</translation>
    </message>
    <message>
        <source>Thread</source>
        <translation>线程</translation>
    </message>
    <message>
        <source>Since</source>
        <translation>注册时间</translation>
    </message>
</context>
<context>
    <name>RegistryPanel</name>
    <message>
        <source>Registered objects</source>
        <translation>已注册对象</translation>
    </message>
</context>
<context>
    <name>ScenarioDialog</name>
    <message>
        <source>Scenarios (*.jsonl)</source>
        <translation>场景 (*.jsonl)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>所有文件 (*)</translation>
    </message>
</context>
<context>
    <name>TavPluginError</name>
    <message>
        <source>install the plugin, or name its file</source>
        <translation>请安装插件，或指定其文件</translation>
    </message>
    <message>
        <source>name libTavDataPlugin.so</source>
        <translation>请指定 libTavDataPlugin.so</translation>
    </message>
    <message>
        <source>name a page plugin</source>
        <translation>请指定页面插件</translation>
    </message>
    <message>
        <source>let this user read it</source>
        <translation>请允许此用户读取它</translation>
    </message>
    <message>
        <source>install the plugin again</source>
        <translation>请重新安装插件</translation>
    </message>
    <message>
        <source>install the plugin for %1</source>
        <translation>请安装适用于 %1 的插件</translation>
    </message>
    <message>
        <source>build the plugin with Qt %1.%2</source>
        <translation>请用 Qt %1.%2 构建插件</translation>
    </message>
    <message>
        <source>install what it lacks</source>
        <translation>请安装它所缺少的内容</translation>
    </message>
    <message>
        <source>install the libraries that it was built with</source>
        <translation>请安装构建它时所用的库</translation>
    </message>
    <message>
        <source>mend the plugin, or leave it out</source>
        <translation>请修正该插件，或不使用它</translation>
    </message>
    <message>
        <source>install the plugin that belongs to this client</source>
        <translation>请安装与此客户端配套的插件</translation>
    </message>
    <message>
        <source>no client for %1 can load it</source>
        <translation>%1 的客户端都无法加载它</translation>
    </message>
    <message>
        <source>Qt refuses to load it: it takes plugins of its own or an earlier minor version</source>
        <translation>Qt 拒绝加载它：只接受相同或更早次版本的插件</translation>
    </message>
    <message>
        <source>pages do not find what they look up</source>
        <translation>页面找不到所需的对象</translation>
    </message>
    <message>
        <source>the client has none of the managers</source>
        <translation>客户端没有任何管理器</translation>
    </message>
    <message>
        <source>the client has none of its pages</source>
        <translation>客户端没有它的任何页面</translation>
    </message>
    <message>
        <source>there is no such file</source>
        <translation>没有此文件</translation>
    </message>
    <message>
        <source>cannot be read: %1</source>
        <translation>无法读取：%1</translation>
    </message>
    <message>
        <source>not a regular file</source>
        <translation>不是普通文件</translation>
    </message>
    <message>
        <source>not a shared library</source>
        <translation>不是共享库</translation>
    </message>
    <message>
        <source>cut off: it ends before what its headers announce</source>
        <translation>不完整：文件在其头部所述内容之前结束</translation>
    </message>
    <message>
        <source>built for %1, but this program for %2</source>
        <translation>为 %1 构建，而本程序为 %2 构建</translation>
    </message>
    <message>
        <source>built for words of %1 bits, but this program for %2</source>
        <translation>为 %1 位字长构建，而本程序为 %2 位</translation>
    </message>
    <message>
        <source>not a Qt plugin</source>
        <translation>不是 Qt 插件</translation>
    </message>
    <message>
        <source>another plugin: its identifier is &quot;%1&quot; and not &quot;%2&quot;</source>
        <translation>是另一种插件：其标识为“%1”，而非“%2”</translation>
    </message>
    <message>
        <source>built with Qt %1, but this is Qt %2</source>
        <translation>用 Qt %1 构建，而这里是 Qt %2</translation>
    </message>
    <message>
        <source>cannot be loaded: it lacks the symbol %1</source>
        <translation>无法加载：缺少符号 %1</translation>
    </message>
    <message>
        <source>cannot be loaded: it lacks %1</source>
        <translation>无法加载：缺少 %1</translation>
    </message>
    <message>
        <source>cannot be loaded: %1</source>
        <translation>无法加载：%1</translation>
    </message>
    <message>
        <source>its root object, a %1, has no interface ITavDataPlugin</source>
        <translation>其根对象（%1）没有接口 ITavDataPlugin</translation>
    </message>
    <message>
        <source>it has no root object</source>
        <translation>它没有根对象</translation>
    </message>
    <message>
        <source>its registerObj() throws: %1</source>
        <translation>其 registerObj() 抛出异常：%1</translation>
    </message>
    <message>
        <source>its registerObj() throws what is no std::exception</source>
        <translation>其 registerObj() 抛出的不是 std::exception</translation>
    </message>
    <message>
        <source>%1 is missing</source>
        <translation>缺少 %1</translation>
    </message>
    <message>
        <source>%1 is a %2 without that interface</source>
        <translation>%1 是没有该接口的 %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; with the number %2 is none of them</source>
        <translation>“%1”（编号 %2）不在其中</translation>
    </message>
    <message>
        <source>registers no managers</source>
        <translation>没有注册任何管理器</translation>
    </message>
    <message>
        <source>registers other managers than the %1: %2</source>
        <translation>注册的管理器与这 %1 个不符：%2</translation>
    </message>
    <message>
        <source>registers nothing</source>
        <translation>没有注册任何对象</translation>
    </message>
    <message>
        <source>registers managers and no controller</source>
        <translation>注册了管理器而没有控制器</translation>
    </message>
</context>
<context>
    <name>ValueList</name>
    <message>
        <source>Check all</source>
        <translation>全部勾选</translation>
    </message>
    <message>
        <source>Uncheck all</source>
        <translation>全部取消</translation>
    </message>
    <message>
        <source>Toggle selected</source>
        <translation>切换所选</translation>
    </message>
    <message>
        <source>Toggle all</source>
        <translation>全部切换</translation>
    </message>
    <message>
        <source>Key of %1</source>
        <translation>%1 的键</translation>
    </message>
    <message>
        <source>all keys</source>
        <translation>所有键</translation>
    </message>
</context>
<context>
    <name>ValueModel</name>
    <message>
        <source>checked</source>
        <translation>已勾选</translation>
    </message>
    <message>
        <source>not checked</source>
        <translation>未勾选</translation>
    </message>
    <message>
        <source>%1, in %2</source>
        <translation>%1，单位：%2</translation>
    </message>
    <message>
        <source>%1: absent</source>
        <translation>%1：无</translation>
    </message>
</context>
<context>
    <name>ValueText</name>
    <message>
        <source>%1 at character %2; a text has its own quotes: &apos;&quot;text&quot;&apos;</source>
        <translation>%1，位于第 %2 个字符；文本须带引号：&apos;&quot;text&quot;&apos;</translation>
    </message>
    <message>
        <source>one JSON value is expected</source>
        <translation>应为一个 JSON 值</translation>
    </message>
    <message>
        <source>%1: the key stands more than once</source>
        <translation>%1：键重复出现</translation>
    </message>
</context>
<context>
    <name>WorkStatus</name>
    <message>
        <source>Reading this machine</source>
        <translation>正在读取本机</translation>
    </message>
    <message>
        <source>Reading the scenario</source>
        <translation>正在读取场景</translation>
    </message>
    <message>
        <source>Waiting for the calls under way</source>
        <translation>等待进行中的调用</translation>
    </message>
    <message>
        <source>Writing the recording</source>
        <translation>正在写入录制文件</translation>
    </message>
    <message numerus="yes">
        <source>%1: %2 of %n call(s)</source>
        <translation>
            <numerusform>%1：%n 次调用中的第 %2 次</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Recording %1: %n call(s), %2</source>
        <translation>
            <numerusform>正在录制 %1：%n 次调用，%2</numerusform>
        </translation>
    </message>
    <message>
        <source>Show what the agent could not read, and why.</source>
        <translation>显示代理未能读取的内容及原因。</translation>
    </message>
    <message numerus="yes">
        <source>%n source(s) could not be read</source>
        <translation>
            <numerusform>%n 个来源未能读取</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, turn %2</source>
        <translation>%1，第 %2 轮</translation>
    </message>
</context>
</TS>
