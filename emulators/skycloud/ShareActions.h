#pragma once

#include "Account.h"
#include "Notifier.h"
#include "ShareStore.h"

#include <QList>

#include <optional>

#include <httplib.h>

class CloudStore;
class FormFields;
class ProjectStore;

// What the share and task endpoints do alike to the records of the caller:
// find them (every operation refuses a record that is not the caller's, as
// sender or receiver, and changes nothing), accept them into the caller's
// project store and answer them.
class ShareActions
{
public:
    // Which side of a record the caller must be.
    enum ESide { EitherSide, ReceiverSide, SenderSide };

    ShareActions(CloudStore& store, ProjectStore& projects, ShareStore& shares, PushChannel& channel);

    // The records named by the "id" field (ids joined by ","), all of them
    // the caller's on the side asked and of the kind (any kind when null);
    // else writes the refusal of the first one that is not.
    std::optional<QList<ShareStore::Record>> OwnRecords(const Account& caller, const FormFields& fields, ESide side,
                                                        const char* kind, httplib::Response& res);
    // As OwnRecords for a single id.
    std::optional<ShareStore::Record> OwnRecord(const Account& caller, const FormFields& fields, ESide side,
                                                const char* kind, httplib::Response& res);

    // "id", "type" 0 (keep the name), 1 (replace the caller's project of that
    // name) or 2 (save under "name"). Answers under "state".
    void Accept(const Account& caller, const FormFields& fields, const char* kind, httplib::Response& res);
    // "id", "message": appends the answer and tells the other side.
    void Reply(const Account& caller, const FormFields& fields, const char* kind, httplib::Response& res);

    // The characters a project name may not hold: it names a folder.
    static QString ForbiddenNameCharacters();

private:
    struct STarget
    {
        QString id;
        QString name;
    };
    // Where the accepted project goes, or the refusal written under "state".
    std::optional<STarget> AcceptTarget(const Account& caller, const ShareStore::Record& record,
                                        const FormFields& fields, httplib::Response& res);
    static void WriteState(httplib::Response& res, int httpStatus, int state, const QString& message,
                           const QJsonObject& data = {});

    ProjectStore& m_projects;
    ShareStore& m_shares;
    Notifier m_notifier;
};
