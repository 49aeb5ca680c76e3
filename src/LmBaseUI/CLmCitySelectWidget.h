#pragma once

#include "CLmPopupWidget.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QStackedWidget;

// City filter popup: an "all" row above the given city names, narrowed by a
// search line. A click, or Enter on the highlighted row, chooses and closes.
// Focus stays in the search line; arrow keys move the highlight.
class CLmCitySelectWidget : public CLmPopupWidget
{
    Q_OBJECT

public:
    explicit CLmCitySelectWidget(QWidget* parent = nullptr);

    // Text of the first row, sent by CitySelected when every city is chosen.
    static QString AllCitiesText();

    // Lists the names sorted for the user's language, without duplicates and
    // empty names.
    void SetCities(const QStringList& cities);

signals:
    void CitySelected(const QString& strCityName);

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildContent();
    void ApplyFilter(const QString& strFilter);
    void HighlightFirstVisibleRow();
    void FitListHeight();
    void ChooseHighlightedRow();
    void Choose(const QListWidgetItem* item);

    QLineEdit* m_pEditCitySearch = nullptr;
    QStackedWidget* m_pStackCityList = nullptr;
    QListWidget* m_pListCities = nullptr;
    QLabel* m_pLabelNoCity = nullptr;
};
