#pragma once

#include <QHash>
#include <QJsonArray>
#include <QString>

// The templates that turn flight-data rows from the cloud into rows of a
// mission-database table. A template is a text resource of "key=column"
// lines ('#' starts a comment line); applying it renames each reply key to
// its column and drops every key it does not name, so a reply can only fill
// the columns its template lists.
namespace LmFlightTemplate {

// Reply key -> table column.
using Mapping = QHash<QString, QString>;

// The resource of an operator type (EFlightDataTable): ":/flight_mission.txt",
// ":/uas_status.txt", ":/pos_data.txt", ":/flight_monitor_detail_log.txt";
// empty for an unknown type.
QString ResourcePath(unsigned int operatorType);

// Blanks around keys and columns are dropped; empty lines, comments and lines
// without both a key and a column are skipped.
Mapping Parse(const QString& text);

// The template of an operator type, read from its resource; empty when the
// type is unknown.
Mapping ForOperatorType(unsigned int operatorType);

// The rows with their keys mapped. A value that is not an object, or an object
// that keeps no key, gives no row.
QJsonArray Apply(const Mapping& mapping, const QJsonArray& rows);

}  // namespace LmFlightTemplate
