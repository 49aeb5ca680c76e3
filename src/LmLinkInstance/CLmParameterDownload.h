#pragma once

#include "SLmParameter.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QSet>
#include <QVector>

class CLmClock;
class CLmUasProvide;

// Downloads the aircraft's whole parameter table. Start() asks for the list
// (PARAM_REQUEST_LIST) and collects PARAM_VALUE by index. When the list has
// gone past its last index, or nothing arrived for the quiet time, the
// missing indices are asked for one by one (PARAM_REQUEST_READ by index), at
// most RequestsPerRound at a time; a round whose answers are all in starts
// the next at once. A quiet time that brought nothing new uses up one retry
// (so does an unanswered list request); with all retries used up the
// download fails with the indices still missing. Lives on the aircraft
// handle's thread.
class CLmParameterDownload : public QObject
{
    Q_OBJECT
public:
    static constexpr int DefaultQuietMs = 700;
    static constexpr int DefaultRetries = 5;
    static constexpr int RequestsPerRound = 64;

    // Takes the clock; a real timer when null.
    CLmParameterDownload(CLmUasProvide* pUas, QObject* parent = nullptr, CLmClock* pClock = nullptr);

    void SetQuietMs(int ms) { m_iQuietMs = ms; }
    void SetRetries(int retries) { m_iRetries = retries; }

    // Starts over, dropping what an earlier download collected.
    void Start();
    bool IsRunning() const { return m_bRunning; }

signals:
    // Every parameter, in index order.
    void ParametersLoaded(QList<SLmParameter> parameters);
    // The indices still missing; empty when the aircraft never answered the
    // list request.
    void ParameterDownloadFailed(QList<int> missing);

private:
    void OnParameter(int count, int index, const QString& name, const QVariant& value);
    void OnQuiet();
    void TakeCount(int count);
    void RequestNextRound();
    bool RoundAnswered() const;
    QList<int> MissingIndices() const;
    void Finish();
    void Fail();
    void Stop();

    QPointer<CLmUasProvide> m_pUas;
    CLmClock* m_pClock;
    int m_iQuietMs = DefaultQuietMs;
    int m_iRetries = DefaultRetries;

    bool m_bRunning = false;
    bool m_bListPass = false;      // the aircraft is still going through its list
    bool m_bProgress = false;      // something new arrived since the last quiet time
    int m_iRetriesLeft = 0;
    int m_iReceived = 0;
    QVector<SLmParameter> m_vecParameters; // by index; empty until the count is known
    QSet<int> m_setRequested;      // indices asked for in the running round
};
