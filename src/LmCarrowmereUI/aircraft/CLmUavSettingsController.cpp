#include "CLmUavSettingsController.h"

#include "CLmUasProvide.h"
#include "LmCarrowmereUILog.h"
#include "LmConstants.h"
#include "LmParameterValue.h"
#include "LmPlaneType.h"

namespace {

const QString kGcsTimeout = QStringLiteral("GCS_TIMEOUT");

}  // namespace

CLmUavSettingsController::CLmUavSettingsController(QObject* parent)
    : QObject(parent)
{
}

void CLmUavSettingsController::SetUas(CLmUasProvide* pUas)
{
    if (pUas == m_pUas)
        return;
    if (m_pUas)
        Unbind();
    m_pUas = pUas;
    if (m_pUas)
        Bind();
}

CLmUasProvide* CLmUavSettingsController::Uas() const
{
    return m_pUas;
}

// Pending writes are dropped with the aircraft: their echoes cannot come.
void CLmUavSettingsController::Unbind()
{
    disconnect(m_pUas, nullptr, this, nullptr);
    m_setPendingWrites.clear();
    m_mapParameters.clear();
    Q_EMIT ParameterTableCleared();
}

// The full table is offered for the multirotor, on a test server only.
void CLmUavSettingsController::Bind()
{
    connect(m_pUas, &CLmUasProvide::parameterChanged, this, &CLmUavSettingsController::slotTimeOutRev);
    connect(m_pUas, &CLmUasProvide::parameterChanged, this, &CLmUavSettingsController::slotParamterInfo);
    m_bParameterTable = m_pUas->GetPlaneTypeId() == ePlaneTypeMultirotor && IsTestServer();
    Q_EMIT ParameterTableShown(m_bParameterTable);
    if (!m_bParameterTable) {
        m_pUas->RequestParameter(kGcsTimeout);
        return;
    }
    connect(m_pUas, &CLmUasProvide::ParametersLoaded, this,
            [this](const QList<SLmParameter>& parameters) { Q_EMIT ParametersComplete(parameters.size()); });
    connect(m_pUas, &CLmUasProvide::ParameterDownloadFailed, this,
            [this](const QList<int>& missing) { Q_EMIT ParametersIncomplete(missing.size()); });
    DownloadTable();
}

void CLmUavSettingsController::DownloadTable()
{
    m_mapParameters.clear();
    Q_EMIT ParameterTableCleared();
    m_pUas->DownloadParameters();
}

void CLmUavSettingsController::RestoreParameters()
{
    if (m_pUas && m_bParameterTable)
        DownloadTable();
}

void CLmUavSettingsController::slotTimeOutRev(int count, int index, QString name, QVariant value)
{
    Q_UNUSED(count)
    Q_UNUSED(index)
    // While a write is on its way the value typed stays: the answer is
    // judged against it.
    if (name == kGcsTimeout && !m_setPendingWrites.contains(kGcsTimeout))
        Q_EMIT ProtectionTimeRead(value.toInt());
}

void CLmUavSettingsController::slotParamterInfo(int count, int index, QString name, QVariant val)
{
    Q_UNUSED(count)
    if (!m_bParameterTable)
        return;
    const SLmParameter parameter{index, name, val};
    m_mapParameters.insert(name, parameter);
    Q_EMIT ParameterRead(parameter);
}

bool CLmUavSettingsController::SetProtectionTime(int seconds)
{
    if (!m_pUas || seconds < MinProtectionTimeS)
        return false;
    Write(kGcsTimeout, seconds, GcsTimeoutComponent);
    return true;
}

QStringList CLmUavSettingsController::SaveParameters(const QList<SEdit>& edits)
{
    QStringList problems;
    for (const SEdit& edit : edits) {
        if (edit.text.isEmpty()) {
            problems << tr("paramter:") + edit.name + tr(" value is null");
            continue;
        }
        const auto parameter = m_mapParameters.constFind(edit.name);
        const QString typeName = parameter == m_mapParameters.cend() ? QString() : parameter->TypeName();
        const std::optional<QVariant> value = LmParameterValue::Read(edit.text, typeName);
        if (!value) {
            problems << tr("paramter:") + edit.name + tr(" value is not a %1").arg(typeName);
            continue;
        }
        if (m_pUas)
            Write(edit.name, *value, m_pUas->GetComponentId());
    }
    return problems;
}

// The handle's confirmations are listened to while any write is pending.
void CLmUavSettingsController::Write(const QString& name, const QVariant& value, int componentId)
{
    if (m_setPendingWrites.isEmpty()) {
        m_confirmedConnection = connect(m_pUas, &CLmUasProvide::ParameterSetConfirmed, this,
                                        &CLmUavSettingsController::slotParamSet);
        m_failedConnection = connect(m_pUas, &CLmUasProvide::ParameterSetFailed, this,
                                     &CLmUavSettingsController::slotParamSetFailed);
    }
    m_setPendingWrites.insert(name);
    qCInfo(lcAircraft) << "writing" << name << "=" << value;
    m_pUas->SetParameter(componentId, name, value);
}

void CLmUavSettingsController::slotParamSet(QString paramName, QVariant value)
{
    if (!m_setPendingWrites.contains(paramName))
        return;
    EndWrite(paramName);
    if (paramName == kGcsTimeout)
        Q_EMIT ProtectionTimeConfirmed(value.toInt());
}

void CLmUavSettingsController::slotParamSetFailed(QString paramName)
{
    if (!m_setPendingWrites.contains(paramName))
        return;
    qCWarning(lcAircraft) << "the aircraft did not confirm" << paramName;
    EndWrite(paramName);
    if (paramName == kGcsTimeout)
        Q_EMIT ProtectionTimeNotConfirmed();
    else
        Q_EMIT ParameterNotConfirmed(paramName);
}

void CLmUavSettingsController::EndWrite(const QString& name)
{
    m_setPendingWrites.remove(name);
    if (m_setPendingWrites.isEmpty())
        StopListeningForEchoes();
}

void CLmUavSettingsController::StopListeningForEchoes()
{
    disconnect(m_confirmedConnection);
    disconnect(m_failedConnection);
}
