#include "SimStatusReports.h"

#include "SimText.h"

#include <QStringList>

#include <algorithm>
#include <cstring>
#include <iterator>

using namespace LmMavlink;

namespace {

constexpr int FIXED_WING_CELLS = 6;
constexpr int MULTIROTOR_CELLS = 12; // more than BATTERY_STATUS.voltages holds: the rest go to voltages_ext
constexpr int FIXED_WING_BATTERIES = 1;
constexpr int MULTIROTOR_BATTERIES = 2;
constexpr int32_t FIXED_WING_CAPACITY_MAH = 16000;
constexpr int32_t MULTIROTOR_CAPACITY_MAH = 22000;
constexpr int8_t REMAINING_PERCENT = 87;
constexpr uint16_t UNUSED_CELL = UINT16_MAX;
constexpr int CODES_PER_WORD = 32;
constexpr int CALIBRATION_REPORTS = 2;

constexpr uint32_t HEALTHY_SENSORS = MAV_SYS_STATUS_SENSOR_3D_GYRO | MAV_SYS_STATUS_SENSOR_3D_ACCEL
    | MAV_SYS_STATUS_SENSOR_3D_MAG | MAV_SYS_STATUS_SENSOR_ABSOLUTE_PRESSURE | MAV_SYS_STATUS_SENSOR_GPS
    | MAV_SYS_STATUS_SENSOR_BATTERY;

} // namespace

SimStatusReports::SimStatusReports(const SimOptions& options)
    : m_options(options)
{
}

uint32_t SimStatusReports::statusMessageId() const
{
    return isFixedWing() ? MSG_ID_SKY_FIXWING_STATUS : MSG_ID_SKY_MULTIROTOR_STATUS;
}

int SimStatusReports::batteryCount() const
{
    if (m_options.batteryCount > 0)
        return m_options.batteryCount;
    return isFixedWing() ? FIXED_WING_BATTERIES : MULTIROTOR_BATTERIES;
}

bool SimStatusReports::isBatteryPresent(int index) const
{
    return !m_options.missingBatteries.contains(index);
}

int SimStatusReports::cellCount(int battery) const
{
    const QVector<int>& cells = m_options.cellsPerBattery;
    if (cells.isEmpty())
        return isFixedWing() ? FIXED_WING_CELLS : MULTIROTOR_CELLS;
    return cells.value(battery, cells.last());
}

uint16_t SimStatusReports::cellVoltage(int battery, int cell) const
{
    for (const SimLowCell& low : m_options.lowCells) {
        if (low.battery == battery && low.cell == cell)
            return low.milliVolts;
    }
    return static_cast<uint16_t>(4150 - battery * 7 - cell * 2);
}

uint32_t SimStatusReports::batteryVoltage(int index) const
{
    uint32_t total = 0;
    for (int cell = 0; cell < cellCount(index); ++cell)
        total += cellVoltage(index, cell);
    return total;
}

int32_t SimStatusReports::ratedCapacity() const
{
    return isFixedWing() ? FIXED_WING_CAPACITY_MAH : MULTIROTOR_CAPACITY_MAH;
}

QByteArray SimStatusReports::serialNumber() const
{
    return (isFixedWing() ? QByteArrayLiteral("SKF") : QByteArrayLiteral("SKM"))
        + QByteArray::number(240000 + m_options.systemId);
}

SHeartbeat SimStatusReports::heartbeat() const
{
    SHeartbeat message;
    message.type = isFixedWing() ? MAV_TYPE_FIXED_WING : MAV_TYPE_QUADROTOR;
    message.autopilot = MAV_AUTOPILOT_GENERIC;
    message.base_mode = MAV_MODE_FLAG_CUSTOM_MODE_ENABLED | MAV_MODE_FLAG_STABILIZE_ENABLED;
    message.system_status = MAV_STATE_STANDBY;
    if (m_options.armed) {
        message.base_mode |= MAV_MODE_FLAG_SAFETY_ARMED;
        message.system_status = MAV_STATE_ACTIVE;
    }
    return message;
}

