<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
<context>
    <name>CLmAccountSession</name>
    <message>
        <source>Please Login</source>
        <translation>请登录</translation>
    </message>
    <message>
        <source> Failed to get user information.</source>
        <translation> 获取用户信息失败。</translation>
    </message>
    <message>
        <source>Sign in</source>
        <translation>登录</translation>
    </message>
    <message>
        <source>Network fault</source>
        <translation>网络故障</translation>
    </message>
    <message>
        <source>SkyConsole</source>
        <translation>SkyConsole</translation>
    </message>
</context>
<context>
    <name>CLmBaseDialog</name>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>CLmBatteryFrameWgt</name>
    <message>
        <source>Battery_%1</source>
        <translation>电池_%1</translation>
    </message>
</context>
<context>
    <name>CLmCarrowmereLoginDialog</name>
    <message>
        <source>User name</source>
        <translation>用户名</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>密码</translation>
    </message>
    <message>
        <source>Login</source>
        <translation>登录</translation>
    </message>
    <message>
        <source>Forgot</source>
        <translation>忘记密码</translation>
    </message>
    <message>
        <source>Register</source>
        <translation>注册</translation>
    </message>
    <message>
        <source>Login Tolva Cloud</source>
        <translation>登录 Tolva 云</translation>
    </message>
    <message>
        <source>SkyConsole</source>
        <translation>SkyConsole</translation>
    </message>
</context>
<context>
    <name>CLmCarrowmereMainWindow</name>
    <message>
        <source>SkyConsole</source>
        <translation>SkyConsole</translation>
    </message>
    <message>
        <source>Program maintenance is complete, welcome to use.</source>
        <translation>程序维护已完成，欢迎使用。</translation>
    </message>
    <message>
        <source>Do you want to exit the application?</source>
        <translation>确定要退出应用程序吗？</translation>
    </message>
</context>
<context>
    <name>CLmCarrowmereMaintainPage</name>
    <message>
        <source>Home</source>
        <translation>首页</translation>
    </message>
    <message>
        <source>Maintain</source>
        <translation>维护</translation>
    </message>
    <message>
        <source>A device access request is waiting for you.</source>
        <translation>有一个设备接入请求等待您处理。</translation>
    </message>
    <message>
        <source>Overview</source>
        <translation>概览</translation>
    </message>
    <message>
        <source>Plane status</source>
        <translation>飞机状态</translation>
    </message>
    <message>
        <source>UAV settings</source>
        <translation>无人机设置</translation>
    </message>
    <message>
        <source>Fault diagnosis</source>
        <translation>故障诊断</translation>
    </message>
    <message>
        <source>Base station</source>
        <translation>基站</translation>
    </message>
    <message>
        <source>Data download</source>
        <translation>数据下载</translation>
    </message>
    <message>
        <source>Aircraft</source>
        <translation>飞机</translation>
    </message>
    <message>
        <source>No aircraft connected.</source>
        <translation>未连接飞机。</translation>
    </message>
    <message>
        <source>USB disks</source>
        <translation>USB 磁盘</translation>
    </message>
    <message>
        <source>No removable disk found.</source>
        <translation>未找到可移动磁盘。</translation>
    </message>
    <message>
        <source>Aircraft connected.</source>
        <translation>飞机已连接。</translation>
    </message>
    <message>
        <source>Fixed-wing</source>
        <translation>固定翼</translation>
    </message>
    <message>
        <source>Multirotor</source>
        <translation>多旋翼</translation>
    </message>
    <message>
        <source>New firmware package: %1</source>
        <translation>新固件包：%1</translation>
    </message>
    <message>
        <source>Firmware</source>
        <translation>固件</translation>
    </message>
    <message>
        <source>Licence key</source>
        <translation>许可证密钥</translation>
    </message>
</context>
<context>
    <name>CLmCarrowmereProjMgrObj</name>
    <message>
        <source>Reading project list start.</source>
        <translation>开始读取项目列表。</translation>
    </message>
    <message>
        <source>Start synchronization project.</source>
        <translation>开始同步项目。</translation>
    </message>
    <message>
        <source>Reading project list error.</source>
        <translation>读取项目列表出错。</translation>
    </message>
    <message>
        <source>Read project list finished</source>
        <translation>项目列表读取完成</translation>
    </message>
    <message>
        <source>Downloading </source>
        <translation>正在下载 </translation>
    </message>
    <message>
        <source>Finished</source>
        <translation>已完成</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>失败</translation>
    </message>
    <message>
        <source>Uploading</source>
        <translation>正在上传</translation>
    </message>
</context>
<context>
    <name>CLmCarrowmereSaveRPWidget</name>
    <message>
        <source>Save reference point</source>
        <translation>保存参考点</translation>
    </message>
    <message>
        <source>Save as</source>
        <translation>另存为</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>CLmCarrowmereUpgradeLauncher</name>
    <message>
        <source>Looking for the newest launcher ...</source>
        <translation>正在查找最新的启动器……</translation>
    </message>
    <message>
        <source>The launcher is up to date.</source>
        <translation>启动器已是最新版本。</translation>
    </message>
</context>
<context>
    <name>CLmCarrowmereWgt</name>
    <message>
        <source>SkyConsole</source>
        <translation>SkyConsole</translation>
    </message>
    <message>
        <source>SkyConsole Professional</source>
        <translation>SkyConsole 专业版</translation>
    </message>
    <message>
        <source>Test version</source>
        <translation>测试版</translation>
    </message>
    <message>
        <source>Network state</source>
        <translation>网络状态</translation>
    </message>
    <message>
        <source>Recived Message</source>
        <translation>收到的消息</translation>
    </message>
    <message>
        <source>Sign in</source>
        <translation>登录</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>帮助</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Project manager</source>
        <translation>项目管理</translation>
    </message>
    <message>
        <source>Vireo Plan</source>
        <translation>Vireo 规划</translation>
    </message>
    <message>
        <source>Vireo Fly</source>
        <translation>Vireo 飞行</translation>
    </message>
    <message>
        <source>Vireo Check</source>
        <translation>Vireo 检查</translation>
    </message>
    <message>
        <source>Vireo Process</source>
        <translation>Vireo 处理</translation>
    </message>
    <message>
        <source>Vireo Map</source>
        <translation>Vireo 地图</translation>
    </message>
    <message>
        <source>Vireo Monitor</source>
        <translation>Vireo 监控</translation>
    </message>
    <message>
        <source>Maintain</source>
        <translation>维护</translation>
    </message>
    <message>
        <source>3D Viewer</source>
        <translation>三维浏览</translation>
    </message>
    <message>
        <source>Viewer</source>
        <translation>浏览器</translation>
    </message>
    <message>
        <source>Image browser</source>
        <translation>图像浏览</translation>
    </message>
    <message>
        <source>The cloud service cannot be reached. Projects, sign-in and news return when the network is back.</source>
        <translation>无法连接云服务。网络恢复后，项目、登录和新闻将恢复。</translation>
    </message>
    <message>
        <source>System information</source>
        <translation>系统信息</translation>
    </message>
</context>
<context>
    <name>CLmChangePhoneDialog</name>
    <message>
        <source>Change the phone number of this account</source>
        <translation>更改此账号的手机号码</translation>
    </message>
    <message>
        <source>New phone number</source>
        <translation>新手机号码</translation>
    </message>
    <message>
        <source>Send code</source>
        <translation>发送验证码</translation>
    </message>
    <message>
        <source>Verification code</source>
        <translation>验证码</translation>
    </message>
    <message>
        <source>Confirm</source>
        <translation>确认</translation>
    </message>
    <message>
        <source>Change phone</source>
        <translation>更换手机</translation>
    </message>
    <message>
        <source>The phone number has been changed.</source>
        <translation>手机号码已更改。</translation>
    </message>
    <message>
        <source>Please enter the new phone number.</source>
        <translation>请输入新手机号码。</translation>
    </message>
    <message>
        <source>Please enter the verification code.</source>
        <translation>请输入验证码。</translation>
    </message>
</context>
<context>
    <name>CLmCitySelectWidget</name>
    <message>
        <source>all</source>
        <translation>全部</translation>
    </message>
    <message>
        <source>Search city</source>
        <translation>搜索城市</translation>
    </message>
    <message>
        <source>No matching city</source>
        <translation>没有匹配的城市</translation>
    </message>
</context>
<context>
    <name>CLmCoordinateCalculator</name>
    <message>
        <source>Calculator</source>
        <translation>计算器</translation>
    </message>
    <message>
        <source>First point (lat, lng):</source>
        <translation>第一点（纬度，经度）：</translation>
    </message>
    <message>
        <source>Second point (lat, lng):</source>
        <translation>第二点（纬度，经度）：</translation>
    </message>
    <message>
        <source>Distance:</source>
        <translation>距离：</translation>
    </message>
    <message>
        <source>Calculate</source>
        <translation>计算</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Not a position</source>
        <translation>不是有效位置</translation>
    </message>
</context>
<context>
    <name>CLmCoordinateConverter</name>
    <message>
        <source>Format converter</source>
        <translation>格式转换</translation>
    </message>
    <message>
        <source>Degrees:</source>
        <translation>度：</translation>
    </message>
    <message>
        <source>Degrees, minutes, seconds:</source>
        <translation>度、分、秒：</translation>
    </message>
    <message>
        <source>°</source>
        <translation>°</translation>
    </message>
    <message>
        <source>′</source>
        <translation>′</translation>
    </message>
    <message>
        <source>″</source>
        <translation>″</translation>
    </message>
    <message>
        <source>Degrees and minutes (ddmm):</source>
        <translation>度分（ddmm）：</translation>
    </message>
    <message>
        <source>Degrees to DMS</source>
        <translation>度转度分秒</translation>
    </message>
    <message>
        <source>DMS to degrees</source>
        <translation>度分秒转度</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Not an angle</source>
        <translation>不是有效角度</translation>
    </message>
