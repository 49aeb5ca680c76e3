#include "CLmCitySelectWidget.h"

#include <QCollator>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace {

const char* const kCityStyle =
    "QLineEdit#m_pEditCitySearch { border: 1px solid #d5dce6; border-radius: 6px; padding: 5px 8px;"
    " color: #24324a; background: #ffffff; }"
    "QLineEdit#m_pEditCitySearch:focus { border-color: #2f80ed; }"
    "QListWidget#m_pListCities { border: none; background: transparent; outline: none; color: #24324a; }"
    "QListWidget#m_pListCities::item { padding: 6px 8px; border-radius: 6px; }"
    "QListWidget#m_pListCities::item:hover { background: #f3f5f8; }"
    "QListWidget#m_pListCities::item:selected { background: #e3eefc; color: #24324a; }"
    "QListWidget#m_pListCities QScrollBar:vertical { background: transparent; width: 6px; margin: 0; }"
    "QListWidget#m_pListCities QScrollBar::handle:vertical { background: #d5dce6; border-radius: 3px;"
    " min-height: 24px; }"
    "QListWidget#m_pListCities QScrollBar::add-line:vertical, QListWidget#m_pListCities QScrollBar::sub-line:vertical"
    " { height: 0; }"
    "QListWidget#m_pListCities QScrollBar::add-page:vertical, QListWidget#m_pListCities QScrollBar::sub-page:vertical"
    " { background: none; }"
    "QLabel#m_pLabelNoCity { color: #9aa5b5; }";

const int kCardWidth = 240;
const int kMaxVisibleRows = 8;

QStringList DisplayOrder(QStringList cities)
{
    cities.erase(std::remove_if(cities.begin(), cities.end(),
                                [](const QString& city) { return city.trimmed().isEmpty(); }),
                 cities.end());
    cities.removeDuplicates();
    std::stable_sort(cities.begin(), cities.end(), QCollator());
    return cities;
}

}  // namespace

CLmCitySelectWidget::CLmCitySelectWidget(QWidget* parent)
    : CLmPopupWidget(parent)
{
    setObjectName(QStringLiteral("CLmCitySelectWidget"));
    setStyleSheet(styleSheet() + QString::fromLatin1(kCityStyle));
    setFixedWidth(kCardWidth);
    BuildContent();
    SetCities({});
}

QString CLmCitySelectWidget::AllCitiesText()
{
    return tr("all");
}

void CLmCitySelectWidget::BuildContent()
{
    m_pEditCitySearch = new QLineEdit(this);
    m_pEditCitySearch->setObjectName(QStringLiteral("m_pEditCitySearch"));
    m_pEditCitySearch->setPlaceholderText(tr("Search city"));
    m_pEditCitySearch->setClearButtonEnabled(true);
    connect(m_pEditCitySearch, &QLineEdit::textChanged, this, &CLmCitySelectWidget::ApplyFilter);
    m_pEditCitySearch->installEventFilter(this);

    m_pListCities = new QListWidget(this);
    m_pListCities->setObjectName(QStringLiteral("m_pListCities"));
    m_pListCities->setFocusPolicy(Qt::NoFocus);
    m_pListCities->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(m_pListCities, &QListWidget::itemClicked, this, &CLmCitySelectWidget::Choose);

    m_pLabelNoCity = new QLabel(tr("No matching city"), this);
    m_pLabelNoCity->setObjectName(QStringLiteral("m_pLabelNoCity"));
    m_pLabelNoCity->setAlignment(Qt::AlignCenter);

    m_pStackCityList = new QStackedWidget(this);
    m_pStackCityList->setObjectName(QStringLiteral("m_pStackCityList"));
    m_pStackCityList->addWidget(m_pListCities);
    m_pStackCityList->addWidget(m_pLabelNoCity);

    QVBoxLayout* layout = CreateCardLayout();
    layout->addWidget(m_pEditCitySearch);
    layout->addWidget(m_pStackCityList);
}

void CLmCitySelectWidget::SetCities(const QStringList& cities)
{
    m_pListCities->clear();
    m_pListCities->addItem(AllCitiesText());
    m_pListCities->addItems(DisplayOrder(cities));
    FitListHeight();
    ApplyFilter(m_pEditCitySearch->text());
}

// Sized once per city list, not per filter, so the card keeps still while
// the user types.
void CLmCitySelectWidget::FitListHeight()
{
    const int rows = qMin(m_pListCities->count(), kMaxVisibleRows);
    m_pListCities->setFixedHeight(rows * m_pListCities->sizeHintForRow(0) + 2 * m_pListCities->frameWidth());
}

// While the user searches for a city the "all" row is hidden, so that Enter
// takes the first city found.
void CLmCitySelectWidget::ApplyFilter(const QString& strFilter)
{
    const QString needle = strFilter.trimmed();
    m_pListCities->setRowHidden(0, !needle.isEmpty());
    for (int row = 1; row < m_pListCities->count(); ++row)
        m_pListCities->setRowHidden(row, !m_pListCities->item(row)->text().contains(needle, Qt::CaseInsensitive));
    HighlightFirstVisibleRow();
}

void CLmCitySelectWidget::HighlightFirstVisibleRow()
{
    for (int row = 0; row < m_pListCities->count(); ++row) {
        if (!m_pListCities->isRowHidden(row)) {
            m_pListCities->setCurrentRow(row);
            m_pListCities->scrollToItem(m_pListCities->item(row));
            m_pStackCityList->setCurrentWidget(m_pListCities);
            return;
        }
    }
    m_pListCities->setCurrentRow(-1);
    m_pStackCityList->setCurrentWidget(m_pLabelNoCity);
}

void CLmCitySelectWidget::Choose(const QListWidgetItem* item)
{
    const QString strCityName = item->text();
    emit CitySelected(strCityName);
    close();
}

void CLmCitySelectWidget::showEvent(QShowEvent* event)
{
    CLmPopupWidget::showEvent(event);
    m_pEditCitySearch->clear();
    HighlightFirstVisibleRow();
    m_pEditCitySearch->setFocus(Qt::PopupFocusReason);
}

// The search line keeps the focus: arrow keys move the highlight in the list
// and Enter chooses the highlighted row.
bool CLmCitySelectWidget::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_pEditCitySearch || event->type() != QEvent::KeyPress)
        return CLmPopupWidget::eventFilter(watched, event);
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        QCoreApplication::sendEvent(m_pListCities, event);
        return true;
    case Qt::Key_Enter:
    case Qt::Key_Return:
        ChooseHighlightedRow();
        return true;
    default:
        return false;
    }
}

void CLmCitySelectWidget::ChooseHighlightedRow()
{
    if (const QListWidgetItem* item = m_pListCities->currentItem())
        Choose(item);
}
