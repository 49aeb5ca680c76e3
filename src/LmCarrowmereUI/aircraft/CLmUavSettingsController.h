#pragma once

#include "SLmParameter.h"

#include <QList>
#include <QMap>
#include <QObject>
#include <QPointer>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVariant>

class CLmUasProvide;

// The aircraft settings without widgets: reads and writes the link-loss
// protection time ("GCS_TIMEOUT"), and on a test server keeps the full
// parameter table of a multirotor. Every write waits for the aircraft's
// echo; the handle is listened to only while a write is pending.
class CLmUavSettingsController : public QObject
{
    Q_OBJECT
public:
    // The ground station writes the protection time as this component.
    static constexpr int GcsTimeoutComponent = 126;
    static constexpr int MinProtectionTimeS = 30;

    // One edited row of the table.
    struct SEdit {
        QString name;
        QString text;
    };

    explicit CLmUavSettingsController(QObject* parent = nullptr);

    // The aircraft from the maintenance page, null when it went away.
    void SetUas(CLmUasProvide* pUas);
    CLmUasProvide* Uas() const;
    bool IsWaitingForConfirmation() const { return !m_setPendingWrites.isEmpty(); }

    // False, and nothing is written, below MinProtectionTimeS or without an
    // aircraft.
    bool SetProtectionTime(int seconds);
    // Writes the edits whose text fits the parameter's type; returns a line for every
    // edit that was not written.
    QStringList SaveParameters(const QList<SEdit>& edits);
    // "Restore" goes back to what the aircraft holds, not to factory
    // defaults: the table is forgotten and every parameter read again, so the
    // aircraft's values replace whatever was typed and not saved.
    void RestoreParameters();

public Q_SLOTS:
    void slotTimeOutRev(int count, int index, QString name, QVariant value);
    void slotParamterInfo(int count, int index, QString name, QVariant val);
    void slotParamSet(QString paramName, QVariant value);
    void slotParamSetFailed(QString paramName);

Q_SIGNALS:
    void ProtectionTimeRead(int seconds);
    // The aircraft echoed the protection time it was given.
    void ProtectionTimeConfirmed(int seconds);
    void ProtectionTimeNotConfirmed();
    void ParameterTableShown(bool bShown);
    void ParameterTableCleared();
    // A parameter arrived, new or with a new value.
    void ParameterRead(const SLmParameter& parameter);
    void ParameterNotConfirmed(const QString& name);
    void ParametersComplete(int count);
    void ParametersIncomplete(int missing);

private:
    void Bind();
    void Unbind();
    void DownloadTable();
    void Write(const QString& name, const QVariant& value, int componentId);
    void EndWrite(const QString& name);
    void StopListeningForEchoes();

    QPointer<CLmUasProvide> m_pUas;
    bool m_bParameterTable = false;
    // The table's parameters by name, as last received.
    QMap<QString, SLmParameter> m_mapParameters;
    QSet<QString> m_setPendingWrites;
    QMetaObject::Connection m_confirmedConnection;
    QMetaObject::Connection m_failedConnection;
};