</context>
<context>
    <name>CLmCorsStationSettingPage</name>
    <message>
        <source>Connect to CORS station</source>
        <translation>连接 CORS 站</translation>
    </message>
    <message>
        <source>Host Address:</source>
        <translation>主机地址：</translation>
    </message>
    <message>
        <source>Port:</source>
        <translation>端口：</translation>
    </message>
    <message>
        <source>Account:</source>
        <translation>账号：</translation>
    </message>
    <message>
        <source>Password:</source>
        <translation>密码：</translation>
    </message>
    <message>
        <source>Source list:</source>
        <translation>源列表：</translation>
    </message>
    <message>
        <source>Acquiring</source>
        <translation>获取</translation>
    </message>
    <message>
        <source>Connection protocol:</source>
        <translation>连接协议：</translation>
    </message>
    <message>
        <source>NTRIP</source>
        <translation>NTRIP</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Please input host address and port.</source>
        <translation>请输入主机地址和端口。</translation>
    </message>
    <message>
        <source>Please input account and password.</source>
        <translation>请输入账号和密码。</translation>
    </message>
    <message>
        <source>Please select source node.</source>
        <translation>请选择源节点。</translation>
    </message>
</context>
<context>
    <name>CLmDateSelectWidget</name>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>From</source>
        <translation>从</translation>
    </message>
    <message>
        <source>To</source>
        <translation>至</translation>
    </message>
</context>
<context>
    <name>CLmDeviceHub</name>
    <message>
        <source>The aircraft port %1 is in use by another program; trying again.</source>
        <translation>飞机端口 %1 正被其他程序占用，正在重试。</translation>
    </message>
</context>
<context>
    <name>CLmFaultDiagnosisSection</name>
    <message>
        <source>Fault diagnosis</source>
        <translation>故障诊断</translation>
    </message>
    <message>
        <source>Software version</source>
        <translation>软件版本</translation>
    </message>
    <message>
        <source>e.g. firmware 2.4.1</source>
        <translation>例如 固件 2.4.1</translation>
    </message>
    <message>
        <source>OS version</source>
        <translation>操作系统版本</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>级别</translation>
    </message>
    <message>
        <source>Question</source>
        <translation>问题</translation>
    </message>
    <message>
        <source>What happened, and when?</source>
        <translation>发生了什么，在什么时候？</translation>
    </message>
    <message>
        <source>Minor</source>
        <translation>轻微</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>一般</translation>
    </message>
    <message>
        <source>Serious</source>
        <translation>严重</translation>
    </message>
    <message>
        <source>Critical</source>
        <translation>紧急</translation>
    </message>
</context>
<context>
    <name>CLmFirmwareController</name>
    <message>
        <source>Installing; the aircraft restarts...</source>
        <translation>正在安装，飞机正在重启...</translation>
    </message>
    <message>
        <source>No aircraft connected.</source>
        <translation>未连接飞机。</translation>
    </message>
    <message>
        <source>An upgrade is already running.</source>
        <translation>升级已在进行中。</translation>
    </message>
    <message>
        <source>No firmware package has been downloaded.</source>
        <translation>尚未下载固件包。</translation>
    </message>
    <message>
        <source>Waiting for the aircraft to report whether it is on the ground.</source>
        <translation>正在等待飞机报告是否在地面。</translation>
    </message>
    <message>
        <source>The aircraft must be on the ground and disarmed to upgrade its firmware.</source>
        <translation>飞机必须在地面且已上锁才能升级固件。</translation>
    </message>
    <message>
        <source>The firmware package cannot be read.</source>
        <translation>无法读取固件包。</translation>
    </message>
    <message>
        <source>Uploading the firmware package...</source>
        <translation>正在上传固件包...</translation>
    </message>
    <message>
        <source>Upgrade finished: the aircraft runs firmware %1.</source>
        <translation>升级完成：飞机当前运行固件 %1。</translation>
    </message>
    <message>
        <source>The link to the aircraft was lost during the upgrade.</source>
        <translation>升级过程中与飞机的连接中断。</translation>
    </message>
    <message>
        <source>The aircraft refused the upgrade: it is armed or in the air.</source>
        <translation>飞机拒绝升级：飞机已解锁或在空中。</translation>
    </message>
    <message>
        <source>The aircraft refused the package: its checksum does not match. The old firmware stays.</source>
        <translation>飞机拒绝了固件包：校验和不匹配。原固件保持不变。</translation>
    </message>
    <message>
        <source>The aircraft did not receive the package.</source>
        <translation>飞机未收到固件包。</translation>
    </message>
    <message>
        <source>The aircraft refused the package upload.</source>
        <translation>飞机拒绝了固件包上传。</translation>
    </message>
</context>
<context>
    <name>CLmFirmwareSection</name>
    <message>
        <source>Aircraft firmware</source>
        <translation>飞机固件</translation>
    </message>
    <message>
        <source>Version on the aircraft</source>
        <translation>飞机上的版本</translation>
    </message>
    <message>
        <source>Downloaded package</source>
        <translation>已下载的固件包</translation>
    </message>
    <message>
        <source>Upgrade</source>
        <translation>升级</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>未知</translation>
    </message>
    <message>
        <source>none</source>
        <translation>无</translation>
    </message>
    <message>
        <source>%1 min %2 s remaining</source>
        <translation>剩余 %1 分 %2 秒</translation>
    </message>
    <message>
        <source>Install firmware %1 on the aircraft? Keep it on the ground and powered until it has restarted.</source>
        <translation>在飞机上安装固件 %1？请保持飞机在地面并通电，直到重启完成。</translation>
    </message>
    <message>
        <source>Firmware upgrade</source>
        <translation>固件升级</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>继续</translation>
    </message>
</context>
<context>
    <name>CLmForgetPasswordDialog</name>
    <message>
        <source>Reset password</source>
        <translation>重置密码</translation>
    </message>
    <message>
        <source>Phone number</source>
        <translation>手机号码</translation>
    </message>
    <message>
        <source>Send code</source>
        <translation>发送验证码</translation>
    </message>
    <message>
        <source>Verification code</source>
        <translation>验证码</translation>
    </message>
    <message>
        <source>New password</source>
        <translation>新密码</translation>
    </message>
    <message>
        <source>Repeat password</source>
        <translation>重复密码</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>重置</translation>
    </message>
    <message>
        <source>The password has been reset.</source>
        <translation>密码已重置。</translation>
    </message>
    <message>
        <source>Please enter the phone number.</source>
        <translation>请输入手机号码。</translation>
    </message>
    <message>
        <source>Please enter the verification code.</source>
        <translation>请输入验证码。</translation>
    </message>
    <message>
        <source>Please enter the new password.</source>
        <translation>请输入新密码。</translation>
    </message>
    <message>
        <source>Please repeat the new password.</source>
        <translation>请再次输入新密码。</translation>
    </message>
</context>
<context>
    <name>CLmHardwareCheck</name>
    <message>
        <source>Operating System:</source>
        <translation>操作系统：</translation>
    </message>
    <message>
        <source>Processor:</source>
        <translation>处理器：</translation>
    </message>
    <message>
        <source>Memory:</source>
        <translation>内存：</translation>
    </message>
    <message>
        <source>Main hard disk:</source>
        <translation>主硬盘：</translation>
    </message>
    <message>
        <source>Unknown hard disk</source>
        <translation>未知硬盘</translation>
    </message>
    <message>
        <source>Video adapter:</source>
        <translation>显卡：</translation>
    </message>
    <message>
        <source>Unknown graphics card</source>
        <translation>未知显卡</translation>
    </message>
    <message>
        <source>Hardware configuration environment is not suitable for data processing.</source>
        <translation>硬件配置环境不适合数据处理。</translation>
    </message>
</context>
<context>
    <name>CLmLauncher</name>
    <message>
        <source>Not found an executable program.</source>
        <translation>未找到可执行程序。</translation>
    </message>
    <message>
        <source>SkyConsole</source>
        <translation>SkyConsole</translation>
    </message>
</context>
<context>
    <name>CLmLicenceController</name>
    <message>
        <source>No aircraft connected.</source>
        <translation>未连接飞机。</translation>
    </message>
    <message>
        <source>Reading the aircraft&apos;s licence...</source>
        <translation>正在读取飞机的许可证...</translation>
    </message>
    <message>
        <source>Please wait until the licence exchange running now has ended.</source>
        <translation>请等待当前的许可证交换结束。</translation>
    </message>
    <message>
        <source>Asking the cloud for a renewed licence...</source>
        <translation>正在向云端申请续期许可证...</translation>
    </message>
    <message>
        <source>the cloud cannot be reached</source>
        <translation>无法连接云端</translation>
    </message>
    <message>
        <source>its reply could not be read</source>
        <translation>其回复无法读取</translation>
    </message>
    <message>
        <source>its reply holds no licence</source>
        <translation>其回复中没有许可证</translation>
    </message>
    <message>
        <source>Writing the licence to the aircraft...</source>
        <translation>正在将许可证写入飞机...</translation>
    </message>
    <message>
        <source>The cloud did not issue a licence: %1</source>
        <translation>云端未签发许可证：%1</translation>
    </message>
    <message>
        <source>The aircraft did not report its serial number; no licence can be issued for it.</source>
        <translation>飞机未报告其序列号，无法为其签发许可证。</translation>
    </message>
    <message>
        <source>The aircraft did not answer about its licence.</source>
        <translation>飞机未应答许可证请求。</translation>
    </message>
    <message>
        <source>Licence refreshed.</source>
        <translation>许可证已更新。</translation>
    </message>
    <message>
        <source>The aircraft refused the licence: its signature does not verify. The licence it holds is kept.</source>
        <translation>飞机拒绝了该许可证：签名校验失败。飞机保留原有许可证。</translation>
    </message>
    <message>
        <source>The aircraft refused the licence: it belongs to another aircraft. The licence it holds is kept.</source>
        <translation>飞机拒绝了该许可证：它属于另一架飞机。飞机保留原有许可证。</translation>
    </message>
    <message>
        <source>The aircraft cannot check licences; it kept none.</source>
        <translation>飞机无法校验许可证，未保存任何许可证。</translation>
    </message>
    <message>
        <source>The aircraft refused the licence: it cannot be read. The licence it holds is kept.</source>
        <translation>飞机拒绝了该许可证：无法读取。飞机保留原有许可证。</translation>
    </message>
