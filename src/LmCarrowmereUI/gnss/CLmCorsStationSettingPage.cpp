#include "CLmCorsStationSettingPage.h"

#include "CLmBaseStationLink.h"
#include "CLmMessageBox.h"
#include "ui_CLmCorsStationSettingPage.h"

#include <QIntValidator>

CLmCorsStationSettingPage::CLmCorsStationSettingPage(QWidget* parent, CLmBaseStationLink* pLink)
    : CLmBaseDialog(parent)
    , m_pUi(std::make_unique<Ui::CLmCorsStationSettingPage>())
    , m_pLink(pLink)
{
    setObjectName(QStringLiteral("CLmCorsStationSettingPage"));
    m_pUi->setupUi(ContentWidget());
    SetTitle(tr("Connect to CORS station"));
    setMinimumWidth(440);
    m_pUi->m_pEditPort->setValidator(new QIntValidator(0, 65535, this));
    connect(m_pUi->m_pBtnAcquiring, &QPushButton::clicked, this, &CLmCorsStationSettingPage::slotAcquiringSrcList);
    connect(m_pUi->m_pBtnAccept, &QPushButton::clicked, this, &CLmCorsStationSettingPage::slotBtnAcceptClicked);
    connect(m_pUi->m_pBtnCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(&CLmBaseStationLink::m_linkHelper, &CLmBaseStationLinkHelper::SrcNodeList, this,
            &CLmCorsStationSettingPage::slotReceivedSrcNodeList);
    connect(&CLmBaseStationLink::m_linkHelper, &CLmBaseStationLinkHelper::CasterParam, this,
            &CLmCorsStationSettingPage::slotReceivedCorsParam);
}

CLmCorsStationSettingPage::~CLmCorsStationSettingPage()
{
    disconnect(&CLmBaseStationLink::m_linkHelper, &CLmBaseStationLinkHelper::CasterParam, this,
               &CLmCorsStationSettingPage::slotReceivedCorsParam);
}

void CLmCorsStationSettingPage::SetCorsParam(const QString& host, const QString& port, const QString& account,
                                             const QString& password, const QStringList& mountPoints, int mountIndex)
{
    m_pUi->m_pEditHost->setText(host);
    m_pUi->m_pEditPort->setText(port);
    m_pUi->m_pEditAccount->setText(account);
    m_pUi->m_pEditPassword->setText(password);
    m_pUi->m_pComboSourceList->clear();
    m_pUi->m_pComboSourceList->addItems(mountPoints);
    m_pUi->m_pComboSourceList->setCurrentIndex(mountIndex);
}

void CLmCorsStationSettingPage::slotAcquiringSrcList()
{
    const QString host = m_pUi->m_pEditHost->text();
    const QString port = m_pUi->m_pEditPort->text();
    if (host.isEmpty() || port.isEmpty()) {
        Warn(tr("Please input host address and port."));
        return;
    }
    if (m_pLink)
        m_pLink->GetSourceNode(host.toLatin1(), port.toInt(nullptr, 10));
}

void CLmCorsStationSettingPage::slotReceivedSrcNodeList(QStringList nodes, int)
{
    m_pUi->m_pComboSourceList->clear();
    m_pUi->m_pComboSourceList->addItems(nodes);
}

void CLmCorsStationSettingPage::slotReceivedCorsParam(SSCasterParam param)
{
    m_pUi->m_pEditHost->setText(param.strHost);
    m_pUi->m_pEditPort->setText(QString::number(param.nPort));
    m_pUi->m_pEditAccount->setText(param.strAccount);
    m_pUi->m_pEditPassword->setText(param.strPassword);
    QComboBox* mountPoints = m_pUi->m_pComboSourceList;
    if (!param.strMountPoint.isEmpty() && mountPoints->findText(param.strMountPoint) < 0)
        mountPoints->addItem(param.strMountPoint);
    mountPoints->setCurrentText(param.strMountPoint);
}

void CLmCorsStationSettingPage::slotBtnAcceptClicked()
{
    if (m_pUi->m_pEditAccount->text().isEmpty() || m_pUi->m_pEditPassword->text().isEmpty()) {
        Warn(tr("Please input account and password."));
        return;
    }
    const QString mountPoint = m_pUi->m_pComboSourceList->currentText();
    if (mountPoint.isEmpty()) {
        Warn(tr("Please select source node."));
        return;
    }
    if (m_pLink)
        m_pLink->SetRoverNtrip(m_pUi->m_pEditHost->text().toLatin1(), m_pUi->m_pEditPort->text().toInt(nullptr, 10),
                               m_pUi->m_pEditAccount->text().toLatin1(), m_pUi->m_pEditPassword->text().toLatin1(),
                               mountPoint.toLatin1(), 0);
    accept();
}

void CLmCorsStationSettingPage::Warn(const QString& text)
{
    CLmMessageBox box(text, QStringLiteral(":/images/Normal/Exclamation_mark.png"), tr("Connect to CORS station"),
                      CLmMessageBox::BtnOk, this);
    box.exec();
}
