#include "CLmDownLoadObject.h"

CLmDownLoadObject::CLmDownLoadObject(QObject* parent)
    : CLmTransferObject(ProgressOfReceiving, parent)
{
}

QByteArray CLmDownLoadObject::GetDownLoadData() const
{
    return m_data;
}

void CLmDownLoadObject::slotRequestData()
{
    m_data.clear();
    Send();
}

void CLmDownLoadObject::OnProgress(qint64 current, qint64 total)
{
    Q_EMIT DownLoadProcess(current, total);
}

void CLmDownLoadObject::OnAnswered(const QByteArray& body)
{
    m_data = body;
    Q_EMIT DownLoadFinished();
}

void CLmDownLoadObject::OnFailed()
{
    m_data.clear();
    Q_EMIT DownLoadError();
}
