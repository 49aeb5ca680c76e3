#pragma once

#include "CLmPopupWidget.h"

#include <QDate>

class QDateEdit;
class QPushButton;

// Date range popup: two dates with calendar drop-downs, OK and Cancel. OK
// (or Enter) sends the range in ascending order and closes; Cancel, Escape
// and a click outside only close.
class CLmDateSelectWidget : public CLmPopupWidget
{
    Q_OBJECT

public:
    explicit CLmDateSelectWidget(QWidget* parent = nullptr);

    void SetRange(const QDate& from, const QDate& to);

signals:
    // "yyyy-MM-dd to yyyy-MM-dd", the earlier date first.
    void DateSelected(const QString& strDateString);

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildContent();
    QDateEdit* CreateDateEdit(const QString& strObjectName);
    QPushButton* CreateButton(const QString& strText, const QString& strObjectName);
    void OnOkClicked();
    QString RangeText() const;

    QDateEdit* m_pDateFrom = nullptr;
    QDateEdit* m_pDateTo = nullptr;
    QPushButton* m_pBtnDateOk = nullptr;
    QPushButton* m_pBtnDateCancel = nullptr;
};
