#include "CFlightWriterThread.h"

CFlightWriterThread::CFlightWriterThread()
    : m_pWriter(new CLmFlightDataDbOperator(nullptr, UploadEnvNone))
{
    m_pWriter->moveToThread(&m_thread);
    QObject::connect(&m_thread, &QThread::finished, m_pWriter, &QObject::deleteLater);
    m_thread.start();
}

CFlightWriterThread::~CFlightWriterThread()
{
    m_thread.quit();
    m_thread.wait();
}
