#pragma once

// Names shared by every program that reads or writes project files.
// A project folder holds the project database "<name><ProjectSuffix>" and,
// next to it, the mission database "<name><MissionSuffix>".
inline constexpr char ProjectTableName[] = "project";
inline constexpr char SurveyAreaTableName[] = "survey_area";
inline constexpr char FlightTaskTableName[] = "flight_task";
inline constexpr char FlightMissionTableName[] = "flight_mission";
inline constexpr char FlightLogTableName[] = "flight_monitor_detail_log";
inline constexpr char UasStatusTableName[] = "uas_status";
inline constexpr char PosDataTableName[] = "pos_data";

inline constexpr char DateTimeSFormat[] = "yyyy-MM-dd HH:mm:ss";
inline constexpr char DateFormat[] = "yyyy-MM-dd";

inline constexpr char ProjectSuffix[] = ".proj";
inline constexpr char ProjectFileFilter[] = "*.proj";
inline constexpr char MissionSuffix[] = ".db";

// The mission-database tables that flight data downloaded from the cloud is
// written to, numbered as the operator type of the flight-data parser.
enum EFlightDataTable : unsigned int {
    FlightDataMission = 0,    // "flight_mission"
    FlightDataUasStatus = 1,  // "uas_status"
    FlightDataPosData = 2,    // "pos_data"
    FlightDataDetailLog = 3,  // "flight_monitor_detail_log"
};
