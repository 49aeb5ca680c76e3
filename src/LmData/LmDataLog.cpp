#include "LmDataLog.h"

Q_LOGGING_CATEGORY(lcDataBase, "sky.data.database")
