#include "SimParameters.h"

#include "LmMavlinkEnums.h"

#include <cmath>

using namespace LmMavlink;

namespace {

using SParameter = SimParameters::SParameter;

constexpr int SERVO_CHANNELS = 16;
constexpr int RC_CHANNELS = 16;
constexpr int SERIAL_PORTS = 6;
constexpr int FLIGHT_MODES = 6;
constexpr int IMUS = 3;
constexpr int TELEMETRY_PORTS = 3;

SParameter whole(const QString& name, float value, uint8_t type = MAV_PARAM_TYPE_UINT16)
{
    return {name, value, type};
}

SParameter real(const QString& name, float value)
{
    return {name, value, MAV_PARAM_TYPE_REAL32};
}

QVector<SParameter> commonParameters(uint8_t systemId)
{
    return {
        whole(QStringLiteral("SYSID_THISMAV"), float(systemId), MAV_PARAM_TYPE_UINT8),
        whole(QStringLiteral("SYSID_MYGCS"), 255.0f, MAV_PARAM_TYPE_UINT8),
        whole(QStringLiteral("GCS_TIMEOUT"), 60.0f),
        whole(QStringLiteral("FS_GCS_ENABLE"), 1.0f, MAV_PARAM_TYPE_UINT8),
        whole(QStringLiteral("LOG_BITMASK"), 65535.0f, MAV_PARAM_TYPE_UINT32),
        whole(QStringLiteral("LOG_BACKEND_TYPE"), 1.0f, MAV_PARAM_TYPE_UINT8),
        whole(QStringLiteral("LOG_FILE_BUFSIZE"), 16.0f),
        whole(QStringLiteral("LOG_DISARMED"), 0.0f, MAV_PARAM_TYPE_UINT8),
        whole(QStringLiteral("BRD_SAFETYENABLE"), 1.0f, MAV_PARAM_TYPE_UINT8),
        whole(QStringLiteral("BRD_SERIAL_NUM"), 240001.0f, MAV_PARAM_TYPE_UINT32),
        whole(QStringLiteral("ARMING_CHECK"), 1.0f, MAV_PARAM_TYPE_UINT32),
        whole(QStringLiteral("ARMING_REQUIRE"), 1.0f, MAV_PARAM_TYPE_UINT8),
        real(QStringLiteral("ARMING_ACCTHRESH"), 0.75f),
        whole(QStringLiteral("FENCE_ENABLE"), 1.0f, MAV_PARAM_TYPE_UINT8),
        whole(QStringLiteral("FENCE_TYPE"), 7.0f, MAV_PARAM_TYPE_UINT8),
        whole(QStringLiteral("FENCE_ACTION"), 1.0f, MAV_PARAM_TYPE_UINT8),
        real(QStringLiteral("FENCE_ALT_MAX"), 500.0f),
        real(QStringLiteral("FENCE_RADIUS"), 5000.0f),
        real(QStringLiteral("FENCE_MARGIN"), 20.0f),
        whole(QStringLiteral("GPS_TYPE"), 1.0f, MAV_PARAM_TYPE_UINT8),
        whole(QStringLiteral("GPS_TYPE2"), 0.0f, MAV_PARAM_TYPE_UINT8),
        whole(QStringLiteral("GPS_RATE_MS"), 200.0f),
        whole(QStringLiteral("GPS_GNSS_MODE"), 0.0f, MAV_PARAM_TYPE_UINT8),
        whole(QStringLiteral("GPS_MIN_ELEV"), 10.0f, MAV_PARAM_TYPE_UINT8),
        real(QStringLiteral("GPS_POS1_X"), 0.05f),
        real(QStringLiteral("GPS_POS1_Y"), 0.0f),
        real(QStringLiteral("GPS_POS1_Z"), -0.12f),
        whole(QStringLiteral("AHRS_EKF_TYPE"), 3.0f, MAV_PARAM_TYPE_UINT8),
        real(QStringLiteral("AHRS_GPS_GAIN"), 1.0f),
        real(QStringLiteral("AHRS_RP_P"), 0.2f),
        real(QStringLiteral("AHRS_YAW_P"), 0.2f),
        real(QStringLiteral("AHRS_TRIM_X"), 0.0f),
        real(QStringLiteral("AHRS_TRIM_Y"), 0.0f),
        whole(QStringLiteral("AHRS_ORIENTATION"), 0.0f, MAV_PARAM_TYPE_UINT8),
        whole(QStringLiteral("EK3_ENABLE"), 1.0f, MAV_PARAM_TYPE_UINT8),
        real(QStringLiteral("EK3_VELNE_M_NSE"), 0.3f),
        real(QStringLiteral("EK3_VELD_M_NSE"), 0.5f),
        real(QStringLiteral("EK3_POSNE_M_NSE"), 0.5f),
        real(QStringLiteral("EK3_ALT_M_NSE"), 2.0f),
        real(QStringLiteral("EK3_MAG_M_NSE"), 0.05f),
        real(QStringLiteral("EK3_GYRO_P_NSE"), 0.015f),
        real(QStringLiteral("EK3_ACC_P_NSE"), 0.35f),
        whole(QStringLiteral("EK3_GPS_CHECK"), 31.0f, MAV_PARAM_TYPE_UINT8),
        whole(QStringLiteral("EK3_IMU_MASK"), 3.0f, MAV_PARAM_TYPE_UINT8),
        whole(QStringLiteral("COMPASS_ENABLE"), 1.0f, MAV_PARAM_TYPE_UINT8),
        whole(QStringLiteral("COMPASS_AUTODEC"), 1.0f, MAV_PARAM_TYPE_UINT8),
        real(QStringLiteral("COMPASS_DEC"), 0.061f),
        whole(QStringLiteral("COMPASS_USE"), 1.0f, MAV_PARAM_TYPE_UINT8),
        whole(QStringLiteral("COMPASS_USE2"), 1.0f, MAV_PARAM_TYPE_UINT8),
        whole(QStringLiteral("COMPASS_USE3"), 0.0f, MAV_PARAM_TYPE_UINT8),
        whole(QStringLiteral("BATT_MONITOR"), 4.0f, MAV_PARAM_TYPE_UINT8),
        real(QStringLiteral("BATT_VOLT_MULT"), 10.1f),
        real(QStringLiteral("BATT_AMP_PERVLT"), 17.0f),
        real(QStringLiteral("BATT_AMP_OFFSET"), 0.0f),
        whole(QStringLiteral("BATT_FS_LOW_ACT"), 2.0f, MAV_PARAM_TYPE_UINT8),
        whole(QStringLiteral("BATT_FS_CRT_ACT"), 1.0f, MAV_PARAM_TYPE_UINT8),
        real(QStringLiteral("BATT_ARM_VOLT"), 22.2f),
        whole(QStringLiteral("TERRAIN_ENABLE"), 1.0f, MAV_PARAM_TYPE_UINT8),
        whole(QStringLiteral("TERRAIN_SPACING"), 100.0f),
        real(QStringLiteral("SCHED_LOOP_RATE"), 400.0f),
        whole(QStringLiteral("CAM_TRIGG_TYPE"), 1.0f, MAV_PARAM_TYPE_UINT8),
        real(QStringLiteral("CAM_DURATION"), 0.1f),
        whole(QStringLiteral("CAM_SERVO_ON"), 1900.0f),
        whole(QStringLiteral("CAM_SERVO_OFF"), 1100.0f),
        real(QStringLiteral("CAM_TRIGG_DIST"), 0.0f),
        whole(QStringLiteral("CAM_FEEDBACK_PIN"), 0.0f, MAV_PARAM_TYPE_UINT8),
        whole(QStringLiteral("RTK_INJECT"), 1.0f, MAV_PARAM_TYPE_UINT8),
        whole(QStringLiteral("RTK_TIMEOUT"), 10.0f),
    };
}

QVector<SParameter> fixedWingParameters()
{
    return {
        whole(QStringLiteral("BATT_CAPACITY"), 16000.0f, MAV_PARAM_TYPE_UINT32),
        real(QStringLiteral("BATT_LOW_VOLT"), 21.6f),
        real(QStringLiteral("BATT_CRT_VOLT"), 20.4f),
        real(QStringLiteral("ARSPD_FBW_MIN"), 14.0f),
        real(QStringLiteral("ARSPD_FBW_MAX"), 28.0f),
        real(QStringLiteral("ARSPD_RATIO"), 1.9936f),
        whole(QStringLiteral("ARSPD_USE"), 1.0f, MAV_PARAM_TYPE_UINT8),
        real(QStringLiteral("RTL_ALTITUDE"), 150.0f),
        whole(QStringLiteral("CHUTE_ALT_MIN"), 60.0f),
        whole(QStringLiteral("CHUTE_ENABLED"), 1.0f, MAV_PARAM_TYPE_UINT8),
        whole(QStringLiteral("CHUTE_SERVO_ON"), 1300.0f),
        whole(QStringLiteral("CHUTE_SERVO_OFF"), 1100.0f),
        whole(QStringLiteral("CHUTE_DELAY_MS"), 500.0f),
        real(QStringLiteral("CHUTE_CRT_SINK"), 0.0f),
        whole(QStringLiteral("TRIM_ARSPD_CM"), 2000.0f, MAV_PARAM_TYPE_UINT32),
        whole(QStringLiteral("TRIM_THROTTLE"), 45.0f, MAV_PARAM_TYPE_UINT8),
        whole(QStringLiteral("THR_MAX"), 100.0f, MAV_PARAM_TYPE_UINT8),
        whole(QStringLiteral("THR_MIN"), 0.0f, MAV_PARAM_TYPE_UINT8),
        whole(QStringLiteral("LIM_ROLL_CD"), 4500.0f),
        whole(QStringLiteral("LIM_PITCH_MAX"), 2000.0f),
        whole(QStringLiteral("LIM_PITCH_MIN"), 2500.0f),
        real(QStringLiteral("NAVL1_PERIOD"), 17.0f),
        real(QStringLiteral("NAVL1_DAMPING"), 0.75f),
        real(QStringLiteral("TECS_CLMB_MAX"), 5.0f),
        real(QStringLiteral("TECS_SINK_MIN"), 2.0f),
        real(QStringLiteral("TECS_SINK_MAX"), 5.0f),
        real(QStringLiteral("TECS_TIME_CONST"), 5.0f),
        real(QStringLiteral("TECS_SPDWEIGHT"), 1.0f),
        real(QStringLiteral("RLL2SRV_TCONST"), 0.5f),
        real(QStringLiteral("RLL_RATE_P"), 0.08f),
        real(QStringLiteral("RLL_RATE_I"), 0.15f),
        real(QStringLiteral("RLL_RATE_D"), 0.004f),
        real(QStringLiteral("PTCH2SRV_TCONST"), 0.5f),
        real(QStringLiteral("PTCH_RATE_P"), 0.12f),
        real(QStringLiteral("PTCH_RATE_I"), 0.15f),
        real(QStringLiteral("PTCH_RATE_D"), 0.004f),
        real(QStringLiteral("YAW2SRV_DAMP"), 0.0f),
        real(QStringLiteral("LAND_FLARE_ALT"), 3.0f),
        real(QStringLiteral("LAND_FLARE_SEC"), 2.0f),
        real(QStringLiteral("WP_RADIUS"), 90.0f),
        real(QStringLiteral("WP_LOITER_RAD"), 120.0f),
        whole(QStringLiteral("STALL_PREVENTION"), 1.0f, MAV_PARAM_TYPE_UINT8),
    };
}

QVector<SParameter> multirotorParameters()
{
    return {
        whole(QStringLiteral("BATT_CAPACITY"), 22000.0f, MAV_PARAM_TYPE_UINT32),
        whole(QStringLiteral("BATT_LOW_CAP"), 30.0f, MAV_PARAM_TYPE_UINT8),
        whole(QStringLiteral("BATT_CRT_CAP"), 15.0f, MAV_PARAM_TYPE_UINT8),
        whole(QStringLiteral("BATT_DISCHG_DAY"), 10.0f, MAV_PARAM_TYPE_UINT8),
        real(QStringLiteral("RTL_ALT"), 60.0f),
        real(QStringLiteral("RTL_SPEED"), 8.0f),
        real(QStringLiteral("RTL_LOIT_TIME"), 5.0f),
        real(QStringLiteral("WPNAV_SPEED"), 10.0f),
        real(QStringLiteral("WPNAV_SPEED_UP"), 3.0f),
        real(QStringLiteral("WPNAV_SPEED_DN"), 2.0f),
        real(QStringLiteral("WPNAV_RADIUS"), 2.0f),
        real(QStringLiteral("WPNAV_ACCEL"), 2.5f),
        real(QStringLiteral("LAND_SPEED"), 0.5f),
        real(QStringLiteral("LAND_SPEED_HIGH"), 1.5f),
        real(QStringLiteral("PILOT_SPEED_UP"), 2.5f),
        real(QStringLiteral("PILOT_SPEED_DN"), 1.5f),
        real(QStringLiteral("ANGLE_MAX"), 30.0f),
        real(QStringLiteral("MOT_SPIN_ARM"), 0.1f),
        real(QStringLiteral("MOT_SPIN_MIN"), 0.15f),
        real(QStringLiteral("MOT_SPIN_MAX"), 0.95f),
        real(QStringLiteral("MOT_THST_EXPO"), 0.65f),
        real(QStringLiteral("MOT_THST_HOVER"), 0.35f),
        whole(QStringLiteral("MOT_PWM_MIN"), 1000.0f),
        whole(QStringLiteral("MOT_PWM_MAX"), 2000.0f),
        whole(QStringLiteral("FRAME_CLASS"), 1.0f, MAV_PARAM_TYPE_UINT8),
        whole(QStringLiteral("FRAME_TYPE"), 1.0f, MAV_PARAM_TYPE_UINT8),
        real(QStringLiteral("ATC_ACCEL_R_MAX"), 110000.0f),
        real(QStringLiteral("ATC_ACCEL_P_MAX"), 110000.0f),
        real(QStringLiteral("ATC_ACCEL_Y_MAX"), 27000.0f),
        real(QStringLiteral("ATC_ANG_RLL_P"), 4.5f),
        real(QStringLiteral("ATC_ANG_PIT_P"), 4.5f),
        real(QStringLiteral("ATC_ANG_YAW_P"), 4.5f),
        real(QStringLiteral("PSC_POSXY_P"), 1.0f),
        real(QStringLiteral("PSC_POSZ_P"), 1.0f),
        real(QStringLiteral("PSC_VELXY_P"), 2.0f),
        real(QStringLiteral("PSC_VELXY_I"), 1.0f),
        real(QStringLiteral("PSC_VELZ_P"), 5.0f),
        real(QStringLiteral("PSC_ACCZ_P"), 0.5f),
        real(QStringLiteral("PSC_ACCZ_I"), 1.0f),
    };
}

// Families of numbered parameters every autopilot carries: outputs, radio
// inputs, serial ports, flight modes, sensor calibrations and rate loops.
QVector<SParameter> numberedParameters()
{
    QVector<SParameter> parameters;
    for (int channel = 1; channel <= SERVO_CHANNELS; ++channel) {
        const QString prefix = QStringLiteral("SERVO%1_").arg(channel);
        parameters << whole(prefix + QStringLiteral("MIN"), 1100.0f) << whole(prefix + QStringLiteral("MAX"), 1900.0f)
                   << whole(prefix + QStringLiteral("TRIM"), 1500.0f)
                   << whole(prefix + QStringLiteral("REVERSED"), 0.0f, MAV_PARAM_TYPE_UINT8)
                   << whole(prefix + QStringLiteral("FUNCTION"), float(channel <= 4 ? 32 + channel : 0));
    }
    for (int channel = 1; channel <= RC_CHANNELS; ++channel) {
        const QString prefix = QStringLiteral("RC%1_").arg(channel);
        parameters << whole(prefix + QStringLiteral("MIN"), 1100.0f) << whole(prefix + QStringLiteral("MAX"), 1900.0f)
                   << whole(prefix + QStringLiteral("TRIM"), 1500.0f)
                   << whole(prefix + QStringLiteral("DZ"), 20.0f, MAV_PARAM_TYPE_UINT8);
    }
    for (int port = 1; port <= SERIAL_PORTS; ++port) {
        const QString prefix = QStringLiteral("SERIAL%1_").arg(port);
        parameters << whole(prefix + QStringLiteral("BAUD"), 57.0f, MAV_PARAM_TYPE_UINT32)
                   << whole(prefix + QStringLiteral("PROTOCOL"), float(port <= 2 ? 2 : 5), MAV_PARAM_TYPE_UINT8);
    }
    for (int mode = 1; mode <= FLIGHT_MODES; ++mode)
        parameters << whole(QStringLiteral("FLTMODE%1").arg(mode), float(mode - 1), MAV_PARAM_TYPE_UINT8);
    for (int port = 0; port < TELEMETRY_PORTS; ++port) {
        for (const char* stream : {"RAW_SENS", "EXT_STAT", "RC_CHAN", "POSITION", "EXTRA1", "EXTRA2", "EXTRA3",
                                   "PARAMS"})
            parameters << whole(QStringLiteral("SR%1_%2").arg(port).arg(QLatin1String(stream)), 2.0f,
                                MAV_PARAM_TYPE_UINT8);
    }
    for (int imu = 1; imu <= IMUS; ++imu) {
        const QString number = imu == 1 ? QString() : QString::number(imu);
        for (const char* axis : {"X", "Y", "Z"}) {
            const QString suffix = QStringLiteral("_%1").arg(QLatin1String(axis));
            parameters << real(QStringLiteral("INS_ACC%1OFFS").arg(number) + suffix, 0.012f * imu)
                       << real(QStringLiteral("INS_ACC%1SCAL").arg(number) + suffix, 1.0f)
                       << real(QStringLiteral("INS_GYR%1OFFS").arg(number) + suffix, -0.003f * imu)
                       << real(QStringLiteral("COMPASS_OFS%1").arg(number) + suffix, 12.5f * imu)
                       << real(QStringLiteral("COMPASS_DIA%1").arg(number) + suffix, 1.0f);
        }
    }
    for (const char* axis : {"RLL", "PIT", "YAW"}) {
        const QString prefix = QStringLiteral("ATC_RAT_%1_").arg(QLatin1String(axis));
        parameters << real(prefix + QStringLiteral("P"), 0.135f) << real(prefix + QStringLiteral("I"), 0.135f)
                   << real(prefix + QStringLiteral("D"), 0.0036f) << real(prefix + QStringLiteral("IMAX"), 0.5f)
                   << real(prefix + QStringLiteral("FF"), 0.0f) << real(prefix + QStringLiteral("FLTD"), 20.0f)
                   << real(prefix + QStringLiteral("FLTT"), 20.0f);
    }
    return parameters;
}

// Placeholder parameters for tables larger than an autopilot's own.
QVector<SParameter> fillParameters(int count)
{
    QVector<SParameter> parameters;
    for (int number = 1; number <= count; ++number) {
        const QString name = QStringLiteral("SIM_FILL_%1").arg(number, 5, 10, QLatin1Char('0'));
        parameters << (number % 2 ? whole(name, float(number), MAV_PARAM_TYPE_UINT32) : real(name, number * 0.5f));
    }
    return parameters;
}

bool isInteger(uint8_t type)
{
    return type != MAV_PARAM_TYPE_REAL32 && type != MAV_PARAM_TYPE_REAL64;
}

} // namespace

SimParameters::SimParameters(SimAirframe airframe, uint8_t systemId, int minimumCount)
    : m_parameters(commonParameters(systemId))
{
    m_parameters += airframe == SimAirframe::FixedWing ? fixedWingParameters() : multirotorParameters();
    m_parameters += numberedParameters();
    m_parameters += fillParameters(minimumCount - m_parameters.size());
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