</context>
<context>
    <name>CLmLicencePage</name>
    <message>
        <source>Licence key</source>
        <translation>许可证密钥</translation>
    </message>
    <message>
        <source>Bound to serial number</source>
        <translation>绑定序列号</translation>
    </message>
    <message>
        <source>State</source>
        <translation>状态</translation>
    </message>
    <message>
        <source>Expiry date</source>
        <translation>到期日期</translation>
    </message>
    <message>
        <source>Features</source>
        <translation>功能</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>刷新</translation>
    </message>
    <message>
        <source>Refresh asks the cloud for a renewed licence for this aircraft and writes it to the aircraft, which checks the cloud&apos;s signature before it keeps it.</source>
        <translation>刷新会向云端申请此飞机的续期许可证并写入飞机，飞机在保存前会校验云端签名。</translation>
    </message>
    <message>
        <source>None</source>
        <translation>无</translation>
    </message>
    <message>
        <source>Valid</source>
        <translation>有效</translation>
    </message>
    <message>
        <source>Expiring within 30 days</source>
        <translation>30 天内到期</translation>
    </message>
    <message>
        <source>Expired</source>
        <translation>已过期</translation>
    </message>
    <message>
        <source>Missing</source>
        <translation>缺失</translation>
    </message>
    <message>
        <source>No aircraft connected</source>
        <translation>未连接飞机</translation>
    </message>
</context>
<context>
    <name>CLmLogDownloadController</name>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>时间</translation>
    </message>
    <message>
        <source>Size(Byte)</source>
        <translation>大小（字节）</translation>
    </message>
    <message>
        <source>Selection</source>
        <translation>选择</translation>
    </message>
    <message>
        <source>Log Download from MAV%1</source>
        <translation>从 MAV%1 下载日志</translation>
    </message>
    <message>
        <source>Reading</source>
        <translation>正在读取</translation>
    </message>
    <message>
        <source>UpLoad</source>
        <translation>上传</translation>
    </message>
    <message>
        <source>Fault diagnosis</source>
        <translation>故障诊断</translation>
    </message>
    <message>
        <source>Please choose to upload files</source>
        <translation>请选择要上传的文件</translation>
    </message>
    <message>
        <source>Reading airborne log %1/%2</source>
        <translation>正在读取机载日志 %1/%2</translation>
    </message>
    <message>
        <source>The log %1 could not be saved.</source>
        <translation>日志 %1 无法保存。</translation>
    </message>
    <message>
        <source>Transmission completion</source>
        <translation>传输完成</translation>
    </message>
    <message>
        <source>Is preparing to upload</source>
        <translation>正在准备上传</translation>
    </message>
</context>
<context>
    <name>CLmLogUploadController</name>
    <message>
        <source>Software version cannot be empty.</source>
        <translation>软件版本不能为空。</translation>
    </message>
    <message>
        <source>OS version cannot be empty.</source>
        <translation>操作系统版本不能为空。</translation>
    </message>
    <message>
        <source>Question description cannot be empty.</source>
        <translation>问题描述不能为空。</translation>
    </message>
    <message>
        <source>Fault diagnosis</source>
        <translation>故障诊断</translation>
    </message>
    <message>
        <source>File not found.</source>
        <translation>找不到文件。</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>提示</translation>
    </message>
    <message>
        <source>Is uploading</source>
        <translation>正在上传</translation>
    </message>
    <message>
        <source>Is uploading, remaining</source>
        <translation>正在上传，剩余</translation>
    </message>
    <message>
        <source>SkyConsole</source>
        <translation>SkyConsole</translation>
    </message>
    <message>
        <source>Re-upload</source>
        <translation>重新上传</translation>
    </message>
    <message>
        <source>Upload completed.</source>
        <translation>上传完成。</translation>
    </message>
    <message>
        <source>Continue to upload</source>
        <translation>继续上传</translation>
    </message>
    <message>
        <source>Upload failed, please re-upload</source>
        <translation>上传失败，请重新上传</translation>
    </message>
</context>
<context>
    <name>CLmMessageBox</name>
    <message>
        <source>SkyConsole</source>
        <translation>SkyConsole</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>CLmMissionTableDelegate</name>
    <message>
        <source>Re-download</source>
        <translation>重新下载</translation>
    </message>
</context>
<context>
    <name>CLmNoFlyZoneUpgrade</name>
    <message>
        <source>Downloading NoFlyZone File...</source>
        <translation>正在下载禁飞区文件...</translation>
    </message>
    <message>
        <source>Download File Failed.</source>
        <translation>文件下载失败。</translation>
    </message>
</context>
<context>
    <name>CLmNoticeCenter</name>
    <message>
        <source>System Information</source>
        <translation>系统信息</translation>
    </message>
    <message>
        <source>The news page cannot be shown on this display.</source>
        <translation>此显示器无法显示新闻页面。</translation>
    </message>
    <message>
        <source> There is a new firmware version needs to be updated.</source>
        <translation> 有新的固件版本需要更新。</translation>
    </message>
    <message>
        <source>SkyConsole</source>
        <translation>SkyConsole</translation>
    </message>
    <message>
        <source> There is a new &quot;srtch&quot; version needs to be updated.</source>
        <translation> 有新的“srtch”版本需要更新。</translation>
    </message>
</context>
<context>
    <name>CLmPhoneCodeDialog</name>
    <message>
        <source>The two passwords differ.</source>
        <translation>两次输入的密码不一致。</translation>
    </message>
    <message>
        <source>The password needs at least %1 characters.</source>
        <translation>密码至少需要 %1 个字符。</translation>
    </message>
    <message>
        <source>Network fault</source>
        <translation>网络故障</translation>
    </message>
    <message>
        <source>SkyConsole</source>
        <translation>SkyConsole</translation>
    </message>
    <message>
        <source>The verification code has been sent.</source>
        <translation>验证码已发送。</translation>
    </message>
    <message>
        <source>Resend in %1 s</source>
        <translation>%1 秒后重新发送</translation>
    </message>
</context>
<context>
    <name>CLmPlaneStatus</name>
    <message>
        <source>Version:</source>
        <translation>版本：</translation>
    </message>
    <message>
        <source>The umbrella rope has been used more than 80 times, please replace it as soon as possible to ensure flight safety.</source>
        <translation>伞绳已使用超过 80 次，请尽快更换以确保飞行安全。</translation>
    </message>
    <message>
        <source>The maximum service life of the rope is 100 times, please check and replace in time!</source>
        <translation>伞绳最长使用寿命为 100 次，请及时检查并更换！</translation>
    </message>
    <message>
        <source>Please confirm that you have changed the parachute rope.</source>
        <translation>请确认您已更换降落伞伞绳。</translation>
    </message>
    <message>
        <source>Are you sure you want to open the parachute cover?</source>
        <translation>确定要打开伞舱盖吗？</translation>
    </message>
</context>
<context>
    <name>CLmPlaneStatusController</name>
    <message>
        <source>times</source>
        <translation>次</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>正常</translation>
    </message>
