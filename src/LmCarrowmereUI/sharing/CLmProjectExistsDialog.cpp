#include "CLmProjectExistsDialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QVBoxLayout>

CLmProjectExistsDialog::CLmProjectExistsDialog(QWidget* parent)
    : CLmBaseDialog(parent)
{
    setObjectName(QStringLiteral("CLmProjectExistsDialog"));
    SetTitle(tr("SkyConsole"));
    auto* icon = new QLabel(ContentWidget());
    icon->setPixmap(QPixmap(QStringLiteral(":/images/Normal/ProjMgr/warn_question_ic.png")));
    auto* text = new QLabel(tr("The project already exists that you are going to?"), ContentWidget());
    text->setObjectName(QStringLiteral("m_pLabelText"));
    text->setWordWrap(true);
    auto* replace = new QPushButton(tr("Replace"), ContentWidget());
    replace->setObjectName(QStringLiteral("m_pBtnReplace"));
    auto* saveAs = new QPushButton(tr("Save As"), ContentWidget());
    saveAs->setObjectName(QStringLiteral("m_pBtnSaveAs"));
    saveAs->setDefault(true);
    connect(replace, &QPushButton::clicked, this, [this] { done(Replace); });
    connect(saveAs, &QPushButton::clicked, this, [this] { done(SaveAs); });

    auto* messageRow = new QHBoxLayout;
    messageRow->setSpacing(16);
    messageRow->addWidget(icon, 0, Qt::AlignTop);
    messageRow->addWidget(text, 1);
    auto* buttonRow = new QHBoxLayout;
    buttonRow->addStretch(1);
    buttonRow->addWidget(replace);
    buttonRow->addWidget(saveAs);
    auto* layout = new QVBoxLayout;
    layout->setContentsMargins(24, 20, 24, 16);
    layout->setSpacing(20);
    layout->addLayout(messageRow, 1);
    layout->addLayout(buttonRow);
    SetContentLayout(layout);
    setMinimumWidth(380);
}