SSysStatus SimStatusReports::sysStatus() const
{
    SSysStatus message;
    message.onboard_control_sensors_present = HEALTHY_SENSORS;
    message.onboard_control_sensors_enabled = HEALTHY_SENSORS;
    message.onboard_control_sensors_health = HEALTHY_SENSORS;
    message.load = 350;
    message.voltage_battery = static_cast<uint16_t>(std::min<uint32_t>(batteryVoltage(0), UINT16_MAX - 1));
    message.current_battery = 120; // 1.2 A in standby
    message.battery_remaining = REMAINING_PERCENT;
    return message;
}

uint32_t SimStatusReports::packedFirmwareVersion(const QString& text)
{
    const QStringList parts = text.split(QLatin1Char('.'));
    uint32_t packed = 0;
    for (int i = 0; i < 3; ++i)
        packed = (packed << 8) | (i < parts.size() ? (parts.at(i).toUInt() & 0xFFu) : 0u);
    return (packed << 8) | FIRMWARE_VERSION_TYPE_OFFICIAL;
}

SAutopilotVersion SimStatusReports::autopilotVersion() const
{
    SAutopilotVersion message;
    message.capabilities = MAV_PROTOCOL_CAPABILITY_MAVLINK2 | MAV_PROTOCOL_CAPABILITY_PARAM_FLOAT
        | MAV_PROTOCOL_CAPABILITY_COMMAND_INT | MAV_PROTOCOL_CAPABILITY_MISSION_INT;
    message.flight_sw_version = packedFirmwareVersion(m_options.firmware);
    message.board_version = isFixedWing() ? 0x0301 : 0x0402;
    std::memcpy(message.flight_custom_version, "5ky51m00", sizeof message.flight_custom_version);
    message.vendor_id = 0x2DAE;
    message.product_id = isFixedWing() ? 0x1011 : 0x1021;
    message.uid = 0x534B590000000000ull | m_options.systemId;
    return message;
}

SSkyPlaneInfo SimStatusReports::planeInfo() const
{
    SSkyPlaneInfo message;
    message.plane_kind = isFixedWing() ? SKY_PLANE_KIND_FIXWING : SKY_PLANE_KIND_MULTIROTOR;
    setFieldText(message.model, isFixedWing() ? QByteArrayLiteral("Skysim FW-1") : QByteArrayLiteral("Skysim MR-4"));
    setFieldText(message.firmware, (isFixedWing() ? QByteArrayLiteral("FW_") : QByteArrayLiteral("MR_"))
                                  + m_options.firmware.toLatin1());
    setFieldText(message.serial_number, serialNumber());
    return message;
}

SSkyFixwingStatus SimStatusReports::fixwingStatus(uint32_t parachuteOpenCount) const
{
    SSkyFixwingStatus message;
    setFieldText(message.serial_number, serialNumber());
    setFieldText(message.firmware_version, m_options.firmware.toLatin1());
    setFieldText(message.hardware_version, QByteArrayLiteral("HW-3.1"));
    message.total_flight_time = 523800;
    message.boot_count = 412;
    message.flight_mileage = 8123.5f;
    message.motor_start_count = 380;
    message.parachute_open_count = parachuteOpenCount;
    message.sortie_count = 356;
    message.servo_action_count = 1284032;
    message.last_flight_time = 3120;
    message.max_altitude = 1205.5f;
    return message;
}

SSkyFixwingBattery SimStatusReports::fixwingBattery() const
{
    SSkyFixwingBattery message;
    message.remaining = REMAINING_PERCENT;
    message.capacity = static_cast<uint16_t>(FIXED_WING_CAPACITY_MAH * REMAINING_PERCENT / 100);
    message.voltage = static_cast<uint16_t>(batteryVoltage(0));
    return message;
}