</context>
<context>
    <name>CLmPlaneStatusPage</name>
    <message>
        <source>Plane Status</source>
        <translation>飞机状态</translation>
    </message>
    <message>
        <source>Autopilot</source>
        <translation>飞控</translation>
    </message>
    <message>
        <source>Serial number:</source>
        <translation>序列号：</translation>
    </message>
    <message>
        <source>Firmware version:</source>
        <translation>固件版本：</translation>
    </message>
    <message>
        <source>Ground Radio</source>
        <translation>地面电台</translation>
    </message>
    <message>
        <source>Flight Situation</source>
        <translation>飞行情况</translation>
    </message>
    <message>
        <source>Takeoff and landing times:</source>
        <translation>起降次数：</translation>
    </message>
    <message>
        <source>Steering gear action:</source>
        <translation>舵机动作次数：</translation>
    </message>
    <message>
        <source>Flight Mileage:</source>
        <translation>飞行里程：</translation>
    </message>
    <message>
        <source>Open umbrella times:</source>
        <translation>开伞次数：</translation>
    </message>
    <message>
        <source>Motor starts:</source>
        <translation>电机启动次数：</translation>
    </message>
    <message>
        <source>Last flight (s):</source>
        <translation>上次飞行（秒）：</translation>
    </message>
    <message>
        <source>Highest altitude (m):</source>
        <translation>最高高度（米）：</translation>
    </message>
    <message>
        <source>Intelligent battery</source>
        <translation>智能电池</translation>
    </message>
    <message>
        <source>State:</source>
        <translation>状态：</translation>
    </message>
    <message>
        <source>Electricity:</source>
        <translation>电量：</translation>
    </message>
    <message>
        <source>Voltage:</source>
        <translation>电压：</translation>
    </message>
    <message>
        <source>Capacitance:</source>
        <translation>容量：</translation>
    </message>
    <message>
        <source>Parachute</source>
        <translation>降落伞</translation>
    </message>
    <message>
        <source>Use times of parachute rope:</source>
        <translation>伞绳使用次数：</translation>
    </message>
    <message>
        <source>The maximum service life of the rope is 100 times, please check and replace in time!</source>
        <translation>伞绳最长使用寿命为 100 次，请及时检查并更换！</translation>
    </message>
    <message>
        <source>Replaced</source>
        <translation>已更换</translation>
    </message>
    <message>
        <source>Parachute check</source>
        <translation>降落伞检查</translation>
    </message>
    <message>
        <source>Click the button to check whether it is normal parachute cover.</source>
        <translation>点击按钮检查伞舱盖是否正常。</translation>
    </message>
    <message>
        <source>Connecting State</source>
        <translation>连接状态</translation>
    </message>
    <message>
        <source>Not Connect</source>
        <translation>未连接</translation>
    </message>
    <message>
        <source>Battery</source>
        <translation>电池</translation>
    </message>
    <message>
        <source>Number of Flights:</source>
        <translation>飞行次数：</translation>
    </message>
    <message>
        <source>Flight time (s):</source>
        <translation>飞行时间（秒）：</translation>
    </message>
    <message>
        <source>Boot count:</source>
        <translation>开机次数：</translation>
    </message>
    <message>
        <source>Hardware Information</source>
        <translation>硬件信息</translation>
    </message>
    <message>
        <source>Battery version:</source>
        <translation>电池版本：</translation>
    </message>
</context>
<context>
    <name>CLmProgressWgt</name>
    <message>
        <source>Retry</source>
        <translation>重试</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>CLmProjDetailsController</name>
    <message>
        <source>This project is only in the cloud. Download it to see its missions.</source>
        <translation>此项目仅在云端。下载后即可查看其任务。</translation>
    </message>
    <message>
        <source>Reading the missions...</source>
        <translation>正在读取任务……</translation>
    </message>
    <message>
        <source>the cloud cannot be reached</source>
        <translation>无法连接云端</translation>
    </message>
    <message>
        <source>A reply of the cloud could not be read; its missions are not listed.</source>
        <translation>无法读取云端的回复，未列出其任务。</translation>
    </message>
    <message>
        <source>Some missions could not be listed: %1</source>
        <translation>部分任务无法列出：%1</translation>
    </message>
    <message>
        <source>This project has no flight tasks yet.</source>
        <translation>此项目尚无飞行任务。</translation>
    </message>
    <message>
        <source>No mission of this project is in the cloud yet.</source>
        <translation>此项目尚无任务在云端。</translation>
    </message>
    <message numerus="yes">
        <source>%n mission(s) in the cloud. Click a download mark to fetch a mission&apos;s flight data.</source>
        <translation>
            <numerusform>云端有 %n 个任务。点击下载标记获取任务的飞行数据。</numerusform>
        </translation>
    </message>
    <message>
        <source>Downloading %1...</source>
        <translation>正在下载 %1……</translation>
    </message>
    <message>
        <source>its flight data could not be stored on this computer</source>
        <translation>其飞行数据无法保存到本机</translation>
    </message>
    <message>
        <source>%1 downloaded.</source>
        <translation>%1 已下载。</translation>
    </message>
    <message>
        <source>Could not download %1: %2</source>
        <translation>无法下载 %1：%2</translation>
    </message>
    <message>
        <source>A reply of the cloud for %1 could not be read; nothing was changed.</source>
        <translation>无法读取云端关于 %1 的回复，未做任何更改。</translation>
    </message>
</context>
<context>
    <name>CLmProjDetailsWgt</name>
    <message>
        <source>Project details</source>
        <translation>项目详情</translation>
    </message>
    <message>
        <source>Projects</source>
        <translation>项目</translation>
    </message>
    <message>
        <source>Back to the project list</source>
        <translation>返回项目列表</translation>
    </message>
    <message>
        <source>Missions planned</source>
        <translation>已规划任务</translation>
    </message>
    <message>
        <source>Flown</source>
        <translation>已飞行</translation>
    </message>
    <message>
        <source>Downloaded</source>
        <translation>已下载</translation>
    </message>
    <message>
        <source>Mission</source>
        <translation>任务</translation>
    </message>
    <message>
        <source>Flight time</source>
        <translation>飞行时间</translation>
    </message>
    <message>
        <source>Log rows</source>
        <translation>日志行数</translation>
    </message>
    <message>
        <source>Positions</source>
        <translation>位置点</translation>
    </message>
    <message>
        <source>Flight data</source>
        <translation>飞行数据</translation>
    </message>
    <message>
        <source>Downloading...</source>
        <translation>正在下载……</translation>
    </message>
    <message>
        <source>Complete</source>
        <translation>完成</translation>
    </message>
    <message>
        <source>Download failed, please re-download</source>
        <translation>下载失败，请重新下载</translation>
    </message>
    <message>
        <source>Click download</source>
        <translation>点击下载</translation>
    </message>
    <message>
        <source>Only in the cloud</source>
        <translation>仅在云端</translation>
    </message>
    <message>
        <source>This project is only in the cloud.</source>
        <translation>此项目仅在云端。</translation>
    </message>
    <message>
        <source>Reading the missions...</source>
        <translation>正在读取任务……</translation>
    </message>
    <message>
        <source>No flown mission of this project in the cloud.</source>
        <translation>此项目在云端没有已飞行的任务。</translation>
    </message>
</context>
<context>
    <name>CLmProjFilter</name>
    <message>
        <source>City</source>
        <translation>城市</translation>
    </message>
    <message>
        <source>all</source>
        <translation>全部</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>日期</translation>
    </message>
</context>
<context>
    <name>CLmProjMgrController</name>
    <message>
        <source>Waiting...</source>
        <translation>等待中……</translation>
    </message>
    <message>
        <source>Uploading...</source>
        <translation>正在上传……</translation>
    </message>
    <message>
        <source>Downloading...</source>
        <translation>正在下载……</translation>
    </message>
    <message>
        <source>Upload Failed</source>
        <translation>上传失败</translation>
    </message>
    <message>
        <source>Uploading Finished</source>
        <translation>上传完成</translation>
    </message>
    <message>
        <source>Download Failed</source>
        <translation>下载失败</translation>
    </message>
    <message>
        <source>Download Finished</source>
        <translation>下载完成</translation>
    </message>
</context>
<context>
    <name>CLmProjMgrWgt</name>
    <message>
        <source>SkyConsole Project Manager</source>
        <translation>SkyConsole 项目管理</translation>
    </message>
    <message>
        <source>Project Manager</source>
        <translation>项目管理</translation>
    </message>
    <message>
        <source>Project</source>
        <translation>项目</translation>
    </message>
    <message>
        <source>Share</source>
        <translation>分享</translation>
    </message>
    <message>
        <source>Assigned</source>
        <translation>已分配</translation>
    </message>
    <message>
        <source>Trans List</source>
        <translation>传输列表</translation>
    </message>
    <message>
        <source>Back to home</source>
        <translation>返回首页</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Synchronize</source>
        <translation>同步</translation>
    </message>
    <message>
        <source>Synchronize projects with the cloud</source>
        <translation>与云端同步项目</translation>
    </message>
    <message>
        <source>Share the selected projects</source>
        <translation>分享所选项目</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Delete the selected projects</source>
        <translation>删除所选项目</translation>
    </message>
    <message>
        <source>Search Project</source>
        <translation>搜索项目</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>搜索</translation>
    </message>
    <message>
        <source>More screening</source>
        <translation>更多筛选</translation>
    </message>
    <message>
        <source>City</source>
        <translation>城市</translation>
    </message>
    <message>
        <source>The national</source>
        <translation>全国</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>日期</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>清除</translation>
    </message>
    <message>
        <source>Flight Log</source>
        <translation>飞行日志</translation>
    </message>
    <message>
        <source>Create time</source>
        <translation>创建时间</translation>
    </message>
    <message>
        <source>Total storage space:</source>
        <translation>总存储空间：</translation>
    </message>
    <message>
        <source>Total Project:</source>
        <translation>项目总数：</translation>
    </message>
    <message>
        <source>Project Name</source>
        <translation>项目名称</translation>
    </message>
    <message>
        <source>Assigned by</source>
        <translation>分配人</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>时间</translation>
    </message>
    <message>
        <source>No project has been assigned to you yet.</source>
        <translation>尚未有项目分配给您。</translation>
    </message>
    <message>
        <source>Uploading List</source>
        <translation>上传列表</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>进度</translation>
    </message>
    <message>
        <source>State</source>
        <translation>状态</translation>
    </message>
    <message>
        <source>Downloading List</source>
        <translation>下载列表</translation>
    </message>
    <message>
        <source>Finished List</source>
        <translation>完成列表</translation>
    </message>
    <message>
        <source>Read cloud project information</source>
        <translation>读取云端项目信息</translation>
    </message>
    <message>
        <source>Read local project information</source>
        <translation>读取本地项目信息</translation>
    </message>
    <message>
        <source>The network is not connected</source>
        <translation>网络未连接</translation>
    </message>
    <message>
        <source>SkyConsole</source>
        <translation>SkyConsole</translation>
    </message>
    <message>
        <source>Are you sure you want to delete all selected projects?</source>
        <translation>确定要删除所有选中的项目吗？</translation>
    </message>
    <message>
        <source>Delete Project</source>
        <translation>删除项目</translation>
    </message>
    <message>
        <source>Are you sure to delete project %1 ?</source>
        <translation>确定要删除项目 %1 吗？</translation>
    </message>
    <message>
        <source>The Project delete was successful.</source>
        <translation>项目删除成功。</translation>
    </message>
    <message>
        <source>The local file delete operation was not successful, the file is in use.</source>
        <translation>本地文件删除失败，文件正在使用中。</translation>
    </message>
    <message>
        <source>One or more file used by other application.</source>
        <translation>一个或多个文件正被其他应用程序使用。</translation>
    </message>
    <message>
        <source>The cloud&apos;s answer could not be read. Nothing was deleted.</source>
        <translation>无法读取云端的回复，未删除任何内容。</translation>
    </message>
    <message>
        <source>Network fault</source>
        <translation>网络故障</translation>
    </message>
    <message>
        <source>Are you sure you want to share all selected projects?</source>
        <translation>确定要分享所有选中的项目吗？</translation>
    </message>
    <message>
        <source>Can not find project file ,please download project first.</source>
        <translation>找不到项目文件，请先下载项目。</translation>
    </message>
    <message>
        <source>Download project file failed.Press cancel to use project on sever,press retry to download project again.</source>
        <translation>下载项目文件失败。按“取消”使用服务器上的项目，按“重试”重新下载项目。</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>重试</translation>
    </message>
