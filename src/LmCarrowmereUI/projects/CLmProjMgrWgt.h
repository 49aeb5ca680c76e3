#pragma once

#include <QJsonArray>
#include <QWidget>

#include <memory>

namespace Ui {
class CLmProjMgrWgt;
}

// The cloud project page: the user's projects, local and in the cloud.
class CLmProjMgrWgt : public QWidget
{
    Q_OBJECT
public:
    explicit CLmProjMgrWgt(QWidget* parent = nullptr);
    ~CLmProjMgrWgt() override;

    // Forgets everything shown for the previous user.
    void Reset();

Q_SIGNALS:
    void BackToHome();
    // Flight data of a mission read from the cloud, for the flight-data uploader.
    void parseJsonArray(QJsonArray jArray, QString strFilePath, QString strMissionID, uint iOperatorType,
                        QString strProjectName);

private:
    std::unique_ptr<Ui::CLmProjMgrWgt> m_pUi;
};
