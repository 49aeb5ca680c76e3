#pragma once

// Item-data roles of the project manager's rows and of the project details
// page's mission table, shared by the pages, their items and their delegates.
// A row keeps all of them on its first column.
namespace LmProjMgrRole {

// Cloud project id; also the key of the project delegate's state maps.
constexpr int ProjectId = 1256;
// Local project file path.
constexpr int ProjectPath = 1257;
// City names (QStringList) of the project's survey areas.
constexpr int CityList = 1267;
// Flight-log text: flown count "/" mission count, or "------".
constexpr int FlightLogText = 356;
// Mission id of a mission-table row; the key of the mission delegate's map.
constexpr int MissionId = 1268;

}  // namespace LmProjMgrRole
