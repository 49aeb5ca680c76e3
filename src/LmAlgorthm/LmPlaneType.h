#pragma once

#include <QString>

// Aircraft models. The numbers are stored in settings and exchanged with the
// sibling applications, so they never change meaning.
enum EPlaneType {
    ePlaneTypeUnknown = 0,
    ePlaneTypeFixwing = 1,
    // 6 is the multirotor: the model whose full parameter table the aircraft
    // settings offer on a test server.
    ePlaneTypeMultirotor = 6,
};

// The model named by an aircraft's firmware identification text: "FW_..."
// for fixed-wing, "MR_..." for multirotor firmware; anything else is unknown.
EPlaneType GetPlaneTypeByFirmware(const QString& firmware);
QString GetPlaneStringByType(EPlaneType type);
bool IsFixwing(EPlaneType type);
