<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>Fields</name>
    <message>
        <source>abnormal count</source>
        <translation>异常数</translation>
    </message>
    <message>
        <source>action</source>
        <translation>动作</translation>
    </message>
    <message>
        <source>added count</source>
        <translation>新增数</translation>
    </message>
    <message>
        <source>address</source>
        <translation>地址</translation>
    </message>
    <message>
        <source>addresses</source>
        <translation>地址列表</translation>
    </message>
    <message>
        <source>agent id</source>
        <translation>代理标识</translation>
    </message>
    <message>
        <source>algorithm</source>
        <translation>算法</translation>
    </message>
    <message>
        <source>architecture</source>
        <translation>架构</translation>
    </message>
    <message>
        <source>audit</source>
        <translation>审计</translation>
    </message>
    <message>
        <source>audit allowed</source>
        <translation>审计允许项</translation>
    </message>
    <message>
        <source>audit denied</source>
        <translation>审计拒绝项</translation>
    </message>
    <message>
        <source>authorized</source>
        <translation>已授权</translation>
    </message>
    <message>
        <source>backup address</source>
        <translation>备用地址</translation>
    </message>
    <message>
        <source>backup port</source>
        <translation>备用端口</translation>
    </message>
    <message>
        <source>blocked bytes</source>
        <translation>拦截字节数</translation>
    </message>
    <message>
        <source>blocked count</source>
        <translation>拦截数</translation>
    </message>
    <message>
        <source>blocked packets</source>
        <translation>拦截包数</translation>
    </message>
    <message>
        <source>boot aggregate</source>
        <translation>启动聚合值</translation>
    </message>
    <message>
        <source>btntext</source>
        <translation>按钮文字</translation>
    </message>
    <message>
        <source>bus</source>
        <translation>总线</translation>
    </message>
    <message>
        <source>bytes</source>
        <translation>字节数</translation>
    </message>
    <message>
        <source>can login</source>
        <translation>可登录</translation>
    </message>
    <message>
        <source>can restore</source>
        <translation>可恢复</translation>
    </message>
    <message>
        <source>carrier</source>
        <translation>载波</translation>
    </message>
    <message>
        <source>certificate fingerprint</source>
        <translation>证书指纹</translation>
    </message>
    <message>
        <source>change time</source>
        <translation>更改时间</translation>
    </message>
    <message>
        <source>changed</source>
        <translation>已更改</translation>
    </message>
    <message>
        <source>changed count</source>
        <translation>更改数</translation>
    </message>
    <message>
        <source>check time</source>
        <translation>检查时间</translation>
    </message>
    <message>
        <source>check value script</source>
        <translation>检查脚本</translation>
    </message>
    <message>
        <source>checked</source>
        <translation>勾选</translation>
    </message>
    <message>
        <source>code</source>
        <translation>代码</translation>
    </message>
    <message>
        <source>command</source>
        <translation>命令</translation>
    </message>
    <message>
        <source>command line</source>
        <translation>命令行</translation>
    </message>
    <message>
        <source>control enabled</source>
        <translation>管控启用</translation>
    </message>
    <message>
        <source>count</source>
        <translation>数量</translation>
    </message>
    <message>
        <source>cpu cores</source>
        <translation>处理器核数</translation>
    </message>
    <message>
        <source>cpu model</source>
        <translation>处理器型号</translation>
    </message>
    <message>
        <source>cpu usage</source>
        <translation>处理器使用率</translation>
    </message>
    <message>
        <source>current item id</source>
        <translation>当前项标识</translation>
    </message>
    <message>
        <source>current object</source>
        <translation>当前对象</translation>
    </message>
    <message>
        <source>current path</source>
        <translation>当前路径</translation>
    </message>
    <message>
        <source>current value</source>
        <translation>当前值</translation>
    </message>
    <message>
        <source>default action</source>
        <translation>默认动作</translation>
    </message>
    <message>
        <source>desc</source>
        <translation>说明</translation>
    </message>
    <message>
        <source>destination address</source>
        <translation>目的地址</translation>
    </message>
    <message>
        <source>destination ports</source>
        <translation>目的端口</translation>
    </message>
    <message>
        <source>detail</source>
        <translation>详情</translation>
    </message>
    <message>
        <source>device</source>
        <translation>设备</translation>
    </message>
    <message>
        <source>device class</source>
        <translation>设备类</translation>
    </message>
    <message>
        <source>device count</source>
        <translation>设备数</translation>
    </message>
    <message>
        <source>device name</source>
        <translation>设备名称</translation>
    </message>
    <message>
        <source>device protocol</source>
        <translation>设备协议</translation>
    </message>
    <message>
        <source>device subclass</source>
        <translation>设备子类</translation>
    </message>
    <message>
        <source>devices</source>
        <translation>设备</translation>
    </message>
    <message>
        <source>digest</source>
        <translation>摘要</translation>
    </message>
    <message>
        <source>direction</source>
        <translation>方向</translation>
    </message>
    <message>
        <source>disk free</source>
        <translation>磁盘可用</translation>
    </message>
    <message>
        <source>disk total</source>
        <translation>磁盘总量</translation>
    </message>
    <message>
        <source>driver</source>
        <translation>驱动</translation>
    </message>
    <message>
        <source>drivers</source>
        <translation>驱动</translation>
    </message>
    <message>
        <source>duplex</source>
        <translation>双工</translation>
    </message>
    <message>
        <source>enabled</source>
        <translation>启用</translation>
    </message>
    <message>
        <source>enabled device count</source>
        <translation>启用设备数</translation>
    </message>
    <message>
        <source>enabled rule count</source>
        <translation>启用规则数</translation>
    </message>
    <message>
        <source>end time</source>
        <translation>结束时间</translation>
    </message>
    <message>
        <source>entries</source>
        <translation>条目</translation>
    </message>
    <message>
        <source>error</source>
        <translation>错误</translation>
    </message>
    <message>
        <source>errors</source>
        <translation>错误</translation>
    </message>
    <message>
        <source>expected digest</source>
        <translation>期望摘要</translation>
    </message>
    <message>
        <source>extra flag</source>
        <translation>附加标志</translation>
    </message>
    <message>
        <source>extra text</source>
        <translation>附加文字</translation>
    </message>
    <message>
        <source>failed</source>
        <translation>失败</translation>
    </message>
    <message>
        <source>failed count</source>
        <translation>失败数</translation>
    </message>
    <message>
        <source>failed since login</source>
        <translation>登录后失败次数</translation>
    </message>
    <message>
        <source>family</source>
        <translation>地址族</translation>
    </message>
    <message>
        <source>file count</source>
        <translation>文件数</translation>
    </message>
    <message>
        <source>file digest</source>
        <translation>文件摘要</translation>
    </message>
    <message>
        <source>file name</source>
        <translation>文件名</translation>
    </message>
    <message>
        <source>file path</source>
        <translation>文件路径</translation>
    </message>
    <message>
        <source>files</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>finished count</source>
        <translation>完成数</translation>
    </message>
    <message>
        <source>fixable</source>
        <translation>可修复</translation>
    </message>
    <message>
        <source>flag</source>
        <translation>标志</translation>
    </message>
    <message>
        <source>forward policy</source>
        <translation>转发策略</translation>
    </message>
    <message>
        <source>full name</source>
        <translation>全名</translation>
    </message>
    <message>
        <source>func id</source>
        <translation>功能标识</translation>
    </message>
    <message>
        <source>functions</source>
        <translation>功能</translation>
    </message>
    <message>
        <source>gateway</source>
        <translation>网关</translation>
    </message>
    <message>
        <source>gid</source>
        <translation>组标识</translation>
    </message>
    <message>
        <source>has tpm</source>
        <translation>有可信芯片</translation>
    </message>
    <message>
        <source>heartbeat interval</source>
        <translation>心跳间隔</translation>
    </message>
    <message>
        <source>home</source>
        <translation>主目录</translation>
    </message>
    <message>
        <source>host name</source>
        <translation>主机名</translation>
    </message>
    <message>
        <source>id</source>
        <translation>标识</translation>
    </message>
    <message>
        <source>index</source>
        <translation>序号</translation>
    </message>
    <message>
        <source>init state</source>
        <translation>初始化状态</translation>
    </message>
    <message>
        <source>input policy</source>
        <translation>入站策略</translation>
    </message>
    <message>
        <source>install time</source>
        <translation>安装时间</translation>
    </message>
    <message>
        <source>interface classes</source>
        <translation>接口类</translation>
    </message>
    <message>
        <source>interval</source>
        <translation>间隔</translation>
    </message>
    <message>
        <source>is checked</source>
        <translation>勾选</translation>
    </message>
    <message>
        <source>is virtual</source>
        <translation>虚拟</translation>
    </message>
    <message>
        <source>item id</source>
        <translation>项标识</translation>
    </message>
    <message>
        <source>item key</source>
        <translation>项键</translation>
    </message>
    <message>
        <source>item text</source>
        <translation>项文字</translation>
    </message>
    <message>
        <source>items</source>
        <translation>项</translation>
    </message>
    <message>
        <source>kernel release</source>
        <translation>内核版本号</translation>
    </message>
    <message>
        <source>kernel version</source>
        <translation>内核版本</translation>
    </message>
    <message>
        <source>kexec sig enforce</source>
        <translation>强制 kexec 签名</translation>
    </message>
    <message>
        <source>key</source>
        <translation>键</translation>
    </message>
    <message>
        <source>labels</source>
        <translation>标签</translation>
    </message>
    <message>
        <source>last login address</source>
        <translation>上次登录地址</translation>
    </message>
    <message>
        <source>last login time</source>
        <translation>上次登录时间</translation>
    </message>
    <message>
        <source>last online time</source>
        <translation>上次在线时间</translation>
    </message>
    <message>
        <source>last time</source>
        <translation>上次时间</translation>
    </message>
    <message>
        <source>learn seconds</source>
        <translation>学习秒数</translation>
    </message>
    <message>
        <source>level</source>
        <translation>级别</translation>
    </message>
    <message>
        <source>load average1</source>
        <translation>1 分钟负载</translation>
    </message>
    <message>
        <source>load average15</source>
        <translation>15 分钟负载</translation>
    </message>
    <message>
        <source>load average5</source>
        <translation>5 分钟负载</translation>
    </message>
    <message>
        <source>loaded</source>
        <translation>已加载</translation>
    </message>
    <message>
        <source>lock seconds</source>
        <translation>锁定秒数</translation>
    </message>
    <message>
        <source>lockdown</source>
        <translation>内核锁定</translation>
    </message>
    <message>
        <source>locked</source>
        <translation>已锁定</translation>
    </message>
    <message>
        <source>mac</source>
        <translation>物理地址</translation>
    </message>
    <message>
        <source>machine</source>
        <translation>机器类型</translation>
    </message>
    <message>
        <source>max level</source>
        <translation>最高级别</translation>
    </message>
    <message>
        <source>max power</source>
        <translation>最大功率</translation>
    </message>
    <message>
        <source>measure time</source>
        <translation>度量时间</translation>
    </message>
    <message>
        <source>measured count</source>
        <translation>度量数</translation>
    </message>
    <message>
        <source>memory available</source>
        <translation>可用内存</translation>
    </message>
    <message>
        <source>memory total</source>
        <translation>内存总量</translation>
    </message>
    <message>
        <source>message</source>
        <translation>消息</translation>
    </message>
    <message>
        <source>min classes</source>
        <translation>最少字符类</translation>
    </message>
    <message>
        <source>min length</source>
        <translation>最短长度</translation>
    </message>
    <message>
        <source>min level</source>
        <translation>最低级别</translation>
    </message>
    <message>
        <source>missing count</source>
        <translation>缺失数</translation>
    </message>
    <message>
        <source>mode</source>
        <translation>模式</translation>
    </message>
    <message>
        <source>modify time</source>
        <translation>修改时间</translation>
    </message>
    <message>
        <source>module count</source>
        <translation>模块数</translation>
    </message>
    <message>
        <source>module sig enforce</source>
        <translation>强制模块签名</translation>
    </message>
    <message>
        <source>modules</source>
        <translation>模块</translation>
    </message>
    <message>
        <source>modules disabled</source>
        <translation>禁止加载模块</translation>
    </message>
    <message>
        <source>month</source>
        <translation>月</translation>
    </message>
    <message>
        <source>mtu</source>
        <translation>最大传输单元</translation>
    </message>
    <message>
        <source>name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>needs reboot</source>
        <translation>需要重启</translation>
    </message>
    <message>
        <source>new value</source>
        <translation>新值</translation>
    </message>
    <message>
        <source>next time</source>
        <translation>下次时间</translation>
    </message>
    <message>
        <source>not applicable</source>
        <translation>不适用</translation>
    </message>
    <message>
        <source>not checked</source>
        <translation>未检查</translation>
    </message>
    <message>
        <source>object</source>
        <translation>客体</translation>
    </message>
    <message>
        <source>object count</source>
        <translation>客体数</translation>
    </message>
    <message>
        <source>offset</source>
        <translation>偏移</translation>
    </message>
    <message>
        <source>old value</source>
        <translation>旧值</translation>
    </message>
    <message>
        <source>oper state</source>
        <translation>运行状态</translation>
    </message>
    <message>
        <source>os name</source>
        <translation>系统名称</translation>
    </message>
    <message>
        <source>output policy</source>
        <translation>出站策略</translation>
    </message>
    <message>
        <source>package</source>
        <translation>软件包</translation>
    </message>
    <message>
        <source>packets</source>
        <translation>包数</translation>
    </message>
    <message>
        <source>passed</source>
        <translation>通过</translation>
    </message>
    <message>
        <source>passes</source>
        <translation>轮数</translation>
    </message>
    <message>
        <source>password days left</source>
        <translation>密码剩余天数</translation>
    </message>
    <message>
        <source>password expired</source>
        <translation>密码已过期</translation>
    </message>
    <message>
        <source>path</source>
        <translation>路径</translation>
    </message>
    <message>
        <source>pcr</source>
        <translation>平台寄存器</translation>
    </message>
    <message>
        <source>permission</source>
        <translation>权限</translation>
    </message>
    <message>
        <source>pid</source>
        <translation>进程号</translation>
    </message>
    <message>
        <source>plug time</source>
        <translation>接入时间</translation>
    </message>
    <message>
        <source>policy id</source>
        <translation>策略标识</translation>
    </message>
    <message>
        <source>policy version</source>
        <translation>策略版本</translation>
    </message>
    <message>
        <source>port</source>
        <translation>端口</translation>
    </message>
    <message>
        <source>port path</source>
        <translation>端口路径</translation>
    </message>
    <message>
        <source>ppid</source>
        <translation>父进程号</translation>
    </message>
    <message>
        <source>principal count</source>
        <translation>主体数</translation>
    </message>
    <message>
        <source>process count</source>
        <translation>进程数</translation>
    </message>
    <message>
        <source>process name</source>
        <translation>进程名</translation>
    </message>
    <message>
        <source>process path</source>
        <translation>进程路径</translation>
    </message>
    <message>
        <source>product id</source>
        <translation>产品标识</translation>
    </message>
    <message>
        <source>product name</source>
        <translation>产品名称</translation>
    </message>
    <message>
        <source>progress</source>
        <translation>进度</translation>
    </message>
    <message>
        <source>proto data</source>
        <translation>数据内容</translation>
    </message>
    <message>
        <source>protocol</source>
        <translation>协议</translation>
    </message>
    <message>
        <source>reached level</source>
        <translation>达到级别</translation>
    </message>
    <message>
        <source>reason</source>
        <translation>原因</translation>
    </message>
    <message>
        <source>recursive</source>
        <translation>包含子目录</translation>
    </message>
    <message>
        <source>ref count</source>
        <translation>引用数</translation>
    </message>
    <message>
        <source>remaining attempts</source>
        <translation>剩余次数</translation>
    </message>
    <message>
        <source>removable</source>
        <translation>可移除</translation>
    </message>
    <message>
        <source>result</source>
        <translation>结果</translation>
    </message>
    <message>
        <source>retry count</source>
        <translation>重试次数</translation>
    </message>
    <message>
        <source>role</source>
        <translation>角色</translation>
    </message>
    <message>
        <source>role name</source>
        <translation>角色名称</translation>
    </message>
    <message>
        <source>root disk free</source>
        <translation>根磁盘可用</translation>
    </message>
    <message>
        <source>root disk total</source>
        <translation>根磁盘总量</translation>
    </message>
    <message>
        <source>round trip time</source>
        <translation>往返时间</translation>
    </message>
    <message>
        <source>rule count</source>
        <translation>规则数</translation>
    </message>
    <message>
        <source>rule id</source>
        <translation>规则标识</translation>
    </message>
    <message>
        <source>rules</source>
        <translation>规则</translation>
    </message>
    <message>
        <source>run id</source>
        <translation>运行标识</translation>
    </message>
    <message>
        <source>rx bytes</source>
        <translation>接收字节数</translation>
    </message>
    <message>
        <source>rx dropped</source>
        <translation>接收丢弃数</translation>
    </message>
    <message>
        <source>rx errors</source>
        <translation>接收错误数</translation>
    </message>
    <message>
        <source>rx packets</source>
        <translation>接收包数</translation>
    </message>
    <message>
        <source>sample time</source>
        <translation>采样时间</translation>
    </message>
    <message>
        <source>scan id</source>
        <translation>扫描标识</translation>
    </message>
    <message>
        <source>scan time</source>
        <translation>扫描时间</translation>
    </message>
    <message>
        <source>scanned count</source>
        <translation>扫描数</translation>
    </message>
    <message>
        <source>score</source>
        <translation>得分</translation>
    </message>
    <message>
        <source>secure boot</source>
        <translation>安全启动</translation>
    </message>
    <message>
        <source>security</source>
        <translation>安全</translation>
    </message>
    <message>
        <source>security modules</source>
        <translation>安全模块</translation>
    </message>
    <message>
        <source>serial</source>
        <translation>序列号</translation>
    </message>
    <message>
        <source>server name</source>
        <translation>服务器名称</translation>
    </message>
    <message>
        <source>server version</source>
        <translation>服务器版本</translation>
    </message>
    <message>
        <source>severity</source>
        <translation>严重程度</translation>
    </message>
    <message>
        <source>shell</source>
        <translation>登录程序</translation>
    </message>
    <message>
        <source>signature</source>
        <translation>签名</translation>
    </message>
    <message>
        <source>signature key</source>
        <translation>签名密钥</translation>
    </message>
    <message>
        <source>signer</source>
        <translation>签名者</translation>
    </message>
    <message>
        <source>size</source>
        <translation>大小</translation>
    </message>
    <message>
        <source>source address</source>
        <translation>源地址</translation>
    </message>
    <message>
        <source>source ports</source>
        <translation>源端口</translation>
    </message>
    <message>
        <source>speed</source>
        <translation>速率</translation>
    </message>
    <message>
        <source>standard value</source>
        <translation>标准值</translation>
    </message>
    <message>
        <source>start time</source>
        <translation>开始时间</translation>
    </message>
    <message>
        <source>state</source>
        <translation>状态</translation>
    </message>
    <message>
        <source>state extra</source>
        <translation>附加状态</translation>
    </message>
    <message>
        <source>state text</source>
        <translation>状态文字</translation>
    </message>
    <message>
        <source>state value</source>
        <translation>状态值</translation>
    </message>
    <message>
        <source>status</source>
        <translation>状态</translation>
    </message>
    <message>
        <source>succeeded count</source>
        <translation>成功数</translation>
    </message>
    <message>
        <source>summary</source>
        <translation>概要</translation>
    </message>
    <message>
        <source>supported</source>
        <translation>支持</translation>
    </message>
    <message>
        <source>swap free</source>
        <translation>交换区可用</translation>
    </message>
    <message>
        <source>swap total</source>
        <translation>交换区总量</translation>
    </message>
    <message>
        <source>switch id</source>
        <translation>开关标识</translation>
    </message>
    <message>
        <source>switches</source>
        <translation>开关</translation>
    </message>
    <message>
        <source>system</source>
        <translation>系统</translation>
    </message>
    <message>
        <source>taint</source>
        <translation>污染标志</translation>
    </message>
    <message>
        <source>taint letters</source>
        <translation>污染字母</translation>
    </message>
    <message>
        <source>task id</source>
        <translation>任务标识</translation>
    </message>
    <message>
        <source>template hash</source>
        <translation>模板散列</translation>
    </message>
    <message>
        <source>template name</source>
        <translation>模板名称</translation>
    </message>
    <message>
        <source>time</source>
        <translation>时间</translation>
    </message>
    <message>
        <source>title</source>
        <translation>标题</translation>
    </message>
    <message>
        <source>total</source>
        <translation>总数</translation>
    </message>
    <message>
        <source>total count</source>
        <translation>总数</translation>
    </message>
    <message>
        <source>trusted</source>
        <translation>可信</translation>
    </message>
    <message>
        <source>tx bytes</source>
        <translation>发送字节数</translation>
    </message>
    <message>
        <source>tx dropped</source>
        <translation>发送丢弃数</translation>
    </message>
    <message>
        <source>tx errors</source>
        <translation>发送错误数</translation>
    </message>
    <message>
        <source>tx packets</source>
        <translation>发送包数</translation>
    </message>
    <message>
        <source>type</source>
        <translation>类型</translation>
    </message>
    <message>
        <source>uid</source>
        <translation>用户标识</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>未知</translation>
    </message>
    <message>
        <source>unsigned module count</source>
        <translation>未签名模块数</translation>
    </message>
    <message>
        <source>update time</source>
        <translation>更新时间</translation>
    </message>
    <message>
        <source>uptime</source>
        <translation>运行时长</translation>
    </message>
    <message>
        <source>usb version</source>
        <translation>USB 版本</translation>
    </message>
    <message>
        <source>use tls</source>
        <translation>使用 TLS</translation>
    </message>
    <message>
        <source>user name</source>
        <translation>用户名</translation>
    </message>
    <message>
        <source>user number</source>
        <translation>用户编号</translation>
    </message>
    <message>
        <source>user text</source>
        <translation>用户文字</translation>
    </message>
    <message>
        <source>vendor id</source>
        <translation>厂商标识</translation>
    </message>
    <message>
        <source>vendor name</source>
        <translation>厂商名称</translation>
    </message>
    <message>
        <source>version</source>
        <translation>版本</translation>
    </message>
    <message>
        <source>violations</source>
        <translation>违规数</translation>
    </message>
    <message>
        <source>wireless</source>
        <translation>无线</translation>
    </message>
    <message>
        <source>year</source>
        <translation>年</translation>
    </message>
