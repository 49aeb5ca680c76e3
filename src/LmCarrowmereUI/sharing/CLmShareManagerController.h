#pragma once

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QMetaType>
#include <QSet>
#include <QString>
#include <QVector>

class CLmNetWorkRequest;

// The share manager without its widgets: reads the "/share/list" reply into
// rows, builds the requests of every action on them and reads their replies.
// The page connects each request it is handed to its own reply slots.
class CLmShareManagerController : public QObject
{
    Q_OBJECT
public:
    // Reply time-out of the list and delete calls.
    static constexpr int ShareCallTimeoutMs = 5000;

    enum EKind { KindReceived, KindReceivedTask, KindSent };
    enum EState { StateWaiting = 0, StateCancelled = 1, StateAccepted = 2, StateRejected = 3 };
    // The "type" of an accept: keep the name, replace the own project of
    // that name, save under a new name.
    enum EAcceptType { AcceptKeepName = 0, AcceptReplace = 1, AcceptSaveAs = 2 };
    enum ENameCheck { NameOk, NameEmpty, NameForbidden };

    struct SMessage
    {
        qint64 nUserId = 0;
        QString strInfo;
        QString strTime;
    };
    using MessageList = QVector<SMessage>;

    struct SShareRow
    {
        qint64 nId = 0;
        EKind eKind = KindReceived;
        QString strProject;
        QString strProjectId;
        QString strTaskId;
        QString strPeer;  // the sender of a received row, the receiver of a sent one
        QString strTime;
        int nState = StateWaiting;
        int nSaveAs = 0;
        qint64 nSenderId = 0;
        MessageList vecMessages;  // oldest first
    };

    // What an accept reply says.
    struct SAcceptAnswer
    {
        bool bParsed = false;
        bool bAccepted = false;
        QString strProjectId;
        QString strProjectName;
        QString strMessage;
    };

    explicit CLmShareManagerController(QObject* parent = nullptr);

    // Reads a list reply. A reply that does not parse or is refused leaves
    // the rows as they were and returns false.
    bool ReadList(const QByteArray& reply);
    const QVector<SShareRow>& Received() const;
    const QVector<SShareRow>& Sent() const;
    const SShareRow* Find(qint64 nId) const;
    // Waiting received rows not seen in the list read before.
    int NewWaitingCount() const;
    void Clear();
    // Marks a row answered before the next list read says so.
    void SetState(qint64 nId, int nState);

    static QString KindName(EKind kind);
    static QString StateText(int nState);
    static QString LatestMessage(const SShareRow& row);
    // Every message, one a line: "created_at  info".
    static QString MessageHistory(const MessageList& messages);

    static ENameCheck CheckName(const QString& name);
    static QString ForbiddenCharacters();
    static QByteArray AcceptBody(qint64 nId, EAcceptType type, const QString& name = QString());
    static SAcceptAnswer ReadAcceptAnswer(const QByteArray& reply, const QString& rowProjectName);

    // Requests ready to be connected and posted by the page.
    static CLmNetWorkRequest* NewListRequest();
    static CLmNetWorkRequest* NewAcceptRequest(const SShareRow& row, const QByteArray& body);
    static CLmNetWorkRequest* NewDeleteRequest(const QList<qint64>& ids);
    static CLmNetWorkRequest* NewReplyRequest(const SShareRow& row, const QString& text);
    static CLmNetWorkRequest* NewShareAgainRequest(const SShareRow& row);

private:

    QVector<SShareRow> m_vecReceived;
    QVector<SShareRow> m_vecSent;
    QSet<qint64> m_setSeenWaiting;
    int m_nNewWaiting = 0;
};

Q_DECLARE_METATYPE(CLmShareManagerController::MessageList)
