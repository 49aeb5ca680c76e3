#pragma once

#include "BaseOptions.h"
#include "BaseRecorder.h"
#include "BaseSettings.h"
#include "BaseStorage.h"
#include "CLmBaseStationProtocol.h"

#include <QObject>
#include <QPointer>

#include <functional>

class NtripClient;

// The emulated station: carries out the control operations (the protocol in
// src/LmLinkCore/BaseStationProtocol.md) on its settings, storage, recorder
// and NTRIP client, and makes its GGA position reports.
class BaseStation : public QObject
{
    Q_OBJECT
public:
    using Protocol = CLmBaseStationProtocol;
    // Sends one reply line to whoever asked (nothing when they are gone).
    using Reply = std::function<void(const QByteArray& line)>;

    BaseStation(const BaseOptions& options, QObject* parent = nullptr);
    ~BaseStation() override;

    QString FtpRoot() const;
    void Handle(const Protocol::SSentence& request, const Reply& reply);
    // The current position report, framed.
    QByteArray GgaLine() const;

private:
    using Fields = QList<QByteArray>;
    using Handler = void (BaseStation::*)(const Fields&, const Reply&);

    void ReadMainFrame(const Fields& fields, const Reply& reply);
    void ReadCaster(const Fields& fields, const Reply& reply);
    void ReadLocation(const Fields& fields, const Reply& reply);
    void ReadStorage(const Fields& fields, const Reply& reply);
    void ReadFileState(const Fields& fields, const Reply& reply);
    void ReadFileList(const Fields& fields, const Reply& reply);
    void FetchSourceTable(const Fields& fields, const Reply& reply);
    void SetBase(const Fields& fields, const Reply& reply);
    void SetRover(const Fields& fields, const Reply& reply);
    void SetCors(const Fields& fields, const Reply& reply);
    void SetStatic(const Fields& fields, const Reply& reply);
    void StartFile(const Fields& fields, const Reply& reply);
    void StopFile(const Fields& fields, const Reply& reply);
    void DeleteFiles(const Fields& fields, const Reply& reply);

    // Reads and checks the nine point fields starting at first.
    bool TakePoint(const Fields& fields, int first, BaseSettings& settings) const;
    // Reads and checks the six caster fields starting at first.
    static bool TakeCaster(const Fields& fields, int first, BaseSettings& settings);
    void Store(const BaseSettings& settings);
    // Logs in to the configured caster; answers operation with the result.
    void LogInToCaster(const QByteArray& operation, const Reply& reply);
    int StartRecording(const QString& name, int rate);
    // Site position with noise of the given size in metres, ddmm form.
    void NoisyPosition(double metres, double& latitude, double& longitude) const;

    BaseOptions m_options;
    QString m_strSettingsPath;
    BaseSettings m_settings;
    BaseStorage m_storage;
    BaseRecorder m_recorder;
    QPointer<NtripClient> m_pCorrections;
};
