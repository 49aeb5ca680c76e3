#pragma once

#include <QLoggingCategory>

// Logging categories of the link library ("sky.linkinstance.*" covers them all).
// sky.linkinstance.link: the link manager and what every link has in common.
Q_DECLARE_LOGGING_CATEGORY(lcLinkInstanceLink)
// sky.linkinstance.uav: the aircraft, their serial and UDP links and the commands sent to them.
Q_DECLARE_LOGGING_CATEGORY(lcLinkInstanceUav)
// sky.linkinstance.param: the aircraft's parameter download and parameter writes.
Q_DECLARE_LOGGING_CATEGORY(lcLinkInstanceParam)
// sky.linkinstance.push: the client link to the cloud's push channel.
Q_DECLARE_LOGGING_CATEGORY(lcLinkInstancePush)
// sky.linkinstance.usb: the removable disks.
Q_DECLARE_LOGGING_CATEGORY(lcLinkInstanceUsb)
// sky.linkinstance.base: the GNSS base station's control link and FTP downloads.
Q_DECLARE_LOGGING_CATEGORY(lcLinkInstanceBase)