</context>
<context>
    <name>CLmProjTransferTrees</name>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
</context>
<context>
    <name>CLmProjectExistsDialog</name>
    <message>
        <source>The project already exists that you are going to?</source>
        <translation>该项目已存在，您要如何处理？</translation>
    </message>
    <message>
        <source>SkyConsole</source>
        <translation>SkyConsole</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>替换</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>另存为</translation>
    </message>
</context>
<context>
    <name>CLmProjetMgrDelegate</name>
    <message>
        <source>Share</source>
        <translation>分享</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>下载</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>详情</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>Click download</source>
        <translation>点击下载</translation>
    </message>
    <message>
        <source>Complete</source>
        <translation>完成</translation>
    </message>
</context>
<context>
    <name>CLmRawDataDownloadController</name>
    <message>
        <source>No aircraft connected.</source>
        <translation>未连接飞机。</translation>
    </message>
    <message>
        <source>The aircraft disconnected; the download stopped. Unfinished files were removed.</source>
        <translation>飞机已断开，下载已停止。未完成的文件已删除。</translation>
    </message>
    <message>
        <source>Reading the receiver&apos;s folders...</source>
        <translation>正在读取接收机的文件夹……</translation>
    </message>
    <message>
        <source>Choose the folders to download.</source>
        <translation>请选择要下载的文件夹。</translation>
    </message>
    <message>
        <source>The folder %1 cannot be written.</source>
        <translation>文件夹 %1 无法写入。</translation>
    </message>
    <message numerus="yes">
        <source>Downloading %n folder(s) to %1...</source>
        <translation>
            <numerusform>正在下载 %n 个文件夹到 %1……</numerusform>
        </translation>
    </message>
    <message>
        <source>Download stopped. Unfinished files were removed.</source>
        <translation>下载已停止。未完成的文件已删除。</translation>
    </message>
    <message>
        <source>The receiver holds no raw data.</source>
        <translation>接收机中没有原始数据。</translation>
    </message>
    <message numerus="yes">
        <source>%n folder(s) on the receiver.</source>
        <translation>
            <numerusform>接收机中有 %n 个文件夹。</numerusform>
        </translation>
    </message>
    <message>
        <source>The receiver stopped answering; the download stopped. Unfinished files were removed.</source>
        <translation>接收机停止响应，下载已停止。未完成的文件已删除。</translation>
    </message>
    <message>
        <source>The receiver did not answer. Refresh to ask again.</source>
        <translation>接收机没有响应。请刷新以重新请求。</translation>
    </message>
    <message>
        <source>Cannot write %1: %2</source>
        <translation>无法写入 %1：%2</translation>
    </message>
    <message numerus="yes">
        <source>Download finished: %n file(s) in %1.</source>
        <translation>
            <numerusform>下载完成：%n 个文件，位于 %1。</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CLmRawDataDownloadWgt</name>
    <message>
        <source>Data download</source>
        <translation>数据下载</translation>
    </message>
    <message>
        <source>Receiver raw data</source>
        <translation>接收机原始数据</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>全选</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>刷新</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>文件夹</translation>
    </message>
    <message>
        <source>Recorded</source>
        <translation>记录时间</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>大小</translation>
    </message>
    <message>
        <source>Receiver label</source>
        <translation>接收机标签</translation>
    </message>
    <message>
        <source>Save to</source>
        <translation>保存到</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>浏览……</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>下载</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>Save raw data to</source>
        <translation>原始数据保存到</translation>
    </message>
</context>
<context>
    <name>CLmReceiveShareManagerDelegate</name>
    <message>
        <source>Message</source>
        <translation>留言</translation>
    </message>
    <message>
        <source>Accept</source>
        <translation>接受</translation>
    </message>
    <message>
        <source>Share</source>
        <translation>分享</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
</context>
<context>
    <name>CLmRegisterDialog</name>
    <message>
        <source>Create a Tolva Cloud account</source>
        <translation>创建 Tolva 云账号</translation>
    </message>
    <message>
        <source>Phone number</source>
        <translation>手机号码</translation>
    </message>
    <message>
        <source>Send code</source>
        <translation>发送验证码</translation>
    </message>
    <message>
        <source>Verification code</source>
        <translation>验证码</translation>
    </message>
    <message>
        <source>Nick name</source>
        <translation>昵称</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>密码</translation>
    </message>
    <message>
        <source>Repeat password</source>
        <translation>重复密码</translation>
    </message>
    <message>
        <source>Register</source>
        <translation>注册</translation>
    </message>
    <message>
        <source>Registration succeeded, please sign in.</source>
        <translation>注册成功，请登录。</translation>
    </message>
    <message>
        <source>Please enter the phone number.</source>
        <translation>请输入手机号码。</translation>
    </message>
    <message>
        <source>Please enter the verification code.</source>
        <translation>请输入验证码。</translation>
    </message>
    <message>
        <source>Please enter a nick name.</source>
        <translation>请输入昵称。</translation>
    </message>
    <message>
        <source>Please enter a password.</source>
        <translation>请输入密码。</translation>
    </message>
    <message>
        <source>Please repeat the password.</source>
        <translation>请再次输入密码。</translation>
    </message>
</context>
<context>
    <name>CLmRtkStationController</name>
    <message>
        <source>One or more parameter can not set</source>
        <translation>一个或多个参数无法设置</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>The deviation between the current setting point and the single point positioning coordinates is too large, do you want to continue?</source>
        <translation>当前设置点与单点定位坐标偏差过大，是否继续？</translation>
    </message>
    <message>
        <source>The deviation between the current setting and the single point positioning coordinates is too large, do you want to continue?</source>
        <translation>当前设置与单点定位坐标偏差过大，是否继续？</translation>
    </message>
    <message>
        <source>The operator will be stop static capture.Are you sure?</source>
        <translation>此操作将停止静态采集。确定吗？</translation>
    </message>
    <message>
        <source>Are you sure to format base station,the operator will be delete all files.</source>
        <translation>确定要格式化基站吗？此操作将删除所有文件。</translation>
    </message>
    <message>
        <source>Currently in static record mode,please stop static file then click format button.</source>
        <translation>当前处于静态记录模式，请先停止静态文件再点击格式化按钮。</translation>
    </message>
    <message>
        <source>Currently in static record mode,please stop static file then click save button.</source>
        <translation>当前处于静态记录模式，请先停止静态文件再点击保存按钮。</translation>
    </message>
    <message>
        <source>Are you stop static record file?</source>
        <translation>确定要停止静态记录文件吗？</translation>
    </message>
    <message>
        <source>Please input host address and port.</source>
        <translation>请输入主机地址和端口。</translation>
    </message>
    <message>
        <source>Acquiring source node failed,please check host address and port.</source>
        <translation>获取源节点失败，请检查主机地址和端口。</translation>
    </message>
    <message>
        <source>The reference point could not be saved.</source>
        <translation>参考点无法保存。</translation>
    </message>
    <message>
        <source>Please select exist reference point.</source>
        <translation>请选择已有的参考点。</translation>
    </message>
    <message>
        <source>Are you sure to delete select reference point?</source>
        <translation>确定要删除所选参考点吗？</translation>
    </message>
    <message>
        <source>Delete reference point succeed.</source>
        <translation>参考点删除成功。</translation>
    </message>
    <message>
        <source>Delete reference point</source>
        <translation>删除参考点</translation>
    </message>
    <message>
        <source>No point has been captured yet.</source>
        <translation>尚未采集到点。</translation>
    </message>
    <message>
        <source>Save reference point succeed.</source>
        <translation>参考点保存成功。</translation>
    </message>
    <message>
        <source>Save reference point</source>
        <translation>保存参考点</translation>
    </message>
    <message>
        <source>The file name %1 from the base station was refused.</source>
        <translation>基站的文件名 %1 已被拒绝。</translation>
    </message>
    <message>
        <source>The file %1 could not be written.</source>
        <translation>文件 %1 无法写入。</translation>
    </message>
    <message>
        <source>All file(s) to download finished.</source>
        <translation>所有文件下载完成。</translation>
    </message>
    <message>
        <source>Download file error ,please check base station connect state then try again.</source>
        <translation>文件下载出错，请检查基站连接状态后重试。</translation>
    </message>
