#include "CLmProjectExistsDialog.h"

#include <QPushButton>

CLmProjectExistsDialog::CLmProjectExistsDialog(QWidget* parent)
    : CLmMessageBox(tr("The project already exists that you are going to?"),
                    QStringLiteral(":/images/Normal/ProjMgr/warn_question_ic.png"), tr("SkyConsole"), BtnOkCancel,
                    parent)
{
    setObjectName(QStringLiteral("CLmProjectExistsDialog"));
    SetOkText(tr("Replace"));
    findChild<QPushButton*>(QStringLiteral("m_pBtnOk"))->setObjectName(QStringLiteral("m_pBtnReplace"));
    // The second button answers instead of cancelling; closing the box cancels.
    auto* saveAs = findChild<QPushButton*>(QStringLiteral("m_pBtnCancel"));
    saveAs->setObjectName(QStringLiteral("m_pBtnSaveAs"));
    saveAs->setText(tr("Save As"));
    disconnect(saveAs, &QPushButton::clicked, this, &QDialog::reject);
    connect(saveAs, &QPushButton::clicked, this, [this] { done(SaveAs); });
}
