#include "CLmUpLoadObject.h"

CLmUpLoadObject::CLmUpLoadObject(QObject* parent)
    : CLmTransferObject(ProgressOfSending, parent)
{
    SetMethod(MethodPost);
}

void CLmUpLoadObject::PostNetWorkReplyMessage()
{
    Send();
}

void CLmUpLoadObject::OnProgress(qint64 current, qint64 total)
{
    Q_EMIT UpLoadProcess(current, total);
}

void CLmUpLoadObject::OnAnswered(const QByteArray& body)
{
    Q_EMIT UpLoadFinished(body);
}

void CLmUpLoadObject::OnFailed()
{
    Q_EMIT UpLoadNetWorkError();
}
