#include "CLmShareNameDialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

CLmShareNameDialog::CLmShareNameDialog(const QString& suggestedName, QWidget* parent)
    : CLmBaseDialog(parent)
    , m_pEditName(new QLineEdit(suggestedName))
{
    setObjectName(QStringLiteral("CLmShareNameDialog"));
    SetTitle(tr("Save As"));
    m_pEditName->setObjectName(QStringLiteral("m_pEditName"));
    m_pEditName->setPlaceholderText(tr("New project name"));
    m_pEditName->selectAll();
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("m_pBtnOk"));
    buttons->button(QDialogButtonBox::Cancel)->setObjectName(QStringLiteral("m_pBtnCancel"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout;
    layout->setContentsMargins(24, 20, 24, 16);
    layout->setSpacing(12);
    layout->addWidget(new QLabel(tr("Project name:")));
    layout->addWidget(m_pEditName);
    layout->addWidget(buttons);
    SetContentLayout(layout);
    setMinimumWidth(380);
}

QString CLmShareNameDialog::Name() const
{
    return m_pEditName->text();
}
