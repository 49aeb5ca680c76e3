#include "CLmFlightDataWriter.h"

#include "CLmDataBase.h"
#include "CLmProjectSchema.h"
#include "LmProjectDbOperatorLog.h"

#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSqlError>
#include <QSqlQuery>

namespace {

constexpr char MissionIdColumn[] = "flight_mission_id";

QString QuotedName(QString name)
{
    return QLatin1Char('"') + name.replace(QLatin1Char('"'), QLatin1String("\"\"")) + QLatin1Char('"');
}

QVariant SqlValue(const QJsonValue& value)
{
    switch (value.type()) {
    case QJsonValue::Array:
        return QString::fromUtf8(QJsonDocument(value.toArray()).toJson(QJsonDocument::Compact));
    case QJsonValue::Object:
        return QString::fromUtf8(QJsonDocument(value.toObject()).toJson(QJsonDocument::Compact));
    case QJsonValue::Bool:
        return value.toBool() ? 1 : 0;
    case QJsonValue::Double: {
        const double number = value.toDouble();
        const qint64 whole = static_cast<qint64>(number);
        return static_cast<double>(whole) == number ? QVariant(whole) : QVariant(number);
    }
    case QJsonValue::String:
        return value.toString();
    case QJsonValue::Null:
    case QJsonValue::Undefined:
        break;
    }
    return QVariant();
}

}  // namespace

QString CLmFlightDataWriter::TableName(unsigned int operatorType)
{
    switch (operatorType) {
    case FlightDataMission:
        return QLatin1String(FlightMissionTableName);
    case FlightDataUasStatus:
        return QLatin1String(UasStatusTableName);
    case FlightDataPosData:
        return QLatin1String(PosDataTableName);
    case FlightDataDetailLog:
        return QLatin1String(FlightLogTableName);
    default:
        return {};
    }
}

int CLmFlightDataWriter::Write(const QString& filePath, unsigned int operatorType, const QJsonArray& rows,
                               const QString& missionId)
{
    const QString table = TableName(operatorType);
    if (table.isEmpty()) {
        qCWarning(lcFlightData) << "unknown flight data type" << operatorType << "- nothing written to" << filePath;
        return -1;
    }
    if (!IsWritableTarget(filePath)) {
        qCWarning(lcFlightData) << "not an intact mission database, left untouched:" << filePath;
        return -1;
    }
    CLmDataBase db(filePath);
    if (!db.OpenForeign({}, CLmDataBase::EForeignAccess::PrivateCopy) || !db.Database().transaction()
        || !CLmProjectSchema::CreateMissionTables(db)) {
        qCWarning(lcFlightData) << "cannot prepare" << filePath << "for flight data:" << db.LastError();
        return -1;
    }
    const QStringList columns = Columns(db, table);
    int written = 0;
    for (int i = 0; i < rows.size(); ++i) {
        if (!rows.at(i).isObject())
            qCWarning(lcFlightData) << "skipping" << table << "row" << i << "- not a JSON object";
        else if (const QString refusal = WriteRow(db, table, columns, rows.at(i).toObject(), missionId);
                 !refusal.isEmpty())
            qCWarning(lcFlightData) << "skipping" << table << "row" << i << "-" << refusal;
        else
            ++written;
    }
    if (!db.Database().commit()) {
        qCWarning(lcFlightData) << "cannot store flight data in" << filePath << db.Database().lastError().text();
        db.Database().rollback();
        return -1;
    }
    return written;
}

bool CLmFlightDataWriter::IsWritableTarget(const QString& filePath)
{
    const QFileInfo file(filePath);
    return !file.exists() || (file.isFile() && file.size() == 0) || CLmDataBase::IsSqliteFile(filePath);
}

QStringList CLmFlightDataWriter::Columns(CLmDataBase& db, const QString& table)
{
    QStringList columns;
    QSqlQuery info(db.Database());
    if (db.Exec(QStringLiteral("PRAGMA table_info(%1)").arg(QuotedName(table)), {}, &info)) {
        while (info.next())
            columns.append(info.value(QStringLiteral("name")).toString());
    }
    return columns;
}

QString CLmFlightDataWriter::WriteRow(CLmDataBase& db, const QString& table, const QStringList& columns,
                                      QJsonObject row, const QString& missionId)
{
    const QString missionColumn = QLatin1String(MissionIdColumn);
    if (!missionId.isEmpty() && columns.contains(missionColumn) && !row.contains(missionColumn))
        row.insert(missionColumn, missionId);
    QStringList names;
    QVariantList values;
    for (const QString& column : columns) {
        if (!row.contains(column))
            continue;
        names.append(QuotedName(column));
        values.append(SqlValue(row.value(column)));
    }
    if (names.isEmpty())
        return QStringLiteral("no key names a column of the table");
    const QString placeholders = QStringLiteral("?,").repeated(names.size()).chopped(1);
    const bool stored = db.Exec(QStringLiteral("INSERT OR REPLACE INTO %1 (%2) VALUES (%3)")
                                    .arg(QuotedName(table), names.join(QLatin1Char(',')), placeholders),
                                values);
    return stored ? QString() : db.LastError();
}