</context>
<context>
    <name>CLmRtkStationSettings</name>
    <message>
        <source>RTK Base Station</source>
        <translation>RTK 基站</translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation>未连接</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>连接</translation>
    </message>
    <message>
        <source>Base Station SN:</source>
        <translation>基站序列号：</translation>
    </message>
    <message>
        <source>N/A</source>
        <translation>N/A</translation>
    </message>
    <message>
        <source>Firmware Version:</source>
        <translation>固件版本：</translation>
    </message>
    <message>
        <source>Work mode:</source>
        <translation>工作模式：</translation>
    </message>
    <message>
        <source>Battery Present:</source>
        <translation>电池电量：</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>设置</translation>
    </message>
    <message>
        <source>Base Station Data</source>
        <translation>基站数据</translation>
    </message>
    <message>
        <source>Point capture</source>
        <translation>点采集</translation>
    </message>
    <message>
        <source>Base Station State</source>
        <translation>基站状态</translation>
    </message>
    <message>
        <source>Work mode</source>
        <translation>工作模式</translation>
    </message>
    <message>
        <source>GNSS high-accuracy mode:</source>
        <translation>GNSS 高精度模式：</translation>
    </message>
    <message>
        <source>Disuse</source>
        <translation>不使用</translation>
    </message>
    <message>
        <source>PPK</source>
        <translation>PPK</translation>
    </message>
    <message>
        <source>CORS &amp; PPK</source>
        <translation>CORS 与 PPK</translation>
    </message>
    <message>
        <source>Single station &amp; PPK</source>
        <translation>单基站与 PPK</translation>
    </message>
    <message>
        <source>Suitable for use:</source>
        <translation>适用机型：</translation>
    </message>
    <message>
        <source>F200,F300</source>
        <translation>F200,F300</translation>
    </message>
    <message>
        <source>The base station is not used during the flight.</source>
        <translation>飞行期间不使用基站。</translation>
    </message>
    <message>
        <source>PPK: record raw data only</source>
        <translation>PPK：仅记录原始数据</translation>
    </message>
    <message>
        <source>Altitude to angle:</source>
        <translation>高度截止角：</translation>
    </message>
    <message>
        <source>CORS station</source>
        <translation>CORS 站</translation>
    </message>
    <message>
        <source>Raw data only</source>
        <translation>仅原始数据</translation>
    </message>
    <message>
        <source>Host Address:</source>
        <translation>主机地址：</translation>
    </message>
    <message>
        <source>Port:</source>
        <translation>端口：</translation>
    </message>
    <message>
        <source>Account:</source>
        <translation>账号：</translation>
    </message>
    <message>
        <source>Password:</source>
        <translation>密码：</translation>
    </message>
    <message>
        <source>Source list:</source>
        <translation>源列表：</translation>
    </message>
    <message>
        <source>Acquiring</source>
        <translation>获取</translation>
    </message>
    <message>
        <source>Connection protocol:</source>
        <translation>连接协议：</translation>
    </message>
    <message>
        <source>NTRIP</source>
        <translation>NTRIP</translation>
    </message>
    <message>
        <source>Known points:</source>
        <translation>已知点：</translation>
    </message>
    <message>
        <source>Manual input</source>
        <translation>手动输入</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Calculator</source>
        <translation>计算器</translation>
    </message>
    <message>
        <source>Format converter</source>
        <translation>格式转换</translation>
    </message>
    <message>
        <source>Latitude:</source>
        <translation>纬度：</translation>
    </message>
    <message>
        <source>°</source>
        <translation>°</translation>
    </message>
    <message>
        <source>′</source>
        <translation>′</translation>
    </message>
    <message>
        <source>″</source>
        <translation>″</translation>
    </message>
    <message>
        <source>Longitude:</source>
        <translation>经度：</translation>
    </message>
    <message>
        <source>Altitude:</source>
        <translation>高度：</translation>
    </message>
    <message>
        <source>Vertical height:</source>
        <translation>天线高：</translation>
    </message>
    <message>
        <source>GNSS Type:</source>
        <translation>GNSS 类型：</translation>
    </message>
    <message>
        <source>BDS+GPS</source>
        <translation>BDS+GPS</translation>
    </message>
    <message>
        <source>GPS</source>
        <translation>GPS</translation>
    </message>
    <message>
        <source>BDS</source>
        <translation>BDS</translation>
    </message>
    <message>
        <source>Scan interval（Hz):</source>
        <translation>采样频率（Hz）：</translation>
    </message>
    <message>
        <source>1</source>
        <translation>1</translation>
    </message>
    <message>
        <source>2</source>
        <translation>2</translation>
    </message>
    <message>
        <source>5</source>
        <translation>5</translation>
    </message>
    <message>
        <source>10</source>
        <translation>10</translation>
    </message>
    <message>
        <source>Differential data:</source>
        <translation>差分数据：</translation>
    </message>
    <message>
        <source>RTCM3.0</source>
        <translation>RTCM3.0</translation>
    </message>
    <message>
        <source>RTCM3.2</source>
        <translation>RTCM3.2</translation>
    </message>
    <message>
        <source>Raw data</source>
        <translation>原始数据</translation>
    </message>
    <message>
        <source>CORS</source>
        <translation>CORS</translation>
    </message>
    <message>
        <source>Single station</source>
        <translation>单基站</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Static files</source>
        <translation>静态文件</translation>
    </message>
    <message>
        <source>Memory Size:</source>
        <translation>存储容量：</translation>
    </message>
    <message>
        <source>Free Space:</source>
        <translation>剩余空间：</translation>
    </message>
    <message>
        <source>CheckAll</source>
        <translation>全选</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>格式化</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>下载</translation>
    </message>
    <message>
        <source>connect to CORS station</source>
        <translation>连接 CORS 站</translation>
    </message>
    <message>
        <source>Mode:</source>
        <translation>模式：</translation>
    </message>
    <message>
        <source>Single point</source>
        <translation>单点</translation>
    </message>
    <message>
        <source>Sample average</source>
        <translation>采样平均</translation>
    </message>
    <message>
        <source>Capture quantity:</source>
        <translation>采集数量：</translation>
    </message>
    <message>
        <source>Position limits:</source>
        <translation>位置限差：</translation>
    </message>
    <message>
        <source>Fixed</source>
        <translation>固定解</translation>
    </message>
    <message>
        <source>Captured point:</source>
        <translation>采集的点：</translation>
    </message>
    <message>
        <source>Samples:</source>
        <translation>样本：</translation>
    </message>
    <message>
        <source>0/0</source>
        <translation>0/0</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>开始</translation>
    </message>
    <message>
        <source>Delete Point</source>
        <translation>删除点</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Static recording</source>
        <translation>静态记录</translation>
    </message>
    <message>
        <source>Recording file:</source>
        <translation>记录文件：</translation>
    </message>
    <message>
        <source>State:</source>
        <translation>状态：</translation>
    </message>
    <message>
        <source>Create time:</source>
        <translation>创建时间：</translation>
    </message>
    <message>
        <source>Stop Recording</source>
        <translation>停止记录</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>Station lat:</source>
        <translation>基站纬度：</translation>
    </message>
    <message>
        <source>Quality factor:</source>
        <translation>定位质量：</translation>
    </message>
    <message>
        <source>Station lng:</source>
        <translation>基站经度：</translation>
    </message>
    <message>
        <source>Seatellite number:</source>
        <translation>卫星数：</translation>
    </message>
    <message>
        <source>Station alt:</source>
        <translation>基站高度：</translation>
    </message>
    <message>
        <source>Precision factor:</source>
        <translation>精度因子：</translation>
    </message>
    <message>
        <source>GGAHz:</source>
        <translation>GGA 频率：</translation>
    </message>
    <message>
        <source>Base</source>
        <translation>基站</translation>
    </message>
    <message>
        <source>Rover</source>
        <translation>移动站</translation>
    </message>
    <message>
        <source>Static</source>
        <translation>静态</translation>
    </message>
    <message>
        <source>File Name</source>
        <translation>文件名</translation>
    </message>
    <message>
        <source>Create Time</source>
        <translation>创建时间</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>大小</translation>
    </message>
    <message>
        <source>All file(s) to download finished.</source>
        <translation>所有文件下载完成。</translation>
    </message>
    <message>
        <source>Connecting...</source>
        <translation>正在连接……</translation>
    </message>
    <message>
        <source>Checking...</source>
        <translation>正在检查……</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>已连接</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>正在记录</translation>
    </message>
    <message>
        <source>Not recording</source>
        <translation>未记录</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>下一步</translation>
    </message>
    <message>
        <source>Connect failed</source>
        <translation>连接失败</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>No point has been captured yet.</source>
        <translation>尚未采集到点。</translation>
    </message>
    <message>
        <source>Input reference point name</source>
        <translation>输入参考点名称</translation>
    </message>
    <message>
        <source>Please select one or more file(s) to delete.</source>
        <translation>请选择一个或多个要删除的文件。</translation>
    </message>
    <message>
        <source>Are you sure to delete selected file(s)?</source>
        <translation>确定要删除所选文件吗？</translation>
    </message>
    <message>
        <source>Please select one or more file(s) to download.</source>
        <translation>请选择一个或多个要下载的文件。</translation>
    </message>
    <message>
        <source>Save raw data</source>
        <translation>保存原始数据</translation>
    </message>
    <message>
        <source>Downloading</source>
        <translation>正在下载</translation>
    </message>
