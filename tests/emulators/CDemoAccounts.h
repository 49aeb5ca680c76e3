#pragma once

#include <QByteArray>
#include <QStringList>

class CSkyCloudProcess;

// The two demo accounts of a new data folder, signed in to a running
// emulator, with their project ids: the two sides of tests between accounts.
class CDemoAccounts
{
public:
    struct SAccount
    {
        qint64 iID = 0;
        QByteArray phone;
        QByteArray token;
        QStringList projectIds;  // sorted
    };

    explicit CDemoAccounts(CSkyCloudProcess& cloud);

    // Signs both accounts in and reads their projects; false when a sign-in failed.
    bool SignIn();
    QStringList ProjectIds(const QByteArray& token) const;

    const SAccount& One() const;
    const SAccount& Two() const;

private:
    bool SignIn(SAccount& account) const;

    CSkyCloudProcess& m_cloud;
    SAccount m_one{1, "13800000001", {}, {}};
    SAccount m_two{2, "13800000002", {}, {}};
};
