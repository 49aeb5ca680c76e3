// Applying a cloud update of 50,000 changed no-fly zones to the local zone
// database, from the reply's bytes as the cloud sends them to the records
// committed, against the least SQLite itself needs for the same rows: one
// transaction of plain inserts through the C library, values ready in memory.
#include "CLmDataBase.h"
#include "CLmNoflyZoneMgr.h"
#include "LmNoflyZoneSchema.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <sqlite3.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

using namespace LmNoflyZoneSchema;

namespace {

constexpr int kZones = 50000;
constexpr int kRounds = 5;

QJsonObject Zone(int serial, const QString& name, const QString& updatedAt)
{
    const double lat = -60.0 + (serial % 1200) * 0.1;
    const double lng = -170.0 + (serial / 1200) * 0.5;
    return QJsonObject{
        {"name", name},
        {"elevation", double(serial % 1500)},
        {"level", 1 + serial % 3},
        {"enable", 1},
        {"created_at", "2025-01-06 08:00:00"},
        {"continent", "Europe"},
        {"country", "Switzerland"},
        {"region", "Zurich"},
        {"city", "Zurich"},
        {"scheduled_service", "yes"},
        {"name_code", "ZRH"},
        {"notes", "Controlled airspace"},
        {"type", 1 + serial % 3},
        {"local_id", QStringLiteral("CH-A%1").arg(serial, 6, 10, QLatin1Char('0'))},
        {"num_runway", serial % 4},
        {"revision_num", 2},
        {"effective_date", "2025-01-07 08:00:00"},
        {"updated_at", updatedAt},
        {"area", QStringLiteral("{\"type\":\"circle\",\"lat\":%1,\"lng\":%2,\"radius\":5000}").arg(lat).arg(lng)},
        {"gps_code", "CHZRH"},
        {"open_time", "00:00-24:00"},
        {"open_altitude", 120.0},
        {"version", "1.0"},
        {"user_id", 0},
        {"csv_id", serial},
    };
}

QJsonArray Zones(const QString& namePrefix, const QString& updatedAt)
{
    QJsonArray zones;
    for (int serial = 0; serial < kZones; ++serial)
        zones.append(Zone(serial, namePrefix + QString::number(serial), updatedAt));
    return zones;
}

// The reply to "/noflyzone/checkupdate" as the cloud writes it.
QByteArray CheckUpdateReply(const QJsonArray& zones)
{
    const QJsonObject reply{{"status", 0}, {"message", "OK"}, {"data", zones}, {"lift_count", 0}};
    return QJsonDocument(reply).toJson(QJsonDocument::Compact);
}

// The changed records as the C library takes them: text as UTF-8, numbers as doubles.
struct SValue
{
    bool isText;
    std::string text;
    double number;
};

std::vector<std::vector<SValue>> PlainRows(const QJsonArray& zones)
{
    std::vector<std::vector<SValue>> rows;
    rows.reserve(zones.size());
    for (const QJsonValue& zone : zones) {
        std::vector<SValue> row;
        for (const QString& field : ZoneFields()) {
            const QJsonValue value = zone.toObject().value(field);
            row.push_back({value.isString(), value.toString().toStdString(), value.toDouble()});
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

bool WriteEmptyZoneDatabase(const QString& path)
{
    QFile::remove(path);
    CLmDataBase db(path);
    return db.Open() && CreateTables(db);
}

double InsertFloorMs(const QString& path, const std::vector<std::vector<SValue>>& rows)
{
    if (!WriteEmptyZoneDatabase(path))
        return -1;
    sqlite3* db = nullptr;
    sqlite3_open(QFile::encodeName(path).constData(), &db);
    QStringList marks;
    for (int i = 0; i < ZoneFields().size(); ++i)
        marks.append(QStringLiteral("?"));
    const QByteArray sql = QStringLiteral("INSERT INTO %1 (\"%2\") VALUES (%3)")
                               .arg(QLatin1String(ZoneTable), ZoneFields().join(QStringLiteral("\",\"")),
                                    marks.join(QLatin1Char(',')))
                               .toUtf8();
    QElapsedTimer timer;
    timer.start();
    sqlite3_exec(db, "BEGIN", nullptr, nullptr, nullptr);
    sqlite3_stmt* insert = nullptr;
    sqlite3_prepare_v2(db, sql.constData(), -1, &insert, nullptr);
    for (const std::vector<SValue>& row : rows) {
        for (int column = 0; column < int(row.size()); ++column) {
            const SValue& value = row[column];
            if (value.isText)
                sqlite3_bind_text(insert, column + 1, value.text.c_str(), int(value.text.size()), SQLITE_STATIC);
            else
                sqlite3_bind_double(insert, column + 1, value.number);
        }
        sqlite3_step(insert);
        sqlite3_reset(insert);
    }
    sqlite3_finalize(insert);
    const bool committed = sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr) == SQLITE_OK;
    const double ms = timer.nsecsElapsed() / 1e6;
    sqlite3_close(db);
    return committed ? ms : -1;
}

// The work copy holds every zone once; the update changes all of them.
double ApplyMs(const QString& workFile, const QByteArray& original, const QByteArray& changed)
{
    CLmNoflyZoneMgr manager(workFile);
    if (!WriteEmptyZoneDatabase(workFile) || !manager.ApplyZoneReply(original).result.bOk)
        return -1;
    QElapsedTimer timer;
    timer.start();
    const CLmNoflyZoneMgr::SApplyResult result = manager.ApplyZoneReply(changed).result;
    const double ms = timer.nsecsElapsed() / 1e6;
    return result.bOk && result.iApplied == kZones ? ms : -1;
}

// The best of the rounds: on a busy machine the others measure the neighbours.
double Best(const std::vector<double>& values)
{
    return *std::min_element(values.begin(), values.end());
}

}  // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    QTemporaryDir dir;
    const QJsonArray changed = Zones(QStringLiteral("Changed zone "), QStringLiteral("2026-02-01 12:00:00"));
    const QByteArray originalReply =
        CheckUpdateReply(Zones(QStringLiteral("Zone "), QStringLiteral("2025-01-06 08:00:00")));
    const QByteArray changedReply = CheckUpdateReply(changed);
    const std::vector<std::vector<SValue>> plainRows = PlainRows(changed);

    std::vector<double> applied;
    std::vector<double> floor;
    for (int round = 0; round < kRounds; ++round) {
        applied.push_back(ApplyMs(dir.filePath(QStringLiteral("work.db")), originalReply, changedReply));
        floor.push_back(InsertFloorMs(dir.filePath(QStringLiteral("floor.db")), plainRows));
    }
    const double appliedMs = Best(applied);
    const double floorMs = Best(floor);
    if (appliedMs <= 0 || floorMs <= 0) {
        std::fprintf(stderr, "nofly_apply_bench: a run failed\n");
        return 1;
    }
    std::printf("nofly_apply_50000_floor: %.1f ms (baseline: the same rows inserted through the sqlite3 C library "
                "in one transaction)\n",
                floorMs);
    std::printf("nofly_apply_50000: %.1f ms = %.2fx floor (target <= 2x)\n", appliedMs, appliedMs / floorMs);
    return 0;
}
