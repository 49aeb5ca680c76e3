#pragma once

#include <QByteArray>
#include <QtGlobal>

#ifdef Q_OS_WIN
#include <qt_windows.h>
#include <dbt.h>
using SLmDevBroadcastHdr = DEV_BROADCAST_HDR;
using SLmDevBroadcastVolume = DEV_BROADCAST_VOLUME;
#else
// Same layout as the Windows device-broadcast records, so the decoding reads
// and is tested the same way on every platform.
struct SLmDevBroadcastHdr
{
    quint32 dbch_size;
    quint32 dbch_devicetype;
    quint32 dbch_reserved;
};

struct SLmDevBroadcastVolume
{
    quint32 dbcv_size;
    quint32 dbcv_devicetype;
    quint32 dbcv_reserved;
    quint32 dbcv_unitmask;
    quint16 dbcv_flags;
};
#endif

// Picks the volume arrivals and removals out of the system's device-change
// messages, as delivered to a window's native event handler.
class CLmDeviceChangeFilter
{
public:
    enum EAction { NoAction, DiskArrival, DiskRemoval };

    static constexpr unsigned int DeviceChangeMessage = 0x0219;
    static constexpr quintptr DeviceArrival = 0x8000;
    static constexpr quintptr DeviceRemoveComplete = 0x8004;
    static constexpr quint32 VolumeDeviceType = 2;

    // lParam points to a device-broadcast header. On DiskArrival or DiskRemoval the
    // volume's drive-letter mask (bit 0 = A:) is stored in *driveMask.
    static EAction Decode(unsigned int message, quintptr wParam, const void* lParam, unsigned long* driveMask);

    // Decode() for the arguments of QWidget::nativeEvent(); always NoAction outside Windows.
    static EAction DecodeNative(const QByteArray& eventType, void* message, unsigned long* driveMask);

private:
    static EAction ActionForEvent(quintptr eventCode);
};