</context>
<context>
    <name>CLmShareDialog</name>
    <message>
        <source>Project:</source>
        <translation>项目：</translation>
    </message>
    <message>
        <source>Receiver:</source>
        <translation>接收人：</translation>
    </message>
    <message>
        <source>Message:</source>
        <translation>留言：</translation>
    </message>
    <message>
        <source>A note for the receiver (optional)</source>
        <translation>给接收人的留言（可选）</translation>
    </message>
    <message>
        <source>Share flight log</source>
        <translation>分享飞行日志</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Share</source>
        <translation>分享</translation>
    </message>
    <message>
        <source>Phone number</source>
        <translation>手机号码</translation>
    </message>
    <message>
        <source>Share account cannot be empty</source>
        <translation>分享账号不能为空</translation>
    </message>
    <message>
        <source>Can not share to their own</source>
        <translation>不能分享给自己</translation>
    </message>
    <message>
        <source>The cloud&apos;s answer could not be read. Please try again.</source>
        <translation>无法读取云端的回复，请重试。</translation>
    </message>
    <message>
        <source>SkyConsole</source>
        <translation>SkyConsole</translation>
    </message>
    <message>
        <source>Network fault</source>
        <translation>网络故障</translation>
    </message>
    <message>
        <source>Uploading flight log...</source>
        <translation>正在上传飞行日志……</translation>
    </message>
    <message>
        <source>Upload flight log Complete.</source>
        <translation>飞行日志上传完成。</translation>
    </message>
</context>
<context>
    <name>CLmShareItem</name>
    <message>
        <source>%1 (flight task)</source>
        <translation>%1（飞行任务）</translation>
    </message>
</context>
<context>
    <name>CLmShareManagerController</name>
    <message>
        <source>Waiting</source>
        <translation>等待中</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>已取消</translation>
    </message>
    <message>
        <source>Accepted</source>
        <translation>已接受</translation>
    </message>
    <message>
        <source>Rejected</source>
        <translation>已拒绝</translation>
    </message>
</context>
<context>
    <name>CLmShareManagerWidget</name>
    <message>
        <source>Share</source>
        <translation>分享</translation>
    </message>
    <message>
        <source>Received</source>
        <translation>收到的</translation>
    </message>
    <message>
        <source>Sent</source>
        <translation>发出的</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>刷新</translation>
    </message>
    <message>
        <source>Read the shares from the cloud again</source>
        <translation>重新从云端读取分享</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Delete the checked share records</source>
        <translation>删除选中的分享记录</translation>
    </message>
    <message>
        <source>Project</source>
        <translation>项目</translation>
    </message>
    <message>
        <source>Sender</source>
        <translation>发送人</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>时间</translation>
    </message>
    <message>
        <source>State</source>
        <translation>状态</translation>
    </message>
    <message>
        <source>Operation</source>
        <translation>操作</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>留言</translation>
    </message>
    <message>
        <source>Network fault</source>
        <translation>网络故障</translation>
    </message>
    <message>
        <source>NetWork Error</source>
        <translation>网络错误</translation>
    </message>
    <message>
        <source>Reading the shares...</source>
        <translation>正在读取分享……</translation>
    </message>
    <message>
        <source>The share list could not be read; the rows shown are kept.</source>
        <translation>无法读取分享列表，保留当前显示的内容。</translation>
    </message>
    <message>
        <source>%1 received, %2 sent</source>
        <translation>收到 %1 个，发出 %2 个</translation>
    </message>
    <message numerus="yes">
        <source>%n new share(s) received</source>
        <translation>
            <numerusform>收到 %n 个新分享</numerusform>
        </translation>
    </message>
    <message>
        <source>Receiver</source>
        <translation>接收人</translation>
    </message>
    <message>
        <source>Project name cannot be empty</source>
        <translation>项目名称不能为空</translation>
    </message>
    <message>
        <source>File name cannot contain any of the following characters:</source>
        <translation>文件名不能包含以下任何字符：</translation>
    </message>
    <message>
        <source>The cloud&apos;s answer could not be read.</source>
        <translation>无法读取云端的回复。</translation>
    </message>
    <message>
        <source>Please select an item at least to delete.</source>
        <translation>请至少选择一项进行删除。</translation>
    </message>
    <message>
        <source>Are you sure to delete these selected item(s)?</source>
        <translation>确定要删除选中的项吗？</translation>
    </message>
    <message>
        <source>Are you sure to delete project %1 shared by %2?
(%3)</source>
        <translation>确定要删除 %2 分享的项目 %1 吗？
（%3）</translation>
    </message>
    <message>
        <source>delete this sharing record and reject the project</source>
        <translation>删除此分享记录并拒绝该项目</translation>
    </message>
    <message>
        <source>Are you sure to delete the project %1 sharing record?</source>
        <translation>确定要删除项目 %1 的分享记录吗？</translation>
    </message>
    <message>
        <source>Are you sure to cancel of sharing project %1?</source>
        <translation>确定要取消分享项目 %1 吗？</translation>
    </message>
    <message>
        <source>The recipient will not receive the project after deletion</source>
        <translation>删除后接收人将不会收到该项目</translation>
    </message>
    <message>
        <source>Share project %1 with %2 again?</source>
        <translation>要再次将项目 %1 分享给 %2 吗？</translation>
    </message>
    <message>
        <source>SkyConsole</source>
        <translation>SkyConsole</translation>
    </message>
</context>
<context>
    <name>CLmShareMessageDialog</name>
    <message>
        <source>Message</source>
        <translation>留言</translation>
    </message>
    <message>
        <source>Me</source>
        <translation>我</translation>
    </message>
    <message>
        <source>Them</source>
        <translation>对方</translation>
    </message>
    <message>
        <source>Your answer</source>
        <translation>您的回复</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>发送</translation>
    </message>
    <message>
        <source>Project: %1</source>
        <translation>项目：%1</translation>
    </message>
</context>
<context>
    <name>CLmShareNameDialog</name>
    <message>
        <source>Save As</source>
        <translation>另存为</translation>
    </message>
    <message>
        <source>New project name</source>
        <translation>新项目名称</translation>
    </message>
    <message>
        <source>Project name:</source>
        <translation>项目名称：</translation>
    </message>
</context>
<context>
    <name>CLmSystemInfo</name>
    <message>
        <source>%1, kernel %2</source>
        <translation>%1，内核 %2</translation>
    </message>
    <message>
        <source>%1 %2 GB</source>
        <translation>%1 %2 GB</translation>
    </message>
    <message>
        <source>driver %1</source>
        <translation>驱动 %1</translation>
    </message>
</context>
<context>
    <name>CLmTrimbleDataDownloadObject</name>
    <message>
        <source>Download </source>
        <translation>下载 </translation>
    </message>
</context>
<context>
    <name>CLmTrimbleDataWrite</name>
    <message>
        <source>cannot rename the finished file</source>
        <translation>无法重命名已完成的文件</translation>
    </message>
</context>
<context>
    <name>CLmUavSettings</name>
    <message>
        <source>Flight Setting</source>
        <translation>飞行设置</translation>
    </message>
    <message>
        <source>Radio lost contact protection time(s)</source>
        <translation>电台失联保护时间（秒）</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>The plane and radio link interruption over the time, the plane will automatically return.</source>
        <translation>飞机与电台链路中断超过该时间后，飞机将自动返航。</translation>
    </message>
    <message>
        <source>Parameter</source>
        <translation>参数</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>恢复</translation>
    </message>
    <message>
        <source>save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Parameter Name</source>
        <translation>参数名称</translation>
    </message>
    <message>
        <source>Parameter Type</source>
        <translation>参数类型</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>值</translation>
    </message>
    <message>
        <source>The aircraft did not confirm the protection time.</source>
        <translation>飞机未确认保护时间。</translation>
    </message>
    <message>
        <source>The aircraft did not confirm %1.</source>
        <translation>飞机未确认 %1。</translation>
    </message>
    <message>
        <source>%1 parameters read.</source>
        <translation>已读取 %1 个参数。</translation>
    </message>
    <message>
        <source>%1 parameters did not arrive; Restore reads them again.</source>
        <translation>%1 个参数未收到；点击“恢复”重新读取。</translation>
    </message>
    <message>
        <source>Lost contact protection time can not be less than 30 seconds</source>
        <translation>失联保护时间不能少于 30 秒</translation>
    </message>
    <message>
        <source>Parameter set successfully</source>
        <translation>参数设置成功</translation>
    </message>
    <message>
        <source>Flight setting</source>
        <translation>飞行设置</translation>
    </message>
</context>
<context>
    <name>CLmUavSettingsController</name>
    <message>
        <source>paramter:</source>
        <translation>参数：</translation>
    </message>
    <message>
        <source> value is null</source>
        <translation> 值为空</translation>
    </message>
    <message>
        <source> value is not a %1</source>
        <translation> 值不是 %1</translation>
    </message>
</context>
<context>
    <name>CLmUpdateQuery</name>
    <message>
        <source>Network fault</source>
        <translation>网络故障</translation>
    </message>
    <message>
        <source>The update information is incomplete.</source>
        <translation>更新信息不完整。</translation>
    </message>
</context>
<context>
    <name>CLmUpgradeDownloadDialog</name>
    <message>
        <source>SkyConsole</source>
        <translation>SkyConsole</translation>
    </message>
    <message>
        <source>Downloading version %1 ...</source>
        <translation>正在下载版本 %1 ……</translation>
    </message>
    <message>
        <source>Download File Failed.</source>
        <translation>文件下载失败。</translation>
    </message>
    <message>
        <source>Download completed.</source>
        <translation>下载完成。</translation>
    </message>
    <message>
        <source>The installation package has been downloaded and verified. Open its folder to install it?</source>
        <translation>安装包已下载并通过校验。是否打开其所在文件夹进行安装？</translation>
    </message>
