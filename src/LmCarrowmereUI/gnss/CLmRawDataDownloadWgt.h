#pragma once

#include <QList>
#include <QWidget>

#include <memory>

namespace Ui {
class CLmRawDataDownloadWgt;
}
class CLmRawDataDownloadController;
class CLmUasProvide;

// The data-download section of the maintenance page: the raw-data folders
// of the aircraft's GNSS receiver with a check box each, the folder they go
// to, and the download's progress and outcome.
class CLmRawDataDownloadWgt : public QWidget
{
    Q_OBJECT
public:
    explicit CLmRawDataDownloadWgt(QWidget* parent = nullptr);
    ~CLmRawDataDownloadWgt() override;

    // The aircraft from the maintenance page, null when it went away.
    void SetCurrentUas(CLmUasProvide* pUas);
    CLmRawDataDownloadController* Controller() const;

private:
    void ConnectController();
    void ShowFolders();
    QList<quint16> CheckedFolders() const;
    void ChooseTargetDir();
    void StartDownload();
    void SelectAll();
    void UpdateButtons();

    std::unique_ptr<Ui::CLmRawDataDownloadWgt> m_pUi;
    CLmRawDataDownloadController* m_pController;
};
