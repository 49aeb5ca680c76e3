#include "BaseStation.h"

#include "BaseLog.h"
#include "CLmGgaReader.h"
#include "CLmNmeaSentence.h"
#include "NtripClient.h"

#include <QDir>
#include <QHash>
#include <QRandomGenerator>
#include <QTime>

#include <cmath>

namespace {

constexpr int kPointFieldCount = 9;
constexpr int kCasterFieldCount = 6;
constexpr double kMetresPerDegree = 111320.0;

double ToDdmm(double degrees)
{
    const double whole = std::trunc(degrees);
    return whole * 100.0 + (degrees - whole) * 60.0;
}

bool IsDdmm(double value, double maxDegrees)
{
    const double magnitude = std::fabs(value);
    const double degrees = std::floor(magnitude / 100.0);
    return std::isfinite(value) && degrees <= maxDegrees && magnitude - degrees * 100.0 < 60.0;
}

bool ReadNumber(const QByteArray& field, double& value)
{
    bool ok = false;
    value = field.toDouble(&ok);
    return ok && std::isfinite(value);
}

bool ReadInt(const QByteArray& field, int minimum, int maximum, int& value)
{
    bool ok = false;
    value = field.toInt(&ok);
    return ok && value >= minimum && value <= maximum;
}

}  // namespace

BaseStation::BaseStation(const BaseOptions& options, QObject* parent)
    : QObject(parent),
      m_options(options),
      m_strSettingsPath(QDir(options.dataDir).filePath(QStringLiteral("station.ini"))),
      m_settings(BaseSettings::Load(m_strSettingsPath)),
      m_storage(QDir(options.dataDir).filePath(QStringLiteral("ftp/static")), options.storageBytes),
      m_recorder(m_storage, options.epochBytes)
{
}

BaseStation::~BaseStation() = default;

QString BaseStation::FtpRoot() const
{
    return QDir(m_options.dataDir).filePath(QStringLiteral("ftp"));
}

void BaseStation::Handle(const Protocol::SSentence& request, const Reply& reply)
{
    static const QHash<QByteArray, Handler> handlers = {
        {Protocol::MainFrame, &BaseStation::ReadMainFrame},   {Protocol::Caster, &BaseStation::ReadCaster},
        {Protocol::Location, &BaseStation::ReadLocation},     {Protocol::Storage, &BaseStation::ReadStorage},
        {Protocol::FileState, &BaseStation::ReadFileState},   {Protocol::FileList, &BaseStation::ReadFileList},
        {Protocol::SourceTable, &BaseStation::FetchSourceTable}, {Protocol::Base, &BaseStation::SetBase},
        {Protocol::Rover, &BaseStation::SetRover},            {Protocol::Cors, &BaseStation::SetCors},
        {Protocol::Static, &BaseStation::SetStatic},          {Protocol::StartFile, &BaseStation::StartFile},
        {Protocol::StopFile, &BaseStation::StopFile},         {Protocol::Delete, &BaseStation::DeleteFiles},
    };
    const Handler handler = handlers.value(request.operation);
    qCDebug(lcSkyBase) << "request" << request.operation;
    if (handler)
        (this->*handler)(request.lstFields, reply);
    else
        reply(Protocol::ReplyLine(request.operation, Protocol::CodeBadParameter));
}

QByteArray BaseStation::GgaLine() const
{
    SLmGgaFix fix;
    const QTime utc = QDateTime::currentDateTimeUtc().time();
    fix.dUtcSeconds = utc.msecsSinceStartOfDay() / 1000.0;
    if (m_options.noFix) {
        fix.nSatellites = 3;
        fix.dHdop = 99.9;
        return CLmNmeaSentence::Frame(CLmGgaReader::Write(fix));
    }
    const bool rtk = m_pCorrections && m_pCorrections->IsLoggedIn();
    fix.nQuality = rtk ? 4 : 1;
    fix.nSatellites = rtk ? 26 : 21;
    fix.dHdop = rtk ? 0.6 : 0.9;
    NoisyPosition(rtk ? 0.01 : 0.8, fix.dLatitude, fix.dLongitude);
    fix.dAltitude = m_options.siteAltitude + (rtk ? 0.02 : 1.5) * (QRandomGenerator::global()->generateDouble() - 0.5);
    return CLmNmeaSentence::Frame(CLmGgaReader::Write(fix));
}