</context>
<context>
    <name>CLmUserMessagePage</name>
    <message>
        <source>Home</source>
        <translation>首页</translation>
    </message>
    <message>
        <source>Recived Message</source>
        <translation>收到的消息</translation>
    </message>
    <message>
        <source>Personal information</source>
        <translation>个人信息</translation>
    </message>
    <message>
        <source>No messages.</source>
        <translation>没有消息。</translation>
    </message>
    <message>
        <source>Nick name</source>
        <translation>昵称</translation>
    </message>
    <message>
        <source>Phone</source>
        <translation>手机</translation>
    </message>
    <message>
        <source>Email</source>
        <translation>邮箱</translation>
    </message>
    <message>
        <source>Company</source>
        <translation>公司</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Logout</source>
        <translation>退出登录</translation>
    </message>
    <message>
        <source>The nick name cannot be empty.</source>
        <translation>昵称不能为空。</translation>
    </message>
    <message>
        <source>Saved.</source>
        <translation>已保存。</translation>
    </message>
    <message>
        <source>Network fault</source>
        <translation>网络故障</translation>
    </message>
    <message>
        <source>Change phone</source>
        <translation>更换手机</translation>
    </message>
</context>
<context>
    <name>LmAlgorthm</name>
    <message>
        <source>Fixed-wing</source>
        <translation>固定翼</translation>
    </message>
    <message>
        <source>Multirotor</source>
        <translation>多旋翼</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>未知</translation>
    </message>
</context>
<context>
    <name>LmBatteryInfoWgt</name>
    <message>
        <source>Details of the battery</source>
        <translation>电池详情</translation>
    </message>
    <message>
        <source>Remain(%)</source>
        <translation>剩余（%）</translation>
    </message>
    <message>
        <source>Total (V)</source>
        <translation>总电压（V）</translation>
    </message>
    <message>
        <source>Temp ℃</source>
        <translation>温度 ℃</translation>
    </message>
    <message>
        <source>Current mA</source>
        <translation>电流 mA</translation>
    </message>
    <message>
        <source>Capacity mAh</source>
        <translation>容量 mAh</translation>
    </message>
    <message>
        <source>cycles</source>
        <translation>循环次数</translation>
    </message>
    <message>
        <source>Life expectancy (%)</source>
        <translation>预期寿命（%）</translation>
    </message>
    <message>
        <source>Serial number:</source>
        <translation>序列号：</translation>
    </message>
    <message>
        <source>Core voltage (V)</source>
        <translation>电芯电压（V）</translation>
    </message>
    <message>
        <source>abnormality</source>
        <translation>异常</translation>
    </message>
</context>
<context>
    <name>LmPlaneStatusLists</name>
    <message>
        <source>GPS Hardware</source>
        <translation>GPS 硬件</translation>
    </message>
    <message>
        <source>BMS </source>
        <translation>BMS </translation>
    </message>
    <message>
        <source>Magnetometer 1 Hardware</source>
        <translation>磁力计 1 硬件</translation>
    </message>
    <message>
        <source>Magnetometer 2 Hardware</source>
        <translation>磁力计 2 硬件</translation>
    </message>
    <message>
        <source>Cloud Terrace Hardware</source>
        <translation>云台硬件</translation>
    </message>
    <message>
        <source>ESC 1 Hardware</source>
        <translation>电调 1 硬件</translation>
    </message>
    <message>
        <source>ESC 2 Hardware</source>
        <translation>电调 2 硬件</translation>
    </message>
    <message>
        <source>ESC 3 Hardware</source>
        <translation>电调 3 硬件</translation>
    </message>
    <message>
        <source>ESC 4 Hardware</source>
        <translation>电调 4 硬件</translation>
    </message>
    <message>
        <source>Ultrasonic Hardware</source>
        <translation>超声波硬件</translation>
    </message>
    <message>
        <source>Vision Hardware</source>
        <translation>视觉硬件</translation>
    </message>
    <message>
        <source>CPLD</source>
        <translation>CPLD</translation>
    </message>
    <message>
        <source>FPGA</source>
        <translation>FPGA</translation>
    </message>
    <message>
        <source>times</source>
        <translation>次</translation>
    </message>
    <message>
        <source>Sorties</source>
        <translation>架次</translation>
    </message>
    <message>
        <source>Batter version</source>
        <translation>电池版本</translation>
    </message>
    <message>
        <source>Battery self-check failure</source>
        <translation>电池自检失败</translation>
    </message>
    <message>
        <source>Power is too low</source>
        <translation>电量过低</translation>
    </message>
    <message>
        <source>Ultra low power</source>
        <translation>电量极低</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>已连接</translation>
    </message>
</context>
<context>
    <name>LmStationRules</name>
    <message>
        <source>:Success</source>
        <translation>：成功</translation>
    </message>
    <message>
        <source>:Failed</source>
        <translation>：失败</translation>
    </message>
    <message>
        <source>Start static file</source>
        <translation>开始静态文件</translation>
    </message>
    <message>
        <source>Not static mode</source>
        <translation>不是静态模式</translation>
    </message>
    <message>
        <source>File name exist</source>
        <translation>文件名已存在</translation>
    </message>
    <message>
        <source>Parameter error</source>
        <translation>参数错误</translation>
    </message>
    <message>
        <source>GPS is not positioning</source>
        <translation>GPS 未定位</translation>
    </message>
    <message>
        <source>delete file(s) succeed.</source>
        <translation>文件删除成功。</translation>
    </message>
    <message>
        <source>Not static mode.</source>
        <translation>不是静态模式。</translation>
    </message>
    <message>
        <source>Delete files failed.</source>
        <translation>删除文件失败。</translation>
    </message>
    <message>
        <source>Base Ntrip </source>
        <translation>基站 Ntrip </translation>
    </message>
    <message>
        <source>connect to CORS station failed.</source>
        <translation>连接 CORS 站失败。</translation>
    </message>
    <message>
        <source>Set work mode to static failed.</source>
        <translation>设置静态工作模式失败。</translation>
    </message>
    <message>
        <source>Stop static file</source>
        <translation>停止静态文件</translation>
    </message>
    <message>
        <source>Please input reference point name.</source>
        <translation>请输入参考点名称。</translation>
    </message>
    <message>
        <source>The reference point name can have at most %1 characters.</source>
        <translation>参考点名称最多 %1 个字符。</translation>
    </message>
    <message>
        <source>The reference point name has been exist.</source>
        <translation>参考点名称已存在。</translation>
    </message>
    <message>
        <source>Invalid fix</source>
        <translation>无效解</translation>
    </message>
    <message>
        <source>Standalone</source>
        <translation>单点解</translation>
    </message>
    <message>
        <source>Diff corrected</source>
        <translation>差分解</translation>
    </message>
    <message>
        <source>GPS PPS mode</source>
        <translation>GPS PPS 模式</translation>
    </message>
    <message>
        <source>RTK fixed</source>
        <translation>RTK 固定解</translation>
    </message>
    <message>
        <source>RTK float</source>
        <translation>RTK 浮点解</translation>
    </message>
    <message>
        <source>Dead reckoning</source>
        <translation>航位推算</translation>
    </message>
    <message>
        <source>Entered position</source>
        <translation>输入位置</translation>
    </message>
    <message>
        <source>Simulator model</source>
        <translation>模拟模式</translation>
    </message>
    <message>
        <source>Reserved</source>
        <translation>保留</translation>
    </message>
    <message>
        <source>Not defined</source>
        <translation>未定义</translation>
    </message>
</context>
<context>
    <name>LmUsbDiskText</name>
    <message>
        <source>%1 (%2)  %3 free of %4</source>
        <translation>%1（%2）  可用 %3，共 %4</translation>
    </message>
</context>
<context>
    <name>LogDownloadDialog</name>
    <message>
        <source>Airborne log list</source>
        <translation>机载日志列表</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>刷新</translation>
    </message>
    <message>
        <source>Delete logs</source>
        <translation>删除日志</translation>
    </message>
    <message>
        <source>UpLoad</source>
        <translation>上传</translation>
    </message>
    <message>
        <source>Fault diagnosis</source>
        <translation>故障诊断</translation>
    </message>
    <message>
        <source>Fault Diagnosis</source>
        <translation>故障诊断</translation>
    </message>
    <message>
        <source>Network failure or remote server is not available.</source>
        <translation>网络故障或远程服务器不可用。</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>重试</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>SkyConsole</source>
        <translation>SkyConsole</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Desktop hub for survey-drone crews: cloud projects, aircraft, flight logs, GNSS base stations.
Deployment data: /etc/skyconsole/deployment.ini, overridden by ~/.config/SkyConsole/deployment.ini and SKYCONSOLE_&lt;GROUP&gt;_&lt;KEY&gt; variables.</source>
        <translation>测绘无人机团队的桌面中心：云端项目、飞机、飞行日志、GNSS 基站。
部署数据：/etc/skyconsole/deployment.ini，可由 ~/.config/SkyConsole/deployment.ini 及 SKYCONSOLE_&lt;GROUP&gt;_&lt;KEY&gt; 环境变量覆盖。</translation>
    </message>
    <message>
        <source>Language of the texts: en or zh_CN.</source>
        <translation>界面语言：en 或 zh_CN。</translation>
    </message>
</context>
</TS>