</context>
<context>
    <name>CodeMeanings</name>
    <message>
        <source>accept</source>
        <translation>接受</translation>
    </message>
    <message>
        <source>accepted</source>
        <translation>已接受</translation>
    </message>
    <message>
        <source>access control</source>
        <translation>访问控制</translation>
    </message>
    <message>
        <source>account missing</source>
        <translation>账户缺失</translation>
    </message>
    <message>
        <source>added</source>
        <translation>新增</translation>
    </message>
    <message>
        <source>allow</source>
        <translation>允许</translation>
    </message>
    <message>
        <source>allowed</source>
        <translation>已允许</translation>
    </message>
    <message>
        <source>allowed by the administrator</source>
        <translation>管理员已允许</translation>
    </message>
    <message>
        <source>already in place</source>
        <translation>已符合</translation>
    </message>
    <message>
        <source>any</source>
        <translation>任意</translation>
    </message>
    <message>
        <source>applied</source>
        <translation>已应用</translation>
    </message>
    <message>
        <source>audit administrator</source>
        <translation>审计管理员</translation>
    </message>
    <message>
        <source>basic</source>
        <translation>基础</translation>
    </message>
    <message>
        <source>blocked</source>
        <translation>已阻止</translation>
    </message>
    <message>
        <source>blocked module</source>
        <translation>被阻止的模块</translation>
    </message>
    <message>
        <source>Bluetooth</source>
        <translation>蓝牙</translation>
    </message>
    <message>
        <source>boot loader</source>
        <translation>引导程序</translation>
    </message>
    <message>
        <source>both</source>
        <translation>双向或两者</translation>
    </message>
    <message>
        <source>by hand</source>
        <translation>手动</translation>
    </message>
    <message>
        <source>camera</source>
        <translation>摄像头</translation>
    </message>
    <message>
        <source>card reader</source>
        <translation>读卡器</translation>
    </message>
    <message>
        <source>changed</source>
        <translation>已改变</translation>
    </message>
    <message>
        <source>confidentiality</source>
        <translation>机密性</translation>
    </message>
    <message>
        <source>configuration</source>
        <translation>配置</translation>
    </message>
    <message>
        <source>connecting</source>
        <translation>正在连接</translation>
    </message>
    <message>
        <source>deny</source>
        <translation>拒绝</translation>
    </message>
    <message>
        <source>destroyed</source>
        <translation>已销毁</translation>
    </message>
    <message>
        <source>device</source>
        <translation>设备</translation>
    </message>
    <message>
        <source>differences found</source>
        <translation>发现差异</translation>
    </message>
    <message>
        <source>digest differs</source>
        <translation>摘要不符</translation>
    </message>
    <message>
        <source>directory</source>
        <translation>目录</translation>
    </message>
    <message>
        <source>done</source>
        <translation>完成</translation>
    </message>
    <message>
        <source>done or nothing pending</source>
        <translation>已完成或无待办</translation>
    </message>
    <message>
        <source>dormant</source>
        <translation>休眠</translation>
    </message>
    <message>
        <source>down</source>
        <translation>断开</translation>
    </message>
    <message>
        <source>drop</source>
        <translation>丢弃</translation>
    </message>
    <message>
        <source>enforced</source>
        <translation>强制</translation>
    </message>
    <message>
        <source>error</source>
        <translation>错误</translation>
    </message>
    <message>
        <source>Ethernet</source>
        <translation>以太网</translation>
    </message>
    <message>
        <source>expired</source>
        <translation>已过期</translation>
    </message>
    <message>
        <source>failed</source>
        <translation>失败</translation>
    </message>
    <message>
        <source>file</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>finished</source>
        <translation>已结束</translation>
    </message>
    <message>
        <source>finished with failures</source>
        <translation>已结束，有失败</translation>
    </message>
    <message>
        <source>full</source>
        <translation>全双工</translation>
    </message>
    <message>
        <source>good</source>
        <translation>良好</translation>
    </message>
    <message>
        <source>half</source>
        <translation>半双工</translation>
    </message>
    <message>
        <source>high</source>
        <translation>高</translation>
    </message>
    <message>
        <source>ICMP</source>
        <translation>ICMP</translation>
    </message>
    <message>
        <source>id given twice</source>
        <translation>标识重复</translation>
    </message>
    <message>
        <source>idle</source>
        <translation>空闲</translation>
    </message>
    <message>
        <source>incoming</source>
        <translation>入站</translation>
    </message>
    <message>
        <source>initial ram disk</source>
        <translation>初始内存盘</translation>
    </message>
    <message>
        <source>injected code</source>
        <translation>注入的代码</translation>
    </message>
    <message>
        <source>installed software</source>
        <translation>已安装软件</translation>
    </message>
    <message>
        <source>integrity</source>
        <translation>完整性</translation>
    </message>
    <message>
        <source>IPv4</source>
        <translation>IPv4</translation>
    </message>
    <message>
        <source>IPv6</source>
        <translation>IPv6</translation>
    </message>
    <message>
        <source>kept up by the backend</source>
        <translation>由后端保持</translation>
    </message>
    <message>
        <source>kernel</source>
        <translation>内核</translation>
    </message>
    <message>
        <source>kernel module</source>
        <translation>内核模块</translation>
    </message>
    <message>
        <source>key missing</source>
        <translation>缺少键</translation>
    </message>
    <message>
        <source>key not trusted</source>
        <translation>密钥不受信任</translation>
    </message>
    <message>
        <source>learning</source>
        <translation>学习</translation>
    </message>
    <message>
        <source>locked</source>
        <translation>已锁定</translation>
    </message>
    <message>
        <source>log only</source>
        <translation>仅记录</translation>
    </message>
    <message>
        <source>login</source>
        <translation>登录</translation>
    </message>
    <message>
        <source>loopback</source>
        <translation>回环</translation>
    </message>
    <message>
        <source>low</source>
        <translation>低</translation>
    </message>
    <message>
        <source>may be used</source>
        <translation>可以使用</translation>
    </message>
    <message>
        <source>measure</source>
        <translation>度量</translation>
    </message>
    <message>
        <source>measure and log differences</source>
        <translation>度量并记录差异</translation>
    </message>
    <message>
        <source>measure and refuse what differs</source>
        <translation>度量并拒绝不符者</translation>
    </message>
    <message>
        <source>middle</source>
        <translation>中</translation>
    </message>
    <message>
        <source>missing</source>
        <translation>缺失</translation>
    </message>
    <message>
        <source>module</source>
        <translation>模块</translation>
    </message>
    <message>
        <source>network</source>
        <translation>网络</translation>
    </message>
    <message>
        <source>never</source>
        <translation>从未</translation>
    </message>
    <message>
        <source>never run</source>
        <translation>从未运行</translation>
    </message>
    <message>
        <source>no limit</source>
        <translation>不限</translation>
    </message>
    <message>
        <source>none</source>
        <translation>无</translation>
    </message>
    <message>
        <source>none yet</source>
        <translation>尚无</translation>
    </message>
    <message>
        <source>not allowed</source>
        <translation>不允许</translation>
    </message>
    <message>
        <source>not applicable</source>
        <translation>不适用</translation>
    </message>
    <message>
        <source>not begun</source>
        <translation>未开始</translation>
    </message>
    <message>
        <source>not checked</source>
        <translation>未检查</translation>
    </message>
    <message>
        <source>not in this kernel</source>
        <translation>此内核没有</translation>
    </message>
    <message>
        <source>not judged</source>
        <translation>未评判</translation>
    </message>
    <message>
        <source>not known yet</source>
        <translation>尚不知道</translation>
    </message>
    <message>
        <source>not limited</source>
        <translation>不限</translation>
    </message>
    <message>
        <source>not locked</source>
        <translation>未锁定</translation>
    </message>
    <message>
        <source>not protected</source>
        <translation>未保护</translation>
    </message>
    <message>
        <source>not readable</source>
        <translation>不可读</translation>
    </message>
    <message>
        <source>not running</source>
        <translation>未运行</translation>
    </message>
    <message>
        <source>not set up</source>
        <translation>未设置</translation>
    </message>
    <message>
        <source>not tainted</source>
        <translation>未污染</translation>
    </message>
    <message>
        <source>not verified</source>
        <translation>未验证</translation>
    </message>
    <message>
        <source>nothing to add</source>
        <translation>无补充</translation>
    </message>
    <message>
        <source>off</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>offline</source>
        <translation>离线</translation>
    </message>
    <message>
        <source>old one wrong</source>
        <translation>旧密码错误</translation>
    </message>
    <message>
        <source>on</source>
        <translation>开启</translation>
    </message>
    <message>
        <source>online</source>
        <translation>在线</translation>
    </message>
    <message>
        <source>open</source>
        <translation>待处理</translation>
    </message>
    <message>
        <source>optical drive</source>
        <translation>光驱</translation>
    </message>
    <message>
        <source>other</source>
        <translation>其他</translation>
    </message>
    <message>
        <source>outgoing</source>
        <translation>出站</translation>
    </message>
    <message>
        <source>passed</source>
        <translation>通过</translation>
    </message>
    <message>
        <source>passing through</source>
        <translation>转发</translation>
    </message>
    <message>
        <source>printer</source>
        <translation>打印机</translation>
    </message>
    <message>
        <source>privilege raised</source>
        <translation>权限提升</translation>
    </message>
    <message>
        <source>process</source>
        <translation>进程</translation>
    </message>
    <message>
        <source>process ended</source>
        <translation>进程已结束</translation>
    </message>
    <message>
        <source>protected</source>
        <translation>已保护</translation>
    </message>
    <message>
        <source>protected and not running</source>
        <translation>已保护，未运行</translation>
    </message>
    <message>
        <source>protected and running</source>
        <translation>已保护，运行中</translation>
    </message>
    <message>
        <source>protection</source>
        <translation>防护</translation>
    </message>
    <message>
        <source>raised</source>
        <translation>加强</translation>
    </message>
    <message>
        <source>read-only</source>
        <translation>只读</translation>
    </message>
    <message>
        <source>reject with an answer</source>
        <translation>拒绝并答复</translation>
    </message>
    <message>
        <source>running</source>
        <translation>运行中</translation>
    </message>
    <message>
        <source>script missing</source>
        <translation>脚本缺失</translation>
    </message>
    <message>
        <source>script not executable</source>
        <translation>脚本不可执行</translation>
    </message>
    <message>
        <source>security</source>
        <translation>安全</translation>
    </message>
    <message>
        <source>self</source>
        <translation>自身</translation>
    </message>
    <message>
        <source>serial port</source>
        <translation>串口</translation>
    </message>
    <message>
        <source>set up</source>
        <translation>已设置</translation>
    </message>
    <message>
        <source>setup mode</source>
        <translation>设置模式</translation>
    </message>
    <message>
        <source>signature bad</source>
        <translation>签名错误</translation>
    </message>
    <message>
        <source>signature good</source>
        <translation>签名正确</translation>
    </message>
    <message>
        <source>skipped</source>
        <translation>已跳过</translation>
    </message>
    <message>
        <source>sound</source>
        <translation>声音</translation>
    </message>
    <message>
        <source>stopped</source>
        <translation>已停止</translation>
    </message>
    <message>
        <source>stopped by the user</source>
        <translation>由用户停止</translation>
    </message>
    <message>
        <source>strict</source>
        <translation>严格</translation>
    </message>
    <message>
        <source>system</source>
        <translation>系统</translation>
    </message>
    <message>
        <source>tampered</source>
        <translation>被篡改</translation>
    </message>
    <message>
        <source>tampered with</source>
        <translation>被篡改</translation>
    </message>
    <message>
        <source>TCP</source>
        <translation>TCP</translation>
    </message>
    <message>
        <source>the file as a whole</source>
        <translation>整个文件</translation>
    </message>
    <message>
        <source>the firmware has none</source>
        <translation>固件没有</translation>
    </message>
    <message>
        <source>told by each interface</source>
        <translation>由各接口说明</translation>
    </message>
    <message>
        <source>too weak</source>
        <translation>太弱</translation>
    </message>
    <message>
        <source>trusted</source>
        <translation>可信</translation>
    </message>
    <message>
        <source>UDP</source>
        <translation>UDP</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>未知</translation>
    </message>
    <message>
        <source>unknown file</source>
        <translation>未知文件</translation>
    </message>
    <message>
        <source>unknown or no link</source>
        <translation>未知或无连接</translation>
    </message>
    <message>
        <source>unknown program</source>
        <translation>未知程序</translation>
    </message>
    <message>
        <source>unsigned</source>
        <translation>未签名</translation>
    </message>
    <message>
        <source>up</source>
        <translation>连通</translation>
    </message>
    <message>
        <source>USB input</source>
        <translation>USB 输入设备</translation>
    </message>
    <message>
        <source>USB storage</source>
        <translation>USB 存储</translation>
    </message>
    <message>
        <source>used before</source>
        <translation>曾经用过</translation>
    </message>
    <message>
        <source>violation</source>
        <translation>违规</translation>
    </message>
    <message>
        <source>waiting</source>
        <translation>等待中</translation>
    </message>
    <message>
        <source>whole</source>
        <translation>完整</translation>
    </message>
    <message>
        <source>wireless network</source>
        <translation>无线网络</translation>
    </message>
    <message>
        <source>with a button</source>
        <translation>带按钮</translation>
    </message>
    <message>
        <source>with failures</source>
        <translation>有失败</translation>
    </message>
    <message>
        <source>wrong name or password</source>
        <translation>用户名或密码错误</translation>
    </message>
    <message>
        <source>wrong type</source>
        <translation>类型错误</translation>
    </message>
</context>
</TS>
