#include "CLmDeviceChangeFilter.h"

CLmDeviceChangeFilter::EAction CLmDeviceChangeFilter::Decode(unsigned int message, quintptr wParam,
                                                             const void* lParam, unsigned long* driveMask)
{
    if (message != DeviceChangeMessage || lParam == nullptr)
        return NoAction;
    const EAction action = ActionForEvent(wParam);
    if (action == NoAction)
        return NoAction;
    const auto* header = static_cast<const SLmDevBroadcastHdr*>(lParam);
    if (header->dbch_devicetype != VolumeDeviceType)
        return NoAction;
    // Non-zero flags mark media changes in a drive and network volumes.
    const auto* volume = static_cast<const SLmDevBroadcastVolume*>(lParam);
    if (volume->dbcv_flags != 0)
        return NoAction;
    if (driveMask)
        *driveMask = volume->dbcv_unitmask;
    return action;
}

CLmDeviceChangeFilter::EAction CLmDeviceChangeFilter::DecodeNative(const QByteArray& eventType, void* message,
                                                                   unsigned long* driveMask)
{
#ifdef Q_OS_WIN
    if (eventType != "windows_generic_MSG" || message == nullptr)
        return NoAction;
    const MSG* msg = static_cast<const MSG*>(message);
    return Decode(msg->message, msg->wParam, reinterpret_cast<const void*>(msg->lParam), driveMask);
#else
    Q_UNUSED(eventType)
    Q_UNUSED(message)
    Q_UNUSED(driveMask)
    return NoAction;
#endif
}

CLmDeviceChangeFilter::EAction CLmDeviceChangeFilter::ActionForEvent(quintptr eventCode)
{
    switch (eventCode) {
    case DeviceArrival:
        return DiskArrival;
    case DeviceRemoveComplete:
        return DiskRemoval;
    default:
        return NoAction;
    }
}
