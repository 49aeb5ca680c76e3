#pragma once

#include <QJsonArray>

// The emulator's zone set: controlled airspace around the real places of
// the offline city table (geonames), the same in every new data folder. An
// airport zone around every city of 150,000 people or more, a restricted
// area beside every city of a million or more and a heliport beside every
// city of 500,000 or more, each with all the fields the cloud sends.
namespace NoflyZoneSeeder {

QJsonArray Zones();
// One lift for demo pilot one over the first zone.
QJsonArray DemoLifts(const QJsonArray& zones);

}  // namespace NoflyZoneSeeder