void BaseStation::NoisyPosition(double metres, double& latitude, double& longitude) const
{
    QRandomGenerator* noise = QRandomGenerator::global();
    const double north = metres * (noise->generateDouble() - 0.5) / kMetresPerDegree;
    const double east = metres * (noise->generateDouble() - 0.5)
                        / (kMetresPerDegree * std::cos(m_options.siteLatitude * M_PI / 180.0));
    latitude = ToDdmm(m_options.siteLatitude + north);
    longitude = ToDdmm(m_options.siteLongitude + east);
}

void BaseStation::ReadMainFrame(const Fields&, const Reply& reply)
{
    reply(Protocol::ReplyLine(Protocol::MainFrame, Protocol::CodeSuccess,
                              {Protocol::Number(qint64(m_settings.workMode)), Protocol::Number(qint64(m_options.battery)),
                               Protocol::Number(qint64(m_options.firmwareVersion)),
                               Protocol::Text(m_options.serialNumber)}));
}

void BaseStation::ReadCaster(const Fields&, const Reply& reply)
{
    reply(Protocol::ReplyLine(Protocol::Caster, Protocol::CodeSuccess,
                              {Protocol::Text(m_settings.casterHost), Protocol::Number(qint64(m_settings.casterPort)),
                               Protocol::Text(m_settings.casterAccount), Protocol::Text(m_settings.casterPassword),
                               Protocol::Text(m_settings.casterMount)}));
}

void BaseStation::ReadLocation(const Fields&, const Reply& reply)
{
    if (m_options.noFix) {
        reply(Protocol::ReplyLine(Protocol::Location, Protocol::CodeNotPositioning));
        return;
    }
    double latitude = 0.0, longitude = 0.0;
    NoisyPosition(1.0, latitude, longitude);
    reply(Protocol::ReplyLine(Protocol::Location, Protocol::CodeSuccess,
                              {Protocol::Number(latitude), Protocol::Number(longitude),
                               Protocol::Number(m_options.siteAltitude), Protocol::Text(m_settings.diffFormat)}));
}

void BaseStation::ReadStorage(const Fields&, const Reply& reply)
{
    reply(Protocol::ReplyLine(Protocol::Storage, Protocol::CodeSuccess,
                              {Protocol::Number(qint64(m_storage.Capacity())), Protocol::Number(qint64(m_storage.Free()))}));
}

void BaseStation::ReadFileState(const Fields&, const Reply& reply)
{
    const QString created = m_recorder.IsRecording() ? m_recorder.Created().toString(Qt::ISODate) : QString();
    reply(Protocol::ReplyLine(Protocol::FileState, Protocol::CodeSuccess,
                              {Protocol::Text(m_recorder.Name()), Protocol::Text(created),
                               Protocol::Number(qint64(m_recorder.IsRecording() ? 1 : 0))}));
}

void BaseStation::ReadFileList(const Fields&, const Reply& reply)
{
    int count = 0;
    const QString list = m_storage.ListText(count);
    reply(Protocol::ReplyLine(Protocol::FileList, Protocol::CodeSuccess,
                              {Protocol::Number(qint64(count)), Protocol::Text(list)}));
}

void BaseStation::FetchSourceTable(const Fields& fields, const Reply& reply)
{
    int port = 0;
    if (fields.size() != 2 || !ReadInt(fields.at(1), 1, 65535, port)) {
        reply(Protocol::ReplyLine(Protocol::SourceTable, Protocol::CodeBadParameter));
        return;
    }
    auto* client = new NtripClient(this);
    connect(client, &NtripClient::finished, this, [client, reply](int result, const QStringList& mounts) {
        Fields encoded;
        for (const QString& mount : mounts)
            encoded.append(Protocol::Text(mount));
        reply(Protocol::ReplyLine(Protocol::SourceTable, result, encoded));
        client->deleteLater();
    });
    client->Start(Protocol::ToText(fields.at(0)), port, QString(), QString(), QString());
}

