#pragma once

#include <QList>
#include <QObject>
#include <QString>

class QByteArray;
class QLabel;
class QWidget;
class CLmNetWorkRequest;

// The signed-in session as the window shows it: checks a stored session with
// the cloud, signs the user in through the login dialog, and switches the
// name label and the account-bound buttons between the signed-in and the
// signed-out look. The rest of the window follows its signals.
class CLmAccountSession : public QObject
{
    Q_OBJECT
public:
    // pWindow parents the session, its boxes and the login dialog;
    // pNameLabel shows who is signed in; accountButtons are usable only while
    // someone is, so they start disabled until a session is shown.
    CLmAccountSession(QWidget* pWindow, QLabel* pNameLabel, const QList<QWidget*>& accountButtons);

    bool IsSignedIn() const;

    // Checks the stored session with the cloud, or trusts it while offline;
    // false when nobody is stored.
    bool CheckStoredSession();
    // The avatar: signs a signed-out user in, or fetches the profile of the
    // signed-in one.
    void OpenAccount();
    // Asks for a sign-in where a key needs one.
    void OfferSignIn();
    // Offers the signed-in user a fresh sign-in.
    void ShowAccountInfo();
    // The cloud pages open only online and signed in; otherwise the user is
    // told why.
    bool MayOpenCloudPages();

    // The stored session signed in: the user's mission folder, the name and
    // the account buttons.
    void ShowSignedIn();
    // Follows the stored session after the profile was saved or the user
    // signed out.
    void ShowStoredUser();

public Q_SLOTS:
    // The cloud did not confirm the session: a fresh sign-in, else the
    // stored session is forgotten.
    void slotAccountFailed();

Q_SIGNALS:
    void SignedIn();
    void SignedOut();
    // Another account than the one shown before signed in.
    void AccountSwitched();
    // The "/user/profile" reply of the signed-in user.
    void ProfileArrived(const QByteArray& reply);

private:
    CLmNetWorkRequest* NewProfileRequest();
    bool ConfirmOnline();
    bool SignInByDialog();
    void ShowOffNetworkBox(const QString& text);
    void SetAccountButtonsEnabled(bool bEnabled);

    QWidget* m_pWindow;
    QLabel* m_pNameLabel;
    QList<QWidget*> m_listAccountButtons;
    QString m_strShownUserId;
};