SSkyMultirotorStatus SimStatusReports::multirotorStatus() const
{
    SSkyMultirotorStatus message;
    message.flight_mileage = 1234.5f;
    message.sortie_count = 842;
    setFieldText(message.serial_number, serialNumber());
    setFieldText(message.firmware_version, m_options.firmware.toLatin1());
    message.total_flight_time = 301560;
    message.boot_count = 977;
    setFieldText(message.gps_version, QByteArrayLiteral("GPS-1.3.0"));
    setFieldText(message.bms_version, QByteArrayLiteral("BMS-2.0.7"));
    setFieldText(message.magnetometer1_version, QByteArrayLiteral("MAG-1.1.0"));
    setFieldText(message.magnetometer2_version, QByteArrayLiteral("MAG-1.1.2"));
    setFieldText(message.gimbal_version, QByteArrayLiteral("GMB-3.2.1"));
    setFieldText(message.esc1_version, QByteArrayLiteral("ESC-1.0.9"));
    setFieldText(message.esc2_version, QByteArrayLiteral("ESC-1.0.9"));
    setFieldText(message.esc3_version, QByteArrayLiteral("ESC-1.0.9"));
    setFieldText(message.esc4_version, QByteArrayLiteral("ESC-1.0.9"));
    setFieldText(message.ultrasonic_version, QByteArrayLiteral("ULS-1.0.2"));
    setFieldText(message.vision_version, QByteArrayLiteral("VIS-2.1.0"));
    setFieldText(message.cpld_version, QByteArrayLiteral("CPLD-1.4"));
    setFieldText(message.fpga_version, QByteArrayLiteral("FPGA-2.2"));
    message.battery_version = 0x0203;
    return message;
}

QVector<SSkyCalibrationFailureCode> SimStatusReports::calibrationReports(const QSet<int>& failureCodes)
{
    QVector<SSkyCalibrationFailureCode> reports(CALIBRATION_REPORTS);
    for (int number = 0; number < CALIBRATION_REPORTS; ++number)
        reports[number].code_num = static_cast<uint8_t>(number);
    for (int code : failureCodes) {
        const int report = code / (2 * CODES_PER_WORD);
        if (code < 0 || report >= CALIBRATION_REPORTS)
            continue;
        const int bit = code % CODES_PER_WORD;
        uint32_t& word = (code / CODES_PER_WORD) % 2 == 0 ? reports[report].code0 : reports[report].code1;
        word |= uint32_t(1) << bit;
    }
    return reports;
}

SBatteryStatus SimStatusReports::batteryStatus(int index) const
{
    SBatteryStatus message;
    message.id = static_cast<uint8_t>(index);
    message.battery_function = MAV_BATTERY_FUNCTION_ALL;
    message.type = MAV_BATTERY_TYPE_LIPO;
    message.temperature = static_cast<int16_t>(2567 + index * 50); // centi-degrees
    const int cells = cellCount(index);
    const int mainCells = static_cast<int>(std::size(message.voltages));
    for (int cell = 0; cell < mainCells; ++cell)
        message.voltages[cell] = cell < cells ? cellVoltage(index, cell) : UNUSED_CELL;
    for (int cell = mainCells; cell < cells; ++cell)
        message.voltages_ext[cell - mainCells] = cellVoltage(index, cell);
    message.current_battery = 120;
    message.current_consumed = 2080;
    message.energy_consumed = -1;
    message.battery_remaining = REMAINING_PERCENT;
    message.charge_state = MAV_BATTERY_CHARGE_STATE_OK;
    return message;
}

SSmartBatteryInfo SimStatusReports::smartBatteryInfo(int index) const
{
    SSmartBatteryInfo message;
    message.id = static_cast<uint8_t>(index);
    message.battery_function = MAV_BATTERY_FUNCTION_ALL;
    message.type = MAV_BATTERY_TYPE_LIPO;
    message.capacity_full_specification = ratedCapacity();
    message.capacity_full = ratedCapacity() * (95 - index * 3) / 100;
    message.cycle_count = static_cast<uint16_t>(87 + index * 13);
    setFieldText(message.serial_number, QByteArrayLiteral("BAT") + serialNumber().mid(3) + QByteArray::number(index + 1));
    setFieldText(message.device_name, QByteArray::number(cellCount(index)) + "S " + QByteArray::number(ratedCapacity())
                                     + " mAh smart battery");
    message.cells_in_series = static_cast<uint8_t>(cellCount(index));
    message.discharge_minimum_voltage = 3300;
    message.charging_minimum_voltage = 3000;
    message.resting_minimum_voltage = 3500;
    message.charging_maximum_voltage = 4350;
    message.discharge_maximum_current = 120000;
    message.discharge_maximum_burst_current = 180000;
    setFieldText(message.manufacture_date, QByteArrayLiteral("12/03/2023"));
    return message;
}
