#include "CLmProjFilter.h"


namespace {

constexpr int DayTextLength = 10;  // "yyyy-MM-dd"

bool IsOneOf(const QString& text, const QStringList& words)
{
    for (const QString& word : words) {
        if (text.compare(word, Qt::CaseInsensitive) == 0)
            return true;
    }
    return false;
}

}  // namespace

void CLmProjFilter::SetName(const QString& fragment)
{
    m_strName = fragment.trimmed();
}

void CLmProjFilter::SetCity(const QString& city)
{
    m_strCity = city.trimmed();
    m_bAnyCity = MeansAnyCity(m_strCity);
}

void CLmProjFilter::SetDateRange(const QString& rangeText)
{
    m_strDateRange = rangeText.trimmed();
    m_dateFrom = QDate();
    m_dateTo = QDate();
    if (MeansAnyDate(m_strDateRange))
        return;
    const QStringList ends = m_strDateRange.split(QStringLiteral(" to "));
    if (ends.size() != 2)
        return;
    const QDate first = QDate::fromString(ends.at(0).trimmed(), Qt::ISODate);
    const QDate second = QDate::fromString(ends.at(1).trimmed(), Qt::ISODate);
    if (!first.isValid() || !second.isValid())
        return;
    m_dateFrom = std::min(first, second);
    m_dateTo = std::max(first, second);
}

QString CLmProjFilter::Name() const
{
    return m_strName;
}

QString CLmProjFilter::City() const
{
    return m_strCity;
}

QString CLmProjFilter::DateRange() const
{
    return m_strDateRange;
}

QDate CLmProjFilter::From() const
{
    return m_dateFrom;
}

QDate CLmProjFilter::To() const
{
    return m_dateTo;
}

bool CLmProjFilter::IsEmpty() const
{
    return m_strName.isEmpty() && m_bAnyCity && !m_dateFrom.isValid();
}

// Read by hand: rows are added by the thousand and QDate::fromString
// would copy every text first.
QDate CLmProjFilter::DayOf(const QString& updateTime)
{
    if (updateTime.size() < DayTextLength || updateTime.at(4) != QLatin1Char('-') || updateTime.at(7) != QLatin1Char('-'))
        return QDate();
    const auto number = [&updateTime](int from, int length) {
        int value = 0;
        for (int i = from; i < from + length; ++i) {
            const int digit = updateTime.at(i).digitValue();
            if (digit < 0)
                return -1;
            value = value * 10 + digit;
        }
        return value;
    };
    const int year = number(0, 4);
    const int month = number(5, 2);
    const int day = number(8, 2);
    return year < 0 || month < 0 || day < 0 ? QDate() : QDate(year, month, day);
}

bool CLmProjFilter::Accepts(const QString& name, const QStringList& cities, const QDate& updateDay) const
{
    if (!m_strName.isEmpty() && !name.contains(m_strName, Qt::CaseInsensitive))
        return false;
    if (!m_bAnyCity && !cities.contains(m_strCity))
        return false;
    if (m_dateFrom.isValid() && (!updateDay.isValid() || updateDay < m_dateFrom || updateDay > m_dateTo))
        return false;
    return true;
}

bool CLmProjFilter::MeansAnyCity(const QString& city)
{
    return city.isEmpty() || IsOneOf(city, {QStringLiteral("city"), QStringLiteral("all"), tr("City"), tr("all")});
}

bool CLmProjFilter::MeansAnyDate(const QString& rangeText)
{
    return rangeText.isEmpty() || IsOneOf(rangeText, {QStringLiteral("date"), tr("Date")});
}
