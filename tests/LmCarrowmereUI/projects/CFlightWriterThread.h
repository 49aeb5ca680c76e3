#pragma once

#include "CLmFlightDataDbOperator.h"

#include <QThread>

// The flight-data writer as the main window runs it: on a thread of its own,
// reached through queued connections only.
class CFlightWriterThread
{
public:
    CFlightWriterThread();
    ~CFlightWriterThread();
    CFlightWriterThread(const CFlightWriterThread&) = delete;
    CFlightWriterThread& operator=(const CFlightWriterThread&) = delete;

    // Writes what client hands on through parseJsonArray and reports back to
    // its slotFlightDataParsed.
    template <class TClient>
    void Serve(TClient* client)
    {
        QObject::connect(client, &TClient::parseJsonArray, m_pWriter, &CLmFlightDataDbOperator::slotParseJson);
        QObject::connect(m_pWriter, &CLmFlightDataDbOperator::FlightDataParsed, client,
                         &TClient::slotFlightDataParsed);
    }

private:
    QThread m_thread;
    CLmFlightDataDbOperator* m_pWriter;
};
