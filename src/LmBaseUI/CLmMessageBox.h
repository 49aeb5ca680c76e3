#pragma once

#include "CLmBaseDialog.h"

class QLabel;
class QPushButton;

// Modal message box: an icon, a word-wrapped text and OK (and Cancel).
// exec() returns 1 for OK, 0 for Cancel, the title-bar close or Escape.
class CLmMessageBox : public CLmBaseDialog
{
    Q_OBJECT

public:
    enum EMsgButtons { BtnOk, BtnOkCancel };

    // An empty title shows "SkyConsole"; an icon path that does not load shows no icon.
    CLmMessageBox(const QString& text, const QString& iconPath, const QString& title = QString(),
                  EMsgButtons buttons = BtnOkCancel, QWidget* parent = nullptr);

    void SetBtnHidden(bool bHideOk, bool bHideCancel, bool bHideClose);
    // Names the affirmative button after what it does ("Retry", say).
    void SetOkText(const QString& text);
    // Names the other button ("Close", say).
    void SetCancelText(const QString& text);
    QString Text() const;

private:
    void BuildContent(const QString& iconPath);
    QPushButton* CreateButton(const QString& text, const QString& objectName);

    QLabel* m_pLabelIcon = nullptr;
    QLabel* m_pLabelText = nullptr;
    QPushButton* m_pBtnOk = nullptr;
    QPushButton* m_pBtnCancel = nullptr;
};
