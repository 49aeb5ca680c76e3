#include "LmCarrowmereUtilityLog.h"

Q_LOGGING_CATEGORY(lcUtility, "sky.carrowmereutility")
