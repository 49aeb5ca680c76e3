#include "CLmLicenceController.h"

#include "CLmLicenceLink.h"
#include "CLmNetWorkRequest.h"
#include "CLmReplyEnvelope.h"
#include "CLmUasProvide.h"
#include "LmCarrowmereUILog.h"
#include "LmCloudForm.h"
#include "LmCloudPaths.h"
#include "LmCloudRequest.h"

#include <QDateTime>
#include <QJsonObject>

CLmLicenceController::CLmLicenceController(QObject* parent)
    : QObject(parent)
{
}

void CLmLicenceController::SetCurrentUas(CLmUasProvide* pUas)
{
    if (pUas == m_pUas && (pUas || !m_pLink))
        return;
    ++m_nGeneration;
    delete m_pLink;
    m_pLink = nullptr;
    m_pUas = pUas;
    m_licence = SLmLicenceInfo();
    m_bRefreshAfterRead = false;
    SetStep(EStep::Idle);
    emit LicenceChanged();
    if (!m_pUas) {
        SetStatus(tr("No aircraft connected."));
        return;
    }
    m_pLink = new CLmLicenceLink(m_pUas, this);
    connect(m_pLink, &CLmLicenceLink::LicenceReported, this, &CLmLicenceController::OnLicenceReported);
    connect(m_pLink, &CLmLicenceLink::LicenceRequestFailed, this, &CLmLicenceController::OnLinkFailed);
    ReadLicence();
}

CLmUasProvide* CLmLicenceController::Uas() const
{
    return m_pUas;
}

void CLmLicenceController::ReadLicence()
{
    if (!m_pLink || IsBusy())
        return;
    SetStatus(tr("Reading the aircraft's licence..."));
    SetStep(EStep::Reading);
    m_pLink->ReadLicence();
}

bool CLmLicenceController::Refresh()
{
    if (!m_pLink) {
        SetStatus(tr("No aircraft connected."));
        return false;
    }
    if (IsBusy()) {
        SetStatus(tr("Please wait until the licence exchange running now has ended."));
        return false;
    }
    // The cloud binds the licence to the serial number the aircraft reports.
    if (m_licence.strAircraftSerial.isEmpty()) {
        m_bRefreshAfterRead = true;
        ReadLicence();
        return true;
    }
    AskCloud();
    return true;
}

LmLicenceState::EState CLmLicenceController::State() const
{
    return LmLicenceState::StateOn(m_licence.bHasLicence, m_licence.dateExpires,
                                   QDateTime::currentDateTimeUtc().date());
}

void CLmLicenceController::SetStep(EStep step)
{
    const bool bWasBusy = IsBusy();
    m_eStep = step;
    if (bWasBusy != IsBusy())
        emit BusyChanged(IsBusy());
}

void CLmLicenceController::SetStatus(const QString& text)
{
    m_strStatus = text;
    emit StatusChanged(text);
}

void CLmLicenceController::AskCloud()
{
    SetStatus(tr("Asking the cloud for a renewed licence..."));
    SetStep(EStep::AskingCloud);
    const quint64 generation = m_nGeneration;
    CLmNetWorkRequest* pRequest = LmCloudRequest::NewSignedIn(LmCloudPath::LicenceIssue);
    connect(pRequest, &CLmNetWorkRequest::ActionSucced, this, [this, generation](const QByteArray& reply) {
        if (generation == m_nGeneration)
            OnCloudReply(reply);
    });
    connect(pRequest, &CLmNetWorkRequest::FailedMsg, this, [this, generation](const QString& message) {
        if (generation == m_nGeneration)
            OnCloudFailed(message);
    });
    connect(pRequest, &CLmNetWorkRequest::NetWorkError, this, [this, generation] {
        if (generation == m_nGeneration)
            OnCloudFailed(tr("the cloud cannot be reached"));
    });
    pRequest->SetBody(LmCloudForm::Body({{"serial", m_licence.strAircraftSerial}}));
    pRequest->SetNetWorkReplyTimeout(CloudTimeoutMs);
    pRequest->PostNetWorkReplyMessage();
}

void CLmLicenceController::OnCloudReply(const QByteArray& reply)
{
    const CLmReplyEnvelope envelope = CLmReplyEnvelope::Parse(reply);
    if (!envelope.IsParsed()) {
        OnCloudFailed(tr("its reply could not be read"));
        return;
    }
    if (!envelope.IsSuccess()) {
        OnCloudFailed(envelope.Message());
        return;
    }
    const QByteArray signedLicence = QByteArray::fromBase64(
        envelope.DataObject().value(QStringLiteral("licence")).toString().toLatin1(),
        QByteArray::AbortOnBase64DecodingErrors);
    if (!m_pLink || !m_pLink->WriteLicence(signedLicence)) {
        OnCloudFailed(tr("its reply holds no licence"));
        return;
    }
    SetStatus(tr("Writing the licence to the aircraft..."));
    SetStep(EStep::Writing);
}

void CLmLicenceController::OnCloudFailed(const QString& why)
{
    qCWarning(lcAircraft).noquote() << "licence refresh failed at the cloud:" << why;
    SetStep(EStep::Idle);
    SetStatus(tr("The cloud did not issue a licence: %1").arg(why));
}

void CLmLicenceController::OnLicenceReported(const SLmLicenceInfo& info)
{
    const bool bWrite = m_eStep == EStep::Writing;
    m_licence = info;
    SetStep(EStep::Idle);
    emit LicenceChanged();
    if (m_bRefreshAfterRead) {
        m_bRefreshAfterRead = false;
        if (info.strAircraftSerial.isEmpty())
            SetStatus(tr("The aircraft did not report its serial number; no licence can be issued for it."));
        else
            AskCloud();
        return;
    }
    SetStatus(bWrite ? VerdictText(info.eResult) : QString());
}

void CLmLicenceController::OnLinkFailed()
{
    m_bRefreshAfterRead = false;
    SetStep(EStep::Idle);
    SetStatus(tr("The aircraft did not answer about its licence."));
}

QString CLmLicenceController::VerdictText(SLmLicenceInfo::EResult result) const
{
    switch (result) {
    case SLmLicenceInfo::Accepted: return tr("Licence refreshed.");
    case SLmLicenceInfo::BadSignature:
        return tr("The aircraft refused the licence: its signature does not verify. The licence it holds is kept.");
    case SLmLicenceInfo::ForeignSerial:
        return tr("The aircraft refused the licence: it belongs to another aircraft. The licence it holds is kept.");
    case SLmLicenceInfo::NoKey: return tr("The aircraft cannot check licences; it kept none.");
    case SLmLicenceInfo::Malformed:
    case SLmLicenceInfo::Report: break;
    }
    return tr("The aircraft refused the licence: it cannot be read. The licence it holds is kept.");
}
