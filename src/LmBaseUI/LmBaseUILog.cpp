#include "LmBaseUILog.h"

Q_LOGGING_CATEGORY(lcMessageBox, "sky.baseui.messagebox")
