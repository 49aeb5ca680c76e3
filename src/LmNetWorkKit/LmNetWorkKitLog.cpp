#include "LmNetWorkKitLog.h"

Q_LOGGING_CATEGORY(lcRequest, "sky.networkkit.request")
Q_LOGGING_CATEGORY(lcNetTest, "sky.networkkit.test")
