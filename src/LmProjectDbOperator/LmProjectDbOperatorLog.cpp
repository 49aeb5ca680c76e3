#include "LmProjectDbOperatorLog.h"

Q_LOGGING_CATEGORY(lcFlightData, "sky.projectdb.flightdata")
Q_LOGGING_CATEGORY(lcTransfer, "sky.projectdb.transfer")
