#include "LmCarrowmereUILog.h"

Q_LOGGING_CATEGORY(lcMainWnd, "sky.carrowmereui.mainwindow")
Q_LOGGING_CATEGORY(lcLauncher, "sky.carrowmereui.launcher")
Q_LOGGING_CATEGORY(lcNotices, "sky.carrowmereui.notices")
Q_LOGGING_CATEGORY(lcPhoneCode, "sky.carrowmereui.phonecode")
Q_LOGGING_CATEGORY(lcProjSynch, "sky.carrowmereui.projectsynch")
Q_LOGGING_CATEGORY(lcProjMgr, "sky.carrowmereui.projectmanager")
Q_LOGGING_CATEGORY(lcNoFly, "sky.carrowmereui.noflyzone")
Q_LOGGING_CATEGORY(lcShare, "sky.carrowmereui.share")
Q_LOGGING_CATEGORY(lcProjDetails, "sky.carrowmereui.projectdetails")
Q_LOGGING_CATEGORY(lcAircraft, "sky.carrowmereui.aircraft")
Q_LOGGING_CATEGORY(lcGnss, "sky.carrowmereui.gnss")
