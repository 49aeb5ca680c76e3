#include "CLmMavlinkParser.h"
#include "CLmUasProvide.h"
#include "CLmUdpLink.h"
#include "CSkySimProcess.h"
#include "LmMavlinkMessages.h"

#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace LmMavlink;

namespace {

constexpr int Parameters = 2000;
// A slow radio, so the parameter table takes seconds to come down.
constexpr int LinkRate = 20000;

}  // namespace

// The link to the aircraft lost in the middle of a download: what was
// received must never pass for the whole table, and the aircraft handle must
// serve the next download once the aircraft is back.
class tst_LinkFaults : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void linkCutDuringParameterDownload_data();
    void linkCutDuringParameterDownload();

private:
    bool StartAircraft(CSkySimProcess& sim, quint16 linkPort);
};

bool tst_LinkFaults::StartAircraft(CSkySimProcess& sim, quint16 linkPort)
{
    return sim.Start({QStringLiteral("--udp"), QStringLiteral("127.0.0.1:%1").arg(linkPort), QStringLiteral("--params"),
                      QString::number(Parameters), QStringLiteral("--link-rate"), QString::number(LinkRate)});
}

// Rows: how many parameter values arrive before the aircraft goes away.
void tst_LinkFaults::linkCutDuringParameterDownload_data()
{
    QTest::addColumn<int>("cutAfter");
    QTest::newRow("cut after the first values") << 20;
    QTest::newRow("cut near the end") << Parameters - 100;
}

void tst_LinkFaults::linkCutDuringParameterDownload()
{
    QFETCH(int, cutAfter);
    CLmUdpLink link(1, 0);
    link.Connect();
    auto sim = std::make_unique<CSkySimProcess>();
    QVERIFY(StartAircraft(*sim, link.GetLocalPort()));

    CLmUasProvide uas(&link, 1, 1);
    CLmMavlinkParser parser;
    int values = 0;
    bool started = false;
    connect(&link, &CLmLinkProvide::bytesReceived, &uas, [&](const QByteArray& bytes) {
        for (const mavlink_message_t& message : parser.Parse(bytes)) {
            uas.HandleMessage(message);
            if (message.msgid == MSG_ID_PARAM_VALUE && ++values == cutAfter)
                sim->Stop();
            if (message.msgid == MSG_ID_HEARTBEAT && !started) {
                started = true;
                uas.DownloadParameters();
            }
        }
    });
    QSignalSpy loaded(&uas, &CLmUasProvide::ParametersLoaded);
    QSignalSpy failed(&uas, &CLmUasProvide::ParameterDownloadFailed);
    QVERIFY(failed.wait(60000));
    QCOMPARE(loaded.count(), 0);
    const auto missing = failed.first().first().value<QList<int>>();
    QVERIFY2(!missing.isEmpty(), "a cut download names what it is missing");

    // The aircraft comes back: the same handle downloads the whole table.
    sim = std::make_unique<CSkySimProcess>();
    QVERIFY(StartAircraft(*sim, link.GetLocalPort()));
    uas.DownloadParameters();
    QVERIFY(loaded.wait(60000));
    QCOMPARE(loaded.first().first().value<QList<SLmParameter>>().size(), Parameters);
}

QTEST_GUILESS_MAIN(tst_LinkFaults)
#include "tst_LinkFaults.moc"
