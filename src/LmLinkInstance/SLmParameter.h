#pragma once

#include <QList>
#include <QMetaType>
#include <QString>
#include <QVariant>

// One aircraft parameter as downloaded: its index in the aircraft's table,
// its name and its value, an int for the aircraft's integer types and a
// double for its floating-point ones.
struct SLmParameter {
    int index = -1;
    QString name;
    QVariant value;

    bool IsInteger() const { return value.type() == QVariant::Int; }
    // The type as the settings table shows it: "UInt" or "Double".
    QString TypeName() const { return IsInteger() ? QStringLiteral("UInt") : QStringLiteral("Double"); }
};

Q_DECLARE_METATYPE(SLmParameter)
Q_DECLARE_METATYPE(QList<SLmParameter>)
