#include "CLmBaseStationLinkHelper.h"

CLmBaseStationLinkHelper::CLmBaseStationLinkHelper(QObject* parent)
    : QObject(parent)
{
    qRegisterMetaType<SStaticFileState>("SStaticFileState");
    qRegisterMetaType<SBaseStationMainFrame>("SBaseStationMainFrame");
    qRegisterMetaType<SSCasterParam>("SSCasterParam");
    qRegisterMetaType<SGGAParam>("SGGAParam");
    qRegisterMetaType<SBaseStationLoction>("SBaseStationLoction");
}
