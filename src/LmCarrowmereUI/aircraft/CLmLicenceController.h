#pragma once

#include "LmLicenceState.h"
#include "SLmLicenceInfo.h"

#include <QObject>
#include <QPointer>
#include <QString>

class CLmLicenceLink;
class CLmUasProvide;

// The licence section without widgets: reads the aircraft's licence when it
// is held and, on Refresh, asks the cloud ("/licence/issue") for a renewed
// licence bound to the aircraft's serial number and writes it to the
// aircraft, which checks the signature before it keeps it. Every outcome
// ends in a status text; a licence the aircraft refused leaves the one it
// held in place and shown.
class CLmLicenceController : public QObject
{
    Q_OBJECT
public:
    static constexpr int CloudTimeoutMs = 15000;

    explicit CLmLicenceController(QObject* parent = nullptr);

    // The aircraft from the maintenance page, null when it went away. A new
    // aircraft's licence is read at once.
    void SetCurrentUas(CLmUasProvide* pUas);
    CLmUasProvide* Uas() const;
    CLmLicenceLink* Link() const { return m_pLink; }

    void ReadLicence();
    // False, with the reason as status text, when no refresh can start.
    bool Refresh();

    const SLmLicenceInfo& Licence() const { return m_licence; }
    // The state today (UTC).
    LmLicenceState::EState State() const;
    bool IsBusy() const { return m_eStep != EStep::Idle; }
    QString StatusText() const { return m_strStatus; }

Q_SIGNALS:
    void LicenceChanged();
    void StatusChanged(QString text);
    void BusyChanged(bool bBusy);

private:
    enum class EStep { Idle, Reading, AskingCloud, Writing };

    void SetStep(EStep step);
    void SetStatus(const QString& text);
    void AskCloud();
    void OnCloudReply(const QByteArray& reply);
    void OnCloudFailed(const QString& why);
    void OnLicenceReported(const SLmLicenceInfo& info);
    void OnLinkFailed();
    QString VerdictText(SLmLicenceInfo::EResult result) const;

    QPointer<CLmUasProvide> m_pUas;
    CLmLicenceLink* m_pLink = nullptr;
    SLmLicenceInfo m_licence;
    EStep m_eStep = EStep::Idle;
    bool m_bRefreshAfterRead = false;
    quint64 m_nGeneration = 0; // a cloud reply for an earlier aircraft is dropped
    QString m_strStatus;
};
