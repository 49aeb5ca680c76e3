#include "CLmParameterDownload.h"

#include "CLmClock.h"
#include "CLmUasProvide.h"
#include "LmLinkInstanceLog.h"

#include <algorithm>

CLmParameterDownload::CLmParameterDownload(CLmUasProvide* pUas, QObject* parent, CLmClock* pClock)
    : QObject(parent)
    , m_pUas(pUas)
    , m_pClock(pClock ? pClock : new CLmClock)
{
    m_pClock->setParent(this);
    m_pClock->SetSingleShot(true);
    connect(m_pClock, &CLmClock::timeout, this, &CLmParameterDownload::OnQuiet);
}

void CLmParameterDownload::Start()
{
    if (!m_pUas) {
        qCWarning(lcLinkInstanceParam) << "parameter download without an aircraft ignored";
        return;
    }
    Stop();
    m_bRunning = true;
    m_bListPass = true;
    m_bProgress = false;
    m_iRetriesLeft = m_iRetries;
    m_iReceived = 0;
    m_vecParameters.clear();
    m_setRequested.clear();
    connect(m_pUas, &CLmUasProvide::parameterChanged, this, &CLmParameterDownload::OnParameter,
            Qt::UniqueConnection);
    m_pUas->RequestParameterList();
    m_pClock->Start(m_iQuietMs);
}

void CLmParameterDownload::OnParameter(int count, int index, const QString& name, const QVariant& value)
{
    if (!m_bRunning)
        return;
    TakeCount(count);
    if (index < 0 || index >= m_vecParameters.size())
        return;
    m_pClock->Start(m_iQuietMs);
    SLmParameter& parameter = m_vecParameters[index];
    if (parameter.index < 0) {
        ++m_iReceived;
        m_bProgress = true;
    }
    parameter.index = index;
    parameter.name = name;
    parameter.value = value;
    if (m_iReceived == m_vecParameters.size()) {
        Finish();
        return;
    }
    const bool listPassOver = m_bListPass && index == m_vecParameters.size() - 1;
    if (listPassOver || (!m_bListPass && RoundAnswered()))
        RequestNextRound();
}

void CLmParameterDownload::OnQuiet()
{
    if (!m_bRunning)
        return;
    if (!m_bProgress && --m_iRetriesLeft < 0) {
        Fail();
        return;
    }
    m_bProgress = false;
    if (m_vecParameters.isEmpty()) {
        qCInfo(lcLinkInstanceParam) << "no answer to the parameter list request, asking again";
        m_pUas->RequestParameterList();
        m_pClock->Start(m_iQuietMs);
        return;
    }
    RequestNextRound();
}

// The first answer tells the table's size; a different count later (the
// aircraft's table changed) is not followed.
void CLmParameterDownload::TakeCount(int count)
{
    if (m_vecParameters.isEmpty() && count > 0)
        m_vecParameters.resize(count);
}

void CLmParameterDownload::RequestNextRound()
{
    m_bListPass = false;
    const QList<int> missing = MissingIndices();
    m_setRequested.clear();
    for (int i = 0; i < std::min<int>(missing.size(), RequestsPerRound); ++i) {
        m_setRequested.insert(missing.at(i));
        m_pUas->RequestParameterByIndex(missing.at(i));
    }
    qCDebug(lcLinkInstanceParam) << "asking again for" << m_setRequested.size() << "of" << missing.size()
                                 << "missing parameters";
    m_pClock->Start(m_iQuietMs);
}

bool CLmParameterDownload::RoundAnswered() const
{
    return std::all_of(m_setRequested.cbegin(), m_setRequested.cend(),
                       [this](int index) { return m_vecParameters.at(index).index >= 0; });
}

QList<int> CLmParameterDownload::MissingIndices() const
{
    QList<int> missing;
    for (int index = 0; index < m_vecParameters.size(); ++index) {
        if (m_vecParameters.at(index).index < 0)
            missing << index;
    }
    return missing;
}

void CLmParameterDownload::Finish()
{
    const QList<SLmParameter> parameters = m_vecParameters.toList();
    Stop();
    qCInfo(lcLinkInstanceParam) << parameters.size() << "parameters downloaded";
    emit ParametersLoaded(parameters);
}

void CLmParameterDownload::Fail()
{
    const QList<int> missing = MissingIndices();
    Stop();
    qCWarning(lcLinkInstanceParam) << "parameter download gave up," << missing.size() << "missing";
    emit ParameterDownloadFailed(missing);
}

void CLmParameterDownload::Stop()
{
    m_bRunning = false;
    m_pClock->Stop();
    if (m_pUas)
        disconnect(m_pUas, &CLmUasProvide::parameterChanged, this, &CLmParameterDownload::OnParameter);
}
