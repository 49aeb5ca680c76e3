#pragma once

#include <QJsonObject>
#include <QObject>

class CLmUpdateQuery;

// Checks whether the cloud offers a newer version of this application.
class CLmSureUpgrade : public QObject
{
    Q_OBJECT
public:
    explicit CLmSureUpgrade(QObject* parent = nullptr);

    void CheckUpdate();

signals:
    // release: version, url, size, sha256, notes; hand it to
    // CLmCarrowmereUpgradeSure::SetDownloadData.
    void NeedDownLoad(const QJsonObject& release);

private:
    CLmUpdateQuery* m_pQuery;
};
