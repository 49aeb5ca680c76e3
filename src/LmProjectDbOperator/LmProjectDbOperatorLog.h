#pragma once

#include <QLoggingCategory>

Q_DECLARE_LOGGING_CATEGORY(lcFlightData)
Q_DECLARE_LOGGING_CATEGORY(lcTransfer)