bool BaseStation::TakePoint(const Fields& fields, int first, BaseSettings& settings) const
{
    if (fields.size() < first + kPointFieldCount)
        return false;
    double reserved = 0.0;
    int reservedInt = 0;
    return ReadNumber(fields.at(first), settings.latitude) && IsDdmm(settings.latitude, 90)
           && ReadNumber(fields.at(first + 1), settings.longitude) && IsDdmm(settings.longitude, 180)
           && ReadNumber(fields.at(first + 2), settings.height) && settings.height > -1000 && settings.height < 10000
           && ReadNumber(fields.at(first + 3), reserved) && ReadNumber(fields.at(first + 4), reserved)
           && ReadInt(fields.at(first + 5), 0, 90, settings.elevationMask)
           && ReadInt(fields.at(first + 6), 1, 50, settings.rate)
           && ReadInt(fields.at(first + 7), 2, 7, settings.gnssType)
           && (settings.gnssType == 2 || settings.gnssType == 3 || settings.gnssType == 7)
           && ReadInt(fields.at(first + 8), 0, 255, reservedInt);
}

bool BaseStation::TakeCaster(const Fields& fields, int first, BaseSettings& settings)
{
    if (fields.size() < first + kCasterFieldCount)
        return false;
    int flag = 0;
    settings.casterHost = Protocol::ToText(fields.at(first));
    settings.casterAccount = Protocol::ToText(fields.at(first + 2));
    settings.casterPassword = Protocol::ToText(fields.at(first + 3));
    settings.casterMount = Protocol::ToText(fields.at(first + 4));
    return ReadInt(fields.at(first + 1), 0, 65535, settings.casterPort) && ReadInt(fields.at(first + 5), 0, 255, flag);
}

void BaseStation::Store(const BaseSettings& settings)
{
    m_settings = settings;
    m_settings.Save(m_strSettingsPath);
}

void BaseStation::SetBase(const Fields& fields, const Reply& reply)
{
    BaseSettings wanted = m_settings;
    int code = Protocol::CodeSuccess;
    if (fields.size() != kPointFieldCount || !TakePoint(fields, 0, wanted))
        code = Protocol::CodeBadParameter;
    else if (m_recorder.IsRecording())
        code = Protocol::CodeRefused;
    if (code == Protocol::CodeSuccess) {
        wanted.workMode = BaseSettings::Base;
        Store(wanted);
        delete m_pCorrections;
        qCInfo(lcSkyBase) << "base mode: broadcasting corrections from" << wanted.latitude << wanted.longitude;
    }
    reply(Protocol::ReplyLine(Protocol::Base, code));
}

void BaseStation::SetRover(const Fields& fields, const Reply& reply)
{
    BaseSettings wanted = m_settings;
    if (fields.size() != kCasterFieldCount + kPointFieldCount || !TakeCaster(fields, 0, wanted)
        || !TakePoint(fields, kCasterFieldCount, wanted)) {
        reply(Protocol::ReplyLine(Protocol::Rover, Protocol::CodeBadParameter));
        return;
    }
    wanted.workMode = BaseSettings::Rover;
    Store(wanted);
    LogInToCaster(Protocol::Rover, reply);
}

void BaseStation::SetCors(const Fields& fields, const Reply& reply)
{
    BaseSettings wanted = m_settings;
    if (fields.size() != kCasterFieldCount || !TakeCaster(fields, 0, wanted)) {
        reply(Protocol::ReplyLine(Protocol::Cors, Protocol::CodeBadParameter));
        return;
    }
    wanted.workMode = BaseSettings::Rover;
    Store(wanted);
    LogInToCaster(Protocol::Cors, reply);
}

