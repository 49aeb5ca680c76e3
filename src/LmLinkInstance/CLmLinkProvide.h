#pragma once

#include <QByteArray>
#include <QObject>

// Handle of one device link. A link only moves bytes; concrete links (serial,
// UDP, TCP) implement Connect()/Disconnect() and raise the signals below.
// Links are owned and addressed by id through CLmLinkManager.
class CLmLinkProvide : public QObject
{
    Q_OBJECT
public:
    explicit CLmLinkProvide(int linkId, QObject* parent = nullptr);

    int GetLinkId() const;

    virtual void Connect() = 0;
    virtual void Disconnect() = 0;
    // Sends bytes to the device. Links that only listen drop them.
    virtual void WriteBytes(const QByteArray& bytes);

signals:
    void bytesReceived(const QByteArray& bytes);
    void connected();
    void disconnected();
    // Connect() could not open the device or port named by where (it is
    // busy or missing).
    void openFailed(const QString& where);

private:
    const int m_nLinkId;
};
