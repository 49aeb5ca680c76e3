#include "CloudLog.h"

Q_LOGGING_CATEGORY(lcSkyCloud, "sky.skycloud.server")
