#pragma once

#include <QLoggingCategory>

Q_DECLARE_LOGGING_CATEGORY(lcDataBase)
Q_DECLARE_LOGGING_CATEGORY(lcNoflyZone)
