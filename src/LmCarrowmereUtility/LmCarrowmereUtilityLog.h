#pragma once

#include <QLoggingCategory>

Q_DECLARE_LOGGING_CATEGORY(lcUpdateCheck)
Q_DECLARE_LOGGING_CATEGORY(lcPackage)