void BaseStation::LogInToCaster(const QByteArray& operation, const Reply& reply)
{
    delete m_pCorrections;
    if (m_settings.casterHost.isEmpty() || m_settings.casterPort == 0 || m_settings.casterMount.isEmpty()) {
        reply(Protocol::ReplyLine(operation, Protocol::CodeBadParameter));
        return;
    }
    auto* client = new NtripClient(this);
    m_pCorrections = client;
    connect(client, &NtripClient::finished, this, [client, operation, reply](int result) {
        qCInfo(lcSkyBase) << "caster login result" << result;
        reply(Protocol::ReplyLine(operation, result));
        if (result != NtripClient::Success)
            client->deleteLater();
    });
    connect(client, &NtripClient::lost, client, &QObject::deleteLater);
    client->Start(m_settings.casterHost, m_settings.casterPort, m_settings.casterMount, m_settings.casterAccount,
                  m_settings.casterPassword);
}

void BaseStation::SetStatic(const Fields& fields, const Reply& reply)
{
    BaseSettings wanted = m_settings;
    if (fields.size() != kCasterFieldCount + kPointFieldCount || !TakePoint(fields, kCasterFieldCount, wanted)) {
        reply(Protocol::ReplyLine(Protocol::Static, Protocol::CodeBadParameter));
        return;
    }
    if (m_options.noFix) {
        reply(Protocol::ReplyLine(Protocol::Static, Protocol::CodeNotPositioning));
        return;
    }
    wanted.workMode = BaseSettings::Static;
    Store(wanted);
    delete m_pCorrections;
    const int code = m_recorder.IsRecording() ? int(Protocol::CodeSuccess) : StartRecording(QString(), m_settings.rate);
    reply(Protocol::ReplyLine(Protocol::Static, code));
}

int BaseStation::StartRecording(const QString& name, int rate)
{
    switch (m_recorder.Start(name, rate)) {
    case BaseRecorder::Started:
        return Protocol::CodeSuccess;
    case BaseRecorder::NameExists:
        return Protocol::CodeFileExists;
    case BaseRecorder::StorageFull:
        return Protocol::CodeStorageFull;
    case BaseRecorder::CannotWrite:
        break;
    }
    return Protocol::CodeBadParameter;
}

void BaseStation::StartFile(const Fields& fields, const Reply& reply)
{
    int interval = 0, rate = 0, mask = 0;
    const QString name = fields.isEmpty() ? QString() : Protocol::ToText(fields.at(0));
    int code = Protocol::CodeSuccess;
    if (fields.size() != 4 || !ReadInt(fields.at(1), 0, 3600, interval) || !ReadInt(fields.at(2), 1, 50, rate)
        || !ReadInt(fields.at(3), 0, 90, mask) || (!name.isEmpty() && !BaseStorage::IsPlainName(name)))
        code = Protocol::CodeBadParameter;
    else if (m_settings.workMode == BaseSettings::Base)
        code = Protocol::CodeNotStaticMode;
    else if (m_options.noFix)
        code = Protocol::CodeNotPositioning;
    else if (!m_recorder.IsRecording())
        code = StartRecording(name, rate);
    reply(Protocol::ReplyLine(Protocol::StartFile, code));
}

void BaseStation::StopFile(const Fields&, const Reply& reply)
{
    const bool recording = m_recorder.IsRecording();
    m_recorder.Stop();
    reply(Protocol::ReplyLine(Protocol::StopFile, recording ? Protocol::CodeSuccess : Protocol::CodeRefused));
}

void BaseStation::DeleteFiles(const Fields& fields, const Reply& reply)
{
    QStringList names;
    for (const QByteArray& field : fields)
        names.append(Protocol::ToText(field));
    if (names.isEmpty())
        names = m_storage.Names();
    bool allDeleted = true;
    for (const QString& name : names) {
        const bool busy = m_recorder.IsRecording() && name == m_recorder.FileName();
        allDeleted = !busy && m_storage.Remove(name) && allDeleted;
    }
    reply(Protocol::ReplyLine(Protocol::Delete, allDeleted ? Protocol::CodeSuccess : Protocol::CodeDeleteFailed));
}
