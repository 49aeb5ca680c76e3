#include "LmLinkInstanceLog.h"

Q_LOGGING_CATEGORY(lcLinkInstance, "sky.linkinstance")
