#include "LmBaseUILog.h"

Q_LOGGING_CATEGORY(lcBaseUI, "sky.baseui")
