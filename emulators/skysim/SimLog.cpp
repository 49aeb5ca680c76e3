#include "SimLog.h"

Q_LOGGING_CATEGORY(lcSkySim, "sky.skysim.vehicle")
