#pragma once

#include "LmProjectConstants.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>

class CLmDataBase;

// Writes flight data that arrived from the cloud as JSON objects into a
// mission database. Keys are matched by name against the table's columns
// (other keys are ignored), values are bound, and a row that is not an
// object or that the table refuses is skipped and logged. All rows go in one
// transaction; a row whose "id" is already stored replaces it, so writing
// the same download twice changes nothing.
class CLmFlightDataWriter
{
public:
    // The table of an operator type, or an empty text for an unknown one.
    static QString TableName(unsigned int operatorType);

    // Rows written, or -1 when the target was refused: an unknown operator
    // type, or a file that exists but is not an intact SQLite database (it is
    // left untouched). A missing or empty file becomes a new mission
    // database. Rows without "flight_mission_id" get missionId when the table
    // has that column and missionId is not empty.
    static int Write(const QString& filePath, unsigned int operatorType, const QJsonArray& rows,
                     const QString& missionId);

private:
    static bool IsWritableTarget(const QString& filePath);
    static QStringList Columns(CLmDataBase& db, const QString& table);
    // Empty on success, else why the row was refused.
    static QString WriteRow(CLmDataBase& db, const QString& table, const QStringList& columns, QJsonObject row,
                            const QString& missionId);
};
