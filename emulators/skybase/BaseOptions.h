#pragma once

#include <QByteArray>
#include <QString>

// Command-line options of skybase (see README.md).
struct BaseOptions
{
    QString listenAddress = QStringLiteral("127.0.0.1");
    quint16 controlPort = 18060;
    quint16 ftpPort = 18061;
    QString dataDir;
    quint64 storageBytes = 8ull << 30;
    int epochBytes = 1200;          // raw data recorded per epoch and per Hz of the rate
    bool noFix = false;             // the receiver has no position ("GPS is not positioning")
    QByteArray dropOn;              // close the connection instead of answering this operation
    QString serialNumber = QStringLiteral("SKB2611000123");
    int firmwareVersion = 20314;
    int battery = 87;
    double siteLatitude = 30.5271234;   // degrees, where the antenna stands
    double siteLongitude = 114.3561234;
    double siteAltitude = 42.3;
};
