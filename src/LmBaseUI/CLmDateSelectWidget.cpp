#include "CLmDateSelectWidget.h"

#include <QDateEdit>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

// The page reads the range back from the text, so neither the format nor the
// separator is translated.
const char* const kDateFormat = "yyyy-MM-dd";
const char* const kRangeSeparator = " to ";

const char* const kDateStyle =
    "QDateEdit { border: 1px solid #d5dce6; border-radius: 6px; padding: 5px 8px; color: #24324a;"
    " background: #ffffff; min-width: 110px; }"
    "QDateEdit:focus { border-color: #2f80ed; }"
    "QDateEdit::drop-down { subcontrol-origin: padding; subcontrol-position: center right; width: 18px;"
    " border: none; }"
    "QDateEdit::down-arrow { image: url(:/LmBaseUI/images/arrow_down.png); }"
    "QCalendarWidget QWidget#qt_calendar_navigationbar { background: #2f80ed; }"
    "QCalendarWidget QToolButton { color: #ffffff; background: transparent; border: none; padding: 2px 6px; }"
    "QCalendarWidget QAbstractItemView { color: #24324a; background: #ffffff; outline: none;"
    " selection-background-color: #2f80ed; selection-color: #ffffff; }"
    "QCalendarWidget QAbstractItemView:disabled { color: #9aa5b5; }"
    "QPushButton { border: 1px solid #d5dce6; border-radius: 6px; padding: 6px 16px; color: #24324a;"
    " background: #ffffff; min-width: 48px; }"
    "QPushButton:hover, QPushButton:focus { border-color: #2f80ed; }"
    "QPushButton#m_pBtnDateOk { background: #2f80ed; border-color: #2f80ed; color: #ffffff; }"
    "QPushButton#m_pBtnDateOk:hover, QPushButton#m_pBtnDateOk:focus { background: #1f6fd8; }";

}  // namespace

CLmDateSelectWidget::CLmDateSelectWidget(QWidget* parent)
    : CLmPopupWidget(parent)
{
    // The library is static: its resources must be pulled in by hand.
    Q_INIT_RESOURCE(LmBaseUI);
    setObjectName(QStringLiteral("CLmDateSelectWidget"));
    setStyleSheet(styleSheet() + QString::fromLatin1(kDateStyle));
    BuildContent();
    SetRange(QDate::currentDate(), QDate::currentDate());
}

void CLmDateSelectWidget::BuildContent()
{
    m_pDateFrom = CreateDateEdit(QStringLiteral("m_pDateFrom"));
    m_pDateTo = CreateDateEdit(QStringLiteral("m_pDateTo"));
    m_pBtnDateCancel = CreateButton(tr("Cancel"), QStringLiteral("m_pBtnDateCancel"));
    m_pBtnDateOk = CreateButton(tr("OK"), QStringLiteral("m_pBtnDateOk"));
    connect(m_pBtnDateCancel, &QPushButton::clicked, this, &CLmDateSelectWidget::close);
    connect(m_pBtnDateOk, &QPushButton::clicked, this, &CLmDateSelectWidget::OnOkClicked);

    auto* dates = new QFormLayout;
    dates->setHorizontalSpacing(12);
    dates->setVerticalSpacing(8);
    dates->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    dates->addRow(tr("From"), m_pDateFrom);
    dates->addRow(tr("To"), m_pDateTo);

    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    buttons->addStretch(1);
    buttons->addWidget(m_pBtnDateCancel);
    buttons->addWidget(m_pBtnDateOk);

    QVBoxLayout* layout = CreateCardLayout();
    layout->addLayout(dates);
    layout->addLayout(buttons);
}

QDateEdit* CLmDateSelectWidget::CreateDateEdit(const QString& strObjectName)
{
    auto* edit = new QDateEdit(this);
    edit->setObjectName(strObjectName);
    edit->setDisplayFormat(QString::fromLatin1(kDateFormat));
    edit->setCalendarPopup(true);
    edit->installEventFilter(this);
    return edit;
}

// Enter on a focused button presses that button, elsewhere it means OK.
QPushButton* CLmDateSelectWidget::CreateButton(const QString& strText, const QString& strObjectName)
{
    auto* button = new QPushButton(strText, this);
    button->setObjectName(strObjectName);
    button->setAutoDefault(true);
    button->setCursor(Qt::PointingHandCursor);
    return button;
}

void CLmDateSelectWidget::SetRange(const QDate& from, const QDate& to)
{
    m_pDateFrom->setDate(from);
    m_pDateTo->setDate(to);
}

QString CLmDateSelectWidget::RangeText() const
{
    const QDate from = qMin(m_pDateFrom->date(), m_pDateTo->date());
    const QDate to = qMax(m_pDateFrom->date(), m_pDateTo->date());
    const QString format = QString::fromLatin1(kDateFormat);
    return from.toString(format) + QLatin1String(kRangeSeparator) + to.toString(format);
}

void CLmDateSelectWidget::OnOkClicked()
{
    emit DateSelected(RangeText());
    close();
}

void CLmDateSelectWidget::showEvent(QShowEvent* event)
{
    CLmPopupWidget::showEvent(event);
    m_pDateFrom->setFocus(Qt::PopupFocusReason);
    // Ready for typing, as after a Tab into the field.
    m_pDateFrom->setSelectedSection(QDateTimeEdit::YearSection);
}

// Tab moves between the fields rather than through the parts of a date;
// typing a full date moves through the parts by itself.
bool CLmDateSelectWidget::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return CLmPopupWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Tab && key != Qt::Key_Backtab)
        return CLmPopupWidget::eventFilter(watched, event);
    focusNextPrevChild(key == Qt::Key_Tab);
    return true;
}

// The date fields pass Enter on once they have taken the typed date.
void CLmDateSelectWidget::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Enter || event->key() == Qt::Key_Return) {
        OnOkClicked();
        event->accept();
        return;
    }
    CLmPopupWidget::keyPressEvent(event);
}
