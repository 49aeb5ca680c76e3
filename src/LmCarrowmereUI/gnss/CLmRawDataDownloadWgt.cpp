#include "CLmRawDataDownloadWgt.h"

#include "CLmRawDataDownloadController.h"
#include "ui_CLmRawDataDownloadWgt.h"

#include <QDateTime>
#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QLocale>

namespace {

enum EColumn { eNameColumn = 0, eTimeColumn = 1, eSizeColumn = 2, eLabelColumn = 3 };

constexpr int kFolderIdRole = Qt::UserRole;

}  // namespace

CLmRawDataDownloadWgt::CLmRawDataDownloadWgt(QWidget* parent)
    : QWidget(parent)
    , m_pUi(std::make_unique<Ui::CLmRawDataDownloadWgt>())
    , m_pController(new CLmRawDataDownloadController(this))
{
    m_pUi->setupUi(this);
    m_pUi->m_pTreeRawFolders->header()->setSectionResizeMode(QHeaderView::Stretch);
    m_pUi->m_pEditRawTargetDir->setText(QDir::toNativeSeparators(m_pController->TargetDir()));
    m_pUi->m_pLblRawStatus->setText(m_pController->StatusText());
    connect(m_pUi->m_pBtnRefreshFolders, &QPushButton::clicked, m_pController,
            &CLmRawDataDownloadController::RefreshFolders);
    connect(m_pUi->m_pBtnSelectAll, &QPushButton::clicked, this, &CLmRawDataDownloadWgt::SelectAll);
    connect(m_pUi->m_pBtnRawBrowse, &QPushButton::clicked, this, &CLmRawDataDownloadWgt::ChooseTargetDir);
    connect(m_pUi->m_pBtnRawDownload, &QPushButton::clicked, this, &CLmRawDataDownloadWgt::StartDownload);
    connect(m_pUi->m_pBtnRawStop, &QPushButton::clicked, m_pController, &CLmRawDataDownloadController::Cancel);
    ConnectController();
    UpdateButtons();
}

CLmRawDataDownloadWgt::~CLmRawDataDownloadWgt() = default;

void CLmRawDataDownloadWgt::ConnectController()
{
    using Controller = CLmRawDataDownloadController;
    connect(m_pController, &Controller::FoldersChanged, this, &CLmRawDataDownloadWgt::ShowFolders);
    connect(m_pController, &Controller::StatusChanged, m_pUi->m_pLblRawStatus, &QLabel::setText);
    connect(m_pController, &Controller::CurrentDownloadChanged, m_pUi->m_pLblRawCurrent, &QLabel::setText);
    connect(m_pController, &Controller::ProgressChanged, m_pUi->m_pProgressRawDownload, &QProgressBar::setValue);
    connect(m_pController, &Controller::DownloadingChanged, this, &CLmRawDataDownloadWgt::UpdateButtons);
    connect(m_pController, &Controller::DownloadFinished, this, [this] {
        m_pUi->m_pProgressRawDownload->setValue(100);
        m_pUi->m_pLblRawCurrent->clear();
    });
}

void CLmRawDataDownloadWgt::SetCurrentUas(CLmUasProvide* pUas)
{
    m_pController->SetUas(pUas);
    UpdateButtons();
}

CLmRawDataDownloadController* CLmRawDataDownloadWgt::Controller() const
{
    return m_pController;
}

// Rows are drawn anew from the controller's folders; the ticks of folders
// still listed are kept.
void CLmRawDataDownloadWgt::ShowFolders()
{
    const QList<quint16> checked = CheckedFolders();
    QTreeWidget* tree = m_pUi->m_pTreeRawFolders;
    tree->clear();
    const QLocale locale;
    for (const STrimbleFolderInfo& folder : m_pController->Folders()) {
        auto* item = new QTreeWidgetItem(tree);
        item->setText(eNameColumn, folder.folderName);
        item->setData(eNameColumn, kFolderIdRole, folder.folderId);
        item->setCheckState(eNameColumn, checked.contains(folder.folderId) ? Qt::Checked : Qt::Unchecked);
        item->setText(eTimeColumn, locale.toString(QDateTime::fromSecsSinceEpoch(folder.timeUtc).toLocalTime(),
                                                   QLocale::ShortFormat));
        item->setText(eSizeColumn, locale.formattedDataSize(folder.folderSize));
        item->setText(eLabelColumn, folder.text);
    }
    UpdateButtons();
}

QList<quint16> CLmRawDataDownloadWgt::CheckedFolders() const
{
    QList<quint16> folderIds;
    QTreeWidget* tree = m_pUi->m_pTreeRawFolders;
    for (int row = 0; row < tree->topLevelItemCount(); ++row) {
        const QTreeWidgetItem* item = tree->topLevelItem(row);
        if (item->checkState(eNameColumn) == Qt::Checked)
            folderIds << static_cast<quint16>(item->data(eNameColumn, kFolderIdRole).toUInt());
    }
    return folderIds;
}

void CLmRawDataDownloadWgt::SelectAll()
{
    QTreeWidget* tree = m_pUi->m_pTreeRawFolders;
    for (int row = 0; row < tree->topLevelItemCount(); ++row)
        tree->topLevelItem(row)->setCheckState(eNameColumn, Qt::Checked);
}

void CLmRawDataDownloadWgt::ChooseTargetDir()
{
    const QString dir = QFileDialog::getExistingDirectory(this, tr("Save raw data to"), m_pController->TargetDir());
    if (dir.isEmpty())
        return;
    m_pController->SetTargetDir(dir);
    m_pUi->m_pEditRawTargetDir->setText(QDir::toNativeSeparators(m_pController->TargetDir()));
}

void CLmRawDataDownloadWgt::StartDownload()
{
    m_pUi->m_pProgressRawDownload->setValue(0);
    m_pController->Download(CheckedFolders());
}

void CLmRawDataDownloadWgt::UpdateButtons()
{
    const bool bHeld = m_pController->Uas() != nullptr;
    const bool bDownloading = m_pController->IsDownloading();
    m_pUi->m_pBtnRefreshFolders->setEnabled(bHeld && !bDownloading);
    m_pUi->m_pBtnRawDownload->setEnabled(bHeld && !bDownloading && m_pUi->m_pTreeRawFolders->topLevelItemCount() > 0);
    m_pUi->m_pBtnRawStop->setEnabled(bDownloading);
    m_pUi->m_pBtnRawBrowse->setEnabled(!bDownloading);
    m_pUi->m_pBtnSelectAll->setEnabled(!bDownloading);
    m_pUi->m_pTreeRawFolders->setEnabled(!bDownloading);
}
