#include "CLmUpdateFolders.h"

#include "CLmControl.h"

QString CLmUpdateFolders::Installers()
{
    return CLmControl::GetInstance()->GetAppDataDirectory() + QStringLiteral("/Updates");
}

QString CLmUpdateFolders::Firmware()
{
    return CLmControl::GetInstance()->GetAppDataDirectory() + QStringLiteral("/Firmware");
}
