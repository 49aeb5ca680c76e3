#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

// The base station's control sentences (BaseStationProtocol.md): NMEA 0183
// framed proprietary sentences, "PSKBQ" from the ground station and "PSKBR"
// from the station, beside the station's standard GGA position reports.
class CLmBaseStationProtocol
{
public:
    enum EKind { Request, Reply };

    struct SSentence
    {
        EKind eKind = Request;
        QByteArray operation;
        int nCode = 0;  // replies only: 0 success, else the operation's failure code
        QList<QByteArray> lstFields;
    };

    // Operation names.
    static const QByteArray MainFrame;
    static const QByteArray Caster;
    static const QByteArray Location;
    static const QByteArray Storage;
    static const QByteArray FileState;
    static const QByteArray FileList;
    static const QByteArray SourceTable;
    static const QByteArray Base;
    static const QByteArray Rover;
    static const QByteArray Cors;
    static const QByteArray Static;
    static const QByteArray StartFile;
    static const QByteArray StopFile;
    static const QByteArray Delete;

    // Failure codes shared by several operations.
    enum ECode {
        CodeSuccess = 0,
        CodeNotStaticMode = 1,      // start: the station works as a base
        CodeRefused = 1,            // caster login refused; base while recording; stop while not recording
        CodeUnreachable = 2,        // caster host unreachable or not a caster
        CodeFileExists = 2,         // start: a file of that name exists
        CodeDeleteFailed = 2,       // delete: a file is being recorded or could not be removed
        CodeBadParameter = 3,
        CodeNotPositioning = 4,
        CodeStorageFull = 5,
    };

    static QByteArray RequestLine(const QByteArray& operation, const QList<QByteArray>& fields = {});
    static QByteArray ReplyLine(const QByteArray& operation, int code, const QList<QByteArray>& fields = {});
    // Reads a sentence body; false for other sentences and malformed ones.
    static bool Parse(const QByteArray& body, SSentence& sentence);

    // Field values: texts are UTF-8 percent-encoded so that no field holds
    // ',', '*', '$' or a line break; numbers are plain decimal.
    static QByteArray Text(const QString& text);
    static QByteArray Text(const QByteArray& bytes);
    static QString ToText(const QByteArray& field);
    static QByteArray ToBytes(const QByteArray& field);
    static QByteArray Number(double value);
    static QByteArray Number(qint64 value);
};
