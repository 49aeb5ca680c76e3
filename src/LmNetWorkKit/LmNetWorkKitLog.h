#pragma once

#include <QLoggingCategory>

Q_DECLARE_LOGGING_CATEGORY(lcRequest)
Q_DECLARE_LOGGING_CATEGORY(lcNetTest)
