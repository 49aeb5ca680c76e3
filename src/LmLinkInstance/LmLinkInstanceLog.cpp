#include "LmLinkInstanceLog.h"

Q_LOGGING_CATEGORY(lcLinkInstanceLink, "sky.linkinstance.link")
Q_LOGGING_CATEGORY(lcLinkInstanceUav, "sky.linkinstance.uav")
Q_LOGGING_CATEGORY(lcLinkInstanceParam, "sky.linkinstance.param")
Q_LOGGING_CATEGORY(lcLinkInstancePush, "sky.linkinstance.push")
Q_LOGGING_CATEGORY(lcLinkInstanceUsb, "sky.linkinstance.usb")
Q_LOGGING_CATEGORY(lcLinkInstanceBase, "sky.linkinstance.base")
