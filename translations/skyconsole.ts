<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1">
<context>
    <name>CLmAccountSession</name>
    <message>
        <source>Please Login</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> Failed to get user information.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sign in</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Network fault</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SkyConsole</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmBaseDialog</name>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmBatteryFrameWgt</name>
    <message>
        <source>Battery_%1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmCarrowmereLoginDialog</name>
    <message>
        <source>User name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Password</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Login</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Forgot</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Register</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Login Tolva Cloud</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SkyConsole</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmCarrowmereMainWindow</name>
    <message>
        <source>SkyConsole</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Program maintenance is complete, welcome to use.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do you want to exit the application?</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmCarrowmereMaintainPage</name>
    <message>
        <source>Home</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Maintain</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A device access request is waiting for you.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Overview</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Plane status</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>UAV settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fault diagnosis</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Base station</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Data download</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Aircraft</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No aircraft connected.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>USB disks</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No removable disk found.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Aircraft connected.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fixed-wing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Multirotor</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New firmware package: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Firmware</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Licence key</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmCarrowmereProjMgrObj</name>
    <message>
        <source>Reading project list start.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start synchronization project.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading project list error.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Read project list finished</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Downloading </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Finished</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Uploading</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmCarrowmereSaveRPWidget</name>
    <message>
        <source>Save reference point</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save as</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmCarrowmereUpgradeLauncher</name>
    <message>
        <source>Looking for the newest launcher ...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The launcher is up to date.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmCarrowmereWgt</name>
    <message>
        <source>SkyConsole</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SkyConsole Professional</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Test version</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Network state</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Recived Message</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sign in</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Project manager</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Vireo Plan</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Vireo Fly</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Vireo Check</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Vireo Process</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Vireo Map</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Vireo Monitor</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Maintain</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>3D Viewer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Viewer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Image browser</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The cloud service cannot be reached. Projects, sign-in and news return when the network is back.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>System information</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmChangePhoneDialog</name>
    <message>
        <source>Change the phone number of this account</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New phone number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Send code</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Verification code</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Confirm</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change phone</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The phone number has been changed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please enter the new phone number.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please enter the verification code.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmCitySelectWidget</name>
    <message>
        <source>all</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Search city</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No matching city</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmCoordinateCalculator</name>
    <message>
        <source>Calculator</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>First point (lat, lng):</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Second point (lat, lng):</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Distance:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Calculate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not a position</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmCoordinateConverter</name>
    <message>
        <source>Format converter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Degrees:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Degrees, minutes, seconds:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>°</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>′</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>″</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Degrees and minutes (ddmm):</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Degrees to DMS</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>DMS to degrees</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not an angle</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmCorsStationSettingPage</name>
    <message>
        <source>Connect to CORS station</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Host Address:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Port:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Account:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Password:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Source list:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Acquiring</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connection protocol:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>NTRIP</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please input host address and port.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please input account and password.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please select source node.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmDateSelectWidget</name>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>From</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>To</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmDeviceHub</name>
    <message>
        <source>The aircraft port %1 is in use by another program; trying again.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmFaultDiagnosisSection</name>
    <message>
        <source>Fault diagnosis</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Software version</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>e.g. firmware 2.4.1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OS version</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Level</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Question</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What happened, and when?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Minor</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Normal</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Serious</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Critical</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmFirmwareController</name>
    <message>
        <source>Installing; the aircraft restarts...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No aircraft connected.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>An upgrade is already running.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No firmware package has been downloaded.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Waiting for the aircraft to report whether it is on the ground.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The aircraft must be on the ground and disarmed to upgrade its firmware.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The firmware package cannot be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Uploading the firmware package...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Upgrade finished: the aircraft runs firmware %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The link to the aircraft was lost during the upgrade.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The aircraft refused the upgrade: it is armed or in the air.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The aircraft refused the package: its checksum does not match. The old firmware stays.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The aircraft did not receive the package.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The aircraft refused the package upload.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmFirmwareSection</name>
    <message>
        <source>Aircraft firmware</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Version on the aircraft</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Downloaded package</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Upgrade</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>unknown</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>none</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 min %2 s remaining</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Install firmware %1 on the aircraft? Keep it on the ground and powered until it has restarted.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Firmware upgrade</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Resume</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmForgetPasswordDialog</name>
    <message>
        <source>Reset password</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Phone number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Send code</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Verification code</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New password</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repeat password</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reset</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The password has been reset.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please enter the phone number.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please enter the verification code.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please enter the new password.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please repeat the new password.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmHardwareCheck</name>
    <message>
        <source>Operating System:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Processor:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Memory:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Main hard disk:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unknown hard disk</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Video adapter:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unknown graphics card</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hardware configuration environment is not suitable for data processing.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmLauncher</name>
    <message>
        <source>Not found an executable program.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SkyConsole</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmLicenceController</name>
    <message>
        <source>No aircraft connected.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading the aircraft&apos;s licence...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please wait until the licence exchange running now has ended.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Asking the cloud for a renewed licence...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the cloud cannot be reached</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>its reply could not be read</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>its reply holds no licence</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Writing the licence to the aircraft...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The cloud did not issue a licence: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The aircraft did not report its serial number; no licence can be issued for it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The aircraft did not answer about its licence.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Licence refreshed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The aircraft refused the licence: its signature does not verify. The licence it holds is kept.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The aircraft refused the licence: it belongs to another aircraft. The licence it holds is kept.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The aircraft cannot check licences; it kept none.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The aircraft refused the licence: it cannot be read. The licence it holds is kept.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmLicencePage</name>
    <message>
        <source>Licence key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bound to serial number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>State</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Expiry date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Features</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Refresh asks the cloud for a renewed licence for this aircraft and writes it to the aircraft, which checks the cloud&apos;s signature before it keeps it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>None</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Valid</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Expiring within 30 days</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Expired</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Missing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No aircraft connected</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmLogDownloadController</name>
    <message>
        <source>Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Size(Byte)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Selection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Log Download from MAV%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>UpLoad</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fault diagnosis</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please choose to upload files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading airborne log %1/%2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The log %1 could not be saved.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Transmission completion</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Is preparing to upload</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmLogUploadController</name>
    <message>
        <source>Software version cannot be empty.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OS version cannot be empty.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Question description cannot be empty.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fault diagnosis</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File not found.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Information</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Is uploading</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Is uploading, remaining</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SkyConsole</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Re-upload</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Upload completed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Continue to upload</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Upload failed, please re-upload</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmMessageBox</name>
    <message>
        <source>SkyConsole</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmMissionTableDelegate</name>
    <message>
        <source>Re-download</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmNoFlyZoneUpgrade</name>
    <message>
        <source>Downloading NoFlyZone File...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Download File Failed.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmNoticeCenter</name>
    <message>
        <source>System Information</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The news page cannot be shown on this display.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> There is a new firmware version needs to be updated.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SkyConsole</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> There is a new &quot;srtch&quot; version needs to be updated.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmPhoneCodeDialog</name>
    <message>
        <source>The two passwords differ.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The password needs at least %1 characters.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Network fault</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SkyConsole</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The verification code has been sent.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Resend in %1 s</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmPlaneStatus</name>
    <message>
        <source>Version:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The umbrella rope has been used more than 80 times, please replace it as soon as possible to ensure flight safety.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The maximum service life of the rope is 100 times, please check and replace in time!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please confirm that you have changed the parachute rope.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Are you sure you want to open the parachute cover?</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmPlaneStatusController</name>
    <message>
        <source>times</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Normal</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmPlaneStatusPage</name>
    <message>
        <source>Plane Status</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Autopilot</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Serial number:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Firmware version:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ground Radio</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Flight Situation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Takeoff and landing times:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Steering gear action:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Flight Mileage:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open umbrella times:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Motor starts:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Last flight (s):</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Highest altitude (m):</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Intelligent battery</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>State:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Electricity:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Voltage:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Capacitance:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Parachute</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Use times of parachute rope:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The maximum service life of the rope is 100 times, please check and replace in time!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Replaced</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Parachute check</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Click the button to check whether it is normal parachute cover.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connecting State</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not Connect</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Battery</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Number of Flights:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Flight time (s):</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Boot count:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hardware Information</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Battery version:</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmProgressWgt</name>
    <message>
        <source>Retry</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmProjDetailsController</name>
    <message>
        <source>This project is only in the cloud. Download it to see its missions.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading the missions...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the cloud cannot be reached</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A reply of the cloud could not be read; its missions are not listed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Some missions could not be listed: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This project has no flight tasks yet.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No mission of this project is in the cloud yet.</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n mission(s) in the cloud. Click a download mark to fetch a mission&apos;s flight data.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Downloading %1...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>its flight data could not be stored on this computer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 downloaded.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not download %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A reply of the cloud for %1 could not be read; nothing was changed.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmProjDetailsWgt</name>
    <message>
        <source>Project details</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Projects</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Back to the project list</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Missions planned</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Flown</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Downloaded</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mission</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Flight time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Log rows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Positions</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Flight data</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Downloading...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Complete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Download failed, please re-download</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Click download</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Only in the cloud</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This project is only in the cloud.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading the missions...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No flown mission of this project in the cloud.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmProjFilter</name>
    <message>
        <source>City</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>all</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Date</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmProjMgrController</name>
    <message>
        <source>Waiting...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Uploading...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Downloading...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Upload Failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Uploading Finished</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Download Failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Download Finished</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmProjMgrWgt</name>
    <message>
        <source>SkyConsole Project Manager</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Project Manager</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Project</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Share</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Assigned</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Trans List</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Back to home</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Synchronize</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Synchronize projects with the cloud</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Share the selected projects</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete the selected projects</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Search Project</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Search</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>More screening</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>City</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The national</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clear</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Flight Log</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Total storage space:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Total Project:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Project Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Assigned by</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No project has been assigned to you yet.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Uploading List</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Progress</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>State</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Downloading List</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Finished List</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Read cloud project information</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Read local project information</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The network is not connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SkyConsole</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Are you sure you want to delete all selected projects?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete Project</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Are you sure to delete project %1 ?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The Project delete was successful.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The local file delete operation was not successful, the file is in use.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>One or more file used by other application.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The cloud&apos;s answer could not be read. Nothing was deleted.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Network fault</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Are you sure you want to share all selected projects?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Can not find project file ,please download project first.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Download project file failed.Press cancel to use project on sever,press retry to download project again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Retry</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmProjTransferTrees</name>
    <message>
        <source>Open</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmProjectExistsDialog</name>
    <message>
        <source>The project already exists that you are going to?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SkyConsole</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Replace</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save As</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmProjetMgrDelegate</name>
    <message>
        <source>Share</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Download</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Details</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Click download</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Complete</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmRawDataDownloadController</name>
    <message>
        <source>No aircraft connected.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The aircraft disconnected; the download stopped. Unfinished files were removed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading the receiver&apos;s folders...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose the folders to download.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The folder %1 cannot be written.</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>Downloading %n folder(s) to %1...</source>
        <translation type="unfinished">
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Download stopped. Unfinished files were removed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The receiver holds no raw data.</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n folder(s) on the receiver.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>The receiver stopped answering; the download stopped. Unfinished files were removed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The receiver did not answer. Refresh to ask again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cannot write %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>Download finished: %n file(s) in %1.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CLmRawDataDownloadWgt</name>
    <message>
        <source>Data download</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Receiver raw data</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select all</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Recorded</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Receiver label</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save to</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Download</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save raw data to</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmReceiveShareManagerDelegate</name>
    <message>
        <source>Message</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Accept</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Share</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmRegisterDialog</name>
    <message>
        <source>Create a Tolva Cloud account</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Phone number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Send code</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Verification code</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nick name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Password</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repeat password</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Register</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Registration succeeded, please sign in.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please enter the phone number.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please enter the verification code.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please enter a nick name.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please enter a password.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please repeat the password.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmRtkStationController</name>
    <message>
        <source>One or more parameter can not set</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The deviation between the current setting point and the single point positioning coordinates is too large, do you want to continue?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The deviation between the current setting and the single point positioning coordinates is too large, do you want to continue?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The operator will be stop static capture.Are you sure?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Are you sure to format base station,the operator will be delete all files.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Currently in static record mode,please stop static file then click format button.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Currently in static record mode,please stop static file then click save button.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Are you stop static record file?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please input host address and port.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Acquiring source node failed,please check host address and port.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The reference point could not be saved.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please select exist reference point.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Are you sure to delete select reference point?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete reference point succeed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete reference point</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No point has been captured yet.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save reference point succeed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save reference point</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file name %1 from the base station was refused.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file %1 could not be written.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All file(s) to download finished.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Download file error ,please check base station connect state then try again.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmRtkStationSettings</name>
    <message>
        <source>RTK Base Station</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connect</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Base Station SN:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>N/A</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Firmware Version:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Work mode:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Battery Present:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Base Station Data</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Point capture</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Base Station State</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Work mode</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>GNSS high-accuracy mode:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Disuse</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>PPK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CORS &amp; PPK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Single station &amp; PPK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Suitable for use:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>F200,F300</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The base station is not used during the flight.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>PPK: record raw data only</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Altitude to angle:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CORS station</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Raw data only</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Host Address:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Port:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Account:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Password:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Source list:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Acquiring</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connection protocol:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>NTRIP</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Known points:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Manual input</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Calculator</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Format converter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Latitude:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>°</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>′</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>″</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Longitude:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Altitude:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Vertical height:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>GNSS Type:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>BDS+GPS</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>GPS</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>BDS</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scan interval（Hz):</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>5</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>10</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Differential data:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>RTCM3.0</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>RTCM3.2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Raw data</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CORS</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Single station</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Static files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Memory Size:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Free Space:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CheckAll</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Format</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Download</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>connect to CORS station</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mode:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Single point</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sample average</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Capture quantity:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Position limits:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fixed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Captured point:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Samples:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>0/0</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete Point</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Static recording</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Recording file:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>State:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create time:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop Recording</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Position</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Station lat:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quality factor:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Station lng:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Seatellite number:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Station alt:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Precision factor:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>GGAHz:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Base</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rover</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Static</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All file(s) to download finished.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connecting...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Checking...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Recording</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not recording</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Next</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connect failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No point has been captured yet.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Input reference point name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please select one or more file(s) to delete.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Are you sure to delete selected file(s)?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please select one or more file(s) to download.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save raw data</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Downloading</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmShareDialog</name>
    <message>
        <source>Project:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Receiver:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Message:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A note for the receiver (optional)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Share flight log</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Share</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Phone number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Share account cannot be empty</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Can not share to their own</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The cloud&apos;s answer could not be read. Please try again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SkyConsole</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Network fault</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Uploading flight log...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Upload flight log Complete.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmShareItem</name>
    <message>
        <source>%1 (flight task)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmShareManagerController</name>
    <message>
        <source>Waiting</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Accepted</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rejected</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmShareManagerWidget</name>
    <message>
        <source>Share</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Received</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sent</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Read the shares from the cloud again</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete the checked share records</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Project</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sender</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>State</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Operation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Message</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Network fault</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>NetWork Error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading the shares...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The share list could not be read; the rows shown are kept.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 received, %2 sent</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n new share(s) received</source>
        <translation type="unfinished">
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Receiver</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Project name cannot be empty</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File name cannot contain any of the following characters:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The cloud&apos;s answer could not be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please select an item at least to delete.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Are you sure to delete these selected item(s)?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Are you sure to delete project %1 shared by %2?
(%3)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>delete this sharing record and reject the project</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Are you sure to delete the project %1 sharing record?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Are you sure to cancel of sharing project %1?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The recipient will not receive the project after deletion</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Share project %1 with %2 again?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SkyConsole</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmShareMessageDialog</name>
    <message>
        <source>Message</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Me</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Them</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Your answer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Send</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Project: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmShareNameDialog</name>
    <message>
        <source>Save As</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New project name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Project name:</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmSystemInfo</name>
    <message>
        <source>%1, kernel %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 %2 GB</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>driver %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmTrimbleDataDownloadObject</name>
    <message>
        <source>Download </source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmTrimbleDataWrite</name>
    <message>
        <source>cannot rename the finished file</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmUavSettings</name>
    <message>
        <source>Flight Setting</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Radio lost contact protection time(s)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The plane and radio link interruption over the time, the plane will automatically return.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Parameter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Restore</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>save</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Parameter Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Parameter Type</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The aircraft did not confirm the protection time.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The aircraft did not confirm %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 parameters read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 parameters did not arrive; Restore reads them again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lost contact protection time can not be less than 30 seconds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Parameter set successfully</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Flight setting</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmUavSettingsController</name>
    <message>
        <source>paramter:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> value is null</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> value is not a %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmUpdateQuery</name>
    <message>
        <source>Network fault</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The update information is incomplete.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmUpgradeDownloadDialog</name>
    <message>
        <source>SkyConsole</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Downloading version %1 ...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Download File Failed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Download completed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The installation package has been downloaded and verified. Open its folder to install it?</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLmUserMessagePage</name>
    <message>
        <source>Home</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Recived Message</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Personal information</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No messages.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nick name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Phone</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Email</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Company</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Logout</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The nick name cannot be empty.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Saved.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Network fault</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change phone</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LmAlgorthm</name>
    <message>
        <source>Fixed-wing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Multirotor</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LmBatteryInfoWgt</name>
    <message>
        <source>Details of the battery</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remain(%)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Total (V)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Temp ℃</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Current mA</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Capacity mAh</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cycles</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Life expectancy (%)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Serial number:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Core voltage (V)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>abnormality</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LmPlaneStatusLists</name>
    <message>
        <source>GPS Hardware</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>BMS </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Magnetometer 1 Hardware</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Magnetometer 2 Hardware</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cloud Terrace Hardware</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ESC 1 Hardware</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ESC 2 Hardware</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ESC 3 Hardware</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ESC 4 Hardware</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ultrasonic Hardware</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Vision Hardware</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CPLD</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>FPGA</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>times</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sorties</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Batter version</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Battery self-check failure</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Power is too low</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ultra low power</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connected</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LmStationRules</name>
    <message>
        <source>:Success</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>:Failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start static file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not static mode</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File name exist</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Parameter error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>GPS is not positioning</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>delete file(s) succeed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not static mode.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete files failed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Base Ntrip </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>connect to CORS station failed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set work mode to static failed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop static file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please input reference point name.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The reference point name can have at most %1 characters.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The reference point name has been exist.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid fix</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Standalone</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Diff corrected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>GPS PPS mode</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>RTK fixed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>RTK float</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dead reckoning</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Entered position</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Simulator model</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reserved</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not defined</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LmUsbDiskText</name>
    <message>
        <source>%1 (%2)  %3 free of %4</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LogDownloadDialog</name>
    <message>
        <source>Airborne log list</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete logs</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>UpLoad</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fault diagnosis</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fault Diagnosis</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Network failure or remote server is not available.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Retry</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SkyConsole</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Desktop hub for survey-drone crews: cloud projects, aircraft, flight logs, GNSS base stations.
Deployment data: /etc/skyconsole/deployment.ini, overridden by ~/.config/SkyConsole/deployment.ini and SKYCONSOLE_&lt;GROUP&gt;_&lt;KEY&gt; variables.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Language of the texts: en or zh_CN.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
