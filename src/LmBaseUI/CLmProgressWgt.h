#pragma once

#include "CLmBaseDialog.h"

class QLabel;
class QProgressBar;
class QPushButton;

// Progress dialog for long work owned by someone else. Cancel and the
// title-bar close tell the owner and end the dialog; Retry only tells the
// owner, which restarts its work and keeps feeding this dialog.
class CLmProgressWgt : public CLmBaseDialog
{
    Q_OBJECT

public:
    explicit CLmProgressWgt(QWidget* parent = nullptr);

    using CLmBaseDialog::exec;
    // Runs modally. With bVisibleButtons false all buttons start hidden, with
    // true Cancel and Close start visible and Retry hidden.
    int exec(bool bVisibleButtons);

    void VisibleBtnCannel(bool bVisible);
    void VisibleBtnClose(bool bVisible);
    void VisibleBtnRetry(bool bVisible);

public slots:
    void SetCurrentText(const QString& text);
    void SetValue(int value);
    // Shows current of total as a percentage (for byte counts of downloads).
    void SetProgress(qint64 current, qint64 total);

signals:
    void signalBtnCancelClicked();
    void signalBtnRetryClicked();
    void signalBtnCloseClicked();

protected:
    void OnCloseClicked() override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void BuildContent();
    void OnCancelClicked();

    QLabel* m_pLabelText = nullptr;
    QProgressBar* m_pProgressBar = nullptr;
    QPushButton* m_pBtnCancel = nullptr;
    QPushButton* m_pBtnRetry = nullptr;
};
