#pragma once

#include "CLmTransferObject.h"

// Posts one form (a project file, a flight log) to the cloud with progress;
// the service's reply body arrives with UpLoadFinished.
class CLmUpLoadObject : public CLmTransferObject
{
    Q_OBJECT
public:
    explicit CLmUpLoadObject(QObject* parent = nullptr);

    void PostNetWorkReplyMessage();

Q_SIGNALS:
    void UpLoadProcess(qlonglong iCur, qlonglong iTotal);
    void UpLoadFinished(const QByteArray& reply);
    void UpLoadNetWorkError();

protected:
    void OnProgress(qint64 current, qint64 total) override;
    void OnAnswered(const QByteArray& body) override;
    void OnFailed() override;
};
