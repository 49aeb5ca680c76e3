#pragma once

#include "CLmBaseDialog.h"
#include "SBaseStationRecords.h"

#include <QStringList>

#include <memory>

namespace Ui {
class CLmCorsStationSettingPage;
}
class CLmBaseStationLink;

// Points the base station at a CORS caster over NTRIP: host, port, account,
// password and mount point. Sends one request and closes; the result comes
// back to the base-station page as a setting result.
class CLmCorsStationSettingPage : public CLmBaseDialog
{
    Q_OBJECT
public:
    // The link stays the caller's.
    CLmCorsStationSettingPage(QWidget* parent, CLmBaseStationLink* pLink);
    ~CLmCorsStationSettingPage() override;

    void SetCorsParam(const QString& host, const QString& port, const QString& account, const QString& password,
                      const QStringList& mountPoints, int mountIndex);

public Q_SLOTS:
    void slotAcquiringSrcList();
    void slotReceivedSrcNodeList(QStringList nodes, int count);
    void slotReceivedCorsParam(SSCasterParam param);
    void slotBtnAcceptClicked();

private:
    void Warn(const QString& text);

    std::unique_ptr<Ui::CLmCorsStationSettingPage> m_pUi;
    CLmBaseStationLink* m_pLink;
};
