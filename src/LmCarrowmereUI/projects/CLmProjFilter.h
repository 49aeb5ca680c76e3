#pragma once

#include <QCoreApplication>
#include <QDate>
#include <QString>
#include <QStringList>

// Which project rows the project list shows: a name fragment, a city and a
// range of days. Each part is read once when it is set, so one filter can
// be run over many thousands of rows.
//
// - Name: the row's name holds the fragment, upper and lower case alike
//   (people type "quarry" for "Quarry North").
// - City: empty, "City"/"city", "all" or a translation of them means any
//   city; otherwise the row's city list must hold the name exactly as the
//   city picker wrote it.
// - Date: "yyyy-MM-dd to yyyy-MM-dd"; both ends are whole days and belong to
//   the range, so "2026-05-04 to 2026-05-04" keeps everything changed on
//   that day. Ends given in the wrong order are swapped. Empty, "Date"/"date"
//   or a text that does not read as two dates keeps every row.
class CLmProjFilter
{
    Q_DECLARE_TR_FUNCTIONS(CLmProjFilter)

public:
    void SetName(const QString& fragment);
    void SetCity(const QString& city);
    void SetDateRange(const QString& rangeText);

    QString Name() const;
    QString City() const;
    QString DateRange() const;
    // The chosen days, both invalid while any day is accepted.
    QDate From() const;
    QDate To() const;
    // True when no part narrows the list.
    bool IsEmpty() const;

    // The day of an update time in DateTimeSFormat ("yyyy-MM-dd HH:mm:ss"),
    // invalid when the text does not start with a date. Rows keep it, so
    // filtering never parses times.
    static QDate DayOf(const QString& updateTime);

    bool Accepts(const QString& name, const QStringList& cities, const QDate& updateDay) const;

private:
    static bool MeansAnyCity(const QString& city);
    static bool MeansAnyDate(const QString& rangeText);

    QString m_strName;
    QString m_strCity;
    QString m_strDateRange;
    bool m_bAnyCity = true;
    QDate m_dateFrom;
    QDate m_dateTo;
};
