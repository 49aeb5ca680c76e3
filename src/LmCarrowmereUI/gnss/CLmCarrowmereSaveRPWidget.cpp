#include "CLmCarrowmereSaveRPWidget.h"

#include "CLmMessageBox.h"
#include "LmStationRules.h"
#include "ui_CLmCarrowmereSaveRPWidget.h"

CLmCarrowmereSaveRPWidget::CLmCarrowmereSaveRPWidget(QWidget* parent, const QStringList& namesInUse)
    : CLmBaseDialog(parent)
    , m_pUi(std::make_unique<Ui::CLmCarrowmereSaveRPWidget>())
    , m_lstNamesInUse(namesInUse)
{
    setObjectName(QStringLiteral("CLmCarrowmereSaveRPWidget"));
    m_pUi->setupUi(ContentWidget());
    SetTitle(tr("Save reference point"));
    setMinimumWidth(360);
    connect(m_pUi->m_pBtnOK, &QPushButton::clicked, this, &CLmCarrowmereSaveRPWidget::slotBtnOkClicked);
    connect(m_pUi->m_pBtnCancel, &QPushButton::clicked, this, &QDialog::reject);
}

CLmCarrowmereSaveRPWidget::~CLmCarrowmereSaveRPWidget() = default;

void CLmCarrowmereSaveRPWidget::SetPrompt(const QString& text)
{
    m_pUi->m_pLblSaveAs->setText(text);
}

QString CLmCarrowmereSaveRPWidget::Name() const
{
    return m_pUi->m_pEditName->text().trimmed();
}

void CLmCarrowmereSaveRPWidget::slotBtnOkClicked()
{
    const QString problem = LmStationRules::ReferencePointNameProblem(Name(), m_lstNamesInUse);
    if (problem.isEmpty()) {
        accept();
        return;
    }
    CLmMessageBox box(problem, QStringLiteral(":/images/Normal/Exclamation_mark.png"), tr("Save reference point"),
                      CLmMessageBox::BtnOk, this);
    box.exec();
}
