#include "LmDataLog.h"

Q_LOGGING_CATEGORY(lcDataBase, "sky.data.database")
Q_LOGGING_CATEGORY(lcNoflyZone, "sky.data.noflyzone")
