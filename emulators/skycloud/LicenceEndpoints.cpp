#include "LicenceEndpoints.h"

#include "CloudLog.h"
#include "CloudStore.h"
#include "Envelope.h"
#include "FormFields.h"
#include "LicenceStore.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QRegularExpression>

#include <algorithm>

namespace {

// What the aircraft's licence status message can carry.
constexpr int kMaxSerialLength = 32;
constexpr int kMaxFeaturesLength = 96;

// Serials and feature names go into the signed text one per line: only
// plain names, so nothing can add a line of its own.
bool IsPlainName(const QString& text, int maxLength)
{
    static const QRegularExpression plain(QStringLiteral("^[A-Za-z0-9_.-]+$"));
    return text.size() <= maxLength && plain.match(text).hasMatch();
}

QJsonObject TermsJson(const LicenceStore::Terms& terms)
{
    return QJsonObject{{"expires", terms.expires.toString(Qt::ISODate)},
                       {"features", QJsonArray::fromStringList(terms.features)}};
}

}  // namespace

LicenceEndpoints::LicenceEndpoints(CloudStore& store, LicenceStore& licences)
    : m_store(store)
    , m_licences(licences)
    , m_guard(store)
{
}

void LicenceEndpoints::Register(httplib::Server& server)
{
    Route(server, "/licence/publickey", this, &LicenceEndpoints::PublicKey);
    Route(server, "/licence/issue", this, &LicenceEndpoints::Issue);
    Route(server, "/licence/setexpiry", this, &LicenceEndpoints::SetExpiry);
}

void LicenceEndpoints::PublicKey(const httplib::Request&, httplib::Response& res)
{
    Envelope::Ok(res, QJsonObject{{"public_key", QString::fromLatin1(m_licences.PublicKey().toHex())}});
}

void LicenceEndpoints::Issue(const httplib::Request& req, httplib::Response& res)
{
    const std::optional<Account> account = m_guard.RequireAccount(req, res);
    const FormFields form(req);
    if (!account || !form.RequireAll({"serial"}, res))
        return;
    const QString serial = form.Value("serial").trimmed();
    if (!IsPlainName(serial, kMaxSerialLength)) {
        Envelope::Fail(res, 400, QStringLiteral("Not an aircraft serial number"));
        return;
    }
    const LicenceStore::Terms terms = m_licences.TermsOf(account->id);
    QJsonObject data = TermsJson(terms);
    data.insert("serial", serial);
    data.insert("licence", QString::fromLatin1(m_licences.Issue(serial, terms).toBase64()));
    qCInfo(lcSkyCloud).noquote() << "licence for" << serial << "until" << terms.expires.toString(Qt::ISODate);
    Envelope::Ok(res, data);
}

void LicenceEndpoints::SetExpiry(const httplib::Request& req, httplib::Response& res)
{
    const FormFields form(req);
    if (!m_guard.RequireAdmin(req, res) || !form.RequireAll({"phone", "expires"}, res))
        return;
    const std::optional<Account> account = m_store.AccountByPhone(form.Value("phone").trimmed());
    if (!account) {
        Envelope::Fail(res, 400, QStringLiteral("The account does not exist"));
        return;
    }
    LicenceStore::Terms terms;
    terms.expires = QDate::fromString(form.Value("expires").trimmed(), Qt::ISODate);
    terms.features = form.Optional("features") ? form.List("features") : LicenceStore::DefaultFeatures();
    const bool plainFeatures = std::all_of(terms.features.cbegin(), terms.features.cend(),
                                           [](const QString& name) { return IsPlainName(name, kMaxFeaturesLength); });
    if (!terms.expires.isValid() || !plainFeatures
        || terms.features.join(QLatin1Char(',')).size() > kMaxFeaturesLength) {
        Envelope::Fail(res, 400, QStringLiteral("expires must be a date yyyy-MM-dd and features plain names"));
        return;
    }
    if (!m_licences.SetTerms(account->id, terms)) {
        Envelope::Fail(res, 500, QStringLiteral("Cannot store the licence terms"));
        return;
    }
    QJsonObject data = TermsJson(terms);
    data.insert("phone", account->phone);
    Envelope::Ok(res, data);
}
