#include "SimParameters.h"

#include "LmMavlinkEnums.h"

#include <cmath>

using namespace LmMavlink;

namespace {

QVector<SimParameters::SParameter> commonParameters(uint8_t systemId)
{
    return {
        {QStringLiteral("SYSID_THISMAV"), float(systemId), MAV_PARAM_TYPE_UINT8},
        {QStringLiteral("GCS_TIMEOUT"), 60.0f, MAV_PARAM_TYPE_UINT16},
        {QStringLiteral("FS_GCS_ENABLE"), 1.0f, MAV_PARAM_TYPE_UINT8},
        {QStringLiteral("LOG_BITMASK"), 65535.0f, MAV_PARAM_TYPE_UINT32},
    };
}

QVector<SimParameters::SParameter> fixedWingParameters()
{
    return {
        {QStringLiteral("BATT_CAPACITY"), 16000.0f, MAV_PARAM_TYPE_UINT32},
        {QStringLiteral("BATT_LOW_VOLT"), 21.6f, MAV_PARAM_TYPE_REAL32},
        {QStringLiteral("ARSPD_FBW_MIN"), 14.0f, MAV_PARAM_TYPE_REAL32},
        {QStringLiteral("ARSPD_FBW_MAX"), 28.0f, MAV_PARAM_TYPE_REAL32},
        {QStringLiteral("RTL_ALTITUDE"), 150.0f, MAV_PARAM_TYPE_REAL32},
        {QStringLiteral("CHUTE_ALT_MIN"), 60.0f, MAV_PARAM_TYPE_UINT16},
    };
}

QVector<SimParameters::SParameter> multirotorParameters()
{
    return {
        {QStringLiteral("BATT_CAPACITY"), 22000.0f, MAV_PARAM_TYPE_UINT32},
        {QStringLiteral("BATT_LOW_CAP"), 30.0f, MAV_PARAM_TYPE_UINT8},
        {QStringLiteral("BATT_CRT_CAP"), 15.0f, MAV_PARAM_TYPE_UINT8},
        {QStringLiteral("BATT_DISCHG_DAY"), 10.0f, MAV_PARAM_TYPE_UINT8},
        {QStringLiteral("RTL_ALT"), 60.0f, MAV_PARAM_TYPE_REAL32},
        {QStringLiteral("WPNAV_SPEED"), 10.0f, MAV_PARAM_TYPE_REAL32},
    };
}

bool isInteger(uint8_t type)
{
    return type != MAV_PARAM_TYPE_REAL32 && type != MAV_PARAM_TYPE_REAL64;
}

} // namespace

SimParameters::SimParameters(SimAirframe airframe, uint8_t systemId)
    : m_parameters(commonParameters(systemId))
{
    m_parameters += airframe == SimAirframe::FixedWing ? fixedWingParameters() : multirotorParameters();
}

int SimParameters::indexOf(const QString& name) const
{
    for (int index = 0; index < m_parameters.size(); ++index) {
        if (m_parameters.at(index).name == name)
            return index;
    }
    return -1;
}

bool SimParameters::set(const QString& name, float value)
{
    const int index = indexOf(name);
    if (index < 0)
        return false;
    SParameter& parameter = m_parameters[index];
    parameter.value = isInteger(parameter.type) ? std::round(value) : value;
    return true;
}
