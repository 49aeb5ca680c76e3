#pragma once

#include "CLmBaseDialog.h"

#include <QStringList>

#include <memory>

namespace Ui {
class CLmCarrowmereSaveRPWidget;
}

// Asks the name of a new reference point ("Save as"). The name is checked
// against the names in use; the caller stores the point.
class CLmCarrowmereSaveRPWidget : public CLmBaseDialog
{
    Q_OBJECT
public:
    CLmCarrowmereSaveRPWidget(QWidget* parent, const QStringList& namesInUse);
    ~CLmCarrowmereSaveRPWidget() override;

    // The text above the name ("Save as" unless given).
    void SetPrompt(const QString& text);
    // The accepted name, without surrounding spaces.
    QString Name() const;

public Q_SLOTS:
    void slotBtnOkClicked();

private:
    std::unique_ptr<Ui::CLmCarrowmereSaveRPWidget> m_pUi;
    QStringList m_lstNamesInUse;
};
