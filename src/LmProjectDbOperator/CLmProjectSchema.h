#pragma once

#include <QStringList>

class CLmDataBase;

// The tables of a project database and of a mission database. The planning
// and flying applications write these files; this hub and its tools create
// them with the same statements.
class CLmProjectSchema
{
public:
    static bool CreateProjectTables(CLmDataBase& db);
    static bool CreateMissionTables(CLmDataBase& db);
    // The tables every project (mission) database has and its readers need,
    // for checking a file from outside before reading it.
    static QStringList ProjectTables();
    static QStringList MissionTables();

private:
    static QStringList ProjectStatements();
    static QStringList MissionStatements();
    static bool ExecAll(CLmDataBase& db, const QStringList& statements);
};
