#include "LmAlgorthmLog.h"

Q_LOGGING_CATEGORY(lcDeploy, "sky.algorthm.deploy")
