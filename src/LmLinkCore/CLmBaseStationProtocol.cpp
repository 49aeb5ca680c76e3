#include "CLmBaseStationProtocol.h"

#include "CLmNmeaSentence.h"

namespace {

const QByteArray kRequestAddress = "PSKBQ";
const QByteArray kReplyAddress = "PSKBR";

QByteArray Body(const QByteArray& address, const QByteArray& operation, const QList<QByteArray>& fields)
{
    QByteArray body = address + ',' + operation;
    for (const QByteArray& field : fields)
        body += ',' + field;
    return body;
}

bool IsOperationName(const QByteArray& name)
{
    if (name.isEmpty())
        return false;
    for (const char c : name) {
        if (c < 'A' || c > 'Z')
            return false;
    }
    return true;
}

}  // namespace

const QByteArray CLmBaseStationProtocol::MainFrame = "MAINFRAME";
const QByteArray CLmBaseStationProtocol::Caster = "CASTER";
const QByteArray CLmBaseStationProtocol::Location = "LOCATION";
const QByteArray CLmBaseStationProtocol::Storage = "STORAGE";
const QByteArray CLmBaseStationProtocol::FileState = "FILESTATE";
const QByteArray CLmBaseStationProtocol::FileList = "FILELIST";
const QByteArray CLmBaseStationProtocol::SourceTable = "SOURCETABLE";
const QByteArray CLmBaseStationProtocol::Base = "BASE";
const QByteArray CLmBaseStationProtocol::Rover = "ROVER";
const QByteArray CLmBaseStationProtocol::Cors = "CORS";
const QByteArray CLmBaseStationProtocol::Static = "STATIC";
const QByteArray CLmBaseStationProtocol::StartFile = "STARTFILE";
const QByteArray CLmBaseStationProtocol::StopFile = "STOPFILE";
const QByteArray CLmBaseStationProtocol::Delete = "DELETE";

QByteArray CLmBaseStationProtocol::RequestLine(const QByteArray& operation, const QList<QByteArray>& fields)
{
    return CLmNmeaSentence::Frame(Body(kRequestAddress, operation, fields));
}

QByteArray CLmBaseStationProtocol::ReplyLine(const QByteArray& operation, int code, const QList<QByteArray>& fields)
{
    return CLmNmeaSentence::Frame(Body(kReplyAddress, operation, QList<QByteArray>{QByteArray::number(code)} + fields));
}

bool CLmBaseStationProtocol::Parse(const QByteArray& body, SSentence& sentence)
{
    QList<QByteArray> fields = CLmNmeaSentence::Fields(body);
    if (fields.size() < 2 || !IsOperationName(fields.at(1)))
        return false;
    SSentence read;
    if (fields.at(0) == kRequestAddress) {
        read.eKind = Request;
    } else if (fields.at(0) == kReplyAddress && fields.size() >= 3) {
        read.eKind = Reply;
        bool ok = false;
        read.nCode = fields.at(2).toInt(&ok);
        if (!ok)
            return false;
        fields.removeAt(2);
    } else {
        return false;
    }
    read.operation = fields.at(1);
    read.lstFields = fields.mid(2);
    sentence = read;
    return true;
}

QByteArray CLmBaseStationProtocol::Text(const QString& text)
{
    return Text(text.toUtf8());
}

QByteArray CLmBaseStationProtocol::Text(const QByteArray& bytes)
{
    return bytes.toPercentEncoding();
}

QString CLmBaseStationProtocol::ToText(const QByteArray& field)
{
    return QString::fromUtf8(ToBytes(field));
}

QByteArray CLmBaseStationProtocol::ToBytes(const QByteArray& field)
{
    return QByteArray::fromPercentEncoding(field);
}

QByteArray CLmBaseStationProtocol::Number(double value)
{
    return QByteArray::number(value, 'f', 8);
}

QByteArray CLmBaseStationProtocol::Number(qint64 value)
{
    return QByteArray::number(value);
}
