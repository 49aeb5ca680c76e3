#pragma once

#include "CLmTransferObject.h"

// Fetches one body from the cloud (a list or a file) with progress. GET by
// default; a body given with SetFilePathArray makes it a form POST. After
// DownLoadFinished the received bytes are in GetDownLoadData().
class CLmDownLoadObject : public CLmTransferObject
{
    Q_OBJECT
public:
    explicit CLmDownLoadObject(QObject* parent = nullptr);

    QByteArray GetDownLoadData() const;

public Q_SLOTS:
    void slotRequestData();

Q_SIGNALS:
    void DownLoadProcess(qlonglong iCur, qlonglong iTotal);
    void DownLoadFinished();
    void DownLoadError();

protected:
    void OnProgress(qint64 current, qint64 total) override;
    void OnAnswered(const QByteArray& body) override;
    void OnFailed() override;

private:
    QByteArray m_data;
};
