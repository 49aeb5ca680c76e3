#include "BaseLog.h"

Q_LOGGING_CATEGORY(lcSkyBase, "sky.skybase.station")
