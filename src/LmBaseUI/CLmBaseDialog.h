#pragma once

#include <QDialog>

class QLabel;
class QLayout;
class QPushButton;

// Frameless modal dialog with a title bar (title text and a close button that
// rejects) above a content area filled by subclasses. The title bar moves the
// dialog.
class CLmBaseDialog : public QDialog
{
    Q_OBJECT

public:
    explicit CLmBaseDialog(QWidget* parent = nullptr);

    void SetTitle(const QString& title);

    QWidget* ContentWidget() const;
    // Takes ownership of layout and installs it on the content area.
    void SetContentLayout(QLayout* layout);

protected:
    QPushButton* CloseButton() const;
    // Runs when the title-bar close button is clicked; rejects by default.
    virtual void OnCloseClicked();

private:
    QWidget* CreateTitleBar();

    QLabel* m_pLabelTitle = nullptr;
    QPushButton* m_pBtnClose = nullptr;
    QWidget* m_pContentWgt = nullptr;
};
