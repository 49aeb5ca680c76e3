#pragma once

#include "CLmBaseDialog.h"

#include "CLmShareManagerController.h"

class QPlainTextEdit;

// The messages of a share, oldest first, and a box for the answer. exec()
// returns 1 when the user sends a text that is not blank.
class CLmShareMessageDialog : public CLmBaseDialog
{
    Q_OBJECT
public:
    // nOwnUserId tells the user's own messages.
    CLmShareMessageDialog(const QString& strProject, const CLmShareManagerController::MessageList& messages,
                          qint64 nOwnUserId,
                          QWidget* parent = nullptr);

    QString Text() const;

private:
    QPlainTextEdit* m_pEditAnswer;
};
