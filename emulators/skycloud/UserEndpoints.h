#pragma once

#include "CloudStore.h"
#include "EndpointGroup.h"
#include "TokenGuard.h"

// "/user/...": sign-in, profile, registration, verification codes, password
// reset and phone change.
class UserEndpoints : public EndpointGroup
{
public:
    // exposeCodes: verification codes are also returned in data.validate_hint.
    UserEndpoints(CloudStore& store, bool exposeCodes);

    void Register(httplib::Server& server) override;

private:
    void Login(const httplib::Request& req, httplib::Response& res);
    void Logout(const httplib::Request& req, httplib::Response& res);
    void Profile(const httplib::Request& req, httplib::Response& res);
    void EditProfile(const httplib::Request& req, httplib::Response& res);
    void SendValidate(const httplib::Request& req, httplib::Response& res);
    void ResetPasswordSendSms(const httplib::Request& req, httplib::Response& res);
    void ResetPassword(const httplib::Request& req, httplib::Response& res);
    void RegisterAccount(const httplib::Request& req, httplib::Response& res);
    void ChangePhone(const httplib::Request& req, httplib::Response& res);

    // Issues a code and delivers it the only way an emulator can: on stderr.
    void DeliverCode(const QString& phone, CloudStore::CodePurpose purpose, httplib::Response& res);
    // Writes the failure and returns false unless the code matches.
    bool ConsumeCode(const QString& phone, CloudStore::CodePurpose purpose, const QString& code,
                     httplib::Response& res);

    CloudStore& m_store;
    TokenGuard m_guard;
    bool m_exposeCodes;
};
