#pragma once

#include <QLoggingCategory>

// The hub's logging categories, "sky.carrowmereui.<area>".
Q_DECLARE_LOGGING_CATEGORY(lcMainWnd)
Q_DECLARE_LOGGING_CATEGORY(lcLauncher)
Q_DECLARE_LOGGING_CATEGORY(lcNotices)
Q_DECLARE_LOGGING_CATEGORY(lcPhoneCode)
Q_DECLARE_LOGGING_CATEGORY(lcProjSynch)
Q_DECLARE_LOGGING_CATEGORY(lcNoFly)
Q_DECLARE_LOGGING_CATEGORY(lcShare)
Q_DECLARE_LOGGING_CATEGORY(lcProjDetails)
Q_DECLARE_LOGGING_CATEGORY(lcAircraft)
