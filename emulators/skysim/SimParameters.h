#pragma once

#include "SimOptions.h"

#include <QString>
#include <QVector>

#include <cstdint>

// The aircraft's parameter table: an autopilot's own few hundred, filled up
// with placeholders to a wanted size. Types are unsigned integers and
// REAL32. Values travel as floats; integer parameters hold whole numbers in
// that float (a plain cast, not a byte copy). Changes live as long as the
// process.
class SimParameters
{
public:
    struct SParameter {
        QString name;
        float value;
        uint8_t type; // MAV_PARAM_TYPE
    };

    SimParameters(SimAirframe airframe, uint8_t systemId, int minimumCount = 0);

    int count() const { return m_parameters.size(); }
    const SParameter& at(int index) const { return m_parameters.at(index); }
    // -1 when no parameter has that name.
    int indexOf(const QString& name) const;
    // Stores the value, rounded for integer parameters; false for an unknown name.
    bool set(const QString& name, float value);

private:
    QVector<SParameter> m_parameters;
};
