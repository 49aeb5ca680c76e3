#pragma once

#include "CLmBaseDialog.h"

class QLineEdit;

// Asks for the name under which a shared project is saved. exec() returns 1
// for OK; the caller checks the name.
class CLmShareNameDialog : public CLmBaseDialog
{
    Q_OBJECT
public:
    explicit CLmShareNameDialog(const QString& suggestedName, QWidget* parent = nullptr);

    QString Name() const;

private:
    QLineEdit* m_pEditName;
};
