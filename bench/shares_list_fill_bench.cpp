// Figure of the share manager page: one "/share/list" reply of 5000 records
// read and shown, against a plain tree filled row by row with the same texts
// in the same run.
#include "BenchStore.h"
#include "CLmShareManagerWidget.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTreeWidget>

#include <algorithm>
#include <cstdio>

namespace {

constexpr int Records = 5000;
constexpr int Rounds = 7;

QJsonObject Record(int i)
{
    const QJsonArray messages{QJsonObject{{"user_id", 1}, {"info", QStringLiteral("Please check block %1").arg(i)},
                                          {"created_at", "2026-05-04 08:00:00"}}};
    return QJsonObject{{"id", i + 1},
                       {"kind", i % 10 == 0 ? "task" : "share"},
                       {"project_id", QStringLiteral("project-%1").arg(i)},
                       {"project_name", QStringLiteral("Survey %1").arg(i, 5, 10, QLatin1Char('0'))},
                       {"nickname", "Demo Pilot One"},
                       {"share_from_user_id", 1},
                       {"updated_at", "2026-05-04 08:00:00"},
                       {"status", i % 4},
                       {"save_as", i % 3 == 0 ? 1 : 0},
                       {"messages", messages}};
}

QByteArray ListReply()
{
    QJsonArray received;
    for (int i = 0; i < Records; ++i)
        received.append(Record(i));
    const QJsonObject envelope{
        {"status", 0}, {"message", "OK"}, {"data", QJsonObject{{"received", received}, {"sent", QJsonArray()}}}};
    return QJsonDocument(envelope).toJson(QJsonDocument::Compact);
}

double PlainFillMs(const QByteArray& reply)
{
    // The same texts, ready made: the floor neither parses nor draws buttons.
    const QJsonArray records = QJsonDocument::fromJson(reply).object()["data"].toObject()["received"].toArray();
    QVector<QStringList> rows;
    for (const QJsonValue& value : records) {
        const QJsonObject record = value.toObject();
        rows.append({record["project_name"].toString(), record["nickname"].toString(),
                     record["updated_at"].toString(), QString::number(record["status"].toInt()), QString(),
                     record["messages"].toArray().last().toObject()["info"].toString()});
    }
    QTreeWidget tree;
    tree.setColumnCount(6);
    tree.resize(1100, 640);
    tree.show();
    QCoreApplication::processEvents();
    QElapsedTimer timer;
    timer.start();
    for (const QStringList& row : qAsConst(rows))
        new QTreeWidgetItem(&tree, row);
    QCoreApplication::processEvents();
    tree.viewport()->repaint();
    return timer.nsecsElapsed() / 1e6;
}

double PageFillMs(CLmShareManagerWidget& page, QTreeWidget* tree, const QByteArray& reply)
{
    page.Reset();
    QCoreApplication::processEvents();
    QElapsedTimer timer;
    timer.start();
    page.slotRequestReceiveShareProjectList(reply);
    QCoreApplication::processEvents();
    tree->viewport()->repaint();
    const double ms = timer.nsecsElapsed() / 1e6;
    return tree->topLevelItemCount() == Records ? ms : -1;
}

}  // namespace

int main(int argc, char* argv[])
{
    QTemporaryDir home;
    BenchStore::UseHome(home);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);

    const QByteArray reply = ListReply();
    // Nobody signed in and no network: showing the page asks the cloud nothing.
    CLmShareManagerWidget page;
    page.resize(1100, 640);
    page.show();
    auto* tree = page.findChild<QTreeWidget*>(QStringLiteral("m_pTreeShare"));
    double plainMs = 1e9;
    double pageMs = 1e9;
    for (int round = 0; round < Rounds; ++round) {
        plainMs = std::min(plainMs, PlainFillMs(reply));
        const double ms = PageFillMs(page, tree, reply);
        if (ms < 0) {
            std::fprintf(stderr, "shares_list_fill_bench: the page did not show the %d rows\n", Records);
            return 1;
        }
        pageMs = std::min(pageMs, ms);
    }
    std::printf("shares_plain_tree_fill_%d: %.1f ms (baseline: a plain QTreeWidget filled row by row)\n", Records,
                plainMs);
    std::printf("shares_list_fill_%d: %.1f ms = %.2fx floor (target <= 2x)\n", Records, pageMs, pageMs / plainMs);
    return pageMs <= 2 * plainMs ? 0 : 1;
}
