#include "CLmUavSettings.h"

#include "CLmMessageBox.h"
#include "CLmUavSettingsController.h"
#include "LmConstants.h"
#include "LmParameterValue.h"
#include "ui_CLmUavSettings.h"

#include <QHeaderView>
#include <QLineEdit>

namespace {

enum EColumn { eNameColumn = 0, eTypeColumn = 1, eValueColumn = 2 };

const char* const kModifyProperty = "modify";
const char* const kTypeProperty = "parameterType";

QString ValueText(const SLmParameter& parameter)
{
    return parameter.IsInteger() ? QString::number(parameter.value.toInt())
                                 : QString::number(parameter.value.toDouble(), 'g', 7);
}

void SetEditorLook(QLineEdit* editor, bool bValid)
{
    editor->setStyleSheet(bValid ? QStringLiteral("QLineEdit{border:none;background-color: rgb(255, 255, 255);}")
                                 : QStringLiteral("QLineEdit{border:none;background-color: rgb(248, 120, 120);}"));
}

}  // namespace

CLmUavSettings::CLmUavSettings(QWidget* parent)
    : QWidget(parent)
    , m_pUi(std::make_unique<Ui::CLmUavSettings>())
    , m_pController(new CLmUavSettingsController(this))
{
    m_pUi->setupUi(this);
    m_pUi->m_pTableParameter->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    m_pUi->m_pTableParameter->verticalHeader()->hide();
    connect(m_pUi->m_pBtnOK, &QPushButton::clicked, this, &CLmUavSettings::slotOKBtnClicked);
    connect(m_pUi->m_pBtnRestore, &QPushButton::clicked, this, &CLmUavSettings::slotRetPara);
    if (IsTestServer())
        connect(m_pUi->m_pBtnSave, &QPushButton::clicked, this, &CLmUavSettings::slotSavePara);
    m_pUi->m_pParameterBlock->setVisible(IsTestServer());
    ConnectController();
}

CLmUavSettings::~CLmUavSettings() = default;

void CLmUavSettings::ConnectController()
{
    using Controller = CLmUavSettingsController;
    connect(m_pController, &Controller::ProtectionTimeRead, m_pUi->m_pSpinProtectionTime, &QSpinBox::setValue);
    connect(m_pController, &Controller::ProtectionTimeConfirmed, this, &CLmUavSettings::ShowProtectionTimeConfirmed);
    connect(m_pController, &Controller::ProtectionTimeNotConfirmed, this, [this] {
        m_pUi->m_pLblProtectionStatus->setText(tr("The aircraft did not confirm the protection time."));
    });
    connect(m_pController, &Controller::ParameterTableShown, m_pUi->m_pParameterBlock, &QWidget::setVisible);
    connect(m_pController, &Controller::ParameterTableCleared, this, &CLmUavSettings::ClearTable);
    connect(m_pController, &Controller::ParameterRead, this, &CLmUavSettings::ShowParameter);
    connect(m_pController, &Controller::ParameterNotConfirmed, this, [this](const QString& name) {
        m_pUi->m_pLblParamStatus->setText(tr("The aircraft did not confirm %1.").arg(name));
    });
    connect(m_pController, &Controller::ParametersComplete, this, [this](int count) {
        m_pUi->m_pLblParamStatus->setText(tr("%1 parameters read.").arg(count));
    });
    connect(m_pController, &Controller::ParametersIncomplete, this, [this](int missing) {
        m_pUi->m_pLblParamStatus->setText(tr("%1 parameters did not arrive; Restore reads them again.").arg(missing));
    });
}

CLmUavSettingsController* CLmUavSettings::Controller() const
{
    return m_pController;
}

void CLmUavSettings::SetUas(CLmUasProvide* pUas)
{
    m_pUi->m_pLblProtectionStatus->clear();
    m_pController->SetUas(pUas);
}

void CLmUavSettings::slotOKBtnClicked()
{
    if (!m_pController->Uas())
        return;
    m_pUi->m_pLblProtectionStatus->clear();
    if (!m_pController->SetProtectionTime(m_pUi->m_pSpinProtectionTime->value()))
        Inform(tr("Lost contact protection time can not be less than 30 seconds"));
}

// The aircraft confirms what it was given; a spin box changed since then
// makes the confirmation stale.
void CLmUavSettings::ShowProtectionTimeConfirmed(int seconds)
{
    if (seconds == m_pUi->m_pSpinProtectionTime->value())
        Inform(tr("Parameter set successfully"));
}

void CLmUavSettings::Inform(const QString& text)
{
    CLmMessageBox box(text, QString(), tr("Flight setting"), CLmMessageBox::BtnOk, this);
    box.exec();
}

void CLmUavSettings::ClearTable()
{
    m_pUi->m_pTableParameter->setRowCount(0);
}

QLineEdit* CLmUavSettings::ValueEditor(int row) const
{
    return qobject_cast<QLineEdit*>(m_pUi->m_pTableParameter->cellWidget(row, eValueColumn));
}

// A parameter seen again (read back after a write, or read anew) shows the
// aircraft's value and counts as unchanged.
void CLmUavSettings::ShowParameter(const SLmParameter& parameter)
{
    QTableWidget* table = m_pUi->m_pTableParameter;
    const QList<QTableWidgetItem*> found = table->findItems(parameter.name, Qt::MatchExactly);
    for (QTableWidgetItem* item : found) {
        if (item->column() != eNameColumn)
            continue;
        QLineEdit* editor = ValueEditor(item->row());
        editor->setText(ValueText(parameter));
        editor->setProperty(kModifyProperty, false);
        SetEditorLook(editor, true);
        return;
    }
    const int row = table->rowCount();
    table->insertRow(row);
    table->setItem(row, eNameColumn, new QTableWidgetItem(parameter.name));
    table->setItem(row, eTypeColumn, new QTableWidgetItem(parameter.TypeName()));
    auto* editor = new QLineEdit(ValueText(parameter), table);
    editor->setObjectName(QStringLiteral("m_pEditParam_") + parameter.name);
    editor->setProperty(kModifyProperty, false);
    editor->setProperty(kTypeProperty, parameter.TypeName());
    SetEditorLook(editor, true);
    connect(editor, &QLineEdit::textEdited, this, &CLmUavSettings::slotTextChanged);
    table->setCellWidget(row, eValueColumn, editor);
}

void CLmUavSettings::slotTextChanged(QString text)
{
    auto* editor = qobject_cast<QLineEdit*>(sender());
    if (!editor)
        return;
    editor->setProperty(kModifyProperty, true);
    SetEditorLook(editor, LmParameterValue::Read(text, editor->property(kTypeProperty).toString()).has_value());
}

void CLmUavSettings::slotRetPara()
{
    m_pUi->m_pLblParamStatus->clear();
    m_pController->RestoreParameters();
}

void CLmUavSettings::slotSavePara()
{
    QList<CLmUavSettingsController::SEdit> edits;
    for (int row = 0; row < m_pUi->m_pTableParameter->rowCount(); ++row) {
        const QLineEdit* editor = ValueEditor(row);
        if (editor->property(kModifyProperty).toBool())
            edits.append({m_pUi->m_pTableParameter->item(row, eNameColumn)->text(), editor->text()});
    }
    const QStringList problems = m_pController->SaveParameters(edits);
    if (!problems.isEmpty())
        Inform(problems.join(QLatin1Char('\n')));
}
