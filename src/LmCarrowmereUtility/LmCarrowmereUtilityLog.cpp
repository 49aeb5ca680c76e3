#include "LmCarrowmereUtilityLog.h"

Q_LOGGING_CATEGORY(lcUpdateCheck, "sky.carrowmereutility.updatecheck")
Q_LOGGING_CATEGORY(lcPackage, "sky.carrowmereutility.package")
